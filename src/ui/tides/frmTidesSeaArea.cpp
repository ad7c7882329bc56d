#include "ui/tides/frmTidesSeaArea.h"

#include "core/text.h"
#include "ui/forms/tide_forms.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmTidesSeaArea::frmTidesSeaArea(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmTidesSeaArea", "Tidal Sea Area", parent),
      list_(Named<QListWidget>("lstAreas")) {
  const std::string in_force = ToLowerAscii(Trim(desktop.program.config.tidal_port_file));
  for (const std::string& name : ListTideAreas(desktop.program.folders)) {
    list_->addItem(ToQt(name));
    if (ToLowerAscii(name) == in_force) list_->setCurrentRow(list_->count() - 1);
  }
  QLabel* label = MakeLabel("Click on an &area followed by OK", list_);
  body()->addWidget(label);
  body()->addWidget(list_, 1);
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(list_, &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
  list_->setFocus();
  resize(320, 320);
}

void frmTidesSeaArea::Accept() {
  if (const char* refusal = TideAreaRefusal(FileName())) return Refuse(refusal, false, list_);
  accept();
}

std::string frmTidesSeaArea::FileName() const {
  const QListWidgetItem* item = list_->currentItem();
  return item == nullptr ? std::string() : FromQt(item->text());
}

}  // namespace skerrow
