// Bringing charts in and taking them away, by real events and real files.

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QProgressBar>
#include <filesystem>

#include "charts/chart_view.h"
#include "core/files.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/charts/frmImportChart.h"
#include "ui/charts/frmLoadChart.h"

namespace skerrow::testing {
namespace {

class ImportWindow : public SampleDesk {
 protected:
  // A picture of the user's, with a world file in degrees when it is to be placed.
  std::string Picture(const std::string& name, bool placed, int side = 120) {
    QImage image(side, side, QImage::Format_RGB888);
    image.fill(QColor(200, 220, 255));
    const std::string path = user_.File(name + ".png");
    EXPECT_TRUE(image.save(QString::fromStdString(path)));
    if (placed) user_.Write(name + ".pgw", "0.001\n0\n0\n-0.001\n-1.5\n50.7\n");
    return path;
  }
  // Waits until a file has been read.
  void Read(frmImportChart& form, const std::string& path) {
    form.ReadFile(path);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>(form, "cmdBrowse")->isEnabled(); }));
  }
  static bool WaitClosed(QWidget& form) {
    return QTest::qWaitFor([&] { return !form.isVisible(); }, 20000);
  }
  std::string Own(const std::string& name) const {
    return program.folders.UserData() + "/Charts/" + name;
  }
};

TEST_F(ImportWindow, AChartIsLookedAtNamedAndBroughtIn) {
  frmImportChart form(desktop, nullptr);
  Show(form);
  EXPECT_FALSE(Find<QPushButton>(form, "cmdImport")->isEnabled());
  Read(form, Picture("bay", true));
  EXPECT_FALSE(Find<PicturePreview>(form, "GdViewer1")->empty());
  EXPECT_EQ(Find<QLineEdit>(form, "txtTitle")->text(), "bay");
  EXPECT_EQ(Find<QLineEdit>(form, "txtKey")->text(), "1001-1");
  EXPECT_EQ(Find<QComboBox>(form, "cmbArea")->currentText(), "Sample Chart");
  const QString details = Find<QLabel>(form, "lblDetails")->text();
  EXPECT_TRUE(details.contains("50.34.83N  001.30.03W  to  50.42.03N  001.22.83W"))
      << details.toStdString();
  const auto* notes = Find<QLabel>(form, "lblNotes");
  EXPECT_TRUE(notes->isVisible() && notes->text().contains("WGS 84"));
  // What stands in the way is told, and the field has the keyboard.
  const struct {
    const char* box;
    const char* wrong;
    const char* right;
    const char* told;
  } rows[] = {
      {"txtTitle", "  ", "The Bay", "the title is empty"},
      {"txtScale", "50", "25000", "the scale has to be from 1 : 100 to 1 : 100,000,000"},
      {"txtKey", "9999-1", "77-1", "there is a chart of the key 9999-1 already"},
  };
  for (const auto& row : rows) {
    Type(form, row.box, row.wrong);
    messages.Expect(row.told, MessageIcon::kWarning);
    Click(form, "cmdImport");
    EXPECT_TRUE(messages.AllShown()) << row.told;
    EXPECT_TRUE(Find<QLineEdit>(form, row.box)->hasFocus()) << row.box;
    Type(form, row.box, row.right);
  }
  auto* area = Find<QComboBox>(form, "cmbArea");
  area->setFocus();
  area->lineEdit()->selectAll();
  QTest::keyClicks(area, "Home waters");
  EXPECT_TRUE(Find<QLabel>(form, "lblAreaHint")->text().contains("no tidal streams"));
  Click(form, "cmdImport");
  ASSERT_TRUE(WaitClosed(form));
  EXPECT_EQ(form.result(), QDialog::Accepted);
  EXPECT_EQ(form.area() + "|" + form.key(), "Home waters|77-1");
  EXPECT_TRUE(form.placed());
  EXPECT_TRUE(FileReadable(Own("77-1.l55")));
  EXPECT_TRUE(FileReadable(Own("Home waters.xrf")));
}

TEST_F(ImportWindow, ABrokenFileIsToldAndAnotherMayBeChosen) {
  frmImportChart form(desktop, nullptr);
  Show(form);
  const std::string broken = user_.Write("broken.kap", "no chart");
  messages.Expect(broken +
                      ": this is no chart that can be brought in (GeoTIFF, BSB/KAP, MBTiles, "
                      "PNG or JPEG), or it is damaged",
                  MessageIcon::kWarning);
  Read(form, broken);
  EXPECT_TRUE(messages.AllShown());
  EXPECT_FALSE(Find<QPushButton>(form, "cmdImport")->isEnabled());
  Read(form, Picture("bay", true));
  EXPECT_TRUE(Find<QPushButton>(form, "cmdImport")->isEnabled());
}

TEST_F(ImportWindow, AStoppedImportLeavesNothingAndTheWindowOpen) {
  frmImportChart form(desktop, nullptr);
  Show(form);
  Read(form, Picture("large", true, 4000));
  Click(form, "cmdImport");
  EXPECT_TRUE(Find<QProgressBar>(form, "ProgressBar1")->isVisible());
  QTest::keyClick(&form, Qt::Key_Escape);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>(form, "cmdBrowse")->isEnabled(); }));
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(Find<QLabel>(form, "lblState")->text(), "Stopped. Nothing was brought in.");
  EXPECT_FALSE(FileIsThere(Own("1001-1.l55")));
  EXPECT_TRUE(std::filesystem::is_empty(Own("")));
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
}

TEST_F(ImportWindow, AScanIsBroughtInFromTheListAndRemovedThere) {
  frmLoadChart list(desktop, nullptr);
  Show(list);
  const std::string scan = Picture("scan", false);
  WithNextDialog([&](QDialog& dialog) {
    auto& form = dynamic_cast<frmImportChart&>(dialog);
    Read(form, scan);
    EXPECT_TRUE(Find<QLineEdit>(form, "txtScale")->hasFocus());
    Type(form, "txtScale", "5000");
    Click(form, "cmdImport");
    WaitClosed(form);
  });
  messages.Expect(
      "The scan is in the list of charts. Its positions mean nothing yet: before you plan "
      "anything on it, press C for Calibrate Chart and give two of its places.",
      MessageIcon::kInformation);
  Click(list, "cmdImport");
  EXPECT_TRUE(messages.AllShown());
  auto* charts = Find<QListWidget>(list, "List1");
  ASSERT_EQ(charts->count(), 5);
  EXPECT_EQ(charts->currentItem()->text(), "scan");
  EXPECT_TRUE(Find<QPushButton>(list, "cmdRemove")->isEnabled());
  const std::string question =
      "Remove the chart 1001-1, scan?\n\nIts picture and its calibration are deleted.";
  messages.ExpectQuestion(question, false);
  Click(list, "cmdRemove");
  EXPECT_TRUE(FileReadable(Own("1001-1.l55")));
  // The chart on show stays.
  const std::string shown = program.config.chart_path;
  program.config.chart_path = Own("1001-1");
  messages.Expect("This is the chart on show. Open another one, then remove it.",
                  MessageIcon::kWarning);
  Click(list, "cmdRemove");
  program.config.chart_path = shown;
  messages.ExpectQuestion(question, true);
  Click(list, "cmdRemove");
  EXPECT_TRUE(messages.AllShown());
  EXPECT_EQ(charts->count(), 4);
  EXPECT_FALSE(FileIsThere(Own("1001-1.l55")));
  EXPECT_FALSE(Find<QPushButton>(list, "cmdRemove")->isEnabled());  // one of the program's
}

}  // namespace
}  // namespace skerrow::testing
