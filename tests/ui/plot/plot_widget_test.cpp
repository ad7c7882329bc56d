#include "ui/plot/plot_widget.h"

#include <QImage>
#include <QPaintEvent>
#include <QRegion>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include "support/hands.h"

namespace skerrow {
namespace {

constexpr std::int32_t kRed = 0x0000FF;

class PlotWidgetTest : public ::testing::Test {
 protected:
  PlotWidgetTest() : widget_("plot") {
    Plot plot;
    plot.x = {0.0, 24.0, {{12.0, "12:00"}}};
    plot.y = {0.0, 4.0, {{4.0, "4M"}}};
    plot.series = {{{{0.0, 1.0}, {24.0, 3.0}}, 0x00FF00, 3}};
    widget_.SetPlot(std::move(plot));
    widget_.resize(400, 240);
    testing::Show(widget_);
  }
  QPoint At(double x, double y) const { return widget_.PlaceOf({x, y}).toPoint(); }
  QColor ColourAt(const QImage& image, double x, double y) const {
    const double ratio = image.devicePixelRatio();
    return image.pixelColor((widget_.PlaceOf({x, y}) * ratio).toPoint());
  }
  static double Last(const QSignalSpy& spy) { return spy.back().at(0).toDouble(); }

  PlotWidget widget_;
};

TEST_F(PlotWidgetTest, TellsThePlaceUnderTheMouse) {
  const QSignalSpy pointed(&widget_, &PlotWidget::Pointed);
  const QSignalSpy clicked(&widget_, &PlotWidget::Clicked);
  const QSignalSpy left(&widget_, &PlotWidget::Left);
  QTest::mouseMove(&widget_, At(6.0, 2.0));
  ASSERT_EQ(pointed.count(), 1);
  EXPECT_NEAR(Last(pointed), 6.0, 24.0 / 300);
  QTest::mouseClick(&widget_, Qt::LeftButton, {}, At(18.0, 2.0));
  ASSERT_EQ(clicked.count(), 1);
  EXPECT_NEAR(Last(clicked), 18.0, 24.0 / 300);
  const auto moves = pointed.count();
  QTest::mouseClick(&widget_, Qt::RightButton, {}, At(18.0, 2.0));
  QTest::mouseMove(&widget_, QPoint(2, 2));  // beside the area
  QTest::mouseClick(&widget_, Qt::LeftButton, {}, QPoint(2, 2));
  EXPECT_EQ(clicked.count(), 1);
  EXPECT_EQ(pointed.count(), moves);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&widget_, &leave);
  EXPECT_EQ(left.count(), 1);
}

TEST_F(PlotWidgetTest, KeysMoveThePlace) {
  const QSignalSpy pointed(&widget_, &PlotWidget::Pointed);
  const QSignalSpy clicked(&widget_, &PlotWidget::Clicked);
  widget_.SetKeyStep(0.5);
  widget_.SetPlace(10.0);
  widget_.setFocus();
  const std::pair<Qt::Key, double> presses[] = {
      {Qt::Key_Right, 10.5}, {Qt::Key_Left, 10.0}, {Qt::Key_PageDown, 15.0}, {Qt::Key_Home, 0.0},
      {Qt::Key_Left, 0.0},   {Qt::Key_End, 24.0},  {Qt::Key_Right, 24.0},    {Qt::Key_PageUp, 19.0},
  };
  for (const auto& [key, place] : presses) {
    QTest::keyClick(&widget_, key);
    EXPECT_DOUBLE_EQ(Last(pointed), place) << key;
  }
  QTest::keyClick(&widget_, Qt::Key_Space);
  EXPECT_DOUBLE_EQ(Last(clicked), 19.0);
  // Keys with Ctrl are the window's.
  const auto count = pointed.count();
  QTest::keyClick(&widget_, Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(pointed.count(), count);
}

// What a widget has been asked to paint.
class PaintedRegion final : public QObject {
 public:
  QRegion region;
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
};

TEST_F(PlotWidgetTest, ACursorMovesAndLeavesNothingBehind) {
  const QImage before = widget_.grab().toImage();
  widget_.SetCursors({{6.0, kRed, 2}});
  const QImage at_six = widget_.grab().toImage();
  EXPECT_GT(ColourAt(at_six, 6.0, 3.5).red(), 200);
  EXPECT_LT(ColourAt(at_six, 6.0, 3.5).blue(), 100);
  QTest::qWait(50);
  // The strips of the old place and of the new are painted anew, and little else.
  PaintedRegion painted;
  widget_.installEventFilter(&painted);
  widget_.SetCursors({{13.0, kRed, 2}});
  QTest::qWait(50);
  for (const double x : {6.0, 13.0}) {
    const int left = At(x, 3.5).x() - 2;
    const QRect strip(left, At(x, 4.0).y(), 5, At(x, 0.0).y() - At(x, 4.0).y());
    EXPECT_TRUE(QRegion(strip).subtracted(painted.region).isEmpty()) << x;
  }
  EXPECT_FALSE(painted.region.contains(At(9.5, 2.0)));
  widget_.SetCursors({});
  EXPECT_EQ(widget_.grab().toImage(), before);
}

TEST_F(PlotWidgetTest, NightIsDark) {
  EXPECT_EQ(ColourAt(widget_.grab().toImage(), 3.0, 3.5), QColor(Qt::white));
  widget_.SetLook({true, 100});
  EXPECT_LT(ColourAt(widget_.grab().toImage(), 3.0, 3.5).lightness(), 40);
}

TEST_F(PlotWidgetTest, ThePrintedPictureIsTheDaysAtItsScale) {
  widget_.SetLook({true, 100});
  const Picture once = widget_.ToPicture(300, 150);
  const Picture twice = widget_.ToPicture(300, 150, 2);
  EXPECT_EQ(once.width, 300);
  EXPECT_EQ(twice.width, 600);
  EXPECT_EQ(twice.height, 300);
  EXPECT_EQ(once.Pixel(1, 1), 0xFFFFFFFFU);
  // The same layout: the frame's top left corner lies at twice the place.
  const auto first_ink = [](const Picture& picture, int y) {
    int x = 0;
    while (x < picture.width && picture.Pixel(x, y) == 0xFFFFFFFFU) ++x;
    return x;
  };
  EXPECT_NEAR(first_ink(twice, 150), 2 * first_ink(once, 75), 2);
  EXPECT_LT(first_ink(once, 75), 100);
}

}  // namespace
}  // namespace skerrow
