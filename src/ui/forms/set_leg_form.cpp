#include "ui/forms/set_leg_form.h"

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"
#include "passage/route_calculation.h"

namespace skerrow {
namespace {

std::string ThreeDigits(float value) { return FormatFixed(value, 3, 0); }
std::string OneDecimal(float value) { return FormatFixed(value, 1, 1); }

SetLegRefusal CheckSpeed(float speed, Messages& messages) {
  if (speed == 0.0F) return SetLegRefusal::kNoSpeed;
  if (!(speed > 0.5F)) return SetLegRefusal::kSpeedTooLow;
  if (speed < 1.0F && !messages.Ask("Boat speed very low\nDo you wish to continue?\n"
                                    "(To continue may cause problems)")) {
    return SetLegRefusal::kDeclined;
  }
  return SetLegRefusal::kNone;
}

std::string PlaceText(Position place) {
  return LatToText(place.latitude) + " , " + LongToText(place.longitude);
}

}  // namespace

std::string SetLegText(SetLegRefusal refusal) {
  switch (refusal) {
    case SetLegRefusal::kNone:
    case SetLegRefusal::kDeclined:
      break;
    case SetLegRefusal::kNoStart:
      return "No start position.";
    case SetLegRefusal::kNoDestination:
      return "No destination.";
    case SetLegRefusal::kNoSpeed:
      return "Enter boat speed";
    case SetLegRefusal::kSpeedTooLow:
      return "Boat below 0.5kn, Cannot continue - please correct.";
    case SetLegRefusal::kNoWindSide:
      return "Select windside for Leeway";
    case SetLegRefusal::kNoTime:
      return DepartureTimeText(DepartureTimeRefusal::kNoTime);
    case SetLegRefusal::kTimeOutOfRange:
      return DepartureTimeText(DepartureTimeRefusal::kOutOfRange);
  }
  return "";
}

CheckedLeg CheckSetLeg(const SetLegEntry& entry, DayAndYear date, Messages& messages) {
  CheckedLeg leg;
  LegRequest& request = leg.request;
  request.start = {TextToLat(entry.start_latitude), TextToLong(entry.start_longitude)};
  request.destination = {TextToLat(entry.end_latitude), TextToLong(entry.end_longitude)};
  request.speed = static_cast<float>(TextToNumber(entry.speed));
  request.date = date;
  const auto refuse = [&leg](SetLegRefusal refusal) {
    leg.refusal = refusal;
    return leg;
  };
  if (request.start.latitude + request.start.longitude == 0.0F) {
    return refuse(SetLegRefusal::kNoStart);
  }
  if (request.destination.latitude + request.destination.longitude == 0.0F) {
    return refuse(SetLegRefusal::kNoDestination);
  }
  leg.refusal = CheckSpeed(request.speed, messages);
  if (leg.refusal != SetLegRefusal::kNone) return leg;
  if (entry.use_leeway) {
    if (!entry.wind_port && !entry.wind_starboard) return refuse(SetLegRefusal::kNoWindSide);
    leg.tack = entry.wind_port ? Tack::kPort : Tack::kStarboard;
    leg.leeway = static_cast<float>(TextToNumber(entry.leeway));
    if (Trim(entry.leeway).empty()) {
      messages.Show("You have selected to use Leeway but have not entered a value",
                    MessageIcon::kWarning);
    }
  }
  switch (CheckDepartureTime(entry.time, request.hours)) {
    case DepartureTimeRefusal::kNone:
      break;
    case DepartureTimeRefusal::kNoTime:
      return refuse(SetLegRefusal::kNoTime);
    case DepartureTimeRefusal::kOutOfRange:
      return refuse(SetLegRefusal::kTimeOutOfRange);
  }
  return leg;
}

SetLegReport CalculateSetLeg(Program& program, const CheckedLeg& leg, Messages& messages) {
  const LegRequest& request = leg.request;
  LegSolver solver(program.tides);
  const LegSolution solution = solver.CalcCourseToSteer(request, LegSettingsOf(program.config));
  if (solution.fault != StreamFault::kNone) {
    messages.Show(StreamFaultText("CalculateTidalStreams"), MessageIcon::kWarning);
  }
  ShowNoTide(program.tides, solution.gaps.diamonds, messages);
  const LegResult& result = solution.result;
  const RangeAndBearing direct = RangeBearing(request.start, request.destination);
  const std::string course = ThreeDigits(result.course_to_steer) + "°T";
  SetLegReport report;
  report.lines = {kDerivedDataNotice,
                  " ",
                  "COURSE TO STEER = " + course,
                  DateText(request.date) + " @ " + HoursToClock(request.hours),
                  "From\t" + PlaceText(request.start),
                  "To\t" + PlaceText(request.destination),
                  "Range  = " + OneDecimal(direct.range) + "nm",
                  "Speed = " + OneDecimal(request.speed) + "kt",
                  "Bearing  = " + ThreeDigits(direct.bearing) + "°T",
                  "Time taken " + HoursToDuration(result.passage_time),
                  "Course Over Ground " + OneDecimal(result.track_distance) + "nm",
                  "Course to steer " + course};
  if (!solution.achieved) {
    report.lines[1] = "* WARNING * The destination is not reached: closest approach " +
                      FormatFixed(result.closest_approach, 1, 2) + "nm";
  }
  report.status = " CTS = " +
                  ThreeDigits(HeadingToSteer(result.course_to_steer, program.config.variation,
                                             leg.leeway, leg.tack)) +
                  "°M";
  PassageState& passage = program.passage;
  ForgetCalculation(program);
  AppendLeg(solution, passage.route_track, passage.route_streams);
  passage.result_lines = report.lines;
  return report;
}

}  // namespace skerrow
