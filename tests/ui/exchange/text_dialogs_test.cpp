// The export and the import of tables of text, by real events and with real files.

#include <QFileDialog>
#include <filesystem>

#include "core/files.h"
#include "routes/route.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/exchange/frmTextExport.h"
#include "ui/exchange/frmTxtFileImport.h"

namespace skerrow::testing {
namespace {

class TextDialogs : public SampleDesk {
 protected:
  MayReplace may_replace() {
    return [this](const std::string& file) {
      return messages.Ask(file + ": " + std::string(kOverwriteQuestion), kProgramTitle);
    };
  }
  TextDialogs() { std::filesystem::create_directories(folder_); }

  // What the user does in the chooser of files: looks at the offer, types a name.
  void Choose(const std::string& offer, const std::string& name) {
    WithNextDialog([this, offer, name](QDialog& dialog) {
      auto* chooser = qobject_cast<QFileDialog*>(&dialog);
      ASSERT_NE(chooser, nullptr);
      EXPECT_EQ(chooser->selectedFiles().front().section('/', -1).toStdString(), offer);
      Find<QLineEdit>(dialog, "fileNameEdit")
          ->setText(QString::fromStdString(folder_ + "/" + name));
      dialog.accept();
    });
  }
  static std::string Remarks(QWidget& form) {
    return Find<QLabel>(form, "lblRemarks")->text().toStdString();
  }

  const std::string folder_ = user_.File("tables");
};

TEST_F(TextDialogs, ARouteGoesOutAndComesBack) {
  ImportSamples();
  EXPECT_EQ(program.config.text_folder, program.folders.program);
  frmTextExport out(desktop, frmTextExport::Source::kRoute, nullptr);
  EXPECT_EQ(out.objectName(), "frmTextRouteExport");
  Show(out);
  messages.Expect("Click the file that is to be exported", MessageIcon::kWarning);
  Click(out, "Save");
  ClickRow(out, "fillist", RowOfText(out, "fillist", "Sample.rte"));
  EXPECT_EQ(TextOf(out, "List1", 0), "Bridge Buoy(Needles)\t50.39.63N\t001.36.88W\t5.5kn");
  Choose("Sample.csv", "Out");
  Click(out, "Save");
  EXPECT_EQ(out.result(), QDialog::Accepted);
  EXPECT_TRUE(FileBytes(folder_ + "/Out.csv").starts_with("Name,Latitude,Longitude,"));
  EXPECT_EQ(program.config.text_folder, folder_);
  AppConfig stored = DefaultConfig("");
  ASSERT_TRUE(ReadConfig(program.folders, stored));
  EXPECT_EQ(stored.text_folder, folder_);

  frmTxtFileImport in(desktop, FileKind::kRoute, may_replace(), nullptr);
  EXPECT_EQ(in.objectName(), "frmTxtRouteImport");
  Show(in);
  EXPECT_EQ(Find<QLineEdit>(in, "txtFolder")->text().toStdString(), folder_);
  messages.Expect("Click the file that is to be imported", MessageIcon::kWarning);
  Click(in, "cmdOK");
  ClickRow(in, "fillist", 0);
  EXPECT_EQ(TextOf(in, "List1", 0), "Bridge Buoy(Needles)\t50.39.63N\t001.36.88W\t5.5 kn");
  EXPECT_EQ(Remarks(in), "6 points.");
  EXPECT_EQ(Find<QLineEdit>(in, "txtFileName")->text(), "Out");
  Type(in, "txtFileName", "sample");
  messages.ExpectQuestion("Sample.rte: File already exists - continue and overwrite the contents?",
                          false);
  Click(in, "cmdOK");
  EXPECT_TRUE(in.isVisible());
  Type(in, "txtFileName", "Back.csv");
  messages.Expect("Imported: Back.rte", MessageIcon::kInformation);
  Click(in, "cmdOK");
  EXPECT_EQ(in.files(), std::vector{RouteFile("Back.rte")});
  EXPECT_EQ(FileBytes(RouteFile("Back.rte")), FileBytes(RouteFile("Sample.rte")));
}

TEST_F(TextDialogs, WaypointsGoOutAndComeBack) {
  frmTextExport out(desktop, frmTextExport::Source::kWaypoints, nullptr);
  EXPECT_EQ(out.objectName(), "frmTextWayExport");
  Show(out);
  ClickRow(out, "fillist", RowOfText(out, "fillist", "Sample.way"));
  Choose("Sample.csv", "Marks.txt");
  Click(out, "Save");
  frmTxtFileImport in(desktop, FileKind::kWaypoint, may_replace(), nullptr);
  EXPECT_EQ(in.objectName(), "frmTxtWayImport");
  Show(in);
  ClickRow(in, "fillist", RowOfText(in, "fillist", "Marks.txt"));
  Click(in, "chkShow");
  messages.Expect("Imported: Marks.way");
  Click(in, "cmdOK");
  EXPECT_FALSE(in.show_files());
  EXPECT_EQ(FileBytes(WayFile("Marks.way")), FileBytes(WayFile("Sample.way")));
}

TEST_F(TextDialogs, TheCourseGoesOut) {
  program.passage.route_track = {{{50.0F, -1.0F}, 6.5F, {339, 2026}},
                                 {{50.1F, -1.0F}, 6.5F, {339, 2026}}};
  program.passage.route_streams = {{1.25F, 95.0F, 6.5F, "9999, 50"}};
  frmTextExport out(desktop, frmTextExport::Source::kCourse, nullptr);
  EXPECT_EQ(out.objectName(), "frmCOGexport");
  Show(out);
  EXPECT_EQ(TextOf(out, "List1", 0).substr(0, 6), "06:30\t");
  EXPECT_TRUE(TextOf(out, "List1", 0).ends_with("1.3@095\t9999, 50")) << TextOf(out, "List1", 0);
  Choose("COG 14 Jun 2026.csv", "Course.csv");
  Click(out, "Save");
  EXPECT_NE(FileBytes(folder_ + "/Course.csv").find("\r\n,2026-12-05,06:30,,50,-1,"),
            std::string::npos);
}

TEST_F(TextDialogs, WhatIsNoTableIsToldAndWhatIsLongIsSplit) {
  user_.Write("tables/a bad.csv", "Name,Lat,Lon\nA,50,0\nB,95,0\n");
  std::string far = "Name;Lat;Lon\n";
  for (int i = 0; i < 101; ++i) far += "P;50," + std::to_string(100 + i) + ";-1,5\n";
  user_.Write("tables/far.TXT", far);
  user_.Write("tables/not.rte", "");
  frmTxtFileImport in(desktop, FileKind::kRoute, may_replace(), nullptr);
  Show(in);
  Type(in, "txtFolder", folder_.c_str());
  EXPECT_EQ(Find<QListWidget>(in, "fillist")->count(), 2);
  ClickRow(in, "fillist", 0);
  EXPECT_EQ(Remarks(in), "a bad.csv: line 3: \"95\" is no latitude");
  messages.Expect(Remarks(in), MessageIcon::kWarning);
  Click(in, "cmdOK");
  ClickRow(in, "fillist", 1);
  EXPECT_EQ(Remarks(in), "101 points. A route holds 100 points; this one makes 2 routes.");
  messages.ExpectQuestion(
      "\"far\" has 101 points, and a route holds 100. Make 2 routes of it, \"far\", \"far 2\" and "
      "so "
      "on?",
      true);
  messages.Expect("Imported: far.rte, far 2.rte");
  Click(in, "cmdOK");
  EXPECT_EQ(ReadRouteFile(RouteFile("far 2.rte"))->size(), 2U);
  EXPECT_EQ(ReadRouteFile(RouteFile("far 2.rte"))->back().latitude, 50.200F);
}

}  // namespace
}  // namespace skerrow::testing
