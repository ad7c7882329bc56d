#pragma once

#include <QCheckBox>

#include "ui/dialogs/file_list.h"
#include "ui/forms/gpx_form.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "Export as GPX": the route on the chart, routes, waypoint files and tracks, those chosen into one
// document.
class frmGpxExport : public Dialog {
  Q_OBJECT

 public:
  frmGpxExport(Desktop& desktop, QWidget* parent);

 private:
  GpxChoice Choice() const;
  void Export();

  QCheckBox* current_;
  FileList* routes_;
  FileList* waypoints_;
  FileList* tracks_;
};

}  // namespace skerrow
