#include "passage/optimum.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <limits>
#include <mutex>
#include <thread>

#include "core/numbers.h"
#include "routes/route_rows.h"

namespace skerrow {
namespace {

constexpr const char* kRule = "=========================================";

// One departure tried, or left out.
struct Departure {
  std::string trouble;  // why it is left out; empty: it has been tried
  float total_hours = 0.0F;
  float ground_distance = 0.0F;
  float arrival_hours = 0.0F;
  DayAndYear arrival_date;
  float water_distance = 0.0F;
  std::vector<std::int16_t> steps;
  StreamFault fault = StreamFault::kNone;
  std::vector<std::int32_t> no_tide;  // diamonds
};

Departure TryDeparture(LegSolver& solver, const std::vector<RoutePoint>& points,
                       const std::vector<float>& speeds, bool by_leg, int hour, DayAndYear date,
                       const LegSettings& settings) {
  Departure departure;
  departure.arrival_hours = static_cast<float>(hour);
  departure.arrival_date = date;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const RoutePoint& point = points[i];
    const LegResult leg = solver.CalcResultOnly(
        {point.At(), point.Next(), speeds[i], departure.arrival_hours, departure.arrival_date},
        settings);
    if (solver.fault() != StreamFault::kNone) departure.fault = solver.fault();
    AddDiamonds(solver.gaps().diamonds, departure.no_tide);
    departure.ground_distance += leg.track_distance;
    departure.total_hours += leg.passage_time;
    departure.water_distance += leg.passage_time * speeds[i];
    departure.steps.push_back(leg.steps);
    const LaterTime arrival =
        AddHours(departure.arrival_date, departure.arrival_hours, leg.passage_time);
    departure.arrival_hours = arrival.hours;
    departure.arrival_date = arrival.date;
  }
  // The route's own speeds are mostly one, and the last leg's stands for all.
  if (!by_leg) departure.water_distance = departure.total_hours * speeds.back();
  return departure;
}

// The speeds for each departure of a slot: those of the request, or the route's.
std::vector<DepartureSpeeds> SpeedsOf(const OptimumRequest& request,
                                      const std::vector<RoutePoint>& points) {
  DepartureSpeeds own;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) own.legs.push_back(points[i].speed);
  std::vector<DepartureSpeeds> speeds;
  for (int hour = request.slot.first_hour; hour <= request.slot.last_hour; ++hour) {
    speeds.push_back(request.speeds_at ? request.speeds_at(static_cast<float>(hour)) : own);
    DepartureSpeeds& given = speeds.back();
    if (given.trouble.empty() && given.legs.size() != own.legs.size()) {
      given.trouble = "no speed for each leg";
    }
  }
  return speeds;
}

// All departures of a slot, worked off by several threads with a solver each. Empty when the user
// cancelled.
std::vector<Departure> TryAll(const OptimumRequest& request, const TideState& tides,
                              const std::vector<RoutePoint>& points,
                              const std::vector<DepartureSpeeds>& speeds,
                              const LegSettings& settings, Progress& progress) {
  const auto count = static_cast<std::size_t>(request.slot.last_hour - request.slot.first_hour) + 1;
  std::vector<Departure> departures(count);
  std::atomic<std::size_t> next{0};
  std::atomic<bool> stop{false};
  std::mutex mutex;
  std::condition_variable changed;
  std::size_t finished = 0;
  const auto work = [&](LegSolver& solver) {
    for (std::size_t i = next++; i < count && !stop; i = next++) {
      if (speeds[i].trouble.empty()) {
        departures[i] =
            TryDeparture(solver, points, speeds[i].legs, request.speeds_at != nullptr,
                         request.slot.first_hour + static_cast<int>(i), request.date, settings);
      } else {
        departures[i].trouble = speeds[i].trouble;
        departures[i].total_hours = std::numeric_limits<float>::quiet_NaN();
      }
      const std::lock_guard lock(mutex);
      ++finished;
      changed.notify_one();
    }
  };
  const unsigned wanted =
      request.threads == 0 ? std::max(1U, std::thread::hardware_concurrency()) : request.threads;
  // Each solver takes its own view of the days here, on the caller's thread: the events that a step
  // of the progress serves may load another day meanwhile.
  std::vector<LegSolver> solvers(std::min<std::size_t>(wanted, count), LegSolver(tides));
  std::vector<std::jthread> threads;
  threads.reserve(solvers.size());
  for (LegSolver& solver : solvers) threads.emplace_back(work, std::ref(solver));
  std::size_t done = 0;
  while (done < count && !stop) {
    {
      std::unique_lock lock(mutex);
      changed.wait_for(lock, std::chrono::milliseconds(50), [&] { return finished > done; });
      done = finished;
    }
    if (!progress.Step(static_cast<double>(done) * 100.0 / static_cast<double>(count))) stop = true;
  }
  threads.clear();
  return stop ? std::vector<Departure>() : departures;
}

// A clock text with the date behind it when it is not the day of departure.
std::string ArrivalText(const Departure& departure, DayAndYear from) {
  const LaterTime arrival = AddHours(departure.arrival_date, departure.arrival_hours, 0.0F);
  MonthDate date;
  if (arrival.date == from || !DayOfYearToDate(arrival.date.day, arrival.date.year, date)) {
    return arrival.text;
  }
  return arrival.text + " (" + std::to_string(date.day_of_month) + " " + date.month_name + ")";
}

std::string TableLine(const Departure& departure, int hour, DayAndYear date, float distance) {
  if (!departure.trouble.empty()) {
    return HoursToClock(static_cast<float>(hour)) + "\t-\t-\t-\t-\t-";
  }
  const float total = departure.total_hours;
  const float speed = total > 0.0F ? distance / total : 0.0F;
  return HoursToClock(static_cast<float>(hour)) + "\t" + ArrivalText(departure, date) + "\t" +
         HoursToDuration(total) + "\t" + FormatFixed(speed, 1, 2) + "kt.\t" +
         FormatFixed(departure.ground_distance, 1, 2) + "nm.\t" +
         FormatFixed(departure.water_distance, 1, 1) + "nm.";
}

}  // namespace

RouteOutcome SearchDeparture(const OptimumRequest& request, const AppConfig& config,
                             TideState& tides, RouteState& route, PassageState& passage,
                             Messages& messages, Progress& progress) {
  if (route.points.size() < 2) return RouteOutcome::kNoRoute;
  if (!CheckLegSpeeds(route.points, messages)) {
    // A search that is refused has no result, and the one before stands no more.
    passage.optimum_times.clear();
    passage.optimum_speeds.clear();
    passage.calc_mode = 0;
    return RouteOutcome::kRefused;
  }
  if (!progress.Step(5)) return RouteOutcome::kCancelled;
  const std::vector<DepartureSpeeds> speeds = SpeedsOf(request, route.points);
  if (std::all_of(speeds.begin(), speeds.end(),
                  [](const DepartureSpeeds& given) { return !given.trouble.empty(); })) {
    messages.Show("No departure of this slot can be sailed: at " +
                      HoursToClock(static_cast<float>(request.slot.first_hour)) + " there is " +
                      speeds.front().trouble,
                  MessageIcon::kWarning);
    return RouteOutcome::kRefused;
  }
  // Built before the threads start, so that all share it.
  (void)tides.days.Get(request.date);
  const std::vector<Departure> departures =
      TryAll(request, tides, route.points, speeds, LegSettingsOf(config), progress);
  if (departures.empty()) return RouteOutcome::kCancelled;

  const float distance = RouteLengthOf(route.points);
  const std::string title = "Optimum Departure for " + DateText(request.date);
  std::vector<std::string> lines = {
      kDerivedDataNotice, "   ", title, request.speeds_from.empty() ? " " : request.speeds_from,
      "Depart\tArrive\tTime Taken\tEffective Speed\tGround Distance\tWater Distance"};
  passage.route_history.push_back(title);
  passage.optimum_times.clear();
  passage.optimum_speeds.clear();
  if (request.speeds_at) {
    for (const DepartureSpeeds& given : speeds) passage.optimum_speeds.push_back(given.legs);
  }
  passage.optimum_start_hour = static_cast<float>(request.slot.first_hour);
  bool fault = false;
  std::vector<std::int32_t> no_tide;
  int hour = request.slot.first_hour;
  for (const Departure& departure : departures) {
    fault = fault || departure.fault != StreamFault::kNone;
    AddDiamonds(departure.no_tide, no_tide);
    passage.optimum_times.push_back(departure.total_hours);
    const std::string line = TableLine(departure, hour, request.date, distance);
    lines.emplace_back(" ");
    lines.push_back(line);
    passage.route_history.push_back(line);
    if (!departure.trouble.empty()) {
      lines.push_back(HoursToClock(static_cast<float>(hour)) + " is left out: there is " +
                      departure.trouble);
      passage.route_history.push_back(lines.back());
    }
    for (std::size_t i = 0; i < departure.steps.size(); ++i) {
      route.points[i].steps = departure.steps[i];
    }
    ++hour;
  }
  passage.route_history.emplace_back(" ");
  lines.insert(lines.end(), {" ", " ", kRule, " ",
                             "Route Details - Distance = " + FormatFixed(distance, 1, 1) + "nm.",
                             request.speeds_from.empty()
                                 ? " "
                                 : "The search went by the speeds of the wind in place of these:"});
  for (std::string& line : RouteRows(route)) lines.push_back(std::move(line));
  lines.insert(lines.end(), {" ", kRule});
  for (std::string& line : ReferencePortLines(tides, request.date))
    lines.push_back(std::move(line));
  if (fault) {
    messages.Show(StreamFaultText("CalculateTidalStreams"), MessageIcon::kWarning);
  }
  ShowNoTide(tides, no_tide, messages);
  passage.result_lines = std::move(lines);
  passage.route_distance = distance;
  DropTrack(passage);
  return RouteOutcome::kDone;
}

OptimumExtremes ExtremesOf(const std::vector<float>& times) {
  OptimumExtremes extremes;
  float longest = -9999.0F;
  float shortest = 9999.0F;
  for (std::size_t i = 0; i < times.size(); ++i) {
    if (times[i] > longest) {
      longest = times[i];
      extremes.longest = i;
    }
    if (times[i] < shortest) {
      shortest = times[i];
      extremes.shortest = i;
    }
  }
  return extremes;
}

}  // namespace skerrow
