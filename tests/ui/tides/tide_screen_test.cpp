#include <QAction>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QProgressBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "core/files.h"
#include "core/text.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/dialogs/report_write.h"
#include "ui/tides/frmSkerrowTides.h"

namespace skerrow {
namespace {

namespace fs = std::filesystem;

// The tide screen on Dover at half past nine on the 14th of June 2026, with port files of its own.
class TideWindow : public testing::SampleDesk {
 protected:
  TideWindow() {
    program.folders.program = user_.File("program");
    fs::copy(SKERROW_PROGRAM_FOLDER, program.folders.program, fs::copy_options::recursive);
    program.config.tide_display_option = 1;
    EXPECT_TRUE(SaveConfig(program.folders, program.config));
    TideForm form(program);
    EXPECT_TRUE(form.Open());
    screen_ = std::make_unique<frmSkerrowTides>(desktop, std::move(form), nullptr);
    plot_ = testing::Find<PlotWidget>(*screen_, "picTides");
    testing::Show(*screen_);
    EXPECT_TRUE(QTest::qWaitForWindowActive(screen_.get()));
  }

  std::string Label(const char* name) const {
    return testing::Find<QLabel>(*screen_, name)->text().toStdString();
  }
  void Run(const char* action) {
    auto* found = testing::Find<QAction>(*screen_, action);
    ASSERT_TRUE(found->isEnabled()) << action;
    found->trigger();
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(screen_->focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }
  QPoint At(double hours) const {
    const PlotAxis& y = plot_->plot().y;
    return plot_->PlaceOf({hours, (y.from + y.to) / 2}).toPoint();
  }
  void Point(double hours) { QTest::mouseMove(plot_, At(hours)); }
  const TideScreen& Shown() const { return screen_->form().screen(); }
  std::string AreaFile() const { return JoinPath(program.folders.TidalStreams(), "UK.hc"); }
  // Saves under `name` in the dialog that comes up next.
  void SaveAs(const std::string& name, std::string* offered) {
    testing::WithNextDialog([=](QDialog& dialog) {
      auto* files = qobject_cast<QFileDialog*>(&dialog);
      ASSERT_NE(files, nullptr);
      *offered = files->windowTitle().toStdString() + "|" +
                 files->selectedFiles().value(0).section('/', -1).toStdString();
      auto* box = files->findChild<QLineEdit*>();
      box->setText(QString::fromStdString(name));
      QTest::keyClick(box, Qt::Key_Return);
    });
  }

  std::unique_ptr<frmSkerrowTides> screen_;
  PlotWidget* plot_;
};

TEST_F(TideWindow, ShowsPortDayAndTimeCursor) {
  EXPECT_EQ(Label("lblPort"), "Port    : Dover");
  EXPECT_TRUE(Label("lblDate").starts_with("Date   : (Sunday) ")) << Label("lblDate");
  EXPECT_EQ(testing::TextOf(*screen_, "lstTides", 0), "Port : Dover");
  EXPECT_EQ(testing::TextOf(*screen_, "lstTides", 1), "Date : 14/6/2026");
  EXPECT_EQ(testing::Find<QListWidget>(*screen_, "lstTides")->count(),
            static_cast<int>(3 + Shown().tide.waters.size()));
  EXPECT_EQ(Label("timeval"), "09:30");
  EXPECT_EQ(Label("hiteval"), TideHeightText(Shown().tide.curve[57].height));
  EXPECT_EQ(Label("lblmousestatus"), "(Click mouse to freeze)");
  ASSERT_EQ(plot_->cursors().size(), 1U);
  EXPECT_EQ(plot_->cursors()[0].tag, "Now");
  EXPECT_EQ(screen_->windowTitle().left(40),
            "Skerrow Tides     [Time Now 09:30" + screen_->windowTitle().mid(33, 7));
  // The timer brings title and cursor to the new time.
  clock.now.minute = 50;
  auto* timer = testing::Find<QTimer>(*screen_, "Timer2");
  EXPECT_TRUE(timer->isActive());
  QTest::qWait(1100);
  EXPECT_EQ(Label("timeval"), "09:50");
  EXPECT_TRUE(screen_->windowTitle().contains("[Time Now 09:50"));
}

TEST_F(TideWindow, TheMouseReadsTheCurveUntilAClickFreezesIt) {
  Point(15.0);
  const MouseReading at_three = *ReadMouse(Shown().tide, plot_->XAt(At(15.0)));
  EXPECT_EQ(Label("timeval"), at_three.time);
  EXPECT_EQ(Label("hiteval"), at_three.height);
  EXPECT_EQ(Label("lblrate"), at_three.text);
  ASSERT_EQ(plot_->cursors().size(), 2U);
  EXPECT_EQ(plot_->cursors()[1].colour, 0x0000FF);
  EXPECT_NEAR(plot_->cursors()[1].x, 15.0, 0.05);
  QTest::mouseClick(plot_, Qt::LeftButton, {}, At(15.0));
  EXPECT_EQ(Label("lblmousestatus"), "(Click mouse to unfreeze)");
  Point(5.0);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(plot_, &leave);
  EXPECT_EQ(Label("timeval"), at_three.time);
  // Space is the click of the keyboard.
  plot_->setFocus();
  Key(Qt::Key_Space);
  EXPECT_EQ(Label("lblmousestatus"), "(Click mouse to freeze)");
  plot_->SetPlace(5.0);
  Key(Qt::Key_Right);
  EXPECT_EQ(Label("timeval"), "05:10");
  QApplication::sendEvent(plot_, &leave);
  EXPECT_EQ(Label("timeval"), "09:30");
  EXPECT_EQ(plot_->cursors().size(), 1U);
}

TEST_F(TideWindow, KeysAndButtonsStepTheDay) {
  const auto date = [&] { return testing::TextOf(*screen_, "lstTides", 1).substr(7); };
  plot_->setFocus();
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(date(), "15/6/2026");
  EXPECT_EQ(plot_->cursors()[0].tag, "09:30");
  Key(Qt::Key_Home);
  EXPECT_EQ(date(), "14/6/2026");
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(date(), "13/6/2026");
  testing::Click(*screen_, "Nextday");
  testing::Click(*screen_, "Nextday");
  EXPECT_EQ(date(), "15/6/2026");
  testing::Click(*screen_, "Previousday");
  testing::Click(*screen_, "Previousday");
  EXPECT_EQ(date(), "13/6/2026");
  // The keys work from the lists too.
  testing::ClickRow(*screen_, "lstTides", 0);
  testing::Find<QListWidget>(*screen_, "lstTides")->setFocus();
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(date(), "12/6/2026");
  testing::Click(*screen_, "cmdToday");
  EXPECT_EQ(date(), "14/6/2026");
}

TEST_F(TideWindow, TheConstituentsAreSwitchedByTheirBoxes) {
  auto* panel = testing::Find(*screen_, "pnlTerms");
  EXPECT_FALSE(panel->isVisible());
  Run("mnuLayersShow");
  EXPECT_TRUE(panel->isVisible());
  Point(12.0);
  const LayerReading reading = ReadLayers(Shown().tide, CurveIndex(plot_->XAt(At(12.0))));
  const std::pair<const char*, float> heights[] = {
      {"lblHtM2", reading.m2}, {"lblHtS2", reading.s2},  {"lblHtK1", reading.k1},
      {"lblHtO1", reading.o1}, {"lblHtf4", reading.f4},  {"lblHtf6", reading.f6},
      {"lblHtZ0", reading.z0}, {"lblSumHt", reading.sum}};
  for (const auto& [label, height] : heights) {
    EXPECT_NEAR(std::stod(Label(label)), height, 0.0051) << label;
  }
  EXPECT_NE(Label("lblm2Harm").find("331.9"), std::string::npos) << Label("lblm2Harm");
  // Without M2 its series is gone; the others stay.
  const std::size_t all = plot_->plot().series.size();
  testing::Click(*screen_, "chkM2");
  EXPECT_EQ(plot_->plot().series.size(), all - 1);
  EXPECT_NE(plot_->plot().series[0].colour, 0xFF0000);
  Run("mnumonth");
  EXPECT_FALSE(testing::Find<QAction>(*screen_, "mnuLayersShow")->isChecked());
  EXPECT_TRUE(testing::Find(*screen_, "monthspredictions")->isVisible());
}

TEST_F(TideWindow, TheMonthIsListedSavedCopiedAndCancelled) {
  messages.Expect("Calculate a months tides\nbefore choosing this option");
  Run("mnusavmonth");
  window.stop_at = 50.0;
  Run("mnumonth");
  EXPECT_FALSE(testing::Find(*screen_, "monthspredictions")->isVisible());
  window.stop_at.reset();
  Run("mnumonth");
  auto* list = testing::Find<QListWidget>(*screen_, "monthspredictions");
  EXPECT_TRUE(list->isVisible());
  EXPECT_EQ(list->item(2)->text(), "Dover");
  EXPECT_EQ(list->item(3)->text(), "Monthly tidal prediction for June   2026");
  EXPECT_EQ(list->currentItem()->text(), "14 Jun (Sun)");
  EXPECT_EQ(testing::TextOf(*screen_, "lstTides", 1), "Date : 14/6/2026");

  std::string offered;
  const std::string path = user_.File("month");
  SaveAs(path, &offered);
  Run("mnusavmonth");
  EXPECT_EQ(offered, "Save Months Tides To Text File|Dover_June_2026.txt");
  const std::string text = *ReadFile(path + ".txt");
  EXPECT_TRUE(text.starts_with("Dover\r\nMonthly tidal prediction for June   2026\r\n")) << text;
  Run("mnuCopyMonth");
  EXPECT_NE(clipboard.Text().find("14 Jun (Sun)"), std::string::npos);
  EXPECT_TRUE(clipboard.Text().ends_with("(Standard Time)"));

  // A double click on a water opens its day.
  testing::ClickRow(*screen_, "monthspredictions",
                    testing::RowOfText(*screen_, "monthspredictions", "20 Jun") + 1, 2);
  EXPECT_EQ(testing::TextOf(*screen_, "lstTides", 1), "Date : 20/6/2026");
  EXPECT_TRUE(plot_->isVisible());
  // So does Enter.
  Run("mnumonth");
  list->setCurrentRow(testing::RowOfText(*screen_, "monthspredictions", "3 Jun"));
  Key(Qt::Key_Return);
  EXPECT_EQ(testing::TextOf(*screen_, "lstTides", 1), "Date : 3/6/2026");
}

TEST_F(TideWindow, TheDayIsSavedAndCopied) {
  std::string offered;
  SaveAs(user_.File("day.txt"), &offered);
  Run("mnusaveday");
  EXPECT_EQ(offered, "Save hourly details|Dover_14_June_2026.txt");
  EXPECT_EQ(*ReadFile(user_.File("day.txt")), HourlyText(Shown()));
  // A cancel writes nothing.
  testing::WithNextDialog([](QDialog& dialog) { dialog.reject(); });
  const auto written = fs::last_write_time(user_.File("day.txt"));
  Run("mnusaveday");
  EXPECT_EQ(fs::last_write_time(user_.File("day.txt")), written);
  Run("mnuCopyDaysTides");
  EXPECT_EQ(clipboard.Text(), DayClipboardText(Shown()));
  Run("mnuCopySunTimes");
  EXPECT_EQ(clipboard.Text(), SunClipboardText(Shown()));
}

TEST_F(TideWindow, TheSunOfTheMonthADayAtATime) {
  messages.Expect("Calculate a months suntimes\nbefore choosing this option");
  Run("mnusavesun");
  testing::WithNextDialog([&](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "Frmsunrise");
    EXPECT_EQ(testing::Find<QLineEdit>(dialog, "txtName")->text(), "Dover");
    testing::Type(dialog, "txtLatitude", "91.00.00N");
    testing::Click(dialog, "Frmsunrise_ok");
    EXPECT_EQ(messages.beeps, 1);
    EXPECT_TRUE(dialog.isVisible());
    testing::Type(dialog, "txtLatitude", "69.40.00n");
    testing::Type(dialog, "txtLongitude", "018.57.00e");
    testing::WithNextDialog([](QDialog& results) {
      EXPECT_EQ(results.objectName(), "Frmriseresults");
      const auto label = [&](const char* name) {
        return testing::Find<QLabel>(results, name)->text();
      };
      auto* scroll = testing::Find<QScrollBar>(results, "VScroll1");
      EXPECT_EQ(scroll->value(), 13);
      EXPECT_TRUE(label("lblDate").startsWith("Jun 14 2026  Sunday"));
      EXPECT_TRUE(label("lblSun4").endsWith(" none"));  // the midnight sun
      scroll->setFocus();
      QTest::keyClick(scroll, Qt::Key_Down);
      EXPECT_TRUE(label("lblDate").startsWith("Jun 15 2026  Monday"));
      auto* table = testing::Find<QTreeWidget>(results, "lstSun");
      EXPECT_EQ(table->currentItem()->text(0), "Jun 15");
      EXPECT_EQ(table->headerItem()->text(4), "Sunrise");
      table->scrollToTop();
      QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                        table->visualItemRect(table->topLevelItem(2)).center());
      EXPECT_TRUE(label("lblDate").startsWith("Jun 3 2026"));
      EXPECT_EQ(testing::Find<QListWidget>(results, "lstMoon")->count(), 4);
    });
    testing::Click(dialog, "Frmsunrise_ok");
  });
  Run("mnusunrise");
  std::string offered;
  SaveAs(user_.File("sun.txt"), &offered);
  Run("mnusavesun");
  EXPECT_EQ(offered, "Save Sun's Data To Text File|Dover_Sun_June_2026.txt");
  EXPECT_TRUE(ReadFile(user_.File("sun.txt"))->starts_with("Date\tSunrise\tSunset\t"));
}

TEST_F(TideWindow, DateAndPortAreChosen) {
  testing::WithNextDialog([&](QDialog& dialog) {
    auto* month = testing::Find<QComboBox>(dialog, "lstMonth");
    auto* day = testing::Find<QComboBox>(dialog, "lstDay");
    day->setCurrentIndex(30);  // the 31st of June
    testing::Click(dialog, "cmdOK");
    EXPECT_EQ(messages.beeps, 1);
    EXPECT_TRUE(dialog.isVisible());
    month->setCurrentIndex(11);
    auto* calendar = testing::Find<QCalendarWidget>(dialog, "calendar");
    EXPECT_EQ(calendar->selectedDate(), QDate(2026, 12, 31));
    calendar->setSelectedDate(QDate(2027, 2, 3));
    EXPECT_EQ(month->currentIndex(), 1);
    testing::Click(dialog, "cmdOK");
  });
  Run("mnutidedate");
  EXPECT_EQ(testing::TextOf(*screen_, "lstTides", 1), "Date : 3/2/2027");

  testing::WithNextDialog([](QDialog& dialog) {
    auto* box = testing::Find<QLineEdit>(dialog, "txtFind");
    EXPECT_EQ(dialog.focusWidget(), box);
    QTest::keyClicks(box, "portsm");
    QTest::keyClick(box, Qt::Key_Return);
  });
  Run("mnuPortList");
  EXPECT_EQ(Label("lblPort"), "Port    : Portsmouth");
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program.folders, stored));
  EXPECT_EQ(stored.tide_port_number, screen_->form().position());
}

TEST_F(TideWindow, AnotherAreaOpensItsFirstPortAndAsksWhich) {
  const Result<std::string> ports = ReadFile(AreaFile());
  ASSERT_TRUE(ReplaceFile(JoinPath(program.folders.TidalStreams(), "Few.hc"),
                          ports->substr(10 * kPortSize, 2 * kPortSize)));
  std::string first;
  testing::WithNextDialog([&](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "frmTidesSeaArea");
    testing::Find<QListWidget>(dialog, "lstAreas")->setCurrentRow(-1);
    messages.Expect("Select a file by clicking a name in the list, followed by the OK button",
                    MessageIcon::kWarning);
    testing::Click(dialog, "cmdOK");
    EXPECT_TRUE(dialog.isVisible());
    testing::ClickRow(dialog, "lstAreas", testing::RowOfText(dialog, "lstAreas", "Few.hc"));
    testing::WithNextDialog([&](QDialog& names) {
      EXPECT_EQ(testing::Find<QListWidget>(names, "lstPorts")->count(), 2);
      first = Label("lblPort");
      testing::ClickRow(names, "lstPorts", 1);
      testing::Click(names, "cmdOK");
    });
    testing::Click(dialog, "cmdOK");
  });
  Run("mnuArea");
  EXPECT_EQ(screen_->form().position(), 2);
  EXPECT_NE(Label("lblPort"), first);
  EXPECT_EQ(Trim(program.config.tidal_port_file), "Few.hc");
  EXPECT_EQ(program.port_markers.size(), 2U);
  EXPECT_TRUE((window.changed & kSettingsChanged) != 0);
}

TEST_F(TideWindow, TheDepthAtThePlaceIsShownOnceThereIsOne) {
  EXPECT_EQ(Label("lbldepth"), "");
  testing::WithNextDialog([&](QDialog& dialog) {
    EXPECT_EQ(testing::Find<QLabel>(dialog, "lblName")->text(), "Dover");
    testing::Type(dialog, "depth", "deep");
    messages.Expect(std::string(kDepthRefusal), MessageIcon::kWarning);
    testing::Click(dialog, "cdok");
    testing::Click(dialog, "cmdReset");
    EXPECT_EQ(testing::Find<QLineEdit>(dialog, "depth")->text(), "0");
    testing::Type(dialog, "depth", "-1.5");
    testing::Click(dialog, "cdok");
  });
  Run("mnuchartdepth");
  EXPECT_EQ(Label("lbldepth"), "");  // to chart datum only
  Run("mnumonth");
  testing::WithNextDialog([](QDialog& dialog) {
    auto* draught = testing::Find<QLineEdit>(dialog, "draughttext");
    EXPECT_FALSE(draught->isEnabled());
    testing::Click(dialog, "Option3");
    EXPECT_TRUE(draught->isEnabled());
    testing::Type(dialog, "draughttext", "1.25");
    testing::Type(dialog, "ukctext", "0");
    testing::Click(dialog, "optDaylightSavings");
    testing::Click(dialog, "cmdOK");
  });
  ASSERT_FALSE(program.tides.ref_port_states.empty());
  const std::string high_water = program.tides.ref_port_states[0].hw_time;
  Run("mnuoutputoptions");
  // The streams keep the new time too.
  EXPECT_NE(program.tides.ref_port_states[0].hw_time, high_water);
  // A month of other times is none of the screen's.
  messages.Expect("Calculate a months tides\nbefore choosing this option");
  Run("mnusavmonth");
  EXPECT_EQ(program.config.summer_time, -1);
  EXPECT_EQ(Label("lblNotice"),
            "Heights in Metres, all data are derived and should therefore be considered as "
            "approximate\nTimes shown are with Summer Time correction");
  EXPECT_EQ(plot_->plot().captions[0].text, " : Draft=1.25M");
  ASSERT_EQ(plot_->plot().series.size(), 2U);
  const float height = Shown().tide.curve[57].height;
  EXPECT_EQ(Label("lbldepth").substr(0, 19), "Depth at the place ");
  EXPECT_NEAR(std::stod(Label("lbldepth").substr(19)), height - 1.5 - 1.25, 0.051);
  EXPECT_TRUE(testing::TextOf(*screen_, "lstTides", 4).starts_with("Depth at the place "));
}

TEST_F(TideWindow, APortFileThatIsGoneIsToldAndTheScreenGoesOn) {
  fs::remove(AreaFile());
  for (const char* command : {"mnuPortList", "mnuchartdepth"}) {
    messages.Expect(AreaFile() + ": the file does not exist", MessageIcon::kWarning);
    Run(command);
  }
  Run("mnuNextday");
  EXPECT_EQ(testing::TextOf(*screen_, "lstTides", 1), "Date : 15/6/2026");
  messages.Expect(AreaFile() + ": the file does not exist", MessageIcon::kWarning);
  OpenTideScreen(desktop, 0, nullptr);
}

TEST_F(TideWindow, ADepthThatCannotBeStoredIsTold) {
  testing::WithNextDialog([&](QDialog& dialog) {
    fs::remove(AreaFile());
    messages.Expect("This file could not be written, and nothing in it has changed:\n" +
                        AreaFile() + ": the file does not exist",
                    MessageIcon::kError);
    testing::Type(dialog, "depth", "2");
    testing::Click(dialog, "cdok");
    EXPECT_TRUE(dialog.isVisible());
  });
  Run("mnuchartdepth");
}

// A damaged record may hold any numbers.
TEST_F(TideWindow, AbsurdConstantsNeitherHangNorCrash) {
  Port absurd;
  absurd.name = "Absurd";
  absurd.z0 = -3e38F;
  absurd.m2_g = 3e38F;
  absurd.m2_hm = absurd.s2_hm = absurd.lf4 = 3e38F;
  absurd.mhm2.fill(3e38F);
  absurd.latitude = 90.0F;
  const Port ports[] = {absurd};
  ASSERT_TRUE(WriteRecords(AreaFile(), std::span<const Port>(ports), kPortFields));
  testing::WithNextDialog([](QDialog& dialog) {
    testing::ClickRow(dialog, "lstPorts", 0);
    testing::Click(dialog, "cmdOK");
  });
  Run("mnuPortList");
  EXPECT_EQ(Label("lblPort"), "Port    : Absurd");
  for (const char* entry : {"mnuday", "mnuLayersShow", "mnumonth"}) {
    Run(entry);
    EXPECT_FALSE(screen_->grab().isNull());
  }
}

TEST_F(TideWindow, ByNightTheCurveIsDark) {
  view.night = true;
  ApplyTheme(true);
  QApplication::processEvents();
  EXPECT_LT(plot_->grab().toImage().pixelColor(3, 3).lightness(), 40);
  ApplyTheme(false);
}

TEST_F(TideWindow, OpensTheEditorsOfPortsAndDiamonds) {
  const std::pair<const char*, const char*> rows[] = {{"mnumaintainfile", "Harmonic Constants"},
                                                      {"mnucopyconstants", "Ports Copy Utility"},
                                                      {"mnuCopyDiamonds", "Copy Tidal Diamonds"}};
  for (const auto& [action, title] : rows) {
    QString shown;
    testing::WithNextDialog([&](QDialog& dialog) {
      shown = dialog.windowTitle();
      dialog.reject();
    });
    Run(action);
    EXPECT_EQ(shown.toStdString(), title);
  }
}

}  // namespace
}  // namespace skerrow
