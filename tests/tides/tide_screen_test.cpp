#include "tides/tide_screen.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

#include "core/text.h"
#include "support/sample_tides.h"

namespace skerrow {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

// A port whose height is `level` all day.
Port FlatPort(float level) {
  Port port;
  port.name = "Flat";
  port.latitude = 50.0F;
  port.z0 = level;
  return port;
}

Port SamplePort(const std::string& name) {
  const Result<RecordFile<Port>> ports = ReadAreaPorts(testing::SampleFolders(), "UK.hc");
  EXPECT_TRUE(ports);
  for (const auto& port : ports->records) {
    if (port && Trim(port->name) == name) return *port;
  }
  ADD_FAILURE() << name;
  return {};
}

// A curve with M2 and S2 terms that are highest at these hours.
TideCurve TwoTerms(double m2_top, double s2_top) {
  TideCurve tide;
  for (int i = 0; i < 154; ++i) {
    const double t = i / 6.0;
    const auto hours = static_cast<float>(t);
    tide.layer_m2.push_back(
        {hours, static_cast<float>(2.0 * std::cos(kTurn * (t - m2_top) / 12.4206))});
    tide.layer_s2.push_back({hours, static_cast<float>(0.7 * std::cos(kTurn * (t - s2_top) / 12))});
  }
  return tide;
}

TEST(TideScreen, ScaleRunsFromTheMetreBelowToTheMetreAbove) {
  const struct {
    float level, top, bottom;
  } rows[] = {{0.0F, 1.0F, 0.0F},    {3.2F, 4.0F, 3.2F},   {-0.3F, 1.0F, -1.0F},
              {-1.0F, 0.0F, -1.0F},  {-1.5F, 0.0F, -2.0F}, {-3.0F, -2.0F, -3.0F},
              {-4.0F, -3.0F, -4.0F}, {-4.5F, -3.0F, -4.5F}};
  for (const auto& row : rows) {
    const TideScreen screen = MakeTideScreen(FlatPort(row.level), {100, 2026}, {});
    EXPECT_EQ(screen.plot_top, row.top) << row.level;
    EXPECT_EQ(screen.plot_bottom, row.bottom) << row.level;
    EXPECT_FALSE(screen.spring_neap);
    EXPECT_EQ(screen.lines.size(), 3U);
  }
  const Port southampton = SamplePort("Southampton");
  for (std::int16_t day = 1; day <= 60; ++day) {
    const TideScreen screen = MakeTideScreen(southampton, {day, 2026}, {});
    for (std::size_t i = 0; i + 1 < kCurveCount; ++i) {
      EXPECT_GE(screen.tide.curve[i].height, screen.plot_bottom) << day << ", " << i;
      EXPECT_LE(screen.tide.curve[i].height, screen.plot_top) << day << ", " << i;
    }
  }
}

TEST(TideScreen, SpringsAndNeapsByTheTimeBetweenTheTerms) {
  const struct {
    double m2_top, s2_top;
    int samples, progress;
    const char *left, *right, *label;
  } rows[] = {
      {2.0, 2.0 - 1.0 / 6, 1, 1, "Springs", "Neaps", "Springs"},
      // The M2 term is highest with the S2 term: the next time counts.
      {2.0, 2.0, 75, 36, "Neaps ", "Springs ", "Springs -1 day"},
      {5.0, 2.0, 18, 18, "Springs", "Neaps", "Neaps -3 days"},
      {8.0, 2.0, 36, 0, "Neaps ", "Springs ", "Neaps"},
      {10.0, 1.0, 54, 18, "Neaps ", "Springs ", "Neaps +3 days"},
      // The first S2 peak is a low one, 6 hours before the high one at 7.
      {9.0, 7.0, 12, 12, "Springs", "Neaps", "Springs +3 days"},
  };
  for (const auto& row : rows) {
    const std::optional<SpringNeap> found = FindSpringNeap(TwoTerms(row.m2_top, row.s2_top));
    ASSERT_TRUE(found) << row.label;
    EXPECT_EQ(found->samples, row.samples);
    EXPECT_FLOAT_EQ(found->hours, static_cast<float>(row.samples / 6.0));
    EXPECT_EQ(found->progress, row.progress);
    EXPECT_EQ(found->left, row.left);
    EXPECT_EQ(found->right, row.right);
    EXPECT_EQ(found->label, row.label);
  }
}

TEST(TideScreen, BandsOfTheLabelIncludeTheirEnds) {
  const std::pair<double, const char*> rows[] = {{0.0, "Springs"},
                                                 {0.3, "Springs"},
                                                 {0.31, "Springs +1 day"},
                                                 {1.4, "Springs +1 day"},
                                                 {1.9, "Springs +2 days"},
                                                 {2.5, "Springs +3 days"},
                                                 {3.3, "Neaps -3 days"},
                                                 {4.3, "Neaps -2 days"},
                                                 {5.2, "Neaps -1days"},
                                                 {6.8, "Neaps"},
                                                 {7.7, "Neaps +1 day"},
                                                 {8.5, "Neaps +2 days"},
                                                 {9.3, "Neaps +3 days"},
                                                 {10.2, "Springs -3 days"},
                                                 {10.9, "Springs -2 days"},
                                                 {14.0, "Springs -1 day"},
                                                 {14.01, ""},
                                                 {-0.1, ""}};
  for (const auto& [hours, label] : rows) EXPECT_EQ(SpringNeapLabel(hours), label) << hours;
}

// Springs come one to three days after new and full moon.
TEST(TideScreen, SpringsFollowTheMoonThroughAYearAtDover) {
  const Port dover = SamplePort("Dover");
  std::vector<int> syzygies;  // days of the year
  for (int month = 1; month <= 12; ++month) {
    for (const std::string& line : MoonLines(month, 2026)) {
      if (line.find("MOON") == std::string::npos) continue;
      for (int m = 1; m <= 12; ++m) {
        if (line.substr(6, 3) == LongMonthName(m).substr(0, 3) && line.substr(10, 4) == "2026") {
          syzygies.push_back(DateToDayOfYear(std::stoi(line.substr(3, 2)), m, 2026));
        }
      }
    }
  }
  int told = 0;
  int springs = 0;
  for (std::int16_t day = 20; day <= 350; ++day) {
    const TideScreen screen = MakeTideScreen(dover, {day, 2026}, {});
    if (!screen.spring_neap) continue;
    ++told;
    const std::string& label = screen.spring_neap->label;
    if (label != "Springs" && label != "Springs +1 day" && label != "Springs -1 day") continue;
    ++springs;
    int nearest = 99;
    for (const int syzygy : syzygies) {
      if (std::abs(day - 2 - syzygy) < std::abs(nearest)) nearest = day - 2 - syzygy;
    }
    EXPECT_LE(std::abs(nearest), 3) << day;
  }
  EXPECT_GT(told, 325);  // the terms have no such maxima on a day or two of the year
  EXPECT_GT(springs, 60);
}

// Heights of a ramp that rises by 0.1 m to entry 10 and falls by 0.2 m behind it.
TideCurve Ramp(float start) {
  TideCurve tide;
  float height = start;
  for (int i = 0; i < 154; ++i) {
    tide.curve.push_back({static_cast<float>(i / 6.0), height});
    height += i < 10 ? 0.1F : -0.2F;
  }
  return tide;
}

TEST(TideScreen, ReadingsUnderCursorAndMouse) {
  const TideCurve tide = Ramp(1.0F);
  const struct {
    double hours;
    std::size_t index;
    const char *time, *height, *cursor_state, *mouse;
  } rows[] = {
      {0.0, 0, "00:00", "1.0", "(Rising)", "(Rising @ 0.60 Mtrs/Hr )"},  // its own neighbour
      {0.5, 3, "00:30", "1.3", "(Rising)", "(Rising @ 0.60 Mtrs/Hr )"},
      {1.5, 9, "01:30", "1.9", "(Rising)", "(Rising @ 0.60 Mtrs/Hr )"},
      {1.75, 10, "01:45", "2.0", "(Falling)   ", "(Falling @ 0.30 Mtrs/Hr )"},  // over the top
      {2.0, 12, "02:00", "1.6", "(Falling)   ", "(Falling @ 1.20 Mtrs/Hr )"},
      // Below datum the height is an empty text, and the rate that of the heights' sizes.
      {6.0, 36, "06:00", "", "(Falling)   ", "(Falling @ 1.20 Mtrs/Hr )"},
      {24.4, 146, "24:24", "", "(Falling)   ", "( @ 1.20 Mtrs/Hr )"},
      {99.0, 146, "99:00", "", "(Falling)   ", "( @ 1.20 Mtrs/Hr )"},
      {-1.0, 0, "-01:00", "1.0", "(Rising)", "(Rising @ 0.60 Mtrs/Hr )"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.hours);
    EXPECT_EQ(CurveIndex(row.hours), row.index);
    const CursorReading cursor = ReadCursor(tide, row.hours);
    EXPECT_EQ(cursor.height, row.height);
    EXPECT_EQ(cursor.state, row.cursor_state);
    const std::optional<MouseReading> mouse = ReadMouse(tide, row.hours);
    ASSERT_TRUE(mouse);
    EXPECT_EQ(mouse->index, row.index);
    EXPECT_EQ(mouse->height, row.height);
    EXPECT_EQ(mouse->text, row.mouse);
    if (row.hours >= 0 && row.hours < 24) {
      EXPECT_EQ(cursor.time, row.time);
      EXPECT_EQ(mouse->time, row.time);
    }
  }
  EXPECT_EQ(ReadMouse(Ramp(-1.5F), 0.5)->text, "(Rising @ 0.60 Mtrs/Hr )");
  EXPECT_EQ(TideTitle(tide, 0.5, "00:30:12"),
            "Skerrow Tides     [Time Now 00:30Rising : Height = 1.3M.  :  @ 0.60 Mtrs/Hr]");
  TideCurve still = Ramp(2.0F);
  for (CurvePoint& point : still.curve) point.height = 2.0F;
  EXPECT_EQ(ReadCursor(still, 3.0).state, "");
  EXPECT_EQ(ReadMouse(still, 3.0)->text, "( @ 0.00 Mtrs/Hr )");
  for (CurvePoint& point : still.curve) point.hours = 1.0F;
  EXPECT_FALSE(ReadMouse(still, 3.0));
}

TEST(TideScreen, HeightsAtDatumAndBelowAreEmpty) {
  EXPECT_EQ(TideHeightText(0.0F), "");
  EXPECT_EQ(TideHeightText(-0.3F), "");
  EXPECT_EQ(TideHeightText(0.04F), "0.0");
  EXPECT_EQ(TideHeightText(12.25F), "12.3");
}

TEST(TideScreen, CaptionsAndDepthAtTheUsersPlace) {
  EXPECT_EQ(DepthCaption({1, 1.0F, 1.0F, false}), "Depths to Chart Datum");
  EXPECT_EQ(DepthCaption({2, 1.0F, 1.0F, false}), "");
  EXPECT_EQ(DepthCaption({3, 1.5F, 0.5F, false}), " : Draft=1.5M : Clearance=0.5M");
  EXPECT_EQ(DepthCaption({3, 0.0F, 0.5F, false}), " : Clearance=0.5M");
  Port port = FlatPort(0);
  EXPECT_EQ(PlaceDepthText(port, {2, 1.0F, 0.5F, false}, 3.0F), "");
  port.user_depth = 2.0F;
  EXPECT_EQ(PlaceDepthText(port, {1, 1.0F, 0.5F, false}, 3.0F), "");
  EXPECT_EQ(PlaceDepthText(port, {2, 1.0F, 0.5F, false}, 3.0F), "Depth at the place 5.0M");
  EXPECT_EQ(PlaceDepthText(port, {3, 1.0F, 0.5F, false}, 3.0F), "Depth at the place 3.5M");
}

TEST(TideScreen, TextsOfADayAndAMonth) {
  const Port dover = SamplePort("Dover");
  const TideScreen screen = MakeTideScreen(dover, {327, 2026}, {1, 0.0F, 0.0F, false});
  ASSERT_EQ(screen.lines.size(), screen.tide.waters.size() + 3);
  EXPECT_EQ(screen.lines[0], "Port : Dover");
  EXPECT_EQ(screen.lines[1], "Date : 23/11/2026");
  EXPECT_EQ(screen.lines[2], "");
  const Water& first = screen.tide.waters[0];
  EXPECT_EQ(screen.lines[3], TideHeightText(first.height) + "   " + HoursToClock(first.hours));

  const std::string day = DayClipboardText(screen);
  EXPECT_TRUE(day.starts_with("Port : Dover\r\nDate : 23/11/2026\r\n\r\n"));
  EXPECT_TRUE(day.ends_with("(Standard Time)\r\n" + screen.spring_neap->label));
  EXPECT_EQ(SunClipboardText(screen),
            "Port : Dover\r\nDate : 23/11/2026\r\nSun rise : " +
                HoursToClock(static_cast<float>(screen.sun.hours[kSunrise])) + "\r\nSun set  : " +
                HoursToClock(static_cast<float>(screen.sun.hours[kSunset])) + "\r\n");

  const std::string hourly = HourlyText(screen);
  EXPECT_EQ(std::count(hourly.begin(), hourly.end(), '\n'), 147);
  EXPECT_NE(hourly.find("\r\n00:10\t"), std::string::npos);
  EXPECT_NE(hourly.find("\r\n23:50\t"), std::string::npos);

  NoProgress progress;
  const std::optional<MonthTable> month = MakeMonthTable(dover, 11, 2026, false, progress);
  ASSERT_TRUE(month);
  ASSERT_EQ(month->days.size(), 30U);
  // The day of the table and the day of the list are the same waters, to two decimals and to one.
  ASSERT_EQ(month->days[22].size(), screen.tide.waters.size());
  EXPECT_EQ(month->days[22][0].time, HoursToClock(first.hours));
  EXPECT_EQ(month->days[22][0].height.size(), 4U);
  EXPECT_EQ(month->days[22][0].height.substr(0, 2), TideHeightText(first.height).substr(0, 2));
  const std::vector<std::string> head = {"",
                                         "",
                                         "Dover",
                                         "Monthly tidal prediction for November   2026",
                                         "Prediction for November",
                                         "",
                                         "1 Nov (Sun)"};
  EXPECT_EQ(std::vector<std::string>(month->lines.begin(), month->lines.begin() + 7), head);
  const std::string file = MonthFileText(month->lines);
  EXPECT_TRUE(file.starts_with("Dover\r\nMonthly tidal prediction for November   2026\r\n"));
  EXPECT_NE(file.find("\r\n" + month->days[0][0].time + "\t" + month->days[0][0].height + "\r\n"),
            std::string::npos);
  EXPECT_EQ(file.find("\r\n\r\n"), std::string::npos);
  EXPECT_TRUE(MonthClipboardText(screen, month->lines).ends_with("\r\n(Standard Time)"));
}

class StopAt final : public Progress {
 public:
  bool Step(double percent) override { return percent < 50.0; }
};

TEST(TideScreen, AMonthCanBeStoppedAndAFlatPortHasNoWaters) {
  StopAt stop;
  EXPECT_FALSE(MakeMonthTable(FlatPort(1.0F), 2, 2026, false, stop));
  NoProgress progress;
  const std::optional<MonthTable> month = MakeMonthTable(FlatPort(1), 2, 2028, false, progress);
  ASSERT_TRUE(month);
  EXPECT_EQ(month->days.size(), 29U);
  EXPECT_TRUE(month->days[0].empty());
  EXPECT_EQ(month->lines.back(), "29 Feb (Tue)");
}

TEST(TideScreen, SunFileSaysWhatDoesNotHappen) {
  const std::string file = SunFileText(SunTable(70, 20, 12, 2026, -1, false));
  EXPECT_NE(file.find("Dec 21\t01:00 none\t01:00 none\t09:34\t13:42\t07:45\t15:30\r\n"),
            std::string::npos)
      << file;
  EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 32);
}

TEST(TideScreen, DaysStepAcrossTheYears) {
  EXPECT_EQ(NextDay({366, 2028}), (DayAndYear{1, 2029}));
  EXPECT_EQ(NextDay({365, 2028}), (DayAndYear{366, 2028}));
  EXPECT_EQ(NextDay({365, 2026}), (DayAndYear{1, 2027}));
  EXPECT_EQ(PreviousDay({1, 2029}), (DayAndYear{366, 2028}));
  EXPECT_EQ(PreviousDay({1, 2026}), (DayAndYear{365, 2025}));
}

TEST(TideScreen, SeaLayersAddUpToTheHeight) {
  const TideScreen screen = MakeTideScreen(SamplePort("Southampton"), {100, 2026}, {});
  const LayerReading layers = ReadLayers(screen.tide, 37);
  EXPECT_NEAR(layers.sum, screen.tide.curve[37].height, 1e-5);
  EXPECT_EQ(layers.m2, screen.tide.layer_m2[37].height);
  EXPECT_EQ(layers.f6, screen.tide.layer_f6[37].height);
}

}  // namespace
}  // namespace skerrow
