#include "tools/record-tables/record_tables.h"

#include "charts/chart_files.h"
#include "core/config.h"
#include "core/record.h"
#include "instruments/plot_file.h"
#include "routes/route.h"
#include "routes/waypoint.h"
#include "tides/diamond.h"
#include "tides/harmonic_streams.h"
#include "tides/port.h"
#include "wind/grib_winds.h"
#include "wind/wind_config.h"
#include "wind/wind_store.h"

namespace skerrow {
namespace {

template <typename R, std::size_t N>
std::string Section(const std::string& title, const std::array<RecordField<R>, N>& table) {
  const std::size_t size = table.back().offset + table.back().size;
  return "## " + title + "\n\n" + std::to_string(size) + " bytes a record.\n\n" +
         RecordMarkdown(table) + "\n";
}

}  // namespace

std::string AllRecordTables() {
  return Section("Settings: HelmConfigv60.cfg", kAppConfigFields) +
         Section("Wind settings: WindConfig.cfg", kWindConfigFields) +
         Section("Imported wind: ~wind.dat", kWindCellFields) +
         Section("Imported wind with its components, for the viewer: ~GrDa.tmp", kGribWindFields) +
         Section("Waypoints: *.way", kWaypointFields) + Section("Routes: *.rte", kRouteFields) +
         Section("Plots entered by hand: *.trk, *.jan .. *.dec", kPlotFields) +
         Section("Chart calibration: *.cht", kChartFileFields) +
         Section("Chart index: *.xrf", kChartIndexFields) +
         Section("Tidal diamonds: *.l25", kDiamondFields) +
         Section("Harmonic stream stations: HarmTS/*.l27", kHarmonicStationFields) +
         Section("Tidal ports of an area: TS/*.hc", kPortFields) +
         Section("Reference ports: RefPorts.hc", kRefPortFields);
}

}  // namespace skerrow
