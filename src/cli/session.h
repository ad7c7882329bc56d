#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/program.h"
#include "cli/answer.h"
#include "core/messages.h"
#include "core/progress.h"

// What the commands share: the options, the program they work on, and where messages go.
namespace skerrow::cli {

// Exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

// A text with its lines joined into one.
std::string OneLine(std::string_view text);

// A command's answer, or why there is none and the exit status that goes with it.
struct Failure {
  int status = kFailed;
  std::string reason;
};

struct Options {
  std::string program;
  std::string documents;
  std::string settings;
  std::vector<std::string> sets;  // FIELD=VALUE
  bool json = false;
};

// Messages of the engine: kept, and written to standard error one a line. Questions are answered
// with yes, since the user asked for the answer in one go, and are written out too.
class ConsoleMessages final : public Messages {
 public:
  void Show(std::string_view text, MessageIcon icon, std::string_view title) override;
  bool Ask(std::string_view text, std::string_view title) override;
  const std::vector<std::string>& texts() const { return texts_; }

 private:
  std::vector<std::string> texts_;
};

// The share of a long search that is done, on standard error when that is a terminal.
class ConsoleProgress final : public Progress {
 public:
  ConsoleProgress();
  ~ConsoleProgress() override;
  bool Step(double percent) override;

 private:
  bool shown_;
  int last_ = -1;
};

class Session {
 public:
  Session(const Options& options, const Clock& clock);

  // Applies the --set options. Reads the stored settings where there are any; nothing is created.
  Status Open();

  // Diamonds, reference ports and their tides about a day.
  void LoadTides(DayAndYear date);

  // A file by a path or by its name in one of `folders`, the first that has it; else the path
  // where the first folder would have it.
  static std::string FindFile(const std::string& name, const std::vector<std::string>& folders);

  // Whether an answer may be printed as it comes, ahead of its end.
  bool prints_text() const { return !options_.json; }

  Program program;
  ConsoleMessages messages;
  ConsoleProgress progress;

 private:
  Options options_;
};

}  // namespace skerrow::cli
