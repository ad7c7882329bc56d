#include "routes/waypoint.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>

#include "support/recording_messages.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::FileBytes;
using testing::RecordingMessages;
using testing::TempFolder;

class WaypointTest : public ::testing::Test {
 protected:
  WaypointTest() : folders_{folder_.path(), folder_.path(), folder_.path()} {
    MakeUserFolders(folders_);
    config_.waypoint_file = "Mine.way";
  }
  std::string Path() const { return WaypointPath(folders_, "Mine.way"); }
  void Store(const std::string& bytes) { folder_.Write("SkerrowHelm/Waypoints/Mine.way", bytes); }

  TempFolder folder_;
  Folders folders_;
  AppConfig config_;
  WaypointState state_;
  RecordingMessages messages_;
};

std::string Padded(std::string name) {
  name.resize(35, ' ');
  return name;
}

TEST_F(WaypointTest, RecordIsThatOfTheFile) {
  // 50.5 is 0x424A0000 and -1.25 is 0xBFA00000 as singles.
  const std::string bytes = Padded("Needles") + std::string("\0\0\x4A\x42\0\0\xA0\xBF", 8) +
                            Padded("\xCEle de R\xE9") + std::string(8, '\0');
  Store(bytes);
  config_.waypoint_file = "Mine.way   ";
  ASSERT_TRUE(LoadCurrentWaypoints(folders_, config_, state_, messages_));
  EXPECT_EQ(config_.waypoint_file, "Mine.way");
  ASSERT_EQ(state_.waypoints.size(), 2U);
  EXPECT_EQ(state_.waypoints[0], (Waypoint{"Needles", 50.5F, -1.25F}));
  EXPECT_EQ(state_.waypoints[1].name, "\u00cele de R\u00e9");
  ASSERT_TRUE(SaveWaypointsAs(folders_, "Copy.way", state_));
  EXPECT_EQ(FileBytes(WaypointPath(folders_, "Copy.way")), bytes);
}

TEST_F(WaypointTest, NamesAreCutAt35Bytes) {
  const std::string name35 = "abcdefghijklmnopqrstuvwxyz012345678";
  // 34 letters and an accented one are 35 bytes in the file, though 36 in UTF-8.
  const std::string accented = "abcdefghijklmnopqrstuvwxyz01234567\u00e9";
  state_.waypoints = {{name35, 1, 2}, {name35 + "9", 1, 2}, {accented + "x", 1, 2}};
  ASSERT_TRUE(SaveWaypointsAs(folders_, "Mine.way", state_));
  EXPECT_EQ(std::filesystem::file_size(Path()), 3U * 43U);
  ASSERT_TRUE(LoadCurrentWaypoints(folders_, config_, state_, messages_));
  EXPECT_EQ(state_.waypoints[0].name, name35);
  EXPECT_EQ(state_.waypoints[1].name, name35);
  EXPECT_EQ(state_.waypoints[2].name, accented);
}

TEST_F(WaypointTest, DamagedFiles) {
  state_.waypoints = {{"kept", 1, 2}};
  const auto missing = LoadCurrentWaypoints(folders_, config_, state_, messages_);
  ASSERT_FALSE(missing);
  EXPECT_EQ(missing.error().path, Path());
  EXPECT_EQ(state_.waypoints.size(), 1U);

  // Broken records are left out, whatever is left of them, and told.
  const std::string one = EncodeRecord(Waypoint{"one", 3, 4}, kWaypointFields);
  const std::string two = EncodeRecord(Waypoint{"two", 5, 6}, kWaypointFields);
  const std::string bad = EncodeRecord(Waypoint{"bad", 3, std::nanf("")}, kWaypointFields);
  const std::string far = EncodeRecord(Waypoint{"far", HUGE_VALF, 4}, kWaypointFields);
  const struct {
    std::string bytes;
    const char* told;
  } rows[] = {{one + two + one.substr(0, 1),
               "the last record is left out, it is cut short after 1 of 43 bytes"},
              {one + bad + two, "1 damaged record is left out"},
              {far + one + two + bad + "x",
               "2 damaged records are left out, and the last record is left out, it is cut short "
               "after 1 of 43 bytes"}};
  for (const auto& row : rows) {
    Store(row.bytes);
    messages_.Expect(Path() + ": " + row.told);
    ASSERT_TRUE(LoadCurrentWaypoints(folders_, config_, state_, messages_));
    ASSERT_EQ(state_.waypoints, (std::vector<Waypoint>{{"one", 3, 4}, {"two", 5, 6}}));
  }
  Store(std::string(43U * 32768U, ' '));
  EXPECT_FALSE(LoadCurrentWaypoints(folders_, config_, state_, messages_));
}

TEST_F(WaypointTest, AppendGoesBehindTheLastWholeRecord) {
  const Waypoint first{"first", 50, -1};
  const Waypoint second{"second", 51, -2};
  ASSERT_TRUE(AppendWaypoint(folders_, config_, first));  // creates the file
  ASSERT_TRUE(AppendWaypoint(folders_, config_, second));
  EXPECT_EQ(FileBytes(Path()),
            EncodeRecord(first, kWaypointFields) + EncodeRecord(second, kWaypointFields));
  EXPECT_TRUE(state_.waypoints.empty());
  // What is left of a torn record is written over, be it more than half of one.
  const std::string whole =
      EncodeRecord(first, kWaypointFields) + EncodeRecord(second, kWaypointFields);
  for (const std::size_t left : {48U, 80U}) {
    Store(whole.substr(0, left));
    ASSERT_TRUE(AppendWaypoint(folders_, config_, second));
    EXPECT_EQ(FileBytes(Path()), whole);
  }
  // A position that is no number reaches no file.
  const float nan = std::nanf("");
  for (const Waypoint& bad : {Waypoint{"x", nan, 1}, Waypoint{"x", 1, HUGE_VALF}}) {
    const Status appended = AppendWaypoint(folders_, config_, bad);
    ASSERT_FALSE(appended);
    EXPECT_EQ(appended.error().Text().substr(0, Path().size()), Path());
    EXPECT_FALSE(WriteWaypointFile(Path(), std::vector<Waypoint>{first, bad}));
    EXPECT_EQ(FileBytes(Path()), whole);
  }
  // What cannot be read is not written over.
  std::filesystem::remove(Path());
  std::filesystem::create_directory(Path());
  EXPECT_FALSE(AppendWaypoint(folders_, config_, first));
  EXPECT_TRUE(std::filesystem::is_directory(Path()));
}

TEST_F(WaypointTest, ReadOnlyDocumentsAreToldAndKept) {
  state_.waypoints = {{"one", 50, -1}};
  ASSERT_TRUE(SaveWaypointsAs(folders_, "Mine.way", state_));
  const std::string before = FileBytes(Path());
  std::filesystem::permissions(folders_.Waypoints(), std::filesystem::perms(0555));
  testing::AsPlainUser([&] {
    for (const Status& status :
         {SaveWaypointsAs(folders_, "Mine.way", {}), AppendWaypoint(folders_, config_, {"x", 1, 2}),
          DeleteNearestWaypoint(folders_, config_, state_, {50, -1})}) {
      ASSERT_FALSE(status);
      EXPECT_EQ(status.error().Text(), Path() + ": Permission denied");
    }
  });
  EXPECT_EQ(FileBytes(Path()), before);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folders_.Waypoints()), {}), 1);
}

TEST_F(WaypointTest, DeleteNearestTakesTheEarlierOfEquals) {
  state_.waypoints = {{"far", 49, -3}, {"same 1", 50, -1}, {"same 2", 50, -1}, {"last", 51, 0}};
  ASSERT_TRUE(SaveWaypointsAs(folders_, "Mine.way", state_));
  ASSERT_TRUE(DeleteNearestWaypoint(folders_, config_, state_, {50.01F, -1.0F}));
  ASSERT_TRUE(LoadCurrentWaypoints(folders_, config_, state_, messages_));
  ASSERT_EQ(state_.waypoints.size(), 3U);
  EXPECT_EQ(state_.waypoints[1].name, "same 2");
  EXPECT_EQ(state_.waypoints[2].name, "last");
  state_.waypoints.clear();
  const std::string before = FileBytes(Path());
  EXPECT_FALSE(DeleteNearestWaypoint(folders_, config_, state_, {50, -1}));
  EXPECT_EQ(FileBytes(Path()), before);
}

TEST_F(WaypointTest, NearestIgnoresWhatIsNoPosition) {
  const float nan = std::nanf("");
  const float infinity = std::numeric_limits<float>::infinity();
  const std::vector<Waypoint> table = {
      {"nan", nan, -1}, {"inf", 50, infinity}, {"huge", 3e38F, 3e38F}, {"good", 50, -1}};
  const auto nearest = NearestWaypoint(table, {50, -1});
  ASSERT_TRUE(nearest);
  EXPECT_EQ(nearest->index, 3U);
  // The limit itself is outside: 60 nm is not under 60.
  EXPECT_FALSE(NearestWaypoint(table, {51, -1}, 60.0F));
  EXPECT_TRUE(NearestWaypoint(table, {51, -1}, 60.001F));
}

TEST_F(WaypointTest, SampleFile) {
  ASSERT_TRUE(EnsureSampleWaypoints(folders_));
  const std::string path = WaypointPath(folders_, "Sample.way");
  const auto sample = ReadWaypointFile(path);
  ASSERT_TRUE(sample);
  ASSERT_EQ(sample->size(), 46U);
  EXPECT_EQ(sample->front(), (Waypoint{"Anvil Point", 50.58233F, -1.93083F}));
  EXPECT_EQ(sample->back(), (Waypoint{"Ushant NE Buoy", 48.765F, -5.19333F}));
  // One that cannot be read is not replaced, and that is told.
  const std::string bytes = FileBytes(path);
  std::filesystem::permissions(path, std::filesystem::perms(0000));
  std::filesystem::permissions(folders_.Waypoints(), std::filesystem::perms(0777));
  testing::AsPlainUser([&] {
    const Status refused = EnsureSampleWaypoints(folders_);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().Text(), path + ": Permission denied");
  });
  std::filesystem::permissions(path, std::filesystem::perms(0600));
  EXPECT_EQ(FileBytes(path), bytes);
  // A user's changes to it stay.
  ASSERT_TRUE(WriteWaypointFile(path, {}));
  ASSERT_TRUE(EnsureSampleWaypoints(folders_));
  EXPECT_EQ(std::filesystem::file_size(path), 0U);
}

}  // namespace
}  // namespace skerrow
