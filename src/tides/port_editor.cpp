#include "tides/port_editor.h"

#include <cmath>
#include <utility>

#include "core/data_files.h"
#include "core/numbers.h"
#include "core/position.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr const char* kDamagedName = "(damaged record)";

std::string ZoneText(std::string_view letter) { return std::to_string(TimeZoneHours(letter)); }

// Whether all of a text is one number; an empty one counts as 0.
bool IsNumber(std::string_view text) {
  const std::string trimmed = Trim(text);
  if (trimmed.empty()) return true;
  std::size_t at = trimmed[0] == '-' || trimmed[0] == '+' ? 1 : 0;
  std::size_t digits = 0;
  std::size_t points = 0;
  for (; at < trimmed.size(); ++at) {
    if (trimmed[at] == '.') {
      ++points;
    } else if (trimmed[at] >= '0' && trimmed[at] <= '9') {
      ++digits;
    } else {
      return false;
    }
  }
  return digits > 0 && points <= 1;
}

double NumberOf(std::string_view text) {
  const std::string trimmed = Trim(text);
  // The number rule knows no leading "+", which the fields accept.
  return TextToNumber(trimmed.starts_with('+') ? std::string_view(trimmed).substr(1) : trimmed);
}

// Reads number texts one after the other and keeps the first that is none.
class NumberReader {
 public:
  // `before`: the number whose text the field showed, where there is one.
  void Read(const std::string& name, const std::string& text, const float* before, float& into) {
    if (before != nullptr && text == ShortText(*before)) {
      into = *before;
      return;
    }
    into = static_cast<float>(NumberOf(text));
    if (fault_.empty() && (!IsNumber(text) || !std::isfinite(into))) {
      fault_ = "The " + name + " is no number: " + text;
    }
  }
  const std::string& fault() const { return fault_; }

 private:
  std::string fault_;
};

std::string LetterOf(std::string_view text) {
  const double hours = NumberOf(text);
  // Beyond the table, or between its rows.
  if (!(std::fabs(hours) <= 11.0) || hours != std::floor(hours)) return TimeZoneLetter(0);
  return TimeZoneLetter(static_cast<int>(hours));
}

bool EndsInEastOrWest(std::string_view text) {
  const std::string trimmed = Trim(text);
  return trimmed.ends_with('E') || trimmed.ends_with('W');
}

}  // namespace

PortEntry EntryOf(const Port& port) {
  PortEntry entry;
  entry.number = Trim(port.number);
  entry.name = Trim(port.name);
  entry.latitude = LatToText(port.latitude);
  entry.longitude = LongToText(port.longitude);
  entry.time_zone = ZoneText(port.time_zone);
  for (std::size_t i = 0; i < kPortNumbers.size(); ++i) {
    entry.numbers[i] = ShortText(port.*kPortNumbers[i].value);
  }
  for (std::size_t i = 0; i < 12; ++i) {
    entry.delta_z0[i] = ShortText(port.delta_z0[i]);
    entry.mhm2[i] = ShortText(port.mhm2[i]);
  }
  return entry;
}

Result<Port> BuildPort(const PortEntry& entry, bool file_selected,
                       const std::optional<Port>& before) {
  if (!file_selected) {
    return Error{"", "Select an existing area from the File -> Area Select Menu!!"};
  }
  const bool same_latitude = before && entry.latitude == LatToText(before->latitude);
  const bool same_longitude = before && entry.longitude == LongToText(before->longitude);
  Port port;
  port.latitude = same_latitude ? before->latitude : TextToLat(entry.latitude);
  if (port.latitude == 0.0F || !(std::fabs(port.latitude) <= 90.0F)) {
    return Error{"", "Error - Latitude entry"};
  }
  if (Trim(entry.name).empty()) return Error{"", "Error - No port selected"};
  port.longitude = same_longitude ? before->longitude : TextToLong(entry.longitude);
  if (!EndsInEastOrWest(entry.longitude) || !(std::fabs(port.longitude) <= 180.0F)) {
    return Error{"", "Error - Longitude entry"};
  }
  port.number = Trim(entry.number);
  port.name = Trim(entry.name);
  port.time_zone = before && entry.time_zone == ZoneText(before->time_zone)
                       ? before->time_zone
                       : LetterOf(entry.time_zone);
  NumberReader reader;
  for (std::size_t i = 0; i < kPortNumbers.size(); ++i) {
    float Port::*value = kPortNumbers[i].value;
    reader.Read(kPortNumbers[i].name, entry.numbers[i], before ? &((*before).*value) : nullptr,
                port.*value);
  }
  for (std::size_t i = 0; i < 12; ++i) {
    reader.Read("DeltaZ0 of month " + std::to_string(i + 1), entry.delta_z0[i],
                before ? &before->delta_z0[i] : nullptr, port.delta_z0[i]);
  }
  for (std::size_t i = 0; i < 12; ++i) {
    reader.Read("MHm2 of month " + std::to_string(i + 1), entry.mhm2[i],
                before ? &before->mhm2[i] : nullptr, port.mhm2[i]);
  }
  if (!reader.fault().empty()) return Error{"", reader.fault()};
  return port;
}

Result<PortEditor> PortEditor::Open(const Folders& folders, const std::string& file_name) {
  Result<SeenFile> seen = SeeFile(AreaPortFile(folders, file_name), kPortSize);
  if (!seen) return seen.error();
  Result<RecordFile<Port>> ports = DecodeRecords(seen->content, seen->path, kPortFields);
  if (!ports) return ports.error();
  PortEditor editor;
  editor.folders_ = folders;
  editor.file_name_ = file_name;
  editor.seen_ = std::move(seen.value());
  editor.ports_ = std::move(ports.value());
  return editor;
}

std::vector<std::string> PortEditor::Names() const {
  std::vector<std::string> names;
  for (const std::optional<Port>& port : ports_.records) {
    names.push_back(port ? Trim(port->name) : kDamagedName);
  }
  return names;
}

Status PortEditor::Accept(std::size_t index, const Port& port) { return Splice(index, 1, port); }

Status PortEditor::Add(const Port& port) { return Splice(seen_.Count(), 0, port); }

Status PortEditor::Insert(std::size_t index, const Port& port) { return Splice(index, 0, port); }

Status PortEditor::Delete(std::size_t index) { return Splice(index, 1, std::nullopt); }

Status PortEditor::Splice(std::size_t index, std::size_t removed, const std::optional<Port>& port) {
  std::string bytes;
  if (port) {
    if (Status sound = CheckRecords(seen_.path, std::span(&*port, 1), kPortFields); !sound) {
      return sound;
    }
    bytes = EncodeRecord(*port, kPortFields);
  }
  if (Status same = CheckUnchanged(seen_); !same) return same;
  Result<std::string> path = WritableData(folders_, DataFolder::kTidalStreams, file_name_);
  if (!path) return path.error();
  seen_.path = std::move(path.value());
  if (Status done = SpliceRecords(seen_, index, removed, bytes); !done) return done;
  Result<RecordFile<Port>> ports = DecodeRecords(seen_.content, seen_.path, kPortFields);
  if (!ports) return ports.error();
  ports_ = std::move(ports.value());
  return Done{};
}

int NumberAfterInsert(int number, int at) { return number >= at ? number + 1 : number; }

int NumberAfterDelete(int number, int at) {
  if (number == at) return 0;
  return number > at ? number - 1 : number;
}

}  // namespace skerrow
