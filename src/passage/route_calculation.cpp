#include "passage/route_calculation.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr const char* kWarningLine =
    "* WARNING * Unable to achieve destination waypoint, examine results before use * WARNING * ";

constexpr const char* kNoStreamLine =
    "* WARNING * Part of the route is calculated without a tidal stream, examine results before "
    "use * WARNING * ";

std::string OneDecimal(float value) { return FormatFixed(value, 1, 1); }
std::string ThreeDigits(float value) { return FormatFixed(value, 3, 0); }

std::string PlaceText(Position place, std::string_view name) {
  return LatToText(place.latitude) + " , " + LongToText(place.longitude) + "   " +
         std::string(name);
}

void ShowUnachieved(std::size_t leg, float closest_approach, Messages& messages) {
  messages.Show("Unable to achieve leg " + std::to_string(leg) +
                    " destination.\nCPA = " + FormatFixed(closest_approach, 1, 2) +
                    "nm\nRoute waypoint modified to last good COG point.\n"
                    "(Caused by boat speed and tidal stream combinations,\n"
                    "modify waypoints, departure time or boat speed.)",
                MessageIcon::kWarning);
}

// The six lines of a leg as they stand in the results.
std::vector<std::string> LegLines(const RoutePoint& point, const LegReport& leg,
                                  const std::string& start_text, const std::string& arrival_text) {
  const RangeAndBearing direct = RangeBearing(leg.start, leg.destination);
  return {"Steer " + ThreeDigits(leg.heading) + "°M\t Time taken=" +
              HoursToDuration(point.leg_time) + " at " + OneDecimal(point.speed) + " kt.",
          "From \t" + PlaceText(leg.start, point.name),
          "To \t" + PlaceText(leg.destination, point.next_name),
          "Starting at " + start_text + " arriving at " + arrival_text,
          "Range and bearing between waypoints : " + OneDecimal(direct.range) + "nm @ " +
              ThreeDigits(direct.bearing) + "°T ",
          "Speed Over Ground = " + OneDecimal(leg.result.speed_over_ground) +
              "kt. Water Track Distance " + OneDecimal(leg.result.track_distance) + "nm."};
}

std::string LeewayLine(const RouteRequest& request, float variation) {
  if (!request.use_leeway || variation == 0.0F) return " ";
  return "(Leeway of " + request.leeway_text + "° and a variation of " +
         ShortText(std::fabs(variation)) + (variation > 0.0F ? "E" : "W") + " applied to all legs)";
}

// One calculation on its way: works on copies, which Finish hands over.
class Calculation {
 public:
  Calculation(const RouteRequest& request, const AppConfig& config, const TideState& tides,
              std::vector<RoutePoint> points, Messages& messages)
      : request_(request),
        config_(config),
        tides_(tides),
        points_(std::move(points)),
        messages_(messages),
        solver_(tides),
        hours_(request.hours),
        date_(request.date),
        start_text_(HoursToClock(request.hours)) {
    date_line_ = "Route calculation for " + DateText(request.date);
    lines_ = {kDerivedDataNotice,
              "   ",
              date_line_,
              "Departing " + start_text_ + ", Passage time = ",
              "Waypoint to waypoint distance = ",
              " ",
              " "};
    if (request.use_leeway) leeway_ = static_cast<float>(TextToNumber(request.leeway_text));
  }

  enum class OnMiss { kRepair, kMarkOnly };

  void SolveLeg(std::size_t i, OnMiss on_miss) {
    RoutePoint& point = points_[i];
    const LegSolution solution = solver_.CalcCourseToSteer(
        {point.At(), point.Next(), point.speed, hours_, date_}, LegSettingsOf(config_));
    if (solution.fault != StreamFault::kNone) fault_ = solution.fault;
    AppendLeg(solution, track_, streams_);
    point.leg_time = solution.result.passage_time;
    if (!solution.achieved) {
      if (on_miss == OnMiss::kRepair) Repair(i, solution.result.closest_approach);
      lines_[1] = kWarningLine;
    }
    point.course_to_steer =
        HeadingToSteer(solution.result.course_to_steer, config_.variation, leeway_,
                       request_.use_leeway ? static_cast<Tack>(point.tack) : Tack::kNone);
    point.steps = solution.result.steps;
    StoreTideVector(point, solution);

    const LaterTime arrival = AddHours(date_, hours_, point.leg_time);
    legs_.push_back({solution.result, solution.achieved, point.course_to_steer, point.At(),
                     point.Next(), hours_, date_, arrival.hours, arrival.date});
    for (std::string& line : LegLines(point, legs_.back(), start_text_, arrival.text)) {
      combo_.push_back(ReplaceAll(line, "\t", ""));
      lines_.push_back(std::move(line));
    }
    if (solution.gaps.steps > 0) {
      lines_.push_back("No tidal stream at " + std::to_string(solution.gaps.steps) + " of " +
                       std::to_string(solution.result.steps) + " steps : " +
                       ReplaceAll(NoTideText(tides_, solution.gaps.diamonds), "\n", ", "));
      if (lines_[1] != kWarningLine) lines_[1] = kNoStreamLine;
      AddDiamonds(solution.gaps.diamonds, no_tide_);
    }
    combo_.emplace_back(" ");
    hours_ = arrival.hours;
    date_ = arrival.date;
    start_text_ = arrival.text;
    total_ += point.leg_time;
  }

  // Hands over the legs, without the head of the report, the history and the ports.
  void FinishRework(RouteState& route, PassageState& passage) {
    lines_.erase(lines_.begin() + 2, lines_.begin() + 7);
    for (RoutePoint& point : points_) point.calculated = true;
    route.points = std::move(points_);
    passage.route_combo_text = date_line_;
    HandOver(passage, RouteLengthOf(route.points));
  }

  void Finish(RouteState& route, PassageState& passage) {
    if (fault_ != StreamFault::kNone) {
      messages_.Show(StreamFaultText("CalculateTidalStreams"), MessageIcon::kWarning);
    }
    ShowNoTide(tides_, no_tide_, messages_);
    for (RoutePoint& point : points_) point.calculated = true;
    route.points = std::move(points_);
    const bool moved = lines_[1] == kWarningLine;
    if (moved) route.track = RouteTrackOf(route.points);
    const float distance = RouteLengthOf(route.points);
    route.distance = distance;
    const float speed = total_ > 0.0F ? distance / total_ : 0.0F;
    lines_[3] =
        "Departing " + HoursToClock(request_.hours) + ", Passage time = " + HoursToDuration(total_);
    lines_[4] = "Route distance = " + OneDecimal(distance) + "nm.";
    lines_[5] = "Effective Speed Over Ground = " + OneDecimal(speed) + "kt.";
    lines_[6] = LeewayLine(request_, config_.variation);
    combo_.insert(combo_.begin(), {lines_[3], lines_[4], lines_[5], " "});
    passage.route_history.insert(passage.route_history.end(), lines_.begin() + 2,
                                 lines_.begin() + 7);
    for (std::string& line : ReferencePortLines(tides_, request_.date)) {
      lines_.push_back(std::move(line));
    }
    passage.route_summary_text = "Route distance = " + OneDecimal(distance) +
                                 "nm.  Time Taken = " + HoursToDuration(total_) +
                                 ",  SOG  = " + OneDecimal(speed) + "kt.";
    passage.route_combo_text = date_line_;
    HandOver(passage, distance);
  }

 private:
  void HandOver(PassageState& passage, float distance) {
    passage.route_track = std::move(track_);
    passage.route_streams = std::move(streams_);
    passage.legs = std::move(legs_);
    passage.result_lines = std::move(lines_);
    passage.route_combo = std::move(combo_);
    passage.route_distance = distance;
    passage.route_hours = total_;
    passage.leeway_text = request_.leeway_text;
    passage.calc_mode = kCalcModeRoute;
  }

  void Repair(std::size_t i, float closest_approach) {
    if (!track_.empty()) {
      const Position end = track_.back().position;
      points_[i].next_latitude = end.latitude;
      points_[i].next_longitude = end.longitude;
      points_[i + 1].latitude = end.latitude;
      points_[i + 1].longitude = end.longitude;
    }
    ShowUnachieved(i + 1, closest_approach, messages_);
  }

  // Entries 1 to `steps` of the drift, as many as a point can hold.
  static void StoreTideVector(RoutePoint& point, const LegSolution& solution) {
    constexpr std::size_t kMaxTideVector = 1000;
    point.tide_vector.clear();
    const std::size_t steps =
        std::min({static_cast<std::size_t>(solution.result.steps), kMaxTideVector,
                  solution.drift.empty() ? 0 : solution.drift.size() - 1});
    for (std::size_t k = 1; k <= steps; ++k) point.tide_vector.push_back(solution.drift[k]);
  }

  const RouteRequest& request_;
  const AppConfig& config_;
  const TideState& tides_;
  std::vector<RoutePoint> points_;
  Messages& messages_;
  LegSolver solver_;
  float hours_;
  DayAndYear date_;
  std::string start_text_;
  std::string date_line_;
  float leeway_ = 0.0F;
  float total_ = 0.0F;
  StreamFault fault_ = StreamFault::kNone;
  std::vector<std::int32_t> no_tide_;  // diamonds
  std::vector<TrackPoint> track_;
  std::vector<StreamSample> streams_;
  std::vector<LegReport> legs_;
  std::vector<std::string> lines_;
  std::vector<std::string> combo_;
};

}  // namespace

void ShowNoTide(const TideState& tides, const std::vector<std::int32_t>& diamonds,
                Messages& messages) {
  if (diamonds.empty()) return;
  messages.Show(
      "Part of the passage is calculated without a tidal stream:\n" + NoTideText(tides, diamonds),
      MessageIcon::kWarning);
}

DepartureTimeRefusal CheckDepartureTime(std::string_view text, float& hours) {
  const std::string trimmed = Trim(text);
  const std::size_t colon = trimmed.find(':');
  if (colon == std::string::npos || trimmed.size() < 4) return DepartureTimeRefusal::kNoTime;
  const double typed_hours = TextToNumber(trimmed.substr(0, colon));
  const double typed_minutes = TextToNumber(trimmed.substr(colon + 1, 2));
  if (typed_hours > 23 || typed_hours < 0 || typed_minutes >= 60 || typed_minutes < 0) {
    return DepartureTimeRefusal::kOutOfRange;
  }
  hours = static_cast<float>(typed_hours + typed_minutes / 60.0);
  return DepartureTimeRefusal::kNone;
}

std::string DepartureTimeText(DepartureTimeRefusal refusal) {
  switch (refusal) {
    case DepartureTimeRefusal::kNone:
      break;
    case DepartureTimeRefusal::kNoTime:
      return "Please enter a valid time i.e. 12:35";
    case DepartureTimeRefusal::kOutOfRange:
      return "Please enter a valid time";
  }
  return "";
}

bool CheckLegSpeeds(const std::vector<RoutePoint>& points, Messages& messages) {
  for (std::size_t i = 1; i <= points.size(); ++i) {
    const float speed = points[i - 1].speed;
    const std::string between =
        "between waypoints " + std::to_string(i) + " and " + std::to_string(i + 1);
    if (!(speed > kLeastLegSpeed)) {
      messages.Show("Boat speed below 0.5kn " + between + "\nCannot continue - please correct.",
                    MessageIcon::kWarning);
      return false;
    }
    if (speed < 1.0F && !messages.Ask("Boat speed very low " + between +
                                      "\nDo you wish to continue?\n(This may cause problems)")) {
      return false;
    }
  }
  return true;
}

RouteOutcome CalculateRoute(const RouteRequest& request, const AppConfig& config,
                            const TideState& tides, RouteState& route, PassageState& passage,
                            Messages& messages, Progress& progress) {
  if (route.points.size() < 2) return RouteOutcome::kNoRoute;
  if (!CheckLegSpeeds(route.points, messages)) return RouteOutcome::kRefused;
  if (request.use_leeway && Trim(request.leeway_text).empty()) {
    messages.Show("You have selected to use leeway but there is no value entered",
                  MessageIcon::kWarning);
  }
  if (!progress.Step(5)) return RouteOutcome::kCancelled;
  Calculation calculation(request, config, tides, route.points, messages);
  const std::size_t last = route.points.size();
  for (std::size_t i = 1; i < last; ++i) {
    if (!progress.Step(100.0 * static_cast<double>(i) / static_cast<double>(last) - 1)) {
      return RouteOutcome::kCancelled;
    }
    calculation.SolveLeg(i - 1, Calculation::OnMiss::kRepair);
  }
  calculation.Finish(route, passage);
  progress.Step(100);
  return RouteOutcome::kDone;
}

RouteOutcome ReworkRoute(const RouteRequest& request, const AppConfig& config,
                         const TideState& tides, RouteState& route, PassageState& passage,
                         Progress& progress) {
  if (route.points.size() < 2) return RouteOutcome::kNoRoute;
  NoMessages messages;
  Calculation calculation(request, config, tides, route.points, messages);
  const std::size_t last = route.points.size();
  for (std::size_t i = 1; i < last; ++i) {
    if (!progress.Step(100.0 * static_cast<double>(i) / static_cast<double>(last))) {
      return RouteOutcome::kCancelled;
    }
    calculation.SolveLeg(i - 1, Calculation::OnMiss::kMarkOnly);
  }
  calculation.FinishRework(route, passage);
  return RouteOutcome::kDone;
}

std::vector<std::string> ReferencePortLines(const TideState& tides, DayAndYear date) {
  std::vector<std::string> lines = {" ", "Reference Port predictions for the areas Tidal Diamonds ",
                                    " "};
  TideDays days = tides.days;
  const std::shared_ptr<const DayTides> day = days.Get(date);
  for (std::size_t p = 0; p < day->ports.size() && p < tides.ref_port_names.size(); ++p) {
    if (!day->ports[p].known) continue;
    lines.push_back("Port Name " + tides.ref_port_names[p]);
    for (const Water& water : day->ports[p].waters) {
      lines.push_back(HoursToClock(water.hours) + "\t" + FormatFixed(water.height, 1, 1));
    }
    lines.emplace_back(" ");
  }
  return lines;
}

}  // namespace skerrow
