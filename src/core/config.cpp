#include "core/config.h"

#include <charconv>
#include <cmath>

#include "core/files.h"

namespace skerrow {
namespace {

// A text that is one number from its first to its last character.
bool WholeNumberText(std::string_view text, double& value) {
  const std::string trimmed = Trim(text);
  const char* end = trimmed.data() + trimmed.size();
  const auto [at, error] = std::from_chars(trimmed.data(), end, value);
  return error == std::errc() && at == end && std::isfinite(value);
}

bool IntegerText(std::string_view text, double low, double high, double& value) {
  return WholeNumberText(text, value) && value == std::trunc(value) && value >= low &&
         value <= high;
}

std::vector<std::string> SplitAtCommas(std::string_view text) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  for (std::size_t at = text.find(','); at != std::string_view::npos; at = text.find(',', from)) {
    parts.push_back(Trim(text.substr(from, at - from)));
    from = at + 1;
  }
  parts.push_back(Trim(text.substr(from)));
  return parts;
}

bool ColourText(std::string_view text, double& value) {
  const std::vector<std::string> parts = SplitAtCommas(text);
  if (parts.size() != 3) return IntegerText(text, INT32_MIN, INT32_MAX, value);
  int channel[3] = {};
  for (std::size_t i = 0; i < 3; ++i) {
    double number = 0;
    if (!IntegerText(parts[i], 0, 255, number)) return false;
    channel[i] = static_cast<int>(number);
  }
  value = Rgb(channel[0], channel[1], channel[2]);
  return true;
}

bool BooleanText(std::string_view text, double& value) {
  const std::string lower = ToLowerAscii(Trim(text));
  if (lower == "true" || lower == "-1" || lower == "1") {
    value = kTrue;
  } else if (lower == "false" || lower == "0") {
    value = kFalse;
  } else {
    return false;
  }
  return true;
}

// Sets one member from its text; false when the text does not fit.
struct SetMember {
  AppConfig& config;
  const RecordField<AppConfig>& field;
  std::string_view text;

  bool operator()(std::string AppConfig::*member) const {
    if (ToAnsi(text).size() > field.size) return false;
    config.*member = TrimRight(text);
    return true;
  }
  bool operator()(std::int16_t AppConfig::*member) const {
    double value = 0;
    const bool good = field.type == FieldType::kBool16
                          ? BooleanText(text, value)
                          : IntegerText(text, INT16_MIN, INT16_MAX, value);
    if (good) config.*member = static_cast<std::int16_t>(value);
    return good;
  }
  bool operator()(std::int32_t AppConfig::*member) const {
    double value = 0;
    const bool good = field.type == FieldType::kColour
                          ? ColourText(text, value)
                          : IntegerText(text, INT32_MIN, INT32_MAX, value);
    if (good) config.*member = static_cast<std::int32_t>(value);
    return good;
  }
  bool operator()(float AppConfig::*member) const {
    double value = 0;
    if (!WholeNumberText(text, value) || !std::isfinite(static_cast<float>(value))) return false;
    config.*member = static_cast<float>(value);
    return true;
  }
  bool operator()(std::array<std::int16_t, 8> AppConfig::*member) const {
    const std::vector<std::string> parts = SplitAtCommas(text);
    std::array<std::int16_t, 8> values{};
    if (parts.size() != values.size()) return false;
    for (std::size_t i = 0; i < values.size(); ++i) {
      double value = 0;
      if (!IntegerText(parts[i], INT16_MIN, INT16_MAX, value)) return false;
      values[i] = static_cast<std::int16_t>(value);
    }
    config.*member = values;
    return true;
  }
  template <typename Other>
  bool operator()(Other) const {
    return false;
  }
};

// Writes a copy of the settings to `path`; an earlier and different one there gets a number first.
Status KeepCopy(const std::string& path, const std::string& content) {
  if (FileIsThere(path)) {
    const Result<std::string> earlier = ReadFile(path);
    if (earlier && *earlier == content) return Done{};
    const std::string stem = path.substr(0, path.rfind('.'));
    int number = 1;
    while (FileIsThere(stem + "-" + std::to_string(number) + ".bak")) ++number;
    if (Status moved = MoveFile(path, stem + "-" + std::to_string(number) + ".bak"); !moved) {
      return moved;
    }
  }
  return ReplaceFile(path, content);
}

}  // namespace

AppConfig DefaultConfig(const std::string& program_folder) {
  AppConfig config;
  config.chart_path = JoinPath(program_folder, "Charts/9999-1");
  config.text_folder = NativePath(program_folder);
  config.chart_folder = JoinPath(program_folder, "Charts");
  return config;
}

bool WriteDefaultConfig(const Folders& folders, Messages& messages) {
  if (SaveConfig(folders, DefaultConfig(folders.program))) return true;
  messages.Show("Unable to create a configuration file.", MessageIcon::kWarning);
  return false;
}

Result<std::string> RestoreDefaultConfig(const Folders& folders) {
  const std::string path = folders.ConfigFile();
  const std::string defaults = EncodeRecord(DefaultConfig(folders.program), kAppConfigFields);
  std::string copy;
  if (FileIsThere(path)) {
    const Result<std::string> stored = ReadFile(path);
    if (!stored) return stored.error();
    if (*stored == defaults) return std::string();
    copy = JoinPath(folders.SettingsData(), "HelmConfig.bak");
    if (const Status kept = KeepCopy(copy, *stored); !kept) return kept.error();
  }
  if (const Status written = ReplaceFile(path, defaults); !written) return written.error();
  return copy;
}

Status ReadConfig(const Folders& folders, AppConfig& config) {
  const Result<std::string> content = ReadFile(folders.ConfigFile());
  if (!content) return content.error();
  DecodeRecord(*content, kAppConfigFields, config);
  return Done{};
}

Status SaveConfig(const Folders& folders, const AppConfig& config) {
  return ReplaceFile(folders.ConfigFile(), EncodeRecord(config, kAppConfigFields));
}

Status ReloadThenSave(const Folders& folders, AppConfig& config,
                      const std::function<void(AppConfig&)>& change) {
  (void)ReadConfig(folders, config);  // An unreadable file is replaced by what memory holds.
  change(config);
  return SaveConfig(folders, config);
}

Status SetConfigField(AppConfig& config, std::string_view name, std::string_view text) {
  for (const RecordField<AppConfig>& field : kAppConfigFields) {
    if (name != field.name) continue;
    if (std::visit(SetMember{config, field, text}, field.member)) return Done{};
    return Error{"", "\"" + std::string(text) + "\" does not fit the setting " + field.name + " (" +
                         FieldTypeName(field.type, field.size) + ")"};
  }
  return Error{"", "there is no setting called \"" + std::string(name) + "\""};
}

}  // namespace skerrow
