// The windows of logs, tracks and uploads, driven by a user's hands over real files.

#include <QLabel>
#include <QProgressBar>
#include <QSlider>

#include "app/historical_track.h"
#include "instruments/nmea_sentences.h"
#include "instruments/plot_file.h"
#include "routes/waypoint.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/instruments/frmGPSComment.h"
#include "ui/instruments/frmNMEAReplay.h"
#include "ui/instruments/frmNewTrackName.h"
#include "ui/instruments/frmRouteFileUpload.h"
#include "ui/instruments/frmSingwayup.h"
#include "ui/instruments/frmTrackDelete.h"
#include "ui/instruments/frmTrackSelect.h"
#include "ui/instruments/frmWayFileUpload.h"
#include "ui/instruments/frmhisttrack.h"
#include "ui/instruments/frmmanualpos.h"

namespace skerrow::testing {
namespace {

class TrackWindows : public SampleDesk {
 protected:
  std::string Track(const std::string& name) const {
    return JoinPath(program.folders.Tracks(), name);
  }
  void WriteTrack(const std::string& name, const std::string& content) const {
    ASSERT_TRUE(ReplaceFile(Track(name), content));
  }
  std::string Shown(QWidget& form, const char* label) {
    return Find<QLabel>(form, label)->text().toStdString();
  }
  std::vector<std::string> Rows(const std::string& name) const {
    std::vector<std::string> rows;
    for (const PlotRecord& record : ReadPlotFile(Track(name))->Sound())
      rows.push_back(PlotRow(record));
    return rows;
  }
  // Two positions of the log are good, one is void.
  void WriteLog(const std::string& name) const {
    const std::string end = "\r\n";
    WriteTrack(name, RmcAt("093000", "30.1000") + end + RmcAt("093010", "30.2000") + end +
                         "$GPRMC,093020,V,,,,,,,051226,,*00\r\n" +
                         GpsSentence("PSKLOG,6,1,5030.100,N,00120.250,W,051226,093000") + end +
                         GpsSentence("PSKLOG,6,2,Reefed") + end);
  }
  void Connect(const char* gps_type) {
    program.link.gps_enabled = true;
    program.link.gps.number = 1;
    program.config.gps_type_text = gps_type;
  }
  void WriteWaypoints(const std::vector<Waypoint>& waypoints) {
    ASSERT_TRUE(WriteRecords<Waypoint>(WayFile("Mine.way"), waypoints, kWaypointFields));
  }
};

TEST_F(TrackWindows, TheReplayDialogTakesALogAndAPace) {
  WriteLog("Voyage.nmea");
  WriteTrack("track.trk", "");
  frmNMEAReplay dialog(desktop, ReplayKind::kGps, nullptr);
  Show(dialog);
  ASSERT_EQ(Find<QListWidget>(dialog, "fillist")->count(), 1);
  auto* speed = Find<QSlider>(dialog, "HScroll1");
  EXPECT_EQ(speed->minimum(), 5);
  EXPECT_EQ(speed->maximum(), 150);
  EXPECT_EQ(speed->value(), 40);
  messages.Expect("No file name selected", MessageIcon::kWarning);
  Click(dialog, "cmdOK");
  EXPECT_TRUE(dialog.isVisible());
  ClickRow(dialog, "fillist", 0);
  QTest::keyClick(speed, Qt::Key_Left);
  EXPECT_EQ(Shown(dialog, "lblSpeed"), "39 ms");
  Click(dialog, "cmdOK");
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.request().name, "Voyage.nmea");
  EXPECT_EQ(dialog.request().interval, 39);
  EXPECT_EQ(dialog.request().pace, ReplayPace::kInterval);
  EXPECT_EQ(dialog.request().kind, ReplayKind::kGps);

  frmNMEAReplay by_time(desktop, ReplayKind::kAis, nullptr);
  Show(by_time);
  Type(by_time, "txtFileName", "Voyage");
  Click(by_time, "optLogTime60");
  EXPECT_FALSE(Find<QSlider>(by_time, "HScroll1")->isEnabled());
  QTest::keyClick(&by_time, Qt::Key_Return);
  EXPECT_EQ(by_time.request().pace, ReplayPace::kLogTime60);
  EXPECT_EQ(by_time.request().kind, ReplayKind::kAis);
}

TEST_F(TrackWindows, ACommentIsForALogAndTheChart) {
  program.nmea.fix.fix_date = "140626";
  program.nmea.fix.fix_time = "093005.5";
  frmGPSComment early(desktop, nullptr);
  Show(early);
  messages.Expect(std::string(kNoPositionForComment), MessageIcon::kWarning);
  Click(early, "cmdOK");
  EXPECT_TRUE(early.isVisible());
  EXPECT_TRUE(program.nmea.log.comments.empty());
  program.nmea.fix.boat_latitude = 50.5F;
  program.nmea.fix.boat_longitude = -1.25F;

  frmGPSComment dialog(desktop, nullptr);
  Show(dialog);
  EXPECT_EQ(Shown(dialog, "lblInterval"), "Update interval 30 seconds");
  EXPECT_EQ(Shown(dialog, "lblDate"), "14/06/26");
  EXPECT_EQ(Shown(dialog, "lblTime"), "09:30:05");
  EXPECT_EQ(Shown(dialog, "lblPosition"), "50.30.000N  001.15.000W");
  Type(dialog, "txtComment1", "Reefed, at last");
  QTest::keyClick(Find<QLineEdit>(dialog, "txtComment1"), Qt::Key_Return);
  EXPECT_TRUE(Find<QLineEdit>(dialog, "txtComment2")->hasFocus());
  Type(dialog, "txtComment5", "12345678901234567890123456789012345678901234567890");
  QTest::keyClick(Find<QLineEdit>(dialog, "txtComment5"), Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
  ASSERT_EQ(program.nmea.log.comments.size(), 1U);
  EXPECT_EQ(program.nmea.log.comments[0].lines[0], "Reefed, at last");
  EXPECT_EQ(program.nmea.log.comments[0].lines[4], "1234567890123456789012345678901234567890");
  EXPECT_EQ(program.nmea.log.pending_comment.size(), 6U);
  EXPECT_NE(window.changed & kTargetsChanged, 0U);
}

TEST_F(TrackWindows, ALogIsPlottedInThePlaceOfTheOneBefore) {
  WriteLog("Voyage.nmea");
  WriteTrack("Empty.nmea", "");
  program.nmea.track = {{.latitude = 1.0F}};
  program.config.track_layer_on = 0.0F;
  frmTrackSelect dialog(desktop, nullptr);
  Show(dialog);
  messages.Expect("Enter a file name an then click the OK button", MessageIcon::kWarning);
  Click(dialog, "cmdOK");
  ClickRow(dialog, "trackFileBox", RowOfText(dialog, "trackFileBox", "Voyage"));
  EXPECT_EQ(Shown(dialog, "lblTrack"), "Voyage.nmea");
  WithNextDialog([](QDialog& ask) { Click(ask, "cmdCancel"); });
  Click(dialog, "cmdOK");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(program.config.track_layer_on, 0.0F);
  EXPECT_FALSE(program.plot.historical_plot_on);
  WithNextDialog([](QDialog& ask) { Click(ask, "cmdYes"); });
  Click(dialog, "cmdOK");
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(program.config.track_layer_on, 1.0F);
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program.folders, stored));
  EXPECT_EQ(stored.track_layer_on, 1.0F);
  EXPECT_TRUE(program.plot.historical_plot_on && program.plot.track_plot_on);
  EXPECT_EQ(program.plot.plot_file_name, "Voyage");
  ASSERT_EQ(program.nmea.track.size(), 2U);
  ASSERT_EQ(program.nmea.log.comments.size(), 1U);
  EXPECT_EQ(program.nmea.log.comments[0].lines[0], "Reefed");

  RemoveHistoricalPlot(program);
  EXPECT_TRUE(program.nmea.track.empty() && program.nmea.log.comments.empty());
  EXPECT_FALSE(program.nmea.fix.position_good || program.nmea.fix.HasPosition());
  EXPECT_FALSE(program.plot.historical_plot_on || program.plot.track_plot_on);
  EXPECT_EQ(program.plot.plot_file_name, "");
  // A live track stays.
  program.nmea.track = {{.latitude = 1.0F}};
  program.plot.track_plot_on = true;
  RemoveHistoricalPlot(program);
  EXPECT_EQ(program.nmea.track.size(), 1U);

  program.link.gps_enabled = true;
  frmTrackSelect refused(desktop, nullptr);
  Show(refused);
  messages.Expect(std::string(kHistoricalWhileGps));
  Click(refused, "cmdOK");
  EXPECT_FALSE(refused.isVisible());
}

TEST_F(TrackWindows, PositionsAreEnteredIntoAPlotFile) {
  {
    frmNewTrackName name(desktop, nullptr);
    Show(name);
    EXPECT_EQ(Find<QLineEdit>(name, "txtNewTrackName")->text(), "trak2614.jun");
    for (const auto& [typed, refusal] : std::map<const char*, const char*>{
             {" ", "Enter a new waypoint file name an then click the OK button"},
             {".trk", "Track name invalid"},
             {"mine", "Track name invalid"},
             {"mine.txt",
              "Track name must end with '.jan, feb, mar' etc or '.trk' \r\nplease correct and "
              "press OK or Cancel"}}) {
      Type(name, "txtNewTrackName", typed);
      messages.Expect(refusal, MessageIcon::kWarning);
      Click(name, "cmdOK");
    }
    Type(name, "txtNewTrackName", "mine.TRK");
    Click(name, "cmdOK");
    EXPECT_EQ(program.plot.plot_file_name, Track("mine.TRK"));
  }
  program.plot.plot_file_name = Track("mine.trk");
  LoadSample();
  frmmanualpos dialog(desktop, nullptr);
  Show(dialog);
  EXPECT_TRUE(program.plot.track_plot_on);
  EXPECT_EQ(Find<QLineEdit>(dialog, "txtlat")->text().toStdString(),
            LatToText(program.route.points[0].latitude));
  EXPECT_EQ(Find<QLineEdit>(dialog, "txttime")->text(), "09:30");
  EXPECT_EQ(Find<QLineEdit>(dialog, "txtdate")->text(), "14 Jun 2026");
  Type(dialog, "txtlong", "");
  messages.Expect("No longitude entry!", MessageIcon::kWarning);
  Click(dialog, "Cmdfrmmanok");
  EXPECT_EQ(messages.beeps, 1);
  Type(dialog, "txtlong", "001.15.00w");
  Type(dialog, "txtlat", "");
  messages.Expect("No latitude entry!", MessageIcon::kWarning);
  Click(dialog, "Cmdfrmmanok");
  EXPECT_FALSE(FileIsThere(Track("mine.trk")));
  Type(dialog, "txtlat", "50.30.00n");
  Type(dialog, "txtcomment", "1234567890123456789012345678901234567890");
  Click(dialog, "Cmdfrmmanok");
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(Rows("mine.trk"),
            (std::vector<std::string>{
                "50.30.00N,001.15.00W,09:30,14 Jun 2026,12345678901234567890123456789012345"}));
  frmmanualpos again(desktop, nullptr);
  Show(again);
  EXPECT_EQ(TextOf(again, "List1", 0),
            "50.30.00N   001.15.00W  09:30   14 Jun 2026  12345678901234567890123456789012345");
}

TEST_F(TrackWindows, APlotIsEditedAsATable) {
  const std::string a = "50.30.00N,001.15.00W,09:30,14 Jun 2026,a";
  const std::string b = "50.31.00N,001.15.00W,09:40,14 Jun 2026,b, c";
  for (const std::string& row : {a, b}) {
    ASSERT_TRUE(AppendPlotRecord(Track("mine.trk"), *ManualPlotRecord(SplitPlotRow(row))));
  }
  bool edited = false;
  WithNextDialog([&](QDialog& table) {
    EXPECT_EQ(table.objectName(), "frmhisttrack");
    EXPECT_FALSE(Find<QAbstractButton>(table, "cmdChange")->isVisible());
    ClickRow(table, "List1", 1, 2);
    EXPECT_TRUE(Find<QAbstractButton>(table, "cmdChange")->isVisible());
    EXPECT_EQ(Find<QLineEdit>(table, "txtcomment")->text(), "b, c");
    Type(table, "txtlat", "99.31.00N");
    messages.Expect("\"99.31.00N\" is no position; enter it as 50.42.05N  001.03.34W",
                    MessageIcon::kWarning);
    Click(table, "cmdChange");
    Type(table, "txtlat", "50.32.00N");
    Click(table, "cmdChange");
    EXPECT_EQ(TextOf(table, "List1", 1), "50.32.00N,001.15.00W,09:40,14 Jun 2026,b, c");
    Find<QListWidget>(table, "List1")->clearSelection();
    messages.Expect("click where to insert", MessageIcon::kWarning);
    Click(table, "cmdInsert");
    ClickRow(table, "List1", 0);
    Type(table, "txtlat", "");
    messages.Expect("No Latitude Entry", MessageIcon::kWarning);
    Click(table, "cmdInsert");
    Type(table, "txtlat", "50.40.00N");
    Click(table, "cmdInsert");
    EXPECT_EQ(TextOf(table, "List1", 1), "50.40.00N,001.15.00W,09:40,14 Jun 2026,b, c");
    ClickRow(table, "List1", 0);
    Click(table, "cmdDelete");
    EXPECT_EQ(Rows("mine.trk").size(), 2U) << "before Save Changes";
    EXPECT_EQ(Rows("mine.trk")[0], a);
    messages.ExpectQuestion("The changes of the plot are not saved. Leave without them?", false);
    QTest::keyClick(&table, Qt::Key_Escape);
    EXPECT_TRUE(table.isVisible());
    Click(table, "cmdAccept");
    Click(table, "cmdExit");
    edited = true;
  });
  frmTrackSelect dialog(desktop, nullptr);
  Show(dialog);
  EXPECT_EQ(Find<QListWidget>(dialog, "trackFileBox")->count(), 0);
  Click(dialog, "optTable");
  ClickRow(dialog, "trackFileBox", 0);
  Click(dialog, "cmdOK");
  EXPECT_TRUE(edited);
  EXPECT_EQ(Rows("mine.trk"),
            (std::vector<std::string>{"50.40.00N,001.15.00W,09:40,14 Jun 2026,b, c",
                                      "50.32.00N,001.15.00W,09:40,14 Jun 2026,b, c"}));
  EXPECT_TRUE(program.plot.historical_plot_on);
  EXPECT_EQ(program.plot.plot_file_name, "");
}

TEST_F(TrackWindows, ATrackFileIsDeletedWhenTheUserIsSure) {
  WriteTrack("trak2614.jun", "");
  WriteTrack("mine.trk", "");
  frmTrackDelete dialog(desktop, nullptr);
  Show(dialog);
  ASSERT_EQ(Find<QListWidget>(dialog, "trackFileBox")->count(), 1);
  messages.Expect("Select file by clicking a name in the list, followed by the OK button");
  Click(dialog, "cmdOK");
  ClickRow(dialog, "trackFileBox", 0);
  const std::string sure = "Are you sure that you want to delete Track File ** trak2614.jun **";
  messages.ExpectQuestion(sure, false);
  Click(dialog, "cmdOK");
  EXPECT_TRUE(FileIsThere(Track("trak2614.jun")));
  messages.ExpectQuestion(sure, true);
  Click(dialog, "cmdOK");
  EXPECT_FALSE(FileIsThere(Track("trak2614.jun")));
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(TrackWindows, WaypointsGoOutOneAfterTheOther) {
  Connect("3");
  WriteWaypoints({{"Needles (N)", 50.5F, -1.25F}, {"Hurst", 50.75F, -1.5F}});
  ASSERT_TRUE(ReplaceFile(WayFile("None.way"), ""));
  frmWayFileUpload dialog(desktop, nullptr);
  Show(dialog);
  const std::string opening = "\r$PMGNCMD,HANDON*70\n";
  EXPECT_EQ(serial_ports.sent[1], opening);
  messages.Expect("Nothing to transfer", MessageIcon::kWarning);
  Click(dialog, "cmdupload");
  ClickRow(dialog, "fillist", RowOfText(dialog, "fillist", "None"));
  messages.Expect("Nothing to transfer", MessageIcon::kWarning);
  Click(dialog, "cmdupload");
  ClickRow(dialog, "fillist", RowOfText(dialog, "fillist", "Mine"));
  EXPECT_EQ(TextOf(dialog, "List1", 0), "NEEDLE\tNeedles (N)\t50.30.00N\t001.15.00W");
  Click(dialog, "Optnumbers");
  EXPECT_EQ(TextOf(dialog, "List1", 1), "002\tHurst\t50.45.00N\t001.30.00W");

  // Stopped on the way.
  Click(dialog, "cmdupload");
  EXPECT_FALSE(Find<QAbstractButton>(dialog, "cmdupload")->isEnabled());
  const std::string first = GpsSentence("PMGNWPL,5030.00,N,00115.00,W,W,0,001,,") + "\r\n";
  EXPECT_EQ(serial_ports.sent[1], opening + first) << "the next one has its time";
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(Shown(dialog, "lblState"),
            "Stopped after point 1 of 2. What was sent stays in the GPS.");
  QTest::qWait(2 * kWaypointPause);
  EXPECT_EQ(serial_ports.sent[1], opening + first);

  serial_ports.put_result = -1;
  Click(dialog, "cmdupload");
  EXPECT_EQ(Shown(dialog, "lblState"), kUploadRefused);
  EXPECT_TRUE(dialog.isVisible());
  serial_ports.put_result = 0;
  serial_ports.sent.clear();
  Click(dialog, "cmdupload");
  messages.Expect(" Waypoint transfer complete ");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }, 5000));
  EXPECT_EQ(serial_ports.sent[1],
            first + GpsSentence("PMGNWPL,5045.00,N,00130.00,W,W,0,002,,") + "\r\n");
}

TEST_F(TrackWindows, ARouteGoesOutBehindItsPoints) {
  Connect("1");
  ImportSamples();
  frmRouteFileUpload dialog(desktop, nullptr);
  Show(dialog);
  EXPECT_EQ(serial_ports.sent[1], "");
  ClickRow(dialog, "rtelist", RowOfText(dialog, "rtelist", "Sample"));
  EXPECT_EQ(Find<QLineEdit>(dialog, "txtRouteName")->text(), "Sample");
  Type(dialog, "txtRouteName", "7");
  Click(dialog, "Optnumbers");
  const int points = Find<QListWidget>(dialog, "List1")->count();
  ASSERT_GT(points, 1);
  Click(dialog, "cmdupload");
  messages.Expect(" Transfer complete ");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }, 20000));
  const QString sent = QString::fromStdString(serial_ports.sent[1]);
  EXPECT_EQ(sent.count("$GPWPL,"), points);
  EXPECT_NE(sent.indexOf(",c,7,001,002"), -1) << serial_ports.sent[1];
  EXPECT_LT(sent.lastIndexOf("$GPWPL,"), sent.indexOf("$GPRTE,"));
}

TEST_F(TrackWindows, ASingleWaypointGoesAtOnce) {
  Connect("2");
  frmSingwayup dialog(desktop, {}, nullptr);
  Show(dialog);
  messages.Expect("Nothing to transfer", MessageIcon::kWarning);
  Click(dialog, "cmdupload");
  Type(dialog, "txtdestname", "Needles");
  Type(dialog, "txtdestlat", "50.30.00N");
  Type(dialog, "txtdestlong", "001.15.00W");
  messages.Expect(" Waypoint transfer complete ");
  Click(dialog, "cmdupload");
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(serial_ports.sent[1], GpsSentence("GPWPL,5030.00,N,00115.00,W,NEEDLE") + "\r\n");
}

}  // namespace
}  // namespace skerrow::testing
