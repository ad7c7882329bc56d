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
    LegWind leg;
    leg.wind = request.default_wind;
    if (!request.constant_wind) {
      const std::optional<Wind> found =
          request.wind_at ? request.wind_at(points[i].At(), arrival.date, arrival.hours)
                          : std::nullopt;
      leg.found = found.has_value();
      leg.wind = found.value_or(request.default_wind);
    }
    const std::optional<RouteElement> element =
        CalcRouteElement(polar, leg.wind, way.bearing, request.closest);
    if (!element) {
      winds.outcome = RouteWindOutcome::kNoCell;
      return winds;
    }
    leg.element = *element;
    winds.legs.push_back(leg);
    if (!(leg.element.speed > 0)) {
      winds.outcome = RouteWindOutcome::kBecalmed;
      return winds;
    }
    arrival = AddHours(arrival.date, arrival.hours, way.range / leg.element.speed);
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
  switch (winds.outcome) {
    case RouteWindOutcome::kNoRoute:
      return false;
    case RouteWindOutcome::kNoCell:
      messages.Show(kPolarCellFault, MessageIcon::kWarning);
      return false;
    case RouteWindOutcome::kBecalmed:
      messages.Show("By this polar the boat does not move on leg " +
                        std::to_string(winds.legs.size()) +
                        ", for want of wind. No speed has been changed.",
                    MessageIcon::kWarning);
      return false;
    case RouteWindOutcome::kDone:
      break;
  }
  for (std::size_t i = 0; i < winds.legs.size(); ++i) {
    const LegWind& leg = winds.legs[i];
    points[i].wind_speed = leg.wind.speed_kn;
    points[i].wind_direction = leg.wind.from_deg;
    points[i].speed = leg.element.speed;
    points[i].tack = leg.element.tack;
  }
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
