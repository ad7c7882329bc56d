#include "app/chart_change.h"

#include "app/stream_work.h"
#include "core/files.h"
#include "core/text.h"

namespace skerrow {
namespace {

// The settings that tell of a chart, all from its path.
void FollowChartPath(AppConfig& config) {
  config.chart_path = Trim(config.chart_path);
  config.chart_file_name = FileNameOf(config.chart_path) + ".cht";
  config.chart_folder = FolderOf(config.chart_path);
}

// Makes the chart of a stored ".cht" path the one of the settings. Charts that lie in a folder of
// their own below Charts/ belong to the sea area of its name.
void NameStoredChart(AppConfig& config, const std::string& cht_path) {
  config.chart_path = cht_path.substr(0, cht_path.rfind('.'));
  FollowChartPath(config);
  const std::string native = NativePath(config.chart_folder);
  const std::size_t charts = native.rfind("/Charts/");
  if (charts == std::string::npos) return;
  config.sea_area = native.substr(charts + std::string_view("/Charts/").size());
  config.tidal_area = config.sea_area;
}

}  // namespace

bool ChangeChart(Program& program, Messages& messages,
                 const std::function<Status(AppConfig&, ChartState&)>& open,
                 const ShowChart& show) {
  const AppConfig before = program.config;
  const ChartState charts_before = program.charts;
  AppConfig stored;
  const bool was_stored = ReadConfig(program.folders, stored).ok();
  const auto restore = [&] {
    program.config = before;
    program.charts = charts_before;
    // `open` may have stored its choice already.
    AppConfig now;
    if (was_stored && ReadConfig(program.folders, now) && now.chart_path != stored.chart_path) {
      (void)SaveConfig(program.folders, stored);
    }
  };
  if (const Status opened = open(program.config, program.charts); !opened) {
    restore();
    const std::string text = opened.error().Text();
    if (!text.empty()) messages.Show(text, MessageIcon::kWarning);
    return false;
  }
  if (!show()) {
    restore();
    return false;
  }
  const AppConfig chosen = program.config;
  const Status saved = ReloadThenSave(program.folders, program.config, [&](AppConfig& config) {
    config.chart_path = chosen.chart_path;
    config.sea_area = chosen.sea_area;
    config.tidal_area = chosen.tidal_area;
    FollowChartPath(config);
  });
  if (!saved) messages.Show(saved.error().Text(), MessageIcon::kWarning);
  if (Trim(chosen.sea_area) != Trim(before.sea_area) ||
      Trim(chosen.tidal_area) != Trim(before.tidal_area)) {
    LoadArea(program, messages);
  }
  return true;
}

bool ChangeToChart(Program& program, Messages& messages, const std::string& chart_path,
                   const ShowChart& show) {
  return ChangeChart(
      program, messages,
      [&](AppConfig& config, ChartState& charts) {
        return OpenChart(program.folders, chart_path, config, charts);
      },
      show);
}

bool ChangeToStoredChart(Program& program, Messages& messages, const std::string& cht_path,
                         const ShowChart& show) {
  return ChangeChart(
      program, messages,
      [&](AppConfig& config, ChartState& charts) {
        NameStoredChart(config, cht_path);
        return ReadChartSettings(program.folders, config, charts);
      },
      show);
}

bool ChangeToPreviousChart(Program& program, Messages& messages, const ShowChart& show) {
  return ChangeChart(
      program, messages,
      [&](AppConfig& config, ChartState& charts) {
        return OpenPreviousChart(program.folders, config, charts);
      },
      show);
}

void LoadArea(Program& program, Messages& messages) {
  ReloadDiamonds(program, messages);
  HarmonicStreamsFollowArea(program, messages);
  program.port_markers = LoadPortMarkers(program.folders, program.config.tidal_port_file, messages);
  const Status index = LoadChartIndex(program.folders, program.config, program.charts, messages);
  if (!index) messages.Show(index.error().Text(), MessageIcon::kWarning);
}

}  // namespace skerrow
