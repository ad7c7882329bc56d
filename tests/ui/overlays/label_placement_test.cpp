#include "ui/overlays/label_placement.h"

#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace skerrow {
namespace {

LabelWish Wish(std::string_view text, double x, double y, LabelRank rank = LabelRank::kWaypoint) {
  return {text, {x, y}, 5.0, 60.0, 20.0, rank, LabelSide::kRight};
}

bool Cover(const SurfaceRect& a, const SurfaceRect& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

TEST(PlaceLabels, FirstPlaceIsBesideTheMark) {
  LabelWish left = Wish("left", 100.0, 300.0);
  left.side = LabelSide::kLeft;
  const std::vector<LabelWish> wishes = {Wish("right", 100.0, 100.0), left};
  const auto boxes = PlaceLabels(wishes, {}, false);
  EXPECT_EQ(boxes[0], (SurfaceRect{109.0, 90.0, 60.0, 20.0}));
  EXPECT_EQ(boxes[1], (SurfaceRect{31.0, 290.0, 60.0, 20.0}));
}

TEST(PlaceLabels, RankDecidesWhoStaysAndTextsStandOnce) {
  // A wall of fixed texts leaves room for one name to the right of the first mark.
  const std::vector<SurfaceRect> taken = {
      {0.0, 0.0, 105.0, 300.0}, {105.0, 0.0, 200.0, 88.0}, {105.0, 112.0, 200.0, 200.0}};
  const std::vector<LabelWish> wishes = {Wish("remark", 100.0, 100.0, LabelRank::kRemark),
                                         Wish("port", 100.0, 100.0, LabelRank::kPort),
                                         Wish("route", 100.0, 100.0, LabelRank::kRoute)};
  const auto boxes = PlaceLabels(wishes, taken, false);
  EXPECT_FALSE(boxes[0]);
  EXPECT_FALSE(boxes[1]);
  EXPECT_TRUE(boxes[2]);
  for (const auto& box : PlaceLabels(wishes, taken, true)) EXPECT_TRUE(box);

  const std::vector<LabelWish> same = {Wish("Cowes", 500.0, 500.0, LabelRank::kPort),
                                       Wish("Cowes", 500.0, 540.0, LabelRank::kRoute),
                                       Wish("Cowes", 500.0, 900.0, LabelRank::kPort)};
  const auto once = PlaceLabels(same, {}, false);
  EXPECT_FALSE(once[0]);
  EXPECT_TRUE(once[1]);
  EXPECT_TRUE(once[2]) << "another place of that name";
  EXPECT_TRUE(PlaceLabels(same, {}, true)[0]) << "another mark";
}

// Against the plain rule, on a crowd: no box on a box, none of a waypoint on a mark, and a name is
// missing only where all of its eight places are taken.
TEST(PlaceLabels, CrowdedBoxesNeverCoverEachOther) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> place(-700.0, 700.0);
  std::vector<std::string> texts;
  for (int i = 0; i < 3000; ++i) texts.push_back("name " + std::to_string(i));
  std::vector<LabelWish> wishes;
  for (const std::string& text : texts) wishes.push_back(Wish(text, place(random), place(random)));
  const auto start = std::chrono::steady_clock::now();
  const auto boxes = PlaceLabels(wishes, {}, false);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  EXPECT_LT(took.count(), 1.0);
  std::size_t placed = 0;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    if (!boxes[i]) continue;
    ++placed;
    for (std::size_t j = 0; j < boxes.size(); ++j) {
      if (i == j) continue;
      ASSERT_FALSE(boxes[j] && Cover(*boxes[i], *boxes[j])) << "seed 5: " << i << ", " << j;
      const SurfaceRect mark{wishes[j].at.x - 5.0, wishes[j].at.y - 5.0, 10.0, 10.0};
      ASSERT_FALSE(Cover(*boxes[i], mark)) << "seed 5: " << i << ", " << j;
    }
  }
  EXPECT_GT(placed, 150U);
}

}  // namespace
}  // namespace skerrow
