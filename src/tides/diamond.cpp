#include "tides/diamond.h"

#include <algorithm>

#include "core/data_files.h"

namespace skerrow {

std::string DiamondFilePath(const Folders& folders, std::string_view tidal_area) {
  return FindData(folders, DataFolder::kTidalStreams, Trim(tidal_area) + ".l25");
}

Result<RecordFile<Diamond>> ReadDiamonds(const std::string& path) {
  return ReadRecords(path, kDiamondFields);
}

std::vector<Diamond> KeepCharted(const std::vector<Diamond>& records) {
  std::vector<Diamond> kept;
  for (const Diamond& diamond : records) {
    if (diamond.latitude > 35.0F && diamond.latitude < 75.0F) kept.push_back(diamond);
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
