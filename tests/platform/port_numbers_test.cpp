#include "platform/port_numbers.h"

#include <gtest/gtest.h>

#include "core/files.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::FileBytes;
using testing::TempFolder;

const SeenDevice kGps{"/dev/ttyUSB0", "usb:1546:01a7:77", "u-blox 7"};
const SeenDevice kOnBoard{"/dev/ttyS0", "name:ttyS0", ""};

class Numbers : public ::testing::Test {
 protected:
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const NumberedPort& port : numbers_.ports()) {
      texts.push_back(SourceText(port) + (port.present ? "" : " -"));
    }
    return texts;
  }
  using List = std::vector<std::string>;

  const TempFolder folder_;
  const std::string file_ = folder_.File("new/PortNumbers.txt");
  PortNumbers numbers_{file_};
};

TEST(Sources, AreParsedAsTheyAreTyped) {
  const struct {
    const char* typed;
    const char* place;  // as it is stored and shown; empty for a refusal
  } kRows[] = {
      {"TCP 192.168.1.5:10110", "TCP 192.168.1.5:10110"},
      {"  tcp  mux.local:2000 ", "TCP mux.local:2000"},
      {"tcp [::1]:0080", "TCP [::1]:80"},
      {"UDP 10110", "UDP 10110"},
      {"udp 127.0.0.1:10110", "UDP 127.0.0.1:10110"},
      {"/dev/rfcomm0", "/dev/rfcomm0"},
      {"TCP 10110", ""},
      {"TCP :10110", ""},
      {"UDP :10110", ""},
      {"UDP", ""},
      {"TCP host:0", ""},
      {"TCP host:65536", ""},
      {"TCP host:80x", ""},
      {"TCP a b:80", ""},
      {"UDP -1", ""},
      {"COM1", ""},
      {"", ""},
  };
  for (const auto& row : kRows) {
    const Result<NumberedPort> source = ParseSource(row.typed);
    ASSERT_EQ(source.ok(), *row.place != '\0') << row.typed;
    if (source) {
      EXPECT_EQ(SourcePlace(*source), row.place);
    }
  }
}

TEST_F(Numbers, ADeviceKeepsItsNumberWhereverItIsPluggedIn) {
  ASSERT_TRUE(numbers_.Match({kOnBoard, kGps}));
  EXPECT_EQ(Texts(), (List{"1  ttyS0", "2  ttyUSB0 (u-blox 7)"}));
  // A new one comes first in the list of the system.
  const SeenDevice other{"/dev/ttyUSB0", "usb:067b:2303:", "Prolific"};
  ASSERT_TRUE(numbers_.Match({other, {"/dev/ttyUSB1", kGps.identity, kGps.about}}));
  EXPECT_EQ(Texts(), (List{"1  ttyS0 -", "2  ttyUSB1 (u-blox 7)", "3  ttyUSB0 (Prolific)"}));
  // Another run of the program reads the same.
  PortNumbers later(file_);
  ASSERT_TRUE(later.Match({kGps}));
  EXPECT_EQ(later.Find(2)->place, "/dev/ttyUSB0");
  EXPECT_TRUE(later.Find(2)->present);
  EXPECT_FALSE(later.Find(3)->present);
}

TEST_F(Numbers, DevicesThatAreAlikeGoByTheirPlace) {
  const SeenDevice a{"/dev/ttyUSB0", "usb:067b:2303:", "Prolific"};
  const SeenDevice b{"/dev/ttyUSB1", "usb:067b:2303:", "Prolific"};
  ASSERT_TRUE(numbers_.Match({a, b}));
  EXPECT_EQ(numbers_.ports().size(), 2U);
  ASSERT_TRUE(numbers_.Match({b}));
  EXPECT_FALSE(numbers_.Find(1)->present);
  EXPECT_TRUE(numbers_.Find(2)->present);
  ASSERT_TRUE(numbers_.Match({{"/dev/ttyUSB7", a.identity, ""}}));
  EXPECT_EQ(numbers_.ports().size(), 2U);
}

TEST_F(Numbers, SourcesOfTheUserComeAndGo) {
  ASSERT_TRUE(numbers_.Match({kGps}));
  EXPECT_EQ(*numbers_.Add(*ParseSource("TCP host:1")), 2);
  EXPECT_EQ(*numbers_.Add(*ParseSource("UDP 10110")), 3);
  EXPECT_EQ(*numbers_.Add(*ParseSource("tcp host:1")), 2);
  EXPECT_EQ(*numbers_.Add(*ParseSource("/dev/ttyUSB0")), 1);
  EXPECT_EQ(*numbers_.Add(*ParseSource("/dev/none")), 4);
  EXPECT_EQ(Texts(),
            (List{"1  ttyUSB0 (u-blox 7)", "2  TCP host:1", "3  UDP 10110", "4  /dev/none -"}));
  ASSERT_TRUE(numbers_.Match({kGps, {"/dev/none", "name:none", ""}}));
  EXPECT_EQ(numbers_.ports().size(), 4U);
  EXPECT_FALSE(numbers_.Remove(1));
  EXPECT_FALSE(numbers_.Remove(9));
  ASSERT_TRUE(numbers_.Remove(2));
  // The lowest free number is given next.
  EXPECT_EQ(*numbers_.Add(*ParseSource("UDP 10111")), 2);
  ASSERT_TRUE(numbers_.Match({}));
  EXPECT_TRUE(numbers_.Remove(1));
  std::string full = "Skerrow ports 1\n";
  for (int i = 1; i < kLastPortNumber; ++i) {
    full += std::to_string(i) + "\tudp\t" + std::to_string(20000 + i) + "\t\t\n";
  }
  ASSERT_TRUE(ReplaceFile(file_, full));
  EXPECT_EQ(*numbers_.Add(*ParseSource("UDP 8")), kLastPortNumber);
  EXPECT_FALSE(numbers_.Add(*ParseSource("UDP 9")));
}

TEST_F(Numbers, ADamagedFileIsKeptAsideAndNothingElseIsWritten) {
  const std::string good = "Skerrow ports 1\n2\tdevice\t/dev/ttyUSB0\tusb:1546:01a7:77\tu-blox 7\n";
  const struct {
    std::string text;
    bool damaged;
  } kRows[] = {
      {good, false},
      {good.substr(0, good.size() - 1), true},  // cut
      {good + "2\tudp\t10110\t\t\n", true},     // a number twice
      {good + "0\tudp\t10110\t\t\n", true},
      {good + "258\tudp\t10110\t\t\n", true},
      {good + "3\tudq\t10110\t\t\n", true},
      {good + "3\tudp\t\t\t\n", true},
      {good + "3\tudp\t1\t\n", true},
      {std::string("\0\xff\n", 3), true},
      {"", true},
  };
  std::size_t aside = 0;
  ASSERT_TRUE(MakeFolder(FolderOf(file_)));
  for (const auto& row : kRows) {
    ASSERT_TRUE(ReplaceFile(file_, row.text));
    PortNumbers numbers(file_);
    ASSERT_TRUE(numbers.Match({kGps}));
    EXPECT_EQ(numbers.ports()[0].number, row.damaged ? 1 : 2) << row.text;
    if (row.damaged) {
      ++aside;
      EXPECT_EQ(FileBytes(file_ + ".damaged" + std::to_string(aside)), row.text);
    }
  }
  // Nothing new: nothing written.
  ASSERT_TRUE(DeleteFile(file_));
  PortNumbers fresh(file_);
  ASSERT_TRUE(fresh.Match({}));
  EXPECT_FALSE(FileIsThere(file_));
  // A folder that cannot be written leaves the numbers of this run and refuses a new source.
  PortNumbers shut(folder_.Write("file", "") + "/PortNumbers.txt");
  EXPECT_FALSE(shut.Match({kGps}));
  EXPECT_EQ(shut.ports().size(), 1U);
  EXPECT_FALSE(shut.Add(*ParseSource("UDP 1")));
  EXPECT_EQ(shut.ports().size(), 1U);
}

}  // namespace
}  // namespace skerrow
