// The commands and keys of the wind in the main window.

#include "ui/overlays/wind_overlays.h"
#include "window_fixture.h"

namespace skerrow {
namespace {

using testing::MainWindowTest;

class WindCommandsTest : public MainWindowTest {
 protected:
  // A wind over the middle of the Channel at nine on 5 December 2026, and three hours later.
  void StoreWind() {
    const float day = static_cast<float>(DaysFrom2000({339, 2026}));
    std::vector<WindCell> cells(1);
    for (int row = 0; row < 5; ++row) {
      for (int column = 0; column < 5; ++column) {
        const float latitude = 49.5F + 0.25F * static_cast<float>(row);
        const float longitude = -2.5F + 0.25F * static_cast<float>(column);
        cells.push_back({day + 0.375F, latitude, longitude, 20.0F, 225.0F});
        cells.push_back({day + 0.5F, latitude, longitude, 30.0F, 270.0F});
      }
    }
    ASSERT_TRUE(WriteWindStore(program_.folders, cells).ok());
  }
  QString Paint() {
    window_->viewer().Redraw();
    window_->grab();
    return window_->windowTitle();
  }
  bool Checked(const char* name) { return window_->action(name)->isChecked(); }
};

TEST_F(WindCommandsTest, TheGridComesAndGoesAndRollsWithTheTime) {
  clock_.now = {2026, 12, 5, 9, 0, 0};
  Start();
  StoreWind();
  EXPECT_TRUE(Checked("mnuUserEntered"));
  EXPECT_FALSE(Checked("mnuSmartMet"));
  QTest::keyClick(&window_->viewer(), Qt::Key_NumberSign);
  EXPECT_TRUE(Checked("mnuWindDisplay"));
  EXPECT_FALSE(Paint().contains("wind"));
  EXPECT_FALSE(program_.wind_field.key) << "the wind entered needs no forecast";
  Command("mnuSmartMet");
  EXPECT_TRUE(Checked("mnuSmartMet"));
  EXPECT_FALSE(Checked("mnuUserEntered"));
  EXPECT_TRUE(Paint().contains("-  wind 09:00 5/12/2026")) << window_->windowTitle().toStdString();
  ASSERT_EQ(program_.wind_field.winds.size(), 25U);
  EXPECT_EQ(program_.wind_field.winds[0].wind.speed_kn, 20.0F);
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program_.folders, stored));
  EXPECT_EQ(stored.use_manual_wind, kFalse);
  EXPECT_EQ(stored.show_wind_grid, kTrue);
  for (int i = 0; i < 6; ++i) Command("mnuTideRollPlus");
  EXPECT_TRUE(Paint().contains("-  wind 12:00 5/12/2026"));
  EXPECT_EQ(program_.wind_field.winds[0].wind.speed_kn, 30.0F);
  for (int i = 0; i < 6; ++i) Command("mnuTideRollPlus");
  EXPECT_TRUE(Paint().contains("no wind data, forecast ends 12:00 5/12/2026"));
  EXPECT_TRUE(program_.wind_field.winds.empty());
  Key(Qt::Key_NumberSign);
  EXPECT_FALSE(Checked("mnuWindDisplay"));
  EXPECT_FALSE(Paint().contains("wind"));
}

TEST_F(WindCommandsTest, TheRouteTakesTheWindInUse) {
  clock_.now = {2026, 12, 5, 9, 0, 0};
  Start();
  StoreWind();
  LayRoute();
  for (const RoutePoint& point : program_.route.points) {
    EXPECT_EQ(point.wind_speed, program_.working_wind.speed_kn);
  }
  Command("mnuSmartMet");
  EXPECT_EQ(program_.route.points[0].wind_speed, 20.0F);
  EXPECT_EQ(program_.route.points[0].wind_direction, 225.0F);
  Key(Qt::Key_N);
  EXPECT_TRUE(Checked("mnuDisplayWindOverRoute"));
  EXPECT_EQ(program_.config.show_wind_over_route, kTrue);
  Command("mnuUserEntered");
  EXPECT_EQ(program_.route.points[0].wind_speed, program_.working_wind.speed_kn);
  EXPECT_EQ(program_.route.points[0].wind_direction, program_.working_wind.from_deg);
  // Out of the forecast's hours one message says so, and what is held stays.
  for (int i = 0; i < 24; ++i) Command("mnuTideRollPlus");
  messages_.Expect("GRIB Wind file data coverage incorrect - using last good wind values");
  Command("mnuSmartMet");
  EXPECT_EQ(program_.route.points[0].wind_speed, program_.working_wind.speed_kn);
}

TEST_F(WindCommandsTest, TheWindowsOfTheWindOpen) {
  Start();
  for (const auto& [command, form] : {std::pair{"mnuWindGribImport", "frmGribImport"},
                                      std::pair{"mnuViewSmartMet", "frmViewSmartMet"}}) {
    bool seen = false;
    OnDialog([&, name = form](QWidget* dialog) { seen = dialog->objectName() == name; });
    Command(command);
    EXPECT_TRUE(seen) << command;
  }
}

}  // namespace
}  // namespace skerrow
