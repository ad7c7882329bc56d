#include "ui/dialogs/frmQuickInstructions.h"
#include "ui/help/frmPDFReader.h"
#include "ui/help/help_files.h"
#include "ui/main/frmChart.h"

namespace skerrow {
namespace {

// Opens a document beside the chart, so that it can be read while working.
template <std::size_t Document>
void Read(FrmChart& w) {
  auto* reader = new frmPDFReader(w.desktop().settings, w.desktop().clipboard, &w);
  reader->setAttribute(Qt::WA_DeleteOnClose);
  (void)reader->Open(HelpFile(kHelpDocuments[Document].file));  // The window tells what is wrong.
  reader->show();
}

constexpr Command kCommands[] = {
    {"mnuQuickHelp", "&Quick Instructions", "help", "The first steps on one page", "", kNoNeed,
     [](FrmChart& w) { FrmQuickInstructions(w.desktop(), &w).exec(); }},
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
