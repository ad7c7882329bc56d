#include "wind/wind_config.h"

#include "core/files.h"
#include "core/numbers.h"

namespace skerrow {

Wind WindConfig::Default() const {
  return {.speed_kn = static_cast<float>(TextToNumber(default_speed)),
          .from_deg = static_cast<float>(TextToNumber(default_direction))};
}

void WindConfig::SetDefault(const Wind& wind) {
  default_speed = FormatFixed(wind.speed_kn, 1, 1);
  default_direction = FormatFixed(wind.from_deg, 1, 0);
}

WindConfig LoadWindConfig(const Folders& folders) {
  WindConfig config;
  const std::string path = folders.WindConfigFile();
  if (!FileReadable(path)) {
    (void)SaveWindConfig(folders, config);
    return config;
  }
  if (const Result<std::string> content = ReadFile(path)) {
    DecodeRecord(*content, kWindConfigFields, config);
  }
  return config;
}

Status SaveWindConfig(const Folders& folders, const WindConfig& config) {
  return ReplaceFile(folders.WindConfigFile(), EncodeRecord(config, kWindConfigFields));
}

}  // namespace skerrow
