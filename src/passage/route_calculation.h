#pragma once

#include <string>
#include <vector>

#include "core/config.h"
#include "core/messages.h"
#include "core/progress.h"
#include "passage/passage_state.h"
#include "routes/route.h"
#include "tides/streams.h"

// The calculation of a whole route, leg by leg, each departing when the one before arrives.
namespace skerrow {

inline constexpr const char* kDerivedDataNotice =
    "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE";

// Why a typed time of departure is refused.
enum class DepartureTimeRefusal { kNone, kNoTime, kOutOfRange };

// The time of a text "hh:mm" in decimal hours. Legal: "09:05", "9:05", "23:59". Refused as no time:
// "0905", "9:5", "". Refused as out of range: "24:00", "12:60", "-1:00".
DepartureTimeRefusal CheckDepartureTime(std::string_view text, float& hours);

// The words of a refusal; empty for none.
std::string DepartureTimeText(DepartureTimeRefusal refusal);

// No leg is calculated with this speed or less, knots.
inline constexpr float kLeastLegSpeed = 0.5F;

// Checks the speed of every point, the last one too: 0.5 knots or less is refused with a message,
// under 1.0 asks. False when the calculation is not to go on.
bool CheckLegSpeeds(const std::vector<RoutePoint>& points, Messages& messages);

struct RouteRequest {
  float hours = 0.0F;  // departure, hours of the day
  DayAndYear date;
  bool use_leeway = false;
  std::string leeway_text;  // degrees, as typed
};

enum class RouteOutcome { kDone, kNoRoute, kRefused, kCancelled };

// Shows once, for a calculation, why the diamonds it met gave no stream; nothing for none.
void ShowNoTide(const TideState& tides, const std::vector<std::int32_t>& diamonds,
                Messages& messages);

// Calculates the route. A leg that cannot be achieved moves its destination, and the next leg's
// start, to where its track ended, with a message and a warning line. A leg with steps whose stream
// is not known for want of a high water has one line more, and a message names the ports. Whatever
// is refused or cancelled leaves route and results as they were.
RouteOutcome CalculateRoute(const RouteRequest& request, const AppConfig& config,
                            const TideState& tides, RouteState& route, PassageState& passage,
                            Messages& messages, Progress& progress);

// Solves each leg of a calculated route anew from another time, as the roll of the tides does. The
// route is not repaired: a leg that cannot be achieved marks the report, which has the lines of the
// legs alone. Cancelled: everything as it was.
RouteOutcome ReworkRoute(const RouteRequest& request, const AppConfig& config,
                         const TideState& tides, RouteState& route, PassageState& passage,
                         Progress& progress);

// The high and low waters of a day at the reference ports, as they end every report.
std::vector<std::string> ReferencePortLines(const TideState& tides, DayAndYear date);

}  // namespace skerrow
