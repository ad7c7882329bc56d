#pragma once

#include <algorithm>
#include <cstdio>
#include <string>

#include "ui/drawing/drawing_surface.h"

namespace skerrow {

// A surface that writes each call down as a line of text, so that a paint can be compared:
//   pen 2 solid 255,0,0
//   fill 0,0,255            fill none
//   line 10.00,20.00 30.00,40.00
//   polyline 1.00,1.00 2.00,2.00 3.00,1.00        polygon ..
//   ring 10.00,10.00 r 6.00
//   ellipse 10.00,10.00 rx 1.00 ry 6.00
//   arc 10.00,10.00 r 6.00 from 90.00 by 45.00
//   text 12.00,14.00 left top 12 bold 0,0,0 halo 255,255,255 "Start"
class RecordingSurface final : public DrawingSurface {
 public:
  RecordingSurface(double width, double height) : bounds_{0.0, 0.0, width, height} {}
  const std::string& Text() const { return text_; }

  SurfaceRect Bounds() const override { return bounds_; }
  void SetPen(int width, std::int32_t colour, LineStyle style = LineStyle::kSolid) override {
    constexpr const char* kStyles[] = {" solid ", " dash ", " dot "};
    Note("pen " + std::to_string(width) + kStyles[static_cast<int>(style)] + Colour(colour));
  }
  void SetFill(std::optional<std::int32_t> colour) override {
    Note("fill " + (colour ? Colour(*colour) : "none"));
  }
  void Line(SurfacePoint from, SurfacePoint to) override {
    Note("line " + Pair(from) + " " + Pair(to));
  }
  void Polyline(std::span<const SurfacePoint> points) override { Note("polyline" + Row(points)); }
  void Polygon(std::span<const SurfacePoint> points) override { Note("polygon" + Row(points)); }
  void Ring(SurfacePoint centre, double radius) override {
    Note("ring " + Pair(centre) + " r " + Number(radius));
  }
  void Ellipse(SurfacePoint centre, double radius_x, double radius_y) override {
    Note("ellipse " + Pair(centre) + " rx " + Number(radius_x) + " ry " + Number(radius_y));
  }
  void Arc(SurfacePoint centre, double radius, double start_deg, double span_deg) override {
    Note("arc " + Pair(centre) + " r " + Number(radius) + " from " + Number(start_deg) + " by " +
         Number(span_deg));
  }
  void Text(SurfacePoint at, std::string_view text, std::int32_t colour,
            const TextStyle& style) override {
    constexpr const char* kAcross[] = {" left", " centre", " right"};
    constexpr const char* kDown[] = {" top ", " middle ", " baseline ", " bottom "};
    Note("text " + Pair(at) + kAcross[static_cast<int>(style.align_x)] +
         kDown[static_cast<int>(style.align_y)] + std::to_string(style.size_pt) +
         (style.bold ? " bold " : " plain ") + style.family + Colour(colour) +
         (style.halo ? " halo " + Colour(*style.halo) : "") +
         (style.background ? " ground " + Colour(*style.background) : "") + " \"" +
         std::string(text) + '"');
  }
  // Half of the size for each byte, one and a half of it for the line.
  SurfaceRect TextExtent(std::string_view text, const TextStyle& style) const override {
    return {0.0, 0.0, 0.5 * style.size_pt * static_cast<double>(text.size()), 1.5 * style.size_pt};
  }
  void PushClip(SurfaceRect) override {}
  void PopClip() override {}

 private:
  void Note(const std::string& line) { text_ += line + "\n"; }
  static std::string Number(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
  }
  static std::string Pair(SurfacePoint point) { return Number(point.x) + "," + Number(point.y); }
  static std::string Colour(std::int32_t colour) {
    return std::to_string(colour & 0xff) + "," + std::to_string((colour >> 8) & 0xff) + "," +
           std::to_string((colour >> 16) & 0xff);
  }
  static std::string Row(std::span<const SurfacePoint> points) {
    std::string row;
    for (const SurfacePoint& point : points) row += " " + Pair(point);
    return row;
  }

  SurfaceRect bounds_;
  std::string text_;
};

}  // namespace skerrow
