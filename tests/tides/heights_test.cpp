#include "tides/heights.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "core/text.h"
#include "support/sample_tides.h"

namespace skerrow {
namespace {

using testing::SampleFolders;

const Port* FindByName(const std::vector<Port>& ports, const std::string& name) {
  const auto at = std::find_if(ports.begin(), ports.end(),
                               [&](const Port& port) { return Trim(port.name) == name; });
  return at == ports.end() ? nullptr : &*at;
}

DayAndYear DayOf(const std::string& iso) {
  const int year = std::stoi(iso.substr(0, 4));
  return {DateToDayOfYear(std::stoi(iso.substr(8, 2)), std::stoi(iso.substr(5, 2)), year),
          static_cast<std::int16_t>(year)};
}

// Heights and high waters of one port over a span of days, with the program's own prediction.
struct Agreement {
  double square_sum = 0.0;
  int heights = 0;
  double minutes_sum = 0.0;
  int high_waters = 0;

  void Compare(const Port& port, DayAndYear from, int days, const nlohmann::json& heights_mm,
               const nlohmann::json& high_mm) {
    std::vector<double> own_high;
    for (int d = 0; d < days; ++d) {
      MonthDate date;
      DayOfYearToDate(from.day + d, from.year, date);
      const TideCurve curve = PredictHeights(port, from.day + d, date.month, from.year, false);
      for (int hour = 0; hour < 24; ++hour) {
        const std::size_t at = static_cast<std::size_t>(d * 24 + hour);
        if (at >= heights_mm.size()) break;
        const double error = curve.curve[static_cast<std::size_t>(hour * 6)].height - port.z0 -
                             heights_mm[at].get<double>() / 1000.0;
        square_sum += error * error;
        ++heights;
      }
      for (const Water& water : curve.waters) {
        if (water.high && water.hours < 24.0F) own_high.push_back(d * 1440 + water.hours * 60.0);
      }
    }
    for (const auto& high : high_mm) {
      const double minute = high[0].get<double>();
      double nearest = 1e9;
      for (const double own : own_high) nearest = std::min(nearest, std::fabs(own - minute));
      if (nearest > 180.0) continue;  // beyond the span's ends
      minutes_sum += nearest;
      ++high_waters;
    }
  }
};

// A full harmonic prediction from every constituent of the same stations, made outside this
// program, is what the simplified method is to come near to.
TEST(Heights, ComeNearAFullHarmonicPrediction) {
  std::ifstream file(std::string(SKERROW_SOURCE_DIR) + "/tests/fixtures/tides/harmonic.json");
  const nlohmann::json fixture = nlohmann::json::parse(file);
  const auto area = ReadAreaPorts(SampleFolders(), "UK.hc");
  ASSERT_TRUE(area);
  const std::vector<Port> ports = area->Sound();
  const std::vector<std::string> double_high_waters = {"Southampton", "Portsmouth", "Weymouth",
                                                       "Le Havre"};
  std::vector<double> shares;
  for (const auto& entry : fixture["ports"]) {
    const std::string name = entry["name"];
    const Port* port = FindByName(ports, name);
    ASSERT_NE(port, nullptr) << name;
    Agreement agreement;
    for (std::size_t s = 0; s < fixture["spans"].size(); ++s) {
      agreement.Compare(*port, DayOf(fixture["spans"][s]["start"]), fixture["spans"][s]["days"],
                        entry["heights"][s], entry["highWaters"][s]);
    }
    ASSERT_GT(agreement.heights, 600) << name;
    const double rms = std::sqrt(agreement.square_sum / agreement.heights);
    const double spring_range = 2.0 * (port->m2_hm + port->s2_hm);
    shares.push_back(rms / spring_range);
    EXPECT_LT(rms, 0.065 * spring_range) << name;
    if (std::find(double_high_waters.begin(), double_high_waters.end(), name) !=
        double_high_waters.end()) {
      continue;
    }
    ASSERT_GT(agreement.high_waters, 40) << name;
    EXPECT_LT(agreement.minutes_sum / agreement.high_waters, 14.0) << name;
  }
  ASSERT_GE(shares.size(), 10U);
  std::nth_element(shares.begin(), shares.begin() + static_cast<std::ptrdiff_t>(shares.size() / 2),
                   shares.end());
  EXPECT_LT(shares[shares.size() / 2], 0.026);
}

TEST(Heights, LayersAddUpAndTheDayStartsAtMidnight) {
  const Result<Port> dover = ReadAreaPort(SampleFolders(), "UK.hc", 76);
  ASSERT_TRUE(dover);
  EXPECT_EQ(Trim(dover->name), "Dover");
  const TideCurve curve = PredictHeights(*dover, 339, 12, 2026, false);
  ASSERT_GE(curve.curve.size(), static_cast<std::size_t>(kCurveCount));
  EXPECT_EQ(curve.curve[0].hours, 0.0F);
  EXPECT_EQ(curve.curve[144].hours, 24.0F);
  for (std::size_t i = 0; i < curve.curve.size(); ++i) {
    const double sum = static_cast<double>(curve.layer_m2[i].height) + curve.layer_s2[i].height +
                       curve.layer_k1[i].height + curve.layer_o1[i].height +
                       curve.layer_f4[i].height + curve.layer_f6[i].height +
                       curve.layer_z0[i].height;
    EXPECT_NEAR(curve.curve[i].height, sum, 1e-5);
  }
  // December's row of the seasonal table.
  EXPECT_FLOAT_EQ(curve.mean_level, dover->z0 + dover->delta_z0[11]);
  ASSERT_EQ(curve.waters.size(), 4U);
  for (std::size_t i = 0; i + 1 < curve.waters.size(); ++i) {
    EXPECT_NE(curve.waters[i].high, curve.waters[i + 1].high);
  }
}

TEST(Heights, TakeTheMonthFromTheSameTableEveryYear) {
  Port port;
  port.z0 = 10.0F;
  port.m2_hm = 99.0F;
  for (std::size_t i = 0; i < 12; ++i) {
    port.mhm2[i] = static_cast<float>(i + 1);
    port.delta_z0[i] = static_cast<float>(i + 1) / 10.0F;
  }
  const std::pair<int, int> rows[] = {{0, 1},    {31, 1},   {32, 2},   {59, 2},  {60, 3},
                                      {121, 5},  {152, 6},  {182, 6},  {183, 7}, {304, 10},
                                      {305, 11}, {334, 11}, {335, 12}, {366, 12}};
  for (const auto& [day, month] : rows) {
    EXPECT_EQ(SeasonByDay(port, day).m2_amplitude, static_cast<float>(month)) << day;
  }
  for (const int outside : {-1, 367}) {
    EXPECT_EQ(SeasonByDay(port, outside).m2_amplitude, 99.0F);
    EXPECT_EQ(SeasonByDay(port, outside).mean_level, 10.0F);
  }
}

TEST(Ports, TimeZoneLetters) {
  const std::pair<const char*, int> rows[] = {{"L", 0},   {"K", 1}, {"A", 11}, {"M", -1},
                                              {"W", -11}, {"", 0},  {" ", 0}};
  for (const auto& [letter, hours] : rows) {
    EXPECT_EQ(TimeZoneHours(letter), hours) << letter;
    if (std::string(letter) > " ") {
      EXPECT_EQ(TimeZoneLetter(hours), letter);
    }
  }
  EXPECT_EQ(TimeZoneLetter(12), "L");
  EXPECT_EQ(TimeZoneLetter(-12), "L");
}

TEST(Ports, BothKindsOfRecordShareTheirPlaces) {
  Port port;
  port.number = "123";
  port.name = "Port of thirty-one characters xx";
  port.user_depth = -1.5F;
  port.latitude = 50.25F;
  port.longitude = -1.5F;
  port.time_zone = "K";
  port.mhm2[11] = 7.0F;
  const std::string record = EncodeRecord(port, kPortFields);
  ASSERT_EQ(record.size(), kPortSize);
  EXPECT_EQ(record.substr(5, 31), "Port of thirty-one characters x");
  EXPECT_EQ(bytes::GetFloat(record, 36), -1.5F);
  EXPECT_EQ(bytes::GetFloat(record, 40), 50.25F);
  EXPECT_EQ(record[48], 'K');
  EXPECT_EQ(bytes::GetFloat(record, 193), 7.0F);
  port.name = "A reference port of 35 characters x";
  const std::string reference = EncodeRecord(port, kRefPortFields);
  EXPECT_EQ(reference.substr(5, 35), port.name);
  EXPECT_EQ(reference.substr(40), record.substr(40));
}

}  // namespace
}  // namespace skerrow
