#include "ui/forms/configure_form.h"

#include <gtest/gtest.h>

#include "support/sample_desk.h"

namespace skerrow::testing {
namespace {

class ConfigureFormOnDesk : public SampleDesk {};

struct Spoiled {
  void (*spoil)(ConfigureEntry&);
  ConfigureRefusal refusal;
  const char* text;
  bool beeps;
};

// In the order of the checks.
const Spoiled kSpoiled[] = {
    {[](ConfigureEntry& e) { e.variation = "4"; }, ConfigureRefusal::kVariation,
     "Enter a valid for Variation", false},
    {[](ConfigureEntry& e) { e.error_circle = " "; }, ConfigureRefusal::kErrorCircleEmpty,
     "Enter a value for Acceptable Calculation Error Distance", true},
    {[](ConfigureEntry& e) { e.boat_speed = "0"; }, ConfigureRefusal::kBoatSpeed,
     "Enter a value for Vessel Speed", true},
    {[](ConfigureEntry& e) { e.closest_sailing_angle = ""; },
     ConfigureRefusal::kClosestSailingAngle, "Enter a value for Closest Sailing Angle", true},
    {[](ConfigureEntry& e) { e.calc_interval = "0.5"; }, ConfigureRefusal::kCalcInterval,
     "Enter a value for Calculation Interval", true},
    {[](ConfigureEntry& e) { e.barb_weight = "0"; }, ConfigureRefusal::kBarbWeight,
     "Barb line width =0 !!", false},
    {[](ConfigureEntry& e) { e.barb_length = ""; }, ConfigureRefusal::kBarbLength,
     "Barb length =0 !!", false},
    {[](ConfigureEntry& e) { e.barb_spacing = "0"; }, ConfigureRefusal::kBarbSpacing,
     "Barb spacing =0 !!", false},
    {[](ConfigureEntry& e) { e.stream_line_width = "0"; }, ConfigureRefusal::kStreamLineWidth,
     "Tidal Stream line width =0 !!", false},
    {[](ConfigureEntry& e) { e.text_size = "0"; }, ConfigureRefusal::kTextSize, "Font Size = 0 !!",
     false},
};

TEST(ConfigureForm, RefusesEachFaultAndTheFirstOfSeveral) {
  const AppConfig before = DefaultConfig("/p");
  ConfigureEntry all_wrong = ConfigureEntryOf(before);
  for (const Spoiled& row : kSpoiled) row.spoil(all_wrong);
  for (const Spoiled& row : kSpoiled) {
    AppConfig config = before;
    EXPECT_EQ(ApplyConfigureEntry(all_wrong, config), row.refusal);
    ConfigureEntry entry = ConfigureEntryOf(before);
    row.spoil(entry);
    EXPECT_EQ(ApplyConfigureEntry(entry, config), row.refusal);
    EXPECT_EQ(EncodeRecord(config, kAppConfigFields), EncodeRecord(before, kAppConfigFields));
    EXPECT_EQ(ConfigureText(row.refusal), row.text);
    EXPECT_EQ(ConfigureBeeps(row.refusal), row.beeps) << row.text;
    // Put this one right again, so that the next is the first.
    const ConfigureEntry good = ConfigureEntryOf(before);
    switch (row.refusal) {
      case ConfigureRefusal::kVariation:
        all_wrong.variation = good.variation;
        break;
      case ConfigureRefusal::kErrorCircleEmpty:
        all_wrong.error_circle = good.error_circle;
        break;
      case ConfigureRefusal::kBoatSpeed:
        all_wrong.boat_speed = good.boat_speed;
        break;
      case ConfigureRefusal::kClosestSailingAngle:
        all_wrong.closest_sailing_angle = good.closest_sailing_angle;
        break;
      case ConfigureRefusal::kCalcInterval:
        all_wrong.calc_interval = good.calc_interval;
        break;
      case ConfigureRefusal::kBarbWeight:
        all_wrong.barb_weight = good.barb_weight;
        break;
      case ConfigureRefusal::kBarbLength:
        all_wrong.barb_length = good.barb_length;
        break;
      case ConfigureRefusal::kBarbSpacing:
        all_wrong.barb_spacing = good.barb_spacing;
        break;
      case ConfigureRefusal::kStreamLineWidth:
        all_wrong.stream_line_width = good.stream_line_width;
        break;
      default:
        break;
    }
  }
  ConfigureEntry entry = ConfigureEntryOf(before);
  entry.error_circle = "0";
  AppConfig config = before;
  EXPECT_EQ(ApplyConfigureEntry(entry, config), ConfigureRefusal::kErrorCircleZero);
  EXPECT_EQ(ConfigureText(ConfigureRefusal::kErrorCircleZero),
            "Enter a value greater than 0 for Acceptable Calculation Error Distance");
}

TEST(ConfigureForm, AnUntouchedDialogChangesOnlyWhatItIsToldTo) {
  AppConfig config = DefaultConfig("/p");
  config.track_colour = 17;
  config.boat_colour = 4711;
  config.reserved11 = 99;
  AppConfig expected = config;
  expected.track_colour = 4711;
  expected.reserved12 = 0;
  ASSERT_EQ(ApplyConfigureEntry(ConfigureEntryOf(config), config), ConfigureRefusal::kNone);
  EXPECT_EQ(EncodeRecord(config, kAppConfigFields), EncodeRecord(expected, kAppConfigFields));
}

TEST(ConfigureForm, ReadsVariationAndRaisesSmallValues) {
  AppConfig config = DefaultConfig("/p");
  EXPECT_EQ(ConfigureEntryOf(config).variation, "4W");
  ConfigureEntry entry = ConfigureEntryOf(config);
  entry.variation = " 2.5E ";
  entry.search_circle = "0";
  entry.line_size = "0";
  entry.use_forecast_wind = true;
  ASSERT_EQ(ApplyConfigureEntry(entry, config), ConfigureRefusal::kNone);
  EXPECT_FLOAT_EQ(config.variation, 2.5F);
  EXPECT_FLOAT_EQ(config.search_circle, 0.01F);
  EXPECT_FLOAT_EQ(config.line_width, 1.0F);
  EXPECT_EQ(config.use_manual_wind, 0);
  EXPECT_EQ(ConfigureEntryOf(config).variation, "2.5E");
}

TEST(ConfigureForm, OffersTheToldChoices) {
  EXPECT_EQ(ThresholdChoices().size(), 19U);
  EXPECT_EQ(ThresholdChoices()[10], "1.0");
  EXPECT_EQ(ThresholdChoices()[11], "1.5");
  EXPECT_EQ(ThresholdChoices().back(), "5.0");
  EXPECT_EQ(TextSizeChoices().size(), 8U);
  EXPECT_EQ(BarbLengthChoices().size(), 9U);
}

TEST_F(ConfigureFormOnDesk, CarriesTheSettingsIntoTheProgram) {
  LoadSample();
  const auto loaded = program.tides.loaded;
  AppConfig config = program.config;
  config.vessel_speed = 7.0F;
  config.use_tides = kFalse;
  config.use_leeway = 1;
  config.summer_time = kTrue;
  ASSERT_TRUE(CommitConfigure(program, config, messages).ok());
  EXPECT_FLOAT_EQ(program.route_speed, 7.0F);
  EXPECT_FLOAT_EQ(program.route.points.back().speed, 7.0F);
  EXPECT_FALSE(VectorsShown(program.config));
  EXPECT_TRUE(program.use_leeway);
  EXPECT_NE(program.tides.loaded, loaded) << "the tides follow summer time";
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program.folders, stored).ok());
  EXPECT_FLOAT_EQ(stored.vessel_speed, 7.0F);
}

}  // namespace
}  // namespace skerrow::testing
