#include "ui/forms/set_leg_form.h"

#include <gtest/gtest.h>

#include "support/sample_desk.h"

namespace skerrow::testing {
namespace {

class SetLegFormOnDesk : public SampleDesk {};

const SetLegEntry kGood = {"50.30.00N", "001.50.00W", "50.10.00N", "001.50.00W", "5",
                           false,       false,        false,       "",           "09:00"};

TEST(SetLegForm, RefusesInItsOrderWithItsWords) {
  struct Row {
    const char* what;
    void (*spoil)(SetLegEntry&);
    SetLegRefusal refusal;
    const char* text;
  };
  const Row rows[] = {
      {"start before all", [](SetLegEntry& e) { e = {}; }, SetLegRefusal::kNoStart,
       "No start position."},
      {"destination", [](SetLegEntry& e) { e.end_latitude = e.end_longitude = e.speed = ""; },
       SetLegRefusal::kNoDestination, "No destination."},
      {"speed", [](SetLegEntry& e) { e.speed = "0"; }, SetLegRefusal::kNoSpeed, "Enter boat speed"},
      {"half a knot", [](SetLegEntry& e) { e.speed = "0.5"; }, SetLegRefusal::kSpeedTooLow,
       "Boat below 0.5kn, Cannot continue - please correct."},
      {"wind side", [](SetLegEntry& e) { e.use_leeway = true; }, SetLegRefusal::kNoWindSide,
       "Select windside for Leeway"},
      {"time", [](SetLegEntry& e) { e.time = "0900"; }, SetLegRefusal::kNoTime,
       "Please enter a valid time i.e. 12:35"},
      {"hour", [](SetLegEntry& e) { e.time = "24:00"; }, SetLegRefusal::kTimeOutOfRange,
       "Please enter a valid time"},
  };
  for (const Row& row : rows) {
    RecordingMessages messages;
    SetLegEntry entry = kGood;
    row.spoil(entry);
    const CheckedLeg leg = CheckSetLeg(entry, {165, 2026}, messages);
    EXPECT_EQ(leg.refusal, row.refusal) << row.what;
    EXPECT_EQ(SetLegText(leg.refusal), row.text);
  }
}

TEST(SetLegForm, AsksAboutALowSpeedAndGoesOnWithoutALeeway) {
  RecordingMessages messages;
  SetLegEntry entry = kGood;
  entry.speed = "0.9";
  const char* question =
      "Boat speed very low\nDo you wish to continue?\n(To continue may cause problems)";
  messages.ExpectQuestion(question, false);
  EXPECT_EQ(CheckSetLeg(entry, {165, 2026}, messages).refusal, SetLegRefusal::kDeclined);
  messages.ExpectQuestion(question, true);
  messages.Expect("You have selected to use Leeway but have not entered a value");
  entry.use_leeway = true;
  entry.wind_starboard = true;
  const CheckedLeg leg = CheckSetLeg(entry, {165, 2026}, messages);
  EXPECT_EQ(leg.refusal, SetLegRefusal::kNone);
  EXPECT_FLOAT_EQ(leg.leeway, 0.0F);
}

TEST_F(SetLegFormOnDesk, ReportsTrueCourseInTheLinesAndMagneticHeadingInTheStatus) {
  program.tides.diamonds.clear();  // still water: the course is the bearing
  program.tides.index = std::make_shared<DiamondIndex>();
  program.config.variation = -4.0F;
  SetLegEntry entry = kGood;
  entry.use_leeway = true;
  entry.wind_port = true;
  entry.leeway = "6";
  const CheckedLeg leg = CheckSetLeg(entry, {165, 2026}, messages);
  const SetLegReport report = CalculateSetLeg(program, leg, messages);
  EXPECT_EQ(report.status, " CTS = 178°M");  // 180 + 4 west - 6 on port tack
  EXPECT_EQ(report.lines.front(), "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE");
  EXPECT_EQ(report.lines.at(2), "COURSE TO STEER = 180°T");
  EXPECT_EQ(report.lines.at(3), "14 Jun 2026 @ 09:00");
  EXPECT_EQ(report.lines.at(6), "Range  = 20.0nm");
  EXPECT_EQ(report.lines.at(9), "Time taken 04Hrs 00Min ");
  EXPECT_EQ(program.passage.result_lines, report.lines);
  EXPECT_FALSE(program.passage.route_track.empty());
}

TEST_F(SetLegFormOnDesk, TellsWhichPortHadNoHighWater) {
  TideState& tides = program.tides;
  tides.diamonds.resize(1);
  tides.diamonds[0].latitude = 50.3F;
  tides.diamonds[0].longitude = -1.8F;
  tides.index = std::make_shared<DiamondIndex>(tides.diamonds);
  tides.port_of_diamond = {-1};
  messages.Expect(
      "Part of the passage is calculated without a tidal stream:\n" + NoTideText(tides, {0}),
      MessageIcon::kWarning);
  CalculateSetLeg(program, CheckSetLeg(kGood, {165, 2026}, messages), messages);
  EXPECT_TRUE(messages.AllShown());
}

}  // namespace
}  // namespace skerrow::testing
