#include "tides/harmonic_streams.h"

#include <cmath>
#include <gtest/gtest.h>

#include "support/recording_messages.h"
#include "support/temp_folder.h"
#include "tides/streams.h"

namespace skerrow {
namespace {

using testing::RecordingMessages;
using testing::TempFolder;

// The station of tests/reference/simplified_tides.py.
HarmonicStation Station() {
  HarmonicStation s;
  s.latitude = 50.5F;
  s.longitude = -1.25F;
  s.name = "9999-51";
  s.x_m2_hm = 2.5F, s.x_m2_g = 110.0F, s.x_s2_hm = 0.8F, s.x_s2_g = 155.0F;
  s.x_k1_hm = 0.12F, s.x_k1_g = 30.0F, s.x_o1_hm = 0.09F, s.x_o1_g = 285.0F;
  s.y_m2_hm = 1.75F, s.y_m2_g = 62.5F, s.y_s2_hm = 0.55F, s.y_s2_g = 118.0F;
  s.y_k1_hm = 0.2F, s.y_k1_g = 301.0F, s.y_o1_hm = 0.07F, s.y_o1_g = 14.0F;
  return s;
}

// A record by its published offsets, apart from the table. `unread` fills what nothing reads.
std::string Record(char unread) {
  std::string bytes(kHarmonicStationSize, unread);
  const auto put = [&](std::size_t at, float value) { bytes::PutFloat(bytes, at, value); };
  put(0, 50.5F), put(4, -1.25F);
  bytes.replace(12, 12, "9999-51     ");
  put(28, 2.5F), put(32, 110.0F), put(44, 0.8F), put(48, 155.0F);
  put(52, 0.12F), put(56, 30.0F), put(60, 0.09F), put(64, 285.0F);
  put(100, 1.75F), put(104, 62.5F), put(116, 0.55F), put(120, 118.0F);
  put(124, 0.2F), put(128, 301.0F), put(132, 0.07F), put(136, 14.0F);
  return bytes;
}

// X, Y, rate and direction worked out by tests/reference/simplified_tides.py.
TEST(HarmonicStreams, AgreeWithAnIndependentCalculation) {
  const struct {
    std::int16_t year, day;
    float hours;
    double x, y, rate, direction;
  } rows[] = {
      {1995, 182, 6.250000F, 2.77259, 1.36744, 3.09146, 63.747},
      {2000, 366, 23.750000F, -0.90913, -1.47308, 1.73104, 211.681},
      {2026, 339, 0.016667F, 1.82075, 1.46943, 2.33973, 51.095},
      {2026, 339, 14.500000F, 1.83267, 0.38964, 1.87364, 77.997},
      {2026, 339, 0.0F, 1.82075, 1.46943, 2.33973, 51.095},  // taken as one minute past
  };
  TideState state;
  state.harmonic_stations = {HarmonicStation{}, Station()};
  for (const auto& row : rows) {
    float hours = row.hours;
    EXPECT_NEAR(CalcStreamComponent(Station(), StreamAxis::kX, row.year, row.day, hours), row.x,
                5e-5);
    EXPECT_NEAR(CalcStreamComponent(Station(), StreamAxis::kY, row.year, row.day, hours), row.y,
                5e-5);
    EXPECT_FLOAT_EQ(hours, row.hours == 0.0F ? 1.0F / 60.0F : row.hours);
    CalcHarmonicStreams(state, row.hours, {row.day, row.year});
    ASSERT_EQ(state.harmonic_streams.size(), 2U);
    const HarmonicStream& stream = state.harmonic_streams[1];
    EXPECT_EQ(stream.name, "9999-51");
    EXPECT_EQ(stream.latitude, 50.5F);
    EXPECT_EQ(stream.longitude, -1.25F);
    EXPECT_NEAR(stream.x, row.x, 5e-5);
    EXPECT_NEAR(stream.y, row.y, 5e-5);
    EXPECT_NEAR(stream.rate, row.rate, 5e-5);
    EXPECT_NEAR(stream.direction, row.direction, 5e-3);
    EXPECT_NEAR(stream.direction_rad, row.direction * std::acos(-1.0) / 180.0, 1e-4);
    EXPECT_EQ(state.harmonic_streams[0].rate, 0.0F);  // all constants zero
    EXPECT_EQ(state.harmonic_streams[0].direction, 0.0F);
  }
}

TEST(HarmonicStations, KeepEveryByteOfARecord) {
  for (const char unread : {'\0', '\x9d', ' ', 'x'}) {
    HarmonicStation station;
    DecodeRecord(Record(unread), kHarmonicStationFields, station);
    float hours = 6.25F;
    EXPECT_NEAR(CalcStreamComponent(station, StreamAxis::kY, 1995, 182, hours), 1.36744, 5e-5);
    EXPECT_NEAR(CalcStreamComponent(station, StreamAxis::kX, 1995, 182, hours), 2.77259, 5e-5);
    EXPECT_EQ(station.name, "9999-51");
    EXPECT_EQ(EncodeRecord(station, kHarmonicStationFields), Record(unread));
  }
}

TEST(HarmonicStations, TellWhatAFileLacks) {
  const TempFolder folder;
  TideState state;
  std::string damaged = Record('x');
  bytes::PutFloat(damaged, 132, std::nanf(""));
  std::string text_in_gap = Record('x');  // what nothing reads may be no number
  bytes::PutFloat(text_in_gap, 8, std::nanf(""));
  const struct {
    std::string content;
    std::size_t stations;
    const char* left_out;  // empty: nothing
  } rows[] = {
      {Record('x') + Record('y') + text_in_gap, 3, ""},
      {Record('x') + Record('y').substr(0, 155), 1,
       "the last record is left out, it is cut short after 155 of 156 bytes"},
      {Record('x') + damaged + Record('y'), 2, "1 damaged record is left out"},
      {damaged + Record('y'), 2, "1 damaged record is left out"},  // the second stays the second
      {"", 0, ""},
  };
  for (const auto& row : rows) {
    RecordingMessages messages;
    const std::string path = folder.Write("Area.l27", row.content);
    if (*row.left_out != '\0') messages.Expect(path + ": " + row.left_out, MessageIcon::kWarning);
    LoadHarmonicStations(state, JoinPath(folder.path(), "Area.l27"), 6.0F, {10, 2026}, messages);
    EXPECT_EQ(state.harmonic_stations.size(), row.stations) << row.left_out;
    EXPECT_EQ(state.harmonic_streams.size(), row.stations) << row.left_out;
    if (row.stations > 0) {
      EXPECT_EQ(state.harmonic_streams.back().name, "9999-51");
    }
  }
  RecordingMessages messages;
  messages.Expect(folder.File("None.l27") + ": the file does not exist");
  state.harmonic_stations = {Station()};
  LoadHarmonicStations(state, JoinPath(folder.path(), "None.l27"), 6.0F, {10, 2026}, messages);
  EXPECT_TRUE(state.harmonic_stations.empty() && state.harmonic_streams.empty());
}

}  // namespace
}  // namespace skerrow
