// Writes pictures of every window into the folder given, by day and by night.

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>
#include <QToolBar>
#include <cstdio>

#include "album.h"
#include "core/progress.h"
#include "passage/route_calculation.h"
#include "ui/widgets/theme.h"

namespace screenshots {
namespace {

constexpr QSize kWindow(1000, 640);

std::string SampleRoute(const Studio& studio) {
  return studio.program.folders.Routes() + "/Sample.rte";
}

void Click(QWidget* canvas, QPoint at, Qt::KeyboardModifiers keys) {
  QMouseEvent move(QEvent::MouseMove, at, canvas->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QApplication::sendEvent(canvas, &move);
  QTest::mouseClick(canvas, Qt::LeftButton, keys, at);
}

void KeepMenus(const Album& album, Studio& studio) {
  for (QMenu* menu : studio.window().findChildren<QMenu*>()) {
    if (menu->parent() != &studio.window() || menu->isEmpty()) continue;
    const QString title = menu->title().remove('&').trimmed();
    menu->popup(studio.window().mapToGlobal(QPoint(60, 30)));
    QTest::qWait(60);
    album.Keep(*menu, "menu-" + (title.isEmpty() ? QString("pop-up") : title));
    menu->close();
  }
}

void KeepToolbars(const Album& album, Studio& studio) {
  int number = 0;
  for (QToolBar* bar : studio.window().findChildren<QToolBar*>()) {
    if (bar->isVisible() && bar->parent() == &studio.window()) {
      album.Keep(*bar, QString("toolbar-%1").arg(++number));
    }
  }
}

// The road of a first passage: an empty chart, a route, its track, measuring, a mark.
void KeepChart(const Album& album, Studio& studio) {
  studio.Settle(kWindow);
  album.Keep(studio.window(), "frmChart");
  studio.window().viewer().SetZoom(0.6);
  studio.Settle(kWindow);
  album.Keep(studio.window(), "frmChart-streams");
  studio.Command("mnuPUZoomtoWidth");
  studio.Settle(kWindow);
  KeepToolbars(album, studio);
  KeepMenus(album, studio);
  QWidget* canvas = studio.window().viewer().viewport();
  studio.Command("mnuDividersOn");
  Click(canvas, {420, 200}, Qt::ShiftModifier);
  Click(canvas, {640, 330}, Qt::NoModifier);
  studio.Settle(kWindow);
  album.Keep(studio.window(), "dividers");
  studio.Command("mnuDividersOn");
  studio.window().OpenFile(SampleRoute(studio));
  studio.Settle(kWindow);
  album.Keep(studio.window(), "frmChart-route");
}

void KeepTrack(const Album& album, Studio& studio) {
  // The dialogs before have left tracks of their own.
  skerrow::Program& program = studio.program;
  skerrow::NoProgress progress;
  skerrow::CalculateRoute({9.5F, program.selected_time.Day(), false, ""}, program.config,
                          program.tides, program.route, program.passage, studio.messages, progress);
  program.animation = {};
  studio.window().view().calculation_on_show = true;
  studio.window().Changed(skerrow::kAllChanged);
  studio.Settle(kWindow);
  album.Keep(studio.window(), "frmChart-track");
  studio.Settle({1280, 720});
  album.Keep(studio.window(), "frmChart-wide");
  // The sample forecast that the dialog has imported, without what lies over it.
  studio.program.selected_time.hours = 12.0F;
  studio.program.config.show_streams = 0;
  for (const char* command : {"mnuSmartMet", "mnuWindDisplay"}) studio.Command(command);
  studio.window().viewer().SetZoom(0.5);
  studio.Settle(kWindow);
  album.Keep(studio.window(), "frmChart-wind");
}

}  // namespace
}  // namespace screenshots

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Skerrow Helm");
  if (argc != 2) {
    std::fprintf(stderr, "usage: screenshots FOLDER\n");
    return 2;
  }
  const screenshots::Album album(argv[1]);
  for (const bool night : {false, true}) {
    skerrow::ApplyTheme(false);
    screenshots::Studio studio;
    if (night) studio.Command("mnuViewNight");
    screenshots::KeepChart(album, studio);
    screenshots::KeepDialogs(album, studio);
    screenshots::KeepTrack(album, studio);
    screenshots::KeepInstruments(album, studio);
  }
  return 0;
}
