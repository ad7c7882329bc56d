#include "ui/charts/frmImportChart.h"
#include "ui/main/chart_controller.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"

namespace skerrow {
namespace {

void ImportAndShow(Context& c) {
  const std::optional<ImportedChart> chart = AskForChart(c.desktop, &c.window);
  if (!chart) return;
  c.chart.ShowWhole(chart->area, chart->key);
  // A scan is calibrated with them.
  if (!chart->placed) c.look.ShowTools();
}

constexpr Command kCommands[] = {
    {"mnuImportChart", "I&mport Chart…", "openchart", "Bring a chart of another maker in", "",
     kNoNeed, ImportAndShow},
};

}  // namespace

std::span<const Command> ChartImportCommands() { return kCommands; }

}  // namespace skerrow
