#include "charts/chart_library.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <optional>
#include <set>
#include <system_error>

#include "core/data_files.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr DataFolder kCharts = DataFolder::kCharts;
constexpr std::string_view kIndex = ".xrf";
constexpr std::string_view kCalibration = ".cht";
constexpr std::array<std::string_view, 3> kEndings = {kChartImage, kChartPreview, kCalibration};
constexpr std::size_t kLongestKey = 16;
constexpr std::size_t kLongestTitle = 64;
constexpr std::size_t kLongestArea = 100;
constexpr std::size_t kLongestPath = 256;  // ChartPath of the settings

// What a text cannot be in an ANSI field of `longest` bytes; empty when it can.
std::string FieldFault(std::string_view text, std::size_t longest) {
  if (Trim(text).empty()) return "is empty";
  const std::string ansi = ToAnsi(text);
  if (FromAnsi(ansi) != text) return "holds a character that the files of charts cannot";
  if (ansi.size() > longest) return "is longer than " + std::to_string(longest) + " characters";
  const bool control = std::any_of(text.begin(), text.end(), [](char c) {
    return static_cast<unsigned char>(c) < ' ' || c == 0x7f;
  });
  return control ? "holds a control character" : "";
}

Status CheckName(const std::string& what, std::string_view name, std::size_t longest) {
  std::string fault = FieldFault(name, longest);
  if (fault.empty() && name.find_first_of("/\\:*?\"<>|") != std::string_view::npos) {
    fault = "holds one of the signs / \\ : * ? \" < > |, which cannot be in a file's name";
  }
  if (fault.empty() &&
      (name.front() == ' ' || name.back() == ' ' || name.front() == '.' || name.back() == '.')) {
    fault = "begins or ends with a blank or a point";
  }
  if (fault.empty()) return Done{};
  return Error{"", what + " " + fault};
}

std::string Named(std::string_view key, std::string_view ending) {
  return std::string(key) + std::string(ending);
}

bool SameKey(std::string_view a, std::string_view b) {
  return ToLowerAscii(Trim(a)) == ToLowerAscii(Trim(b));
}

// The entries of an index; empty for one that is not there.
Result<std::string> IndexBytes(const std::string& path) {
  if (!FileIsThere(path)) return std::string();
  return ReadFile(path);
}

// `content` without the records of `key`; every other byte stays, those of broken records too.
std::string WithoutKey(const std::string& content, std::string_view key) {
  std::string rest;
  for (std::size_t at = 0; at < content.size(); at += kChartIndexSize) {
    const std::string record = content.substr(at, kChartIndexSize);
    ChartIndexEntry entry;
    DecodeRecord(record, kChartIndexFields, entry);
    if (record.size() < kChartIndexSize || !SameKey(entry.chart_key, key)) rest += record;
  }
  return rest;
}

// The content of an index with an entry behind its last whole record. Entries without a title at
// the end would hide behind it no more; they are dropped, as the reader drops them.
std::string WithEntry(std::string content, const ChartIndexEntry& entry) {
  content.resize(content.size() - content.size() % kChartIndexSize);
  while (!content.empty()) {
    ChartIndexEntry last;
    DecodeRecord(std::string_view(content).substr(content.size() - kChartIndexSize),
                 kChartIndexFields, last);
    if (!Trim(last.title).empty()) break;
    content.resize(content.size() - kChartIndexSize);
  }
  return content + EncodeRecord(entry, kChartIndexFields);
}

// The calibration of a sheet: its edges are the calibration lines.
ChartFileRecord CalibrationOf(const ChartSheet& sheet, double scale) {
  ChartFileRecord file;
  file.upper_lat = sheet.top_lat;
  file.lower_lat = sheet.bottom_lat;
  file.bottom_pix = static_cast<float>(sheet.height);
  file.lower_lon = sheet.west_lon;
  file.upper_lon = sheet.east_lon;
  file.right_pix = static_cast<float>(sheet.width);
  file.scale = static_cast<float>(scale);
  file.width = static_cast<float>(sheet.width);
  file.height = static_cast<float>(sheet.height);
  return file;
}

// Where a scan lies until its owner has calibrated it: a degree across, upright, about 0, 0.
ChartSheet Provisional(ChartSheet sheet) {
  const double across = 1.0 / std::max(sheet.width, sheet.height);
  sheet.east_lon = static_cast<float>(sheet.width * across / 2.0);
  sheet.west_lon = -sheet.east_lon;
  sheet.top_lat = static_cast<float>(sheet.height * across / 2.0);
  sheet.bottom_lat = -sheet.top_lat;
  return sheet;
}

// The name of the area as an existing index has it, whatever the case of `area`.
std::string KnownArea(const Folders& folders, const std::string& area) {
  for (const std::string& known : SeaAreas(folders)) {
    if (ToLowerAscii(known) == ToLowerAscii(area)) return known;
  }
  return area;
}

// The keys of all charts, of the program and the user, in lower case: those of the files and of the
// entries.
std::set<std::string> TakenKeys(const Folders& folders) {
  std::set<std::string> taken;
  for (const std::string_view ending : kEndings) {
    for (const std::string& name : ListData(folders, kCharts, ending)) {
      taken.insert(ToLowerAscii(Trim(name.substr(0, name.size() - ending.size()))));
    }
  }
  for (const std::string& area : SeaAreas(folders)) {
    const auto index = ReadRecords(AreaIndexFile(folders, area), kChartIndexFields);
    if (!index) continue;
    for (const auto& entry : index->records) {
      if (entry) taken.insert(ToLowerAscii(Trim(entry->chart_key)));
    }
  }
  return taken;
}

// Files that go again unless they are kept.
class MadeFiles {
 public:
  MadeFiles() = default;
  MadeFiles(const MadeFiles&) = delete;
  MadeFiles& operator=(const MadeFiles&) = delete;
  ~MadeFiles() {
    for (const std::string& path : paths_) (void)DeleteFile(path);
  }
  void Add(std::string path) { paths_.push_back(std::move(path)); }
  void Keep() { paths_.clear(); }

 private:
  std::vector<std::string> paths_;
};

}  // namespace

std::vector<std::string> SeaAreas(const Folders& folders) {
  std::vector<std::string> areas = ListData(folders, kCharts, kIndex);
  for (std::string& area : areas) area.resize(area.size() - kIndex.size());
  return areas;
}

Status CheckChartKey(std::string_view key) { return CheckName("the key", key, kLongestKey); }

Status CheckAreaName(std::string_view area) {
  return CheckName("the name of the sea area", area, kLongestArea);
}

Status CheckChartTitle(std::string_view title) {
  const std::string fault = FieldFault(title, kLongestTitle);
  if (fault.empty()) return Done{};
  return Error{"", "the title " + fault};
}

bool ChartKeyTaken(const Folders& folders, std::string_view key) {
  return TakenKeys(folders).contains(ToLowerAscii(Trim(key)));
}

std::string FreeChartKey(const Folders& folders) {
  const std::set<std::string> taken = TakenKeys(folders);
  for (int number = 1001; number < 10000; ++number) {
    std::string key = std::to_string(number) + "-1";
    if (!taken.contains(key)) return key;
  }
  return "";
}

Status CheckImport(const Folders& folders, const ImportRequest& request) {
  if (Status sound = CheckChartKey(request.key); !sound) return sound;
  if (Status sound = CheckChartTitle(request.title); !sound) return sound;
  if (Status sound = CheckAreaName(request.area); !sound) return sound;
  if (!(request.scale >= kLargestChartScale && request.scale <= kSmallestChartScale)) {
    return Error{"", "the scale has to be from 1 : 100 to 1 : 100,000,000"};
  }
  if (ChartKeyTaken(folders, request.key)) {
    return Error{"", "there is a chart of the key " + request.key + " already"};
  }
  const std::string path = JoinPath(OwnDataFolder(folders, kCharts), request.key);
  if (!FieldFault(path, kLongestPath).empty()) {
    return Error{"", "the settings cannot hold the path of the chart, " + path};
  }
  return Done{};
}

Result<std::string> ImportChart(const Folders& folders, ChartSource& source,
                                const ImportRequest& request, Progress& progress) {
  if (const Status sound = CheckImport(folders, request); !sound) return sound.error();
  const ChartSourceInfo& info = source.info();
  const ChartSheet sheet = info.placed ? info.sheet : Provisional(info.sheet);
  const ChartFileRecord calibration = CalibrationOf(sheet, request.scale);
  const Result<ChartRecord> worked_out = WorkOutChart(calibration);
  if (!worked_out) return worked_out.error();
  ChartIndexEntry entry{request.key,
                        request.title,
                        calibration.scale,
                        sheet.bottom_lat,
                        sheet.west_lon,
                        sheet.top_lat,
                        sheet.east_lon,
                        "",
                        ""};
  const std::string own = OwnDataFolder(folders, kCharts);
  if (const Status made = MakeFolder(own); !made) return made.error();

  const std::string chart = JoinPath(own, request.key);
  Result<NewFile> picture = NewFile::Beside(Named(chart, kChartImage));
  if (!picture) return picture.error();
  Result<NewFile> preview = NewFile::Beside(Named(chart, kChartPreview));
  if (!preview) return preview.error();
  Result<NewFile> settings = NewFile::Beside(Named(chart, kCalibration));
  if (!settings) return settings.error();
  if (const Status written = source.WriteSheet(picture->path(), preview->path(), progress);
      !written) {
    return written.error();
  }
  if (const Status written = settings->file().Write(EncodeRecord(calibration, kChartFileFields));
      !written) {
    return Error{Named(chart, kCalibration), written.error().reason};
  }
  // A long time has passed: another program may have taken the key.
  if (ChartKeyTaken(folders, request.key)) {
    return Error{"", "there is a chart of the key " + request.key + " already"};
  }
  // The index comes last: before it the chart does not exist for the program.
  MadeFiles made;
  for (NewFile* file : {&picture.value(), &preview.value(), &settings.value()}) {
    std::string name = file->target();
    if (const Status named = file->Name(); !named) return named.error();
    made.Add(std::move(name));
  }
  const std::string index = Named(KnownArea(folders, request.area), kIndex);
  const Result<std::string> content = IndexBytes(FindData(folders, kCharts, index));
  if (!content) return content.error();
  if (content->size() / kChartIndexSize >= INT16_MAX) {
    return Error{index, "the sea area cannot take another chart"};
  }
  if (const Status written = ReplaceFile(JoinPath(own, index), WithEntry(*content, entry));
      !written) {
    return written.error();
  }
  made.Keep();
  return chart;
}

bool IsChartOnShow(const Folders& folders, const AppConfig& config, std::string_view key) {
  return NativePath(config.chart_path) == NativePath(ChartPathOf(folders, Trim(key)));
}

bool IsOwnChart(const Folders& folders, std::string_view key) {
  const std::string program = ProgramDataFolder(folders, kCharts);
  const std::string own = OwnDataFolder(folders, kCharts);
  const std::string trimmed = Trim(key);
  if (!CheckChartKey(trimmed)) return false;
  return FileIsThere(JoinPath(own, Named(trimmed, kChartImage))) &&
         !FileIsThere(JoinPath(program, Named(trimmed, kChartImage)));
}

Status RemoveChart(const Folders& folders, std::string_view chart_key) {
  const std::string key = Trim(chart_key);
  if (!IsOwnChart(folders, key)) {
    return Error{"", ChartKeyTaken(folders, key)
                         ? "the chart " + key + " came with the program and stays"
                         : "there is no chart of the key " + key};
  }
  const std::string own = OwnDataFolder(folders, kCharts);
  for (const std::string& area : SeaAreas(folders)) {
    const std::string name = Named(area, kIndex);
    const std::string path = JoinPath(own, name);
    const Result<std::string> content = IndexBytes(path);
    if (!content) return content.error();
    const std::string rest = WithoutKey(*content, key);
    if (rest == *content) continue;
    const Result<std::string> installed =
        IndexBytes(JoinPath(ProgramDataFolder(folders, kCharts), name));
    if (installed && *installed == rest) {
      if (Status removed = DeleteFile(path); !removed) return removed;
    } else if (Status written = ReplaceFile(path, rest); !written) {
      return written;
    }
  }
  // The picture goes last: while it is there the removal can be asked for again.
  for (const std::string_view ending : {kCalibration, kChartPreview, kChartImage}) {
    if (Status removed = DeleteFile(JoinPath(own, Named(key, ending))); !removed) return removed;
  }
  return Done{};
}

}  // namespace skerrow
