#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/gpx_document.h"
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
};

// A route's entries in parts of at most `most` points; the last point of a part begins the next.
// A point that tells no speed has `speed` [kn].
std::vector<std::vector<RouteRecord>> RoutesOfGpx(const GpxLine& line, float speed,
                                                  std::size_t most, GpxTaken& taken);
std::vector<Waypoint> WaypointsOfGpx(std::span<const GpxPoint> points, GpxTaken& taken);
std::vector<PlotRecord> PlotOfGpx(const GpxLine& line, GpxTaken& taken);

}  // namespace skerrow
