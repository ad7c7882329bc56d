#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/config.h"
#include "ui/widgets/key_filters.h"

// A settings dialog as a table: one row for each control, with its field of the settings record.
namespace skerrow {

using SettingMember =
    std::variant<float AppConfig::*, std::int16_t AppConfig::*, std::int32_t AppConfig::*>;

enum class SettingKind {
  kNumber,
  kTenths,     // shown as "3.0"
  kVariation,  // a size with "W" or "E" behind it; west is negative
  kMark,       // a check box; the record has -1 for set
  kMarkOne,    // the record has 1 for set
  kMarkClear,  // the record has 0 for set and -1 otherwise
  kOption,     // one of two options; the record has -1 for this one
  kColour,
};

enum class SettingRule {
  kAny,
  kNotZero,  // 0 is refused
  kAtLeast,  // less than `least` is refused
  kRaised,   // less than `least` becomes `least`
};

struct SettingField {
  const char* control;  // published name
  SettingMember field;
  SettingKind kind = SettingKind::kNumber;
  const char* label = "";
  const char* unit = "";
  const char* tip = "";
  KeyFilter filter = KeyFilter::kNumber;
  // The choices of a list; one that takes no typing has only these.
  std::vector<std::string> choices{};
  bool typed = true;
  // The control and caption of the other option.
  const char* other_control = "";
  const char* other_label = "";
  SettingRule rule = SettingRule::kAny;
  float least = 0.0F;
  const char* refusal = "";  // the words when the rule is broken, or a variation has no letter
  const char* empty_refusal = "";  // those for an empty box, where they are others
  bool beep = false;               // before the words
};

// What the controls show: a number as its text, a mark as "1" or "", a colour in decimal. One for
// each row of the table.
using SettingTexts = std::vector<std::string>;

SettingTexts ShowSettings(std::span<const SettingField> fields, const AppConfig& config);

// Takes the texts into the record, row by row. The first row that refuses its text ends it: its
// index comes back, with the words to show, and the record is as it was.
struct SettingRefusal {
  std::size_t row = 0;
  std::string_view text;
};
std::optional<SettingRefusal> TakeSettings(std::span<const SettingField> fields,
                                           const SettingTexts& texts, AppConfig& config);

}  // namespace skerrow
