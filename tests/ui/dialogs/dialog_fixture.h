#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

#include "app/program.h"
#include "platform/clipboard.h"
#include "platform/settings_store.h"
#include "routes/route.h"
#include "ui/desktop.h"
#include "ui/widgets/theme.h"

// A program on the sample data, with everything around the dialogs replaced by recording fakes.
namespace skerrow {

class FixedClock final : public Clock {
 public:
  ClockReading Now() const override { return reading; }
  ClockReading reading = {2026, 6, 14, 9, 30, 0};
};

// Keeps every message and answers questions from `answer`.
class RecordingMessages final : public Messages {
 public:
  void Show(std::string_view text, MessageIcon, std::string_view title) override {
    shown.emplace_back(text);
    titles.emplace_back(title);
  }
  bool Ask(std::string_view text, std::string_view) override {
    asked.emplace_back(text);
    return answer;
  }
  void Beep() override { ++beeps; }

  std::vector<std::string> shown;
  std::vector<std::string> titles;
  std::vector<std::string> asked;
  int beeps = 0;
  bool answer = true;
};

class FakeWindow final : public MainWindowPort {
 public:
  void Changed(std::uint32_t what) override {
    ++changes;
    changed |= what;
  }
  std::unique_ptr<Progress> StartProgress(const char*) override {
    struct Counting final : Progress {
      explicit Counting(FakeWindow& w) : window(w) {}
      bool Step(double percent) override {
        window.steps.push_back(percent);
        return !window.stop_at || percent < *window.stop_at;
      }
      FakeWindow& window;
    };
    return std::make_unique<Counting>(*this);
  }

  int changes = 0;
  std::uint32_t changed = 0;  // all of them together
  std::vector<double> steps;
  std::optional<double> stop_at;  // percent from which the user wants to stop
};

// A loaded program in folders of its own, which go with it.
class SampleDesk {
 public:
  SampleDesk()
      : root_(std::filesystem::temp_directory_path() /
              ("skerrow-dialogs-" + std::to_string(::getpid()) + "-" + std::to_string(++count_))),
        program(
            {SKERROW_PROGRAM_FOLDER, (root_ / "documents").string(), (root_ / "settings").string()},
            clock),
        desktop{program, messages, settings, clipboard, window, view} {
    ApplyTheme(false);
    std::filesystem::create_directories(root_);
    MakeUserFolders(program.folders);
    LoadProgram(program, messages);
  }
  ~SampleDesk() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }
  SampleDesk(const SampleDesk&) = delete;
  SampleDesk& operator=(const SampleDesk&) = delete;

  // Loads one of the sample routes; false with the reason in `messages` when that fails.
  bool LoadSampleRoute(const std::string& name = "Sample.rte") {
    return LoadRoute(program.folders.Samples() + "/" + name, RouteSpeeds::kStored,
                     RouteDefaultsOf(program), program.route, messages)
        .ok();
  }

 private:
  static inline int count_ = 0;
  std::filesystem::path root_;

 public:
  FixedClock clock;
  RecordingMessages messages;
  MemorySettingsStore settings;
  MemoryClipboard clipboard;
  FakeWindow window;
  ViewState view;
  Program program;
  Desktop desktop;
};

}  // namespace skerrow
