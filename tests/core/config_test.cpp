#include "core/config.h"

#include <algorithm>
#include <bit>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

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
  std::size_t offset;
  std::size_t size;
  char kind;
  const char* name;
  const char* value;
};
constexpr GoldenRow kGolden[] = {
    {0, 256, 't', "SeaArea", "Sample Chart"},
    {256, 256, 't', "ChartPath", "/opt/skerrow/Charts/9999-1"},
    {512, 256, 't', "TidalArea", "Sample Chart"},
    {768, 256, 't', "WaypointFile", "Sample.way"},
    {1024, 128, 't', "GpsTypeText", "1"},
    {1152, 512, 't', "TextFolder", "/opt/skerrow"},
    {1664, 128, 't', "Reserved1", ""},
    {1792, 128, 't', "Reserved2", ""},
    {1920, 128, 't', "Reserved3", ""},
    {2048, 256, 't', "TidalPortFile", "UK.hc"},
    {2304, 128, 't', "TidePortName", "Dover"},
    {2432, 2, 's', "TidePortNumber", "76"},
    {2434, 2, 's', "ShowChartBoundaries", "0"},
    {2436, 2, 's', "ShowTideHeights", "-1"},
    {2438, 4, 'f', "CpaAlarmRange", "0.25"},
    {2442, 4, 'f', "VhfRange", "10.0"},
    {2446, 4, 'f', "RadarRange", "12.0"},
    {2450, 4, 'f', "HorizonRange", "8.0"},
    {2454, 4, 'f', "SearchCircle", "1.0"},
    {2458, 4, 'f', "Draught", "0.5"},
    {2462, 4, 'f', "UnderKeelClearance", "0.5"},
    {2466, 4, 'f', "SlackThreshold", "3.0"},
    {2470, 2, 's', "RangeRingsOn", "-1"},
    {2472, 2, 's', "Reserved4", "0"},
    {2474, 2, 's', "AisAsBoat", "-1"},
    {2476, 2, 's', "BoatLineWidth", "2"},
    {2478, 2, 's', "BoatFutureTidePlot", "0"},
    {2480, 4, 'f', "AheadInterval", "10.0"},
    {2484, 2, 's', "AisLineWidth", "2"},
    {2486, 2, 's', "ToolbarVisible", "-1"},
    {2488, 2, 's', "NmeaLogOn", "-1"},
    {2490, 2, 's', "GpsThroughAis", "0"},
    {2492, 2, 's', "ShowAisDetails", "-1"},
    {2494, 2, 's', "ShowAisHistory", "-1"},
    {2496, 2, 's', "ShowAisPredicted", "0"},
    {2498, 2, 's', "ShowAisHeading", "0"},
    {2500, 16, 'a', "AisLabelItems", "1,4,5,0,0,0,0,0"},
    {2516, 2, 's', "Reserved5", "0"},
    {2518, 4, 'f', "ShowStreams", "1.0"},
    {2522, 4, 'f', "ShowWaypoints", "1.0"},
    {2526, 4, 'f', "Reserved6", "0"},
    {2530, 4, 'f', "LineWidth", "2.0"},
    {2534, 2, 's', "AisPort", "1"},
    {2536, 2, 's', "Reserved7", "7"},
    {2538, 2, 's', "GpsPort", "0"},
    {2540, 2, 's', "GpsBaudCode", "4"},
    {2542, 4, 'f', "CalcInterval", "5.0"},
    {2546, 4, 'f', "AisMinSpeed", "0"},
    {2550, 4, 'f', "VesselSpeed", "5.0"},
    {2554, 4, 'f', "ErrorCircle", "1.0"},
    {2558, 4, 'f', "Variation", "-4.0"},
    {2562, 4, 'f', "TrackComments", "1.0"},
    {2566, 4, 'f', "Reserved8", "1.0"},
    {2570, 2, 's', "LogInterval", "30"},
    {2572, 4, 'f', "TrackLayerOn", "1.0"},
    {2576, 4, 'f', "Reserved9", "1.0"},
    {2580, 4, 'f', "Reserved10", "0"},
    {2584, 2, 's', "SummerTime", "0"},
    {2586, 4, 'f', "ClosestSailingAngle", "40.0"},
    {2590, 4, 'f', "LeewayAngle", "5.0"},
    {2594, 2, 's', "Reserved11", "0"},
    {2596, 4, 'f', "HeadingVectorLength", "5.0"},
    {2600, 2, 's', "HideStreamId", "0"},
    {2602, 2, 's', "Reserved12", "2"},
    {2604, 2, 's', "UseLeeway", "0"},
    {2606, 2, 's', "BarbWeight", "2"},
    {2608, 128, 't', "ChartFileName", "9999-1.cht"},
    {2736, 128, 't', "ChartFolder", "/opt/skerrow/Charts"},
    {2864, 4, 'f', "ChartScaleChoice", "5000.0"},
    {2868, 2, 's', "ShowWindOverRoute", "0"},
    {2870, 2, 's', "ShowVectors", "-1"},
    {2872, 2, 's', "Reserved13", "0"},
    {2874, 2, 's', "SetLegOption", "0"},
    {2876, 4, 'l', "Reserved14", "6534279"},
    {2880, 4, 'l', "Reserved15", "143232"},
    {2884, 4, 'l', "Reserved16", "4"},
    {2888, 2, 's', "Reserved17", "0"},
    {2890, 2, 's', "Reserved18", "0"},
    {2892, 2, 's', "GpsCentre", "0"},
    {2894, 2, 's', "UseTides", "-1"},
    {2896, 4, 'l', "TrackColour", "255"},
    {2900, 4, 'l', "ClassAColour", "16711680"},
    {2904, 4, 'l', "ClassBColour", "8421376"},
    {2908, 4, 'l', "CogColour", "5855488"},
    {2912, 4, 'l', "BoatColour", "255"},
    {2916, 4, 'l', "WindColour", "255"},
    {2920, 4, 'f', "BarbLength", "20.0"},
    {2924, 2, 's', "BarbSpacing", "6"},
    {2926, 2, 's', "BarbDisplayText", "0"},
    {2928, 2, 's', "UseManualWind", "-1"},
    {2930, 2, 's', "ShowWindGrid", "0"},
    {2932, 2, 's', "TideDisplayOption", "2"},
    {2934, 2, 's', "Reserved19", "1"},
    {2936, 2, 's', "StreamLength", "2"},
    {2938, 2, 's', "StreamFilled", "1"},
    {2940, 2, 's', "StreamLineWidth", "2"},
    {2942, 4, 'l', "StreamColour", "16711935"},
    {2946, 2, 's', "StreamAsShape", "-1"},
    {2948, 4, 'l', "TextSize", "12"},
    {2952, 4, 'l', "FontColour", "0"},
};

void PutNumber(std::string& bytes, std::size_t at, std::size_t size, std::uint32_t value) {
  for (std::size_t i = 0; i < size; ++i) bytes[at + i] = static_cast<char>(value >> (8 * i));
}

std::string GoldenFile() {
  std::string bytes(2956, '\xEE');
  for (const GoldenRow& row : kGolden) {
    const std::string value = row.value;
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
      value = std::string(row.value) == "0" ? "true" : "false";
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

// Every byte but those of a text behind its first NUL, which are blanked; reserved texts keep all.
TEST_F(ConfigTest, AnyBytesGoRound) {
  std::string bytes(2956, '\0');
  std::uint32_t state = 12345;
  for (char& c : bytes) {
    state = state * 1664525U + 1013904223U;
    c = static_cast<char>(state >> 24);
  }
  bytes[300] = '\0';   // in ChartPath
  bytes[1700] = '\0';  // in Reserved1
  std::string expected = bytes;
  for (const GoldenRow& row : kGolden) {
    if (row.kind != 't' || std::string(row.name).starts_with("Reserved")) continue;
    const std::size_t end = row.offset + row.size;
    const std::size_t nul = std::min(bytes.find('\0', row.offset), end);
    expected.replace(nul, end - nul, end - nul, ' ');
  }
  ASSERT_NE(expected, bytes);
  folder_.Write("SkerrowHelm/HelmConfigv60.cfg", bytes);
  AppConfig config;
  ASSERT_TRUE(ReadConfig(folders_, config));
  ASSERT_TRUE(SaveConfig(folders_, config));
  EXPECT_EQ(FileBytes(folders_.ConfigFile()), expected);
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

TEST_F(ConfigTest, UnwritableSettingsAreTold) {
  const Folders nowhere{"/opt/skerrow", folder_.path(), folder_.File("no/such")};
  messages_.Expect("Unable to create a configuration file.");
  EXPECT_FALSE(WriteDefaultConfig(nowhere, messages_));
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
