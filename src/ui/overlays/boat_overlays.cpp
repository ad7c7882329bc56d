#include "ui/overlays/boat_overlays.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr double kBoatScale = 120.0;  // parts of the display's height
constexpr double kBoatCentreRadius = 4.0;
constexpr double kFutureRadius = 3.0;
constexpr double kCommentRadius = 4.0;
constexpr double kCommentReach = 600.0;  // of the longest comment, pixels
constexpr double kHalfLine = 0.8;        // half the height of a line, pixels to a point of its font
constexpr int kTrackWidth = 2;
constexpr std::size_t kMostFuturePositions = 7;
constexpr double kMilesPerDegree = 60.0;
constexpr double kEdgeShare = 0.99;

// Miles from a place inside the chart to its edge along a heading.
double RangeToEdge(const OverlayView& view, Position from, double heading) {
  const double angle = heading * kRadiansPerDegree;
  const double north = std::cos(angle);
  const double east = std::sin(angle);
  const double latitude = static_cast<double>(from.latitude);
  const double longitude = static_cast<double>(from.longitude);
  const double edge_lat = static_cast<double>(north > 0.0 ? view.top_lat : view.bottom_lat);
  const double edge_lon = static_cast<double>(east > 0.0 ? view.east_lon : view.west_lon);
  const double miles_north = std::abs(edge_lat - latitude) * kMilesPerDegree;
  const double miles_east =
      std::abs(edge_lon - longitude) * kMilesPerDegree * std::cos(latitude * kRadiansPerDegree);
  // A share of the heading too small to reach that edge leaves the other one to decide.
  constexpr double kLeastShare = 1e-9;
  double range = 1e9;
  if (std::abs(north) > kLeastShare) range = std::min(range, miles_north / std::abs(north));
  if (std::abs(east) > kLeastShare) range = std::min(range, miles_east / std::abs(east));
  return range;
}

void DrawHull(DrawingSurface& surface, const Program& program, SurfacePoint at, double heading,
              double size) {
  // Bow, shoulders and quarters, as (ahead, to starboard) in multiples of the size.
  constexpr std::array<std::array<double, 2>, 5> kCorners = {
      {{2.5, 0.0}, {0.5, 0.75}, {-1.5, 0.5}, {-1.5, -0.5}, {0.5, -0.75}}};
  const double angle = heading * kRadiansPerDegree;
  std::array<SurfacePoint, kCorners.size()> outline;
  for (std::size_t i = 0; i < kCorners.size(); ++i) {
    const double ahead = kCorners[i][0] * size;
    const double abeam = kCorners[i][1] * size;
    outline[i] = {at.x + ahead * std::sin(angle) + abeam * std::sin(angle + kPi / 2.0),
                  at.y - ahead * std::cos(angle) - abeam * std::cos(angle + kPi / 2.0)};
  }
  surface.SetPen(program.config.boat_line_width, program.config.boat_colour);
  surface.SetFill(program.config.boat_colour);
  surface.Polygon(outline);
  surface.SetFill(std::nullopt);
}

// The line from where a track ends to where the boat is.
void JoinToBoat(DrawingSurface& surface, const OverlayView& view, const Program& program,
                Position last) {
  const GpsFix& fix = program.nmea.fix;
  if (!fix.HasPosition()) return;
  const std::optional<SurfacePoint> from = view.Place(last);
  const std::optional<SurfacePoint> to = view.Place(fix.At());
  if (!from || !to || !Apart(*from, *to)) return;
  surface.SetPen(static_cast<int>(RoundToInteger(static_cast<double>(program.config.line_width))),
                 program.config.boat_colour);
  surface.Line(*from, *to);
}

// The lines of a comment from the first that says something to the last.
std::string CommentText(const CommentRecord& comment) {
  std::string text;
  for (const std::string& line : comment.lines) {
    if (!text.empty()) text += "\n";
    text += line;
  }
  const std::size_t end = text.find_last_not_of('\n');
  return text.substr(0, end == std::string::npos ? 0 : end + 1);
}

Position PlaceOf(const CommentRecord& comment) { return {comment.latitude, comment.longitude}; }
Position PlaceOf(const PlotRecord& record) { return {record.latitude, record.longitude}; }

const std::vector<PlotRecord>& PlotRecords(const Program& program) {
  return program.stored_plot.Get(program.plot.plot_file_name);
}

}  // namespace

void DrawInBoat(DrawingSurface& surface, const OverlayView& view, const Program& program,
                const ViewState& state) {
  const Position boat = program.nmea.fix.At();
  const std::optional<SurfacePoint> at = view.Place(boat);
  if (!at) return;
  float heading = program.nmea.fix.course_over_ground;
  if (heading >= 360.0F) heading -= 360.0F;
  const double along = static_cast<double>(heading);
  const double length = std::min(static_cast<double>(program.config.heading_vector_length),
                                 kEdgeShare * RangeToEdge(view, boat, along));
  const Position ahead = MoveByMiles(boat, Resolve(heading, static_cast<float>(length)));
  surface.SetPen(1, program.config.boat_colour);
  surface.Line(*at, view.ToView(ahead));
  DrawHull(surface, program, *at, along, state.display_height / kBoatScale);
  surface.Ring(*at, kBoatCentreRadius);
}

void DrawRangeRings(DrawingSurface& surface, const OverlayView& view, const Program& program,
                    const ViewState&) {
  const Position boat = program.nmea.fix.At();
  const std::optional<SurfacePoint> at = view.Place(boat);
  if (!at) return;
  surface.SetPen(1, kBlack);
  for (const float range :
       {program.config.horizon_range, program.config.vhf_range, program.config.radar_range}) {
    if (!(range > 0.0F)) continue;
    const SurfacePoint edge = view.ToView(MoveByMiles(boat, {0.0F, range}));
    surface.Ring(*at, std::hypot(edge.x - at->x, edge.y - at->y));
  }
}

void DrawinFuturePos(DrawingSurface& surface, const OverlayView& view, const Program& program,
                     const ViewState&) {
  const std::vector<Position>& positions = program.boat_ahead;
  const std::size_t count = std::min(positions.size(), kMostFuturePositions);
  if (count == 0) return;
  const auto width =
      static_cast<int>(RoundToInteger(static_cast<double>(program.config.line_width)));
  surface.SetPen(width, program.config.cog_colour);
  DrawRuns(surface, view, count, [&positions](std::size_t i) { return positions[i]; });
  for (std::size_t i = 0; i < count; ++i) {
    const std::optional<SurfacePoint> at = view.Place(positions[i]);
    if (at && view.Seen(*at, kFutureRadius)) surface.Ring(*at, kFutureRadius);
  }
}

void DrawLiveTrack(DrawingSurface& surface, const OverlayView& view, const Program& program,
                   const ViewState&) {
  const GpsTrack& track = program.nmea.track;
  surface.SetPen(kTrackWidth, program.config.track_colour);
  if (!track.empty()) {
    DrawRuns(surface, view, track.size(), [&track](std::size_t i) { return track[i].At(); });
  }
  for (const CommentRecord& comment : program.nmea.log.comments) {
    const std::optional<SurfacePoint> at = view.Place(PlaceOf(comment));
    if (at && view.Seen(*at, kCommentRadius)) surface.Ring(*at, kCommentRadius);
  }
  if (!track.empty()) JoinToBoat(surface, view, program, track.back().At());
}

void NameLiveTrack(LabelList& names, const OverlayView& view, const Program& program,
                   const ViewState&) {
  // The user's own words do not give way to the names of marks. Lines stand as far apart as the
  // letters need, since at 10 pixels they would cover each other.
  const double half_line = kHalfLine * view.text_size;
  for (const CommentRecord& comment : program.nmea.log.comments) {
    const std::optional<SurfacePoint> at = view.Place(PlaceOf(comment));
    if (!at || !view.Seen(*at, kCommentReach)) continue;
    names.fixed.push_back({CommentText(comment),
                           {at->x + kCommentRadius + kLabelGap, at->y - half_line},
                           program.config.font_colour});
  }
}

void DrawPlotFile(DrawingSurface& surface, const OverlayView& view, const Program& program,
                  const ViewState&) {
  const std::vector<PlotRecord>& records = PlotRecords(program);
  if (records.empty()) return;
  surface.SetPen(kTrackWidth, program.config.track_colour);
  DrawRuns(surface, view, records.size(),
           [&records](std::size_t i) { return PlaceOf(records[i]); });
  for (const PlotRecord& record : records) {
    if (Trim(record.comment).empty()) continue;
    const std::optional<SurfacePoint> at = view.Place(PlaceOf(record));
    if (at && view.Seen(*at, kCommentRadius)) surface.Ring(*at, kCommentRadius);
  }
  JoinToBoat(surface, view, program, PlaceOf(records.back()));
}

void NamePlotFile(LabelList& names, const OverlayView& view, const Program& program,
                  const ViewState&) {
  for (const PlotRecord& record : PlotRecords(program)) {
    const std::string comment = Trim(record.comment);
    if (comment.empty()) continue;
    if (const std::optional<SurfacePoint> at = view.Place(PlaceOf(record))) {
      names.labels.push_back({comment, *at, kCommentRadius, program.config.font_colour,
                              LabelRank::kRemark, LabelSide::kRight});
    }
  }
}

}  // namespace skerrow
