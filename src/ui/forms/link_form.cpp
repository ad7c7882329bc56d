#include "ui/forms/link_form.h"

#include <algorithm>
#include <cmath>

#include "app/edits.h"
#include "app/reception.h"
#include "core/numbers.h"
#include "core/position.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr std::string_view kDegreeSign = "°";
constexpr double kSecondsPerDay = 86400.0;

std::size_t GpsTypeIndex(std::string_view type) {
  const std::int64_t number = RoundToInteger(TextToNumber(type));
  const bool listed = number >= 1 && number <= static_cast<std::int64_t>(kGpsTypes.size());
  return listed ? static_cast<std::size_t>(number - 1) : 0;
}

}  // namespace

void LoadInstrumentChoices(const SettingsStore& settings, Program& program) {
  program.ais.options.standard = settings.GetInt(kInstrumentSection, kStandardAisKey, 0) != 0;
}

std::vector<std::string> PortRows(SerialPorts& ports, int selected) {
  std::vector<std::string> rows;
  bool listed = false;
  for (const PortSource& source : ports.Sources()) {
    const bool wanted = source.port == selected;
    if (source.present) {
      rows.push_back(source.text);
    } else if (wanted) {
      rows.push_back(source.text + ", not plugged in");
    }
    listed = listed || wanted;
  }
  if (!listed) rows.push_back(std::to_string(selected + 1) + "  (nothing plugged in)");
  return rows;
}

std::string RowOfPort(const std::vector<std::string>& rows, int port) {
  for (const std::string& row : rows) {
    if (PortOfText(row) == port) return row;
  }
  return {};
}

std::optional<std::int16_t> PortOfText(std::string_view text) {
  if (Trim(text).empty()) return std::nullopt;
  // The number at the front, cut to what the record holds.
  const double number = std::clamp(TextToNumber(text), 0.0, 32767.0);
  return static_cast<std::int16_t>(RoundToInteger(number) - 1);
}

LinkEntry LinkEntryOf(const Program& program, const SettingsStore& settings, LinkKind kind) {
  const AppConfig& config = program.config;
  const std::string& in_use = program.nmea.log.log_file_name;
  LinkEntry entry;
  entry.port = std::to_string((kind == LinkKind::kGps ? config.gps_port : config.ais_port) + 1);
  entry.gps_type = GpsTypeIndex(config.gps_type_text);
  entry.save = config.nmea_log_on != 0;
  entry.log_name = in_use.empty() ? settings.Get(kInstrumentSection, kLastLogKey) : in_use;
  entry.standard_ais = program.ais.options.standard;
  return entry;
}

int BaudCodeOf(const LinkEntry& entry, LinkKind kind) {
  return kind == LinkKind::kAis ? kAisBaudCode : kGpsTypes[entry.gps_type].baud_code;
}

LinkOutcome CommitLink(Program& program, SettingsStore& settings, const LinkEntry& entry,
                       LinkKind kind, Messages& messages) {
  const std::optional<std::int16_t> port = PortOfText(entry.port);
  if (!port) return {LinkRefusal::kNoPort, Done{}};
  LogState& log = program.nmea.log;
  const std::string name = LogFileNameOf(entry.log_name, program.clock->Now());
  const bool receiving = program.link.gps_enabled || program.link.ais_enabled;
  if (log.logging_on && (name != log.log_file_name || !entry.save)) {
    KeepLog(program, messages, true);
  }
  log.log_file_name = name;
  log.logging_on = entry.save;
  settings.Set(kInstrumentSection, kLastLogKey, name);
  if (kind == LinkKind::kAis) {
    program.ais.options.standard = entry.standard_ais;
    settings.SetInt(kInstrumentSection, kStandardAisKey, entry.standard_ais ? 1 : 0);
  }
  AppConfig config = program.config;
  (void)ReadConfig(program.folders, config);
  config.nmea_log_on = entry.save ? kTrue : kFalse;
  if (kind == LinkKind::kGps) {
    config.gps_port = *port;
    config.gps_type_text = std::to_string(entry.gps_type + 1);
    config.gps_baud_code = static_cast<std::int16_t>(kGpsTypes[entry.gps_type].baud_code);
  } else {
    config.ais_port = *port;
  }
  program.config = config;
  if (receiving) {
    program.timers.next_log_time =
        program.clock->Now().Julian() + config.log_interval / kSecondsPerDay;
  }
  return {LinkRefusal::kNone, SaveConfig(program.folders, config)};
}

GpsMonitorTexts GpsMonitorTextsOf(const NmeaState& nmea) {
  const GpsFix& fix = nmea.fix;
  const Rmb& destination = nmea.destination;
  GpsMonitorTexts texts;
  if (fix.HasPosition()) {
    texts.latitude = LatToText(fix.boat_latitude);
    texts.longitude = LongToText(fix.boat_longitude);
    texts.speed = FormatFixed(fix.speed_over_ground, 1, 1);
    texts.course = FormatFixed(fix.course_over_ground, 3, 0);
  }
  texts.time = FromAnsi(fix.fix_time);
  texts.cross_track = FromAnsi(destination.cross_track);
  texts.range = FromAnsi(destination.range);
  texts.steer = destination.steer == "R" ? "Stbd" : destination.steer == "L" ? "Port" : "";
  texts.name = FromAnsi(destination.name);
  texts.destination_latitude = destination.latitude_text;
  texts.destination_longitude = destination.longitude_text;
  texts.bearing = FromAnsi(destination.bearing);
  return texts;
}

std::optional<float> DestinationDegrees(std::string_view text) {
  const std::string trimmed = Trim(text);
  const std::size_t sign = trimmed.find(kDegreeSign);
  if (sign == std::string::npos || sign == 0) return std::nullopt;
  const std::string minutes_text = trimmed.substr(sign + kDegreeSign.size());
  constexpr std::string_view kDigits = "0123456789.";
  const std::size_t hemisphere = minutes_text.find_first_not_of(kDigits);
  if (trimmed.find_first_not_of(kDigits) != sign || hemisphere == 0 ||
      hemisphere != minutes_text.size() - 1) {
    return std::nullopt;
  }
  const std::size_t side = std::string_view("NESW").find(minutes_text[hemisphere]);
  if (side == std::string_view::npos) return std::nullopt;
  const double minutes = TextToNumber(minutes_text);
  const double degrees = TextToNumber(trimmed) + minutes / 60.0;
  if (minutes >= 60.0 || degrees > (side % 2 == 0 ? 90.0 : 180.0)) return std::nullopt;
  return static_cast<float>(side < 2 ? degrees : -degrees);
}

Status SaveDestination(Program& program, const Rmb& destination, Messages& messages) {
  const std::optional<float> latitude = DestinationDegrees(destination.latitude_text);
  const std::optional<float> longitude = DestinationDegrees(destination.longitude_text);
  if (!latitude || !longitude) return Error{"", "The GPS has told no destination"};
  return AppendAndReload(program, messages,
                         {FromAnsi(Trim(destination.name)), *latitude, *longitude});
}

void TestWatch::Take(std::string_view received) {
  bytes_ += received.size();
  for (const char c : received) {
    if (c == '\r' || c == '\n') {
      if (ChecksumGood(line_)) ++sentences_;
      line_.clear();
    } else if (c == '$' || c == '!') {
      line_.assign(1, c);
    } else if (line_.size() < kMostLine) {
      line_ += c;
    }
  }
}

std::string TestWatch::Text() const {
  if (bytes_ == 0) return "Nothing has come yet.";
  if (sentences_ == 0) {
    return std::to_string(bytes_) + " bytes, but no sentence: the speed may be another.";
  }
  return std::to_string(bytes_) + " bytes, " + std::to_string(sentences_) + " good sentences.";
}

std::string LostReport(const Program& program, const SerialPorts& ports) {
  const LinkState& link = program.link;
  std::string report;
  const auto add = [&report](std::string_view what, std::size_t count, std::string_view unit) {
    report.append(what).append(std::to_string(count)).append(unit).append("\n");
  };
  if (link.gps.number >= 0) add("GPS port: ", ports.Lost(link.gps.number), " bytes");
  if (link.ais.number >= 0) add("AIS port: ", ports.Lost(link.ais.number), " bytes");
  add("Overlong lines: ", program.nmea.overflowed, " characters");
  add("Log: ", program.nmea.log.lost, " sentences");
  return report;
}

}  // namespace skerrow
