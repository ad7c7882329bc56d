#pragma once

#include <string>
#include <string_view>

// Sentences made bit by bit, for the tests.
namespace skerrow::testing {

// Bits of an AIS message as text, and their armouring.
class Bits {
 public:
  // The low `width` bits of a number, the first bit most significant; any width.
  Bits& Put(long long value, unsigned width) {
    for (unsigned i = width; i-- > 0;) bits_ += i < 63 && (value >> i & 1) != 0 ? '1' : '0';
    return *this;
  }
  Bits& Text(std::string_view text, unsigned characters) {
    for (unsigned i = 0; i < characters; ++i) {
      const char c = i < text.size() ? text[i] : '@';
      Put(c >= '@' ? c - '@' : c, 6);
    }
    return *this;
  }
  std::string Payload() const {
    std::string payload;
    for (std::size_t at = 0; at < bits_.size(); at += 6) {
      int value = 0;
      for (std::size_t i = at; i < at + 6; ++i) {
        value = 2 * value + (i < bits_.size() && bits_[i] == '1');
      }
      payload += static_cast<char>(value < 40 ? value + '0' : value - 40 + '`');
    }
    return payload;
  }

 private:
  std::string bits_;
};

// `body` with its start and checksum.
inline std::string Sentence(const std::string& body, char start = '!') {
  int sum = 0;
  for (const char c : body) sum ^= static_cast<unsigned char>(c);
  constexpr const char* kDigits = "0123456789ABCDEF";
  return start + body + '*' + kDigits[sum >> 4] + kDigits[sum & 15];
}

}  // namespace skerrow::testing
