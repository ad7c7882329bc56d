#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/program.h"
#include "core/gpx_document.h"
#include "core/progress.h"
#include "core/result.h"
#include "exchange/user_files.h"

// The import and the export of GPX documents.
namespace skerrow {

enum class GpxKind { kRoute, kWaypoints, kTrack };

// One thing that a document holds and that becomes a file of the user's.
struct GpxItem {
  GpxKind kind = GpxKind::kRoute;
  std::size_t index = 0;  // into the document's routes or tracks
  std::string name;       // as the document has it; may be empty
  std::size_t points = 0;
  std::string file_name;             // offered, without ending; no two of a kind are the same
  std::vector<std::string> remarks;  // what is done to it, a sentence each
  bool takeable = true;              // false: the last remark says why
};

// "Route", "Waypoints" or "Track".
const char* GpxKindText(GpxKind kind);

// A document that has been read, and what can be taken of it, in the order routes, waypoints,
// tracks. Routes and tracks without a point are none, but for a route all of whose points were left
// out.
struct GpxContents {
  std::string path;
  GpxDocument document;
  std::vector<GpxItem> items;
};
std::vector<GpxItem> GpxItemsOf(const GpxDocument& document, const std::string& path);

// Errors: those of ReadGpxFile, and a document that holds nothing.
Result<GpxContents> ReadContents(const std::string& path, Progress& progress);

// "Out.gpx holds 2 routes, 46 waypoints and 1 track of 900 points."
std::string GpxSummary(const GpxContents& contents);

// Asked before a route of more than 100 points is taken.
std::string SplitQuestion(const std::string& name, std::size_t points);

// Writes one item under `name`; see SaveRouteFiles.
Result<std::vector<std::string>> SaveGpxItem(const Program& program, const GpxDocument& document,
                                             const GpxItem& item, const std::string& name,
                                             Taken& taken, const MayReplace& may_replace);

// "Imported: Out.rte, Out 2.rte" and below it what was done to them.
std::string ImportedText(const std::vector<std::string>& paths, const Taken& taken);

// Adds what was done to one more thing.
void AddTaken(Taken& all, const Taken& one);

// What is to go into a document: the route on the chart, and files by their names in the user's
// folders. Tracks are logs and plot files.
struct GpxChoice {
  bool current_route = false;
  std::vector<std::string> routes;
  std::vector<std::string> waypoints;
  std::vector<std::string> tracks;

  bool Nothing() const {
    return !current_route && routes.empty() && waypoints.empty() && tracks.empty();
  }
};

// What the files of a choice are read for, apart from the program so that a thread can read them.
struct GpxSources {
  Folders folders;
  GpxChoice choice;
  GpxDocument begun;  // with the route on the chart
};
GpxSources GpxSourcesOf(const Program& program, GpxChoice choice);

// The text of the document. Errors: a file that is missing or unreadable; a stop by `progress`.
Result<std::string> GpxTextOf(const GpxSources& sources, Progress& progress);

// The name that a document of the choice is offered, without ending.
std::string GpxOffer(const Program& program, const GpxChoice& choice);

}  // namespace skerrow
