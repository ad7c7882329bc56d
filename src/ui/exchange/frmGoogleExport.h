#pragma once

#include <QLineEdit>

#include "ui/dialogs/file_list.h"
#include "ui/forms/kml_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// The export of a stored route, a waypoint file or a log to a KML viewer: one dialog, three times.
class frmGoogleExport : public Dialog {
  Q_OBJECT

 public:
  // frmGoogleRouteExport, frmGoogleWayExport and frmGoogleTrackExport.
  frmGoogleExport(Desktop& desktop, KmlKind kind, QWidget* parent);

 private:
  void ShowFile();
  void Export();

  KmlKind kind_;
  FileList* files_;
  TextList* rows_;
  QLineEdit* name_;
  QLineEdit* description_;
};

// Asks for a name and writes the calculated course.
void ExportCourse(Desktop& desktop, QWidget* parent);

}  // namespace skerrow
