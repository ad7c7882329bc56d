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

TEST(Icons, EveryToolbarButtonHasOneThatCanBeSeenDayAndNight) {
  const QStringList buttons = {
      "openroute",   "save",      "openchart",     "copychart", "copyroute",    "leftarrow",
      "rightarrow",  "uparrow",   "downarrow",     "zoomin",    "zoomout",      "zoomrect",
      "time",        "resettime", "routeplan",     "routesnap", "dragwaypoint", "cancelroute",
      "calc",        "animate",   "optimise",      "wind",      "dividers",     "gps",
      "ais",         "boatsnap",  "configgps",     "config",    "mob",          "mobplot",
      "viewstreams", "viewports", "viewwaypoints", "viewwind",  "windover",     "vectors",
      "boundaries",  "thumbnail", "showais",       "aisdetails"};
  for (const QString& name : buttons) EXPECT_TRUE(IconNames().contains(name)) << name.toStdString();
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
      EXPECT_TRUE(night ? lightness > 95.0 && lightness < 190.0 : lightness < 95.0)
          << name.toStdString() << " " << lightness;
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
}

}  // namespace
}  // namespace skerrow
