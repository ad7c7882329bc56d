#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/folders.h"
#include "core/gpx_document.h"
#include "core/result.h"
#include "instruments/gps_fix.h"
#include "instruments/plot_file.h"
#include "routes/route.h"
#include "routes/waypoint.h"

// GPX 1.1 (https://www.topografix.com/GPX/1/1/), what plotters, phones and other programs exchange
// routes, waypoints and tracks by. Written here; read by platform/gpx_reader.h.
namespace skerrow {

// Speed and calculated times of a route's points stand in elements of this namespace too.
inline constexpr std::string_view kGpxExtension = "urn:skerrow-helm:gpx:1";

// The document as text, valid by the schema: positions read back to the last bit, times to the
// millisecond.
std::string WriteGpx(const GpxDocument& document);

// A route's entries, a waypoint file, a track of fixes.
GpxLine GpxRouteOf(std::string name, std::span<const RouteRecord> records);
std::vector<GpxPoint> GpxPointsOf(std::span<const Waypoint> waypoints);
GpxLine GpxTrackOf(std::string name, std::span<const GpsTrackPoint> track);

// What was done to bring points into the program's own files.
struct GpxTaken {
  std::size_t names_cut = 0;  // to the 35 characters of a record
  std::size_t every = 1;      // of a track, each n-th point, since a plot file holds no more
};

// A route's entries in parts of at most `most` points; the last point of a part begins the next.
// A point that tells no speed has `speed` [kn].
std::vector<std::vector<RouteRecord>> RoutesOfGpx(const GpxLine& line, float speed,
                                                  std::size_t most, GpxTaken& taken);
std::vector<Waypoint> WaypointsOfGpx(std::span<const GpxPoint> points, GpxTaken& taken);
// At most `most` points, evenly thinned; the last point stays.
std::vector<PlotRecord> PlotOfGpx(const GpxLine& line, std::size_t most, GpxTaken& taken);

// Writes a route, waypoints or a track into the user's folder of its kind under `name`: a route of
// more points than a route takes in parts, "NAME", "NAME 2" and so on. Gives the paths written.
// Errors: no points; a name that is none; a file of that name, which stays; what stands in the way
// of writing.
Result<std::vector<std::string>> SaveGpxRoute(const Folders& folders, const GpxLine& line,
                                              const std::string& name, float speed,
                                              GpxTaken& taken);
Result<std::vector<std::string>> SaveGpxWaypoints(const Folders& folders,
                                                  std::span<const GpxPoint> points,
                                                  const std::string& name, GpxTaken& taken);
Result<std::vector<std::string>> SaveGpxTrack(const Folders& folders, const GpxLine& line,
                                              const std::string& name, GpxTaken& taken);

}  // namespace skerrow
