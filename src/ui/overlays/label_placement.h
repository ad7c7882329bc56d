#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "ui/drawing/drawing_surface.h"

// Finds room for names beside their marks.
namespace skerrow {

// How much a name matters; the first are placed first.
enum class LabelRank { kMark, kRoute, kTarget, kWaypoint, kPort, kRemark, kStream };

// On which side of its mark a name is tried first.
enum class LabelSide { kRight, kLeft };

// What becomes of a name that finds no room.
enum class LabelRoom {
  kUsual,     // it goes without, unless every name is to show
  kFreeOnly,  // it goes without
  kAlways,    // it stands at its first place
};

// A name that wants to stand beside a mark.
struct LabelWish {
  std::string_view text;
  SurfacePoint at;      // the middle of the mark
  double radius = 0.0;  // of the mark, pixels
  double width = 0.0;   // the room that the name takes, pixels
  double height = 0.0;
  LabelRank rank = LabelRank::kWaypoint;
  LabelSide side = LabelSide::kRight;
  LabelRoom room = LabelRoom::kUsual;
};

// The room between a mark and its name, pixels.
inline constexpr double kLabelGap = 4.0;

// For each name the box it gets, or nothing. Eight places round the mark are tried. A box covers no
// other box and none of `taken`; a name below kRoute covers no other mark either. Of a text that
// stands twice by nearly the same place, only the more important shows. With `all` a name without
// room stands at its first place, and a text is left out only where it stands by the same mark.
// The outcome hangs on the places of the marks towards each other alone.
std::vector<std::optional<SurfaceRect>> PlaceLabels(std::span<const LabelWish> wishes,
                                                    std::span<const SurfaceRect> taken, bool all);

}  // namespace skerrow
