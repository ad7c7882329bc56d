#include "instruments/ais_decoder.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

#include "instruments/sentences.h"

namespace skerrow {
namespace {

using testing::Bits;
using testing::Sentence;

const AisDecoderOptions kTold{};
const AisDecoderOptions kStandard{true};

AisMessage Decode(const std::string& sentence, const AisDecoderOptions& options = kTold) {
  AisAssembly assembly;
  return DecodeAivdm(sentence, options, assembly);
}

// A row of tests/instruments/data/ais-messages.txt.
struct Message {
  std::vector<std::string> sentences;
  std::map<std::string, std::string> fields;

  double Raw(const std::string& name) const { return std::stod(fields.at(name)); }
  std::string Text(const std::string& name) const {
    const auto found = fields.find(name);
    return found == fields.end() ? "" : found->second;
  }
};

std::vector<Message> Messages() {
  std::ifstream file(SKERROW_SOURCE_DIR "/tests/instruments/data/ais-messages.txt");
  std::vector<Message> messages;
  for (std::string line; std::getline(file, line);) {
    Message& message = messages.emplace_back();
    std::istringstream columns(line);
    std::string column;
    std::getline(columns, column, '\t');
    std::istringstream sentences(column);
    for (std::string sentence; sentences >> sentence;) message.sentences.push_back(sentence);
    while (std::getline(columns, column, '\t')) {
      const std::size_t equals = column.find('=');
      message.fields[column.substr(0, equals)] = column.substr(equals + 1);
    }
  }
  return messages;
}

std::string Without(std::string text, char unwanted) {
  std::erase(text, unwanted);
  return text;
}

// The six-bit set here has "'" in the place of the double quote, and padding stays.
void ExpectText(const std::string& read, const std::string& expected) {
  std::string plain = expected;
  std::replace(plain.begin(), plain.end(), '"', '\'');
  EXPECT_EQ(read.substr(0, read.find('@')), plain);
}

std::string LengthAndBeam(const Message& message) {
  return std::to_string(std::lround(message.Raw("to_bow") + message.Raw("to_stern"))) + " x " +
         std::to_string(std::lround(message.Raw("to_port") + message.Raw("to_starboard")));
}

void ExpectPosition(const AisPositionReport& report, const Message& message, int type,
                    bool standard) {
  EXPECT_EQ(report.message_type, type);
  EXPECT_EQ(report.mmsi, std::stol(message.fields.at("mmsi")));
  const double speed = message.Raw("speed");
  if (standard && speed == 1023) {
    EXPECT_FALSE(report.speed);
  } else {
    EXPECT_EQ(report.speed, static_cast<float>(type == 9 ? speed : speed / 10));
  }
  const double course = message.Raw("course");
  if (standard && course >= 3600) {
    EXPECT_FALSE(report.course);
  } else {
    EXPECT_EQ(report.course, static_cast<float>(course / 10));
  }
  const double longitude = message.Raw("lon") / 600000, latitude = message.Raw("lat") / 600000;
  if (standard && (std::fabs(longitude) > 180 || std::fabs(latitude) > 90)) {
    EXPECT_FALSE(report.position);
  } else {
    ASSERT_TRUE(report.position);
    EXPECT_EQ(report.position->latitude, static_cast<float>(latitude));
    EXPECT_EQ(report.position->longitude, static_cast<float>(longitude));
  }
  const int status = type <= 3 ? std::stoi(message.fields.at("status")) : type == 9 ? 0 : 1;
  EXPECT_EQ(report.nav_status, status);
}

void ExpectVoyage(const AisStaticReport& report, const Message& message, bool standard) {
  ExpectText(report.callsign, Without(message.Text("callsign"), ' '));
  ExpectText(report.name, message.Text("shipname"));
  ExpectText(report.destination, message.Text("destination"));
  EXPECT_EQ(report.ship_type, ShipTypeText(static_cast<unsigned>(message.Raw("shiptype"))));
  std::ostringstream draught;
  draught << message.Raw("draught") / 10;
  EXPECT_EQ(report.dimensions, LengthAndBeam(message) + " x " + draught.str());
  // "MM-DDTHH:MMZ"
  const std::string eta = message.fields.at("eta");
  const int month = std::stoi(eta);
  constexpr const char* kNames[] = {"",    "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul",
                                    "Aug", "Sep", "Oct", "Nov", "Dec", "",    "",    ""};
  const std::string day = eta.substr(3, 2) + "/" + kNames[month];
  const std::string time = " @ " + eta.substr(6, 5);
  if (!standard) {
    EXPECT_EQ(report.eta, day + time);
  } else if (kNames[month][0] == 0 || eta.substr(3, 2) == "00") {
    EXPECT_EQ(report.eta, "");
  } else {
    const bool timed = std::stoi(eta.substr(6, 2)) < 24 && std::stoi(eta.substr(9, 2)) < 60;
    EXPECT_EQ(report.eta, timed ? day + time : day);
  }
}

void ExpectClassBStatic(const AisClassBStaticReport& report, const Message& message) {
  EXPECT_EQ(report.mmsi, std::stol(message.fields.at("mmsi")));
  ASSERT_EQ(report.part, message.Text("part") == "A" ? 0 : 1);
  if (report.part == 0) {
    ExpectText(report.name, message.Text("shipname"));
    return;
  }
  ExpectText(report.callsign, Without(message.Text("callsign"), ' '));
  EXPECT_EQ(report.ship_type, ShipTypeText(static_cast<unsigned>(message.Raw("shiptype"))));
  EXPECT_EQ(report.dimensions, LengthAndBeam(message));
}

TEST(AisDecoder, AgreesWithAnotherDecoderOverTheRangeOfEachField) {
  const std::vector<Message> messages = Messages();
  ASSERT_GE(messages.size(), 2000U);
  for (const bool standard : {false, true}) {
    AisAssembly assembly;
    std::map<int, int> seen;
    for (const Message& message : messages) {
      SCOPED_TRACE(message.sentences.front());
      AisMessage read;
      for (const std::string& sentence : message.sentences) {
        read = DecodeAivdm(sentence, {standard}, assembly);
        ASSERT_TRUE(read.good);
      }
      const char first = message.sentences.front()[14];
      const int type = message.sentences.size() == 2 ? 5 : first < '`' ? first - 48 : first - 56;
      ++seen[type];
      const bool report = type != 5 && type != 24 && (standard || (type != 3 && type != 19));
      ASSERT_EQ(read.position.has_value(), report);
      if (report) ExpectPosition(*read.position, message, type, standard);
      ASSERT_EQ(read.static_data.has_value(), type == 5 || type == 9 || (standard && type == 19));
      if (type == 5) ExpectVoyage(*read.static_data, message, standard);
      if (type == 9) {
        const bool known = !standard || message.Text("alt") != "4095";
        EXPECT_EQ(read.static_data->callsign,
                  "Altitude = " + (known ? message.Text("alt") : "not known"));
        EXPECT_EQ(read.static_data->destination, read.static_data->callsign);
        EXPECT_EQ(read.static_data->name, "SEARCH & RESCUE");
        EXPECT_EQ(read.static_data->ship_type, "S & R");
        EXPECT_EQ(read.static_data->dimensions + read.static_data->eta, "");
      }
      if (type == 19 && standard) {
        ExpectText(read.static_data->name, message.Text("shipname"));
        EXPECT_EQ(read.static_data->dimensions, LengthAndBeam(message));
        EXPECT_EQ(read.static_data->ship_type,
                  ShipTypeText(static_cast<unsigned>(message.Raw("shiptype"))));
        EXPECT_FALSE(read.static_data->has_voyage);
      }
      ASSERT_EQ(read.class_b_static.has_value(), type == 24);
      if (type == 24) ExpectClassBStatic(*read.class_b_static, message);
      if (::testing::Test::HasFailure()) return;
    }
    EXPECT_EQ(seen.size(), 8U);
  }
}

// 168 bits of a type 1: 5 knots, 090, at 50 N 1 W.
Bits TypeOne(unsigned type = 1) {
  Bits bits;
  bits.Put(type, 6).Put(0, 2).Put(235000001, 30).Put(0, 4).Put(0, 8).Put(50, 10).Put(1, 1);
  bits.Put(-600000, 28).Put(30000000, 27).Put(900, 12).Put(511, 9).Put(0, 6).Put(0, 25);
  return bits;
}

TEST(AisDecoder, SentencesThatAreNone) {
  const std::string good = Sentence("AIVDM,1,1,,A," + TypeOne().Payload() + ",0");
  ASSERT_TRUE(Decode(good).position);
  EXPECT_TRUE(Decode(good + "\r").position);
  EXPECT_TRUE(Decode("xx" + good).position);  // what stands before "!" does not count
  for (const std::string& bad :
       {good.substr(0, good.size() - 1), good.substr(0, good.find('*')), "$" + good.substr(1),
        Sentence("AIVDO,1,1,,A," + TypeOne().Payload() + ",0"), "*" + good,
        Sentence("AIVDM,1,1,,A," + TypeOne().Payload() + ",0").replace(20, 1, "~")}) {
    EXPECT_FALSE(Decode(bad).good) << bad;
  }
  // A type 1 whose checksum has a letter, in the other case.
  for (unsigned mmsi = 1; mmsi < 40; ++mmsi) {
    Bits bits;
    bits.Put(1, 6).Put(0, 2).Put(mmsi, 30).Put(0, 130);
    std::string sentence = Sentence("AIVDM,1,1,,A," + bits.Payload() + ",0");
    const char last = sentence.back();
    if (last < 'A') continue;
    EXPECT_TRUE(Decode(sentence).good);
    sentence.back() = static_cast<char>(last + 32);
    EXPECT_FALSE(Decode(sentence).good);
    break;
  }
  // 20 characters are too few and 21 enough, with the right checksum.
  EXPECT_FALSE(Decode(Sentence("AIVDM,1,1,,A,0,0")).good);
  ASSERT_EQ(Sentence("AIVDM,1,1,,A,00,0").size(), 21U);
  EXPECT_TRUE(Decode(Sentence("AIVDM,1,1,,A,00,0")).good);
}

TEST(AisDecoder, CountsNumbersAndTypesThatAreDropped) {
  const std::string payload = TypeOne().Payload();
  for (const char* head : {"AIVDM,3,1,1,A,", "AIVDM,1,2,,A,", "AIVDM,0,1,,A,", "AIVDM,,1,,A,",
                           "AIVDM,x,1,,A,", "AIVDM,2,3,1,A,", "AIVDM,1,1,"}) {
    const AisMessage message = Decode(Sentence(head + payload + ",0"));
    EXPECT_TRUE(message.good) << head;
    EXPECT_FALSE(message.position) << head;
  }
  // The first character of a field is the number.
  EXPECT_TRUE(Decode(Sentence("AIVDM,1x,1y,,A," + payload + ",0")).position);
  EXPECT_TRUE(Decode(Sentence("AIVDM,1,1,,A," + payload)).position);
  for (unsigned type = 0; type < 64; ++type) {
    for (const bool standard : {false, true}) {
      const AisMessage message =
          Decode(Sentence("AIVDM,1,1,,A," + TypeOne(type).Payload() + ",0"), {standard});
      EXPECT_TRUE(message.good);
      const bool reports = type == 1 || type == 2 || type == 9 || type == 18 ||
                           (standard && (type == 3 || type == 19));
      EXPECT_EQ(message.position.has_value(), reports) << type;
      EXPECT_EQ(message.static_data.has_value(), type == 5 || type == 9) << type;
      // Part number 0 or 1 stands where a type 1 has the status.
      EXPECT_EQ(message.class_b_static.has_value(), type == 24) << type;
    }
  }
}

TEST(AisDecoder, EveryTypeTwentyFourPart) {
  for (unsigned part = 0; part < 4; ++part) {
    Bits bits;
    bits.Put(24, 6).Put(0, 2).Put(7, 30).Put(part, 2).Put(0, 128);
    EXPECT_EQ(Decode(Sentence("AIVDM,1,1,,A," + bits.Payload() + ",0")).class_b_static.has_value(),
              part < 2);
  }
  // A craft of a larger vessel has that one's MMSI where others have their dimensions.
  Bits craft;
  craft.Put(24, 6).Put(0, 2).Put(982351234, 30).Put(1, 2).Put(37, 8).Put(0, 84).Put(235000001, 30);
  const std::string sentence = Sentence("AIVDM,1,1,,A," + craft.Payload() + ",0");
  EXPECT_NE(Decode(sentence).class_b_static->dimensions, "");
  EXPECT_EQ(Decode(sentence, kStandard).class_b_static->dimensions, "");
}

// A type 5 of 424 bits: name, callsign and destination as given.
Bits Voyage(const std::string& name, unsigned mmsi = 235000001) {
  Bits bits;
  bits.Put(5, 6).Put(0, 2).Put(mmsi, 30).Put(0, 2).Put(0, 30).Text("M A B", 7).Text(name, 20);
  bits.Put(36, 8).Put(20, 9).Put(8, 9).Put(4, 6).Put(5, 6).Put(1, 4).Put(12, 4).Put(5, 5);
  bits.Put(14, 5).Put(7, 6).Put(21, 8).Text("LE HAVRE", 20).Put(0, 2);
  return bits;
}

struct Pair {
  std::string first, second;
};
Pair Split(const Bits& bits, const std::string& sequence, const std::string& channel) {
  const std::string payload = bits.Payload();
  return {Sentence("AIVDM,2,1," + sequence + "," + channel + "," + payload.substr(0, 60) + ",0"),
          Sentence("AIVDM,2,2," + sequence + "," + channel + "," + payload.substr(60) + ",2")};
}

TEST(AisDecoder, PairsOfFragments) {
  const Pair one = Split(Voyage("FIRST"), "1", "A");
  const Pair two = Split(Voyage("SECOND", 7), "2", "A");
  const std::string between = Sentence("AIVDM,1,1,,A," + TypeOne().Payload() + ",0");
  AisAssembly assembly;
  EXPECT_FALSE(DecodeAivdm(one.second, kTold, assembly).static_data);  // no first one
  EXPECT_FALSE(
      DecodeAivdm(Sentence("AIVDM,2,2,1,A," + Voyage("X").Payload() + ",2"), kTold, assembly)
          .static_data);
  EXPECT_FALSE(DecodeAivdm(one.first, kTold, assembly).static_data);
  EXPECT_TRUE(DecodeAivdm(between, kTold, assembly).position);
  const AisStaticReport whole = *DecodeAivdm(one.second, kTold, assembly).static_data;
  EXPECT_EQ(whole.callsign, "MAB@@");
  EXPECT_EQ(whole.name, "FIRST" + std::string(15, '@'));
  EXPECT_EQ(whole.destination, "LE HAVRE" + std::string(12, '@'));
  EXPECT_EQ(whole.dimensions, "28 x 9 x 2.1");
  EXPECT_EQ(whole.eta, "05/Dec @ 14:07");
  EXPECT_EQ(whole.ship_type, "Sailing");
  EXPECT_TRUE(whole.has_voyage);
  // Nothing guards the join of fragments of two ships: the first one stays, and the last counts.
  DecodeAivdm(one.first, kTold, assembly);
  DecodeAivdm(two.first, kTold, assembly);
  EXPECT_EQ(DecodeAivdm(one.second, kTold, assembly).static_data->mmsi, 7);
  EXPECT_EQ(DecodeAivdm(two.second, kTold, assembly).static_data->mmsi, 7);
  // A pair of another type, and the form in one sentence.
  DecodeAivdm(Sentence("AIVDM,2,1,1,A," + TypeOne().Payload().substr(0, 20) + ",0"), kTold,
              assembly);
  EXPECT_FALSE(DecodeAivdm(Sentence("AIVDM,2,2,1,A," + TypeOne().Payload().substr(20) + ",0"),
                           kTold, assembly)
                   .position);
  EXPECT_EQ(Decode(Sentence("AIVDM,1,1,,A," + Voyage("ONE").Payload() + ",2")).static_data->eta,
            "05/Dec @ 14:07");
}

TEST(AisDecoder, StandardFragments) {
  const Pair one = Split(Voyage("FIRST", 1), "1", "A");
  const Pair two = Split(Voyage("SECOND", 2), "2", "A");
  const Pair three = Split(Voyage("THIRD", 3), "1", "B");
  AisAssembly assembly;
  const auto mmsi = [&](const std::string& sentence) {
    const AisMessage message = DecodeAivdm(sentence, kStandard, assembly);
    EXPECT_TRUE(message.good);
    return message.static_data ? message.static_data->mmsi : 0;
  };
  EXPECT_EQ(mmsi(one.second), 0);
  for (const Pair* pair : {&one, &two, &three}) EXPECT_EQ(mmsi(pair->first), 0);
  EXPECT_EQ(mmsi(three.second), 3);
  EXPECT_EQ(mmsi(one.second), 1);
  EXPECT_EQ(mmsi(two.second), 2);
  EXPECT_EQ(mmsi(two.second), 0);  // it is used up
  // Three fragments, of any type; one that is missing spoils them.
  const std::string payload = Voyage("LONG", 4).Payload();
  const auto part = [&](int number, std::size_t from) {
    return Sentence("AIVDM,3," + std::to_string(number) + ",7,A," + payload.substr(from, 24) +
                    ",0");
  };
  EXPECT_EQ(mmsi(part(1, 0)), 0);
  EXPECT_EQ(mmsi(part(2, 24)), 0);
  EXPECT_EQ(mmsi(part(3, 48)), 4);
  EXPECT_EQ(mmsi(part(1, 0)), 0);
  EXPECT_EQ(mmsi(part(3, 48)), 0);
  EXPECT_EQ(mmsi(part(2, 24)), 0);  // too late
  EXPECT_EQ(mmsi(part(3, 48)), 4);  // and now its turn
  const std::string report = TypeOne(3).Payload();
  DecodeAivdm(Sentence("AIVDM,2,1,3,A," + report.substr(0, 20) + ",0"), kStandard, assembly);
  EXPECT_TRUE(
      DecodeAivdm(Sentence("AIVDM,2,2,3,A," + report.substr(20) + ",0"), kStandard, assembly)
          .position);
  // The rest never came and the sequence number is in use again.
  mmsi(one.first);
  for (int i = 0; i < 40; ++i) mmsi(Sentence("AIVDM,2,1,9,B," + report.substr(0, 20) + ",0"));
  EXPECT_EQ(mmsi(one.second), 0);
}

TEST(AisDecoder, MessagesCutShort) {
  // The last bits there are, are the number; behind them stands 0.
  const std::string payload = TypeOne().Payload();
  const auto cut = [&](std::size_t characters, const AisDecoderOptions& options) {
    return *Decode(Sentence("AIVDM,1,1,,A," + payload.substr(0, characters) + ",0"), options)
                .position;
  };
  // 60 bits: all of the speed; then 61 would begin the longitude.
  EXPECT_EQ(cut(10, kTold).speed, 5.0F);
  EXPECT_EQ(cut(10, kTold).position, (Position{0.0F, 0.0F}));
  EXPECT_EQ(cut(10, kTold).course, 0.0F);
  EXPECT_EQ(cut(10, kStandard).speed, 5.0F);
  EXPECT_FALSE(cut(10, kStandard).position);
  EXPECT_FALSE(cut(10, kStandard).course);
  EXPECT_TRUE(cut(20, kStandard).position);
  EXPECT_FALSE(cut(20, kStandard).course);
  // 66 bits hold 5 of the longitude's 28: ones for -600000, 31 less 2^28.
  EXPECT_EQ(cut(11, kTold).position->longitude, static_cast<float>((31 - 268435456.0) / 600000.0));
}

TEST(AisDecoder, CharactersThatAreNoArmouring) {
  EXPECT_EQ(AisBits("0").Take(6), 0U);
  EXPECT_EQ(AisBits("W").Take(6), 39U);
  EXPECT_EQ(AisBits("`").Take(6), 40U);
  EXPECT_EQ(AisBits("w").Take(6), 63U);
  for (const char* none : {"/", "X", "_", "x", " ", "\x80", "\xFF", "~"}) {
    EXPECT_EQ(AisBits(none).Take(6), 0U) << none;
  }
  // Every start and width, against the bits one by one.
  std::string payload;
  for (int i = 0; i < 72; ++i) payload += "0W`w5gKt"[i * 7 % 8];
  for (unsigned from = 0; from < 432; from += 5) {
    for (unsigned width = 1; width <= 32; ++width) {
      AisBits bits(payload), single(payload);
      bits.Skip(from), single.Skip(from);
      std::uint32_t expected = 0;
      for (unsigned i = 0; i < width && from + i < 432; ++i) {
        expected = expected << 1 | single.Take(1);
      }
      ASSERT_EQ(bits.Take(width), expected) << from << " " << width;
    }
  }
  AisBits full(std::string(5000, 'w'));
  full.Skip(431);
  EXPECT_EQ(full.Take(6), 1U);
  EXPECT_TRUE(full.Overrun());
  EXPECT_EQ(AisBits("w").TakeSigned(6), -1);
  EXPECT_EQ(AisBits("P").TakeSigned(6), -32);
  EXPECT_EQ(AisBits("O").TakeSigned(6), 31);
}

TEST(AisDecoder, SixBitSet) {
  std::string set;
  for (unsigned i = 0; i < 64; ++i) set += SixBitText(i);
  EXPECT_EQ(set, "@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_ !'#$%&'()*+,-./0123456789:;<=>?");
}

TEST(AisDecoder, TypeTexts) {
  std::ifstream table(SKERROW_SOURCE_DIR "/tests/instruments/data/ship-types.txt");
  unsigned expected = 0;
  for (std::string range, text; std::getline(table, range, '\t') && std::getline(table, text);) {
    const auto dash = range.find('-');
    const unsigned long last =
        std::stoul(dash == std::string::npos ? range : range.substr(dash + 1));
    for (; expected <= last; ++expected) EXPECT_EQ(ShipTypeText(expected), text) << expected;
  }
  EXPECT_EQ(expected, 256U);
  const std::string states[] = {
      "Underway engine",        "",           "Not Under Command", "Restricted manoeuvrability",
      "Constrained by draught", "Moored",     "Aground",           "Fishing",
      "Underway sailing",       "Not defined"};
  for (int code = 0; code < 16; ++code) {
    EXPECT_EQ(NavStatusText(code), states[std::min(code, 9)]);
  }
  EXPECT_EQ(NavStatusText(-1), "Not defined");
}

}  // namespace
}  // namespace skerrow
