// Single dialogs, by real events.

#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QScrollBar>
#include <QTextBrowser>

#include "core/files.h"
#include "platform/images.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/dialogs/Frmdisclaimer.h"
#include "ui/dialogs/frmConfigure.h"
#include "ui/dialogs/frmQuickInstructions.h"
#include "ui/dialogs/frmtimdat.h"
#include "ui/forms/report_look.h"
#include "ui/widgets/date_services.h"
#include "ui/widgets/picture_preview.h"
#include "ui/widgets/print_lines.h"

namespace skerrow::testing {
namespace {

class SingleDialogs : public SampleDesk {};

TEST_F(SingleDialogs, DateAndTimeRefusesInItsWordsAndSetsTheTime) {
  frmtimdat form(desktop, nullptr);
  Show(form);
  const auto try_time = [&](const char* text) {
    Type(form, "txtTime", text);
    Click(form, "cmdOK");
  };
  messages.Expect("Please enter a valid time i.e. 12:35", MessageIcon::kWarning);
  try_time("930");
  EXPECT_EQ(messages.beeps, 0);
  messages.Expect("Please enter a valid time", MessageIcon::kWarning);
  try_time("24:00");
  EXPECT_EQ(messages.beeps, 1);
  // 31 June: a warning beside the lists, a beep, no message.
  Find<QComboBox>(form, "lstDay")->setCurrentIndex(30);
  try_time("10:30");
  EXPECT_EQ(messages.beeps, 2);
  EXPECT_TRUE(form.isVisible());
  EXPECT_TRUE(Find<QLabel>(form, "Predictedday")->text().endsWith("is not a date"));
  EXPECT_FALSE(program.selected_time.override_);
  Find<QComboBox>(form, "lstDay")->setCurrentIndex(19);
  try_time("10:60");  // minutes of exactly 60 pass
  EXPECT_FALSE(form.isVisible());
  EXPECT_TRUE(program.selected_time.override_);
  EXPECT_FLOAT_EQ(program.selected_time.hours, 11.0F);
  EXPECT_EQ(program.selected_time.day_of_month, 20);
}

TEST_F(SingleDialogs, SettingsFilterKeysAndShowTheFieldAtFault) {
  int tools = 0;
  frmConfigure form(
      desktop, [&tools] { ++tools; }, nullptr);
  form.show();
  auto* variation = form.findChild<QLineEdit*>("Txtvariation");
  variation->selectAll();
  QTest::keyClicks(variation, "x6e-");
  EXPECT_EQ(variation->text(), "6E");
  EXPECT_EQ(messages.beeps, 2);
  auto* error = form.findChild<QLineEdit*>("txtErrorCircle");
  error->selectAll();
  QTest::keyClicks(error, "z2");
  EXPECT_EQ(error->text(), "2");
  EXPECT_EQ(messages.beeps, 2) << "this one drops keys in silence";

  auto* ok = form.findChild<QPushButton*>("cmdOK");
  auto* barb = form.findChild<QComboBox*>("cmbBarbLength");
  barb->setEditText("0");
  messages.Expect("Barb length =0 !!", MessageIcon::kWarning);
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_TRUE(barb->isVisible()) << "its page has come to the front";
  barb->setEditText("25");
  QTest::mouseDClick(&form, Qt::LeftButton, {}, QPoint(4, form.height() - 6));
  EXPECT_EQ(tools, 1);
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_FALSE(form.isVisible());
  EXPECT_FLOAT_EQ(program.config.barb_length, 25.0F);
}

TEST_F(SingleDialogs, PreviewDecodesBesideTheWindowAndShowsTheLastOneAskedFor) {
  const auto file = [this](const char* name) { return JoinPath(program.folders.documents, name); };
  const auto write = [&](const char* name, int side, std::uint32_t colour) {
    const std::size_t count = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    const std::string path = file(name);
    EXPECT_TRUE(
        WritePng(path, PictureFromRgb32(side, side, std::vector<std::uint32_t>(count, colour))));
    return path;
  };
  const std::string large = write("large.png", 6000, 0xff0000ff);
  const std::string small = write("small.png", 40, 0xff00ff00);
  PicturePreview preview("preview");
  preview.resize(300, 300);
  preview.show();
  const auto middle = [&] { return preview.grab().toImage().pixelColor(150, 150); };
  preview.Open(large);
  EXPECT_TRUE(preview.opening() && preview.empty()) << "the call did not wait for the picture";
  ASSERT_TRUE(QTest::qWaitFor([&] { return !preview.opening(); }, 20000));
  EXPECT_EQ(middle(), QColor(Qt::blue));
  preview.Open(large);
  preview.Open(small);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !preview.opening(); }, 20000));
  QTest::qWait(300);
  EXPECT_EQ(middle(), QColor(Qt::green));
  preview.Open(file("missing.png"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !preview.opening(); }, 20000));
  EXPECT_TRUE(preview.empty());
}

TEST_F(SingleDialogs, StartFormAcceptsDeclinesAndRestoresDefaults) {
  program.charts.history = {"x"};
  AppConfig changed = program.config;
  changed.vessel_speed = 9.0F;
  ASSERT_TRUE(SaveConfig(program.folders, changed).ok());
  Frmdisclaimer form(program, messages);
  form.show();
  const std::string copy = program.folders.SettingsData() + "/HelmConfig.bak";
  const std::string before = FileBytes(program.folders.ConfigFile());
  messages.Expect("The settings up to now are kept in " + copy, MessageIcon::kInformation);
  form.findChild<QAction*>("mnuRestoreDefaults")->trigger();
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(FileBytes(copy), before);
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program.folders, stored).ok());
  EXPECT_FLOAT_EQ(stored.vessel_speed, 5.0F);
  std::filesystem::remove(program.folders.ConfigFile());
  std::filesystem::create_directory(program.folders.ConfigFile());
  messages.Expect("Unable to create a configuration file.\n" +
                      ReadFile(program.folders.ConfigFile()).error().Text(),
                  MessageIcon::kWarning);
  form.findChild<QAction*>("mnuRestoreDefaults")->trigger();
  QTest::mouseClick(form.findChild<QPushButton*>("cmdCCok"), Qt::LeftButton);
  EXPECT_EQ(form.result(), QDialog::Accepted);
  EXPECT_TRUE(program.charts.history.empty());
}

TEST_F(SingleDialogs, StartFormEndsOnAMachineWhoseDatesItCannotRead) {
  struct NoDates final : DateServices {
    std::string ShortToday() const override { return "7 May"; }
    std::string AbbreviatedWeekday(std::string_view) const override { return ""; }
  };
  messages.Expect(std::string(DateOrderFailureText()));
  EXPECT_FALSE(Frmdisclaimer::Prepare(program, NoDates(), messages));
  EXPECT_TRUE(Frmdisclaimer::Prepare(program, LocaleDateServices(), messages));
}

TEST_F(SingleDialogs, QuickInstructionsAreOfferedOnceAndFitTheirWindow) {
  int opened = 0;
  WithNextDialog([&](QDialog& dialog) {
    ++opened;
    EXPECT_EQ(dialog.objectName(), "frmQuickInstructions");
    const auto* text = Find<QTextBrowser>(dialog, "txtInstructions");
    EXPECT_EQ(text->verticalScrollBar()->maximum(), 0);
    EXPECT_TRUE(text->toPlainText().contains("Point & Click at Waypoint"));
  });
  OfferQuickInstructions(desktop, nullptr);
  ASSERT_EQ(settings.GetInt("Help", "QuickInstructionsOffered", 0), 1);
  OfferQuickInstructions(desktop, nullptr);
  EXPECT_EQ(opened, 1);
}

TEST_F(SingleDialogs, PrintingRemembersTheFolderOfItsPdfFiles) {
  const TempFolder folder;
  const auto print_to = [&](const std::string& name, const std::string& starts_in) {
    WithNextDialog([](QDialog& choice) {
      EXPECT_EQ(choice.objectName(), "frmPrint");
      auto* printers = Find<QComboBox>(choice, "cmbPrinter");
      printers->setCurrentIndex(printers->count() - 1);  // the file
      Click(choice, "cmdPrint");
    });
    WithNextDialog([&](QDialog& dialog) {
      auto* files = qobject_cast<QFileDialog*>(&dialog);
      ASSERT_NE(files, nullptr);
      if (!starts_in.empty()) {
        EXPECT_EQ(files->directory().absolutePath().toStdString(), starts_in);
      }
      EXPECT_EQ(files->selectedFiles().front().section('/', -1), "Results - a-b.pdf");
      files->findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(name));
      dialog.accept();
    });
    PrintPages(desktop, nullptr, ReportPage("Results", "a/b", {"line"}));
  };
  print_to(folder.File("first.pdf"), "");
  EXPECT_TRUE(FileBytes(folder.File("first.pdf")).starts_with("%PDF"));
  print_to("second.pdf", folder.path());
  EXPECT_TRUE(FileBytes(folder.File("second.pdf")).starts_with("%PDF"));
}

}  // namespace
}  // namespace skerrow::testing
