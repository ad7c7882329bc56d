#include <algorithm>
#include <cstdio>

#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "instruments/log.h"
#include "instruments/nmea.h"
#include "instruments/nmea_checksum.h"

namespace skerrow::cli {
namespace {

// The most of a log that is decoded in one go, in bytes.
constexpr std::size_t kMostText = std::size_t{1} << 30;
constexpr std::string_view kStandardInput = "-";
constexpr std::string_view kJsonBlocks = "json";
constexpr const char* kGpsPort = "gps";
constexpr const char* kAisPort = "ais";

// Text of a port has single bytes: a character of JSON below 256 stands for the byte of its number.
std::string FromBytes(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      text += c;
    } else {
      text += static_cast<char>(0xC0 | (byte >> 6));
      text += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return text;
}

// The other way; a character of 256 and more becomes "?".
std::string ToBytes(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    if (lead < 0x80) {
      bytes += text[i];
    } else if (lead < 0xC4 && i + 1 < text.size()) {
      bytes += static_cast<char>((lead << 6) | (static_cast<unsigned char>(text[++i]) & 0x3F));
    } else if (lead >= 0xC0) {
      bytes += '?';  // its further bytes are passed over
    }
  }
  return bytes;
}

// Today's clock with the date of the user's choice.
class DatedClock final : public Clock {
 public:
  explicit DatedClock(ClockReading reading) : reading_(reading) {}
  ClockReading Now() const override { return reading_; }

 private:
  ClockReading reading_;
};

// Passes the sentences with a good checksum on to the log.
class CheckedAis final : public AisSentenceSink {
 public:
  bool Take(std::string_view sentence) override {
    return ChecksumGood(sentence.substr(sentence.find('!')));
  }
};

Json FixJson(const GpsFix& fix) {
  return {{"boatLatitude", Number(fix.boat_latitude)},
          {"boatLongitude", Number(fix.boat_longitude)},
          {"speedOverGround", Number(fix.speed_over_ground)},
          {"courseOverGround", Number(fix.course_over_ground)},
          {"fixTime", FromBytes(fix.fix_time)},
          {"fixDate", FromBytes(fix.fix_date)},
          {"positionGood", fix.position_good},
          {"rmcSeen", fix.rmc_seen},
          {"positionText", fix.position_text},
          {"courseSpeedText", fix.course_speed_text},
          {"waypointText", fix.waypoint_text},
          {"hasActiveWaypoint", fix.has_active_waypoint}};
}

Json TrackJson(const GpsTrack& track) {
  Json list = Json::array();
  for (const GpsTrackPoint& point : track) {
    list.push_back({{"latitude", Number(point.latitude)},
                    {"longitude", Number(point.longitude)},
                    {"hour", point.hour},
                    {"minute", point.minute},
                    {"second", point.second},
                    {"day", point.day},
                    {"month", point.month},
                    {"year", point.year},
                    {"speed", Number(point.speed)},
                    {"course", Number(point.course)}});
  }
  return list;
}

// What has another value in `after`.
Json Changes(const GpsFix& before, const GpsFix& after) {
  const Json old = FixJson(before);
  const Json fresh = FixJson(after);
  Json changed = Json::object();
  for (const auto& [name, value] : fresh.items()) {
    if (value != old[name]) changed[name] = value;
  }
  return changed;
}

std::string ChangesText(const Json& changes) {
  std::string text;
  for (const auto& [name, value] : changes.items()) {
    text +=
        "    " + name + " " + (value.is_string() ? value.get<std::string>() : value.dump()) + "\n";
  }
  return text;
}

// Decoding of text from one port, or of a replayed log, which notes what changed the fix.
class Decoding {
 public:
  Decoding(const DecodeWords& words, std::string port, const Clock& clock)
      : port_(std::move(port)),
        clock_(clock),
        door_{sink_, clock, words.gps_through_ais || port_.empty()} {
    state_.log.logging_on = words.logging;
  }

  const NmeaState& state() const { return state_; }
  const Json& sentences() const { return sentences_; }  // those that changed the fix, and what
  const Json& trace() const { return trace_; }          // the position after each block
  const std::string& text() const { return text_; }     // the sentences and changes as text

  // A block as it was read from the port. It is fed in pieces, behind each end of a sentence, which
  // changes nothing in what is decoded.
  void Block(std::string_view block) {
    while (!block.empty()) {
      const std::size_t end = block.find('\r');
      const std::string_view piece = block.substr(0, end == std::string_view::npos ? end : end + 1);
      sentence_ += piece.substr(0, piece.find_first_of("\r\n"));
      Feed([&] {
        if (port_ == kAisPort) {
          AssembleAisBlock(state_, piece, door_);
        } else {
          AssembleGpsBlock(state_, piece, clock_);
        }
      });
      if (end != std::string_view::npos) sentence_.clear();
      block.remove_prefix(piece.size());
    }
  }

  // A line of a log, without its end.
  void Line(std::string_view line) {
    if (!port_.empty()) {
      Block(std::string(line) + "\r");
      return;
    }
    sentence_ = line;
    Feed([&] { DecodeAisPortLine(state_, line, door_); });
  }

  // Notes the position after a block.
  void Trace() {
    const GpsFix& fix = state_.fix;
    trace_.push_back({Number(fix.boat_latitude), Number(fix.boat_longitude), fix.position_good});
  }

 private:
  template <typename Work>
  void Feed(Work work) {
    const GpsFix before = state_.fix;
    work();
    if (state_.fix == before) return;
    const std::string shown = FromBytes(sentence_);
    const Json changes = Changes(before, state_.fix);
    sentences_.push_back({{"sentence", shown}, {"fix", changes}});
    text_ += shown + "\n" + ChangesText(changes);
  }

  std::string port_;  // empty for a replayed log
  const Clock& clock_;
  CheckedAis sink_;
  AisDoor door_;
  NmeaState state_;
  std::string sentence_;  // what came since the last sentence ended
  Json sentences_ = Json::array();
  Json trace_ = Json::array();
  std::string text_;
};

Result<std::string> ReadStandardInput() {
  std::string text;
  char buffer[16384];
  for (std::size_t got = 1; got > 0;) {
    got = std::fread(buffer, 1, sizeof buffer, stdin);
    text.append(buffer, got);
    if (text.size() > kMostText) return Error{"", "standard input is too long"};
  }
  return text;
}

Result<std::string> ReadText(const Session& session, const std::string& file) {
  if (file == kStandardInput) return ReadStandardInput();
  return ReadFile(Session::FindFile(file, {session.program.folders.Tracks()}), kMostText);
}

Result<ClockReading> DateFor(const std::string& typed, ClockReading now) {
  if (typed.empty()) return now;
  const Error wrong{"", "a system date is DDMMYY, not \"" + typed + "\""};
  if (typed.size() != 6 || typed.find_first_not_of("0123456789") != std::string::npos) return wrong;
  const auto part = [&](std::size_t at) {
    return static_cast<int>(TextToNumber(typed.substr(at, 2)));
  };
  now.day_of_month = part(0);
  now.month = part(2);
  now.year = 2000 + part(4);
  if (DateToDayOfYear(now.day_of_month, now.month, now.year) == 0) return wrong;
  return now;
}

std::string SummaryText(const NmeaState& state) {
  const GpsFix& fix = state.fix;
  std::string text = "position " + LatToText(fix.boat_latitude) + " " +
                     LongToText(fix.boat_longitude) +
                     (fix.position_good ? ", good" : ", not good") + "\ncourse " +
                     FormatFixed(fix.course_over_ground, 3, 0) + "°T, speed " +
                     FormatFixed(fix.speed_over_ground, 1, 1) + " kn, time " +
                     FromAnsi(fix.fix_time) + ", date " + FromAnsi(fix.fix_date) + "\n";
  if (!fix.waypoint_text.empty()) text += fix.waypoint_text + "\n";
  for (const std::string& sentence : state.log.queue)
    text += "to log: " + FromAnsi(sentence) + "\n";
  return text;
}

std::string TimeText(const GpsTrackPoint& point) {
  return FormatFixed(point.hour, 2, 0) + ":" + FormatFixed(point.minute, 2, 0) + ":" +
         FormatFixed(point.second, 2, 0);
}

// A date or time of a comment: one of the forms that the commands take becomes that of a GPS, any
// other text stays as it stands.
Result<std::string> AsGpsTellsIt(const std::string& typed, bool is_date) {
  if (typed.find_first_of(",*\r\n") != std::string::npos) {
    return Error{"", "a comment's date and time have no commas and asterisks"};
  }
  if (is_date && typed.find('-') != std::string::npos) {
    const Result<DayAndYear> day = ParseDate(typed, ClockReading());
    if (!day) return day.error();
    MonthDate date;
    DayOfYearToDate(day->day, day->year, date);
    return FormatFixed(date.day_of_month, 2, 0) + FormatFixed(date.month, 2, 0) +
           FormatFixed(day->year % 100, 2, 0);
  }
  if (!is_date && typed.find(':') != std::string::npos) {
    const Result<float> hours = ParseTime(typed, ClockReading());
    if (!hours) return hours.error();
    return ReplaceAll(HoursToClock(*hours), ":", "") + "00";
  }
  return typed;
}

// The path of a log that can be read, or why there is none.
Result<std::string> FindLog(const Session& session, const std::string& file) {
  const std::string path = Session::FindFile(file, {session.program.folders.Tracks()});
  const Result<LogLines> lines = LogLines::Open(path);
  if (!lines) return lines.error();
  return path;
}

}  // namespace

Outcome DecodeText(Session& session, const DecodeWords& words) {
  std::string file = words.file;
  std::string blocks = words.blocks;
  // "decode --blocks -": what looks like the number is the file.
  if (file.empty() && !blocks.empty() && blocks != kJsonBlocks) {
    file = blocks;
    blocks = kJsonBlocks;
  }
  if (file.empty()) return Failure{kWrongUsage, "decode takes a FILE, or - for standard input"};
  const Result<ClockReading> date = DateFor(words.system_date, session.program.clock->Now());
  if (!date) return WrongUsage(date.error());
  const Result<std::string> text = ReadText(session, file);
  if (!text) return Failed(text.error());

  const DatedClock clock(*date);
  // Blocks come from a port, lines from a log.
  Decoding decoding(words, words.port.empty() && !blocks.empty() ? kGpsPort : words.port, clock);
  std::string_view rest = *text;
  if (blocks == kJsonBlocks) {
    const Json list = Json::parse(*text, nullptr, false);
    if (!list.is_array()) return Failure{kFailed, "the input is not a JSON array of texts"};
    for (const Json& block : list) {
      if (!block.is_string()) return Failure{kFailed, "a block of the input is not a text"};
      decoding.Block(ToBytes(block.get<std::string>()));
      decoding.Trace();
    }
  } else if (!blocks.empty()) {
    const Result<int> number = ParseWhole(blocks, "blocks", 1, 1 << 30);
    if (!number) return WrongUsage(number.error());
    const auto size = static_cast<std::size_t>(*number);
    for (; !rest.empty(); rest.remove_prefix(std::min(size, rest.size()))) {
      decoding.Block(rest.substr(0, size));
      decoding.Trace();
    }
  } else {
    while (!rest.empty()) {
      const std::size_t end = rest.find_first_of("\r\n");
      if (end > 0) decoding.Line(rest.substr(0, end));
      rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    decoding.Trace();  // the log is one block
  }

  const NmeaState& state = decoding.state();
  Json queue = Json::array();
  for (const std::string& sentence : state.log.queue) queue.push_back(FromBytes(sentence));
  Answer answer;
  answer.json() = {
      {"fix", FixJson(state.fix)},
      {"trackPoints", TrackJson(state.track)},
      {"queue", queue},
      {"pending", {{"gps", FromBytes(state.gps_line)}, {"ais", FromBytes(state.ais_line)}}},
      {"trace", decoding.trace()},
      {"sentences", decoding.sentences()}};
  answer.text = decoding.text() + SummaryText(state);
  return answer;
}

Outcome ShowTrack(Session& session, const LogWords& words) {
  const Result<std::string> path = FindLog(session, words.file);
  if (!path) return Failed(path.error());
  GpsFix fix;
  GpsTrack track;
  if (const Status read = LoadTrackFromLog(*path, fix, track, session.progress); !read) {
    return Failed(read.error());
  }
  Answer answer;
  answer.json() = {{"track", TrackJson(track)}};
  TextTable table({"Time", "Latitude", "Longitude", ">Course", ">Speed"});
  for (const GpsTrackPoint& point : track) {
    table.Add({TimeText(point), LatToText(point.latitude), LongToText(point.longitude),
               FormatFixed(point.course, 3, 0), FormatFixed(point.speed, 1, 1)});
  }
  answer.text = table.Text();
  return answer;
}

Outcome ShowComments(Session& session, const LogWords& words) {
  const Result<std::string> path = FindLog(session, words.file);
  if (!path) return Failed(path.error());
  std::vector<CommentRecord> comments;
  if (const Status read = LoadCommentsFromLog(*path, comments, session.progress); !read) {
    return Failed(read.error());
  }
  Answer answer;
  Json list = Json::array();
  for (const CommentRecord& comment : comments) {
    list.push_back({{"latitude", Number(comment.latitude)},
                    {"longitude", Number(comment.longitude)},
                    {"time", comment.time},
                    {"date", comment.date},
                    {"lines", comment.lines}});
    answer.text += LatToText(comment.latitude) + "  " + LongToText(comment.longitude) + "  " +
                   comment.date + "  " + comment.time + "\n";
    for (const std::string& line : comment.lines) {
      if (!line.empty()) answer.text += "    " + line + "\n";
    }
  }
  answer.json() = {{"comments", list}};
  return answer;
}

Outcome ShowComment(Session&, const CommentWords& words) {
  const Result<Position> place = ParsePosition(words.place.latitude, words.place.longitude);
  if (!place) return WrongUsage(place.error());
  const Result<std::string> date = AsGpsTellsIt(words.date, true);
  if (!date) return WrongUsage(date.error());
  const Result<std::string> time = AsGpsTellsIt(words.time, false);
  if (!time) return WrongUsage(time.error());
  std::array<std::string, kCommentLines> lines;
  if (words.lines.size() > lines.size()) {
    return Failure{kWrongUsage, "a comment has at most five lines"};
  }
  std::copy(words.lines.begin(), words.lines.end(), lines.begin());
  GpsFix fix;
  fix.boat_latitude = place->latitude;
  fix.boat_longitude = place->longitude;
  fix.fix_date = *date;
  fix.fix_time = *time;
  Answer answer;
  Json block = Json::array();
  for (const std::string& line : CommentBlock(fix, lines)) {
    block.push_back(FromAnsi(line));
    answer.text += FromAnsi(line) + "\n";
  }
  answer.json() = {{"block", block}};
  return answer;
}

}  // namespace skerrow::cli
