#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/files.h"
#include "exchange/kml.h"

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

}  // namespace skerrow::cli
