#include "platform/forecasts.h"

#include <bzlib.h>
#include <fstream>
#include <gtest/gtest.h>
#include <zlib.h>

#include <nlohmann/json.hpp>

#include "core/files.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

std::string Data(const std::string& name) {
  return testing::FileBytes(SKERROW_SOURCE_DIR "/tests/wind/data/" + name);
}

std::string Gzipped(const std::string& content) {
  z_stream stream{};
  deflateInit2(&stream, 9, Z_DEFLATED, 16 + MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
  std::string out(content.size() + 100, '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.data()));
  stream.avail_in = static_cast<uInt>(content.size());
  stream.next_out = reinterpret_cast<Bytef*>(out.data());
  stream.avail_out = static_cast<uInt>(out.size());
  deflate(&stream, Z_FINISH);
  out.resize(out.size() - stream.avail_out);
  deflateEnd(&stream);
  return out;
}

std::string Bzipped(std::string content) {
  std::string out(content.size() + 1000, '\0');
  auto size = static_cast<unsigned>(out.size());
  BZ2_bzBuffToBuffCompress(out.data(), &size, content.data(), static_cast<unsigned>(content.size()),
                           9, 0, 0);
  out.resize(size);
  return out;
}

TEST(Forecasts, Edition2AsEcCodesReadsIt) {
  std::ifstream source(SKERROW_SOURCE_DIR "/tests/wind/data/expected.json");
  const auto expected = nlohmann::json::parse(source)["edition2"];
  const Result<std::vector<GribRecord>> records =
      MakeForecastReader()->ReadEdition2(Data("edition2.grb2"));
  ASSERT_TRUE(records) << records.error().Text();
  ASSERT_EQ(records->size(), 4U);
  for (std::size_t m = 0; m < 4; ++m) {
    const GribRecord& record = (*records)[m];
    EXPECT_EQ(record.parameter, m % 2 == 0 ? kGribWindU : kGribWindV);
    EXPECT_EQ(record.Time(), m < 2 ? 9835.25 : 9835.625);
    EXPECT_EQ(record.level_type, 105);
    EXPECT_EQ(record.level, 10);
    EXPECT_EQ(record.grid, (GribGrid{51.0F, 354.0F, 49.0F, 357.0F, 0.5F, 0.5F, 7, 5, true}))
        << record.grid.lo1;
    ASSERT_EQ(record.values.size(), 35U);
    for (std::size_t i = 0; i < 35; ++i) {
      const auto& want = expected[m]["values"][i];
      if (want.is_null()) {
        EXPECT_EQ(record.values[i], kGribMissing);
      } else {
        EXPECT_NEAR(record.values[i], want.get<double>(), 1e-6);
      }
    }
  }
}

TEST(Forecasts, DamagedEdition2IsRefused) {
  const std::string good = Data("edition2.grb2");
  const std::unique_ptr<ForecastReader> reader = MakeForecastReader();
  for (const std::size_t size : {1U, 16U, 100U, 226U, 300U}) {
    EXPECT_FALSE(reader->ReadEdition2(good.substr(0, size))) << size;
  }
  EXPECT_FALSE(reader->ReadEdition2(Data("coarse.grb")));
}

TEST(Forecasts, ExpandsWithinABound) {
  const std::unique_ptr<ForecastReader> reader = MakeForecastReader();
  const std::string plain = Data("hundredths.grb");
  for (const std::string& packed : {plain, Gzipped(plain), Bzipped(plain)}) {
    const Result<std::string> out = reader->Expand(packed, plain.size());
    ASSERT_TRUE(out) << out.error().Text();
    EXPECT_EQ(*out, plain);
    if (packed == plain) continue;
    EXPECT_FALSE(reader->Expand(packed.substr(0, packed.size() / 2), 10000));
    EXPECT_FALSE(reader->Expand(packed, plain.size() - 1));
    // Two files one behind the other unpack to both.
    EXPECT_EQ(*reader->Expand(packed + packed, 10000), plain + plain);
    std::string broken = packed;
    broken[packed.size() / 2] = static_cast<char>(broken[packed.size() / 2] ^ 0x55);
    const Result<std::string> damaged = reader->Expand(broken, 10000);
    EXPECT_TRUE(!damaged || *damaged != plain);
  }
  // A bomb: a hundred megabytes of nothing in a few bytes.
  EXPECT_FALSE(reader->Expand(Gzipped(std::string(100'000'000, '\0')), 1'000'000));
}

}  // namespace
}  // namespace skerrow
