// The chart tools, by real events, on a copy of the sample installation.

#include <QAction>
#include <QLabel>
#include <filesystem>

#include "core/data_files.h"
#include "core/files.h"
#include "core/progress.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/charts/frmChartInfo.h"
#include "ui/charts/frmEditChart.h"
#include "ui/charts/frmEditXrf.h"

namespace skerrow::testing {
namespace {

class ChartToolWindows : public SampleDesk {
 protected:
  ChartToolWindows() {
    const std::string copy = user_.File("program");
    std::filesystem::copy(SKERROW_PROGRAM_FOLDER, copy, std::filesystem::copy_options::recursive);
    program.folders.program = copy;
    // The settings stored by the desk name the installed charts.
    EXPECT_TRUE(SaveConfig(program.folders, DefaultConfig(copy)));
    LoadProgram(program, messages);
    viewer.resize(800, 600);
  }
  std::string Cht(const char* key) const {
    return FileBytes(program.folders.Charts() + "/" + key + ".cht");
  }
  std::string Xrf() const { return FileBytes(program.folders.Charts() + "/Sample Chart.xrf"); }
  // The chart in view, as the main window shows it.
  void ShowChart() {
    NoProgress progress;
    ASSERT_TRUE(viewer.OpenAndWait(Trim(program.config.chart_path) + std::string(kChartImage),
                                   ChartViewer::OnFailure::kShowEmpty, progress));
    viewer.show();
    viewer.SetZoom(1.0);
    viewer.SetScrollPosition({300, 200});
  }
  std::unique_ptr<frmChartInfo> Info() {
    auto form = std::make_unique<frmChartInfo>(
        desktop, viewer, [this] { ++redrawn; }, nullptr);
    Show(*form);
    return form;
  }
  static std::string BoxOf(QWidget& form, const char* box) {
    return Find<QLineEdit>(form, box)->text().toStdString();
  }

  ChartViewer viewer;
  int redrawn = 0;
};

TEST_F(ChartToolWindows, OkChangesMemoryOnly) {
  program.charts.chart.file.upper_lat = 51.6512345F;  // finer than its text
  const std::string before = EncodeRecord(program.charts.chart.file, kChartFileFields);
  {
    const auto form = Info();
    EXPECT_EQ(BoxOf(*form, "txtUpperLat"), "51.39.07N");
    EXPECT_EQ(BoxOf(*form, "txtLowerLon"), "006.36.00W");
    EXPECT_EQ(BoxOf(*form, "txtRightPix"), "5339");
    Click(*form, "cmdOK");
    EXPECT_FALSE(form->isVisible());
  }
  EXPECT_EQ(EncodeRecord(program.charts.chart.file, kChartFileFields), before)
      << "what is left as it was shown keeps its value";
  EXPECT_EQ(redrawn, 1);
  const std::string stored = Cht("9999-1");
  const auto form = Info();
  Type(*form, "txtUpperLat", "52.00.00N");
  Type(*form, "txtRightPix", "5239");
  Click(*form, "cmdOK");
  EXPECT_EQ(program.charts.chart.top_lat, 52.0F);
  // 9.05 degrees over 5,099 columns, from 6.6 west at column 140.
  EXPECT_NEAR(program.charts.chart.west_lon, -6.6 - 140 * 9.05 / 5099, 1e-5);
  EXPECT_NEAR(program.charts.chart.east_lon, 2.45 + (5479 - 5239) * 9.05 / 5099, 1e-5);
  EXPECT_EQ(Cht("9999-1"), stored);
  EXPECT_EQ(redrawn, 2);
  ASSERT_TRUE(ReadChartSettings(program.folders, program.config, program.charts));
  EXPECT_EQ(program.charts.chart.top_lat, 51.65F);
}

TEST_F(ChartToolWindows, EntriesAreRefusedInTheirWords) {
  const auto form = Info();
  const struct {
    const char* box;
    const char* text;
    const char* refusal;
    const char* focus;
  } rows[] = {
      {"txtUpperLat", "", "Error - Upper Latitude entry", "txtUpperLat"},
      {"txtUpperLat", "N", "Error - Upper Latitude entry", "txtUpperLat"},
      {"txtUpperLat", "51N", "Error - Upper Latitude entry", "txtUpperLat"},
      {"txtLowerLat", "95.00.00N", "Error - Lower Latitude entry", "txtLowerLat"},
      {"txtLowerLon", "006.36.00", "Error - Longitudes entry", "txtLowerLon"},
      {"txtUpperLon", "E002.27", "Error - Longitudes entry", "txtUpperLon"},
      {"txtTopPix", "", "Error - Upper Row entry", "txtTopPix"},
      {"txtTopPix", "1-2", "Error - Upper Row entry", "txtTopPix"},
      {"txtScale", "0", "Error - Scale entry", "txtScale"},
      {"txtTopPix", "3392", "The chart is not calibrated, the two calibration rows are equal", ""},
      {"txtRightPix", "140", "The chart is not calibrated, the two calibration columns are equal",
       ""},
      {"txtUpperLat", "48.00.00N",
       "The chart is not calibrated, the two calibration latitudes are equal", ""},
  };
  for (const auto& row : rows) {
    const std::string good = BoxOf(*form, row.box);
    Type(*form, row.box, row.text);
    EXPECT_EQ(Find<QLabel>(*form, "lblEdges")->text(), row.refusal) << row.text;
    messages.Expect(row.refusal, MessageIcon::kWarning);
    Click(*form, "cmdOK");
    EXPECT_TRUE(form->isVisible());
    if (*row.focus != '\0') {
      EXPECT_TRUE(Find<QLineEdit>(*form, row.focus)->hasFocus()) << row.focus;
    }
    Find<QLineEdit>(*form, row.box)->setText(QString::fromStdString(good));
  }
  EXPECT_EQ(redrawn, 0);
  EXPECT_EQ(Find<QLabel>(*form, "lblEdges")->text(),
            "The image reaches from 006.50.62W to 002.41.62E");
  Type(*form, "txtUpperLat", "47.00.00N");
  EXPECT_EQ(Find<QLabel>(*form, "lblEdges")->text(),
            "By these lines north is at the foot of the chart");
  Type(*form, "txtUpperLat", "51.39.00s");
  EXPECT_EQ(BoxOf(*form, "txtUpperLat"), "51.39.00S");
}

TEST_F(ChartToolWindows, TheMenuSavesAndRestores) {
  const std::string delivered = Cht("9999-1");
  const auto form = Info();
  const auto trigger = [&](const char* name) { form->findChild<QAction*>(name)->trigger(); };
  Type(*form, "txtTopPix", "150");
  trigger("mnuRestore");
  EXPECT_EQ(BoxOf(*form, "txtTopPix"), "150") << "one record only";
  trigger("mnuSave");
  std::string changed = delivered;
  bytes::PutFloat(changed, 4, 150.0F);
  EXPECT_EQ(Cht("9999-1"), changed + delivered);
  EXPECT_EQ(program.charts.chart.top_row, 150.0F);
  EXPECT_EQ(redrawn, 1);
  Type(*form, "txtTopPix", "160");
  trigger("mnuSave");
  trigger("mnuRestore");
  EXPECT_EQ(BoxOf(*form, "txtTopPix"), "140");
  EXPECT_EQ(Cht("9999-1").substr(64), delivered);
  EXPECT_EQ(bytes::GetFloat(Cht("9999-1"), 4), 160.0F) << "a restore writes nothing";
  EXPECT_TRUE(form->isVisible());
  std::filesystem::remove(program.folders.Charts() + "/9999-1.cht");
  messages.Expect(
      "Does not exist in Mod. ReadChartSettings\n" + program.folders.Charts() + "/9999-1.cht",
      MessageIcon::kWarning);
  trigger("mnuSave");
  EXPECT_FALSE(std::filesystem::exists(program.folders.Charts() + "/9999-1.cht"));
}

// Two clicks with typed positions calibrate a chart; a third place is told by them at once.
TEST_F(ChartToolWindows, TwoClicksCalibrate) {
  ShowChart();
  const auto form = Info();
  Find<QLineEdit>(*form, "txtWidth")->setText("1");
  const QPoint upper(100, 50);
  const QPoint lower(700, 550);
  const auto image = [&](QPoint at) { return viewer.ViewToImage(QPointF(at)); };
  const auto pick = [&](const char* button, QPoint at) {
    Click(*form, button);
    QTest::mouseClick(viewer.viewport(), Qt::LeftButton, {}, at);
  };
  pick("cmdPickUpper", upper);
  EXPECT_FALSE(Find<QPushButton>(*form, "cmdPickUpper")->isChecked());
  pick("cmdPickLower", lower);
  EXPECT_EQ(BoxOf(*form, "txtTopPix"), std::to_string(std::lround(image(upper).row)));
  EXPECT_EQ(BoxOf(*form, "txtLeftPix"), std::to_string(std::lround(image(upper).column)));
  EXPECT_EQ(BoxOf(*form, "txtBottomPix"), std::to_string(std::lround(image(lower).row)));
  EXPECT_EQ(BoxOf(*form, "txtRightPix"), std::to_string(std::lround(image(lower).column)));
  EXPECT_EQ(BoxOf(*form, "txtWidth"), std::to_string(viewer.image_width()));
  EXPECT_EQ(BoxOf(*form, "txtHeight"), std::to_string(viewer.image_height()));
  Type(*form, "txtUpperLat", "51.00.00N");
  Type(*form, "txtLowerLat", "50.00.00N");
  Type(*form, "txtLowerLon", "003.00.00W");
  Type(*form, "txtUpperLon", "001.00.00W");
  // Between them by Mercator: the row at half the height lies at 50.50265 N.
  QTest::mouseMove(viewer.viewport(), QPoint(400, 300));
  const QString told = Find<QLabel>(*form, "lblCheck")->text();
  EXPECT_TRUE(told.endsWith("50.30.159N  002.00.000W")) << told.toStdString();

  // Esc ends a picking, in the form and on the chart, and leaves the form open; a click beside the
  // picture picks nothing.
  Click(*form, "cmdPickUpper");
  QTest::keyClick(form.get(), Qt::Key_Escape);
  EXPECT_TRUE(form->isVisible());
  Click(*form, "cmdPickUpper");
  QTest::keyClick(&viewer, Qt::Key_Escape);
  const std::string row = BoxOf(*form, "txtTopPix");
  QTest::mouseClick(viewer.viewport(), Qt::LeftButton, {}, QPoint(300, 300));
  EXPECT_EQ(BoxOf(*form, "txtTopPix"), row);
  viewer.SetZoom(0.05);
  pick("cmdPickUpper", {790, 300});
  EXPECT_EQ(BoxOf(*form, "txtTopPix"), row);
  EXPECT_TRUE(Find<QPushButton>(*form, "cmdPickUpper")->isChecked());
  Click(*form, "cmdOK");
  EXPECT_EQ(program.charts.chart.top_lat, 51.0F);
  EXPECT_EQ(redrawn, 1);
}

TEST_F(ChartToolWindows, AnotherChartOrACalculationLeavesTheCalibration) {
  const auto form = Info();
  Type(*form, "txtTopPix", "150");
  view.busy = true;
  Click(*form, "cmdOK");
  EXPECT_TRUE(form->isVisible());
  EXPECT_EQ(program.charts.chart.top_row, 140.0F);
  view.busy = false;
  program.config.chart_path = ChartPathOf(program.folders, "9999-2");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !form->isVisible(); }));
  EXPECT_EQ(program.charts.chart.top_row, 140.0F);
}

TEST_F(ChartToolWindows, SettingsOfAnyChart) {
  std::vector<std::string> opened;
  frmEditChart form(
      desktop,
      [&](const ChartChoice& choice) {
        opened.push_back(choice.sea_area + "/" + choice.chart_key);
        return true;
      },
      nullptr);
  Show(form);
  EXPECT_EQ(BoxOf(form, "txtScale"), "1250000") << "the chart in use";
  Type(form, "txtSearch", "islands");
  EXPECT_EQ(Find<QListWidget>(form, "List1")->currentRow(), 3);
  EXPECT_EQ(BoxOf(form, "txtUpperLat"), "49.55.20N");
  EXPECT_EQ(Find<QLabel>(form, "lblSize")->text().left(24), "Image: 4643 x 5549 pixel");
  const std::string cht = Cht("9999-4");
  const std::string xrf = Xrf();
  Type(form, "txtScale", "275000");
  Type(form, "txtLowerLat", "48.30N.00");
  messages.Expect("Error - Lower Latitude entry", MessageIcon::kWarning);
  Click(form, "cmdAcceptChanges");
  EXPECT_EQ(Cht("9999-4"), cht);
  Type(form, "txtLowerLat", "48.15.00N");
  // What is typed is not lost by a click elsewhere.
  messages.ExpectQuestion("The changes of this chart are not accepted. Leave them?", false);
  ClickRow(form, "List1", 1);
  EXPECT_EQ(Find<QListWidget>(form, "List1")->currentRow(), 3);
  Click(form, "cmdAcceptChanges");
  std::string changed = cht;
  bytes::PutFloat(changed, 8, 48.25F);
  bytes::PutFloat(changed, 32, 275000.0F);
  EXPECT_EQ(Cht("9999-4"), changed) << "one record as before";
  std::string index = xrf;
  bytes::PutFloat(index, 3 * 102 + 80, 275000.0F);
  EXPECT_EQ(Xrf(), index);
  EXPECT_TRUE(form.written());

  ClickRow(form, "List1", 1, 2);
  EXPECT_EQ(opened, std::vector<std::string>{"Sample Chart/9999-2"});
  EXPECT_TRUE(form.isVisible());
  const std::string gone = program.folders.Charts() + "/9999-3.cht";
  std::filesystem::remove(gone);
  messages.Expect("Does not exist in List Click Settings\n" + gone, MessageIcon::kWarning);
  ClickRow(form, "List1", 2);
  EXPECT_EQ(BoxOf(form, "txtUpperLat"), "");
  EXPECT_FALSE(Find<QPushButton>(form, "cmdAcceptChanges")->isEnabled());
  ClickRow(form, "List1", 0);
  std::filesystem::remove(program.folders.Charts() + "/Sample Chart.xrf");
  messages.Expect(
      "Does not exist in List Click Settings\n" + program.folders.Charts() + "/Sample Chart.xrf",
      MessageIcon::kWarning);
  const std::string untouched = Cht("9999-1");
  Type(form, "txtScale", "5");
  Click(form, "cmdAcceptChanges");
  EXPECT_EQ(Cht("9999-1"), untouched);
  messages.ExpectQuestion("The changes of this chart are not accepted. Leave them?", true);
  Click(form, "cmdOK");
  EXPECT_FALSE(form.isVisible());
}

TEST_F(ChartToolWindows, TheIndexOfAnArea) {
  frmEditXrf form(desktop, nullptr);
  Show(form);
  const std::string xrf = Xrf();
  const auto record = [&](std::size_t i) { return xrf.substr(102 * i, 102); };
  ClickRow(form, "List1", 1);
  EXPECT_EQ(BoxOf(form, "txtChartNo"), "9999-2");
  EXPECT_EQ(BoxOf(form, "txtChartName"), "Central English Channel");
  EXPECT_EQ(BoxOf(form, "txtChartScale"), "600000");
  EXPECT_EQ(BoxOf(form, "txtUpperLon"), "000.18.00E");
  messages.ExpectQuestion("The chart 9999-2 is in this index already. Insert it once more?", false);
  Click(form, "cmdInsert");
  Type(form, "txtChartNo", "9999-7");
  Type(form, "txtChartName", "Poole");
  Type(form, "txtLowerLat", "51.30.00N");
  messages.Expect("The lower latitude does not lie south of the upper one", MessageIcon::kWarning);
  Click(form, "cmdInsert");
  Type(form, "txtLowerLat", "50.30.00");
  Type(form, "txtUpperLon", "000.18.00");
  messages.Expect("Error - Longitudes entry", MessageIcon::kWarning);
  Click(form, "cmdInsert");
  EXPECT_EQ(Xrf(), xrf);
  Type(form, "txtUpperLon", "000.30.00E");
  Click(form, "cmdInsert");
  std::string poole = record(1);
  poole.replace(0, 6, "9999-7").replace(16, 64, bytes::PaddedText("Poole", 64));
  bytes::PutFloat(poole, 84, 50.5F);
  bytes::PutFloat(poole, 96, 0.5F);
  EXPECT_EQ(Xrf(), record(0) + record(1) + poole + record(2) + record(3));
  auto* list = Find<QListWidget>(form, "List1");
  EXPECT_EQ(list->currentRow(), 2);
  EXPECT_EQ(list->currentItem()->text(), "Poole");

  Type(form, "txtChartScale", "20000");
  messages.ExpectQuestion("The changes of this entry are not in the index. Leave them?", false);
  ClickRow(form, "List1", 0);
  EXPECT_EQ(list->currentRow(), 2);
  Click(form, "cmdModify");
  bytes::PutFloat(poole, 80, 20000.0F);
  EXPECT_EQ(Xrf(), record(0) + record(1) + poole + record(2) + record(3));

  messages.ExpectQuestion("Delete the entry \"Poole\" from the index?", false);
  Click(form, "cmdDelete");
  messages.ExpectQuestion("Delete the entry \"Poole\" from the index?", true);
  Click(form, "cmdDelete");
  EXPECT_EQ(Xrf(), xrf);
  EXPECT_EQ(list->currentRow(), 2) << "the next one is highlighted";
  for (const char* name : {"The Solent and Approaches", "Channel Islands",
                           "Central English Channel", "English Channel"}) {
    messages.ExpectQuestion("Delete the entry \"" + std::string(name) + "\" from the index?", true);
    Click(form, "cmdDelete");
  }
  EXPECT_EQ(Xrf(), "");
  EXPECT_EQ(list->count(), 0);
  EXPECT_FALSE(Find<QPushButton>(form, "cmdModify")->isEnabled());
  EXPECT_FALSE(Find<QPushButton>(form, "cmdDelete")->isEnabled());
  EXPECT_TRUE(Find<QPushButton>(form, "cmdInsert")->isEnabled());
}

}  // namespace
}  // namespace skerrow::testing
