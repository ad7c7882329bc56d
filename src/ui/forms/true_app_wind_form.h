#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "app/program.h"
#include "ui/drawing/drawing_surface.h"

// The conversion between true and apparent wind as `frmTrueAppWind` shows it.
namespace skerrow {

// Its boxes: knots, degrees true and degrees off the bow. Directions are those that a wind blows
// from.
enum class WindBox {
  kBoatSpeed,
  kCourse,
  kTrueSpeed,
  kTrueFrom,
  kTrueAngle,
  kApparentSpeed,
  kApparentFrom,
  kApparentAngle,
};
inline constexpr std::size_t kWindBoxes = 8;

// The winds on a boat, for the picture: angles off the bow, degrees, over the same side.
struct WindTriangle {
  double boat_speed = 0.0;  // knots
  double true_speed = 0.0;
  double true_angle = 0.0;
  bool starboard = false;
};

// What the boxes hold. The wind edited last is the given one and the other is worked out from it;
// of its direction and its angle the one edited last is given, and the other follows the course.
class TrueAppWindForm {
 public:
  // Begins with the wind in use as the true wind, and the boat as it is: the GPS's course and speed
  // where there is a fix, or else the speed of routes and the course of the first leg.
  explicit TrueAppWindForm(const Program& program);

  // The user has typed into a box. All other boxes follow.
  void Edit(WindBox box, std::string_view text);
  // Both winds come over the same side: without leeway the boat's motion has no part across it.
  void SetStarboard(bool starboard);

  // What a box shows: what was typed into it, or what was worked out. Empty where nothing can be,
  // and for the direction and angle of a calm.
  const std::string& TextOf(WindBox box) const { return texts_[Index(box)]; }
  bool starboard() const { return starboard_; }
  // "Force 5", "Calm", or empty where the speed is not known.
  std::string TrueForce() const { return ForceOf(WindBox::kTrueSpeed); }
  std::string ApparentForce() const { return ForceOf(WindBox::kApparentSpeed); }
  // What stands in the way of a result; empty: nothing.
  const std::string& trouble() const { return trouble_; }
  // The picture's winds; empty while there is trouble.
  std::optional<WindTriangle> Triangle() const;

 private:
  static std::size_t Index(WindBox box) { return static_cast<std::size_t>(box); }
  double Value(WindBox box) const { return *values_[Index(box)]; }
  std::string ForceOf(WindBox speed) const;
  void Put(WindBox box, double value);
  void Empty(WindBox box);
  std::string TroubleOf(WindBox box) const;
  void WorkOut();
  void WorkOutOther(bool calm);

  std::array<std::string, kWindBoxes> texts_;
  std::array<std::optional<double>, kWindBoxes> values_;  // unrounded
  bool true_given_ = true;
  bool angle_given_ = false;
  bool starboard_ = true;
  std::string trouble_;
};

// Draws the winds as a triangle of arrows on a boat that sails up the surface: the true wind, the
// wind that the boat makes by its own speed, and the apparent wind that they add up to.
void DrawWindTriangle(DrawingSurface& surface, const std::optional<WindTriangle>& winds);

}  // namespace skerrow
