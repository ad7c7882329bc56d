#pragma once

#include <QLineEdit>
#include <string>
#include <vector>

#include "ui/dialogs/file_list.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// Whole waypoint or route files to or from another disk. `frmwayimport` copies the chosen files of
// a folder into the user's; `frmwayexport` copies the user's files out.
class frmwayimport : public Dialog {
  Q_OBJECT

 public:
  enum class Direction { kImport, kExport };

  frmwayimport(Desktop& desktop, FileKind kind, QWidget* parent,
               Direction direction = Direction::kImport);

 private:
  bool importing() const { return direction_ == Direction::kImport; }
  std::string FirstFolder() const;
  void Browse();
  void FillList();
  void Accept();

  FileKind kind_;
  Direction direction_;
  QLineEdit* folder_;
  FileList* files_;
  QLabel* chosen_;
};

// Copies files of the user's folder of a kind into `folder` and gives their number. A file that
// stands there already is asked about first. The first that cannot be copied ends it with its
// error.
Result<int> ExportFiles(const Folders& folders, FileKind kind,
                        const std::vector<std::string>& names, const std::string& folder,
                        Messages& messages);

}  // namespace skerrow
