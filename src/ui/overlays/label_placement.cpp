#include "ui/overlays/label_placement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <unordered_map>

namespace skerrow {
namespace {

constexpr double kCell = 64.0;
constexpr int kPlaces = 8;
// Names of one text this near each other (in heights of the text) mean the same place.
constexpr double kSamePlace = 4.0;
constexpr double kSameMark = 2.0;  // pixels

bool Overlap(const SurfaceRect& a, const SurfaceRect& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

// Boxes found by where they lie.
class BoxGrid {
 public:
  void Add(const SurfaceRect& box, std::size_t owner) {
    const std::size_t index = boxes_.size();
    boxes_.push_back({box, owner});
    EachCell(box, [&](std::uint64_t cell) {
      cells_[cell].push_back(index);
      return false;
    });
  }
  // Whether `box` covers one that belongs to somebody else than `owner`.
  bool Hits(const SurfaceRect& box, std::size_t owner) const {
    return EachCell(box, [&](std::uint64_t cell) {
      const auto found = cells_.find(cell);
      return found != cells_.end() &&
             std::any_of(found->second.begin(), found->second.end(), [&](std::size_t index) {
               return boxes_[index].owner != owner && Overlap(boxes_[index].box, box);
             });
    });
  }

 private:
  struct Owned {
    SurfaceRect box;
    std::size_t owner = 0;
  };

  // Calls `visit` for the cells under a box until it says true; whether it did.
  template <typename Visit>
  static bool EachCell(const SurfaceRect& box, const Visit& visit) {
    const auto cell = [](double place) {
      return static_cast<std::int32_t>(std::floor(std::clamp(place, -1e9, 1e9) / kCell));
    };
    for (std::int32_t y = cell(box.top); y <= cell(box.top + box.height); ++y) {
      for (std::int32_t x = cell(box.left); x <= cell(box.left + box.width); ++x) {
        const auto high = static_cast<std::uint64_t>(static_cast<std::uint32_t>(y)) << 32;
        if (visit(high | static_cast<std::uint32_t>(x))) return true;
      }
    }
    return false;
  }

  std::vector<Owned> boxes_;
  std::unordered_map<std::uint64_t, std::vector<std::size_t>> cells_;
};

// The places round a mark in the order in which they are tried: beside it, then at the corners,
// above and below.
SurfaceRect PlaceOf(const LabelWish& wish, int number) {
  constexpr std::array<std::array<int, 2>, kPlaces> kDirections = {
      {{1, 0}, {-1, 0}, {1, -1}, {1, 1}, {-1, -1}, {-1, 1}, {0, -1}, {0, 1}}};
  auto [across, down] = kDirections[static_cast<std::size_t>(number)];
  if (wish.side == LabelSide::kLeft) across = -across;
  // At a corner the name comes nearer than straight beside the mark.
  const double reach = across != 0 && down != 0 ? 0.7 * wish.radius + 1.0 : wish.radius + kLabelGap;
  SurfaceRect box{wish.at.x - wish.width / 2.0, wish.at.y - wish.height / 2.0, wish.width,
                  wish.height};
  box.left += across * (reach + wish.width / 2.0);
  // A line of text has air above and below the letters.
  const double rise = across == 0 ? wish.radius + 1.0 : 0.7 * wish.radius;
  box.top += down * (rise + 0.4 * wish.height);
  return box;
}

// Whether a text stands already by nearly the same place.
class KnownTexts {
 public:
  explicit KnownTexts(bool all) : all_(all) {}
  bool Holds(const LabelWish& wish) {
    std::vector<SurfacePoint>& places = places_[wish.text];
    const double reach = all_ ? kSameMark : kSamePlace * wish.height;
    const bool held = std::any_of(places.begin(), places.end(), [&](SurfacePoint place) {
      return std::hypot(place.x - wish.at.x, place.y - wish.at.y) <= reach;
    });
    if (!held) places.push_back(wish.at);
    return held;
  }

 private:
  bool all_;
  std::unordered_map<std::string_view, std::vector<SurfacePoint>> places_;
};

}  // namespace

std::vector<std::optional<SurfaceRect>> PlaceLabels(std::span<const LabelWish> wishes,
                                                    std::span<const SurfaceRect> taken, bool all) {
  std::vector<std::size_t> order(wishes.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return wishes[a].rank < wishes[b].rank; });
  BoxGrid marks;
  BoxGrid names;
  for (std::size_t i = 0; i < wishes.size(); ++i) {
    const double side = 2.0 * wishes[i].radius;
    marks.Add({wishes[i].at.x - wishes[i].radius, wishes[i].at.y - wishes[i].radius, side, side},
              i);
  }
  for (const SurfaceRect& box : taken) names.Add(box, wishes.size());

  std::vector<std::optional<SurfaceRect>> boxes(wishes.size());
  KnownTexts known(all);
  for (const std::size_t i : order) {
    const LabelWish& wish = wishes[i];
    if (wish.text.empty() || known.Holds(wish)) continue;
    std::optional<SurfaceRect>& box = boxes[i];
    std::optional<SurfaceRect> over_mark;
    for (int number = 0; number < kPlaces && !box; ++number) {
      const SurfaceRect place = PlaceOf(wish, number);
      if (names.Hits(place, i)) continue;
      if (!marks.Hits(place, i)) {
        box = place;
      } else if (!over_mark) {
        over_mark = place;
      }
    }
    const bool forced = wish.room == LabelRoom::kAlways || (all && wish.room == LabelRoom::kUsual);
    if (!box && (forced || wish.rank <= LabelRank::kRoute)) box = over_mark;
    if (!box && forced) box = PlaceOf(wish, 0);
    if (box) names.Add(*box, i);
  }
  return boxes;
}

}  // namespace skerrow
