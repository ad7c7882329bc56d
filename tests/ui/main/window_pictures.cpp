// Writes pictures of the main window and its menus into the folder given: by day, by night, and
// with a calculated route.
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <cstdio>

#include "core/clock.h"
#include "passage/route_calculation.h"
#include "platform/clipboard.h"
#include "platform/settings_store.h"
#include "support/temp_folder.h"
#include "ui/main/frmChart.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

class WinterMorning final : public Clock {
 public:
  ClockReading Now() const override { return {2026, 12, 5, 6, 30, 0}; }
};

class Album {
 public:
  explicit Album(QString folder) : folder_(std::move(folder)) { QDir().mkpath(folder_); }

  void Keep(QWidget& window, const QString& name) const {
    window.show();
    if (!QTest::qWaitForWindowExposed(&window)) {
      std::fprintf(stderr, "not shown: %s\n", qPrintable(name));
    }
    QTest::qWait(400);
    window.grab().save(folder_ + "/" + name + (ThemeInForce().night ? "-night" : "") + ".png");
  }

 private:
  QString folder_;
};

class Quiet final : public Messages {
 public:
  void Show(std::string_view text, MessageIcon, std::string_view) override {
    std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
  }
  bool Ask(std::string_view, std::string_view) override { return true; }
};

void KeepAll(const Album& album) {
  const testing::TempFolder user;
  const WinterMorning clock;
  Program program({SKERROW_PROGRAM_FOLDER, user.File("documents"), user.File("settings")}, clock);
  MakeUserFolders(program.folders);
  Quiet messages;
  MemoryClipboard clipboard;
  MemorySettingsStore settings;
  LoadProgram(program, messages);
  for (const char* route : {"Sample.rte", "Portland Bill.rte"}) {
    const auto bytes = ReadFile(JoinPath(program.folders.Samples(), route));
    if (bytes) (void)ReplaceFile(JoinPath(program.folders.Routes(), route), *bytes);
  }
  FrmChart window(program, messages, settings, clipboard);
  window.show();
  window.Start();
  window.resize(1280, 800);
  album.Keep(window, "frmChart");
  window.OpenFile(JoinPath(program.folders.Routes(), "Sample.rte"));
  NoProgress progress;
  CalculateRoute({9.5F, {339, 2026}, false, ""}, program.config, program.tides, program.route,
                 program.passage, messages, progress);
  window.view().calculation_on_show = true;
  window.ZoomTo(0.6);
  window.LocatePoint({50.15F, -1.5F});
  window.view().cursor = {50.1F, -1.2F};
  window.Changed(kAllChanged);
  album.Keep(window, "frmChart-route");
  for (QMenu* menu : window.findChildren<QMenu*>()) {
    if (menu->parent() != &window || menu->isEmpty() || menu->objectName() == "mnuTools") continue;
    const QString title = menu->title().remove('&').trimmed();
    menu->popup(window.mapToGlobal(QPoint(60, 30)));
    QTest::qWait(60);
    album.Keep(*menu, "menu-" + (title.isEmpty() ? QString("pop-up") : title));
    menu->close();
  }
  window.AdjustBrightness(-10);
  window.SetNight(true);
  album.Keep(window, "frmChart-route");
  window.resize(1000, 640);
  window.SetNight(false);
  album.Keep(window, "frmChart-small");
  program.route.points.clear();  // nothing unsaved at the close
}

}  // namespace
}  // namespace skerrow

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  skerrow::ApplyTheme(false);
  if (argc != 2) {
    std::fprintf(stderr, "usage: window_pictures FOLDER\n");
    return 2;
  }
  skerrow::KeepAll(skerrow::Album(argv[1]));
  return 0;
}
