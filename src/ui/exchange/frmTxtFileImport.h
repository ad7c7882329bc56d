#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <optional>
#include <string>
#include <vector>

#include "ui/dialogs/file_list.h"
#include "ui/forms/text_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// The import of a route or of waypoints from a table of text: one dialog, twice.
class frmTxtFileImport : public Dialog {
  Q_OBJECT

 public:
  // frmTxtRouteImport and frmTxtWayImport. `may_replace` asks about a file of a name that is there.
  frmTxtFileImport(Desktop& desktop, FileKind kind, MayReplace may_replace, QWidget* parent);

  // The files that were written.
  const std::vector<std::string>& files() const { return written_; }
  // Whether they are to be shown on the chart.
  bool show_files() const { return show_->isChecked(); }

 private:
  void Browse();
  void FillList();
  void ShowFile();
  void Import();

  FileKind kind_;
  const MayReplace may_replace_;
  QLineEdit* folder_;
  FileList* files_;
  TextList* rows_;
  QLabel* remarks_;
  QLineEdit* name_;
  QCheckBox* show_;
  std::optional<ImportedTable> table_;
  std::string fault_;  // why the selected file is no table
  std::vector<std::string> written_;
};

}  // namespace skerrow
