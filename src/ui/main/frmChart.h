#pragma once

#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QProgressBar>
#include <QToolBar>
#include <QToolButton>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "ui/desktop.h"
#include "ui/main/chart_controller.h"
#include "ui/main/chart_events.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/instrument_controller.h"
#include "ui/main/look_controller.h"
#include "ui/main/menus.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/main/target_controller.h"
#include "ui/main/time_controller.h"
#include "ui/viewer/chart_overview.h"
#include "ui/viewer/chart_viewer.h"

namespace skerrow {

// The main window: the chart with its menus, toolbars, readouts and status bar. It shows the state
// and hands what the user does to the commands (commands/), which work through the controllers.
class frmChart final : public QMainWindow, public MainWindowPort {
  Q_OBJECT

 public:
  frmChart(Program& program, Messages& messages, SettingsStore& settings, Clipboard& clipboard,
           SerialPorts& ports);
  ~frmChart() override;

  // Shows the first chart and starts the timers; the program's data have been loaded.
  void Start();
  // Opens a file named on the command line or dropped on the window: a route, a waypoint file, a
  // chart's settings, a GPX document, of which the user chooses what to take, or a log, which is
  // replayed.
  void OpenFile(const std::string& path);
  // Replays a log, where it lies on the chart: a path, or the name of one in the tracks folder or
  // among the samples.
  void ReplayFile(const std::string& name);

  Context& context() { return context_; }
  ChartViewer& viewer() { return *viewer_; }
  const ViewState& view() const { return view_; }
  ViewState& view() { return view_; }
  QAction* action(std::string_view name) const;
  // Runs a command if its action is enabled, as its menu entry would.
  void RunCommand(std::string_view name);

  // ---- MainWindowPort
  void Changed(std::uint32_t what) override;
  std::unique_ptr<Progress> StartProgress(const char* what) override;
  void Tell(std::string_view text) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class ProgressOnBar;

  void MakeActions();
  void MakeMenus();
  void MakeToolbars();
  void MakeReadouts();
  void MakeStatusBar();
  void FillMenu(std::span<const MenuRow> rows, QWidget* root);
  void ShowPopUp(QPoint at);
  void UpdateStreams();
  void UpdateWind();
  void PaintOverlays(DrawingSurface& surface, const ViewGeometry& area);
  void PaintLive(DrawingSurface& surface);
  void FollowLook();

  // What Changed refreshes.
  void UpdateActions();
  void UpdateCaption();
  void UpdateStatusBar();
  void UpdateRouteCombo();
  void ShowReadout();
  void ShowGps();
  void ShowMob();
  void FillRecentMenu();
  void PlaceFloats();
  std::uint32_t NeedsMet() const;

  ViewState view_;
  ChartViewer* viewer_;
  Desktop desktop_;
  ChartController chart_;
  TimeController time_;
  MobController mob_;
  LookController look_;
  InstrumentController instruments_;
  TargetController targets_;
  RouteController route_;
  ChartEvents events_;
  Context context_;

  std::map<std::string, QAction*, std::less<>> actions_;
  std::map<std::string, QMenu*, std::less<>> named_menus_;
  std::uint32_t needs_shown_ = ~0U;
  QMenu* pop_up_ = nullptr;
  ChartOverview* overview_ = nullptr;
  QToolBar* toolbar_ = nullptr;
  QToolBar* view_toolbar_ = nullptr;
  QComboBox* route_combo_ = nullptr;
  QToolButton* route_details_ = nullptr;     // lblRouteDetails
  std::vector<QAction*> route_list_places_;  // show and hide both in their toolbar
  QLabel* readout_ = nullptr;                // Picture1
  QLabel* gps_label_ = nullptr;              // lblGPS
  QLabel* dividers_ = nullptr;               // txtDividers
  QLabel* mob_label_ = nullptr;              // lblMOB
  QLabel* quiet_line_ = nullptr;             // what an empty or incomplete chart says
  std::string mob_shown_line_;               // the position, where the mark lies on the chart
  std::string stream_trouble_;               // what the last table of streams had to say
  std::vector<QLabel*> panels_;
  QProgressBar* progress_ = nullptr;
};

}  // namespace skerrow
