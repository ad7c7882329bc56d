#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/session.h"

namespace {

using namespace skerrow;       // NOLINT: this file is the program
using namespace skerrow::cli;  // NOLINT

// A word such as "-1.33" or "-5" is a value and not an option: the blank keeps the parser from
// taking it for one, and the readers of numbers pass over it.
std::vector<std::string> Words(int argc, char** argv) {
  std::vector<std::string> words;
  for (int i = argc - 1; i > 0; --i) {
    std::string word = argv[i];
    if (word.size() > 1 && word[0] == '-' &&
        (word[1] == '.' || (word[1] >= '0' && word[1] <= '9'))) {
      word.insert(0, 1, ' ');
    }
    words.push_back(std::move(word));  // The parser takes them last first.
  }
  return words;
}

// What the words on the command line ask for.
struct Request {
  Options options;
  std::function<Outcome(Session&)> command;

  // Words of the commands; each command uses its own.
  std::string file, field, value, latitude, longitude, key, convert, port, date, time;
  std::vector<std::string> place;
  LegWords leg;
  PlanWords plan;
  OptimumWords optimum;
};

CLI::App* Add(CLI::App& app, const std::string& name, const std::string& about, Request& request,
              std::function<Outcome(Session&)> command) {
  CLI::App* sub = app.add_subcommand(name, about);
  sub->fallthrough();
  sub->callback([&request, command = std::move(command)] { request.command = command; });
  return sub;
}

void AddDate(CLI::App* app, std::string& date) {
  app->add_option("--date", date, "day, 2026-12-05; today when left out");
}

void AddTime(CLI::App* app, std::string& time) {
  app->add_option("--time", time, "time of the day, 06:30 or 6.5; now when left out");
}

void AddPlaces(CLI::App* app, Request& r) {
  app->add_option("LAT", r.latitude, "latitude, 50.30.25N or decimal degrees")->required();
  app->add_option("LONG", r.longitude, "longitude, 001.20.00W or decimal degrees")->required();
}

void AddConfigCommands(CLI::App& app, Request& r) {
  CLI::App* config = app.add_subcommand("config", "the settings");
  config->require_subcommand(1);
  config->fallthrough();
  Add(*config, "show", "show every setting", r, [](Session& s) { return ConfigShow(s); });
  Add(*config, "init", "write the default settings", r, [](Session& s) { return ConfigInit(s); });
  CLI::App* set = Add(*config, "set", "change one setting", r,
                      [&r](Session& s) { return ConfigSet(s, r.field, r.value); });
  set->add_option("FIELD", r.field, "name of the setting")->required();
  set->add_option("VALUE", r.value, "its new value")->required();
}

void AddPlaceCommands(CLI::App& app, Request& r) {
  CLI::App* position = Add(app, "position", "a position in all its forms", r,
                           [&r](Session&) { return ShowPosition(r.latitude, r.longitude); });
  AddPlaces(position, r);
  CLI::App* range = Add(app, "range", "range and bearing between two positions", r,
                        [&r](Session&) { return ShowRange(r.place); });
  range->add_option("PLACES", r.place, "LAT LONG LAT LONG")->required()->expected(4);
  CLI::App* move = Add(app, "move", "a position moved along a bearing", r,
                       [&r](Session&) { return ShowMove(r.place); });
  move->add_option("WORDS", r.place, "LAT LONG BEARING MILES")->required()->expected(4);
}

void AddFileCommands(CLI::App& app, Request& r) {
  Add(app, "waypoints", "the marks of a waypoint file", r, [&r](Session& s) {
    return ListWaypoints(s, r.file);
  })->add_option("FILE", r.file, "waypoint file; the current one when left out");
  Add(app, "route", "the points and legs of a route file", r,
      [&r](Session& s) { return ShowRoute(s, r.file); })
      ->add_option("FILE", r.file, "route file")
      ->required();
  CLI::App* chart = app.add_subcommand("chart", "the charts of the sea area");
  chart->require_subcommand(1);
  chart->fallthrough();
  Add(*chart, "list", "all charts", r, [](Session& s) { return ListCharts(s); });
  CLI::App* show = Add(*chart, "show", "the calibration of a chart", r,
                       [&r](Session& s) { return ShowChart(s, r.key, r.convert); });
  show->add_option("KEY", r.key, "key of the chart, such as 9999-1")->required();
  show->add_option("--convert", r.convert, "LAT,LONG to convert to column and row");
  CLI::App* at = Add(*chart, "at", "the charts at a position, most detailed first", r,
                     [&r](Session& s) { return FindCharts(s, r.latitude, r.longitude); });
  AddPlaces(at, r);
}

void AddTideCommands(CLI::App& app, Request& r) {
  CLI::App* constituents = Add(app, "constituents", "the tidal constituents of a day", r,
                               [&r](Session& s) { return ShowConstituents(s, r.date); });
  AddDate(constituents, r.date);
  CLI::App* tide = Add(app, "tide", "the tide at a port", r,
                       [&r](Session& s) { return ShowTide(s, r.port, r.date, r.file); });
  tide->add_option("PORT", r.port, "record number or name of the port")->required();
  tide->add_option("--file", r.file, "constants file; that of the settings when left out");
  AddDate(tide, r.date);
  CLI::App* ports = Add(app, "refports", "the tides at the reference ports of the streams", r,
                        [&r](Session& s) { return ShowRefPorts(s, r.date, r.time); });
  AddDate(ports, r.date);
  ports->add_option("--time", r.time, "time of the day; 00:00 when left out");
  CLI::App* stream = Add(app, "stream", "the tidal stream at a place", r, [&r](Session& s) {
    return ShowStream(s, r.latitude, r.longitude, r.date, r.time);
  });
  AddPlaces(stream, r);
  CLI::App* streams = Add(app, "streams", "the tidal stream at every diamond", r,
                          [&r](Session& s) { return ShowStreams(s, r.date, r.time); });
  for (CLI::App* command : {stream, streams}) {
    AddDate(command, r.date);
    AddTime(command, r.time);
  }
}

void AddPassageCommands(CLI::App& app, Request& r) {
  CLI::App* leg = Add(app, "leg", "the course to steer for one leg", r,
                      [&r](Session& s) { return SolveLeg(s, r.leg); });
  leg->add_option("PLACES", r.leg.place, "LAT LONG LAT LONG")->required()->expected(4);
  leg->add_option("--speed", r.leg.speed, "speed through the water, knots")->required();
  AddDate(leg, r.leg.date);
  AddTime(leg, r.leg.time);
  CLI::App* plan = Add(app, "plan", "the passage plan of a route", r,
                       [&r](Session& s) { return PlanRoute(s, r.plan); });
  plan->add_option("FILE", r.plan.file, "route file; the sample route when left out");
  plan->add_option("--leeway", r.plan.leeway, "leeway, degrees");
  plan->add_option("--tack", r.plan.tacks, "tack of leg N: N=port or N=starboard")
      ->expected(1)
      ->take_all();
  AddDate(plan, r.plan.date);
  AddTime(plan, r.plan.time);
  CLI::App* optimum = Add(app, "optimum", "the best hour to leave", r,
                          [&r](Session& s) { return FindDeparture(s, r.optimum); });
  optimum->add_option("FILE", r.optimum.file, "route file; the sample route when left out");
  AddDate(optimum, r.optimum.date);
  optimum
      ->add_option("--slot", r.optimum.slot,
                   "departures: 1 night, 2 morning, 3 afternoon, 4 evening, 5 all day")
      ->default_val("5");
}

// Prints an outcome; gives the exit status.
int Report(const Outcome& outcome, const Options& options) {
  if (const auto* failure = std::get_if<Failure>(&outcome)) {
    if (!failure->reason.empty()) {
      std::fprintf(stderr, "skerrow-cli: %s\n", OneLine(failure->reason).c_str());
    }
    return failure->status;
  }
  const Answer& answer = std::get<Answer>(outcome);
  using Handler = Json::error_handler_t;
  const std::string text =
      options.json ? answer.json.dump(-1, ' ', false, Handler::replace) + "\n" : answer.text;
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  return written && std::fflush(stdout) == 0 ? kDone : kFailed;
}

}  // namespace

int main(int argc, char** argv) {
  Request request;
  CLI::App app(
      "Skerrow Helm: passage planning for small craft. A planning aid, not for navigation.",
      "skerrow-cli");
  app.require_subcommand(1);
  app.fallthrough();
  app.add_option("--program", request.options.program, "folder of the program's own data");
  app.add_option("--documents", request.options.documents, "folder of the user's documents");
  app.add_option("--settings", request.options.settings, "folder of the user's settings");
  app.add_option("--set", request.options.sets, "FIELD=VALUE: a setting for this run only")
      ->expected(1)
      ->take_all();
  app.add_flag("--json", request.options.json, "answer in JSON");
  AddConfigCommands(app, request);
  AddPlaceCommands(app, request);
  AddFileCommands(app, request);
  AddTideCommands(app, request);
  AddPassageCommands(app, request);
  try {
    app.parse(Words(argc, argv));
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kWrongUsage;
  }
  const SystemClock clock;
  Session session(request.options, clock);
  if (const Status opened = session.Open(); !opened) {
    return Report(
        request.options.sets.empty() ? Failed(opened.error()) : WrongUsage(opened.error()),
        request.options);
  }
  return Report(request.command(session), request.options);
}
