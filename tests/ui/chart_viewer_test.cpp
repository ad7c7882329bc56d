#include "ui/viewer/chart_viewer.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>

#include "ui/drawing/qt_surface.h"
#include "ui/viewer/chart_overview.h"

namespace skerrow {
namespace {

QImage MakeChart(int width, int height) {
  QImage chart(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    auto* row = reinterpret_cast<QRgb*>(chart.scanLine(y));
    for (int x = 0; x < width; ++x) {
      row[x] =
          (x / 8 + y / 8) % 3 == 0 ? qRgb(255, 255, 255) : qRgb(x % 256, y % 256, (x * y) % 256);
    }
  }
  return chart;
}

std::shared_ptr<ChartImage> ToImage(const QImage& chart) {
  std::vector<std::uint32_t> pixels;
  for (int y = 0; y < chart.height(); ++y) {
    for (int x = 0; x < chart.width(); ++x) pixels.push_back(chart.pixel(x, y));
  }
  return std::make_shared<ChartImage>(
      PictureFromRgb32(chart.width(), chart.height(), std::move(pixels)));
}

class ChartViewerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    viewer_.resize(611, 411);
    viewer_.show();
    QApplication::processEvents();
  }
  double ratio() const { return viewer_.viewport()->devicePixelRatioF(); }
  // Paints until everything is fine, and gives the viewport's pixels as on screen.
  QImage Painted() {
    QElapsedTimer timer;
    timer.start();
    viewer_.viewport()->repaint();
    QApplication::processEvents();
    while (!viewer_.Refined() && timer.elapsed() < 20000) QTest::qWait(2);
    EXPECT_TRUE(viewer_.Refined());
    QImage image = viewer_.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1.0);
    return image;
  }
  std::string Path(const char* name) const {
    return folder_.filePath(QLatin1String(name)).toStdString();
  }
  // True once `spy` has something; false after ten seconds.
  static bool Arrived(QSignalSpy& spy) { return spy.count() > 0 || spy.wait(10000); }

  QTemporaryDir folder_;
  ChartViewer viewer_;
};

TEST_F(ChartViewerTest, PixelsAreThoseOfThePictureAtWholeScales) {
  const QImage chart = MakeChart(1900, 1300);
  viewer_.ShowImage(ToImage(chart));
  // One pixel of the picture to one of the screen, and to two by two.
  for (const int times : {1, 2}) {
    viewer_.SetZoom(times / ratio());
    viewer_.CentreOn({701.0, 433.0});
    const QImage painted = Painted();
    const int x = viewer_.geometry().OriginX();
    const int y = viewer_.geometry().OriginY();
    for (int j = 0; j < painted.height(); ++j) {
      for (int i = 0; i < painted.width(); ++i) {
        ASSERT_EQ(painted.pixel(i, j), chart.pixel((x + i) / times, (y + j) / times))
            << times << ": " << i << "," << j;
      }
    }
  }
}

ImagePoint SpotAt(int i) { return {i * 2711 % 4983 + 4.5, i * 1733 % 3989 + 4.5}; }

// The overlays, drawn once and moved, look to the pixel as if they had been drawn at every paint,
// and stand on the chart: a cross on each of its black spots.
TEST_F(ChartViewerTest, OverlaysMoveWithTheChart) {
  QImage chart(5000, 4000, QImage::Format_RGB32);
  chart.fill(Qt::white);
  QPainter spots(&chart);
  for (int i = 0; i < 1000; ++i) {
    const ImagePoint at = SpotAt(i);
    spots.fillRect(QRectF(at.column - 4.5, at.row - 4.5, 9, 9), Qt::black);
  }
  spots.end();
  viewer_.ShowImage(ToImage(chart));
  int drawn = 0;
  const OverlayPainter overlay = [&](DrawingSurface& surface, const ViewGeometry& area) {
    ++drawn;
    surface.SetPen(3, 0x00c800);
    for (int i = 0; i < 1000; ++i) {
      const ViewPoint at = area.ToView(SpotAt(i));
      DrawCross(surface, {at.x, at.y}, 4.0);
      if (i % 9 == 0) surface.Text({at.x + 6.0, at.y}, "N" + std::to_string(i), 0xff0000, {});
    }
  };
  // The chart alone, and the overlays straight onto it.
  const auto straight = [&] {
    viewer_.SetOverlayPainter(nullptr);
    QImage image = Painted();
    image.setDevicePixelRatio(ratio());
    QPainter painter(&image);
    QtSurface surface(painter, QSizeF(viewer_.viewport()->size()));
    overlay(surface, viewer_.geometry());
    viewer_.SetOverlayPainter(overlay);
    return image;
  };
  for (const double zoom : {0.6, 1.0, 1.3}) {
    viewer_.SetOverlayPainter(overlay);
    viewer_.SetZoom(zoom);
    viewer_.CentreOn({2000.0, 1500.0});
    Painted();
    const int at_first = drawn;
    viewer_.PanBy({33.0, -21.0});
    viewer_.RedrawLive();
    Painted();
    EXPECT_EQ(drawn, at_first) << zoom << ": drawn anew for a small step";
    for (int step = 0; step < 8; ++step) {
      viewer_.PanBy({35.0, 20.0});
      viewer_.viewport()->repaint();
    }
    EXPECT_EQ(drawn, at_first) << zoom << ": drawn anew during a drag";
    const QImage moved = Painted();
    const QImage expected = straight();
    for (int y = 0; y < moved.height(); ++y) {
      for (int x = 0; x < moved.width(); ++x) {
        const QRgb a = moved.pixel(x, y);
        const QRgb b = expected.pixel(x, y);
        ASSERT_LE(std::abs(qRed(a) - qRed(b)) + std::abs(qBlue(a) - qBlue(b)), 8)
            << zoom << ": " << x << "," << y;
      }
    }
    int crosses = 0;
    for (int i = 0; i < 1000; ++i) {
      const QPoint spot = (viewer_.ImageToView(SpotAt(i)) * ratio()).toPoint();
      if (!moved.rect().adjusted(9, 9, -9, -9).contains(spot)) continue;
      ++crosses;
      EXPECT_GT(qGreen(moved.pixel(spot)), 150) << zoom << ": " << i;
    }
    EXPECT_GT(crosses, 3) << zoom;
  }
  Painted();
  const int before = drawn;
  viewer_.SetZoom(0.9);
  Painted();
  viewer_.SetBrightness(60);
  Painted();
  EXPECT_EQ(drawn, before + 2);
}

TEST_F(ChartViewerTest, WhatFollowsTheMouseIsDrawnAtEachPaintWhileItIsThere) {
  viewer_.ShowImage(ToImage(MakeChart(900, 700)));
  int overlays = 0;
  int live = 0;
  viewer_.SetOverlayPainter([&](DrawingSurface&, const ViewGeometry&) { ++overlays; });
  viewer_.SetLivePainter([&](DrawingSurface&) { ++live; });
  Painted();
  EXPECT_EQ(live, 0);
  const int drawn = overlays;
  for (int i = 0; i < 5; ++i) {
    QMouseEvent move(QEvent::MouseMove, {50.0 + i, 60.0}, {50.0 + i, 60.0}, Qt::NoButton,
                     Qt::NoButton, {});
    QApplication::sendEvent(viewer_.viewport(), &move);
    viewer_.viewport()->repaint();
  }
  EXPECT_EQ(live, 5);
  EXPECT_EQ(overlays, drawn);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(viewer_.viewport(), &leave);
  viewer_.viewport()->repaint();
  EXPECT_EQ(live, 5);
}

TEST_F(ChartViewerTest, OpensByContentAndShowsOverlays) {
  ASSERT_TRUE(MakeChart(900, 700).save(folder_.filePath("a.l55"), "PNG"));
  int paints = 0;
  viewer_.SetOverlayPainter([&paints](DrawingSurface&, const ViewGeometry&) { ++paints; });
  Painted();
  EXPECT_EQ(paints, 0);  // nothing to draw over yet
  QSignalSpy opened(&viewer_, &ChartViewer::Opened);
  viewer_.Open(Path("a.l55"), ChartViewer::OnFailure::kShowEmpty);
  EXPECT_TRUE(viewer_.opening());
  ASSERT_TRUE(Arrived(opened));
  EXPECT_FALSE(viewer_.opening());
  EXPECT_EQ(QSize(viewer_.image_width(), viewer_.image_height()), QSize(900, 700));
  Painted();
  EXPECT_GT(paints, 0);
}

TEST_F(ChartViewerTest, WhatCannotBeOpenedSaysWhyAndTouchesNothingUnlessAsked) {
  std::ofstream(Path("text.tif")) << "no picture at all";
  viewer_.ShowImage(ToImage(MakeChart(300, 200)));
  for (const char* name : {"missing.l55", "text.tif", ""}) {
    QSignalSpy failed(&viewer_, &ChartViewer::OpenFailed);
    viewer_.Open(Path(name), ChartViewer::OnFailure::kKeepOld);
    ASSERT_TRUE(Arrived(failed)) << name;
    EXPECT_EQ(failed[0][0].toString().toStdString(), Path(name));
    EXPECT_FALSE(failed[0][1].toString().isEmpty()) << name;
    EXPECT_EQ(viewer_.image_width(), 300) << name;
  }
  NoProgress progress;
  const Status status =
      viewer_.OpenAndWait(Path("text.tif"), ChartViewer::OnFailure::kShowEmpty, progress);
  EXPECT_FALSE(status.ok());
  EXPECT_EQ(viewer_.image_width(), 0);
  Painted();
}

class StopAtOnce final : public Progress {
 public:
  bool Step(double) override { return false; }
};

TEST_F(ChartViewerTest, CancelledOpeningLeavesTheOldChart) {
  ASSERT_TRUE(MakeChart(5000, 4000).save(folder_.filePath("big.l55"), "PNG", 90));
  viewer_.ShowImage(ToImage(MakeChart(300, 200)));
  QSignalSpy opened(&viewer_, &ChartViewer::Opened);
  QSignalSpy cancelled(&viewer_, &ChartViewer::OpenCancelled);
  viewer_.Open(Path("big.l55"), ChartViewer::OnFailure::kShowEmpty);
  viewer_.CancelOpen();
  EXPECT_EQ(cancelled.count(), 1);
  EXPECT_FALSE(viewer_.opening());
  StopAtOnce stop;
  EXPECT_FALSE(viewer_.OpenAndWait(Path("big.l55"), ChartViewer::OnFailure::kShowEmpty, stop).ok());
  QTest::qWait(300);
  EXPECT_EQ(opened.count(), 0);
  EXPECT_EQ(viewer_.image_width(), 300);
  // The later of two openings wins.
  ASSERT_TRUE(MakeChart(70, 60).save(folder_.filePath("small.l55"), "PNG"));
  viewer_.Open(Path("big.l55"), ChartViewer::OnFailure::kShowEmpty);
  viewer_.Open(Path("small.l55"), ChartViewer::OnFailure::kShowEmpty);
  ASSERT_TRUE(Arrived(opened));
  QTest::qWait(300);
  EXPECT_EQ(opened.count(), 1);
  EXPECT_EQ(viewer_.image_width(), 70);
}

TEST_F(ChartViewerTest, ClosingTheWindowDuringAnOpeningIsSafe) {
  ASSERT_TRUE(MakeChart(3000, 2000).save(folder_.filePath("big.l55"), "PNG", 90));
  for (const int wait : {0, 5, 30, 80}) {
    ChartViewer other;
    other.show();
    other.Open(Path("big.l55"), ChartViewer::OnFailure::kShowEmpty);
    QTest::qWait(wait);
  }
}

TEST_F(ChartViewerTest, NightLeavesNoBrightPixel) {
  QImage chart(700, 500, QImage::Format_RGB32);
  chart.fill(Qt::white);
  QPainter(&chart).fillRect(100, 100, 300, 300, Qt::black);
  viewer_.ShowImage(ToImage(chart));
  viewer_.SetNight(true);
  for (const int level : {100, 40}) {
    viewer_.SetBrightness(level);
    for (const double zoom : {0.3, 2.5}) {  // with desk around, and with scroll bars in use
      viewer_.SetZoom(zoom);
      Painted();
      const QImage all = viewer_.grab().toImage();
      int light = 0;
      for (int y = 0; y < all.height(); ++y) {
        for (int x = 0; x < all.width(); ++x) {
          const QRgb pixel = all.pixel(x, y);
          ASSERT_LE(std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)}), 165 * level / 100)
              << zoom << ": " << x << "," << y;
          light += qGray(pixel) > 100 * level / 100;
        }
      }
      EXPECT_GT(light, 500) << "the ink cannot be read";
    }
  }
}

TEST_F(ChartViewerTest, DraggingInPanModeHoldsThePlaceUnderThePointer) {
  viewer_.ShowImage(ToImage(MakeChart(3000, 2000)));
  viewer_.SetZoom(0.7);
  viewer_.CentreOn({1500.0, 1000.0});
  viewer_.SetMouseMode(ChartViewer::MouseMode::kPan);
  QWidget* view = viewer_.viewport();
  const ImagePoint held = viewer_.ViewToImage({200.0, 150.0});
  QTest::mousePress(view, Qt::LeftButton, {}, {200, 150});
  for (const QPoint at : {QPoint(211, 163), {240, 170}, {150, 90}, {333, 201}}) {
    QTest::mouseMove(view, at);
    // The pointer alone may not press buttons on this platform: send the held move itself.
    QMouseEvent move(QEvent::MouseMove, at, view->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(view, &move);
    const QPointF now = viewer_.ImageToView(held);
    EXPECT_NEAR(now.x(), at.x(), 0.51 / ratio());
    EXPECT_NEAR(now.y(), at.y(), 0.51 / ratio());
  }
  QTest::mouseRelease(view, Qt::LeftButton, {}, {333, 201});
  const ImageRect still = viewer_.VisibleRect();
  QTest::mouseMove(view, {50, 50});
  EXPECT_EQ(viewer_.VisibleRect(), still);
}

TEST_F(ChartViewerTest, RubberBandSelectsAndZooms) {
  viewer_.ShowImage(ToImage(MakeChart(3000, 2000)));
  viewer_.SetZoom(0.5);
  viewer_.horizontalScrollBar()->setValue(100);
  viewer_.verticalScrollBar()->setValue(50);
  viewer_.SetMouseMode(ChartViewer::MouseMode::kRubberBand);
  QSignalSpy made(&viewer_, &ChartViewer::SelectionMade);
  QTest::mousePress(viewer_.viewport(), Qt::LeftButton, {}, {250, 200});
  EXPECT_TRUE(viewer_.rubber_banding());
  QTest::mouseRelease(viewer_.viewport(), Qt::LeftButton, {}, {150, 100});
  EXPECT_EQ(made.count(), 1);
  ASSERT_TRUE(viewer_.selection().has_value());
  EXPECT_EQ(*viewer_.selection(), (ImageRect{500, 300, 200, 200}));
  viewer_.ClearSelection();
  EXPECT_FALSE(viewer_.selection().has_value());
}

class Notes final : public ViewerEvents {
 public:
  bool MousePressed(const ViewerMouse& mouse) override {
    pressed = mouse;
    return take;
  }
  bool Wheel(const ViewerMouse& mouse, int angle) override {
    viewer->ZoomByWheel({mouse.at.x, mouse.at.y}, angle);
    return true;
  }
  bool KeyPressed(QKeyEvent& event) override {
    key = event.key();
    return take;
  }
  ChartViewer* viewer = nullptr;
  bool take = true;
  ViewerMouse pressed;
  int key = 0;
};

TEST_F(ChartViewerTest, EventsComeWithPlacesOfTheChart) {
  viewer_.ShowImage(ToImage(MakeChart(3000, 2000)));
  viewer_.SetZoom(0.5);
  viewer_.SetScrollPosition({100.0, 50.0});
  EXPECT_EQ(viewer_.horizontalScrollBar()->value(), 100);
  EXPECT_EQ(viewer_.verticalScrollBar()->value(), 50);
  viewer_.SetMouseMode(ChartViewer::MouseMode::kPan);
  Notes notes;
  notes.viewer = &viewer_;
  viewer_.SetEvents(&notes);
  QTest::mousePress(viewer_.viewport(), Qt::RightButton, Qt::ShiftModifier, {150, 100});
  EXPECT_EQ(notes.pressed.button, Qt::RightButton);
  EXPECT_EQ(notes.pressed.modifiers, Qt::ShiftModifier);
  EXPECT_DOUBLE_EQ(notes.pressed.image.column, 500.0);
  EXPECT_DOUBLE_EQ(notes.pressed.image.row, 300.0);

  const ImagePoint held = viewer_.ViewToImage({150.0, 100.0});
  QWheelEvent wheel({150.0, 100.0}, viewer_.viewport()->mapToGlobal(QPointF(150.0, 100.0)), {},
                    {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(viewer_.viewport(), &wheel);
  EXPECT_DOUBLE_EQ(viewer_.zoom(), 0.625);
  EXPECT_NEAR(viewer_.ImageToView(held).x(), 150.0, 0.51 / ratio());

  // A key that is taken scrolls nothing; one that is not, does.
  const QPointF before = viewer_.ScrollPosition();
  QTest::keyClick(&viewer_, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(notes.key, Qt::Key_Down);
  EXPECT_EQ(viewer_.ScrollPosition(), before);
  notes.take = false;
  QTest::keyClick(&viewer_, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_GT(viewer_.ScrollPosition().y(), before.y());
  EXPECT_EQ(viewer_.ScrollPosition().x(), before.x());
  viewer_.SetEvents(nullptr);
}

TEST_F(ChartViewerTest, OverviewFrameAndClick) {
  viewer_.ShowImage(ToImage(MakeChart(3000, 2000)));
  ChartOverview overview(viewer_, viewer_.viewport());
  overview.resize(overview.SizeForSide(150));
  EXPECT_EQ(overview.size(), QSize(150, 100));
  overview.show();
  viewer_.SetZoom(1.0);
  QTest::mouseClick(&overview, Qt::LeftButton, {}, {75, 50});
  const ImageRect seen = viewer_.VisibleRect();
  EXPECT_NEAR(seen.left + seen.width / 2.0, 1500.0, 11.0);
  EXPECT_NEAR(seen.top + seen.height / 2.0, 1000.0, 11.0);
  EXPECT_NEAR(overview.Frame().left(), seen.left * 0.05, 1e-6);
  EXPECT_NEAR(overview.Frame().width(), seen.width * 0.05, 1e-6);
  const QImage small = overview.grab().toImage();
  const QPointF corner = overview.Frame().topLeft() * overview.devicePixelRatioF();
  const QRgb frame = small.pixel(static_cast<int>(corner.x() + 8 * ratio()),
                                 static_cast<int>(std::lround(corner.y() - 0.2)));
  EXPECT_GT(qRed(frame), qBlue(frame));
}

TEST_F(ChartViewerTest, MemoryStaysBounded) {
  auto image = ToImage(MakeChart(6000, 5000));
  image->BuildLevels();
  viewer_.ShowImage(image);
  for (double zoom = 0.1; zoom < 3.0; zoom *= 1.3) {
    viewer_.SetZoom(zoom);
    for (int step = 0; step < 6; ++step) {
      viewer_.PanBy({150.0, 90.0});
      viewer_.viewport()->repaint();
      QApplication::processEvents();
    }
    Painted();
    EXPECT_LT(static_cast<double>(viewer_.MemoryUse()),
              1.3 * static_cast<double>(image->picture().ByteCount()))
        << zoom;
  }
}

}  // namespace
}  // namespace skerrow
