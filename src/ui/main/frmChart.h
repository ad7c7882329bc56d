#pragma once

#include <QActionGroup>
#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QProgressBar>
#include <QTimer>
#include <QToolBar>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/timers.h"
#include "charts/chart_view.h"
#include "routes/route_editing.h"
#include "ui/desktop.h"
#include "ui/edits.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/menus.h"
#include "ui/overlays/view_state.h"
#include "ui/viewer/chart_overview.h"
#include "ui/viewer/chart_viewer.h"

namespace skerrow {

// The main window: the chart with its menus, toolbars, readouts and status bar. Commands are rows
// of tables (commands/); what they do to the program is done by the engine's operations.
class FrmChart final : public QMainWindow,
                       public MainWindowPort,
                       public ViewerEvents,
                       public TimerWindow,
                       public ChartMouseHost {
  Q_OBJECT

 public:
  FrmChart(Program& program, Messages& messages, SettingsStore& settings, Clipboard& clipboard);
  ~FrmChart() override;

  // Shows the first chart and starts the timers; the program's data have been loaded.
  void Start();
  // Opens a file named on the command line: a route, a waypoint file, or a chart's settings.
  void OpenFile(const std::string& path);

  // ---- For the commands

  Desktop& desktop() { return desktop_; }
  Program& program() { return desktop_.program; }
  const Program& program() const { return desktop_.program; }
  Messages& messages() { return desktop_.messages; }
  ViewState& view() { return view_; }
  const ViewState& view() const { return view_; }
  ChartViewer& viewer() { return *viewer_; }
  ChartMouse& mouse() { return mouse_; }
  QAction* action(std::string_view name) const;
  // Runs a command if its action is enabled, as its menu entry would.
  void RunCommand(std::string_view name);

  // Charts and view.
  void ChangeChart();
  void OpenRecentChart(const std::string& cht_path);
  void LargerScale();
  void SmallerScale();
  void PreviousChart();
  void ZoomTo(double factor);
  void ZoomStep(bool in);
  void PanView(PanDirection direction);
  void ToggleRectangle();
  void ToggleThumbnail();
  void ToggleToolbars();
  void SetNight(bool night);
  // A step down for a negative step, up for one below 100, otherwise back to the day.
  void AdjustBrightness(int step);
  // Flips a toggle of the settings and writes them.
  void Toggle(std::int16_t AppConfig::*field);
  void Toggle(float AppConfig::*field);
  void CopyWindow();

  // Route, time and marks.
  void InsertPoint();
  void DeleteMarked();
  void ClearTheRoute();
  void Escape();
  void ToggleDividers();
  void ToggleRouteDrag();
  void ToggleSnap();
  void ToggleWaypointEntry();
  void ToggleMob();
  void RouteByWaypointList();
  void CalculateRouteDialog();
  void OptimiseDialog();
  void Animate(AnimationDirection direction);
  void PauseAnimation();
  // Stops the animation and brings the time back if it had moved it.
  void StopAnimation();
  // As the menu's entry: brings the time back after a roll of the tides as well.
  void ExitAnimation();
  void RollTheTides(Roll roll);
  void NearestTrackPoint();
  void ToRealtime();
  void ShowTools();
  bool tools_shown() const { return view_.tools_shown; }
  bool night() const { return view_.night; }
  bool animating() const { return animate_timer_.isActive(); }

  // ---- MainWindowPort
  void Repaint() override;
  void UpdateCaption();
  void UpdateStatusBar();
  void UpdateRouteCombo();
  void Changed(std::uint32_t what) override;
  std::unique_ptr<Progress> StartProgress(const char* what) override;

  // ---- ViewerEvents
  bool MousePressed(const ViewerMouse& mouse) override;
  bool MouseMoved(const ViewerMouse& mouse) override;
  bool MouseReleased(const ViewerMouse& mouse) override;
  bool Wheel(const ViewerMouse& mouse, int angle) override;
  bool KeyPressed(QKeyEvent& event) override;

  // ---- TimerWindow
  bool Minimised() const override { return isMinimized(); }
  void ServeEvents() override;
  void ShowReadout() override;
  void ShowEta(const std::string& text) override;
  void LocatePoint(Position position) override;
  std::optional<VisibleChart> Visible() const override;

  // ---- ChartMouseHost
  void SetPointer(Pointer pointer) override;
  void Redraw() override { viewer_->Redraw(); }
  void ShowCursorReadout() override { ShowReadout(); }
  void ShowDividersText() override;
  void ModeChanged() override { Changed(kAllChanged); }
  void RouteMoving() override;
  void RouteEdited(const char* name, RouteState before) override;
  void EnterWaypoint(Position place) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  class ProgressOnBar;

  void MakeActions();
  void MakeMenus();
  void MakeToolbars();
  void MakeReadouts();
  void MakeStatusBar();
  void PlaceFloats();
  void FillMenu(std::span<const MenuRow> rows, QWidget* root);
  void UpdateActions();
  std::uint32_t NeedsMet() const;
  void RefreshIcons();
  void FillRecentMenu();
  // Opens the image of the current chart; false, with a message, when that fails.
  bool DrawChart();
  void ClearMark();
  // Forgets where the animation stands; the time stays.
  void DropAnimation();
  // Makes a chart the current one and shows it; everything as it was when it cannot be opened.
  bool SwitchChart(const std::string& chart_path);
  void LoadAreaData();
  void PaintOverlays(DrawingSurface& surface);
  // Tells that there is no chart, puts the default settings back and ends the program.
  void GiveUpChart();
  void SaveView();
  void RestoreView();
  void ShowPopUp(QPoint at);
  Position PlaceUnder(const ViewerMouse& mouse) const;
  void SaveConfigChange(const std::function<void(AppConfig&)>& change);
  bool ReworkResult();

  Desktop desktop_;
  ViewState view_;
  ChartMouse mouse_;
  std::map<std::string, QAction*, std::less<>> actions_;
  std::map<std::string, QMenu*, std::less<>> named_menus_;
  QMenu* pop_up_ = nullptr;
  ChartViewer* viewer_;
  ChartOverview* overview_ = nullptr;
  QToolBar* toolbar_ = nullptr;
  QToolBar* view_toolbar_ = nullptr;
  QComboBox* route_combo_ = nullptr;
  QAction* route_combo_place_ = nullptr;  // shows and hides it in its toolbar
  QLabel* readout_ = nullptr;             // Picture1
  QLabel* dividers_ = nullptr;            // txtDividers
  QLabel* mob_label_ = nullptr;
  std::vector<QLabel*> panels_;
  QProgressBar* progress_ = nullptr;
  QTimer timer1_;
  QTimer animate_timer_;
  QTimer keep_view_timer_;
  std::vector<std::string> recent_;
  std::string eta_;
  // The route last made from the waypoint list; the title tells of it until it is changed.
  RouteState listed_route_;
  bool redraw_ = true;
  bool busy_ = false;
  bool chart_lost_ = false;  // there is no chart at all, and the user has been told
};

}  // namespace skerrow
