#include "tides/port_editor.h"

#include <bit>
#include <filesystem>
#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "tides/tidal_files.h"

namespace skerrow {
namespace {

using testing::FileBytes;
using testing::TempFolder;

Port NamedPort(const std::string& name) {
  Port port;
  port.name = name;
  port.latitude = 50.1234F;
  port.longitude = -1.5F;
  port.time_zone = "K";
  port.z0 = 2.5F;
  return port;
}

std::string Bytes(const Port& port) { return EncodeRecord(port, kPortFields); }

// A program folder with the ports "A", "B" and "C" in Area.hc, B damaged, and 100 bytes of a record
// that is cut short.
class PortEditorTest : public ::testing::Test {
 protected:
  PortEditorTest() {
    std::filesystem::create_directories(folder_.File("TS"));
    damaged_ = Bytes(NamedPort("B"));
    damaged_.replace(49, 4, "\xff\xff\xff\x7f");  // no number in Z0
    tail_ = std::string(100, 'x');
    before_ = Bytes(NamedPort("A")) + damaged_ + Bytes(NamedPort("C")) + tail_;
    path_ = folder_.Write("TS/Area.hc", before_);
  }
  PortEditor Open(const std::string& name = "Area.hc") {
    Result<PortEditor> editor = PortEditor::Open(folders_, name);
    EXPECT_TRUE(editor.ok()) << (editor ? "" : editor.error().Text());
    return editor ? editor.value() : PortEditor();
  }

  TempFolder folder_;
  Folders folders_{folder_.path(), "", ""};
  std::string path_, damaged_, tail_, before_;
};

TEST_F(PortEditorTest, EditsOneRecordAndKeepsTheBytesOfTheOthers) {
  const std::string a = Bytes(NamedPort("A"));
  const std::string c = Bytes(NamedPort("C"));
  const Port port = NamedPort("New");
  const std::string n = Bytes(port);
  const struct {
    const char* what;
    Status (*edit)(PortEditor&, const Port&);
    std::string after;
  } kCases[] = {
      {"accept", [](PortEditor& e, const Port& p) { return e.Accept(2, p); },
       a + damaged_ + n + tail_},
      {"add", [](PortEditor& e, const Port& p) { return e.Add(p); }, a + damaged_ + c + n + tail_},
      {"insert", [](PortEditor& e, const Port& p) { return e.Insert(0, p); },
       n + a + damaged_ + c + tail_},
      {"delete", [](PortEditor& e, const Port&) { return e.Delete(0); }, damaged_ + c + tail_},
      {"delete the damaged one", [](PortEditor& e, const Port&) { return e.Delete(1); },
       a + c + tail_},
  };
  for (const auto& test : kCases) {
    folder_.Write("TS/Area.hc", before_);
    PortEditor editor = Open();
    EXPECT_EQ(editor.Names(), (std::vector<std::string>{"A", "(damaged record)", "C"}));
    ASSERT_TRUE(test.edit(editor, port).ok()) << test.what;
    EXPECT_TRUE(FileBytes(path_) == test.after) << test.what;
    // What is listed is what stands in the file.
    EXPECT_EQ(editor.Names(), Open().Names()) << test.what;
  }
}

TEST_F(PortEditorTest, WritesNothingWhereItCannotOrMayNot) {
  const Port port = NamedPort("New");
  PortEditor editor = Open();
  EXPECT_FALSE(editor.Accept(3, port).ok());
  EXPECT_FALSE(editor.Delete(3).ok());
  Port broken = port;
  broken.lf6 = std::bit_cast<float>(0x7f800000);
  EXPECT_FALSE(editor.Add(broken).ok());
  EXPECT_TRUE(FileBytes(path_) == before_);

  testing::OnFullDisk(300, [&] { EXPECT_FALSE(editor.Add(port).ok()); });
  EXPECT_TRUE(FileBytes(path_) == before_);
  EXPECT_EQ(editor.ports().size(), 3U);

  // Somebody else has inserted a record: position 2 is another port now.
  const std::string other = Bytes(NamedPort("Z")) + before_;
  folder_.Write("TS/Area.hc", other);
  EXPECT_NE(editor.Delete(1).ok(), true);
  EXPECT_TRUE(FileBytes(path_) == other);
  std::filesystem::remove(path_);
  EXPECT_FALSE(editor.Accept(0, port).ok());
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(PortEditorTest, CopiesRecordsBehindTheLast) {
  const SeenFile source = Open().seen();
  const std::string a = Bytes(NamedPort("A"));
  const std::string c = Bytes(NamedPort("C"));
  const std::string target = folder_.File("TS/Other.hc");
  ASSERT_TRUE(CopyRecords(source, {2, 0}, target).ok());
  EXPECT_TRUE(FileBytes(target) == c + a);
  ASSERT_TRUE(CopyRecords(source, {0}, target).ok());
  EXPECT_TRUE(FileBytes(target) == c + a + a);
  folder_.Write("TS/Other.hc", c + tail_);
  ASSERT_TRUE(CopyRecords(source, {0}, target).ok());
  EXPECT_TRUE(FileBytes(target) == c + a + tail_);
  EXPECT_FALSE(CopyRecords(source, {0, 3}, target).ok());
  EXPECT_TRUE(FileBytes(target) == c + a + tail_);
  folder_.Write("TS/Area.hc", before_ + "y");
  EXPECT_FALSE(CopyRecords(source, {0}, target).ok());
}

TEST_F(PortEditorTest, ListsAndNamesTheFilesOfTheFolder) {
  folder_.Write("TS/SCRATCH.HC", "left by a crash");
  folder_.Write("TS/b.HC", "");
  folder_.Write("TS/c.l25", "");
  std::filesystem::create_directories(folder_.File("TS/folder.hc"));
  EXPECT_EQ(ListTidalFiles(folders_, ".hc"), (std::vector<std::string>{"Area.hc", "b.HC"}));
  EXPECT_EQ(ListTidalFiles({"/nonexistent", "", ""}, ".hc"), std::vector<std::string>());
  const auto name = [&](const char* typed) {
    const Result<std::string> named = NameTidalFile(folders_, typed, ".hc");
    return named ? *named : named.error().Text();
  };
  EXPECT_EQ(name(" Brest "), "Brest.hc");
  EXPECT_EQ(name("brest.HC"), "brest.hc");
  EXPECT_EQ(name("AREA"), "Area.hc");
  EXPECT_EQ(name("B"), "b.HC");
  EXPECT_EQ(name("  "), "No file name");
  EXPECT_EQ(name(".hc"), "No file name");
  for (const char* bad : {"../x", "a\\b", "C:x", ".hidden", "Scratch"}) {
    EXPECT_NE(name(bad).find("cannot be the name"), std::string::npos) << bad;
  }
}

PortEntry Entry() {
  PortEntry entry;
  entry.number = "12";
  entry.name = " Brest ";
  entry.latitude = "48.22.98N";
  entry.longitude = "004.29.70W";
  entry.time_zone = "-1";
  for (std::size_t i = 0; i < entry.numbers.size(); ++i) entry.numbers[i] = std::to_string(i + 1);
  for (std::size_t i = 0; i < 12; ++i) {
    entry.delta_z0[i] = "-0." + std::to_string(i + 10);
    entry.mhm2[i] = "+2." + std::to_string(i + 10);
  }
  return entry;
}

TEST(PortEntry, BecomesARecordFieldByField) {
  const Result<Port> built = BuildPort(Entry(), true, std::nullopt);
  ASSERT_TRUE(built.ok());
  const Port& port = *built;
  EXPECT_EQ(port.number, "12");
  EXPECT_EQ(port.name, "Brest");
  EXPECT_FLOAT_EQ(port.latitude, 48.383F);
  EXPECT_FLOAT_EQ(port.longitude, -4.495F);
  EXPECT_EQ(port.time_zone, "M");
  EXPECT_EQ(port.user_depth, 0.0F);
  const float numbers[] = {port.z0,   port.m2_g,  port.m2_hm, port.s2_g,  port.s2_hm,
                           port.k1_g, port.k1_hm, port.o1_g,  port.o1_hm, port.sf4,
                           port.lf4,  port.sf6,   port.lf6};
  for (std::size_t i = 0; i < std::size(numbers); ++i) {
    EXPECT_EQ(numbers[i], static_cast<float>(i + 1)) << i;
  }
  EXPECT_FLOAT_EQ(port.delta_z0[0], -0.10F);
  EXPECT_FLOAT_EQ(port.delta_z0[11], -0.21F);
  EXPECT_FLOAT_EQ(port.mhm2[0], 2.10F);
  EXPECT_FLOAT_EQ(port.mhm2[11], 2.21F);
}

TEST(PortEntry, IsCheckedInOrder) {
  const struct {
    void (*spoil)(PortEntry&);
    const char* words;
  } kCases[] = {
      {[](PortEntry& e) {
         e.latitude = "00.00.00N";
         e.name = "";
       },
       "Error - Latitude entry"},
      {[](PortEntry& e) { e.latitude = ""; }, "Error - Latitude entry"},
      {[](PortEntry& e) { e.latitude = "90.00.01N"; }, "Error - Latitude entry"},
      {[](PortEntry& e) {
         e.name = "  ";
         e.longitude = "";
       },
       "Error - No port selected"},
      {[](PortEntry& e) { e.longitude = "004.29.70"; }, "Error - Longitude entry"},
      {[](PortEntry& e) { e.longitude = "181.00.00E"; }, "Error - Longitude entry"},
      {[](PortEntry& e) {
         e.numbers[1] = "--3";
         e.numbers[2] = "x";
       },
       "The M2g is no number: --3"},
      {[](PortEntry& e) { e.numbers[0] = "1.2.3"; }, "The Z0 is no number: 1.2.3"},
      {[](PortEntry& e) { e.numbers[12] = "."; }, "The lf6 is no number: ."},
      {[](PortEntry& e) { e.numbers[0] = std::string(50, '9'); },
       "The Z0 is no number: 99999999999999999999999999999999999999999999999999"},
      {[](PortEntry& e) { e.mhm2[11] = "1-"; }, "The MHm2 of month 12 is no number: 1-"},
  };
  for (const auto& test : kCases) {
    PortEntry entry = Entry();
    test.spoil(entry);
    const Result<Port> built = BuildPort(entry, true, std::nullopt);
    EXPECT_EQ(built ? "built" : built.error().Text(), test.words);
  }
  PortEntry nothing;
  EXPECT_EQ(BuildPort(nothing, false, std::nullopt).error().Text(),
            "Select an existing area from the File -> Area Select Menu!!");
  nothing = Entry();
  nothing.numbers = {};
  nothing.delta_z0 = {};
  EXPECT_EQ(BuildPort(nothing, true, std::nullopt).value().s2_hm, 0.0F);
}

TEST(PortEntry, ZonesOutsideTheTableAreL) {
  const std::pair<const char*, const char*> kZones[] = {
      {"0", "L"},   {"", "L"},   {"1", "K"},   {"+2", "J"},  {"11", "A"},
      {"-11", "W"}, {"12", "L"}, {"-12", "L"}, {"5.5", "L"}, {"99999999999", "L"}};
  for (const auto& [text, letter] : kZones) {
    PortEntry entry = Entry();
    entry.time_zone = text;
    EXPECT_EQ(BuildPort(entry, true, std::nullopt).value().time_zone, letter) << text;
  }
}

// Every port of the sample area, shown and accepted again, is the same to the last bit; so is what
// a port holds beside one changed field.
TEST(PortEntry, ShownAndAcceptedIsTheSameRecord) {
  const std::string source = SKERROW_SOURCE_DIR;
  const Result<PortEditor> editor = PortEditor::Open({source + "/program", "", ""}, "UK.hc");
  ASSERT_TRUE(editor.ok());
  ASSERT_GT(editor->ports().size(), 100U);
  for (const std::optional<Port>& port : editor->ports()) {
    ASSERT_TRUE(port.has_value());
    PortEntry entry = EntryOf(*port);
    Result<Port> again = BuildPort(entry, true, port);
    ASSERT_TRUE(again.ok()) << port->name << again.error().Text();
    EXPECT_EQ(Bytes(*again), Bytes(*port)) << port->name;
    entry.latitude = "51.00.00S";
    again = BuildPort(entry, true, port);
    EXPECT_EQ(again->latitude, -51.0F);
    EXPECT_EQ(again->longitude, port->longitude);
  }
}

}  // namespace
}  // namespace skerrow
