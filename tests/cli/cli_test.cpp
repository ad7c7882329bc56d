#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <sstream>

#include <nlohmann/json.hpp>

#include "cli/answer.h"
#include "cli/arguments.h"
#include "cli/command_line.h"
#include "core/config.h"
#include "routes/route.h"
#include "routes/waypoint.h"
#include "support/temp_folder.h"
#include "tools/record-tables/record_tables.h"

namespace skerrow::cli {
namespace {

TEST_F(CommandLine, PositionsInEveryForm) {
  const auto json = Json("position 50.30.25N 001.05.40W");
  EXPECT_EQ(Keys(json), (std::vector<std::string>{"latitude", "longitude", "text", "text3"}));
  EXPECT_EQ(std::bit_cast<std::uint32_t>(json["latitude"].get<float>()),
            std::bit_cast<std::uint32_t>(50.504166F));
  EXPECT_EQ(json["text"][0], "50.30.25N");
  EXPECT_EQ(json["text3"][1], "001.05.400W");
  EXPECT_EQ(Json("position 50.504166 -1.09")["text"], json["text"]);
  EXPECT_EQ(Json("range 0 0 0 1")["range"], 60.0);
  EXPECT_EQ(Json("range 50 -1 49 -1")["bearing"], 180.0);
  EXPECT_NEAR(Json("move 50 -1 -90 10")["longitude"].get<double>(), -1.2593, 1e-4);
}

TEST_F(CommandLine, TellsWrongUsageFromFailure) {
  ExpectError("position 95 0", 2, "latitude");
  ExpectError("position 50.61.00N 001.00.00W", 2, "latitude");
  ExpectError("tide Dover --date 2026-02-30", 2, "no such day");
  ExpectError("stream 50 -1 --date 2026-12-05 --time 24:00", 2, "time");
  ExpectError("tide Atlantis --date 2026-12-05", 1, "Atlantis");
  ExpectError("plan nothing.rte --date 2026-12-05 --time 06:30", 1, "nothing.rte");
  ExpectError("--set CalcInterval=soon config show", 2, "CalcInterval");
  ExpectError("--set Nothing=1 config show", 2, "Nothing");
  ExpectError("optimum --date 2026-12-05 --slot 6", 2, "slot");
  ExpectError("chart show 1234-5", 1, "Does not exist in Mod. ReadChartSettings");
  ExpectError("leg 50 -1 50 -1.5 --speed 0.5 --date 2026-12-05 --time 6", 1, "Boat below 0.5kn");
  ExpectError("sail", 2, "subcommand");
  ExpectError("position 50", 2, "LONG is required");
  for (const char* leeway : {"-1", "90.1", "nan", "five"}) {
    ExpectError(std::string("plan --leeway ") + leeway, 2, "leeway");
  }
  EXPECT_EQ(Run("--help").status, 0);
}

TEST_F(CommandLine, KeepsSettings) {
  const auto fields = Json("config show")["fields"];
  EXPECT_EQ(fields.size(), kAppConfigFields.size());
  EXPECT_EQ(fields[0]["name"], "SeaArea");
  EXPECT_EQ(fields[0]["type"], "text");
  EXPECT_FALSE(std::filesystem::exists(user_.File("settings/SkerrowHelm/HelmConfigv60.cfg")));
  Json("config init");
  Json("config set Variation -- -3.5");
  Json("config set ClassBColour 1,2,3");
  const std::string record = FileBytes(user_.File("settings/SkerrowHelm/HelmConfigv60.cfg"));
  ASSERT_EQ(record.size(), kAppConfigSize);
  EXPECT_EQ(bytes::GetFloat(record, 2558), -3.5F);
  EXPECT_EQ(bytes::Get32(record, 2904), 0x030201U);
  // What stands in the place of the settings and is no file is told, and nothing waits for it.
  const std::string stored = user_.File("settings/SkerrowHelm/HelmConfigv60.cfg");
  std::filesystem::rename(stored, stored + ".kept");
  ASSERT_EQ(std::system(("mkfifo " + stored).c_str()), 0);
  ExpectError("config show", 1, "this is not a file");
  std::filesystem::rename(stored + ".kept", stored);
  // An override lasts for its run.
  const Ran shown = Run("--json --set Variation=2 config show");
  EXPECT_EQ(FileBytes(user_.File("settings/SkerrowHelm/HelmConfigv60.cfg")), record);
  const auto fields_shown = shown.json()["fields"];
  EXPECT_EQ(
      std::count_if(fields_shown.begin(), fields_shown.end(),
                    [](const auto& f) { return f["name"] == "Variation" && f["value"] == 2.0; }),
      1);
}

TEST_F(CommandLine, ChartsConvertPositions) {
  const auto list = Json("chart list");
  ASSERT_EQ(list.size(), 4U);
  const auto at = Json("chart at 50.7 -1.3");
  ASSERT_GE(at.size(), 2U);
  EXPECT_LT(at[0]["scale"].get<double>(), at[1]["scale"].get<double>());
  const auto chart = Json("chart show 9999-1 --convert 50.0,-1.5");
  // Linear in longitude between the image's edges.
  const double column = (-1.5 - chart["westLon"].get<double>()) /
                        (chart["eastLon"].get<double>() - chart["westLon"].get<double>()) *
                        chart["width"].get<double>();
  EXPECT_NEAR(chart["column"].get<double>(), column, 1.0);
  EXPECT_GT(chart["row"].get<double>(), chart["topRow"].get<double>());
}

TEST_F(CommandLine, TidesAndStreams) {
  const auto tide = Json("tide dover --date 2026-12-05");
  EXPECT_EQ(Keys(tide), (std::vector<std::string>{"curve", "layers", "meanLevel", "name", "port",
                                                  "range", "waters"}));
  EXPECT_EQ(tide["port"], 76);
  EXPECT_EQ(tide["curve"].size(), 147U);
  EXPECT_EQ(tide["layers"]["F6"].size(), 147U);
  EXPECT_EQ(tide["waters"].size(), 4U);
  EXPECT_EQ(Json("tide 76 --date 2026-12-05"), tide);
  EXPECT_EQ(Keys(Json("constituents --date 2026-12-05")),
            (std::vector<std::string>{"FK1", "FM2", "FO1", "FS2", "VK1", "VM2", "VO1", "VS2"}));
  const auto ports = Json("refports --date 2026-12-05 --time 06:30");
  EXPECT_EQ(ports[0]["heights"].size(), 433U);
  EXPECT_EQ(ports[0]["name"], "Dover");
  EXPECT_NEAR(ports[0]["hwTime"].get<double>(), 8.0 + 20.0 / 60, 1e-6);
  EXPECT_EQ(ports[0]["slot"], -2);
  const auto stream = Json("stream 50.30.00N 001.20.00W --date 2026-12-05 --time 6.5");
  EXPECT_GT(stream["rate"].get<double>(), 0.0);
  const auto none = Json("stream 60 -20 --date 2026-12-05 --time 6.5");
  EXPECT_EQ(none["label"], "NONE");
  EXPECT_EQ(none["rate"], 0.0);
  EXPECT_TRUE(none["daysRange"].is_null());
  const auto streams = Json("streams --date 2026-12-05 --time 6.5");
  EXPECT_GE(streams.size(), 48U);
}

// An hour later on the clock, everything is as it was on standard time.
TEST_F(CommandLine, SunMoonAndTideScreen) {
  const auto sun = Json("sun 50.9 -1.4 --date 2026-06-21 --zone -1");
  EXPECT_EQ(Keys(sun), (std::vector<std::string>{"dayOfYear", "times"}));
  ASSERT_EQ(sun["times"].size(), 8U);
  EXPECT_NEAR(sun["times"][3].get<double>(), 4.859, 2.0 / 60);  // an almanac's sunrise, an hour on
  EXPECT_EQ(sun["dayOfYear"], 172);
  EXPECT_EQ(Json("sun 50.9 -1.4 --date 2026-06-21 --month")["days"].size(), 30U);
  EXPECT_NE(Run("sun 70 20 --date 2026-12-21").out.find("Sunrise                       00:00 none"),
            std::string::npos);
  EXPECT_EQ(Json("moon --date 2026-11-23")["lines"][1], "   09 Nov 2026       NEW MOON     ");

  const auto day = Json("tide Dover --date 2026-11-23");
  const auto screen = Json("tide Dover --date 2026-11-23 --screen");
  EXPECT_EQ(Keys(screen),
            (std::vector<std::string>{"cursor", "lines", "plotBottom", "plotTop", "springNeapHours",
                                      "springNeapLabel", "sunrise", "sunset"}));
  EXPECT_EQ(screen["lines"].size(), day["waters"].size() + 3);
  ASSERT_EQ(screen["cursor"].size(), day["curve"].size());
  EXPECT_EQ(screen["cursor"][60]["hours"], 10.0);
  EXPECT_EQ(screen["cursor"][60]["height"], day["curve"][60][1]);
  EXPECT_EQ(screen["cursor"][60]["state"], "Falling");  // half an hour past high water
  const auto month = Json("tide Dover --date 2026-11-01 --month")["days"];
  ASSERT_EQ(month.size(), 30U);
  EXPECT_EQ(month[22].size(), day["waters"].size());
  ExpectError("tide Dover --screen --month", 2, "--screen");
  ExpectError("sun 50 -1 --zone 12", 2, "zone");
}

TEST_F(CommandLine, ForecastsAndTheWindTheyBring) {
  const std::string sample = "'" SKERROW_SOURCE_DIR "/program/Samples/Channel low.grb'";
  const auto grib = Json("grib " + sample);
  ASSERT_EQ(grib["messages"].size(), 82U);
  EXPECT_EQ(grib["messages"][0]["parameter"], 33);
  EXPECT_EQ(grib["messages"][0]["time"], 9835.0);
  EXPECT_EQ(grib["messages"][0]["ni"], 47);
  EXPECT_TRUE(grib["messagesShown"].empty());
  ExpectError("wind 50 -2 --date 2026-12-05", 1, "grib import");
  EXPECT_EQ(Json("grib import " + sample)["messagesShown"][0], "File Imported");
  const auto records = Json("wind store")["records"];
  ASSERT_EQ(records.size(), 1U + 41 * 47 * 21);
  EXPECT_EQ(records[0], nlohmann::json({0.0, 0.0, 1.0, 0.0, 0.0}));
  const auto wind = Json("wind 50.1 -2.05 --date 2026-12-06 --time 12:30");
  EXPECT_EQ(wind["found"], true);
  EXPECT_LT(wind["range"].get<double>(), 10.0);
  EXPECT_EQ(Json("wind 45 -2 --date 2026-12-06 --time 12:30")["found"], false);
  EXPECT_EQ(
      Json("wind list --date 2026-12-06 --time 12:30 --box 50,-2,50.2,-1.8")["records"].size(), 1U);
  EXPECT_NE(Run("wind 50 -2 --date 2026-12-20 --time 6").out.find("the forecast ends"),
            std::string::npos);
  // Moved to begin today, it lies on the same hours of other days.
  Json("grib import " + sample + " --today");
  const auto moved = Json("wind store")["records"];
  const double shift = moved[1][0].get<double>() - records[1][0].get<double>();
  EXPECT_EQ(shift, std::floor(shift));
  EXPECT_EQ(moved[1][3], records[1][3]);
  const std::string cut = user_.Write(
      "cut.grb",
      testing::FileBytes(SKERROW_SOURCE_DIR "/program/Samples/Channel low.grb").substr(0, 2000));
  const Ran part = Run("grib " + cut);
  EXPECT_EQ(part.status, 0);
  EXPECT_NE(part.err.find("the file ends inside a message"), std::string::npos);
}

TEST_F(CommandLine, PolarsAndSailingByThem) {
  const std::string sloop = "'Cruising sloop 10 m (illustrative)'";
  EXPECT_EQ(Json("polar list")["setUps"].size(), 4U);
  EXPECT_EQ(Json("polar show " + sloop)["rows"].size(), 31U);
  const auto speed = Json("polar speed " + sloop + " --wind 11 --from 225 --course 90");
  EXPECT_EQ(Keys(speed), (std::vector<std::string>{"error", "speed", "tack"}));
  EXPECT_EQ(speed["tack"], 2);
  EXPECT_TRUE(speed["speed"].is_string());
  // A file of two speeds and two angles, by hand: half way between all four values.
  const std::string file = user_.Write("mine.pol", "TWA\t6\t10\n60\t4\t6\n120\t6\t8\n");
  EXPECT_EQ(Json("polar speed " + file + " --wind 7 --angle 90")["speed"], "5.5");
  EXPECT_EQ(Json("polar speed " + file + " --wind 7 --angle 20 --closest 10")["speed"], "4.5");
  EXPECT_EQ(Json("polar import " + file + " --name \"Jo's boat\"")["guessed"].get<int>() > 0, true);
  EXPECT_EQ(Json("polar speed \"Jo's boat\" --wind 7 --angle 90")["speed"], "5.5");
  ExpectError("polar import " + file + " --name \"Jo's boat\"", 1, "is taken");
  ExpectError("polar show Nobody", 1, "there is no set-up");
  ExpectError("polar speed " + sloop + " --wind 41 --angle 60", 2, "Invalid Wind Speed");
  const std::string when = " --date 2026-12-05 --time 06:30";
  const auto own = Json("plan" + when);
  const auto sailed = Json("plan --polar " + file + " --wind-from 0 --wind-speed 7" + when);
  EXPECT_NE(own["hours"], sailed["hours"]);
  // The first leg heads 205 degrees, 155 from the wind: the edge of the table between 6 and 10.
  EXPECT_NE(sailed["lines"].dump().find(" at 6.5 kt."), std::string::npos);
  ExpectError("plan --grib" + when, 2, "--polar");
  const auto each = Json("optimum --date 2026-12-05 --slot 1 --polar " + file +
                         " --wind-from 0 --wind-speed 7 --each");
  EXPECT_EQ(each["times"], Json("optimum --date 2026-12-05 --slot 1 --polar " + file +
                                " --wind-from 0 --wind-speed 7")["times"]);
  const std::string forecast = "'" SKERROW_SOURCE_DIR "/program/Samples/Channel low.grb'";
  Run("grib import " + forecast);
  const std::string by_forecast = " --polar " + file + " --grib --each";
  const auto december = Json("optimum --date 2026-12-05 --slot 1" + by_forecast);
  EXPECT_EQ(december["lines"][3],
            "Speeds by \"" + file + "\" and the forecast wind of each departure");
  EXPECT_EQ(december["times"].size(), 8U);
  ExpectError("optimum --date 2026-12-20 --slot 1" + by_forecast, 1,
              "at 00:00 there is no forecast wind on leg 1");
  // The forecast ends at midnight: only the earliest departures of its last day get home in it.
  const auto last = Json("optimum --date 2026-12-09 --slot 5" + by_forecast);
  EXPECT_TRUE(last["times"][0].is_number());
  EXPECT_TRUE(last["times"][23].is_null());
  ExpectError("polar import " + file, 2, "--name");
  EXPECT_EQ(Json("wind relative --from 315 --course 0"),
            nlohmann::json({{"angle", 45.0}, {"starboard", false}}));
  EXPECT_NEAR(Json("wind apparent --speed 8 --angle 90 --boat 6")["speed"].get<double>(), 10, 1e-9);
  EXPECT_NEAR(Json("wind true --speed 10 --angle 53.1301 --boat 6")["angle"].get<double>(), 90,
              1e-3);
}

TEST_F(CommandLine, SummerTimeIsAnHourAhead) {
  const std::string summer = "--set SummerTime=-1 ";
  const auto tide = Json("tide dover --date 2026-12-05");
  const auto later = Json(summer + "tide dover --date 2026-12-05");
  for (const std::size_t entry : {0U, 60U, 138U}) {
    EXPECT_EQ(later["curve"][entry + 6][1], tide["curve"][entry][1]);
  }
  EXPECT_NEAR(later["waters"][0]["hours"].get<double>(),
              tide["waters"][0]["hours"].get<double>() + 1, 1e-5);
  EXPECT_NE(Run(summer + "tide dover --date 2026-12-05").out.find(", summer time"),
            std::string::npos);
  const std::string place = "stream 50.30.00N 001.20.00W --date 2026-12-05 --time ";
  EXPECT_EQ(Json(summer + place + "07:30"), Json(place + "06:30"));
  EXPECT_EQ(Json(summer + "streams --date 2026-12-05 --time 07:30"),
            Json("streams --date 2026-12-05 --time 06:30"));
  const auto plan = Json("plan --date 2026-12-05 --time 06:30");
  const auto plan_later = Json(summer + "plan --date 2026-12-05 --time 07:30");
  EXPECT_NEAR(plan_later["hours"].get<double>(), plan["hours"].get<double>(), 1e-3);
}

TEST_F(CommandLine, PlansTheSampleRoutes) {
  for (const std::string file : {"", "'Portland Bill.rte'", "'Round Alderney.rte'"}) {
    const auto plan = Json("plan " + file + " --date 2026-12-05 --time 06:30");
    EXPECT_EQ(plan["messages"].size(), 0U) << file;
    double hours = 0.0;
    float arrival = 6.5F;
    for (const auto& leg : plan["legs"]) {
      EXPECT_TRUE(leg["achieved"].get<bool>()) << file;
      EXPECT_EQ(leg["start"][0].get<float>(), arrival) << file;
      arrival = leg["arrival"][0].get<float>();
      hours += leg["passageTime"].get<double>();
    }
    EXPECT_NEAR(plan["hours"].get<double>(), hours, 1e-4) << file;
    std::size_t steps = 0;
    for (const auto& leg : plan["legs"]) steps += leg["steps"].get<std::size_t>();
    EXPECT_EQ(plan["track"].size(), steps + 1) << file;
    EXPECT_EQ(plan["streams"].size(), steps) << file;
  }
  const std::string text = Run("plan --date 2026-12-05 --time 06:30").out;
  EXPECT_NE(text.find("Route calculation for 5 Dec 2026"), std::string::npos);
  EXPECT_NE(text.find("Port Name Dover"), std::string::npos);
  const auto plain = Json("plan --date 2026-12-05 --time 06:30");
  const auto tacked = Json("plan --date 2026-12-05 --time 06:30 --leeway 5 --tack 1=port");
  EXPECT_NEAR(plain["legs"][0]["heading"].get<double>() - 5,
              tacked["legs"][0]["heading"].get<double>(), 1e-3);
  const auto set = Json(
      "--set UseLeeway=-1 --set LeewayAngle=7 plan --date 2026-12-05 --time 06:30 "
      "--tack 1=starboard");
  EXPECT_NEAR(plain["legs"][0]["heading"].get<double>() + 7,
              set["legs"][0]["heading"].get<double>(), 1e-3);
}

TEST_F(CommandLine, ReadsAUsersRouteAndWarns) {
  std::vector<RouteRecord> records = {{"A", 50.0F, -1.0F, 0.8F}, {"B", 50.05F, -1.0F, 5.0F}};
  std::filesystem::create_directories(user_.File("documents/SkerrowHelm/Routes"));
  user_.Write("documents/SkerrowHelm/Routes/slow.rte",
              EncodeRecords<RouteRecord>(records, kRouteFields));
  const auto route = Json("route slow.rte");
  EXPECT_EQ(route["points"][0]["name"], "A");
  EXPECT_EQ(route["legs"].size(), 1U);
  EXPECT_EQ(route["track"].size(), 21U);
  EXPECT_NEAR(route["length"].get<double>(), 3.0, 1e-4);
  const auto plan = Json("plan slow.rte --date 2026-12-05 --time 06:30");
  ASSERT_GE(plan["messages"].size(), 1U);
  EXPECT_NE(plan["messages"][0].get<std::string>().find("Boat speed very low"), std::string::npos);
  records[1].speed = 0.4F;
  user_.Write("stop.rte", EncodeRecords<RouteRecord>(records, kRouteFields));
  const Ran refused = Run("plan " + user_.File("stop.rte") + " --date 2026-12-05 --time 06:30");
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.err.find("Boat speed below 0.5kn between waypoints 2 and 3"),
            std::string::npos);
}

TEST_F(CommandLine, SearchesADaysDepartures) {
  const auto optimum = Json("optimum --date 2026-12-05 --slot 2");
  EXPECT_EQ(optimum["startHour"], 6.0);
  EXPECT_EQ(optimum["times"].size(), 8U);
  const std::string text = Run("optimum --date 2026-12-05").out;
  EXPECT_NE(text.find("shortest"), std::string::npos);
  EXPECT_NE(text.find("\n23:00"), std::string::npos);
}

// What is left out of a file, and why no stream is known, is told in one line.
TEST_F(CommandLine, TellsWhatAFileLacks) {
  const std::string program = user_.File("program");
  std::filesystem::copy(std::string(SKERROW_SOURCE_DIR) + "/program", program,
                        std::filesystem::copy_options::recursive);
  EXPECT_EQ(Json("waypoints")["waypoints"].size(), 46U) << "the first start makes the sample";
  std::vector<Waypoint> marks = {{"A", 50, -1}, {"B", std::nanf(""), -1}, {"C", 51, -1}};
  user_.Write("nan.way", EncodeRecords<Waypoint>(marks, kWaypointFields));
  const Ran listed = Run("--json waypoints " + user_.File("nan.way"));
  EXPECT_EQ(listed.json()["waypoints"].size(), 2U);
  EXPECT_EQ(listed.err,
            "skerrow-cli: " + user_.File("nan.way") + ": 1 damaged record is left out\n");

  const std::string area = FileBytes(program + "/TS/UK.hc");
  std::ofstream(program + "/TS/UK.hc", std::ios::binary) << area.substr(0, area.size() - 40);
  ExpectError("--program " + program + " tide 'Saint Nazaire' --date 2026-12-05", 1,
              "(the last record is left out, it is cut short after 157 of 197 bytes)");

  const std::string stream = " stream 50.5 -1.33 --date 2026-12-05 --time 6";
  EXPECT_EQ(Run(stream).err, "");
  std::filesystem::remove(program + "/RefPorts.hc");
  const Ran none = Run("--program " + program + stream);
  EXPECT_EQ(none.out.rfind("no tidal stream is known: no reference port number ", 0), 0U)
      << none.out;
  EXPECT_NE(none.err.find("RefPorts.hc: the file does not exist"), std::string::npos);
  std::filesystem::remove(program + "/TS/Sample Chart.l25");
  EXPECT_EQ(Run("--program " + program + stream).out,
            "no tidal stream is known: there are no tidal diamonds\n");
}

// Damaged files for every reader that the commands use: told, and never a crash.
TEST_F(CommandLine, SurvivesDamagedInstallations) {
  const std::string program = user_.File("program");
  std::filesystem::copy(std::string(SKERROW_SOURCE_DIR) + "/program", program,
                        std::filesystem::copy_options::recursive);
  const std::string files[] = {"RefPorts.hc",
                               "TS/UK.hc",
                               "TS/Sample Chart.l25",
                               "Charts/9999-1.cht",
                               "Charts/Sample Chart.xrf",
                               "Samples/Sample.rte"};
  const std::string commands[] = {"plan --date 2026-12-05 --time 06:30",
                                  "tide 1 --date 2026-12-05",
                                  "chart list",
                                  "chart show 9999-1",
                                  "streams --date 2026-12-05 --time 6",
                                  "route Sample.rte"};
  std::mt19937 random(77);
  for (const std::string& file : files) {
    const std::string path = program + "/" + file;
    const std::string good = FileBytes(path);
    std::string noise = good;
    for (char& c : noise) c = static_cast<char>(random());
    for (const std::string& bad : {std::string(), good.substr(0, 7), noise, std::string("gone")}) {
      std::ofstream(path, std::ios::binary) << bad;
      if (bad == "gone") std::filesystem::remove(path);
      for (const std::string& command : commands) {
        const Ran ran = Run("--program " + program + " " + command);
        EXPECT_TRUE(ran.status == 0 || (ran.status == 1 && ran.err != ""))
            << file << ": " << command << ran.err;
      }
    }
    std::ofstream(path, std::ios::binary) << good;
  }
}

TEST(Numbers, ReadBackToTheSameBits) {
  for (const float value : {0.1F, 1e-7F, 16777216.0F, -3.4028235e38F, 50.504166F}) {
    const auto text = Number(value).dump();
    EXPECT_EQ(std::bit_cast<std::uint32_t>(std::strtof(text.c_str(), nullptr)),
              std::bit_cast<std::uint32_t>(value))
        << text;
  }
  EXPECT_TRUE(Number(std::nanf("")).is_null());
}

TEST(Documentation, ListsEveryRecordAsItIs) {
  std::ifstream file(std::string(SKERROW_SOURCE_DIR) + "/docs/FILES.md");
  std::stringstream text;
  text << file.rdbuf();
  EXPECT_NE(text.str().find(AllRecordTables()), std::string::npos)
      << "run build/release/bin/record-tables and put its output into docs/FILES.md";
}

}  // namespace
}  // namespace skerrow::cli
