#pragma once

#include <QLineEdit>
#include <string>

#include "ui/dialogs/file_list.h"
#include "ui/forms/file_forms.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// What the dialogs that ask for the name of a new file have in common: the name, the files that
// are there already, the checks and the question before one is written over.
class NameDialog : public Dialog {
  Q_OBJECT

 public:
  // Name of the file that was written; empty before.
  const std::string& file_name() const { return file_name_; }

 protected:
  NameDialog(Desktop& desktop, const char* name, const QString& title, NameEntry entry,
             QWidget* parent);

  // Asked before a file is touched: false when there is nothing to write, and the dialog is closed.
  virtual bool Ready() { return true; }
  // Writes the file of a checked name. An error is shown and leaves the dialog open.
  virtual Status Write(const std::string& file_name) = 0;

 private:
  FileKind kind() const {
    return entry_ == NameEntry::kRouteSave ? FileKind::kRoute : FileKind::kWaypoint;
  }
  void Accept();

  NameEntry entry_;
  QLineEdit* name_;
  FileList* files_;
  std::string file_name_;
};

}  // namespace skerrow
