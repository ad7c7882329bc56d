#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/position.h"

// AIS messages from "!AIVDM" sentences: six-bit armouring, message layouts and text tables of ITU-R
// M.1371 as IEC 61162 carries them. No sentence, however damaged, does more than give nothing.
namespace skerrow {

// What is dropped and what is believed.
struct AisDecoderOptions {
  // "Standard AIS decoding". Off: types 3 and 19 are dropped, a message has one sentence or two,
  // whose fragments join by their order alone and only to a type 5, and every value passes on as a
  // number. On: types 3 and 19 report positions, fragments join by sequence number and channel, and
  // values that stand for "not available", or lie beyond the end of a message, are left out.
  bool standard = false;
};

// A position report: types 1, 2, 9 and 18, and by the standard 3 and 19.
struct AisPositionReport {
  std::int16_t message_type = 0;
  std::int32_t mmsi = 0;
  // Empty only by the standard, where the vessel has none.
  std::optional<Position> position;
  std::optional<float> course;  // degrees true
  std::optional<float> speed;   // knots
  std::int16_t nav_status = 0;
};

// Texts of a vessel: type 5, those made of type 9, and by the standard type 19. "@" still fills
// callsign, name and destination.
struct AisStaticReport {
  std::int32_t mmsi = 0;
  std::string callsign;
  std::string name;
  std::string ship_type;
  std::string destination;
  std::string dimensions;
  std::string eta;
  // False for a message that has neither callsign, destination nor ETA (type 19).
  bool has_voyage = true;
};

// Type 24, sent in two halves: `part` 0 has the name, the other the rest.
struct AisClassBStaticReport {
  std::int32_t mmsi = 0;
  int part = 0;
  std::string callsign;
  std::string name;
  std::string ship_type;
  std::string dimensions;
};

// What a sentence told. Reports are to be taken in the order of the members.
struct AisMessage {
  bool good = false;  // it is an "!AIVDM" sentence with the right checksum, which a log keeps
  std::optional<AisPositionReport> position;
  std::optional<AisStaticReport> static_data;
  std::optional<AisClassBStaticReport> class_b_static;
};

// The bits of a payload, most significant first: what the published operations BitsFromPayload and
// BitsToValue make of texts of "0" and "1". Characters that are no armouring give six zero bits.
class AisBits {
 public:
  // The longest message that is read, type 5, has 424 bits.
  static constexpr std::size_t kMaxCharacters = 72;

  AisBits() = default;
  explicit AisBits(std::string_view payload) { Append(payload); }

  // Characters that no longer fit are left out.
  void Append(std::string_view payload);

  // The next `count` bits, at most 32, as an unsigned number. At the end there may be fewer, which
  // then are the number, and behind it none, which give 0.
  std::uint32_t Take(unsigned count);
  // The same as two's complement of `count` bits.
  std::int32_t TakeSigned(unsigned count);
  void Skip(unsigned count) { at_ += count; }
  // Text of `characters` six-bit characters; those beyond the end give "@".
  std::string TakeText(unsigned characters);

  // Whether more bits were taken or skipped than there are.
  bool Overrun() const { return at_ > size_; }
  bool Empty() const { return size_ == 0; }

 private:
  std::array<unsigned char, kMaxCharacters * 6 / 8 + 8> bytes_{};
  unsigned size_ = 0;
  unsigned at_ = 0;
};

// Fragments that wait for the rest of their message. One for each source of sentences.
class AisAssembly {
 public:
  // The payload of a pair: the second fragment joins whatever first one came last. Empty bits when
  // there is none.
  void KeepFirst(std::string_view payload);
  AisBits JoinSecond(std::string_view payload) const;

  // By the standard: the whole message when fragment `number` of `count` is its last; fragments
  // come in order, and those of other messages may stand between them.
  std::optional<AisBits> Join(int count, int number, std::string_view sequence_and_channel,
                              std::string_view payload);

 private:
  struct Waiting {
    std::array<char, 8> key{};
    int count = 0;  // 0: free
    int next = 0;   // number of the fragment that is expected
    unsigned age = 0;
    AisBits bits;
  };
  AisBits first_;
  std::array<Waiting, 8> waiting_;
  unsigned sentences_ = 0;
};

// Checks and decodes one sentence of at least 21 characters, which holds "!AIVDM" and a checksum;
// what follows the checksum is not looked at.
AisMessage DecodeAivdm(std::string_view sentence, const AisDecoderOptions& options,
                       AisAssembly& assembly);

// A character of the six-bit set, 0 to 63; 34 gives "'".
char SixBitText(unsigned value);

// The type of a ship by its code.
std::string ShipTypeText(unsigned code);

// The navigation status by its code; empty for a vessel at anchor (1).
std::string NavStatusText(int code);

}  // namespace skerrow
