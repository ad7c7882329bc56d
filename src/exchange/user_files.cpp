#include "exchange/user_files.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

#include "core/files.h"
#include "core/record.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr std::size_t kNameBytes = 35;
constexpr std::size_t kMostRecords = INT16_MAX;  // what the readers of a file of records count
constexpr const char* kNoPoints = "it has no points";

// The name in a folder that a file system without cases would take for `name`; `name` itself when
// there is none.
std::string NameInFolder(const std::string& folder, const std::string& name, bool& there) {
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    std::string other = entry.path().filename().string();
    if (ToLowerAscii(other) != ToLowerAscii(name)) continue;
    there = true;
    return other;
  }
  there = FileIsThere(JoinPath(folder, name));
  return name;
}

// The paths of `count` files, none when one of them may not be replaced. The folder is made where
// it is missing.
Result<std::vector<std::string>> PathsFor(const std::string& folder, std::string_view typed,
                                          std::string_view ending, std::size_t count,
                                          const MayReplace& may_replace) {
  if (typed.find_first_of(std::string_view("/\\:\0", 4)) != std::string_view::npos) {
    return Error{std::string(typed), "a file's name holds no \"/\", no \"\\\" and no \":\""};
  }
  const std::string name = Trim(typed.substr(0, std::min(typed.find('.'), typed.size())));
  if (name.empty()) return Error{"", "Enter a name for the file"};
  if (Status made = MakeFolder(folder); !made) return made.error();
  std::vector<std::string> paths;
  for (std::size_t part = 1; part <= count; ++part) {
    const std::string number = part == 1 ? "" : " " + std::to_string(part);
    bool there = false;
    const std::string file = NameInFolder(folder, name + number + std::string(ending), there);
    const std::string path = JoinPath(folder, file);
    if (there && !may_replace) return Error{path, "there is a file of this name already"};
    if (there && !may_replace(file)) return std::vector<std::string>();
    paths.push_back(path);
  }
  return paths;
}

// Writes the parts, each by `write`.
template <typename Part, typename Write>
Result<std::vector<std::string>> WriteParts(const std::vector<Part>& parts,
                                            Result<std::vector<std::string>> paths, Write write) {
  if (!paths || paths->empty()) return paths;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const Status written = write((*paths)[i], parts[i]);
    if (!written) return written.error();
  }
  return paths;
}

std::string Counted(std::size_t count, const char* one, const char* many) {
  return count == 1 ? "1 " + std::string(one) : std::to_string(count) + " " + many;
}

}  // namespace

std::vector<std::string> TakenTexts(const Taken& taken) {
  std::vector<std::string> texts;
  if (taken.names_cut > 0) {
    texts.push_back(Counted(taken.names_cut, "name is", "names are") + " cut to 35 characters.");
  }
  if (taken.letters_lost > 0) {
    texts.push_back(Counted(taken.letters_lost, "name has", "names have") +
                    " letters that a file cannot hold; \"?\" stands for each.");
  }
  if (taken.every > 1) {
    texts.push_back("Of the track each point in " + std::to_string(taken.every) + " is taken.");
  }
  if (taken.left_out > 0) {
    texts.push_back(Counted(taken.left_out, "point has", "points have") +
                    " no place on the globe and " + (taken.left_out == 1 ? "is" : "are") +
                    " left out" +
                    (taken.first_fault.empty() ? "." : ", the first: " + taken.first_fault + "."));
  }
  return texts;
}

std::string RecordName(std::string_view name, Taken& taken, bool quoted) {
  const std::string whole = quoted ? TrimRight(name) : Trim(name);
  std::string bytes = ToAnsi(whole);
  if (FromAnsi(bytes) != whole) ++taken.letters_lost;
  if (bytes.size() > kNameBytes) {
    ++taken.names_cut;
    bytes.resize(kNameBytes);
  }
  return TrimRight(FromAnsi(bytes));
}

std::size_t RoutePartsOf(std::size_t points) {
  return points <= kMaxRoutePoints ? 1 : (points - 2) / (kMaxRoutePoints - 1) + 1;
}

std::vector<std::vector<RouteRecord>> SplitRoute(std::span<const RouteRecord> records,
                                                 std::size_t most) {
  std::vector<std::vector<RouteRecord>> parts;
  for (const RouteRecord& record : records) {
    if (parts.empty()) {
      parts.emplace_back();
    } else if (parts.back().size() >= most) {
      parts.push_back({parts.back().back()});
    }
    parts.back().push_back(record);
  }
  return parts;
}

Result<std::vector<std::string>> SaveRouteFiles(const Folders& folders,
                                                std::span<const RouteRecord> records,
                                                std::string_view name,
                                                const MayReplace& may_replace) {
  if (records.empty()) return Error{std::string(name), kNoPoints};
  if (RoutePartsOf(records.size()) > kMostRouteParts) {
    return Error{std::string(name), "it has " + std::to_string(records.size()) +
                                        " points, a route holds 100, and no more than " +
                                        std::to_string(kMostRouteParts) +
                                        " routes are made of one"};
  }
  const auto parts = SplitRoute(records, kMaxRoutePoints);
  return WriteParts(parts, PathsFor(folders.Routes(), name, ".rte", parts.size(), may_replace),
                    WriteRouteFile);
}

Result<std::vector<std::string>> SaveWaypointFiles(const Folders& folders,
                                                   std::span<const Waypoint> waypoints,
                                                   std::string_view name,
                                                   const MayReplace& may_replace) {
  if (waypoints.empty()) return Error{std::string(name), kNoPoints};
  std::vector<std::span<const Waypoint>> parts;
  for (std::size_t at = 0; at < waypoints.size(); at += kMostRecords) {
    parts.push_back(waypoints.subspan(at, std::min(kMostRecords, waypoints.size() - at)));
  }
  return WriteParts(parts, PathsFor(folders.Waypoints(), name, ".way", parts.size(), may_replace),
                    WriteWaypointFile);
}

Result<std::vector<std::string>> SaveTrackFile(const Folders& folders,
                                               std::span<const PlotRecord> records,
                                               std::string_view name,
                                               const MayReplace& may_replace) {
  if (records.empty()) return Error{std::string(name), kNoPoints};
  return WriteParts(std::vector{records}, PathsFor(folders.Tracks(), name, ".trk", 1, may_replace),
                    [](const std::string& path, std::span<const PlotRecord> part) {
                      return WriteRecords(path, part, kPlotFields);
                    });
}

}  // namespace skerrow
