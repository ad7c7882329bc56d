#include "instruments/upload.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "instruments/sentences.h"

namespace skerrow {
namespace {

using testing::Sentence;

constexpr UploadOptions kGarminNames{2, UploadIdentity::kNames};
constexpr UploadOptions kMagellanNames{3, UploadIdentity::kNames};
constexpr UploadOptions kOtherNames{1, UploadIdentity::kNames};
constexpr UploadOptions kNumbers{2, UploadIdentity::kNumbers};

std::string Sent(const std::string& body) { return Sentence(body, '$') + "\r\n"; }

std::string Name(const std::string& name, const UploadOptions& options) {
  return IdentityOf({name, {}}, 7, options);
}

TEST(Upload, Identities) {
  for (const UploadOptions& options : {kGarminNames, kMagellanNames}) {
    EXPECT_EQ(Name("Needles", options), "NEEDLE");
    EXPECT_EQ(Name("  St. Ann's (N-E)_x ", options), "ST.ANN");
    EXPECT_EQ(Name("a'b-c_d(e)f g", options), "ABCDEF");
    EXPECT_EQ(Name("E2", options), "E2");
  }
  EXPECT_EQ(Name("Needles Fairway (N)", kOtherNames), "Needles Fairway (N)");
  // What would break the sentence goes, and a name of which nothing is left is its number.
  EXPECT_EQ(Name("A,B*C$\r\n", kGarminNames), "ABC");
  EXPECT_EQ(Name("A,B*C!\\^~\x7F", kOtherNames), "ABC");
  EXPECT_EQ(Name("\u00cele d'Yeu", kOtherNames), "le d'Yeu");
  EXPECT_EQ(Name("(-)", kGarminNames), "007");
  EXPECT_EQ(Name("", kOtherNames), "007");
  EXPECT_EQ(Name("Needles", kNumbers), "007");
  EXPECT_EQ(IdentityOf({}, 42, kNumbers), "042");
  EXPECT_EQ(IdentityOf({}, 421, kNumbers), "421");
  EXPECT_EQ(IdentityOf({}, 4210, kNumbers), "4210");
}

TEST(Upload, PositionFields) {
  EXPECT_EQ(UploadPositionFields({50.504166F, -1.09F}), "5030.25,N,00105.40,W");
  EXPECT_EQ(UploadPositionFields({-0.05F, 0.0F}), "0003.00,S,00000.00,E");
  EXPECT_EQ(UploadPositionFields({5.001F, 120.75F}), "0500.06,N,12045.00,E");
}

TEST(Upload, Waypoints) {
  const UploadPoint points[] = {{"Needles", {50.504166F, -1.09F}}, {"Hurst", {50.7F, -1.55F}}};
  const std::string place = "5030.25,N,00105.40,W";
  EXPECT_EQ(WaypointSentence(points[0], 1, kGarminNames), Sent("GPWPL," + place + ",NEEDLE"));
  EXPECT_EQ(WaypointSentence(points[0], 1, kOtherNames), Sent("GPWPL," + place + ",Needles"));
  EXPECT_EQ(WaypointSentence(points[0], 1, kMagellanNames),
            Sent("PMGNWPL," + place + ",W,0,NEEDLE,,"));
  EXPECT_EQ(WaypointSentence(points[0], 7, kNumbers), Sent("GPWPL," + place + ",007"));
  const auto steps = UploadWaypoints(points, kNumbers);
  ASSERT_EQ(steps.size(), 2U);
  EXPECT_EQ(steps[1].text, Sent("GPWPL,5042.00,N,00133.00,W,002"));
  EXPECT_EQ(steps[1].record, 2U);
  EXPECT_EQ(steps[1].pause_ms, kWaypointPause);
  EXPECT_TRUE(UploadWaypoints({}, kNumbers).empty());
}

TEST(Upload, OnlyAMagellanShakesHands) {
  const auto opening = UploadOpening(kMagellanNames);
  ASSERT_EQ(opening.size(), 1U);
  EXPECT_EQ(opening[0].text, "\r$PMGNCMD,HANDON*70\n");
  EXPECT_TRUE(UploadOpening(kGarminNames).empty());
  EXPECT_TRUE(UploadOpening(kOtherNames).empty());
}

TEST(Upload, Routes) {
  std::vector<UploadPoint> points;
  for (int i = 1; i <= 7; ++i) points.push_back({"P" + std::to_string(i), {50, -1}});
  const auto steps = UploadRoute(points, "HOME", kGarminNames);
  ASSERT_EQ(steps.size(), 9U);
  EXPECT_EQ(steps[6].text, Sent("GPWPL,5000.00,N,00100.00,W,P7"));
  EXPECT_EQ(steps[7].text, Sent("GPRTE,2,1,c,HOME,P1,P2,P3,P4,P5,P6"));
  EXPECT_EQ(steps[8].text, Sent("GPRTE,2,2,c,HOME,P7"));
  EXPECT_EQ(steps[8].pause_ms, 500);
  EXPECT_EQ(steps[8].record, 0U);
  EXPECT_EQ(RouteSentences(std::vector<std::string>{"001"}, " A*1,"),
            std::vector<std::string>{Sent("GPRTE,1,1,c,A1,001")});
  EXPECT_TRUE(RouteSentences({}, "HOME").empty());
}

TEST(Upload, SentencesOfLongNamesFitTheirLine) {
  std::vector<std::string> identities;
  for (int i = 0; i < 40; ++i) {
    identities.push_back(std::string(1 + static_cast<std::size_t>(i * 7 % 35), 'N'));
  }
  for (const std::string route : {"", "HOME", "A ROUTE OF A RATHER LONG NAME"}) {
    std::size_t sent = 0;
    std::string next;
    const auto sentences = RouteSentences(identities, route);
    for (std::size_t i = 0; i < sentences.size(); ++i) {
      const std::string& sentence = sentences[i];
      const std::string head = "$GPRTE," + std::to_string(sentences.size()) + "," +
                               std::to_string(i + 1) + ",c," + route + ",";
      ASSERT_EQ(sentence.substr(0, head.size()), head);
      const std::string list = sentence.substr(head.size(), sentence.find('*') - head.size());
      const auto count = static_cast<std::size_t>(std::count(list.begin(), list.end(), ',')) + 1;
      EXPECT_LE(count, 6U);
      EXPECT_LE(list.size(), 65U);
      EXPECT_TRUE(count == 1 || sentence.size() <= 82U) << sentence;
      std::string expected = identities[sent];
      for (std::size_t k = 1; k < count; ++k) expected += "," + identities[sent + k];
      EXPECT_EQ(list, expected);
      sent += count;
    }
    EXPECT_EQ(sent, identities.size());
  }
}

TEST(Upload, IdentitiesThatSeveralPlacesShare) {
  const UploadPoint points[] = {
      {"Needles 1", {50, -1}}, {"Needles 2", {51, -1}}, {"Hurst", {52, -1}}, {"Hurst", {52, -1}}};
  EXPECT_EQ(SharedIdentities(points, kGarminNames), std::vector<std::string>{"NEEDLE"});
  EXPECT_TRUE(SharedIdentities(points, kOtherNames).empty());
  EXPECT_TRUE(SharedIdentities(points, kNumbers).empty());
}

}  // namespace
}  // namespace skerrow
