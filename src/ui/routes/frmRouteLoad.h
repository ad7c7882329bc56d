#pragma once

#include <QCheckBox>

#include "ui/routes/file_list.h"
#include "ui/routes/unsaved.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Load Route": replaces the current route by that of a file.
class FrmRouteLoad : public Dialog {
  Q_OBJECT

 public:
  FrmRouteLoad(Desktop& desktop, EditSession& session, QWidget* parent);

 private:
  void ShowFile();
  void Accept();

  EditSession& session_;
  FileList* files_;
  QLabel* count_;
  TextList* records_;
  QCheckBox* use_default_speed_;
};

// Loads the route file at `path` as one edit of the route, which then is saved. A file without
// entries empties the route and is an error all the same.
Status LoadRouteFile(Desktop& desktop, EditSession& session, const std::string& path,
                     RouteSpeeds speeds);

}  // namespace skerrow
