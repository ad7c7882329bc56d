#include "platform/access_database.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"

extern char** environ;

namespace skerrow {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kMostOutput = std::size_t{1} << 20;  // bytes, of one table
constexpr std::size_t kMostSetUps = 200;
constexpr std::size_t kMostRows = 1000;
constexpr const char* kMissingTools =
    "an .mdb file is read by the programs of mdbtools, which are not installed";

// What a program printed, or why it did not.
enum class RunOutcome { kDone, kMissing, kFailed, kTooMuch, kTooLong };
struct Run {
  RunOutcome outcome = RunOutcome::kFailed;
  std::string output;
};

struct SpawnSetUp {
  SpawnSetUp() {
    posix_spawn_file_actions_init(&actions);
    posix_spawnattr_init(&attributes);
  }
  ~SpawnSetUp() {
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
  }
  SpawnSetUp(const SpawnSetUp&) = delete;
  SpawnSetUp& operator=(const SpawnSetUp&) = delete;
  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
};

// Reads `pipe` to its end.
RunOutcome ReadAll(int pipe, Clock::time_point end, std::string& output) {
  while (true) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    if (left <= 0) return RunOutcome::kTooLong;
    pollfd wait{pipe, POLLIN, 0};
    const int ready = poll(&wait, 1, static_cast<int>(left));
    if (ready < 0 && errno != EINTR) return RunOutcome::kFailed;
    if (ready <= 0) continue;
    std::array<char, 4096> buffer;
    const ssize_t count = read(pipe, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return RunOutcome::kFailed;
    if (count == 0) return RunOutcome::kDone;
    output.append(buffer.data(), static_cast<std::size_t>(count));
    if (output.size() > kMostOutput) return RunOutcome::kTooMuch;
  }
}

// Waits until the program has ended, at most until `end`.
RunOutcome WaitFor(pid_t program, Clock::time_point end) {
  int status = 0;
  while (true) {
    const pid_t ended = waitpid(program, &status, WNOHANG);
    if (ended == program) break;
    if (ended < 0 && errno != EINTR) return RunOutcome::kFailed;
    if (Clock::now() >= end) return RunOutcome::kTooLong;
    poll(nullptr, 0, 2);
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? RunOutcome::kDone : RunOutcome::kFailed;
}

// Runs a program of the search path, without a shell, in a group of its own, so that with it all
// that it has started can be ended.
Run RunProgram(std::vector<std::string> words, Clock::time_point end) {
  Run run;
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return run;
  SpawnSetUp set_up;
  posix_spawn_file_actions_addopen(&set_up.actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&set_up.actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&set_up.actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawnattr_setflags(&set_up.attributes, POSIX_SPAWN_SETPGROUP);
  posix_spawnattr_setpgroup(&set_up.attributes, 0);
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  pid_t program = 0;
  const int fault = posix_spawnp(&program, arguments[0], &set_up.actions, &set_up.attributes,
                                 arguments.data(), environ);
  close(ends[1]);
  if (fault == 0) {
    run.outcome = ReadAll(ends[0], end, run.output);
    if (run.outcome == RunOutcome::kDone) run.outcome = WaitFor(program, end);
    if (run.outcome == RunOutcome::kTooMuch || run.outcome == RunOutcome::kTooLong) {
      kill(-program, SIGKILL);
      while (waitpid(program, nullptr, 0) < 0 && errno == EINTR) {
      }
    }
  } else if (fault == ENOENT || fault == EACCES) {
    run.outcome = RunOutcome::kMissing;
  }
  close(ends[0]);
  return run;
}

std::string ReasonOf(RunOutcome outcome) {
  switch (outcome) {
    case RunOutcome::kMissing:
      return kMissingTools;
    case RunOutcome::kTooMuch:
      return "it holds more than a polar database does";
    case RunOutcome::kTooLong:
      return "reading it takes too long, and has been stopped";
    case RunOutcome::kFailed:
    case RunOutcome::kDone:
      break;
  }
  return "mdbtools can not read it";
}

// The columns of a table that are wanted, by their place in it; empty: it has none of that name.
std::optional<std::size_t> ColumnOf(const std::vector<std::string>& heads, std::string_view name) {
  for (std::size_t i = 0; i < heads.size(); ++i) {
    if (ToLowerAscii(Trim(heads[i])) == ToLowerAscii(name)) return i;
  }
  return std::nullopt;
}

// A cell as a database shows a number: single precision without the digits of its binary form.
// Another text stays.
std::string CellText(const std::string& text) {
  std::string trimmed = Trim(text);
  double value = 0.0;
  const char* end = trimmed.data() + trimmed.size();
  const auto [rest, fault] = std::from_chars(trimmed.data(), end, value);
  if (fault != std::errc() || rest != end) return trimmed;
  return ShortText(static_cast<float>(value));
}

// Fills the rows of a set-up from its table.
void TakeTable(const std::vector<std::vector<std::string>>& table, AccessSetUp& set_up) {
  if (table.size() > kMostRows + 1) {
    set_up.trouble = "its table is longer than that of a polar";
    return;
  }
  if (table.size() < 2) {
    set_up.trouble = "its table is empty";
    return;
  }
  std::array<std::optional<std::size_t>, kPolarColumns.size()> places;
  std::size_t found = 0;
  for (std::size_t i = 0; i < places.size(); ++i) {
    places[i] = ColumnOf(table[0], kPolarColumns[i]);
    if (places[i]) ++found;
  }
  if (!places[0] || found < 2) {
    set_up.trouble = "its table has not the columns of a polar";
    return;
  }
  for (std::size_t line = 1; line < table.size(); ++line) {
    PolarRow& row = set_up.rows.emplace_back();
    for (std::size_t i = 0; i < places.size(); ++i) {
      if (!places[i] || *places[i] >= table[line].size()) continue;
      std::string text = CellText(table[line][*places[i]]);
      if (!text.empty()) row[i] = std::move(text);
    }
  }
  // The angles rise in a polar; the Jet format keeps no order of its own.
  std::stable_sort(set_up.rows.begin(), set_up.rows.end(),
                   [](const PolarRow& a, const PolarRow& b) {
                     return TextToNumber(a[0].value_or("")) < TextToNumber(b[0].value_or(""));
                   });
}

}  // namespace

std::vector<std::vector<std::string>> ParseCommaText(std::string_view text) {
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> row;
  std::string field;
  bool quoted = false;
  bool begun = false;  // anything of this row
  const auto end_row = [&] {
    row.push_back(std::move(field));
    field.clear();
    rows.push_back(std::move(row));
    row.clear();
    begun = false;
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quoted) {
      if (c != '"') {
        field += c;
      } else if (i + 1 < text.size() && text[i + 1] == '"') {
        field += text[++i];
      } else {
        quoted = false;
      }
      continue;
    }
    if (c == '\n') {
      if (begun) end_row();
      continue;
    }
    if (c == '\r') continue;
    begun = true;
    if (c == '"') {
      quoted = true;
    } else if (c == ',') {
      row.push_back(std::move(field));
      field.clear();
    } else {
      field += c;
    }
  }
  if (begun) end_row();
  return rows;
}

Result<std::vector<AccessSetUp>> ReadAccessPolars(const std::string& file,
                                                  std::chrono::milliseconds limit) {
  if (!FileReadable(file)) return Error{file, "the file is missing or can not be read"};
  const Clock::time_point end = Clock::now() + limit;
  const auto run_on = [&](std::vector<std::string> words, std::string_view table) {
    words.emplace_back("--");
    words.push_back(file);
    if (!table.empty()) words.emplace_back(table);
    return RunProgram(std::move(words), end);
  };
  const Run listed = run_on({"mdb-tables", "-1"}, {});
  if (listed.outcome != RunOutcome::kDone) return Error{file, ReasonOf(listed.outcome)};
  std::vector<std::string> tables;
  for (std::string_view left = listed.output; !left.empty();) {
    const std::size_t line = std::min(left.find('\n'), left.size());
    tables.emplace_back(left.substr(0, line));
    left.remove_prefix(std::min(line + 1, left.size()));
  }
  // Jet compares the names of tables without regard to case.
  const auto table_of = [&tables](std::string_view name) {
    return std::find_if(tables.begin(), tables.end(), [name](const std::string& table) {
      return ToLowerAscii(Trim(table)) == ToLowerAscii(name);
    });
  };
  const auto names_table = table_of("SetUps");
  if (names_table == tables.end()) {
    return Error{file, "it is no polar database: there is no table \"SetUps\""};
  }
  const Run names = run_on({"mdb-export"}, *names_table);
  if (names.outcome != RunOutcome::kDone) return Error{file, ReasonOf(names.outcome)};
  const std::vector<std::vector<std::string>> rows = ParseCommaText(names.output);
  const auto column = rows.empty() ? std::nullopt : ColumnOf(rows[0], "SetUp");
  if (!column) return Error{file, "its table \"SetUps\" has no field \"SetUp\""};
  std::vector<AccessSetUp> set_ups;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (*column >= rows[i].size() || Trim(rows[i][*column]).empty()) continue;
    if (set_ups.size() >= kMostSetUps) return Error{file, ReasonOf(RunOutcome::kTooMuch)};
    AccessSetUp& set_up = set_ups.emplace_back();
    set_up.name = Trim(rows[i][*column]);
    const auto table = table_of(set_up.name);
    if (table == tables.end()) {
      set_up.trouble = "its table is missing";
      continue;
    }
    const Run run = run_on({"mdb-export"}, *table);
    if (run.outcome == RunOutcome::kTooLong || run.outcome == RunOutcome::kMissing) {
      return Error{file, ReasonOf(run.outcome)};
    }
    if (run.outcome == RunOutcome::kDone) {
      TakeTable(ParseCommaText(run.output), set_up);
    } else {
      set_up.trouble = run.outcome == RunOutcome::kTooMuch
                           ? "its table is longer than that of a polar"
                           : "its table can not be read";
    }
  }
  return set_ups;
}

}  // namespace skerrow
