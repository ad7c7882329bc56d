#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "core/files.h"
#include "platform/images.h"
#include "tests/ui/dialogs/dialog_fixture.h"
#include "ui/dialogs/Frmdisclaimer.h"
#include "ui/dialogs/frmConfigure.h"
#include "ui/dialogs/frmLoadChart.h"
#include "ui/dialogs/frmOptResults.h"
#include "ui/dialogs/frmQuickInstructions.h"
#include "ui/dialogs/frmRouteOptDeparture.h"
#include "ui/dialogs/frmSetLeg.h"
#include "ui/dialogs/frmcalcroute.h"
#include "ui/dialogs/frmresults.h"
#include "ui/dialogs/frmroutehistory.h"
#include "ui/dialogs/frmrouteinfo.h"
#include "ui/dialogs/frmtimdat.h"
#include "ui/widgets/date_services.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

struct DialogRow {
  const char* name;
  const char* title;
  const char* default_button;
  const char* controls;  // published names, by blanks
  std::function<std::unique_ptr<QDialog>(SampleDesk&)> open;
};

template <typename Form>
std::unique_ptr<QDialog> Open(SampleDesk& desk) {
  return std::make_unique<Form>(desk.desktop, nullptr);
}

const std::vector<DialogRow>& Dialogs() {
  static const std::vector<DialogRow> rows = {
      {"frmcalcroute", "Route Calculation", "Cmdrteok",
       "rtedeptime lsthrs lstmins chkLeeway txtLeeway List1 lblroutedist cmdModify cmdRouteSpeed "
       "txtroutespeed cmdreverse cmdUseGPS chkUseSOG cmdCopy cmdWind cmdTack Cmdrteok cmdrtecancel",
       Open<FrmCalcRoute>},
      {"frmresults", "Results", "cmdOK",
       "lstResults optSummary optTidalDetails chkDisplayAll chKTidalStreams cmdClipboardCopy "
       "Option1 Option2 cmdresultsprint",
       Open<FrmResults>},
      {"frmrouteinfo", "Route Calculations", "cmdOK", "List1", Open<FrmRouteInfo>},
      {"frmroutehistory", "Calculation History", "cmdOK", "lsthistresults", Open<FrmRouteHistory>},
      {"frmRouteOptDeparture", "Optimise Departure", "cmdOptimise",
       "List1 Option1 Option2 Option3 Option4 Option5 cmdOptimise cmdreverse cmdrtecancel "
       "ProgressBar1 lblProgress",
       Open<FrmRouteOptDeparture>},
      {"frmOptResults", "Optimum Results", "cmdClose", "pctResults pctScale lstResults lblCursor",
       Open<FrmOptResults>},
      {"frmSetLeg", "Single Leg Set-up", "cmdCalculate",
       "Txtboatspeed optPort optStarboard txtLeeWay", Open<FrmSetLeg>},
      {"frmtimdat", "Date and Time", "cmdOK", "Predictedday", Open<FrmTimDat>},
      {"frmLoadChart", "Select Chart", "cmdOK",
       "lstAreas List1 cmbScale txtScale txtSearch cmdSearch lblChartNumber GdViewer1",
       Open<FrmLoadChart>},
      {"frmQuickInstructions", "Quick Instructions", "cmdOK", "", Open<FrmQuickInstructions>},
      {"frmConfigure", "General Settings", "cmdOK",
       "cmbThreshold cmbTextSize cmbStreamLineWidth cmbBarbWeight cmbStreamLength cmbBarbSpacing "
       "cmbBarbLength cmbLineSize Txtvariation txtErrorCircle txtSearchCircle Txtboatspeed "
       "optSummerTime optDaylightSavings txtCPAWind chkHideStreamId txtCalcInterval chkLeeway "
       "chkShowwind txtLeeWay chkUseTides chkBarbDisplayText chkUseSmartMet chkStreamAsShape "
       "chkStreamFilled pctFontCol pctTidalStreamCol pctCOGCol pctWindCol",
       [](SampleDesk& desk) -> std::unique_ptr<QDialog> {
         return std::make_unique<FrmConfigure>(desk.desktop, nullptr, nullptr);
       }},
      {"Frmdisclaimer", "Skerrow Helm (v6.0.0.1)", "cmdCCok", "cmdCCok cmddecline",
       [](SampleDesk& desk) -> std::unique_ptr<QDialog> {
         return std::make_unique<Frmdisclaimer>(desk.program, desk.messages);
       }},
  };
  return rows;
}

// What a dialog that is left by Esc must not have touched.
std::string StateOf(const SampleDesk& desk) {
  const Program& program = desk.program;
  std::string state = EncodeRecord(program.config, kAppConfigFields);
  for (const RoutePoint& point : program.route.points) {
    state += point.name + std::to_string(point.latitude) + std::to_string(point.speed);
  }
  state += std::to_string(program.selected_time.hours) + program.charts.chart.file.spare3;
  if (const Result<std::string> stored = ReadFile(program.folders.ConfigFile())) state += *stored;
  return state;
}

void ExpectMnemonicsOnce(const QDialog& form) {
  std::map<QChar, QString> mnemonics;
  const auto take = [&mnemonics](const QString& text) {
    const qsizetype mark = text.indexOf('&');
    if (mark < 0 || mark + 1 >= text.size()) return;
    const QChar letter = text.at(mark + 1).toLower();
    EXPECT_TRUE(mnemonics.try_emplace(letter, text).second)
        << text.toStdString() << " and " << mnemonics[letter].toStdString();
  };
  for (const QAbstractButton* b : form.findChildren<QAbstractButton*>()) {
    if (b->isVisible()) take(b->text());
  }
  for (const QLabel* label : form.findChildren<QLabel*>()) {
    if (label->isVisible() && label->buddy() != nullptr) take(label->text());
  }
  for (const QTabBar* tabs : form.findChildren<QTabBar*>()) {
    for (int tab = 0; tab < tabs->count(); ++tab) take(tabs->tabText(tab));
  }
}

class EveryDialog : public testing::TestWithParam<DialogRow> {};

TEST_P(EveryDialog, OpensAsPublishedAndEscChangesNothing) {
  const DialogRow& row = GetParam();
  SampleDesk desk;
  ASSERT_TRUE(desk.LoadSampleRoute());
  const std::string before = StateOf(desk);
  const std::unique_ptr<QDialog> form = row.open(desk);
  form->show();
  QTest::qWait(10);
  EXPECT_EQ(form->objectName(), row.name);
  EXPECT_EQ(form->windowTitle(), row.title);
  for (const QString& name : QString(row.controls).split(' ', Qt::SkipEmptyParts)) {
    EXPECT_NE(form->findChild<QWidget*>(name), nullptr) << name.toStdString();
  }
  auto* button = form->findChild<QPushButton*>(row.default_button);
  ASSERT_NE(button, nullptr);
  EXPECT_TRUE(button->isDefault());
  EXPECT_LE(form->width(), 1280);
  EXPECT_LE(form->height(), 720 - 48) << "title bar and panel";

  // Tab comes round to where it started and reaches the default button on the way.
  QWidget* first = form->focusWidget();
  ASSERT_NE(first, nullptr);
  bool reached = first == button;
  QWidget* at = first;
  for (int i = 0; i < 200 && (i == 0 || at != first); ++i) {
    QTest::keyClick(at, Qt::Key_Tab);
    at = form->focusWidget();
    reached = reached || at == button;
  }
  EXPECT_EQ(at, first);
  EXPECT_TRUE(reached || !button->isEnabled());

  // No mnemonic stands twice on what is seen at once, whatever page is on top.
  auto* pages = form->findChild<QTabWidget*>();
  for (int page = 0; page < (pages == nullptr ? 1 : pages->count()); ++page) {
    if (pages != nullptr) pages->setCurrentIndex(page);
    ExpectMnemonicsOnce(*form);
  }
  QTest::keyClick(form.get(), Qt::Key_Escape);
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(StateOf(desk), before);
  EXPECT_TRUE(desk.messages.shown.empty());
}

INSTANTIATE_TEST_SUITE_P(All, EveryDialog, testing::ValuesIn(Dialogs()),
                         [](const auto& row) { return std::string(row.param.name); });

// The part of a picture that is brighter than a surface may be at night; letters may.
double BrightPart(const QImage& image) {
  qint64 bright = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) bright += qGray(image.pixel(x, y)) > 110 ? 1 : 0;
  }
  return static_cast<double>(bright) / (image.width() * image.height());
}

TEST(NightLook, LeavesNoBrightSurface) {
  SampleDesk desk;
  ASSERT_TRUE(desk.LoadSampleRoute());
  ApplyTheme(true);
  for (const DialogRow& row : Dialogs()) {
    const std::unique_ptr<QDialog> form = row.open(desk);
    form->show();
    QTest::qWait(10);
    EXPECT_LT(BrightPart(form->grab().toImage()), 0.05) << row.name;
  }
  FrmConfigure settings(desk.desktop, nullptr, nullptr);
  settings.show();
  double colours = 1.0;
  QTimer::singleShot(100, [&colours] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    colours = BrightPart(dialog->grab().toImage());
    dialog->reject();
  });
  settings.findChild<QPushButton*>("pctWindCol")->click();
  EXPECT_LT(colours, 0.05);
  ApplyTheme(false);
}

TEST(DateDialog, SetsTheTimeAndRefusesInItsWords) {
  SampleDesk desk;
  FrmTimDat form(desk.desktop, nullptr);
  form.show();
  auto* time = form.findChild<QLineEdit*>("txtTime");
  auto* ok = form.findChild<QPushButton*>("cmdOK");
  const auto try_time = [&](const char* text) {
    desk.messages = {};
    time->selectAll();
    QTest::keyClicks(time, text);
    QTest::mouseClick(ok, Qt::LeftButton);
  };
  try_time("930");
  EXPECT_EQ(desk.messages.shown.at(0), "Please enter a valid time i.e. 12:35");
  try_time("24:00");
  EXPECT_EQ(desk.messages.shown.at(0), "Please enter a valid time");
  EXPECT_EQ(desk.messages.beeps, 1);
  // 31 June: a warning beside the lists, a beep, no message.
  form.findChild<QComboBox*>("lstDay")->setCurrentIndex(30);
  try_time("10:30");
  EXPECT_TRUE(desk.messages.shown.empty());
  EXPECT_EQ(desk.messages.beeps, 1);
  EXPECT_TRUE(form.isVisible());
  EXPECT_TRUE(form.findChild<QLabel*>("Predictedday")->text().endsWith("is not a date"));
  EXPECT_FALSE(desk.program.selected_time.override_);
  form.findChild<QComboBox*>("lstDay")->setCurrentIndex(19);
  try_time("10:60");  // minutes of exactly 60 pass
  EXPECT_FALSE(form.isVisible());
  EXPECT_TRUE(desk.program.selected_time.override_);
  EXPECT_FLOAT_EQ(desk.program.selected_time.hours, 11.0F);
  EXPECT_EQ(desk.program.selected_time.day_of_month, 20);
}

TEST(SettingsDialog, FiltersKeysAndShowsTheFieldAtFault) {
  SampleDesk desk;
  int tools = 0;
  FrmConfigure form(
      desk.desktop, [&tools] { ++tools; }, nullptr);
  form.show();
  auto* variation = form.findChild<QLineEdit*>("Txtvariation");
  variation->selectAll();
  QTest::keyClicks(variation, "x6e-");
  EXPECT_EQ(variation->text(), "6E");
  EXPECT_EQ(desk.messages.beeps, 2);
  auto* error = form.findChild<QLineEdit*>("txtErrorCircle");
  error->selectAll();
  QTest::keyClicks(error, "z2");
  EXPECT_EQ(error->text(), "2");
  EXPECT_EQ(desk.messages.beeps, 2) << "this one drops keys in silence";
  EXPECT_FALSE(form.findChild<QComboBox*>("cmbLineSize")->isEditable());
  EXPECT_FALSE(form.findChild<QComboBox*>("cmbTextSize")->isEditable());

  auto* ok = form.findChild<QPushButton*>("cmdOK");
  auto* barb = form.findChild<QComboBox*>("cmbBarbLength");
  barb->setEditText("0");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_EQ(desk.messages.shown.at(0), "Barb length =0 !!");
  EXPECT_TRUE(barb->isVisible()) << "its page has come to the front";
  barb->setEditText("25");
  QTest::mouseDClick(&form, Qt::LeftButton, {}, QPoint(4, form.height() - 6));
  EXPECT_EQ(tools, 1);
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_FALSE(form.isVisible());
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(desk.program.folders, stored).ok());
  EXPECT_FLOAT_EQ(stored.variation, 6.0F);
  EXPECT_FLOAT_EQ(stored.error_circle, 2.0F);
  EXPECT_FLOAT_EQ(stored.barb_length, 25.0F);
}

TEST(PicturePreview, DecodesBesideTheWindowAndShowsTheLastOneAskedFor) {
  SampleDesk desk;
  const auto file = [&desk](const char* name) {
    return JoinPath(desk.program.folders.documents, name);
  };
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

TEST(ChartDialog, FiltersSearchesAndChooses) {
  SampleDesk desk;
  FrmLoadChart form(desk.desktop, nullptr);
  form.show();
  auto* list = form.findChild<QListWidget*>("List1");
  auto* preview = form.findChild<PicturePreview*>("GdViewer1");
  ASSERT_EQ(list->count(), 4);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !preview->empty(); }));
  auto* search = form.findChild<QLineEdit*>("txtSearch");
  QTest::keyClicks(search, "islands");
  EXPECT_EQ(list->currentItem()->text(), "Channel Islands");
  const QString key = form.findChild<QLabel*>("lblChartNumber")->text();
  const QPoint row = list->visualItemRect(list->currentItem()).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row);
  EXPECT_FALSE(form.isVisible());
  EXPECT_TRUE(desk.program.config.chart_path.ends_with("/" + key.toStdString()));

  FrmLoadChart none(desk.desktop, nullptr);
  none.show();
  auto* scale = none.findChild<QLineEdit*>("txtScale");
  scale->setFocus();
  scale->selectAll();
  QTest::keyClicks(scale, "9000000");
  EXPECT_EQ(none.findChild<QListWidget*>("List1")->count(), 0);
  EXPECT_TRUE(none.findChild<PicturePreview*>("GdViewer1")->empty());
  EXPECT_FALSE(none.findChild<QPushButton*>("cmdOK")->isEnabled());
}

TEST(StartForm, AcceptsDeclinesAndRestoresDefaults) {
  SampleDesk desk;
  desk.program.charts.history = {"x"};
  AppConfig changed = desk.program.config;
  changed.vessel_speed = 9.0F;
  ASSERT_TRUE(SaveConfig(desk.program.folders, changed).ok());
  Frmdisclaimer form(desk.program, desk.messages);
  form.show();
  form.findChild<QAction*>("mnuRestoreDefaults")->trigger();
  EXPECT_TRUE(form.isVisible());
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(desk.program.folders, stored).ok());
  EXPECT_FLOAT_EQ(stored.vessel_speed, 5.0F);
  QTest::mouseClick(form.findChild<QPushButton*>("cmdCCok"), Qt::LeftButton);
  EXPECT_EQ(form.result(), QDialog::Accepted);
  EXPECT_TRUE(desk.program.charts.history.empty());
}

TEST(StartForm, EndsOnAMachineWhoseDatesItCannotRead) {
  struct NoDates final : DateServices {
    std::string ShortToday() const override { return "7 May"; }
    std::string AbbreviatedWeekday(std::string_view) const override { return ""; }
  };
  SampleDesk desk;
  EXPECT_FALSE(Frmdisclaimer::Prepare(desk.program, NoDates(), desk.messages));
  EXPECT_EQ(desk.messages.shown.at(0), DateOrderFailureText());
  EXPECT_TRUE(Frmdisclaimer::Prepare(desk.program, LocaleDateServices(), desk.messages));
}

}  // namespace
}  // namespace skerrow
