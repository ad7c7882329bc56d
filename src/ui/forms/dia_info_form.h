#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "core/progress.h"
#include "platform/printing.h"
#include "tides/diamond_report.h"
#include "ui/widgets/key_filters.h"

// What the windows of a tidal diamond show, check and write.
namespace skerrow {

// ---------------------------------------------------------------- the threshold

// The threshold of a report, knots. A blank one is asked about: nothing when the user wants no
// report.
std::optional<float> ReadThreshold(std::string_view text, Messages& messages);

// The text of a threshold moved by `steps` of 0.1 knots; not below 0.
std::string StepThreshold(std::string_view text, int steps);

// ---------------------------------------------------------------- changes of the record

// One value of a row of the diamond's table, for a box of its own.
struct DiamondField {
  std::string label;
  std::string text;
  KeyFilter filter = KeyFilter::kSignedNumber;
};

// The values that a row of DiamondDataLines shows, each row those that stand in it; empty for the
// rows that hold none.
std::vector<DiamondField> DiamondFields(const Diamond& diamond, std::size_t row);

// A changed record, or why it is refused and which of the fields is to be corrected.
struct ChangedDiamond {
  std::optional<Diamond> diamond;
  std::string refusal;
  std::size_t field = 0;
};

// `before` with the values of a row as typed. A value that was left alone stays as it is, to the
// last digit. Refused: what is no number; a reference port that RefPorts.hc does not hold; a spring
// range not above the neap range; a latitude that the chart would not show (35 to 75 degrees
// north); directions beyond 360 degrees; negative rates and ranges.
ChangedDiamond ChangeDiamond(const Folders& folders, const Diamond& before, std::size_t row,
                             const std::vector<std::string>& texts);

// The changes of the file, each followed by a reading of it, so that chart and reports know it at
// once. They give the diamond's place in the table. Errors, with the file as it was: those of the
// writers in tides/diamond_report.h.
Result<std::size_t> WriteChangedDiamond(Program& program, std::size_t index, const Diamond& before,
                                        const Diamond& after, Messages& messages);
// Adds a record like `diamond` at the end.
Result<std::size_t> AddDiamond(Program& program, const Diamond& diamond, Messages& messages);
Status RemoveDiamond(Program& program, std::size_t index, const Diamond& diamond,
                     Messages& messages);
// What is asked before a deletion.
std::string RemoveDiamondQuestion(const Diamond& diamond);

// ---------------------------------------------------------------- lists and pages

// A month of high and low waters of a diamond's reference port. Nothing when `progress` says to
// stop. Error: RefPorts.hc cannot be read or does not hold the port.
Result<std::optional<std::vector<DiamondLine>>> RefPortMonth(const Program& program,
                                                             const Diamond& diamond,
                                                             Progress& progress);

// "Times shown are WITH SUMMER TIME CORRECTION", or that they are without.
std::string DiamondTimeBasis(bool summer_time);
// The notice on the origin of the data that each page carries.
std::string DiamondDataNotice();

// Both lists for the clipboard, their lines joined by carriage return and line feed.
std::string DiamondClipboardText(const std::vector<std::string>& data,
                                 const std::vector<DiamondLine>& report);

// Both lists as a page.
PrintDocument DiamondPage(const Program& program, const Diamond& diamond,
                          const std::vector<DiamondLine>& report);

// The table of a diamond as lines of a page.
std::vector<PrintItem> DiamondTableItems(const Diamond& diamond, const std::string& port_name);

}  // namespace skerrow
