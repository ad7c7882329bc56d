#include "exchange/gpx.h"

#include <array>
#include <charconv>

#include "core/calendar.h"
#include "core/files.h"
#include "core/iso_time.h"
#include "core/numbers.h"
#include "core/text.h"
#include "exchange/xml_text.h"

namespace skerrow {
namespace {

constexpr std::size_t kNameBytes = 35;
constexpr std::size_t kMostPlotPoints = 32767;  // what a 16-bit number counts
constexpr const char* kNoPoints = "it has no points";

// The shortest text that gives the same single back.
std::string Shortest(float value) {
  std::array<char, 32> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  return {text.data(), end.ptr};
}

void Element(std::string& out, std::string_view indent, std::string_view name,
             std::string_view text) {
  if (text.empty()) return;
  out.append(indent).append("<").append(name).append(">").append(EscapeXml(text));
  out.append("</").append(name).append(">\n");
}

// A point as an element of `kind`. The schema has longitudes from -180 to under 180.
void Point(std::string& out, std::string_view indent, std::string_view kind,
           const GpxPoint& point) {
  const float longitude = point.position.longitude == 180.0F ? -180.0F : point.position.longitude;
  const std::string inner = std::string(indent) + "  ";
  out.append(indent).append("<").append(kind);
  out.append(" lat=\"").append(Shortest(point.position.latitude));
  out.append("\" lon=\"").append(Shortest(longitude)).append("\">\n");
  if (point.time) Element(out, inner, "time", IsoTimeText(*point.time));
  Element(out, inner, "name", point.name);
  Element(out, inner, "desc", point.description);
  if (point.speed) {
    out += inner + "<extensions>\n";
    Element(out, inner + "  ", "skerrow:speed", Shortest(*point.speed));
    out += inner + "</extensions>\n";
  }
  out.append(indent).append("</").append(kind).append(">\n");
}

// A name as a record holds it.
std::string Cut(std::string_view name, GpxTaken& taken) {
  std::string bytes = ToAnsi(Trim(name));
  if (bytes.size() > kNameBytes) {
    ++taken.names_cut;
    bytes.resize(kNameBytes);
  }
  return Trim(FromAnsi(bytes));
}

// The path for a new file; its folder is made where it is missing.
Result<std::string> FreePath(const std::string& folder, const std::string& name,
                             std::string_view ending) {
  if (Trim(name).empty()) return Error{"", "Enter a name for the file"};
  if (name.find_first_of("/\\") != std::string::npos) {
    return Error{name, "a file's name holds no \"/\" and no \"\\\""};
  }
  std::string path = JoinPath(folder, name + std::string(ending));
  if (FileIsThere(path)) return Error{path, "there is a file of this name already"};
  if (Status made = MakeFolder(folder); !made) return made.error();
  return path;
}

}  // namespace

std::string WriteGpx(const GpxDocument& document) {
  std::string out =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<gpx version=\"1.1\" creator=\"Skerrow Helm\" "
      "xmlns=\"http://www.topografix.com/GPX/1/1\" xmlns:skerrow=\"";
  out.append(kGpxExtension).append("\">\n");
  for (const GpxPoint& point : document.waypoints) Point(out, "  ", "wpt", point);
  for (const GpxLine& route : document.routes) {
    out += "  <rte>\n";
    Element(out, "    ", "name", route.name);
    for (const GpxPoint& point : route.points) Point(out, "    ", "rtept", point);
    out += "  </rte>\n";
  }
  for (const GpxLine& track : document.tracks) {
    out += "  <trk>\n";
    Element(out, "    ", "name", track.name);
    out += "    <trkseg>\n";
    for (const GpxPoint& point : track.points) Point(out, "      ", "trkpt", point);
    out += "    </trkseg>\n  </trk>\n";
  }
  return out + "</gpx>\n";
}

GpxLine GpxRouteOf(std::string name, std::span<const RouteRecord> records) {
  GpxLine line{std::move(name), {}};
  for (const RouteRecord& record : records) {
    line.points.push_back({{record.latitude, record.longitude},
                           Trim(record.name),
                           ShortText(record.speed) + " kn",
                           std::nullopt,
                           record.speed});
  }
  return line;
}

std::vector<GpxPoint> GpxPointsOf(std::span<const Waypoint> waypoints) {
  std::vector<GpxPoint> points;
  for (const Waypoint& waypoint : waypoints) {
    points.push_back({waypoint.At(), Trim(waypoint.name), "", std::nullopt, std::nullopt});
  }
  return points;
}

GpxLine GpxTrackOf(std::string name, std::span<const GpsTrackPoint> track) {
  GpxLine line{std::move(name), {}};
  for (const GpsTrackPoint& fix : track) {
    GpxPoint point{fix.At(), "", "", std::nullopt, std::nullopt};
    if (fix.month >= 1 && fix.month <= 12 && fix.day >= 1) {
      point.time = SecondsAtDay(2000 + fix.year, fix.month, fix.day) + fix.hour * 3600.0 +
                   fix.minute * 60.0 + fix.second;
    }
    line.points.push_back(std::move(point));
  }
  return line;
}

std::vector<std::vector<RouteRecord>> RoutesOfGpx(const GpxLine& line, float speed,
                                                  std::size_t most, GpxTaken& taken) {
  std::vector<std::vector<RouteRecord>> parts;
  for (const GpxPoint& point : line.points) {
    const RouteRecord record{Cut(point.name, taken), point.position.latitude,
                             point.position.longitude, point.speed.value_or(speed)};
    if (parts.empty()) {
      parts.emplace_back();
    } else if (parts.back().size() >= most) {
      parts.push_back({parts.back().back()});
    }
    parts.back().push_back(record);
  }
  return parts;
}

std::vector<Waypoint> WaypointsOfGpx(std::span<const GpxPoint> points, GpxTaken& taken) {
  std::vector<Waypoint> waypoints;
  for (const GpxPoint& point : points) {
    waypoints.push_back(
        {Cut(point.name, taken), point.position.latitude, point.position.longitude});
  }
  return waypoints;
}

std::vector<PlotRecord> PlotOfGpx(const GpxLine& line, std::size_t most, GpxTaken& taken) {
  const std::size_t count = line.points.size();
  // One place is kept for the last point.
  taken.every = count <= most ? 1 : (count + most - 2) / (most - 1);
  std::vector<PlotRecord> records;
  for (std::size_t i = 0; i < count; ++i) {
    if (i % taken.every != 0 && i + 1 != count) continue;
    const GpxPoint& point = line.points[i];
    PlotRecord record{point.position.latitude, point.position.longitude, "", "",
                      Cut(point.name.empty() ? point.description : point.name, taken)};
    if (point.time) {
      const std::string time = IsoTimeText(*point.time);
      record.time = time.substr(11, 5);
      const int month = (time[5] - '0') * 10 + time[6] - '0';
      record.date =
          time.substr(8, 2) + " " + LongMonthName(month).substr(0, 3) + " " + time.substr(0, 4);
    }
    records.push_back(std::move(record));
  }
  return records;
}

Result<std::vector<std::string>> SaveGpxRoute(const Folders& folders, const GpxLine& line,
                                              const std::string& name, float speed,
                                              GpxTaken& taken) {
  const auto parts = RoutesOfGpx(line, speed, kMaxRoutePoints, taken);
  if (parts.empty()) return Error{name, kNoPoints};
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::string part = i == 0 ? name : name + " " + std::to_string(i + 1);
    const Result<std::string> path = FreePath(folders.Routes(), part, ".rte");
    if (!path) return path.error();
    paths.push_back(*path);
  }
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (Status written = WriteRouteFile(paths[i], parts[i]); !written) return written.error();
  }
  return paths;
}

Result<std::vector<std::string>> SaveGpxWaypoints(const Folders& folders,
                                                  std::span<const GpxPoint> points,
                                                  const std::string& name, GpxTaken& taken) {
  if (points.empty()) return Error{name, kNoPoints};
  const Result<std::string> path = FreePath(folders.Waypoints(), name, ".way");
  if (!path) return path.error();
  const std::vector<Waypoint> waypoints = WaypointsOfGpx(points, taken);
  if (Status written = WriteWaypointFile(*path, waypoints); !written) return written.error();
  return std::vector{*path};
}

Result<std::vector<std::string>> SaveGpxTrack(const Folders& folders, const GpxLine& line,
                                              const std::string& name, GpxTaken& taken) {
  if (line.points.empty()) return Error{name, kNoPoints};
  const Result<std::string> path = FreePath(folders.Tracks(), name, ".trk");
  if (!path) return path.error();
  const std::vector<PlotRecord> records = PlotOfGpx(line, kMostPlotPoints, taken);
  const Status written = WriteRecords(*path, std::span(records), kPlotFields);
  if (!written) return written.error();
  return std::vector{*path};
}

}  // namespace skerrow
