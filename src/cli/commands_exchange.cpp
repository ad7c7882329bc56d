#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/files.h"
#include "exchange/gpx.h"
#include "exchange/kml.h"
#include "exchange/text_table.h"
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

// A file's name without folder and ending.
std::string StemOf(const std::string& path) {
  const std::string name = FileNameOf(path);
  return name.substr(0, name.rfind('.'));
}

// A document or table, printed or written to a file.
Outcome Delivered(const std::string& text, const char* kind, const std::string& output,
                  std::string_view file_bytes) {
  Answer answer;
  answer.text = text;
  if (output.empty()) {
    answer.json() = {{kind, answer.text}};
    return answer;
  }
  if (const Status written = ReplaceFile(output, file_bytes); !written) {
    return Failed(written.error());
  }
  answer.json() = {{"file", output}};
  answer.text = output + "\n";
  return answer;
}

// The files made and what was done to the content.
Answer Imported(const std::vector<std::string>& files, const Taken& taken) {
  Answer answer;
  answer.json() = {{"files", files},
                   {"namesCut", taken.names_cut},
                   {"lettersLost", taken.letters_lost},
                   {"every", taken.every},
                   {"leftOut", taken.left_out}};
  for (const std::string& path : files) answer.text += path + "\n";
  for (const std::string& text : TakenTexts(taken)) answer.text += text + "\n";
  return answer;
}

Outcome Contents(const GpxDocument& document) {
  Answer answer;
  const auto list = [&answer](const char* what, const std::vector<GpxLine>& lines) {
    Json rows = Json::array();
    for (const GpxLine& line : lines) {
      rows.push_back(
          {{"name", line.name}, {"points", line.points.size()}, {"leftOut", line.left_out}});
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
  for (const std::string& file : words.routes) {
    const std::string path = Session::FindFile(file, {folders.Routes(), folders.Samples()});
    const auto records = ReadRouteFile(path);
    if (!records) return Failed(records.error());
    document.routes.push_back(GpxRouteOf(StemOf(path), *records));
  }
  for (const std::string& file : words.waypoints) {
    const auto waypoints = ReadWaypointFile(Session::FindFile(file, {folders.Waypoints()}));
    if (!waypoints) return Failed(waypoints.error());
    const std::vector<GpxPoint> points = GpxPointsOf(*waypoints);
    document.waypoints.insert(document.waypoints.end(), points.begin(), points.end());
  }
  for (const std::string& file : words.tracks) {
    const std::string path = Session::FindFile(file, {folders.Tracks(), folders.Samples()});
    Result<GpxLine> track = GpxTrackOfLog(StemOf(path), path, session.progress);
    if (!track) return Failed(track.error());
    document.tracks.push_back(std::move(track.value()));
  }
  const std::string text = WriteGpx(document);
  return Delivered(text, "gpx", words.output, text);
}

Outcome ImportGpx(Session& session, const GpxImportWords& words) {
  const Result<GpxDocument> document = ReadGpxFile(words.file);
  if (!document) return Failed(document.error());
  if (words.route.empty() && words.track.empty() && !words.waypoints) return Contents(*document);
  const Program& program = session.program;
  const auto named = [&](const std::string& own) {
    if (!words.name.empty()) return words.name;
    return own.empty() ? StemOf(words.file) : own;
  };
  Taken taken;
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
    taken.left_out = document->left_out;
    saved = SaveGpxWaypoints(program.folders, document->waypoints, named(""), taken);
  }
  if (!saved) return Failed(saved.error());
  return Imported(*saved, taken);
}

Outcome ExportRouteTable(Session& session, const TextExportWords& words) {
  const Folders& folders = session.program.folders;
  const auto records =
      ReadRouteFile(Session::FindFile(words.file, {folders.Routes(), folders.Samples()}));
  if (!records) return Failed(records.error());
  const std::string table = RouteTable(*records);
  return Delivered(table, "table", words.output, TableFile(table));
}

Outcome ExportWaypointTable(Session& session, const TextExportWords& words) {
  const Folders& folders = session.program.folders;
  const auto waypoints =
      ReadWaypointFile(Session::FindFile(words.file, {folders.Waypoints(), folders.Samples()}));
  if (!waypoints) return Failed(waypoints.error());
  const std::string table = WaypointTable(*waypoints);
  return Delivered(table, "table", words.output, TableFile(table));
}

Outcome ExportPlanTable(Session& session, const TextPlanWords& words) {
  Outcome plan = PlanRoute(session, words.plan);
  if (std::holds_alternative<Failure>(plan)) return plan;
  const std::string table = CourseTable(session.program.passage);
  return Delivered(table, "table", words.output, TableFile(table));
}

Outcome ImportRouteTable(Session& session, const TextImportWords& words) {
  const Program& program = session.program;
  const Result<std::string> text = ReadFile(words.file);
  if (!text) return Failed(text.error());
  Taken taken;
  const auto records = ReadRouteTable(*text, program.route_speed, taken);
  if (!records) return Failed({words.file, records.error().reason});
  const auto saved = SaveRouteFiles(program.folders, *records,
                                    words.name.empty() ? StemOf(words.file) : words.name);
  if (!saved) return Failed(saved.error());
  return Imported(*saved, taken);
}

Outcome ImportWaypointTable(Session& session, const TextImportWords& words) {
  const Program& program = session.program;
  const Result<std::string> text = ReadFile(words.file);
  if (!text) return Failed(text.error());
  Taken taken;
  const auto waypoints = ReadWaypointTable(*text, taken);
  if (!waypoints) return Failed({words.file, waypoints.error().reason});
  const auto saved = SaveWaypointFiles(program.folders, *waypoints,
                                       words.name.empty() ? StemOf(words.file) : words.name);
  if (!saved) return Failed(saved.error());
  return Imported(*saved, taken);
}

}  // namespace skerrow::cli
