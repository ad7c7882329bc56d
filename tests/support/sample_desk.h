#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/edits.h"
#include "app/program.h"
#include "platform/settings_store.h"
#include "routes/route.h"
#include "support/fake_ports.h"
#include "support/memory_clipboard.h"
#include "support/recording_messages.h"
#include "support/still_clock.h"
#include "support/temp_folder.h"
#include "ui/desktop.h"
#include "ui/forms/file_forms.h"
#include "ui/widgets/theme.h"

namespace skerrow::testing {

// Counts what is asked of the main window.
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

// A program on the sample installation in folders of its own, and the desktop round its dialogs.
class SampleDesk : public ::testing::Test {
 protected:
  SampleDesk()
      : program({SKERROW_PROGRAM_FOLDER, user_.File("documents"), user_.File("settings")}, clock),
        desktop{program, messages, settings, clipboard, serial_ports, window, view} {
    ApplyTheme(false);
    MakeUserFolders(program.folders);
    LoadProgram(program, messages);
  }

  // Loads a sample route, as from its file.
  void LoadSample(const std::string& name = "Sample.rte") {
    ASSERT_TRUE(LoadRoute(program.folders.Samples() + "/" + name, RouteSpeeds::kStored,
                          RouteDefaultsOf(program), program.route, messages)
                    .ok());
    program.edits.saved_route.Mark(program.route);
  }
  // Puts the sample routes into the user's folder.
  void ImportSamples() {
    for (const char* name : {"Sample.rte", "Portland Bill.rte"}) {
      ASSERT_TRUE(ImportFiles(program.folders, FileKind::kRoute,
                              {program.folders.Samples() + "/" + name}, messages));
    }
  }

  std::string RouteFile(const std::string& name) const { return RoutePath(program.folders, name); }
  std::string WayFile(const std::string& name) const { return WaypointPath(program.folders, name); }

  const TempFolder user_;
  StillClock clock{{2026, 6, 14, 9, 30, 0}};
  RecordingMessages messages;
  MemorySettingsStore settings;
  MemoryClipboard clipboard;
  FakePorts serial_ports;
  FakeWindow window;
  ViewState view;
  Program program;
  Desktop desktop;
};

}  // namespace skerrow::testing
