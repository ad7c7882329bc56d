#include "ui/forms/settings_table.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr const char* kSet = "1";

double ValueOf(const SettingField& field, const AppConfig& config) {
  return std::visit([&](auto member) { return static_cast<double>(config.*member); }, field.field);
}

// Stores a value in the type of its field: a whole number rounded, and no negative zero.
void Store(const SettingField& field, double value, AppConfig& config) {
  if (value == 0.0) value = 0.0;
  if (const auto* single = std::get_if<float AppConfig::*>(&field.field)) {
    config.** single = static_cast<float>(value);
  } else if (const auto* whole = std::get_if<std::int16_t AppConfig::*>(&field.field)) {
    config.** whole = RoundToInt16(value);
  } else {
    config.*std::get<std::int32_t AppConfig::*>(field.field) = static_cast<std::int32_t>(value);
  }
}

std::string TextOf(const SettingField& field, const AppConfig& config) {
  const double value = ValueOf(field, config);
  const auto single = static_cast<float>(value);
  switch (field.kind) {
    case SettingKind::kNumber:
      return ShortText(single);
    case SettingKind::kTenths:
      return FormatFixed(value, 1, 1);
    case SettingKind::kVariation:
      return ShortText(std::fabs(single)) + (value < 0.0 ? "W" : "E");
    case SettingKind::kMark:
    case SettingKind::kMarkOne:
    case SettingKind::kOption:
      return value != 0.0 ? kSet : "";
    case SettingKind::kMarkClear:
      return value == 0.0 ? kSet : "";
    case SettingKind::kColour:
      return std::to_string(static_cast<std::int64_t>(value));
  }
  return "";
}

// The value of a typed text by the rule of its field; none when it is refused.
std::optional<double> Judge(const SettingField& field, std::string_view text) {
  const std::string trimmed = Trim(text);
  double value = TextToNumber(trimmed);
  if (field.kind == SettingKind::kVariation) {
    if (trimmed.empty() || (trimmed.back() != 'W' && trimmed.back() != 'E')) return std::nullopt;
    return trimmed.back() == 'W' ? -value : value;
  }
  // Held against the rule as it will be stored: 0.4 of a pixel is none.
  AppConfig stored;
  Store(field, value, stored);
  value = ValueOf(field, stored);
  switch (field.rule) {
    case SettingRule::kAny:
      break;
    case SettingRule::kNotZero:
      if (value == 0.0) return std::nullopt;
      break;
    case SettingRule::kAtLeast:
      if (!(value >= static_cast<double>(field.least))) return std::nullopt;
      break;
    case SettingRule::kRaised:
      value = std::max(value, static_cast<double>(field.least));
      break;
  }
  return value;
}

bool Take(const SettingField& field, std::string_view text, AppConfig& config) {
  const bool set = !text.empty();
  switch (field.kind) {
    case SettingKind::kMark:
    case SettingKind::kOption:
      Store(field, set ? kTrue : kFalse, config);
      return true;
    case SettingKind::kMarkOne:
      Store(field, set ? 1 : 0, config);
      return true;
    case SettingKind::kMarkClear:
      Store(field, set ? kFalse : kTrue, config);
      return true;
    case SettingKind::kNumber:
    case SettingKind::kTenths:
    case SettingKind::kVariation:
    case SettingKind::kColour:
      break;
  }
  const std::optional<double> value = Judge(field, text);
  if (value) Store(field, *value, config);
  return value.has_value();
}

}  // namespace

SettingTexts ShowSettings(std::span<const SettingField> fields, const AppConfig& config) {
  SettingTexts texts;
  for (const SettingField& field : fields) texts.push_back(TextOf(field, config));
  return texts;
}

std::optional<SettingRefusal> TakeSettings(std::span<const SettingField> fields,
                                           const SettingTexts& texts, AppConfig& config) {
  AppConfig changed = config;
  for (std::size_t row = 0; row < fields.size(); ++row) {
    const SettingField& field = fields[row];
    if (Take(field, texts[row], changed)) continue;
    const bool empty = Trim(texts[row]).empty() && *field.empty_refusal != '\0';
    return SettingRefusal{row, empty ? field.empty_refusal : field.refusal};
  }
  config = std::move(changed);
  return std::nullopt;
}

}  // namespace skerrow
