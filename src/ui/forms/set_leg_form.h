#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "core/messages.h"
#include "passage/leg.h"

// The single leg between typed positions: its checks, its calculation and its report.
namespace skerrow {

struct SetLegEntry {
  std::string start_latitude;
  std::string start_longitude;
  std::string end_latitude;
  std::string end_longitude;
  std::string speed;  // knots
  bool use_leeway = false;
  bool wind_port = false;
  bool wind_starboard = false;
  std::string leeway;  // degrees
  std::string time;    // of departure, "hh:mm"
};

enum class SetLegRefusal {
  kNone,
  kNoStart,
  kNoDestination,
  kNoSpeed,  // the speed box is set to kSetLegSpeed then
  kSpeedTooLow,
  kDeclined,  // a No to the question about a low speed
  kNoWindSide,
  kNoTime,
  kTimeOutOfRange,
};

inline constexpr std::string_view kSetLegSpeed = "5.0";

// The text shown for a refusal; empty for kNone and kDeclined.
std::string SetLegText(SetLegRefusal refusal);

struct CheckedLeg {
  SetLegRefusal refusal = SetLegRefusal::kNone;
  LegRequest request;
  Tack tack = Tack::kNone;  // of leeway in use
  float leeway = 0.0F;
};

// Checks in the order of SetLegRefusal. A missing leeway is said and counts as 0.
CheckedLeg CheckSetLeg(const SetLegEntry& entry, DayAndYear date, Messages& messages);

// A calculated leg: its report and the status line " CTS = 092°M".
struct SetLegReport {
  std::vector<std::string> lines;
  std::string status;
};

// Solves the leg; its track, streams and report become the last result of the program.
SetLegReport CalculateSetLeg(Program& program, const CheckedLeg& leg, Messages& messages);

}  // namespace skerrow
