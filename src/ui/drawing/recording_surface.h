#pragma once

#include <string>
#include <vector>

#include "ui/drawing/drawing_surface.h"

namespace skerrow {

// A surface that writes each call down as one line of text, so that a paint can be compared:
//   pen 2 solid 255,0,0
//   fill 0,0,255            fill none
//   line 10.00,20.00 30.00,40.00
//   polyline 1.00,1.00 2.00,2.00 3.00,1.00        polygon ..
//   ring 10.00,10.00 r 6.00
//   ellipse 10.00,10.00 rx 1.00 ry 6.00
//   arc 10.00,10.00 r 6.00 from 90.00 by 45.00
//   text 12.00,14.00 left top 12 bold 0,0,0 "Start"          .. on 255,255,255 "Start"
//   clip 0.00,0.00 100.00x50.00        unclip
// Coordinates have two decimals. Quotes, backslashes and line ends in texts stand behind a
// backslash. Pens and fills that change nothing are written down too.
class RecordingSurface final : public DrawingSurface {
 public:
  explicit RecordingSurface(double width = 1000.0, double height = 700.0)
      : bounds_{0.0, 0.0, width, height} {}

  const std::vector<std::string>& lines() const { return lines_; }
  // All lines, each ended by "\n".
  std::string Text() const;
  void Clear() { lines_.clear(); }

  SurfaceRect Bounds() const override { return bounds_; }
  void SetPen(int width, std::int32_t colour, LineStyle style = LineStyle::kSolid) override;
  void SetFill(std::optional<std::int32_t> colour) override;
  void Line(SurfacePoint from, SurfacePoint to) override;
  void Polyline(std::span<const SurfacePoint> points) override;
  void Polygon(std::span<const SurfacePoint> points) override;
  void Ring(SurfacePoint centre, double radius) override;
  void Ellipse(SurfacePoint centre, double radius_x, double radius_y) override;
  void Arc(SurfacePoint centre, double radius, double start_deg, double span_deg) override;
  void Text(SurfacePoint at, std::string_view text, std::int32_t colour,
            const TextStyle& style) override;
  // Six tenths of the size for each byte of the longest line, one and a half of it for each line.
  SurfaceRect TextExtent(std::string_view text, const TextStyle& style) const override;
  void PushClip(SurfaceRect rect) override;
  void PopClip() override;

 private:
  SurfaceRect bounds_;
  std::vector<std::string> lines_;
};

}  // namespace skerrow
