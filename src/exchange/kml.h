#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/folders.h"
#include "core/position.h"
#include "core/result.h"
#include "passage/leg.h"
#include "routes/route.h"
#include "routes/waypoint.h"

// Routes, waypoints, a calculated course and logged tracks as documents of OGC KML 2.2, for a
// viewer of the user's choice.
namespace skerrow {

// What heads a document, and how its texts are written.
struct KmlHead {
  std::string name;
  std::string description;
  // Names with "&", "<" or letters beyond ASCII in a form that every viewer reads: escaped, in
  // UTF-8. Off: texts go in as they stand, in the program's single-byte text.
  bool escape = false;
};

// A route file's records. A point without a name is called by its number; one without a speed has
// `route_speed` [kn].
std::string RouteKml(std::span<const RouteRecord> records, float route_speed, const KmlHead& head);

std::string WaypointsKml(std::span<const Waypoint> waypoints, const KmlHead& head);

// The calculated route beside its planned legs: every third point of the track.
std::string CogKml(std::span<const RoutePoint> points, std::span<const TrackPoint> track,
                   float route_speed, const KmlHead& head);

// A log: every ninth good position as a line, every eleventh as a mark with its time, and the last.
// Errors: missing, unreadable.
Result<std::string> TrackKml(const std::string& log, const KmlHead& head);

// The path of a document by its name. Error: a name that is empty or names a folder.
Result<std::string> KmlPath(const Folders& folders, std::string_view name);

// Each writes a document over an old one of its name when all of it has been gathered; a failure
// leaves the old one as it was. Errors: those of the source, of KmlPath and of writing.
Status ExportRouteKml(const std::string& route_file, float route_speed, const Folders& folders,
                      const KmlHead& head);
Status ExportWaypointsKml(const std::string& waypoint_file, const Folders& folders,
                          const KmlHead& head);
Status ExportCogKml(std::span<const RoutePoint> points, std::span<const TrackPoint> track,
                    float route_speed, const Folders& folders, const KmlHead& head);
Status ExportTrackKml(const std::string& log, const Folders& folders, const KmlHead& head);

// What a point of a route without a name is called in a document; `number` counts from 1.
std::string KmlPointName(std::string_view name, std::size_t number);

}  // namespace skerrow
