#include "platform/forecasts.h"

#include <algorithm>
#include <bzlib.h>
#include <cmath>
#include <eccodes.h>
#include <limits>
#include <zlib.h>

namespace skerrow {
namespace {

constexpr std::size_t kBlock = std::size_t{256} * 1024;

Error TooLarge(std::size_t max_size) {
  return {"", "unpacked it has more than " + std::to_string(max_size / 1024 / 1024) + " megabytes"};
}

// Takes the output of an unpacker block by block. `next` fills a block and gives the number of
// bytes, or below 0 for damaged input; 0 is the end.
template <typename Next>
Result<std::string> TakeAll(std::size_t max_size, Next next) {
  std::string out;
  std::string block(kBlock, '\0');
  for (;;) {
    const int got = next(block);
    if (got < 0) return Error{"", "the compressed file is damaged or cut short"};
    if (got == 0) return out;
    out.append(block, 0, static_cast<std::size_t>(got));
    if (out.size() > max_size) return TooLarge(max_size);
  }
}

Result<std::string> ExpandGzip(std::string& content, std::size_t max_size) {
  constexpr int kGzipOnly = 16 + MAX_WBITS;
  z_stream stream{};
  if (inflateInit2(&stream, kGzipOnly) != Z_OK) return Error{"", "there is not enough memory"};
  stream.next_in = reinterpret_cast<Bytef*>(content.data());
  stream.avail_in = static_cast<uInt>(content.size());
  bool ended = false;
  Result<std::string> out = TakeAll(max_size, [&](std::string& block) {
    if (ended && stream.avail_in == 0) return 0;
    if (ended) {  // one member behind the other
      if (inflateReset(&stream) != Z_OK) return -1;
      ended = false;
    }
    stream.next_out = reinterpret_cast<Bytef*>(block.data());
    stream.avail_out = static_cast<uInt>(block.size());
    int code = Z_OK;
    while (stream.avail_out > 0 && code == Z_OK) {
      if (stream.avail_in == 0) return -1;
      code = inflate(&stream, Z_NO_FLUSH);
    }
    if (code != Z_OK && code != Z_STREAM_END) return -1;
    ended = code == Z_STREAM_END;
    return static_cast<int>(block.size() - stream.avail_out);
  });
  inflateEnd(&stream);
  return out;
}

Result<std::string> ExpandBzip2(std::string& content, std::size_t max_size) {
  bz_stream stream{};
  if (BZ2_bzDecompressInit(&stream, 0, 0) != BZ_OK) {
    return Error{"", "there is not enough memory"};
  }
  stream.next_in = content.data();
  stream.avail_in = static_cast<unsigned>(content.size());
  bool ended = false;
  Result<std::string> out = TakeAll(max_size, [&](std::string& block) {
    if (ended && stream.avail_in == 0) return 0;
    if (ended) {
      bz_stream next{};
      next.next_in = stream.next_in;
      next.avail_in = stream.avail_in;
      BZ2_bzDecompressEnd(&stream);
      stream = next;
      if (BZ2_bzDecompressInit(&stream, 0, 0) != BZ_OK) return -1;
      ended = false;
    }
    stream.next_out = block.data();
    stream.avail_out = static_cast<unsigned>(block.size());
    int code = BZ_OK;
    while (stream.avail_out > 0 && code == BZ_OK) {
      if (stream.avail_in == 0) return -1;
      code = BZ2_bzDecompress(&stream);
    }
    if (code != BZ_OK && code != BZ_STREAM_END) return -1;
    ended = code == BZ_STREAM_END;
    return static_cast<int>(block.size() - stream.avail_out);
  });
  BZ2_bzDecompressEnd(&stream);
  return out;
}

struct HandleDeleter {
  void operator()(codes_handle* handle) const { codes_handle_delete(handle); }
};
using Handle = std::unique_ptr<codes_handle, HandleDeleter>;

// The keys of a message; a missing one makes the message useless, and is remembered.
class Keys {
 public:
  explicit Keys(codes_handle* handle) : handle_(handle) {}

  long Whole(const char* key) {
    long value = 0;
    if (codes_get_long(handle_, key, &value) != 0) sound_ = false;
    return value;
  }
  double Real(const char* key) {
    double value = 0;
    if (codes_get_double(handle_, key, &value) != 0) sound_ = false;
    return value;
  }
  std::string Text(const char* key) {
    char text[64];
    std::size_t size = sizeof(text);
    if (codes_get_string(handle_, key, text, &size) != 0) sound_ = false;
    return sound_ ? text : std::string();
  }
  bool sound() const { return sound_; }

 private:
  codes_handle* handle_;
  bool sound_ = true;
};

std::int16_t Small(long value) {
  return value < 0 || value > INT16_MAX ? std::int16_t{-1} : static_cast<std::int16_t>(value);
}

// The parameters of edition 1 for those of edition 2 that the program knows.
std::int16_t ParameterOf(Keys& keys) {
  constexpr long kMomentum = 2;
  constexpr long kU = 2;
  constexpr long kV = 3;
  if (keys.Whole("discipline") != 0 || keys.Whole("parameterCategory") != kMomentum) return 0;
  const long number = keys.Whole("parameterNumber");
  return number == kU ? kGribWindU : number == kV ? kGribWindV : std::int16_t{0};
}

void ReadLevel(Keys& keys, GribRecord& record) {
  constexpr std::int16_t kHeightAboveGround = 105;
  constexpr std::int16_t kSurface = 1;
  const std::string type = keys.Text("typeOfLevel");
  if (type == "heightAboveGround") record.level_type = kHeightAboveGround;
  if (type == "surface") record.level_type = kSurface;
  record.level = Small(keys.Whole("level"));
}

void ReadGrid(Keys& keys, GribGrid& grid) {
  const std::string type = keys.Text("gridType");
  grid.of_degrees = type == "regular_ll";
  grid.ni = Small(keys.Whole("Ni"));
  grid.nj = Small(keys.Whole("Nj"));
  if (!grid.of_degrees) return;
  const auto degrees = [&](const char* key) { return static_cast<float>(keys.Real(key)); };
  grid.la1 = degrees("latitudeOfFirstGridPointInDegrees");
  grid.lo1 = degrees("longitudeOfFirstGridPointInDegrees");
  grid.la2 = degrees("latitudeOfLastGridPointInDegrees");
  grid.lo2 = degrees("longitudeOfLastGridPointInDegrees");
  grid.di = degrees("iDirectionIncrementInDegrees");
  grid.dj = degrees("jDirectionIncrementInDegrees");
}

void ReadTime(codes_handle* handle, Keys& keys, GribRecord& record) {
  const long date = keys.Whole("dataDate");
  record.year = Small(date / 10000);
  record.month = Small(date / 100 % 100);
  record.day = Small(date % 100);
  record.base_minutes = static_cast<float>(keys.Whole("hour") * 60 + keys.Whole("minute"));
  std::size_t size = 1;
  codes_set_string(handle, "stepUnits", "m", &size);
  record.forecast_minutes = static_cast<double>(keys.Whole("endStep"));
  record.valid_hour = static_cast<float>((record.base_minutes + record.forecast_minutes) / 60.0);
}

// Puts values that run down the columns in the order of the rows.
std::vector<double> ByRows(const std::vector<double>& values, const GribGrid& grid) {
  std::vector<double> rows(values.size());
  const auto ni = static_cast<std::size_t>(grid.ni);
  const auto nj = static_cast<std::size_t>(grid.nj);
  for (std::size_t i = 0; i < ni; ++i) {
    for (std::size_t j = 0; j < nj; ++j) rows[j * ni + i] = values[i * nj + j];
  }
  return rows;
}

Status ReadValues(codes_handle* handle, Keys& keys, std::size_t most, GribRecord& record) {
  if (record.grid.Points() > most) {
    return Error{"", "a grid has more points than the file can hold"};
  }
  if (keys.Whole("alternativeRowScanning") != 0) {
    return Error{"", "a grid runs to and fro, which is not understood"};
  }
  codes_set_double(handle, "missingValue", kGribMissing);
  std::size_t count = 0;
  if (codes_get_size(handle, "values", &count) != 0 || count != record.grid.Points()) {
    return Error{"", "a message holds another number of values than its grid has points"};
  }
  std::vector<double> values(count);
  if (codes_get_double_array(handle, "values", values.data(), &count) != 0) {
    return Error{"", "the values of a message can not be unpacked"};
  }
  if (keys.Whole("jPointsAreConsecutive") != 0) values = ByRows(values, record.grid);
  record.lowest = std::numeric_limits<double>::infinity();
  record.highest = -record.lowest;
  for (const double value : values) {
    if (!std::isfinite(value)) return Error{"", "a message holds a value that is no number"};
    if (value == kGribMissing) continue;
    record.lowest = std::min(record.lowest, value);
    record.highest = std::max(record.highest, value);
  }
  if (record.lowest > record.highest) record.lowest = record.highest = kGribMissing;
  if (record.parameter != 0) record.values = std::move(values);
  return Done{};
}

class RealForecastReader final : public ForecastReader {
 public:
  Result<std::vector<GribRecord>> ReadEdition2(std::string_view content) override {
    std::vector<GribRecord> records;
    std::size_t left = MostGribPoints(content.size());
    while (!content.empty()) {
      constexpr std::size_t kHead = 16;
      if (content.size() < kHead) return Error{"", "the file ends inside a message"};
      std::size_t length = 0;
      for (std::size_t i = 8; i < kHead; ++i) {
        length = length << 8U | static_cast<unsigned char>(content[i]);
      }
      if (content.substr(0, 4) != "GRIB" || content[7] != 2 || length < kHead ||
          length > content.size()) {
        return Error{"", "the file ends inside a message, or is none of edition 2"};
      }
      const Handle handle(codes_handle_new_from_message_copy(nullptr, content.data(), length));
      content.remove_prefix(length);
      if (handle == nullptr) return Error{"", "a message can not be read"};
      Keys keys(handle.get());
      GribRecord record;
      record.parameter = ParameterOf(keys);
      ReadGrid(keys, record.grid);
      ReadLevel(keys, record);
      ReadTime(handle.get(), keys, record);
      if (!keys.sound() || record.grid.ni < 0 || record.grid.nj < 0) {
        return Error{"", "a message lacks its time or its grid"};
      }
      if (const Status read = ReadValues(handle.get(), keys, left, record); !read) {
        return read.error();
      }
      left -= record.grid.Points();
      records.push_back(std::move(record));
    }
    return records;
  }

  Result<std::string> Expand(std::string content, std::size_t max_size) override {
    if (content.starts_with("\x1f\x8b")) return ExpandGzip(content, max_size);
    if (content.starts_with("BZh")) return ExpandBzip2(content, max_size);
    return content;
  }
};

}  // namespace

std::unique_ptr<ForecastReader> MakeForecastReader() {
  return std::make_unique<RealForecastReader>();
}

}  // namespace skerrow
