#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "core/folders.h"
#include "core/record.h"
#include "tides/constituents.h"

// Tidal streams from harmonic constants: stations whose eastward (X) and northward (Y) components
// are each predicted like a height of the tide, without a level and without shallow water terms.
namespace skerrow {

struct TideState;

// A station, with the fields that nothing reads carried along byte for byte.
struct HarmonicStation {
  float latitude = 0.0F;
  float longitude = 0.0F;
  std::string head;  // not read
  std::string name;
  std::string x_head;  // not read
  float x_m2_hm = 0.0F, x_m2_g = 0.0F;
  std::string x_middle;  // not read
  float x_s2_hm = 0.0F, x_s2_g = 0.0F;
  float x_k1_hm = 0.0F, x_k1_g = 0.0F;
  float x_o1_hm = 0.0F, x_o1_g = 0.0F;
  std::string x_tail;  // not read
  std::string y_name;  // not read
  std::string y_head;  // not read
  float y_m2_hm = 0.0F, y_m2_g = 0.0F;
  std::string y_middle;  // not read
  float y_s2_hm = 0.0F, y_s2_g = 0.0F;
  float y_k1_hm = 0.0F, y_k1_g = 0.0F;
  float y_o1_hm = 0.0F, y_o1_g = 0.0F;
  std::string y_tail;  // not read
};

inline constexpr std::size_t kHarmonicStationSize = 156;
// The amplitude stands before the phase lag here, the other way round from a port's record.
inline constexpr std::array<RecordField<HarmonicStation>, 27> kHarmonicStationFields = {{
    {0, 4, FieldType::kFloat, "Latitude", &HarmonicStation::latitude, "degrees, north positive"},
    {4, 4, FieldType::kFloat, "Longitude", &HarmonicStation::longitude, "degrees, east positive"},
    {8, 4, FieldType::kRawText, "Head", &HarmonicStation::head, "carried along"},
    {12, 12, FieldType::kText, "Name", &HarmonicStation::name, "reference of the X component"},
    {24, 4, FieldType::kRawText, "HeadX", &HarmonicStation::x_head, "carried along"},
    {28, 4, FieldType::kFloat, "M2hmX", &HarmonicStation::x_m2_hm, "amplitude of M2, X, knots"},
    {32, 4, FieldType::kFloat, "M2gX", &HarmonicStation::x_m2_g, "phase lag of M2, X, degrees"},
    {36, 8, FieldType::kRawText, "MiddleX", &HarmonicStation::x_middle, "carried along"},
    {44, 4, FieldType::kFloat, "S2hmX", &HarmonicStation::x_s2_hm, "amplitude of S2, X, knots"},
    {48, 4, FieldType::kFloat, "S2gX", &HarmonicStation::x_s2_g, "phase lag of S2, X, degrees"},
    {52, 4, FieldType::kFloat, "K1hmX", &HarmonicStation::x_k1_hm, "amplitude of K1, X, knots"},
    {56, 4, FieldType::kFloat, "K1gX", &HarmonicStation::x_k1_g, "phase lag of K1, X, degrees"},
    {60, 4, FieldType::kFloat, "O1hmX", &HarmonicStation::x_o1_hm, "amplitude of O1, X, knots"},
    {64, 4, FieldType::kFloat, "O1gX", &HarmonicStation::x_o1_g, "phase lag of O1, X, degrees"},
    {68, 16, FieldType::kRawText, "TailX", &HarmonicStation::x_tail, "carried along"},
    {84, 12, FieldType::kRawText, "NameY", &HarmonicStation::y_name,
     "reference of the Y component; carried along"},
    {96, 4, FieldType::kRawText, "HeadY", &HarmonicStation::y_head, "carried along"},
    {100, 4, FieldType::kFloat, "M2hmY", &HarmonicStation::y_m2_hm, "amplitude of M2, Y, knots"},
    {104, 4, FieldType::kFloat, "M2gY", &HarmonicStation::y_m2_g, "phase lag of M2, Y, degrees"},
    {108, 8, FieldType::kRawText, "MiddleY", &HarmonicStation::y_middle, "carried along"},
    {116, 4, FieldType::kFloat, "S2hmY", &HarmonicStation::y_s2_hm, "amplitude of S2, Y, knots"},
    {120, 4, FieldType::kFloat, "S2gY", &HarmonicStation::y_s2_g, "phase lag of S2, Y, degrees"},
    {124, 4, FieldType::kFloat, "K1hmY", &HarmonicStation::y_k1_hm, "amplitude of K1, Y, knots"},
    {128, 4, FieldType::kFloat, "K1gY", &HarmonicStation::y_k1_g, "phase lag of K1, Y, degrees"},
    {132, 4, FieldType::kFloat, "O1hmY", &HarmonicStation::y_o1_hm, "amplitude of O1, Y, knots"},
    {136, 4, FieldType::kFloat, "O1gY", &HarmonicStation::y_o1_g, "phase lag of O1, Y, degrees"},
    {140, 16, FieldType::kRawText, "TailY", &HarmonicStation::y_tail, "carried along"},
}};
static_assert(IsPacked(kHarmonicStationFields, kHarmonicStationSize));

// The stream at one station for the time last calculated.
struct HarmonicStream {
  std::string name;
  float latitude = 0.0F;
  float longitude = 0.0F;
  float x = 0.0F;              // eastward, knots
  float y = 0.0F;              // northward, knots
  float direction = 0.0F;      // degrees true towards which it runs
  float rate = 0.0F;           // knots
  float direction_rad = 0.0F;  // the direction in radians
};

enum class StreamAxis { kX, kY };

// The path of a sea area's station file.
std::string HarmonicStationPath(const Folders& folders, std::string_view tidal_area);

// Replaces the stations by those of the file at `path` and calculates their streams for a time. A
// file that cannot be read leaves none, and a message says so; whole records are read of one that
// is cut short or damaged, and a message tells what is left out. A first record that is damaged
// leaves an empty station in its place, since the chart does not show the first one. Gives whether
// the file could be read.
bool LoadHarmonicStations(TideState& state, const std::string& path, float hours, DayAndYear date,
                          Messages& messages);

// Recomputes the streams of all stations for a time of a day. The time of the program stays as it
// is: at midnight the streams are those of a minute past, and the clock still shows 00:00.
void CalcHarmonicStreams(TideState& state, float hours, DayAndYear date);

// One component at `hours` of a day, knots, in standard time. Hours of exactly 0 are taken as one
// minute past, and become that for the caller.
float CalcStreamComponent(const HarmonicStation& station, StreamAxis axis, int year, int day,
                          float& hours);

}  // namespace skerrow
