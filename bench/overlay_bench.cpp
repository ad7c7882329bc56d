// Times a full paint of the overlays on a picture of 1920 x 1080, the chart itself excluded: 2,000
// waypoints, 2,000 wind barbs, a route of 100 points and tracks of 10,000 points. Prints the median
// of each overlay and of the whole, with everything in view and zoomed in; then frames of the
// viewer, with all of it and with nothing: a drag, a move of the mouse, and a redraw.
//   overlay_bench

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QThread>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "ui/drawing/qt_surface.h"
#include "ui/overlays/live_overlays.h"
#include "ui/overlays/overlays.h"
#include "ui/overlays/target_overlays.h"
#include "ui/viewer/chart_viewer.h"

namespace {

using namespace skerrow;

constexpr int kViewWidth = 1920;
constexpr int kViewHeight = 1080;
constexpr int kImageWidth = 8000;
constexpr int kImageHeight = 6000;
constexpr int kPaints = 31;
constexpr int kFrames = 200;
constexpr int kWaypoints = 2000;
constexpr std::size_t kRoutePoints = 100;
constexpr int kTrackPoints = 10000;
constexpr int kCharts = 200;
constexpr int kTargets = 4000;
constexpr int kPorts = 200;
constexpr int kWindRows = 40;
constexpr int kWindColumns = 50;

class StillClock final : public Clock {
 public:
  ClockReading Now() const override { return {}; }
};

ChartRecord MakeChart() {
  ChartFileRecord file;
  file.upper_lat = 51.0F;
  file.top_pix = 0.0F;
  file.lower_lat = 50.0F;
  file.bottom_pix = kImageHeight;
  file.lower_lon = -3.0F;
  file.left_pix = 0.0F;
  file.upper_lon = -1.0F;
  file.right_pix = kImageWidth;
  file.scale = 100000.0F;
  file.width = kImageWidth;
  file.height = kImageHeight;
  return WorkOutChart(file).value();
}

// A track that wanders about the chart and stays on it.
std::vector<Position> Wander(std::mt19937& random, int count) {
  std::vector<Position> track;
  std::uniform_real_distribution<float> turn(-0.3F, 0.3F);
  float heading = 0.0F;
  Position at{50.5F, -2.0F};
  for (int i = 0; i < count; ++i) {
    track.push_back(at);
    heading += turn(random);
    at.latitude = std::clamp(at.latitude + 0.002F * std::cos(heading), 50.05F, 50.95F);
    at.longitude = std::clamp(at.longitude + 0.003F * std::sin(heading), -2.95F, -1.05F);
  }
  return track;
}

void Fill(Program& program, ViewState& state) {
  std::mt19937 random(20261122);
  std::uniform_real_distribution<float> latitude(50.02F, 50.98F);
  std::uniform_real_distribution<float> longitude(-2.98F, -1.02F);
  program.charts.chart = MakeChart();
  for (int i = 0; i < kWaypoints; ++i) {
    program.waypoints.waypoints.push_back(
        {"Waypoint " + std::to_string(i), latitude(random), longitude(random)});
  }
  for (std::size_t i = 0; i < kRoutePoints; ++i) {
    RoutePoint point;
    point.latitude = latitude(random);
    point.longitude = longitude(random);
    for (int step = 0; step < 60; ++step) {
      point.tide_vector.push_back({point.latitude + 0.0005F * static_cast<float>(step),
                                   point.longitude + 0.0003F * static_cast<float>(step)});
    }
    program.route.points.push_back(point);
  }
  RelinkRoute(program.route.points);
  program.route.track = RouteTrackOf(program.route.points);
  for (const Position& position : Wander(random, kTrackPoints)) {
    program.passage.route_track.push_back({position, 0.0F, {}});
  }
  std::vector<PlotRecord> earlier;
  for (const Position& position : Wander(random, kTrackPoints)) {
    program.nmea.track.push_back({.latitude = position.latitude, .longitude = position.longitude});
    const bool remark = program.nmea.track.size() % 100 == 1;
    if (remark) {
      program.nmea.log.comments.push_back({position.latitude, position.longitude, "", "", {"Log"}});
    }
    earlier.push_back({position.latitude, position.longitude, "", "", remark ? "Log" : ""});
  }
  program.plot.plot_file_name = std::filesystem::temp_directory_path() / "skerrow-bench.trk";
  program.plot.track_plot_on = true;
  (void)WriteRecords<PlotRecord>(program.plot.plot_file_name, earlier, kPlotFields);
  for (int i = 0; i < kCharts; ++i) {
    const float lat = latitude(random);
    const float lon = longitude(random);
    program.charts.index.push_back({"c", "Chart", 1.0F, lat, lon, lat + 0.2F, lon + 0.2F, "", ""});
  }
  for (int i = 0; i < kPorts; ++i) {
    program.port_markers.push_back(
        {"Port " + std::to_string(i), latitude(random), longitude(random)});
  }
  // Barbs short enough for all of them to show with the whole chart in view.
  program.config.show_wind_grid = kTrue;
  program.config.use_manual_wind = kFalse;
  program.config.barb_length = 14.0F;
  WindField& field = program.wind_field;
  field.row_step = 0.96F / (kWindRows - 1);
  field.column_step = 1.96F / (kWindColumns - 1);
  std::uniform_real_distribution<float> knots(0.0F, 70.0F);
  std::uniform_real_distribution<float> degrees(0.0F, 360.0F);
  for (int row = 0; row < kWindRows; ++row) {
    for (int column = 0; column < kWindColumns; ++column) {
      field.winds.push_back({{50.02F + field.row_step * static_cast<float>(row),
                              -2.98F + field.column_step * static_cast<float>(column)},
                             {.speed_kn = knots(random), .from_deg = degrees(random)},
                             row,
                             column});
    }
  }
  program.config.show_chart_boundaries = kTrue;
  program.config.boat_future_tide_plot = kTrue;
  program.config.show_vectors = kTrue;
  state.dividers_on = true;
  program.nmea.fix.boat_latitude = 50.5F;
  program.nmea.fix.boat_longitude = -2.0F;
  program.animation.index = 5000;
  program.animation.label = "ETA : 12:35  5 December";
  state.zero_point = Position{50.4F, -2.2F};
  state.divider_end = Position{50.6F, -1.9F};
  program.nmea.fix.position_good = true;
  program.boat_ahead = Wander(random, 7);
  program.mob.on = true;
  program.mob.position = {50.45F, -2.1F};
  state.marked_point_on = true;
  state.marked = {50.55F, -2.1F};
  state.calculation_on_show = true;
  program.plot.track_plot_on = true;
}

// Vessels all over the chart, one in a hundred under the alarm range: their courses and speeds
// scattered, and half an hour of way behind them.
void FillTargets(Program& program) {
  std::mt19937 random(20261123);
  std::uniform_real_distribution<float> latitude(50.02F, 50.98F);
  std::uniform_real_distribution<float> longitude(-2.98F, -1.02F);
  std::uniform_real_distribution<float> course(0.0F, 359.9F);
  std::uniform_real_distribution<float> speed(0.0F, 25.0F);
  program.link.ais_enabled = true;
  program.link.gps_enabled = true;
  for (int i = 0; i < kTargets; ++i) {
    AisPositionReport report;
    report.message_type = i % 3 == 0 ? 18 : 1;
    report.mmsi = 235000000 + i;
    report.position = Position{latitude(random), longitude(random)};
    report.course = course(random);
    report.speed = speed(random);
    program.ais.targets.UpdateAisPosition(report, {true, true, false, false}, 11.5F);
    AisTarget& target = *program.ais.targets.Find(report.mmsi);
    target.cpa_known = true;
    target.cpa = i % 100 == 0 ? 0.1F : 2.0F;
    for (std::size_t k = 0; k < kAisTrackLength; ++k) {
      const Position back = PredictAisPosition(target.At(), -5.0F * static_cast<float>(k + 1),
                                               *report.speed, *report.course);
      target.history[k] = {back.latitude, back.longitude, 11.0F};
    }
  }
}

// Median time of a paint onto a fresh picture [ms].
double TimePaint(QImage& picture, const std::function<void(DrawingSurface&)>& paint) {
  std::vector<double> times;
  static TextPictures texts;
  for (int i = 0; i < kPaints; ++i) {
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QElapsedTimer timer;
    timer.start();
    {
      QtSurface surface(painter, QSizeF(kViewWidth, kViewHeight), {}, &texts);
      paint(surface);
    }
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  std::nth_element(times.begin(), times.begin() + kPaints / 2, times.end());
  return times[kPaints / 2];
}

// The rows of the vessels, as the settings have them at first and with less of them.
void ReportTargets(const OverlayView& view, Program& program, const ViewState& state) {
  QImage picture(kViewWidth, kViewHeight, QImage::Format_ARGB32_Premultiplied);
  const auto report = [&](const char* what) {
    const double draw = TimePaint(
        picture, [&](DrawingSurface& surface) { DrawAisTargets(surface, view, program, state); });
    const double names = TimePaint(picture, [&](DrawingSurface& surface) {
      LabelList labels;
      NameAisTargets(labels, view, program, state);
      DrawLabels(surface, view, labels, false);
    });
    std::printf("%-34s %10.3f %10.3f\n", what, draw, names);
  };
  std::printf("\n%d vessels in view%17s %10s %10s\n", kTargets, "", "symbols", "labels");
  report("history and labels");
  for (AisTarget& target : program.ais.targets.All()) target.show_history = false;
  report("labels");
  for (AisTarget& target : program.ais.targets.All()) target.show_details = false;
  report("symbols and labels in alarm");
}

void Report(const char* title, const OverlayView& view, const Program& program,
            const ViewState& state) {
  QImage picture(kViewWidth, kViewHeight, QImage::Format_ARGB32_Premultiplied);
  std::printf("\n%s\n%-22s %10s\n", title, "overlay", "ms");
  double sum = 0.0;
  for (const Overlay& overlay : Overlays()) {
    const std::string name(overlay.name);
    if (overlay.draw == nullptr) {
      std::printf("%-22s %10s\n", name.c_str(), "-");
      continue;
    }
    if (!overlay.shown(program, state)) continue;
    const double time = TimePaint(
        picture, [&](DrawingSurface& surface) { overlay.draw(surface, view, program, state); });
    sum += time;
    std::printf("%-22s %10.3f\n", name.c_str(), time);
  }
  const double whole = TimePaint(
      picture, [&](DrawingSurface& surface) { DrawOverlays(surface, view, program, state); });
  std::printf("%-22s %10.3f\n%-22s %10.3f\n", "sum of the rows", sum, "full paint", whole);
}

struct Frames {
  double median = 0.0;
  double mean = 0.0;
  double worst = 0.0;
};

// The time of a frame [ms], one each 8 ms, as a screen asks for them.
Frames TimeFrames(ChartViewer& viewer, const std::function<void(int)>& move) {
  viewer.viewport()->repaint();
  while (!viewer.Refined()) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  std::vector<double> times;
  for (int frame = 0; frame < kFrames; ++frame) {
    QElapsedTimer timer;
    timer.start();
    QCoreApplication::processEvents();
    move(frame);
    viewer.viewport()->repaint();
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    while (timer.elapsed() < 8) QThread::usleep(200);
  }
  std::sort(times.begin(), times.end());
  double sum = 0.0;
  for (const double time : times) sum += time;
  return {times[kFrames / 2], sum / kFrames, times.back()};
}

// A drag and a move of the mouse over a chart with nothing on it and with everything.
void ReportFrames(const Program& program, ViewState state) {
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(kImageWidth) * kImageHeight);
  std::uint32_t random = 1;
  for (std::uint32_t& pixel : pixels) pixel = 0xff000000U | (random = random * 1664525U + 7U) >> 8;
  const auto image =
      std::make_shared<ChartImage>(PictureFromRgb32(kImageWidth, kImageHeight, std::move(pixels)));
  image->BuildLevels();
  ChartViewer viewer;
  viewer.show();
  viewer.resize(QSize(kViewWidth, kViewHeight) + viewer.size() - viewer.viewport()->size());
  viewer.ShowImage(image);
  state.dividers_on = false;
  state.calculation_on_show = false;
  state.route_entry_on = true;
  state.mouse_mode = MouseMode::kRouteCreation;
  std::printf("\n%-28s %10s %10s %10s\n", "frames of the window", "median ms", "mean ms", "worst");
  for (const double zoom : {0.25, 0.5}) {
    for (const bool filled : {false, true}) {
      viewer.SetOverlayPainter([&](DrawingSurface& surface, const ViewGeometry& area) {
        if (!filled) return;
        DrawOverlays(surface, MakeOverlayView(program.charts.chart, viewer.geometry(), area, 12),
                     program, state);
      });
      viewer.SetLivePainter([&](DrawingSurface& surface) {
        if (!filled) return;
        DrawLiveOverlays(
            surface,
            MakeOverlayView(program.charts.chart, viewer.geometry(), viewer.geometry(), 12),
            program, state);
      });
      viewer.SetZoom(zoom);
      viewer.SetScrollPosition({100.0, 100.0});
      QMouseEvent enter(QEvent::MouseMove, {500, 400}, {500, 400}, Qt::NoButton, Qt::NoButton, {});
      QApplication::sendEvent(viewer.viewport(), &enter);
      const std::string title = std::to_string(static_cast<int>(zoom * 100.0)) + " %, " +
                                (filled ? "everything" : "nothing") + ", ";
      const auto print = [&](const char* what, const Frames& frames) {
        std::printf("%-28s %10.3f %10.3f %10.3f\n", (title + what).c_str(), frames.median,
                    frames.mean, frames.worst);
      };
      print("drag", TimeFrames(viewer, [&](int frame) {
              viewer.PanBy({frame < kFrames / 2 ? 9.0 : -9.0, frame % 40 < 20 ? 4.0 : -4.0});
            }));
      print("mouse move", TimeFrames(viewer, [&](int frame) {
              state.cursor = {50.5F, -2.0F + 0.001F * static_cast<float>(frame)};
              viewer.RedrawLive();
            }));
      print("redraw", TimeFrames(viewer, [&](int) { viewer.Redraw(); }));
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const StillClock clock;
  Program program({"/nonexistent", "/nonexistent", "/nonexistent"}, clock);
  ViewState state;
  Fill(program, state);
  std::printf("%d waypoints, a route of %zu points, 3 tracks of %d points, %d charts, %d ports\n",
              kWaypoints, kRoutePoints, kTrackPoints, kCharts, kPorts);

  ViewGeometry geometry;
  geometry.SetImageSize(kImageWidth, kImageHeight);
  geometry.SetViewSize(kViewWidth, kViewHeight, 1.0);
  geometry.FitAll();
  Report("whole chart in view", MakeOverlayView(program.charts.chart, geometry, geometry, 12),
         program, state);
  Program traffic({"/nonexistent", "/nonexistent", "/nonexistent"}, clock);
  traffic.charts.chart = program.charts.chart;
  FillTargets(traffic);
  ReportTargets(MakeOverlayView(program.charts.chart, geometry, geometry, 12), traffic, {});
  geometry.SetZoom(1.0);
  Report("at 100 %", MakeOverlayView(program.charts.chart, geometry, geometry, 12), program, state);
  ReportFrames(program, state);
  return 0;
}
