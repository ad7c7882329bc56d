#include "ui/plot/polar_diagram.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/numbers.h"
#include "ui/plot/plot.h"

namespace skerrow {
namespace {

constexpr double kEdge = 6.0;  // round the whole, pixels
constexpr double kGap = 4.0;   // between the rim and its labels, pixels
constexpr double kMarkSize = 4.5;
constexpr int kTextPt = 9;
constexpr int kMostRings = 6;
constexpr int kSpoke = 10;       // degrees
constexpr int kFirstLabel = 30;  // degrees
constexpr std::int32_t kCasing = 0x6E6259;

double Radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

TextStyle Style(AlignX across, AlignY down) {
  TextStyle style;
  style.size_pt = kTextPt;
  style.bold = false;
  style.align_x = across;
  style.align_y = down;
  return style;
}

bool Overlap(const SurfaceRect& a, const SurfaceRect& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

class PolarPainter {
 public:
  PolarPainter(DrawingSurface& surface, SurfaceRect whole, const PolarDiagram& diagram)
      : surface_(surface), whole_(whole), diagram_(diagram), area_(surface, whole, diagram) {}

  void Paint() {
    surface_.SetPen(1, plot_colours::kPaper);
    surface_.SetFill(plot_colours::kPaper);
    surface_.Polygon(
        std::vector<SurfacePoint>{{whole_.left, whole_.top},
                                  {whole_.left + whole_.width, whole_.top},
                                  {whole_.left + whole_.width, whole_.top + whole_.height},
                                  {whole_.left, whole_.top + whole_.height}});
    surface_.SetFill(std::nullopt);
    PaintGrid();
    for (const PolarLine& line : diagram_.lines) PaintLine(line);
    for (const PolarMark& mark : diagram_.marks) PaintMark(mark);
    PaintLabels();
  }

 private:
  void PaintGrid() {
    const SurfacePoint centre = area_.centre();
    for (int angle = 0; angle <= 180; angle += kSpoke) {
      surface_.SetPen(1, angle % 90 == 0 ? plot_colours::kFrame : plot_colours::kGrid);
      surface_.Line(centre, area_.ToSurface({static_cast<double>(angle), diagram_.rim}));
    }
    const double step = NiceStep(diagram_.rim, kMostRings);
    for (double value = step; value < diagram_.rim * (1.0 - 1e-9); value += step) {
      surface_.SetPen(1, plot_colours::kGrid);
      surface_.Arc(centre, area_.radius() * value / diagram_.rim, 0.0, 180.0);
      Write({centre.x - kGap, area_.ToSurface({0.0, value}).y}, Number(value), AlignX::kRight);
    }
    surface_.SetPen(1, plot_colours::kFrame);
    surface_.Arc(centre, area_.radius(), 0.0, 180.0);
    Write({centre.x - kGap, area_.ToSurface({0.0, diagram_.rim}).y},
          Number(diagram_.rim) + diagram_.unit, AlignX::kRight);
    for (int angle = kFirstLabel; angle <= 180; angle += kSpoke) {
      SurfacePoint at = area_.ToSurface({static_cast<double>(angle), diagram_.rim});
      at.x += kGap * std::sin(Radians(angle));
      const std::string text = std::to_string(angle) + "°";
      if (angle == 180) {
        Write({at.x, at.y + kGap + LineHeight() / 2.0}, text, AlignX::kLeft);
      } else {
        at.y -= (kGap + LineHeight() / 2.0) * std::cos(Radians(angle));
        Write(at, text, AlignX::kLeft);
      }
    }
  }

  static std::string Number(double value) {
    const bool whole = std::abs(value - std::round(value)) < 1e-6;
    return FormatFixed(value, 1, whole ? 0 : 1);
  }

  double LineHeight() const {
    return surface_.TextExtent("0", Style(AlignX::kLeft, AlignY::kTop)).height;
  }

  void PaintLine(const PolarLine& line) {
    std::vector<SurfacePoint> points;
    points.reserve(line.places.size());
    for (const PolarPlace& place : line.places) points.push_back(area_.ToSurface(place));
    if (line.cased) {
      surface_.SetPen(line.width + 2, kCasing);
      surface_.Polyline(points);
    }
    surface_.SetPen(line.width, line.colour);
    surface_.Polyline(points);
  }

  void PaintMark(const PolarMark& mark) {
    surface_.SetPen(2, plot_colours::kPaper);
    surface_.SetFill(mark.colour);
    surface_.Ellipse(area_.ToSurface(mark.at), kMarkSize, kMarkSize);
    surface_.SetFill(std::nullopt);
  }

  // The labels of the marks and of the curves, those in front first; none over another.
  void PaintLabels() {
    for (const PolarMark& mark : diagram_.marks) {
      const SurfacePoint at = area_.ToSurface(mark.at);
      Write({at.x + kMarkSize + kGap, at.y}, mark.label, AlignX::kLeft);
    }
    for (auto line = diagram_.lines.rbegin(); line != diagram_.lines.rend(); ++line) {
      if (line->places.empty()) continue;
      const SurfacePoint at = area_.ToSurface(line->places.back());
      Write({at.x - kGap, at.y}, line->label, AlignX::kRight,
            line->cased ? plot_colours::kText : line->colour);
    }
    Write({area_.centre().x - kGap, area_.ToSurface({180.0, diagram_.rim}).y + LineHeight()},
          diagram_.labels, AlignX::kRight);
    TextStyle style = Style(AlignX::kLeft, AlignY::kTop);
    surface_.Text({whole_.left + kEdge, whole_.top + kEdge}, diagram_.caption, plot_colours::kText,
                  style);
  }

  // Writes a text beside a place, at the height of its middle, unless it would lie on another.
  void Write(SurfacePoint at, const std::string& text, AlignX across,
             std::int32_t colour = plot_colours::kText) {
    if (text.empty()) return;
    TextStyle style = Style(across, AlignY::kMiddle);
    style.halo = plot_colours::kPaper;
    SurfaceRect room = surface_.TextExtent(text, style);
    room.left = across == AlignX::kRight ? at.x - room.width : at.x;
    room.top = at.y - room.height / 2.0;
    for (const SurfaceRect& other : taken_) {
      if (Overlap(room, other)) return;
    }
    taken_.push_back(room);
    surface_.Text(at, text, colour, style);
  }

  DrawingSurface& surface_;
  SurfaceRect whole_;
  const PolarDiagram& diagram_;
  PolarArea area_;
  std::vector<SurfaceRect> taken_;
};

}  // namespace

PolarArea::PolarArea(const DrawingSurface& surface, SurfaceRect area, const PolarDiagram& diagram)
    : rim_(diagram.rim > 0.0 ? diagram.rim : 1.0) {
  const TextStyle style = Style(AlignX::kLeft, AlignY::kTop);
  const SurfaceRect angle = surface.TextExtent("180°", style);
  const double values = std::max(surface.TextExtent("00.0" + diagram.unit, style).width,
                                 surface.TextExtent(diagram.labels, style).width);
  const double left = kEdge + values + kGap;
  const double right = kGap + angle.width + kEdge;
  const double above = kEdge + (diagram.caption.empty() ? 0.0 : angle.height) + angle.height / 2.0;
  const double below = kGap + angle.height + kEdge;
  radius_ = std::max(1.0, std::min(area.width - left - right, (area.height - above - below) / 2.0));
  const double spare = std::max(0.0, area.width - left - right - radius_);
  centre_ = {area.left + left + spare / 2.0, area.top + above + radius_};
}

SurfacePoint PolarArea::ToSurface(PolarPlace place) const {
  const double out = place.value / rim_ * radius_;
  return {centre_.x + out * std::sin(Radians(place.angle)),
          centre_.y - out * std::cos(Radians(place.angle))};
}

PolarPlace PolarArea::ToData(SurfacePoint point) const {
  const double across = point.x - centre_.x;
  const double up = centre_.y - point.y;
  const double angle = std::atan2(across, up) * 180.0 / std::numbers::pi;
  return {std::clamp(angle, 0.0, 180.0), std::hypot(across, up) / radius_ * rim_};
}

bool PolarArea::Holds(SurfacePoint point) const {
  return point.x >= centre_.x && std::hypot(point.x - centre_.x, point.y - centre_.y) <= radius_;
}

void DrawPolar(DrawingSurface& surface, SurfaceRect area, const PolarDiagram& diagram) {
  PolarPainter(surface, area, diagram).Paint();
}

void DrawPolarCursor(DrawingSurface& surface, const PolarArea& area, const PolarCursor& cursor) {
  const PolarPlace end = {cursor.at.angle,
                          area.ToData({area.centre().x + area.radius(), area.centre().y}).value};
  surface.SetPen(1, cursor.colour, LineStyle::kDash);
  surface.Line(area.centre(), area.ToSurface(end));
  surface.SetPen(2, plot_colours::kPaper);
  surface.SetFill(cursor.colour);
  surface.Ellipse(area.ToSurface(cursor.at), kMarkSize, kMarkSize);
  surface.SetFill(std::nullopt);
}

}  // namespace skerrow
