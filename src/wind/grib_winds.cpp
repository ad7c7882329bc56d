#include "wind/grib_winds.h"

#include "core/files.h"

namespace skerrow {

std::vector<WindCell> WindCellsOf(std::span<const GribWind> winds) {
  constexpr float kPlaceholderLongitude = 1.0F;
  std::vector<WindCell> cells(1);
  cells[0].longitude = kPlaceholderLongitude;
  cells.reserve(1 + winds.size());
  for (const GribWind& wind : winds) {
    cells.push_back({wind.time, wind.latitude, wind.longitude, wind.speed, wind.direction});
  }
  return cells;
}

std::string GribWindFile(const Folders& folders) {
  return JoinPath(folders.SettingsData(), "~GrDa.tmp");
}

Status WriteGribWinds(const Folders& folders, std::span<const GribWind> winds) {
  return ReplaceFile(GribWindFile(folders), EncodeRecords(winds, kGribWindFields));
}

Result<std::vector<GribWind>> ReadGribWinds(const Folders& folders) {
  constexpr std::size_t kMaxSize = std::size_t{1} << 31U;
  const Result<std::string> content = ReadFile(GribWindFile(folders), kMaxSize);
  if (!content) return content.error();
  std::vector<GribWind> winds(content->size() / kGribWindSize);
  for (std::size_t i = 0; i < winds.size(); ++i) {
    const std::size_t at = i * kGribWindSize;
    GribWind& wind = winds[i];
    wind.time = bytes::GetFloat(*content, at);
    wind.latitude = bytes::GetFloat(*content, at + 4);
    wind.longitude = bytes::GetFloat(*content, at + 8);
    wind.speed = bytes::GetFloat(*content, at + 12);
    wind.direction = bytes::GetFloat(*content, at + 16);
    wind.u = bytes::GetFloat(*content, at + 20);
    wind.v = bytes::GetFloat(*content, at + 24);
    wind.frame = static_cast<std::int32_t>(bytes::Get32(*content, at + 28));
  }
  return winds;
}

}  // namespace skerrow
