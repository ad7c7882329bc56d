#include "tides/diamond.h"

#include <algorithm>
#include <cmath>

namespace skerrow {

std::string DiamondFilePath(const Folders& folders, std::string_view tidal_area) {
  return JoinPath(folders.TidalStreams(), Trim(tidal_area) + ".l25");
}

Result<std::vector<Diamond>> ReadDiamonds(const std::string& path) {
  return ReadRecords(path, kDiamondFields);
}

bool IsSound(const Diamond& diamond) {
  const auto finite = [](float value) { return std::isfinite(value); };
  const auto all_finite = [&](const auto& values) {
    return std::all_of(values.begin(), values.end(), finite);
  };
  return finite(diamond.chart_no) && finite(diamond.dia_no) && finite(diamond.ref_port) &&
         finite(diamond.sp_range) && finite(diamond.np_range) && finite(diamond.latitude) &&
         finite(diamond.longitude) && all_finite(diamond.direction) &&
         all_finite(diamond.spring_rate) && all_finite(diamond.neap_rate);
}

std::vector<Diamond> KeepCharted(const std::vector<Diamond>& records) {
  std::vector<Diamond> kept;
  for (const Diamond& diamond : records) {
    if (diamond.latitude > 35.0F && diamond.latitude < 75.0F && IsSound(diamond)) {
      kept.push_back(diamond);
    }
  }
  return kept;
}

std::vector<std::int16_t> FindRefPorts(const std::vector<Diamond>& records) {
  std::vector<std::int16_t> ports;
  for (const Diamond& diamond : records) {
    const std::int16_t port = RoundToInt16(diamond.ref_port);
    if (std::find(ports.begin(), ports.end(), port) == ports.end()) ports.push_back(port);
  }
  return ports;
}

std::string DiamondLabel(const Diamond& diamond) {
  return ShortText(diamond.chart_no) + ", " + ShortText(diamond.dia_no);
}

}  // namespace skerrow
