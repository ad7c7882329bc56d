#include <string>

#include "charts/chart_tools.h"
#include "core/files.h"
#include "core/text.h"
#include "tides/streams.h"
#include "ui/charts/frmChartInfo.h"
#include "ui/charts/frmEditChart.h"
#include "ui/charts/frmEditXrf.h"
#include "ui/charts/frmSelectL25.h"
#include "ui/dialogs/save_text.h"
#include "ui/forms/chart_tool_forms.h"
#include "ui/main/chart_controller.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/time_controller.h"

namespace skerrow {
namespace {

constexpr TextFileKind kCatalogueFile = {"Comma-separated lines (*.csv)", "csv", "Charts"};

void ShowChartInfo(Context& c) {
  ShowBeside<frmChartInfo>(c.desktop, c.window, c.viewer,
                           [chart = &c.chart] { chart->Recalibrated(); });
}

void EditChart(Context& c) {
  frmEditChart dialog(
      c.desktop, [&c](const ChartChoice& choice) { return c.chart.OpenChosen(choice); }, &c.window);
  dialog.exec();
  if (dialog.written()) c.chart.ReadFilesAgain();
}

void EditIndex(Context& c) {
  frmEditXrf dialog(c.desktop, &c.window);
  dialog.exec();
  if (dialog.written()) c.chart.ReadIndexAgain();
}

void SaveCatalogue(Context& c) {
  const std::vector<ChartIndexEntry>& index = c.program.charts.index;
  if (index.empty()) {
    c.messages.Show("There are no charts in the sea area.", MessageIcon::kWarning);
    return;
  }
  SaveText(c.desktop, &c.window, "Chart Boundaries", Trim(c.program.config.sea_area),
           CatalogueText(ChartCatalogue(c.program.folders, index)), kCatalogueFile);
}

// A file of diamonds to take some from for the area's own. The time stands meanwhile, so that the
// streams on show do not change under the eye.
void LoadHarvest(Context& c) {
  frmSelectL25 dialog(c.program.folders, &c.window);
  if (dialog.exec() != QDialog::Accepted || dialog.FileName().empty()) return;
  LoadSlDiamondFile(c.program.tides, dialog.FileName(), c.messages);
  c.time.Hold();
  c.view.harvest_diamond.reset();
  c.view.harvest_text = std::to_string(c.program.tides.sl_diamonds.size()) + " diamonds in " +
                        FileNameOf(dialog.FileName());
  c.desktop.window.Changed(kViewChanged);
}

void ShowNextDiamond(Context& c) {
  const std::vector<Diamond>& diamonds = c.program.tides.sl_diamonds;
  const std::size_t next = c.view.harvest_diamond ? *c.view.harvest_diamond + 1 : 0;
  if (next >= diamonds.size()) {
    c.view.harvest_text = kEndOfFile;
  } else {
    c.view.harvest_diamond = next;
    c.view.harvest_text = HarvestText(next + 1, diamonds[next]);
    c.chart.LocatePoint({diamonds[next].latitude, diamonds[next].longitude});
  }
  c.desktop.window.Changed(kViewChanged);
}

void KeepDiamond(Context& c) {
  TideState& tides = c.program.tides;
  if (!c.view.harvest_diamond || *c.view.harvest_diamond >= tides.sl_diamonds.size()) {
    c.desktop.window.Tell("No diamond is on show: F8 loads a file, F11 shows the next of it");
    return;
  }
  const Diamond diamond = tides.sl_diamonds[*c.view.harvest_diamond];
  AppendDiamond(tides, diamond);
  c.view.harvest_text = KeptText(*c.view.harvest_diamond + 1, tides.diamonds.size());
  c.desktop.window.Changed(kTimeChanged);
}

constexpr Command kCommands[] = {
    {"keyChartInfo", "Calibrate Chart", "", "Rows, columns and positions of the chart in view", "C",
     kNeedsTools, ShowChartInfo},
    {"mnuChartEdit", "&Chart Settings", "", "The calibration of any chart", "", kNeedsTools,
     EditChart},
    {"mnuXrfEdit", "Sea Area &Index", "", "The charts of a sea area, with their borders", "",
     kNeedsTools, EditIndex},
    {"mnuChartBoundaries", "Chart &Boundaries", "",
     "The charts of the sea area as lines of a catalogue", "", kNeedsTools, SaveCatalogue},
    {"keyLoadDiamonds", "Load Diamonds", "", "A file of tidal diamonds to take some from", "F8",
     kNeedsTools, LoadHarvest},
    {"keyNextDiamond", "Next Diamond", "", "The next diamond of the file loaded", "F11",
     kNeedsTools, ShowNextDiamond},
    {"keyKeepDiamond", "Keep Diamond", "", "Takes the diamond on show into the sea area", "F12",
     kNeedsTools, KeepDiamond},
};

}  // namespace

std::span<const Command> ChartToolCommands() { return kCommands; }

}  // namespace skerrow
