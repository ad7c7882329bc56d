#include "ui/main/frmChart.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>
#include <numeric>

#include "app/edits.h"
#include "app/stream_work.h"
#include "app/timers.h"
#include "core/files.h"
#include "core/text.h"
#include "platform/settings_store.h"
#include "routes/route_rows.h"
#include "ui/dialogs/frmQuickInstructions.h"
#include "ui/dialogs/frmrouteinfo.h"
#include "ui/forms/file_forms.h"
#include "ui/icons/icons.h"
#include "ui/main/imports.h"
#include "ui/main/readout.h"
#include "ui/overlays/live_overlays.h"
#include "ui/overlays/overlays.h"
#include "ui/routes/leaving.h"
#include "ui/widgets/live_dialog.h"
#include "ui/widgets/qt_text.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

constexpr int kFloatMargin = 12;
constexpr int kOverviewSide = 190;
constexpr int kTellTime = 15 * 1000;  // ms that a line stands in the status bar
constexpr int kLinesOfALeg = 4;       // rows of the route list

// A line of text that ends in an ellipsis where the room does.
class ElidedLabel final : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), static_cast<int>(alignment()),
                     fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
  }
};

// A list of the toolbar that gives the keyboard back to the chart when it has been used, and whose
// drop-down is as wide as its rows where the screen has room.
class ToolbarCombo final : public QComboBox {
 public:
  ToolbarCombo(QWidget* back_to, QWidget* parent) : QComboBox(parent), back_to_(back_to) {}

  void showPopup() override {
    int widest = width();
    for (int row = 0; row < count(); ++row) {
      widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(row)) + 48);
    }
    const int room = screen() != nullptr ? screen()->availableGeometry().width() - 16 : widest;
    view()->setMinimumWidth(std::min(widest, room));
    QComboBox::showPopup();
    open_ = true;
    // The drop-down opens at the left edge of the box, which may leave it over the screen's edge.
    QWidget* popup = view()->window();
    if (screen() != nullptr && popup != window()) {
      const QRect all = screen()->availableGeometry();
      QPoint at = popup->pos();
      at.setX(std::max(all.left(), std::min(at.x(), all.right() - popup->width())));
      popup->move(at);
    }
  }
  void hidePopup() override {
    QComboBox::hidePopup();
    if (std::exchange(open_, false) && back_to_ != nullptr) back_to_->setFocus();
  }

 private:
  QPointer<QWidget> back_to_;
  bool open_ = false;
};

// A menu entry's text with its key behind it. Those of the platform's own style show theirs anyway.
QString WithKey(const QAction& action, const QString& text) {
  const QString key = action.data().toString();
  return key.isEmpty() || !action.shortcut().isEmpty() ? text : text + '\t' + key;
}

// Keeps what a paint has to say until it is over.
class HeldMessages final : public Messages {
 public:
  void Show(std::string_view text, MessageIcon, std::string_view) override { held_ = text; }
  bool Ask(std::string_view, std::string_view) override { return false; }
  const std::string& held() const { return held_; }

 private:
  std::string held_;
};

}  // namespace

// The progress bar of the status bar. Each step serves events, so that the window answers; Esc
// stops the work at its next step.
class frmChart::ProgressOnBar final : public Progress {
 public:
  explicit ProgressOnBar(frmChart& window) : window_(window), was_busy_(window.view_.busy) {
    window_.progress_->setValue(0);
    window_.progress_->show();
    window_.view_.busy = true;
    stop_ = new QAction(&window_);
    stop_->setShortcut(Qt::Key_Escape);
    window_.addAction(stop_);
    connect(stop_, &QAction::triggered, [this] { cancelled_ = true; });
  }
  ~ProgressOnBar() override {
    window_.progress_->hide();
    window_.view_.busy = was_busy_;
    delete stop_;
  }
  bool Step(double percent) override {
    window_.progress_->setValue(static_cast<int>(percent));
    QCoreApplication::processEvents();
    return !cancelled_;
  }

 private:
  frmChart& window_;
  QAction* stop_;
  bool was_busy_;
  bool cancelled_ = false;
};

frmChart::frmChart(Program& program, Messages& messages, SettingsStore& settings,
                   Clipboard& clipboard, SerialPorts& ports)
    : viewer_(new ChartViewer(this)),
      desktop_{program, messages, settings, clipboard, ports, *this, view_},
      chart_(desktop_, *viewer_, *this),
      time_(desktop_, *viewer_, chart_, *this),
      mob_(desktop_),
      look_(desktop_, *viewer_),
      instruments_(desktop_, time_, chart_, *viewer_),
      targets_(desktop_, chart_, look_, *this),
      route_(desktop_, *viewer_, chart_, time_, mob_, *this),
      events_(desktop_, *viewer_, chart_, route_, mob_),
      context_{desktop_, program, messages, view_, *this,        *viewer_, chart_,
               route_,   time_,   mob_,     look_, instruments_, targets_, events_.mouse()} {
  setObjectName("frmChart");
  setWindowTitle(kProgramName);
  viewer_->setObjectName("oGdViewer");
  viewer_->setFocusPolicy(Qt::StrongFocus);
  viewer_->setAccessibleName("Chart");
  setCentralWidget(viewer_);
  setAcceptDrops(true);
  viewer_->SetEvents(&events_);
  viewer_->SetOverlayPainter(
      [this](DrawingSurface& surface, const ViewGeometry& area) { PaintOverlays(surface, area); });
  viewer_->SetLivePainter([this](DrawingSurface& surface) { PaintLive(surface); });
  viewer_->SetPointer(Qt::CrossCursor);
  if (const QScreen* primary = QGuiApplication::primaryScreen()) {
    view_.display_height = primary->size().height();
  }
  MakeActions();
  MakeMenus();
  MakeToolbars();
  MakeReadouts();
  MakeStatusBar();
  connect(viewer_, &ChartViewer::ViewChanged, overview_, qOverload<>(&QWidget::update));
  connect(&events_, &ChartEvents::CursorMoved, this, [this] { ShowReadout(); });
  connect(&events_, &ChartEvents::MenuWanted, this, [this](QPoint at) { ShowPopUp(at); });
  connect(&events_, &ChartEvents::CommandWanted, this,
          [this](const QString& name) { RunCommand(name.toStdString()); });
  connect(&look_, &LookController::LookChanged, this, [this] { FollowLook(); });
  connect(&time_, &TimeController::Second, this, [this] { ShowMob(); });
  connect(&time_, &TimeController::Second, this, [this] { targets_.Step(); });
  resize(1240, 800);
}

frmChart::~frmChart() {
  viewer_->SetEvents(nullptr);
  // They look at what goes with this window, and so go before it.
  qDeleteAll(findChildren<LiveDialog*>());
}

QAction* frmChart::action(std::string_view name) const {
  const auto at = actions_.find(name);
  return at == actions_.end() ? nullptr : at->second;
}

void frmChart::RunCommand(std::string_view name) {
  QAction* found = action(name);
  if (found != nullptr && found->isEnabled() && !view_.busy) found->trigger();
}

void frmChart::MakeActions() {
  for (const Command* command : AllCommands()) {
    auto* made = new QAction(ToQt(command->caption), this);
    made->setObjectName(ToQt(command->name));
    QString tip = ToQt(command->tip.empty() ? command->caption : command->tip);
    tip.remove('&');
    tip = tip.trimmed();
    if (!command->key.empty()) tip += "  (" + ToQt(command->key) + ")";
    made->setToolTip(tip);
    made->setStatusTip(tip);
    if (command->checked != nullptr) made->setCheckable(true);
    made->setData(ToQt(command->key));
    connect(made, &QAction::triggered, this, [this, command] {
      if (!view_.busy) command->run(context_);
      Changed(0);
      // The chart has the keyboard again, whatever was clicked.
      if (isActiveWindow()) viewer_->setFocus();
    });
    actions_.emplace(command->name, made);
  }
  // Keys of the platform's own style; the chart's single keys come through the viewer.
  action("mnuUndo")->setShortcut(QKeySequence::Undo);
  action("mnuRedo")->setShortcut(QKeySequence("Ctrl+Shift+Z"));
  action("mnuLoadExistRoute")->setShortcut(QKeySequence::Open);
  action("mnuSaveRoute")->setShortcut(QKeySequence::Save);
  action("mnuSaveCurrentRoute")->setShortcut(QKeySequence("Ctrl+Shift+S"));
  action("mnuexit")->setShortcut(QKeySequence::Quit);
  action("mnuHelpManual")->setShortcut(QKeySequence::HelpContents);
  for (const auto& [name, made] : actions_) made->setText(WithKey(*made, made->text()));
}

void frmChart::FillMenu(std::span<const MenuRow> rows, QWidget* root) {
  std::vector<QMenu*> open;
  for (const MenuRow& row : rows) {
    open.resize(static_cast<std::size_t>(row.depth));
    QWidget* parent = open.empty() ? root : static_cast<QWidget*>(open.back());
    if (!row.title.empty()) {
      auto* menu = new QMenu(ToQt(row.title), this);
      menu->setToolTipsVisible(true);
      if (auto* bar = qobject_cast<QMenuBar*>(parent)) {
        bar->addMenu(menu);
      } else {
        static_cast<QMenu*>(parent)->addMenu(menu);
      }
      if (!row.name.empty()) {
        menu->setObjectName(ToQt(row.name));
        named_menus_.emplace(row.name, menu);
      }
      open.push_back(menu);
    } else if (row.command.empty()) {
      static_cast<QMenu*>(parent)->addSeparator();
    } else {
      parent->addAction(action(row.command));
    }
  }
}

void frmChart::MakeMenus() {
  FillMenu(MenuBarRows(), menuBar());
  pop_up_ = new QMenu(this);
  pop_up_->setObjectName("mnuPopUP");
  FillMenu(PopUpRows(), pop_up_);
  for (const char* hidden : {"mnuTools", "mnuPosition", "mnuExportDiskFiles", "mnuTextFromDisk"}) {
    named_menus_.at(hidden)->menuAction()->setVisible(false);
  }
}

void frmChart::MakeToolbars() {
  const auto fill = [this](const char* name, const char* title, std::span<const ToolbarRow> rows) {
    auto* bar = new QToolBar(title, this);
    bar->setObjectName(name);
    bar->setIconSize(QSize(22, 22));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    for (const ToolbarRow& row : rows) {
      if (row.key.empty()) {
        bar->addSeparator();
      } else {
        bar->addAction(action(row.command));
      }
    }
    addToolBar(Qt::TopToolBarArea, bar);
    return bar;
  };
  toolbar_ = fill("tbToolBar", "Program", ToolbarRows());
  addToolBarBreak();
  view_toolbar_ = fill("tbToolBarView", "Chart", ViewToolbarRows());
  route_details_ = new QToolButton(this);
  route_details_->setObjectName("lblRouteDetails");
  route_details_->setText("Route Details");
  route_details_->setToolTip("The report of the last calculation");
  route_details_->setFocusPolicy(Qt::NoFocus);
  connect(route_details_, &QToolButton::clicked, this,
          [this] { frmrouteinfo(desktop_, this).exec(); });
  route_combo_ = new ToolbarCombo(viewer_, this);
  route_combo_->setObjectName("cmbRoute");
  route_combo_->setToolTip("The legs of the route, or of the last calculation");
  route_combo_->setAccessibleName("Legs of the route");
  route_combo_->setMinimumWidth(150);
  route_combo_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  route_combo_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  connect(route_combo_, &QComboBox::activated, this, [this] { viewer_->setFocus(); });
  route_list_places_ = {view_toolbar_->addWidget(route_details_),
                        view_toolbar_->addWidget(route_combo_)};
}

void frmChart::MakeReadouts() {
  const auto label = [this](const char* name) {
    auto* made = new QLabel(viewer_->viewport());
    made->setObjectName(name);
    made->setAttribute(Qt::WA_TransparentForMouseEvents);
    made->setMargin(6);
    made->hide();
    return made;
  };
  readout_ = label("Picture1");
  gps_label_ = label("lblGPS");
  // What a GPS sends stands in it.
  gps_label_->setTextFormat(Qt::PlainText);
  dividers_ = label("txtDividers");
  quiet_line_ = label("lblQuietLine");
  mob_label_ = label("lblMOB");
  // A double click on it opens the prediction of the drift.
  mob_label_->setAttribute(Qt::WA_TransparentForMouseEvents, false);
  mob_label_->installEventFilter(this);
  QFont large = mob_label_->font();
  large.setPointSizeF(large.pointSizeF() * 1.9);
  large.setBold(true);
  mob_label_->setFont(large);
  overview_ = new ChartOverview(*viewer_, viewer_->viewport());
  overview_->setObjectName("Gdviewer2");
  overview_->setToolTip("The whole chart; click or drag to move the view");
}

void frmChart::MakeStatusBar() {
  // Shares of the bar's width, in tenths.
  constexpr int kShares[] = {30, 25, 15, 10, 20};
  for (const int share : kShares) {
    auto* panel = new ElidedLabel(this);
    panel->setObjectName("StatusBar1Panel" + QString::number(panels_.size() + 1));
    panel->setMinimumWidth(0);
    panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panel->setContentsMargins(6, 0, 6, 0);
    statusBar()->addWidget(panel, share);
    panels_.push_back(panel);
  }
  progress_ = new QProgressBar(this);
  progress_->setObjectName("ProgressBar1");
  progress_->setMaximumWidth(180);
  progress_->setToolTip("Esc stops the calculation");
  progress_->hide();
  statusBar()->addPermanentWidget(progress_);
  statusBar()->setSizeGripEnabled(true);
}

void frmChart::Start() {
  look_.Start();
  const QByteArray geometry =
      QByteArray::fromHex(QByteArray::fromStdString(desktop_.settings.Get("Windows", "frmChart")));
  if (geometry.isEmpty() || !restoreGeometry(geometry)) {
    if (const QScreen* primary = QGuiApplication::primaryScreen()) {
      const QSize room = primary->availableSize();
      resize(std::min(1360, room.width() * 9 / 10), std::min(880, room.height() * 9 / 10));
    }
  }
  desktop_.settings.Set("Software/Skerrow", "InstallPath",
                        FolderOf(desktop_.program.folders.program));
  chart_.Start();
  view_.mouse_mode = MouseMode::kRouteCreation;
  Changed(kAllChanged);
  time_.Start();
  viewer_->setFocus();
  OfferRecovery(desktop_, this);
  OfferQuickInstructions(desktop_, this);
}

void frmChart::OpenFile(const std::string& path) {
  const std::string kind = ToLowerAscii(path.substr(std::min(path.size(), path.rfind('.'))));
  if (kind == ".rte") {
    route_.LoadFile(path);
  } else if (kind == ".way") {
    OpenWaypoints(context_, path);
  } else if (kind == ".gpx") {
    ImportGpx(context_, path);
  } else if (kind == kLogEnding) {
    ReplayFile(path);
  } else if (kind == ".cht" || kind == ".l55") {
    chart_.OpenStored(path.substr(0, path.rfind('.')) + ".cht");
  } else {
    desktop_.messages.Show(path + ": this is no route, waypoint, GPX, chart or log file",
                           MessageIcon::kWarning, kProgramTitle);
  }
  Changed(kAllChanged);
}

void frmChart::ReplayFile(const std::string& name) {
  const Folders& folders = desktop_.program.folders;
  const std::string sample = JoinPath(folders.Samples(), name);
  std::string path = name;  // or of a log in the tracks folder
  if (FileIsThere(name)) {
    path = QDir(ToQt(name)).absolutePath().toStdString();
  } else if (!FileIsThere(JoinPath(folders.Tracks(), name)) && FileIsThere(sample)) {
    path = sample;
  }
  instruments_.ReplayHere({.kind = ReplayKind::kAis,
                           .name = path,
                           .interval = kReplayStart,
                           .pace = ReplayPace::kInterval});
}

std::uint32_t frmChart::NeedsMet() const {
  const Program& p = desktop_.program;
  const std::size_t points = p.route.points.size();
  std::uint32_t met = 0;
  if (points >= 1) met |= kNeedsPoint;
  if (points >= 2) met |= kNeedsRoute;
  if (points >= 3) met |= kNeedsThreePoints;
  if (!p.passage.route_track.empty()) met |= kNeedsTrack;
  if (p.edits.history.CanUndo()) met |= kNeedsUndo;
  if (p.edits.history.CanRedo()) met |= kNeedsRedo;
  if (p.config.show_streams == 1.0F) met |= kNeedsStreams;
  if (view_.tools_shown) met |= kNeedsTools;
  if (p.mob.on) met |= kNeedsMob;
  if (chart_.HasPlaces()) met |= kNeedsPlaces;
  if (HasHarmonicStreams(p)) met |= kNeedsHarmonicStreams;
  const bool replay = p.replay.replay_active;
  if (p.link.ais_enabled || replay) {
    met |= kNeedsTargets;
    if (view_.targets_shown) met |= kNeedsTargetsShown;
  }
  if (p.link.gps_enabled || replay) met |= kNeedsBoat;
  // A connection and a replay exclude each other.
  if (!replay) met |= p.link.gps_enabled ? kNeedsGpsOn : kNeedsGpsOff;
  if (!replay) met |= p.link.ais_enabled ? kNeedsAisOn : kNeedsAisOff;
  const bool quiet = !replay && !instruments_.Receiving();
  met |= replay ? kNeedsReplay : kNeedsNoReplay;
  if (quiet) met |= kNeedsQuiet;
  if (quiet || instruments_.demonstrating()) met |= kNeedsDemonstration;
  // A demonstration is not logged.
  const bool text = replay && !instruments_.demonstrating();
  if (text || p.link.gps_enabled) met |= kNeedsGpsText;
  if (text || p.link.ais_enabled) met |= kNeedsAisText;
  if (p.link.gps_enabled && p.link.gps.number >= 0) met |= kNeedsGpsPort;
  if (p.nmea.log.logging_on) met |= kNeedsLog;
  if (p.plot.historical_plot_on || p.plot.track_plot_on) met |= kNeedsPlot;
  return met;
}

void frmChart::UpdateActions() {
  const std::uint32_t met = NeedsMet();
  for (const Command* command : AllCommands()) {
    QAction* known = action(command->name);
    if (met != needs_shown_) {
      known->setEnabled((command->needs & ~met) == 0);
    }
    if (command->checked != nullptr) known->setChecked(command->checked(context_));
    if (command->shown != nullptr) known->setVisible(command->shown(context_));
  }
  needs_shown_ = met;
  const auto named = [](const std::string& edit, const char* verb) {
    return edit.empty() ? QString(verb) : QString(verb) + " " + ToQt(edit);
  };
  const RouteHistory& history = desktop_.program.edits.history;
  action("mnuUndo")->setText(named(history.UndoName(), "&Undo"));
  action("mnuRedo")->setText(named(history.RedoName(), "&Redo"));
  action("tbMob")->setText(WithKey(*action("tbMob"), ToQt(mob_.MenuText())));
  const QString pause = ToQt(PauseCaption(desktop_.program.replay));
  for (const char* name : {"mnuGPSReplayPause", "mnuAISReplayPause"}) action(name)->setText(pause);
  named_menus_.at("mnuTools")->menuAction()->setVisible(view_.tools_shown);
  const bool one_input = desktop_.program.config.gps_through_ais != 0;
  named_menus_.at("mnuGPS")->menuAction()->setVisible(!one_input);
  named_menus_.at("mnuAIS")->setTitle(one_input ? "&AIS/GPS" : "&AIS");
  action("mnuAISEnable")->setToolTip(one_input ? "Enable GPS/AIS reception" : "AIS Enable");
}

void frmChart::FillRecentMenu() {
  QMenu* menu = named_menus_.at("mnuRecent");
  const std::vector<std::string>& recent = chart_.recent();
  menu->clear();
  for (const std::string& path : recent) {
    QAction* entry = menu->addAction(ToQt(path));
    entry->setObjectName("mnuMRU");
    connect(entry, &QAction::triggered, this, [this, path] { chart_.OpenStored(path); });
  }
  menu->menuAction()->setVisible(!recent.empty());
}

void frmChart::UpdateCaption() {
  const Program& program = desktop_.program;
  if (program.replay.replay_active) {
    setWindowTitle(QString(kProgramName) +
                   (instruments_.demonstrating() ? " - Demonstration" : " - Replay of ") +
                   (instruments_.demonstrating()
                        ? QString()
                        : ToQt(FileNameOf(program.replay.replay_file_name))));
    return;
  }
  const RouteState& route = program.route;
  std::string tail = route_.Listed() ? ListedRouteText(route) : RouteStatusText(route);
  if (!route.points.empty()) tail += RouteNameText(program);
  setWindowTitle(ToQt(CaptionText(program, tail)));
}

void frmChart::UpdateStatusBar() {
  const std::array<std::string, 5> texts = StatusPanels(desktop_.program, view_);
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i]->setText(ToQt(texts[i]));
    panels_[i]->setToolTip(ToQt(texts[i]));
  }
  // Each line has the room it needs where there is enough for all; otherwise all give way alike.
  constexpr int kAround = 22;  // margins of a panel and the gap beside it
  std::vector<int> wanted;
  for (const QLabel* panel : panels_) {
    wanted.push_back(panel->fontMetrics().horizontalAdvance(panel->text()) + kAround);
  }
  const int all = std::accumulate(wanted.begin(), wanted.end(), 0);
  const int room = statusBar()->width() - (progress_->isVisible() ? progress_->width() : 0) - 24;
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i]->setMinimumWidth(all <= room ? wanted[i] : wanted[i] * room / std::max(1, all));
  }
}

void frmChart::UpdateRouteCombo() {
  const Program& program = desktop_.program;
  const PassageState& passage = program.passage;
  const bool calculated = passage.calc_mode == kCalcModeRoute && !passage.route_combo.empty();
  const std::vector<std::string> rows =
      calculated ? passage.route_combo : RouteComboRows(program.route);
  QStringList texts;
  for (const std::string& row : rows) texts << ToQt(row);
  route_combo_->clear();
  route_combo_->addItems(texts);
  if (!calculated && program.route.selected_leg > 0) {
    route_combo_->setCurrentIndex((program.route.selected_leg - 1) * kLinesOfALeg);
  }
  for (QAction* place : route_list_places_) place->setVisible(!rows.empty());
  route_details_->setEnabled(!passage.result_lines.empty());
  if (calculated) {
    route_combo_->setToolTip(ToQt(passage.route_combo_text));
    route_details_->setToolTip(ToQt(passage.route_summary_text));
  }
}

void frmChart::Changed(std::uint32_t what) {
  const Program& program = desktop_.program;
  if (program.passage.route_track.empty() && (what & kRouteChanged) != 0) {
    // What ran along the track goes with it.
    view_.calculation_on_show = false;
    time_.DropAnimation();
  }
  UpdateActions();
  if (what == 0) return;
  if ((what & kRouteChanged) != 0) UpdateRouteCombo();
  if ((what & kSettingsChanged) != 0) {
    FillRecentMenu();
    const bool visible = program.config.toolbar_visible != 0;
    toolbar_->setVisible(visible);
    view_toolbar_->setVisible(visible);
  }
  if (what != kTargetsChanged) {
    UpdateStatusBar();
    UpdateCaption();
  }
  ShowReadout();
  ShowMob();
  PlaceFloats();
  viewer_->Redraw();
}

std::unique_ptr<Progress> frmChart::StartProgress(const char*) {
  return std::make_unique<ProgressOnBar>(*this);
}

void frmChart::Tell(std::string_view text) { statusBar()->showMessage(ToQt(text), kTellTime); }

void frmChart::PaintLive(DrawingSurface& surface) {
  if (!chart_.drawing_allowed() || !chart_.HasPlaces()) return;
  const Program& program = desktop_.program;
  DrawLiveOverlays(surface,
                   MakeOverlayView(program.charts.chart, viewer_->geometry(), viewer_->geometry(),
                                   program.config.text_size),
                   program, view_);
}

// The streams are those of the state as it is now, whatever has changed it; a paint that finds them
// up to date spares the work.
void frmChart::UpdateStreams() {
  TideState& tides = desktop_.program.tides;
  const AppConfig& config = desktop_.program.config;
  if (config.use_tides == 0 || config.show_streams != 1.0F ||
      tides.streams_revision == tides.revision) {
    return;
  }
  HeldMessages held;
  UpdateTidalStreams(tides, held);
  if (held.held() == stream_trouble_) return;
  stream_trouble_ = held.held();
  if (stream_trouble_.empty()) return;
  QMetaObject::invokeMethod(
      this, [this, text = stream_trouble_] { desktop_.messages.Show(text, MessageIcon::kWarning); },
      Qt::QueuedConnection);
}

// The imported wind likewise: of the time, the chart and the file as they are now.
void frmChart::UpdateWind() {
  const AppConfig& config = desktop_.program.config;
  if (config.show_wind_grid != 0 && config.use_manual_wind == 0) UpdateWindField(desktop_.program);
}

void frmChart::PaintOverlays(DrawingSurface& surface, const ViewGeometry& area) {
  if (!chart_.drawing_allowed() || !chart_.HasPlaces()) return;
  UpdateStreams();
  UpdateWind();
  const Program& program = desktop_.program;
  const OverlayView seen =
      MakeOverlayView(program.charts.chart, viewer_->geometry(), area, program.config.text_size);
  DrawOverlays(surface, seen, program, view_);
  std::string line = Trim(MobLabelText(seen, program.mob));
  std::erase(line, '\n');
  if (line == mob_shown_line_) return;
  mob_shown_line_ = line;
  QMetaObject::invokeMethod(
      this, [this] { ShowMob(); }, Qt::QueuedConnection);
}

void frmChart::ShowReadout() {
  // Before the mouse has been over the chart there is no cursor to tell of.
  const bool on_chart = chart_.HasPlaces() && view_.cursor != Position{};
  readout_->setVisible(on_chart);
  if (on_chart) {
    QStringList rows;
    for (const std::string& row : CursorReadout(view_, LatToText3(view_.cursor.latitude),
                                                LongToText3(view_.cursor.longitude))) {
      rows << ToQt(row);
    }
    readout_->setText(rows.join('\n'));
    readout_->adjustSize();
  }
  ShowGps();
  dividers_->setVisible(view_.dividers_on);
  if (view_.dividers_on) {
    dividers_->setText(ToQt(DividersText(view_)));
    dividers_->adjustSize();
    const QPoint cursor = viewer_->viewport()->mapFromGlobal(QCursor::pos());
    QPoint at = cursor + QPoint(18, 18);
    const QSize room = viewer_->viewport()->size();
    at.setX(std::clamp(at.x(), 0, std::max(0, room.width() - dividers_->width())));
    at.setY(std::clamp(at.y(), 0, std::max(0, room.height() - dividers_->height())));
    dividers_->move(at);
  }
  if (desktop_.program.mob.on) ShowMob();
}

// The box of the GPS stands below the readout.
void frmChart::ShowGps() {
  const QString text = ToQt(GpsReadout(desktop_.program, view_));
  if (gps_label_->text() != text) {
    gps_label_->setText(text);
    gps_label_->adjustSize();
  }
  gps_label_->setVisible(!text.isEmpty());
  gps_label_->move(kFloatMargin,
                   (readout_->isVisible() ? readout_->geometry().bottom() : 0) + kFloatMargin);
}

void frmChart::ShowMob() {
  const QString text = ToQt(mob_.LabelText(mob_shown_line_));
  if (mob_label_->text() != text) {
    mob_label_->setText(text);
    mob_label_->adjustSize();
  }
  mob_label_->setVisible(!text.isEmpty());
  const QLabel* above = gps_label_->isVisible() ? gps_label_ : readout_;
  mob_label_->move(kFloatMargin,
                   (above->isVisible() ? above->geometry().bottom() : 0) + kFloatMargin);
}

// The readout stands in the upper left corner, the overview in the lower right one, and the quiet
// line at the lower edge.
void frmChart::PlaceFloats() {
  const QSize room = viewer_->viewport()->size();
  readout_->move(kFloatMargin, kFloatMargin);
  overview_->setVisible(view_.thumbnail_visible && viewer_->image_height() > 0);
  overview_->resize(overview_->SizeForSide(kOverviewSide));
  overview_->move(room.width() - overview_->width() - kFloatMargin,
                  room.height() - overview_->height() - kFloatMargin);
  std::string line = chart_.MissingCalibration();
  if (line.empty() && chart_.HasPlaces() && desktop_.program.route.points.empty()) {
    line = "Shift + click lays a route";
  }
  quiet_line_->setText(ToQt(line));
  quiet_line_->setVisible(!line.empty());
  quiet_line_->adjustSize();
  quiet_line_->move((room.width() - quiet_line_->width()) / 2,
                    room.height() - quiet_line_->height() - kFloatMargin);
  ShowGps();
  ShowMob();
}

void frmChart::FollowLook() {
  const Theme& theme = ThemeInForce();
  const QString style =
      QStringLiteral(
          "QLabel {background: %1; color: %2; border: 1px solid %3; border-radius: 4px;}")
          .arg(ColourName(theme.readout_back), ColourName(theme.readout_text),
               ColourName(theme.readout_border));
  for (QLabel* label : {readout_, gps_label_, dividers_, mob_label_, quiet_line_})
    label->setStyleSheet(style);
  QPalette colours = QGuiApplication::palette();
  for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Button}) {
    colours.setColor(role, theme.readout_back);
  }
  for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText}) {
    colours.setColor(role, theme.readout_text);
  }
  // In another font the bar lays itself out anew, and its panels come up beneath the line that
  // stands there.
  QTimer::singleShot(0, this, [this] {
    const QString line = statusBar()->currentMessage();
    if (line.isEmpty()) return;
    statusBar()->clearMessage();
    statusBar()->showMessage(line, kTellTime);
  });
  route_combo_->setPalette(colours);
  route_details_->setPalette(colours);
  for (const Command* command : AllCommands()) {
    if (command->icon.empty()) continue;
    action(command->name)->setIcon(Icon(ToQt(command->icon), view_.night, view_.brightness.level));
  }
}

void frmChart::ShowPopUp(QPoint at) {
  UpdateActions();
  pop_up_->popup(at);
}

bool frmChart::eventFilter(QObject* watched, QEvent* event) {
  if (watched == mob_label_ && event->type() == QEvent::MouseButtonDblClick) {
    RunCommand("mnuCalcMOB");
    return true;
  }
  return QMainWindow::eventFilter(watched, event);
}

void frmChart::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  UpdateStatusBar();
  PlaceFloats();
}

// A right click beside the chart shows the chart's menu; over the chart the mouse sees to it.
void frmChart::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  const bool by_key = event->reason() == QContextMenuEvent::Keyboard;
  if (view_.busy || (!by_key && viewer_->QWidget::geometry().contains(event->pos()))) return;
  if (chart_.HasPlaces()) view_.last_click = view_.cursor;
  ShowPopUp(event->globalPos());
}

void frmChart::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  const bool files =
      std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
  if (!files || view_.busy || !event->possibleActions().testFlag(Qt::CopyAction)) return;
  // Never a move: the program that the file comes from would delete it.
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void frmChart::dropEvent(QDropEvent* event) {
  QStringList paths;
  for (const QUrl& url : event->mimeData()->urls()) {
    if (url.isLocalFile()) paths.append(url.toLocalFile());
  }
  event->setDropAction(Qt::CopyAction);
  event->accept();
  // The other program waits until the drop is over, and a dialog may come up.
  QTimer::singleShot(0, this, [this, paths] {
    activateWindow();
    for (const QString& path : paths) OpenFile(FromQt(path));
  });
}

void frmChart::closeEvent(QCloseEvent* event) {
  if (view_.busy || (!chart_.lost() && !MayExit(desktop_, this))) {
    event->ignore();
    return;
  }
  time_.Stop();
  instruments_.Stop();
  chart_.Stop();
  desktop_.settings.Set("Windows", "frmChart", saveGeometry().toHex().toStdString());
  if (const Status flushed = desktop_.settings.Flush(); !flushed) {
    desktop_.messages.Show(flushed.error().Text(), MessageIcon::kWarning, kProgramTitle);
  }
  event->accept();
}

}  // namespace skerrow
