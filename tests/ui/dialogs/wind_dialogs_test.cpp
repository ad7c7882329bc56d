// The wind calculation and the windows of polars, by real events.

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QRadioButton>
#include <QTabWidget>

#include "app/wind_work.h"
#include "core/files.h"
#include "platform/polars.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/dialogs/frmEditPlot.h"
#include "ui/dialogs/frmPolarPlot.h"
#include "ui/dialogs/frmWind.h"
#include "ui/dialogs/frmcalcroute.h"

namespace skerrow::testing {
namespace {

constexpr const char* kCruiser = "Performance cruiser 12 m (illustrative)";

class WindDialog : public SampleDesk {
 protected:
  WindDialog() { LoadSample(); }

  std::vector<RoutePoint>& points() { return program.route.points; }
  static std::string Label(QWidget& form, const char* name) {
    return Find<QLabel>(form, name)->text().toStdString();
  }
  static std::string Box(QWidget& form, const char* name) {
    return Find<QLineEdit>(form, name)->text().toStdString();
  }
  // Clicks a button whose words are to be refused.
  void Refused(QWidget& form, const char* button, const char* words) {
    messages.Expect(words, MessageIcon::kWarning);
    Click(form, button);
    EXPECT_TRUE(messages.AllShown()) << words;
  }
  static void ChooseCruiser(QWidget& form) { ClickRow(form, "lstSetUps", 1); }
  static void Enter(QWidget& form, const char* speed, const char* direction) {
    Type(form, "txtWindSpeed", speed);
    Type(form, "txtWindDir", direction);
  }
};

TEST_F(WindDialog, RefusesWhatCannotBeEstimated) {
  frmWind form(desktop, nullptr);
  Show(form);
  const struct {
    const char* speed;
    const char* direction;
    const char* words;
  } rows[] = {{"40.1", "225", "Invalid Wind Speed"},
              {"", "225", "Invalid Wind Speed"},
              {"12", "360.5", "Invalid Wind Direction"},
              {"12", "", "Invalid Wind Direction"},
              {"40", "360", "Select a set up"}};
  for (const auto& row : rows) {
    Enter(form, row.speed, row.direction);
    Refused(form, "cmdCalc", row.words);
  }
  Refused(form, "cmdDisplayPolar", "Select a set up");
  Refused(form, "cmdCalcPolar", "Select a set up");
  ChooseCruiser(form);
  Refused(form, "cmdCalc", "Enter Boat Heading");
  EXPECT_EQ(program.wind_config.default_speed, "5.0") << "a refused wind is not kept";
}

TEST_F(WindDialog, EstimatesAndKeepsTheWind) {
  {
    frmWind form(desktop, nullptr);
    Show(form);
    ChooseCruiser(form);
    EXPECT_EQ(Label(form, "lblBoat"), kCruiser);
    // From the table: 90 and 95 degrees have 7.07 and 7.08 in 10 knots, 7.55 and 7.56 in 12.
    Enter(form, "11", "182");
    Type(form, "txtHeading", "90");
    Click(form, "cmdCalc");
    EXPECT_EQ(Box(form, "txtResult"), "7.3");
    EXPECT_EQ(Label(form, "lblTack"), "Starboard Tack, 92\u00b0 off the bow");
    // The wind at the bow's other side; Enter does what the button does.
    Type(form, "txtHeading", "274");
    QTest::keyClick(Find(form, "txtHeading"), Qt::Key_Return);
    EXPECT_EQ(Label(form, "lblTack"), "Port Tack, 92\u00b0 off the bow");
  }
  EXPECT_EQ(program.working_wind.speed_kn, 11.0F);
  EXPECT_EQ(program.working_wind.from_deg, 182.0F);
  EXPECT_EQ(points()[2].wind_speed, 11.0F) << "every point takes the default wind";
  const WindConfig kept = LoadWindConfig(program.folders);
  EXPECT_EQ(kept.default_speed, "11.0");
  EXPECT_EQ(kept.default_direction, "182");
  EXPECT_EQ(kept.selected_setup, 2);
  frmWind again(desktop, nullptr);
  Show(again);
  EXPECT_EQ(Label(again, "lblBoat"), kCruiser);
  EXPECT_EQ(Box(again, "txtWindSpeed"), "11.0");
}

TEST_F(WindDialog, ForceAndCompassFollowTheBoxesAndSetThem) {
  frmWind form(desktop, nullptr);
  Show(form);
  Click(form, "optTrueForce5");
  EXPECT_EQ(Box(form, "txtWindSpeed"), "19");
  Click(form, "optDirTrue10");
  EXPECT_EQ(Box(form, "txtWindDir"), "225");
  Enter(form, "33.4", "349");
  const auto on = [&](const char* name) { return Find<QPushButton>(form, name)->isChecked(); };
  EXPECT_TRUE(on("optTrueForce7"));
  EXPECT_FALSE(on("optTrueForce5"));
  EXPECT_TRUE(on("optDirTrue0"));  // 349 is nearer to north than to NNW
  Type(form, "txtWindDir", "348");
  EXPECT_TRUE(on("optDirTrue15"));
  Type(form, "txtWindDir", "999");
  EXPECT_FALSE(on("optDirTrue15"));
}

TEST_F(WindDialog, GivesTheRouteItsSpeedsAndTakesThemBack) {
  const float before = points()[1].speed;
  frmWind form(desktop, nullptr);
  Show(form);
  ChooseCruiser(form);
  Enter(form, "11", "290");
  Click(form, "cmdCalcPolar");
  // The second leg runs south, 110 degrees off: 7.1 and 7.58 in 10 and 12 knots.
  EXPECT_EQ(points()[1].speed, 7.3F);
  EXPECT_EQ(points()[1].tack, 2);
  EXPECT_NE(TextOf(form, "List1", 6).find("Speed : 7.3 Kn."), std::string::npos);
  EXPECT_NE(TextOf(form, "List1", 6).find("Starboard Tack"), std::string::npos);
  EXPECT_TRUE(UndoRouteEdit(program, messages));
  EXPECT_EQ(points()[1].speed, before);
  Click(form, "cmdCalcPolar");
  Click(form, "cmdReset");
  for (const RoutePoint& point : points()) EXPECT_EQ(point.speed, program.config.vessel_speed);
}

TEST_F(WindDialog, AClickSetsALegsWindAndADoubleClickItsSpeed) {
  frmWind form(desktop, nullptr);
  Show(form);
  ChooseCruiser(form);
  Enter(form, "11", "70");
  ClickRow(form, "List1", 5);
  EXPECT_EQ(Label(form, "lblLegWind"), "Wind Direction for Route Leg 2 Set To 70\u00b0");
  EXPECT_EQ(points()[1].wind_direction, 70.0F);
  EXPECT_NE(points()[0].wind_direction, 70.0F);
  const std::vector<RoutePoint> before = points();
  ClickRow(form, "List1", 5, 2);
  EXPECT_EQ(points()[1].speed, 7.3F);
  EXPECT_EQ(points()[1].tack, 1);
  EXPECT_EQ(Label(form, "lblLegWind"),
            "Leg 2: wind 11.0 kn from 070\u00b0, 110\u00b0 off the port bow");
  for (const std::size_t other : {0U, 2U, 3U}) {
    EXPECT_EQ(points()[other].speed, before[other].speed);
    EXPECT_EQ(points()[other].tack, before[other].tack);
  }
}

TEST_F(WindDialog, SaysWhenTheForecastDoesNotReach) {
  frmWind form(desktop, nullptr);
  Show(form);
  ChooseCruiser(form);
  messages.Expect("GRIB Wind file data coverage incorrect - using last good wind values");
  Click(form, "chkConstantWind");
  EXPECT_EQ(program.config.use_manual_wind, 0);
  Enter(form, "11", "290");
  messages.Expect("Wind file data coverage incorrect - setting default values",
                  MessageIcon::kWarning);
  Click(form, "cmdCalcPolar");
  EXPECT_EQ(points()[1].speed, 7.3F);
  messages.Expect("Wind file data coverage incorrect - setting default values",
                  MessageIcon::kWarning);
  ClickRow(form, "List1", 5, 2);
}

TEST_F(WindDialog, OpensFromTheRouteDialogWhichSetsTheTacksThen) {
  frmcalcroute form(desktop, nullptr);
  Show(form);
  WithNextDialog([&](QDialog& wind) {
    EXPECT_EQ(wind.windowTitle().toStdString(), "Wind Calculation");
    ChooseCruiser(wind);
    Enter(wind, "11", "90");
    Click(wind, "cmdCalcPolar");
  });
  Click(form, "cmdWind");
  EXPECT_NE(TextOf(form, "List1", 6).find("Speed : 7.3 Kn."), std::string::npos)
      << "90 degrees off: 7.07 and 7.55";
  EXPECT_NE(TextOf(form, "List1", 6).find("Port Tack"), std::string::npos);
  program.wind_config.default_direction = "270";
  WithNextDialog([](QDialog&) {});
  Click(form, "cmdWind");
  EXPECT_EQ(points()[1].tack, 2);
}

TEST_F(WindDialog, GoesOnWithoutADatabase) {
  program.folders.program = user_.File("nothing");
  frmWind form(desktop, nullptr);
  Show(form);
  EXPECT_NE(Label(form, "lblBoat").find("the polar database is missing"), std::string::npos);
  Type(form, "txtHeading", "90");
  Refused(form, "cmdCalc", "Select a set up");
  frmEditPlot editor(desktop, "", nullptr);
  Show(editor);
  EXPECT_NE(Label(editor, "lblDatabase").find("the polar database is missing"), std::string::npos);
  EXPECT_FALSE(Find<QAction>(editor, "mnuExportPolar")->isEnabled());
}

TEST_F(WindDialog, ShowsTheEstimateOnThePolar) {
  frmWind form(desktop, nullptr);
  Show(form);
  ChooseCruiser(form);
  Enter(form, "11", "182");
  Type(form, "txtHeading", "90");
  WithNextDialog([](QDialog& plot) {
    EXPECT_EQ(plot.objectName().toStdString(), "frmPolarPlot");
    EXPECT_EQ(Box(plot, "txtEstBoatSpeed"), "7.3");
    EXPECT_TRUE(Find<QAbstractButton>(plot, "optWindPlot6")->isChecked()) << "of 11 knots";
    const PolarDiagram& diagram = Find<PolarWidget>(plot, "Picture1")->diagram();
    ASSERT_EQ(diagram.marks.size(), 1U);
    EXPECT_EQ(diagram.marks[0].at, (PolarPlace{92.0, 7.3}));
    EXPECT_EQ(diagram.rim, 10.0) << "the fastest is 9.72";
    EXPECT_EQ(diagram.lines.size(), kPolarCurves);
  });
  Click(form, "cmdDisplayPolar");
}

TEST_F(WindDialog, PolarPlotTellsWhatIsUnderTheMouse) {
  const auto base = OpenPolarDatabase(program.folders.InstalledPolars(), "");
  const Result<PolarRows> rows = base->Read(kCruiser);
  ASSERT_TRUE(rows);
  frmPolarPlot plot(desktop, kCruiser, *rows, std::nullopt, nullptr);
  Show(plot);
  EXPECT_EQ(Box(plot, "txtEstBoatSpeed"), "");
  auto* polar = Find<PolarWidget>(plot, "Picture1");
  // Near the curve of 12 knots at 90 degrees, 7.55; that of 14 knots is at 7.84.
  QTest::mouseMove(polar, polar->PlaceOf({90.0, 7.5}).toPoint());
  EXPECT_EQ(Label(plot, "lblPolarCursor"), "Wind 12kn, boat speed 7.6kn");
  EXPECT_EQ(Label(plot, "lblWindAngle"), "True wind angle 090\u00b0");
  QTest::keyClick(polar, Qt::Key_Down);
  EXPECT_EQ(Label(plot, "lblWindAngle"), "True wind angle 095\u00b0");
  Click(plot, "optWindPlot2");
  auto* graph = Find<PlotWidget>(plot, "Picture2");
  QTest::mouseMove(graph, graph->PlaceOf({60.0, 2.0}).toPoint());
  EXPECT_EQ(Label(plot, "lblPolarCursor"), "Wind 4kn, boat speed 3.5kn");
}

class PolarEditorDialog : public WindDialog {
 protected:
  PolarEditorDialog() : form(desktop, kCruiser, nullptr) { testing::Show(form); }

  std::string Cell(int angle, std::size_t column, const std::string& set_up = kCruiser) {
    const auto base =
        OpenPolarDatabase(program.folders.InstalledPolars(), program.folders.OwnPolars());
    const Result<PolarRows> rows = base->Read(set_up);
    if (!rows) return rows.error().Text();
    return rows.value()[static_cast<std::size_t>(angle - 30) / 5][column].value_or("-");
  }
  void Pick(double angle) {
    auto* polar = Find<PolarWidget>(form, "Picture1");
    QTest::mouseClick(polar, Qt::LeftButton, {}, polar->PlaceOf({angle, 5.0}).toPoint());
  }
  void Page(int page) { Find<QTabWidget>(form, "tabEdit")->setCurrentIndex(page); }
  void Trigger(const char* action) { Find<QAction>(form, action)->trigger(); }

  frmEditPlot form;
};

TEST_F(PolarEditorDialog, ChangesTheCellOfThePickedAngle) {
  Type(form, "txtWindSpeed1", "12");
  Click(form, "cmdChange1");  // no boat speed: ignored
  Type(form, "txtBoatSpeed1", "8.25");
  Refused(form, "cmdChange1", "Click on the polar to choose a wind angle");
  Pick(62.0);
  EXPECT_EQ(Label(form, "lblAngle"), "60\u00b0");
  EXPECT_EQ(Box(form, "txtAngle"), "60");
  for (const char* wind : {"11", "0", "32", "12.5"}) {
    Type(form, "txtWindSpeed1", wind);
    Refused(form, "cmdChange1", "Wind speed must be a multiple of 2");
  }
  EXPECT_FALSE(FileReadable(program.folders.OwnPolars())) << "nothing has been changed yet";
  Type(form, "txtWindSpeed1", "12");
  Click(form, "cmdChange1");
  EXPECT_EQ(Cell(60, 7), "8.25");
  EXPECT_EQ(Cell(65, 7), "7.33");
  EXPECT_EQ(Cell(60, 8), "7.5");
  EXPECT_NE(Label(form, "lblDatabase").find(program.folders.OwnPolars()), std::string::npos);
  EXPECT_EQ(Find<QAction>(form, "mnuUndo")->text().toStdString(),
            "&Undo Change of 60\u00b0 at 12kn");
  Trigger("mnuUndo");
  EXPECT_EQ(Cell(60, 7), "7.21");
  EXPECT_FALSE(Find<QAction>(form, "mnuUndo")->isEnabled());
}

TEST_F(PolarEditorDialog, ChangesTheSelectedWindAtAnAngle) {
  Click(form, "optWindPlot5");  // 10 knots
  const struct {
    const char* angle;
    const char* speed;
    const char* words;
  } rows[] = {
      {"", "6", "Check Wind Angle"},
      {"42", "6", "Wind angle must be an exact multiple of 5 - Entry not accepted"},
      {"45.2", "6", "Wind angle must be an exact multiple of 5 - Entry not accepted"},
      {"185", "6", "Check Wind Angle Entry"},
      {"45", "0", "Boat Speed of 0kn Detected ! - Entry must be greater than 0kn"},
      {"45", "", "Boat Speed of 0kn Detected ! - Entry must be greater than 0kn"},
      {"45", "101", "101 knots is no boat's speed"},
      {"25", "6", "This set-up has no row for a wind angle of 25\u00b0"},
  };
  for (const auto& row : rows) {
    Type(form, "txtAngle", row.angle);
    Type(form, "txtBoatSpeed2", row.speed);
    Refused(form, "cmdChangeData2", row.words);
  }
  Type(form, "txtAngle", "180.1");
  Type(form, "txtBoatSpeed2", "4.8");
  Refused(form, "cmdChangeData2", "Check Wind Angle Entry");
  Type(form, "txtAngle", "179.9");
  Click(form, "cmdChangeData2");
  EXPECT_EQ(Cell(180, 6), "4.8");
  EXPECT_EQ(Cell(175, 6), "5.31");
}

TEST_F(PolarEditorDialog, AcceptsAWholeColumn) {
  Click(form, "optWindPlot3");  // 6 knots
  Page(1);
  EXPECT_EQ(Box(form, "txtEditSpeed0"), Cell(30, 4));
  EXPECT_EQ(Box(form, "txtEditSpeed30"), "3.26");
  Type(form, "txtEditSpeed30", "");
  Refused(form, "Command1", "Empty Data field");
  Type(form, "txtEditSpeed30", "0");
  Refused(form, "Command1", "Invalid Data (Zero Entry)");
  Type(form, "txtEditSpeed30", "3.2");
  Type(form, "txtAddSubtract", "-9");
  Refused(form, "cmdAdjust", "This produces a negative value - Please study your entries");
  EXPECT_EQ(Box(form, "txtEditSpeed30"), "3.2");
  Type(form, "txtAddSubtract", "-0.25");
  Click(form, "cmdAdjust");
  EXPECT_EQ(Box(form, "txtEditSpeed30"), "3.0");  // 2.95
  EXPECT_EQ(Box(form, "txtEditSpeed6"), "4.7");   // 4.99 less 0.25
  EXPECT_EQ(Cell(60, 4), "4.99") << "nothing is stored yet";
  messages.ExpectQuestion("The boxes hold changes that have not been accepted. Leave them?", false);
  Click(form, "optWindPlot4");
  EXPECT_TRUE(Find<QRadioButton>(form, "optWindPlot3")->isChecked());
  Click(form, "Command1");
  EXPECT_EQ(Cell(60, 4), "4.7");
  EXPECT_EQ(Cell(180, 4), "3.0");
  EXPECT_EQ(Cell(60, 5), "6.04");
  Trigger("mnuUndo");
  EXPECT_EQ(Cell(60, 4), "4.99");
}

TEST_F(PolarEditorDialog, MakesCopiesRenamesAndDeletesSetUps) {
  const auto name = [](const char* text) {
    WithNextDialog([text](QDialog& dialog) {
      auto* input = qobject_cast<QInputDialog*>(&dialog);
      ASSERT_NE(input, nullptr);
      Find<QLineEdit>(dialog, "")->setText(QString::fromUtf8(text));
      input->accept();
    });
  };
  name("Boat; \"old\" 'n' drop");
  Trigger("mnuCopySetUp");
  EXPECT_EQ(form.set_up(), "Boat; \"old\" 'n' drop");
  EXPECT_EQ(Cell(90, 7, form.set_up()), "7.55");
  name(kCruiser);
  messages.Expect(program.folders.OwnPolars() + ": the name \"" + kCruiser + "\" is taken",
                  MessageIcon::kWarning);
  Trigger("mnuRenameSetUp");
  name("Mine");
  Trigger("mnuRenameSetUp");
  EXPECT_EQ(Find<QComboBox>(form, "cmbSetUps")->currentText().toStdString(), "Mine");
  messages.ExpectQuestion("Delete the set-up \"Mine\"?", true);
  Trigger("mnuDeleteSetUp");
  EXPECT_EQ(Find<QComboBox>(form, "cmbSetUps")->findText("Mine"), -1);
  Trigger("mnuUndo");
  EXPECT_EQ(form.set_up(), "Mine");
  EXPECT_EQ(Cell(90, 7, "Mine"), "7.55");
  name("Empty");
  Trigger("mnuNewSetUp");
  EXPECT_EQ(Cell(90, 7, "Empty"), "0");
}

TEST_F(PolarEditorDialog, ExportsAndImportsTheSharedText) {
  const std::string file = user_.File("cruiser.pol");
  const auto choose_file = [&file](QDialog& dialog) {
    auto* chooser = qobject_cast<QFileDialog*>(&dialog);
    ASSERT_NE(chooser, nullptr);
    Find<QLineEdit>(dialog, "fileNameEdit")->setText(QString::fromStdString(file));
    dialog.accept();
  };
  WithNextDialog(choose_file);
  Trigger("mnuExportPolar");
  const Result<std::string> text = ReadFile(file);
  ASSERT_TRUE(text);
  EXPECT_NE(text->find("\n90\t"), std::string::npos);
  ASSERT_TRUE(ReplaceFile(file, "TWA;6;12;20\r\n60;5;7;7.5\r\n120;5.5;8;9\r\n"));
  WithNextDialog(choose_file);
  WithNextDialog([](QDialog& dialog) {
    EXPECT_EQ(Find<QLineEdit>(dialog, "")->text().toStdString(), "cruiser");
    dialog.accept();
  });
  // Of 31 angles in 15 columns the 13 from 60 to 120 are known in the 8 from 6 to 20 knots.
  messages.Expect(
      "361 values lie outside the table of the file and repeat its edge. "
      "Check them before you rely on them.",
      MessageIcon::kInformation);
  Trigger("mnuImportPolar");
  EXPECT_EQ(form.set_up(), "cruiser");
  EXPECT_EQ(Cell(90, 7, "cruiser"), "7.50");
}

// The set-ups of a database of the Jet format, by scripts that print what mdbtools print.
TEST_F(PolarEditorDialog, ImportsADatabaseAndTakesItBack) {
  const std::string file = user_.File("polars.mdb");
  ASSERT_TRUE(ReplaceFile(file, "a database"));
  const std::pair<const char*, const char*> scripts[] = {
      {"mdb-tables", "printf 'setups\\nStorm\\nGone\\n'"},
      {"mdb-export",
       "[ \"$3\" = setups ] && printf 'ID,SetUp\\n1,Storm\\n2,Trawler\\n'; "
       "[ \"$3\" = Storm ] && printf 'WindAngle,Wind10kn\\n30,3.5\\n35,5.25\\n'; true"}};
  for (const auto& [name, body] : scripts) {
    ASSERT_TRUE(ReplaceFile(user_.File(name), std::string("#!/bin/sh\n") + body + "\n"));
    std::filesystem::permissions(user_.File(name), std::filesystem::perms::owner_all);
  }
  const std::string before = std::getenv("PATH");
  qputenv("PATH", QByteArray::fromStdString(user_.path() + ":" + before));
  WithNextDialog([&file](QDialog& dialog) {
    Find<QLineEdit>(dialog, "fileNameEdit")->setText(QString::fromStdString(file));
    dialog.accept();
  });
  messages.Expect("1 set-up imported\n\"Trawler\" is left out: its table is missing",
                  MessageIcon::kInformation);
  Trigger("mnuImportDatabase");
  qputenv("PATH", QByteArray::fromStdString(before));
  EXPECT_EQ(form.set_up(), "Storm");
  EXPECT_EQ(Cell(35, 6, "Storm"), "5.25");
  auto* undo = form.findChild<QAction*>("mnuUndo");
  EXPECT_EQ(undo->text(), "&Undo Import of 1 Set-up");
  undo->trigger();
  EXPECT_NE(form.set_up(), "Storm");
  EXPECT_EQ(Find<QComboBox>(form, "cmbSetUps")->findText("Storm"), -1);
}

}  // namespace
}  // namespace skerrow::testing
