#include "ui/dialogs/frmConfigure.h"

#include <QGridLayout>
#include <QMouseEvent>
#include <QScreen>

namespace skerrow {

frmConfigure::frmConfigure(Desktop& desktop, std::function<void()> show_tools, QWidget* parent)
    : Dialog(desktop, "frmConfigure", "General Settings", parent),
      show_tools_(std::move(show_tools)),
      config_(desktop.program.config),
      controls_(ConfigureFields(), desktop.messages),
      pages_(new QTabWidget) {
  (void)ReadConfig(desktop.program.folders, config_);
  pages_->addTab(MakePassagePage(), "&Passage");
  pages_->addTab(MakePage({controls_.MakeBox("Text on the chart", {"cmbTextSize", "pctFontCol"}),
                           controls_.MakeBox("Course and track", {"cmbLineSize", "pctCOGCol"})}),
                 "C&hart");
  pages_->addTab(MakePage({controls_.MakeBox(
                     "Tidal stream arrows",
                     {"cmbThreshold", "cmbStreamLineWidth", "cmbStreamLength", "pctTidalStreamCol",
                      "chkStreamAsShape", "chkStreamFilled", "chkHideStreamId"})}),
                 "Tidal &streams");
  pages_->addTab(
      MakePage({controls_.MakeBox("Wind", {"chkUseSmartMet", "chkShowwind"}),
                controls_.MakeBox("Wind barbs", {"cmbBarbWeight", "cmbBarbLength", "cmbBarbSpacing",
                                                 "pctWindCol", "chkBarbDisplayText"})}),
      "&Wind");
  body()->addWidget(pages_, 1);
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  controls_.Show(ShowSettings(ConfigureFields(), config_));
  findChild<QWidget*>("Txtboatspeed")->setFocus();
}

QWidget* frmConfigure::MakePassagePage() {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  grid->setSpacing(12);
  grid->addWidget(controls_.MakeBox("Boat", {"Txtboatspeed", "Txtvariation", "txtCPAWind",
                                             "chkLeeway", "txtLeeWay"}),
                  0, 0);
  grid->addWidget(controls_.MakeBox("Calculation", {"txtCalcInterval", "txtErrorCircle",
                                                    "txtSearchCircle", "chkUseTides"}),
                  0, 1);
  grid->addWidget(controls_.MakeBox("Time", {"optSummerTime"}), 1, 0, 1, 2);
  grid->setRowStretch(2, 1);
  return page;
}

QWidget* frmConfigure::MakePage(std::initializer_list<QWidget*> boxes) {
  auto* page = new QWidget;
  auto* rows = new QVBoxLayout(page);
  rows->setSpacing(12);
  for (QWidget* box : boxes) rows->addWidget(box);
  rows->addStretch(1);
  return page;
}

void frmConfigure::Accept() {
  AppConfig changed = config_;
  if (const auto refusal = TakeConfigure(controls_.Texts(), changed)) {
    QWidget* field = controls_.control(refusal->row);
    for (int page = 0; page < pages_->count(); ++page) {
      if (pages_->widget(page)->isAncestorOf(field)) pages_->setCurrentIndex(page);
    }
    Refuse(refusal->text, ConfigureFields()[refusal->row].beep, field);
    return;
  }
  const Status saved = CommitConfigure(desktop().program, changed, desktop().messages);
  if (!saved) desktop().messages.Show(saved.error().Text(), MessageIcon::kWarning);
  accept();
  desktop().window.Changed(kSettingsChanged | kRouteChanged | kTimeChanged);
}

void frmConfigure::mouseDoubleClickEvent(QMouseEvent* event) {
  Dialog::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && show_tools_) show_tools_();
}

void frmConfigure::showEvent(QShowEvent* event) {
  Dialog::showEvent(event);
  const QRect room = screen()->availableGeometry();
  move(room.center() - QPoint(width() / 2, height() / 2));
}

}  // namespace skerrow
