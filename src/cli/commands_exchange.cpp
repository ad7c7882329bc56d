#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/files.h"
#include "exchange/gpx.h"
#include "exchange/kml.h"
#include "instruments/log.h"
#include "instruments/nmea.h"
#include "platform/gpx_reader.h"

namespace skerrow::cli {
namespace {

// The head of a document; its name is the file's up to the first "." where none was given.
KmlHead HeadOf(const KmlWords& words, const std::string& path) {
  const std::string file = FileNameOf(path);
  return {words.name.empty() ? file.substr(0, file.find('.')) : words.name, words.description,
          words.escape};
}

Outcome Written(const Session& session, const KmlHead& head, const Status& status) {
  if (!status) return Failed(status.error());
  const std::string path = KmlPath(session.program.folders, head.name).value();
  Answer answer;
  answer.json() = {{"file", path}};
  answer.text = path + "\n";
  return answer;
}

// The fixes of a log with their dates.
Result<GpsTrack> ReadDatedTrack(const std::string& log) {
  Result<LogLines> lines = LogLines::Open(log);
  if (!lines) return lines.error();
  GpsTrack track;
  while (true) {
    const auto line = lines.value().Next();
    if (!line) return line.error();
    if (!*line) return track;
    if ((*line)->find("RMC") == std::string_view::npos) continue;
    const Rmc rmc = ParseRmc(**line);
    if (rmc.state != SentenceState::kGood) continue;
    GpsTrackPoint point{.latitude = rmc.latitude, .longitude = rmc.longitude};
    SetTime(point, std::string(rmc.time));
    SetDate(point, std::string(rmc.date));
    track.push_back(point);
  }
}

Outcome Contents(const GpxDocument& document) {
  Answer answer;
  const auto list = [&answer](const char* what, const std::vector<GpxLine>& lines) {
    Json rows = Json::array();
    for (const GpxLine& line : lines) {
      rows.push_back({{"name", line.name}, {"points", line.points.size()}});
      answer.text += std::string(what) + " " + std::to_string(rows.size()) + ": " + line.name +
                     ", " + std::to_string(line.points.size()) + " points\n";
    }
    return rows;
  };
  const Json routes = list("route", document.routes);
  const Json tracks = list("track", document.tracks);
  answer.text += std::to_string(document.waypoints.size()) + " waypoints\n";
  answer.json() = {{"routes", routes},
                   {"tracks", tracks},
                   {"waypoints", document.waypoints.size()},
                   {"leftOut", document.left_out}};
  return answer;
}

}  // namespace

Outcome ExportRouteDocument(Session& session, const KmlWords& words) {
  const Program& program = session.program;
  const Folders& folders = program.folders;
  const std::string path = Session::FindFile(words.file, {folders.Routes(), folders.Samples()});
  const KmlHead head = HeadOf(words, path);
  return Written(session, head, ExportRouteKml(path, program.route_speed, folders, head));
}

Outcome ExportWaypointDocument(Session& session, const KmlWords& words) {
  const Folders& folders = session.program.folders;
  const std::string path = Session::FindFile(words.file, {folders.Waypoints(), folders.Samples()});
  const KmlHead head = HeadOf(words, path);
  return Written(session, head, ExportWaypointsKml(path, folders, head));
}

Outcome ExportTrackDocument(Session& session, const KmlWords& words) {
  const Folders& folders = session.program.folders;
  const std::string path = Session::FindFile(words.file, {folders.Tracks(), folders.Samples()});
  const KmlHead head = HeadOf(words, path);
  return Written(session, head, ExportTrackKml(path, folders, head));
}

Outcome ExportPlanDocument(Session& session, const KmlPlanWords& words) {
  Outcome plan = PlanRoute(session, words.plan);
  if (std::holds_alternative<Failure>(plan)) return plan;
  const Program& program = session.program;
  const KmlHead head = HeadOf(words.kml, "COG");
  return Written(session, head,
                 ExportCogKml(program.route.points, program.passage.route_track,
                              program.route_speed, program.folders, head));
}

Outcome ExportGpx(Session& session, const GpxExportWords& words) {
  const Folders& folders = session.program.folders;
  GpxDocument document;
  const auto stem = [](const std::string& path) {
    const std::string name = FileNameOf(path);
    return name.substr(0, name.rfind('.'));
  };
  for (const std::string& file : words.routes) {
    const std::string path = Session::FindFile(file, {folders.Routes(), folders.Samples()});
    const auto records = ReadRouteFile(path);
    if (!records) return Failed(records.error());
    document.routes.push_back(GpxRouteOf(stem(path), *records));
  }
  for (const std::string& file : words.waypoints) {
    const auto waypoints = ReadWaypointFile(Session::FindFile(file, {folders.Waypoints()}));
    if (!waypoints) return Failed(waypoints.error());
    const std::vector<GpxPoint> points = GpxPointsOf(*waypoints);
    document.waypoints.insert(document.waypoints.end(), points.begin(), points.end());
  }
  for (const std::string& file : words.tracks) {
    const std::string path = Session::FindFile(file, {folders.Tracks(), folders.Samples()});
    const Result<GpsTrack> track = ReadDatedTrack(path);
    if (!track) return Failed(track.error());
    document.tracks.push_back(GpxTrackOf(stem(path), *track));
  }
  Answer answer;
  answer.text = WriteGpx(document);
  if (words.output.empty()) {
    answer.json() = {{"gpx", answer.text}};
    return answer;
  }
  if (const Status written = ReplaceFile(words.output, answer.text); !written) {
    return Failed(written.error());
  }
  answer.json() = {{"file", words.output}};
  answer.text = words.output + "\n";
  return answer;
}

Outcome ImportGpx(Session& session, const GpxImportWords& words) {
  const Result<GpxDocument> document = ReadGpxFile(words.file);
  if (!document) return Failed(document.error());
  if (words.route.empty() && words.track.empty() && !words.waypoints) return Contents(*document);
  const Program& program = session.program;
  const std::string file = FileNameOf(words.file);
  const auto named = [&](const std::string& own) {
    if (!words.name.empty()) return words.name;
    return own.empty() ? file.substr(0, file.rfind('.')) : own;
  };
  GpxTaken taken;
  Result<std::vector<std::string>> saved = std::vector<std::string>();
  if (!words.route.empty() || !words.track.empty()) {
    const bool route = !words.route.empty();
    const std::vector<GpxLine>& lines = route ? document->routes : document->tracks;
    const char* what = route ? "route" : "track";
    const Result<int> number = ParseWhole(route ? words.route : words.track, what, 1, 1'000'000);
    if (!number) return WrongUsage(number.error());
    if (static_cast<std::size_t>(*number) > lines.size()) {
      return Failed({words.file, "it has " + std::to_string(lines.size()) + " " + what + "s"});
    }
    const GpxLine& line = lines[static_cast<std::size_t>(*number) - 1];
    saved = route
                ? SaveGpxRoute(program.folders, line, named(line.name), program.route_speed, taken)
                : SaveGpxTrack(program.folders, line, named(line.name), taken);
  } else {
    saved = SaveGpxWaypoints(program.folders, document->waypoints, named(""), taken);
  }
  if (!saved) return Failed(saved.error());
  Answer answer;
  answer.json() = {{"files", *saved},
                   {"namesCut", taken.names_cut},
                   {"every", taken.every},
                   {"leftOut", document->left_out}};
  for (const std::string& path : *saved) answer.text += path + "\n";
  if (taken.names_cut > 0) {
    answer.text += std::to_string(taken.names_cut) + " names were cut to 35 characters\n";
  }
  if (taken.every > 1) {
    answer.text += "of the track each point in " + std::to_string(taken.every) + " was taken\n";
  }
  if (document->left_out > 0) {
    answer.text += std::to_string(document->left_out) + " points have no place and are left out\n";
  }
  return answer;
}

}  // namespace skerrow::cli
