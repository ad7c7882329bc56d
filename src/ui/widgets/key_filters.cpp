#include "ui/widgets/key_filters.h"

#include <string_view>

namespace skerrow {
namespace {

// What a filter takes beside digits.
std::u32string_view Extras(KeyFilter filter) {
  switch (filter) {
    case KeyFilter::kNumber:
    case KeyFilter::kQuietNumber:
      return U".";
    case KeyFilter::kSignedNumber:
      return U".-+";
    case KeyFilter::kVariation:
    case KeyFilter::kLongitude:
      return U".EW";
    case KeyFilter::kLatitude:
      return U".NS";
    case KeyFilter::kTime:
      return U":";
    case KeyFilter::kWholeNumber:
      break;
  }
  return U"";
}

}  // namespace

KeyVerdict JudgeKey(KeyFilter filter, char32_t key) {
  const char32_t upper = key >= U'a' && key <= U'z' ? key - U'a' + U'A' : key;
  const bool digit = key >= U'0' && key <= U'9';
  if (digit || Extras(filter).find(upper) != std::u32string_view::npos) return {true, upper, false};
  return {false, 0, filter != KeyFilter::kQuietNumber};
}

std::u32string FilterText(KeyFilter filter, const std::u32string& text) {
  std::u32string kept;
  for (const char32_t key : text) {
    const KeyVerdict verdict = JudgeKey(filter, key);
    if (verdict.pass) kept.push_back(verdict.typed);
  }
  return kept;
}

}  // namespace skerrow
