#pragma once

#include <string>

#include "ui/desktop.h"
#include "ui/main/chart_mouse.h"
#include "ui/viewer/chart_viewer.h"

class QWidget;

namespace skerrow {

class ChartController;
class MobController;
class TimeController;

// The route and the waypoints of the main window: editing, files, calculation, and the modes of the
// mouse that go with them.
class RouteController {
 public:
  RouteController(Desktop& desktop, ChartViewer& viewer, ChartController& chart,
                  TimeController& time, MobController& mob, QWidget& window)
      : desktop_(desktop),
        viewer_(viewer),
        chart_(chart),
        time_(time),
        mob_(mob),
        window_(window) {}

  // Files. What is unsaved is asked about before it goes; a route that comes is brought into view.
  void Load();
  void LoadFile(const std::string& path);
  void OpenSample();
  // Under the name it has, or as SaveAs.
  void Save();
  void SaveAs();

  void InsertPoint();
  void DeleteMarked();
  void RemoveLastPoint();
  void Reverse();
  void Clear();
  void ByWaypointList();
  void KeyboardEdit();
  void Undo();
  void Redo();
  // Esc: what waits for a click, then a calculated track, then everything.
  void Escape();

  void CalculateDialog();
  void OptimiseDialog();
  void CourseOverGroundDialog();
  void ManOverboardDialog();
  void SettingsDialog();

  void ToggleDividers();
  void ToggleRouteDrag();
  void ToggleSnap();
  void ToggleWaypointEntry();

  // Waypoints that have been moved and are in no file are asked about before the table is read
  // anew; runs `work` when they may go.
  template <typename Work>
  void WithWaypoints(Work work) {
    if (!MayLoseMovedWaypoints()) return;
    work();
    WaypointsRead();
  }
  void GoToWaypoint();
  void EnterWaypoint(Position place);

  // Whether the route was last made from the waypoint list and stands unchanged.
  bool Listed() const;

 private:
  bool MayLoseMovedWaypoints();
  void WaypointsRead();
  void ClearMark();
  void ResetModes();
  template <typename Dialog, typename... Arguments>
  void Calculate(Arguments&&... arguments);

  Desktop& desktop_;
  ChartViewer& viewer_;
  ChartController& chart_;
  TimeController& time_;
  MobController& mob_;
  QWidget& window_;
  RouteState listed_route_;
};

}  // namespace skerrow
