// The lists of the imported wind, by real events.

#include <QComboBox>
#include <QLabel>

#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/forms/wind_list_form.h"
#include "ui/wind/frmViewSmartMet.h"
#include "ui/wind/frmViewWind.h"
#include "wind/forecast_file.h"

namespace skerrow::testing {
namespace {

constexpr float kDay = 9661.0F;  // 14 June 2026

class WindLists : public SampleDesk {
 protected:
  // Two times of two places; from the north-west at 10 m/s, and a hole.
  void Import() {
    GribRecord u;
    u.grid = {50.0F, -6.0F, 50.0F, -5.0F, 1.0F, 1.0F, 2, 1, true};
    u.day = 14;
    u.month = 6;
    u.year = 2026;
    u.valid_hour = 9;
    u.parameter = kGribWindU;
    u.values = {7.0711, kGribMissing};
    GribRecord v = u;
    v.parameter = kGribWindV;
    v.values = {-7.0711, -3.0};
    GribRecord later_u = u;
    GribRecord later_v = v;
    later_u.valid_hour = later_v.valid_hour = 12;
    later_u.values = {0.0, 5.0};
    later_v.values = {5.0, 0.0};
    messages.Expect("File Imported", MessageIcon::kInformation);
    ASSERT_TRUE(ImportForecast(program.folders, {u, v, later_u, later_v}, std::nullopt, messages));
  }
};

TEST_F(WindLists, TheViewersFileHasTheWindsWithTheirComponents) {
  Import();
  const Result<std::vector<GribWind>> winds = ReadGribWinds(program.folders);
  ASSERT_TRUE(winds);
  EXPECT_EQ(FileBytes(GribWindFile(program.folders)).size(), 4U * 32U);
  ASSERT_EQ(winds->size(), 4U);
  // 10 / 0.5148 knots.
  EXPECT_NEAR((*winds)[0].speed, 19.4251, 1e-3);
  EXPECT_NEAR((*winds)[0].direction, 315.0, 1e-3);
  EXPECT_EQ((*winds)[0].u, 7.0711F);
  EXPECT_EQ((*winds)[0].v, -7.0711F);
  EXPECT_EQ((*winds)[0].time, kDay + 0.375F);
  EXPECT_EQ((*winds)[0].latitude, 50.0F);
  EXPECT_EQ((*winds)[0].longitude, -6.0F);
  EXPECT_EQ((*winds)[0].frame, 1);
  EXPECT_EQ((*winds)[1],
            (GribWind{kDay + 0.375F, 50.0F, -5.0F, kNoWind, 0.0F, kNoComponent, -3.0F, 1}));
  EXPECT_EQ((*winds)[3].frame, 2);
  EXPECT_EQ((*winds)[3].direction, 270.0F);
}

TEST_F(WindLists, TheTimeInUseIsShownAndTheOthersAreAKeyAway) {
  Import();
  frmViewSmartMet form(desktop, nullptr);
  Show(form);
  const auto chosen = [&] { return Find<QComboBox>(form, "cmbTime")->currentText().toStdString(); };
  EXPECT_EQ(chosen(), "09:00 14/6/2026");  // it is half past nine
  EXPECT_EQ(TextOf(form, "List1", 0), "Latitude\tLongitude\tKnots\tFrom\tForce");
  EXPECT_EQ(TextOf(form, "List1", 1),
            LatToText(50.0F) + "\t" + LongToText(-6.0F) + "\t19.4\t315°T\t5");
  EXPECT_EQ(TextOf(form, "List1", 2), LatToText(50.0F) + "\t" + LongToText(-5.0F) + "\t-\t-\t-");
  EXPECT_EQ(Find<QLabel>(form, "lblRecCount")->text(), "2 records");
  EXPECT_FALSE(Find<QPushButton>(form, "cmdEarlier")->isEnabled());
  Click(form, "cmdLater");
  EXPECT_EQ(chosen(), "12:00 14/6/2026");
  EXPECT_TRUE(TextOf(form, "List1", 1).ends_with("\t9.7\t180°T\t3"));
  EXPECT_FALSE(Find<QPushButton>(form, "cmdLater")->isEnabled());
  Click(form, "cmdEarlier");
  EXPECT_EQ(chosen(), "09:00 14/6/2026");
  WithNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "frmViewWind");
    EXPECT_TRUE(TextOf(dialog, "List1", 1).starts_with("1\t"));
    EXPECT_TRUE(TextOf(dialog, "List1", 1).ends_with("\t19.4\t315°T\t7.1\t-7.1"));
    EXPECT_TRUE(TextOf(dialog, "List1", 2).ends_with("\t-\t-\t-\t-3.0"));
  });
  Click(form, "cmdViewWind");
}

TEST_F(WindLists, WithoutAFileTheySaySo) {
  frmViewSmartMet store(desktop, nullptr);
  frmViewWind winds(desktop, nullptr);
  for (QDialog* form : std::initializer_list<QDialog*>{&store, &winds}) {
    Show(*form);
    EXPECT_EQ(Find<QLabel>(*form, "lblRecCount")->text(), "No wind has been imported yet");
    EXPECT_EQ(Find<QListWidget>(*form, "List1")->count(), 0);
    EXPECT_FALSE(Find<QPushButton>(*form, "cmdLater")->isEnabled());
  }
}

TEST(WindListForm, ALongListIsCutAndTheNearestTimeIsOffered) {
  std::vector<WindCell> cells(kMostWindRows + 2, {kDay, 50.0F, -5.0F, 10.0F, 90.0F});
  cells[0] = {};
  const std::vector<WindTime> times = TimesOf(cells);
  ASSERT_EQ(times.size(), 1U);
  EXPECT_EQ(WindCountText(times[0]), "20001 records, the first 20000 shown");
  EXPECT_EQ(WindRows(cells, times[0]).size(), kMostWindRows + 1);
  const std::vector<WindTime> three = {{kDay, {}}, {kDay + 1.0F, {}}, {kDay + 2.0F, {}}};
  EXPECT_EQ(TimeFor(three, {166, 2026}, 2.9F), 1U);
  EXPECT_EQ(TimeFor(three, {166, 2026}, 13.0F), 2U);
  EXPECT_EQ(TimeFor(three, {100, 2026}, 0.0F), 0U);
  EXPECT_EQ(TimeFor({}, {100, 2026}, 0.0F), 0U);
}

}  // namespace
}  // namespace skerrow::testing
