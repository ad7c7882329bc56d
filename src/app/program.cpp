#include "app/program.h"

#include <cmath>

#include "app/chart_change.h"
#include "core/data_files.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "passage/route_calculation.h"

namespace skerrow {
namespace {

void ShowFailure(const Status& status, Messages& messages) {
  if (!status) messages.Show(status.error().Text(), MessageIcon::kWarning);
}

}  // namespace

void LoadConfig(Program& program, Messages& messages) {
  const std::string path = program.folders.ConfigFile();
  if (!FileReadable(path)) {
    (void)DeleteFile(path);
    WriteDefaultConfig(program.folders, messages);
  }
  ShowFailure(EnsureSampleWaypoints(program.folders), messages);
  (void)ReadConfig(program.folders, program.config);
  program.wind_config = LoadWindConfig(program.folders);
  program.working_wind = program.wind_config.Default();
  program.use_leeway = program.config.use_leeway != 0;
}

void LoadProgram(Program& program, Messages& messages) {
  const Folders& folders = program.folders;
  for (const std::string& folder : {folders.SettingsData(), folders.Waypoints(), folders.Routes(),
                                    OwnDataFolder(folders, DataFolder::kCharts)}) {
    ClearLeftovers(folder);
  }
  LoadConfig(program, messages);
  FollowClock(program);
  ShowFailure(LoadCurrentWaypoints(program.folders, program.config, program.waypoints, messages),
              messages);
  ShowFailure(ReadChartSettings(program.folders, program.config, program.charts), messages);
  LoadArea(program, messages);
  program.replay.replay_active = false;
  program.route_speed = program.config.vessel_speed;
  program.selected_time.hours = program.clock->Now().Hours();
  program.saved_time = {program.selected_time, false};
  program.saved_time.time.override_ = false;
  Timer1Routine(program);
  ForgetCalculation(program);
}

bool RestoreDefaults(Program& program, Messages& messages) {
  const Result<std::string> copy = RestoreDefaultConfig(program.folders);
  if (!copy) {
    messages.Show("Unable to create a configuration file.\n" + copy.error().Text(),
                  MessageIcon::kWarning);
    return false;
  }
  if (!copy->empty()) {
    messages.Show("The settings up to now are kept in " + *copy, MessageIcon::kInformation);
  }
  return true;
}

bool VectorsShown(const AppConfig& config) {
  return config.use_tides != 0 && config.show_vectors != 0;
}

RouteDefaults RouteDefaultsOf(const Program& program) {
  RouteDefaults defaults;
  defaults.speed = program.config.vessel_speed;
  defaults.wind = program.working_wind;
  defaults.constant_wind = program.config.use_manual_wind != 0;
  if (!defaults.constant_wind) {
    defaults.wind_at = LookupIn(program.wind_store.Get(program.folders));
  }
  defaults.departure_day = program.selected_time.Day();
  defaults.departure_hours = program.selected_time.hours;
  return defaults;
}

void FollowClock(Program& program) {
  const ClockReading now = program.clock->Now();
  SetFromClock(program.selected_time, now);
  program.clock_day = now.Day().day;
  program.clock_julian = now.Julian();
}

void RebuildTides(Program& program, Messages& messages) {
  BuildRefPortHeights(program.tides, program.folders, program.selected_time.Day(),
                      program.config.summer_time != 0, messages);
  TimeMoved(program);
}

void TimeMoved(Program& program) {
  const SelectedTime& time = program.selected_time;
  TideState& tides = program.tides;
  if (tides.loaded->date != time.Day()) LoadTideDay(tides, time.Day());
  if (tides.harmonic_streams_on) CalcHarmonicStreams(tides, time.hours, time.Day());
  RefreshTideState(tides, time.override_, time.hours, program.clock->Now());
}

void Timer1Routine(Program& program) {
  program.clock_day = program.clock->Now().Day().day;
  TimeMoved(program);
}

std::string SelectedTimeText(SelectedTimeRefusal refusal) {
  switch (refusal) {
    case SelectedTimeRefusal::kNone:
      break;
    case SelectedTimeRefusal::kNoTime:
      return DepartureTimeText(DepartureTimeRefusal::kNoTime);
    case SelectedTimeRefusal::kOutOfRange:
      return DepartureTimeText(DepartureTimeRefusal::kOutOfRange);
    case SelectedTimeRefusal::kNoSuchDate:
      return "There is no such date";
  }
  return "";
}

SelectedTimeRefusal SetSelectedTime(Program& program, const SelectedTimeEntry& entry,
                                    Messages& messages) {
  const std::string text = Trim(entry.time_text);
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos || text.size() < 4) return SelectedTimeRefusal::kNoTime;
  const std::int64_t hours = RoundToInteger(TextToNumber(text.substr(0, colon)));
  const std::int64_t minutes = RoundToInteger(TextToNumber(text.substr(colon + 1)));
  if (hours >= 24 || hours < 0 || minutes >= 61 || minutes < 0) {
    return SelectedTimeRefusal::kOutOfRange;
  }
  const std::int16_t day = DateToDayOfYear(entry.day_of_month, entry.month, entry.year);
  if (day == 0 || entry.year < 1 || entry.year > INT16_MAX - 1) {
    return SelectedTimeRefusal::kNoSuchDate;
  }
  SetDay(program.selected_time, {day, static_cast<std::int16_t>(entry.year)});
  program.selected_time.override_ = true;
  program.selected_time.hours =
      static_cast<float>(static_cast<double>(hours) + static_cast<double>(minutes) / 60.0);
  ForgetCalculation(program);
  RebuildTides(program, messages);
  return SelectedTimeRefusal::kNone;
}

void ReturnToRealtime(Program& program, Messages& messages) {
  FollowClock(program);
  program.selected_time.override_ = false;
  program.saved_time = {program.selected_time, false};
  RebuildTides(program, messages);
  ForgetCalculation(program);
}

void LeaveClock(Program& program) {
  SaveOnce(program.selected_time, program.saved_time);
  program.selected_time.override_ = true;
}

void RestoreTime(Program& program) {
  RestoreSaved(program.selected_time, program.saved_time);
  SetDay(program.selected_time, program.selected_time.Day());
  TimeMoved(program);
}

void RollTides(Program& program, Roll roll) {
  SelectedTime& time = program.selected_time;
  if (!time.override_) time.hours = program.clock->Now().Hours();
  LeaveClock(program);
  DayAndYear date = time.Day();
  if (roll == Roll::kForward) {
    const float whole = std::floor(time.hours);
    time.hours = time.hours - whole < 0.5F ? whole + 0.5F : whole + 1.0F;
    if (time.hours >= 24.0F) {
      time.hours = 0.0F;
      date = date.day < DaysInYear(date.year)
                 ? DayAndYear{static_cast<std::int16_t>(date.day + 1), date.year}
                 : DayAndYear{1, static_cast<std::int16_t>(date.year + 1)};
    }
  } else {
    time.hours -= 0.5F;
    if (time.hours <= 0.0F) {
      time.hours = 23.5F;
      const auto year_before = static_cast<std::int16_t>(date.year - 1);
      date = date.day > 1
                 ? DayAndYear{static_cast<std::int16_t>(date.day - 1), date.year}
                 : DayAndYear{static_cast<std::int16_t>(DaysInYear(year_before)), year_before};
    } else {
      // A little is added first, so that a time just short of a step does not fall to the one
      // below.
      const float raised = time.hours + 0.001F;
      const float whole = std::floor(raised);
      time.hours = raised - whole >= 0.5F ? whole + 0.5F : whole;
    }
  }
  SetDay(time, date);
  TimeMoved(program);
}

void ForgetCalculation(Program& program) {
  DropTrack(program.passage);
  for (RoutePoint& point : program.route.points) point.calculated = false;
}

}  // namespace skerrow
