#include "wind/grib.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "support/recording_messages.h"
#include "support/temp_folder.h"
#include "wind/forecast_file.h"
#include "wind/wind_store.h"

namespace skerrow {
namespace {

using testing::RecordingMessages;

std::string DataFile(const std::string& name) {
  return SKERROW_SOURCE_DIR "/tests/wind/data/" + name;
}

std::string Data(const std::string& name) { return testing::FileBytes(DataFile(name)); }

GribFile Decode(const std::string& content, RecordingMessages& messages) {
  NoProgress progress;
  return DecodeGrib(content, messages, progress);
}

// The sections of a message without a bitmap, in their order.
enum SectionName { kIndicator, kProduct, kGrid, kData };

// Changes octet `octet` (from 1) of a section of the message that begins at `begin`.
std::string With(std::string content, SectionName section, std::size_t octet, int value,
                 std::size_t begin = 0) {
  std::size_t at = begin;
  for (int i = 0; i < section; ++i) {
    const auto byte = [&](std::size_t n) { return static_cast<unsigned char>(content[at + n]); };
    at += i == 0 ? 8U : static_cast<std::size_t>(byte(0) << 16 | byte(1) << 8 | byte(2));
  }
  content[at + octet - 1] = static_cast<char>(value);
  return content;
}

// Decodes to the values of ecCodes, within a unit of the packing. The reference value, rounded to a
// whole number before the decimal scale is taken, moves a field by up to half of that scale.
TEST(Grib, DecodesToTheValuesOfEcCodes) {
  std::ifstream source(DataFile("expected.json"));
  const auto expected = nlohmann::json::parse(source);
  for (const char* name : {"hundredths", "bits24", "northward", "holes", "coarse"}) {
    RecordingMessages messages;
    const GribFile file = Decode(Data(std::string(name) + ".grb"), messages);
    EXPECT_TRUE(file.whole);
    ASSERT_EQ(file.records.size(), 4U) << name;
    for (std::size_t m = 0; m < 4; ++m) {
      const auto& want = expected[name][m];
      const GribRecord& record = file.records[m];
      ASSERT_EQ(record.values.size(), want["values"].size());
      const double reference = want["reference"];
      const bool hundredths = std::string(name) != "bits24" && std::string(name) != "coarse";
      const double moved = (std::nearbyint(reference) - reference) / (hundredths ? 100 : 1);
      for (std::size_t i = 0; i < record.values.size(); ++i) {
        if (want["values"][i].is_null()) {
          EXPECT_EQ(record.values[i], kGribMissing) << name << " " << i;
          continue;
        }
        EXPECT_NEAR(record.values[i], want["values"][i].get<double>() + moved, 2e-6) << name;
        if (hundredths) {
          EXPECT_NEAR(record.values[i], want["values"][i].get<double>(),
                      want["unit"].get<double>());
        }
      }
    }
  }
}

TEST(Grib, ReadsTimeGridAndLevel) {
  RecordingMessages messages;
  const GribFile file = Decode(Data("hundredths.grb"), messages);
  const GribRecord& first = file.records[0];
  EXPECT_EQ(first.parameter, kGribWindU);
  EXPECT_EQ(file.records[1].parameter, kGribWindV);
  EXPECT_EQ(first.year, 2026);
  EXPECT_EQ(first.month, 12);
  EXPECT_EQ(first.day, 5);
  EXPECT_EQ(first.base_minutes, 360.0F);
  EXPECT_EQ(first.valid_hour, 6.0F);
  EXPECT_EQ(file.records[2].forecast_minutes, 540.0);
  EXPECT_EQ(file.records[2].valid_hour, 15.0F);
  // 5 December 2026 is 9,835 days after 1 January 2000.
  EXPECT_EQ(first.Time(), 9835.25);
  EXPECT_EQ(first.level_type, 105);
  EXPECT_EQ(first.level, 10);
  const GribGrid& grid = first.grid;
  EXPECT_EQ(grid.ni, 7);
  EXPECT_EQ(grid.nj, 5);
  EXPECT_EQ(grid.la1, 51.0F);
  EXPECT_EQ(grid.lo1, -6.0F);
  EXPECT_EQ(grid.la2, 49.0F);
  EXPECT_EQ(grid.lo2, -3.0F);
  EXPECT_EQ(grid.di, 0.5F);
  EXPECT_EQ(grid.dj, 0.5F);
}

TEST(Grib, TimeRangesAndUnits) {
  const std::string good = Data("hundredths.grb");
  const struct {
    int unit, p1, p2, range;
    double minutes;
  } rows[] = {{0, 30, 0, 0, 30},
              {1, 6, 0, 0, 360},
              {2, 2, 0, 0, 2880},
              {1, 6, 9, 3, 540},
              {1, 6, 9, 4, 540},
              {1, 1, 2, 10, 258 * 60},
              {1, 6, 9, 5, kUnhandledTime},
              {3, 6, 9, 0, kUnhandledTime}};
  for (const auto& row : rows) {
    std::string content = With(With(good, kProduct, 18, row.unit), kProduct, 19, row.p1);
    content = With(With(content, kProduct, 20, row.p2), kProduct, 21, row.range);
    RecordingMessages messages;
    if (row.range == 5) messages.Expect("Unhandled Time range vlaue of 5", MessageIcon::kWarning);
    const GribFile file = Decode(content, messages);
    ASSERT_EQ(file.records.size(), 4U);
    EXPECT_EQ(file.records[0].forecast_minutes, row.minutes) << row.unit << " " << row.range;
    EXPECT_EQ(file.records[0].values.empty(), row.minutes == kUnhandledTime);
  }
}

TEST(Grib, RefusesWhatIsNotUnderstoodAndKeepsWhatCameBefore) {
  const std::string good = Data("hundredths.grb");
  const std::size_t second = good.find("GRIB", 4);
  const struct {
    SectionName section;
    std::size_t octet;
    int value;
    const char* message;
  } rows[] = {
      {kIndicator, 8, 3, "Grib file wrong edition number\nExiting routine"},
      {kProduct, 3, 0,
       "Exiting the GRIB Reading routine\nBad File - Product Definition Length = 0"},
      {kGrid, 3, 0, "Bad data - Grid Description Section Length = 0"},
      {kData, 3, 0, "Bad File - Binary Data Section = 0"},
      {kGrid, 6, 1, "Unpacking BDS data_rep ; Grid type 1 not understood"},
      {kGrid, 6, 10, "unpacking BDS case 10 exception - not yet implemented"},
      {kData, 4, 0x40,
       "The forecast can not be read on: a message is packed in a way that is not "
       "understood"},
      {kData, 11, 33, "The forecast can not be read on: a message has values of too many bits"},
      {kGrid, 8, 200,
       "The forecast can not be read on: a message holds fewer values than its grid "
       "has points"},
      {kGrid, 7, 0x7F,
       "The forecast can not be read on: a grid has more points than the file can "
       "hold"},
      {kProduct, 8, 0, "The forecast can not be read on: a message has no grid description"},
  };
  for (const auto& row : rows) {
    RecordingMessages messages;
    messages.Expect(row.message, MessageIcon::kError);
    const GribFile file = Decode(With(good, row.section, row.octet, row.value, second), messages);
    EXPECT_FALSE(file.whole) << row.message;
    EXPECT_EQ(file.records.size(), 1U) << row.message;
  }
}

// Cut at every byte: whole messages are kept, and one message says what is wrong.
TEST(Grib, CutAtEveryByte) {
  const std::string good = Data("holes.grb").substr(0, 330);
  for (std::size_t size = 1; size < good.size(); ++size) {
    class Counting final : public Messages {
     public:
      void Show(std::string_view, MessageIcon, std::string_view) override { ++shown; }
      bool Ask(std::string_view, std::string_view) override { return false; }
      int shown = 0;
    } messages;
    NoProgress progress;
    const GribFile file = DecodeGrib(good.substr(0, size), messages, progress);
    EXPECT_EQ(messages.shown, file.whole ? 0 : 1) << size;
    EXPECT_LE(file.records.size(), 2U);
  }
}

TEST(Grib, ConstantFieldsAndNegativeReferences) {
  // A width of 0: every point has the reference value. -130 in the IBM form is C2 82 00 00.
  std::string content = With(Data("hundredths.grb"), kData, 11, 0);
  for (const auto& [octet, value] :
       {std::pair{7, 0xC2}, std::pair{8, 0x82}, std::pair{9, 0}, std::pair{10, 0}}) {
    content = With(content, kData, static_cast<std::size_t>(octet), value);
  }
  RecordingMessages messages;
  const GribFile file = Decode(content, messages);
  ASSERT_EQ(file.records.size(), 4U);
  EXPECT_EQ(file.records[0].lowest, -1.3);
  EXPECT_EQ(file.records[0].highest, -1.3);
  EXPECT_EQ(file.records[0].values, std::vector<double>(35, -1.3));
  // 0.5 and 1.5 hundredths go to the even neighbour: 40 80 00 00 is 0.5.
  for (const auto& [mantissa, lowest] : {std::pair{0x80, 0.0}, std::pair{0xC0, 0.01}}) {
    content = With(With(content, kData, 7, 0x40), kData, 8, mantissa);
    EXPECT_EQ(Decode(content, messages).records[0].lowest, lowest);
  }
}

TEST(Grib, StopsWhenToldTo) {
  class StopAtOnce final : public Progress {
   public:
    bool Step(double percent) override { return percent < 20; }
  } stop;
  RecordingMessages messages;
  const GribFile file = DecodeGrib(Data("hundredths.grb"), messages, stop);
  EXPECT_FALSE(file.whole);
  EXPECT_EQ(file.records.size(), 1U);
}

// Reads edition 1 alone and expands nothing.
class PlainReader final : public ForecastReader {
 public:
  Result<std::vector<GribRecord>> ReadEdition2(std::string_view) override {
    return Error{"", "edition 2"};
  }
  Result<std::string> Expand(std::string content, std::size_t) override { return content; }
};

TEST(ForecastFile, ImportReplacesTheStoreOrKeepsIt) {
  testing::TempFolder user;
  const Folders folders{"/nonexistent", user.path(), user.path()};
  RecordingMessages messages;
  NoProgress progress;
  PlainReader reader;
  GribFile file = ReadForecastFile(DataFile("hundredths.grb"), reader, messages, progress);
  ASSERT_EQ(file.records.size(), 4U);
  messages.Expect("File Imported", MessageIcon::kInformation);
  ASSERT_TRUE(ImportForecast(folders, file.records, DayAndYear{60, 2028}, messages));
  std::vector<WindCell> cells = *ReadWindStore(folders);
  ASSERT_EQ(cells.size(), 71U);
  EXPECT_EQ(cells[1].time, 10286.25F);  // 6 h on 29 February 2028
  EXPECT_EQ(cells[36].time, 10286.625F);

  messages.Expect("There is no wind in this forecast. What was imported before is kept.",
                  MessageIcon::kWarning);
  file.records.resize(1);
  EXPECT_FALSE(ImportForecast(folders, file.records, std::nullopt, messages));
  EXPECT_EQ(ReadWindStore(folders)->size(), 71U);

  messages.Expect("Select a file", MessageIcon::kWarning);
  EXPECT_TRUE(ReadForecastFile("a.gr", reader, messages, progress).records.empty());
  messages.Expect(DataFile("edition2.grb2") + ": edition 2", MessageIcon::kError);
  EXPECT_TRUE(
      ReadForecastFile(DataFile("edition2.grb2"), reader, messages, progress).records.empty());
  EXPECT_TRUE(IsForecastName("GFS_20261205.GRB2"));
  EXPECT_TRUE(IsForecastName("wind.grb.bz2"));
  EXPECT_FALSE(IsForecastName("grb"));
}

}  // namespace
}  // namespace skerrow
