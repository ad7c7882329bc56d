#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QTableWidget>
#include <optional>
#include <string>
#include <vector>

#include "ui/forms/gpx_form.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "Import a GPX Document": the routes, waypoints and tracks of a document that has been read, those
// to be taken ticked, each with the name of the file it becomes.
class frmGpxImport : public Dialog {
  Q_OBJECT

 public:
  // `may_replace` asks about a file of a name that is there.
  frmGpxImport(Desktop& desktop, GpxContents contents, MayReplace may_replace, QWidget* parent);

  // The files that were written, in the order of the document.
  const std::vector<std::string>& files() const { return files_; }
  // Whether they are to be shown on the chart.
  bool show_files() const { return show_->isChecked(); }

 private:
  void FillList();
  void ShowRemarks();
  void TickAll(bool on);
  void Import();
  // Writes the item of a row; false when that halts the import.
  bool Take(int row);

  const GpxContents contents_;
  const MayReplace may_replace_;
  QTableWidget* list_;
  QLabel* remarks_;
  QCheckBox* show_;
  std::vector<std::string> files_;
  Taken taken_;
};

// Reads a document, behind a progress window where that takes long. Empty, after a message, when it
// cannot be read or holds nothing, and when the user stopped it.
std::optional<GpxContents> ReadGpxContents(Desktop& desktop, QWidget* parent,
                                           const std::string& path);

}  // namespace skerrow
