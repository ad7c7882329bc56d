// The import of forecasts, by real events and from real files.

#include <QLabel>
#include <filesystem>

#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/forms/grib_form.h"
#include "ui/wind/frmGribImport.h"

namespace skerrow::testing {
namespace {

class GribImport : public SampleDesk {
 protected:
  void Give(const char* name, const char* as) {
    std::filesystem::copy(std::string(SKERROW_SOURCE_DIR "/tests/wind/data/") + name,
                          program.folders.GribData() + "/" + as);
  }
  static std::string Said(QWidget& form, const char* label) {
    return Find<QLabel>(form, label)->text().toStdString();
  }
  std::string Stored() const { return FileBytes(program.folders.WindDataFile()); }
};

TEST_F(GribImport, AFileIsChosenReadAndImported) {
  Give("coarse.grb", "20261205_0601_GFS.grb");
  Give("edition2.grb2", "Second.GRIB2");
  std::filesystem::create_directory(program.folders.GribData() + "/folder.grb");
  std::filesystem::copy(SKERROW_SOURCE_DIR "/LICENSE", program.folders.GribData() + "/notes.txt");
  frmGribImport form(desktop, nullptr);
  Show(form);
  ASSERT_EQ(Find<QListWidget>(form, "FileList")->count(), 2);
  EXPECT_EQ(Said(form, "lblFileName"), "Downloaded on 5/12/2026(At 06:01)  Valid from 5/12/2026");
  messages.Expect("File Imported", MessageIcon::kInformation);
  Click(form, "cmdExport");
  EXPECT_EQ(TextOf(form, "List1", 0), "Rec No\tParam Number\tTime");
  const int count = Find<QListWidget>(form, "List1")->count() - 1;
  EXPECT_GE(count, 2);
  EXPECT_EQ(TextOf(form, "List1", 1).substr(0, 5), "1\t33\t");
  EXPECT_EQ(Said(form, "lblRecCount"), "Processing Record Number " + std::to_string(count));
  const std::string first = Stored();
  EXPECT_GT(first.size(), kWindCellSize);
  // The wind is in use, here and in the stored settings.
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program.folders, stored));
  for (const AppConfig& config : {program.config, stored}) {
    EXPECT_EQ(config.use_manual_wind, kFalse);
    EXPECT_EQ(config.show_wind_grid, kTrue);
  }
  EXPECT_NE(window.changed & kTimeChanged, 0U);

  // By the keyboard, another edition, and only into the store.
  Click(form, "chkUse");
  program.config.use_manual_wind = kTrue;
  messages.Expect("File Imported", MessageIcon::kInformation);
  auto* list = Find<QListWidget>(form, "FileList");
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_EQ(Said(form, "lblFileName"), "");
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_TRUE(messages.AllShown());
  EXPECT_TRUE(Stored() != first);
  EXPECT_EQ(program.config.use_manual_wind, kTrue);
}

TEST_F(GribImport, TheSampleBeginsToday) {
  frmGribImport form(desktop, nullptr);
  Show(form);
  EXPECT_TRUE(Said(form, "lblFileName").starts_with("There is no forecast file yet"));
  messages.Expect("Select a file", MessageIcon::kWarning);
  Click(form, "cmdExport");
  messages.Expect("File Imported", MessageIcon::kInformation);
  Click(form, "cmdSample");
  const std::shared_ptr<const WindStore> store = program.wind_store.Get(program.folders);
  EXPECT_EQ(store->first_time(), DaysFrom2000({165, 2026})) << "14 June";
  EXPECT_GT(store->last_time() - store->first_time(), 4.0);
  EXPECT_TRUE(Find<QPushButton>(form, "cmdExport")->isEnabled());
  EXPECT_EQ(Find<QPushButton>(form, "cmdCancel")->text(), "Close");
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
}

TEST_F(GribImport, ADamagedFileAndACancelLeaveTheStore) {
  frmGribImport form(desktop, nullptr);
  Show(form);
  messages.Expect("File Imported", MessageIcon::kInformation);
  Click(form, "cmdSample");
  const std::string before = Stored();
  // What is no forecast.
  std::filesystem::copy(SKERROW_SOURCE_DIR "/LICENSE", program.folders.GribData() + "/Bad.grb");
  frmGribImport second(desktop, nullptr);
  Show(second);
  messages.Expect("Grib file wrong edition number\nExiting routine");
  Click(second, "cmdExport");
  EXPECT_TRUE(Stored() == before);
  // A file that takes its time, and Esc while it is read.
  std::string large;
  for (int i = 0; i < 300; ++i) large += FileBytes(SampleForecast(program.folders));
  ASSERT_TRUE(ReplaceFile(program.folders.GribData() + "/A large one.grb", large).ok());
  frmGribImport third(desktop, nullptr);
  Show(third);
  QTimer::singleShot(60, &third, [&third] {
    EXPECT_FALSE(Find<QPushButton>(third, "cmdExport")->isEnabled());
    EXPECT_TRUE(Said(third, "lblRecCount").starts_with("Processing Record Number "));
    QTest::keyClick(&third, Qt::Key_Escape);
  });
  Click(third, "cmdExport");
  EXPECT_TRUE(third.isVisible());
  EXPECT_TRUE(Stored() == before);
  EXPECT_EQ(Said(third, "lblRecCount"), "Stopped. What was imported before is kept.");
}

TEST(GribForm, TheDateOfADownloadFromItsName) {
  const struct {
    const char* name;
    const char* text;
  } rows[] = {{"20261205_060133_GFS_20261206.grb",
               "Downloaded on 5/12/2026(At 06:01)  Valid from 6/12/2026"},
              {"GFS_1833_20270101.grb2", "Downloaded on 1/1/2027(At 18:33)  Valid from 1/1/2027"},
              {"20261205_0601_ICON.grb", ""},
              {"GFS20261205.grb", ""},
              {"GFS_20261305_0601.grb", ""},
              {"GFS_20261205_2460.grb", ""},
              {"GFS_.grb", ""}};
  for (const auto& row : rows) EXPECT_EQ(DownloadText(row.name), row.text) << row.name;
}

}  // namespace
}  // namespace skerrow::testing
