#include "ui/forms/results_form.h"

#include "core/numbers.h"
#include "core/position.h"

namespace skerrow {

std::vector<std::string> StreamRows(const PassageState& passage, bool every_reading,
                                    bool with_stream_id) {
  std::vector<std::string> rows = {"Time\tPredicted Position\tStream"};
  if (with_stream_id) rows.front() += "\tTidal Stream ID";
  const std::size_t step = every_reading ? 1 : 3;
  for (std::size_t i = 0; i < passage.route_streams.size(); i += step) {
    const StreamSample& sample = passage.route_streams[i];
    // A reading is taken where its step begins: the track point before the one it leads to.
    const Position place =
        i < passage.route_track.size() ? passage.route_track[i].position : Position{};
    std::string row = HoursToClock(sample.hours) + "\t" + LatToText(place.latitude) + ", " +
                      LongToText(place.longitude) + "\t" + FormatFixed(sample.rate, 1, 1) + "@" +
                      FormatFixed(sample.direction, 3, 0);
    if (with_stream_id) row += "\t" + sample.label;
    rows.push_back(std::move(row));
  }
  return rows;
}

void FinishResults(Program& program, const RouteDefaults& defaults) {
  const PassageState& passage = program.passage;
  if (passage.calc_mode == kCalcModeRoute && !passage.legs.empty() && !defaults.constant_wind &&
      defaults.wind_at) {
    LaterTime arrival{passage.legs.front().start_date, passage.legs.front().start_hours, ""};
    for (RoutePoint& point : program.route.points) {
      if (const std::optional<Wind> wind =
              defaults.wind_at(point.At(), arrival.date, arrival.hours)) {
        point.wind_speed = wind->speed_kn;
        point.wind_direction = wind->from_deg;
      }
      arrival = AddHours(arrival.date, arrival.hours, point.leg_time);
    }
  }
  TimeMoved(program);
}

}  // namespace skerrow
