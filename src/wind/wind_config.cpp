#include "wind/wind_config.h"

#include "core/files.h"

namespace skerrow {

Wind WindConfig::Default() const {
  return {.speed_kn = static_cast<float>(TextToNumber(default_speed)),
          .from_deg = static_cast<float>(TextToNumber(default_direction))};
}

WindConfig LoadWindConfig(const Folders& folders) {
  WindConfig config;
  const std::string path = folders.WindConfigFile();
  if (!FileReadable(path)) {
    (void)ReplaceFile(path, EncodeRecord(config, kWindConfigFields));
    return config;
  }
  if (const Result<std::string> content = ReadFile(path)) {
    DecodeRecord(*content, kWindConfigFields, config);
  }
  return config;
}

}  // namespace skerrow
