#include "app/wind_work.h"

namespace skerrow {

void WindMoved(Program& program, Messages& messages) {
  if (program.config.use_manual_wind != 0) {
    for (RoutePoint& point : program.route.points) {
      point.wind_speed = program.working_wind.speed_kn;
      point.wind_direction = program.working_wind.from_deg;
    }
  }
  RecomputeWinds(program.route, RouteDefaultsOf(program), messages);
}

Status EnterWind(Program& program, const Wind& wind, Messages& messages) {
  program.wind_config.SetDefault(wind);
  program.working_wind = program.wind_config.Default();
  if (program.config.use_manual_wind != 0) WindMoved(program, messages);
  return SaveWindConfig(program.folders, program.wind_config);
}

Status UseEnteredWind(Program& program, bool entered, Messages& messages) {
  Status saved = ReloadThenSave(program.folders, program.config, [entered](AppConfig& config) {
    config.use_manual_wind = Bool16(entered);
  });
  WindMoved(program, messages);
  return saved;
}

}  // namespace skerrow
