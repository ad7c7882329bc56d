#include <QHeaderView>
#include <QScrollBar>

#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/instruments/frmAISSummary.h"

namespace skerrow::testing {
namespace {

class TargetWindows : public SampleDesk {
 protected:
  TargetWindows() {
    program.link.ais_enabled = true;
    program.link.gps_enabled = true;
    program.nmea.fix.boat_latitude = 50.0F;
    program.nmea.fix.boat_longitude = -1.5F;
  }

  // Minutes of latitude north of the boat are miles.
  AisTarget& Add(std::int32_t mmsi, const std::string& name, float miles, float cpa = -12.0F) {
    program.ais.targets.UpdateAisPosition({.message_type = 1,
                                           .mmsi = mmsi,
                                           .position = Position{50.0F + miles / 60.0F, -1.5F},
                                           .course = 90.0F,
                                           .speed = 6.0F,
                                           .nav_status = 0},
                                          {}, AisHours(clock.now));
    AisTarget& target = *program.ais.targets.Find(mmsi);
    if (!name.empty()) target.vessel_name = name;
    target.cpa = cpa;
    target.tcpa = 0.5F;
    target.cpa_known = true;
    return target;
  }
  void AddFour() {
    Add(235000003, "Meridian", 7.0F, 0.1F);
    Add(235000001, "", 3.0F);
    Add(235000002, "ATLANTIC STAR", 12.0F, 2.0F);
    Add(235000004, "Blue Heron", 1.0F);
  }

  // A second later.
  static void Later(QWidget& window) {
    window.hide();
    window.show();
  }
  static QString Cell(QWidget& window, int row, TargetColumn column) {
    QAbstractItemModel* model = Find<QTreeView>(window, "lstAISTargets")->model();
    return model->index(row, static_cast<int>(column)).data().toString().trimmed();
  }
  static QStringList Names(QWidget& window) {
    QStringList names;
    const int count = Find<QTreeView>(window, "lstAISTargets")->model()->rowCount();
    for (int row = 0; row < count; ++row) names << Cell(window, row, TargetColumn::kName);
    return names;
  }
  static void SortBy(QWidget& window, TargetColumn column) {
    QHeaderView* header = Find<QTreeView>(window, "lstAISTargets")->header();
    const int section = static_cast<int>(column);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(section) + 20, header->height() / 2));
  }
  static void ClickTarget(QWidget& window, int row, bool twice = false) {
    auto* list = Find<QTreeView>(window, "lstAISTargets");
    const QPoint at = list->visualRect(list->model()->index(row, 1)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    if (twice) QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
  }

  QWidget main_window;
  std::vector<Position> shown;
  ShowPlace show_place = [this](Position place) { shown.push_back(place); };
};

TEST_F(TargetWindows, TheListHasTheToldHeadingAndRows) {
  AddFour();
  frmAISSummary form(desktop, show_place, &main_window);
  Show(form);
  QAbstractItemModel* model = Find<QTreeView>(form, "lstAISTargets")->model();
  const QStringList headings = {"Index",       "Message Type",    "MMSI",
                                "Vessel Name", "Range & Bearing", "CPA"};
  for (int i = 0; i < headings.size(); ++i) {
    EXPECT_EQ(model->headerData(i, Qt::Horizontal, Qt::DisplayRole).toString(), headings[i]);
  }
  const QStringList first = {"1", "1", "235000003", "Meridian", "7.0 nm @000°T", "0.10nm @ 10:00"};
  for (int i = 0; i < first.size(); ++i) {
    EXPECT_EQ(model->index(0, i).data().toString().trimmed(), first[i]);
  }
  EXPECT_EQ(Cell(form, 1, TargetColumn::kName), "* name not received");
  EXPECT_EQ(Cell(form, 1, TargetColumn::kCpa), "No Closure");
  EXPECT_EQ(Find<QLabel>(form, "lblTime")->text(), "09:30");
  EXPECT_EQ(Find<QLabel>(form, "lblCount")->text(), "4 targets");
  Click(form, "cmdCopyList");
  EXPECT_TRUE(clipboard.Text().starts_with(
      "Index       Message Type     MMSI                Vessel Name               Range & "
      "Bearing\r\n1           1                235000003           Meridian                  7.0 "
      "nm "
      "@000°T\r\n"))
      << clipboard.Text();
  EXPECT_TRUE(clipboard.Text().ends_with("\r\n09:30"));
  // Without a boat there is no range.
  program.link.gps_enabled = false;
  Later(form);
  EXPECT_EQ(Cell(form, 0, TargetColumn::kRange), "");
}

TEST_F(TargetWindows, TheHeadingSortsAndTheFilterFinds) {
  AddFour();
  frmAISSummary form(desktop, show_place, &main_window);
  Show(form);
  const QString none = "* name not received";
  struct Row {
    TargetColumn column;
    QStringList up;
    QStringList down;
  };
  const Row rows[] = {
      {TargetColumn::kName,
       {"ATLANTIC STAR", "Blue Heron", "Meridian", none},
       {"Meridian", "Blue Heron", "ATLANTIC STAR", none}},
      {TargetColumn::kMmsi,
       {none, "ATLANTIC STAR", "Meridian", "Blue Heron"},
       {"Blue Heron", "Meridian", "ATLANTIC STAR", none}},
      {TargetColumn::kRange,
       {"Blue Heron", none, "Meridian", "ATLANTIC STAR"},
       {"ATLANTIC STAR", "Meridian", none, "Blue Heron"}},
      // Those that do not close stand last, in table order.
      {TargetColumn::kCpa,
       {"Meridian", "ATLANTIC STAR", none, "Blue Heron"},
       {"ATLANTIC STAR", "Meridian", none, "Blue Heron"}},
      {TargetColumn::kIndex,
       {"Meridian", none, "ATLANTIC STAR", "Blue Heron"},
       {"Blue Heron", "ATLANTIC STAR", none, "Meridian"}},
  };
  for (const Row& row : rows) {
    SortBy(form, row.column);
    EXPECT_EQ(Names(form), row.up) << static_cast<int>(row.column);
    SortBy(form, row.column);
    EXPECT_EQ(Names(form), row.down) << static_cast<int>(row.column);
  }
  Type(form, "txtFilter", "er");
  EXPECT_EQ(Names(form), (QStringList{"Blue Heron", "Meridian"}));
  EXPECT_EQ(Find<QLabel>(form, "lblCount")->text(), "2 of 4 targets");
  Type(form, "txtFilter", "0002");
  EXPECT_EQ(Names(form), QStringList{"ATLANTIC STAR"});
  // Enter takes the keyboard to what was found.
  QTest::keyClick(Find<QLineEdit>(form, "txtFilter"), Qt::Key_Return);
  EXPECT_EQ(Find<QLabel>(form, "lblName")->text(), "ATLANTIC STAR");
  EXPECT_TRUE(form.isVisible());
}

TEST_F(TargetWindows, SelectionAndPlaceFollowTheVessel) {
  for (int i = 0; i < 200; ++i) {
    Add(235000100 + i, "VESSEL " + std::to_string(i), 1.0F + 0.1F * static_cast<float>(i));
  }
  frmAISSummary form(desktop, show_place, &main_window);
  Show(form);
  SortBy(form, TargetColumn::kRange);
  auto* list = Find<QTreeView>(form, "lstAISTargets");
  list->verticalScrollBar()->setValue(100);
  ClickTarget(form, 105);
  EXPECT_EQ(Find<QLabel>(form, "lblName")->text(), "VESSEL 105");
  EXPECT_EQ(view.shown_target, 235000205);
  const int height = list->visualRect(list->currentIndex()).top();
  // Ten come nearer than it, and one of the nearest goes silent.
  clock.now.minute = 45;
  for (int i = 0; i < 200; ++i) {
    if (i == 3) continue;
    const bool near = i >= 150 && i < 160;
    Add(235000100 + i, "", near ? 0.2F : 1.0F + 0.1F * static_cast<float>(i));
  }
  clock.now.minute = 55;
  Add(235000500, "NEW ONE", 50.0F);
  EXPECT_EQ(program.ais.targets.All().size(), 200U);
  Later(form);
  EXPECT_EQ(Cell(form, list->currentIndex().row(), TargetColumn::kName), "VESSEL 105");
  EXPECT_EQ(list->currentIndex().row(), 114);
  EXPECT_EQ(list->selectionModel()->selectedRows().size(), 1);
  EXPECT_EQ(list->visualRect(list->currentIndex()).top(), height);
  // Out of sight it no longer holds the list; what is at the top then does.
  list->verticalScrollBar()->setValue(20);
  const QString top = Cell(form, 20, TargetColumn::kName);
  for (int i = 170; i < 175; ++i) program.ais.targets.Find(235000100 + i)->latitude = 50.001F;
  Later(form);
  EXPECT_EQ(Cell(form, list->verticalScrollBar()->value(), TargetColumn::kName), top);
  EXPECT_EQ(list->verticalScrollBar()->value(), 25);
  // At the very top the nearest stay in sight.
  list->verticalScrollBar()->setValue(0);
  for (int i = 180; i < 185; ++i) program.ais.targets.Find(235000100 + i)->latitude = 50.0005F;
  Later(form);
  EXPECT_EQ(list->verticalScrollBar()->value(), 0);
}

TEST_F(TargetWindows, AClickFillsTheDetailsAndTheMarkStands) {
  AddFour();
  frmAISSummary form(desktop, show_place, &main_window);
  Show(form);
  EXPECT_FALSE(Find<QPushButton>(form, "cmdMark")->isEnabled());
  EXPECT_EQ(Find<QListWidget>(form, "List1")->count(), 0);
  ClickTarget(form, 2);
  EXPECT_EQ(TextOf(form, "List1", 0), "Name\t : \tATLANTIC STAR");
  EXPECT_EQ(TextOf(form, "List1", 9), "CPA\t : \t2.00nm @ 10:00");
  EXPECT_EQ(Find<QListWidget>(form, "List1")->count(), 24);
  Click(form, "cmdCopyDetails");
  EXPECT_TRUE(clipboard.Text().starts_with(
      "Name\t : \tATLANTIC STAR\r\nCallsign\t : \t\r\nMMSI\t : \t235000002\r\n"));
  view.marked_kind = MarkedKind::kWaypoint;
  Click(form, "cmdMark");
  EXPECT_TRUE(view.marked_point_on);
  EXPECT_EQ(view.marked, (Position{50.2F, -1.5F}));
  EXPECT_EQ(view.marked_kind, MarkedKind::kNothing);
  EXPECT_NE(form.isVisible(), false);
  Click(form, "cmdClearMark");
  EXPECT_FALSE(view.marked_point_on);
  // A double click shows the vessel and its details; so does Enter.
  ClickTarget(form, 3, true);
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_NEAR(shown[0].latitude, 50.0F + 1.0F / 60.0F, 1e-5);
  auto* details = Find<frmAisDetails>(main_window, "frmAisDetails");
  ASSERT_NE(details, nullptr);
  EXPECT_TRUE(details->isVisible());
  EXPECT_EQ(details->target(), 235000004);
  auto* list = Find<QTreeView>(form, "lstAISTargets");
  QTest::keyClick(list, Qt::Key_Up);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(details->target(), 235000002);
  EXPECT_EQ(main_window.findChildren<frmAisDetails*>().size(), 1);
  EXPECT_TRUE(form.isVisible());
}

TEST_F(TargetWindows, DetailsFollowTheVesselAndKeepTheirPlace) {
  AisTarget& target = Add(235000001, "ATLANTIC STAR", 3.0F, 0.5F);
  frmAisDetails form(desktop, show_place, nullptr);
  form.SetTarget(235000001);
  Show(form);
  EXPECT_EQ(view.shown_target, 235000001);
  EXPECT_EQ(Find<QLabel>(form, "lblHeard")->text(), "Class A, heard 0 s ago");
  auto* rows = Find<QListWidget>(form, "lstAisDetails");
  ClickRow(form, "lstAisDetails", 20);
  const QListWidgetItem* heading = rows->item(8);
  target.speed_over_ground = 7.5F;
  clock.now.second = 12;
  Later(form);
  EXPECT_EQ(TextOf(form, "lstAisDetails", 8), "Heading   \t : \t7.5kn @ 90°T");
  EXPECT_EQ(rows->item(8), heading) << "the list was built anew";
  EXPECT_EQ(rows->currentRow(), 20);
  EXPECT_EQ(Find<QLabel>(form, "lblHeard")->text(), "Class A, heard 12 s ago");
  Click(form, "cmdCopy");
  EXPECT_TRUE(clipboard.Text().find("\r\nHeading   \t : \t7.5kn @ 90°T\r\n") != std::string::npos);
  Click(form, "cmdShow");
  EXPECT_EQ(shown.size(), 1U);
  // What was known last stays to be read.
  program.ais.targets.Clear();
  Later(form);
  EXPECT_EQ(Find<QLabel>(form, "lblHeard")->text(), "Not heard any more");
  EXPECT_EQ(TextOf(form, "lstAisDetails", 0), "Name\t : \tATLANTIC STAR");
  EXPECT_FALSE(Find<QPushButton>(form, "cmdShow")->isEnabled());
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(view.shown_target, 0);
}

TEST_F(TargetWindows, TheAlarmLineTellsWhoComesHowNearAndWhen) {
  EXPECT_EQ(CloseApproachText(program, Add(235000001, "ATLANTIC STAR", 3.0F, 0.12F), 9.5F),
            "Close approach: ATLANTIC STAR  0.12nm @ 10:00, now 3.0 nm @000°T");
  program.nmea.fix.boat_latitude = 0.0F;
  EXPECT_EQ(CloseApproachText(program, Add(235000002, "", 3.0F, 0.1F), 9.5F),
            "Close approach: MMSI 235000002  0.10nm @ 10:00");
  const AisTarget* heard = program.ais.targets.Find(235000002);
  EXPECT_EQ(TargetHeardText(heard, 9.5F + 150.0F / 3600.0F), "Class A, heard 2 min ago");
  program.ais.targets.Find(235000002)->last_heard = 23.0F + 59.0F / 60.0F;
  EXPECT_EQ(TargetHeardText(heard, 0.5F / 60.0F), "Class A, heard 90 s ago");
}

}  // namespace
}  // namespace skerrow::testing
