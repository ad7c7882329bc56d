#include <algorithm>

#include "cli/command_line.h"
#include "core/record.h"
#include "instruments/sentences.h"

namespace skerrow::cli {
namespace {

using skerrow::testing::Bits;
using skerrow::testing::Sentence;

std::string Report(unsigned mmsi, int latitude, int longitude, unsigned tenths, unsigned course) {
  Bits bits;
  bits.Put(1, 6).Put(0, 2).Put(mmsi, 30).Put(0, 12).Put(tenths, 10).Put(0, 1);
  bits.Put(longitude, 28).Put(latitude, 27).Put(course, 12).Put(0, 40);
  return Sentence("AIVDM,1,1,,A," + bits.Payload() + ",0");
}

// Six miles north of 50 N 1 W, coming down at 10 knots.
const std::string kComing = Report(235000001, 30060000, -600000, 100, 1800);
const std::string kBoat =
    Sentence("GPRMC,120000,A,5000.000,N,00100.000,W,10.0,000.0,051226,,", '$');

class AisCommands : public CommandLine {
 protected:
  std::string Log(const std::string& text) { return "'" + user_.Write("log.nmea", text) + "'"; }
};

TEST_F(AisCommands, TargetsOfALog) {
  const std::string log =
      Log(kComing + "\r\nnoise\r\n" + kBoat + "\r\n" + Report(7, 30000000, -600000, 0, 0));
  const nlohmann::json answer = Json("targets " + log + " --at 12:00:40 --tick 60");
  EXPECT_EQ(Keys(answer), std::vector<std::string>{"targets"});
  ASSERT_EQ(answer["targets"].size(), 2U);
  const nlohmann::json& target = answer["targets"][0];
  EXPECT_EQ(Keys(target), (std::vector<std::string>{"alive",
                                                    "callsign",
                                                    "courseOverGround",
                                                    "cpa",
                                                    "dataLines",
                                                    "destination",
                                                    "dimensions",
                                                    "eta",
                                                    "history",
                                                    "lastHeard",
                                                    "latitude",
                                                    "longitude",
                                                    "messageType",
                                                    "mmsi",
                                                    "navStatus",
                                                    "predicted",
                                                    "shipType",
                                                    "showDetails",
                                                    "showHeadingVector",
                                                    "showHistory",
                                                    "showPredicted",
                                                    "speedOverGround",
                                                    "tcpa",
                                                    "vesselName"}));
  EXPECT_EQ(target["mmsi"], 235000001);
  EXPECT_NEAR(target["latitude"], 50.1, 1e-5);
  EXPECT_NEAR(target["tcpa"], 0.3, 1e-4);
  EXPECT_NEAR(target["lastHeard"], 12 + 40 / 3600.0, 1e-5);
  EXPECT_EQ(target["history"].size(), 6U);
  EXPECT_NEAR(target["predicted"][5][0], 50.1 - 5 / 60.0, 1e-5);
  EXPECT_EQ(target["dataLines"].size(), 8U);
  // Eighteen minutes from the last line, at 12:03:40.
  EXPECT_EQ(target["dataLines"][0], "CPA    0.00nm @ 12:22");
  EXPECT_NEAR(answer["targets"][1]["lastHeard"], 12 + 220 / 3600.0, 1e-5);
  EXPECT_NE(Run("targets " + log).out.find("000000007"), std::string::npos);

  // Without a boat nothing closes in; with one from outside the log's is not asked.
  const std::string alone = Log(kComing);
  EXPECT_EQ(Json("targets " + alone)["targets"][0]["dataLines"][0], " ");
  EXPECT_NEAR(Json("targets " + log + " --boat 50 -1 0 0")["targets"][0]["tcpa"], 0.6, 1e-4);
  // Twenty minutes of ticks later the first is gone.
  EXPECT_EQ(Json("targets " + log + " --at 12:00 --tick 500")["targets"].size(), 1U);
  EXPECT_EQ(Json("targets " + log + " --at 23:59 --tick 60")["targets"][0]["mmsi"], 235000001);
  EXPECT_EQ(Run("targets " + Log("")).out, "no targets\n");
  ExpectError("targets /nowhere/at-all.nmea", 1, "at-all");
  ExpectError("targets " + log + " --at 25:00", 2, "25");
  ExpectError("targets " + log + " --at 12:00:77", 2, "77");
  ExpectError("targets " + log + " --tick -1", 2, "tick");
  ExpectError("targets " + log + " --boat 99 0 0 0", 2, "99");
}

TEST_F(AisCommands, TheSampleLog) {
  // Thirty ships and an aircraft, which Channel crossing.nmea's maker lets pass by.
  const nlohmann::json targets =
      Json("targets 'Channel crossing.nmea' --at 09:20 --tick 0.6")["targets"];
  EXPECT_EQ(targets.size(), 31U);
  const auto named = [](const nlohmann::json& target) {
    return !target["vesselName"].get<std::string>().empty() && target["vesselName"] != " ";
  };
  EXPECT_TRUE(std::all_of(targets.begin(), targets.end(), named));
  // Before the first of them has passed, 23 minutes after 09:20.
  std::string log = testing::FileBytes(SKERROW_SOURCE_DIR "/program/Samples/Channel crossing.nmea");
  log.resize(log.find("$GPRMC,093500"));
  const nlohmann::json first = Json("targets " + Log(log) + " --at 09:20")["targets"][0];
  EXPECT_EQ(first["vesselName"], "ARDENT TRADER");
  EXPECT_LT(first["cpa"], 0.25);
  EXPECT_NEAR(first["tcpa"], 8 / 60.0, 0.01);
}

TEST_F(AisCommands, TargetsByTheStandard) {
  Bits bits;
  bits.Put(3, 6).Put(0, 2).Put(7, 30).Put(0, 12).Put(1023, 10).Put(0, 1);
  bits.Put(-600000, 28).Put(30000000, 27).Put(900, 12).Put(0, 40);
  const std::string log = Log(Sentence("AIVDM,1,1,,A," + bits.Payload() + ",0"));
  EXPECT_TRUE(Json("targets " + log)["targets"].empty());
  EXPECT_EQ(Json("targets " + log + " --standard")["targets"][0]["dataLines"][3],
            "Heading 090°T@--kn");
}

TEST_F(AisCommands, Events) {
  nlohmann::json events = nlohmann::json::array();
  events.push_back({"12:00:00", kComing});
  events.push_back({"12:00:10", kBoat});
  const auto run = [&](const std::string& words) {
    const std::string file = user_.Write("events.json", events.dump());
    return Json("targets - --events " + words + " <'" + file + "'");
  };
  EXPECT_EQ(run("")["targets"][0]["dataLines"][0], " ");
  EXPECT_EQ(run("--gps-enabled")["targets"][0]["dataLines"][0], "CPA    0.00nm @ 12:18");
  EXPECT_NEAR(run("")["targets"][0]["tcpa"], 0.3, 1e-4);
  // A fix that is void leaves the closest approach as it was.
  events.push_back(
      {"12:00:20", Sentence("GPRMC,120000,V,5000.000,N,00100.000,W,10.0,000.0,051226,,", '$')});
  events.push_back({"12:00:30", Report(235000001, 30060000, -600000, 0, 0)});
  EXPECT_NEAR(run("")["targets"][0]["tcpa"], 0.3, 1e-4);
  const auto broken = [&](const std::string& text) {
    ExpectError("targets - --events <'" + user_.Write("events.json", text) + "'", 1, "events");
  };
  broken("{}"), broken("[[1, 2]]"), broken("[["), broken("[[\"12:00:00\"]]");
  ExpectError("targets - --gps-enabled </dev/null", 2, "--events");
}

TEST_F(AisCommands, ClosestApproach) {
  const nlohmann::json cpa = Json("cpa 0 0 10 0 0 0.1 10 270");
  EXPECT_EQ(Keys(cpa), (std::vector<std::string>{"cpa", "tcpa"}));
  EXPECT_NEAR(cpa["cpa"], 4.24264, 1e-4);
  EXPECT_NEAR(cpa["tcpa"], 0.3, 1e-6);
  EXPECT_EQ(Run("cpa 0 0 10 0 0 0.1 10 270").out, "4.24 nm in 00:18\n");
  EXPECT_EQ(Json("cpa 0 0 10 0 -0.1 0 5 0")["cpa"], -12.0);
  EXPECT_EQ(Run("cpa 0 0 10 0 -0.1 0 5 0").out, "No Closure\n");
  ExpectError("cpa 0 0 10 0 -0.1 0 5 north", 2, "north");
  ExpectError("cpa 0 0 10 0", 2, "");
}

TEST_F(AisCommands, PlotFile) {
  std::string record(64, ' ');
  bytes::PutFloat(record, 0, 50.5F);
  bytes::PutFloat(record, 4, -1.25F);
  record.replace(8, 5, "06:30").replace(13, 10, "5 Dec 2026").replace(29, 5, "Depth");
  const std::string file = user_.Write("mine.trk", record + "tail");
  const Ran ran = Run("--json plot '" + file + "'");
  EXPECT_EQ(ran.json(), nlohmann::json::parse(R"({"records": [{"latitude": 50.5, "longitude": -1.25,
                "time": "06:30", "date": "5 Dec 2026", "comment": "Depth"}]})"));
  EXPECT_NE(ran.err.find("cut short"), std::string::npos);
  EXPECT_EQ(Run("plot '" + file + "'").out, "50.30.00N   001.15.00W  06:30   5 Dec 2026  Depth\n");
  EXPECT_EQ(Run("plot '" + user_.Write("none.trk", "") + "'").out, "no records\n");
  ExpectError("plot nowhere.trk", 1, "nowhere.trk");
}

TEST_F(AisCommands, Upload) {
  std::string points;
  for (const char* name : {"Needles 1", "Needles 2"}) {
    std::string record(43, ' ');
    record.replace(0, 9, name);
    bytes::PutFloat(record, 35, 50.5F);
    bytes::PutFloat(record, 39, points.empty() ? -1.25F : -1.5F);
    points += record;
  }
  const std::string file = "'" + user_.Write("mine.way", points) + "'";
  EXPECT_EQ(Json("upload " + file + " --type 2 --identity numbers"),
            (nlohmann::json{{"sent",
                             {Sentence("GPWPL,5030.00,N,00115.00,W,001", '$') + "\r\n",
                              Sentence("GPWPL,5030.00,N,00130.00,W,002", '$') + "\r\n"}}}));
  const Ran magellan = Run("--json upload " + file + " --type 3");
  EXPECT_EQ(magellan.json()["sent"][0], "\r$PMGNCMD,HANDON*70\n");
  EXPECT_EQ(magellan.json()["sent"][1],
            Sentence("PMGNWPL,5030.00,N,00115.00,W,W,0,NEEDLE,,", '$') + "\r\n");
  EXPECT_NE(magellan.err.find("NEEDLE"), std::string::npos);
  const nlohmann::json route = Json("upload 'Portland Bill.rte' --type 1 --route 12")["sent"];
  EXPECT_EQ(route.back().get<std::string>().substr(0, 16), "$GPRTE,2,2,c,12,");
  EXPECT_EQ(route[0].get<std::string>().substr(0, 7), "$GPWPL,");
  ExpectError("upload '" + user_.Write("none.way", "") + "' --type 2", 1, "Nothing to transfer");
  ExpectError("upload " + file + " --type 8", 2, "8");
  ExpectError("upload " + file + " --type 2 --identity letters", 2, "letters");
}

}  // namespace
}  // namespace skerrow::cli
