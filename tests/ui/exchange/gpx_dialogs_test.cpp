// The import and the export of GPX documents, by real events and with real files.

#include <QFileDialog>
#include <QTableWidget>
#include <filesystem>

#include "core/files.h"
#include "instruments/nmea_sentences.h"
#include "platform/gpx_reader.h"
#include "routes/route.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/exchange/frmGpxExport.h"
#include "ui/exchange/frmGpxImport.h"
#include "ui/widgets/progress_dialog.h"

namespace skerrow::testing {
namespace {

enum Column { kWhat, kName, kPoints, kSaveAs, kRemarks };

std::string Points(const char* kind, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += std::string("<") + kind + " lat=\"50." + std::to_string(10000 + i) +
            "\" lon=\"-1.5\"><name>P" + std::to_string(i) + "</name></" + kind + ">";
  }
  return text;
}

class GpxDialogs : public SampleDesk {
 protected:
  MayReplace may_replace() {
    return [this](const std::string& file) {
      return messages.Ask(file + ": " + std::string(kOverwriteQuestion), kProgramTitle);
    };
  }
  std::string Document(const std::string& body) {
    return user_.Write("trip.gpx", "<gpx version=\"1.1\">" + body + "</gpx>");
  }
  std::unique_ptr<frmGpxImport> Opened(const std::string& body) {
    std::optional<GpxContents> contents = ReadGpxContents(desktop, nullptr, Document(body));
    if (!contents) return nullptr;
    auto form =
        std::make_unique<frmGpxImport>(desktop, std::move(*contents), may_replace(), nullptr);
    Show(*form);
    return form;
  }
  static QTableWidget* List(QWidget& form) { return Find<QTableWidget>(form, "lstContents"); }
  static std::string Text(QWidget& form, int row, int column) {
    return List(form)->item(row, column)->text().toStdString();
  }
  static bool Ticked(QWidget& form, int row) {
    return List(form)->item(row, kWhat)->checkState() == Qt::Checked;
  }
};

TEST_F(GpxDialogs, TheDocumentIsListedAndTakenAsTicked) {
  const auto form =
      Opened("<rte><name>Cowes/Poole 1.2</name>" + Points("rtept", 3) +
             "</rte><rte><name>cowes-poole 1-2" + "</name>" + Points("rtept", 2) +
             "</rte><rte><name>Gap</name><rtept lat=\"95\" lon=\"0\"/>" + Points("rtept", 1) +
             "</rte><rte><name>Empty</name></rte><wpt lat=\"1\" lon=\"2\">"
             "<name>A name that is longer than the field has room</name></wpt><wpt lat=\"x\"/>"
             "<trk><trkseg>" +
             Points("trkpt", 4) + "</trkseg></trk>");
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(Find<QLabel>(*form, "lblSummary")->text(),
            "trip.gpx holds 4 routes, 1 waypoint and 1 track of 4 points.");
  const std::vector<std::vector<std::string>> rows = {
      {"Route", "Cowes/Poole 1.2", "3", "Cowes-Poole 1-2", ""},
      {"Route", "cowes-poole 1-2", "2", "cowes-poole 1-2 (2)", ""},
      {"Route", "Gap", "1", "Gap",
       "1 point of it has no place on the globe, and without a point a route leads over what it "
       "was "
       "laid round."},
      {"Waypoints", "", "1", "trip",
       "1 name is cut to 35 characters. 1 point has no place on the globe and is left out."},
      {"Track", "", "4", "trip", "It has no times."}};
  ASSERT_EQ(List(*form)->rowCount(), 5);
  for (int row = 0; row < 5; ++row) {
    for (int column = 0; column < 5; ++column) {
      EXPECT_EQ(Text(*form, row, column),
                rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
    }
    EXPECT_EQ(Ticked(*form, row), row != 2);
  }
  // By the keys: Space ticks, F2 edits the name, Down reaches every row.
  QTableWidget* list = List(*form);
  QTest::keyClick(list, Qt::Key_Space);
  EXPECT_FALSE(Ticked(*form, 0));
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_F2);
  auto* editor = list->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  QTest::keyClicks(editor, "Short");
  QTest::keyClick(editor, Qt::Key_Return);
  QApplication::processEvents();  // the list takes it later
  EXPECT_EQ(Text(*form, 1, kSaveAs), "Short");
  QTest::keyClick(list, Qt::Key_Space);
  EXPECT_FALSE(Ticked(*form, 1)) << "from the column of the name";
  QTest::keyClick(list, Qt::Key_Space);
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_EQ(Find<QLabel>(*form, "lblRemarks")->text().toStdString(), rows[2][4]);
  QTest::keyClick(list, Qt::Key_Space);
  QTest::keyClick(list, Qt::Key_F2);
  EXPECT_FALSE(Ticked(*form, 2));
  QTest::keyClick(list, Qt::Key_Down);
  messages.Expect(
      "Imported: Short.rte, trip.way, trip.trk\n1 name is cut to 35 characters.\n"
      "1 point has no place on the globe and is left out.",
      MessageIcon::kInformation);
  QTest::keyClick(form.get(), Qt::Key_Return);
  EXPECT_EQ(form->result(), QDialog::Accepted);
  EXPECT_TRUE(form->show_files());
  EXPECT_EQ(form->files(), (std::vector{RouteFile("Short.rte"), WayFile("trip.way"),
                                        program.folders.Tracks() + "/trip.trk"}));
  EXPECT_EQ(ReadRouteFile(RouteFile("Short.rte"))->at(1).name, "P1");
  EXPECT_EQ(ReadRouteFile(RouteFile("Short.rte"))->at(1).speed, program.route_speed);
}

TEST_F(GpxDialogs, LongRoutesAreSplitAndOldFilesAskedAbout) {
  const auto form = Opened("<rte><name>Far</name>" + Points("rtept", 150) +
                           "</rte><rte><name>Next" + "</name>" + Points("rtept", 2) + "</rte>");
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(Text(*form, 0, kRemarks), "A route holds 100 points; this one makes 2 routes.");
  user_.Write("documents/SkerrowHelm/Routes/far 2.rte", "old");
  const std::string split =
      "\"Far\" has 150 points, and a route holds 100. Make 2 routes of it, \"Far\", \"Far 2\" and "
      "so "
      "on?";
  const std::string replace =
      "far 2.rte: File already exists - continue and overwrite the contents?";
  messages.ExpectQuestion(split, false);
  Click(*form, "cmdOK");
  messages.ExpectQuestion(split, true);
  messages.ExpectQuestion(replace, false);
  Click(*form, "cmdOK");
  EXPECT_TRUE(form->isVisible());
  EXPECT_FALSE(FileReadable(RouteFile("Far.rte")));
  EXPECT_EQ(FileBytes(RouteFile("far 2.rte")), "old");
  // A fault in a later one: what is there stays, and is not written again.
  messages.ExpectQuestion(split, true);
  messages.ExpectQuestion(replace, true);
  List(*form)->item(1, kSaveAs)->setText("a/b");
  messages.Expect("a/b: a file's name holds no \"/\", no \"\\\" and no \":\"",
                  MessageIcon::kWarning);
  Click(*form, "cmdOK");
  EXPECT_EQ(ReadRouteFile(RouteFile("Far.rte"))->size(), 100U);
  EXPECT_EQ(ReadRouteFile(RouteFile("far 2.rte"))->size(), 51U);
  EXPECT_FALSE(Ticked(*form, 0));
  List(*form)->item(1, kSaveAs)->setText("Next");
  messages.Expect("Imported: Far.rte, far 2.rte, Next.rte");
  Click(*form, "cmdOK");
  EXPECT_FALSE(form->isVisible());
}

TEST_F(GpxDialogs, NothingTickedIsRefused) {
  const auto form = Opened(Points("wpt", 1));
  ASSERT_NE(form, nullptr);
  Click(*form, "cmdSelectNone");
  messages.Expect("Tick what is to be imported", MessageIcon::kWarning);
  Click(*form, "cmdOK");
  Click(*form, "cmdSelectAll");
  EXPECT_TRUE(Ticked(*form, 0));
}

TEST_F(GpxDialogs, WhatIsNoDocumentIsTold) {
  const std::string path = user_.File("trip.gpx");
  const auto refused = [&](const std::string& content, const std::string& words) {
    user_.Write("trip.gpx", content);
    messages.Expect(path + ": " + words, MessageIcon::kWarning);
    EXPECT_FALSE(ReadGpxContents(desktop, nullptr, path));
  };
  refused("<gpx></gpx>", "it holds no route, waypoint or track");
  refused("<gpx><trk></trk><wpt lat=\"95\" lon=\"0\"/></gpx>",
          "it holds no route, waypoint or track");
  refused("<kml></kml>", "this is no GPX document");
  refused("", "this is no XML: No document element found");
  messages.Expect("none.gpx: the file does not exist");
  EXPECT_FALSE(ReadGpxContents(desktop, nullptr, "none.gpx"));
  // The window stops it: nothing is told.
  Document("<trk><trkseg>" + Points("trkpt", 200000) + "</trkseg></trk>");
  window.stop_at = 0.0;
  EXPECT_FALSE(ReadGpxContents(desktop, nullptr, path));
}

TEST_F(GpxDialogs, WhatIsChosenGoesIntoOneDocument) {
  ImportSamples();
  LoadSample();
  const std::string log = RmcAt("063020") + "\r\n" + RmcAt("063030") + "\r\n";
  ASSERT_TRUE(ReplaceFile(program.folders.Tracks() + "/Day.nmea", log));
  const std::vector<PlotRecord> plot = {{50.0F, -1.0F, "06:30", "05 Dec 2026", "Buoy"}};
  ASSERT_TRUE(WriteRecords(program.folders.Tracks() + "/Old.trk", std::span(plot), kPlotFields));
  frmGpxExport form(desktop, nullptr);
  Show(form);
  EXPECT_TRUE(Find<QCheckBox>(form, "chkCurrentRoute")->isChecked());
  Click(form, "chkCurrentRoute");
  messages.Expect("Choose what is to be exported", MessageIcon::kWarning);
  Click(form, "Save");
  Click(form, "chkCurrentRoute");
  ClickRow(form, "lstRoutes", RowOfText(form, "lstRoutes", "Sample.rte"));
  ClickRow(form, "lstRoutes", RowOfText(form, "lstRoutes", "Portland"));
  ClickRow(form, "lstRoutes", RowOfText(form, "lstRoutes", "Sample.rte"));  // out again
  ClickRow(form, "lstWaypoints", RowOfText(form, "lstWaypoints", "Sample.way"));
  ClickRow(form, "lstTracks", RowOfText(form, "lstTracks", "Day.nmea"));
  ClickRow(form, "lstTracks", RowOfText(form, "lstTracks", "Old.trk"));
  const std::string file = user_.File("all.gpx");
  WithNextDialog([&file](QDialog& dialog) {
    auto* chooser = qobject_cast<QFileDialog*>(&dialog);
    ASSERT_NE(chooser, nullptr);
    EXPECT_EQ(chooser->selectedFiles().front().section('/', -1),
              "Bridge Buoy(Needles) to Cherbourg West Entrance.gpx");
    Find<QLineEdit>(dialog, "fileNameEdit")->setText(QString::fromStdString(file));
    dialog.accept();
  });
  Click(form, "Save");
  EXPECT_EQ(form.result(), QDialog::Accepted);
  const Result<GpxDocument> read = ReadGpxFile(file);
  ASSERT_TRUE(read);
  ASSERT_EQ(read->routes.size(), 2U);
  EXPECT_EQ(read->routes[0].points.size(), program.route.points.size());
  EXPECT_EQ(read->routes[0].points[1].position, program.route.points[1].At());
  EXPECT_EQ(read->routes[1].name, "Portland Bill");
  EXPECT_EQ(read->waypoints.size(), 46U);
  ASSERT_EQ(read->tracks.size(), 2U);
  EXPECT_EQ(read->tracks[0].points.size(), 2U);
  EXPECT_EQ(read->tracks[0].points[1].time, 1796452230.0);
  EXPECT_EQ(read->tracks[1].points[0].name, "Buoy");
  EXPECT_EQ(read->tracks[1].points[0].time, 1796452200.0);
  // A file that has gone.
  ASSERT_TRUE(std::filesystem::remove(program.folders.Tracks() + "/Day.nmea"));
  form.show();
  messages.Expect(program.folders.Tracks() + "/Day.nmea: the file does not exist");
  Click(form, "Save");
}

}  // namespace
}  // namespace skerrow::testing
