#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/folders.h"
#include "core/record.h"

// Tidal diamonds: charted places with a table of the stream for each hour about high water at a
// reference port.
namespace skerrow {

inline constexpr std::size_t kDiamondColumns = 14;
// The column of high water; column 1 is six hours before it, column 13 six hours after.
inline constexpr int kHighWaterColumn = 7;

struct Diamond {
  float chart_no = 0.0F;
  float dia_no = 0.0F;
  float ref_port = 0.0F;  // record number in RefPorts.hc
  float sp_range = 0.0F;  // range of the reference port for the spring rates, metres
  float np_range = 0.0F;  // and for the neap rates
  float latitude = 0.0F;
  float longitude = 0.0F;
  std::array<float, kDiamondColumns> direction{};    // degrees true; column 0 holds no value
  std::array<float, kDiamondColumns> spring_rate{};  // knots
  std::array<float, kDiamondColumns> neap_rate{};    // knots

  // Whether a column runs nowhere at all.
  bool Slack(int column) const {
    const auto c = static_cast<std::size_t>(column);
    return static_cast<float>(static_cast<double>(direction[c]) + spring_rate[c] + neap_rate[c]) ==
           0.0F;
  }
};

inline constexpr std::size_t kDiamondSize = 196;
inline constexpr std::array<RecordField<Diamond>, 10> kDiamondFields = {{
    {0, 4, FieldType::kFloat, "ChartNo", &Diamond::chart_no, "number of the chart"},
    {4, 4, FieldType::kFloat, "DiaNo", &Diamond::dia_no, "number of the diamond on that chart"},
    {8, 4, FieldType::kFloat, "RefPort", &Diamond::ref_port, "record number in RefPorts.hc"},
    {12, 4, FieldType::kFloat, "Sprange", &Diamond::sp_range, "spring range there, metres"},
    {16, 4, FieldType::kFloat, "Nprange", &Diamond::np_range, "neap range there, metres"},
    {20, 4, FieldType::kFloat, "Latitude", &Diamond::latitude, "degrees, north positive"},
    {24, 4, FieldType::kFloat, "Longitude", &Diamond::longitude, "degrees, east positive"},
    {28, 56, FieldType::kFloatArray, "Direction", &Diamond::direction,
     "degrees true towards which the stream runs, columns 0 to 13"},
    {84, 56, FieldType::kFloatArray, "SpringRate", &Diamond::spring_rate,
     "knots at springs, columns 0 to 13"},
    {140, 56, FieldType::kFloatArray, "NeapRate", &Diamond::neap_rate,
     "knots at neaps, columns 0 to 13"},
}};
static_assert(IsPacked(kDiamondFields, kDiamondSize));

// The path of a sea area's diamond file.
std::string DiamondFilePath(const Folders& folders, std::string_view tidal_area);

// The records of a diamond file.
Result<RecordFile<Diamond>> ReadDiamonds(const std::string& path);

// The diamonds that a sea area shows: those above latitude 35 and below 75. This also leaves out an
// all-zero record.
std::vector<Diamond> KeepCharted(const std::vector<Diamond>& records);

// The reference ports that `records` name, each once, in order of first appearance.
std::vector<std::int16_t> FindRefPorts(const std::vector<Diamond>& records);

// "chart number, diamond number", each in its shortest text.
std::string DiamondLabel(const Diamond& diamond);

// The label of a place that no diamond is near enough to.
inline constexpr const char* kNoDiamondLabel = "NONE";

}  // namespace skerrow
