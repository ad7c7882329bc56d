#include "instruments/ais_decoder.h"

#include <algorithm>
#include <iterator>

#include "core/numbers.h"
#include "core/text.h"
#include "instruments/nmea_checksum.h"

namespace skerrow {
namespace {

constexpr std::string_view kStart = "!AIVDM";
constexpr std::size_t kShortestSentence = 21;
constexpr int kCommasBeforePayload = 5;

// Raw values that stand for "not available" in ITU-R M.1371.
constexpr std::uint32_t kNoSpeed = 1023;
constexpr std::uint32_t kFirstNoCourse = 3600;
constexpr std::uint32_t kNoAltitude = 4095;
constexpr double kMostLatitude = 90.0;
constexpr double kMostLongitude = 180.0;

constexpr double kPerDegree = 600000.0;

// Six bits by armouring character; 0 for any that is none.
constexpr std::array<unsigned char, 256> MakeArmouring() {
  std::array<unsigned char, 256> table{};
  for (unsigned c = '0'; c <= 'W'; ++c) table[c] = static_cast<unsigned char>(c - 48);
  for (unsigned c = '`'; c <= 'w'; ++c) table[c] = static_cast<unsigned char>(c - 56);
  return table;
}
constexpr std::array<unsigned char, 256> kArmouring = MakeArmouring();

// The types of ships from a code on, to the next row's.
struct ShipTypes {
  unsigned from;
  const char* text;
};
constexpr ShipTypes kShipTypes[] = {
    {0, "Not available"},
    {1, "reserved"},
    {20, "Hazardous"},
    {21, "Hazardous category A"},
    {22, "Hazardous category B"},
    {23, "Hazardous category C"},
    {24, "Hazardous category D"},
    {25, "Reserved"},
    {30, "Fishing"},
    {31, "Towing"},
    {32, "Towing: exceeds 200m or breadth exceeds 25m"},
    {33, "Dredging or underwater ops"},
    {34, "Diving ops"},
    {35, "Military ops"},
    {36, "Sailing"},
    {37, "Pleasure Craft"},
    {38, "Reserved"},
    {40, "High speed craft"},
    {50, "Pilot Vessel"},
    {51, "Search and Rescue vessel"},
    {52, "Tug"},
    {53, "Port Tender"},
    {54, "Anti-pollution equipment"},
    {55, "55"},
    {56, "Local Vessel"},
    {58, "Medical Transport"},
    {59, "Ship according to RR Resolution No. 18"},
    {60, "Passenger"},
    {70, "Cargo"},
    {71, "Cargo, Hazardous"},
    {75, "Cargo"},
    {80, "Tanker"},
    {81, "Tanker, Hazardous"},
    {90, "Not Classified"},
    {91, "Hazardous"},
    {95, "Not Classified"},
};

unsigned SixBits(char c) { return kArmouring[static_cast<unsigned char>(c)]; }

unsigned MessageTypeOf(std::string_view payload) {
  return payload.empty() ? 0 : SixBits(payload.front());
}

// Fields of a message in order; by the standard, a field behind the end of a message is not
// available.
struct FieldReader {
  AisBits bits;
  bool standard;

  bool Lacking() const { return standard && bits.Overrun(); }

  std::int32_t Mmsi() { return static_cast<std::int32_t>(bits.Take(30)); }

  std::optional<float> Speed(double per_knot) {
    const std::uint32_t raw = bits.Take(10);
    if (standard && (raw == kNoSpeed || bits.Overrun())) return std::nullopt;
    return static_cast<float>(raw / per_knot);
  }

  std::optional<float> Course() {
    const std::uint32_t raw = bits.Take(12);
    if (standard && (raw >= kFirstNoCourse || bits.Overrun())) return std::nullopt;
    return static_cast<float>(raw / 10.0);
  }

  // Longitude, then latitude.
  std::optional<Position> Place() {
    const double longitude = bits.TakeSigned(28) / kPerDegree;
    const double latitude = bits.TakeSigned(27) / kPerDegree;
    if (standard && (longitude > kMostLongitude || longitude < -kMostLongitude ||
                     latitude > kMostLatitude || latitude < -kMostLatitude || bits.Overrun())) {
      return std::nullopt;
    }
    return Position{static_cast<float>(latitude), static_cast<float>(longitude)};
  }

  // Without its blanks, inner ones too.
  std::string Callsign() { return ReplaceAll(bits.TakeText(7), " ", ""); }
  std::string Text20() { return bits.TakeText(20); }
  std::string ShipType() { return ShipTypeText(bits.Take(8)); }

  // Length and beam, "28 x 9", from the distances to bow, stern, port and starboard.
  std::string LengthAndBeam() {
    const std::uint32_t bow = bits.Take(9);
    const std::uint32_t stern = bits.Take(9);
    const std::uint32_t port = bits.Take(6);
    const std::uint32_t starboard = bits.Take(6);
    return std::to_string(bow + stern) + " x " + std::to_string(port + starboard);
  }
};

std::string TwoDigits(std::uint32_t value) {
  return (value < 10 ? "0" : "") + std::to_string(value);
}

// "05/Dec @ 14:30". A month that is none has no name. By the standard a part that is not available
// is left out, and nothing is left without the day.
std::string EtaText(std::uint32_t month, std::uint32_t day, std::uint32_t hour,
                    std::uint32_t minute, bool standard) {
  constexpr std::string_view kMonths = "JanFebMarAprMayJunJulAugSepOctNovDec";
  const bool named = month >= 1 && month <= 12;
  if (standard && (!named || day == 0)) return "";
  std::string text = TwoDigits(day) + "/";
  if (named) text += kMonths.substr(std::size_t{3} * (month - 1), 3);
  if (standard && (hour > 23 || minute > 59)) return text;
  return text + " @ " + TwoDigits(hour) + ":" + TwoDigits(minute);
}

void DecodeClassA(FieldReader fields, AisMessage& message) {
  AisPositionReport report;
  report.message_type = static_cast<std::int16_t>(fields.bits.Take(6));
  fields.bits.Skip(2);
  report.mmsi = fields.Mmsi();
  report.nav_status = static_cast<std::int16_t>(fields.bits.Take(4));
  fields.bits.Skip(8);  // rate of turn
  report.speed = fields.Speed(10.0);
  fields.bits.Skip(1);  // accuracy
  report.position = fields.Place();
  report.course = fields.Course();
  message.position = report;
}

void DecodeSearchAndRescue(FieldReader fields, AisMessage& message) {
  AisPositionReport report;
  report.message_type = static_cast<std::int16_t>(fields.bits.Take(6));
  fields.bits.Skip(2);
  report.mmsi = fields.Mmsi();
  const std::uint32_t metres = fields.bits.Take(12);
  const std::string altitude =
      "Altitude = " +
      (fields.standard && metres == kNoAltitude ? "not known" : std::to_string(metres));
  report.speed = fields.Speed(1.0);
  fields.bits.Skip(1);
  report.position = fields.Place();
  report.course = fields.Course();
  message.position = report;
  AisStaticReport texts;
  texts.mmsi = report.mmsi;
  texts.callsign = texts.destination = altitude;
  texts.name = "SEARCH & RESCUE";
  texts.ship_type = "S & R";
  message.static_data = std::move(texts);
}

// Types 18 and 19, which are alike as far as they report the position.
void DecodeClassB(FieldReader fields, AisMessage& message) {
  AisPositionReport report;
  report.message_type = static_cast<std::int16_t>(fields.bits.Take(6));
  fields.bits.Skip(2);
  report.mmsi = fields.Mmsi();
  fields.bits.Skip(8);
  report.speed = fields.Speed(10.0);
  fields.bits.Skip(1);
  report.position = fields.Place();
  report.course = fields.Course();
  report.nav_status = 1;
  message.position = report;
  if (report.message_type != 19) return;
  fields.bits.Skip(9 + 6 + 4);  // heading, time stamp, reserved
  AisStaticReport texts;
  texts.mmsi = report.mmsi;
  texts.name = fields.Text20();
  texts.ship_type = fields.ShipType();
  texts.dimensions = fields.LengthAndBeam();
  texts.has_voyage = false;
  if (!fields.Lacking()) message.static_data = std::move(texts);
}

void DecodeStaticAndVoyage(FieldReader fields, AisMessage& message) {
  AisStaticReport report;
  fields.bits.Skip(6 + 2);
  report.mmsi = fields.Mmsi();
  if (fields.Lacking()) return;
  fields.bits.Skip(2 + 30);  // AIS version, IMO number
  report.callsign = fields.Callsign();
  report.name = fields.Text20();
  report.ship_type = fields.ShipType();
  report.dimensions = fields.LengthAndBeam();
  fields.bits.Skip(4);  // position fix type
  const std::uint32_t month = fields.bits.Take(4);
  const std::uint32_t day = fields.bits.Take(5);
  const std::uint32_t hour = fields.bits.Take(5);
  const std::uint32_t minute = fields.bits.Take(6);
  report.eta = EtaText(month, day, hour, minute, fields.standard);
  report.dimensions += " x " + ShortText(static_cast<float>(fields.bits.Take(8) / 10.0));
  report.destination = fields.Text20();
  message.static_data = std::move(report);
}

void DecodeClassBStatic(FieldReader fields, AisMessage& message) {
  AisClassBStaticReport report;
  fields.bits.Skip(6 + 2);
  report.mmsi = fields.Mmsi();
  report.part = static_cast<int>(fields.bits.Take(2));
  if (report.part > 1 || fields.Lacking()) return;
  if (report.part == 0) {
    report.name = fields.Text20();
  } else {
    report.ship_type = fields.ShipType();
    fields.bits.Skip(42);  // vendor
    report.callsign = fields.Callsign();
    report.dimensions = fields.LengthAndBeam();
    // A craft that belongs to a larger vessel (98MIDXXXX) has the MMSI of that one in their place.
    constexpr std::int32_t kAuxiliaryCraft = 98;
    if (fields.standard && report.mmsi / 10000000 == kAuxiliaryCraft) report.dimensions.clear();
  }
  message.class_b_static = std::move(report);
}

void DecodeWhole(const AisBits& bits, unsigned type, bool standard, AisMessage& message) {
  const FieldReader fields{bits, standard};
  switch (type) {
    case 1:
    case 2:
      return DecodeClassA(fields, message);
    case 3:
      if (standard) DecodeClassA(fields, message);
      return;
    case 5:
      return DecodeStaticAndVoyage(fields, message);
    case 9:
      return DecodeSearchAndRescue(fields, message);
    case 18:
      return DecodeClassB(fields, message);
    case 19:
      if (standard) DecodeClassB(fields, message);
      return;
    case 24:
      return DecodeClassBStatic(fields, message);
    default:
      return;
  }
}

// The first character of a field as a digit; 0 when it is none.
int Digit(std::string_view field) {
  return !field.empty() && field.front() >= '0' && field.front() <= '9' ? field.front() - '0' : 0;
}

unsigned TypeOf(AisBits bits) { return bits.Take(6); }

}  // namespace

void AisBits::Append(std::string_view payload) {
  payload = payload.substr(0, kMaxCharacters - size_ / 6);
  const char* from = payload.data();
  std::size_t left = payload.size();
  // Four characters are three bytes, where the bits so far end with a byte.
  for (; left >= 4 && size_ % 8 == 0; left -= 4, from += 4, size_ += 24) {
    const unsigned word =
        SixBits(from[0]) << 18 | SixBits(from[1]) << 12 | SixBits(from[2]) << 6 | SixBits(from[3]);
    unsigned char* to = &bytes_[size_ / 8];
    to[0] = static_cast<unsigned char>(word >> 16);
    to[1] = static_cast<unsigned char>(word >> 8);
    to[2] = static_cast<unsigned char>(word);
  }
  for (; left > 0; --left, ++from, size_ += 6) {
    const unsigned word = SixBits(*from) << (10 - size_ % 8);
    unsigned char* to = &bytes_[size_ / 8];
    to[0] = static_cast<unsigned char>(to[0] | word >> 8);
    to[1] = static_cast<unsigned char>(word);
  }
}

std::uint32_t AisBits::Take(unsigned count) {
  const unsigned from = at_;
  at_ += count;
  if (from >= size_) return 0;
  count = std::min(count, size_ - from);
  std::uint64_t word = 0;
  for (unsigned i = 0; i < 8; ++i) word = word << 8 | bytes_[from / 8 + i];
  return static_cast<std::uint32_t>(word << from % 8 >> (64 - count));
}

std::int32_t AisBits::TakeSigned(unsigned count) {
  // The sign is the first bit there is, even where the end cuts the number short.
  const bool negative = AisBits(*this).Take(1) != 0;
  const std::uint32_t value = Take(count);
  return static_cast<std::int32_t>(negative ? value - (std::uint32_t{1} << count) : value);
}

std::string AisBits::TakeText(unsigned characters) {
  std::string text(characters, '@');
  for (char& c : text) c = SixBitText(Take(6));
  return text;
}

void AisAssembly::KeepFirst(std::string_view payload) { first_ = AisBits(payload); }

AisBits AisAssembly::JoinSecond(std::string_view payload) const {
  if (first_.Empty()) return {};
  AisBits joined = first_;
  joined.Append(payload);
  return joined;
}

std::optional<AisBits> AisAssembly::Join(int count, int number, std::string_view key,
                                         std::string_view payload) {
  // A sequence number comes again after ten messages; what waits longer than this lost its rest.
  constexpr unsigned kMostSentences = 30;
  ++sentences_;
  std::array<char, 8> name{};
  std::copy_n(key.begin(), std::min(key.size(), name.size()), name.begin());
  const auto found = std::find_if(waiting_.begin(), waiting_.end(), [&](const Waiting& waiting) {
    return waiting.count == count && waiting.key == name &&
           sentences_ - waiting.age <= kMostSentences;
  });
  if (number == 1) {
    const auto place =
        found != waiting_.end()
            ? found
            : std::min_element(waiting_.begin(), waiting_.end(),
                               [](const Waiting& a, const Waiting& b) { return a.age < b.age; });
    *place = {name, count, 2, sentences_, AisBits(payload)};
    return std::nullopt;
  }
  if (found == waiting_.end() || found->next != number) return std::nullopt;
  found->bits.Append(payload);
  found->age = sentences_;
  if (++found->next <= count) return std::nullopt;
  const AisBits whole = found->bits;
  *found = {};
  return whole;
}

AisMessage DecodeAivdm(std::string_view sentence, const AisDecoderOptions& options,
                       AisAssembly& assembly) {
  AisMessage message;
  if (sentence.size() < kShortestSentence || sentence.find(kStart) == std::string_view::npos) {
    return message;
  }
  const std::size_t star = sentence.find('*');
  const std::size_t start = sentence.find('!');
  if (star == std::string_view::npos || star < start) return message;
  const std::string_view body = sentence.substr(start + 1, star - start - 1);
  if (sentence.substr(star + 1, 2) != NmeaChecksum(body)) return message;
  message.good = true;

  // AIVDM, count, number, sequence, channel, payload, fill bits.
  std::array<std::string_view, kCommasBeforePayload> field;
  std::string_view rest = body;
  for (std::string_view& text : field) {
    const std::size_t comma = rest.find(',');
    if (comma == std::string_view::npos) return message;
    text = rest.substr(0, comma);
    rest.remove_prefix(comma + 1);
  }
  const std::string_view payload = rest.substr(0, rest.find(','));
  const int count = Digit(field[1]);
  const int number = Digit(field[2]);
  if (count == 1 && number == 1) {
    const unsigned type = MessageTypeOf(payload);
    DecodeWhole(AisBits(payload), type, options.standard, message);
  } else if (options.standard) {
    if (number < 1 || number > count) return message;
    const auto* key_end = field[4].data() + field[4].size();
    const std::string_view key(field[3].data(),
                               static_cast<std::size_t>(key_end - field[3].data()));
    if (const auto whole = assembly.Join(count, number, key, payload)) {
      DecodeWhole(*whole, TypeOf(*whole), true, message);
    }
  } else if (count == 2 && number == 1) {
    assembly.KeepFirst(payload);
  } else if (count == 2 && number == 2) {
    const AisBits joined = assembly.JoinSecond(payload);
    if (TypeOf(joined) == 5) DecodeWhole(joined, 5, false, message);
  }
  return message;
}

char SixBitText(unsigned value) {
  if (value == 34) return '\'';
  return static_cast<char>(value < 32 ? value + 64 : value);
}

std::string ShipTypeText(unsigned code) {
  const auto* above =
      std::upper_bound(std::begin(kShipTypes), std::end(kShipTypes), code,
                       [](unsigned c, const ShipTypes& row) { return c < row.from; });
  return std::prev(above)->text;
}

std::string NavStatusText(int code) {
  constexpr std::array<const char*, 9> kTexts = {
      "Underway engine",        "",       "Not Under Command", "Restricted manoeuvrability",
      "Constrained by draught", "Moored", "Aground",           "Fishing",
      "Underway sailing"};
  return code >= 0 && code <= 8 ? kTexts[static_cast<std::size_t>(code)] : "Not defined";
}

}  // namespace skerrow
