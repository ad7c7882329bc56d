#include "tides/port.h"

#include "core/data_files.h"

namespace skerrow {

int TimeZoneHours(std::string_view letter) {
  return letter.empty() || letter[0] == ' ' ? 0 : 'L' - letter[0];
}

std::string TimeZoneLetter(int hours) {
  return std::string(1, hours < -11 || hours > 11 ? 'L' : static_cast<char>('L' - hours));
}

std::string AreaPortFile(const Folders& folders, std::string_view file_name) {
  return FindData(folders, DataFolder::kTidalStreams, file_name);
}

Result<RecordFile<Port>> ReadAreaPorts(const Folders& folders, std::string_view file_name) {
  return ReadRecords(AreaPortFile(folders, file_name), kPortFields);
}

Result<Port> ReadAreaPort(const Folders& folders, std::string_view file_name, int position) {
  const Result<RecordFile<Port>> ports = ReadAreaPorts(folders, file_name);
  if (!ports) return ports.error();
  const std::string path = AreaPortFile(folders, file_name);
  if (position < 1 || static_cast<std::size_t>(position) > ports->records.size()) {
    return Error{path, "there is no port number " + std::to_string(position)};
  }
  const std::optional<Port>& port = ports->records[static_cast<std::size_t>(position - 1)];
  if (!port) return Error{path, "the record of port " + std::to_string(position) + " is damaged"};
  return *port;
}

Result<RecordFile<Port>> ReadRefPorts(const Folders& folders) {
  return ReadRecords(folders.RefPortFile(), kRefPortFields);
}

std::vector<PortMarker> LoadPortMarkers(const Folders& folders, std::string_view file_name,
                                        Messages& messages) {
  std::vector<PortMarker> markers;
  const Result<RecordFile<Port>> ports = ReadAreaPorts(folders, file_name);
  if (!ports) return markers;
  TellLeftOut(AreaPortFile(folders, file_name), ports->left_out, messages);
  for (const Port& port : ports->Sound()) {
    markers.push_back({Trim(port.name), port.latitude, port.longitude});
  }
  return markers;
}

}  // namespace skerrow
