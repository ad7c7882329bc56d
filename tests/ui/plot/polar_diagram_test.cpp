#include "ui/plot/polar_diagram.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

#include "support/hands.h"
#include "support/recording_surface.h"
#include "ui/plot/polar_widget.h"

namespace skerrow {
namespace {

PolarDiagram Diagram() {
  PolarDiagram diagram;
  diagram.rim = 8.0;
  diagram.unit = "kn";
  diagram.lines = {{{{60.0, 4.0}, {90.0, 8.0}}, 0x0000FF, 2, false, "12"},
                   {{{60.0, 2.0}, {90.0, 4.0}}, 0xFFFFFF, 1, true, "6"}};
  return diagram;
}

TEST(PolarDiagram, PlacesAnglesClockwiseFromTheTop) {
  RecordingSurface surface(400.0, 700.0);
  const PolarArea area(surface, surface.Bounds(), Diagram());
  const SurfacePoint centre = area.centre();
  const double radius = area.radius();
  EXPECT_NEAR(area.ToSurface({0.0, 8.0}).y, centre.y - radius, 1e-9);
  EXPECT_NEAR(area.ToSurface({90.0, 8.0}).x, centre.x + radius, 1e-9);
  EXPECT_NEAR(area.ToSurface({180.0, 4.0}).y, centre.y + radius / 2.0, 1e-9);
  const PolarPlace back = area.ToData(area.ToSurface({135.0, 3.0}));
  EXPECT_NEAR(back.angle, 135.0, 1e-9);
  EXPECT_NEAR(back.value, 3.0, 1e-9);
  EXPECT_TRUE(area.Holds(area.ToSurface({45.0, 7.9})));
  EXPECT_FALSE(area.Holds(area.ToSurface({45.0, 8.1})));
  EXPECT_FALSE(area.Holds({centre.x - 1.0, centre.y}));
  EXPECT_LE(centre.x + radius, 400.0);
  EXPECT_LE(centre.y + radius, 700.0);
}

TEST(PolarWidget, MouseAndKeysTellAndPickAPlace) {
  PolarWidget widget("polar");
  widget.SetDiagram(Diagram());
  widget.SetKeyStep(5.0, 1.0);
  widget.resize(400, 700);
  testing::Show(widget);
  PolarPlace at;
  PolarPlace picked;
  int moves = 0;
  QObject::connect(&widget, &PolarWidget::Pointed, [&](PolarPlace place) {
    at = place;
    ++moves;
  });
  QObject::connect(&widget, &PolarWidget::Clicked, [&](PolarPlace place) { picked = place; });
  QTest::mouseMove(&widget, widget.PlaceOf({100.0, 5.0}).toPoint());
  EXPECT_NEAR(at.angle, 100.0, 0.5);
  EXPECT_NEAR(at.value, 5.0, 0.05);
  QTest::mouseMove(&widget, QPoint(2, 2));
  EXPECT_EQ(moves, 1) << "beside the disc";
  QTest::keyClick(&widget, Qt::Key_Down);
  QTest::keyClick(&widget, Qt::Key_Right);
  EXPECT_NEAR(at.angle, 105.0, 0.5);
  EXPECT_NEAR(at.value, 6.0, 0.05);
  QTest::keyClick(&widget, Qt::Key_Return);
  EXPECT_EQ(picked, at);
  for (int i = 0; i < 40; ++i) QTest::keyClick(&widget, Qt::Key_Up);
  EXPECT_EQ(at.angle, 0.0);
  QTest::mouseClick(&widget, Qt::LeftButton, {}, widget.PlaceOf({30.0, 2.0}).toPoint());
  EXPECT_NEAR(picked.angle, 30.0, 1.0);
}

}  // namespace
}  // namespace skerrow
