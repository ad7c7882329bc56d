#include "ui/forms/true_app_wind_form.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"
#include "ui/plot/plot.h"
#include "wind/polar.h"
#include "wind/relative_wind.h"

namespace skerrow {
namespace {

constexpr double kMostWind = 200.0;  // knots
// A wind that shows as 0.0 knots has no direction to tell.
constexpr double kCalm = 0.05;

// A box with its words and bounds.
struct BoxLook {
  const char* what;
  double most;
  bool speed;
};
constexpr std::array<BoxLook, kWindBoxes> kLooks = {{
    {"the boat's speed", kFastestBoat, true},
    {"the boat's course", 360.0, false},
    {"the speed of the true wind", kMostWind, true},
    {"the direction of the true wind", 360.0, false},
    {"the angle of the true wind", 180.0, false},
    {"the speed of the apparent wind", kMostWind, true},
    {"the direction of the apparent wind", 360.0, false},
    {"the angle of the apparent wind", 180.0, false},
}};

// The boxes of one wind.
struct WindBoxes {
  WindBox speed, from, angle;
};
constexpr WindBoxes kTrueBoxes{WindBox::kTrueSpeed, WindBox::kTrueFrom, WindBox::kTrueAngle};
constexpr WindBoxes kApparentBoxes{WindBox::kApparentSpeed, WindBox::kApparentFrom,
                                   WindBox::kApparentAngle};

bool IsTrue(WindBox box) {
  return box == WindBox::kTrueSpeed || box == WindBox::kTrueFrom || box == WindBox::kTrueAngle;
}
bool IsAngle(WindBox box) { return box == WindBox::kTrueAngle || box == WindBox::kApparentAngle; }
bool IsFrom(WindBox box) { return box == WindBox::kTrueFrom || box == WindBox::kApparentFrom; }

// A whole text as a number within a box's bounds.
std::optional<double> NumberIn(std::string_view text, const BoxLook& look) {
  const std::string trimmed = Trim(text);
  double value = 0.0;
  const auto [end, fault] = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), value);
  if (fault != std::errc() || end != trimmed.data() + trimmed.size()) return std::nullopt;
  if (!(value >= 0.0 && value <= look.most)) return std::nullopt;
  return value;
}

std::string DirectionText(double degrees) {
  return FormatFixed(static_cast<double>(RoundToInteger(degrees) % 360), 3, 0);
}

double Around(double degrees) {
  const double turned = std::fmod(degrees, 360.0);
  return turned < 0.0 ? turned + 360.0 : turned;
}

}  // namespace

TrueAppWindForm::TrueAppWindForm(const Program& program) {
  double speed = program.route_speed;
  double course = 0.0;
  if (program.nmea.fix.position_good) {
    speed = program.nmea.fix.speed_over_ground;
    course = program.nmea.fix.course_over_ground;
  } else if (program.route.points.size() >= 2) {
    const RoutePoint& first = program.route.points.front();
    course = RangeBearing(first.At(), first.Next()).bearing;
  }
  Put(WindBox::kBoatSpeed, std::clamp(speed, 0.0, kFastestBoat));
  Put(WindBox::kCourse, Around(course));
  Put(WindBox::kTrueSpeed,
      std::clamp(static_cast<double>(program.working_wind.speed_kn), 0.0, kMostWind));
  Put(WindBox::kTrueFrom, Around(program.working_wind.from_deg));
  WorkOut();
}

void TrueAppWindForm::Put(WindBox box, double value) {
  const BoxLook& look = kLooks[Index(box)];
  values_[Index(box)] = value;
  texts_[Index(box)] = look.speed     ? FormatFixed(value, 1, 1)
                       : IsAngle(box) ? FormatFixed(value, 1, 0)
                                      : DirectionText(value);
}

void TrueAppWindForm::Empty(WindBox box) {
  values_[Index(box)] = std::nullopt;
  texts_[Index(box)].clear();
}

void TrueAppWindForm::Edit(WindBox box, std::string_view text) {
  texts_[Index(box)] = text;
  values_[Index(box)] = NumberIn(text, kLooks[Index(box)]);
  if (box != WindBox::kBoatSpeed && box != WindBox::kCourse) {
    // An instrument on the boat tells an apparent wind by its angle, a forecast a true one by its
    // direction; so these stay when only a speed has been typed.
    if (true_given_ != IsTrue(box)) angle_given_ = !IsTrue(box);
    true_given_ = IsTrue(box);
    if (IsAngle(box)) angle_given_ = true;
    if (IsFrom(box)) angle_given_ = false;
  }
  WorkOut();
}

void TrueAppWindForm::SetStarboard(bool starboard) {
  starboard_ = starboard;
  angle_given_ = true;
  WorkOut();
}

std::string TrueAppWindForm::TroubleOf(WindBox box) const {
  const BoxLook& look = kLooks[Index(box)];
  if (Trim(texts_[Index(box)]).empty()) return std::string("Enter ") + look.what;
  return std::string("Check ") + look.what + ": from 0 to " + FormatFixed(look.most, 1, 0) +
         (look.speed ? " knots" : " degrees");
}

void TrueAppWindForm::WorkOut() {
  const WindBoxes& given = true_given_ ? kTrueBoxes : kApparentBoxes;
  const WindBoxes& other = true_given_ ? kApparentBoxes : kTrueBoxes;
  const WindBox held = angle_given_ ? given.angle : given.from;
  const WindBox follows = angle_given_ ? given.from : given.angle;
  trouble_.clear();
  for (const WindBox box : {WindBox::kBoatSpeed, WindBox::kCourse, given.speed, held}) {
    // No wind has no direction, and needs none.
    const bool calm =
        box == held && values_[Index(given.speed)] == 0.0 && texts_[Index(held)] == "";
    if (!values_[Index(box)] && !calm && trouble_.empty()) trouble_ = TroubleOf(box);
  }
  if (!trouble_.empty()) {
    for (const WindBox box : {follows, other.speed, other.from, other.angle}) Empty(box);
    return;
  }
  const bool calm = !values_[Index(held)];
  if (calm) {
    Empty(follows);
  } else if (angle_given_) {
    Put(follows, Around(Value(WindBox::kCourse) + (starboard_ ? 1 : -1) * Value(held)));
  } else {
    const RelativeWind relative = RelativeWindOf(Value(held), Value(WindBox::kCourse));
    // Dead ahead and dead astern are neither side; the choice stays.
    if (relative.angle > 0.0 && relative.angle < 180.0) starboard_ = relative.starboard;
    Put(follows, relative.angle);
  }
  WorkOutOther(calm);
}

void TrueAppWindForm::WorkOutOther(bool calm) {
  const WindBoxes& given = true_given_ ? kTrueBoxes : kApparentBoxes;
  const WindBoxes& other = true_given_ ? kApparentBoxes : kTrueBoxes;
  const WindOnBow wind{Value(given.speed), calm ? 0.0 : Value(given.angle)};
  const double boat = Value(WindBox::kBoatSpeed);
  const WindOnBow found = true_given_ ? ApparentWind(wind, boat) : TrueWind(wind, boat);
  Put(other.speed, found.speed);
  if (found.speed < kCalm) {
    Empty(other.from);
    Empty(other.angle);
    return;
  }
  Put(other.angle, found.angle);
  Put(other.from, Around(Value(WindBox::kCourse) + (starboard_ ? 1 : -1) * found.angle));
}

std::string TrueAppWindForm::ForceOf(WindBox speed) const {
  const std::optional<double>& value = values_[Index(speed)];
  if (!value) return "";
  const int force = BeaufortForce(*value);
  return force == 0 ? "Calm" : "Force " + std::to_string(force);
}

std::optional<WindTriangle> TrueAppWindForm::Triangle() const {
  if (!trouble_.empty()) return std::nullopt;
  return WindTriangle{Value(WindBox::kBoatSpeed), Value(WindBox::kTrueSpeed),
                      values_[Index(WindBox::kTrueAngle)].value_or(0.0), starboard_};
}

namespace {

constexpr std::int32_t kTrueColour = 0xA85F1A;
constexpr std::int32_t kApparentColour = 0x2A2AB4;
constexpr std::int32_t kBoatColour = 0x3C7A2E;
constexpr std::int32_t kHullColour = 0xE2DAD2;

// An arrow of the picture, in knots: x to starboard, y aft. `opposite` is the triangle's third
// corner.
struct WindArrow {
  SurfacePoint from, to, opposite;
  std::int32_t colour;
  const char* name;
  int side;  // of the label where the three lie on one line: 1 to the right
};

double SpeedOf(const WindArrow& arrow) {
  return std::hypot(arrow.to.x - arrow.from.x, arrow.to.y - arrow.from.y);
}

SurfacePoint MiddleOf(const WindArrow& arrow) {
  return {(arrow.from.x + arrow.to.x) / 2, (arrow.from.y + arrow.to.y) / 2};
}

// The unit vector across an arrow, away from the triangle.
SurfacePoint OutwardOf(const WindArrow& arrow) {
  const double length = SpeedOf(arrow);
  const SurfacePoint across{(arrow.to.y - arrow.from.y) / length,
                            (arrow.from.x - arrow.to.x) / length};
  const SurfacePoint middle = MiddleOf(arrow);
  const double away =
      across.x * (middle.x - arrow.opposite.x) + across.y * (middle.y - arrow.opposite.y);
  const double sign = std::abs(away) > kCalm ? away : across.x * arrow.side;
  return sign < 0.0 ? SurfacePoint{-across.x, -across.y} : across;
}

// A hull with its bow up.
void DrawHull(DrawingSurface& surface, SurfacePoint at) {
  constexpr std::array<SurfacePoint, 9> kHull = {
      {{0, -26}, {5, -17}, {8, -7}, {9, 4}, {7, 20}, {-7, 20}, {-9, 4}, {-8, -7}, {-5, -17}}};
  std::array<SurfacePoint, kHull.size()> points = kHull;
  for (SurfacePoint& point : points) point = {at.x + point.x, at.y + point.y};
  surface.SetPen(1, plot_colours::kFrame);
  surface.SetFill(kHullColour);
  surface.Polygon(points);
  surface.SetFill(std::nullopt);
}

// The name and speed of an arrow beside its middle `at`, clear of it and within the picture.
void DrawLabel(DrawingSurface& surface, SurfacePoint at, const WindArrow& arrow) {
  constexpr double kOff = 8.0;
  constexpr double kEdge = 4.0;
  TextStyle style;
  style.size_pt = 10;
  style.halo = plot_colours::kPaper;
  style.align_x = AlignX::kCentre;
  style.align_y = AlignY::kMiddle;
  const std::string text =
      std::string(arrow.name) + " " + FormatFixed(SpeedOf(arrow), 1, 1) + " kn";
  const SurfaceRect extent = surface.TextExtent(text, style);
  const SurfacePoint outward = OutwardOf(arrow);
  const double off =
      kOff + std::abs(outward.x) * extent.width / 2 + std::abs(outward.y) * extent.height / 2;
  const SurfaceRect bounds = surface.Bounds();
  const auto within = [](double place, double room, double extent_there) {
    const double least = kEdge + extent_there / 2;
    return std::clamp(place, least, std::max(least, room - least));
  };
  surface.Text({within(at.x + off * outward.x, bounds.width, extent.width),
                within(at.y + off * outward.y, bounds.height, extent.height)},
               text, arrow.colour, style);
}

}  // namespace

void DrawWindTriangle(DrawingSurface& surface, const std::optional<WindTriangle>& winds) {
  constexpr double kMarginY = 36.0;
  const SurfaceRect bounds = surface.Bounds();
  // A label has room beside the outermost arrow.
  const double margin_x = std::min(108.0, 0.35 * bounds.width);
  const std::array<SurfacePoint, 4> corners = {
      {{0, 0}, {bounds.width, 0}, {bounds.width, bounds.height}, {0, bounds.height}}};
  surface.SetPen(1, plot_colours::kFrame);
  surface.SetFill(plot_colours::kPaper);
  surface.Polygon(corners);
  surface.SetFill(std::nullopt);
  if (!winds) return;
  // The winds meet at the boat, which is the origin; the air comes to it from ahead as fast as it
  // sails.
  const double angle = winds->true_angle * kRadiansPerDegree;
  const double hand = winds->starboard ? 1.0 : -1.0;
  const SurfacePoint boat{0.0, 0.0};
  const SurfacePoint ahead{0.0, -winds->boat_speed};
  const SurfacePoint wind{hand * winds->true_speed * std::sin(angle),
                          ahead.y - winds->true_speed * std::cos(angle)};
  const std::array<WindArrow, 3> arrows = {{
      {ahead, boat, wind, kBoatColour, "Boat", -1},
      {wind, ahead, boat, kTrueColour, "True", -1},
      {wind, boat, ahead, kApparentColour, "Apparent", 1},
  }};
  const double left = std::min(0.0, wind.x);
  const double right = std::max(0.0, wind.x);
  const double top = std::min({0.0, ahead.y, wind.y});
  const double bottom = std::max(0.0, wind.y);
  const double scale = std::min((bounds.width - 2 * margin_x) / std::max(right - left, kCalm),
                                (bounds.height - 2 * kMarginY) / std::max(bottom - top, kCalm));
  const auto place = [&](SurfacePoint at) {
    return SurfacePoint{bounds.width / 2 + (at.x - (left + right) / 2) * scale,
                        bounds.height / 2 + (at.y - (top + bottom) / 2) * scale};
  };
  DrawHull(surface, place(boat));
  for (const WindArrow& arrow : arrows) {
    if (SpeedOf(arrow) < kCalm) continue;
    surface.SetPen(3, arrow.colour);
    DrawArrow(surface, place(arrow.from), place(arrow.to), 11.0, arrow.colour);
  }
  for (const WindArrow& arrow : arrows) {
    if (SpeedOf(arrow) < kCalm) continue;
    DrawLabel(surface, place(MiddleOf(arrow)), arrow);
  }
}

}  // namespace skerrow
