// The editor of the harmonic constants and the copying of ports and diamonds, by real events.

#include <QLabel>
#include <filesystem>

#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/tides/frmHCcopy.h"
#include "ui/tides/frmharmedit.h"

namespace skerrow::testing {
namespace {

// The sample installation in a folder that may be written.
class PortWindows : public SampleDesk {
 protected:
  PortWindows() {
    std::filesystem::create_directories(user_.File("program"));
    std::filesystem::copy(program.folders.program + "/TS", user_.File("program/TS"),
                          std::filesystem::copy_options::recursive);
    std::filesystem::copy(program.folders.RefPortFile(), user_.File("program/RefPorts.hc"));
    program.folders.program = user_.File("program");
    path_ = user_.File("program/TS/UK.hc");
    before_ = FileBytes(path_);
  }
  std::string Text(QWidget& form, const char* box) {
    return Find<QLineEdit>(form, box)->text().toStdString();
  }
  static void Choose(QWidget& form, const char* list, int row) {
    ClickRow(form, list, row);
    QApplication::processEvents();
  }
  static int CountOf(QWidget& form, const char* list) {
    return Find<QListWidget>(form, list)->count();
  }
  std::string Record(std::size_t index) const {
    return FileBytes(path_).substr(index * kPortSize, kPortSize);
  }

  std::string path_, before_;
};

TEST_F(PortWindows, TheEditorShowsAndAcceptsAPort) {
  frmharmedit form(desktop, nullptr);
  Show(form);
  // It opens at the port of the tide screen.
  EXPECT_EQ(CountOf(form, "portlist"), 129);
  EXPECT_EQ(Text(form, "txtportname"), "Dover");
  Choose(form, "portlist", 0);
  EXPECT_EQ(Text(form, "txtportname"), "Concarneau");
  Choose(form, "portlist", 75);
  EXPECT_EQ(Text(form, "txtportname"), "Dover");
  EXPECT_EQ(Text(form, "txtTimeZone"), "0");
  Click(form, "chartok");  // as it is: not a bit changes
  EXPECT_TRUE(FileBytes(path_) == before_);

  Type(form, "txtz0", "3.75");
  Type(form, "txtTimeZone", "-1");
  Type(form, "txts2g", "a1x2.5");
  EXPECT_EQ(messages.beeps, 2);
  EXPECT_EQ(Text(form, "txts2g"), "12.5");
  Type(form, "txtdecdz0", "-0.25");
  Click(form, "chartok");
  const Result<Port> port = ReadAreaPort(program.folders, "UK.hc", 76);
  ASSERT_TRUE(port.ok());
  EXPECT_EQ(port->z0, 3.75F);
  EXPECT_EQ(port->time_zone, "M");
  EXPECT_EQ(port->s2_g, 12.5F);
  EXPECT_EQ(port->delta_z0[11], -0.25F);
  EXPECT_EQ(Record(74), before_.substr(74 * kPortSize, kPortSize));
  EXPECT_EQ(Record(76), before_.substr(76 * kPortSize, kPortSize));
  messages.Expect("Error - Latitude entry");
  Type(form, "txtportlat", "00.00.00N");
  Click(form, "chartok");
  EXPECT_EQ(form.focusWidget(), Find(form, "txtportlat"));
  messages.ExpectQuestion("What is typed here is in no file yet. Leave it?", true);
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
}

TEST_F(PortWindows, TheAmplitudeOfM2AndThatOfTheMonthsGoTogether) {
  frmharmedit form(desktop, nullptr);
  Show(form);
  Choose(form, "portlist", 75);
  const std::string february = Text(form, "txtfebm2");
  // Passing through changes nothing.
  auto* m2 = Find<QLineEdit>(form, "txtm2hm");
  m2->setFocus();
  QTest::keyClick(m2, Qt::Key_Tab);
  EXPECT_EQ(Text(form, "txtfebm2"), february);
  Type(form, "txtjanm2", "2.5");
  QTest::keyClick(Find<QLineEdit>(form, "txtjanm2"), Qt::Key_Tab);
  EXPECT_EQ(Text(form, "txtm2hm"), "2.5");
  EXPECT_EQ(Text(form, "txtfebm2"), february);
  Type(form, "txtm2hm", "1.25");
  QTest::keyClick(m2, Qt::Key_Tab);
  for (const char* month : {"txtjanm2", "txtfebm2", "txtdecm2"}) {
    EXPECT_EQ(Text(form, month), "1.25") << month;
  }
}

TEST_F(PortWindows, ANoToLeavingKeepsPortAndSelection) {
  frmharmedit form(desktop, nullptr);
  Show(form);
  Choose(form, "portlist", 75);
  Type(form, "txtz0", "9");
  messages.ExpectQuestion("What is typed here is in no file yet. Leave it?", false);
  Choose(form, "portlist", 10);
  EXPECT_EQ(Text(form, "txtportname"), "Dover");
  EXPECT_EQ(Find<QListWidget>(form, "portlist")->currentRow(), 75);
  EXPECT_TRUE(Find<QListWidget>(form, "portlist")->item(75)->isSelected());
  messages.ExpectQuestion("What is typed here is in no file yet. Leave it?", true);
  Choose(form, "portlist", 10);
  EXPECT_EQ(Find<QListWidget>(form, "portlist")->currentRow(), 10);
  EXPECT_NE(Text(form, "txtz0"), "9");
}

TEST_F(PortWindows, AddInsertAndDeleteLetTheSettingsFollow) {
  frmharmedit form(desktop, nullptr);
  Show(form);
  Choose(form, "portlist", 10);
  messages.ExpectQuestion(
      "Insert a port before Ouistreham?\nUK.hc is the file of the tide screen: the ports from "
      "there "
      "on get other numbers.",
      true);
  Click(form, "cmdInsert");
  EXPECT_EQ(FileBytes(path_).size(), before_.size() + kPortSize);
  EXPECT_EQ(Record(11), before_.substr(10 * kPortSize, kPortSize));
  EXPECT_EQ(program.config.tide_port_number, 77);
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program.folders, stored).ok());
  EXPECT_EQ(stored.tide_port_number, 77);
  EXPECT_EQ(program.port_markers.size(), 130U);

  messages.ExpectQuestion(
      "Delete port 11, Ouistreham, from UK.hc?\nThe ports behind it get other numbers.", false);
  Click(form, "cmdDelete");
  EXPECT_EQ(CountOf(form, "portlist"), 130);
  messages.ExpectQuestion(
      "Delete port 11, Ouistreham, from UK.hc?\nThe ports behind it get other numbers.", true);
  Click(form, "cmdDelete");
  EXPECT_TRUE(FileBytes(path_) == before_);
  EXPECT_EQ(program.config.tide_port_number, 76);

  Choose(form, "portlist", 75);
  messages.ExpectQuestion(
      "Delete port 76, Dover, from UK.hc?\nThe ports behind it get other numbers.\nIt is the port "
      "of "
      "the tide screen.",
      true);
  Click(form, "cmdDelete");
  EXPECT_EQ(program.config.tide_port_number, 76);
  EXPECT_EQ(program.config.tide_port_name,
            Trim(ReadAreaPort(program.folders, "UK.hc", 76).value().name));
  EXPECT_NE(program.config.tide_port_name, "Dover");
  Type(form, "txtportname", "New");
  Click(form, "cmdAdd");
  EXPECT_EQ(Trim(ReadAreaPort(program.folders, "UK.hc", 129).value().name), "New");
  EXPECT_EQ(Find<QListWidget>(form, "portlist")->currentRow(), 128);
}

TEST_F(PortWindows, AFileThatCannotBeWrittenIsTold) {
  frmharmedit form(desktop, nullptr);
  Show(form);
  Choose(form, "portlist", 75);
  Type(form, "txtz0", "9");
  std::filesystem::remove_all(user_.File("program/TS"));
  messages.Expect("This file could not be written, and nothing in it has changed:\n" + path_ +
                  ": the file does not exist");
  Click(form, "chartok");
  EXPECT_EQ(Text(form, "txtz0"), "9");

  // Another program puts a file of one port there: nothing of it is lost, and it can be listed.
  std::filesystem::create_directories(user_.File("program/TS"));
  const std::string other = before_.substr(0, kPortSize);
  user_.Write("program/TS/UK.hc", other);
  messages.Expect("This file could not be written, and nothing in it has changed:\n" + path_ +
                  ": it is no more as it was listed here; list it again");
  Click(form, "chartok");
  EXPECT_TRUE(FileBytes(path_) == other);
  messages.ExpectQuestion("What is typed here is in no file yet. Leave it?", true);
  ClickRow(form, "fileList", 0, 2);
  EXPECT_EQ(CountOf(form, "portlist"), 1);
  EXPECT_EQ(Text(form, "txtportname"), "Concarneau");
}

// An installed program's folder is read only: the change goes into the user's own copy.
TEST_F(PortWindows, AReadOnlyFolderKeepsItsFileAndTheUserHasTheChange) {
  namespace fs = std::filesystem;
  frmharmedit form(desktop, nullptr);
  Show(form);
  Type(form, "txtz0", "9");
  const fs::path installed = user_.File("program/TS");
  constexpr auto kWriters =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  fs::permissions(installed, kWriters, fs::perm_options::remove);
  fs::permissions(program.folders.UserData(), fs::perms::all);
  AsPlainUser([&] { Click(form, "chartok"); });
  fs::permissions(installed, fs::perms::owner_all);
  EXPECT_TRUE(FileBytes(path_) == before_);
  const std::string own = program.folders.UserData() + "/TS/" + FileNameOf(path_);
  const std::string changed = FileBytes(own);
  ASSERT_EQ(changed.size(), before_.size());
  EXPECT_TRUE(changed.substr(76 * kPortSize) == before_.substr(76 * kPortSize));
  const Result<Port> port = ReadAreaPort(program.folders, FileNameOf(path_), 76);
  ASSERT_TRUE(port);
  EXPECT_EQ(port->z0, 9.0F);
}

TEST_F(PortWindows, WithoutAFileNothingIsDone) {
  std::filesystem::remove(path_);
  frmharmedit form(desktop, nullptr);
  Show(form);
  for (const char* button : {"chartok", "cmdAdd", "cmdInsert", "cmdDelete"}) {
    messages.Expect("Select an existing area from the File -> Area Select Menu!!");
    Click(form, button);
  }
  // An empty file takes its first port.
  std::filesystem::create_directories(user_.File("program/TS"));
  user_.Write("program/TS/New.hc", "");
  frmharmedit other(desktop, nullptr);
  Show(other);
  Choose(other, "fileList", 0);
  messages.Expect("Select a port of the list first.");
  Click(other, "cmdDelete");
  Type(other, "txtportlat", "50.10.00N");
  Type(other, "txtportlong", "001.00.00W");
  messages.Expect("Error - No port selected");
  Click(other, "cmdAdd");
  Type(other, "txtportname", "First");
  Click(other, "cmdAdd");
  EXPECT_EQ(FileBytes(user_.File("program/TS/New.hc")).size(), kPortSize);
}

TEST_F(PortWindows, PortsAreCopiedToAFileOfAName) {
  frmHCcopy form(desktop, nullptr);
  Show(form);
  messages.Expect("No file name");
  Click(form, "cmdcopy");
  Type(form, "txtname", "Brest");
  messages.Expect("Mark the ports to copy first");
  Click(form, "cmdcopy");
  ClickRow(form, "fileList", 0);
  ClickRow(form, "List1", 3);
  auto* list = Find<QListWidget>(form, "List1");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                    list->visualItemRect(list->item(1)).center());
  Click(form, "cmdcopy");
  const std::string copied = FileBytes(user_.File("program/TS/Brest.hc"));
  EXPECT_TRUE(copied ==
              before_.substr(kPortSize, kPortSize) + before_.substr(3 * kPortSize, kPortSize));
  EXPECT_EQ(Find<QLabel>(form, "lblDone")->text(), "2 ports copied to Brest.hc");
  EXPECT_EQ(CountOf(form, "fileDestName"), 2);
  ClickRow(form, "fileDestName", 0);
  EXPECT_EQ(Text(form, "txtname"), "Brest.hc");
  messages.Expect("Mark the ports to copy first");
  Click(form, "cmdcopy");
}

TEST_F(PortWindows, DiamondsAreCopiedAndTheAreaFollows) {
  const std::size_t count = program.tides.diamonds.size();
  const std::string area = user_.File("program/TS/Sample Chart.l25");
  std::filesystem::copy(area, user_.File("program/TS/Other.l25"));
  const std::string before = FileBytes(area);
  frmHCcopy form(desktop, nullptr, CopyKind::kDiamonds);
  Show(form);
  ClickRow(form, "fileList", 0);
  EXPECT_EQ(TextOf(form, "List1", 6).substr(0, 7), "9999, 7");
  ClickRow(form, "List1", 6);
  Type(form, "txtname", "sample chart");
  Click(form, "cmdcopy");
  EXPECT_TRUE(FileBytes(area) == before + before.substr(6 * kDiamondSize, kDiamondSize));
  EXPECT_EQ(program.tides.diamonds.size(), count + 1);
}

}  // namespace
}  // namespace skerrow::testing
