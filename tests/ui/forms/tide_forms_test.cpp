#include "ui/forms/tide_forms.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "support/sample_desk.h"
#include "ui/forms/sun_form.h"
#include "ui/forms/tide_plot.h"

namespace skerrow {
namespace {

namespace fs = std::filesystem;

// A program folder of one's own with made-up ports.
class TideFormTest : public testing::SampleDesk {
 protected:
  TideFormTest() {
    program.folders.program = user_.File("program");
    fs::create_directories(program.folders.TidalStreams());
    fs::copy(std::string(SKERROW_PROGRAM_FOLDER) + "/RefPorts.hc", program.folders.RefPortFile());
    Write("UK.hc", {PortAt("Dover", 51.11F, 1.32F), PortAt("Folkestone", 51.08F, 1.18F),
                    PortAt("A/B: pier", 51.0F, 1.0F)});
    program.config.tidal_port_file = "UK.hc";
    program.config.tide_port_number = 1;
    program.config.tide_display_option = 1;
  }
  static Port PortAt(const char* name, float latitude, float longitude) {
    Port port;
    port.name = name;
    port.latitude = latitude;
    port.longitude = longitude;
    port.z0 = 3.0F;
    port.m2_g = 30.0F;
    port.m2_hm = 2.0F;
    port.s2_hm = 0.7F;
    port.delta_z0.fill(0.0F);
    port.mhm2.fill(2.0F);
    return port;
  }
  std::string AreaFile(const std::string& name) const {
    return JoinPath(program.folders.TidalStreams(), name);
  }
  void Write(const std::string& name, const std::vector<Port>& ports) {
    ASSERT_TRUE(WriteRecords(AreaFile(name), std::span(ports), kPortFields));
  }
};

TEST_F(TideFormTest, OpensThePortOfTheSettingsOnTheSelectedDay) {
  TideForm form(program);
  ASSERT_TRUE(form.Open());
  EXPECT_EQ(Trim(form.screen().port.name), "Dover");
  EXPECT_EQ(form.screen().date, (DayAndYear{165, 2026}));
  EXPECT_TRUE(form.IsToday());
  EXPECT_DOUBLE_EQ(form.hours(), 9.5);
  EXPECT_EQ(form.DayFileName(), "Dover_14_June_2026");
  ASSERT_TRUE(form.Open(3));
  EXPECT_EQ(form.DayFileName(), "A-B- pier_14_June_2026");

  // Another file's number names no port here: the first one is taken.
  program.config.tide_port_number = 76;
  ASSERT_TRUE(form.Open());
  EXPECT_EQ(form.position(), 1);

  form.ToPreviousDay();
  EXPECT_FALSE(form.IsToday());
  clock.now.hour = 11;
  form.Tick();
  EXPECT_DOUBLE_EQ(form.hours(), 9.5);
  form.ToToday();
  clock.now.hour = 12;
  form.Tick();
  EXPECT_DOUBLE_EQ(form.hours(), 12.5);
  EXPECT_TRUE(form.Title().starts_with("Skerrow Tides     [Time Now 12:30")) << form.Title();
}

TEST_F(TideFormTest, APortThatCannotBeReadLeavesTheScreenAsItWas) {
  TideForm form(program);
  ASSERT_TRUE(form.Open(2));
  fs::remove(AreaFile("UK.hc"));
  const Status gone = form.Open(1);
  ASSERT_FALSE(gone);
  EXPECT_EQ(gone.error().path, AreaFile("UK.hc"));
  EXPECT_EQ(form.position(), 2);
  form.ToNextDay();
  EXPECT_EQ(form.screen().date.day, 166);
  // No ports; and one that is damaged.
  ASSERT_TRUE(ReplaceFile(AreaFile("Empty.hc"), ""));
  EXPECT_FALSE(form.OpenArea("Empty.hc"));
  ASSERT_TRUE(ReplaceFile(AreaFile("Bad.hc"), std::string(kPortSize, '\xFF')));
  EXPECT_FALSE(form.OpenArea("Bad.hc"));
  EXPECT_EQ(form.area(), "UK.hc");
  EXPECT_EQ(form.position(), 2);
  EXPECT_EQ(Trim(form.screen().port.name), "Folkestone");
}

TEST_F(TideFormTest, KeepsPortAndAreaInTheSettings) {
  TideForm form(program);
  ASSERT_TRUE(form.Open(2));
  ASSERT_TRUE(form.Keep());
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program.folders, stored));
  EXPECT_EQ(stored.tide_port_number, 2);
  Write("France.hc", {PortAt("Calais", 50.97F, 1.85F)});
  ASSERT_TRUE(form.OpenArea("France.hc"));
  ASSERT_TRUE(form.Keep());
  ASSERT_TRUE(ReadConfig(program.folders, stored));
  EXPECT_EQ(Trim(stored.tidal_port_file), "France.hc");
  EXPECT_EQ(stored.tide_port_number, 1);
  EXPECT_EQ(Trim(stored.tide_port_name), "Calais");
  EXPECT_EQ(program.config.tide_port_number, 1);
  EXPECT_EQ(ListTideAreas(program.folders), (std::vector<std::string>{"France.hc", "UK.hc"}));
  for (const char* name : {"UK.hc", "UK.HC"}) EXPECT_EQ(TideAreaRefusal(name), nullptr) << name;
  EXPECT_STREQ(TideAreaRefusal("UK.Hc"), "Problem with the area file name");
}

TEST_F(TideFormTest, TheDepthAtThePlaceStandsBelowEachWater) {
  TideForm form(program);
  ASSERT_TRUE(SaveUserDepth(program.folders, "UK.hc", 1, 1.5F));
  ASSERT_TRUE(form.Open());
  EXPECT_EQ(form.SideLines(), form.screen().lines);
  program.config.tide_display_option = 2;
  form.Refresh();
  const std::size_t waters = form.screen().tide.waters.size();
  ASSERT_GE(waters, 3U);
  std::vector<std::string> lines = form.SideLines();
  ASSERT_EQ(lines.size(), 3 + 2 * waters);
  const double height = form.screen().tide.waters[0].height;
  EXPECT_NEAR(TextToNumber(lines[3]), height, 0.051);
  EXPECT_NEAR(TextToNumber(lines[4].substr(19)), height + 1.5, 0.051);
  program.config.tide_display_option = 3;
  program.config.draught = 1.0F;
  program.config.under_keel_clearance = 0.25F;
  form.Refresh();
  EXPECT_NEAR(TextToNumber(form.SideLines()[4].substr(19)), height + 0.25, 0.051);
}

TEST_F(TideFormTest, TheMonthStaysUntilAPortIsOpened) {
  struct Stop final : Progress {
    bool Step(double percent) override { return percent < 50.0; }
  } stop;
  NoProgress go;
  TideForm form(program);
  ASSERT_TRUE(form.Open());
  EXPECT_FALSE(form.MakeMonth(stop));
  EXPECT_FALSE(form.HasMonth());
  ASSERT_TRUE(form.MakeMonth(go));
  EXPECT_TRUE(form.HasMonth());
  EXPECT_EQ(form.month().file_name, "Dover_June_2026");
  EXPECT_EQ(form.month().title, "June 2026");
  form.GoTo({1, 2027});
  EXPECT_TRUE(form.HasMonth());
  const PrintDocument page = MonthPage(form);
  EXPECT_EQ(page.items[1].text, "Port : Dover     Date : June 2026");
  EXPECT_EQ(page.items.back().blocks.size(), 30U);
  ASSERT_TRUE(form.Open(2));
  EXPECT_FALSE(form.HasMonth());

  EXPECT_EQ(DayOfMonthLine("14 Jun (Sun)"), 14);
  for (const char* line : {"", "06:12   1.20", "Prediction for June"}) {
    EXPECT_EQ(DayOfMonthLine(line), 0);
  }
}

TEST_F(TideFormTest, APortWithoutATideHasAMonthWithoutWaters) {
  Port flat;
  flat.name = "Flat";
  flat.z0 = 1.5F;
  Write("UK.hc", {flat});
  NoProgress go;
  TideForm form(program);
  ASSERT_TRUE(form.Open());
  EXPECT_FALSE(form.screen().spring_neap);
  EXPECT_EQ(form.SideLines().size(), 3U);
  EXPECT_TRUE(TideDayPlot(form.screen()).spots.empty());
  ASSERT_TRUE(form.MakeMonth(go));
  EXPECT_TRUE(form.HasMonth());
  EXPECT_EQ(form.month().lines.size(), 5U + 2 * 30);
  EXPECT_EQ(MonthPage(form).items.back().blocks.size(), 30U);
}

TEST_F(TideFormTest, PagesCarryThePortTheDateTheTimeBasisAndTheNotice) {
  program.config.tide_display_option = 3;
  program.config.summer_time = -1;
  TideForm form(program);
  ASSERT_TRUE(form.Open());
  const std::vector<PrintDocument> pages = {DayPage(form, {}), HourlyPage(form)};
  for (const PrintDocument& page : pages) {
    EXPECT_EQ(page.items[1].text, "Port : Dover     Date : Sunday 14 June 2026");
    EXPECT_EQ(page.items[2].text, " Times shown are with Summer Time correction");
    EXPECT_EQ(page.items[3].text,
              "Heights in Metres, all data are derived and should therefore be considered as "
              "approximate. Source: the harmonic constants of UK.hc");
    EXPECT_EQ(page.items[4].text, "Heights shown in Metres");
    EXPECT_EQ(page.items[5].text,
              "Dotted curve shows effect of Draft 0.5M + Under keel Clearance 0.5M. taken from "
              "prediction");
  }
  ASSERT_EQ(pages[1].items.back().blocks.size(), 24U);
  EXPECT_TRUE(pages[1].items.back().blocks[23][5].text.starts_with("23:50\t"));
}

TEST_F(TideFormTest, OptionsAreCheckedAndStored) {
  struct Row {
    const char* draught;
    const char* clearance;
    TideOptionRefusal refusal;
  };
  for (const Row& row : {Row{" 1.2 ", "", TideOptionRefusal::kNone},
                         {"100", "100", TideOptionRefusal::kNone},
                         {"100.1", "1", TideOptionRefusal::kDraught},
                         {"-1", "1", TideOptionRefusal::kDraught},
                         {"1", "1e30", TideOptionRefusal::kClearance}}) {
    EXPECT_EQ(CheckTideOptions({3, row.draught, row.clearance, false}), row.refusal)
        << row.draught << " " << row.clearance;
  }
  ASSERT_TRUE(CommitTideOptions(program, {3, " 1.2 ", "0.7", true}, messages));
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program.folders, stored));
  EXPECT_EQ(stored.tide_display_option, 3);
  EXPECT_FLOAT_EQ(stored.draught, 1.2F);
  EXPECT_FLOAT_EQ(stored.under_keel_clearance, 0.7F);
  EXPECT_EQ(stored.summer_time, -1);
  const TideOptionTexts texts = TideOptionTextsOf(program.config);
  EXPECT_EQ(texts.draught, "1.2");
  EXPECT_EQ(texts.clearance, "0.7");
}

TEST_F(TideFormTest, TheUsersDepthIsAllThatChangesInItsFile) {
  struct Row {
    const char* text;
    std::optional<float> depth;
  };
  for (const Row& row : {Row{" -1.5 ", -1.5F},
                         {"+2", 2.0F},
                         {"0", 0.0F},
                         {".5", 0.5F},
                         {"1000", 1000.0F},
                         {"1000.1", {}},
                         {"", {}},
                         {"deep", {}},
                         {"1.5m", {}},
                         {"nan", {}},
                         {"--1", {}},
                         {"1e2", {}}}) {
    EXPECT_EQ(ParseUserDepth(row.text), row.depth) << row.text;
  }
  std::string before = *ReadFile(AreaFile("UK.hc"));
  // Bytes that no record holds: a short last record, and a name of odd letters.
  before[kPortSize + 7] = '\x81';
  before += "tail";
  ASSERT_TRUE(ReplaceFile(AreaFile("UK.hc"), before));
  ASSERT_TRUE(SaveUserDepth(program.folders, "UK.hc", 2, -2.5F));
  const std::string after = *ReadFile(AreaFile("UK.hc"));
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    const bool depth = i >= kPortSize + 36 && i < kPortSize + 40;
    ASSERT_TRUE(depth || after[i] == before[i]) << i;
  }
  EXPECT_EQ(ReadAreaPort(program.folders, "UK.hc", 2)->user_depth, -2.5F);
  for (const int position : {0, 4}) {
    EXPECT_FALSE(SaveUserDepth(program.folders, "UK.hc", position, 1.0F)) << position;
  }
  EXPECT_EQ(*ReadFile(AreaFile("UK.hc")), after);
}

TEST_F(TideFormTest, OfPortsWithinReachTheLastIsTaken) {
  PortList ports = *ListPorts(program.folders, "UK.hc");
  const Position dover = {51.11F, 1.32F};
  EXPECT_EQ(PortNear(ports, dover, 1.0F), 1);
  EXPECT_EQ(PortNear(ports, dover, 10.0F), 2);
  EXPECT_EQ(PortNear(ports, dover, 0.0F), 0);
  EXPECT_EQ(PortNear(ports, {40.0F, 1.0F}, 10.0F), 0);
  // Positions count damaged records too.
  std::string content = *ReadFile(AreaFile("UK.hc"));
  content.replace(40, 8, 8, '\xFF');
  ASSERT_TRUE(ReplaceFile(AreaFile("UK.hc"), content));
  ports = *ListPorts(program.folders, "UK.hc");
  EXPECT_EQ(ports.rows.size(), 2U);
  EXPECT_EQ(ports.rows[0].position, 2);
  EXPECT_NE(ports.left_out, "");
}

TEST(SunForm, RefusesWhatIsNoPosition) {
  struct Row {
    const char* latitude;
    const char* longitude;
    SunRefusal refusal;
  };
  for (const Row& row : {Row{" 50.30.25N ", " 001.05.40W ", SunRefusal::kNone},
                         {"89.59.99S", "179.59.99E", SunRefusal::kNone},
                         {"90.00.00N", "001.05.40W", SunRefusal::kLatitude},
                         {"50.30.25N", "180.00.00E", SunRefusal::kLongitude},
                         {"50.30.250N", "001.05.40W", SunRefusal::kLatitude},
                         {"50.30.25N", "001.05.400W", SunRefusal::kLongitude},
                         {"50.30.25", "001.05.40W", SunRefusal::kLatitude},
                         {"N50.30.2N", "001.05.40W", SunRefusal::kLatitude},
                         {"50.30.25N", "W01.05.40W", SunRefusal::kLongitude},
                         {"50.30.25N", "", SunRefusal::kLongitude},
                         {"50.30.25W", "001.05.40W", SunRefusal::kLatitude}}) {
    EXPECT_EQ(CheckSunEntry({"", row.latitude, row.longitude}).refusal, row.refusal)
        << row.latitude << " " << row.longitude;
  }
  const Position place = CheckSunEntry({"", "50.30.00S", "001.30.00E"}).position;
  EXPECT_NEAR(place.latitude, -50.5, 1e-5);
  EXPECT_NEAR(place.longitude, 1.5, 1e-5);
}

TEST(SunForm, TellsEventsThatDoNotHappen) {
  SunDay day;
  day.date_text = "Jun 21";
  day.times.hours = {0.0, 1.5, 2.75, 3.5, 20.25, 21.0, 22.5, 0.0};
  day.times.happens = {false, true, true, true, true, true, true, false};
  const std::vector<SunRow> rows = SunRowsOf(day);
  EXPECT_EQ(rows[0].time, "00:00 none");
  EXPECT_EQ(rows[3].words, "Sunrise");
  EXPECT_EQ(rows[3].time, "03:30");
  EXPECT_EQ(rows[4].time, "20:15");
  EXPECT_EQ(DaylightText(day.times), "Daylight hours 16:45");
  EXPECT_EQ(TwilightText(day.times), "(incl. civil twilight) 18:15");
  // On a clock far from the sun's the evening comes first.
  day.times.hours[kSunrise] = 18.0;
  day.times.hours[kSunset] = 6.5;
  EXPECT_EQ(DaylightText(day.times), "Daylight hours 12:30");
  day.times.happens[kSunset] = false;
  EXPECT_EQ(DaylightText(day.times), "Daylight hours none");

  const SunResults results = MakeSunResults({" Tromso ", "69.40.00N", "018.57.00E"},
                                            {69.67F, 18.95F}, 12, 2026, -1, false);
  EXPECT_EQ(results.days.size(), 31U);
  EXPECT_EQ(results.moon.size(), 4U);
  EXPECT_EQ(SunTableLines(results).size(), 32U);
  EXPECT_EQ(SunRowsOf(results.days[20])[3].happens, false);
  EXPECT_EQ(SunFileName(results), "Tromso_Sun_December_2026");
  EXPECT_EQ(SunPage(results).items[1].text,
            "Port : Tromso     69.40.00N  018.57.00E     Date : December 2026");
}

}  // namespace
}  // namespace skerrow
