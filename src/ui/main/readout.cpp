#include "ui/main/readout.h"

#include <algorithm>
#include <cmath>

#include "app/edits.h"
#include "core/calendar.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"
#include "routes/route_rows.h"

namespace skerrow {
namespace {

std::string ModeText(const ViewState& view) {
  if (view.mob_pending) return "Click where the person went over (Esc cancels)";
  if (view.route_drag_on) return "Mode = Route Drag; RIGHT Mouse hold & drag";
  if (view.dividers_on) return "Mode = Dividers (Shift + Click sets zero point)";
  if (view.mouse_mode == MouseMode::kRouteCreation) {
    return "Mode = Route Creation (Use Route Menu or Shift + Click using mouse)";
  }
  if (view.mouse_mode == MouseMode::kPointMarked) {
    return "Mode = RoutePoint Marked (Delete (Del Key); Insert (Insert key))";
  }
  if (view.mouse_mode == MouseMode::kWaypointEntry) {
    return "Mode = Mouse Waypoint Entry (Shift + Click sets a waypoint)";
  }
  return "";
}

std::string BaseName(std::string_view path) {
  std::string name = FileNameOf(Trim(path));
  return name.substr(0, name.find('.'));
}

}  // namespace

std::string CaptionText(const Program& program, const std::string& route_status) {
  const SelectedTime& time = program.selected_time;
  const std::string wind = WindCaption(program);
  return std::string(kProgramName) + " - Selected Time = " + HoursToClock(time.hours) + "  " +
         std::to_string(time.day_of_month) + "/" + std::to_string(time.month) + "/" +
         std::to_string(time.year) + "  " + (wind.empty() ? "" : "-  " + wind + "  ") +
         route_status;
}

std::string RouteStatusText(const RouteState& route) {
  if (route.points.empty()) return "";
  if (route.points.size() == 1) return ":  Creating Route";
  return ":  Route = " + FormatFixed(route.distance, 1, 1) + "nm";
}

std::string ListedRouteText(const RouteState& route) {
  return "Route distance = " + FormatFixed(route.distance, 1, 1) + "nm.";
}

std::string RouteNameText(const Program& program) {
  const std::string& path = program.edits.route_path;
  const std::string name = path.empty() ? "Unnamed" : BaseName(path);
  return "  -  " + name + (RouteUnsaved(program) ? "*" : "");
}

std::array<std::string, 5> StatusPanels(const Program& program, const ViewState& view) {
  const std::string& told = view.eta.empty() ? view.harvest_text : view.eta;
  const float distance = program.route.points.size() > 1 ? program.route.distance : 0.0F;
  return {ModeText(view),
          "Chart in use = " + ChartTitleOf(program.charts, program.config.chart_path),
          told.empty() ? "Waypoints = " + BaseName(program.config.waypoint_file) : told,
          distance > 0.0F ? "Route= " + FormatFixed(distance, 1, 1) + "nm" : "",
          view.link_status.empty() ? ChartIssueText(program.charts.chart.issue) : view.link_status};
}

std::vector<std::string> CursorReadout(const ViewState& view, const std::string& latitude,
                                       const std::string& longitude) {
  std::vector<std::string> rows = {"Cursor", latitude + "  " + longitude};
  const auto from = [&](Position place) { return RangeBearing(place, view.cursor); };
  if (view.dividers_on && view.zero_point) {
    const RangeAndBearing way = from(*view.zero_point);
    rows.push_back("Range " + FormatFixed(way.range, 1, 1) + "  @" +
                   FormatFixed(way.bearing, 3, 0));
  } else if (view.marked_point_on) {
    const RangeAndBearing way = from(view.marked);
    rows.push_back("From Mark " + FormatFixed(way.range, 1, 1) + "nm @" +
                   FormatFixed(way.bearing, 3, 0) + "°T");
  } else if (view.route_entry_on && view.last_click && *view.last_click != Position{}) {
    const RangeAndBearing way = from(*view.last_click);
    rows.push_back("Range " + FormatFixed(way.range, 1, 1) + "nm @" +
                   FormatFixed(way.bearing, 3, 0) + "°T");
  }
  return rows;
}

std::string GpsReadout(const Program& program, const ViewState& view) {
  if (!program.link.gps_enabled && !program.replay.replay_active) return "";
  const GpsFix& fix = program.nmea.fix;
  if (view.marked_point_on && !view.route_drag_on && fix.HasPosition()) {
    const RangeAndBearing way = RangeBearing(fix.At(), view.marked);
    const float speed = fix.speed_over_ground;
    return "From Boat To Marked Point " + FormatFixed(way.range, 1, 1) + "nm @" +
           FormatFixed(way.bearing, 3, 0) + "°T\nETA at Marked Point " +
           (speed > 0.0F ? AddHours(program.clock->Now().Day(), program.clock->Now().Hours(),
                                    way.range / speed)
                               .text
                         : "Not calculated");
  }
  std::string text = program.config.gps_centre != 0 ? "GPS(Located on Screen)" : "GPS";
  for (const std::string& line : {fix.position_text, fix.course_speed_text, fix.waypoint_text}) {
    if (!line.empty()) text += "\n" + line;
  }
  return text;
}

std::string DividersText(const ViewState& view) {
  if (view.dividers_fresh) return "No reference pt";
  if (!view.zero_point) return "Shift + Click - Ref. point";
  const RangeAndBearing way = RangeBearing(*view.zero_point, view.cursor);
  return "Range " + FormatFixed(way.range, 1, 1) + "nm @" + FormatFixed(way.bearing, 3, 0) + "°T";
}

std::string RouteText(const RouteState& route) {
  std::string text;
  for (const std::string& row : RouteRows(route)) text += row + "\n";
  return text;
}

}  // namespace skerrow
