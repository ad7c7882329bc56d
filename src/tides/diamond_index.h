#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/position.h"
#include "tides/diamond.h"

namespace skerrow {

// A diamond farther than this from a place says nothing about it, nautical miles.
inline constexpr float kDiamondReach = 30.0F;

// Finds the diamond nearest to a position: the one a walk over the table would find that takes a
// diamond over only when it is strictly nearer, so that the earlier of two at the same range wins.
//
// A tree of cells halved in turn by latitude and longitude. Each leaf lists the few diamonds that
// can be the nearest one somewhere in it, in table order, by bounds with room for the rounding of
// single precision; the candidates' ranges are then compared exactly.
class DiamondIndex {
 public:
  DiamondIndex() = default;
  explicit DiamondIndex(std::span<const Diamond> diamonds);

  // Index of the nearest diamond within kDiamondReach; -1 when there is none.
  int Nearest(Position position) const;

 private:
  struct Cell {
    double south, north, west, east;
  };
  struct Node {
    double split = 0.0;
    // >= 0: children `child` (below the split) and `child` + 1, split by latitude or longitude.
    // < 0: a leaf whose candidates are [first, last).
    std::int32_t child = -1;
    bool by_latitude = false;
    std::uint32_t first = 0;
    std::uint32_t last = 0;
  };
  void Build(std::size_t node, const Cell& cell, std::vector<std::uint32_t> candidates, int depth);
  std::vector<std::uint32_t> Prune(const Cell& cell,
                                   const std::vector<std::uint32_t>& candidates) const;
  int NearestOf(Position position, std::span<const std::uint32_t> candidates) const;

  std::vector<Position> places_;
  std::vector<std::uint32_t> all_;
  Cell root_{};
  std::vector<Node> nodes_;
  std::vector<std::uint32_t> leaves_;
};

}  // namespace skerrow
