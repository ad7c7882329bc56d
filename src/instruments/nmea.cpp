#include "instruments/nmea.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"
#include "instruments/nmea_checksum.h"

namespace skerrow {
namespace {

constexpr std::string_view kDegreeSign = "°";
constexpr char kSentenceEnd = '\r';

// The fields of a sentence behind its name, up to the first "*". Those that are missing are empty.
class Fields {
 public:
  explicit Fields(std::string_view sentence) : rest_(sentence.substr(0, sentence.find('*'))) {
    Next();
  }
  std::string_view Next() {
    const std::size_t comma = rest_.find(',');
    const std::string_view field = rest_.substr(0, comma);
    rest_.remove_prefix(comma == std::string_view::npos ? rest_.size() : comma + 1);
    return field;
  }

 private:
  std::string_view rest_;
};

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

float Single(double value) {
  constexpr double kMost = FLT_MAX;
  return static_cast<float>(std::clamp(value, -kMost, kMost));
}

// How a kind of sentence writes one of its coordinates.
struct CoordinateForm {
  std::size_t shortest;       // characters of the field
  std::size_t degree_digits;  // at its front
  char negative;              // hemisphere
  float most;                 // degrees
};

struct Coordinate {
  bool whole = false;  // long enough, and on the globe
  float degrees = 0.0F;
  std::string text;
};

// `cut` gives what is kept of the minutes.
template <typename Cut>
Coordinate ReadCoordinate(std::string_view field, std::string_view hemisphere,
                          const CoordinateForm& form, Cut cut) {
  hemisphere = hemisphere.substr(0, 1);
  const bool negative = hemisphere.starts_with(form.negative);
  Coordinate coordinate;
  std::string_view degrees = "0";
  std::string_view minutes = "0";
  if (field.size() >= form.shortest) {
    const std::string_view field_minutes = cut(field.substr(form.degree_digits));
    const float value = NmeaDegrees(field.substr(0, form.degree_digits), field_minutes, negative);
    // A place off the globe must not become the boat's.
    if (std::fabs(value) <= form.most) {
      coordinate.whole = true;
      coordinate.degrees = value;
      degrees = field.substr(0, form.degree_digits);
      minutes = field_minutes;
    }
  }
  coordinate.text = FromAnsi(degrees) + "." + FromAnsi(minutes) + FromAnsi(hemisphere);
  return coordinate;
}

constexpr CoordinateForm kRmcLatitude{8, 2, 'S', 90.0F};
constexpr CoordinateForm kRmcLongitude{9, 3, 'W', 180.0F};
constexpr CoordinateForm kGllLatitude{7, 2, 'S', 90.0F};
constexpr CoordinateForm kGllLongitude{7, 3, 'W', 180.0F};

std::string_view KeepAll(std::string_view minutes) { return minutes; }

std::string_view KeepSix(std::string_view minutes) { return minutes.substr(0, 6); }

std::string_view DropLastOfMoreThanSix(std::string_view minutes) {
  return minutes.substr(0, minutes.size() > 6 ? minutes.size() - 1 : minutes.size());
}

SentenceState StateOf(std::string_view status, bool coordinates_whole) {
  return status.starts_with('A') && coordinates_whole ? SentenceState::kGood
                                                      : SentenceState::kWarning;
}

// A coordinate of a destination as the dialog shows it.
std::string DestinationText(std::string_view field, std::size_t degree_digits,
                            std::string_view hemisphere) {
  const std::size_t split = std::min(degree_digits, field.size());
  return FromAnsi(field.substr(0, split)) + std::string(kDegreeSign) +
         FromAnsi(field.substr(split)) + FromAnsi(hemisphere);
}

void SetPosition(NmeaState& state, float latitude, float longitude) {
  state.fix.boat_latitude = latitude;
  state.fix.boat_longitude = longitude;
  ++state.positions;
}

// The first entry of the track table; the later ones are made by whoever records the track.
void BeginTrack(NmeaState& state) {
  if (!state.track.empty()) return;
  GpsTrackPoint point{.latitude = state.fix.boat_latitude, .longitude = state.fix.boat_longitude};
  SetTime(point, state.fix.fix_time);
  state.track.push_back(point);
}

void TakeRmc(NmeaState& state, const Rmc& rmc) {
  if (rmc.state == SentenceState::kBad) return;
  GpsFix& fix = state.fix;
  const bool good = rmc.state == SentenceState::kGood;
  fix.position_good = good;
  SetPosition(state, rmc.latitude, rmc.longitude);
  fix.course_over_ground = NmeaNumber(rmc.course);
  fix.speed_over_ground = NmeaNumber(rmc.speed);
  fix.position_text = rmc.latitude_text + "  " + rmc.longitude_text;
  fix.course_speed_text = std::string(good ? "Heading " : "Heading") + FromAnsi(rmc.course) +
                          "°T @ " + FromAnsi(rmc.speed) + " Kn";
  if (!good) return;
  fix.fix_time = rmc.time;
  fix.fix_date = rmc.date;
  BeginTrack(state);
  if (!rmc.course.empty()) state.track.back().course = fix.course_over_ground;
  if (!rmc.speed.empty()) state.track.back().speed = fix.speed_over_ground;
}

void TakeGll(NmeaState& state, const Gll& gll, const Clock& clock) {
  if (gll.state != SentenceState::kGood) return;
  state.fix.position_good = true;
  SetPosition(state, gll.latitude, gll.longitude);
  state.fix.fix_time = gll.time;
  const ClockReading now = clock.Now();
  state.fix.fix_date = FormatFixed(now.day_of_month, 2, 0) + FormatFixed(now.month, 2, 0) +
                       FormatFixed(now.year % 100, 2, 0);
  BeginTrack(state);
}

// Characters of a text that holds the degree sign and else what came in single bytes.
std::size_t TrimmedLength(std::string_view text) {
  const std::string trimmed = Trim(text);
  return static_cast<std::size_t>(
      std::count_if(trimmed.begin(), trimmed.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

void TakeRmb(NmeaState& state, std::string_view sentence) {
  Rmb& rmb = state.destination;
  rmb = ParseRmb(sentence);
  if (TrimmedLength(rmb.latitude_text) > 5) state.fix.has_active_waypoint = true;
  if (rmb.name.empty()) {
    state.fix.waypoint_text.clear();
    return;
  }
  const auto or_zero = [](const std::string& text) {
    return text.empty() ? std::string("0.0") : FromAnsi(text);
  };
  state.fix.waypoint_text = "Waypt (" + FromAnsi(rmb.name.substr(0, 6)) + ") " +
                            or_zero(rmb.range) + "M@" + or_zero(rmb.bearing) + "°T";
}

// Adds a piece of a sentence to a buffer, as far as it has room.
void AddPiece(NmeaState& state, std::string& line, std::string_view piece) {
  const std::size_t room = kMostSentence - std::min(line.size(), kMostSentence);
  line.append(piece.substr(0, room));
  if (piece.size() > room) state.overflowed += piece.size() - room;
}

// Puts sentences together, calling `take` with each. Works in runs of characters, each searched
// for once.
template <typename Take>
void Assemble(NmeaState& state, std::string_view block, std::string_view starts, std::string& line,
              bool& in_sentence, Take take) {
  while (!block.empty()) {
    if (!in_sentence) {
      const std::size_t start = block.find_first_of(starts);
      if (start == std::string_view::npos) return;
      block.remove_prefix(start);
      in_sentence = true;
    }
    const std::size_t end = block.find(kSentenceEnd);
    AddPiece(state, line, block.substr(0, end));
    if (end == std::string_view::npos) return;
    line += kSentenceEnd;
    in_sentence = false;
    take();
    line.clear();
    block.remove_prefix(end + 1);
  }
}

}  // namespace

std::string_view CutAfterChecksum(std::string_view line) {
  const std::size_t star = line.find('*');
  return star == std::string_view::npos ? std::string_view() : line.substr(0, star + 3);
}

bool ChecksumGood(std::string_view sentence) {
  const std::size_t star = sentence.find('*');
  if (star == std::string_view::npos) return false;
  const std::string_view text = star > 1 ? sentence.substr(1, star - 1) : std::string_view();
  return sentence.substr(star + 1, 2) == NmeaChecksum(text);
}

float NmeaDegrees(std::string_view degrees, std::string_view minutes, bool negative) {
  const double value = TextToNumber(degrees) + TextToNumber(minutes) / 60.0;
  return Single(negative ? -value : value);
}

float NmeaNumber(std::string_view field) { return Single(TextToNumber(field)); }

Rmc ParseRmc(std::string_view sentence) {
  Rmc rmc;
  if (!ChecksumGood(sentence)) return rmc;
  Fields fields(sentence);
  rmc.time = fields.Next();
  const std::string_view status = fields.Next();
  const std::string_view latitude_field = fields.Next();
  const Coordinate latitude = ReadCoordinate(latitude_field, fields.Next(), kRmcLatitude, KeepAll);
  const std::string_view longitude_field = fields.Next();
  const Coordinate longitude =
      ReadCoordinate(longitude_field, fields.Next(), kRmcLongitude, DropLastOfMoreThanSix);
  rmc.state = StateOf(status, latitude.whole && longitude.whole);
  rmc.latitude = latitude.degrees;
  rmc.longitude = longitude.degrees;
  rmc.latitude_text = latitude.text;
  rmc.longitude_text = longitude.text;
  rmc.speed = fields.Next();
  rmc.course = fields.Next();
  rmc.date = fields.Next();
  rmc.variation = fields.Next();
  rmc.variation_side = fields.Next();
  return rmc;
}

Gll ParseGll(std::string_view sentence) {
  Gll gll;
  if (!ChecksumGood(sentence)) return gll;
  Fields fields(sentence);
  const std::string_view latitude_field = fields.Next();
  const Coordinate latitude = ReadCoordinate(latitude_field, fields.Next(), kGllLatitude, KeepSix);
  const std::string_view longitude_field = fields.Next();
  const Coordinate longitude =
      ReadCoordinate(longitude_field, fields.Next(), kGllLongitude, KeepSix);
  gll.time = fields.Next();
  gll.state = StateOf(fields.Next(), latitude.whole && longitude.whole);
  gll.latitude = latitude.degrees;
  gll.longitude = longitude.degrees;
  gll.latitude_text = latitude.text;
  gll.longitude_text = longitude.text;
  return gll;
}

Rmb ParseRmb(std::string_view sentence) {
  Rmb rmb;
  Fields fields(sentence);
  fields.Next();  // status
  rmb.cross_track = fields.Next();
  rmb.steer = fields.Next();
  fields.Next();  // origin
  rmb.name = fields.Next();
  const std::string_view latitude = fields.Next();
  rmb.latitude_text = DestinationText(latitude, 2, fields.Next());
  const std::string_view longitude = fields.Next();
  rmb.longitude_text = DestinationText(longitude, 3, fields.Next());
  rmb.range = fields.Next();
  rmb.bearing = fields.Next();
  return rmb;
}

void DecodeGpsSentence(NmeaState& state, std::string_view sentence, const Clock& clock) {
  if (!Contains(sentence, "*") || !Contains(sentence, "$") || !ChecksumGood(sentence)) return;
  // A skipper's comment may well hold the name of a sentence.
  if (sentence.starts_with(kCommentSentence)) return;
  if (Contains(sentence, "RMC")) {
    state.fix.rmc_seen = true;
    TakeRmc(state, ParseRmc(sentence));
  }
  if (!state.fix.rmc_seen && Contains(sentence, "GLL")) {
    TakeGll(state, ParseGll(sentence), clock);
  }
  if (Contains(sentence, "RMB")) TakeRmb(state, sentence);
}

void QueueAndDecodeGpsLine(NmeaState& state, std::string_view line, const Clock& clock) {
  line = CutAfterChecksum(line);
  if (!line.starts_with('$')) return;
  QueueByKind(state.log, line, LoggedFrom::kGpsPort);
  DecodeGpsSentence(state, line, clock);
}

void DecodeAisPortLine(NmeaState& state, std::string_view line, const AisDoor& door) {
  line = CutAfterChecksum(line);
  const bool from_gps = line.starts_with('$');
  if (from_gps) QueueByKind(state.log, line, LoggedFrom::kAisPort);
  if (line.size() >= kShortestAisSentence && Contains(line, "!AIVDM") && door.sink.Take(line)) {
    QueueSentence(state.log, line);
  }
  if (from_gps && door.gps_passes) DecodeGpsSentence(state, line, door.clock);
}

void AssembleGpsBlock(NmeaState& state, std::string_view block, const Clock& clock) {
  state.raw_text.clear();
  Assemble(state, block, "$", state.gps_line, state.gps_in_sentence, [&] {
    state.raw_text.append(state.gps_line).append("\r\n");
    QueueAndDecodeGpsLine(state, state.gps_line, clock);
  });
}

void AssembleAisBlock(NmeaState& state, std::string_view block, const AisDoor& door) {
  bool in_sentence = false;
  Assemble(state, block, "$!", state.ais_line, in_sentence,
           [&] { DecodeAisPortLine(state, state.ais_line, door); });
}

}  // namespace skerrow
