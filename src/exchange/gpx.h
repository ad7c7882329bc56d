#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/folders.h"
#include "core/gpx_document.h"
#include "core/progress.h"
#include "core/result.h"
#include "exchange/user_files.h"
#include "instruments/gps_fix.h"
#include "instruments/plot_file.h"
#include "passage/passage_state.h"
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

// The route with the results of its calculation: what to steer from each point, and when the boat
// is there. Without results, for another number of legs, it is the route alone.
GpxLine GpxPlanOf(std::string name, std::span<const RoutePoint> points,
                  std::span<const LegReport> legs);
// The good fixes of a log, with their times. Errors: missing, unreadable, a stop by `progress`.
Result<GpxLine> GpxTrackOfLog(std::string name, const std::string& log, Progress& progress);
// A plot file's records; comments are names, and texts that are a time of a date become one.
GpxLine GpxTrackOfPlot(std::string name, std::span<const PlotRecord> records);

// A route's entries. A point that tells no speed has `speed` [kn].
std::vector<RouteRecord> RouteOfGpx(const GpxLine& line, float speed, Taken& taken);
std::vector<Waypoint> WaypointsOfGpx(std::span<const GpxPoint> points, Taken& taken);
inline constexpr std::size_t kMostTrackPoints = 32767;  // what the readers of a plot file count
// At most `most` points, evenly thinned; the last point stays.
std::vector<PlotRecord> PlotOfGpx(const GpxLine& line, std::size_t most, Taken& taken);

// Each writes one thing of a document into the user's folder of its kind, as SaveRouteFiles and its
// like do. Error, besides theirs: a route of which points have no place on the globe, since without
// them it would lead over what it was laid round.
Result<std::vector<std::string>> SaveGpxRoute(const Folders& folders, const GpxLine& line,
                                              std::string_view name, float speed, Taken& taken,
                                              const MayReplace& may_replace = {});
Result<std::vector<std::string>> SaveGpxWaypoints(const Folders& folders,
                                                  std::span<const GpxPoint> points,
                                                  std::string_view name, Taken& taken,
                                                  const MayReplace& may_replace = {});
Result<std::vector<std::string>> SaveGpxTrack(const Folders& folders, const GpxLine& line,
                                              std::string_view name, Taken& taken,
                                              const MayReplace& may_replace = {});

}  // namespace skerrow
