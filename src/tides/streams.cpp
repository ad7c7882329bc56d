#include "tides/streams.h"

#include <algorithm>

#include "core/data_files.h"
#include "core/plane_sailing.h"

namespace skerrow {
namespace {

constexpr int kColumns = static_cast<int>(kDiamondColumns);

struct RateAndDirection {
  float rate = 0.0F;
  float direction = 0.0F;
};

enum class SlackRule { kKeepRunning, kAsTabled };
enum class ColumnRates { kExact, kTwoDecimals };

bool HasRanges(const Diamond& diamond) { return diamond.sp_range - diamond.np_range != 0.0F; }

// Rate and direction of a diamond with different spring and neap ranges: the rate runs along a
// straight line from the slot's column to the next, the direction jumps half way.
RateAndDirection FromDiamond(const Diamond& diamond, int dep_slot, int mins_left, float days_range,
                             SlackRule slack, ColumnRates rates) {
  const int column = std::clamp(dep_slot + kHighWaterColumn, 0, kColumns - 1);
  const int next = column + 1 >= kColumns ? 1 : column + 1;
  double range = days_range;
  if (range < diamond.np_range) range = diamond.np_range;
  if (range > diamond.sp_range) range = diamond.sp_range;
  const double ratio =
      (range - diamond.np_range) / (static_cast<double>(diamond.sp_range) - diamond.np_range);
  const auto rate_of = [&](int c) {
    const auto i = static_cast<std::size_t>(c);
    const double neap = diamond.neap_rate[i];
    const double rate = neap + ratio * (diamond.spring_rate[i] - neap);
    if (rates == ColumnRates::kExact) return rate;
    return static_cast<double>(RoundToInteger(rate * 100.0)) / 100.0;
  };
  const double step = (rate_of(column) - rate_of(next)) / 60.0;
  RateAndDirection result;
  result.rate = static_cast<float>(rate_of(column) - (60 - mins_left) * step);
  int heading_column = mins_left >= 30 ? column : next;
  if (slack == SlackRule::kKeepRunning) {
    if (diamond.Slack(next)) heading_column = column;
    if (diamond.Slack(column)) heading_column = next;
  }
  result.direction = diamond.direction[static_cast<std::size_t>(heading_column)];
  return result;
}

int IndexOfPort(const TideState& state, float ref_port) {
  const auto at = std::find(state.ref_ports.begin(), state.ref_ports.end(), RoundToInt16(ref_port));
  return at == state.ref_ports.end() ? -1 : static_cast<int>(at - state.ref_ports.begin());
}

void LinkDiamondsToPorts(TideState& state) {
  ++state.revision;
  state.port_of_diamond.clear();
  for (const Diamond& diamond : state.diamonds) {
    state.port_of_diamond.push_back(IndexOfPort(state, diamond.ref_port));
  }
}

// Makes what follows from the diamonds.
void UseDiamonds(TideState& state) {
  state.labels.clear();
  for (const Diamond& diamond : state.diamonds) state.labels.push_back(DiamondLabel(diamond));
  state.index = std::make_shared<DiamondIndex>(state.diamonds);
  state.tidal_streams.clear();
  LinkDiamondsToPorts(state);
}

// Takes the state of the tide at a port into a reading; false when there is no tide to read.
bool TakeTide(const DayTides& day, int port, float hours, StreamReading& reading) {
  const int minute = MinuteOfDay(hours);
  if (port < 0 || static_cast<std::size_t>(port) >= day.ports.size() ||
      !day.ports[static_cast<std::size_t>(port)].HasTide(minute)) {
    return false;
  }
  const PortTides& tides = day.ports[static_cast<std::size_t>(port)];
  const TidePhase phase = tides.phase[static_cast<std::size_t>(minute)];
  reading.dep_slot = phase.slot;
  reading.mins_left = phase.minutes_left;
  reading.days_range = tides.reference[static_cast<std::size_t>(minute / 10)].range;
  return true;
}

StreamReading NoStream() {
  StreamReading reading;
  reading.taken = true;
  return reading;
}

// The records of a diamond file; whatever is wrong with it is shown behind `operation`.
std::vector<Diamond> ReadDiamondsAndTell(const std::string& path, const std::string& operation,
                                         Messages& messages) {
  const Result<RecordFile<Diamond>> file = ReadDiamonds(path);
  const std::string trouble = file ? LeftOutText(path, file->left_out) : file.error().Text();
  if (!trouble.empty()) messages.Show(operation + trouble, MessageIcon::kWarning);
  return file ? file->Sound() : std::vector<Diamond>();
}

void ShowProblemOnce(TideState& state, const std::string& problem, Messages& messages) {
  if (problem == state.reported_problem) return;
  state.reported_problem = problem;
  if (!problem.empty()) messages.Show(problem, MessageIcon::kWarning);
}

}  // namespace

void LoadDiamonds(TideState& state, const Folders& folders, std::string_view tidal_area,
                  Messages& messages) {
  state.diamonds = KeepCharted(
      ReadDiamondsAndTell(DiamondFilePath(folders, tidal_area), "LoadDiamondsError ", messages));
  UseDiamonds(state);
}

void LoadSlDiamonds(TideState& state, const Folders& folders, std::string_view file_name,
                    Messages& messages) {
  LoadSlDiamondFile(state, FindData(folders, DataFolder::kTidalStreams, file_name), messages);
}

void LoadSlDiamondFile(TideState& state, const std::string& path, Messages& messages) {
  state.sl_diamonds = ReadDiamondsAndTell(path, "LoadSlDiamondsError ", messages);
}

void AppendDiamond(TideState& state, const Diamond& diamond) {
  state.diamonds.push_back(diamond);
  UseDiamonds(state);
}

void FindRefPorts(TideState& state, const Folders& folders, std::string_view tidal_area) {
  const Result<RecordFile<Diamond>> file = ReadDiamonds(DiamondFilePath(folders, tidal_area));
  if (!file) return;
  const std::vector<Diamond> records = file->Sound();
  state.ref_ports = FindRefPorts(records);
  const std::vector<std::int16_t> charted = FindRefPorts(KeepCharted(records));
  state.ref_port_charted.clear();
  for (const std::int16_t port : state.ref_ports) {
    state.ref_port_charted.push_back(std::find(charted.begin(), charted.end(), port) !=
                                     charted.end());
  }
  LinkDiamondsToPorts(state);
}

void BuildRefPortHeights(TideState& state, const Folders& folders, DayAndYear date,
                         bool summer_time, Messages& messages) {
  const Result<RecordFile<Port>> file = ReadRefPorts(folders);
  std::vector<std::shared_ptr<const Port>> ports;
  std::string missing;
  state.ref_port_names.clear();
  for (std::size_t i = 0; i < state.ref_ports.size(); ++i) {
    const auto number = static_cast<std::size_t>(std::max<std::int16_t>(state.ref_ports[i], 0));
    if (file && number >= 1 && number <= file->records.size() && file->records[number - 1]) {
      const Port& port = *file->records[number - 1];
      ports.push_back(std::make_shared<const Port>(port));
      state.ref_port_names.push_back(Trim(port.name));
      continue;
    }
    ports.push_back(nullptr);
    state.ref_port_names.emplace_back();
    if (i < state.ref_port_charted.size() && !state.ref_port_charted[i]) continue;
    missing += (missing.empty() ? "" : ", ") + std::to_string(state.ref_ports[i]);
  }
  std::string problem;
  if (!file) {
    problem =
        "The reference ports cannot be read, there are no tidal streams.\n" + file.error().Text();
  } else {
    problem = LeftOutText(folders.RefPortFile(), file->left_out);
    if (!missing.empty()) {
      problem += (problem.empty() ? "" : "\n") + folders.RefPortFile() +
                 ": the tidal diamonds refer to ports that this file does not hold (" + missing +
                 "), they give no tidal stream.";
    }
  }
  ShowProblemOnce(state, problem, messages);
  state.days = TideDays(std::move(ports), summer_time);
  LoadTideDay(state, date);
}

void LoadTideDay(TideState& state, DayAndYear date) { state.loaded = state.days.Get(date); }

void RefreshTideState(TideState& state, bool override_, float hours, const ClockReading& now) {
  const int minute = override_ ? MinuteOfDay(hours) : now.hour * 60 + now.minute;
  state.ref_port_states = RefPortStatesAt(state, *state.loaded, minute);
  ++state.revision;
}

std::vector<RefPortState> RefPortStatesAt(const TideState& state, const DayTides& day, int minute) {
  std::vector<RefPortState> states;
  for (std::size_t p = 0; p < day.ports.size(); ++p) {
    const PortTides& port = day.ports[p];
    RefPortState shown;
    if (p < state.ref_port_names.size()) shown.port_name = state.ref_port_names[p];
    if (port.HasTide(minute)) {
      const TideReference& reference = port.reference[static_cast<std::size_t>(minute / 10)];
      const TidePhase phase = port.phase[static_cast<std::size_t>(minute)];
      shown.hw_time = HoursToClock(SampleHours(reference.high_water_sample));
      shown.days_range = reference.range;
      shown.dep_slot = phase.slot;
      shown.mins_left = phase.minutes_left;
    }
    for (const Water& water : port.waters) {
      shown.tides.emplace_back(HoursToClock(water.hours), FormatFixed(water.height, 1, 1));
    }
    states.push_back(std::move(shown));
  }
  return states;
}

bool SaveTidalDiamonds(const TideState& state, const Folders& folders, std::string_view tidal_area,
                       Messages& messages) {
  std::vector<Diamond> records(1);
  for (const Diamond& diamond : state.diamonds) {
    if (diamond.latitude > 10.0F && diamond.latitude < 70.0F) records.push_back(diamond);
  }
  const std::string path = DiamondFilePath(folders, Trim(tidal_area) + "001");
  const Status written = ReplaceFile(path, EncodeRecords<Diamond>(records, kDiamondFields));
  if (!written) {
    messages.Show(written.error().Text() + "\nNothing in it has changed.", MessageIcon::kWarning);
    return false;
  }
  messages.Show(std::to_string(records.size() - 1) + " Data records written to file " + path,
                MessageIcon::kInformation);
  return true;
}

std::string StreamLabel(const TideState& state, const StreamReading& reading) {
  if (reading.diamond >= 0) return state.labels[static_cast<std::size_t>(reading.diamond)];
  return reading.taken ? kNoDiamondLabel : "";
}

const DayTides& StreamReader::Day(DayAndYear date) {
  if (!day_ || day_->date != date) day_ = days_.Get(date);
  return *day_;
}

StreamFault StreamReader::CalculateTidalStreams(Position position, float hours, DayAndYear date,
                                                StreamReading& reading) {
  if (state_->diamonds.empty()) return StreamFault::kNone;
  const int nearest = state_->index->Nearest(position);
  if (nearest < 0) {
    reading = NoStream();
    return StreamFault::kNone;
  }
  const auto i = static_cast<std::size_t>(nearest);
  const Diamond& diamond = state_->diamonds[i];
  StreamReading fresh = NoStream();
  if (!TakeTide(Day(date), state_->port_of_diamond[i], hours, fresh)) {
    fresh.no_tide = nearest;
    reading = fresh;
    return StreamFault::kNone;
  }
  if (!HasRanges(diamond)) return StreamFault::kDivideByZero;
  const auto [rate, direction] =
      FromDiamond(diamond, fresh.dep_slot, fresh.mins_left, fresh.days_range,
                  SlackRule::kKeepRunning, ColumnRates::kExact);
  fresh.rate = rate;
  fresh.direction = direction;
  fresh.diamond = nearest;
  reading = fresh;
  return StreamFault::kNone;
}

StreamFault StreamReader::CalcDaysStream(const Diamond& diamond, float hours, DayAndYear date,
                                         StreamReading& reading) {
  StreamReading fresh = NoStream();
  if (!TakeTide(Day(date), IndexOfPort(*state_, diamond.ref_port), hours, fresh)) {
    reading = fresh;
    return StreamFault::kNone;
  }
  if (!HasRanges(diamond)) return StreamFault::kDivideByZero;
  const auto [rate, direction] =
      FromDiamond(diamond, fresh.dep_slot, fresh.mins_left, fresh.days_range, SlackRule::kAsTabled,
                  ColumnRates::kExact);
  fresh.rate = rate;
  fresh.direction = direction;
  reading = fresh;
  return StreamFault::kNone;
}

std::string NoTideText(const TideState& state, const std::vector<std::int32_t>& diamonds) {
  std::vector<std::pair<std::int16_t, std::string>> ports;  // number and labels, by first mention
  for (const std::int32_t diamond : diamonds) {
    const auto i = static_cast<std::size_t>(diamond);
    const std::int16_t number = RoundToInt16(state.diamonds[i].ref_port);
    auto port = std::find_if(ports.begin(), ports.end(),
                             [&](const auto& entry) { return entry.first == number; });
    if (port == ports.end()) port = ports.insert(ports.end(), {number, ""});
    port->second += (port->second.empty() ? "diamond " : "; ") + state.labels[i];
  }
  std::string text;
  for (const auto& [number, labels] : ports) {
    const int index = IndexOfPort(state, number);
    const bool known = index >= 0 &&
                       static_cast<std::size_t>(index) < state.ref_port_names.size() &&
                       !state.ref_port_names[static_cast<std::size_t>(index)].empty();
    text += (text.empty() ? "" : "\n") +
            (known ? "no high water at " + state.ref_port_names[static_cast<std::size_t>(index)]
                   : "no reference port number " + std::to_string(number)) +
            " (" + labels + ")";
  }
  return text;
}

std::string StreamFaultText(std::string_view operation) {
  return std::string(operation) +
         "\nDivide by Zero (Diamond(intDiaNo)Sprange - Diamond(intDiaNo).Nprange)";
}

std::string StreamRef(const Diamond& diamond) {
  return (ShortText(diamond.chart_no) + "-" + ShortText(diamond.dia_no)).substr(0, 10);
}

int CalculateTidalStreamTable(TideState& state, Messages& messages) {
  state.tidal_streams.clear();
  state.streams_revision = state.revision;
  for (std::size_t i = 0; i < state.diamonds.size(); ++i) {
    const Diamond& diamond = state.diamonds[i];
    const int port = state.port_of_diamond[i];
    const bool known = port >= 0 && static_cast<std::size_t>(port) < state.ref_port_states.size() &&
                       !state.ref_port_states[static_cast<std::size_t>(port)].hw_time.empty();
    if (known && !HasRanges(diamond)) {
      messages.Show(
          "CalculateTidalStreams\n"
          "Divide by Zero (Diamond(iCount)Sprange - Diamond(iCount).Nprange)",
          MessageIcon::kWarning);
      break;
    }
    TidalStream stream;
    stream.ref = StreamRef(diamond);
    stream.latitude = diamond.latitude;
    stream.longitude = diamond.longitude;
    stream.known = known;
    if (known) {
      const RefPortState& tide = state.ref_port_states[static_cast<std::size_t>(port)];
      const auto [rate, direction] =
          FromDiamond(diamond, tide.dep_slot, tide.mins_left, tide.days_range,
                      SlackRule::kKeepRunning, ColumnRates::kTwoDecimals);
      stream.direction = direction;
      stream.direction_rad = static_cast<float>(direction * kRadiansPerDegree);
      stream.rate = static_cast<float>(TextToNumber(FormatFixed(rate, 1, 1)));
    }
    state.tidal_streams.push_back(std::move(stream));
  }
  return static_cast<int>(state.diamonds.size());
}

void UpdateTidalStreams(TideState& state, Messages& messages) {
  if (state.streams_revision != state.revision) CalculateTidalStreamTable(state, messages);
}

}  // namespace skerrow
