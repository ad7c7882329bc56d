#pragma once

#include <QMenu>

#include "ui/desktop.h"
#include "ui/main/chart_mouse.h"
#include "ui/viewer/chart_viewer.h"

namespace skerrow {

class ChartController;
class MobController;
class RouteController;

// What the events of the chart's viewer do: the mouse through ChartMouse, keys through the key
// table, menus at the right button.
class ChartEvents final : public QObject, public ViewerEvents, public ChartMouseHost {
  Q_OBJECT

 public:
  ChartEvents(Desktop& desktop, ChartViewer& viewer, ChartController& chart, RouteController& route,
              MobController& mob);

  ChartMouse& mouse() { return mouse_; }

  // ---- ViewerEvents
  bool MousePressed(const ViewerMouse& mouse) override;
  bool MouseMoved(const ViewerMouse& mouse) override;
  bool MouseReleased(const ViewerMouse& mouse) override;
  bool DoubleClicked(const ViewerMouse& mouse) override;
  bool Wheel(const ViewerMouse& mouse, int angle) override;
  bool KeyPressed(QKeyEvent& event) override;

  // ---- ChartMouseHost
  void SetPointer(Pointer pointer) override;
  void Redraw() override { viewer_.Redraw(); }
  void ShowCursorReadout() override { emit CursorMoved(); }
  void ShowDividersText() override { emit CursorMoved(); }
  void ModeChanged() override { desktop_.window.Changed(kViewChanged); }
  void RouteMoving() override;
  void RouteEdited(const char* name, RouteState before) override;
  void EnterWaypoint(Position place) override;
  void WaypointMoved() override;

 signals:
  // The cursor, or what is told beside it, has changed.
  void CursorMoved();
  void MenuWanted(QPoint at);
  // The command of a key or of a double click.
  void CommandWanted(const QString& name);

 private:
  Desktop& desktop_;
  ChartViewer& viewer_;
  ChartController& chart_;
  RouteController& route_;
  MobController& mob_;
  ChartMouse mouse_;
  bool menu_at_release_ = false;
};

}  // namespace skerrow
