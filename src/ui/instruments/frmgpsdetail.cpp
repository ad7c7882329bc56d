#include "ui/instruments/frmgpsdetail.h"

#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>

#include "instruments/serial_link.h"
#include "ui/widgets/qt_text.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

// A GPS is read every 150 ms; no block is missed.
constexpr int kInterval = 75;

// A large value with its name.
QLabel* AddValue(QFormLayout* form, const char* name, const QString& label) {
  auto* value = Named<QLabel>(name);
  value->setProperty("heading", true);
  value->setTextInteractionFlags(Qt::TextSelectableByMouse);
  form->addRow(new QLabel(label), value);
  return value;
}

QFormLayout* MakeForm(QGroupBox* box) {
  auto* form = new QFormLayout(box);
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(6);
  return form;
}

// Starboard is green and port is red, as at sea; by night the theme's own colours spare the eyes.
QString SideStyle(const QString& side) {
  if (ThemeInForce().night || side.isEmpty()) return {};
  return side == QLatin1String("Stbd") ? "color: #0a7a2f" : "color: #c01818";
}

}  // namespace

frmgpsdetail::frmgpsdetail(Desktop& desktop, QWidget* parent)
    : LiveDialog(desktop, "frmgpsdetail", "GPS Monitor", parent, kInterval),
      save_(Named<QPushButton>("cmdSave", "&Save Waypoint to Current File")),
      received_(new ReceivedBox("txtNMEA")),
      lines_(Named<QPlainTextEdit>("txtCommsDetails")) {
  auto* top = new QHBoxLayout;
  top->setSpacing(12);
  top->addWidget(MakePlace(), 1);
  top->addWidget(MakeDestination(), 1);
  body()->addLayout(top);
  auto* texts = new QHBoxLayout;
  texts->setSpacing(12);
  lines_->setReadOnly(true);
  lines_->setTabChangesFocus(true);
  lines_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  const auto add = [texts](const QString& label, QWidget* box, int stretch) {
    auto* column = MakeColumn();
    column->addWidget(MakeLabel(label, box));
    column->addWidget(box, 1);
    texts->addLayout(column, stretch);
  };
  add("&Text of the GPS:", received_, 3);
  add("&Lines of the port:", lines_, 2);
  body()->addLayout(texts, 1);
  QPushButton* close = AddButton("cmdCancel", "Close");
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  connect(save_, &QPushButton::clicked, this, [this] { SaveWaypoint(); });
  resize(680, 520);
}

QWidget* frmgpsdetail::MakePlace() {
  auto* box = new QGroupBox("Boat");
  QFormLayout* form = MakeForm(box);
  fix_ = {AddValue(form, "lblLatitude", "Latitude:"), AddValue(form, "lblLongitude", "Longitude:"),
          AddValue(form, "lblSpeed", "Speed, kn:"), AddValue(form, "lblCourse", "Course, °T:"),
          AddValue(form, "lblTime", "Time of the fix:")};
  return box;
}

QWidget* frmgpsdetail::MakeDestination() {
  auto* box = new QGroupBox("Destination");
  QFormLayout* form = MakeForm(box);
  destination_ = {AddValue(form, "lblDestName", "Waypoint:"),
                  AddValue(form, "lblDestLatitude", "Latitude:"),
                  AddValue(form, "lblDestLongitude", "Longitude:"),
                  AddValue(form, "lblRange", "Range, nm:"),
                  AddValue(form, "lblBearing", "Bearing, °T:"),
                  AddValue(form, "lblCrossTrack", "Cross-track error, nm:"),
                  AddValue(form, "lblSteer", "Steer to:")};
  save_->setAutoDefault(false);
  form->addRow(save_);
  return box;
}

void frmgpsdetail::Follow() {
  const Program& program = desktop().program;
  const GpsMonitorTexts texts = GpsMonitorTextsOf(program.nmea);
  const auto show = [](QLabel* label, const std::string& text) {
    SetTextOf(*label, text.empty() ? QStringLiteral("\u2013") : ToQt(text));
  };
  const std::array fix = {texts.latitude, texts.longitude, texts.speed, texts.course, texts.time};
  for (std::size_t i = 0; i < fix.size(); ++i) show(fix_[i], fix[i]);
  const std::array destination = {texts.name,
                                  texts.destination_latitude,
                                  texts.destination_longitude,
                                  texts.range,
                                  texts.bearing,
                                  texts.cross_track,
                                  texts.steer};
  for (std::size_t i = 0; i < destination.size(); ++i) show(destination_[i], destination[i]);
  if (const QString style = SideStyle(ToQt(texts.steer));
      destination_.back()->styleSheet() != style) {
    destination_.back()->setStyleSheet(style);
  }
  save_->setEnabled(DestinationDegrees(texts.destination_latitude).has_value());
  ShowText();
}

void frmgpsdetail::ShowText() {
  const Program& program = desktop().program;
  const LinkState& link = program.link;
  // A GPS that is connected to the AIS has no text of its own.
  const bool through_ais = program.config.gps_through_ais != 0;
  const LinkPort& port = through_ais ? link.ais : link.gps;
  if (port.number < 0) {
    SetTextOf(*lines_, "Not connected");
    return;
  }
  if (port.blocks == shown_blocks_) return;
  shown_blocks_ = port.blocks;
  received_->Add(through_ais ? link.block : program.nmea.raw_text);
  SetTextOf(*lines_, ToQt(LineStateReport(desktop().ports, port.number)).remove(QLatin1Char('\r')));
}

void frmgpsdetail::SaveWaypoint() {
  const Rmb destination = desktop().program.nmea.destination;
  const Status saved = SaveDestination(desktop().program, destination, desktop().messages);
  if (!saved) {
    Refuse(saved.error().Text());
    return;
  }
  desktop().window.Tell("Waypoint saved");
  desktop().window.Changed(kViewChanged);
}

void frmgpsdetail::done(int result) {
  Program& program = desktop().program;
  const Status loaded =
      LoadCurrentWaypoints(program.folders, program.config, program.waypoints, desktop().messages);
  if (!loaded) desktop().messages.Show(loaded.error().Text(), MessageIcon::kWarning);
  desktop().window.Changed(kViewChanged);
  LiveDialog::done(result);
}

}  // namespace skerrow
