#include "instruments/log.h"

#include <algorithm>
#include <utility>

#include "core/calendar.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/position.h"
#include "core/text.h"
#include "instruments/nmea.h"
#include "instruments/nmea_checksum.h"

namespace skerrow {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kLinesBetweenSteps = 4096;

bool LoggedFromAisPort(std::string_view kind) {
  return kind != "RME," && kind != "GSA," && kind != "RMB,";
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; }

// What is printed of a queued sentence: all up to its checksum. None for a damaged sentence that
// would break its line in two, which no reader could use.
std::string_view Printed(std::string_view sentence) {
  const std::string_view printed = CutAfterChecksum(sentence);
  return printed.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos
             ? printed
             : std::string_view();
}

// Whether the last line of the file has no end: what a killed program leaves.
bool EndsInsideLine(const std::string& path) {
  const Result<SystemFile> file = SystemFile::OpenForReading(path);
  if (!file || file->Size() == 0) return false;
  const Result<std::string> last = file->ReadAt(file->Size() - 1, 1);
  return last && *last != "\n" && !last->empty();
}

// The first `count` of `lines` are in the file.
void Forget(std::vector<std::string>& lines, std::size_t count) {
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(count));
}

// A position printer's text as two NMEA fields: degrees padded to `width` with the minutes behind
// them, and the hemisphere.
std::string NmeaFields(const std::string& printed, std::size_t width) {
  const std::size_t point = printed.find('.');
  std::string degrees = printed.substr(0, point);
  if (degrees.size() < width) degrees.insert(0, width - degrees.size(), '0');
  const std::size_t minutes = point + 1;
  return degrees + printed.substr(minutes, printed.size() - 1 - minutes) + "," + printed.back();
}

// A comment line as it is kept: in single bytes, without what cannot be printed.
std::string CommentText(std::string_view typed) {
  std::string text = ToAnsi(typed);
  text.erase(std::remove_if(text.begin(), text.end(), IsControl), text.end());
  return TrimRight(Trim(text).substr(0, kCommentLength));
}

std::string CommentLine(std::size_t number, const std::string& fields) {
  const std::string body = std::string(kCommentSentence.substr(1)) + "," +
                           std::to_string(kCommentLines + 1) + "," + std::to_string(number) + "," +
                           fields;
  return "$" + body + "*" + NmeaChecksum(body);
}

// The text up to the next comma, which is taken off with it.
std::string_view TakeField(std::string_view& text) {
  const std::size_t comma = text.find(',');
  const std::string_view field = text.substr(0, comma);
  text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
  return field;
}

float TakeCoordinate(std::string_view& text, std::size_t degree_digits, char negative) {
  const std::string_view value = TakeField(text);
  const std::string_view hemisphere = TakeField(text);
  const std::size_t split = std::min(degree_digits, value.size());
  return NmeaDegrees(value.substr(0, split), value.substr(split), hemisphere.starts_with(negative));
}

// The first line of a comment: where and when.
CommentRecord ReadCommentPlace(std::string_view line) {
  CommentRecord record;
  for (int field = 0; field < 3; ++field) TakeField(line);
  record.latitude = TakeCoordinate(line, 2, 'S');
  record.longitude = TakeCoordinate(line, 3, 'W');
  const std::string_view date = TakeField(line);
  record.date = TrimRight(FromAnsi(date.substr(0, std::min(date.find('*'), std::size_t{6}))));
  record.time = TrimRight(FromAnsi(line.substr(0, std::min(line.find('*'), std::size_t{8}))));
  return record;
}

// The text of a further line. The last "*" is that of the checksum: the user may have typed others.
std::string ReadCommentText(std::string_view line) {
  constexpr std::size_t kTextFrom = 12;
  const std::size_t star = line.rfind('*');
  if (star == std::string_view::npos || star < kTextFrom) return "";
  std::string text(line.substr(kTextFrom, star - kTextFrom));
  text.erase(std::remove_if(text.begin(), text.end(), IsControl), text.end());
  return TrimRight(FromAnsi(std::string_view(text).substr(0, kCommentLength)));
}

void ReadCommentLine(std::string_view line, std::vector<CommentRecord>& comments) {
  constexpr std::size_t kNumberAt = 10;
  if (line.find(kCommentSentence) == std::string_view::npos || line.size() <= kNumberAt) return;
  const int number = line[kNumberAt] - '0';
  if (number == 1) {
    comments.push_back(ReadCommentPlace(line));
  } else if (number >= 2 && number <= 6 && !comments.empty()) {
    comments.back().lines[static_cast<std::size_t>(number - 2)] = ReadCommentText(line);
  }
}

// Calls `take` with each line of a file and whether it has an end. False when the user cancels.
template <typename Take>
Result<bool> ForEachLine(const std::string& path, Progress& progress, Take take) {
  if (!FileIsThere(path)) return true;
  Result<LogLines> opened = LogLines::Open(path);
  if (!opened) return opened.error();
  LogLines& lines = opened.value();
  for (std::size_t count = 1;; ++count) {
    const auto line = lines.Next();
    if (!line) return line.error();
    if (!*line) return true;
    take(**line, lines.closed());
    if (count % kLinesBetweenSteps == 0 && !progress.Step(lines.Percent())) return false;
  }
}

}  // namespace

void QueueSentence(LogState& log, std::string_view sentence) {
  if (!log.logging_on) return;
  if (log.queued_bytes + sentence.size() > kMostQueued) {
    ++log.lost;
    return;
  }
  log.queue.emplace_back(sentence);
  log.queued_bytes += sentence.size();
}

void QueueByKind(LogState& log, std::string_view sentence, LoggedFrom port) {
  if (!log.logging_on) return;
  for (std::size_t kind = 0; kind < kLoggedKinds.size(); ++kind) {
    if (log.seen[kind] || (port == LoggedFrom::kAisPort && !LoggedFromAisPort(kLoggedKinds[kind])))
      continue;
    if (sentence.find(kLoggedKinds[kind]) == std::string_view::npos) continue;
    QueueSentence(log, sentence);
    log.seen[kind] = true;
  }
}

void ClearSeenKinds(LogState& log) { log.seen.fill(false); }

void ForgetQueue(LogState& log) {
  log.queue.clear();
  log.queued_bytes = 0;
}

std::string LogFileNameOf(std::string_view typed, const ClockReading& now) {
  std::string name = Trim(typed.substr(0, typed.find('.')));
  for (char& c : name) {
    if (c == '/' || c == '\\' || IsControl(c)) c = '-';
  }
  if (!name.empty()) return name;
  return LongMonthName(now.month).substr(0, 3) + FormatFixed(now.day_of_month, 2, 0) +
         FormatFixed(now.year, 4, 0);
}

std::string LogPath(const std::string& tracks_folder, std::string_view name) {
  return JoinPath(tracks_folder, Trim(name) + std::string(kLogEnding));
}

Status WriteLogRecord(LogState& log, const std::string& tracks_folder, Messages& messages) {
  if (!log.logging_on || Trim(log.log_file_name).empty()) return Done{};
  const std::string path = LogPath(tracks_folder, log.log_file_name);
  const auto failed = [&](const Error& error) -> Status {
    messages.Notice("The log " + FileNameOf(path) + " cannot be written: " + error.reason);
    return error;
  };
  const Result<SystemFile> file = SystemFile::OpenForAppending(path);
  if (!file) return failed(file.error());
  // One piece for one call of the system, so that nothing comes between the lines.
  std::string content;
  std::vector<std::size_t> ends;  // of what is printed of each line in it
  for (const std::string& line : log.pending_comment) {
    ends.push_back(content.size() + line.size());
    content.append(line).append(kLineEnd);
  }
  for (const std::string& sentence : log.queue) {
    const std::string_view line = Printed(sentence);
    ends.push_back(content.size() + line.size());
    if (!line.empty()) content.append(line).append(kLineEnd);
  }
  if (content.empty()) {
    ForgetQueue(log);
    return Done{};
  }
  const std::string_view close = EndsInsideLine(path) ? kLineEnd : std::string_view();
  content.insert(0, close);
  const std::int64_t before = file->Size();
  const Status written = file->Write(content);
  std::size_t lines_in_file = ends.size();
  if (!written) {
    const auto in_file = file->Size() - before - static_cast<std::int64_t>(close.size());
    lines_in_file = 0;
    while (lines_in_file < ends.size() &&
           static_cast<std::int64_t>(ends[lines_in_file]) <= in_file) {
      ++lines_in_file;
    }
  }
  const std::size_t comment_lines = std::min(lines_in_file, log.pending_comment.size());
  Forget(log.pending_comment, comment_lines);
  Forget(log.queue, lines_in_file - comment_lines);
  log.queued_bytes = 0;
  for (const std::string& sentence : log.queue) log.queued_bytes += sentence.size();
  if (!written) return failed(written.error());
  if (const Status flushed = file->Sync(); !flushed) return failed(flushed.error());
  return Done{};
}

std::array<std::string, kCommentLines + 1> CommentBlock(
    const GpsFix& fix, const std::array<std::string, kCommentLines>& lines) {
  std::array<std::string, kCommentLines + 1> block;
  block[0] = CommentLine(1, NmeaFields(LatToText3(fix.boat_latitude), 2) + "," +
                                NmeaFields(LongToText3(fix.boat_longitude), 3) + "," +
                                fix.fix_date + "," + fix.fix_time);
  for (std::size_t i = 0; i < kCommentLines; ++i) {
    block[i + 1] = CommentLine(i + 2, CommentText(lines[i]));
  }
  return block;
}

void MakeComment(LogState& log, const GpsFix& fix,
                 const std::array<std::string, kCommentLines>& lines) {
  CommentRecord record;
  record.latitude = fix.boat_latitude;
  record.longitude = fix.boat_longitude;
  record.time = fix.fix_time.substr(0, 8);
  record.date = fix.fix_date.substr(0, 8);
  for (std::size_t i = 0; i < kCommentLines; ++i) record.lines[i] = FromAnsi(CommentText(lines[i]));
  log.comments.push_back(std::move(record));
  // A comment that still waits stays before this one.
  for (std::string& line : CommentBlock(fix, lines)) log.pending_comment.push_back(std::move(line));
}

Status LoadTrackFromLog(const std::string& path, GpsFix& fix, GpsTrack& track, Progress& progress) {
  GpsFix latest = fix;
  GpsTrack points;
  const Result<bool> whole = ForEachLine(path, progress, [&](std::string_view line, bool) {
    if (line.find('$') == std::string_view::npos || line.find("RMC") == std::string_view::npos ||
        line.starts_with(kCommentSentence)) {
      return;
    }
    latest.position_good = false;
    const Rmc rmc = ParseRmc(line);
    if (rmc.state != SentenceState::kGood) return;
    latest.position_good = true;
    latest.boat_latitude = rmc.latitude;
    latest.boat_longitude = rmc.longitude;
    latest.fix_time = rmc.time;
    latest.fix_date = rmc.date;
    latest.course_over_ground = NmeaNumber(rmc.course);
    const std::string time = Trim(rmc.time);
    if (time.size() <= 5) return;
    GpsTrackPoint point{.latitude = rmc.latitude, .longitude = rmc.longitude};
    SetTime(point, time);
    point.speed = NmeaNumber(rmc.speed);
    point.course = latest.course_over_ground;
    points.push_back(point);
  });
  if (!whole) return whole.error();
  if (!*whole) return Done{};
  fix = std::move(latest);
  track.insert(track.end(), points.begin(), points.end());
  return Done{};
}

Status LoadCommentsFromLog(const std::string& path, std::vector<CommentRecord>& comments,
                           Progress& progress) {
  std::vector<CommentRecord> found;
  const Result<bool> whole = ForEachLine(path, progress, [&](std::string_view line, bool closed) {
    const bool cut = !closed && line.find('*') == std::string_view::npos;
    if (!cut) ReadCommentLine(line, found);
  });
  if (whole && !*whole) return Done{};
  comments = std::move(found);
  if (!whole) return whole.error();
  return Done{};
}

Result<LogLines> LogLines::Open(const std::string& path, std::int64_t offset, std::size_t block) {
  Result<SystemFile> file = SystemFile::OpenForReading(path);
  if (!file) return file.error();
  return LogLines(std::move(file.value()), offset, block);
}

Status LogLines::Refill() {
  buffer_.erase(0, at_);
  buffer_offset_ += static_cast<std::int64_t>(at_);
  at_ = 0;
  const Result<std::string> more =
      file_.ReadAt(buffer_offset_ + static_cast<std::int64_t>(buffer_.size()), block_);
  if (!more) return more.error();
  at_end_ = more->empty();
  buffer_ += *more;
  return Done{};
}

Result<std::optional<std::string_view>> LogLines::Next() {
  std::size_t end = buffer_.find_first_of(kLineEnd, at_);
  while (end == std::string::npos && !at_end_ && buffer_.size() - at_ < kMostLogLine) {
    const std::size_t searched = buffer_.size() - at_;
    if (const Status filled = Refill(); !filled) return filled.error();
    end = buffer_.find_first_of(kLineEnd, searched);
  }
  // Both characters of a line end, wherever a block ends.
  if (end != std::string::npos && buffer_[end] == '\r' && end + 1 == buffer_.size()) {
    const std::size_t taken = at_;
    if (const Status filled = Refill(); !filled) return filled.error();
    end -= taken;
  }
  if (end == std::string::npos && at_ == buffer_.size()) return std::optional<std::string_view>();
  closed_ = end != std::string::npos && end - at_ <= kMostLogLine;
  const std::size_t length = closed_ ? end - at_ : std::min(buffer_.size() - at_, kMostLogLine);
  const std::string_view line = std::string_view(buffer_).substr(at_, length);
  at_ += length;
  if (closed_) at_ += buffer_.compare(at_, 2, kLineEnd) == 0 ? 2 : 1;
  return std::optional<std::string_view>(line);
}

double LogLines::Percent() const {
  return size_ > 0
             ? std::min(100.0, 100.0 * static_cast<double>(position()) / static_cast<double>(size_))
             : 100.0;
}

}  // namespace skerrow
