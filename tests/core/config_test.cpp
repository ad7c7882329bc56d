#include "core/config.h"

#include <algorithm>
#include <bit>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "support/recording_messages.h"
#include "support/temp_folder.h"
#include "wind/wind_config.h"

namespace skerrow {
namespace {

using testing::FileBytes;
using testing::RecordingMessages;
using testing::TempFolder;

// The file by place, width, kind and default, written down apart from the program's own table:
// text, short, long, float, array of shorts.
struct GoldenRow {
  std::size_t offset = 0, size = 0;
  char kind = 0;
  std::string name, value;
};
std::vector<GoldenRow> ReadGolden() {
  std::ifstream file(SKERROW_SOURCE_DIR "/tests/fixtures/core/settings.tsv");
  std::vector<GoldenRow> rows;
  GoldenRow row;
  while (file >> row.offset >> row.size >> row.kind >> row.name && file.get() == '\t' &&
         std::getline(file, row.value)) {
    rows.push_back(row);
  }
  return rows;
}
const std::vector<GoldenRow> kGolden = ReadGolden();

void PutNumber(std::string& bytes, std::size_t at, std::size_t size, std::uint32_t value) {
  for (std::size_t i = 0; i < size; ++i) bytes[at + i] = static_cast<char>(value >> (8 * i));
}

std::string GoldenFile() {
  std::string bytes(2956, '\xEE');
  for (const GoldenRow& row : kGolden) {
    const std::string& value = row.value;
    switch (row.kind) {
      case 't':
        bytes.replace(row.offset, row.size, value + std::string(row.size - value.size(), ' '));
        break;
      case 'f':
        PutNumber(bytes, row.offset, 4, std::bit_cast<std::uint32_t>(std::stof(value)));
        break;
      case 'a': {
        std::istringstream list(value);
        std::string item;
        for (std::size_t i = 0; std::getline(list, item, ','); ++i) {
          PutNumber(bytes, row.offset + 2 * i, 2, static_cast<std::uint32_t>(std::stoi(item)));
        }
        break;
      }
      default:
        PutNumber(bytes, row.offset, row.size, static_cast<std::uint32_t>(std::stol(value)));
    }
  }
  return bytes;
}

class ConfigTest : public ::testing::Test {
 protected:
  ConfigTest() : folders_{"/opt/skerrow", folder_.path(), folder_.path()} {
    MakeUserFolders(folders_);
  }
  TempFolder folder_;
  Folders folders_;
  RecordingMessages messages_;
};

TEST_F(ConfigTest, DefaultsAreTheGoldenFile) {
  ASSERT_TRUE(WriteDefaultConfig(folders_, messages_));
  const std::string written = FileBytes(folders_.ConfigFile());
  const std::string golden = GoldenFile();
  ASSERT_EQ(written.size(), 2956U);
  ASSERT_EQ(kGolden.size(), kAppConfigFields.size());
  for (const GoldenRow& row : kGolden) {
    EXPECT_EQ(written.substr(row.offset, row.size), golden.substr(row.offset, row.size))
        << row.name;
  }
}

TEST_F(ConfigTest, EachFieldAloneChangesOnlyItsOwnBytes) {
  const AppConfig defaults = DefaultConfig("/opt/skerrow");
  const std::string before = EncodeRecord(defaults, kAppConfigFields);
  for (const GoldenRow& row : kGolden) {
    AppConfig config = defaults;
    std::string value = row.kind == 't' ? "Zz" : row.kind == 'a' ? "8,7,6,5,4,3,2,1" : "77";
    if (!SetConfigField(config, row.name, value)) {  // a Boolean
      value = row.value == "0" ? "true" : "false";
      ASSERT_TRUE(SetConfigField(config, row.name, value)) << row.name;
    }
    const std::string after = EncodeRecord(config, kAppConfigFields);
    ASSERT_EQ(after.size(), before.size());
    EXPECT_EQ(after.substr(0, row.offset), before.substr(0, row.offset)) << row.name;
    EXPECT_EQ(after.substr(row.offset + row.size), before.substr(row.offset + row.size))
        << row.name;
    EXPECT_NE(after.substr(row.offset, row.size), before.substr(row.offset, row.size)) << row.name;
    AppConfig read;
    DecodeRecord(after, kAppConfigFields, read);
    EXPECT_EQ(EncodeRecord(read, kAppConfigFields), after) << row.name;
  }
}

TEST_F(ConfigTest, ShortFilesKeepTheRestAndLongOnesAreCut) {
  const std::string golden = GoldenFile();
  // Cut in the middle of VesselSpeed (2550, 4 bytes): what was held fills the rest of it.
  AppConfig config = DefaultConfig("/opt/skerrow");
  config.vessel_speed = 7.5F;
  config.text_size = 30;
  std::string stored = golden;
  stored[2432] = 5;
  folder_.Write("SkerrowHelm/HelmConfigv60.cfg", stored.substr(0, 2550));
  ASSERT_TRUE(ReadConfig(folders_, config));
  EXPECT_EQ(config.tide_port_number, 5);
  EXPECT_EQ(config.vessel_speed, 7.5F);
  EXPECT_EQ(config.text_size, 30);
  folder_.Write("SkerrowHelm/HelmConfigv60.cfg", "");
  ASSERT_TRUE(ReadConfig(folders_, config));
  EXPECT_EQ(config.tide_port_number, 5);
  folder_.Write("SkerrowHelm/HelmConfigv60.cfg", golden + "more");
  ASSERT_TRUE(ReadConfig(folders_, config));
  EXPECT_EQ(EncodeRecord(config, kAppConfigFields), golden);
  std::filesystem::remove(folders_.ConfigFile());
  config.text_size = 31;
  EXPECT_FALSE(ReadConfig(folders_, config));
  EXPECT_EQ(config.text_size, 31);
}

TEST_F(ConfigTest, ToggleKeepsWhatAnotherInstanceStored) {
  ASSERT_TRUE(WriteDefaultConfig(folders_, messages_));
  AppConfig mine = DefaultConfig("/opt/skerrow");
  AppConfig other = mine;
  other.sea_area = "Solent";
  ASSERT_TRUE(SaveConfig(folders_, other));
  ASSERT_TRUE(ReloadThenSave(folders_, mine, [](AppConfig& c) { c.toolbar_visible = kFalse; }));
  EXPECT_EQ(mine.sea_area, "Solent");
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(folders_, stored));
  EXPECT_EQ(stored.sea_area, "Solent");
  EXPECT_EQ(stored.toolbar_visible, kFalse);
}

TEST_F(ConfigTest, DefaultsCostNoSettings) {
  const std::string bak = folder_.File("SkerrowHelm/HelmConfig.bak");
  const std::string older = folder_.File("SkerrowHelm/HelmConfig-1.bak");
  const auto store = [&](const std::string& area) {
    AppConfig config = DefaultConfig("/opt/skerrow");
    config.sea_area = area;
    EXPECT_TRUE(SaveConfig(folders_, config));
    return FileBytes(folders_.ConfigFile());
  };
  const auto restore = [&] {
    const Result<std::string> copy = RestoreDefaultConfig(folders_);
    EXPECT_TRUE(copy) << (copy ? "" : copy.error().Text());
    EXPECT_EQ(FileBytes(folders_.ConfigFile()), GoldenFile());
    return copy ? *copy : "";
  };
  EXPECT_EQ(restore(), "");  // there were none
  const std::string first = store("First");
  EXPECT_EQ(restore(), bak);
  EXPECT_EQ(FileBytes(bak), first);
  EXPECT_EQ(restore(), "");  // the defaults again: the copy stays
  EXPECT_EQ(FileBytes(bak), first);
  store("First");
  EXPECT_EQ(restore(), bak);
  EXPECT_FALSE(FileIsThere(older));
  const std::string second = store("Second");
  EXPECT_EQ(restore(), bak);
  EXPECT_EQ(FileBytes(bak), second);
  EXPECT_EQ(FileBytes(older), first);
  store("Third");
  EXPECT_EQ(restore(), bak);
  EXPECT_EQ(FileBytes(older), first);
  EXPECT_EQ(FileBytes(folder_.File("SkerrowHelm/HelmConfig-2.bak")), second);

  // No copy, no reset.
  const std::string kept = store("Kept");
  std::filesystem::permissions(folders_.SettingsData(), std::filesystem::perms(0555));
  testing::AsPlainUser([&] {
    const Result<std::string> refused = RestoreDefaultConfig(folders_);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().reason, "Permission denied");
  });
  EXPECT_EQ(FileBytes(folders_.ConfigFile()), kept);
}

TEST_F(ConfigTest, SetFieldRefusesWhatDoesNotFit) {
  const struct {
    const char* name;
    const char* text;
  } rows[] = {{"NoSuchField", "1"},     {"TidePortNumber", "40000"}, {"TidePortNumber", "1.5"},
              {"VesselSpeed", "fast"},  {"VesselSpeed", "1e99"},     {"VesselSpeed", "5 kn"},
              {"SummerTime", "maybe"},  {"BoatColour", "1,2"},       {"BoatColour", "1,2,256"},
              {"AisLabelItems", "1,2"}, {"TidePortNumber", ""}};
  for (const auto& row : rows) {
    AppConfig config;
    EXPECT_FALSE(SetConfigField(config, row.name, row.text)) << row.name << "=" << row.text;
    EXPECT_EQ(EncodeRecord(config, kAppConfigFields), EncodeRecord(AppConfig{}, kAppConfigFields));
  }
  AppConfig config;
  EXPECT_FALSE(SetConfigField(config, "GpsTypeText", std::string(129, 'x')));
  EXPECT_TRUE(SetConfigField(config, "GpsTypeText", std::string(128, 'x')));
  EXPECT_TRUE(SetConfigField(config, "BoatColour", "1,2,3"));
  EXPECT_EQ(config.boat_colour, 0x030201);
}

TEST_F(ConfigTest, WindSettings) {
  const std::string defaults = std::string(
      "\0\0\0\0"
      "5.0 "
      "225"
      "\0\0\0\0"
      "5.0 "
      "290"
      "\0\0",
      24);
  EXPECT_EQ(LoadWindConfig(folders_).Default().speed_kn, 5.0F);
  EXPECT_EQ(FileBytes(folders_.WindConfigFile()), defaults);
  std::string changed = defaults;
  changed.replace(15, 7, "12.5045");
  folder_.Write("SkerrowHelm/WindConfig.cfg", changed);
  EXPECT_EQ(LoadWindConfig(folders_).Default().speed_kn, 12.5F);
  EXPECT_EQ(LoadWindConfig(folders_).Default().from_deg, 45.0F);
  // Short: the direction is that of the defaults.
  folder_.Write("SkerrowHelm/WindConfig.cfg", changed.substr(0, 19));
  EXPECT_EQ(LoadWindConfig(folders_).Default().speed_kn, 12.5F);
  EXPECT_EQ(LoadWindConfig(folders_).Default().from_deg, 290.0F);
}

}  // namespace
}  // namespace skerrow
