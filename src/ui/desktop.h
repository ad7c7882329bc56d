#pragma once

#include <memory>

#include "app/program.h"
#include "core/messages.h"
#include "core/progress.h"
#include "platform/clipboard.h"
#include "platform/settings_store.h"

// What the windows of the desktop share, and what they may ask of the main window.
namespace skerrow {

// The main window, as the dialogs see it. Each call returns at once; nothing is painted inside.
class MainWindowPort {
 public:
  virtual ~MainWindowPort() = default;
  // Asks the viewer to repaint.
  virtual void Repaint() = 0;
  virtual void UpdateCaption() = 0;
  virtual void UpdateStatusBar() = 0;
  // Fills the route list of the toolbar from the route, or from the results of a calculation.
  virtual void UpdateRouteCombo() = 0;
  // The route, its results, the selected time or the settings have changed: menus, keys, caption,
  // status bar and route list follow, and the chart is repainted.
  virtual void StateChanged() = 0;
  // The progress bar of the main window, shown while the object lives; its key cancels.
  virtual std::unique_ptr<Progress> StartProgress(const char* what) = 0;
};

struct Desktop {
  Program& program;
  Messages& messages;
  SettingsStore& settings;
  Clipboard& clipboard;
  MainWindowPort& window;
};

}  // namespace skerrow
