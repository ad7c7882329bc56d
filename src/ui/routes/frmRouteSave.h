#pragma once

#include "ui/routes/name_dialog.h"

namespace skerrow {

// "Save Route": writes the current route to a file of the routes folder.
class frmRouteSave : public NameDialog {
  Q_OBJECT

 public:
  frmRouteSave(Desktop& desktop, QWidget* parent);

 protected:
  bool Ready() override;
  Status Write(const std::string& file_name) override;

 private:
};

}  // namespace skerrow
