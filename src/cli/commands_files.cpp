#include <nlohmann/json.hpp>

#include "charts/chart_files.h"
#include "charts/chart_view.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"
#include "routes/route.h"
#include "routes/waypoint.h"

namespace skerrow::cli {
namespace {

Json EntryJson(const ChartIndexEntry& entry) {
  return {{"chartKey", entry.chart_key},
          {"chartTitle", entry.title},
          {"scale", Number(entry.scale)},
          {"lowerLat", Number(entry.lower_lat)},
          {"lowerLon", Number(entry.lower_lon)},
          {"upperLat", Number(entry.upper_lat)},
          {"upperLon", Number(entry.upper_lon)},
          {"flag1", entry.flag1},
          {"flag2", entry.flag2}};
}

Answer EntriesAnswer(const std::vector<ChartIndexEntry>& entries) {
  Answer answer;
  answer.json() = Json::array();
  TextTable table({"Chart", ">Scale 1:", "South", "West", "North", "East", "Title"});
  for (const ChartIndexEntry& entry : entries) {
    answer.json().push_back(EntryJson(entry));
    table.Add({entry.chart_key, FormatFixed(entry.scale, 1, 0), LatToText(entry.lower_lat),
               LongToText(entry.lower_lon), LatToText(entry.upper_lat), LongToText(entry.upper_lon),
               entry.title});
  }
  answer.text = entries.empty() ? "no charts\n" : table.Text();
  return answer;
}

std::optional<Failure> LoadIndex(Session& session) {
  Program& program = session.program;
  const Status loaded =
      LoadChartIndex(program.folders, program.config, program.charts, session.messages);
  if (!loaded) return Failed(loaded.error());
  return std::nullopt;
}

Json ChartJson(const ChartRecord& chart) {
  return {{"upperLat", Number(chart.file.upper_lat)},
          {"topPix", Number(chart.file.top_pix)},
          {"lowerLat", Number(chart.file.lower_lat)},
          {"bottomPix", Number(chart.file.bottom_pix)},
          {"lowerLon", Number(chart.file.lower_lon)},
          {"leftPix", Number(chart.file.left_pix)},
          {"upperLon", Number(chart.file.upper_lon)},
          {"rightPix", Number(chart.file.right_pix)},
          {"width", Number(chart.file.width)},
          {"height", Number(chart.file.height)},
          {"topLat", Number(chart.top_lat)},
          {"topRow", Number(chart.top_row)},
          {"bottomLat", Number(chart.bottom_lat)},
          {"bottomRow", Number(chart.bottom_row)},
          {"westLon", Number(chart.west_lon)},
          {"westCol", Number(chart.west_col)},
          {"eastLon", Number(chart.east_lon)},
          {"eastCol", Number(chart.east_col)},
          {"topMerc", Number(chart.top_merc)},
          {"bottomMerc", Number(chart.bottom_merc)},
          {"mercSpan", Number(chart.merc_span)},
          {"rowSpan", Number(chart.row_span)},
          {"scale", Number(chart.scale)},
          {"spare1", Number(chart.spare1)},
          {"issue", Number(chart.issue)},
          {"spare2", Number(chart.spare2)},
          {"latPerRow", Number(chart.lat_per_row)},
          {"lonPerCol", Number(chart.lon_per_col)}};
}

}  // namespace

Outcome ListWaypoints(Session& session, const WaypointsWords& words) {
  Program& program = session.program;
  std::string path = WaypointPath(program.folders, program.config.waypoint_file);
  if (!words.file.empty()) {
    path = Session::FindFile(words.file, {program.folders.Waypoints()});
  } else {
    // The first start makes the sample marks; asking for the current ones counts as one.
    MakeUserFolders(program.folders);
    if (const Status made = EnsureSampleWaypoints(program.folders); !made) {
      return Failed(made.error());
    }
  }
  const Result<std::vector<Waypoint>> waypoints = ReadWaypointFile(path, session.messages);
  if (!waypoints) return Failed(waypoints.error());
  Answer answer;
  Json list = Json::array();
  TextTable table({"Name", "Latitude", "Longitude"});
  for (const Waypoint& waypoint : *waypoints) {
    const std::string name = Trim(waypoint.name);
    list.push_back({{"name", name},
                    {"latitude", Number(waypoint.latitude)},
                    {"longitude", Number(waypoint.longitude)}});
    table.Add({name, LatToText(waypoint.latitude), LongToText(waypoint.longitude)});
  }
  answer.json() = {{"waypoints", list}};
  answer.text = table.Text();
  return answer;
}

Outcome ShowRoute(Session& session, const RouteWords& words) {
  Program& program = session.program;
  const std::string path =
      Session::FindFile(words.file, {program.folders.Routes(), program.folders.Samples()});
  const Status loaded = LoadRoute(path, RouteSpeeds::kStored, RouteDefaultsOf(program),
                                  program.route, session.messages);
  if (!loaded) return Failed(loaded.error());
  Answer answer;
  Json points = Json::array();
  Json legs = Json::array();
  Json track = Json::array();
  TextTable table({"Name", "Latitude", "Longitude", ">Speed kn", ">Range nm", ">Bearing"});
  const std::vector<RoutePoint>& route = program.route.points;
  for (std::size_t i = 0; i < route.size(); ++i) {
    const RoutePoint& point = route[i];
    points.push_back({{"name", Trim(point.name)},
                      {"latitude", Number(point.latitude)},
                      {"longitude", Number(point.longitude)},
                      {"speed", Number(point.speed)}});
    std::vector<std::string> row = {Trim(point.name), LatToText(point.latitude),
                                    LongToText(point.longitude), FormatFixed(point.speed, 1, 1)};
    if (i + 1 < route.size()) {
      const RangeAndBearing way = RangeBearing(point.At(), point.Next());
      legs.push_back({{"range", Number(way.range)}, {"bearing", Number(way.bearing)}});
      row.push_back(FormatFixed(way.range, 1, 1));
      row.push_back(FormatFixed(way.bearing, 3, 0) + "°T");
    }
    table.Add(std::move(row));
  }
  for (const Position& place : program.route.track) track.push_back(Place(place));
  const float length = RouteLengthOf(route);
  answer.json() = {
      {"points", points}, {"legs", legs}, {"length", Number(length)}, {"track", track}};
  answer.text = table.Text() + "Length " + FormatFixed(length, 1, 1) + " nm\n";
  return answer;
}

Outcome ListCharts(Session& session, const NoWords&) {
  if (auto failure = LoadIndex(session)) return *failure;
  return EntriesAnswer(session.program.charts.index);
}

Outcome ShowChart(Session& session, const ChartWords& words) {
  Program& program = session.program;
  const Status opened = OpenChart(program.folders, ChartPathOf(program.folders, words.key),
                                  program.config, program.charts);
  if (!opened) return Failed(opened.error());
  const ChartRecord& chart = program.charts.chart;
  Answer answer;
  answer.json() = ChartJson(chart);
  for (const auto& [name, value] : answer.json().items()) {
    answer.text +=
        name + std::string(12 - std::min<std::size_t>(name.size(), 11), ' ') + value.dump() + "\n";
  }
  if (const std::string& convert = words.convert; !convert.empty()) {
    const std::size_t comma = convert.find(',');
    if (comma == std::string::npos) {
      return WrongUsage({"", "--convert takes LAT,LONG, not \"" + convert + "\""});
    }
    const Result<Position> place =
        ParsePosition(convert.substr(0, comma), convert.substr(comma + 1));
    if (!place) return WrongUsage(place.error());
    const ChartView view = MakeChartView(chart, static_cast<std::int32_t>(chart.file.width),
                                         static_cast<std::int32_t>(chart.file.height));
    const std::int32_t column = view.LongToCol(place->longitude);
    const std::int32_t row = view.LatToRow(place->latitude);
    answer.json()["column"] = column;
    answer.json()["row"] = row;
    answer.text += LatToText(place->latitude) + "  " + LongToText(place->longitude) +
                   " lies at column " + std::to_string(column) + ", row " + std::to_string(row) +
                   "\n";
  }
  return answer;
}

Outcome FindCharts(Session& session, const PositionWords& words) {
  const Result<Position> place = ParsePosition(words.latitude, words.longitude);
  if (!place) return WrongUsage(place.error());
  if (auto failure = LoadIndex(session)) return *failure;
  ChartsAtPoint(*place, session.program.charts);
  return EntriesAnswer(session.program.charts.at_point);
}

}  // namespace skerrow::cli
