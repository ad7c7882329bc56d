#include "passage/wind_on_route.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "passage/leg.h"
#include "wind/relative_wind.h"

namespace skerrow {
namespace {

std::int16_t TackOf(const RelativeWind& wind) {
  return static_cast<std::int16_t>(wind.starboard ? Tack::kStarboard : Tack::kPort);
}

// The wind on a leg that begins at `at` at a time, and what the boat makes of it; empty where the
// polar lacks a cell.
std::optional<LegWind> WindOnLeg(Position at, float course, const PolarTable& polar,
                                 const RouteWindRequest& request, const LaterTime& time) {
  LegWind leg;
  leg.wind = request.default_wind;
  if (!request.constant_wind) {
    const std::optional<Wind> found =
        request.wind_at ? request.wind_at(at, time.date, time.hours) : std::nullopt;
    leg.found = found.has_value();
    leg.wind = found.value_or(request.default_wind);
  }
  const auto element = CalcRouteElement(polar, leg.wind, course, request.closest);
  if (!element) return std::nullopt;
  leg.element = *element;
  return leg;
}

// Whether legs got speeds; shows why not. `leg`, from 1, is the one that stood in the way.
bool Sailed(RouteWindOutcome outcome, std::size_t leg, Messages& messages) {
  switch (outcome) {
    case RouteWindOutcome::kDone:
      return true;
    case RouteWindOutcome::kNoRoute:
      break;
    case RouteWindOutcome::kNoCell:
      messages.Show(kPolarCellFault, MessageIcon::kWarning);
      break;
    case RouteWindOutcome::kBecalmed:
      messages.Show("By this polar the boat does not move on leg " + std::to_string(leg) +
                        ", for want of wind. No speed has been changed.",
                    MessageIcon::kWarning);
      break;
  }
  return false;
}

void Give(RoutePoint& point, const LegWind& leg) {
  point.wind_speed = leg.wind.speed_kn;
  point.wind_direction = leg.wind.from_deg;
  point.speed = leg.element.speed;
  point.tack = leg.element.tack;
}

}  // namespace

std::optional<RouteElement> CalcRouteElement(const PolarTable& polar, const Wind& wind,
                                             float course, float closest) {
  const RelativeWind relative = RelativeWindOf(wind.from_deg, course);
  const std::optional<double> speed = polar.Estimate(wind.speed_kn, relative.angle, closest);
  if (!speed) return std::nullopt;
  RouteElement element;
  element.speed_text = FormatFixed(*speed, 1, 1);
  element.speed = static_cast<float>(TextToNumber(element.speed_text));
  element.tack = TackOf(relative);
  return element;
}

RouteWinds WindsOnRoute(const std::vector<RoutePoint>& points, const PolarTable& polar,
                        const RouteWindRequest& request) {
  RouteWinds winds;
  if (points.size() < 2) {
    winds.outcome = RouteWindOutcome::kNoRoute;
    return winds;
  }
  LaterTime arrival{request.date, request.hours, {}};
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const RangeAndBearing way = RangeBearing(points[i].At(), points[i].Next());
    const auto leg = WindOnLeg(points[i].At(), way.bearing, polar, request, arrival);
    if (!leg) {
      winds.outcome = RouteWindOutcome::kNoCell;
      return winds;
    }
    winds.legs.push_back(*leg);
    if (!(leg->element.speed > 0)) {
      winds.outcome = RouteWindOutcome::kBecalmed;
      return winds;
    }
    arrival = AddHours(arrival.date, arrival.hours, way.range / leg->element.speed);
  }
  return winds;
}

bool SetSpeedsByWind(std::vector<RoutePoint>& points, const PolarTable& polar,
                     const RouteWindRequest& request, Messages& messages) {
  const RouteWinds winds = WindsOnRoute(points, polar, request);
  if (std::any_of(winds.legs.begin(), winds.legs.end(),
                  [](const LegWind& leg) { return !leg.found; })) {
    messages.Show(kCoverageDefault, MessageIcon::kWarning);
  }
  if (!Sailed(winds.outcome, winds.legs.size(), messages)) return false;
  for (std::size_t i = 0; i < winds.legs.size(); ++i) Give(points[i], winds.legs[i]);
  return true;
}

bool SetLegSpeedByWind(std::vector<RoutePoint>& points, std::size_t leg, const PolarTable& polar,
                       const RouteWindRequest& request, Messages& messages) {
  if (leg + 1 >= points.size()) return false;
  LaterTime arrival{request.date, request.hours, {}};
  for (std::size_t i = 0; i < leg; ++i) {
    const float range = RangeBearing(points[i].At(), points[i].Next()).range;
    if (points[i].speed > 0.0F) {
      arrival = AddHours(arrival.date, arrival.hours, range / points[i].speed);
    }
  }
  const float course = RangeBearing(points[leg].At(), points[leg].Next()).bearing;
  const auto wind = WindOnLeg(points[leg].At(), course, polar, request, arrival);
  if (wind && !wind->found) messages.Show(kCoverageDefault, MessageIcon::kWarning);
  const RouteWindOutcome outcome = !wind                           ? RouteWindOutcome::kNoCell
                                   : !(wind->element.speed > 0.0F) ? RouteWindOutcome::kBecalmed
                                                                   : RouteWindOutcome::kDone;
  if (!Sailed(outcome, leg + 1, messages)) return false;
  Give(points[leg], *wind);
  return true;
}

void SetTacksByWind(std::vector<RoutePoint>& points, float wind_from) {
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    points[i].tack =
        TackOf(RelativeWindOf(wind_from, RangeBearing(points[i].At(), points[i].Next()).bearing));
  }
}

std::function<DepartureSpeeds(float hour)> SpeedsByDeparture(const std::vector<RoutePoint>& points,
                                                             const PolarTable& polar,
                                                             const RouteWindRequest& request) {
  return [points, &polar, request](float hour) {
    RouteWindRequest at = request;
    at.hours = hour;
    const RouteWinds winds = WindsOnRoute(points, polar, at);
    DepartureSpeeds speeds;
    std::size_t leg = 0;
    const auto trouble = [&speeds, &leg](const std::string& what) {
      speeds.trouble = what + " on leg " + std::to_string(leg);
      return speeds;
    };
    for (const LegWind& wind : winds.legs) {
      ++leg;
      if (!wind.found) return trouble("no forecast wind");
      if (!(wind.element.speed > kLeastLegSpeed)) {
        const float course = RangeBearing(points[leg - 1].At(), points[leg - 1].Next()).bearing;
        const bool ahead = RelativeWindOf(wind.wind.from_deg, course).angle < at.closest;
        return trouble(std::string("too little speed ") + (ahead ? "against the wind " : "") + "(" +
                       wind.element.speed_text + " kn)");
      }
      speeds.legs.push_back(wind.element.speed);
    }
    ++leg;
    if (winds.outcome == RouteWindOutcome::kNoCell) return trouble("no value in the polar");
    if (winds.outcome != RouteWindOutcome::kDone) return trouble("no speed");
    return speeds;
  };
}

}  // namespace skerrow
