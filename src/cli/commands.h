#pragma once

#include <string>
#include <variant>
#include <vector>

#include "cli/answer.h"
#include "cli/session.h"

// The commands of the command-line program. Each takes what the user typed, as typed, and gives
// its answer or its failure; wrong usage gives exit status 2.
namespace skerrow::cli {

using Outcome = std::variant<Answer, Failure>;

// A failure of the work itself.
Failure Failed(const Error& error);
// Something typed that cannot be understood.
Failure WrongUsage(const Error& error);

Outcome ConfigShow(Session& session);
Outcome ConfigInit(Session& session);
Outcome ConfigSet(Session& session, const std::string& field, const std::string& value);

Outcome ShowPosition(const std::string& latitude, const std::string& longitude);
// `place` holds latitude, longitude, latitude, longitude.
Outcome ShowRange(const std::vector<std::string>& place);
// `words` holds latitude, longitude, bearing, miles.
Outcome ShowMove(const std::vector<std::string>& words);

Outcome ListWaypoints(Session& session, const std::string& file);
Outcome ShowRoute(Session& session, const std::string& file);

Outcome ListCharts(Session& session);
// `convert` is "LAT,LONG" or empty.
Outcome ShowChart(Session& session, const std::string& key, const std::string& convert);
Outcome FindCharts(Session& session, const std::string& latitude, const std::string& longitude);

Outcome ShowConstituents(Session& session, const std::string& date);
Outcome ShowTide(Session& session, const std::string& port, const std::string& date,
                 const std::string& file);
Outcome ShowRefPorts(Session& session, const std::string& date, const std::string& time);
Outcome ShowStream(Session& session, const std::string& latitude, const std::string& longitude,
                   const std::string& date, const std::string& time);
Outcome ShowStreams(Session& session, const std::string& date, const std::string& time);

struct LegWords {
  std::vector<std::string> place;  // latitude, longitude, latitude, longitude
  std::string speed;
  std::string date;
  std::string time;
};
Outcome SolveLeg(Session& session, const LegWords& words);

struct PlanWords {
  std::string file;  // empty takes the sample route
  std::string date;
  std::string time;
  std::string leeway;              // empty takes the setting
  std::vector<std::string> tacks;  // "N=port", "N=starboard"
};
Outcome PlanRoute(Session& session, const PlanWords& words);

struct OptimumWords {
  std::string file;
  std::string date;
  std::string slot;  // 1 to 5
};
Outcome FindDeparture(Session& session, const OptimumWords& words);

}  // namespace skerrow::cli
