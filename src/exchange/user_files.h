#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/folders.h"
#include "core/result.h"
#include "instruments/plot_file.h"
#include "routes/route.h"
#include "routes/waypoint.h"

// Routes, waypoints and tracks of other programs as files of the user's.
namespace skerrow {

// What was done to bring them into the program's own records.
struct Taken {
  std::size_t names_cut = 0;     // to the 35 characters of a record
  std::size_t letters_lost = 0;  // names with letters that a record has not: "?" stands for each
  std::size_t every = 1;         // of a track, each n-th point, since a plot file holds no more
  std::size_t left_out = 0;      // waypoints without a place on the globe
  std::string first_fault;       // why the first of them was, where the source can tell
};

// What was done, a sentence each, for the user; none when everything came as it was.
std::vector<std::string> TakenTexts(const Taken& taken);

// A name as a record holds it. One that stood in quotation marks keeps blanks before it.
std::string RecordName(std::string_view name, Taken& taken, bool quoted = false);

// The most parts that a long route is split into.
inline constexpr std::size_t kMostRouteParts = 50;

// The number of route files that so many points make: the last point of a part begins the next.
std::size_t RoutePartsOf(std::size_t points);

// The entries in parts of at most `most` points.
std::vector<std::vector<RouteRecord>> SplitRoute(std::span<const RouteRecord> records,
                                                 std::size_t most);

// Whether a file of that name may be written over; empty: never.
using MayReplace = std::function<bool(const std::string& file_name)>;

// Writes a route, waypoints or a track into the user's folder of its kind under `name`, which loses
// what stands behind its first ".": a route of more points than a route takes, and waypoints beyond
// what a file counts, in parts, "NAME", "NAME 2" and so on. Gives the paths written; none after a
// refusal of `may_replace`, which is asked about every file before the first is written.
// Errors: no points; a name that is none; too many points; a file of that name when `may_replace`
// is empty; what stands in the way of writing.
Result<std::vector<std::string>> SaveRouteFiles(const Folders& folders,
                                                std::span<const RouteRecord> records,
                                                std::string_view name,
                                                const MayReplace& may_replace = {});
Result<std::vector<std::string>> SaveWaypointFiles(const Folders& folders,
                                                   std::span<const Waypoint> waypoints,
                                                   std::string_view name,
                                                   const MayReplace& may_replace = {});
Result<std::vector<std::string>> SaveTrackFile(const Folders& folders,
                                               std::span<const PlotRecord> records,
                                               std::string_view name,
                                               const MayReplace& may_replace = {});

}  // namespace skerrow
