#include "platform/port_numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <optional>
#include <span>

#include "core/files.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr std::string_view kHeading = "Skerrow ports 1";
constexpr std::size_t kMostFile = std::size_t{256} * 1024;
constexpr int kMostKept = 9;  // damaged files
constexpr std::size_t kFields = 5;
constexpr std::array<std::string_view, 4> kKindNames = {"device", "path", "tcp", "udp"};
constexpr const char* kForms =
    "A source is \"TCP host:port\", \"UDP port\", \"UDP address:port\" or the path of a device";

std::optional<int> WholeNumber(std::string_view text, int least, int most) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  if (value < least || value > most) return std::nullopt;
  return value;
}

std::vector<std::string_view> Split(std::string_view text, char at) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(at);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

// A text without what would break the lines of the file.
std::string OneField(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
  return Trim(text);
}

bool IsHost(std::string_view text) {
  return !text.empty() && text.find_first_of(" \t\"'/\\") == std::string_view::npos;
}

std::optional<NumberedPort> ParseLine(std::string_view line) {
  const std::vector<std::string_view> fields = Split(line, '\t');
  if (fields.size() != kFields) return std::nullopt;
  const auto number = WholeNumber(fields[0], 1, kLastPortNumber);
  const auto* const kind = std::find(kKindNames.begin(), kKindNames.end(), fields[1]);
  if (!number || kind == kKindNames.end() || fields[2].empty()) return std::nullopt;
  return NumberedPort{*number,
                      static_cast<PortKind>(kind - kKindNames.begin()),
                      std::string(fields[2]),
                      std::string(fields[3]),
                      std::string(fields[4]),
                      false};
}

// None for a text that is no file of ours.
std::optional<std::vector<NumberedPort>> ParseFile(std::string_view text) {
  std::vector<std::string_view> lines = Split(text, '\n');
  if (lines.front() != kHeading || !lines.back().empty()) return std::nullopt;
  lines.pop_back();
  std::vector<NumberedPort> ports;
  for (const std::string_view line : std::span(lines).subspan(1)) {
    const std::optional<NumberedPort> port = ParseLine(line);
    const auto same = [&](const NumberedPort& other) { return other.number == port->number; };
    if (!port || std::any_of(ports.begin(), ports.end(), same)) return std::nullopt;
    ports.push_back(*port);
  }
  return ports;
}

// Whether a port is present as far as it can be told without the list of devices.
bool IsThere(const NumberedPort& port) {
  std::error_code none;
  return port.kind == PortKind::kTcp || port.kind == PortKind::kUdp ||
         (port.kind == PortKind::kPath && std::filesystem::exists(port.place, none));
}

void KeepAside(const std::string& file) {
  for (int number = 1; number <= kMostKept; ++number) {
    if (MoveFile(file, file + ".damaged" + std::to_string(number))) return;
  }
}

}  // namespace

Result<NumberedPort> ParseSource(std::string_view typed) {
  const Error wrong{"", kForms};
  const std::string text = Trim(typed);
  NumberedPort port;
  if (text.starts_with('/')) {
    port.kind = PortKind::kPath;
    port.place = OneField(text);
    return port;
  }
  const std::string start = ToLowerAscii(text.substr(0, 4));
  if (start != "tcp " && start != "udp ") return wrong;
  port.kind = start == "tcp " ? PortKind::kTcp : PortKind::kUdp;
  const std::string rest = Trim(text.substr(4));
  const std::size_t colon = rest.rfind(':');
  const bool has_host = colon != std::string::npos;
  const auto number = WholeNumber(has_host ? rest.substr(colon + 1) : rest, 1, 65535);
  if (!number || has_host != (has_host && IsHost(rest.substr(0, colon)))) return wrong;
  if (port.kind == PortKind::kTcp && !has_host) return wrong;
  port.place = (has_host ? rest.substr(0, colon + 1) : "") + std::to_string(*number);
  return port;
}

std::string SourcePlace(const NumberedPort& port) {
  switch (port.kind) {
    case PortKind::kTcp:
      return "TCP " + port.place;
    case PortKind::kUdp:
      return "UDP " + port.place;
    case PortKind::kDevice:
    case PortKind::kPath:
      break;
  }
  return port.place;
}

std::string SourceText(const NumberedPort& port) {
  const bool device = port.kind == PortKind::kDevice;
  std::string text =
      std::to_string(port.number) + "  " + (device ? FileNameOf(port.place) : SourcePlace(port));
  if (!port.about.empty()) text += " (" + port.about + ")";
  return text;
}

Status PortNumbers::Match(const std::vector<SeenDevice>& devices) {
  Read();
  const std::vector<NumberedPort> before = ports_;
  for (NumberedPort& port : ports_) port.present = IsThere(port);
  std::vector<bool> matched(devices.size());
  // Of several devices that are alike each keeps the number of its place, as long as it is there.
  for (const bool same_place : {true, false}) {
    for (std::size_t i = 0; i < devices.size(); ++i) {
      const SeenDevice& device = devices[i];
      for (NumberedPort& port : ports_) {
        if (matched[i] || port.present || port.kind != PortKind::kDevice) continue;
        if (port.identity != OneField(device.identity)) continue;
        if (same_place && port.place != device.path) continue;
        port.place = device.path;
        port.about = OneField(device.about);
        port.present = matched[i] = true;
      }
    }
  }
  for (std::size_t i = 0; i < devices.size(); ++i) {
    // The user may have named it before the system did.
    const bool named = std::any_of(ports_.begin(), ports_.end(), [&](const NumberedPort& port) {
      return port.kind == PortKind::kPath && port.place == devices[i].path;
    });
    const int number = matched[i] || named ? 0 : NextNumber();
    if (number == 0) continue;
    Insert({number, PortKind::kDevice, devices[i].path, OneField(devices[i].identity),
            OneField(devices[i].about), true});
  }
  const auto stored = [](const NumberedPort& a, const NumberedPort& b) {
    NumberedPort as_b = a;
    as_b.present = b.present;
    return as_b == b;
  };
  if (std::equal(before.begin(), before.end(), ports_.begin(), ports_.end(), stored)) return Done{};
  return Write();
}

Result<int> PortNumbers::Add(const NumberedPort& source) {
  Read();
  for (const NumberedPort& port : ports_) {
    const bool device = source.kind == PortKind::kPath && port.kind == PortKind::kDevice;
    if ((port.kind == source.kind || device) && port.place == source.place) return port.number;
  }
  NumberedPort port = source;
  port.number = NextNumber();
  if (port.number == 0) return Error{"", "all numbers of ports are taken"};
  port.present = IsThere(port);
  const std::vector<NumberedPort> before = ports_;
  Insert(port);
  if (const Status written = Write(); !written) {
    ports_ = before;
    return written.error();
  }
  return port.number;
}

Status PortNumbers::Remove(int number) {
  Read();
  const NumberedPort* port = Find(number);
  if (port == nullptr) return Error{"", "there is no port " + std::to_string(number)};
  if (port->kind == PortKind::kDevice && port->present) {
    return Error{"", "port " + std::to_string(number) + " is plugged in"};
  }
  const std::vector<NumberedPort> before = ports_;
  std::erase_if(ports_, [number](const NumberedPort& other) { return other.number == number; });
  Status written = Write();
  if (!written) ports_ = before;
  return written;
}

const NumberedPort* PortNumbers::Find(int number) const {
  const auto found = std::find_if(ports_.begin(), ports_.end(),
                                  [number](const auto& port) { return port.number == number; });
  return found == ports_.end() ? nullptr : &*found;
}

void PortNumbers::Read() {
  if (file_.empty()) return;
  const Result<std::string> text = ReadFile(file_, kMostFile);
  // Without a file, or with one that cannot be read, the numbers of this run go on.
  if (!text) return;
  std::optional<std::vector<NumberedPort>> read = ParseFile(*text);
  if (!read) {
    KeepAside(file_);
    return;
  }
  for (NumberedPort& port : *read) {
    const NumberedPort* known = Find(port.number);
    port.present = known != nullptr && known->place == port.place && known->present;
  }
  ports_ = std::move(*read);
  std::sort(ports_.begin(), ports_.end(),
            [](const auto& a, const auto& b) { return a.number < b.number; });
}

Status PortNumbers::Write() const {
  if (file_.empty()) return Done{};
  std::string text(kHeading);
  text += '\n';
  for (const NumberedPort& port : ports_) {
    text.append(std::to_string(port.number)).append("\t");
    text.append(kKindNames[static_cast<std::size_t>(port.kind)]).append("\t");
    text.append(port.place).append("\t").append(port.identity).append("\t");
    text.append(port.about).append("\n");
  }
  // The command line may be the first to need the folder.
  if (Status made = MakeFolder(FolderOf(file_)); !made) return made;
  return ReplaceFile(file_, text);
}

int PortNumbers::NextNumber() const {
  for (int number = 1; number <= kLastPortNumber; ++number) {
    if (Find(number) == nullptr) return number;
  }
  return 0;
}

void PortNumbers::Insert(NumberedPort port) {
  const auto at = std::find_if(ports_.begin(), ports_.end(), [&](const NumberedPort& other) {
    return other.number > port.number;
  });
  ports_.insert(at, std::move(port));
}

}  // namespace skerrow
