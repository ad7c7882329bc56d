#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

#include "ui/drawing/qt_surface.h"

namespace skerrow {
namespace {

constexpr std::int32_t kRed = 0x0000ff;
constexpr std::int32_t kBlue = 0xff0000;

QImage Paper() {
  QImage image(120, 80, QImage::Format_RGB32);
  image.fill(Qt::white);
  return image;
}

TEST(QtSurface, BadShapesDrawNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const std::vector<SurfacePoint> one = {{1.0, 1.0}};
  const std::vector<SurfacePoint> bad = {{1.0, 1.0}, {nan, 2.0}, {3.0, 3.0}};
  QImage image = Paper();
  {
    QPainter painter(&image);
    QtSurface surface(painter, image.size());
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
  EXPECT_EQ(image, Paper());
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

// A copied stamp is the drawing itself, and made once for each key, look and density.
TEST(QtSurface, AStampIsDrawnOnceAndCopied) {
  for (const int ratio : {1, 2}) {
    int drawn = 0;
    const auto flag = [&drawn](DrawingSurface& surface, SurfacePoint at) {
      ++drawn;
      surface.SetPen(2, kRed);
      surface.Line(at, {at.x + 14.0, at.y + 9.0});
      surface.SetFill(kBlue);
      surface.Polygon(std::vector<SurfacePoint>{at, {at.x, at.y - 12.0}, {at.x - 8.0, at.y - 6.0}});
      surface.SetFill(std::nullopt);
    };
    TextPictures kept;
    const auto picture = [&](bool stamped, SurfacePoint first, Look look) {
      QImage image(QSize(120, 80) * ratio, QImage::Format_RGB32);
      image.setDevicePixelRatio(ratio);
      image.fill(Qt::white);
      QPainter painter(&image);
      QtSurface surface(painter, QSizeF(120, 80), look, &kept);
      for (const SurfacePoint at : {first, SurfacePoint{70.0, 50.0}, SurfacePoint{-3.0, 20.0}}) {
        if (stamped) {
          surface.Stamp(at, "flag", 17.0, flag);
        } else {
          flag(surface, at);
        }
      }
      return image;
    };
    const auto most_apart = [](const QImage& a, const QImage& b) {
      int most = 0;
      for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
          most = std::max(most, std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))));
        }
      }
      return most;
    };
    EXPECT_LE(most_apart(picture(true, {30, 40}, {}), picture(false, {30, 40}, {})), 4) << ratio;
    EXPECT_EQ(drawn, 1 + 3);
    // To the nearest pixel of the screen.
    EXPECT_EQ(picture(true, {30.2, 39.8}, {}), picture(true, {30, 40}, {}));
    EXPECT_EQ(picture(true, {30.4, 40}, {}) == picture(true, {30, 40}, {}), ratio == 1);
    EXPECT_EQ(drawn, 1 + 3);
    const Look night{true, 60};
    EXPECT_LE(most_apart(picture(true, {30, 40}, night), picture(false, {30, 40}, night)), 4);
    EXPECT_EQ(drawn, 2 * (1 + 3));
    EXPECT_GT(kept.MemoryUse(), 14 * 21 * 4);
  }
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

// The rim lies about the letters, takes the ground's colour in the look, and stays out of the
// print.
TEST(QtSurface, TextHasARim) {
  QImage image = Paper();
  image.fill(qRgb(0, 120, 0));
  QPainter painter(&image);
  QtSurface surface(painter, image.size());
  TextStyle style;
  style.size_pt = 20;
  style.halo = 0xffffff;
  surface.Text({20.0, 20.0}, "I", 0, style);
  int from = -1;
  int to = -1;
  for (int x = 0; x < image.width(); ++x) {
    if (qGray(image.pixel(x, 36)) < 20) (from < 0 ? from : to) = x;
  }
  ASSERT_GT(from, 0);
  EXPECT_GT(qBlue(image.pixel(from - 2, 36)), 150);
  EXPECT_GT(qBlue(image.pixel(to + 2, 36)), 150);
  EXPECT_EQ(image.pixel(from - 5, 36), qRgb(0, 120, 0));
}

TEST(ShownColour, InkIsLightPaperDarkAndNothingAboveTheCeiling) {
  const auto luma = [](std::int32_t colour) {
    return 0.299 * (colour & 0xff) + 0.587 * ((colour >> 8) & 0xff) +
           0.114 * ((colour >> 16) & 0xff);
  };
  const Look night{true, 100};
  for (const std::int32_t ink : {0x000000, kRed, kBlue, 0x595900, 0xff00ff, 0x008000}) {
    EXPECT_GT(luma(ShownColour(ink, night)), 60.0) << ink;
    EXPECT_EQ(ShownColour(ink, {}), ink);
  }
  EXPECT_LT(luma(ShownColour(0xffffff, night)), 10.0);
  // Red stays red.
  EXPECT_GT(ShownColour(kRed, night) & 0xff, 2 * ((ShownColour(kRed, night) >> 8) & 0xff) - 40);
  std::mt19937 random(4);
  for (int i = 0; i < 2000; ++i) {
    const auto colour = static_cast<std::int32_t>(random() & 0xffffffU);
    for (const int level : {10, 40, 100}) {
      for (int shift = 0; shift < 24; shift += 8) {
        ASSERT_LE((ShownColour(colour, {true, level}) >> shift) & 0xff, 165 * level / 100)
            << colour;
        ASSERT_LE((ShownColour(colour, {false, level}) >> shift) & 0xff, 255 * level / 100);
      }
    }
  }
}

}  // namespace
}  // namespace skerrow
