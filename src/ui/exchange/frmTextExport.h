#pragma once

#include "ui/dialogs/file_list.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// The export of a stored route, a waypoint file or the calculated course as a table for a
// spreadsheet: one dialog, three times.
class frmTextExport : public Dialog {
  Q_OBJECT

 public:
  enum class Source { kRoute, kWaypoints, kCourse };

  // frmTextRouteExport, frmTextWayExport and frmCOGexport.
  frmTextExport(Desktop& desktop, Source source, QWidget* parent);

 private:
  void ShowFile();
  void Export();

  Source source_;
  FileList* files_ = nullptr;  // none for the course
  TextList* rows_;
};

}  // namespace skerrow
