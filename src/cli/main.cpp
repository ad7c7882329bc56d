#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/session.h"
#include "core/version.h"

namespace {

using namespace skerrow;       // NOLINT: this file is the program
using namespace skerrow::cli;  // NOLINT

// "grib FILE" and "wind LAT LONG" leave out the name of the command below. `words` stand last
// first.
void SpellOut(std::vector<std::string>& words) {
  const auto spell = [&](std::string_view group, std::initializer_list<std::string_view> names,
                         const char* meant) {
    const auto at = std::find(words.rbegin(), words.rend(), group);
    if (at == words.rend() || at + 1 == words.rend()) return;
    const std::string& next = *(at + 1);
    if (next.starts_with("--") || std::find(names.begin(), names.end(), next) != names.end())
      return;
    words.insert(at.base() - 1, meant);
  };
  spell("grib", {"show", "import"}, "show");
  spell("wind", {"at", "list", "store", "relative", "apparent", "true"}, "at");
}

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
  SpellOut(words);
  return words;
}

// The command that the words on the command line ask for.
using Chosen = std::function<Outcome(Session&)>;

// Adds a command with words of its own to `app`; `take` says which options fill them.
template <typename Words, typename Take>
void Add(CLI::App& app, const std::string& name, const std::string& about, Chosen& chosen,
         Outcome (*command)(Session&, const Words&), Take take) {
  CLI::App* sub = app.add_subcommand(name, about);
  sub->fallthrough();
  auto words = std::make_shared<Words>();
  take(*sub, *words);
  sub->callback([&chosen, words, command] {
    chosen = [words, command](Session& session) { return command(session, *words); };
  });
}

void TakeNothing(CLI::App&, NoWords&) {}

void TakeDate(CLI::App& app, std::string& date) {
  app.add_option("--date", date, "day, 2026-12-05; today when left out");
}

void TakeWhen(CLI::App& app, WhenWords& words) {
  TakeDate(app, words.date);
  app.add_option("--time", words.time, "time of the day, 06:30 or 6.5; now when left out");
}

void TakePosition(CLI::App& app, PositionWords& words) {
  app.add_option("LAT", words.latitude, "latitude, 50.30.25N or decimal degrees")->required();
  app.add_option("LONG", words.longitude, "longitude, 001.20.00W or decimal degrees")->required();
}

// A command that has only commands below it.
CLI::App& AddGroup(CLI::App& app, const std::string& name, const std::string& about) {
  CLI::App* group = app.add_subcommand(name, about);
  group->require_subcommand(1);
  group->fallthrough();
  return *group;
}

void AddConfigCommands(CLI::App& app, Chosen& chosen) {
  CLI::App& config = AddGroup(app, "config", "the settings");
  Add(config, "show", "show every setting", chosen, ConfigShow, TakeNothing);
  Add(config, "init", "write the default settings", chosen, ConfigInit, TakeNothing);
  Add(config, "set", "change one setting", chosen, ConfigSet, [](CLI::App& sub, SetWords& words) {
    sub.add_option("FIELD", words.field, "name of the setting")->required();
    sub.add_option("VALUE", words.value, "its new value")->required();
  });
}

void AddPlaceCommands(CLI::App& app, Chosen& chosen) {
  Add(app, "position", "a position in all its forms", chosen, ShowPosition, TakePosition);
  Add(app, "range", "range and bearing between two positions", chosen, ShowRange,
      [](CLI::App& sub, RangeWords& words) {
        sub.add_option("PLACES", words.place, "LAT LONG LAT LONG")->required()->expected(4);
      });
  Add(app, "move", "a position moved along a bearing", chosen, ShowMove,
      [](CLI::App& sub, MoveWords& words) {
        sub.add_option("WORDS", words.words, "LAT LONG BEARING MILES")->required()->expected(4);
      });
}

void AddFileCommands(CLI::App& app, Chosen& chosen) {
  Add(app, "waypoints", "the marks of a waypoint file", chosen, ListWaypoints,
      [](CLI::App& sub, WaypointsWords& words) {
        sub.add_option("FILE", words.file, "waypoint file; the current one when left out");
      });
  Add(app, "route", "the points and legs of a route file", chosen, ShowRoute,
      [](CLI::App& sub, RouteWords& words) {
        sub.add_option("FILE", words.file, "route file")->required();
      });
}

void AddChartCommands(CLI::App& app, Chosen& chosen) {
  CLI::App& chart = AddGroup(app, "chart", "the charts of the sea area");
  Add(chart, "list", "all charts", chosen, ListCharts, TakeNothing);
  Add(chart, "show", "the calibration of a chart", chosen, ShowChart,
      [](CLI::App& sub, ChartWords& words) {
        sub.add_option("KEY", words.key, "key of the chart, such as 9999-1")->required();
        sub.add_option("--convert", words.convert, "LAT,LONG to convert to column and row");
      });
  Add(chart, "at", "the charts at a position, most detailed first", chosen, FindCharts,
      TakePosition);
  Add(chart, "bounds", "the charts as lines of a catalogue", chosen, ListChartBounds, TakeNothing);
  Add(chart, "calibrate", "change the calibration of a chart", chosen, CalibrateChart,
      [](CLI::App& sub, CalibrateWords& words) {
        sub.add_option("KEY", words.key, "key of the chart, such as 9999-1")->required();
        sub.add_option("--upper-lat", words.upper_lat, "latitude of the upper line");
        sub.add_option("--top-row", words.top_row, "its image row");
        sub.add_option("--lower-lat", words.lower_lat, "latitude of the lower line");
        sub.add_option("--bottom-row", words.bottom_row, "its image row");
        sub.add_option("--left-long", words.left_long, "longitude of the left line");
        sub.add_option("--left-column", words.left_column, "its image column");
        sub.add_option("--right-long", words.right_long, "longitude of the right line");
        sub.add_option("--right-column", words.right_column, "its image column");
        sub.add_option("--scale", words.scale, "natural scale, the denominator");
        sub.add_option("--width", words.width, "width of the image, pixels");
        sub.add_option("--height", words.height, "height of the image, pixels");
        sub.add_option("--point", words.points,
                       "ROW COLUMN LAT LONG of a point; twice, for two corners")
            ->expected(4, 8);
        sub.add_flag("--restore", words.restore, "the calibration as delivered");
      });
  Add(chart, "import", "bring a chart of another maker in", chosen, ImportChartFile,
      [](CLI::App& sub, ChartImportWords& words) {
        sub.add_option("FILE", words.file, "GeoTIFF, BSB/KAP, MBTiles, PNG or JPEG")->required();
        sub.add_option("--area", words.area, "sea area it belongs to; a new one is made")
            ->required();
        sub.add_option("--key", words.key, "name of its files; a free number when left out");
        sub.add_option("--title", words.title, "title; that of the file when left out");
        sub.add_option("--scale", words.scale, "50000 for 1 : 50,000; guessed when left out");
      });
  Add(chart, "remove", "take one of the user's own charts away", chosen, RemoveChartFile,
      [](CLI::App& sub, ChartKeyWords& words) {
        sub.add_option("KEY", words.key, "key of the chart")->required();
      });
}

void AddTideCommands(CLI::App& app, Chosen& chosen) {
  Add(app, "constituents", "the tidal constituents of a day", chosen, ShowConstituents,
      [](CLI::App& sub, DayWords& words) { TakeDate(sub, words.date); });
  Add(app, "tide", "the tide at a port", chosen, ShowTide, [](CLI::App& sub, TideWords& words) {
    sub.add_option("PORT", words.port, "record number or name of the port")->required();
    sub.add_option("--file", words.file, "constants file; that of the settings when left out");
    TakeDate(sub, words.date);
    sub.add_flag("--screen", words.screen, "what the tide screen tells of the day");
    sub.add_flag("--month", words.month, "the high and low waters of the month");
  });
  Add(app, "sun", "sunrise, sunset and twilights at a place", chosen, ShowSun,
      [](CLI::App& sub, SunWords& words) {
        TakePosition(sub, words.place);
        TakeDate(sub, words.date);
        sub.add_option("--zone", words.zone, "hours that the clock is behind universal time");
        sub.add_flag("--month", words.month, "the table of the month");
      });
  Add(app, "moon", "the phases of the moon about a month", chosen, ShowMoon,
      [](CLI::App& sub, DayWords& words) { TakeDate(sub, words.date); });
  Add(app, "refports", "the tides at the reference ports of the streams", chosen, ShowRefPorts,
      [](CLI::App& sub, WhenWords& words) {
        TakeDate(sub, words.date);
        sub.add_option("--time", words.time, "time of the day; 00:00 when left out");
      });
  Add(app, "stream", "the tidal stream at a place", chosen, ShowStream,
      [](CLI::App& sub, StreamWords& words) {
        TakePosition(sub, words.place);
        TakeWhen(sub, words.when);
      });
  Add(app, "streams", "the tidal stream at every diamond", chosen, ShowStreams, TakeWhen);
}

void TakePolar(CLI::App& app, PolarWords& words) {
  app.add_option("NAME", words.name, "set-up, or a polar file")->required();
}

void TakeSail(CLI::App& app, SailWords& words) {
  auto* polar = app.add_option("--polar", words.polar.name, "set-up or polar file to sail by");
  app.add_option("--closest", words.polar.closest, "smallest angle to the wind, degrees")
      ->needs(polar);
  auto* from = app.add_option("--wind-from", words.wind_from, "wind direction, degrees");
  from->needs(polar);
  app.add_option("--wind-speed", words.wind_speed, "wind speed, knots")->needs(polar);
  app.add_flag("--grib", words.forecast, "sail with the imported wind")
      ->needs(polar)
      ->excludes(from);
}

void AddPolarCommands(CLI::App& app, Chosen& chosen) {
  CLI::App& polar = AddGroup(app, "polar", "the boat's speeds by the wind");
  Add(polar, "list", "the set-ups", chosen, ListPolars, TakeNothing);
  Add(polar, "show", "the table of a set-up", chosen, ShowPolar, TakePolar);
  Add(polar, "export", "a set-up in the text form of routing programs", chosen, ExportPolar,
      TakePolar);
  Add(polar, "import", "add a set-up from a polar file, or those of an .mdb database", chosen,
      ImportPolar, [](CLI::App& sub, PolarImportWords& words) {
        sub.add_option("FILE", words.file, "polar file, or .mdb database")->required();
        sub.add_option("--name", words.name,
                       "name for the set-up of a file; of a database, the only one to take");
      });
  Add(polar, "speed", "the boat's speed in a wind", chosen, ShowPolarSpeed,
      [](CLI::App& sub, PolarSpeedWords& words) {
        TakePolar(sub, words.polar);
        sub.add_option("--wind", words.wind, "wind speed, knots")->required();
        auto* angle = sub.add_option("--angle", words.angle, "angle to the wind, 0 to 180");
        auto* from = sub.add_option("--from", words.from, "wind direction, degrees");
        auto* course = sub.add_option("--course", words.course, "course, degrees");
        from->needs(course)->excludes(angle);
        course->needs(from);
        sub.add_option("--closest", words.polar.closest, "smallest angle to the wind, degrees");
      });
}

void AddDiamondCommands(CLI::App& app, Chosen& chosen) {
  Add(app, "diamond", "a tidal diamond and its report of a day", chosen, ShowDiamond,
      [](CLI::App& sub, DiamondWords& words) {
        sub.add_option("REF", words.ref, "chart-diamond, as \"streams\" prints it")->required();
        sub.add_option("--report", words.report, "slack (when left out), flood or above");
        sub.add_option("--threshold", words.threshold,
                       "knots, for the times above and below it; that of the settings when left "
                       "out");
        sub.add_flag("--month", words.month, "each day of the month");
        TakeWhen(sub, words.when);
      });
  Add(app, "harmonic", "the tidal stream at every harmonic station", chosen, ShowHarmonic,
      TakeWhen);
}

void TakePlan(CLI::App& app, PlanWords& words) {
  app.add_option("FILE", words.file, "route file; the sample route when left out");
  app.add_option("--leeway", words.leeway, "leeway, 0 to 90 degrees");
  app.add_option("--tack", words.tacks, "tack of leg N: N=port or N=starboard")
      ->expected(1)
      ->take_all();
  TakeSail(app, words.sail);
  TakeWhen(app, words.when);
}

void AddPassageCommands(CLI::App& app, Chosen& chosen) {
  Add(app, "leg", "the course to steer for one leg", chosen, SolveLeg,
      [](CLI::App& sub, LegWords& words) {
        sub.add_option("PLACES", words.place, "LAT LONG LAT LONG")->required()->expected(4);
        sub.add_option("--speed", words.speed, "speed through the water, knots")->required();
        TakeWhen(sub, words.when);
      });
  Add(app, "plan", "the passage plan of a route", chosen, PlanRoute, TakePlan);
  Add(app, "optimum", "the best hour to leave", chosen, FindDeparture,
      [](CLI::App& sub, OptimumWords& words) {
        sub.add_option("FILE", words.file, "route file; the sample route when left out");
        TakeDate(sub, words.date);
        sub.add_option("--slot", words.slot,
                       "departures: 1 night, 2 morning, 3 afternoon, 4 evening, 5 all day")
            ->default_val("5");
        TakeSail(sub, words.sail);
        sub.add_flag("--each", words.each, "work out the speeds anew for each departure");
      });
}

void TakeConversion(CLI::App& app, ConvertWords& words) {
  app.add_option("--speed", words.speed, "speed of the wind given, knots")->required();
  app.add_option("--angle", words.angle, "its angle from the bow, 0 to 180 degrees")->required();
  app.add_option("--boat", words.boat, "speed of the boat, knots")->required();
}

void AddWindCommands(CLI::App& app, Chosen& chosen) {
  const auto take_file = [](CLI::App& sub, GribWords& words) {
    sub.add_option("FILE", words.file, "forecast file")->required();
  };
  CLI::App& grib = AddGroup(app, "grib", "forecast files");
  Add(grib, "show", "the messages of a forecast file; \"grib FILE\" will do", chosen, ShowGrib,
      take_file);
  Add(grib, "import", "take over the wind of a forecast file", chosen, ImportGrib,
      [take_file](CLI::App& sub, GribWords& words) {
        take_file(sub, words);
        sub.add_flag("--today", words.today, "move the forecast by whole days to begin today");
      });
  CLI::App& wind = AddGroup(app, "wind", "the wind");
  Add(wind, "at", "the imported wind at a place; \"wind LAT LONG\" will do", chosen, ShowWind,
      [](CLI::App& sub, StreamWords& words) {
        TakePosition(sub, words.place);
        TakeWhen(sub, words.when);
      });
  Add(wind, "list", "the imported winds that serve a time", chosen, ListWind,
      [](CLI::App& sub, WindListWords& words) {
        TakeWhen(sub, words.when);
        sub.add_option("--box", words.box, "S,W,N,E in degrees");
      });
  Add(wind, "store", "all records of the imported wind", chosen, ShowWindStore, TakeNothing);
  Add(wind, "relative", "the angle between a wind and a course", chosen, ShowRelativeWind,
      [](CLI::App& sub, RelativeWords& words) {
        sub.add_option("--from", words.from, "where the wind blows from, degrees")->required();
        sub.add_option("--course", words.course, "course, degrees")->required();
      });
  Add(wind, "apparent", "the apparent wind of a true one", chosen, ConvertWind, TakeConversion);
  Add(wind, "true", "the true wind behind an apparent one", chosen, ConvertWind,
      [](CLI::App& sub, ConvertWords& words) {
        TakeConversion(sub, words);
        words.to_true = true;
      });
}

void AddDriftCommands(CLI::App& app, Chosen& chosen) {
  Add(app, "drift", "where an object goes with the stream", chosen, PredictDrift,
      [](CLI::App& sub, DriftWords& words) {
        TakePosition(sub, words.place);
        TakeWhen(sub, words.when);
        sub.add_option("--duration", words.duration, "hours")->required();
        CLI::Option* heading =
            sub.add_option("--heading", words.heading, "its way through the water, degrees true");
        CLI::Option* speed =
            sub.add_option("--speed", words.speed, "its speed through the water, knots");
        heading->needs(speed);
        speed->needs(heading);
        sub.add_option("--to", words.to, "LAT LONG: the place to come close to")->expected(2);
      });
}

void TakeKml(CLI::App& app, KmlWords& words) {
  app.add_option("--name", words.name, "name of the document");
  app.add_option("--description", words.description, "what it is");
  app.add_flag("--escape", words.escape, "write names so that every viewer can read them");
}

void AddKmlCommands(CLI::App& app, Chosen& chosen) {
  CLI::App& kml = AddGroup(app, "kml", "documents for a KML viewer");
  const auto take = [](CLI::App& sub, KmlWords& words) {
    sub.add_option("FILE", words.file, "a path, or a name in your folder of its kind")->required();
    TakeKml(sub, words);
  };
  Add(kml, "route", "a stored route", chosen, ExportRouteDocument, take);
  Add(kml, "waypoints", "a waypoint file", chosen, ExportWaypointDocument, take);
  Add(kml, "track", "the track of a log", chosen, ExportTrackDocument, take);
  Add(kml, "plan", "the calculated course of a route", chosen, ExportPlanDocument,
      [](CLI::App& sub, KmlPlanWords& words) {
        TakePlan(sub, words.plan);
        TakeKml(sub, words.kml);
      });
}

void AddExportCommands(CLI::App& app, Chosen& chosen) {
  CLI::App& group = AddGroup(app, "export", "files for other programs");
  AddKmlCommands(group, chosen);
  Add(group, "gpx", "routes, waypoints and tracks as a GPX document", chosen, ExportGpx,
      [](CLI::App& sub, GpxExportWords& words) {
        sub.add_option("--route", words.routes, "route file; may be repeated")
            ->expected(1)
            ->take_all();
        sub.add_option("--waypoints", words.waypoints, "waypoint file; may be repeated")
            ->expected(1)
            ->take_all();
        sub.add_option("--track", words.tracks, "log; may be repeated")->expected(1)->take_all();
        sub.add_option("--output", words.output, "file to write; printed when left out");
      });
  CLI::App& import = AddGroup(app, "import", "files of other programs");
  Add(import, "gpx", "what a GPX document holds, or one thing of it", chosen, ImportGpx,
      [](CLI::App& sub, GpxImportWords& words) {
        sub.add_option("FILE", words.file, "GPX document")->required();
        sub.add_option("--name", words.name, "name of the file to be made");
        CLI::Option* route = sub.add_option("--route", words.route, "take route N");
        CLI::Option* marks = sub.add_flag("--waypoints", words.waypoints, "take the waypoints");
        CLI::Option* track = sub.add_option("--track", words.track, "take track N");
        route->excludes(marks)->excludes(track);
        marks->excludes(track);
      });
  Add(group, "streams", "east and north components of every diamond, hour by hour", chosen,
      ExportStreamFiles, [](CLI::App& sub, ExportStreamsWords& words) {
        TakeDate(sub, words.date);
        sub.add_option("--days", words.days, "number of days")->required();
      });
  Add(group, "diamonds", "a cleaned copy of the diamond file", chosen, ExportDiamonds, TakeNothing);
}

void AddInstrumentCommands(CLI::App& app, Chosen& chosen) {
  Add(app, "decode", "what the text of GPS and AIS receivers tells", chosen, DecodeText,
      [](CLI::App& sub, DecodeWords& words) {
        sub.add_option("FILE", words.file, "log, or - for standard input");
        sub.add_option("--port", words.port,
                       "the port it came from, gps or ais; when left out it is a log")
            ->check(CLI::IsMember({"gps", "ais"}));
        sub.add_option("--blocks", words.blocks,
                       "cut it into blocks of N bytes, as a port does; without N the input is a "
                       "JSON array of blocks")
            ->expected(0, 1)
            ->default_str("json");
        sub.add_flag("--logging", words.logging, "show what would be logged");
        sub.add_flag("--gps-through-ais", words.gps_through_ais, "the GPS is connected to the AIS");
        sub.add_option("--system-date", words.system_date, "DDMMYY, for sentences without a date");
      });
  const auto take_log = [](CLI::App& sub, LogWords& words) {
    sub.add_option("FILE", words.file, "log")->required();
  };
  Add(app, "track", "the track in a log", chosen, ShowTrack, take_log);
  Add(app, "comments", "the comments in a log", chosen, ShowComments, take_log);
  Add(app, "comment", "a comment as a log has it", chosen, ShowComment,
      [](CLI::App& sub, CommentWords& words) {
        sub.add_option("--lat", words.place.latitude, "latitude, 50.30.25N or decimal degrees")
            ->required();
        sub.add_option("--long", words.place.longitude, "longitude, 001.20.00W or decimal degrees")
            ->required();
        sub.add_option("--date", words.date, "2026-12-05, or 051226 as a GPS tells it");
        sub.add_option("--time", words.time, "06:30, or 063000 as a GPS tells it");
        sub.add_option("LINES", words.lines, "up to five lines of 40 characters");
      });
}

void AddAisCommands(CLI::App& app, Chosen& chosen) {
  Add(app, "targets", "the AIS targets after a whole log", chosen, ListTargets,
      [](CLI::App& sub, TargetsWords& words) {
        sub.add_option("FILE", words.file, "log, or - for standard input")->required();
        sub.add_option("--at", words.at, "the clock at the first line; now when left out");
        sub.add_option("--tick", words.tick, "seconds from a line to the next")
            ->default_val("0.04");
        sub.add_option("--boat", words.boat,
                       "LAT LONG SOG COG: the boat; that of the log's RMC "
                       "sentences when left out")
            ->expected(4);
        sub.add_flag("--standard", words.standard, "standard AIS decoding");
        CLI::Option* events = sub.add_flag("--events", words.events,
                                           "FILE is a JSON array of [\"HH:MM:SS\", sentence]");
        sub.add_flag("--gps-enabled", words.gps_enabled, "of events: the GPS is on")->needs(events);
      });
  Add(app, "cpa", "the closest approach of two vessels", chosen, ShowCpa,
      [](CLI::App& sub, CpaWords& words) {
        sub.add_option("WORDS", words.words, "LAT LONG SOG COG LAT LONG SOG COG")
            ->required()
            ->expected(8);
      });
  Add(app, "plot", "the records of a plot file", chosen, ShowPlot,
      [](CLI::App& sub, PlotWords& words) {
        sub.add_option("FILE", words.file, "plot file")->required();
      });
  Add(app, "upload", "the sentences that take waypoints or a route to a GPS", chosen, ShowUpload,
      [](CLI::App& sub, UploadWords& words) {
        sub.add_option("FILE", words.file, "waypoint or route file")->required();
        sub.add_option("--type", words.type, "type of the GPS, 1 to 7")->required();
        sub.add_option("--identity", words.identity, "names or numbers")->default_val("names");
        sub.add_option("--route", words.route,
                       "number or name of the route; that of its file "
                       "when left out");
        sub.add_option(
            "--device", words.device,
            "send it to this port: its number, the path of a device or \"TCP host:port\"");
      });
}

void AddPortCommands(CLI::App& app, Chosen& chosen) {
  Add(app, "ports", "the serial ports and network sources by their numbers", chosen, ListPorts,
      TakeNothing);
  Add(app, "listen", "what a port receives", chosen, Listen, [](CLI::App& sub, ListenWords& words) {
    sub.add_option("SOURCE", words.source,
                   "number of a port, path of a device, \"TCP host:port\" or \"UDP port\"")
        ->required();
    sub.add_option("--baud", words.baud, "speed of a serial device")->default_val("4800");
    sub.add_option("--seconds", words.seconds, "how long to listen")->default_val("10");
  });
}

// Prints an outcome; gives the exit status.
int Report(const Outcome& outcome, const Options& options) {
  if (const auto* failure = std::get_if<Failure>(&outcome)) {
    if (!failure->reason.empty()) {
      std::fprintf(stderr, "skerrow-cli: %s\n", OneLine(failure->reason).c_str());
    }
    return failure->status;
  }
  const std::string text = std::get<Answer>(outcome).Printed(options.json);
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  return written && std::fflush(stdout) == 0 ? kDone : kFailed;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  Chosen chosen;
  CLI::App app(
      "Skerrow Helm: passage planning for small craft. A planning aid, not for navigation.",
      "skerrow-cli");
  app.require_subcommand(1);
  app.fallthrough();
  app.add_option("--program", options.program, "folder of the program's own data");
  app.add_option("--documents", options.documents, "folder of the user's documents");
  app.add_option("--settings", options.settings, "folder of the user's settings");
  app.add_option("--set", options.sets, "FIELD=VALUE: a setting for this run only")
      ->expected(1)
      ->take_all();
  app.add_flag("--json", options.json, "answer in JSON");
  app.set_version_flag("--version", "skerrow-cli " + std::string(kVersion));
  AddConfigCommands(app, chosen);
  AddPlaceCommands(app, chosen);
  AddFileCommands(app, chosen);
  AddChartCommands(app, chosen);
  AddTideCommands(app, chosen);
  AddDiamondCommands(app, chosen);
  AddPassageCommands(app, chosen);
  AddWindCommands(app, chosen);
  AddPolarCommands(app, chosen);
  AddDriftCommands(app, chosen);
  AddExportCommands(app, chosen);
  AddInstrumentCommands(app, chosen);
  AddAisCommands(app, chosen);
  AddPortCommands(app, chosen);
  try {
    app.parse(Words(argc, argv));
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);  // --help, --version
    return Report(Failure{kWrongUsage, std::string(error.what()) + " (--help tells more)"},
                  options);
  }
  const SystemClock clock;
  Session session(options, clock);
  if (const Status opened = session.Open(); !opened) {
    return Report(options.sets.empty() ? Failed(opened.error()) : WrongUsage(opened.error()),
                  options);
  }
  return Report(chosen(session), options);
}
