// GPX documents and tables of text in the main window: opened by name, dropped, by the menu.

#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMimeData>
#include <filesystem>

#include "app/edits.h"
#include "core/files.h"
#include "routes/record_files.h"
#include "ui/main/window_fixture.h"

namespace skerrow::testing {
namespace {

class ExchangeWindow : public MainWindowTest {
 protected:
  std::string Document() {
    return user_.Write(
        "trip.gpx",
        "<gpx><wpt lat=\"50.1\" lon=\"-1.5\"><name>Mark</name></wpt><rte><name>Out</name>"
        "<rtept lat=\"50.2\" lon=\"-1.5\"/><rtept lat=\"50.1\" lon=\"-1.6\"/></rte>"
        "<trk><name>Day</name><trkseg><trkpt lat=\"50.2\" lon=\"-1.4\"/><trkpt lat=\"50.3\" "
        "lon=\"-1.4\"/></trkseg></trk></gpx>");
  }
  void Drop(const QString& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    const QPointF at(300, 300);
    QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    // What a file manager proposes inside one disk; a move would delete the file.
    QDropEvent drop(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(window_.get(), &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
  }
};

TEST_F(ExchangeWindow, ADocumentOfTheCommandLineIsImportedAndShown) {
  Start();
  ShiftClick({50.2F, -1.8F});
  ShiftClick({50.0F, -1.9F});
  // The route on the chart is asked about; what was imported is there even after a Cancel.
  OnDialog([](QWidget* form) {
    EXPECT_EQ(form->objectName(), "frmGpxImport");
    Click(form, "cmdOK");
  });
  OnDialog([](QWidget* unsaved) {
    EXPECT_EQ(unsaved->objectName(), "frmUnsaved");
    Click(unsaved, "cmdCancel");
  });
  messages_.Expect("Imported: Out.rte, trip.way, Day.trk");
  window_->OpenFile(Document());
  EXPECT_NEAR(program_.route.points[0].longitude, -1.8F, 0.01F);
  EXPECT_EQ(program_.config.waypoint_file, "trip.way");
  EXPECT_EQ(program_.waypoints.waypoints.at(0).name, "Mark");
  EXPECT_TRUE(program_.plot.track_plot_on);
  EXPECT_EQ(program_.plot.plot_file_name, program_.folders.Tracks() + "/Day.trk");
}

TEST_F(ExchangeWindow, ADroppedDocumentIsImported) {
  Start();
  OnDialog([](QWidget* form) {
    Find<QCheckBox>(*form, "chkShow")->setChecked(false);
    Click(form, "cmdOK");
  });
  messages_.Expect("Imported: Out.rte, trip.way, Day.trk");
  Drop(QString::fromStdString(Document()));
  ASSERT_TRUE(QTest::qWaitFor([this] { return messages_.AllShown(); }, 5000));
  QTest::qWait(50);
  EXPECT_TRUE(FileReadable(RoutePath(program_.folders, "Out.rte")));
  EXPECT_TRUE(program_.route.points.empty()) << "not shown";
  EXPECT_EQ(program_.config.waypoint_file, "Sample.way");
  EXPECT_FALSE(program_.plot.track_plot_on);
  Drop(QString::fromStdString(RoutePath(program_.folders, "Out.rte")));
  EXPECT_TRUE(QTest::qWaitFor([this] { return program_.route.points.size() == 2; }, 5000));
  QMimeData text;
  text.setText("no file");
  QDragEnterEvent enter({300, 300}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
  enter.ignore();
  QApplication::sendEvent(window_.get(), &enter);
  EXPECT_FALSE(enter.isAccepted());
}

TEST_F(ExchangeWindow, AnImportOverTheRoutesOwnFileIsNotSavedOver) {
  Start();
  LayRoute();
  const std::string path = RoutePath(program_.folders, "Out.rte");
  ASSERT_TRUE(SaveRoute(path, program_.route, 5.0F));
  RouteIsSaved(program_, messages_, path);
  OnDialog([](QWidget* form) {
    Find<QCheckBox>(*form, "chkShow")->setChecked(false);
    Click(form, "cmdOK");
  });
  messages_.ExpectQuestion("Out.rte: File already exists - continue and overwrite the contents?",
                           true);
  messages_.Expect("Imported: Out.rte, trip.way, Day.trk");
  window_->OpenFile(Document());
  EXPECT_EQ(program_.route.points.size(), 3U);
  OnDialog([](QWidget* form) { EXPECT_EQ(form->objectName(), "frmRouteSave"); });
  Command("mnuSaveRoute");
  EXPECT_EQ(ReadRouteFile(path)->size(), 2U);
}

TEST_F(ExchangeWindow, ATrackWaitsForTheGps) {
  Start();
  program_.link.gps_enabled = true;
  OnDialog([](QWidget* form) { Click(form, "cmdOK"); });
  messages_.Expect("Imported: Out.rte, trip.way, Day.trk");
  messages_.Expect(
      "GPS is configured to write data to file  - Disable GPS (from GPS menu) before viewing "
      "historical tracks.");
  window_->OpenFile(Document());
  EXPECT_FALSE(program_.plot.track_plot_on);
  EXPECT_EQ(program_.route.points.size(), 2U);
}

TEST_F(ExchangeWindow, TheMenuHasThem) {
  Start();
  EXPECT_FALSE(window_->action("mnuFileCOGExport")->isEnabled()) << "nothing is calculated";
  const std::pair<const char*, const char*> forms[] = {
      {"mnuFileRouteTextExport", "frmTextRouteExport"},
      {"mnuFileWaypointTextExport", "frmTextWayExport"},
      {"mnutxtRouteImport", "frmTxtRouteImport"},
      {"mnutxtWayImport", "frmTxtWayImport"},
      {"mnuGpxExport", "frmGpxExport"},
      {"mnuGpxImport", "dlgOpenText"}};
  for (const auto& [command, name] : forms) {
    const char* form_name = name;
    OnDialog([form_name](QWidget* form) { EXPECT_EQ(form->objectName(), form_name); });
    Command(command);
  }
  // A table of waypoints over the current file is read anew.
  const std::string folder = user_.File("tables");
  std::filesystem::create_directories(folder);
  user_.Write("tables/sample.csv", "Name;Lat;Lon\nNew;50,5;-1,5\n");
  program_.config.text_folder = folder;
  const std::string question =
      "Sample.way: File already exists - continue and overwrite the contents?";
  // Only what the user has moved is asked about, and before it is written over.
  const auto overwrite = [](QWidget* form) {
    ClickRow(*form, "fillist", 0);
    Find<QCheckBox>(*form, "chkShow")->setChecked(false);
    Click(form, "cmdOK");
  };
  program_.waypoints.waypoints[0].latitude += 1.0F;
  const std::string before = FileBytes(WaypointPath(program_.folders, "Sample.way"));
  OnDialog(overwrite);
  OnDialog([](QWidget* unsaved) { Click(unsaved, "cmdCancel"); });
  messages_.ExpectQuestion(question, true);
  Command("mnutxtWayImport");
  EXPECT_EQ(FileBytes(WaypointPath(program_.folders, "Sample.way")), before);
  program_.waypoints.waypoints[0].latitude -= 1.0F;
  OnDialog(overwrite);
  messages_.ExpectQuestion(question, true);
  messages_.Expect("Imported: Sample.way");
  Command("mnutxtWayImport");
  ASSERT_EQ(program_.waypoints.waypoints.size(), 1U);
  EXPECT_EQ(program_.waypoints.waypoints[0].name, "New");
}

}  // namespace
}  // namespace skerrow::testing
