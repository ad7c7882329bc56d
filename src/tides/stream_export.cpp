#include "tides/stream_export.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "core/calendar.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr double kShareOfReading = 80.0;  // percent of the work

// A text cut or padded with blanks to `width` characters.
std::string Field(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

// A degree text of at most 15 significant digits, without trailing zeros, as it stands before it is
// cut.
std::string DegreeText(double degrees) {
  std::string text = FormatFixed(degrees, 1, 12);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

DayAndYear NextDay(DayAndYear date) { return AddHours(date, 0.0F, 24.0F).date; }

// The two files of a diamond.
struct Components {
  std::string ref;
  std::string head;
  std::string x;
  std::string y;
  bool left_out = false;
};

// What goes to one file, and what was there before.
struct Target {
  std::string path;
  std::string added;
  bool there = false;
  std::string before;
};

Status WriteTarget(Target& target, const std::string& head) {
  target.there = FileIsThere(target.path);
  if (target.there) {
    Result<std::string> before = ReadFile(target.path);
    if (!before) return before.error();
    target.before = std::move(before.value());
    if (target.before.size() % kStreamRecordSize != 0) {
      return Error{target.path, "this is no export of a tidal stream; move it away first"};
    }
  }
  return ReplaceFile(target.path, (target.before.empty() ? head : target.before) + target.added);
}

// Brings files back to what they were.
void Undo(const std::vector<Target>& written) {
  for (const Target& target : written) {
    if (target.there) {
      (void)ReplaceFile(target.path, target.before);
    } else {
      (void)DeleteFile(target.path);
    }
  }
}

// Reads the hours of the export into `all`. False when stopped.
bool ReadHours(TideState& state, DayAndYear date, int days, std::vector<Components>& all,
               Messages& messages, Progress& progress) {
  NoMessages quiet;
  for (int day = 0; day < days; ++day, date = NextDay(date)) {
    LoadTideDay(state, date);
    for (int hour = 0; hour < 24; ++hour) {
      if (!progress.Step(kShareOfReading * (day * 24 + hour) / (days * 24.0))) return false;
      RefreshTideState(state, true, static_cast<float>(hour), {});
      const bool first = day == 0 && hour == 0;
      // A fault of the table is the same at every hour, and is told once.
      CalculateTidalStreamTable(state, first ? messages : quiet);
      for (std::size_t i = 0; i < all.size(); ++i) {
        const int port = state.port_of_diamond[i];
        if (i >= state.tidal_streams.size() || port < 0 ||
            state.ref_port_states[static_cast<std::size_t>(port)].hw_time.empty()) {
          all[i].left_out = true;
        }
        if (all[i].left_out) continue;
        const TidalStream& stream = state.tidal_streams[i];
        const double angle = static_cast<double>(stream.direction_rad);
        all[i].x += StreamValueRecord(date, hour, stream.rate * std::sin(angle));
        all[i].y += StreamValueRecord(date, hour, stream.rate * std::cos(angle));
      }
    }
  }
  return true;
}

std::vector<Components> ComponentsOf(const TideState& state) {
  std::vector<Components> all;
  std::set<std::string> taken;
  for (const Diamond& diamond : state.diamonds) {
    Components components;
    components.ref = Trim(StreamRef(diamond));
    components.head = StreamPositionRecord(diamond.latitude, diamond.longitude);
    components.left_out = components.ref.size() <= 2 || !taken.insert(components.ref).second;
    all.push_back(std::move(components));
  }
  return all;
}

}  // namespace

std::string StreamPositionRecord(double latitude, double longitude) {
  const std::size_t width = longitude < 0.0 ? 10 : 9;
  return Field(DegreeText(latitude).substr(0, 9), 10) + "," +
         Field(DegreeText(longitude).substr(0, width), 10) + "     \r\n";
}

std::string StreamValueRecord(DayAndYear date, int hour, double value) {
  MonthDate day;
  DayOfYearToDate(date.day, date.year, day);
  return FormatFixed(date.year, 4, 0) + "/" + FormatFixed(day.month, 2, 0) + "/" +
         FormatFixed(day.day_of_month, 2, 0) + "," + FormatFixed(hour, 2, 0) + ":00:00," +
         Field(FormatFixed(value, 1, 4), 6) + "\r\n";
}

std::string TidalComponentsFolder(const Folders& folders) {
  return JoinPath(folders.UserData(), "TidalComponents");
}

int ExportDays(std::int16_t day_of_year) { return day_of_year + 33 + 1; }

std::string LeftOutStreamsText(const std::vector<std::string>& left_out) {
  std::string text =
      "Left out, since nothing is known of the tide at their reference port or they "
      "are named like another diamond: ";
  for (std::size_t i = 0; i < left_out.size(); ++i) text += (i == 0 ? "" : ", ") + left_out[i];
  return text;
}

Result<std::optional<StreamExport>> ExportStreams(const TideState& tides, const Folders& folders,
                                                  DayAndYear start, int days, Messages& messages,
                                                  Progress& progress) {
  if (tides.diamonds.empty()) return Error{"", "There are no tidal diamonds to export."};
  if (days < 1 || days > kMaxExportDays) {
    return Error{"", "The export covers 1 to " + std::to_string(kMaxExportDays) + " days."};
  }
  TideState state = tides;
  std::vector<Components> all = ComponentsOf(state);
  if (!ReadHours(state, start, days, all, messages, progress)) {
    return std::optional<StreamExport>();
  }
  const std::string folder = TidalComponentsFolder(folders);
  if (Status made = MakeFolder(folder); !made) return made.error();
  StreamExport done;
  std::vector<Target> written;
  for (std::size_t i = 0; i < all.size(); ++i) {
    Components& diamond = all[i];
    if (diamond.left_out) {
      done.left_out.push_back(diamond.ref);
      continue;
    }
    const double share = static_cast<double>(i) / static_cast<double>(all.size());
    const bool go_on = progress.Step(kShareOfReading + (100.0 - kShareOfReading) * share);
    for (auto* component : {&diamond.x, &diamond.y}) {
      if (!go_on) break;
      Target target;
      target.path = JoinPath(folder, diamond.ref + (component == &diamond.x ? "-X.txt" : "-Y.txt"));
      target.added = std::move(*component);
      if (Status status = WriteTarget(target, diamond.head); !status) {
        Undo(written);
        return status.error();
      }
      target.added.clear();
      written.push_back(std::move(target));
    }
    if (!go_on) {
      Undo(written);
      return std::optional<StreamExport>();
    }
    ++done.diamonds;
  }
  done.end = start;
  for (int day = 0; day < days; ++day) done.end = NextDay(done.end);
  progress.Step(100.0);
  return std::optional(std::move(done));
}

}  // namespace skerrow
