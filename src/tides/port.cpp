#include "tides/port.h"

#include <cmath>

namespace skerrow {

int TimeZoneHours(std::string_view letter) {
  return letter.empty() || letter[0] == ' ' ? 0 : 'L' - letter[0];
}

std::string TimeZoneLetter(int hours) {
  return std::string(1, hours < -11 || hours > 11 ? 'L' : static_cast<char>('L' - hours));
}

bool IsSound(const Port& port) {
  const std::string record = EncodeRecord(port, kRefPortFields);
  for (const auto& field : kRefPortFields) {
    if (field.type == FieldType::kText) continue;
    for (std::size_t at = field.offset; at < field.offset + field.size; at += 4) {
      if (!std::isfinite(bytes::GetFloat(record, at))) return false;
    }
  }
  return true;
}

Result<std::vector<Port>> ReadAreaPorts(const Folders& folders, std::string_view file_name) {
  return ReadRecords(JoinPath(folders.TidalStreams(), file_name), kPortFields);
}

Result<Port> ReadAreaPort(const Folders& folders, std::string_view file_name, int position) {
  const Result<std::vector<Port>> ports = ReadAreaPorts(folders, file_name);
  if (!ports) return ports.error();
  if (position < 1 || static_cast<std::size_t>(position) > ports->size()) {
    return Error{JoinPath(folders.TidalStreams(), file_name),
                 "there is no port number " + std::to_string(position)};
  }
  return (*ports)[static_cast<std::size_t>(position - 1)];
}

Result<std::vector<Port>> ReadRefPorts(const Folders& folders) {
  return ReadRecords(folders.RefPortFile(), kRefPortFields);
}

std::vector<PortMarker> LoadPortMarkers(const Folders& folders, std::string_view file_name) {
  std::vector<PortMarker> markers;
  const Result<std::vector<Port>> ports = ReadAreaPorts(folders, file_name);
  if (!ports) return markers;
  for (const Port& port : *ports)
    markers.push_back({Trim(port.name), port.latitude, port.longitude});
  return markers;
}

}  // namespace skerrow
