// The chart tools from the main window: their keys, and their menu.

#include <QFileDialog>
#include <QLineEdit>
#include <filesystem>

#include "charts/chart_tools.h"
#include "ui/charts/frmChartInfo.h"
#include "ui/charts/frmSelectL25.h"
#include "window_fixture.h"

namespace skerrow {
namespace {

using testing::MainWindowTest;

class ChartToolCommands : public MainWindowTest {
 protected:
  ChartToolCommands() {
    const std::string copy = user_.File("program");
    std::filesystem::copy(SKERROW_PROGRAM_FOLDER, copy, std::filesystem::copy_options::recursive);
    program_.folders.program = copy;
    program_.config = DefaultConfig(copy);
  }
  void StartWithTools() {
    Start();
    window_->context().look.ShowTools();
  }
  QString Panel(int number) {
    return window_->findChild<QLabel*>("StatusBar1Panel" + QString::number(number))->text();
  }
  frmChartInfo* Info() { return window_->findChild<frmChartInfo*>(); }
  // Chooses a file in the file dialog that comes up.
  static void Choose(const std::string& path) {
    OnDialog([path](QWidget* dialog) {
      auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
      ASSERT_NE(name, nullptr);
      name->setText(QString::fromStdString(path));
      QTest::keyClick(name, Qt::Key_Return);
    });
  }
};

TEST_F(ChartToolCommands, TheKeysRestWhileTheMenuIsHidden) {
  Start();
  clipboard_.SetText("mine");
  MoveTo(At({50.6F, -1.4F}));
  const std::string chart = program_.config.chart_path;
  for (const int key : {Qt::Key_C, Qt::Key_F8, Qt::Key_F11, Qt::Key_F12, Qt::Key_Equal}) Key(key);
  EXPECT_EQ(Info(), nullptr);
  EXPECT_TRUE(program_.tides.sl_diamonds.empty());
  EXPECT_EQ(clipboard_.Text(), "mine");
  EXPECT_NE(program_.config.chart_path, chart) << "the larger scale itself is not hidden";
}

TEST_F(ChartToolCommands, TheListOfChartsAtTheCursorIsCopied) {
  StartWithTools();
  MoveTo(At({50.6F, -1.4F}));
  Key(Qt::Key_Equal);
  const char* all =
      "9999-1\tEnglish Channel\t1250000\n9999-2\tCentral English Channel\t600000\n"
      "9999-3\tThe Solent and Approaches\t150000\n";
  EXPECT_EQ(clipboard_.Text(), all);
  EXPECT_TRUE(program_.config.chart_path.ends_with("9999-3"));
  // On the most detailed chart the list is copied all the same; where there is no chart it stays.
  clipboard_.SetText("mine");
  MoveTo(At({50.6F, -1.4F}));
  Key(Qt::Key_Equal);
  EXPECT_EQ(clipboard_.Text(), all);
  window_->view().cursor = {30.0F, 0.0F};
  Key(Qt::Key_Equal);
  EXPECT_EQ(clipboard_.Text(), all);
  // The menu at the mouse leaves the clipboard alone.
  clipboard_.SetText("mine");
  MoveTo(At({50.6F, -1.4F}));
  Command("mnuPUZoomToChart");
  EXPECT_EQ(clipboard_.Text(), "mine");
}

TEST_F(ChartToolCommands, TheChartIsCalibratedBesideIt) {
  StartWithTools();
  Key(Qt::Key_C);
  ASSERT_NE(Info(), nullptr);
  Key(Qt::Key_C);
  EXPECT_EQ(window_->findChildren<frmChartInfo*>().size(), 1);
  QPointer<frmChartInfo> form = Info();
  const std::size_t points = program_.route.points.size();
  const ImagePoint upper = window_->viewer().ViewToImage({300, 150});
  Click(form, "cmdPickUpper");
  QTest::mouseClick(canvas(), Qt::LeftButton, Qt::ShiftModifier, QPoint(300, 150));
  EXPECT_EQ(program_.route.points.size(), points) << "the click was the form's";
  EXPECT_EQ(form->findChild<QLineEdit*>("txtTopPix")->text(),
            QString::number(RoundToInteger(upper.row)));
  const float top = program_.charts.chart.top_row;
  Click(form, "cmdCancel");
  EXPECT_EQ(program_.charts.chart.top_row, top);
  QTest::qWait(10);
  ASSERT_EQ(form, nullptr);

  const ImageRect seen = window_->viewer().VisibleRect();
  const auto place = [this] {
    return window_->context().chart.PlaceAt({1000.0, 1000.0})->latitude;
  };
  const float before = place();
  Key(Qt::Key_C);
  form = Info();
  form->findChild<QLineEdit*>("txtUpperLat")->setText("52.00.00N");
  Click(form, "cmdOK");
  EXPECT_EQ(program_.charts.chart.top_lat, 52.0F);
  EXPECT_NEAR(window_->viewer().VisibleRect().left, seen.left, 1) << "the view stays";
  EXPECT_GT(place(), before + 0.1F) << "the places of the chart follow at once";
  // A change that is not saved goes with the chart.
  MoveTo(canvas()->rect().center());
  for (const int key : {Qt::Key_Equal, Qt::Key_Minus}) Key(key);
  EXPECT_TRUE(program_.config.chart_path.ends_with("9999-1"));
  EXPECT_EQ(program_.charts.chart.top_lat, 51.65F);
  EXPECT_EQ(place(), before);
  EXPECT_EQ(std::filesystem::file_size(program_.folders.Charts() + "/9999-1.cht"), 64U);
}

TEST_F(ChartToolCommands, DiamondsAreHarvested) {
  clock_.now = {2026, 12, 5, 9, 0, 0};
  StartWithTools();
  Key(Qt::Key_F12);
  EXPECT_EQ(program_.tides.diamonds.size(), 133U);
  Key(Qt::Key_F11);
  EXPECT_EQ(Panel(3), "End of File") << "no file yet";

  std::vector<Diamond> few(2);
  few[0].latitude = few[1].latitude = 50.25F;
  few[0].longitude = few[1].longitude = -1.5F;
  few[0].chart_no = 7.0F;
  few[1].chart_no = 8.0F;
  few[1].longitude = -2.5F;
  few[0].ref_port = few[1].ref_port = program_.tides.diamonds[0].ref_port;
  few[0].sp_range = few[1].sp_range = 4.0F;
  const std::string file = program_.folders.TidalStreams() + "/Few.l25";
  ASSERT_TRUE(WriteRecords<Diamond>(file, few, kDiamondFields));
  OnDialog([&](QWidget* dialog) {
    auto* files = qobject_cast<frmSelectL25*>(dialog);
    ASSERT_NE(files, nullptr);
    EXPECT_EQ(files->directory().path().toStdString(), program_.folders.TidalStreams());
    EXPECT_EQ(files->nameFilters().join(";"), "Tidal diamonds (*.l25)");
    auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
    name->setText("Few.l25");
    QTest::keyClick(name, Qt::Key_Return);
  });
  Key(Qt::Key_F8);
  ASSERT_EQ(program_.tides.sl_diamonds.size(), 2U);
  EXPECT_EQ(Panel(3), "2 diamonds in Few.l25");

  Key(Qt::Key_F11);
  EXPECT_EQ(Panel(3), "No in File 1 : 50.15.00N, 001.30.00W");
  const QPoint middle = canvas()->rect().center();
  EXPECT_LT((At({50.25F, -1.5F}) - middle).manhattanLength(), 4);
  Key(Qt::Key_F12);
  EXPECT_EQ(Panel(3), "No in File 1 kept, 134 in the area");
  Key(Qt::Key_F11);
  EXPECT_EQ(Panel(3), "No in File 2 : 50.15.00N, 002.30.00W");
  EXPECT_LT((At({50.25F, -2.5F}) - middle).manhattanLength(), 4);
  Key(Qt::Key_F11);
  EXPECT_EQ(Panel(3), "End of File");
  Key(Qt::Key_F12);
  const TideState& tides = program_.tides;
  ASSERT_EQ(tides.diamonds.size(), 135U);
  EXPECT_EQ(tides.diamonds[133].chart_no, 7.0F);
  EXPECT_EQ(tides.diamonds[134].chart_no, 8.0F);
  EXPECT_EQ(tides.labels.back(), "8, 0");
  EXPECT_EQ(tides.index->Nearest({50.25F, -2.5F}), 134);
  EXPECT_EQ(tides.port_of_diamond.back(), tides.port_of_diamond.front());

  // The time stands until it is asked back to the clock's.
  const auto let_a_minute_pass = [this](int hour) {
    clock_.now.hour = hour;
    program_.timers.seconds = 1000;
    QTest::qWait(1300);
  };
  let_a_minute_pass(10);
  EXPECT_EQ(program_.selected_time.hours, 9.0F);
  const std::string saved = program_.folders.TidalStreams() + "/Sample Chart001.l25";
  messages_.Expect("135 Data records written to file " + saved);
  Command("mnuSaveTidalDiamonds");
  EXPECT_EQ(std::filesystem::file_size(saved), 136U * kDiamondSize);
  Command("mnuselrealtime");
  EXPECT_EQ(Panel(3), "Waypoints = Sample");
  let_a_minute_pass(11);
  EXPECT_EQ(program_.selected_time.hours, 11.0F);
}

TEST_F(ChartToolCommands, TheMenusFormsLeaveTheKeysToTheChart) {
  StartWithTools();
  OnDialog([this](QWidget* dialog) {
    EXPECT_EQ(dialog->objectName(), "frmEditXrf");
    testing::ClickRow(*dialog, "List1", 2);
    testing::Type(*dialog, "txtChartName", "The Solent");
    Click(dialog, "cmdModify");
    Click(dialog, "cmdOK");
  });
  Command("mnuXrfEdit");
  EXPECT_EQ(program_.charts.index[2].title, "The Solent") << "the area's index is read again";
  OnDialog([this](QWidget* dialog) {
    EXPECT_EQ(dialog->objectName(), "frmEditChart");
    testing::ClickRow(*dialog, "List1", 1, 2);
    EXPECT_TRUE(program_.config.chart_path.ends_with("9999-2"));
    testing::Type(*dialog, "txtTopPix", "150");
    Click(dialog, "cmdAcceptChanges");
    Click(dialog, "cmdOK");
  });
  Command("mnuChartEdit");
  EXPECT_EQ(program_.charts.chart.top_row, 150.0F) << "the chart in use is read again";
  EXPECT_EQ(program_.charts.history.size(), 2U);
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program_.folders, stored));
  EXPECT_TRUE(stored.chart_path.ends_with("9999-2"));
  ASSERT_EQ(window_->focusWidget(), &window_->viewer());
  QTest::keyClick(window_->focusWidget(), Qt::Key_3);
  EXPECT_NEAR(window_->viewer().zoom(), 0.3, 1e-6);
  QTest::keyClick(window_->focusWidget(), Qt::Key_C);
  EXPECT_NE(Info(), nullptr);
}

TEST_F(ChartToolCommands, BoundariesAsACatalogue) {
  StartWithTools();
  const std::string file = user_.File("bounds");
  Choose(file);
  Command("mnuChartBoundaries");
  EXPECT_EQ(testing::FileBytes(file + ".csv"),
            CatalogueText(ChartCatalogue(program_.folders, program_.charts.index)));
  EXPECT_TRUE(testing::FileBytes(file + ".csv")
                  .starts_with("9999,1,English Channel,Skerrow Helm,Raster,2026/625,Main panel,"
                               "48.00000,-6.60000,51.65000,2.45000\n"));
  program_.charts.index.clear();
  messages_.Expect("There are no charts in the sea area.", MessageIcon::kWarning);
  Command("mnuChartBoundaries");
}

}  // namespace
}  // namespace skerrow
