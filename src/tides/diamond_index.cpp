#include "tides/diamond_index.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/plane_sailing.h"

namespace skerrow {
namespace {

// Room for single-precision rounding in the bounds; a range of 30 nm is exact to about 0.0005.
constexpr double kSlackMiles = 0.01;
constexpr std::size_t kLeafCandidates = 3;
constexpr int kMaxDepth = 22;
// Cells reach this far, in degrees, beyond the outermost diamonds.
constexpr double kMargin = 1.0;

struct Bounds {
  double least, most;
};

// Least and largest distance from `value` to the interval [low, high].
Bounds DistanceTo(double value, double low, double high) {
  return {std::max({0.0, low - value, value - high}),
          std::max(std::fabs(low - value), std::fabs(high - value))};
}

// Bounds of the plane-sailing range from anywhere in a cell to a place.
Bounds RangeBounds(double south, double north, double west, double east, Position place) {
  const Bounds d_lat = DistanceTo(place.latitude, south, north);
  const Bounds d_long = DistanceTo(place.longitude, west, east);
  const double cos_a = std::cos((south + place.latitude) / 2.0 * kPi / 180.0);
  const double cos_b = std::cos((north + place.latitude) / 2.0 * kPi / 180.0);
  const bool equator = south + place.latitude < 0.0 && north + place.latitude > 0.0;
  const double cos_least = std::max(0.0, std::min(cos_a, cos_b));
  const double cos_most = equator ? 1.0 : std::max({0.0, cos_a, cos_b});
  return {60.0 * std::hypot(d_lat.least, d_long.least * cos_least),
          60.0 * std::hypot(d_lat.most, d_long.most * cos_most)};
}

}  // namespace

DiamondIndex::DiamondIndex(std::span<const Diamond> diamonds) {
  places_.reserve(diamonds.size());
  for (const Diamond& diamond : diamonds) places_.push_back({diamond.latitude, diamond.longitude});
  // The tree is for diamonds on Earth; one elsewhere is out of reach of every place inside it.
  std::vector<std::uint32_t> on_earth;
  for (std::uint32_t i = 0; i < places_.size(); ++i) {
    all_.push_back(i);
    if (std::fabs(places_[i].latitude) <= 90.0F && std::fabs(places_[i].longitude) <= 360.0F) {
      on_earth.push_back(i);
    }
  }
  if (on_earth.empty()) return;
  root_ = {90.0, -90.0, 360.0, -360.0};
  for (const std::uint32_t i : on_earth) {
    root_.south = std::min(root_.south, places_[i].latitude - kMargin);
    root_.north = std::max(root_.north, places_[i].latitude + kMargin);
    root_.west = std::min(root_.west, places_[i].longitude - kMargin);
    root_.east = std::max(root_.east, places_[i].longitude + kMargin);
  }
  nodes_.emplace_back();
  Build(0, root_, on_earth, 0);
}

std::vector<std::uint32_t> DiamondIndex::Prune(const Cell& cell,
                                               const std::vector<std::uint32_t>& candidates) const {
  std::vector<double> least(candidates.size());
  double best_most = kDiamondReach + kSlackMiles;
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    const Bounds bounds =
        RangeBounds(cell.south, cell.north, cell.west, cell.east, places_[candidates[i]]);
    least[i] = bounds.least;
    best_most = std::min(best_most, bounds.most);
  }
  std::vector<std::uint32_t> kept;
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    if (least[i] <= best_most + kSlackMiles) kept.push_back(candidates[i]);
  }
  return kept;
}

void DiamondIndex::Build(std::size_t node, const Cell& cell, std::vector<std::uint32_t> candidates,
                         int depth) {
  candidates = Prune(cell, candidates);
  if (candidates.size() <= kLeafCandidates || depth >= kMaxDepth) {
    nodes_[node].first = static_cast<std::uint32_t>(leaves_.size());
    leaves_.insert(leaves_.end(), candidates.begin(), candidates.end());
    nodes_[node].last = static_cast<std::uint32_t>(leaves_.size());
    return;
  }
  const bool by_latitude = (cell.north - cell.south) > (cell.east - cell.west) * 0.6;
  Cell below = cell;
  Cell above = cell;
  double split = 0.0;
  if (by_latitude) {
    split = below.north = above.south = (cell.south + cell.north) / 2.0;
  } else {
    split = below.east = above.west = (cell.west + cell.east) / 2.0;
  }
  const std::size_t child = nodes_.size();
  nodes_.resize(child + 2);
  nodes_[node].split = split;
  nodes_[node].by_latitude = by_latitude;
  nodes_[node].child = static_cast<std::int32_t>(child);
  Build(child, below, candidates, depth + 1);
  Build(child + 1, above, candidates, depth + 1);
}

int DiamondIndex::NearestOf(Position position, std::span<const std::uint32_t> candidates) const {
  float best = 9999.0F;
  int found = -1;
  for (const std::uint32_t i : candidates) {
    const float range = RangeOnly(position, places_[i]);
    if (range < best) {
      best = range;
      found = static_cast<int>(i);
    }
  }
  return best <= kDiamondReach ? found : -1;
}

int DiamondIndex::Nearest(Position position) const {
  const bool inside = !nodes_.empty() && position.latitude >= root_.south &&
                      position.latitude <= root_.north && position.longitude >= root_.west &&
                      position.longitude <= root_.east;
  // Far outside the sea area, where a walk is good enough.
  if (!inside) return NearestOf(position, all_);
  const Node* node = &nodes_.front();
  while (node->child >= 0) {
    const double value = node->by_latitude ? position.latitude : position.longitude;
    node = &nodes_[static_cast<std::size_t>(node->child) + (value < node->split ? 0 : 1)];
  }
  return NearestOf(position, std::span(leaves_).subspan(node->first, node->last - node->first));
}

}  // namespace skerrow
