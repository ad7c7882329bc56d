#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>

#include "app/program.h"
#include "core/clock.h"
#include "platform/settings_store.h"
#include "support/memory_clipboard.h"
#include "support/temp_folder.h"
#include "ui/main/frmChart.h"
#include "ui/widgets/desktop_messages.h"
#include "ui/widgets/theme.h"

// From "Accept" to the first painted chart with its overlays, on the sample installation: the time
// of each part, first with cold files as they come and then again.
namespace {

using namespace skerrow;  // NOLINT: this file is a program

void Measure(const char* what, const Folders& folders) {
  const SystemClock clock;
  Program program(folders, clock);
  MakeUserFolders(folders);
  DesktopMessages messages;
  testing::MemoryClipboard clipboard;
  MemorySettingsStore settings;
  QElapsedTimer timer;
  timer.start();
  const auto lap = [&timer] { return static_cast<double>(timer.nsecsElapsed()) / 1e6; };
  LoadProgram(program, messages);
  const double loaded = lap();
  frmChart window(program, messages, settings, clipboard);
  window.resize(1920, 1080);
  window.show();
  const double built = lap();
  window.Start();
  const double opened = lap();
  window.viewer().viewport()->repaint();
  const double painted = lap();
  while (!window.viewer().Refined()) QApplication::processEvents();
  window.viewer().viewport()->repaint();
  const double refined = lap();
  std::printf(
      "%-8s data %6.1f   window %6.1f   chart %6.1f   paint %6.1f   fine %6.1f   = %6.1f ms\n",
      what, loaded, built - loaded, opened - built, painted - opened, refined - painted, refined);
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  ApplyTheme(false);
  const testing::TempFolder user;
  const Folders folders{std::string(SKERROW_SOURCE_DIR) + "/program", user.File("documents"),
                        user.File("settings")};
  Measure("first", folders);
  Measure("again", folders);
  return 0;
}
