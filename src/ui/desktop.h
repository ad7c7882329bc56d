#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "app/program.h"
#include "core/messages.h"
#include "core/progress.h"
#include "core/serial_ports.h"
#include "platform/clipboard.h"
#include "platform/settings_store.h"
#include "ui/overlays/view_state.h"

// What the windows of the desktop share, and what they may ask of the main window.
namespace skerrow {

// What of the state has changed, as bits.
enum Change : std::uint32_t {
  kRouteChanged = 1U << 0,     // the route, its results or its edits
  kTimeChanged = 1U << 1,      // the selected time and the tides with it
  kViewChanged = 1U << 2,      // marks, modes and waypoints
  kTargetsChanged = 1U << 3,   // the boat and the vessels around
  kSettingsChanged = 1U << 4,  // settings, the chart and its area
  kAllChanged = (1U << 5) - 1,
};

// The main window, as the dialogs see it. Each call returns at once; nothing is painted inside.
class MainWindowPort {
 public:
  virtual ~MainWindowPort() = default;
  // Shows what has changed, a union of Change.
  virtual void Changed(std::uint32_t what) = 0;
  // The progress bar of the main window, shown while the object lives; its key cancels.
  virtual std::unique_ptr<Progress> StartProgress(const char* what) = 0;
  // Says something in the status bar for a while.
  virtual void Tell(std::string_view) {}
};

struct Desktop {
  Program& program;
  Messages& messages;
  SettingsStore& settings;
  Clipboard& clipboard;
  SerialPorts& ports;
  MainWindowPort& window;
  ViewState& view;
};

}  // namespace skerrow
