#include "ui/forms/tide_forms.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <limits>
#include <utility>

#include "core/data_files.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"
#include "ui/forms/file_names.h"

namespace skerrow {
namespace {

constexpr double kMostMetres = 100.0;
constexpr double kMostDepth = 1000.0;
constexpr std::size_t kMonthHeadLines = 5;

// No record has this position, so that the first sound one is taken.
constexpr int kFirstPort = std::numeric_limits<int>::max();

const PrintFont kTitleFont = {"", 15.0, true};
const PrintFont kHeadFont = {"", 11.0, true};
const PrintFont kPlainFont = {"", 10.0, false};

std::string DayText(const TideForm& form) {
  const TideScreen& screen = form.screen();
  const MonthDate& date = screen.month_date;
  return WeekdayName(date.day_of_month, date.month, screen.date.year) + " " +
         std::to_string(date.day_of_month) + " " + LongMonthName(date.month) + " " +
         std::to_string(screen.date.year);
}

std::vector<std::string> HeightHeadings(const TideDisplay& display) {
  if (display.option == 1) return {"Heights shown in Metres to Chart Datum"};
  std::vector<std::string> lines = {"Heights shown in Metres"};
  if (display.option == 3) {
    lines.push_back("Dotted curve shows effect of Draft " + ShortText(display.draught) +
                    "M + Under keel Clearance " + ShortText(display.under_keel_clearance) +
                    "M. taken from prediction");
  }
  return lines;
}

// The lines every page begins with.
PrintDocument PageOf(const TideForm& form, const std::string& heading, const std::string& date) {
  const TideScreen& screen = form.screen();
  const std::string port = Trim(screen.port.name);
  PrintDocument page;
  page.title = SafeFileName(heading + " " + port + " " + date);
  page.foot = port;
  page.items = {
      PrintLine(heading, kTitleFont),
      PrintLine("Port : " + port + "     Date : " + date, kHeadFont),
      PrintLine(PrintedTimeBasis(screen.display.summer_time), kPlainFont),
      PrintLine(DerivedDataNotice() + ". Source: the harmonic constants of " + form.area(),
                kPlainFont)};
  return page;
}

void AddLines(PrintDocument& page, const std::vector<std::string>& lines, const PrintFont& font) {
  for (const std::string& line : lines) {
    page.items.push_back(PrintLine(line.empty() ? " " : line, font));
  }
}

}  // namespace

Result<PortList> ListPorts(const Folders& folders, std::string_view file_name) {
  const Result<RecordFile<Port>> file = ReadAreaPorts(folders, file_name);
  if (!file) return file.error();
  PortList list;
  list.left_out = LeftOutText(AreaPortFile(folders, file_name), file->left_out);
  for (std::size_t i = 0; i < file->records.size(); ++i) {
    if (file->records[i]) list.rows.push_back({static_cast<int>(i + 1), *file->records[i]});
  }
  return list;
}

std::vector<std::string> ListTideAreas(const Folders& folders) {
  std::vector<std::string> names = ListData(folders, DataFolder::kTidalStreams, ".hc");
  std::erase_if(
      names, [&](const std::string& name) { return !FileReadable(AreaPortFile(folders, name)); });
  return names;
}

const char* TideAreaRefusal(std::string_view name) {
  if (name.empty()) {
    return "Select a file by clicking a name in the list, followed by the OK button";
  }
  return name.ends_with(".hc") || name.ends_with(".HC") ? nullptr
                                                        : "Problem with the area file name";
}

int PortNear(const PortList& ports, Position place, float range) {
  for (auto row = ports.rows.rbegin(); row != ports.rows.rend(); ++row) {
    if (RangeOnly(place, {row->port.latitude, row->port.longitude}) < range) return row->position;
  }
  return 0;
}

TideForm::TideForm(Program& program)
    : program_(program), area_(Trim(program.config.tidal_port_file)) {
  screen_.date = program.selected_time.Day();
}

Status TideForm::Open(int position) {
  const Result<PortList> ports = ListPorts(program_.folders, area_);
  if (!ports) return ports.error();
  if (ports->rows.empty()) {
    return Error{AreaPortFile(program_.folders, area_), "the file holds no ports"};
  }
  const int wanted = position > 0 ? position : program_.config.tide_port_number;
  const auto found = std::find_if(ports->rows.begin(), ports->rows.end(),
                                  [&](const PortRow& row) { return row.position == wanted; });
  const PortRow& row = found != ports->rows.end() ? *found : ports->rows.front();
  ClearMonth();
  position_ = row.position;
  screen_.port = row.port;
  Refresh();
  return Done{};
}

Status TideForm::Keep() {
  return ReloadThenSave(program_.folders, program_.config, [&](AppConfig& config) {
    config.tidal_port_file = area_;
    config.tide_port_number = static_cast<std::int16_t>(position_);
    config.tide_port_name = Trim(screen_.port.name);
  });
}

Status TideForm::OpenArea(const std::string& file_name) {
  const std::string before = std::exchange(area_, file_name);
  const int position = std::exchange(position_, 0);
  Status opened = Open(kFirstPort);
  if (!opened) {
    area_ = before;
    position_ = position;
  }
  return opened;
}

void TideForm::GoTo(DayAndYear date) {
  screen_.date = date;
  Refresh();
}

void TideForm::Refresh() {
  hours_ = program_.clock->Now().Hours();
  screen_ = MakeTideScreen(screen_.port, screen_.date, TideDisplayOf(program_.config));
}

void TideForm::Tick() {
  if (IsToday()) hours_ = program_.clock->Now().Hours();
}

std::string TideForm::Title() const {
  const ClockReading now = program_.clock->Now();
  return TideTitle(screen_.tide, now.Hours(), HoursToClock(now.Hours()));
}

std::vector<std::string> TideForm::SideLines() const {
  std::vector<std::string> lines;
  const std::size_t heads = screen_.lines.size() - screen_.tide.waters.size();
  for (std::size_t i = 0; i < screen_.lines.size(); ++i) {
    lines.push_back(screen_.lines[i]);
    if (i < heads) continue;
    std::string depth =
        PlaceDepthText(screen_.port, screen_.display, screen_.tide.waters[i - heads].height);
    if (!depth.empty()) lines.push_back(std::move(depth));
  }
  return lines;
}

std::string TideForm::DayFileName() const {
  return SafeFileName(
      Trim(screen_.port.name) + "_" + std::to_string(screen_.month_date.day_of_month) + "_" +
      LongMonthName(screen_.month_date.month) + "_" + std::to_string(screen_.date.year));
}

int DayOfMonthLine(std::string_view line) {
  if (line.empty() || line.back() != ')' || line.find(" (") == std::string_view::npos) return 0;
  return static_cast<int>(TextToNumber(line));
}

bool TideForm::MakeMonth(Progress& progress) {
  const int month = screen_.month_date.month;
  const int year = screen_.date.year;
  std::optional<MonthTable> table =
      MakeMonthTable(screen_.port, month, year, screen_.display.summer_time, progress);
  if (!table) return false;
  const std::string name = LongMonthName(month);
  month_ = {name + " " + std::to_string(year), month, year,
            SafeFileName(Trim(screen_.port.name) + "_" + name + "_" + std::to_string(year)),
            std::move(table->lines)};
  return true;
}

bool TideForm::HasMonth() const {
  constexpr std::size_t kEmptyListLines = 10;
  return month_.lines.size() > kEmptyListLines;
}

std::string NoMonthText() { return "Calculate a months tides\nbefore choosing this option"; }
std::string NoSunText() { return "Calculate a months suntimes\nbefore choosing this option"; }

PrintDocument DayPage(const TideForm& form, const Picture& picture) {
  PrintDocument page = PageOf(form, "Tides of the Day", DayText(form));
  page.landscape = true;
  AddLines(page, HeightHeadings(form.screen().display), kPlainFont);
  page.items.push_back(PrintLine(" ", kPlainFont));
  if (!picture.empty()) page.items.push_back(PrintPicture(picture));
  page.items.push_back(PrintLine(" ", kPlainFont));
  const std::vector<std::string> lines = form.SideLines();
  AddLines(page, {lines.begin() + 3, lines.end()}, kPlainFont);
  const TideScreen& screen = form.screen();
  page.items.push_back(PrintLine("Sunrise " + SunEventText(screen.sun, kSunrise) + "     Sunset " +
                                     SunEventText(screen.sun, kSunset),
                                 kPlainFont));
  if (screen.spring_neap && !screen.spring_neap->label.empty()) {
    page.items.push_back(PrintLine(screen.spring_neap->label, kPlainFont));
  }
  return page;
}

PrintDocument HourlyPage(const TideForm& form) {
  constexpr std::size_t kPerHour = 6;
  PrintDocument page = PageOf(form, "Hourly Details", DayText(form));
  const TideScreen& screen = form.screen();
  AddLines(page, HeightHeadings(screen.display), kPlainFont);
  page.items.push_back(PrintLine(" ", kPlainFont));
  std::vector<std::vector<PrintItem>> blocks;
  for (std::size_t hour = 0; hour < 24; ++hour) {
    std::vector<PrintItem>& block = blocks.emplace_back();
    for (std::size_t step = 0; step < kPerHour; ++step) {
      const CurvePoint& point = screen.tide.curve[hour * kPerHour + step];
      block.push_back(
          PrintLine(HoursToClock(point.hours) + "\t" + TideTableHeightText(point.height),
                    kPlainFont, {14.0}));
    }
    block.push_back(PrintLine(" ", kPlainFont));
  }
  page.items.push_back(PrintBlocks(std::move(blocks), 4));
  return page;
}

PrintDocument MonthPage(const TideForm& form) {
  const std::vector<std::string>& month_lines = form.month().lines;
  PrintDocument page = PageOf(form, "Monthly Tidal Prediction", form.month().title);
  AddLines(page, HeightHeadings({}), kPlainFont);
  page.items.push_back(PrintLine(" ", kPlainFont));
  std::vector<std::vector<PrintItem>> blocks;
  for (std::size_t i = kMonthHeadLines; i < month_lines.size(); ++i) {
    const std::string& line = month_lines[i];
    if (Trim(line).empty()) {
      blocks.emplace_back();
      continue;
    }
    if (blocks.empty()) blocks.emplace_back();
    const bool day = blocks.back().empty();
    blocks.back().push_back(
        PrintLine(ReplaceAll(line, "   ", "\t"), PrintFont{"", 9.0, day}, {14.0}));
  }
  for (std::vector<PrintItem>& block : blocks) {
    block.push_back(PrintLine(" ", PrintFont{"", 5.0, false}));
  }
  page.items.push_back(PrintBlocks(std::move(blocks), 5));
  return page;
}

TideOptionTexts TideOptionTextsOf(const AppConfig& config) {
  return {std::clamp<int>(config.tide_display_option, 1, 3), ShortText(config.draught),
          ShortText(config.under_keel_clearance), config.summer_time != 0};
}

TideOptionRefusal CheckTideOptions(const TideOptionTexts& texts) {
  const auto fits = [](const std::string& text) {
    const double metres = TextToNumber(Trim(text));
    return metres >= 0.0 && metres <= kMostMetres;
  };
  if (!fits(texts.draught)) return TideOptionRefusal::kDraught;
  if (!fits(texts.clearance)) return TideOptionRefusal::kClearance;
  return TideOptionRefusal::kNone;
}

Status CommitTideOptions(Program& program, const TideOptionTexts& texts, Messages& messages) {
  const bool summer_before = program.config.summer_time != 0;
  Status saved = ReloadThenSave(program.folders, program.config, [&](AppConfig& config) {
    config.tide_display_option = static_cast<std::int16_t>(texts.option);
    config.draught = static_cast<float>(TextToNumber(Trim(texts.draught)));
    config.under_keel_clearance = static_cast<float>(TextToNumber(Trim(texts.clearance)));
    config.summer_time = texts.summer_time ? -1 : 0;
  });
  if (summer_before != texts.summer_time) RebuildTides(program, messages);
  return saved;
}

std::optional<float> ParseUserDepth(std::string_view text) {
  std::string trimmed = Trim(text);
  if (trimmed.starts_with('+')) trimmed.erase(0, 1);
  double depth = 0.0;
  const char* end = trimmed.data() + trimmed.size();
  const auto [stopped, error] =
      std::from_chars(trimmed.data(), end, depth, std::chars_format::fixed);
  if (error != std::errc() || stopped != end || !(std::abs(depth) <= kMostDepth)) {
    return std::nullopt;
  }
  return static_cast<float>(depth);
}

Status SaveUserDepth(const Folders& folders, std::string_view file_name, int position,
                     float depth) {
  const Result<Port> port = ReadAreaPort(folders, file_name, position);
  if (!port) return port.error();
  const Result<std::string> writable = WritableData(folders, DataFolder::kTidalStreams, file_name);
  if (!writable) return writable.error();
  const std::string& path = *writable;
  Result<std::string> content = ReadFile(path);
  if (!content) return content.error();
  const std::size_t at = static_cast<std::size_t>(position - 1) * kPortSize;
  if (content->size() < at + kPortSize) return Error{path, "the file has changed meanwhile"};
  Port changed = *port;
  changed.user_depth = depth;
  // The four bytes of the depth alone: names keep bytes that are no letters.
  const auto& field = kPortFields[2];
  const std::string record = EncodeRecord(changed, kPortFields);
  content.value().replace(at + field.offset, field.size, record, field.offset, field.size);
  return ReplaceFile(path, *content);
}

}  // namespace skerrow
