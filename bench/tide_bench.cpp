// Times the tide screen on a picture of 1920 x 1080: a day's refresh by its parts, a move of the
// mouse over the finished picture, the constituents, and a month's table. Prints medians.
//   tide_bench

#include <QApplication>
#include <QElapsedTimer>
#include <QPixmap>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include "tides/tide_screen.h"
#include "ui/forms/tide_plot.h"
#include "ui/plot/plot_widget.h"
#include "ui/widgets/theme.h"

namespace {

using namespace skerrow;  // NOLINT: this file is a program

constexpr int kRuns = 41;

// Dover's constants, rounded.
Port MakePort() {
  Port port;
  port.name = "Bench";
  port.latitude = 51.1F;
  port.longitude = 1.3F;
  port.z0 = 3.7F;
  port.m2_g = 332.0F;
  port.m2_hm = 2.25F;
  port.s2_g = 24.0F;
  port.s2_hm = 0.71F;
  port.k1_g = 42.0F;
  port.k1_hm = 0.05F;
  port.o1_g = 179.0F;
  port.o1_hm = 0.06F;
  port.sf4 = 277.0F;
  port.lf4 = 0.048F;
  port.mhm2.fill(2.25F);
  return port;
}

double Median(const std::function<void(int)>& work) {
  std::vector<double> times;
  for (int run = 0; run < kRuns; ++run) {
    QElapsedTimer timer;
    timer.start();
    work(run);
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  std::nth_element(times.begin(), times.begin() + kRuns / 2, times.end());
  return times[kRuns / 2];
}

void Print(const char* what, double milliseconds) {
  std::printf("%-34s %8.3f ms\n", what, milliseconds);
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  ApplyTheme(false);
  const Port port = MakePort();
  PlotWidget widget("bench");
  widget.resize(1920, 1080);
  widget.show();
  QPixmap paper(1920, 1080);
  const auto day = [](int run) { return DayAndYear{static_cast<std::int16_t>(100 + run), 2026}; };

  TideScreen screen;
  Plot plot;
  Print("the day's facts", Median([&](int run) { screen = MakeTideScreen(port, day(run), {}); }));
  Print("the model of the picture", Median([&](int) { plot = TideDayPlot(screen); }));
  Print("the picture", Median([&](int) {
          widget.SetPlot(plot);
          widget.render(&paper);
        }));
  Print("refresh, all of it", Median([&](int run) {
          screen = MakeTideScreen(port, day(run), {});
          widget.SetPlot(TideDayPlot(screen));
          widget.SetCursors(CursorsOf(screen, {9.5, true, {}, false}));
          widget.render(&paper);
        }));
  Print("a move of the mouse, whole repaint", Median([&](int run) {
          widget.SetCursors(CursorsOf(screen, {9.5, true, 0.1 * run, false}));
          widget.render(&paper);
        }));
  TideTermsShown all;
  all.fill(true);
  Print("the constituents' picture", Median([&](int) {
          widget.SetPlot(TideTermsPlot(screen, all));
          widget.render(&paper);
        }));
  NoProgress progress;
  Print("the month's table",
        Median([&](int run) { MakeMonthTable(port, 1 + run % 12, 2026, false, progress); }));
  return 0;
}
