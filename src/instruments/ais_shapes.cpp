#include "instruments/ais_shapes.h"

#include <cmath>

namespace skerrow {
namespace {

// Places by their distance ahead of the centre and to the right of it.
class Turned {
 public:
  Turned(PixelPoint centre, float course)
      : centre_(centre),
        sine_(std::sin(course * kPi / 180.0)),
        cosine_(std::cos(course * kPi / 180.0)) {}

  PixelPoint At(double ahead, double right) const {
    return {centre_.x + ahead * sine_ + right * cosine_,
            centre_.y - ahead * cosine_ + right * sine_};
  }

 private:
  PixelPoint centre_;
  double sine_;
  double cosine_;
};

}  // namespace

AisClass AisClassOf(const AisTarget& target) {
  switch (target.message_type) {
    case 9:
      return AisClass::kSearchAndRescue;
    case 18:
    case 19:
      return AisClass::kB;
    default:
      return AisClass::kA;
  }
}

AisSymbol AisSymbolOf(const AisTarget& target, bool gps_enabled, float alarm_range,
                      float speed_filter) {
  AisSymbol symbol;
  symbol.ais_class = AisClassOf(target);
  const bool alarm = InCpaAlarm(target, gps_enabled, alarm_range);
  symbol.filled = alarm || symbol.ais_class == AisClass::kSearchAndRescue;
  symbol.drawn =
      alarm || symbol.ais_class != AisClass::kA || target.speed_over_ground >= speed_filter;
  return symbol;
}

std::array<PixelPoint, 7> AisHull(PixelPoint centre, double scale, float course) {
  const Turned hull(centre, course);
  return {centre,
          hull.At(0.0, -scale),
          hull.At(2.0 * scale, -scale),
          hull.At(4.0 * scale, 0.0),
          hull.At(2.0 * scale, scale),
          hull.At(0.0, scale),
          centre};
}

AircraftShape AisAircraft(PixelPoint centre, double scale, float course) {
  const Turned plan(centre, course);
  const auto at = [&](double ahead, double right) { return plan.At(ahead * scale, right * scale); };
  // A slim fuselage of 5 scales, the wing a little ahead of its middle, the tail at its end.
  return {{at(3.0, 0.0), at(2.0, 0.4), at(-2.0, 0.2), at(-2.0, -0.2), at(2.0, -0.4), at(3.0, 0.0)},
          {{{at(3.0, 0.0), at(-2.0, 0.0)},
            {at(0.8, -2.5), at(0.8, 2.5)},
            {at(-2.0, -1.0), at(-2.0, 1.0)}}}};
}

Position AisVectorEnd(const AisTarget& target) {
  return PredictAisPosition(target.At(), 30.0F, target.Way(), target.course_over_ground);
}

std::vector<Position> AisTrackFrom(const AisTarget& target, std::span<const TimedPosition> track) {
  std::vector<Position> places = {target.At()};
  for (const TimedPosition& point : track) places.push_back({point.latitude, point.longitude});
  return places;
}

}  // namespace skerrow
