#include "ui/icons/icons.h"

#include <QImage>
#include <QPixmap>
#include <gtest/gtest.h>

namespace skerrow {
namespace {

// Mean lightness of the ink of an icon, weighted by how solid it is; -1 when there is none.
double InkLightness(const QImage& image, double& covered) {
  double sum = 0.0;
  double alpha = 0.0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      sum += qGray(pixel) * qAlpha(pixel);
      alpha += qAlpha(pixel);
    }
  }
  covered = alpha / (255.0 * image.width() * image.height());
  return alpha > 0.0 ? sum / alpha : -1.0;
}

TEST(Icons, EachCanBeSeenDayAndNight) {
  EXPECT_GT(IconNames().size(), 60);
  for (const QString& name : IconNames()) {
    for (const bool night : {false, true}) {
      const QImage image = Icon(name, night)
                               .pixmap(QSize(24, 24), 1.0)
                               .toImage()
                               .convertToFormat(QImage::Format_ARGB32);
      double covered = 0.0;
      const double lightness = InkLightness(image, covered);
      EXPECT_GT(covered, 0.03) << name.toStdString();
      EXPECT_LT(covered, 0.45) << name.toStdString();
      // Dark ink by day; by night light, but not bright.
      EXPECT_TRUE(night ? lightness > 95.0 && lightness < 165.0 : lightness < 95.0)
          << name.toStdString() << " " << lightness;
      // In the chosen row of a menu it is light on the row's colour, day and night.
      double any = 0.0;
      const QImage chosen = Icon(name, night).pixmap(QSize(24, 24), 1.0, QIcon::Active).toImage();
      EXPECT_GT(InkLightness(chosen.convertToFormat(QImage::Format_ARGB32), any),
                lightness + (night ? 20.0 : 100.0))
          << name.toStdString();
      // Nothing is cut off at the edge.
      for (int i = 0; i < 24; ++i) {
        EXPECT_LT(qAlpha(image.pixel(i, 0)) + qAlpha(image.pixel(i, 23)) +
                      qAlpha(image.pixel(0, i)) + qAlpha(image.pixel(23, i)),
                  200)
            << name.toStdString();
      }
    }
  }
  EXPECT_TRUE(Icon(QStringLiteral("no such icon")).isNull());
}

TEST(Icons, DrawnAtTheDensityAskedFor) {
  const QPixmap twice = Icon(QStringLiteral("zoomin")).pixmap(QSize(24, 24), 2.0);
  EXPECT_EQ(twice.size(), QSize(48, 48));
  EXPECT_EQ(twice.devicePixelRatio(), 2.0);
  // Drawn, not blown up: some pixels differ from their neighbours of the same pair.
  const QImage image = twice.toImage();
  int different = 0;
  for (int y = 0; y < 48; y += 2) {
    for (int x = 0; x < 48; x += 2) different += image.pixel(x, y) != image.pixel(x + 1, y);
  }
  EXPECT_GT(different, 20);
  double normal = 0.0;
  double disabled = 0.0;
  InkLightness(image, normal);
  InkLightness(Icon(QStringLiteral("zoomin")).pixmap(QSize(24, 24), 2.0, QIcon::Disabled).toImage(),
               disabled);
  EXPECT_LT(disabled, 0.5 * normal);
  // A lower level of the night dims the ink and nothing else.
  double covered = 0.0;
  const auto ink = [&covered](int level) {
    return InkLightness(
        Icon(QStringLiteral("zoomin"), true, level).pixmap(QSize(24, 24), 1.0).toImage(), covered);
  };
  EXPECT_NEAR(ink(40) / ink(100), 0.4, 0.02);
}

TEST(Icons, TheProgramsIconIsThereAtEverySizeInUse) {
  for (const int size : {16, 32, 48, 256}) {
    const QImage image = ApplicationIcon().pixmap(QSize(size, size), 1.0).toImage();
    ASSERT_EQ(image.size(), QSize(size, size));
    EXPECT_LT(qAlpha(image.pixel(0, 0)), 40);
    // A light wheel on a dark ground above the water.
    int light = 0;
    int dark = 0;
    for (int y = 0; y < size; ++y) {
      for (int x = 0; x < size; ++x) {
        light += qGray(image.pixel(x, y)) > 180;
        dark += qAlpha(image.pixel(x, y)) > 200 && qGray(image.pixel(x, y)) < 110;
      }
    }
    EXPECT_GT(light, size * size / 16) << size;
    EXPECT_GT(dark, size * size / 4) << size;
  }
}

}  // namespace
}  // namespace skerrow
