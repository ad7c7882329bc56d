#include "ui/dialogs/frmQuickInstructions.h"
#include "ui/help/frmPDFReader.h"
#include "ui/help/help_files.h"
#include "ui/main/chart_controller.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/main/time_controller.h"

namespace skerrow {
namespace {

// Opens a document beside the chart, so that it can be read while working.
template <std::size_t Document>
void Read(Context& c) {
  auto* reader = new frmPDFReader(c.desktop.settings, c.desktop.clipboard, &c.window);
  reader->setAttribute(Qt::WA_DeleteOnClose);
  (void)reader->Open(HelpFile(kHelpDocuments[Document].file));  // The window tells what is wrong.
  reader->show();
}

constexpr Command kCommands[] = {
    {"mnuQuickHelp", "Quick Instructions", "help", "The first steps on one page", "", kNoNeed,
     [](Context& c) { frmQuickInstructions(c.desktop, &c.window).exec(); }},
    {kHelpDocuments[0].command, "&Overview", "info", "", "", kNoNeed, Read<0>},
    {kHelpDocuments[1].command, "&Mouse and Keyboard", "", "", "", kNoNeed, Read<1>},
    {kHelpDocuments[2].command, "&Toolbar", "", "", "", kNoNeed, Read<2>},
    {kHelpDocuments[3].command, "&Passage Planning", "", "", "", kNoNeed, Read<3>},
    {kHelpDocuments[4].command, "&Creating a Passage Planning Document", "", "", "", kNoNeed,
     Read<4>},
    {kHelpDocuments[5].command, "Operation With &GPS and AIS", "", "", "", kNoNeed, Read<5>},
    {kHelpDocuments[6].command, "GPS and AIS &Installation", "", "", "", kNoNeed, Read<6>},
    {kHelpDocuments[7].command, "&Wind and Polar Plots", "", "", "", kNoNeed, Read<7>},
    {kHelpDocuments[8].command, "M&anual", "", "The whole program", "F1", kNoNeed, Read<8>},
};

}  // namespace

std::span<const Command> HelpCommands() { return kCommands; }

}  // namespace skerrow
