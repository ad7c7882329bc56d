#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"
#include "routes/route.h"
#include "routes/waypoint.h"

namespace skerrow::cli {
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

}  // namespace skerrow::cli
