// The conversion between true and apparent wind, typed as a user types.

#include <QLabel>
#include <QRadioButton>

#include "support/hands.h"
#include "support/recording_surface.h"
#include "support/sample_desk.h"
#include "ui/wind/frmTrueAppWind.h"

namespace skerrow::testing {
namespace {

class TrueAppWind : public SampleDesk {
 protected:
  static std::string In(QWidget& form, const char* box) {
    return Find<QLineEdit>(form, box)->text().toStdString();
  }
  static std::string Said(QWidget& form, const char* label) {
    return Find<QLabel>(form, label)->text().toStdString();
  }
  // "speed from angle force" of a wind.
  static std::string True(QWidget& form) {
    return In(form, "txtTrueSpeed") + " " + In(form, "txtTrueDir") + " " +
           In(form, "txtTrueAngle") + " " + Said(form, "lblTrueForce");
  }
  static std::string Apparent(QWidget& form) {
    return In(form, "txtAppSpeed") + " " + In(form, "txtAppDir") + " " + In(form, "txtAppAngle") +
           " " + Said(form, "lblAppForce");
  }
  static bool Starboard(QWidget& form) {
    return Find<QRadioButton>(form, "optStarboard")->isChecked();
  }
};

// The results are those of the triangle worked out by hand: right angles and 3, 4, 5.
TEST_F(TrueAppWind, EachWindFollowsTheOther) {
  frmTrueAppWind form(desktop, nullptr);
  Show(form);
  Type(form, "txtBoatSpeed", "10");
  Type(form, "txtCourse", "350");
  Type(form, "txtTrueSpeed", "10");
  Type(form, "txtTrueDir", "080");
  EXPECT_EQ(True(form), "10 080 90 Force 3");
  EXPECT_EQ(Apparent(form), "14.1 035 45 Force 4");
  EXPECT_TRUE(Starboard(form));
  // Back: the given wind is the apparent one now.
  Type(form, "txtAppSpeed", "12");
  Type(form, "txtAppAngle", "90");
  EXPECT_EQ(Apparent(form), "12 080 90 Force 4");
  EXPECT_EQ(True(form), "15.6 120 130 Force 4") << "hypot(12, 10); 90 + atan(10 / 12)";
  // By its direction, over the port side.
  Type(form, "txtAppDir", "350");
  EXPECT_EQ(True(form), "2.0 350 0 Force 1");
  Type(form, "txtAppDir", "260");
  EXPECT_EQ(True(form), "15.6 220 130 Force 4");
  EXPECT_FALSE(Starboard(form));
  Click(form, "optStarboard");
  EXPECT_EQ(Apparent(form), "12 080 90 Force 4");
  EXPECT_EQ(True(form), "15.6 120 130 Force 4");
  // 4 knots from abeam and a boat of 3.
  Type(form, "txtBoatSpeed", "3");
  Type(form, "txtTrueAngle", "90");
  Type(form, "txtTrueSpeed", "4");
  EXPECT_EQ(Apparent(form).substr(0, 10), "5.0 043 53");
}

TEST_F(TrueAppWind, WhatWasTypedStaysWhenTheBoatTurns) {
  frmTrueAppWind form(desktop, nullptr);
  Show(form);
  Type(form, "txtTrueDir", "200");
  Type(form, "txtCourse", "140");
  EXPECT_EQ(In(form, "txtTrueDir") + " " + In(form, "txtTrueAngle"), "200 60");
  Type(form, "txtTrueAngle", "45");
  Type(form, "txtCourse", "330");
  EXPECT_EQ(In(form, "txtTrueDir") + " " + In(form, "txtTrueAngle"), "015 45");
  // A speed alone makes the apparent wind the given one, by the angle that the instrument shows.
  Type(form, "txtAppSpeed", "20");
  const std::string angle = In(form, "txtAppAngle");
  Type(form, "txtCourse", "030");
  EXPECT_EQ(In(form, "txtAppAngle"), angle);
  EXPECT_EQ(In(form, "txtAppSpeed"), "20");
}

TEST_F(TrueAppWind, ACalmHasNoDirectionAndNonsenseNoResult) {
  frmTrueAppWind form(desktop, nullptr);
  Show(form);
  Type(form, "txtBoatSpeed", "6");
  Type(form, "txtCourse", "0");
  Type(form, "txtTrueSpeed", "6");
  Type(form, "txtTrueDir", "180");
  EXPECT_EQ(Apparent(form), "0.0   Calm") << "as fast as the wind";
  Type(form, "txtTrueSpeed", "0");
  EXPECT_EQ(Apparent(form), "6.0 000 0 Force 2");
  Type(form, "txtTrueDir", "");
  EXPECT_EQ(Apparent(form), "6.0 000 0 Force 2") << "no wind needs no direction";
  Type(form, "txtTrueSpeed", "9");
  EXPECT_EQ(Apparent(form), "   ");
  EXPECT_EQ(Said(form, "lblTrouble"), "Enter the direction of the true wind");
  const struct {
    const char *box, *text, *says;
  } rows[] = {
      {"txtTrueDir", "361", "Check the direction of the true wind: from 0 to 360 degrees"},
      {"txtTrueDir", "1.2.3", "Check the direction of the true wind: from 0 to 360 degrees"},
      {"txtTrueDir", "360", ""},
      {"txtTrueAngle", "180.5", "Check the angle of the true wind: from 0 to 180 degrees"},
      {"txtTrueAngle", "180", ""},
      {"txtTrueSpeed", "201", "Check the speed of the true wind: from 0 to 200 knots"},
      {"txtAppAngle", "181", "Enter the speed of the apparent wind"},
      {"txtAppSpeed", "200", "Check the angle of the apparent wind: from 0 to 180 degrees"},
      {"txtAppAngle", "30", ""},
      {"txtCourse", "", "Enter the boat's course"},
      {"txtCourse", "359.5", ""},
      {"txtBoatSpeed", "101", "Check the boat's speed: from 0 to 100 knots"},
  };
  for (const auto& row : rows) {
    Type(form, row.box, row.text);
    EXPECT_EQ(Said(form, "lblTrouble"), row.says) << row.box << " " << row.text;
    EXPECT_EQ(In(form, row.box), row.text);
  }
  const int before = messages.beeps;
  Type(form, "txtAppSpeed", "1x-2");
  EXPECT_EQ(In(form, "txtAppSpeed"), "12");
  EXPECT_EQ(messages.beeps, before + 2);
}

TEST_F(TrueAppWind, OpensWithTheBoatAndTheWindInUse) {
  program.working_wind = {.speed_kn = 12.0F, .from_deg = 359.8F};
  program.route_speed = 5.5F;
  const auto opened = [this] {
    frmTrueAppWind form(desktop, nullptr);
    Show(form);
    return In(form, "txtBoatSpeed") + " " + In(form, "txtCourse") + " " + In(form, "txtTrueSpeed") +
           " " + In(form, "txtTrueDir");
  };
  EXPECT_EQ(opened(), "5.5 000 12.0 000");
  program.route.points.resize(2);
  program.route.points[0].latitude = 50.0F;
  program.route.points[1].latitude = 49.0F;
  RelinkRoute(program.route.points);
  EXPECT_EQ(opened(), "5.5 180 12.0 000");
  program.nmea.fix.position_good = true;
  program.nmea.fix.speed_over_ground = 6.25F;
  program.nmea.fix.course_over_ground = 77.0F;
  EXPECT_EQ(opened(), "6.3 077 12.0 000");
}

TEST_F(TrueAppWind, ThePictureAddsTheWindsUp) {
  const auto lines = [](const std::optional<WindTriangle>& winds) {
    RecordingSurface surface(400.0, 300.0);
    DrawWindTriangle(surface, winds);
    return surface.Text();
  };
  EXPECT_EQ(lines(std::nullopt).find("line"), std::string::npos);
  // A beam wind of 8 and a boat of 6: 10 knots. 300 - 2 x 36 pixels high for the boat's 6.
  const std::string beam = lines(WindTriangle{6.0, 8.0, 90.0, true});
  for (const char* label : {"\"Boat 6.0 kn\"", "\"True 8.0 kn\"", "\"Apparent 10.0 kn\""}) {
    EXPECT_NE(beam.find(label), std::string::npos) << label;
  }
  const auto starts = [](const std::string& text) {
    std::vector<std::pair<double, double>> found;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
      double x = 0.0;
      double y = 0.0;
      if (std::sscanf(line.c_str(), "line %lf,%lf", &x, &y) == 2) found.emplace_back(x, y);
    }
    return found;
  };
  const auto right = starts(beam);
  ASSERT_EQ(right.size(), 3U) << beam;
  // Boat, true, apparent: the winds both begin to starboard of the boat's own, by 8 to 6.
  EXPECT_EQ(right[1], right[2]);
  EXPECT_GT(right[1].first, right[0].first);
  EXPECT_NEAR(right[1].second, right[0].second, 0.01) << "abeam";
  const auto left = starts(lines(WindTriangle{6.0, 8.0, 90.0, false}));
  EXPECT_NEAR(left[1].first - left[0].first, right[0].first - right[1].first, 0.01);
  const auto astern = starts(lines(WindTriangle{6.0, 8.0, 150.0, true}));
  EXPECT_GT(astern[1].second, astern[0].second);
  EXPECT_EQ(starts(lines(WindTriangle{0.0, 8.0, 30.0, true})).size(), 2U) << "no arrow of no wind";
}

}  // namespace
}  // namespace skerrow::testing
