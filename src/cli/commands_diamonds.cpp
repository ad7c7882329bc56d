#include <algorithm>

#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/numbers.h"
#include "core/text.h"
#include "tides/diamond_report.h"

namespace skerrow::cli {
namespace {

Result<DiamondReport> ParseReport(const std::string& text) {
  const std::string report = ToLowerAscii(text);
  if (report.empty() || report == "slack") return DiamondReport::kSlack;
  if (report == "flood") return DiamondReport::kFlood;
  if (report == "above") return DiamondReport::kAboveAndBelow;
  return Error{"", "\"" + text + "\" is no report: slack, flood or above"};
}

Json StreamJson(const DayStream& stream) {
  Json list = Json::array();
  for (const DayStreamEntry& entry : stream) {
    if (entry.known) {
      list.push_back({Number(entry.rate), Number(entry.direction), entry.dep_slot});
    } else {
      list.push_back({nullptr, nullptr, nullptr});
    }
  }
  return list;
}

}  // namespace

Outcome ShowDiamond(Session& session, const DiamondWords& words) {
  const TideState& tides = session.program.tides;
  const Result<When> when =
      ParseWhen(words.when.date, words.when.time, session.program.clock->Now());
  if (!when) return WrongUsage(when.error());
  const Result<DiamondReport> report = ParseReport(words.report);
  if (!report) return WrongUsage(report.error());
  DiamondRequest request;
  request.report = *report;
  request.threshold = session.program.config.slack_threshold;
  if (!words.threshold.empty()) {
    const Result<float> threshold = ParseNumber(words.threshold, "threshold");
    if (!threshold) return WrongUsage(threshold.error());
    request.threshold = *threshold;
  }
  request.date = when->date;
  request.hours = when->hours;
  session.LoadTides(when->date);
  const auto found =
      std::find_if(tides.diamonds.begin(), tides.diamonds.end(),
                   [&](const Diamond& diamond) { return DiamondRef(diamond) == Trim(words.ref); });
  if (found == tides.diamonds.end()) {
    return Failed({"", "there is no diamond \"" + words.ref + "\" in the sea area"});
  }
  request.diamond = *found;
  DiamondDay day = MakeDiamondDay(tides, request);
  if (day.fault != StreamFault::kNone) return Failed({"", StreamFaultText("CalcDaysStream")});
  if (words.month) {
    std::optional<std::vector<DiamondLine>> month =
        MakeDiamondMonth(tides, request, session.progress);
    if (!month) return Failed({"", "stopped"});
    day.lines = std::move(*month);
  }
  Answer answer;
  Json header = Json::array();
  for (const std::string& line : DiamondDataLines(*found, RefPortName(tides, *found))) {
    header.push_back(line);
    answer.text += ReplaceAll(line, "\t", "   ") + "\n";
  }
  answer.text += "\n";
  Json lines = Json::array();
  for (const DiamondLine& line : day.lines) {
    lines.push_back(line.text);
    answer.text += TrimRight(ReplaceAll(line.text, "\t", "   ")) + "\n";
  }
  answer.json() = {{"header", header}, {"lines", lines}, {"stream", StreamJson(day.stream)}};
  return answer;
}

Outcome ShowHarmonic(Session& session, const WhenWords& words) {
  Program& program = session.program;
  const Result<When> when = ParseWhen(words.date, words.time, program.clock->Now());
  if (!when) return WrongUsage(when.error());
  if (!LoadHarmonicStations(program.tides,
                            HarmonicStationPath(program.folders, program.config.tidal_area),
                            when->hours, when->date, session.messages)) {
    return Failure{kFailed, ""};  // the message has told why
  }
  Answer answer;
  Json stations = Json::array();
  TextTable table({"Station", "Latitude", "Longitude", ">X", ">Y", ">Rate", ">Direction"});
  for (const HarmonicStream& stream : program.tides.harmonic_streams) {
    stations.push_back({{"name", stream.name},
                        {"x", Number(stream.x)},
                        {"y", Number(stream.y)},
                        {"rate", Number(stream.rate)},
                        {"direction", Number(stream.direction)}});
    table.Add({stream.name, LatToText(stream.latitude), LongToText(stream.longitude),
               FormatFixed(stream.x, 1, 2) + " kn", FormatFixed(stream.y, 1, 2) + " kn",
               FormatFixed(stream.rate, 1, 2) + " kn", FormatFixed(stream.direction, 3, 0) + "°T"});
  }
  answer.json() = {{"stations", stations}};
  answer.text = table.Text();
  return answer;
}

}  // namespace skerrow::cli
