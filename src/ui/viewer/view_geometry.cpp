#include "ui/viewer/view_geometry.h"

#include <algorithm>
#include <cmath>

namespace skerrow {
namespace {

int ToInt(double value) { return static_cast<int>(std::floor(value + 0.5)); }

double ClampOrigin(double origin, double scaled, double view) {
  if (scaled <= view) return -(view - scaled) / 2.0;
  return std::clamp(origin, 0.0, std::floor(scaled - view));
}

// The visible stretch of one axis.
void Visible(int origin, double view, double scale, int image, int& first, int& count) {
  const double length = std::min(view / scale, static_cast<double>(image));
  count = std::clamp(ToInt(length), 1, std::max(image, 1));
  first = std::clamp(ToInt(origin / scale), 0, std::max(image - count, 0));
}

}  // namespace

void ViewGeometry::SetImageSize(int width, int height) {
  image_width_ = std::max(width, 0);
  image_height_ = std::max(height, 0);
  Clamp();
}

void ViewGeometry::SetViewSize(double width, double height, double pixel_ratio) {
  const ImagePoint middle = ToImage({view_width_ / 2.0, view_height_ / 2.0});
  view_width_ = std::max(width, 1.0);
  view_height_ = std::max(height, 1.0);
  pixel_ratio_ = pixel_ratio > 0.0 ? pixel_ratio : 1.0;
  CentreOn(middle);
}

void ViewGeometry::SetZoom(double zoom) {
  ZoomAbout({view_width_ / 2.0, view_height_ / 2.0}, zoom);
}

void ViewGeometry::ZoomAbout(ViewPoint at, double zoom) {
  if (!std::isfinite(zoom)) return;
  // From the exact position, not the one on screen: many small zooms must not creep.
  const double x = at.x * pixel_ratio_;
  const double y = at.y * pixel_ratio_;
  const ImagePoint held{(origin_x_ + x) / Scale(), (origin_y_ + y) / Scale()};
  zoom_ = std::clamp(zoom, kLeastZoom, kMostZoom);
  Place(held, at);
}

void ViewGeometry::FitWidth() {
  if (HasImage()) SetZoom(view_width_ / image_width_);
}

void ViewGeometry::FitHeight() {
  if (HasImage()) SetZoom(view_height_ / image_height_);
}

void ViewGeometry::FitAll() { ZoomToRect({0, 0, image_width_, image_height_}); }

void ViewGeometry::ZoomToRect(ImageRect rect) {
  if (rect.width <= 0 || rect.height <= 0) return;
  zoom_ = std::clamp(std::min(view_width_ / rect.width, view_height_ / rect.height), kLeastZoom,
                     kMostZoom);
  CentreOn({rect.left + rect.width / 2.0, rect.top + rect.height / 2.0});
}

void ViewGeometry::Place(ImagePoint point, ViewPoint at) {
  if (!std::isfinite(point.column) || !std::isfinite(point.row)) return;
  origin_x_ = point.column * Scale() - at.x * pixel_ratio_;
  origin_y_ = point.row * Scale() - at.y * pixel_ratio_;
  Clamp();
}

void ViewGeometry::CentreOn(ImagePoint point) {
  Place(point, {view_width_ / 2.0, view_height_ / 2.0});
}

void ViewGeometry::PanBy(double dx, double dy) {
  origin_x_ += dx * pixel_ratio_;
  origin_y_ += dy * pixel_ratio_;
  Clamp();
}

double ViewGeometry::ScrollX() const { return std::max(OriginX(), 0) / pixel_ratio_; }
double ViewGeometry::ScrollY() const { return std::max(OriginY(), 0) / pixel_ratio_; }

double ViewGeometry::ScrollRangeX() const {
  return std::max(std::floor(ScaledWidth() - ViewPixelsX()), 0.0) / pixel_ratio_;
}

double ViewGeometry::ScrollRangeY() const {
  return std::max(std::floor(ScaledHeight() - ViewPixelsY()), 0.0) / pixel_ratio_;
}

void ViewGeometry::SetScroll(double x, double y) {
  origin_x_ = x * pixel_ratio_;
  origin_y_ = y * pixel_ratio_;
  Clamp();
}

ImageRect ViewGeometry::VisibleRect() const {
  if (!HasImage()) return {};
  ImageRect rect;
  Visible(OriginX(), ViewPixelsX(), Scale(), image_width_, rect.left, rect.width);
  Visible(OriginY(), ViewPixelsY(), Scale(), image_height_, rect.top, rect.height);
  return rect;
}

ImagePoint ViewGeometry::ToImage(ViewPoint at) const {
  return {(OriginX() + at.x * pixel_ratio_) / Scale(), (OriginY() + at.y * pixel_ratio_) / Scale()};
}

ViewPoint ViewGeometry::ToView(ImagePoint point) const {
  return {(point.column * Scale() - OriginX()) / pixel_ratio_,
          (point.row * Scale() - OriginY()) / pixel_ratio_};
}

ViewGeometry ViewGeometry::Widened(int margin) const {
  ViewGeometry wide = *this;
  wide.view_width_ += 2.0 * margin / pixel_ratio_;
  wide.view_height_ += 2.0 * margin / pixel_ratio_;
  wide.origin_x_ = OriginX() - margin;
  wide.origin_y_ = OriginY() - margin;
  return wide;
}

int ViewGeometry::ScaledWidth() const {
  return HasImage() ? std::max(ToInt(image_width_ * Scale()), 1) : 0;
}

int ViewGeometry::ScaledHeight() const {
  return HasImage() ? std::max(ToInt(image_height_ * Scale()), 1) : 0;
}

int ViewGeometry::OriginX() const { return ToInt(origin_x_); }
int ViewGeometry::OriginY() const { return ToInt(origin_y_); }

void ViewGeometry::Clamp() {
  origin_x_ = ClampOrigin(origin_x_, ScaledWidth(), ViewPixelsX());
  origin_y_ = ClampOrigin(origin_y_, ScaledHeight(), ViewPixelsY());
}

}  // namespace skerrow
