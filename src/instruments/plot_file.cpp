#include "instruments/plot_file.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>

#include "core/calendar.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"

namespace skerrow {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 12> kMonths = {"jan", "feb", "mar", "apr", "may", "jun",
                                                      "jul", "aug", "sep", "oct", "nov", "dec"};
constexpr std::string_view kPlotSuffix = "trk";

bool IsMonth(std::string_view suffix) {
  return std::find(kMonths.begin(), kMonths.end(), suffix) != kMonths.end();
}

std::string TrimLeft(const std::string& text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

// Whether a file of that name, in lower case, is one of a kind.
bool IsOfKind(std::string_view name, TrackKind kind) {
  const std::size_t point = name.rfind('.');
  const std::string_view suffix =
      point == std::string_view::npos ? std::string_view() : name.substr(point + 1);
  switch (kind) {
    case TrackKind::kNewTrack:
      return name.starts_with('t') && IsMonth(suffix);
    case TrackKind::kLog:
      return suffix == "nmea";
    case TrackKind::kPlot:
      return suffix == kPlotSuffix || IsMonth(suffix);
    case TrackKind::kDelete:
      return name.starts_with("trak");
  }
  return false;
}

// A position that cannot be is refused: read as it stands, it would be a place somewhere else.
Result<PlotRecord> RecordOf(const PlotRowTexts& texts) {
  constexpr std::string_view kDigits = "0123456789";
  const PlotRecord record = {TextToLat(texts.latitude), TextToLong(texts.longitude), texts.time,
                             texts.date, Trim(texts.comment)};
  const auto refused = [](const std::string& text) {
    return Error{"", "\"" + text + "\" is no position; enter it as 50.42.05N  001.03.34W"};
  };
  if (!(std::fabs(record.latitude) <= 90.0F) ||
      texts.latitude.find_first_of(kDigits) == std::string::npos) {
    return refused(texts.latitude);
  }
  if (!(std::fabs(record.longitude) <= 180.0F) ||
      texts.longitude.find_first_of(kDigits) == std::string::npos) {
    return refused(texts.longitude);
  }
  return record;
}

}  // namespace

Result<RecordFile<PlotRecord>> ReadPlotFile(const std::string& path) {
  return ReadRecords(path, kPlotFields);
}

const std::vector<PlotRecord>& StoredPlot::Get(const std::string& path) const {
  // Taken before the reading: a file that comes in between is then read the next time.
  const FileStamp stamp = path.empty() ? FileStamp() : StampOf(path);
  if (path == path_ && stamp == stamp_) return records_;
  path_ = path;
  stamp_ = stamp;
  records_.clear();
  if (!stamp.there) return records_;
  if (const Result<RecordFile<PlotRecord>> file = ReadPlotFile(path); file) {
    records_ = file->Sound();
  }
  return records_;
}

Status AppendPlotRecord(const std::string& path, const PlotRecord& record) {
  if (Status sound = CheckRecords<PlotRecord>(path, {&record, 1}, kPlotFields); !sound) {
    return sound;
  }
  std::string content;
  if (FileIsThere(path)) {
    Result<std::string> old = ReadFile(path);
    if (!old) return old.error();
    content = std::move(old.value());
  }
  // What is left of a record that was cut short goes: filled up, it would be a position somewhere
  // else.
  content.resize(content.size() / kPlotRecordSize * kPlotRecordSize);
  content += EncodeRecord(record, kPlotFields);
  if (RecordCount(content.size(), kPlotRecordSize) > INT16_MAX) {
    return Error{path, "the file is full"};
  }
  return ReplaceFile(path, content);
}

std::string ManualPlotRow(const PlotRecord& record) {
  return LatToText(record.latitude) + "   " + LongToText(record.longitude) + "  " + record.time +
         "   " + record.date + "  " + record.comment;
}

std::string PlotRow(const PlotRecord& record) {
  return LatToText(record.latitude) + "," + LongToText(record.longitude) + "," +
         TrimLeft(record.time) + "," + TrimLeft(record.date) + "," + TrimLeft(record.comment);
}

PlotRowTexts SplitPlotRow(std::string_view row) {
  CommaFields fields = SplitFields(row);
  return {fields.field[0], fields.field[1], fields.field[2], fields.field[3], Trim(fields.rest)};
}

std::string JoinPlotRow(const PlotRowTexts& texts) {
  return ReplaceAll(texts.latitude, ",", ".") + "," + ReplaceAll(texts.longitude, ",", ".") + "," +
         ReplaceAll(texts.time, ",", " ") + "," + ReplaceAll(texts.date, ",", " ") + "," +
         texts.comment;
}

Status SavePlotRows(const std::string& path, std::span<const std::string> rows) {
  const Result<RecordFile<PlotRecord>> file = ReadPlotFile(path);
  if (!file) return file.error();
  const std::vector<PlotRecord> old = file->Sound();
  if (old.empty() || rows.empty()) return Done{};
  std::vector<PlotRecord> records;
  // Rows keep the order of the records, so that those left of it are found from where the last was.
  std::size_t from = 0;
  for (const std::string& row : rows) {
    Result<PlotRecord> read = RecordOf(SplitPlotRow(row));
    if (!read) return read.error();
    PlotRecord& record = read.value();
    for (std::size_t i = from; i < old.size(); ++i) {
      if (LatToText(old[i].latitude) != LatToText(record.latitude) ||
          LongToText(old[i].longitude) != LongToText(record.longitude)) {
        continue;
      }
      record.latitude = old[i].latitude;
      record.longitude = old[i].longitude;
      from = i + 1;
      break;
    }
    records.push_back(std::move(record));
  }
  return WriteRecords<PlotRecord>(path, records, kPlotFields);
}

std::string PlotInsertFault(bool row_selected, const PlotRowTexts& texts) {
  if (!row_selected) return "click where to insert";
  if (texts.latitude.empty()) return "No Latitude Entry";
  if (texts.longitude.empty()) return "No Longitude Entry";
  return "";
}

PlotDefaults DefaultPlotTexts(const ClockReading& now) {
  const auto digits = [](int value) { return FormatFixed(value, 2, 0); };
  return {digits(now.hour) + ":" + digits(now.minute), DateText(now.Day())};
}

Result<PlotRecord> ManualPlotRecord(const PlotRowTexts& typed) {
  if (typed.longitude.empty()) return Error{"", "No longitude entry!"};
  if (typed.latitude.empty()) return Error{"", "No latitude entry!"};
  return RecordOf(typed);
}

Result<std::string> CheckTrackName(std::string_view typed) {
  const std::string name = Trim(typed);
  const std::string lower = ToLowerAscii(name);
  if (name.empty()) {
    return Error{"", "Enter a new waypoint file name an then click the OK button"};
  }
  const std::size_t point = name.find('.');
  if (point == std::string::npos || point == 0 || name.find_first_of("/\\") != std::string::npos) {
    return Error{"", "Track name invalid"};
  }
  const std::string suffix = lower.substr(lower.size() - std::min<std::size_t>(3, lower.size()));
  if (!IsMonth(suffix) && suffix != kPlotSuffix) {
    return Error{"",
                 "Track name must end with '.jan, feb, mar' etc or '.trk' \r\nplease correct and "
                 "press OK or Cancel"};
  }
  return name;
}

Result<std::string> CheckTrackChoice(std::string_view name) {
  const std::string trimmed = Trim(name);
  if (trimmed.empty()) return Error{"", "Enter a file name an then click the OK button"};
  const std::size_t point = trimmed.find('.');
  if (point == std::string::npos) return Error{"", "Illegal file name"};
  return trimmed.substr(0, point);
}

std::vector<std::string> ListTracks(const std::string& folder, TrackKind kind) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    const std::string name = at->path().filename().string();
    std::error_code ignored;
    if (at->is_regular_file(ignored) && IsOfKind(ToLowerAscii(name), kind)) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string FindPlotFile(const std::string& folder, std::string_view name) {
  const std::vector<std::string> names = ListTracks(folder, TrackKind::kPlot);
  const auto find = [&](std::string_view suffix) -> const std::string* {
    const std::string wanted = ToLowerAscii(std::string(name) + "." + std::string(suffix));
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& there) {
      return ToLowerAscii(there) == wanted;
    });
    return found == names.end() ? nullptr : &*found;
  };
  if (const std::string* plot = find(kPlotSuffix)) return JoinPath(folder, *plot);
  for (const std::string_view month : kMonths) {
    if (const std::string* plot = find(month)) return JoinPath(folder, *plot);
  }
  return "";
}

bool DeleteTrackFile(const std::string& folder, std::string_view name, Messages& messages) {
  if (name.empty()) {
    messages.Show("Select file by clicking a name in the list, followed by the OK button");
    return false;
  }
  const std::string path = JoinPath(folder, name);
  if (!FileReadable(path)) {
    messages.Show("The file selected has a problem  - it may be in use");
    return false;
  }
  if (!messages.Ask("Are you sure that you want to delete Track File ** " + std::string(name) +
                    " **")) {
    return false;
  }
  if (const Status deleted = DeleteFile(path); !deleted) {
    messages.Show(deleted.error().Text(), MessageIcon::kWarning);
    return false;
  }
  return true;
}

}  // namespace skerrow
