#include "routes/route_editing.h"

#include <gtest/gtest.h>
#include <random>

#include "app/route_history.h"
#include "core/plane_sailing.h"
#include "support/recording_messages.h"

namespace skerrow {
namespace {

using testing::RecordingMessages;

constexpr const char* kEditMiss =
    "GRIB Wind file data coverage incorrect - using last good wind values";

class RouteEditingTest : public ::testing::Test {
 protected:
  RouteEditingTest() {
    defaults_.speed = 5.5F;
    defaults_.wind = {12.0F, 225.0F};
  }
  // A route of points named "1", "2" ... with speeds 1, 2 ...
  void Lay(const std::vector<Position>& positions) {
    state_ = {};
    for (const Position& at : positions) {
      const std::string name = std::to_string(state_.points.size() + 1);
      ASSERT_EQ(AddRoutePoint(state_, {}, RouteSnap{name, at}, defaults_, messages_),
                RouteEdit::kDone);
      state_.points.back().speed = static_cast<float>(state_.points.size());
    }
  }
  std::string Names() const {
    std::string names;
    for (const RoutePoint& point : state_.points) {
      names += point.name.empty() ? "*" : point.name;
    }
    return names;
  }
  RouteEdit Insert(Position at) { return InsertRoutePoint(state_, at, defaults_, messages_); }

  RouteDefaults defaults_;
  RouteState state_;
  RecordingMessages messages_;
};

void ExpectWhole(const RouteState& state) {
  for (std::size_t i = 0; i + 1 < state.points.size(); ++i) {
    ASSERT_EQ(state.points[i].Next(), state.points[i + 1].At());
    ASSERT_EQ(state.points[i].next_name, state.points[i + 1].name);
  }
  ASSERT_EQ(state.track.size(), state.points.size() < 2 ? 0 : 21 * (state.points.size() - 1));
  if (state.points.size() > 1) {
    ASSERT_EQ(state.track.front(), state.points.front().At());
    ASSERT_EQ(state.track.back(), state.points.back().At());
  }
  ASSERT_EQ(state.distance, RouteLengthOf(state.points));
}

TEST_F(RouteEditingTest, LayingPoints) {
  EXPECT_EQ(AddRoutePoint(state_, {50, -1}, {}, defaults_, messages_), RouteEdit::kDone);
  EXPECT_EQ(state_.points[0].name, "");
  EXPECT_EQ(state_.points[0].speed, 5.5F);
  EXPECT_EQ(state_.points[0].wind_speed, 12.0F);
  AddRoutePoint(state_, {0, 0}, RouteSnap{"Owers", {50.5F, -1}}, defaults_, messages_);
  EXPECT_EQ(state_.points[1].name, "Owers");
  EXPECT_EQ(state_.points[1].At(), (Position{50.5F, -1}));
  EXPECT_EQ(state_.selected_leg, 1);
  ExpectWhole(state_);
  EXPECT_TRUE(RemoveLastRoutePoint(state_) && RemoveLastRoutePoint(state_));
  EXPECT_FALSE(RemoveLastRoutePoint(state_));
}

TEST_F(RouteEditingTest, AHundredPointsAreTheEnd) {
  for (int i = 0; i < 100; ++i) {
    ASSERT_EQ(AddRoutePoint(state_, {50, static_cast<float>(i) * 0.01F}, {}, defaults_, messages_),
              RouteEdit::kDone);
  }
  EXPECT_EQ(AddRoutePoint(state_, {50, 2}, {}, defaults_, messages_), RouteEdit::kRouteFull);
  EXPECT_EQ(Insert({50, 0.005F}), RouteEdit::kRouteFull);
  EXPECT_EQ(state_.points.size(), 100U);
  EXPECT_FALSE(RouteEditText(RouteEdit::kRouteFull).empty());
}

TEST_F(RouteEditingTest, InsertionPlaces) {
  const struct {
    std::vector<Position> route;
    Position at;
    RouteEdit outcome;
    const char* names;
    const char* story;
  } rows[] = {
      {{{50, 0}, {51, 0}}, {50.4F, 0.1F}, RouteEdit::kDone, "1*2", "between two"},
      {{{50, 0}, {51, 0}}, {53, 0}, RouteEdit::kDone, "1*2", "beyond the end of two"},
      {{{50, 0}, {51, 0}}, {49, 0}, RouteEdit::kDone, "1*2", "before the start of two"},
      {{{50, 0}, {50.5F, 0}, {51, 0}}, {50.7F, 0}, RouteEdit::kDone, "12*3", "second leg"},
      // Points 1 and 3 are the nearest two: the route doubles back past point 1.
      {{{50, 0}, {55, 0}, {50.2F, 0}}, {50, 0.01F}, RouteEdit::kDoneAnomalous, "1*23", "anomalous"},
      // The last point is the nearest, the first the second nearest: the end of the route.
      {{{50.1F, 0}, {55, 0}, {50, 0}},
       {50, 0.01F},
       RouteEdit::kDoneAnomalous,
       "123*",
       "anomalous at the end"},
      // Two points at equal range: the first is the nearest.
      {{{50, 0}, {50, 0}, {51, 0}}, {50, 0.1F}, RouteEdit::kDone, "1*23", "equal ranges"},
      {{{50, 0}}, {50, 0}, RouteEdit::kTooFewToInsert, "1", "one point"},
      {{}, {50, 0}, RouteEdit::kTooFewToInsert, "", "no route"},
  };
  for (const auto& row : rows) {
    Lay(row.route);
    EXPECT_EQ(Insert(row.at), row.outcome) << row.story;
    EXPECT_EQ(Names(), row.names) << row.story;
    ExpectWhole(state_);
    for (const RoutePoint& point : state_.points) {
      if (!point.name.empty()) continue;
      EXPECT_EQ(point.At(), row.at);
      EXPECT_EQ(point.speed, 5.5F);
    }
  }
  EXPECT_EQ(RouteEditText(RouteEdit::kDoneAnomalous), "Points are anomalous - best guess inserted");
  EXPECT_EQ(RouteEditText(RouteEdit::kTooFewToInsert),
            "You need to have entered at least 2 points - nothing done");
}

TEST_F(RouteEditingTest, DeletingTheNearest) {
  Lay({{50, 0}, {50.5F, 0}, {50.5F, 0}, {51, 0}});
  EXPECT_EQ(DeleteRoutePoint(state_, {50.5F, 0.01F}, defaults_, messages_), RouteEdit::kDone);
  EXPECT_EQ(Names(), "134");
  ExpectWhole(state_);
  for (int i = 0; i < 3; ++i) DeleteRoutePoint(state_, {50, 0}, defaults_, messages_);
  EXPECT_EQ(DeleteRoutePoint(state_, {50, 0}, defaults_, messages_), RouteEdit::kNothingNear);
}

TEST_F(RouteEditingTest, DraggingClearsTheNameAndKeepsTheSpeed) {
  Lay({{50, 0}, {50.5F, 0}});
  // One mile of latitude is a sixtieth of a degree.
  EXPECT_FALSE(DragCandidate(state_, {50.0F + 1.001F / 60, 0}));
  EXPECT_EQ(DragCandidate(state_, {50.0F + 0.99F / 60, 0}), 0U);
  EXPECT_EQ(DragCandidate(state_, {50.499F, 0}), 1U);
  DragRoutePoint(state_, 1, {50.6F, 0.2F});
  EXPECT_EQ(Names(), "1*");
  EXPECT_EQ(state_.points[1].speed, 2.0F);
  EXPECT_EQ(state_.points[0].Next(), (Position{50.6F, 0.2F}));
  ExpectWhole(state_);
  DragRoutePoint(state_, 2, {0, 0});
  EXPECT_EQ(state_.points.size(), 2U);
}

TEST_F(RouteEditingTest, ReversingCarriesSpeedWindAndTack) {
  Lay({{50, 0}, {50.5F, 0}, {51, 0.5F}});
  state_.points[0].tack = 1;
  state_.points[2].wind_speed = 33.0F;
  const float before = state_.distance;
  ReverseRoute(state_, defaults_, messages_);
  EXPECT_EQ(Names(), "321");
  EXPECT_EQ(state_.points[0].speed, 3.0F);
  EXPECT_EQ(state_.points[0].wind_speed, 33.0F);
  EXPECT_EQ(state_.points[2].tack, 1);
  EXPECT_EQ(state_.points[0].next_name, "2");
  EXPECT_EQ(state_.points[2].next_name, "");
  EXPECT_NEAR(state_.distance, before, 1e-4);
  ExpectWhole(state_);
}

TEST_F(RouteEditingTest, ListOfWaypoints) {
  const std::vector<Waypoint> marks(100, Waypoint{"m", 50, 0});
  const auto make = [&](std::size_t count) {
    return CreateRouteFromWaypoints(
        state_, {marks.begin(), marks.begin() + static_cast<std::ptrdiff_t>(count)}, defaults_,
        messages_);
  };
  Lay({{50, 0}});
  EXPECT_EQ(make(1), RouteEdit::kTooFewEntries);
  EXPECT_EQ(make(100), RouteEdit::kTooManyEntries);
  EXPECT_EQ(state_.points.size(), 1U);
  EXPECT_EQ(make(99), RouteEdit::kDone);
  EXPECT_EQ(state_.points.size(), 99U);
  EXPECT_EQ(state_.points[98].speed, 5.5F);
  ExpectWhole(state_);
  EXPECT_EQ(RouteEditText(RouteEdit::kTooManyEntries), "Max of 99 points allowed");
}

// With imported wind every change asks anew, a miss keeps what is held, and one message is shown.
TEST_F(RouteEditingTest, WindsOfAChangedRoute) {
  Lay({{50, 0}, {50.5F, 0}});
  int asked = 0;
  defaults_.constant_wind = false;
  defaults_.wind_at = [&](Position at, DayAndYear, float) -> std::optional<Wind> {
    ++asked;
    if (at.latitude > 50.9F) return std::nullopt;
    return Wind{at.latitude, 10.0F};
  };
  EXPECT_EQ(AddRoutePoint(state_, {50.8F, 0}, {}, defaults_, messages_), RouteEdit::kDone);
  EXPECT_EQ(asked, 1);  // only for the new point
  EXPECT_EQ(state_.points[2].wind_speed, 50.8F);
  EXPECT_EQ(state_.points[0].wind_speed, 12.0F);
  messages_.Expect(kEditMiss);
  EXPECT_EQ(AddRoutePoint(state_, {51, 0}, {}, defaults_, messages_), RouteEdit::kDone);
  EXPECT_EQ(state_.points[3].wind_speed, 12.0F);
  messages_.Expect(kEditMiss);
  ReverseRoute(state_, defaults_, messages_);
  EXPECT_EQ(state_.points[3].wind_speed, 50.0F);
  // A drag asks at its end only.
  asked = 0;
  DragRoutePoint(state_, 0, {50.7F, 0});
  EXPECT_EQ(asked, 0);
  FinishRouteDrag(state_, defaults_, messages_);
  EXPECT_EQ(state_.points[0].wind_speed, 50.7F);
}

// Random edits: the route is whole after each, and all of them taken back and made again give the
// same routes.
TEST_F(RouteEditingTest, RandomEditsStayWholeAndGoBack) {
  const unsigned seed = 31415;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> coordinate(-1.0F, 1.0F);
  RouteHistory history;
  TimeInForce time;
  const auto Undone = [](RouteHistory::Moved moved) {
    return moved != RouteHistory::Moved::kNothing;
  };
  const auto text = [](const RouteState& state) {
    std::string all = std::to_string(state.distance);
    for (const RoutePoint& p : state.points) {
      all += "|" + p.name + std::to_string(p.latitude) + "," + std::to_string(p.longitude) + "," +
             std::to_string(p.speed);
    }
    return all;
  };
  std::vector<std::string> before;
  for (std::size_t i = 0; i < RouteHistory::kDepth; ++i) {
    const Position at{50 + coordinate(random), coordinate(random)};
    before.push_back(text(state_));
    history.Remember("edit " + std::to_string(i), state_);
    switch (random() % 7) {
      case 0:
        DeleteRoutePoint(state_, at, defaults_, messages_);
        break;
      case 1:
        Insert(at);
        break;
      case 2:
        ReverseRoute(state_, defaults_, messages_);
        break;
      case 3:
        DragRoutePoint(state_, random() % 5, at);
        break;
      case 4:
        RemoveLastRoutePoint(state_);
        break;
      default:
        AddRoutePoint(state_, at, {}, defaults_, messages_);
    }
    ExpectWhole(state_);
  }
  const std::string last = text(state_);
  EXPECT_EQ(history.UndoName(), "edit " + std::to_string(RouteHistory::kDepth - 1));
  for (std::size_t i = before.size(); i-- > 0;) {
    ASSERT_TRUE(Undone(history.Undo(state_, time)));
    ASSERT_EQ(text(state_), before[i]) << i;
  }
  EXPECT_FALSE(Undone(history.Undo(state_, time)));
  EXPECT_EQ(history.RedoName(), "edit 0");
  while (history.CanRedo()) ASSERT_TRUE(Undone(history.Redo(state_, time)));
  EXPECT_EQ(text(state_), last);
  // A new edit forgets what was taken back, and the oldest falls off at the depth.
  Undone(history.Undo(state_, time));
  history.Remember("new", state_);
  EXPECT_FALSE(history.CanRedo());
  history.Remember("newer", state_);
  std::size_t steps = 0;
  while (Undone(history.Undo(state_, time))) ++steps;
  EXPECT_EQ(steps, RouteHistory::kDepth);
}

}  // namespace
}  // namespace skerrow
