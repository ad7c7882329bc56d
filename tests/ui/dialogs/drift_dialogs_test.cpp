// The predictions of the course over the ground, by real events.

#include <QLabel>
#include <QRadioButton>

#include "app/situation.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/dialogs/frmCalcCOG.h"
#include "ui/dialogs/frmCalcMOB.h"

namespace skerrow::testing {
namespace {

class DriftDialogs : public SampleDesk {
 protected:
  void TypePlaces(QWidget& form) {
    Type(form, "txtstartlat", "50.30.00N");
    Type(form, "txtstartlon", "001.20.00W");
    Type(form, "txtdestlat", "50.20.00N");
    Type(form, "txtdestlon", "001.20.00W");
  }
  std::string Text(QWidget& form, const char* box) {
    return Find<QLineEdit>(form, box)->text().toStdString();
  }
};

TEST_F(DriftDialogs, CourseOverGroundRefusesInItsWordsAndOrder) {
  frmCalcCOG form(desktop, nullptr);
  Show(form);
  const auto refused = [&](const char* words) {
    messages.Expect(words, MessageIcon::kWarning);
    QTest::keyClick(Find<QLineEdit>(form, "txtstartlat"), Qt::Key_Return);
    EXPECT_TRUE(messages.AllShown()) << words;
    EXPECT_TRUE(form.isVisible());
  };
  Type(form, "Txtboatspeed", "");
  refused("Enter boat speed");
  EXPECT_EQ(form.focusWidget(), Find(form, "Txtboatspeed"));
  Type(form, "Txtboatspeed", "6");
  refused("Duration not set");
  Type(form, "txtDuration", "2");
  refused("Duration entry ambiguous");
  Type(form, "txtDuration", ":30");
  refused("Duration entry ambiguous");
  Type(form, "txtDuration", "1:30");
  refused("Direction not set");
  Type(form, "txtBearing", "90");
  refused("Error in start and destination coordinates");
  Type(form, "txtstartlat", "50.30.00N");
  Type(form, "txtstartlon", "001.20.00");
  refused("Error in start and destination coordinates");
  Type(form, "txtstartlon", "001.20.00W");
  Type(form, "txtdestlat", "50.20.00N");
  refused("Error in start and destination coordinates");
  EXPECT_EQ(form.focusWidget(), Find(form, "txtdestlat"));
  Type(form, "txtdestlon", "001.00.00W");
  Click(form, "chkLeeway");
  refused("Select windside for Leeway");
  Click(form, "optPort");
  Type(form, "txtLeeWay", "");
  refused("You have selected to use Leeway but have not entered a value");
  Click(form, "chkLeeway");
  Type(form, "Txtboatspeed", "101");
  refused("The speed is above 100 knots - please correct.");
  Type(form, "Txtboatspeed", "6");
  Type(form, "txtBearing", "361");
  refused("The heading is not between 0 and 360 degrees - please correct.");
  Type(form, "txtBearing", "90");
  Type(form, "txtDuration", "99999999999999999999:00");
  refused(
      "The duration is too long: at a calculation interval of 5 minutes no more than 720 hours "
      "can be predicted.");
  Type(form, "txtDuration", "0:02");
  refused("The duration is shorter than half of the calculation interval of 5 minutes.");
  EXPECT_TRUE(program.passage.route_track.empty());
}

TEST_F(DriftDialogs, TheDestinationGoesToAConnectedGps) {
  std::vector<UploadPoint> sent;
  const auto upload = [&sent](const UploadPoint& point) { sent.push_back(point); };
  EXPECT_FALSE(
      Find<QPushButton>(*std::make_unique<frmCalcCOG>(desktop, nullptr, upload), "CmdDesttogps")
          ->isEnabled());
  program.link.gps_enabled = true;
  frmCalcCOG form(desktop, nullptr, upload);
  Show(form);
  messages.Expect("Error in start and destination coordinates", MessageIcon::kWarning);
  Click(form, "CmdDesttogps");
  TypePlaces(form);
  Type(form, "txtdestlat", "50.40.00N");
  messages.ExpectQuestion("Upload destination to GPS?", false);
  Click(form, "CmdDesttogps");
  EXPECT_TRUE(sent.empty());
  messages.ExpectQuestion("Upload destination to GPS?", true);
  Click(form, "CmdDesttogps");
  ASSERT_EQ(sent.size(), 1U);
  EXPECT_EQ(sent[0].name, "DEST");
  EXPECT_NEAR(sent[0].position.latitude, 50.6667, 1e-4);
}

TEST_F(DriftDialogs, TheBearingIsOfferedUntilAHeadingIsTyped) {
  frmCalcCOG form(desktop, nullptr);
  Show(form);
  TypePlaces(form);
  EXPECT_EQ(Text(form, "txtBearing"), "180");
  Type(form, "txtdestlat", "50.40.00N");
  EXPECT_EQ(Text(form, "txtBearing"), "000");
  Type(form, "txtBearing", "045");
  Type(form, "txtdestlat", "50.20.00N");
  EXPECT_EQ(Text(form, "txtBearing"), "045");
}

TEST(OfferedHeading, IsRoundedToTenthsAndThenToAnInteger) {
  // RangeBearing gives 44.465 degrees here: 44.5 in tenths, 44 to even, and straight 44 too; and
  // 45.465 the other way, 45.5 and 46, where straight rounding gives 45.
  CogEntry entry{"50.00.00N", "001.00.00W", "", "", "", "", "", "", "", false, false, false, ""};
  EXPECT_EQ(OfferedHeading(entry), "");
  int doubly = 0;
  for (int hundredths = 1000; hundredths < 2000; ++hundredths) {
    const int minutes = hundredths / 100;
    char text[16];
    std::snprintf(text, sizeof text, "50.%02d.%02dN", minutes, hundredths % 100);
    entry.destination_latitude = text;
    entry.destination_longitude = "000.35.00W";
    const float bearing =
        RangeBearing({TextToLat(entry.start_latitude), TextToLong(entry.start_longitude)},
                     {TextToLat(text), TextToLong("000.35.00W")})
            .bearing;
    const double tenths = std::nearbyint(bearing * 10.0) / 10.0;
    const int expected = static_cast<int>(std::nearbyint(tenths));
    doubly += expected != static_cast<int>(std::nearbyint(bearing)) ? 1 : 0;
    char heading[8];
    std::snprintf(heading, sizeof heading, "%03d", expected);
    ASSERT_EQ(OfferedHeading(entry), heading) << bearing;
  }
  EXPECT_GT(doubly, 0);
}

TEST_F(DriftDialogs, CourseOverGroundPredictsReportsAndBecomesTheResult) {
  LoadSample();
  program.config.variation = -3.0F;
  program.selected_time.override_ = true;
  program.selected_time.hours = 6.5F;
  program.passage.calc_mode = kCalcModeRoute;
  program.passage.legs.resize(2);
  program.route.points[0].calculated = true;
  frmCalcCOG form(desktop, nullptr);
  Show(form);
  TypePlaces(form);
  Type(form, "txtDuration", "1:30");
  Type(form, "Txtboatspeed", "6");
  Click(form, "chkLeeway");
  Click(form, "optStarboard");
  Type(form, "txtLeeWay", "10");
  std::vector<std::string> lines;
  WithNextDialog([&](QDialog& results) {
    EXPECT_EQ(results.objectName(), "frmresults");
    lines = program.passage.result_lines;
  });
  Click(form, "cmdCalculate");
  EXPECT_FALSE(form.isVisible());
  ASSERT_GE(lines.size(), 10U);
  EXPECT_EQ(lines[0], "Course Over Ground Calculation for 14 Jun 2026");
  EXPECT_EQ(lines[3], "Steer 183°M\t Time taken=01Hrs 30Min  at 6.0 kt.");
  EXPECT_EQ(lines[4], "Starting at 06:30 Completion Time 08:00");
  EXPECT_EQ(lines[5], "Range and bearing between waypoints : 10.0nm @ 180°T ");
  EXPECT_EQ(lines[7], "(Leeway of 10° from wind on starboard, course through the water 170°T)");
  const PassageState& passage = program.passage;
  EXPECT_EQ(passage.calc_mode, kCalcModeDrift);
  EXPECT_EQ(passage.route_track.size(), 19U);  // 18 steps of five minutes
  EXPECT_EQ(passage.route_track.front().hours, 6.5F);
  EXPECT_TRUE(passage.legs.empty());
  EXPECT_FALSE(program.route.points[0].calculated);
  EXPECT_NE(window.changed & kRouteChanged, 0U);
  // A roll of the tides neither takes it for a route nor loses it.
  NoProgress progress;
  RollTides(program, Roll::kForward);
  EXPECT_EQ(ReworkResult(program, progress), RouteOutcome::kDone);
  EXPECT_EQ(passage.route_track.size(), 19U);
  EXPECT_EQ(passage.result_lines, lines);
}

TEST_F(DriftDialogs, WaypointsFillBothPlacesInTurn) {
  frmCalcCOG form(desktop, nullptr);
  Show(form);
  const std::vector<Waypoint>& waypoints = program.waypoints.waypoints;
  ASSERT_GE(waypoints.size(), 3U);
  EXPECT_FALSE(Find<QPushButton>(form, "cmdcopytostart")->isEnabled());
  ClickRow(form, "lstWaypoints", 0, 2);
  EXPECT_EQ(Text(form, "txtstartlat"), LatToText(waypoints[0].latitude));
  ClickRow(form, "lstWaypoints", 1, 2);
  EXPECT_EQ(Text(form, "txtdestlon"), LongToText(waypoints[1].longitude));
  ClickRow(form, "lstWaypoints", 2);
  Click(form, "cmdcopytostart");
  EXPECT_EQ(Text(form, "txtstartlon"), LongToText(waypoints[2].longitude));
  EXPECT_EQ(Find<QLabel>(form, "lblstartname")->text().toStdString(), waypoints[2].name);
  Type(form, "txtstartlat", "50.00.00N");
  EXPECT_EQ(Find<QLabel>(form, "lblstartname")->text(), "");
  Type(form, "txtDuration", "1:00");
  WithNextDialog([&](QDialog&) {});
  Click(form, "cmdCalculate");
  EXPECT_NE(program.config.set_leg_option, 0);  // the destination is next, and that is kept
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program.folders, stored).ok());
  EXPECT_NE(stored.set_leg_option, 0);
}

TEST_F(DriftDialogs, CancelledPredictionLeavesTheResultBefore) {
  program.passage.calc_mode = kCalcModeRoute;
  program.passage.result_lines = {"before"};
  frmCalcCOG form(desktop, nullptr);
  Show(form);
  TypePlaces(form);
  Type(form, "txtDuration", "100:00");
  window.stop_at = 30.0;
  Click(form, "cmdCalculate");
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(program.passage.calc_mode, kCalcModeRoute);
  EXPECT_EQ(program.passage.result_lines, std::vector<std::string>{"before"});
}

TEST_F(DriftDialogs, ManOverboardRefusesInItsWordsAndOrder) {
  frmCalcMOB form(desktop, nullptr);
  Show(form);
  const auto refused = [&](const char* words) {
    messages.Expect(words, MessageIcon::kWarning);
    Click(form, "cmdOK");
    EXPECT_TRUE(messages.AllShown()) << words;
  };
  EXPECT_FALSE(Find(form, "Cmdgpstostart")->isVisible());
  EXPECT_FALSE(Find(form, "optMarkTime")->isVisible());
  Type(form, "txtstartlat", "50.3");
  refused("Error in start and destination coordinates");
  Type(form, "txtstartlat", "50.30.00N");
  refused("Error in start and destination coordinates");  // no longitude
  Type(form, "txtstartlon", "001.20.00W");
  refused("Duration not set");
  EXPECT_EQ(form.focusWidget(), Find(form, "txtDuration"));
  EXPECT_TRUE(form.isVisible());
}

TEST_F(DriftDialogs, ManOverboardDriftsFromTheMarkAtItsTime) {
  MarkManOverboard(program, {50.5F, -1.3333334F});
  clock.now.minute = 50;  // twenty minutes later
  frmCalcMOB form(desktop, nullptr);
  Show(form);
  EXPECT_EQ(Text(form, "txtstartlat"), "50.30.00N");
  EXPECT_EQ(Text(form, "txtstartlon"), "001.20.00W");
  EXPECT_TRUE(Find<QRadioButton>(form, "optMarkTime")->isChecked());
  Type(form, "txtDuration", "2.5");
  QTest::keyClick(Find<QLineEdit>(form, "txtDuration"), Qt::Key_Return);
  EXPECT_FALSE(form.isVisible());
  const PassageState& passage = program.passage;
  ASSERT_EQ(passage.route_track.size(), 31U);
  EXPECT_EQ(passage.calc_mode, kCalcModeDrift);
  EXPECT_EQ(passage.route_track[0].hours, 9.5F);
  EXPECT_EQ(passage.route_track[0].position, (Position{50.5F, -1.3333334F}));
  EXPECT_EQ(passage.result_lines[0], "Drift Prediction for 14 Jun 2026");

  // The selected time where the user wants it, and a speed of the target's own.
  frmCalcMOB again(desktop, nullptr);
  Show(again);
  Click(again, "optSelectedTime");
  Type(again, "txtDuration", "1");
  Type(again, "txtBearing", "270");
  Type(again, "Txtboatspeed", "2");
  Click(again, "cmdOK");
  EXPECT_FLOAT_EQ(passage.route_track[0].hours, 9.0F + 50.0F / 60.0F);
  EXPECT_EQ(passage.result_lines[3], "Heading 270°T at 2.0 kt.");
}

TEST_F(DriftDialogs, ManOverboardTakesTheGps) {
  program.link.gps_enabled = true;
  program.nmea.fix.boat_latitude = 50.25F;
  program.nmea.fix.boat_longitude = -2.5F;
  program.nmea.fix.position_good = true;
  program.nmea.fix.speed_over_ground = 4.24F;
  program.nmea.fix.course_over_ground = 88.0F;
  frmCalcMOB form(desktop, nullptr);
  Show(form);
  EXPECT_EQ(Text(form, "txtstartlat"), "50.15.00N");  // no mark: the boat
  Type(form, "txtstartlat", "");
  Click(form, "Cmdgpstostart");
  EXPECT_EQ(Text(form, "txtstartlat"), "50.15.00N");
  EXPECT_EQ(Text(form, "txtstartlon"), "002.30.00W");
  Click(form, "cmdUseSOG");
  EXPECT_EQ(Text(form, "Txtboatspeed"), "4.2");
  EXPECT_EQ(Text(form, "txtBearing"), "088");
}

}  // namespace
}  // namespace skerrow::testing
