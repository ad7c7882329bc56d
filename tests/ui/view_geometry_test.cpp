#include "ui/viewer/view_geometry.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace skerrow {
namespace {

ViewGeometry Make(int image_width, int image_height, double width, double height, double ratio) {
  ViewGeometry view;
  view.SetImageSize(image_width, image_height);
  view.SetViewSize(width, height, ratio);
  return view;
}

class AtPixelRatio : public ::testing::TestWithParam<double> {};
INSTANTIATE_TEST_SUITE_P(Ratios, AtPixelRatio, ::testing::Values(1.0, 1.25, 1.5, 2.0));

TEST_P(AtPixelRatio, PlacesGoToTheViewAndBack) {
  ViewGeometry view = Make(5000, 4000, 801, 603, GetParam());
  for (const double zoom : {0.2, 0.37, 1.0, 1.3, 2.5}) {
    view.SetZoom(zoom);
    view.CentreOn({2500.0, 2000.0});
    const ViewPoint middle = view.ToView({2500.0, 2000.0});
    // The picture stands on a whole screen pixel: at most half of one off.
    EXPECT_NEAR(middle.x, 400.5, 0.51 / GetParam());
    EXPECT_NEAR(middle.y, 301.5, 0.51 / GetParam());
    const ViewPoint ten_further = view.ToView({2510.0, 1990.0});
    EXPECT_NEAR(ten_further.x - middle.x, 10.0 * zoom, 1e-9);
    EXPECT_NEAR(ten_further.y - middle.y, -10.0 * zoom, 1e-9);
    for (const ViewPoint at : {ViewPoint{0.0, 0.0}, {123.0, 456.0}, {800.0, 602.0}}) {
      const ViewPoint back = view.ToView(view.ToImage(at));
      EXPECT_NEAR(back.x, at.x, 1e-9);
      EXPECT_NEAR(back.y, at.y, 1e-9);
    }
  }
}

TEST_P(AtPixelRatio, ZoomAboutKeepsThePlaceUnderThePointer) {
  ViewGeometry view = Make(20000, 15000, 1000, 700, GetParam());
  view.SetZoom(0.5);
  view.CentreOn({9000.0, 7000.0});
  const ViewPoint at{333.0, 222.0};
  const ImagePoint held = view.ToImage(at);
  std::mt19937 random(7);
  std::uniform_real_distribution<double> zoom(0.3, 2.5);
  for (int i = 0; i < 500; ++i) {
    view.ZoomAbout(at, zoom(random));
    const ViewPoint now = view.ToView(held);
    // Half a screen pixel for the rounding now, half for that of the first reading.
    ASSERT_NEAR(now.x, at.x, 0.51 / GetParam() + 0.51 / GetParam() * view.zoom() / 0.5) << i;
    ASSERT_NEAR(now.y, at.y, 0.51 / GetParam() + 0.51 / GetParam() * view.zoom() / 0.5) << i;
  }
}

TEST_P(AtPixelRatio, SavedRectangleComesBackForEver) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> zooms(0.1, 2.5);
  std::uniform_real_distribution<double> places(0.0, 3000.0);
  for (int i = 0; i < 50; ++i) {
    ViewGeometry view = Make(3000, 2800, 1003, 698, GetParam());
    view.SetZoom(zooms(random));
    view.CentreOn({places(random), places(random)});
    view.ZoomToRect(view.VisibleRect());
    const ImageRect first = view.VisibleRect();
    const double zoom = view.zoom();
    for (int start = 0; start < 20; ++start) view.ZoomToRect(view.VisibleRect());
    EXPECT_NEAR(view.zoom(), zoom, zoom * 0.003) << "seed 11, round " << i;
    EXPECT_NEAR(view.VisibleRect().left, first.left, 2) << "seed 11, round " << i;
    EXPECT_NEAR(view.VisibleRect().top, first.top, 2) << "seed 11, round " << i;
  }
}

TEST(ViewGeometry, EdgesHoldTheView) {
  ViewGeometry view = Make(2000, 1000, 500, 400, 1.0);
  view.SetZoom(1.0);
  view.PanBy(-1e9, -1e9);
  EXPECT_EQ(view.VisibleRect(), (ImageRect{0, 0, 500, 400}));
  view.PanBy(1e9, 1e9);
  EXPECT_EQ(view.VisibleRect(), (ImageRect{1500, 600, 500, 400}));
  EXPECT_EQ(view.ScrollX(), view.ScrollRangeX());
  view.SetScroll(700.0, 50.0);
  EXPECT_EQ(view.VisibleRect(), (ImageRect{700, 50, 500, 400}));
  EXPECT_EQ(view.ScrollRangeY(), 600.0);
  // Smaller than the view in both: in the middle, all of it seen, nothing to scroll.
  view.SetZoom(0.1);
  EXPECT_EQ(view.VisibleRect(), (ImageRect{0, 0, 2000, 1000}));
  EXPECT_EQ(view.ToView({0.0, 0.0}).x, 150.0);
  EXPECT_EQ(view.ToView({0.0, 1000.0}).y, 250.0);
  EXPECT_EQ(view.ScrollRangeX(), 0.0);
}

TEST(ViewGeometry, FitsAndLimits) {
  ViewGeometry view = Make(2000, 1000, 500, 400, 2.0);
  view.FitWidth();
  EXPECT_DOUBLE_EQ(view.zoom(), 0.25);
  view.FitHeight();
  EXPECT_DOUBLE_EQ(view.zoom(), 0.4);
  view.FitAll();
  EXPECT_DOUBLE_EQ(view.zoom(), 0.25);
  view.ZoomToRect({100, 100, 250, 100});
  EXPECT_DOUBLE_EQ(view.zoom(), 2.0);
  EXPECT_EQ(view.VisibleRect(), (ImageRect{100, 50, 250, 200}));
  view.ZoomToRect({100, 100, 0, 50});
  EXPECT_DOUBLE_EQ(view.zoom(), 2.0);
  view.SetZoom(0.0);
  EXPECT_DOUBLE_EQ(view.zoom(), ViewGeometry::kLeastZoom);
  view.SetZoom(1e9);
  EXPECT_DOUBLE_EQ(view.zoom(), ViewGeometry::kMostZoom);
  view.SetZoom(std::nan(""));
  EXPECT_DOUBLE_EQ(view.zoom(), ViewGeometry::kMostZoom);
}

TEST(ViewGeometry, ResizingKeepsTheMiddle) {
  ViewGeometry view = Make(4000, 4000, 500, 400, 1.0);
  view.SetZoom(0.5);
  view.CentreOn({1800.0, 2200.0});
  view.SetViewSize(901, 333, 2.0);
  const ImagePoint middle = view.ToImage({450.5, 166.5});
  EXPECT_NEAR(middle.column, 1800.0, 1.1);
  EXPECT_NEAR(middle.row, 2200.0, 1.1);
  // Without a picture nothing divides by nothing.
  ViewGeometry empty;
  empty.FitWidth();
  empty.FitAll();
  EXPECT_EQ(empty.VisibleRect(), ImageRect{});
  EXPECT_TRUE(std::isfinite(empty.ToImage({1.0, 1.0}).column));
}

}  // namespace
}  // namespace skerrow
