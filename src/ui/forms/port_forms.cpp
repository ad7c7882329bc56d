#include "ui/forms/port_forms.h"

#include <algorithm>

#include "app/chart_change.h"
#include "core/data_files.h"
#include "core/position.h"
#include "core/text.h"
#include "tides/diamond.h"
#include "tides/tidal_files.h"

namespace skerrow {
namespace {

std::string NameAt(const PortEditor& editor, std::size_t index) {
  const std::vector<std::string> names = editor.Names();
  return index < names.size() ? names[index] : "";
}

std::string Noun(CopyKind kind, std::size_t count) {
  const std::string noun = kind == CopyKind::kPorts ? "port" : "diamond";
  return count == 1 ? noun : noun + "s";
}

template <typename R, std::size_t N, typename TextOf>
Result<CopySource> RowsOf(SeenFile file, const std::array<RecordField<R>, N>& table,
                          TextOf text_of) {
  const Result<RecordFile<R>> records = DecodeRecords(file.content, file.path, table);
  if (!records) return records.error();
  CopySource source;
  for (const std::optional<R>& record : records->records) {
    source.rows.push_back(record ? text_of(*record) : std::string("(damaged record)"));
    source.damaged.push_back(!record);
  }
  source.file = std::move(file);
  return source;
}

std::string PlaceText(float latitude, float longitude) {
  return "\t" + LatToText(latitude) + "\t" + LongToText(longitude);
}

}  // namespace

bool InUse(const Program& program, std::string_view file_name) {
  return ToLowerAscii(Trim(program.config.tidal_port_file)) == ToLowerAscii(Trim(file_name));
}

std::string DeletePortQuestion(const Program& program, const PortEditor& editor,
                               std::size_t index) {
  std::string question = "Delete port " + std::to_string(index + 1) + ", " + NameAt(editor, index) +
                         ", from " + editor.file_name() + "?";
  if (index + 1 < editor.ports().size()) {
    question += "\nThe ports behind it get other numbers.";
  }
  if (InUse(program, editor.file_name()) &&
      program.config.tide_port_number == static_cast<int>(index) + 1) {
    question += "\nIt is the port of the tide screen.";
  }
  return question;
}

std::string InsertPortQuestion(const PortEditor& editor, std::size_t index) {
  return "Insert a port before " + NameAt(editor, index) + "?\n" + editor.file_name() +
         " is the file of the tide screen: the ports from there on get other numbers.";
}

std::string FollowPorts(Program& program, Messages& messages, const PortEditor& editor,
                        PortsChange change, std::size_t index) {
  if (!InUse(program, editor.file_name())) return "";
  program.port_markers = LoadPortMarkers(program.folders, program.config.tidal_port_file, messages);
  const int at = static_cast<int>(index) + 1;
  const int before = program.config.tide_port_number;
  int number = before;
  if (change == PortsChange::kInserted) number = NumberAfterInsert(before, at);
  if (change == PortsChange::kDeleted) number = NumberAfterDelete(before, at);
  const bool gone = number == 0;
  if (gone) number = std::clamp(at, 1, std::max(1, static_cast<int>(editor.ports().size())));
  const std::string name = NameAt(editor, static_cast<std::size_t>(std::max(number, 1) - 1));
  const bool renamed = change == PortsChange::kInPlace && before == at &&
                       name != Trim(program.config.tide_port_name);
  if (number == before && !gone && !renamed) return "";
  const Status saved = ReloadThenSave(program.folders, program.config, [&](AppConfig& config) {
    config.tide_port_number = static_cast<std::int16_t>(number);
    config.tide_port_name = name;
  });
  if (!saved) messages.Show(saved.error().Text(), MessageIcon::kWarning);
  return "The port of the tide screen is " + name + ", number " + std::to_string(number);
}

std::string_view ExtensionOf(CopyKind kind) { return kind == CopyKind::kPorts ? ".hc" : ".l25"; }

Result<CopySource> OpenCopySource(const Folders& folders, CopyKind kind,
                                  const std::string& file_name) {
  const bool ports = kind == CopyKind::kPorts;
  Result<SeenFile> file = SeeFile(FindData(folders, DataFolder::kTidalStreams, file_name),
                                  ports ? kPortSize : kDiamondSize);
  if (!file) return file.error();
  if (ports) {
    return RowsOf(std::move(file.value()), kPortFields,
                  [](const Port& port) { return Trim(port.name); });
  }
  return RowsOf(std::move(file.value()), kDiamondFields, [](const Diamond& diamond) {
    return DiamondLabel(diamond) + PlaceText(diamond.latitude, diamond.longitude);
  });
}

Result<std::string> CopyMarked(Program& program, Messages& messages, CopyKind kind,
                               const CopySource& source, const std::vector<std::size_t>& marked,
                               std::string_view typed_name) {
  const Result<std::string> name = NameTidalFile(program.folders, typed_name, ExtensionOf(kind));
  if (!name) return name.error();
  if (marked.empty()) return Error{"", "Mark the " + Noun(kind, 2) + " to copy first"};
  for (const std::size_t index : marked) {
    if (index < source.damaged.size() && source.damaged[index]) {
      return Error{"", "Record " + std::to_string(index + 1) +
                           " is damaged and cannot be copied; nothing is written"};
    }
  }
  const Result<std::string> target =
      WritableData(program.folders, DataFolder::kTidalStreams, *name);
  if (!target) return target.error();
  const Status copied = CopyRecords(source.file, marked, *target);
  if (!copied) return copied.error();
  if (kind == CopyKind::kPorts) {
    if (InUse(program, *name)) {
      program.port_markers =
          LoadPortMarkers(program.folders, program.config.tidal_port_file, messages);
    }
  } else if (ToLowerAscii(*name) == ToLowerAscii(Trim(program.config.tidal_area)) + ".l25") {
    LoadArea(program, messages);
  }
  return *name;
}

std::string CopiedText(CopyKind kind, std::size_t count, std::string_view file_name) {
  return std::to_string(count) + " " + Noun(kind, count) + " copied to " + std::string(file_name);
}

}  // namespace skerrow
