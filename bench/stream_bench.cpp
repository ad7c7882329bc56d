// Times the streams on the chart and the reports of a diamond, on the sample area's tides: a paint
// of 300 arrows with their labels on a picture of 1920 x 1080, as shapes and as lines, with the
// whole chart in view and at 100 %; the table behind them; the day and the month report. Prints
// medians.
//   stream_bench

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <random>
#include <vector>

#include "tides/diamond_report.h"
#include "ui/drawing/qt_surface.h"
#include "ui/overlays/stream_overlays.h"

namespace {

using namespace skerrow;

constexpr int kViewWidth = 1920;
constexpr int kViewHeight = 1080;
constexpr int kImageWidth = 5500;
constexpr int kImageHeight = 3500;
constexpr int kArrows = 300;
constexpr int kRuns = 101;

class StillClock final : public Clock {
 public:
  ClockReading Now() const override { return {}; }
};

double Median(const std::function<void()>& work) {
  std::vector<double> times;
  for (int i = 0; i < kRuns; ++i) {
    QElapsedTimer timer;
    timer.start();
    work();
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  std::nth_element(times.begin(), times.begin() + kRuns / 2, times.end());
  return times[kRuns / 2];
}

// 300 diamonds strewn over what is seen at both sizes: half of them over the whole chart, half over
// its middle.
void Strew(TideState& tides) {
  std::mt19937 random(20261123);
  std::uniform_real_distribution<float> share(0.0F, 1.0F);
  const std::vector<Diamond> sample = tides.diamonds;
  tides.diamonds.clear();
  tides.port_of_diamond.clear();
  for (int i = 0; i < kArrows; ++i) {
    const std::size_t of = static_cast<std::size_t>(i) % sample.size();
    Diamond diamond = sample[of];
    const float room = i % 2 == 0 ? 0.96F : 0.3F;
    diamond.latitude = 50.5F + room * (share(random) - 0.5F);
    diamond.longitude = -2.0F + 2.0F * room * (share(random) - 0.5F);
    tides.diamonds.push_back(diamond);
    tides.port_of_diamond.push_back(0);
  }
  ++tides.revision;
}

// The paint alone, without the clearing of the picture before it; arrows and labels apart.
void Paint(const Program& program, const OverlayView& view, const char* what) {
  QImage picture(kViewWidth, kViewHeight, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  TextPictures texts;
  const ViewState state;
  const auto time = [&](bool arrows, bool labels) {
    return Median([&] {
      QPainter painter(&picture);
      QtSurface surface(painter, QSizeF(kViewWidth, kViewHeight), {}, &texts);
      LabelList names;
      if (arrows) DrawStreams(surface, view, program, state);
      if (labels) NameStreams(names, view, program, state);
      DrawLabels(surface, view, names, EveryNameShows(view, state));
    });
  };
  std::printf("%-44s %8.3f ms (arrows %.3f, labels %.3f)\n", what, time(true, true),
              time(true, false), time(false, true));
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  const StillClock clock;
  const std::string source = SKERROW_SOURCE_DIR;
  Program program({source + "/program", "/nonexistent", "/nonexistent"}, clock);
  NoMessages messages;
  TideState& tides = program.tides;
  FindRefPorts(tides, program.folders, "Sample Chart");
  LoadDiamonds(tides, program.folders, "Sample Chart", messages);
  BuildRefPortHeights(tides, program.folders, {339, 2026}, false, messages);
  RefreshTideState(tides, true, 9.0F, {});
  if (tides.diamonds.empty()) {
    std::printf("the sample area has no diamonds\n");
    return 1;
  }

  DiamondRequest request;
  request.diamond = tides.diamonds[50];
  request.date = {339, 2026};
  request.hours = 9.0F;
  NoProgress progress;
  TideState fresh = tides;
  std::printf("%-44s %8.3f ms\n", "report of the day on show",
              Median([&] { MakeDiamondDay(tides, request); }));
  std::printf("%-44s %8.3f ms\n", "report of a day not built yet", Median([&] {
                request.date.day = static_cast<std::int16_t>(request.date.day % 360 + 3);
                MakeDiamondDay(fresh, request);
              }));
  std::printf("%-44s %8.3f ms\n", "report of a month",
              Median([&] { MakeDiamondMonth(fresh, request, progress); }));

  Strew(tides);
  std::printf("%-44s %8.3f ms\n", "table of 300 diamonds",
              Median([&] { CalculateTidalStreamTable(tides, messages); }));
  ChartFileRecord file;
  file.upper_lat = 51.0F;
  file.lower_lat = 50.0F;
  file.bottom_pix = kImageHeight;
  file.lower_lon = -3.0F;
  file.upper_lon = -1.0F;
  file.right_pix = kImageWidth;
  file.scale = 100000.0F;
  file.width = kImageWidth;
  file.height = kImageHeight;
  program.charts.chart = WorkOutChart(file).value();
  ViewGeometry geometry;
  geometry.SetImageSize(kImageWidth, kImageHeight);
  geometry.SetViewSize(kViewWidth, kViewHeight, 1.0);
  for (const bool whole : {true, false}) {
    if (whole) {
      geometry.FitAll();
    } else {
      geometry.SetZoom(1.0);
      geometry.Place({kImageWidth / 2.0, kImageHeight / 2.0},
                     {kViewWidth / 2.0, kViewHeight / 2.0});
    }
    const OverlayView view = MakeOverlayView(program.charts.chart, geometry, geometry, 12);
    program.config.stream_as_shape = kTrue;
    Paint(program, view, whole ? "300 arrows, shapes, whole chart" : "300 arrows, shapes, 100 %");
    program.config.stream_as_shape = kFalse;
    Paint(program, view, whole ? "300 arrows, lines, whole chart" : "300 arrows, lines, 100 %");
  }
  return 0;
}
