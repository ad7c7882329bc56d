#pragma once

#include <string>

// Which keys the typed fields of the dialogs accept.
namespace skerrow {

enum class KeyFilter {
  kNumber,        // digits and "."
  kSignedNumber,  // digits, ".", "-" and "+"
  kQuietNumber,   // the same; other keys are dropped without a beep
  kVariation,     // digits, ".", and "W" and "E" in either case
  kLatitude,      // digits, ".", and "N" and "S" in either case
  kLongitude,     // digits, ".", and "E" and "W" in either case
  kTime,          // digits and ":"
  kWholeNumber,   // digits
};

struct KeyVerdict {
  bool pass = false;
  char32_t typed = 0;  // what goes into the field: letters in upper case
  bool beep = false;   // with a key that is dropped
};

// Judges one typed character. Backspace and the other editing keys are the field's own and are not
// asked about.
KeyVerdict JudgeKey(KeyFilter filter, char32_t key);

// `text` without what the filter drops, as a paste leaves it.
std::u32string FilterText(KeyFilter filter, const std::u32string& text);

}  // namespace skerrow
