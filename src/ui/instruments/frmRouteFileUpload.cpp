#include "ui/instruments/frmRouteFileUpload.h"

#include "ui/widgets/qt_text.h"

namespace skerrow {

frmRouteFileUpload::frmRouteFileUpload(Desktop& desktop, QWidget* parent)
    : UploadDialog(desktop,
                   {"frmRouteFileUpload", "Upload Route", "rtelist", "Route &files",
                    FileKind::kRoute, kRouteTransferred},
                   parent),
      name_(Named<QLineEdit>("txtRouteName")) {
  name_->setMaxLength(20);
  name_->setToolTip("What the GPS calls the route: its number, or a name if it takes one");
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(MakeLabel("Route num&ber or name:", name_));
  row->addWidget(name_, 1);
  side()->addLayout(row);
  connect(this, &UploadDialog::Sending, name_, &QLineEdit::setDisabled);
}

void frmRouteFileUpload::FileChosen(const std::string& file_name) {
  name_->setText(ToQt(UploadRouteName(file_name)));
}

std::vector<UploadStep> frmRouteFileUpload::Steps() const {
  return UploadRoute(points(), FromQt(name_->text()), options());
}

}  // namespace skerrow
