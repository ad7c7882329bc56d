#pragma once

// Where a picture of a chart stands in a view of it. Knows no widget.
namespace skerrow {

// A place in the picture: column to the right, row down. The pixel of column c and row r reaches
// from (c, r) to (c + 1, r + 1).
struct ImagePoint {
  double column = 0.0;
  double row = 0.0;
};

// A rectangle of whole pixels of the picture.
struct ImageRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  friend bool operator==(const ImageRect&, const ImageRect&) = default;
};

// A place in the view, in view pixels: those that the desktop counts in, each of which may be
// several pixels of the screen.
struct ViewPoint {
  double x = 0.0;
  double y = 0.0;
};

// The zoom and the scroll position. Zoom 1.0 (100 %) shows one pixel of the picture as one view
// pixel. The picture always lies on a whole pixel of the screen, so that the same pixels are shown
// wherever it is moved; the exact position is kept beside it, so that zooming to and fro about a
// point does not creep. A picture smaller than the view stands in its middle.
class ViewGeometry {
 public:
  static constexpr double kLeastZoom = 0.01;
  static constexpr double kMostZoom = 16.0;

  // Size of the picture in pixels; 0 x 0: there is none. Keeps zoom and position as far as it can.
  void SetImageSize(int width, int height);
  // Size of the view in view pixels, and the screen pixels in one view pixel. The middle of the
  // view stays where it is.
  void SetViewSize(double width, double height, double pixel_ratio);

  int image_width() const { return image_width_; }
  int image_height() const { return image_height_; }
  double view_width() const { return view_width_; }
  double view_height() const { return view_height_; }
  double pixel_ratio() const { return pixel_ratio_; }
  bool HasImage() const { return image_width_ > 0 && image_height_ > 0; }

  double zoom() const { return zoom_; }
  // Zooms about the middle of the view. Every zoom is kept between kLeastZoom and kMostZoom.
  void SetZoom(double zoom);
  // Zooms so that the place of the picture at `at` stays there, as far as the edges allow.
  void ZoomAbout(ViewPoint at, double zoom);
  // The zoom at which the whole width, the whole height, or the whole picture just fits.
  void FitWidth();
  void FitHeight();
  void FitAll();
  // The largest zoom that shows all of `rect`, with its middle in the middle of the view. An empty
  // rectangle changes nothing.
  void ZoomToRect(ImageRect rect);

  // Moves the picture so that `point` comes to stand at `at`, as far as the edges allow.
  void Place(ImagePoint point, ViewPoint at);
  void CentreOn(ImagePoint point);
  // Moves what is seen by so many view pixels; positive: to the right and down the chart.
  void PanBy(double dx, double dy);

  // The scroll position and its largest value, in view pixels.
  double ScrollX() const;
  double ScrollY() const;
  double ScrollRangeX() const;
  double ScrollRangeY() const;
  void SetScroll(double x, double y);

  // The part of the picture that is seen, rounded to whole pixels, within the picture. Zooming to
  // it again shows the same.
  ImageRect VisibleRect() const;

  ImagePoint ToImage(ViewPoint at) const;
  ViewPoint ToView(ImagePoint point) const;

  // The same chart at the same place in a view that reaches `margin` screen pixels further on all
  // sides; its corner may lie beyond the picture's edge.
  ViewGeometry Widened(int margin) const;

  // Screen pixels to one pixel of the picture.
  double Scale() const { return zoom_ * pixel_ratio_; }
  // The size of the whole picture, and the place in it of the view's top left corner, in screen
  // pixels; the place is negative when the picture is smaller than the view.
  int ScaledWidth() const;
  int ScaledHeight() const;
  int OriginX() const;
  int OriginY() const;

 private:
  double ViewPixelsX() const { return view_width_ * pixel_ratio_; }
  double ViewPixelsY() const { return view_height_ * pixel_ratio_; }
  void Clamp();

  int image_width_ = 0;
  int image_height_ = 0;
  double view_width_ = 1.0;
  double view_height_ = 1.0;
  double pixel_ratio_ = 1.0;
  double zoom_ = 1.0;
  double origin_x_ = 0.0;  // exact, screen pixels
  double origin_y_ = 0.0;
};

}  // namespace skerrow
