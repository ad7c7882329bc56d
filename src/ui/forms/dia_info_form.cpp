#include "ui/forms/dia_info_form.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "app/stream_work.h"
#include "core/numbers.h"
#include "core/text.h"
#include "tides/tide_screen.h"
#include "ui/forms/route_forms.h"

namespace skerrow {
namespace {

constexpr int kReportColumns = 4;
const PrintFont kTitleFont = {"", 14.0, true};
const PrintFont kHeadFont = {"", 10.0, true};
const PrintFont kPlainFont = {"", 9.0, false};
const std::vector<double> kTableTabsMm = {22, 40, 62};

// The number that a text is, all of it; blanks around it and a leading "+" do not matter.
std::optional<float> WholeNumberText(std::string_view typed) {
  std::string text = Trim(typed);
  if (text.starts_with('+')) text.erase(0, 1);
  float value = 0.0F;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

// The values of a row, by where they stand in the record.
struct Value {
  const char* label;
  float* place;
};

std::vector<Value> ValuesOf(Diamond& d, std::size_t row) {
  if (row >= kFirstSlotRow && row < kFirstSlotRow + kDiamondColumns - 1) {
    const std::size_t c = row - kFirstSlotRow + 1;
    return {
        {" Dir", &d.direction[c]}, {"Sp Rate", &d.spring_rate[c]}, {"Np Rate", &d.neap_rate[c]}};
  }
  // Each head row is edited where it is shown: the first one tells chart and diamond.
  switch (row) {
    case 0:
      return {{"Chart No.", &d.chart_no}, {"Dia No.", &d.dia_no}};
    case 1:
      return {{"Ref Port", &d.ref_port}};
    case 2:
      return {{"Sp Range", &d.sp_range}, {"Np Range", &d.np_range}};
    case 3:
      return {{"Latitude", &d.latitude}, {"Longitude", &d.longitude}};
    default:
      return {};
  }
}

constexpr std::size_t kPositionRow = 3;

std::string TextOf(const Value& value, std::size_t row, std::size_t field) {
  if (row != kPositionRow) return ShortText(*value.place);
  return field == 0 ? LatToText(*value.place) : LongToText(*value.place);
}

// What is wrong with a record after the change of a row; empty when nothing is.
std::string FaultOf(const Folders& folders, const Diamond& d, std::size_t row, std::size_t& field) {
  const auto refuse = [&](std::size_t at, const char* text) {
    field = at;
    return std::string(text);
  };
  if (row >= kFirstSlotRow) {
    const std::size_t c = row - kFirstSlotRow + 1;
    if (d.direction[c] < 0.0F || d.direction[c] > 360.0F) {
      return refuse(0, "The direction must lie from 0 to 360 degrees.");
    }
    if (d.spring_rate[c] < 0.0F) return refuse(1, "A rate cannot be negative.");
    if (d.neap_rate[c] < 0.0F) return refuse(2, "A rate cannot be negative.");
    return "";
  }
  switch (row) {
    case 0:
      if (d.chart_no < 0.0F) return refuse(0, "The number of a chart cannot be negative.");
      if (d.dia_no < 0.0F) return refuse(1, "The number of a diamond cannot be negative.");
      return "";
    case 1: {
      const Result<RecordFile<Port>> ports = ReadRefPorts(folders);
      if (!ports) return ports.error().Text();
      const std::int16_t number = RoundToInt16(d.ref_port);
      if (static_cast<float>(number) != d.ref_port || number < 1 ||
          static_cast<std::size_t>(number) > ports->records.size() ||
          !ports->records[static_cast<std::size_t>(number - 1)]) {
        return "There is no reference port of that number; there are 1 to " +
               std::to_string(ports->records.size()) + ".";
      }
      return "";
    }
    case 2:
      if (d.np_range < 0.0F) return refuse(1, "A range cannot be negative.");
      if (d.sp_range <= d.np_range) {
        return refuse(0, "The spring range must be larger than the neap range.");
      }
      return "";
    case kPositionRow:
      if (KeepCharted({d}).empty()) {
        return refuse(0, "Diamonds are shown between 35 and 75 degrees north only.");
      }
      return "";
    default:
      return "";
  }
}

std::string FileOf(const Program& program) {
  return DiamondFilePath(program.folders, program.config.tidal_area);
}

// The place of the last diamond that is this record.
Result<std::size_t> PlaceOf(const Program& program, const Diamond& diamond) {
  const std::string wanted = EncodeRecord(diamond, kDiamondFields);
  const std::vector<Diamond>& diamonds = program.tides.diamonds;
  for (std::size_t i = diamonds.size(); i-- > 0;) {
    if (EncodeRecord(diamonds[i], kDiamondFields) == wanted) return i;
  }
  return Error{FileOf(program), "diamond " + DiamondRef(diamond) + " is no longer in the file"};
}

}  // namespace

std::optional<float> ReadThreshold(std::string_view text, Messages& messages) {
  if (!Trim(text).empty()) return static_cast<float>(TextToNumber(text));
  if (messages.Ask("Continue with Zero as the threshold?")) return 0.0F;
  return std::nullopt;
}

std::string StepThreshold(std::string_view text, int steps) {
  const std::int64_t tenths = RoundToInteger(TextToNumber(text) * 10.0) + steps;
  return ShortText(
      static_cast<float>(static_cast<double>(std::max<std::int64_t>(tenths, 0)) / 10.0));
}

std::vector<DiamondField> DiamondFields(const Diamond& diamond, std::size_t row) {
  Diamond copy = diamond;
  std::vector<DiamondField> fields;
  for (const Value& value : ValuesOf(copy, row)) {
    DiamondField field{value.label, TextOf(value, row, fields.size())};
    if (row >= kFirstSlotRow && fields.empty()) {
      field.label = SlotName(static_cast<int>(row - kFirstSlotRow) + 1) + field.label;
    }
    if (row == kPositionRow) {
      field.filter = fields.empty() ? KeyFilter::kLatitude : KeyFilter::kLongitude;
    }
    fields.push_back(std::move(field));
  }
  return fields;
}

ChangedDiamond ChangeDiamond(const Folders& folders, const Diamond& before, std::size_t row,
                             const std::vector<std::string>& texts) {
  Diamond after = before;
  const std::vector<Value> values = ValuesOf(after, row);
  for (std::size_t i = 0; i < values.size() && i < texts.size(); ++i) {
    if (Trim(texts[i]) == TextOf(values[i], row, i)) continue;
    std::optional<float> typed;
    if (row == kPositionRow) {
      typed = i == 0 ? ParseLatitudeEntry(texts[i]) : ParseLongitudeEntry(texts[i]);
    } else {
      typed = WholeNumberText(texts[i]);
    }
    if (!typed) {
      return {{},
              row == kPositionRow ? (i == 0 ? "A latitude is typed as 50.30.25N."
                                            : "A longitude is typed as 001.05.40W.")
                                  : "\"" + Trim(texts[i]) + "\" is no number.",
              i};
    }
    *values[i].place = *typed;
  }
  std::size_t field = 0;
  if (std::string fault = FaultOf(folders, after, row, field); !fault.empty()) {
    return {{}, std::move(fault), field};
  }
  return {after, "", 0};
}

Result<std::size_t> WriteChangedDiamond(Program& program, std::size_t index, const Diamond& before,
                                        const Diamond& after, Messages& messages) {
  if (Status written = ReplaceDiamond(FileOf(program), index, before, after); !written) {
    return written.error();
  }
  ReloadDiamonds(program, messages);
  return PlaceOf(program, after);
}

Result<std::size_t> AddDiamond(Program& program, const Diamond& diamond, Messages& messages) {
  if (Status written = AppendDiamond(FileOf(program), diamond); !written) return written.error();
  ReloadDiamonds(program, messages);
  return PlaceOf(program, diamond);
}

Status RemoveDiamond(Program& program, std::size_t index, const Diamond& diamond,
                     Messages& messages) {
  if (Status written = DeleteDiamond(FileOf(program), index, diamond); !written) return written;
  ReloadDiamonds(program, messages);
  return Done{};
}

std::string RemoveDiamondQuestion(const Diamond& diamond) {
  return "Delete diamond " + DiamondRef(diamond) + " at " + LatToText(diamond.latitude) + ", " +
         LongToText(diamond.longitude) + "?";
}

Result<std::optional<std::vector<DiamondLine>>> RefPortMonth(const Program& program,
                                                             const Diamond& diamond,
                                                             Progress& progress) {
  const Result<RecordFile<Port>> ports = ReadRefPorts(program.folders);
  if (!ports) return ports.error();
  const auto number = static_cast<std::size_t>(std::max<int>(RoundToInt16(diamond.ref_port), 0));
  if (number < 1 || number > ports->records.size() || !ports->records[number - 1]) {
    return Error{program.folders.RefPortFile(),
                 "there is no reference port number " + std::to_string(number)};
  }
  const SelectedTime& time = program.selected_time;
  const std::optional<MonthTable> month =
      MakeMonthTable(*ports->records[number - 1], time.month, time.year,
                     program.config.summer_time != 0, progress);
  if (!month) return std::optional<std::vector<DiamondLine>>();
  std::vector<DiamondLine> lines = {{"Monthly Tidal Heights", {}, true}};
  for (const std::string& line : month->lines) {
    // A day's own line is the one that tells no time.
    const bool heading = !Trim(line).empty() && line.find(':') == std::string::npos;
    lines.push_back({Trim(line).empty() ? " " : line, {}, heading});
  }
  return std::optional(std::move(lines));
}

std::string DiamondTimeBasis(bool summer_time) {
  return summer_time ? "Times shown are WITH SUMMER TIME CORRECTION"
                     : "Times from midnight local time - WITHOUT SUMMER TIME CORRECTION";
}

std::string DiamondDataNotice() {
  return "The rates and directions come from the tidal diamonds of the chart area as they are "
         "installed with this program, the tides from harmonic constants. All of them are "
         "approximate: check them against the official publications.";
}

std::string DiamondClipboardText(const std::vector<std::string>& data,
                                 const std::vector<DiamondLine>& report) {
  std::string text;
  const auto add = [&](const std::string& line) { text += (text.empty() ? "" : "\r\n") + line; };
  for (const std::string& line : data) add(line);
  for (const DiamondLine& line : report) add(line.text);
  return text;
}

std::vector<PrintItem> DiamondTableItems(const Diamond& diamond, const std::string& port_name) {
  const std::vector<std::string> data = DiamondDataLines(diamond, port_name);
  std::vector<PrintItem> items;
  for (std::size_t i = 0; i < data.size(); ++i) {
    items.push_back(PrintLine(data[i], i == 0 || i + 1 == kFirstSlotRow ? kHeadFont : kPlainFont,
                              kTableTabsMm));
  }
  return items;
}

PrintDocument DiamondPage(const Program& program, const Diamond& diamond,
                          const std::vector<DiamondLine>& report) {
  const std::string ref = DiamondRef(diamond);
  const std::string port = RefPortName(program.tides, diamond);
  PrintDocument page;
  page.title = "Tidal Diamond " + ref;
  page.foot = page.title;
  page.items.push_back(PrintLine("Tidal Diamond Data", kTitleFont));
  page.items.push_back(PrintLine("Position " + LatToText(diamond.latitude) + ", " +
                                     LongToText(diamond.longitude) + ", Diamond Reference: " + ref,
                                 kHeadFont));
  page.items.push_back(PrintLine("Reference Port: " + port, kHeadFont));
  const ClockReading now = program.clock->Now();
  const auto two = [](int value) { return FormatFixed(value, 2, 0); };
  page.items.push_back(PrintLine("Printed on " + two(now.day_of_month) + "/" + two(now.month) +
                                     "/" + FormatFixed(now.year, 4, 0) + "  at " + two(now.hour) +
                                     ":" + two(now.minute),
                                 kPlainFont));
  page.items.push_back(PrintLine(DiamondTimeBasis(program.config.summer_time != 0), kPlainFont));
  page.items.push_back(PrintLine(" ", kPlainFont));
  for (PrintItem& item : DiamondTableItems(diamond, port)) page.items.push_back(std::move(item));
  page.items.push_back(PrintLine(" ", kPlainFont));
  // What stands between blank lines stays together: the times of a day, a port.
  std::vector<std::vector<PrintItem>> blocks(1);
  for (const DiamondLine& line : report) {
    if (Trim(line.text).empty()) {
      if (!blocks.back().empty()) blocks.emplace_back();
    } else {
      blocks.back().push_back(PrintLine(line.text, line.heading ? kHeadFont : kPlainFont, {12}));
    }
  }
  if (blocks.back().empty()) blocks.pop_back();
  if (!blocks.empty()) page.items.push_back(PrintBlocks(std::move(blocks), kReportColumns));
  page.items.push_back(PrintLine(" ", kPlainFont));
  page.items.push_back(PrintLine(DiamondDataNotice(), kPlainFont));
  return page;
}

}  // namespace skerrow
