#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

#include "ui/drawing/qt_surface.h"
#include "support/recording_surface.h"

namespace skerrow {
namespace {

constexpr std::int32_t kRed = 0x0000ff;
constexpr std::int32_t kBlue = 0xff0000;

TEST(RecordingSurface, WritesEachCallDown) {
  RecordingSurface surface(100.0, 50.0);
  surface.SetPen(2, kRed);
  surface.SetPen(0, 0x563412, LineStyle::kDash);
  surface.SetFill(kBlue);
  surface.SetFill(std::nullopt);
  surface.Line({10.0, 20.0}, {30.004, -0.001});
  const std::vector<SurfacePoint> points = {{1.0, 1.0}, {2.0, 2.5}, {3.0, 1.0}};
  surface.Polyline(points);
  surface.Polygon(points);
  surface.Ring({10.0, 10.0}, 6.0);
  surface.Ellipse({10.0, 10.0}, 1.0, 6.0);
  surface.Arc({10.0, 10.0}, 6.0, 90.0, 45.0);
  TextStyle style;
  surface.Text({12.0, 14.0}, "Start", 0, style);
  style = {9, false, "Mono", AlignX::kRight, AlignY::kBaseline, 0xffffff};
  surface.Text({1.0, 2.0}, "a \"b\"\nc\\", kRed, style);
  surface.PushClip({0.0, 0.0, 100.0, 50.0});
  surface.PopClip();
  EXPECT_EQ(surface.Text(),
            "pen 2 solid 255,0,0\n"
            "pen 1 dash 18,52,86\n"
            "fill 0,0,255\n"
            "fill none\n"
            "line 10.00,20.00 30.00,0.00\n"
            "polyline 1.00,1.00 2.00,2.50 3.00,1.00\n"
            "polygon 1.00,1.00 2.00,2.50 3.00,1.00\n"
            "ring 10.00,10.00 r 6.00\n"
            "ellipse 10.00,10.00 rx 1.00 ry 6.00\n"
            "arc 10.00,10.00 r 6.00 from 90.00 by 45.00\n"
            "text 12.00,14.00 left top 12 bold 0,0,0 \"Start\"\n"
            "text 1.00,2.00 right baseline 9 plain \"Mono\" 255,0,0 on 255,255,255 "
            "\"a \\\"b\\\"\\nc\\\\\"\n"
            "clip 0.00,0.00 100.00x50.00\n"
            "unclip\n");
}

// What neither form draws.
template <typename Surface>
void DrawNothing(Surface& surface) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const std::vector<SurfacePoint> one = {{1.0, 1.0}};
  const std::vector<SurfacePoint> bad = {{1.0, 1.0}, {nan, 2.0}, {3.0, 3.0}};
  surface.Line({nan, 0.0}, {1.0, 1.0});
  surface.Polyline(one);
  surface.Polyline(bad);
  surface.Polygon(bad);
  surface.Ring({5.0, 5.0}, -1.0);
  surface.Ring({5.0, 5.0}, inf);
  surface.Ellipse({inf, 5.0}, 1.0, 1.0);
  surface.Arc({5.0, 5.0}, 2.0, nan, 10.0);
  surface.Text({5.0, 5.0}, "", 0, {});
  surface.Text({5.0, nan}, "x", 0, {});
  DrawArrow(surface, {2.0, 2.0}, {2.0, 2.0}, 5.0, kRed);
}

QImage Paper() {
  QImage image(120, 80, QImage::Format_RGB32);
  image.fill(Qt::white);
  return image;
}

TEST(Surfaces, BadShapesDrawNothing) {
  RecordingSurface record;
  DrawNothing(record);
  EXPECT_EQ(record.Text(), "");
  QImage image = Paper();
  {
    QPainter painter(&image);
    QtSurface surface(painter, image.size());
    DrawNothing(surface);
  }
  EXPECT_EQ(image, Paper());
}

TEST(DrawArrow, LineHeadAndHollowAgain) {
  RecordingSurface surface;
  DrawArrow(surface, {0.0, 10.0}, {100.0, 10.0}, 10.0, kRed);
  EXPECT_EQ(surface.Text(),
            "line 0.00,10.00 100.00,10.00\n"
            "fill 255,0,0\n"
            "polygon 100.00,10.00 90.00,14.00 90.00,6.00\n"
            "fill none\n");
}

TEST(QtSurface, ShapesStandWhereTheyShould) {
  QImage image = Paper();
  {
    QPainter painter(&image);
    QtSurface surface(painter, image.size());
    surface.SetPen(3, kRed);
    surface.SetFill(kBlue);
    surface.Ring({20.0, 20.0}, 10.0);  // hollow in spite of the fill
    surface.Ellipse({60.0, 20.0}, 8.0, 12.0);
    surface.Line({0.0, 60.0}, {120.0, 60.0});
    surface.Arc({95.0, 25.0}, 15.0, 0.0, 90.0);  // from the top to the right
    surface.PushClip({0.0, 70.0, 60.0, 10.0});
    surface.SetPen(4, 0);
    surface.Line({0.0, 75.0}, {120.0, 75.0});
    surface.PopClip();
  }
  const QRgb white = qRgb(255, 255, 255);
  const QRgb red = qRgb(255, 0, 0);
  EXPECT_EQ(image.pixel(20, 20), white);
  EXPECT_EQ(image.pixel(20, 10), red);
  EXPECT_EQ(image.pixel(60, 20), qRgb(0, 0, 255));
  EXPECT_EQ(image.pixel(60, 8), red);
  EXPECT_EQ(image.pixel(0, 60), red);
  EXPECT_EQ(image.pixel(119, 60), red);
  EXPECT_NE(image.pixel(105, 14), white);  // the arc's middle
  EXPECT_EQ(image.pixel(84, 14), white);   // the opposite quarter
  EXPECT_EQ(image.pixel(30, 75), qRgb(0, 0, 0));
  EXPECT_EQ(image.pixel(90, 75), white);
}

// Cutting a long track to the view must not change a pixel of what is seen.
TEST(QtSurface, CutPolylineLooksLikeTheWholeOne) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> place(-4000.0, 4000.0);
  std::vector<SurfacePoint> track = {{60.0, 40.0}};
  QPolygonF whole = {QPointF(60.0, 40.0)};
  for (int i = 0; i < 200; ++i) {
    track.push_back({place(random), place(random)});
    if (i % 10 == 0) track.back() = {10.0 + i / 4.0, 20.0 + i / 5.0};
    whole << QPointF(track.back().x, track.back().y);
  }
  QImage cut = Paper();
  QImage straight = Paper();
  {
    QPainter painter(&cut);
    QtSurface surface(painter, cut.size());
    surface.SetPen(2, 0);
    surface.Polyline(track);
    QPainter plain(&straight);
    plain.setRenderHint(QPainter::Antialiasing);
    plain.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (qsizetype i = 0; i + 1 < whole.size(); ++i) plain.drawLine(whole[i], whole[i + 1]);
  }
  int different = 0;
  for (int y = 0; y < cut.height(); ++y) {
    for (int x = 0; x < cut.width(); ++x) {
      if (std::abs(qGray(cut.pixel(x, y)) - qGray(straight.pixel(x, y))) > 40) ++different;
    }
  }
  EXPECT_NE(straight, Paper());
  EXPECT_LT(different, cut.width() * cut.height() / 100);
}

// The box of the pixels that differ from the paper.
QRect InkBox(const QImage& image) {
  QRect box;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qGray(image.pixel(x, y)) < 128) box |= QRect(x, y, 1, 1);
    }
  }
  return box;
}

TEST(QtSurface, TextStandsByItsAlignment) {
  const auto box = [](AlignX across, AlignY down) {
    QImage image = Paper();
    QPainter painter(&image);
    QtSurface surface(painter, image.size());
    TextStyle style;
    style.align_x = across;
    style.align_y = down;
    surface.Text({60.0, 40.0}, "HHH", 0, style);
    return InkBox(image);
  };
  const QRect left = box(AlignX::kLeft, AlignY::kTop);
  EXPECT_GE(left.left(), 59);
  EXPECT_GE(left.top(), 40);
  const QRect right = box(AlignX::kRight, AlignY::kBottom);
  EXPECT_LE(right.right(), 61);
  EXPECT_LE(right.bottom(), 40);
  const QRect middle = box(AlignX::kCentre, AlignY::kBaseline);
  EXPECT_NEAR(middle.center().x(), 60, 2);
  EXPECT_NEAR(middle.bottom(), 39, 1);
}

TEST(NightColour, InkIsLightPaperDarkNothingBright) {
  const auto luma = [](std::int32_t colour) {
    return 0.299 * (colour & 0xff) + 0.587 * ((colour >> 8) & 0xff) +
           0.114 * ((colour >> 16) & 0xff);
  };
  for (const std::int32_t ink : {0x000000, kRed, kBlue, 0x595900, 0xff00ff, 0x008000}) {
    EXPECT_GT(luma(NightColour(ink)), 60.0) << ink;
    EXPECT_LT(luma(NightColour(ink)), 200.0) << ink;
  }
  EXPECT_LT(luma(NightColour(0xffffff)), 10.0);
  // Red stays red.
  EXPECT_GT(NightColour(kRed) & 0xff, 2 * ((NightColour(kRed) >> 8) & 0xff) - 40);
}

}  // namespace
}  // namespace skerrow
