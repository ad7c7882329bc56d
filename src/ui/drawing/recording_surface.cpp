#include "ui/drawing/recording_surface.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace skerrow {
namespace {

std::string Number(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.2f", value);
  return std::string(text) == "-0.00" ? "0.00" : text;
}

std::string Pair(SurfacePoint point) { return Number(point.x) + "," + Number(point.y); }

std::string ColourText(std::int32_t colour) {
  return std::to_string(colour & 0xff) + "," + std::to_string((colour >> 8) & 0xff) + "," +
         std::to_string((colour >> 16) & 0xff);
}

std::string Quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    if (c == '\n') {
      result += "\\n";
    } else {
      result += c;
    }
  }
  return result + '"';
}

std::string Points(std::string line, std::span<const SurfacePoint> points) {
  for (const SurfacePoint& point : points) line += " " + Pair(point);
  return line;
}

bool Finite(std::span<const SurfacePoint> points) {
  return std::all_of(points.begin(), points.end(), [](const SurfacePoint& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
  });
}

bool Finite(SurfacePoint point) { return Finite(std::span(&point, 1)); }

}  // namespace

std::string RecordingSurface::Text() const {
  std::string all;
  for (const std::string& line : lines_) all += line + "\n";
  return all;
}

void RecordingSurface::SetPen(int width, std::int32_t colour, LineStyle style) {
  constexpr const char* kStyles[] = {"solid", "dash", "dot"};
  lines_.push_back("pen " + std::to_string(std::max(width, 1)) + " " +
                   kStyles[static_cast<int>(style)] + " " + ColourText(colour));
}

void RecordingSurface::SetFill(std::optional<std::int32_t> colour) {
  lines_.push_back("fill " + (colour ? ColourText(*colour) : std::string("none")));
}

void RecordingSurface::Line(SurfacePoint from, SurfacePoint to) {
  if (Finite(from) && Finite(to)) lines_.push_back("line " + Pair(from) + " " + Pair(to));
}

void RecordingSurface::Polyline(std::span<const SurfacePoint> points) {
  if (points.size() >= 2 && Finite(points)) lines_.push_back(Points("polyline", points));
}

void RecordingSurface::Polygon(std::span<const SurfacePoint> points) {
  if (points.size() >= 2 && Finite(points)) lines_.push_back(Points("polygon", points));
}

void RecordingSurface::Ring(SurfacePoint centre, double radius) {
  if (!Finite({centre.x, centre.y}) || !std::isfinite(radius) || radius < 0.0) return;
  lines_.push_back("ring " + Pair(centre) + " r " + Number(radius));
}

void RecordingSurface::Ellipse(SurfacePoint centre, double radius_x, double radius_y) {
  if (!Finite(centre) || !Finite({radius_x, radius_y}) || radius_x < 0.0 || radius_y < 0.0) return;
  lines_.push_back("ellipse " + Pair(centre) + " rx " + Number(radius_x) + " ry " +
                   Number(radius_y));
}

void RecordingSurface::Arc(SurfacePoint centre, double radius, double start_deg, double span_deg) {
  if (!Finite(centre) || !Finite({start_deg, span_deg}) || !std::isfinite(radius) || radius < 0.0) {
    return;
  }
  lines_.push_back("arc " + Pair(centre) + " r " + Number(radius) + " from " + Number(start_deg) +
                   " by " + Number(span_deg));
}

void RecordingSurface::Text(SurfacePoint at, std::string_view text, std::int32_t colour,
                            const TextStyle& style) {
  constexpr const char* kAcross[] = {"left", "centre", "right"};
  constexpr const char* kDown[] = {"top", "middle", "baseline", "bottom"};
  if (!Finite(at) || text.empty()) return;
  std::string line = "text " + Pair(at) + " " + kAcross[static_cast<int>(style.align_x)] + " " +
                     kDown[static_cast<int>(style.align_y)] + " " + std::to_string(style.size_pt) +
                     (style.bold ? " bold " : " plain ");
  if (!style.family.empty()) line += Quoted(style.family) + " ";
  line += ColourText(colour);
  if (style.background) line += " on " + ColourText(*style.background);
  lines_.push_back(line + " " + Quoted(text));
}

SurfaceRect RecordingSurface::TextExtent(std::string_view text, const TextStyle& style) const {
  std::size_t longest = 0;
  std::size_t rows = 0;
  while (true) {
    const std::size_t end = text.find('\n');
    longest = std::max(longest, std::min(end, text.size()));
    ++rows;
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return {0.0, 0.0, 0.6 * style.size_pt * static_cast<double>(longest),
          1.5 * style.size_pt * static_cast<double>(rows)};
}

void RecordingSurface::PushClip(SurfaceRect rect) {
  lines_.push_back("clip " + Pair({rect.left, rect.top}) + " " + Number(rect.width) + "x" +
                   Number(rect.height));
}

void RecordingSurface::PopClip() { lines_.push_back("unclip"); }

}  // namespace skerrow
