#include "tides/diamond_report.h"

#include <algorithm>

namespace skerrow {
namespace {

// The month's progress is told as if it had this many days, so that the bar never stands full while
// the list is being made.
constexpr double kProgressDays = 35.0;

std::string WeekdayAndDate(DayAndYear date) {
  MonthDate month;
  DayOfYearToDate(date.day, date.year, month);
  return WeekdayName(month.day_of_month, month.month, date.year) + " " + DateText(date);
}

// "HH:MM" at `i` tens of minutes after midnight; the midnight that ends the day is 00:00.
std::string TimeOf(std::size_t i) { return HoursToClock(DayStreamHours(i)); }

// Whether entry i + 1 (from 1) is lower or higher than both its neighbours.
bool Turns(const DayStream& stream, std::size_t i, DiamondReport report) {
  const DayStreamEntry& here = stream[i - 1];
  const DayStreamEntry& middle = stream[i];
  const DayStreamEntry& behind = stream[i + 1];
  if (!here.known || !middle.known || !behind.known) return false;
  return report == DiamondReport::kSlack ? here.rate > middle.rate && middle.rate < behind.rate
                                         : here.rate < middle.rate && middle.rate > behind.rate;
}

bool Crosses(const DayStreamEntry& here, const DayStreamEntry& next, float threshold) {
  return here.known && next.known &&
         ((here.rate < threshold && next.rate >= threshold) ||
          (here.rate > threshold && next.rate <= threshold));
}

// Why nothing is known of a diamond's stream.
std::string NoStreamLine(const TideState& state, const Diamond& diamond) {
  const std::string name = RefPortName(state, diamond);
  return "No tidal stream is known: " +
         (name.empty()
              ? "no reference port number " + std::to_string(RoundToInt16(diamond.ref_port))
              : "no high water at " + name);
}

void AddPort(const RefPortState& port, int number, std::vector<DiamondLine>& lines) {
  lines.push_back({"Reference Port " + std::to_string(number)});
  lines.push_back({"Port Name " + port.port_name, {}, true});
  for (const auto& [time, height] : port.tides) {
    lines.push_back({time});
    lines.back().text.append("\t").append(height);
  }
  if (port.hw_time.empty()) {
    lines.push_back({"No high water"});
  } else {
    lines.push_back({"Days Range " + FormatFixed(port.days_range, 1, 1) + " Metres"});
    lines.push_back({std::string("Dep Slot HW ") + (port.dep_slot > 0 ? "+" : "") +
                     std::to_string(port.dep_slot) + " hours"});
    lines.push_back({"Mins left in Slot " + std::to_string(port.mins_left)});
  }
  lines.push_back({" "});
}

// The reference ports of the sea area that RefPorts.hc holds, the diamond's own first.
void AddPorts(const TideState& state, const DiamondRequest& request,
              std::vector<DiamondLine>& lines) {
  TideDays days = state.days;
  const std::vector<RefPortState> ports =
      RefPortStatesAt(state, *days.Get(request.date), MinuteOfDay(request.hours));
  const std::int16_t own = RoundToInt16(request.diamond.ref_port);
  for (const bool first : {true, false}) {
    for (std::size_t p = 0; p < ports.size() && p < state.ref_ports.size(); ++p) {
      if (!ports[p].port_name.empty() && (state.ref_ports[p] == own) == first) {
        AddPort(ports[p], state.ref_ports[p], lines);
      }
    }
  }
}

// The lines of a day's times, each with the day; why there are none where nothing is known.
void AddTimes(const TideState& state, const DiamondRequest& request, const DayStream& stream,
              std::vector<DiamondLine>& lines) {
  const bool known = std::any_of(stream.begin(), stream.end(),
                                 [](const DayStreamEntry& entry) { return entry.known; });
  if (!known) {
    lines.push_back({NoStreamLine(state, request.diamond)});
    return;
  }
  for (std::string& line : ReportLines(stream, request.report, request.threshold)) {
    lines.push_back({std::move(line), request.date});
  }
}

// The bytes of a diamond file and where one of its diamonds stands in them.
struct Found {
  std::string content;
  std::size_t at = 0;
};

Result<Found> FindDiamond(const std::string& path, std::size_t index, const Diamond& before) {
  Result<std::string> content = ReadFile(path);
  if (!content) return content.error();
  const std::string wanted = EncodeRecord(before, kDiamondFields);
  std::size_t charted = 0;
  for (std::size_t at = 0; at + kDiamondSize <= content->size(); at += kDiamondSize) {
    Diamond diamond;
    DecodeRecord(std::string_view(*content).substr(at, kDiamondSize), kDiamondFields, diamond);
    if (DamagedField(diamond, kDiamondFields) != nullptr || KeepCharted({diamond}).empty())
      continue;
    if (charted++ < index) continue;
    if (content->compare(at, kDiamondSize, wanted) != 0) break;
    return Found{std::move(content.value()), at};
  }
  return Error{
      path, "the file has changed, diamond " + DiamondRef(before) + " is no longer in its place"};
}

}  // namespace

float DayStreamHours(std::size_t entry) {
  return static_cast<float>(static_cast<double>(entry) / 6.0);
}

StreamFault FillDayStream(StreamReader& reader, const Diamond& diamond, DayAndYear date,
                          DayStream& stream) {
  DayStream filled;
  for (std::size_t i = 0; i < filled.size(); ++i) {
    StreamReading reading;
    const StreamFault fault = reader.CalcDaysStream(diamond, DayStreamHours(i), date, reading);
    if (fault != StreamFault::kNone) return fault;
    // Where there is a high water the tide has a range.
    filled[i] = {reading.rate, reading.direction, reading.dep_slot, reading.days_range > 0.0F};
  }
  stream = filled;
  return StreamFault::kNone;
}

std::string DiamondRef(const Diamond& diamond) {
  return ShortText(diamond.chart_no) + "-" + ShortText(diamond.dia_no);
}

std::string RefPortName(const TideState& state, const Diamond& diamond) {
  const auto at =
      std::find(state.ref_ports.begin(), state.ref_ports.end(), RoundToInt16(diamond.ref_port));
  const auto i = static_cast<std::size_t>(at - state.ref_ports.begin());
  return i < state.ref_port_names.size() ? state.ref_port_names[i] : "";
}

std::string SlotName(int column) {
  const int slot = column - kHighWaterColumn;
  return std::string("HW ") + (slot > 0 ? "+" : "") + std::to_string(slot);
}

std::vector<std::string> DiamondDataLines(const Diamond& diamond, const std::string& port_name) {
  std::vector<std::string> lines = {
      "Tidal stream ID " + DiamondRef(diamond),
      "Ref Port " + port_name + " (" + std::to_string(RoundToInt16(diamond.ref_port)) + ")",
      "Spring Range " + FormatFixed(diamond.sp_range, 1, 1) + "M, Neap Range " +
          FormatFixed(diamond.np_range, 1, 1) + "M",
      LatToText(diamond.latitude) + ", " + LongToText(diamond.longitude),
      " ",
      "Slot\tDir\tSp Rate\tNp Rate"};
  for (std::size_t c = 1; c < kDiamondColumns; ++c) {
    lines.push_back(SlotName(static_cast<int>(c)) + "\t" + FormatFixed(diamond.direction[c], 3, 0) +
                    "\t  " + FormatFixed(diamond.spring_rate[c], 1, 1) + "\t  " +
                    FormatFixed(diamond.neap_rate[c], 1, 1));
  }
  return lines;
}

std::string ReportHead(DiamondReport report) {
  switch (report) {
    case DiamondReport::kSlack:
      return "Tidal Streams Slack Water Times";
    case DiamondReport::kFlood:
      return "Tidal Streams Max Flood Times";
    case DiamondReport::kAboveAndBelow:
      break;
  }
  return "";
}

std::vector<std::string> ReportLines(const DayStream& stream, DiamondReport report,
                                     float threshold) {
  std::vector<std::string> lines;
  if (report == DiamondReport::kAboveAndBelow) {
    for (std::size_t i = 1; i < kDayStreamEntries; ++i) {
      if (Crosses(stream[i - 1], stream[i], threshold)) {
        lines.push_back(ShortText(threshold) + "kn at " + TimeOf(i));
      }
    }
    if (lines.empty()) lines.emplace_back("Rate is always outside threshold");
    return lines;
  }
  for (std::size_t i = 1; i + 2 <= kDayStreamEntries; ++i) {
    if (!Turns(stream, i, report)) continue;
    lines.push_back(TimeOf(i + 2) + "      " + FormatFixed(stream[i - 1].rate, 1, 1) + "kn.");
  }
  return lines;
}

DiamondDay MakeDiamondDay(const TideState& state, const DiamondRequest& request) {
  DiamondDay day;
  StreamReader reader(state);
  day.fault = FillDayStream(reader, request.diamond, request.date, day.stream);
  if (day.fault != StreamFault::kNone) return day;
  day.lines.push_back({"Tidal Streams", {}, true});
  day.lines.push_back({WeekdayAndDate(request.date), request.date, true});
  if (const std::string head = ReportHead(request.report); !head.empty()) {
    day.lines.push_back({head, {}, true});
  }
  AddTimes(state, request, day.stream, day.lines);
  day.lines.push_back({" "});
  StreamReading now;
  (void)reader.CalcDaysStream(request.diamond, request.hours, request.date, now);
  if (now.days_range > 0.0F) {
    day.lines.push_back({"At " + HoursToClock(request.hours) + "  " + FormatFixed(now.rate, 1, 1) +
                         "kn @" + FormatFixed(now.direction, 3, 0) + "°T"});
    day.lines.push_back({" "});
  }
  day.lines.push_back({"Tidal Height Prediction", {}, true});
  AddPorts(state, request, day.lines);
  return day;
}

std::optional<std::vector<DiamondLine>> MakeDiamondMonth(const TideState& state,
                                                         const DiamondRequest& request,
                                                         Progress& progress) {
  std::vector<DiamondLine> lines = {{"Monthly Tidal Stream Times", {}, true}};
  if (const std::string head = ReportHead(request.report); !head.empty()) {
    lines.push_back({head, {}, true});
  }
  MonthDate month;
  DayOfYearToDate(request.date.day, request.date.year, month);
  StreamReader reader(state);
  DiamondRequest of_day = request;
  for (int day = 1; day <= 31; ++day) {
    of_day.date.day = DateToDayOfYear(day, month.month, request.date.year);
    if (of_day.date.day == 0) break;
    if (!progress.Step(day / kProgressDays * 100.0)) return std::nullopt;
    DayStream stream;
    if (FillDayStream(reader, request.diamond, of_day.date, stream) != StreamFault::kNone) {
      return std::vector<DiamondLine>();
    }
    lines.push_back({" "});
    lines.push_back({WeekdayAndDate(of_day.date), of_day.date, true});
    AddTimes(state, of_day, stream, lines);
  }
  return lines;
}

Status ReplaceDiamond(const std::string& path, std::size_t index, const Diamond& before,
                      const Diamond& after) {
  if (Status sound = CheckRecords<Diamond>(path, {&after, 1}, kDiamondFields); !sound) return sound;
  Result<Found> found = FindDiamond(path, index, before);
  if (!found) return found.error();
  std::string& content = found.value().content;
  content.replace(found->at, kDiamondSize, EncodeRecord(after, kDiamondFields));
  return ReplaceFile(path, content);
}

Status AppendDiamond(const std::string& path, const Diamond& diamond) {
  if (Status sound = CheckRecords<Diamond>(path, {&diamond, 1}, kDiamondFields); !sound) {
    return sound;
  }
  Result<std::string> content = ReadFile(path);
  if (!content) return content.error();
  const std::size_t whole = content->size() / kDiamondSize;
  if (whole >= INT16_MAX) return Error{path, "the file holds too many records"};
  content.value().insert(whole * kDiamondSize, EncodeRecord(diamond, kDiamondFields));
  return ReplaceFile(path, *content);
}

Status DeleteDiamond(const std::string& path, std::size_t index, const Diamond& before) {
  Result<Found> found = FindDiamond(path, index, before);
  if (!found) return found.error();
  std::string& content = found.value().content;
  content.erase(found->at, kDiamondSize);
  return ReplaceFile(path, content);
}

}  // namespace skerrow
