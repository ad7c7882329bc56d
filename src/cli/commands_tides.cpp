#include <algorithm>

#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/numbers.h"
#include "core/text.h"
#include "tides/heights.h"
#include "tides/streams.h"

namespace skerrow::cli {
namespace {

std::string Metres(float height) { return FormatFixed(height, 1, 1) + " m"; }

std::string StreamText(float rate, float direction) {
  return FormatFixed(rate, 1, 1) + " kn " + FormatFixed(direction, 3, 0) + "°T";
}

}  // namespace

Outcome ShowConstituents(Session& session, const DayWords& words) {
  const Result<DayAndYear> day = ParseDate(words.date, session.program.clock->Now());
  if (!day) return WrongUsage(day.error());
  const DayConstituents values = CalcDayConstituents(day->year, day->day);
  Answer answer;
  TextTable table({"Group", ">Phase", ">Factor"});
  const auto add = [&](const std::string& name, const GroupValue& value) {
    answer.json()["V" + name] = Number(value.v);
    answer.json()["F" + name] = Number(value.f);
    table.Add({name, FormatFixed(value.v, 1, 0) + "°", FormatFixed(value.f, 1, 4)});
  };
  add("M2", values.m2);
  add("S2", values.s2);
  add("K1", values.k1);
  add("O1", values.o1);
  answer.text = "At 00:00 on " + DateText(*day) + "\n" + table.Text();
  return answer;
}

Outcome ShowRefPorts(Session& session, const WhenWords& words) {
  Program& program = session.program;
  // Without a time the state of the tide is that of midnight.
  const Result<When> when =
      ParseWhen(words.date, words.time.empty() ? "00:00" : words.time, program.clock->Now());
  if (!when) return WrongUsage(when.error());
  session.LoadTides(when->date);
  const int minute = MinuteOfDay(when->hours);
  Answer answer;
  answer.json() = Json::array();
  for (std::size_t p = 0; p < program.tides.loaded->ports.size(); ++p) {
    const PortTides& port = program.tides.loaded->ports[p];
    if (!port.known) continue;
    Json heights = Json::array();
    for (int i = 1; i <= kDaySamples; ++i) {
      heights.push_back(Number(port.heights[static_cast<std::size_t>(i)]));
    }
    Json tides = Json::array();
    std::string waters;
    for (const Water& water : port.waters) {
      tides.push_back({Number(water.hours), Number(water.height)});
      waters += "  " + std::string(water.high ? "HW " : "LW ") + HoursToClock(water.hours) + " " +
                Metres(water.height);
    }
    const TideReference& reference = port.reference[static_cast<std::size_t>(minute / 10)];
    const TidePhase phase = port.phase[static_cast<std::size_t>(minute)];
    const bool tide = port.HasTide(minute);
    const std::string& name = program.tides.ref_port_names[p];
    answer.json().push_back(
        {{"number", program.tides.ref_ports[p]},
         {"name", name},
         {"heights", heights},
         {"hwTime", tide ? Number(SampleHours(reference.high_water_sample)) : Json(nullptr)},
         {"slot", tide ? Json(phase.slot) : Json(nullptr)},
         {"minutesLeft", tide ? Json(phase.minutes_left) : Json(nullptr)},
         {"daysRange", tide ? Number(reference.range) : Json(nullptr)},
         {"tides", tides}});
    answer.text += name + waters + "\n";
    if (!tide) continue;
    answer.text += "  at " + HoursToClock(when->hours) + ": hour slot " +
                   std::to_string(phase.slot) + " from high water " +
                   HoursToClock(SampleHours(reference.high_water_sample)) + ", Mins left in Slot " +
                   std::to_string(phase.minutes_left) + ", Days Range " + Metres(reference.range) +
                   "\n";
  }
  if (answer.text.empty()) answer.text = "no reference ports\n";
  return answer;
}

Outcome ShowStream(Session& session, const StreamWords& words) {
  const Result<Position> place = ParsePosition(words.place.latitude, words.place.longitude);
  if (!place) return WrongUsage(place.error());
  const Result<When> when =
      ParseWhen(words.when.date, words.when.time, session.program.clock->Now());
  if (!when) return WrongUsage(when.error());
  session.LoadTides(when->date);
  StreamReader reader(session.program.tides);
  StreamReading reading;
  if (reader.CalculateTidalStreams(*place, when->hours, when->date, reading) !=
      StreamFault::kNone) {
    return Failed({"", StreamFaultText("CalculateTidalStreams")});
  }
  const std::string label = StreamLabel(session.program.tides, reading);
  const bool found = reading.diamond >= 0;
  Answer answer;
  answer.json() = {{"rate", Number(reading.rate)},
                   {"direction", Number(reading.direction)},
                   {"slot", reading.dep_slot},
                   {"minutesLeft", found ? Json(reading.mins_left) : Json(nullptr)},
                   {"daysRange", found ? Number(reading.days_range) : Json(nullptr)},
                   {"label", label.empty() ? kNoDiamondLabel : label}};
  if (found) {
    answer.text = StreamText(reading.rate, reading.direction) + ", diamond " + label +
                  ", hour slot " + std::to_string(reading.dep_slot) + ", Mins left in Slot " +
                  std::to_string(reading.mins_left) + ", Days Range " + Metres(reading.days_range) +
                  "\n";
  } else if (reading.no_tide >= 0) {
    answer.text =
        "no tidal stream is known: " + NoTideText(session.program.tides, {reading.no_tide}) + "\n";
  } else if (session.program.tides.diamonds.empty()) {
    answer.text = "no tidal stream is known: there are no tidal diamonds\n";
  } else {
    answer.text = "no tidal stream is known within " + FormatFixed(kDiamondReach, 1, 0) +
                  " nm of this place\n";
  }
  return answer;
}

Outcome ShowStreams(Session& session, const WhenWords& words) {
  Program& program = session.program;
  const Result<When> when = ParseWhen(words.date, words.time, program.clock->Now());
  if (!when) return WrongUsage(when.error());
  session.LoadTides(when->date);
  RefreshTideState(program.tides, true, when->hours, program.clock->Now());
  CalculateTidalStreamTable(program.tides, session.messages);
  Answer answer;
  answer.json() = Json::array();
  TextTable table({"Diamond", "Latitude", "Longitude", ">Stream"});
  for (const TidalStream& stream : program.tides.tidal_streams) {
    answer.json().push_back({{"ref", stream.ref},
                             {"latitude", Number(static_cast<float>(stream.latitude))},
                             {"longitude", Number(static_cast<float>(stream.longitude))},
                             {"direction", stream.known ? Number(stream.direction) : Json(nullptr)},
                             {"rate", stream.known ? Number(stream.rate) : Json(nullptr)}});
    table.Add({stream.ref, LatToText(static_cast<float>(stream.latitude)),
               LongToText(static_cast<float>(stream.longitude)),
               stream.known ? StreamText(stream.rate, stream.direction) : "not known"});
  }
  answer.text = table.Text();
  return answer;
}

}  // namespace skerrow::cli
