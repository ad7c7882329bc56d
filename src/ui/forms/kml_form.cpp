#include "ui/forms/kml_form.h"

#include <algorithm>

#include "core/calendar.h"
#include "core/numbers.h"
#include "core/text.h"
#include "instruments/log.h"
#include "instruments/nmea.h"
#include "instruments/plot_file.h"
#include "routes/record_files.h"

namespace skerrow {
namespace {

constexpr const char* kCommentEnds = "COMMENT ENDS";
constexpr std::size_t kNumberAt = 10;       // of a comment's line, in the sentence
constexpr std::size_t kCommentTextAt = 12;  // and its text

std::string PathOf(const Folders& folders, KmlKind kind, const std::string& file) {
  switch (kind) {
    case KmlKind::kRoute:
      return RoutePath(folders, file);
    case KmlKind::kWaypoints:
      return WaypointPath(folders, file);
    case KmlKind::kTrack:
      break;
  }
  return JoinPath(folders.Tracks(), file);
}

std::string PlaceText(float latitude, float longitude) {
  return LatToText(latitude) + "\t" + LongToText(longitude);
}

// A row of a comment's line; empty for one that says nothing. The last line closes its block.
void AddComment(std::string_view line, std::vector<std::string>& rows) {
  if (line.size() <= kCommentTextAt) return;
  const char number = line[kNumberAt];
  if (number < '2' || number > '6') return;
  const std::string_view text = line.substr(kCommentTextAt);
  const std::string shown = Trim(FromAnsi(text.substr(0, std::min(text.find('*'), text.size()))));
  if (!shown.empty()) rows.push_back(shown);
  if (number == '6') rows.emplace_back(kCommentEnds);
}

Result<std::vector<std::string>> TrackRows(const std::string& log) {
  Result<LogLines> lines = LogLines::Open(log);
  if (!lines) return lines.error();
  std::vector<std::string> rows;
  while (true) {
    const auto line = lines.value().Next();
    if (!line) return line.error();
    if (!*line) return rows;
    if ((*line)->find(kCommentSentence) != std::string_view::npos) {
      AddComment((*line)->substr((*line)->find(kCommentSentence)), rows);
    } else if ((*line)->find('$') != std::string_view::npos &&
               (*line)->find("RMC") != std::string_view::npos) {
      const Rmc rmc = ParseRmc(**line);
      if (rmc.state != SentenceState::kGood) continue;
      GpsTrackPoint point;
      SetTime(point, std::string(rmc.time));
      SetDate(point, std::string(rmc.date));
      const auto two = [](std::int16_t part) { return FormatFixed(part, 2, 0); };
      rows.push_back(two(point.hour) + ":" + two(point.minute) + ":" + two(point.second) + "\t" +
                     two(point.day) + "/" + two(point.month) + "/" + two(point.year) + "\t" +
                     PlaceText(rmc.latitude, rmc.longitude));
    }
  }
}

Result<std::string> DocumentOf(const Program& program, KmlKind kind, const std::string& file,
                               const KmlHead& head) {
  const std::string path = PathOf(program.folders, kind, file);
  if (kind == KmlKind::kRoute) {
    const auto records = ReadRouteFile(path);
    if (!records) return records.error();
    return RouteKml(*records, program.route_speed, head);
  }
  if (kind == KmlKind::kWaypoints) {
    const auto waypoints = ReadWaypointFile(path);
    if (!waypoints) return waypoints.error();
    return WaypointsKml(*waypoints, head);
  }
  return TrackKml(path, head);
}

KmlHead AsItStands(KmlHead head, bool escape) {
  head.escape = escape;
  return head;
}

}  // namespace

std::vector<std::string> KmlFiles(const Folders& folders, KmlKind kind) {
  if (kind == KmlKind::kTrack) return ListTracks(folders.Tracks(), TrackKind::kLog);
  const FileKind records = kind == KmlKind::kRoute ? FileKind::kRoute : FileKind::kWaypoint;
  return ListFiles(FolderOfKind(folders, records), records);
}

Result<std::vector<std::string>> KmlRows(const Folders& folders, KmlKind kind,
                                         const std::string& file) {
  const std::string path = PathOf(folders, kind, file);
  if (kind == KmlKind::kTrack) return TrackRows(path);
  std::vector<std::string> rows;
  if (kind == KmlKind::kWaypoints) {
    const auto waypoints = ReadWaypointFile(path);
    if (!waypoints) return waypoints.error();
    for (const Waypoint& waypoint : *waypoints) {
      rows.push_back(Trim(waypoint.name) + "\t" + PlaceText(waypoint.latitude, waypoint.longitude));
    }
    return rows;
  }
  const auto records = ReadRouteFile(path);
  if (!records) return records.error();
  for (const RouteRecord& record : *records) {
    const std::size_t number = rows.size() + 1;
    std::string name = Trim(record.name);
    if (name.empty()) name = (number < 10 ? "WAYPT0" : "WAYPT") + std::to_string(number);
    rows.push_back(name + "\t" + PlaceText(record.latitude, record.longitude) + "\t" +
                   ShortText(record.speed) + "kn");
  }
  return rows;
}

KmlHead KmlOffer(std::string_view file, const ClockReading& now) {
  return {std::string(file.substr(0, file.find('.'))),
          "Created : " + FormatFixed(now.day_of_month, 2, 0) + "/" + FormatFixed(now.month, 2, 0) +
              "/" + std::to_string(now.year)};
}

std::string CogKmlOffer(const ClockReading& now) {
  return "COG " + FormatFixed(now.day_of_month, 2, 0) + " " +
         LongMonthName(now.month).substr(0, 3) + " " + std::to_string(now.year);
}

Result<bool> KmlNeedsEscape(const Program& program, KmlKind kind, const std::string& file,
                            const KmlHead& head) {
  const Result<std::string> plain = DocumentOf(program, kind, file, AsItStands(head, false));
  if (!plain) return plain.error();
  const Result<std::string> escaped = DocumentOf(program, kind, file, AsItStands(head, true));
  if (!escaped) return escaped.error();
  return *plain != *escaped;
}

bool CogKmlNeedsEscape(const Program& program, const KmlHead& head) {
  const auto document = [&](bool escape) {
    return CogKml(program.route.points, program.passage.route_track, program.route_speed,
                  AsItStands(head, escape));
  };
  return document(false) != document(true);
}

Status SaveKml(const Program& program, KmlKind kind, const std::string& file, const KmlHead& head) {
  const std::string path = PathOf(program.folders, kind, file);
  switch (kind) {
    case KmlKind::kRoute:
      return ExportRouteKml(path, program.route_speed, program.folders, head);
    case KmlKind::kWaypoints:
      return ExportWaypointsKml(path, program.folders, head);
    case KmlKind::kTrack:
      break;
  }
  return ExportTrackKml(path, program.folders, head);
}

Status SaveCogKml(const Program& program, const KmlHead& head) {
  return ExportCogKml(program.route.points, program.passage.route_track, program.route_speed,
                      program.folders, head);
}

std::string KmlSavedText(const Folders& folders, std::string_view name) {
  return "File saved to " + std::string(name) + ".kml\r\n" + folders.GoogleEarth();
}

std::string CogKmlSavedText(const Folders& folders, std::string_view name) {
  return std::string(name) + ".kml written to\r\n" + folders.GoogleEarth();
}

}  // namespace skerrow
