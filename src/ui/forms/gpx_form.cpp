#include "ui/forms/gpx_form.h"

#include <algorithm>
#include <set>

#include "core/calendar.h"
#include "core/files.h"
#include "core/iso_time.h"
#include "core/text.h"
#include "exchange/gpx.h"
#include "platform/gpx_reader.h"
#include "ui/forms/file_names.h"
#include "ui/forms/report_look.h"

namespace skerrow {
namespace {

constexpr std::size_t kLongestOffer = 60;  // bytes; the user may type more

std::string Stem(const std::string& path) {
  const std::string name = FileNameOf(path);
  return name.substr(0, name.rfind('.'));
}

// A name of the document as that of a file; a point would end it.
std::string OfferOf(const std::string& name, const std::string& otherwise) {
  const std::string text = Trim(name.empty() ? otherwise : name);
  std::string offer = SafeFileName(ReplaceAll(text, ".", "-"));
  // Not inside a letter of several bytes.
  std::size_t end = std::min(offer.size(), kLongestOffer);
  while (end < offer.size() && end > 0 &&
         (static_cast<unsigned char>(offer[end]) & 0xC0U) == 0x80U) {
    --end;
  }
  return Trim(offer.substr(0, end));
}

std::string Counted(std::size_t count, const char* one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

// The name is told apart from those of its kind before it.
void MakeUnique(GpxItem& item, std::set<std::string>& used) {
  const std::string first = item.file_name;
  for (int number = 2; !used.insert(ToLowerAscii(item.file_name)).second; ++number) {
    item.file_name = first + " (" + std::to_string(number) + ")";
  }
}

std::size_t TotalPoints(const std::vector<GpxLine>& lines) {
  std::size_t points = 0;
  for (const GpxLine& line : lines) points += line.points.size();
  return points;
}

}  // namespace

const char* GpxKindText(GpxKind kind) {
  switch (kind) {
    case GpxKind::kRoute:
      return "Route";
    case GpxKind::kWaypoints:
      return "Waypoints";
    case GpxKind::kTrack:
      break;
  }
  return "Track";
}

std::vector<GpxItem> GpxItemsOf(const GpxDocument& document, const std::string& path) {
  std::vector<GpxItem> items;
  const std::string file = Stem(path);
  const auto add = [&](GpxItem item, const Taken& taken, std::set<std::string>& used) {
    const std::vector<std::string> texts = TakenTexts(taken);
    item.remarks.insert(item.remarks.end(), texts.begin(), texts.end());
    item.file_name = OfferOf(item.name, file);
    MakeUnique(item, used);
    items.push_back(std::move(item));
  };
  std::set<std::string> routes;
  for (std::size_t i = 0; i < document.routes.size(); ++i) {
    const GpxLine& line = document.routes[i];
    GpxItem item{GpxKind::kRoute, i, line.name, line.points.size(), "", {}, true};
    if (line.left_out > 0) {
      item.takeable = false;
      item.remarks.push_back(Counted(line.left_out, "point") + " of it " +
                             (line.left_out == 1 ? "has" : "have") +
                             " no place on the globe, and without a point a route leads over what "
                             "it was laid round.");
    } else if (line.points.empty()) {
      continue;
    } else if (const std::size_t parts = RoutePartsOf(line.points.size());
               parts > kMostRouteParts) {
      item.takeable = false;
      item.remarks.push_back("A route holds 100 points, and no more than " +
                             std::to_string(kMostRouteParts) + " routes are made of one.");
    } else if (parts > 1) {
      item.remarks.push_back("A route holds 100 points; this one makes " + std::to_string(parts) +
                             " routes.");
    }
    Taken taken;
    if (item.takeable) (void)RouteOfGpx(line, 0.0F, taken);
    add(std::move(item), taken, routes);
  }
  if (!document.waypoints.empty()) {
    Taken taken;
    (void)WaypointsOfGpx(document.waypoints, taken);
    taken.left_out = document.left_out;
    std::set<std::string> used;
    add({GpxKind::kWaypoints, 0, "", document.waypoints.size(), "", {}, true}, taken, used);
  }
  std::set<std::string> tracks;
  for (std::size_t i = 0; i < document.tracks.size(); ++i) {
    const GpxLine& line = document.tracks[i];
    if (line.points.empty()) continue;
    GpxItem item{GpxKind::kTrack, i, line.name, line.points.size(), "", {}, true};
    Taken taken;
    (void)PlotOfGpx(line, kMostTrackPoints, taken);
    taken.left_out = line.left_out;
    const auto timed = [](const GpxPoint& point) { return point.time.has_value(); };
    if (!std::any_of(line.points.begin(), line.points.end(), timed)) {
      item.remarks.emplace_back("It has no times.");
    }
    add(std::move(item), taken, tracks);
  }
  return items;
}

Result<GpxContents> ReadContents(const std::string& path, Progress& progress) {
  Result<GpxDocument> read = ReadGpxFile(path, progress);
  if (!read) return read.error();
  GpxContents contents{path, std::move(read.value()), {}};
  contents.items = GpxItemsOf(contents.document, path);
  if (contents.items.empty()) return Error{path, "it holds no route, waypoint or track"};
  return contents;
}

std::string GpxSummary(const GpxContents& contents) {
  const GpxDocument& document = contents.document;
  return FileNameOf(contents.path) + " holds " + Counted(document.routes.size(), "route") + ", " +
         Counted(document.waypoints.size(), "waypoint") + " and " +
         Counted(document.tracks.size(), "track") + " of " +
         Counted(TotalPoints(document.tracks), "point") + ".";
}

std::string SplitQuestion(const std::string& name, std::size_t points) {
  return "\"" + name + "\" has " + std::to_string(points) +
         " points, and a route holds 100. Make " + std::to_string(RoutePartsOf(points)) +
         " routes of it, \"" + name + "\", \"" + name + " 2\" and so on?";
}

Result<std::vector<std::string>> SaveGpxItem(const Program& program, const GpxDocument& document,
                                             const GpxItem& item, const std::string& name,
                                             Taken& taken, const MayReplace& may_replace) {
  switch (item.kind) {
    case GpxKind::kRoute:
      return SaveGpxRoute(program.folders, document.routes.at(item.index), name,
                          program.route_speed, taken, may_replace);
    case GpxKind::kWaypoints:
      taken.left_out = document.left_out;
      return SaveGpxWaypoints(program.folders, document.waypoints, name, taken, may_replace);
    case GpxKind::kTrack:
      break;
  }
  return SaveGpxTrack(program.folders, document.tracks.at(item.index), name, taken, may_replace);
}

std::string ImportedText(const std::vector<std::string>& paths, const Taken& taken) {
  constexpr std::size_t kMostNames = 10;
  std::string text = "Imported: ";
  for (std::size_t i = 0; i < std::min(paths.size(), kMostNames); ++i) {
    text.append(i == 0 ? "" : ", ").append(FileNameOf(paths[i]));
  }
  if (paths.size() > kMostNames) {
    text += " and " + Counted(paths.size() - kMostNames, "other file");
  }
  for (const std::string& done : TakenTexts(taken)) text.append("\n").append(done);
  return text;
}

void AddTaken(Taken& all, const Taken& one) {
  all.names_cut += one.names_cut;
  all.letters_lost += one.letters_lost;
  all.every = std::max(all.every, one.every);
  if (all.left_out == 0) all.first_fault = one.first_fault;
  all.left_out += one.left_out;
}

GpxSources GpxSourcesOf(const Program& program, GpxChoice choice) {
  GpxSources sources{program.folders, std::move(choice), {}};
  if (sources.choice.current_route) {
    sources.begun.routes.push_back(
        GpxPlanOf(RouteTitle(program), program.route.points, program.passage.legs));
  }
  return sources;
}

Result<std::string> GpxTextOf(const GpxSources& sources, Progress& progress) {
  GpxDocument document = sources.begun;
  const GpxChoice& choice = sources.choice;
  for (const std::string& file : choice.routes) {
    const auto records = ReadRouteFile(RoutePath(sources.folders, file));
    if (!records) return records.error();
    document.routes.push_back(GpxRouteOf(Stem(file), *records));
  }
  for (const std::string& file : choice.waypoints) {
    const auto waypoints = ReadWaypointFile(WaypointPath(sources.folders, file));
    if (!waypoints) return waypoints.error();
    const std::vector<GpxPoint> points = GpxPointsOf(*waypoints);
    document.waypoints.insert(document.waypoints.end(), points.begin(), points.end());
  }
  for (const std::string& file : choice.tracks) {
    const std::string path = JoinPath(sources.folders.Tracks(), file);
    if (ToLowerAscii(file).ends_with(".nmea")) {
      Result<GpxLine> track = GpxTrackOfLog(Stem(file), path, progress);
      if (!track) return track.error();
      document.tracks.push_back(std::move(track.value()));
    } else {
      const auto records = ReadPlotFile(path);
      if (!records) return records.error();
      document.tracks.push_back(GpxTrackOfPlot(Stem(file), records->Sound()));
    }
  }
  return WriteGpx(document);
}

std::string GpxOffer(const Program& program, const GpxChoice& choice) {
  std::string offer;
  if (choice.current_route) {
    offer = RouteTitle(program);
  } else {
    for (const auto* files : {&choice.routes, &choice.tracks, &choice.waypoints}) {
      if (offer.empty() && !files->empty()) offer = Stem(files->front());
    }
  }
  return OfferOf(offer, "Route");
}

}  // namespace skerrow
