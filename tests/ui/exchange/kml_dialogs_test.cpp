// The export to KML viewers, by real events and into real files.

#include <QInputDialog>

#include "core/files.h"
#include "instruments/nmea_sentences.h"
#include "routes/route.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/exchange/frmGoogleExport.h"

namespace skerrow::testing {
namespace {

class KmlDialogs : public SampleDesk {
 protected:
  std::string Saved(const std::string& name) const {
    return FileBytes(program.folders.GoogleEarth() + "/" + name + ".kml");
  }
};

TEST_F(KmlDialogs, ARouteGoesOut) {
  ASSERT_TRUE(ReplaceFile(program.folders.Routes() + "/Short.a.rte",
                          FileBytes(program.folders.Samples() + "/Sample.rte")));
  frmGoogleExport form(desktop, KmlKind::kRoute, nullptr);
  EXPECT_EQ(form.objectName(), "frmGoogleRouteExport");
  Show(form);
  Click(form, "Save");  // nothing picked: nothing happens
  auto* files = Find<FileList>(form, "fillist");
  files->Select("Short.a.rte");
  EXPECT_EQ(Find<QLineEdit>(form, "txtFileName")->text(), "Short");
  EXPECT_EQ(Find<QLineEdit>(form, "txtDescription")->text(), "Created : 14/06/2026");
  const auto* rows = Find<TextList>(form, "List1");
  const std::vector<RouteRecord> records =
      ReadRouteFile(program.folders.Samples() + "/Sample.rte").value();
  ASSERT_EQ(rows->lines().size(), records.size());
  EXPECT_EQ(rows->lines()[0].substr(0, 25), "Bridge Buoy(Needles)\t50.3");
  EXPECT_TRUE(rows->lines()[0].ends_with("kn")) << rows->lines()[0];
  messages.Expect("File saved to Short.kml\r\n" + program.folders.GoogleEarth(),
                  MessageIcon::kInformation);
  Click(form, "Save");
  EXPECT_EQ(Saved("Short"),
            RouteKml(records, program.route_speed, {"Short", "Created : 14/06/2026"}));
  Type(form, "txtFileName", "a/b");
  messages.Expect("a/b: a file's name holds no \"/\" and no \"\\\"", MessageIcon::kWarning);
  Click(form, "Save");
}

TEST_F(KmlDialogs, NamesThatManyViewersRefuseAreAskedAbout) {
  const std::vector<Waypoint> odd = {{"Cap & Co", 50.0F, -1.0F}};
  ASSERT_TRUE(
      WriteRecords(program.folders.Waypoints() + "/Odd.way", std::span(odd), kWaypointFields));
  frmGoogleExport form(desktop, KmlKind::kWaypoints, nullptr);
  Show(form);
  Find<FileList>(form, "fillist")->Select("Odd.way");
  for (const bool readable : {true, false}) {
    messages.ExpectQuestion("Write these names so that every viewer can read them?", readable);
    messages.Expect("File saved to Odd.kml\r\n" + program.folders.GoogleEarth());
    Click(form, "Save");
    EXPECT_EQ(Saved("Odd").find("Cap &amp; Co") != std::string::npos, readable);
  }
  ASSERT_TRUE(std::filesystem::remove(program.folders.Waypoints() + "/Odd.way"));
  messages.Expect("An Error has occured - Nothing saved \r\n" + program.folders.Waypoints() +
                      "/Odd.way: the file does not exist",
                  MessageIcon::kWarning);
  Click(form, "Save");
}

TEST_F(KmlDialogs, ALogShowsItsFixesAndComments) {
  std::string log = RmcAt("063020") + "\r\n";
  for (int i = 1; i <= 6; ++i) {
    log += "$PSKLOG,6," + std::to_string(i) + "," + (i == 3 ? "Reefed, wet" : "") + "*00\r\n";
  }
  ASSERT_TRUE(ReplaceFile(program.folders.Tracks() + "/Day.nmea", log + RmcAt("0631") + "\r\n"));
  frmGoogleExport form(desktop, KmlKind::kTrack, nullptr);
  Show(form);
  Find<FileList>(form, "fillist")->Select("Day.nmea");
  EXPECT_EQ(
      Find<TextList>(form, "List1")->lines(),
      (std::vector<std::string>{"06:30:20\t05/12/26\t50.30.25N\t001.20.25W", "Reefed, wet",
                                "COMMENT ENDS", "06:31:00\t05/12/26\t50.30.25N\t001.20.25W"}));
  messages.Expect("File saved to Day.kml\r\n" + program.folders.GoogleEarth());
  Click(form, "Save");
  EXPECT_NE(Saved("Day").find("<name>06:30</name>"), std::string::npos);
}

TEST_F(KmlDialogs, TheCourseGoesOutUnderANameOfTheDay) {
  LoadSample();
  WithNextDialog([](QDialog& dialog) {
    auto* input = qobject_cast<QInputDialog*>(&dialog);
    ASSERT_NE(input, nullptr);
    EXPECT_EQ(input->textValue(), "COG 14 Jun 2026");
    input->setTextValue("");
    input->accept();
  });
  ExportCourse(desktop, nullptr);
  EXPECT_FALSE(FileReadable(program.folders.GoogleEarth() + "/.kml"));
  WithNextDialog([](QDialog& dialog) { dialog.accept(); });
  messages.Expect("COG 14 Jun 2026.kml written to\r\n" + program.folders.GoogleEarth(),
                  MessageIcon::kInformation);
  ExportCourse(desktop, nullptr);
  EXPECT_NE(Saved("COG 14 Jun 2026").find("COGLine"), std::string::npos);
}

}  // namespace
}  // namespace skerrow::testing
