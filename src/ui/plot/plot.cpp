#include "ui/plot/plot.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace skerrow {
namespace {

constexpr double kGap = 5.0;       // between the area and its labels, pixels
constexpr double kEdge = 6.0;      // round the whole, pixels
constexpr double kSpotSize = 3.5;  // radius of a marked point, pixels
constexpr double kPointsAnInch = 72.0;
constexpr double kPixelsAnInch = 96.0;

TextStyle LabelStyle(const Plot& plot, AlignX across, AlignY down) {
  TextStyle style;
  style.size_pt = plot.text_pt;
  style.bold = false;
  style.align_x = across;
  style.align_y = down;
  return style;
}

double LineHeight(const DrawingSurface& surface, const Plot& plot) {
  return surface.TextExtent("0", LabelStyle(plot, AlignX::kLeft, AlignY::kTop)).height;
}

double RightOf(const SurfaceRect& rect) { return rect.left + rect.width; }
double BottomOf(const SurfaceRect& rect) { return rect.top + rect.height; }

bool Overlap(const SurfaceRect& a, const SurfaceRect& b) {
  return a.left < RightOf(b) && b.left < RightOf(a) && a.top < BottomOf(b) && b.top < BottomOf(a);
}

bool Within(const PlotAxis& axis, double at) {
  return at >= std::min(axis.from, axis.to) && at <= std::max(axis.from, axis.to);
}

bool Finite(DataPoint point) { return std::isfinite(point.x) && std::isfinite(point.y); }

// Draws one plot; keeps the places that labels have taken.
class PlotPainter {
 public:
  PlotPainter(DrawingSurface& surface, SurfaceRect whole, const Plot& plot)
      : surface_(surface), whole_(whole), plot_(plot), area_(surface, whole, plot) {}

  void Paint() {
    const SurfaceRect& inner = area_.inner();
    FillRect(whole_, plot_colours::kPaper);
    surface_.PushClip(inner);
    for (const PlotBand& band : plot_.bands) FillRect(BandRect(band), band.colour);
    for (const PlotSeries& series : plot_.series) PaintArea(series);
    surface_.PopClip();
    PaintGrid();
    surface_.PushClip(inner);
    for (const PlotMark& mark : plot_.marks) PaintMarkLine(mark);
    for (const PlotSeries& series : plot_.series) PaintSeries(series);
    surface_.PopClip();
    PaintFrame();
    PaintLabelsBelow();
    PaintLabelsBeside();
    PaintCaptions();
    for (const PlotMark& mark : plot_.marks) PaintWords(mark);
    for (const PlotSpot& spot : plot_.spots) PaintSpot(spot);
    for (const PlotSpot& spot : plot_.spots) PaintSpotLabel(spot);
  }

 private:
  void FillRect(const SurfaceRect& rect, std::int32_t colour) {
    if (rect.width <= 0.0 || rect.height <= 0.0) return;
    const SurfacePoint corners[] = {{rect.left, rect.top},
                                    {RightOf(rect), rect.top},
                                    {RightOf(rect), BottomOf(rect)},
                                    {rect.left, BottomOf(rect)}};
    FillPolygon(corners, colour);
  }

  void FillPolygon(std::span<const SurfacePoint> corners, std::int32_t colour) {
    surface_.SetPen(1, colour);
    surface_.SetFill(colour);
    surface_.Polygon(corners);
    surface_.SetFill(std::nullopt);
  }

  SurfaceRect BandRect(const PlotBand& band) const {
    const SurfaceRect& inner = area_.inner();
    const double left = std::max(area_.ToSurface({band.from, 0.0}).x, inner.left);
    const double right = std::min(area_.ToSurface({band.to, 0.0}).x, RightOf(inner));
    return {left, inner.top, right - left, inner.height};
  }

  std::vector<SurfacePoint> Places(const PlotSeries& series) const {
    std::vector<SurfacePoint> places;
    places.reserve(series.points.size() + 2);
    for (const DataPoint& point : series.points) {
      if (Finite(point)) places.push_back(area_.ToSurface(point));
    }
    return places;
  }

  void PaintArea(const PlotSeries& series) {
    if (!series.fill_to) return;
    std::vector<SurfacePoint> outline = Places(series);
    if (outline.size() < 2) return;
    const double base = area_.ToSurface({0.0, *series.fill_to}).y;
    outline.push_back({outline.back().x, base});
    outline.push_back({outline.front().x, base});
    FillPolygon(outline, plot_colours::kArea);
    for (const PlotBand& band : plot_.bands) {
      const SurfaceRect rect = BandRect(band);
      if (rect.width <= 0.0) continue;
      surface_.PushClip(rect);
      FillPolygon(outline, band.area_colour);
      surface_.PopClip();
    }
  }

  // Lines of one pixel stand in the middle of one, so that they are sharp.
  static double Sharp(double place) { return std::floor(place) + 0.5; }

  bool WithinX(double x) const { return Within(plot_.x, x); }
  bool WithinY(double y) const { return Within(plot_.y, y); }

  void UprightLine(double x) {
    const SurfaceRect& inner = area_.inner();
    const double at = Sharp(area_.ToSurface({x, 0.0}).x);
    surface_.Line({at, inner.top}, {at, BottomOf(inner)});
  }
  void LevelLine(double y) {
    const SurfaceRect& inner = area_.inner();
    const double at = Sharp(area_.ToSurface({0.0, y}).y);
    surface_.Line({inner.left, at}, {RightOf(inner), at});
  }

  void PaintGrid() {
    for (const PlotTick& tick : plot_.x.ticks) {
      if (!tick.line || !WithinX(tick.at)) continue;
      surface_.SetPen(1, tick.colour, tick.style);
      UprightLine(tick.at);
    }
    for (const PlotTick& tick : plot_.y.ticks) {
      if (!tick.line || !WithinY(tick.at)) continue;
      surface_.SetPen(1, tick.colour, tick.style);
      LevelLine(tick.at);
    }
  }

  void PaintFrame() {
    const SurfaceRect& inner = area_.inner();
    const double left = Sharp(inner.left);
    const double right = Sharp(RightOf(inner));
    const double top = Sharp(inner.top);
    const double bottom = Sharp(BottomOf(inner));
    surface_.SetPen(1, plot_colours::kFrame);
    surface_.Polyline(std::vector<SurfacePoint>{
        {left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}});
  }

  void PaintMarkLine(const PlotMark& mark) {
    if (mark.upright ? !WithinX(mark.at) : !WithinY(mark.at)) return;
    const SurfaceRect& inner = area_.inner();
    surface_.SetPen(1, mark.colour);
    if (!mark.broken) {
      mark.upright ? UprightLine(mark.at) : LevelLine(mark.at);
      return;
    }
    const SurfacePoint at = area_.ToSurface({mark.at, mark.at});
    const double stroke = inner.height / 50.0;
    const double end = mark.upright ? BottomOf(inner) : RightOf(inner);
    for (double from = mark.upright ? inner.top : inner.left; from < end; from += 2.0 * stroke) {
      const double to = std::min(from + stroke, end);
      if (mark.upright) {
        surface_.Line({Sharp(at.x), from}, {Sharp(at.x), to});
      } else {
        surface_.Line({from, Sharp(at.y)}, {to, Sharp(at.y)});
      }
    }
  }

  void PaintSeries(const PlotSeries& series) {
    const std::vector<SurfacePoint> places = Places(series);
    if (!series.dots) {
      surface_.SetPen(series.width, series.colour);
      surface_.Polyline(places);
      return;
    }
    surface_.SetPen(1, series.colour);
    surface_.SetFill(series.colour);
    const double radius = series.width / 2.0;
    for (const SurfacePoint& place : places) surface_.Ellipse(place, radius, radius);
    surface_.SetFill(std::nullopt);
  }

  // Writes a text with its top left corner at `at` unless it would lie on another.
  bool Write(const SurfaceRect& room, const std::string& text, TextStyle style) {
    const SurfaceRect wide = {room.left - 2.0, room.top, room.width + 4.0, room.height};
    if (std::any_of(taken_.begin(), taken_.end(),
                    [&](const SurfaceRect& other) { return Overlap(wide, other); })) {
      return false;
    }
    taken_.push_back(room);
    const double across = style.align_x == AlignX::kLeft     ? 0.0
                          : style.align_x == AlignX::kCentre ? 0.5
                                                             : 1.0;
    style.align_y = AlignY::kTop;
    surface_.Text({room.left + across * room.width, room.top}, text, plot_colours::kText, style);
    return true;
  }

  // The room of a text, moved sideways into `bounds`; nothing when it is wider.
  std::optional<SurfaceRect> RoomIn(const SurfaceRect& bounds, double left, double top,
                                    const SurfaceRect& extent) const {
    if (extent.width > bounds.width) return std::nullopt;
    return SurfaceRect{std::clamp(left, bounds.left, RightOf(bounds) - extent.width), top,
                       extent.width, extent.height};
  }

  void PaintLabelsBelow() {
    const TextStyle style = LabelStyle(plot_, AlignX::kLeft, AlignY::kTop);
    const double top = BottomOf(area_.inner()) + kGap;
    for (const PlotTick& tick : plot_.x.ticks) {
      if (tick.label.empty() || !WithinX(tick.at)) continue;
      const SurfaceRect extent = surface_.TextExtent(tick.label, style);
      const double line = area_.ToSurface({tick.at, 0.0}).x;
      const double left = tick.label_left_pt
                              ? line - *tick.label_left_pt * kPixelsAnInch / kPointsAnInch
                              : line - extent.width / 2.0;
      if (const auto room = RoomIn(whole_, left, top, extent)) Write(*room, tick.label, style);
    }
  }

  void PaintLabelsBeside() {
    const TextStyle style = LabelStyle(plot_, AlignX::kRight, AlignY::kTop);
    for (const PlotTick& tick : plot_.y.ticks) {
      if (tick.label.empty() || !WithinY(tick.at)) continue;
      const SurfaceRect extent = surface_.TextExtent(tick.label, style);
      const double middle = area_.ToSurface({0.0, tick.at}).y;
      Write({area_.inner().left - kGap - extent.width, middle - extent.height / 2.0, extent.width,
             extent.height},
            tick.label, style);
    }
  }

  void PaintCaptions() {
    for (const PlotCaption& caption : plot_.captions) {
      if (caption.text.empty()) continue;
      TextStyle style = LabelStyle(plot_, caption.align, AlignY::kTop);
      style.bold = caption.bold;
      const SurfaceRect extent = surface_.TextExtent(caption.text, style);
      const SurfaceRect& inner = area_.inner();
      const double left = caption.align == AlignX::kLeft ? inner.left
                          : caption.align == AlignX::kCentre
                              ? inner.left + (inner.width - extent.width) / 2.0
                              : RightOf(inner) - extent.width;
      if (const auto room = RoomIn(whole_, left, whole_.top + kEdge, extent)) {
        Write(*room, caption.text, style);
      }
    }
  }

  void PaintWords(const PlotMark& mark) {
    if (mark.words.empty() || (mark.upright ? !WithinX(mark.at) : !WithinY(mark.at))) return;
    TextStyle style = LabelStyle(plot_, AlignX::kLeft, AlignY::kTop);
    style.halo = plot_colours::kPaper;
    const SurfaceRect extent = surface_.TextExtent(mark.words, style);
    const SurfaceRect& inner = area_.inner();
    const SurfacePoint at = area_.ToSurface({mark.at, mark.at});
    SurfaceRect wanted = {inner.left + kGap, at.y - extent.height - 1.0, 0.0, 0.0};
    if (mark.upright) {
      wanted.left = mark.words_at ? area_.ToSurface({*mark.words_at, 0.0}).x : at.x + kGap;
      wanted.top = inner.top + 2.0;
    }
    if (!mark.upright && wanted.top < inner.top) wanted.top = at.y + 1.0;
    if (const auto room = RoomIn(inner, wanted.left, wanted.top, extent)) {
      Write(*room, mark.words, style);
    }
  }

  void PaintSpot(const PlotSpot& spot) {
    if (!Finite(spot.at) || !WithinX(spot.at.x) || !WithinY(spot.at.y)) return;
    surface_.SetPen(2, plot_colours::kPaper);
    surface_.SetFill(spot.colour);
    surface_.Ellipse(area_.ToSurface(spot.at), kSpotSize, kSpotSize);
    surface_.SetFill(std::nullopt);
  }

  // On the told side of its point, or else on the other.
  void PaintSpotLabel(const PlotSpot& spot) {
    if (spot.label.empty() || !Finite(spot.at) || !WithinX(spot.at.x) || !WithinY(spot.at.y)) {
      return;
    }
    TextStyle style = LabelStyle(plot_, AlignX::kCentre, AlignY::kTop);
    style.halo = plot_colours::kPaper;
    const SurfaceRect extent = surface_.TextExtent(spot.label, style);
    const SurfaceRect& inner = area_.inner();
    const SurfacePoint at = area_.ToSurface(spot.at);
    const double above = at.y - kSpotSize - 3.0 - extent.height;
    const double below = at.y + kSpotSize + 2.0;
    for (const double top : {spot.above ? above : below, spot.above ? below : above}) {
      if (top < inner.top + 1.0 || top + extent.height > BottomOf(inner) - 1.0) continue;
      const SurfaceRect bounds = {inner.left + 2.0, inner.top, inner.width - 4.0, inner.height};
      const auto room = RoomIn(bounds, at.x - extent.width / 2.0, top, extent);
      if (room && Write(*room, spot.label, style)) return;
    }
  }

  DrawingSurface& surface_;
  SurfaceRect whole_;
  const Plot& plot_;
  PlotArea area_;
  std::vector<SurfaceRect> taken_;
};

TextStyle TagStyle(const Plot& plot) {
  TextStyle style = LabelStyle(plot, AlignX::kCentre, AlignY::kTop);
  style.bold = true;
  return style;
}

// Where the tag of a cursor stands.
SurfaceRect TagRoom(const DrawingSurface& surface, const PlotArea& area, const Plot& plot,
                    const PlotCursor& cursor) {
  const SurfaceRect extent = surface.TextExtent(cursor.tag, TagStyle(plot));
  const SurfaceRect& inner = area.inner();
  const double middle = area.ToSurface({cursor.x, 0.0}).x;
  const double last = std::max(inner.left, RightOf(inner) - extent.width);
  return {std::clamp(middle - extent.width / 2.0, inner.left, last),
          inner.top - extent.height - 1.0, extent.width, extent.height};
}

bool TagShows(const Plot& plot, const PlotCursor& cursor) {
  return plot.tags && !cursor.tag.empty() && Within(plot.x, cursor.x);
}

void DrawCursorLine(DrawingSurface& surface, const PlotArea& area, const Plot& plot,
                    const PlotCursor& cursor) {
  if (!Within(plot.x, cursor.x)) return;
  const SurfaceRect& inner = area.inner();
  const double x = std::floor(area.ToSurface({cursor.x, 0.0}).x) + 0.5;
  surface.SetPen(cursor.width, cursor.colour, cursor.dotted ? LineStyle::kDash : LineStyle::kSolid);
  surface.Line({x, inner.top}, {x, BottomOf(inner)});
  if (!cursor.dot || !std::isfinite(*cursor.dot)) return;
  const double y = area.ToSurface({0.0, *cursor.dot}).y;
  if (y < inner.top || y > BottomOf(inner)) return;
  surface.SetPen(2, plot_colours::kPaper);
  surface.SetFill(cursor.colour);
  surface.Ellipse({x, y}, kSpotSize + 1.0, kSpotSize + 1.0);
  surface.SetFill(std::nullopt);
}

}  // namespace

PlotArea::PlotArea(const DrawingSurface& surface, SurfaceRect area, const Plot& plot)
    : from_x_(plot.x.from), to_x_(plot.x.to), from_y_(plot.y.from), to_y_(plot.y.to) {
  const TextStyle style = LabelStyle(plot, AlignX::kLeft, AlignY::kTop);
  const double line = LineHeight(surface, plot);
  double left = 0.0;
  for (const PlotTick& tick : plot.y.ticks) {
    if (tick.label.empty() || !Within(plot.y, tick.at)) continue;
    left = std::max(left, surface.TextExtent(tick.label, style).width);
  }
  double below = 0.0;
  double right = 0.0;
  for (const PlotTick& tick : plot.x.ticks) {
    if (tick.label.empty() || !Within(plot.x, tick.at)) continue;
    below = line + kGap;
    if (tick.at == plot.x.to) {
      right = std::max(right, surface.TextExtent(tick.label, style).width / 2.0);
    }
  }
  double above = plot.captions.empty() ? line / 2.0 : line + kGap;
  if (plot.tags) above += line;
  if (left > 0.0) left += kGap;
  inner_ = {area.left + kEdge + left, area.top + kEdge + above, 0.0, 0.0};
  inner_.width = std::max(1.0, area.width - 2.0 * kEdge - left - right);
  inner_.height = std::max(1.0, area.height - 2.0 * kEdge - above - below);
}

SurfacePoint PlotArea::ToSurface(DataPoint point) const {
  const double across = to_x_ == from_x_ ? 0.0 : (point.x - from_x_) / (to_x_ - from_x_);
  const double up = to_y_ == from_y_ ? 0.0 : (point.y - from_y_) / (to_y_ - from_y_);
  return {inner_.left + across * inner_.width, BottomOf(inner_) - up * inner_.height};
}

DataPoint PlotArea::ToData(SurfacePoint point) const {
  return {from_x_ + (point.x - inner_.left) / inner_.width * (to_x_ - from_x_),
          from_y_ + (BottomOf(inner_) - point.y) / inner_.height * (to_y_ - from_y_)};
}

bool PlotArea::Holds(SurfacePoint point) const {
  return point.x >= inner_.left && point.x <= RightOf(inner_) && point.y >= inner_.top &&
         point.y <= BottomOf(inner_);
}

void DrawPlot(DrawingSurface& surface, SurfaceRect area, const Plot& plot) {
  PlotPainter(surface, area, plot).Paint();
}

void DrawPlotCursors(DrawingSurface& surface, const PlotArea& area, const Plot& plot,
                     std::span<const PlotCursor> cursors) {
  for (const PlotCursor& cursor : cursors) DrawCursorLine(surface, area, plot, cursor);
  TextStyle style = TagStyle(plot);
  style.background = plot_colours::kPaper;
  std::vector<SurfaceRect> taken;
  for (std::size_t i = cursors.size(); i-- > 0;) {
    if (!TagShows(plot, cursors[i])) continue;
    const SurfaceRect room = TagRoom(surface, area, plot, cursors[i]);
    const SurfaceRect wide = {room.left - 3.0, room.top, room.width + 6.0, room.height};
    if (std::any_of(taken.begin(), taken.end(),
                    [&](const SurfaceRect& other) { return Overlap(wide, other); })) {
      continue;
    }
    taken.push_back(room);
    surface.Text({room.left + room.width / 2.0, room.top}, cursors[i].tag, cursors[i].colour,
                 style);
  }
}

SurfaceRect CursorReach(const DrawingSurface& surface, const PlotArea& area, const Plot& plot,
                        const PlotCursor& cursor) {
  if (!Within(plot.x, cursor.x)) return {};
  const SurfaceRect& inner = area.inner();
  const double x = area.ToSurface({cursor.x, 0.0}).x;
  const double half = std::max(cursor.width / 2.0, cursor.dot ? kSpotSize + 2.0 : 0.0) + 2.0;
  SurfaceRect reach = {x - half, inner.top - 2.0, 2.0 * half, inner.height + 4.0};
  if (TagShows(plot, cursor)) {
    const SurfaceRect room = TagRoom(surface, area, plot, cursor);
    const double left = std::min(reach.left, room.left - 4.0);
    const double right = std::max(RightOf(reach), RightOf(room) + 4.0);
    const double top = room.top - 2.0;
    reach = {left, top, right - left, BottomOf(reach) - top};
  }
  return reach;
}

double NiceStep(double range, int most) {
  if (!std::isfinite(range) || range <= 0.0 || most < 1) return 1.0;
  const double least = range / most;
  const double power = std::pow(10.0, std::floor(std::log10(least)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= least * (1.0 - 1e-9)) return factor * power;
  }
  return 10.0 * power;
}

}  // namespace skerrow
