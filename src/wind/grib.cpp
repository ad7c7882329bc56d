#include "wind/grib.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <set>

#include "core/numbers.h"

namespace skerrow {
namespace {

constexpr std::size_t kIndicatorSize = 8;
constexpr std::size_t kEndSize = 4;
constexpr std::size_t kShortestProduct = 28;
constexpr std::size_t kShortestGrid = 28;
constexpr std::size_t kDataHead = 11;
constexpr int kWidestValue = 32;  // bits

// The subject of the faults that have no words of their own.
constexpr const char* kForecast = "The forecast can not be read on";

// A section of a message by its octets, counted from 1 as the definition of the form does.
class Section {
 public:
  Section() = default;
  explicit Section(std::string_view bytes) : bytes_(bytes) {}

  std::size_t size() const { return bytes_.size(); }
  std::string_view From(std::size_t octet) const { return bytes_.substr(octet - 1); }
  unsigned Octet(std::size_t octet) const { return static_cast<unsigned char>(bytes_[octet - 1]); }
  unsigned Octets2(std::size_t octet) const { return Octet(octet) << 8 | Octet(octet + 1); }
  unsigned Octets3(std::size_t octet) const { return Octets2(octet) << 8 | Octet(octet + 2); }
  // The highest bit is a sign.
  int Signed2(std::size_t octet) const {
    const auto size = static_cast<int>(Octets2(octet) & 0x7FFFU);
    return (Octets2(octet) & 0x8000U) != 0 ? -size : size;
  }
  int Signed3(std::size_t octet) const {
    const auto size = static_cast<int>(Octets3(octet) & 0x7FFFFFU);
    return (Octets3(octet) & 0x800000U) != 0 ? -size : size;
  }

 private:
  std::string_view bytes_;
};

// The sections of a message that follow the indicator.
struct Message {
  Section product, grid, bitmap, data;
  bool has_grid = false;
  bool has_bitmap = false;
  std::size_t size = 0;  // with the indicator and the end
};

// A walk over the sections of one message.
class SectionWalk {
 public:
  SectionWalk(std::string_view content, std::size_t at) : content_(content), at_(at) {}

  // The section that begins here. An error names the fault.
  Result<Section> Next(const char* empty_fault) {
    if (content_.size() - at_ < 3) return Error{kForecast, "the file ends inside a message"};
    const std::size_t length = Section(content_.substr(at_, 3)).Octets3(1);
    if (length == 0) return Error{"", empty_fault};
    if (length > content_.size() - at_) return Error{kForecast, "the file ends inside a message"};
    const Section section(content_.substr(at_, length));
    at_ += length;
    return section;
  }
  std::size_t at() const { return at_; }

 private:
  std::string_view content_;
  std::size_t at_;
};

Result<Message> SplitMessage(std::string_view content, std::size_t begin) {
  Message message;
  SectionWalk walk(content, begin + kIndicatorSize);
  Result<Section> section =
      walk.Next("Exiting the GRIB Reading routine\nBad File - Product Definition Length = 0");
  if (!section) return section.error();
  message.product = *section;
  if (message.product.size() < kShortestProduct) {
    return Error{kForecast, "a product definition is cut short"};
  }
  const unsigned flags = message.product.Octet(8);
  if ((flags & 128U) != 0) {
    section = walk.Next("Bad data - Grid Description Section Length = 0");
    if (!section) return section.error();
    message.grid = *section;
    message.has_grid = true;
  }
  if ((flags & 64U) != 0) {
    section = walk.Next("Bad data - Bitmap Description Length = 0");
    if (!section) return section.error();
    message.bitmap = *section;
    message.has_bitmap = true;
  }
  section = walk.Next("Bad File - Binary Data Section = 0");
  if (!section) return section.error();
  message.data = *section;
  message.size = walk.at() - begin + kEndSize;
  return message;
}

// Whether the time of a message is known; octets 18 to 21 tell.
struct ForecastTime {
  double minutes = kUnhandledTime;
  std::optional<int> unhandled_range;
};

ForecastTime TimeOf(const Section& product) {
  constexpr int kFactors[] = {1, 60, 1440};  // minutes in a minute, an hour, a day
  ForecastTime time;
  const unsigned unit = product.Octet(18);
  if (unit >= std::size(kFactors)) return time;
  const int factor = kFactors[unit];
  const auto p1 = static_cast<int>(product.Octet(19));
  const auto p2 = static_cast<int>(product.Octet(20));
  switch (const auto range = static_cast<int>(product.Octet(21))) {
    case 0:
      time.minutes = p1 * factor;
      break;
    case 3:
    case 4:
      time.minutes = p2 * factor;
      break;
    case 10:
      time.minutes = (p1 * 256 + p2) * factor;
      break;
    default:
      time.unhandled_range = range;
  }
  return time;
}

bool LevelTakesTwoOctets(unsigned type) {
  constexpr unsigned kTypes[] = {100, 103, 105, 107, 109, 111, 113, 115, 125, 160, 200, 201};
  return std::find(std::begin(kTypes), std::end(kTypes), type) != std::end(kTypes);
}

void ReadProduct(const Section& product, const ForecastTime& time, GribRecord& record) {
  record.parameter = static_cast<std::int16_t>(product.Octet(9));
  record.level_type = static_cast<std::int16_t>(product.Octet(10));
  // Layers between two levels have one of them in each octet: the upper one will do to compare.
  record.level = LevelTakesTwoOctets(product.Octet(10))
                     ? static_cast<std::int16_t>(product.Octets2(11) & 0x7FFFU)
                     : static_cast<std::int16_t>(product.Octet(11));
  record.year = static_cast<std::int16_t>((static_cast<int>(product.Octet(25)) - 1) * 100 +
                                          static_cast<int>(product.Octet(13)));
  record.month = static_cast<std::int16_t>(product.Octet(14));
  record.day = static_cast<std::int16_t>(product.Octet(15));
  record.base_minutes = static_cast<float>(product.Octet(16) * 60 + product.Octet(17));
  record.forecast_minutes = time.minutes;
  record.valid_hour = static_cast<float>((record.base_minutes + time.minutes) / 60.0);
}

float Thousandths(int value) { return static_cast<float>(value / 1000.0); }

// The increment between two ends where the message gives none.
float Increment(float first, float last, int count) {
  return count > 1 ? static_cast<float>(std::abs(static_cast<double>(last) - first) / (count - 1))
                   : 0.0F;
}

Result<GribGrid> ReadGrid(const Section& section) {
  constexpr unsigned kNone = 0xFFFF;
  if (section.size() < kShortestGrid) return Error{kForecast, "a grid description is cut short"};
  const auto kind = static_cast<int>(section.Octet(6));
  GribGrid grid;
  if (section.Octets2(7) > INT16_MAX || section.Octets2(9) > INT16_MAX) {
    return Error{kForecast, "a grid has more rows or columns than a forecast can have"};
  }
  grid.ni = static_cast<std::int16_t>(section.Octets2(7));
  grid.nj = static_cast<std::int16_t>(section.Octets2(9));
  grid.la1 = Thousandths(section.Signed3(11));
  grid.lo1 = Thousandths(section.Signed3(14));
  switch (kind) {
    case 0:
    case 4:
    case 10:
      grid.la2 = Thousandths(section.Signed3(18));
      grid.lo2 = Thousandths(section.Signed3(21));
      grid.di = section.Octets2(24) == kNone ? Increment(grid.lo1, grid.lo2, grid.ni)
                                             : Thousandths(static_cast<int>(section.Octets2(24)));
      // A Gaussian grid tells its number of parallels here; they are all but evenly spaced.
      grid.dj = kind != 0 || section.Octets2(26) == kNone
                    ? Increment(grid.la1, grid.la2, grid.nj)
                    : Thousandths(static_cast<int>(section.Octets2(26)));
      return grid;
    case 3:
    case 5:
      grid.of_degrees = false;
      return grid;
    default:
      return Error{
          "", "Unpacking BDS data_rep ; Grid type " + std::to_string(kind) + " not understood"};
  }
}

// The number in the floating-point form of the IBM System/360.
double IbmFloat(const Section& section, std::size_t octet) {
  const auto head = static_cast<int>(section.Octet(octet));
  const double mantissa = section.Octets3(octet + 1);
  const double value = std::ldexp(mantissa, 4 * ((head & 0x7F) - 64) - 24);
  return (head & 0x80) != 0 ? -value : value;
}

// Takes values of a fixed number of bits from a run of bytes, high bit first. The caller knows that
// there are enough.
class BitReader {
 public:
  BitReader(std::string_view bytes, int width)
      : at_(reinterpret_cast<const unsigned char*>(bytes.data())),
        width_(width),
        mask_((std::uint64_t{1} << width) - 1) {}

  std::uint32_t Next() {
    while (held_ < width_) {
      bits_ = bits_ << 8 | *at_++;
      held_ += 8;
    }
    held_ -= width_;
    return static_cast<std::uint32_t>(bits_ >> held_ & mask_);
  }

 private:
  const unsigned char* at_;
  int width_;
  std::uint64_t mask_;
  std::uint64_t bits_ = 0;
  int held_ = 0;
};

bool BitmapBit(std::string_view bits, std::size_t point) {
  return (static_cast<unsigned char>(bits[point / 8]) >> (7 - point % 8) & 1) != 0;
}

// The extremes of a field, and its values where they are kept.
class Field {
 public:
  Field(GribRecord& record, bool keep) : record_(record), keep_(keep) {
    record.lowest = std::numeric_limits<double>::infinity();
    record.highest = -std::numeric_limits<double>::infinity();
    if (keep) record.values.reserve(record.grid.Points());
  }
  ~Field() {
    if (record_.lowest > record_.highest) record_.lowest = record_.highest = kGribMissing;
  }
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;

  void Add(double value) {
    record_.lowest = std::min(record_.lowest, value);
    record_.highest = std::max(record_.highest, value);
    if (keep_) record_.values.push_back(value);
  }
  void AddMissing() {
    if (keep_) record_.values.push_back(kGribMissing);
  }

 private:
  GribRecord& record_;
  bool keep_;
};

// Unpacks the field of a message whose grid has been read.
Status ReadData(const Message& message, GribRecord& record) {
  const Section& data = message.data;
  if (data.size() < kDataHead) return Error{kForecast, "a data section is cut short"};
  if ((data.Octet(4) >> 4 & 4U) != 0) {
    return Error{kForecast, "a message is packed in a way that is not understood"};
  }
  const std::size_t points = record.grid.Points();
  std::string_view bitmap;
  std::size_t present = points;
  if (message.has_bitmap) {
    const Section& section = message.bitmap;
    if (section.size() < 6 || (section.size() - 6) * 8 < points) {
      return Error{kForecast, "a bitmap is shorter than its grid"};
    }
    bitmap = section.From(7);
    present = 0;
    for (std::size_t i = 0; i < points; ++i) present += BitmapBit(bitmap, i) ? 1 : 0;
  }
  const auto width = static_cast<int>(data.Octet(11));
  if (width > kWidestValue) return Error{kForecast, "a message has values of too many bits"};
  if ((data.size() - kDataHead) * 8 < present * static_cast<std::size_t>(width)) {
    return Error{kForecast, "a message holds fewer values than its grid has points"};
  }
  const double scale = std::ldexp(1.0, data.Signed2(5));
  // Whole, as the winds of this program have always been read.
  const auto reference = static_cast<double>(RoundToInteger(IbmFloat(data, 7)));
  const double tens = std::pow(10.0, message.product.Signed2(27));

  const bool wind = record.parameter == kGribWindU || record.parameter == kGribWindV;
  Field field(record, wind && record.forecast_minutes != kUnhandledTime);
  BitReader bits(data.size() > kDataHead ? data.From(12) : std::string_view(), std::max(width, 1));
  for (std::size_t i = 0; i < points; ++i) {
    if (!bitmap.empty() && !BitmapBit(bitmap, i)) {
      field.AddMissing();
    } else {
      const double packed = width < 1 ? 0.0 : bits.Next();
      field.Add((reference + packed * scale) / tens);
    }
  }
  return Done{};
}

}  // namespace

int GribEdition(std::string_view content) {
  return content.size() < kIndicatorSize ? 0 : static_cast<unsigned char>(content[7]);
}

GribFile DecodeGrib(std::string_view content, Messages& messages, Progress& progress) {
  GribFile file;
  std::size_t points_left = MostGribPoints(content.size());
  std::set<int> told_ranges;
  std::size_t at = 0;
  const auto fail = [&](const Error& error) {
    messages.Show(error.Text(), MessageIcon::kError);
    return file;
  };
  while (at < content.size()) {
    if (!progress.Step(100.0 * static_cast<double>(at) / static_cast<double>(content.size()))) {
      return file;
    }
    if (content.size() - at < kIndicatorSize) {
      return fail({kForecast, "the file ends inside a message"});
    }
    if (GribEdition(content.substr(at)) != 1) {
      return fail({"", "Grib file wrong edition number\nExiting routine"});
    }
    const Result<Message> message = SplitMessage(content, at);
    if (!message) {
      return fail(message.error());
    }
    GribRecord record;
    const ForecastTime time = TimeOf(message->product);
    ReadProduct(message->product, time, record);
    if (time.unhandled_range && told_ranges.insert(*time.unhandled_range).second) {
      messages.Show("Unhandled Time range vlaue of " + std::to_string(*time.unhandled_range),
                    MessageIcon::kWarning);
    }
    if (!message->has_grid) {
      return fail({kForecast, "a message has no grid description"});
    }
    const Result<GribGrid> grid = ReadGrid(message->grid);
    if (!grid) {
      return fail(grid.error());
    }
    record.grid = *grid;
    if (message->grid.Octet(6) == 10) {
      return fail({"", "unpacking BDS case 10 exception - not yet implemented"});
    }
    if (record.grid.Points() > points_left) {
      return fail({kForecast, "a grid has more points than the file can hold"});
    }
    points_left -= record.grid.Points();
    if (const Status unpacked = ReadData(*message, record); !unpacked) {
      return fail(unpacked.error());
    }
    file.records.push_back(std::move(record));
    at += message->size;
  }
  file.whole = true;
  return file;
}

}  // namespace skerrow
