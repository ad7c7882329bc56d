#include "ui/tides/frmChartdepth.h"

#include <QFormLayout>

#include "core/numbers.h"
#include "core/position.h"
#include "core/text.h"
#include "ui/dialogs/report_write.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmChartdepth::frmChartdepth(Desktop& desktop, const std::string& area, PortList ports,
                             int position, QWidget* parent)
    : Dialog(desktop, "frmChartdepth", "Enter Tidal Offset", parent),
      area_(area),
      picker_(new PortPicker("lstPorts")),
      name_(Named<QLabel>("lblName")),
      place_(Named<QLabel>("lblPosition")),
      depth_(Named<QLineEdit>("depth")) {
  body()->addWidget(
      MakeHint("Click on a port and enter the depth in metres (+ or -) to be added "
               "to predicted tide height."));
  body()->addWidget(picker_, 1);
  name_->setProperty("heading", true);
  auto* reset = Named<QPushButton>("cmdReset", "&Zero");
  reset->setAutoDefault(false);
  reset->setToolTip("Sets the depth to 0");
  depth_->setMaximumWidth(depth_->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 14);
  auto* form = new QFormLayout;
  form->setHorizontalSpacing(12);
  form->addRow("Port:", name_);
  form->addRow("Position:", place_);
  form->addRow(MakeLabel("&Depth, metres:", depth_), MakeRow({depth_, reset}));
  body()->addLayout(form);
  ok_ = AddButton("cdok", "OK");
  ok_->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(picker_, &PortPicker::Changed, this, [this] { ShowPort(); });
  connect(picker_, &PortPicker::Taken, this, [this] {
    depth_->setFocus();
    depth_->selectAll();
  });
  connect(reset, &QPushButton::clicked, this, [this] { depth_->setText("0"); });
  connect(ok_, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  picker_->SetPorts(std::move(ports), position);
  ShowPort();
  picker_->setFocus();
  resize(400, 500);
}

void frmChartdepth::ShowPort() {
  const Port* port = picker_->Chosen();
  ok_->setEnabled(port != nullptr);
  depth_->setEnabled(port != nullptr);
  name_->setText(port == nullptr ? QString() : ToQt(Trim(port->name)));
  place_->setText(port == nullptr
                      ? QString()
                      : ToQt(LatToText(port->latitude) + "  " + LongToText(port->longitude)));
  depth_->setText(port == nullptr ? QString() : ToQt(ShortText(port->user_depth)));
}

void frmChartdepth::Accept() {
  const std::optional<float> depth = ParseUserDepth(FromQt(depth_->text()));
  if (!depth) return Refuse(kDepthRefusal, true, depth_);
  const Status saved = SaveUserDepth(desktop().program.folders, area_, picker_->Position(), *depth);
  if (Written(saved, desktop().messages)) accept();
}

}  // namespace skerrow
