#include "ui/forms/calc_route_form.h"

#include <QCheckBox>
#include <gtest/gtest.h>

#include "app/edits.h"
#include "app/recovery.h"
#include "passage/optimum.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/dialogs/frmcalcroute.h"

namespace skerrow::testing {
namespace {

class CalcRouteForm : public SampleDesk {
 protected:
  void SetUp() override { LoadSample(); }

  std::vector<RoutePoint>& points() { return program.route.points; }
};

TEST_F(CalcRouteForm, DepartureFollowsTheClockUntilTheUserHasSetATime) {
  program.selected_time.hours = 15.5F;
  EXPECT_EQ(CalcRouteTextsOf(program).time, "09:30");
  program.selected_time.override_ = true;
  EXPECT_EQ(CalcRouteTextsOf(program).time, "15:30");
}

// A control stored in its neighbour would come back at another place.
TEST_F(CalcRouteForm, EveryBoxOfALegHasItsPlace) {
  frmcalcroute form(desktop, nullptr);
  Show(form);
  ClickRow(form, "List1", 5);
  for (const auto& [box, text] : {std::pair{"txtroutestartname", "First"},
                                  {"txtroutestartlat", "50.31.00N"},
                                  {"txtroutestartlong", "001.12.00W"},
                                  {"txtroutedestname", "Second"},
                                  {"txtroutedestlat", "50.03.00N"},
                                  {"txtroutedestlong", "001.24.00E"},
                                  {"txtroutespeed", "6.25"}}) {
    Type(form, box, text);
  }
  const std::vector<RoutePoint> before = points();
  Click(form, "cmdModify");
  EXPECT_EQ(points()[1].name + points()[2].name, "FirstSecond");
  EXPECT_NEAR(points()[1].latitude, 50.0 + 31.0 / 60.0, 1e-5);
  EXPECT_NEAR(points()[1].longitude, -1.2, 1e-5);
  EXPECT_NEAR(points()[2].latitude, 50.05, 1e-5);
  EXPECT_NEAR(points()[2].longitude, 1.4, 1e-5);
  EXPECT_EQ(points()[1].speed, 6.25F);
  EXPECT_EQ(points()[2].speed, before[2].speed);
  EXPECT_EQ(points()[0].Next(), points()[1].At());
  EXPECT_EQ(points()[3].At(), before[3].At());
  EXPECT_FLOAT_EQ(program.route.distance, RouteLengthOf(points()));
  const LegEntry shown = EntryOfLeg(program.route, 2);
  for (const auto& [box, text] : {std::pair{"txtroutestartname", shown.start_name},
                                  {"txtroutestartlat", shown.start_latitude},
                                  {"txtroutestartlong", shown.start_longitude},
                                  {"txtroutedestname", shown.end_name},
                                  {"txtroutedestlat", shown.end_latitude},
                                  {"txtroutedestlong", shown.end_longitude},
                                  {"txtroutespeed", shown.speed}}) {
    EXPECT_EQ(Find<QLineEdit>(form, box)->text().toStdString(), text) << box;
  }
  // The session has it: it can be taken back, and would come back after a bad end.
  EXPECT_EQ(program.edits.history.UndoName(), "Edit Leg");
  EXPECT_TRUE(FindRouteRecovery(program.folders));
  EXPECT_TRUE(UndoRouteEdit(program, messages));
  EXPECT_EQ(points()[1].name, before[1].name);
}

TEST_F(CalcRouteForm, OptionsReachTheCalculation) {
  program.use_leeway = true;
  frmcalcroute form(desktop, nullptr);
  Show(form);
  Type(form, "rtedeptime", "07:45");
  EXPECT_TRUE(Find<QCheckBox>(form, "chkLeeway")->isChecked());
  Type(form, "txtLeeway", "8.5");
  std::string lines;
  WithNextDialog([&](QDialog&) { lines = JoinLines(program.passage.result_lines); });
  Click(form, "Cmdrteok");
  EXPECT_NE(lines.find("Departing 07:45,"), std::string::npos);
  EXPECT_NE(lines.find("(Leeway of 8.5\u00b0 and a variation of 4W"), std::string::npos) << lines;
}

TEST_F(CalcRouteForm, TacksComeFromTheDefaultWind) {
  // All legs run south; a wind from 290 comes over their starboard side, one from 090 over port.
  frmcalcroute form(desktop, nullptr);
  Show(form);
  Click(form, "cmdTack");
  EXPECT_EQ(points()[0].tack, 2);
  EXPECT_NE(TextOf(form, "List1", 2).find("Starboard Tack"), std::string::npos);
  program.wind_config.default_direction = "090";
  Click(form, "cmdTack");
  for (std::size_t i = 0; i + 1 < points().size(); ++i) EXPECT_EQ(points()[i].tack, 1) << i;
}

TEST_F(CalcRouteForm, TheGpsMovesTheStartOnlyWhileItReceives) {
  program.nmea.fix.boat_latitude = 50.7F;
  program.nmea.fix.boat_longitude = -1.5F;
  EXPECT_FALSE(GpsReadingOf(program));
  program.link.gps_enabled = true;
  const auto gps = GpsReadingOf(program);
  ASSERT_TRUE(gps);
  UseGpsForStart(program.route, {gps->position, 4.5F}, true, RouteDefaultsOf(program), messages);
  EXPECT_EQ(points()[0].At(), (Position{50.7F, -1.5F}));
  EXPECT_EQ(points()[0].name, "");
  for (const RoutePoint& point : points()) EXPECT_FLOAT_EQ(point.speed, 4.5F);
  program.nmea.fix.boat_latitude = 0.0F;
  EXPECT_FALSE(GpsReadingOf(program));
}

TEST_F(CalcRouteForm, ASearchLeavesNoCalculatedRoute) {
  NoProgress progress;
  ASSERT_EQ(RunCalculation(program, {"06:00", false, ""}, messages, progress), RouteOutcome::kDone);
  EXPECT_TRUE(points()[0].calculated);
  ASSERT_EQ(RunDepartureSearch(program, 1, messages, progress), RouteOutcome::kDone);
  EXPECT_EQ(program.passage.optimum_times.size(), 8U);
  EXPECT_EQ(program.passage.calc_mode, 0);
  EXPECT_FALSE(points()[0].calculated);
}

}  // namespace
}  // namespace skerrow::testing
