#pragma once

#include <QLineEdit>

#include "ui/forms/upload_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// "Upload Waypoint": sends one waypoint to the GPS at once.
class frmSingwayup : public Dialog {
  Q_OBJECT

 public:
  // `point` fills the boxes; one without a name leaves them empty.
  frmSingwayup(Desktop& desktop, const UploadPoint& point, QWidget* parent);

 private:
  void Send();

  QLineEdit* name_;
  FilteredEdit* latitude_;
  FilteredEdit* longitude_;
};

}  // namespace skerrow
