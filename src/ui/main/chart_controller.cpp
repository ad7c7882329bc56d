#include "ui/main/chart_controller.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "core/files.h"
#include "core/text.h"
#include "ui/charts/frmLoadChart.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr const char* kViewSection = "Settings";
constexpr int kKeepViewDelay = 500;  // ms

// What the opening of a chart's image ends with; 0 is success.
constexpr int kStatusNoFile = 1;     // the file cannot be read
constexpr int kStatusNoPicture = 2;  // it holds no picture that can be decoded

// A route brought into view leaves this share of the view free round it, and is not enlarged.
constexpr double kRouteMargin = 0.1;
constexpr double kLargestRouteZoom = 1.0;

// The least zoom that is chosen by itself, which is that of the key 1.
constexpr double kFarthestZoom = 0.1;

}  // namespace

ChartController::ChartController(Desktop& desktop, ChartViewer& viewer, QWidget& window)
    : desktop_(desktop), viewer_(viewer), window_(window) {
  // The view is kept as it changes, but not for each step of a drag.
  keep_view_timer_.setSingleShot(true);
  keep_view_timer_.setInterval(kKeepViewDelay);
  connect(&keep_view_timer_, &QTimer::timeout, this, [this] {
    if (!desktop_.view.busy) SaveView();
  });
  connect(&viewer_, &ChartViewer::ViewChanged, &keep_view_timer_, qOverload<>(&QTimer::start));
  connect(&viewer_, &ChartViewer::SelectionMade, this, [this] { FinishRectangle(); });
}

void ChartController::Start() {
  recent_ = ReadRecentFiles(desktop_.settings, kMaxRecentCharts);
  DrawChart(Failure::kSilent);
}

bool ChartController::HasPlaces() const {
  return viewer_.image_height() > 0 && IsCalibrated(desktop_.program.charts.chart);
}

std::string ChartController::MissingCalibration() const {
  if (viewer_.image_height() < 1 || IsCalibrated(desktop_.program.charts.chart)) return "";
  return "No positions on this chart: " +
         CalibrationFile(desktop_.program.folders, desktop_.program.config.chart_path) +
         " is missing or holds no calibration";
}

ChartView ChartController::View() const {
  return MakeChartView(desktop_.program.charts.chart, viewer_.image_width(),
                       viewer_.image_height());
}

std::optional<Position> ChartController::PlaceAt(ImagePoint at) const {
  if (!HasPlaces()) return std::nullopt;
  const ChartView chart = View();
  const Position place{chart.RowToLat(at.row), chart.ColToLong(at.column)};
  if (!std::isfinite(place.latitude) || !std::isfinite(place.longitude)) return std::nullopt;
  return place;
}

std::optional<VisibleChart> ChartController::Visible() const {
  if (!HasPlaces()) return std::nullopt;
  const ImageRect seen = viewer_.VisibleRect();
  const ChartView chart = View();
  return VisibleChart{chart.RowToLat(seen.top + seen.height), chart.RowToLat(seen.top),
                      chart.ColToLong(seen.left), chart.ColToLong(seen.left + seen.width)};
}

bool ChartController::DrawChart(Failure failure) {
  AppConfig& config = desktop_.program.config;
  config.chart_path = Trim(config.chart_path);
  redraw_ = false;
  const std::unique_ptr<Progress> progress = desktop_.window.StartProgress("Opening chart");
  const Status opened =
      viewer_.OpenAndWait(NativePath(config.chart_path) + std::string(kChartImage),
                          ChartViewer::OnFailure::kKeepOld, *progress);
  redraw_ = true;
  viewer_.Redraw();
  if (!opened) {
    // At the start the window comes up without a chart and says so when it is used.
    const Error& error = opened.error();
    if (failure == Failure::kSilent || error.reason == kDecodeCancelled) return false;
    const int status = FileReadable(error.path) ? kStatusNoPicture : kStatusNoFile;
    desktop_.messages.Show("error code: " + std::to_string(status) + "\n" + error.Text(),
                           MessageIcon::kWarning, kProgramTitle);
    return false;
  }
  RestoreView();
  return true;
}

void ChartController::SaveView() {
  if (viewer_.image_height() < 1) return;
  const ImageRect seen = viewer_.VisibleRect();
  desktop_.settings.SetInt(kViewSection, "Left", seen.left);
  desktop_.settings.SetInt(kViewSection, "Top", seen.top);
  desktop_.settings.SetInt(kViewSection, "Width", seen.width);
  desktop_.settings.SetInt(kViewSection, "Height", seen.height);
}

void ChartController::RestoreView() {
  const ImageRect stored{desktop_.settings.GetInt(kViewSection, "Left", 0),
                         desktop_.settings.GetInt(kViewSection, "Top", 0),
                         desktop_.settings.GetInt(kViewSection, "Width", -1),
                         desktop_.settings.GetInt(kViewSection, "Height", -1)};
  const bool on_image = stored.left >= 0 && stored.top >= 0 &&
                        stored.left < viewer_.image_width() && stored.top < viewer_.image_height();
  if (stored.width > 10 && stored.height > 10 && on_image) {
    viewer_.ZoomToRect(stored);
  } else {
    viewer_.SetZoomPercent(kStartZoomPercent);
    viewer_.SetScrollPosition(viewer_.ScrollRange() / 2);
  }
}

void ChartController::Remember(const std::string& cht_path) {
  AddRecentChart(recent_, cht_path);
  desktop_.view.candidate_chart.reset();
  desktop_.window.Changed(kAllChanged);
}

std::vector<std::string> ChartController::ChartsThere() const {
  std::vector<std::string> there;
  std::copy_if(recent_.begin(), recent_.end(), std::back_inserter(there), FileIsThere);
  return there;
}

void ChartController::ForgetRemoved(const std::vector<std::string>& there) {
  for (const std::string& path : there) {
    if (FileIsThere(path)) continue;
    std::erase(recent_, path);
    std::erase_if(desktop_.program.charts.history,
                  [&](const std::string& chart) { return chart + ".cht" == path; });
  }
}

void ChartController::ShowWhole(const std::string& sea_area, const std::string& chart_key) {
  const float filter = desktop_.program.config.chart_scale_choice;
  if (!OpenChosen({sea_area, chart_key, filter})) return;
  ReadIndexAgain();
  viewer_.ZoomToRect({0, 0, viewer_.image_width(), viewer_.image_height()});
}

void ChartController::Choose() {
  SaveView();
  const std::vector<std::string> there = ChartsThere();
  const bool had_place = HasPlaces();
  Position middle;
  double ground_scale = 0.0;  // view pixels to a degree of longitude
  if (had_place) {
    const ImageRect seen = viewer_.VisibleRect();
    const ChartView chart = View();
    const int middle_row = seen.top + seen.height / 2;
    const int middle_column = seen.left + seen.width / 2;
    middle = {chart.RowToLat(middle_row), chart.ColToLong(middle_column)};
    ground_scale = viewer_.zoom() * chart.pixels_per_degree;
  }
  const auto open = [this](AppConfig&, ChartState&) -> Status {
    frmLoadChart dialog(desktop_, &window_);
    if (dialog.exec() != QDialog::Accepted) return Error{};
    return Done{};
  };
  const bool changed = ChangeChart(desktop_.program, desktop_.messages, open, Show());
  ForgetRemoved(there);
  ReadIndexAgain();
  if (!changed) return;
  if (had_place && HasPlaces() && OnChart(middle)) {
    viewer_.SetZoom(std::clamp(ground_scale / View().pixels_per_degree, kFarthestZoom,
                               static_cast<double>(kLargestZoom)));
    LocatePoint(middle);
  }
  Remember(Trim(desktop_.program.config.chart_path) + ".cht");
}

void ChartController::OpenStored(const std::string& cht_path) {
  SaveView();
  if (ChangeToStoredChart(desktop_.program, desktop_.messages, cht_path, Show())) {
    Remember(cht_path);
  }
}

bool ChartController::OpenChosen(const ChartChoice& choice) {
  SaveView();
  const auto open = [&](AppConfig& config, ChartState& charts) {
    return ChooseChart(desktop_.program.folders, choice, config, charts);
  };
  if (!ChangeChart(desktop_.program, desktop_.messages, open, Show())) return false;
  Remember(Trim(desktop_.program.config.chart_path) + ".cht");
  return true;
}

void ChartController::Recalibrated() {
  SaveView();
  DrawChart(Failure::kTold);
  desktop_.view.candidate_chart.reset();
  desktop_.window.Changed(kAllChanged);
}

void ChartController::ReadIndexAgain() {
  Program& program = desktop_.program;
  const Status index =
      LoadChartIndex(program.folders, program.config, program.charts, desktop_.messages);
  if (!index) desktop_.messages.Show(index.error().Text(), MessageIcon::kWarning);
  desktop_.view.candidate_chart.reset();
  desktop_.window.Changed(kSettingsChanged);
}

void ChartController::ReadFilesAgain() {
  Program& program = desktop_.program;
  ReadIndexAgain();
  // The chart is the one it was: the history has it already.
  const std::vector<std::string> history = program.charts.history;
  const Status chart = ReadChartSettings(program.folders, program.config, program.charts);
  program.charts.history = history;
  if (!chart) desktop_.messages.Show(chart.error().Text(), MessageIcon::kWarning);
  Recalibrated();
}

void ChartController::LargerScale() {
  const Position cursor = desktop_.view.cursor;
  const std::optional<std::string> key = LargerScaleChart(cursor, desktop_.program.charts);
  if (!key) return;
  SaveView();
  if (!ChangeToChart(desktop_.program, desktop_.messages,
                     ChartPathOf(desktop_.program.folders, *key), Show())) {
    return;
  }
  LocatePoint(cursor);
  desktop_.view.candidate_chart.reset();
  desktop_.window.Changed(kSettingsChanged);
}

void ChartController::SmallerScale() {
  Program& program = desktop_.program;
  const Position cursor = desktop_.view.cursor;
  SaveView();
  if (program.charts.history.size() > 1) {
    if (!ChangeToPreviousChart(program, desktop_.messages, Show())) return;
    viewer_.SetZoomPercent(100);
    const std::optional<Position>& clicked = desktop_.view.last_click;
    LocatePoint(clicked && OnChart(*clicked) ? *clicked : cursor);
  } else {
    const std::optional<std::string> key = SmallerScaleChart(cursor, program.charts);
    if (!key ||
        !ChangeToChart(program, desktop_.messages, ChartPathOf(program.folders, *key), Show())) {
      return;
    }
    LocatePoint(cursor);
  }
  desktop_.view.candidate_chart.reset();
  desktop_.window.Changed(kSettingsChanged);
}

bool ChartController::OnChart(Position position) const {
  if (!HasPlaces()) return false;
  const ChartView chart = View();
  return chart.OnImage(chart.LongToCol(position.longitude), chart.LatToRow(position.latitude));
}

std::optional<std::string> ChartController::ChartHolding(
    const std::vector<Position>& places) const {
  std::vector<ChartIndexEntry> charts = desktop_.program.charts.index;
  SortChartsByScale(charts);
  for (const ChartIndexEntry& chart : charts) {
    if (std::all_of(places.begin(), places.end(),
                    [&](Position place) { return ChartContains(place, chart); })) {
      return chart.chart_key;
    }
  }
  return std::nullopt;
}

void ChartController::LocatePoint(Position position) {
  if (!OnChart(position)) return;
  const ChartView chart = View();
  viewer_.CentreOn({static_cast<double>(chart.LongToCol(position.longitude)),
                    static_cast<double>(chart.LatToRow(position.latitude))});
}

void ChartController::GoTo(Position position) {
  if (!OnChart(position)) {
    const std::optional<std::string> key = ChartHolding({position});
    if (!key) {
      desktop_.messages.Show("No chart of this sea area shows " + LatToText(position.latitude) +
                                 "  " + LongToText(position.longitude),
                             MessageIcon::kInformation);
      return;
    }
    SaveView();
    if (!ChangeToChart(desktop_.program, desktop_.messages,
                       ChartPathOf(desktop_.program.folders, *key), Show())) {
      return;
    }
    desktop_.window.Changed(kSettingsChanged);
  }
  LocatePoint(position);
}

void ChartController::FitRoute() {
  std::vector<Position> places;
  for (const RoutePoint& point : desktop_.program.route.points) places.push_back(point.At());
  FitPlaces(places);
}

void ChartController::ShowTrack() {
  std::vector<Position> places;
  for (const TrackPoint& point : desktop_.program.passage.route_track) {
    places.push_back(point.position);
  }
  const std::optional<VisibleChart> seen = Visible();
  const auto in_view = [&seen](Position place) {
    return seen && place.latitude >= seen->south && place.latitude <= seen->north &&
           place.longitude >= seen->west && place.longitude <= seen->east;
  };
  if (!std::all_of(places.begin(), places.end(), in_view)) FitPlaces(places);
}

void ChartController::FitPlaces(const std::vector<Position>& places) {
  if (places.empty()) return;
  const auto on_chart = [this](Position place) { return OnChart(place); };
  if (!std::all_of(places.begin(), places.end(), on_chart)) {
    const std::optional<std::string> key = ChartHolding(places);
    if (key && ChangeToChart(desktop_.program, desktop_.messages,
                             ChartPathOf(desktop_.program.folders, *key), Show())) {
      desktop_.window.Changed(kSettingsChanged);
    }
  }
  if (!HasPlaces()) return;
  const ChartView chart = View();
  double left = viewer_.image_width();
  double top = viewer_.image_height();
  double right = 0.0;
  double bottom = 0.0;
  bool any = false;
  for (const Position& place : places) {
    if (!OnChart(place)) continue;
    any = true;
    left = std::min<double>(left, chart.LongToCol(place.longitude));
    right = std::max<double>(right, chart.LongToCol(place.longitude));
    top = std::min<double>(top, chart.LatToRow(place.latitude));
    bottom = std::max<double>(bottom, chart.LatToRow(place.latitude));
  }
  if (!any) return;
  const double share = 1.0 - 2.0 * kRouteMargin;
  const double across = share * viewer_.viewport()->width() / std::max(1.0, right - left);
  const double down = share * viewer_.viewport()->height() / std::max(1.0, bottom - top);
  viewer_.SetZoom(std::clamp(std::min(across, down), kFarthestZoom, kLargestRouteZoom));
  viewer_.CentreOn({(left + right) / 2.0, (top + bottom) / 2.0});
}

void ChartController::ZoomTo(double factor) { viewer_.SetZoom(factor); }

void ChartController::ZoomStep(bool in, About about) {
  if (about == About::kCursor) LocatePoint(desktop_.view.cursor);
  const auto zoom = static_cast<float>(viewer_.zoom());
  ZoomTo(in ? ZoomIn(zoom) : ZoomOut(zoom));
}

void ChartController::PanView(PanDirection direction) {
  if (viewer_.image_height() < 1) return;
  const ImageRect seen = viewer_.VisibleRect();
  const PixelRect to = Pan({seen.left, seen.top, seen.width, seen.height}, direction,
                           viewer_.image_width(), viewer_.image_height());
  viewer_.PanBy({(to.left - seen.left) * viewer_.zoom(), (to.top - seen.top) * viewer_.zoom()});
}

void ChartController::Home() { viewer_.SetScrollPosition(viewer_.ScrollRange() / 2); }

void ChartController::ToggleRectangle() {
  ViewState& view = desktop_.view;
  view.rectangle_mode = !view.rectangle_mode;
  view.rectangle_dragging = false;
  viewer_.ClearSelection();
  viewer_.SetMouseMode(view.rectangle_mode ? ChartViewer::MouseMode::kRubberBand
                                           : ChartViewer::MouseMode::kNone);
  viewer_.SetPointer(Qt::CrossCursor);
  desktop_.window.Changed(kViewChanged);
}

void ChartController::FinishRectangle() {
  viewer_.ZoomToSelection();
  ToggleRectangle();
}

void ChartController::ChooseSubChart() {
  ViewState& view = desktop_.view;
  std::optional<ChartIndexEntry> candidate;
  if (desktop_.program.config.show_chart_boundaries != 0 &&
      LargerScaleChart(view.cursor, desktop_.program.charts)) {
    candidate = desktop_.program.charts.at_point.front();
  }
  const auto key = [](const std::optional<ChartIndexEntry>& entry) {
    return entry ? entry->chart_key : std::string();
  };
  if (key(candidate) == key(view.candidate_chart)) return;
  view.candidate_chart = std::move(candidate);
  viewer_.Redraw();
}

void ChartController::GiveUp() {
  if (lost_) return;
  lost_ = true;
  Program& program = desktop_.program;
  program.config.chart_folder = Trim(program.config.chart_folder);
  program.config.chart_path = Trim(program.config.chart_path);
  std::string text = "Error in Chart File\n" + program.config.chart_path +
                     "\n\nRestoring defaults to Sample Chart and exiting program";
  // Where the sample chart itself is broken, to reset the settings would lose them for nothing.
  const AppConfig defaults = DefaultConfig(program.folders.program);
  if (NativePath(program.config.chart_path) != NativePath(defaults.chart_path)) {
    const Result<std::string> copy = RestoreDefaultConfig(program.folders);
    if (!copy) {
      text += "\n\n" + copy.error().Text();
    } else if (!copy->empty()) {
      text += "\n\nThe settings up to now are kept in " + *copy;
    }
  }
  desktop_.messages.Show(text, MessageIcon::kError, kProgramTitle);
  QTimer::singleShot(0, &window_, &QWidget::close);
}

void ChartController::Stop() {
  SaveView();
  WriteRecentFiles(desktop_.settings, recent_);
}

void AddRecentChart(std::vector<std::string>& recent, const std::string& path) {
  std::erase(recent, path);
  recent.insert(recent.begin(), path);
  if (recent.size() > kMaxRecentCharts) recent.resize(kMaxRecentCharts);
}

}  // namespace skerrow
