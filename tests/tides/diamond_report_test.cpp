#include "tides/diamond_report.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <limits>

#include "support/sample_tides.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::AsPlainUser;
using testing::FileBytes;
using testing::SampleTides;
using testing::TempFolder;

constexpr DayAndYear kDate = {339, 2026};  // 5 December

// A request about the sample area's diamond 9999-51, which refers to Portsmouth.
DiamondRequest Request(const TideState& state) {
  DiamondRequest request;
  for (const Diamond& diamond : state.diamonds) {
    if (DiamondRef(diamond) == "9999-51") request.diamond = diamond;
  }
  request.date = kDate;
  request.hours = 9.0F;
  return request;
}

std::vector<std::string> TextsOf(const std::vector<DiamondLine>& lines) {
  std::vector<std::string> texts;
  for (const DiamondLine& line : lines) texts.push_back(line.text);
  return texts;
}

using Lines = std::vector<std::string>;

// Rates, directions, slots and times worked out by tests/reference/simplified_tides.py from the
// bytes of the sample files.
TEST(DiamondReport, ADayAgreesWithAnIndependentCalculation) {
  const TideState state = SampleTides({1, 2026});
  DiamondRequest request = Request(state);
  const DiamondDay slack = MakeDiamondDay(state, request);
  const struct {
    std::size_t entry;
    double rate;
    float direction;
    int slot;
  } rows[] = {{0, 1.4611, 274.0F, 4},
              {35, 2.2357, 94.0F, -3},
              {71, 2.3191, 274.0F, 3},
              {100, 2.9873, 94.0F, -5},
              {143, 2.5177, 274.0F, 3}};
  for (const auto& row : rows) {
    const DayStreamEntry& entry = slack.stream[row.entry];
    EXPECT_TRUE(entry.known);
    EXPECT_NEAR(entry.rate, row.rate, 1e-3) << row.entry;
    EXPECT_EQ(entry.direction, row.direction) << row.entry;
    EXPECT_EQ(entry.dep_slot, row.slot) << row.entry;
  }
  const Lines texts = TextsOf(slack.lines);
  const Lines head(texts.begin(), texts.begin() + 7);
  EXPECT_EQ(head, (Lines{"Tidal Streams", "Saturday 5 Dec 2026", "Tidal Streams Slack Water Times",
                         "01:10      0.7kn.", "07:40      0.4kn.", "13:40      0.7kn.",
                         "20:00      0.4kn."}));
  EXPECT_EQ(
      ReportLines(slack.stream, DiamondReport::kFlood, 0.0F),
      (Lines{"04:40      3.1kn.", "10:40      2.9kn.", "17:00      2.9kn.", "23:00      2.8kn."}));
  EXPECT_EQ(ReportLines(slack.stream, DiamondReport::kAboveAndBelow, 1.5F),
            (Lines{"1.5kn at 02:40", "1.5kn at 06:30", "1.5kn at 08:30", "1.5kn at 12:40",
                   "1.5kn at 15:00", "1.5kn at 18:50", "1.5kn at 21:00"}));
  // The times belong to the day; heads and what stands below belong to none.
  EXPECT_FALSE(slack.lines[0].date || slack.lines[2].date || slack.lines[7].date);
  EXPECT_EQ(slack.lines[1].date, kDate);
  EXPECT_EQ(slack.lines[6].date, kDate);
}

// At 09:00 high water at Portsmouth was 10 minutes before, so 20 minutes are left of its slot.
TEST(DiamondReport, TellsTheStreamNowAndTheReferencePorts) {
  const TideState state = SampleTides({1, 2026});
  DiamondRequest request = Request(state);
  const Lines lines = TextsOf(MakeDiamondDay(state, request).lines);
  const Lines below(lines.begin() + 8, lines.begin() + 21);
  EXPECT_EQ(below,
            (Lines{"At 09:00  2.1kn @274°T", " ", "Tidal Height Prediction", "Reference Port 2",
                   "Port Name Portsmouth", "01:40\t1.8", "08:50\t4.3", "14:10\t1.8", "21:10\t4.1",
                   "Days Range 2.5 Metres", "Dep Slot HW 0 hours", "Mins left in Slot 20", " "}));
  EXPECT_EQ(lines[22], "Port Name Dover");
  EXPECT_EQ(lines[28], "Dep Slot HW +1 hours");
  request.hours = 3.0F;
  EXPECT_EQ(TextsOf(MakeDiamondDay(state, request).lines)[18], "Dep Slot HW -6 hours");
}

DayStream Level(float rate) {
  DayStream stream;
  stream.fill({rate, 90.0F, 0, true});
  return stream;
}

TEST(DiamondReport, FindsTurnsAndCrossingsByTheirNeighbours) {
  EXPECT_EQ(ReportLines(Level(1.0F), DiamondReport::kSlack, 0.0F), Lines{});
  EXPECT_EQ(ReportLines(Level(1.0F), DiamondReport::kAboveAndBelow, 1.0F),
            Lines{"Rate is always outside threshold"});
  DayStream stream = Level(1.0F);
  stream[9].rate = 0.25F;                    // entry 10: the lowest
  stream[20].rate = 1.75F;                   // entry 21: the highest
  stream[30].rate = stream[31].rate = 0.5F;  // equal neighbours are no turn
  stream[142].rate = 0.5F;  // the last that can be one, told at the midnight that ends the day
  EXPECT_EQ(ReportLines(stream, DiamondReport::kSlack, 0.0F),
            (Lines{"01:50      1.0kn.", "00:00      1.0kn."}));
  EXPECT_EQ(ReportLines(stream, DiamondReport::kFlood, 0.0F), Lines{"03:40      1.0kn."});
  // Equal on the near side is no crossing, equal on the far side is one.
  EXPECT_EQ(ReportLines(stream, DiamondReport::kAboveAndBelow, 1.75F), Lines{"1.75kn at 03:20"});
  EXPECT_EQ(ReportLines(stream, DiamondReport::kAboveAndBelow, 0.25F), Lines{"0.25kn at 01:30"});
  EXPECT_EQ(ReportLines(stream, DiamondReport::kAboveAndBelow, 1.5F),
            (Lines{"1.5kn at 03:20", "1.5kn at 03:30"}));
  for (const std::size_t unknown : {9U, 20U, 142U}) stream[unknown].known = false;
  EXPECT_EQ(ReportLines(stream, DiamondReport::kSlack, 0.0F), Lines{});
  EXPECT_EQ(ReportLines(stream, DiamondReport::kFlood, 0.0F), Lines{});
}

TEST(DiamondReport, ShowsTheTable) {
  Diamond diamond;
  diamond.chart_no = 2045;
  diamond.dia_no = 7;
  diamond.ref_port = 3;
  diamond.sp_range = 4.75F;
  diamond.np_range = 2.0F;
  diamond.latitude = 50.5F;
  diamond.longitude = -1.25F;
  for (std::size_t c = 0; c < kDiamondColumns; ++c) {
    diamond.direction[c] = static_cast<float>(c + 1);
    diamond.spring_rate[c] = static_cast<float>(c) / 2.0F;
    diamond.neap_rate[c] = static_cast<float>(c) / 4.0F;
  }
  const Lines lines = DiamondDataLines(diamond, "Dover");
  ASSERT_EQ(lines.size(), kFirstSlotRow + 13);
  const Lines head(lines.begin(), lines.begin() + 6);
  EXPECT_EQ(head, (Lines{"Tidal stream ID 2045-7", "Ref Port Dover (3)",
                         "Spring Range 4.8M, Neap Range 2.0M", "50.30.00N, 001.15.00W", " ",
                         "Slot\tDir\tSp Rate\tNp Rate"}));
  EXPECT_EQ(lines[6], "HW -6\t002\t  0.5\t  0.3");
  EXPECT_EQ(lines[12], "HW 0\t008\t  3.5\t  1.8");
  EXPECT_EQ(lines[13], "HW +1\t009\t  4.0\t  2.0");
  EXPECT_EQ(lines[18], "HW +6\t014\t  6.5\t  3.3");
}

// Counts the steps and stops at one of them.
struct Stopping final : Progress {
  bool Step(double percent) override {
    last = percent;
    return ++steps != stop_at;
  }
  int steps = 0;
  int stop_at = 0;
  double last = 0.0;
};

TEST(DiamondReport, AMonthIsItsDays) {
  const TideState state = SampleTides({1, 2026});
  DiamondRequest request = Request(state);
  Stopping progress;
  const auto month = MakeDiamondMonth(state, request, progress);
  ASSERT_TRUE(month);
  EXPECT_EQ(progress.steps, 31);
  EXPECT_NEAR(progress.last, 31.0 / 35.0 * 100.0, 1e-9);
  EXPECT_EQ((*month)[0].text, "Monthly Tidal Stream Times");
  EXPECT_EQ((*month)[1].text, "Tidal Streams Slack Water Times");
  EXPECT_EQ((*month)[3].text, "Tuesday 1 Dec 2026");
  std::size_t at = 0;
  while (at < month->size() && (*month)[at].text != "Saturday 5 Dec 2026") ++at;
  ASSERT_LT(at + 5, month->size());
  EXPECT_EQ((*month)[at + 1].text, "01:10      0.7kn.");
  EXPECT_EQ((*month)[at + 4].text, "20:00      0.4kn.");
  EXPECT_EQ((*month)[at + 4].date, kDate);
  EXPECT_EQ((*month)[at + 6].text, "Sunday 6 Dec 2026");
  EXPECT_EQ((*month)[at + 7].date, (DayAndYear{340, 2026}));

  request.date = {60, 2028};  // 29 February
  progress = {};
  const auto february = MakeDiamondMonth(state, request, progress);
  EXPECT_EQ(progress.steps, 29);
  EXPECT_EQ(february->back().date, (DayAndYear{60, 2028}));
  progress = {};
  progress.stop_at = 3;
  EXPECT_FALSE(MakeDiamondMonth(state, request, progress));
  EXPECT_EQ(progress.steps, 3);
}

TEST(DiamondReport, SaysWhyNothingIsKnown) {
  const TideState state = SampleTides({1, 2026});
  DiamondRequest request = Request(state);
  request.diamond.ref_port = 999;
  const DiamondDay unknown = MakeDiamondDay(state, request);
  EXPECT_EQ(unknown.lines[3].text, "No tidal stream is known: no reference port number 999");
  EXPECT_EQ(unknown.lines[5].text, "Tidal Height Prediction");  // no rate is told for now
  EXPECT_FALSE(unknown.stream[0].known);
  request = Request(state);
  request.diamond.np_range = request.diamond.sp_range;
  const DiamondDay divided = MakeDiamondDay(state, request);
  EXPECT_EQ(divided.fault, StreamFault::kDivideByZero);
  EXPECT_TRUE(divided.lines.empty());
  NoProgress progress;
  EXPECT_TRUE(MakeDiamondMonth(state, request, progress)->empty());
}

// A file with a zero record, a diamond, a damaged record, one outside the charted latitudes, two
// more diamonds and the first bytes of another.
class DiamondFile : public ::testing::Test {
 protected:
  DiamondFile() {
    for (int i = 0; i < 3; ++i) {
      Diamond diamond;
      diamond.chart_no = 100;
      diamond.dia_no = static_cast<float>(i + 1);
      diamond.latitude = 50.0F + static_cast<float>(i);
      diamond.direction[0] = 7.5F;  // column 0 is carried along
      diamonds.push_back(diamond);
    }
    Diamond damaged = diamonds[0];
    damaged.np_range = std::numeric_limits<float>::quiet_NaN();
    Diamond south = diamonds[0];
    south.latitude = 20.0F;
    parts = {std::string(kDiamondSize, '\0'),
             Bytes(diamonds[0]),
             Bytes(damaged),
             Bytes(south),
             Bytes(diamonds[1]),
             Bytes(diamonds[2]),
             "the first bytes"};
    path = folder.Write("Area.l25", Whole());
  }
  static std::string Bytes(const Diamond& diamond) { return EncodeRecord(diamond, kDiamondFields); }
  std::string Whole() const {
    std::string whole;
    for (const std::string& part : parts) whole += part;
    return whole;
  }

  const TempFolder folder;
  std::vector<Diamond> diamonds;  // as the program's table has them
  std::vector<std::string> parts;
  std::string path;
};

TEST_F(DiamondFile, ChangesInPlaceAndKeepsEveryOtherByte) {
  Diamond changed = diamonds[1];
  changed.longitude = -3.5F;
  ASSERT_TRUE(ReplaceDiamond(path, 1, diamonds[1], changed));
  parts[4] = Bytes(changed);
  EXPECT_EQ(FileBytes(path), Whole());
  ASSERT_TRUE(AppendDiamond(path, diamonds[0]));
  parts.insert(parts.begin() + 6, Bytes(diamonds[0]));
  EXPECT_EQ(FileBytes(path), Whole());
  ASSERT_TRUE(DeleteDiamond(path, 1, changed));
  parts.erase(parts.begin() + 4);
  EXPECT_EQ(FileBytes(path), Whole());
  ASSERT_TRUE(DeleteDiamond(path, 2, diamonds[0]));  // the added one, not the first like it
  parts.erase(parts.begin() + 5);
  EXPECT_EQ(FileBytes(path), Whole());
  EXPECT_EQ(folder.EntryCount(), 1U);
}

TEST_F(DiamondFile, RefusesWhatWouldLoseData) {
  Diamond changed = diamonds[1];
  changed.np_range = std::numeric_limits<float>::infinity();
  EXPECT_FALSE(ReplaceDiamond(path, 1, diamonds[1], changed));
  EXPECT_FALSE(AppendDiamond(path, changed));
  // Somebody else has changed the file since it was read.
  EXPECT_FALSE(ReplaceDiamond(path, 1, diamonds[2], diamonds[0]));
  EXPECT_FALSE(DeleteDiamond(path, 0, diamonds[1]));
  EXPECT_FALSE(DeleteDiamond(path, 3, diamonds[2]));
  const Status gone = DeleteDiamond(folder.File("None.l25"), 0, diamonds[0]);
  ASSERT_FALSE(gone);
  EXPECT_EQ(gone.error().path, folder.File("None.l25"));
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
  std::filesystem::permissions(path, std::filesystem::perms(0444));
  AsPlainUser([&] {
    for (const Status& status :
         {ReplaceDiamond(path, 1, diamonds[1], diamonds[2]), AppendDiamond(path, diamonds[0]),
          DeleteDiamond(path, 0, diamonds[0])}) {
      ASSERT_FALSE(status);
      EXPECT_EQ(status.error().path, path);
    }
  });
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
  EXPECT_EQ(FileBytes(path), Whole());
}

}  // namespace
}  // namespace skerrow
