#include <filesystem>

#include "app/chart_change.h"
#include "ui/overlays/stream_overlays.h"
#include "window_fixture.h"

namespace skerrow {
namespace {

using testing::MainWindowTest;

// The main window on the sample area with a file of harmonic stations beside the diamonds.
class StreamCommands : public MainWindowTest {
 protected:
  void UseCopy(bool with_stations) {
    const std::string copy = user_.File("program");
    std::filesystem::copy(SKERROW_PROGRAM_FOLDER, copy, std::filesystem::copy_options::recursive);
    program_.folders.program = copy;
    program_.config = DefaultConfig(copy);
    std::filesystem::remove_all(program_.folders.HarmonicStreams());
    if (!with_stations) return;
    std::filesystem::create_directory(program_.folders.HarmonicStreams());
    HarmonicStation station;
    station.name = "9999-51";
    station.latitude = 50.5F;
    station.longitude = -1.3F;
    station.x_m2_hm = 2.0F;
    const std::vector<HarmonicStation> stations = {{}, station};
    ASSERT_TRUE(WriteRecords<HarmonicStation>(HarmonicStationPath(program_.folders, "Sample Chart"),
                                              stations, kHarmonicStationFields));
  }
  // Lets the window paint.
  void Paint() {
    window_->viewer().Redraw();
    window_->grab();
  }
};

TEST_F(StreamCommands, TheStreamsComeAndGoAndFollowTheTime) {
  clock_.now = {2026, 12, 5, 9, 0, 0};
  Start();
  TideState& tides = program_.tides;
  Paint();
  ASSERT_EQ(tides.tidal_streams.size(), tides.diamonds.size());
  EXPECT_EQ(tides.tidal_streams[50].rate, 2.1F);  // 9999-51, as the diamond's report has it
  Key(Qt::Key_S);
  EXPECT_EQ(program_.config.show_streams, 0.0F);
  EXPECT_FALSE(window_->action("mnuShowTidalStreams")->isChecked());
  EXPECT_FALSE(window_->action("mnuPUTidalStream")->isEnabled());
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program_.folders, stored));
  EXPECT_EQ(stored.show_streams, 0.0F);
  Command("mnuTideRollPlus");
  Paint();
  EXPECT_EQ(tides.tidal_streams[50].rate, 2.1F) << "hidden streams are not worked out";
  Key(Qt::Key_S);
  EXPECT_TRUE(window_->action("mnuShowTidalStreams")->isChecked());
  Paint();
  EXPECT_EQ(tides.streams_revision, tides.revision);
  EXPECT_NE(tides.tidal_streams[50].rate, 2.1F);
}

TEST_F(StreamCommands, HarmonicStreamsFollowTimeAndArea) {
  UseCopy(true);
  clock_.now = {2026, 12, 5, 9, 0, 0};
  Start();
  QAction* action = window_->action("mnuHarmonicStreams");
  EXPECT_TRUE(action->isEnabled());
  EXPECT_FALSE(action->isChecked());
  Command("mnuHarmonicStreams");
  EXPECT_TRUE(action->isChecked());
  ASSERT_EQ(program_.tides.harmonic_streams.size(), 2U);
  const float at_nine = program_.tides.harmonic_streams[1].x;
  float hours = 9.0F;
  EXPECT_EQ(at_nine, CalcStreamComponent(program_.tides.harmonic_stations[1], StreamAxis::kX, 2026,
                                         339, hours));
  Command("mnuTideRollPlus");
  hours = 9.5F;
  EXPECT_EQ(
      program_.tides.harmonic_streams[1].x,
      CalcStreamComponent(program_.tides.harmonic_stations[1], StreamAxis::kX, 2026, 339, hours));
  // They are read anew with the area; one without stations ends them.
  program_.tides.harmonic_stations.clear();
  LoadArea(program_, messages_);
  EXPECT_EQ(program_.tides.harmonic_streams.size(), 2U);
  std::filesystem::copy(DiamondFilePath(program_.folders, "Sample Chart"),
                        DiamondFilePath(program_.folders, "Elsewhere"));
  program_.config.tidal_area = "Elsewhere";
  LoadArea(program_, messages_);
  window_->Changed(kAllChanged);
  EXPECT_FALSE(action->isEnabled() || action->isChecked());
  EXPECT_TRUE(program_.tides.harmonic_streams.empty());
}

TEST_F(StreamCommands, WithoutAFileThereAreNoHarmonicStreams) {
  UseCopy(false);
  Start();
  EXPECT_FALSE(window_->action("mnuHarmonicStreams")->isEnabled());
}

TEST_F(StreamCommands, ADoubleClickAndTheMenuOpenTheNearestDiamond) {
  Start();
  const Diamond& diamond = program_.tides.diamonds[39];
  const Position place{diamond.latitude, diamond.longitude};
  int opened = 0;
  const auto expect_diamond = [&](QWidget* dialog) {
    ++opened;
    EXPECT_EQ(dialog->objectName(), "frmDiaInfo");
    const auto* list = dialog->findChild<QListWidget*>("lstDiaData");
    EXPECT_EQ(list->item(0)->text(), "Tidal stream ID 9999-40");
    QTest::keyClick(dialog, Qt::Key_Escape);
  };
  OnDialog(expect_diamond);
  MoveTo(At(place));
  QTest::mouseDClick(canvas(), Qt::LeftButton, {}, At(place));
  QTest::mouseRelease(canvas(), Qt::LeftButton, {}, At(place));
  EXPECT_EQ(opened, 1);
  OnDialog(expect_diamond);
  Command("mnuPUTidalStream");
  EXPECT_EQ(opened, 2);
  // Beyond the search circle nothing opens; with a larger one the nearest does.
  window_->view().last_click = Position{place.latitude + 1.1F / 60.0F, place.longitude};
  Command("mnuPUTidalStream");
  EXPECT_EQ(opened, 2);
  program_.config.search_circle = 5.0F;
  OnDialog(expect_diamond);
  Command("mnuPUTidalStream");
  EXPECT_EQ(opened, 3);
}

// Equal spring and neap ranges are told once, after the paint, until the file is another.
TEST_F(StreamCommands, ABrokenDiamondIsToldOnce) {
  Start();
  program_.tides.diamonds[3].np_range = program_.tides.diamonds[3].sp_range;
  ++program_.tides.revision;
  messages_.Expect(
      "CalculateTidalStreams\nDivide by Zero (Diamond(iCount)Sprange - Diamond(iCount).Nprange)",
      MessageIcon::kWarning);
  Paint();
  QApplication::processEvents();
  EXPECT_TRUE(messages_.AllShown());
  EXPECT_EQ(program_.tides.tidal_streams.size(), 3U);
  Command("mnuTideRollPlus");
  Paint();
  QApplication::processEvents();
}

}  // namespace
}  // namespace skerrow
