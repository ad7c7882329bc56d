#include "exchange/kml.h"

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "exchange/xml_text.h"
#include "instruments/log.h"
#include "instruments/nmea.h"

namespace skerrow {
namespace {

constexpr std::string_view kRouteColour = "7f00ff00";
constexpr std::string_view kWaypointColour = "7f00ffff";
constexpr std::string_view kCogColour = "ff007f7f";
constexpr std::string_view kRouteLabels = "7f00ff00";
constexpr std::string_view kWaypointLabels = "ffffffff";
constexpr std::string_view kRouteLine = "yellowLineGreenPoly";
constexpr std::string_view kPlannedLine = "YellowLineGreenLine";
constexpr std::string_view kCogLine = "COGLine";

// Lines and marks of a log, thinned: every ninth and every eleventh good position.
constexpr int kLineCounter = 9;
constexpr int kMarkCounter = 10;
constexpr std::size_t kCogStep = 3;

std::string Coordinate(float degrees) { return FormatFixed(static_cast<double>(degrees), 1, 7); }

std::string SpeedLabel(float speed, float route_speed) {
  return " @ " + FormatFixed(static_cast<double>(speed == 0.0F ? route_speed : speed), 1, 1) + "kn";
}

// The lines of a document.
class Document {
 public:
  Document(const KmlHead& head, std::string_view icon, std::string_view labels) : head_(head) {
    Line("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
    Line("<kml xmlns=\"http://www.opengis.net/kml/2.2\">");
    Line("<Document>");
    Line("<name>" + Text(head.name) + "</name>");
    Line("<Style id=\"sn_donut1\">");
    Line("<IconStyle>");
    Line("<color>" + std::string(icon) + "</color>");
    Line("<scale>0.4</scale>");
    Line("<Icon><href>http://maps.google.com/mapfiles/kml/shapes/donut.png</href></Icon>");
    Line("</IconStyle>");
    Line("<LabelStyle><color>" + std::string(labels) + "</color><scale>0.8</scale></LabelStyle>");
    Line("</Style>");
    Line("<description>" + Text(head.description));
    Line("</description>");
  }

  void LineStyle(std::string_view id, std::string_view line, std::string_view area) {
    Line("<Style id=\"" + std::string(id) + "\">");
    Line("<LineStyle>");
    Line("<color>" + std::string(line) + "</color>");
    Line("<width>4</width>");
    Line("</LineStyle>");
    Line("<PolyStyle>");
    Line("<color>" + std::string(area) + "</color>");
    Line("</PolyStyle>");
    Line("</Style>");
  }

  void BeginLine(std::string_view style) {
    Line("<Placemark>");
    Line("<name>" + Text(head_.name) + "</name>");
    Line("<description>" + Text(head_.description) + "</description>");
    Line("<styleUrl>#" + std::string(style) + "</styleUrl>");
    Line("<LineString>");
    Line("<extrude>1</extrude>");
    Line("<tessellate>1</tessellate>");
    Line("<altitudeMode>absolute</altitudeMode>");
    Line("<coordinates>");
  }
  void AddToLine(Position place) {
    Line(Coordinate(place.longitude) + "," + Coordinate(place.latitude) + ",1");
  }
  void EndLine() {
    Line("</coordinates>");
    Line("</LineString>");
    Line("</Placemark>");
  }

  void Point(const std::string& label, const std::string& id, Position place) {
    Line("<Placemark>");
    Line("<styleUrl>#sn_donut1</styleUrl>");
    Line("<name>" + Text(label) + "</name>");
    Line("<Point id=\"" + Text(id) + "\">");
    Line("<coordinates>" + Coordinate(place.longitude) + "," + Coordinate(place.latitude) +
         "</coordinates>");
    Line("</Point>");
    Line("</Placemark>");
  }

  std::string Close() {
    Line("</Document>");
    Line("</kml>");
    return std::move(lines_);
  }

 private:
  std::string Text(std::string_view text) const {
    return head_.escape ? EscapeXml(text) : ToAnsi(text);
  }
  void Line(std::string_view line) { lines_.append(line).append("\r\n"); }

  const KmlHead& head_;
  std::string lines_;
};

bool IsRmc(std::string_view line) {
  return line.find('$') != std::string_view::npos && line.find("RMC") != std::string_view::npos;
}

// "hh:mm" of a time field, "dd/mm/yy" of a date field, as far as they go.
std::string TimeText(std::string_view time) {
  return std::string(time.substr(0, 2)) + ":" +
         std::string(time.size() > 2 ? time.substr(2, 2) : "");
}
std::string DateText(std::string_view date) {
  return std::string(date.substr(0, 2)) + "/" +
         std::string(date.size() > 2 ? date.substr(2, 2) : "") + "/" +
         std::string(date.size() > 4 ? date.substr(4) : "");
}

// Gives each RMC line of a log, parsed, to `take`.
template <typename Take>
Status ForEachRmc(const std::string& log, Take take) {
  Result<LogLines> lines = LogLines::Open(log);
  if (!lines) return lines.error();
  while (true) {
    const auto line = lines.value().Next();
    if (!line) return line.error();
    if (!*line) return Done{};
    if (IsRmc(**line)) take(ParseRmc(**line));
  }
}

Status Write(const Folders& folders, const KmlHead& head, const std::string& document) {
  const Result<std::string> path = KmlPath(folders, head.name);
  if (!path) return path.error();
  if (Status made = MakeFolder(folders.GoogleEarth()); !made) return made;
  return ReplaceFile(*path, document);
}

}  // namespace

std::string KmlPointName(std::string_view name, std::size_t number) {
  std::string trimmed = Trim(name);
  if (!trimmed.empty()) return trimmed;
  return (number < 10 ? "WAYPOINT 0" : "WAYPOINT ") + std::to_string(number);
}

std::string RouteKml(std::span<const RouteRecord> records, float route_speed, const KmlHead& head) {
  Document document(head, kRouteColour, kRouteLabels);
  document.LineStyle(kRouteLine, kWaypointColour, kRouteColour);
  document.BeginLine(kRouteLine);
  for (const RouteRecord& record : records) {
    document.AddToLine({record.latitude, record.longitude});
  }
  document.EndLine();
  std::size_t number = 0;
  for (const RouteRecord& record : records) {
    const std::string name = KmlPointName(record.name, ++number);
    document.Point(name + SpeedLabel(record.speed, route_speed), name,
                   {record.latitude, record.longitude});
  }
  return document.Close();
}

std::string WaypointsKml(std::span<const Waypoint> waypoints, const KmlHead& head) {
  Document document(head, kWaypointColour, kWaypointLabels);
  for (const Waypoint& waypoint : waypoints) {
    const std::string name = Trim(waypoint.name);
    document.Point(name, name, waypoint.At());
  }
  return document.Close();
}

std::string CogKml(std::span<const RoutePoint> points, std::span<const TrackPoint> track,
                   float route_speed, const KmlHead& head) {
  const KmlHead nameless{head.name, "", head.escape};
  Document document(nameless, kRouteColour, kRouteLabels);
  document.LineStyle(kPlannedLine, kWaypointColour, kRouteColour);
  document.LineStyle(kCogLine, kCogColour, kCogColour);
  document.BeginLine(kPlannedLine);
  for (const RoutePoint& point : points) document.AddToLine(point.At());
  document.EndLine();
  document.BeginLine(kCogLine);
  // From the first step on: entry 0 is the start, which the planned legs have.
  for (std::size_t i = 1; i < track.size(); i += kCogStep) document.AddToLine(track[i].position);
  document.EndLine();
  for (std::size_t i = 0; i < points.size(); ++i) {
    const RoutePoint& point = points[i];
    const std::string name = KmlPointName(point.name, i + 1);
    const bool last = i + 1 == points.size();
    document.Point(
        name + (last ? "  "
                     : " CTS =  " + FormatFixed(static_cast<double>(point.course_to_steer), 3, 0) +
                           SpeedLabel(point.speed, route_speed)),
        name, point.At());
  }
  return document.Close();
}

Result<std::string> TrackKml(const std::string& log, const KmlHead& head) {
  Document document(head, kRouteColour, kRouteLabels);
  document.LineStyle(kRouteLine, kWaypointColour, kRouteColour);
  document.BeginLine(kRouteLine);
  std::string date;
  int counter = 0;
  Status read = ForEachRmc(log, [&](const Rmc& rmc) {
    if (++counter == 1 && rmc.state == SentenceState::kGood) {
      date = DateText(rmc.date);
      document.AddToLine({rmc.latitude, rmc.longitude});
      counter = 2;
    }
    if (counter > kLineCounter) counter = 0;
  });
  if (!read) return read.error();
  document.EndLine();
  Position last;
  std::string time;
  counter = 0;
  read = ForEachRmc(log, [&](const Rmc& rmc) {
    const bool good = rmc.state == SentenceState::kGood;
    if (good) {
      last = {rmc.latitude, rmc.longitude};
      time = TimeText(rmc.time);
    }
    if (++counter == 1 && good) document.Point(Trim(time), time, last);
    if (counter > kMarkCounter) counter = 0;
  });
  if (!read) return read.error();
  document.Point("Finish at " + Trim(date) + " " + time, date + " " + time, last);
  return document.Close();
}

Result<std::string> KmlPath(const Folders& folders, std::string_view name) {
  if (Trim(name).empty()) return Error{"", "Enter a name for the file"};
  if (name.find_first_of("/\\") != std::string_view::npos) {
    return Error{std::string(name), "a file's name holds no \"/\" and no \"\\\""};
  }
  return JoinPath(folders.GoogleEarth(), std::string(name) + ".kml");
}

Status ExportRouteKml(const std::string& route_file, float route_speed, const Folders& folders,
                      const KmlHead& head) {
  const Result<std::vector<RouteRecord>> records = ReadRouteFile(route_file);
  if (!records) return records.error();
  return Write(folders, head, RouteKml(*records, route_speed, head));
}

Status ExportWaypointsKml(const std::string& waypoint_file, const Folders& folders,
                          const KmlHead& head) {
  const Result<std::vector<Waypoint>> waypoints = ReadWaypointFile(waypoint_file);
  if (!waypoints) return waypoints.error();
  return Write(folders, head, WaypointsKml(*waypoints, head));
}

Status ExportCogKml(std::span<const RoutePoint> points, std::span<const TrackPoint> track,
                    float route_speed, const Folders& folders, const KmlHead& head) {
  return Write(folders, head, CogKml(points, track, route_speed, head));
}

Status ExportTrackKml(const std::string& log, const Folders& folders, const KmlHead& head) {
  const Result<std::string> document = TrackKml(log, head);
  if (!document) return document.error();
  return Write(folders, head, *document);
}

}  // namespace skerrow
