#include "app/boat_ahead.h"

#include <algorithm>
#include <cmath>

#include "app/reception.h"
#include "core/calendar.h"
#include "core/plane_sailing.h"

namespace skerrow {
namespace {

constexpr double kMostStep = 10.0;       // minutes
constexpr float kMostInterval = 720.0F;  // minutes
constexpr double kMinutesPerHour = 60.0;

// The stream at a place and time in knots east and north; none where nothing is known of one.
EastNorth StreamAt(StreamReader& reader, bool use_tides, Position at, float hours,
                   DayAndYear date) {
  if (!use_tides) return {};
  StreamReading reading;
  if (reader.CalculateTidalStreams(at, hours, date, reading) != StreamFault::kNone) return {};
  return Resolve(reading.direction, reading.rate);
}

}  // namespace

std::vector<Position> PredictBoatAhead(const Program& program) {
  const float interval = program.config.ahead_interval;
  const std::optional<Motion> boat = BoatMotion(program);
  if (!boat || program.config.boat_future_tide_plot == 0 || !(interval > 0.0F) ||
      interval > kMostInterval) {
    return {};
  }
  const bool use_tides = program.config.use_tides != 0;
  StreamReader reader(program.tides);
  const ClockReading clock = program.clock->Now();
  DayAndYear date = clock.Day();
  float hours = clock.Hours();
  const EastNorth ground = Resolve(boat->course, boat->speed);
  const EastNorth now = StreamAt(reader, use_tides, boat->position, hours, date);
  const EastNorth water{ground.east - now.east, ground.north - now.north};  // knots

  const int steps = std::max(1, static_cast<int>(std::ceil(interval / kMostStep)));
  const float step = interval / static_cast<float>(kMinutesPerHour) / static_cast<float>(steps);
  std::vector<Position> ahead = {boat->position};
  Position at = boat->position;
  while (ahead.size() < kMostBoatAhead) {
    for (int i = 0; i < steps; ++i) {
      const EastNorth stream = StreamAt(reader, use_tides, at, hours, date);
      at =
          MoveByMiles(at, {(water.east + stream.east) * step, (water.north + stream.north) * step});
      const LaterTime later = AddHours(date, hours, step);
      date = later.date;
      hours = later.hours;
    }
    ahead.push_back(at);
  }
  return ahead;
}

}  // namespace skerrow
