#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/folders.h"
#include "core/record.h"

// Tidal ports: the harmonic constants of a port, one record of a ".hc" file.
namespace skerrow {

struct Port {
  std::string number;  // as entered; look-ups go by the record's position
  std::string name;
  float user_depth = 0.0F;  // metres; area files only
  float latitude = 0.0F;    // degrees, north positive
  float longitude = 0.0F;   // degrees, east positive
  std::string time_zone = "L";
  float z0 = 0.0F;  // mean level above chart datum, metres
  float m2_g = 0.0F, m2_hm = 0.0F;
  float s2_g = 0.0F, s2_hm = 0.0F;
  float k1_g = 0.0F, k1_hm = 0.0F;
  float o1_g = 0.0F, o1_hm = 0.0F;
  float sf4 = 0.0F, lf4 = 0.0F;
  float sf6 = 0.0F, lf6 = 0.0F;
  std::array<float, 12> delta_z0{};
  std::array<float, 12> mhm2{};
};

inline constexpr std::size_t kPortSize = 197;
inline constexpr std::size_t kPortFieldCount = 21;

namespace port_fields {

using F = RecordField<Port>;
constexpr FieldType kF = FieldType::kFloat;

// The fields from the latitude on, which both kinds of file share.
inline constexpr std::array<F, 18> kShared = {{
    {40, 4, kF, "Latitude", &Port::latitude, "degrees, north positive"},
    {44, 4, kF, "Longitude", &Port::longitude, "degrees, east positive"},
    {48, 1, FieldType::kText, "TimeZone", &Port::time_zone, "letter of the time zone, L for none"},
    {49, 4, kF, "Z0", &Port::z0, "mean level above chart datum, metres"},
    {53, 4, kF, "M2g", &Port::m2_g, "phase lag of M2, degrees"},
    {57, 4, kF, "M2hm", &Port::m2_hm, "amplitude of M2, metres"},
    {61, 4, kF, "S2g", &Port::s2_g, "phase lag of S2, degrees"},
    {65, 4, kF, "S2hm", &Port::s2_hm, "amplitude of S2, metres"},
    {69, 4, kF, "K1g", &Port::k1_g, "phase lag of K1, degrees"},
    {73, 4, kF, "K1hm", &Port::k1_hm, "amplitude of K1, metres"},
    {77, 4, kF, "O1g", &Port::o1_g, "phase lag of O1, degrees"},
    {81, 4, kF, "O1hm", &Port::o1_hm, "amplitude of O1, metres"},
    {85, 4, kF, "sf4", &Port::sf4, "phase of the quarter-diurnal correction, degrees"},
    {89, 4, kF, "lf4", &Port::lf4, "factor of the quarter-diurnal correction"},
    {93, 4, kF, "sf6", &Port::sf6, "phase of the sixth-diurnal correction, degrees"},
    {97, 4, kF, "lf6", &Port::lf6, "factor of the sixth-diurnal correction"},
    {101, 48, FieldType::kFloatArray, "DeltaZ0", &Port::delta_z0,
     "seasonal change of Z0, metres, January to December"},
    {149, 48, FieldType::kFloatArray, "MHm2", &Port::mhm2,
     "amplitude of M2 by month, metres, January to December"},
}};

inline constexpr F kNumber = {
    0, 5, FieldType::kText, "PortNo", &Port::number, "the port's number as entered"};

template <std::size_t N>
constexpr std::array<F, N + kShared.size()> WithShared(const std::array<F, N>& head) {
  std::array<F, N + kShared.size()> all{};
  for (std::size_t i = 0; i < N; ++i) all[i] = head[i];
  for (std::size_t i = 0; i < kShared.size(); ++i) all[N + i] = kShared[i];
  return all;
}

}  // namespace port_fields

// A record of an area file.
inline constexpr auto kPortFields = port_fields::WithShared<3>(
    {{port_fields::kNumber,
      {5, 31, FieldType::kText, "PortName", &Port::name, "name of the port"},
      {36, 4, FieldType::kFloat, "UserDepth", &Port::user_depth, "the user's depth, metres"}}});
static_assert(IsPacked(kPortFields, kPortSize));

// A record of RefPorts.hc, whose name runs on to the latitude.
inline constexpr auto kRefPortFields = port_fields::WithShared<2>(
    {{port_fields::kNumber,
      {5, 35, FieldType::kText, "PortName", &Port::name, "name of the port"}}});
static_assert(IsPacked(kRefPortFields, kPortSize));

// Whole hours of a time zone letter: "L" 0, "K" 1 .. "A" 11, "M" -1 .. "W" -11. Empty gives 0.
int TimeZoneHours(std::string_view letter);

// The letter of a number of whole hours; "L" outside -11 .. 11.
std::string TimeZoneLetter(int hours);

// Where an area file (of the tidal data) is read.
std::string AreaPortFile(const Folders& folders, std::string_view file_name);

// All ports of an area file.
Result<RecordFile<Port>> ReadAreaPorts(const Folders& folders, std::string_view file_name);

// The port at 1-based `position` of an area file. Errors: there is none, or its record is damaged.
Result<Port> ReadAreaPort(const Folders& folders, std::string_view file_name, int position);

// All reference ports.
Result<RecordFile<Port>> ReadRefPorts(const Folders& folders);

// What the chart shows of a tidal port.
struct PortMarker {
  std::string name;
  float latitude = 0.0F;
  float longitude = 0.0F;
};

// The port marks of an area file; empty when it cannot be read. Broken records are left out, and a
// message says so.
std::vector<PortMarker> LoadPortMarkers(const Folders& folders, std::string_view file_name,
                                        Messages& messages);

}  // namespace skerrow
