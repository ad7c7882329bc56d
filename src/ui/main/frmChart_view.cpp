#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <cmath>

#include "charts/chart_view.h"
#include "core/files.h"
#include "core/text.h"
#include "platform/clipboard.h"
#include "ui/dialogs/frmLoadChart.h"
#include "ui/main/frmChart.h"
#include "ui/main/readout.h"
#include "ui/overlays/overlays.h"
#include "ui/widgets/qt_text.h"
#include "ui/widgets/theme.h"

// The main window's chart: opening, changing, zooming, panning, looks, and the events over it.
namespace skerrow {
namespace {

constexpr const char* kViewSection = "Settings";

// What the opening of a chart's image ends with, as the user is told; 0 is success.
constexpr int kStatusNoFile = 1;     // the file cannot be read
constexpr int kStatusNoPicture = 2;  // it holds no picture that can be decoded

ChartView ViewOf(const Program& program, const ChartViewer& viewer) {
  return MakeChartView(program.charts.chart, viewer.image_width(), viewer.image_height());
}

Position PlaceAt(const Program& program, const ChartViewer& viewer, ImagePoint at) {
  const ChartView chart = ViewOf(program, viewer);
  return {chart.RowToLat(at.row), chart.ColToLong(at.column)};
}

// The published code of a key, as the key table counts them; 0 for keys it does not know.
int KeyCodeOf(const QKeyEvent& event) {
  const bool keypad = event.modifiers().testFlag(Qt::KeypadModifier);
  switch (event.key()) {
    case Qt::Key_Backspace:
      return 8;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return 13;
    case Qt::Key_Escape:
      return 27;
    case Qt::Key_PageUp:
      return 33;
    case Qt::Key_PageDown:
      return 34;
    case Qt::Key_Home:
      return 36;
    case Qt::Key_Left:
      return 37;
    case Qt::Key_Up:
      return 38;
    case Qt::Key_Right:
      return 39;
    case Qt::Key_Down:
      return 40;
    case Qt::Key_Insert:
      return 45;
    case Qt::Key_Delete:
      return 46;
    case Qt::Key_Plus:
      return 107;
    case Qt::Key_Equal:
      // With Shift, on boards that still tell of it as "=", it zooms in as the key I does.
      return event.modifiers().testFlag(Qt::ShiftModifier) ? 73 : 187;
    case Qt::Key_Minus:
      return keypad ? 109 : 189;
    case Qt::Key_NumberSign:
      return 222;
    default:
      break;
  }
  if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F12) {
    return 112 + event.key() - Qt::Key_F1;
  }
  if ((event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9) ||
      (event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z)) {
    return event.key();
  }
  return 0;
}

}  // namespace

Position FrmChart::PlaceUnder(const ViewerMouse& mouse) const {
  return PlaceAt(program(), *viewer_, mouse.image);
}

bool FrmChart::DrawChart() {
  AppConfig& config = program().config;
  config.chart_path = Trim(config.chart_path);
  redraw_ = false;
  const std::unique_ptr<Progress> progress = StartProgress("Opening chart");
  const Status opened = viewer_->OpenAndWait(NativePath(config.chart_path) + ".l55",
                                             ChartViewer::OnFailure::kKeepOld, *progress);
  redraw_ = true;
  if (!opened) {
    // At the start the window comes up without a chart and says so when it is used.
    if (viewer_->image_height() < 1) return false;
    const Error& error = opened.error();
    if (error.reason == kDecodeCancelled) return false;
    const int status = FileReadable(error.path) ? kStatusNoPicture : kStatusNoFile;
    messages().Show("error code: " + std::to_string(status) + "\n" + error.Text(),
                    MessageIcon::kWarning, kProgramTitle);
    return false;
  }
  RestoreView();
  PlaceFloats();
  return true;
}

void FrmChart::SaveView() {
  if (viewer_->image_height() < 1) return;
  const ImageRect seen = viewer_->VisibleRect();
  desktop_.settings.SetInt(kViewSection, "Left", seen.left);
  desktop_.settings.SetInt(kViewSection, "Top", seen.top);
  desktop_.settings.SetInt(kViewSection, "Width", seen.width);
  desktop_.settings.SetInt(kViewSection, "Height", seen.height);
}

void FrmChart::RestoreView() {
  const ImageRect stored{desktop_.settings.GetInt(kViewSection, "Left", 0),
                         desktop_.settings.GetInt(kViewSection, "Top", 0),
                         desktop_.settings.GetInt(kViewSection, "Width", -1),
                         desktop_.settings.GetInt(kViewSection, "Height", -1)};
  const bool on_image = stored.left >= 0 && stored.top >= 0 &&
                        stored.left < viewer_->image_width() &&
                        stored.top < viewer_->image_height();
  if (stored.width > 10 && stored.height > 10 && on_image) {
    viewer_->ZoomToRect(stored);
  } else {
    viewer_->SetZoomPercent(kStartZoomPercent);
    viewer_->SetScrollPosition(viewer_->ScrollRange() / 2);
  }
}

void FrmChart::PaintOverlays(DrawingSurface& surface) {
  if (!redraw_ || viewer_->image_height() < 1) return;
  const OverlayView seen =
      MakeOverlayView(program().charts.chart, viewer_->geometry(), program().config.text_size);
  DrawOverlays(surface, seen, program(), view_);
  const QString mob = ToQt(MobLabelText(seen, program().mob)).trimmed();
  if (mob_label_->text() != mob) mob_label_->setText(mob);
  if (mob_label_->isHidden() == !mob.isEmpty()) mob_label_->setVisible(!mob.isEmpty());
}

// Everything of a sea area beside the chart itself.
void FrmChart::LoadAreaData() {
  Program& p = program();
  (void)LoadChartIndex(p.folders, p.config, p.charts, messages());
  FindRefPorts(p.tides, p.folders, p.config.tidal_area);
  RebuildTides(p, messages());
  LoadDiamonds(p.tides, p.folders, p.config.tidal_area, messages());
  p.port_markers = LoadPortMarkers(p.folders, p.config.tidal_port_file, messages());
}

void FrmChart::ChangeChart() {
  Program& p = program();
  SaveView();
  const AppConfig before = p.config;
  const ChartState charts_before = p.charts;
  FrmLoadChart dialog(desktop_, this);
  if (dialog.exec() != QDialog::Accepted) return;
  if (!DrawChart()) {
    // The chart on screen stays the current one, here and at the next start.
    p.charts = charts_before;
    SaveConfigChange([&](AppConfig& config) { config = before; });
    return;
  }
  LoadAreaData();
  view_.candidate_chart.reset();
  AddRecentChart(recent_, Trim(p.config.chart_path) + ".cht");
  FillRecentMenu();
  Changed(kAllChanged);
}

bool FrmChart::SwitchChart(const std::string& chart_path) {
  Program& p = program();
  SaveView();
  const AppConfig before = p.config;
  const ChartState charts_before = p.charts;
  const Status opened = OpenChart(chart_path, p.config, p.charts);
  if (!opened) {
    messages().Show(opened.error().Text(), MessageIcon::kWarning, kProgramTitle);
    return false;
  }
  if (!DrawChart()) {
    p.config = before;
    p.charts = charts_before;
    return false;
  }
  const std::string path = p.config.chart_path;
  SaveConfigChange([&](AppConfig& config) {
    config.chart_path = path;
    config.chart_file_name = FileNameOf(path) + ".cht";
    config.chart_folder = FolderOf(path);
  });
  return true;
}

void FrmChart::OpenRecentChart(const std::string& cht_path) {
  AppConfig wanted = program().config;
  ApplyRecentChart(wanted, cht_path);
  const bool other_area = wanted.sea_area != program().config.sea_area;
  if (!SwitchChart(wanted.chart_path)) return;
  if (other_area) {
    SaveConfigChange([&](AppConfig& config) {
      config.sea_area = wanted.sea_area;
      config.tidal_area = wanted.tidal_area;
    });
    LoadAreaData();
  }
  AddRecentChart(recent_, cht_path);
  FillRecentMenu();
  Changed(kAllChanged);
}

void FrmChart::LargerScale() {
  const Position cursor = view_.cursor;
  const std::optional<std::string> key = LargerScaleChart(cursor, program().charts);
  if (!key || !SwitchChart(ChartPathOf(program().folders, *key))) return;
  LocatePoint(cursor);
  Changed(kAllChanged);
}

void FrmChart::SmallerScale() {
  if (program().charts.history.size() > 1) return PreviousChart();
  const Position cursor = view_.cursor;
  const std::optional<std::string> key = SmallerScaleChart(cursor, program().charts);
  if (!key || !SwitchChart(ChartPathOf(program().folders, *key))) return;
  LocatePoint(cursor);
  Changed(kAllChanged);
}

void FrmChart::PreviousChart() {
  Program& p = program();
  const Position cursor = view_.cursor;
  SaveView();
  const AppConfig before = p.config;
  const ChartState charts_before = p.charts;
  if (const Status opened = OpenPreviousChart(p.config, p.charts); !opened) {
    if (!opened.error().Text().empty()) {
      messages().Show(opened.error().Text(), MessageIcon::kWarning, kProgramTitle);
    }
    return;
  }
  if (!DrawChart()) {
    p.config = before;
    p.charts = charts_before;
    return;
  }
  const std::string path = p.config.chart_path;
  SaveConfigChange([&](AppConfig& config) { config.chart_path = path; });
  viewer_->SetZoomPercent(100);
  const ChartView chart = ViewOf(p, *viewer_);
  const bool clicked =
      view_.last_click && chart.OnImage(chart.LongToCol(view_.last_click->longitude),
                                        chart.LatToRow(view_.last_click->latitude));
  LocatePoint(clicked ? *view_.last_click : cursor);
  Changed(kAllChanged);
}

void FrmChart::LocatePoint(Position position) {
  if (viewer_->image_height() < 1) return;
  const ChartView chart = ViewOf(program(), *viewer_);
  const std::int32_t column = chart.LongToCol(position.longitude);
  const std::int32_t row = chart.LatToRow(position.latitude);
  if (!chart.OnImage(column, row)) return;
  viewer_->CentreOn({static_cast<double>(column), static_cast<double>(row)});
}

std::optional<VisibleChart> FrmChart::Visible() const {
  if (viewer_->image_height() < 1) return std::nullopt;
  const ImageRect seen = viewer_->VisibleRect();
  const ChartView chart = ViewOf(program(), *viewer_);
  return VisibleChart{chart.RowToLat(seen.top + seen.height), chart.RowToLat(seen.top),
                      chart.ColToLong(seen.left), chart.ColToLong(seen.left + seen.width)};
}

void FrmChart::ZoomTo(double factor) {
  viewer_->SetZoom(factor);
  Repaint();
}

void FrmChart::ZoomStep(bool in) {
  LocatePoint(view_.cursor);
  const auto zoom = static_cast<float>(viewer_->zoom());
  ZoomTo(in ? ZoomIn(zoom) : ZoomOut(zoom));
}

void FrmChart::PanView(PanDirection direction) {
  if (viewer_->image_height() < 1) return;
  const ImageRect seen = viewer_->VisibleRect();
  const PixelRect to = Pan({seen.left, seen.top, seen.width, seen.height}, direction,
                           viewer_->image_width(), viewer_->image_height());
  viewer_->PanBy({(to.left - seen.left) * viewer_->zoom(), (to.top - seen.top) * viewer_->zoom()});
}

void FrmChart::ToggleRectangle() {
  view_.rectangle_mode = !view_.rectangle_mode;
  view_.rectangle_dragging = false;
  viewer_->ClearSelection();
  viewer_->SetMouseMode(view_.rectangle_mode ? ChartViewer::MouseMode::kRubberBand
                                             : ChartViewer::MouseMode::kNone);
  viewer_->SetPointer(Qt::CrossCursor);
  UpdateActions();
  Repaint();
}

void FrmChart::ToggleThumbnail() {
  view_.thumbnail_visible = !view_.thumbnail_visible;
  PlaceFloats();
  Repaint();
}

void FrmChart::ToggleToolbars() {
  const std::int16_t visible = Bool16(program().config.toolbar_visible == 0);
  SaveConfigChange([&](AppConfig& config) { config.toolbar_visible = visible; });
  toolbar_->setVisible(visible != 0);
  view_toolbar_->setVisible(visible != 0);
}

void FrmChart::SetNight(bool night) {
  view_.night = night;
  ApplyTheme(night);
  viewer_->SetNight(night);
  viewer_->SetBrightness(view_.brightness.level);
  const QString style =
      night ? "background: #000000; color: #00ff00; border: 1px solid #143014; border-radius: 4px;"
            : "background: #dfeaff; color: #000000; border: 1px solid #9db2cc; border-radius: 4px;";
  for (QLabel* label : {readout_, dividers_, mob_label_})
    label->setStyleSheet("QLabel {" + style + "}");
  QPalette colours = QGuiApplication::palette();
  for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Button}) {
    colours.setColor(role, night ? QColor(0, 0, 0) : QColor(223, 234, 255));
  }
  for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText}) {
    colours.setColor(role, night ? QColor(0, 255, 0) : QColor(0, 0, 0));
  }
  route_combo_->setPalette(colours);
  RefreshIcons();
  ShowReadout();
  UpdateActions();
}

void FrmChart::AdjustBrightness(int step) {
  if (step < 0) {
    view_.brightness.Decrease();
  } else if (step < 100) {
    view_.brightness.Increase();
  } else {
    view_.brightness.Reset();
  }
  viewer_->SetBrightness(view_.brightness.level);
  UpdateActions();
}

void FrmChart::SaveConfigChange(const std::function<void(AppConfig&)>& change) {
  const Status saved = ReloadThenSave(program().folders, program().config, change);
  if (!saved) messages().Show(saved.error().Text(), MessageIcon::kWarning, kProgramTitle);
}

void FrmChart::Toggle(std::int16_t AppConfig::*field) {
  const std::int16_t value = Bool16(program().config.*field == 0);
  SaveConfigChange([&](AppConfig& config) { config.*field = value; });
  Changed(kAllChanged);
}

void FrmChart::Toggle(float AppConfig::*field) {
  const float value = program().config.*field == 1.0F ? 0.0F : 1.0F;
  SaveConfigChange([&](AppConfig& config) { config.*field = value; });
  Changed(kAllChanged);
}

void FrmChart::CopyWindow() { QGuiApplication::clipboard()->setPixmap(grab()); }

bool FrmChart::MousePressed(const ViewerMouse& mouse) {
  if (busy_ || viewer_->image_height() < 1) return true;
  viewer_->setFocus();
  view_.cursor = PlaceUnder(mouse);
  if (mouse.button == Qt::RightButton) {
    if (mouse_.RightButtonDrags()) return true;
    if (view_.marked_kind == MarkedKind::kWaypoint) return true;
    view_.last_click = view_.cursor;
    ShowPopUp(mouse.global);
    return true;
  }
  if (mouse.button != Qt::LeftButton) return false;
  if (view_.rectangle_mode) {
    view_.rectangle_dragging = true;
    return false;
  }
  const bool shift = mouse.modifiers.testFlag(Qt::ShiftModifier);
  if (mouse_.Press({true, false, shift})) {
    UpdateActions();
    return true;
  }
  // A plain left button drags the chart.
  viewer_->SetMouseMode(ChartViewer::MouseMode::kPan);
  return false;
}

void FrmChart::GiveUpChart() {
  if (chart_lost_) return;
  chart_lost_ = true;
  AppConfig& config = program().config;
  config.chart_folder = Trim(config.chart_folder);
  config.chart_path = Trim(config.chart_path);
  messages().Show("Error in Chart File\n" + config.chart_path +
                      "\n\nRestoring defaults to Sample Chart and exiting program",
                  MessageIcon::kError, kProgramTitle);
  WriteDefaultConfig(program().folders, messages());
  QTimer::singleShot(0, this, &QWidget::close);
}

bool FrmChart::MouseMoved(const ViewerMouse& mouse) {
  if (busy_) return true;
  if (viewer_->image_height() < 1) {
    GiveUpChart();
    return true;
  }
  mouse_.Move(PlaceUnder(mouse),
              {mouse.buttons.testFlag(Qt::LeftButton), mouse.buttons.testFlag(Qt::RightButton),
               mouse.modifiers.testFlag(Qt::ShiftModifier)});
  return false;
}

bool FrmChart::MouseReleased(const ViewerMouse& mouse) {
  if (view_.rectangle_mode || mouse.buttons != Qt::NoButton) return false;
  mouse_.Release();
  viewer_->SetMouseMode(ChartViewer::MouseMode::kNone);
  viewer_->SetPointer(Qt::CrossCursor);
  return false;
}

bool FrmChart::Wheel(const ViewerMouse& mouse, int angle) {
  if (busy_ || viewer_->image_height() < 1) return true;
  viewer_->ZoomByWheel({mouse.at.x, mouse.at.y}, angle);
  view_.cursor = PlaceUnder(mouse);
  return true;
}

void FrmChart::ShowPopUp(QPoint at) {
  UpdateActions();
  pop_up_->popup(at);
}

bool FrmChart::KeyPressed(QKeyEvent& event) {
  if (busy_ || event.modifiers().testFlag(Qt::ControlModifier) ||
      event.modifiers().testFlag(Qt::AltModifier)) {
    return false;
  }
  const int code = KeyCodeOf(event);
  const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
  switch (code) {
    case 0:
      return false;
    case 13:
      Repaint();
      return true;
    case 27:
      Escape();
      return true;
    case 36:
      viewer_->SetScrollPosition(viewer_->ScrollRange() / 2);
      return true;
    case 33:
    case 38:
    case 85:
      if (shift && code != 85) return false;
      PanView(PanDirection::kUp);
      return true;
    case 34:
    case 40:
    case 68:
      if (shift && code != 68) return false;
      PanView(PanDirection::kDown);
      return true;
    case 37:
    case 76:
      if (shift && code != 76) return false;
      PanView(PanDirection::kLeft);
      return true;
    case 39:
    case 82:
      if (shift && code != 82) return false;
      PanView(PanDirection::kRight);
      return true;
    default:
      break;
  }
  for (const KeyRow& row : KeyRows()) {
    if (row.key != code) continue;
    RunCommand(row.command);
    UpdateCaption();
    return true;
  }
  return false;
}

}  // namespace skerrow
