// The commands "decode", "track", "comments" and "comment", by the real program.

#include "cli/command_line.h"

namespace skerrow::cli {
namespace {

constexpr const char* kRmc = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A";
constexpr const char* kGll = "$GPGLL,4916.45,N,12311.12,W,225444,A,*1D";
constexpr const char* kAis = "!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C";

class InstrumentCommandLine : public CommandLine {
 protected:
  // "decode" of blocks on standard input.
  nlohmann::json Decode(const std::vector<std::string>& blocks, const std::string& words) {
    const std::string input = user_.Write("blocks.json", nlohmann::json(blocks).dump());
    return Json("decode - --blocks " + words + " <" + input);
  }
};

TEST_F(InstrumentCommandLine, DecodeGivesFixQueueAndWhatWaits) {
  const std::string rmc = kRmc;
  const auto gps =
      Decode({rmc.substr(0, 9), rmc.substr(9) + "\r\n", "$GP\xC3\xA9"}, "--port gps --logging");
  EXPECT_EQ(Keys(gps), (std::vector<std::string>{"fix", "pending", "queue", "sentences", "trace",
                                                 "trackPoints"}));
  EXPECT_EQ(gps["fix"], nlohmann::json::parse(R"({"boatLatitude": 48.1173,
      "boatLongitude": 11.516666, "speedOverGround": 22.4, "courseOverGround": 84.4,
      "fixTime": "123519", "fixDate": "230394", "positionGood": true, "rmcSeen": true,
      "positionText": "48.07.038N  011.31.000E",
      "courseSpeedText": "Heading 084.4°T @ 022.4 Kn", "waypointText": "",
      "hasActiveWaypoint": false})"));
  EXPECT_EQ(gps["trackPoints"], nlohmann::json::parse(R"([{"latitude": 48.1173,
      "longitude": 11.516666, "hour": 12, "minute": 35, "second": 19, "day": 0, "month": 0,
      "year": 0, "speed": 22.4, "course": 84.4}])"));
  EXPECT_EQ(gps["queue"], nlohmann::json::array({rmc}));
  EXPECT_EQ(gps["pending"], nlohmann::json::parse(R"({"gps": "$GPé", "ais": ""})"));
  EXPECT_EQ(gps["trace"], nlohmann::json::parse("[[0.0, 0.0, false], [48.1173, 11.516666, true], "
                                                "[48.1173, 11.516666, true]]"));

  const std::string ais = std::string(kAis) + "\r\n" + kGll + "\r\n!AI";
  EXPECT_EQ(Decode({ais}, "--port ais")["fix"]["positionGood"], false);
  const auto through = Decode({ais}, "--port ais --gps-through-ais --logging --system-date 070326");
  EXPECT_EQ(through["fix"]["fixDate"], "070326");
  EXPECT_EQ(through["queue"], nlohmann::json::array({kAis, kGll}));
  EXPECT_EQ(through["pending"]["ais"], "!AI");
}

TEST_F(InstrumentCommandLine, DecodeReadsLogsInAnyForm) {
  const std::string file = user_.Write("a.nmea", std::string(kGll) + "\n\n" + kRmc + "\r\nx");
  const auto log = Json("decode " + file);
  EXPECT_EQ(log["sentences"].size(), 2U);
  EXPECT_EQ(log["sentences"][1]["sentence"], kRmc);
  EXPECT_EQ(log["sentences"][1]["fix"]["fixTime"], "123519");
  EXPECT_FALSE(log["sentences"][1]["fix"].contains("positionGood"));  // it was good before
  EXPECT_EQ(log["trace"].size(), 1U);
  const std::string wire = user_.Write("wire.nmea", std::string(kRmc) + "\r\n" + kRmc + "\r\n");
  for (const char* words : {"--blocks 1", "--blocks 50 --port gps", "--port gps <"}) {
    const bool input = words[std::string(words).size() - 1] == '<';
    const auto cut =
        Json("decode " + (input ? "- " + std::string(words) + wire : wire + " " + words));
    EXPECT_EQ(cut["fix"], log["fix"]) << words;
    EXPECT_EQ(cut["sentences"].size(), 1U);
  }
  EXPECT_EQ(Json("decode " + wire + " --blocks 50 --port ais --gps-through-ais")["fix"]["rmcSeen"],
            false);  // both sentences are cut
  EXPECT_NE(Run("decode " + wire).out.find("position 48.07.04N 011.31.00E, good\n"),
            std::string::npos);
}

TEST_F(InstrumentCommandLine, CommentsAndTracksComeOutOfLogs) {
  const auto comment =
      Json("comment --lat 50.30.25N --long -1.3375 --date 2026-12-05 --time 06:30 'a, b' '' -5");
  EXPECT_EQ(comment["block"][0], "$PSKLOG,6,1,5030.250,N,00120.250,W,051226,063000*20");
  EXPECT_EQ(comment["block"][1].get<std::string>().substr(0, 16), "$PSKLOG,6,2,a, b");
  EXPECT_EQ(comment["block"].size(), 6U);
  const Ran printed =
      Run("comment --lat 50.30.25N --long -1.3375 --date 051226 --time 063020.50 x");
  const std::string log = user_.Write("c.nmea", printed.out + kRmc);
  EXPECT_EQ(Json("comments " + log)["comments"], nlohmann::json::parse(R"([{
      "latitude": 50.504166, "longitude": -1.3375, "time": "063020.5", "date": "051226",
      "lines": ["x", "", "", "", ""]}])"));
  const auto track = Json("track " + log)["track"];
  ASSERT_EQ(track.size(), 1U);
  EXPECT_EQ(track[0]["minute"], 35);
}

TEST_F(InstrumentCommandLine, RefusalsAreOneLine) {
  const std::string good = user_.Write("a.nmea", kRmc);
  ExpectError("decode", 2, "FILE");
  ExpectError("decode missing.nmea", 1, "does not exist");
  ExpectError("decode " + good + " --blocks 0 --port gps", 2, "blocks");
  ExpectError("decode " + good + " --port com1", 2, "com1");
  ExpectError("decode " + good + " --system-date 310226", 2, "DDMMYY");
  ExpectError("decode - --blocks --port gps <" + good, 1, "JSON array");
  ExpectError("decode - --blocks <" + user_.Write("n.json", "[1]"), 1, "not a text");
  ExpectError("track missing.nmea", 1, "does not exist");
  ExpectError("comments " + user_.path(), 1, "not a file");
  ExpectError("comment --lat 50 --long 1 --date 1,2", 2, "commas");
  ExpectError("comment --lat 50 --long 1 1 2 3 4 5 6", 2, "five lines");
  ExpectError("comment --lat 95 --long 1", 2, "");
}

}  // namespace
}  // namespace skerrow::cli
