#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/clock.h"
#include "instruments/gps_fix.h"
#include "instruments/log.h"

// NMEA 0183 text from the ports: sentences are put together from the blocks that were read, checked
// and decoded into the fix. RMC, GLL and RMB are decoded; others are at most logged.
namespace skerrow {

// The most characters of one sentence that are kept. Of a longer line, which only noise makes, the
// beginning counts.
inline constexpr std::size_t kMostSentence = 65536;

// The shortest sentence that can be an AIS message.
inline constexpr std::size_t kShortestAisSentence = 21;

// Bad: the checksum is wrong. Warning: the receiver calls the data void, or a coordinate is too
// short or off the globe. Good: neither.
enum class SentenceState { kBad, kWarning, kGood };

// Fields of an RMC sentence; views are into the sentence.
struct Rmc {
  SentenceState state = SentenceState::kBad;
  std::string_view time;
  float latitude = 0.0F;       // decimal degrees, north positive
  float longitude = 0.0F;      // decimal degrees, east positive
  std::string latitude_text;   // "50.30.2512N"
  std::string longitude_text;  // "001.20.251W"
  std::string_view speed;      // knots
  std::string_view course;     // degrees true
  std::string_view date;       // "ddmmyy"
  std::string_view variation;  // degrees
  std::string_view variation_side;
};

// Fields of a GLL sentence.
struct Gll {
  SentenceState state = SentenceState::kBad;
  std::string_view time;
  float latitude = 0.0F;
  float longitude = 0.0F;
  std::string latitude_text;
  std::string longitude_text;
};

// Fields of an RMB sentence: the way to the waypoint that the GPS steers for.
struct Rmb {
  std::string cross_track;  // nautical miles
  std::string steer;        // "L" or "R"
  std::string name;
  std::string latitude_text;   // "50°30.25N"
  std::string longitude_text;  // "001°20.25W"
  std::string range;           // nautical miles
  std::string bearing;         // degrees true
};

// All that the decoding of NMEA keeps.
struct NmeaState {
  GpsFix fix;
  GpsTrack track;
  Rmb destination;  // of the latest RMB
  LogState log;
  std::string gps_line;  // a sentence of the GPS port whose end has not come yet
  bool gps_in_sentence = false;
  std::string ais_line;        // the same of the AIS port
  std::string raw_text;        // the sentences of the GPS port's latest block, for its dialog
  std::size_t positions = 0;   // sentences whose position became the boat's
  std::size_t overflowed = 0;  // characters of overlong lines that were dropped
};

// Takes AIS sentences from the AIS port and from replayed logs.
class AisSentenceSink {
 public:
  virtual ~AisSentenceSink() = default;
  // A whole sentence with "!AIVDM" in it, cut after its checksum. True when the checksum is good.
  virtual bool Take(std::string_view sentence) = 0;
};

// What stands behind the AIS port.
struct AisDoor {
  AisSentenceSink& sink;
  const Clock& clock;
  bool gps_passes = false;  // the GPS is connected to the AIS, or a log is replayed
};

// Takes a block of text from the GPS port. A sentence begins at "$" and ends at CR, in this or a
// later block.
void AssembleGpsBlock(NmeaState& state, std::string_view block, const Clock& clock);

// Takes a block of text from the AIS port, where sentences begin at "$" or "!". One that the end of
// the block cuts is lost, and with it the next; see ReceiveStep, which does not cut any.
void AssembleAisBlock(NmeaState& state, std::string_view block, const AisDoor& door);

// Queues a sentence of the GPS port for the log and decodes it.
void QueueAndDecodeGpsLine(NmeaState& state, std::string_view line, const Clock& clock);

// Queues and decodes a sentence of the AIS port, or a line of a replayed log.
void DecodeAisPortLine(NmeaState& state, std::string_view line, const AisDoor& door);

// Decodes a sentence cut after its checksum into the fix. The clock dates a GLL, which has no date.
void DecodeGpsSentence(NmeaState& state, std::string_view sentence, const Clock& clock);

Rmc ParseRmc(std::string_view sentence);
Gll ParseGll(std::string_view sentence);
// Without a look at the checksum.
Rmb ParseRmb(std::string_view sentence);

// A line up to two characters after its first "*"; empty without one.
std::string_view CutAfterChecksum(std::string_view line);

// Whether the two characters after the first "*" are the checksum of what stands between the first
// character and it.
bool ChecksumGood(std::string_view sentence);

// Decimal degrees of the two parts of a coordinate.
float NmeaDegrees(std::string_view degrees, std::string_view minutes, bool negative);

// The leading number of a field in single precision, 0 without one.
float NmeaNumber(std::string_view field);

}  // namespace skerrow
