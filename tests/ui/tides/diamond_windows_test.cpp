#include <filesystem>
#include <gtest/gtest.h>
#include <limits>

#include "app/stream_work.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/tides/frmDiaInfo.h"
#include "ui/tides/frmDiaRate.h"

namespace skerrow {
namespace {

using namespace testing;  // NOLINT: hands and desk

// The sample installation in a folder that may be changed, on 5 December 2026 at 09:00. The times
// of diamond 9999-51 are those of tests/tides/diamond_report_test.cpp.
class DiamondWindows : public SampleDesk {
 protected:
  DiamondWindows() {
    const std::string copy = user_.File("program");
    std::filesystem::create_directories(copy);
    std::filesystem::copy(SKERROW_PROGRAM_FOLDER "/TS", copy + "/TS");
    std::filesystem::copy(SKERROW_PROGRAM_FOLDER "/RefPorts.hc", copy + "/RefPorts.hc");
    program.folders.program = copy;
    LeaveClock(program);
    program.selected_time.hours = 9.0F;
    SetDay(program.selected_time, {339, 2026});
    ReloadDiamonds(program, messages);
    for (std::size_t i = 0; i < program.tides.diamonds.size(); ++i) {
      if (DiamondRef(program.tides.diamonds[i]) == "9999-51") index = i;
    }
  }
  const Diamond& Shown() const { return program.tides.diamonds[index]; }
  std::string File() const { return program.folders.TidalStreams() + "/Sample Chart.l25"; }
  static std::string Report(QWidget& form) {
    std::string text;
    auto* list = Find<QListWidget>(form, "lstTides");
    for (int row = 0; row < list->count(); ++row) text += TextOf(form, "lstTides", row) + "\n";
    return text;
  }

  std::size_t index = 0;
};

TEST_F(DiamondWindows, ShowTheDiamondAndItsDay) {
  frmDiaInfo form(desktop, index, nullptr);
  Show(form);
  EXPECT_EQ(form.windowTitle(), "Tidal Diamond Data");
  EXPECT_EQ(TextOf(form, "lstDiaData", 0), "Tidal stream ID 9999-51");
  EXPECT_EQ(TextOf(form, "lstDiaData", 1), "Ref Port Portsmouth (2)");
  EXPECT_EQ(TextOf(form, "lstDiaData", 6), "HW -6\t094\t  2.5\t  1.3");
  EXPECT_EQ(Find<QListWidget>(form, "lstDiaData")->count(), 19);
  EXPECT_TRUE(Report(form).starts_with(
      "Tidal Streams\nSaturday 5 Dec 2026\nTidal Streams Slack Water Times\n01:10      0.7kn.\n"));
  EXPECT_NE(Report(form).find("\nAt 09:00  2.1kn @274°T\n"), std::string::npos);
  Click(form, "cmdCopy");
  EXPECT_TRUE(
      clipboard.Text().starts_with("Tidal stream ID 9999-51\r\nRef Port Portsmouth (2)\r\n"));
  EXPECT_NE(clipboard.Text().find("\r\n01:10      0.7kn.\r\n"), std::string::npos);
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(window.changes, 0);
  EXPECT_EQ(program.selected_time.hours, 9.0F);
  EXPECT_EQ(program.tides.loaded->date, (DayAndYear{339, 2026}));
}

TEST_F(DiamondWindows, ReportAsTheOptionsSay) {
  program.config.slack_threshold = 1.5F;
  frmDiaInfo form(desktop, index, nullptr);
  Show(form);
  auto* recalculate = Find<QPushButton>(form, "cmdRecalculate");
  EXPECT_FALSE(recalculate->isVisible());
  Click(form, "optFlood");
  EXPECT_TRUE(recalculate->isVisible());
  EXPECT_EQ(Report(form).find("Flood"), std::string::npos);
  Click(form, "cmdRecalculate");
  EXPECT_FALSE(recalculate->isVisible());
  EXPECT_NE(Report(form).find("Tidal Streams Max Flood Times\n04:40      3.1kn.\n"),
            std::string::npos);
  Click(form, "OptAbove");
  Click(form, "cmdRecalculate");
  EXPECT_NE(Report(form).find("2026\n1.5kn at 02:40\n"), std::string::npos) << Report(form);
  // The arrows and the keys step by a tenth; Enter makes the report and leaves the window open.
  auto* rate = Find<QLineEdit>(form, "txtRate");
  Click(form, "UpDown1Up");
  EXPECT_EQ(rate->text(), "1.6");
  QTest::keyClick(rate, Qt::Key_Down);
  QTest::keyClick(rate, Qt::Key_Down);
  EXPECT_EQ(rate->text(), "1.4");
  Type(form, "txtRate", "9");
  QTest::keyClick(rate, Qt::Key_Return);
  EXPECT_TRUE(form.isVisible());
  EXPECT_NE(Report(form).find("Rate is always outside threshold"), std::string::npos);
  // A blank threshold: no keeps the report, yes takes 0.
  Type(form, "txtRate", "");
  messages.ExpectQuestion("Continue with Zero as the threshold?", false);
  Click(form, "cmdRecalculate");
  EXPECT_TRUE(recalculate->isVisible());
  messages.ExpectQuestion("Continue with Zero as the threshold?", true);
  Click(form, "cmdRecalculate");
  EXPECT_FALSE(recalculate->isVisible());
  // Typing a threshold chooses its report.
  Click(form, "OptSlack");
  Type(form, "txtRate", "1.5");
  EXPECT_TRUE(Find<QRadioButton>(form, "OptAbove")->isChecked());
}

TEST(Threshold, StepsByTenthsAndStopsAtZero) {
  const struct {
    const char* text;
    int steps;
    const char* stepped;
  } rows[] = {{"3", 1, "3.1"}, {"0.1", -1, "0"},   {"0", -1, "0"},
              {"", 1, "0.1"},  {"1.95", 1, "2.1"}, {"0.3", -2, "0.1"}};
  for (const auto& row : rows) EXPECT_EQ(StepThreshold(row.text, row.steps), row.stepped);
}

TEST_F(DiamondWindows, ReportTheMonthAndThePortsMonth) {
  frmDiaInfo form(desktop, index, nullptr);
  Show(form);
  window.stop_at = 20.0;
  Click(form, "Command1");
  EXPECT_TRUE(Report(form).starts_with("Tidal Streams\n")) << "a cancelled month shows nothing";
  window.stop_at.reset();
  Click(form, "Command1");
  EXPECT_TRUE(Report(form).starts_with("Monthly Tidal Stream Times\n"));
  EXPECT_NE(Report(form).find("\nThursday 31 Dec 2026\n"), std::string::npos);
  NextDialogs::Add([](QDialog& graph) {
    EXPECT_EQ(graph.objectName(), "frmDiaRate");
    EXPECT_EQ(Find<QLabel>(graph, "lblTitle")->text().toStdString(),
              "Graph of Time versus Rate 20:00      0.4kn.");
    QTest::keyClick(&graph, Qt::Key_Escape);
  });
  ClickRow(form, "lstTides", RowOfText(form, "lstTides", "Saturday 5 Dec 2026") + 4);
  Click(form, "cmdCalculate");
  EXPECT_TRUE(Report(form).starts_with("Monthly Tidal Heights\n"));
  EXPECT_NE(Report(form).find("Portsmouth"), std::string::npos);
  EXPECT_NE(Report(form).find("5 Dec (Sat)\n01:40   1.77\n08:50   4.27\n"), std::string::npos);
  ClickRow(form, "lstTides", 8);  // no line of a day of streams: nothing opens
  Click(form, "cmdRecalculate");
  EXPECT_TRUE(Report(form).starts_with("Tidal Streams\n"));
}

TEST_F(DiamondWindows, ChangeARowOfTheTable) {
  const std::string before = FileBytes(File());
  const Diamond old = Shown();
  frmDiaInfo form(desktop, index, nullptr);
  Show(form);
  const int row = RowOfText(form, "lstDiaData", "HW -1\t");
  ClickRow(form, "lstDiaData", row);
  Click(form, "cmdChange");
  EXPECT_EQ(Find<QLabel>(form, "Label1")->text(), "HW -1 Dir");
  EXPECT_EQ(Find<QLabel>(form, "Label3")->text(), "Np Rate");
  EXPECT_EQ(Find<QLineEdit>(form, "Text1")->text(), "94");
  Type(form, "Text2", "x2.75");  // a letter is dropped
  QTest::keyClick(Find<QLineEdit>(form, "Text2"), Qt::Key_Return);
  EXPECT_TRUE(form.isVisible()) << "Enter in a box must not close the window";
  EXPECT_EQ(messages.beeps, 1);
  EXPECT_EQ(TextOf(form, "lstDiaData", row), "HW -1\t094\t  2.8\t  0.1");
  EXPECT_EQ(Shown().spring_rate[6], 2.75F);
  EXPECT_EQ(Shown().neap_rate[6], old.neap_rate[6]);
  std::string expected = before;
  const std::size_t at = before.find(EncodeRecord(old, kDiamondFields));
  bytes::PutFloat(expected, at + 84 + 4 * 6, 2.75F);
  EXPECT_EQ(FileBytes(File()), expected);

  // The position; a place finer than its text keeps what was left alone to the last digit.
  Diamond fine = Shown();
  fine.latitude = 50.123456F;
  const ChangedDiamond moved = ChangeDiamond(program.folders, fine, 3, {"50.07.41N", "001.20.00W"});
  ASSERT_TRUE(moved.diamond);
  EXPECT_EQ(moved.diamond->latitude, fine.latitude);
  EXPECT_FLOAT_EQ(moved.diamond->longitude, -1.3333333F);
  ClickRow(form, "lstDiaData", 3, 2);
  EXPECT_EQ(Find<QLineEdit>(form, "Text1")->text(), "50.33.00N");
  Type(form, "Text2", "001.20.00w");
  QTest::keyClick(Find<QLineEdit>(form, "Text2"), Qt::Key_Return);
  EXPECT_FLOAT_EQ(Shown().longitude, -1.3333333F);
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
  EXPECT_NE(window.changed & kTimeChanged, 0U);
}

TEST_F(DiamondWindows, RefuseWhatNoDiamondHas) {
  const std::string before = FileBytes(File());
  frmDiaInfo form(desktop, index, nullptr);
  Show(form);
  const struct {
    int row;
    const char* box;
    const char* typed;
    const char* refusal;
  } rows[] = {
      {0, "Text1", "-1", "The number of a chart cannot be negative."},
      {1, "Text1", "1.5", "There is no reference port of that number; there are 1 to 23."},
      {1, "Text1", "0", "There is no reference port of that number; there are 1 to 23."},
      {2, "Text1", "1", "The spring range must be larger than the neap range."},
      {2, "Text2", "-0.5", "A range cannot be negative."},
      {3, "Text1", "34.59.00N", "Diamonds are shown between 35 and 75 degrees north only."},
      {3, "Text2", "001.20.00", "A longitude is typed as 001.05.40W."},
      {6, "Text1", "361", "The direction must lie from 0 to 360 degrees."},
      {12, "Text2", "1-2", "\"1-2\" is no number."},
      {18, "Text3", "-0.1", "A rate cannot be negative."},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.typed);
    ClickRow(form, "lstDiaData", row.row);
    Click(form, "cmdChange");
    Type(form, row.box, row.typed);
    messages.Expect(row.refusal, MessageIcon::kWarning);
    Click(form, "cmdAccept");
    QTest::keyClick(&form, Qt::Key_Escape);  // leaves the boxes, not the window
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(Find<QWidget>(form, "Frame1")->isVisible());
  }
  ClickRow(form, "lstDiaData", 5);
  EXPECT_FALSE(Find<QPushButton>(form, "cmdChange")->isEnabled());
  EXPECT_EQ(FileBytes(File()), before);
}

TEST_F(DiamondWindows, AddAndDelete) {
  const std::string before = FileBytes(File());
  const std::size_t count = program.tides.diamonds.size();
  frmDiaInfo form(desktop, index, nullptr);
  Show(form);
  messages.Expect(
      "A diamond with the same data has been added and is now shown. Change its number and its "
      "position.",
      MessageIcon::kInformation);
  Click(form, "cmdAdd");
  EXPECT_EQ(program.tides.diamonds.size(), count + 1);
  EXPECT_EQ(FileBytes(File()), before + EncodeRecord(Shown(), kDiamondFields));
  ClickRow(form, "lstDiaData", 0);
  Click(form, "cmdChange");
  Type(form, "Text2", "777");
  Click(form, "cmdAccept");
  EXPECT_EQ(DiamondRef(program.tides.diamonds.back()), "9999-777");
  EXPECT_EQ(DiamondRef(Shown()), "9999-51");
  messages.ExpectQuestion("Delete diamond 9999-777 at 50.33.00N, 001.18.00W?", false);
  Click(form, "cmdDelete");
  EXPECT_TRUE(form.isVisible());
  messages.ExpectQuestion("Delete diamond 9999-777 at 50.33.00N, 001.18.00W?", true);
  Click(form, "cmdDelete");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(FileBytes(File()), before);
}

TEST_F(DiamondWindows, SayWhenTheFileCannotBeWritten) {
  const std::string before = FileBytes(File());
  frmDiaInfo form(desktop, index, nullptr);
  Show(form);
  std::filesystem::permissions(program.folders.TidalStreams(), std::filesystem::perms(0555));
  AsPlainUser([&] {
    messages.Expect("This file could not be written, and nothing in it has changed:\n" + File() +
                        ": Permission denied",
                    MessageIcon::kError);
    Click(form, "cmdAdd");
  });
  std::filesystem::permissions(program.folders.TidalStreams(), std::filesystem::perms(0755));
  EXPECT_EQ(FileBytes(File()), before);
  EXPECT_TRUE(form.isVisible());
}

// A stream that rises by a hundredth of a knot an entry, but for one that is not known.
RateGraph Rising() {
  RateGraph graph;
  graph.date = {339, 2026};
  graph.line = "05:20      1.4kn.";
  for (std::size_t i = 0; i < kDayStreamEntries; ++i) {
    graph.stream[i] = {static_cast<float>(i + 1) / 50.0F, static_cast<float>(i), 0, true};
  }
  return graph;
}

TEST(DiamondRate, PlotsFromEntryToEntry) {
  RateGraph graph = Rising();
  graph.threshold = 1.5F;
  graph.stream[70].known = false;
  const Plot plot = DiamondRatePlot(Diamond{}, graph);
  EXPECT_EQ(plot.x.from, 0.0);
  EXPECT_EQ(plot.x.to, 144.0);
  EXPECT_EQ(plot.y.from, 0.0);
  EXPECT_EQ(plot.y.to, 4.0);  // 2.88 knots, rounded, and one
  ASSERT_EQ(plot.series.size(), 1U);
  const std::vector<DataPoint>& points = plot.series[0].points;
  ASSERT_EQ(points.size(), 145U);
  EXPECT_FLOAT_EQ(static_cast<float>(points[0].y), 0.02F);
  EXPECT_FLOAT_EQ(static_cast<float>(points[1].y), 0.02F);
  EXPECT_FLOAT_EQ(static_cast<float>(points[144].y), 2.88F);
  EXPECT_TRUE(std::isnan(points[71].y));
  EXPECT_EQ(plot.series[0].colour, Rgb(255, 0, 0));
  ASSERT_EQ(plot.marks.size(), 1U);
  EXPECT_FALSE(plot.marks[0].upright);
  EXPECT_EQ(plot.marks[0].at, 1.5);
  EXPECT_EQ(plot.marks[0].colour, Rgb(0, 0, 255));
  EXPECT_EQ(plot.x.ticks[3].label, "03:00");
  EXPECT_EQ(plot.x.ticks[3].at, 19.0);  // entry 19 is 03:00
  graph.threshold.reset();
  EXPECT_TRUE(DiamondRatePlot(Diamond{}, graph).marks.empty());
  EXPECT_EQ(RateReadout(graph.stream, RateEntry(20.4)),
            "Time: 03:10     Rate: 0.4Kn.    Dir: 019 °T");
  EXPECT_EQ(RateReadout(graph.stream, 71), "Time: 11:40     No high water to count from");
  EXPECT_EQ(RateEntry(-3.0), 1);
  EXPECT_EQ(RateEntry(1e9), 144);
}

TEST_F(DiamondWindows, ReadTheGraphByMouseAndKeys) {
  frmDiaRate form(desktop, Shown(), Rising(), nullptr);
  Show(form);
  auto* picture = Find<PlotWidget>(form, "picRate");
  auto* readout = Find<QLabel>(form, "lblReadout");
  QTest::mouseMove(picture, picture->PlaceOf({73.0, 1.0}).toPoint());
  EXPECT_EQ(readout->text().toStdString(), "Time: 12:00     Rate: 1.5Kn.    Dir: 072 °T");
  QTest::keyClick(picture, Qt::Key_Right);
  EXPECT_EQ(readout->text().toStdString(), "Time: 12:10     Rate: 1.5Kn.    Dir: 073 °T");
  ASSERT_EQ(picture->cursors().size(), 1U);
  EXPECT_EQ(picture->cursors()[0].x, 74.0);
  QStringList notes;
  for (const QLabel* label : form.findChildren<QLabel*>()) notes << label->text();
  EXPECT_TRUE(
      notes.contains("The graph can often look erratic, always refer to the tidal diamond data."));
  EXPECT_TRUE(notes.contains("Graph of Time versus Rate 05:20      1.4kn."));
}

TEST_F(DiamondWindows, PrintWhatTheyShow) {
  const auto text = [](const PrintDocument& page) {
    std::string all;
    for (const PrintItem& item : page.items) {
      all += item.text + "\n";
      for (const auto& block : item.blocks) {
        for (const PrintItem& line : block) all += line.text + "\n";
      }
    }
    return all;
  };
  DiamondRequest request;
  request.diamond = Shown();
  request.date = {339, 2026};
  const std::string page =
      text(DiamondPage(program, Shown(), MakeDiamondDay(program.tides, request).lines));
  for (const char* line : {"Position 50.33.00N, 001.18.00W, Diamond Reference: 9999-51\n",
                           "Reference Port: Portsmouth\n", "Printed on 14/06/2026  at 09:30\n",
                           "Times from midnight local time - WITHOUT SUMMER TIME CORRECTION\n",
                           "HW -6\t094\t  2.5\t  1.3\n", "01:10      0.7kn.\n"}) {
    EXPECT_NE(page.find(line), std::string::npos) << line;
  }
  program.config.summer_time = kTrue;
  const std::string graph = text(DiamondRatePage(program, Shown(), Rising(), Picture{}));
  for (const char* line :
       {"Prediction for Tidal Diamond Reference: 9999-51\n",
        "Diamond Position 50.33.00N, 001.18.00W\n", "Diamond Referenced to: Portsmouth\n",
        "TIDAL DIAMOND DETAILS\n", "HW +6\t", "Times shown are WITH SUMMER TIME CORRECTION\n"}) {
    EXPECT_NE(graph.find(line), std::string::npos) << line;
  }
}

}  // namespace
}  // namespace skerrow
