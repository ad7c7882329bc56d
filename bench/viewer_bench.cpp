// Times the chart viewer on a chart of 20,000 x 15,000 pixels in a view of 1920 x 1080: a warm pan
// frame at several zooms beside the same view painted straight from the full picture, and the
// memory held. Prints a table; the ratios are what counts. Needs about 3 GB of memory.
//   viewer_bench [WIDTH HEIGHT]

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "core/progress.h"
#include "ui/viewer/chart_viewer.h"

namespace {

using skerrow::ChartViewer;

constexpr int kViewWidth = 1920;
constexpr int kViewHeight = 1080;
constexpr int kFrames = 15;  // of a pan
constexpr int kRounds = 5;

// Land, depth tints, a grid and speckle in place of soundings: nothing that compresses to nothing.
QImage MakeChart(int width, int height, QImage::Format format) {
  QImage chart(width, height, format);
  const QRgb tints[] = {qRgb(255, 255, 255), qRgb(205, 228, 240), qRgb(165, 205, 230),
                        qRgb(240, 225, 160), qRgb(20, 20, 20)};
  const bool indexed = format == QImage::Format_Indexed8;
  if (indexed) chart.setColorTable(QList<QRgb>(std::begin(tints), std::end(tints)));
  std::uint32_t random = 12345;
  for (int y = 0; y < height; ++y) {
    uchar* row = chart.scanLine(y);
    for (int x = 0; x < width; ++x) {
      random = random * 1664525U + 1013904223U;
      std::size_t tint = static_cast<std::size_t>((x / 900 + y / 700) % 4);
      if (x % 1000 < 2 || y % 1000 < 2 || (random >> 24) == 7) tint = 4;
      if (indexed) {
        row[x] = static_cast<uchar>(tint);
      } else {
        reinterpret_cast<QRgb*>(row)[x] = tints[tint];
      }
    }
  }
  return chart;
}

// What a plain program would do: the view drawn from the full picture at every paint.
class PlainView final : public QWidget {
 public:
  QImage chart;
  double zoom = 1.0;
  QPointF scroll;
  bool smooth = true;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
    painter.drawImage(QRectF(rect()), chart, QRectF(scroll / zoom, QSizeF(size()) / zoom));
  }
};

double Median(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + static_cast<long>(times.size() / 2), times.end());
  return times[times.size() / 2];
}

void WaitRefined(const ChartViewer& viewer) {
  QCoreApplication::processEvents();
  while (!viewer.Refined()) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  QCoreApplication::processEvents();
}

// A value of /proc/self/status in MB, such as VmRSS.
double StatusMb(const std::string& name) {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.rfind(name + ":", 0) != 0) continue;
    return std::strtod(line.c_str() + name.size() + 1, nullptr) / 1024.0;
  }
  return 0.0;
}

int Pan(int frame) { return 3 * std::abs(frame % 40 - 20); }

void CompareZooms(ChartViewer& viewer, const char* name) {
  const skerrow::Picture& picture = viewer.image()->picture();
  PlainView plain;
  plain.resize(kViewWidth, kViewHeight);
  plain.chart = QImage(picture.pixels.get(), picture.width, picture.height, picture.bytes_per_line,
                       picture.format == skerrow::PixelFormat::kIndexed8 ? QImage::Format_Indexed8
                                                                         : QImage::Format_RGB32);
  if (plain.chart.format() == QImage::Format_Indexed8) {
    plain.chart.setColorTable(QList<QRgb>(picture.palette.begin(), picture.palette.end()));
  }
  plain.show();
  std::printf("%-8s %5s %10s %10s %10s %10s %10s %10s\n", name, "zoom", "first ms", "refined ms",
              "warm ms", "smooth x", "fast x", "scroll");
  for (const double zoom : {0.10, 0.25, 1.0, 2.5}) {
    viewer.SetZoom(1.0 / 3.0);
    WaitRefined(viewer);
    QElapsedTimer timer;
    timer.start();
    viewer.SetZoom(zoom);
    viewer.CentreOn({picture.width / 2.0, picture.height / 2.0});
    viewer.viewport()->repaint();
    const double first = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    WaitRefined(viewer);
    const double refined = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    const QPointF start = viewer.ScrollPosition();
    const auto move = [&](int frame) { viewer.SetScrollPosition(start + QPointF(Pan(frame), 0)); };
    for (int frame = 0; frame < 40; ++frame) {
      move(frame);
      viewer.viewport()->repaint();
    }
    WaitRefined(viewer);
    // Short pans in turn, so that whatever else the machine does falls on all three.
    plain.zoom = zoom;
    std::vector<double> times[3];
    for (int round = 0; round < kRounds; ++round) {
      for (int kind = 0; kind < 3; ++kind) {
        plain.smooth = kind == 2;
        for (int frame = 0; frame < kFrames; ++frame) {
          QElapsedTimer step;
          step.start();
          if (kind == 0) {
            move(frame);
            viewer.viewport()->repaint();
          } else {
            plain.scroll = start + QPointF(Pan(frame), 0);
            plain.repaint();
          }
          times[kind].push_back(static_cast<double>(step.nsecsElapsed()) / 1e6);
        }
      }
    }
    const double warm = Median(times[0]);
    const double straight[2] = {Median(times[1]), Median(times[2])};
    std::printf("%-8s %4.0f%% %10.2f %10.1f %10.3f %10.2f %10.2f %10.0f\n", "", zoom * 100.0, first,
                refined, warm, straight[1] / warm, straight[0] / warm, start.x());
  }
}

int Run(int width, int height, QImage::Format format, const char* name) {
  QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("chart.l55"));
  {
    const QImage chart = MakeChart(width, height, format);
    QImageWriter writer(file, "png");
    writer.setCompression(5);
    if (!writer.write(chart)) {
      std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
      return 1;
    }
  }
  ChartViewer viewer;
  viewer.show();
  const QSize bars = viewer.size() - viewer.viewport()->size();
  viewer.resize(QSize(kViewWidth, kViewHeight) + bars);
  QCoreApplication::processEvents();
  const double before = StatusMb("VmRSS");
  std::ofstream("/proc/self/clear_refs") << "5";  // the peak begins anew
  QElapsedTimer timer;
  timer.start();
  skerrow::NoProgress progress;
  const auto status =
      viewer.OpenAndWait(file.toStdString(), ChartViewer::OnFailure::kShowEmpty, progress);
  if (!status) {
    std::fprintf(stderr, "%s\n", status.error().Text().c_str());
    return 1;
  }
  const double opened = static_cast<double>(timer.elapsed());
  viewer.viewport()->repaint();
  const double first = static_cast<double>(timer.elapsed());
  while (!viewer.image()->levels_ready()) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  const double reduced = static_cast<double>(timer.elapsed());
  CompareZooms(viewer, name);
  const double decoded = static_cast<double>(viewer.image()->picture().ByteCount()) / 1048576.0;
  const double resident = StatusMb("VmRSS") - before;
  std::printf("open: decoded after %.0f ms, first paint %.0f ms, reductions %.0f ms\n", opened,
              first, reduced);
  std::printf(
      "memory: decoded %.0f MB, held %.0f MB (%.3f), resident %.0f MB (%.3f), peak %.0f MB "
      "(%.3f)\n\n",
      decoded, static_cast<double>(viewer.MemoryUse()) / 1048576.0,
      static_cast<double>(viewer.MemoryUse()) / 1048576.0 / decoded, resident, resident / decoded,
      StatusMb("VmHWM") - before, (StatusMb("VmHWM") - before) / decoded);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const int width = argc > 2 ? std::atoi(argv[1]) : 20000;
  const int height = argc > 2 ? std::atoi(argv[2]) : 15000;
  const int colours = Run(width, height, QImage::Format_RGB32, "colours");
  const int palette = Run(width, height, QImage::Format_Indexed8, "palette");
  return std::max(colours, palette);
}
