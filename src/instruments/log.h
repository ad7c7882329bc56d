#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/clock.h"
#include "core/messages.h"
#include "core/progress.h"
#include "core/result.h"
#include "core/system_file.h"
#include "instruments/gps_fix.h"

// The log of a voyage: a text file of NMEA and AIS sentences as received, one a line, with the
// user's comments in sentences of the program's own. It is only ever added to, by whole lines.
namespace skerrow {

inline constexpr std::string_view kLogEnding = ".nmea";

// The first field of the program's own sentences.
inline constexpr std::string_view kCommentSentence = "$PSKLOG";

// Kinds of sentences from a GPS that are logged, one of each in an interval, in the order in which
// they are looked for.
inline constexpr std::array<std::string_view, 9> kLoggedKinds = {
    "RMC,", "RME,", "GSA,", "GLL,", "WPL,", "RMB,", "DBT,", "HDG,", "MVW,"};

inline constexpr std::size_t kCommentLines = 5;
inline constexpr std::size_t kCommentLength = 40;  // characters of a comment line

// The most that the queue holds, in bytes: over an hour of a busy AIS receiver on a disk that takes
// nothing.
inline constexpr std::size_t kMostQueued = std::size_t{16} * 1024 * 1024;

// A comment as it stands on the chart.
struct CommentRecord {
  float latitude = 0.0F;   // decimal degrees, north positive
  float longitude = 0.0F;  // decimal degrees, east positive
  std::string time;        // at most 8 characters, as logged
  std::string date;        // at most 8 characters, as logged; 6 when read back
  std::array<std::string, kCommentLines> lines;

  friend bool operator==(const CommentRecord&, const CommentRecord&) = default;
};

struct LogState {
  bool logging_on = false;
  std::string log_file_name;       // without folder and ending
  std::vector<std::string> queue;  // whole sentences, in the order of their arrival
  std::size_t queued_bytes = 0;
  std::size_t lost = 0;  // sentences that found no room in the queue
  // Which of kLoggedKinds came since the last log record.
  std::array<bool, kLoggedKinds.size()> seen{};
  // Lines of comments that are not in the file yet, in its single-byte text.
  std::vector<std::string> pending_comment;
  std::vector<CommentRecord> comments;
};

// Puts a sentence into the queue when logging is on.
void QueueSentence(LogState& log, std::string_view sentence);

enum class LoggedFrom { kGpsPort, kAisPort };

// Queues a sentence once for each logged kind that it holds and that has not been seen since the
// last log record. From the AIS port only RMC, GLL, WPL, DBT, HDG and MVW are taken.
void QueueByKind(LogState& log, std::string_view sentence, LoggedFrom port);

// After each log record: the first sentence of each kind is taken again.
void ClearSeenKinds(LogState& log);

// Empties the queue.
void ForgetQueue(LogState& log);

// A log's name without its ending, from what the user typed: cut at its first point; where nothing
// is left the day as "Dec052026". Separators of folders become "-".
std::string LogFileNameOf(std::string_view typed, const ClockReading& now);

// The path of a log in the tracks folder.
std::string LogPath(const std::string& tracks_folder, std::string_view name);

// Adds the pending comments and the queue to the log, flushes it to the disk and forgets what is in
// it. Nothing happens with logging off or without a name. What could not be written stays for the
// next time, and `messages` has a notice of it; a line that was cut by a full disk is written again
// whole. The error is that of the notice.
Status WriteLogRecord(LogState& log, const std::string& tracks_folder, Messages& messages);

// The six sentences of a comment, in the log's single-byte text: place, date and time of the fix,
// and the comment's lines, each trimmed and cut to 40 characters.
std::array<std::string, kCommentLines + 1> CommentBlock(
    const GpsFix& fix, const std::array<std::string, kCommentLines>& lines);

// Adds a comment at the boat to the table of comments, and its sentences to those that wait for the
// next log record.
void MakeComment(LogState& log, const GpsFix& fix,
                 const std::array<std::string, kCommentLines>& lines);

// Adds the fixes of a log to the track table: those of good RMC sentences with a time, whose date
// is not kept. The latest of them becomes the fix. A missing file is no error; where the user
// cancels, or the file cannot be read, table and fix stay as they are.
Status LoadTrackFromLog(const std::string& path, GpsFix& fix, GpsTrack& track, Progress& progress);

// Reads the comments of a log in the place of those in the table. A missing file gives none; where
// the user cancels the table stays as it is. A last line that a kill has cut is passed over.
Status LoadCommentsFromLog(const std::string& path, std::vector<CommentRecord>& comments,
                           Progress& progress);

// The lines of a log, one after the other, from any byte on. A line ends at CR, LF or both, or at
// the end of the file; one of more than kMostLogLine bytes comes in pieces.
class LogLines {
 public:
  static constexpr std::size_t kMostLogLine = 65536;

  // `block` is what is read at a time, in bytes.
  static Result<LogLines> Open(const std::string& path, std::int64_t offset = 0,
                               std::size_t block = kMostLogLine);

  // The next line without its end, valid until the next call; none at the end of the file. Error:
  // unreadable.
  Result<std::optional<std::string_view>> Next();

  // Where the next line begins, in bytes from the beginning of the file.
  std::int64_t position() const { return buffer_offset_ + static_cast<std::int64_t>(at_); }
  // The file's length when it was opened, in bytes.
  std::int64_t size() const { return size_; }
  // Whether the last line given was closed by a line end.
  bool closed() const { return closed_; }
  // The part of the file that has been read.
  double Percent() const;

 private:
  LogLines(SystemFile file, std::int64_t offset, std::size_t block)
      : file_(std::move(file)), buffer_offset_(offset), block_(block), size_(file_.Size()) {}
  Status Refill();

  SystemFile file_;
  std::string buffer_;
  std::int64_t buffer_offset_;
  std::size_t at_ = 0;
  std::size_t block_;
  std::int64_t size_;
  bool at_end_ = false;
  bool closed_ = false;
};

}  // namespace skerrow
