#include "ui/charts/frmChartInfo.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <utility>

#include "core/files.h"
#include "core/text.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kFollowInterval = 300;  // ms between two looks at which chart is in use

QPushButton* MakePickButton(const char* name, const QString& text) {
  auto* button = Named<QPushButton>(name, text);
  button->setAutoDefault(false);
  button->setCheckable(true);
  button->setToolTip("The next click on the chart sets row and column of this corner");
  return button;
}

}  // namespace

frmChartInfo::frmChartInfo(Desktop& desktop, ChartViewer& viewer, std::function<void()> redraw,
                           QWidget* parent)
    : LiveDialog(desktop, "frmChartInfo", "Calibrate Chart", parent, kFollowInterval),
      viewer_(viewer),
      redraw_(std::move(redraw)),
      chart_path_(Trim(desktop.program.config.chart_path)),
      shown_(desktop.program.charts.chart.file),
      panel_(new CalibrationPanel(desktop.messages)),
      pick_upper_(MakePickButton("cmdPickUpper", "Pick &Upper Left")),
      pick_lower_(MakePickButton("cmdPickLower", "Pick Lower &Right")),
      edges_(Named<QLabel>("lblEdges")),
      check_(Named<QLabel>("lblCheck")) {
  MakeMenu();
  body()->addWidget(MakeHeading(ToQt(FileNameOf(NativePath(chart_path_)))));
  body()->addWidget(
      MakeHint("This form does not save anything, it only adjusts the form chart details held in "
               "memory."));
  body()->addWidget(
      MakeHint("Once the coordinates are correct then open this screen again use File 'Save Chart "
               "Settings'."));
  panel_->AddCornerButton(ChartCorner::kUpperLeft, pick_upper_);
  panel_->AddCornerButton(ChartCorner::kLowerRight, pick_lower_);
  body()->addWidget(panel_);
  for (QLabel* line : {edges_, check_}) {
    line->setWordWrap(true);
    line->setMinimumHeight(line->fontMetrics().height());
    body()->addWidget(line);
  }
  body()->addStretch(1);
  QPushButton* ok = AddButton("cmdOK", "OK", "Draw the chart by these lines; nothing is stored");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(pick_upper_, &QPushButton::clicked, this, [this] { Pick(ChartCorner::kUpperLeft); });
  connect(pick_lower_, &QPushButton::clicked, this, [this] { Pick(ChartCorner::kLowerRight); });
  connect(panel_, &CalibrationPanel::Changed, this, [this] { FollowTexts(); });
  panel_->SetTexts(TextsOf(shown_));
  FollowTexts();
  // Left to itself a window opens with two thirds of the screen at most, and the boxes give way.
  const int wide = sizeHint().width();
  resize(wide, layout()->totalHeightForWidth(wide));
  // The mouse comes through the viewport, keys through the viewer itself.
  viewer_.installEventFilter(this);
  viewer_.viewport()->installEventFilter(this);
}

void frmChartInfo::MakeMenu() {
  auto* bar = new QMenuBar(this);
  QMenu* file = bar->addMenu("&File");
  QAction* save = file->addAction("&Save Chart Settings");
  save->setObjectName("mnuSave");
  QAction* restore = file->addAction("&Restore Chart Settings");
  restore->setObjectName("mnuRestore");
  connect(save, &QAction::triggered, this, [this] { Save(); });
  connect(restore, &QAction::triggered, this, [this] { Restore(); });
  layout()->setMenuBar(bar);
}

void frmChartInfo::Follow() {
  if (Trim(desktop().program.config.chart_path) != chart_path_) {
    desktop().window.Tell("Another chart is in use: its calibration is left as it was");
    QDialog::reject();
  }
}

void frmChartInfo::FollowTexts() {
  typed_.reset();
  const BoxesRead<ChartFileRecord> read = ReadCalibrationTexts(panel_->Texts(), shown_);
  if (read.value) {
    if (const Result<ChartRecord> chart = WorkOutChart(*read.value)) typed_ = *chart;
  }
  edges_->setText(ToQt(typed_ ? ChartEdgesText(*typed_) : read.refusal));
  ShowCheck(std::nullopt);
}

void frmChartInfo::ShowCheck(std::optional<QPointF> at) {
  if (picking_) {
    check_->setText(*picking_ == ChartCorner::kUpperLeft
                        ? "Click on the upper left point on the chart (Esc cancels)"
                        : "Click on the lower right point on the chart (Esc cancels)");
  } else if (at && typed_ && viewer_.image_width() > 0) {
    const ImagePoint point = viewer_.ViewToImage(*at);
    check_->setText(ToQt(CheckPointText(*typed_, viewer_.image_width(), viewer_.image_height(),
                                        point.column, point.row)));
  } else {
    check_->setText("Point at a place on the chart to check its position");
  }
}

bool frmChartInfo::eventFilter(QObject* watched, QEvent* event) {
  if (!isVisible()) return LiveDialog::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::MouseMove:
      if (!picking_) ShowCheck(static_cast<QMouseEvent*>(event)->position());
      break;
    case QEvent::MouseButtonPress:
      if (watched == viewer_.viewport() && picking_ &&
          static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        return PickAt(static_cast<QMouseEvent*>(event)->position());
      }
      break;
    case QEvent::KeyPress:
      // Esc on the chart would otherwise reset the route.
      if (picking_ && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        EndPick();
        return true;
      }
      break;
    default:
      break;
  }
  return LiveDialog::eventFilter(watched, event);
}

void frmChartInfo::Pick(ChartCorner corner) {
  if (picking_ == corner || viewer_.image_width() < 1) return EndPick();
  picking_ = corner;
  pick_upper_->setChecked(corner == ChartCorner::kUpperLeft);
  pick_lower_->setChecked(corner == ChartCorner::kLowerRight);
  viewer_.SetPointer(Qt::CrossCursor);
  ShowCheck(std::nullopt);
}

void frmChartInfo::EndPick() {
  picking_.reset();
  pick_upper_->setChecked(false);
  pick_lower_->setChecked(false);
  ShowCheck(std::nullopt);
}

bool frmChartInfo::PickAt(QPointF at) {
  const ImagePoint point = viewer_.ViewToImage(at);
  const int width = viewer_.image_width();
  const int height = viewer_.image_height();
  // Beside the picture there is nothing to pick.
  if (point.column < 0 || point.row < 0 || point.column > width || point.row > height) return true;
  const ChartCorner corner = *picking_;
  EndPick();
  panel_->SetTexts(PickCorner(panel_->Texts(), corner, point.column, point.row, width, height));
  activateWindow();
  panel_->Box(corner == ChartCorner::kUpperLeft ? "txtUpperLat" : "txtLowerLat")
      ->setFocus(Qt::TabFocusReason);
  return true;
}

std::optional<ChartRecord> frmChartInfo::Read() {
  // A calculation that runs reads the chart as it is.
  if (desktop().view.busy) return std::nullopt;
  const BoxesRead<ChartFileRecord> read = ReadCalibrationTexts(panel_->Texts(), shown_);
  if (!read.value) {
    Refuse(read.refusal, false, panel_->Box(read.box));
    return std::nullopt;
  }
  const Result<ChartRecord> chart = WorkOutChart(*read.value);
  if (!chart) return std::nullopt;
  return *chart;
}

void frmChartInfo::Use(const ChartRecord& chart) { desktop().program.charts.chart = chart; }

void frmChartInfo::Accept() {
  EndPick();
  const std::optional<ChartRecord> chart = Read();
  if (!chart) return;
  Use(*chart);
  accept();
  redraw_();
}

void frmChartInfo::Save() {
  const std::optional<ChartRecord> chart = Read();
  if (!chart) return;
  const Status saved =
      SaveCalibration(desktop().program.folders, chart_path_, chart->file, Delivered::kKept);
  if (!saved) return Refuse(saved.error().Text());
  // What is stored is in force, whether the form is left by OK or not.
  Use(*chart);
  shown_ = chart->file;
  panel_->SetTexts(TextsOf(shown_));
  desktop().window.Tell("Saved the calibration of " + FileNameOf(NativePath(chart_path_)));
  redraw_();
}

void frmChartInfo::Restore() {
  const Result<std::optional<ChartFileRecord>> delivered =
      ReadCalibration(desktop().program.folders, chart_path_, Calibration::kDelivered);
  if (!delivered) return Refuse(delivered.error().Text());
  if (!delivered.value()) return;
  shown_ = WithCalibration(shown_, *delivered.value());
  panel_->SetTexts(TextsOf(shown_));
}

void frmChartInfo::reject() {
  if (picking_) return EndPick();
  LiveDialog::reject();
}

}  // namespace skerrow
