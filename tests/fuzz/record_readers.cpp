#include "record_readers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "charts/chart_files.h"
#include "charts/chart_view.h"
#include "core/config.h"
#include "routes/route_editing.h"
#include "routes/route_rows.h"
#include "support/temp_folder.h"
#include "wind/wind_config.h"

namespace skerrow {
namespace {

// Shows nothing and answers Yes.
class Silent final : public Messages {
 public:
  void Show(std::string_view, MessageIcon, std::string_view) override {}
  bool Ask(std::string_view, std::string_view) override { return true; }
};

void Require(bool holds) {
  if (!holds) std::abort();
}

// In memory where the system offers it: every input is a file.
std::filesystem::path FastFolder() {
  std::error_code error;
  if (std::filesystem::is_directory("/dev/shm", error)) return "/dev/shm";
  return std::filesystem::temp_directory_path();
}

struct Place {
  Place() : folders{folder.path(), folder.path(), folder.path()} {
    MakeUserFolders(folders);
    (void)MakeFolder(folders.Charts());
  }
  testing::TempFolder folder{FastFolder()};
  Folders folders;
  Silent messages;
};

void Waypoints(Place& place, const std::string& bytes) {
  AppConfig config;
  config.waypoint_file = "f.way";
  place.folder.Write("SkerrowHelm/Waypoints/f.way", bytes);
  WaypointState state;
  if (!LoadCurrentWaypoints(place.folders, config, state, place.messages)) return;
  Require(state.waypoints.size() <= bytes.size() / 43 + 1);
  NearestWaypoint(state.waypoints, {50, -1});
  for (const Waypoint& waypoint : state.waypoints) {
    PickListText(RowOf(waypoint));
    WaypointOf(RowOf(waypoint));
  }
  Require(SaveWaypointsAs(place.folders, "g.way", state).ok());
  const auto saved = ReadWaypointFile(WaypointPath(place.folders, "g.way"));
  Require(saved.ok() && *saved == state.waypoints);
  Require(AppendWaypoint(place.folders, config, {"new", 50, -1}).ok());
  const auto again = ReadWaypointFile(WaypointPath(place.folders, "f.way"));
  Require(again.ok() && again->back().name == "new");
}

void Route(Place& place, const std::string& bytes) {
  const std::string path = place.folder.Write("f.rte", bytes);
  RouteState state;
  RouteDefaults defaults;
  defaults.constant_wind = false;
  defaults.departure_day = {365, 2026};
  defaults.wind_at = [](Position, DayAndYear day, float hours) -> std::optional<Wind> {
    Require(day.day >= 1 && day.day <= 366 && hours >= 0.0F && hours <= 24.0F);
    return Wind{5, 5};
  };
  if (!LoadRoute(path, RouteSpeeds::kStored, defaults, state, place.messages)) return;
  for (const RoutePoint& point : state.points) {
    Require(std::fabs(point.latitude) <= 90 && std::fabs(point.longitude) <= 180);
    Require(point.speed >= 0 && std::isfinite(point.speed));
  }
  Require(std::isfinite(state.distance));
  RouteRows(state);
  InsertRoutePoint(state, {50, -1}, defaults, place.messages);
  DeleteRoutePoint(state, {50, -1}, defaults, place.messages);
  ReverseRoute(state, defaults, place.messages);
  (void)SaveRoute(place.folder.File("g.rte"), state, 5.0F);
}

void Chart(Place& place, const std::string& bytes) {
  place.folder.Write("Charts/f.cht", bytes);
  AppConfig config;
  config.chart_path = ChartPathOf(place.folders, "f");
  ChartState state;
  if (!ReadChartSettings(config, state)) return;
  const ChartView view = MakeChartView(state.chart, 1000, 800);
  Require(std::isfinite(view.pixels_per_degree) && view.pixels_per_degree != 0.0);
  view.LatToRow(view.RowToLat(400));
  ChartIssueText(state.chart.issue);
}

void Index(Place& place, const std::string& bytes) {
  place.folder.Write("Charts/f.xrf", bytes);
  AppConfig config;
  config.sea_area = "f";
  ChartState state;
  if (!LoadChartIndex(place.folders, config, state, place.messages)) return;
  Require(state.index.size() <= bytes.size() / 102);
  ChartsAtPoint({50, -1}, state);
  LargerScaleChart({0, 0}, state);
  SortChartsByScale(state.index);
}

void Config(Place& place, const std::string& bytes) {
  place.folder.Write("SkerrowHelm/HelmConfigv60.cfg", bytes);
  AppConfig config;
  Require(ReadConfig(place.folders, config).ok());
  Require(SaveConfig(place.folders, config).ok());
  const std::string saved = testing::FileBytes(place.folders.ConfigFile());
  Require(saved.size() == kAppConfigSize);
  for (const RecordField<AppConfig>& field : kAppConfigFields) {
    if (field.offset + field.size > bytes.size()) break;
    std::string stored = bytes.substr(field.offset, field.size);
    if (field.type == FieldType::kText) stored.resize(std::min(stored.find('\0'), stored.size()));
    stored.resize(field.size, ' ');
    Require(saved.substr(field.offset, field.size) == stored);
  }
}

void WindSettings(Place& place, const std::string& bytes) {
  place.folder.Write("SkerrowHelm/WindConfig.cfg", bytes);
  const Wind wind = LoadWindConfig(place.folders).Default();
  Require(!std::isnan(wind.speed) && !std::isnan(wind.direction));
}

}  // namespace
}  // namespace skerrow

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using Reader = void (*)(skerrow::Place&, const std::string&);
  static constexpr Reader kReaders[kReaderCount] = {skerrow::Waypoints, skerrow::Route,
                                                    skerrow::Chart,     skerrow::Index,
                                                    skerrow::Config,    skerrow::WindSettings};
  static skerrow::Place place;
  if (size == 0) return 0;
  kReaders[data[0] % kReaderCount](place,
                                   std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
  return 0;
}
