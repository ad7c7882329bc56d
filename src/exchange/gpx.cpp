#include "exchange/gpx.h"

#include <optional>

#include "core/calendar.h"
#include "core/iso_time.h"
#include "core/numbers.h"
#include "core/text.h"
#include "exchange/exact_text.h"
#include "exchange/xml_text.h"
#include "instruments/log.h"
#include "instruments/nmea.h"

namespace skerrow {
namespace {

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
  out.append(" lat=\"").append(ExactText(point.position.latitude));
  out.append("\" lon=\"").append(ExactText(longitude)).append("\">\n");
  if (point.time) Element(out, inner, "time", IsoTimeText(*point.time));
  Element(out, inner, "name", point.name);
  Element(out, inner, "desc", point.description);
  if (point.speed || !point.arrival.empty()) {
    out += inner + "<extensions>\n";
    if (point.speed) Element(out, inner + "  ", "skerrow:speed", ExactText(*point.speed));
    Element(out, inner + "  ", "skerrow:arrival", point.arrival);
    out += inner + "</extensions>\n";
  }
  out.append(indent).append("</").append(kind).append(">\n");
}

bool AllDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// The time that the texts of a record tell, "06:30" of "05 Dec 2026"; empty for other texts.
std::optional<double> PlotTime(const PlotRecord& record) {
  const std::string time = Trim(record.time);
  const std::string date = Trim(record.date);
  const std::size_t first = date.find(' ');
  if (time.size() != 5 || time[2] != ':' || first == std::string::npos ||
      date.size() != first + 9 || date[first + 4] != ' ') {
    return std::nullopt;
  }
  int month = 0;
  for (int i = 1; i <= 12; ++i) {
    if (LongMonthName(i).substr(0, 3) == date.substr(first + 1, 3)) month = i;
  }
  const std::string day = date.substr(0, first);
  const std::string year = date.substr(first + 5);
  if (month == 0 || !AllDigits(day) || day.size() > 2 || !AllDigits(year)) return std::nullopt;
  return ParseIsoTime(year + "-" + FormatFixed(month, 2, 0) + "-" +
                      FormatFixed(TextToNumber(day), 2, 0) + "T" + time + "Z");
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
  GpxLine line{std::move(name), {}, 0};
  for (const RouteRecord& record : records) {
    line.points.push_back({{record.latitude, record.longitude},
                           Trim(record.name),
                           ShortText(record.speed) + " kn",
                           std::nullopt,
                           record.speed,
                           ""});
  }
  return line;
}

std::vector<GpxPoint> GpxPointsOf(std::span<const Waypoint> waypoints) {
  std::vector<GpxPoint> points;
  for (const Waypoint& waypoint : waypoints) {
    points.push_back({waypoint.At(), Trim(waypoint.name), "", std::nullopt, std::nullopt, ""});
  }
  return points;
}

GpxLine GpxTrackOf(std::string name, std::span<const GpsTrackPoint> track) {
  GpxLine line{std::move(name), {}, 0};
  for (const GpsTrackPoint& fix : track) {
    GpxPoint point{fix.At(), "", "", std::nullopt, std::nullopt, ""};
    if (fix.month >= 1 && fix.month <= 12 && fix.day >= 1) {
      point.time = SecondsAtDay(2000 + fix.year, fix.month, fix.day) + fix.hour * 3600.0 +
                   fix.minute * 60.0 + fix.second;
    }
    line.points.push_back(std::move(point));
  }
  return line;
}

GpxLine GpxPlanOf(std::string name, std::span<const RoutePoint> points,
                  std::span<const LegReport> legs) {
  GpxLine line{std::move(name), {}, 0};
  const bool calculated = legs.size() + 1 == points.size();
  for (std::size_t i = 0; i < points.size(); ++i) {
    GpxPoint point{points[i].At(), Trim(points[i].name), ShortText(points[i].speed) + " kn",
                   std::nullopt,   points[i].speed,      ""};
    if (calculated) {
      const bool last = i == legs.size();
      point.arrival = last ? DateAndMinute(legs[i - 1].arrival_date, legs[i - 1].arrival_hours)
                           : DateAndMinute(legs[i].start_date, legs[i].start_hours);
      const std::string when = (i == 0 ? "depart " : "arrive ") + point.arrival.substr(11) + " " +
                               point.arrival.substr(0, 10);
      point.description =
          last ? when
               : point.description + ", steer " + FormatFixed(legs[i].heading, 3, 0) + ", " + when;
    }
    line.points.push_back(std::move(point));
  }
  return line;
}

Result<GpxLine> GpxTrackOfLog(std::string name, const std::string& log, Progress& progress) {
  constexpr std::size_t kLinesAStep = 2000;
  Result<LogLines> lines = LogLines::Open(log);
  if (!lines) return lines.error();
  GpsTrack track;
  for (std::size_t count = 1;; ++count) {
    const auto line = lines.value().Next();
    if (!line) return line.error();
    if (!*line) return GpxTrackOf(std::move(name), track);
    if (count % kLinesAStep == 0 && !progress.Step(lines->Percent())) {
      return Error{log, "the reading was stopped"};
    }
    if ((*line)->find("RMC") == std::string_view::npos) continue;
    const Rmc rmc = ParseRmc(**line);
    if (rmc.state != SentenceState::kGood) continue;
    GpsTrackPoint point{.latitude = rmc.latitude, .longitude = rmc.longitude};
    SetTime(point, std::string(rmc.time));
    SetDate(point, std::string(rmc.date));
    track.push_back(point);
  }
}

GpxLine GpxTrackOfPlot(std::string name, std::span<const PlotRecord> records) {
  GpxLine line{std::move(name), {}, 0};
  line.points.reserve(records.size());
  for (const PlotRecord& record : records) {
    line.points.push_back({{record.latitude, record.longitude},
                           Trim(record.comment),
                           "",
                           PlotTime(record),
                           std::nullopt,
                           ""});
  }
  return line;
}

std::vector<RouteRecord> RouteOfGpx(const GpxLine& line, float speed, Taken& taken) {
  std::vector<RouteRecord> records;
  records.reserve(line.points.size());
  for (const GpxPoint& point : line.points) {
    records.push_back({RecordName(point.name, taken), point.position.latitude,
                       point.position.longitude, point.speed.value_or(speed)});
  }
  return records;
}

std::vector<Waypoint> WaypointsOfGpx(std::span<const GpxPoint> points, Taken& taken) {
  std::vector<Waypoint> waypoints;
  for (const GpxPoint& point : points) {
    waypoints.push_back(
        {RecordName(point.name, taken), point.position.latitude, point.position.longitude});
  }
  return waypoints;
}

std::vector<PlotRecord> PlotOfGpx(const GpxLine& line, std::size_t most, Taken& taken) {
  const std::size_t count = line.points.size();
  // One place is kept for the last point.
  taken.every = count <= most ? 1 : (count + most - 2) / (most - 1);
  std::vector<PlotRecord> records;
  for (std::size_t i = 0; i < count; ++i) {
    if (i % taken.every != 0 && i + 1 != count) continue;
    const GpxPoint& point = line.points[i];
    PlotRecord record{point.position.latitude, point.position.longitude, "", "",
                      RecordName(point.name.empty() ? point.description : point.name, taken)};
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
                                              std::string_view name, float speed, Taken& taken,
                                              const MayReplace& may_replace) {
  if (line.left_out > 0) {
    return Error{std::string(name),
                 std::to_string(line.left_out) +
                     " of its points have no place on the globe, and without them the route "
                     "would lead over what it was laid round"};
  }
  return SaveRouteFiles(folders, RouteOfGpx(line, speed, taken), name, may_replace);
}

Result<std::vector<std::string>> SaveGpxWaypoints(const Folders& folders,
                                                  std::span<const GpxPoint> points,
                                                  std::string_view name, Taken& taken,
                                                  const MayReplace& may_replace) {
  return SaveWaypointFiles(folders, WaypointsOfGpx(points, taken), name, may_replace);
}

Result<std::vector<std::string>> SaveGpxTrack(const Folders& folders, const GpxLine& line,
                                              std::string_view name, Taken& taken,
                                              const MayReplace& may_replace) {
  taken.left_out += line.left_out;
  return SaveTrackFile(folders, PlotOfGpx(line, kMostTrackPoints, taken), name, may_replace);
}

}  // namespace skerrow
