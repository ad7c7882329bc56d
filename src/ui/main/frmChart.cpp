#include "ui/main/frmChart.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>

#include "platform/settings_store.h"
#include "ui/forms/route_forms.h"
#include "ui/icons/icons.h"
#include "ui/main/readout.h"
#include "ui/overlays/overlays.h"
#include "ui/routes/leaving.h"
#include "ui/widgets/qt_text.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

constexpr int kFloatMargin = 12;
constexpr int kOverviewSide = 190;
constexpr int kKeepViewDelay = 500;  // ms

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

}  // namespace

// The progress bar of the status bar. Each step serves events, so that the window answers; Esc
// stops the work at its next step.
class FrmChart::ProgressOnBar final : public Progress {
 public:
  explicit ProgressOnBar(FrmChart& window) : window_(window) {
    window_.progress_->setValue(0);
    window_.progress_->show();
    window_.busy_ = true;
    stop_ = new QAction(&window_);
    stop_->setShortcut(Qt::Key_Escape);
    window_.addAction(stop_);
    connect(stop_, &QAction::triggered, [this] { cancelled_ = true; });
  }
  ~ProgressOnBar() override {
    window_.progress_->hide();
    window_.busy_ = false;
    delete stop_;
  }
  bool Step(double percent) override {
    window_.progress_->setValue(static_cast<int>(percent));
    QCoreApplication::processEvents();
    return !cancelled_;
  }

 private:
  FrmChart& window_;
  QAction* stop_;
  bool cancelled_ = false;
};

FrmChart::FrmChart(Program& program, Messages& messages, SettingsStore& settings,
                   Clipboard& clipboard)
    : desktop_{program, messages, settings, clipboard, *this, view_},
      mouse_(program, view_, messages, *this),
      viewer_(new ChartViewer(this)) {
  setObjectName("frmChart");
  setWindowTitle(kProgramName);
  viewer_->setObjectName("oGdViewer");
  viewer_->setFocusPolicy(Qt::StrongFocus);
  viewer_->setAccessibleName("Chart");
  setCentralWidget(viewer_);
  viewer_->SetEvents(this);
  viewer_->SetOverlayPainter([this](DrawingSurface& surface) { PaintOverlays(surface); });
  viewer_->SetPointer(Qt::CrossCursor);
  if (const QScreen* primary = QGuiApplication::primaryScreen()) {
    view_.display_height = primary->size().height();
  }
  MakeActions();
  MakeMenus();
  MakeToolbars();
  MakeReadouts();
  MakeStatusBar();
  // The view is kept as it changes, but not for each step of a drag.
  keep_view_timer_.setSingleShot(true);
  keep_view_timer_.setInterval(kKeepViewDelay);
  connect(&keep_view_timer_, &QTimer::timeout, this, [this] {
    if (!busy_) SaveView();
  });
  connect(viewer_, &ChartViewer::ViewChanged, this, [this] {
    overview_->update();
    keep_view_timer_.start();
  });
  connect(viewer_, &ChartViewer::SelectionMade, this, [this] {
    viewer_->ZoomToSelection();
    ToggleRectangle();
  });
  timer1_.setInterval(kTimer1Interval);
  connect(&timer1_, &QTimer::timeout, this, [this] {
    if (busy_) return;
    const float hours = this->program().selected_time.hours;
    Timer1Tick(this->program(), false, *this);
    if (hours != this->program().selected_time.hours) UpdateCaption();
  });
  animate_timer_.setInterval(kAnimateInterval);
  connect(&animate_timer_, &QTimer::timeout, this, [this] {
    if (busy_) return;
    if (!AnimateTick(this->program(), *this)) animate_timer_.stop();
    UpdateCaption();
    UpdateActions();
  });
  resize(1240, 800);
}

FrmChart::~FrmChart() { viewer_->SetEvents(nullptr); }

QAction* FrmChart::action(std::string_view name) const {
  const auto at = actions_.find(name);
  return at == actions_.end() ? nullptr : at->second;
}

void FrmChart::RunCommand(std::string_view name) {
  QAction* found = action(name);
  if (found != nullptr && found->isEnabled() && !busy_) found->trigger();
}

void FrmChart::MakeActions() {
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
    connect(made, &QAction::triggered, this, [this, command] {
      if (command->run != nullptr && !busy_) command->run(*this);
      UpdateActions();
    });
    actions_.emplace(command->name, made);
  }
  // Keys of the platform's own style; the chart's single keys come through the viewer.
  action("mnuUndo")->setShortcut(QKeySequence::Undo);
  action("mnuRedo")->setShortcut(QKeySequence("Ctrl+Shift+Z"));
  action("mnuLoadExistRoute")->setShortcut(QKeySequence::Open);
  action("mnuRouteSave")->setShortcut(QKeySequence::Save);
  action("mnuexit")->setShortcut(QKeySequence::Quit);
  action("mnuHelpManual")->setShortcut(QKeySequence::HelpContents);
}

void FrmChart::FillMenu(std::span<const MenuRow> rows, QWidget* root) {
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

void FrmChart::MakeMenus() {
  FillMenu(MenuBarRows(), menuBar());
  pop_up_ = new QMenu(this);
  pop_up_->setObjectName("mnuPopUP");
  FillMenu(PopUpRows(), pop_up_);
  named_menus_.at("mnuTools")->menuAction()->setVisible(false);
}

void FrmChart::MakeToolbars() {
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
  auto* spacer = new QWidget(this);
  spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  view_toolbar_->addWidget(spacer);
  route_combo_ = new QComboBox(this);
  route_combo_->setObjectName("cmbRoute");
  route_combo_->setToolTip("The legs of the route, or of the last calculation");
  route_combo_->setMinimumWidth(260);
  route_combo_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  route_combo_->view()->setMinimumWidth(520);
  route_combo_place_ = view_toolbar_->addWidget(route_combo_);
  RefreshIcons();
}

void FrmChart::RefreshIcons() {
  for (const Command* command : AllCommands()) {
    if (!command->icon.empty())
      action(command->name)->setIcon(Icon(ToQt(command->icon), view_.night));
  }
}

void FrmChart::MakeReadouts() {
  const auto label = [this](const char* name) {
    auto* made = new QLabel(viewer_->viewport());
    made->setObjectName(name);
    made->setAttribute(Qt::WA_TransparentForMouseEvents);
    made->setMargin(6);
    made->hide();
    return made;
  };
  readout_ = label("Picture1");
  dividers_ = label("txtDividers");
  mob_label_ = label("lblMOB");
  overview_ = new ChartOverview(*viewer_, viewer_->viewport());
  overview_->setObjectName("Gdviewer2");
  overview_->setToolTip("The whole chart; click or drag to move the view");
}

void FrmChart::MakeStatusBar() {
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

void FrmChart::Start() {
  recent_ = ReadRecentFiles(desktop_.settings, kMaxRecentCharts);
  FillRecentMenu();
  SetNight(false);
  toolbar_->setVisible(program().config.toolbar_visible != 0);
  view_toolbar_->setVisible(program().config.toolbar_visible != 0);
  const QByteArray geometry =
      QByteArray::fromHex(QByteArray::fromStdString(desktop_.settings.Get("Windows", "frmChart")));
  if (geometry.isEmpty() || !restoreGeometry(geometry)) {
    if (const QScreen* primary = QGuiApplication::primaryScreen()) {
      const QSize room = primary->availableSize();
      resize(std::min(1360, room.width() * 9 / 10), std::min(880, room.height() * 9 / 10));
    }
  }
  desktop_.settings.Set("Software/Skerrow", "InstallPath", FolderOf(program().folders.program));
  DrawChart();
  view_.mouse_mode = MouseMode::kRouteCreation;
  Changed(kAllChanged);
  timer1_.start();
  viewer_->setFocus();
  OfferRecovery(desktop_, this);
}

std::uint32_t FrmChart::NeedsMet() const {
  const Program& p = program();
  const std::size_t points = p.route.points.size();
  std::uint32_t met = 0;
  if (points >= 1) met |= kNeedsPoint;
  if (points >= 2) met |= kNeedsRoute;
  if (points >= 3) met |= kNeedsThreePoints;
  if (!p.passage.route_track.empty()) met |= kNeedsTrack;
  if (program().edits.history.CanUndo()) met |= kNeedsUndo;
  if (program().edits.history.CanRedo()) met |= kNeedsRedo;
  if (p.config.show_streams == 1.0F) met |= kNeedsStreams;
  if (view_.tools_shown) met |= kNeedsTools;
  if (program().mob.on) met |= kNeedsMob;
  return met;
}

void FrmChart::UpdateActions() {
  const std::uint32_t met = NeedsMet();
  for (const Command* command : AllCommands()) {
    QAction* known = action(command->name);
    known->setEnabled(command->run != nullptr && (command->needs & ~met) == 0);
    if (command->checked != nullptr) known->setChecked(command->checked(*this));
    if (command->shown != nullptr) known->setVisible(command->shown(*this));
  }
  const auto named = [](const std::string& edit, const char* verb) {
    return edit.empty() ? QString(verb) : QString(verb) + " " + ToQt(edit);
  };
  action("mnuUndo")->setText(named(program().edits.history.UndoName(), "&Undo"));
  action("mnuRedo")->setText(named(program().edits.history.RedoName(), "&Redo"));
  named_menus_.at("mnuTools")->menuAction()->setVisible(view_.tools_shown);
  const bool one_input = program().config.gps_through_ais != 0;
  named_menus_.at("mnuGPS")->menuAction()->setVisible(!one_input);
  named_menus_.at("mnuAIS")->setTitle(one_input ? "&AIS/GPS" : "&AIS");
  action("mnuAISEnable")->setToolTip(one_input ? "Enable GPS/AIS reception" : "AIS Enable");
}

void FrmChart::FillRecentMenu() {
  QMenu* menu = named_menus_.at("mnuRecent");
  menu->clear();
  for (const std::string& path : recent_) {
    QAction* entry = menu->addAction(ToQt(path));
    entry->setObjectName("mnuMRU");
    connect(entry, &QAction::triggered, this, [this, path] { OpenRecentChart(path); });
  }
  menu->menuAction()->setVisible(!recent_.empty());
}

void FrmChart::Repaint() { viewer_->Redraw(); }

void FrmChart::UpdateCaption() {
  if (program().replay_active) return;
  const RouteState& route = program().route;
  const bool listed = !route.points.empty() && SameRoute(route, listed_route_);
  setWindowTitle(
      ToQt(CaptionText(program(), listed ? ListedRouteText(route) : RouteStatusText(route))));
}

void FrmChart::UpdateStatusBar() {
  const std::array<std::string, 5> texts = StatusPanels(program(), view_, eta_);
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i]->setText(ToQt(texts[i]));
    panels_[i]->setToolTip(ToQt(texts[i]));
  }
}

void FrmChart::UpdateRouteCombo() {
  const PassageState& passage = program().passage;
  const bool calculated = passage.calc_mode == 1 && !passage.route_combo.empty();
  const std::vector<std::string> rows =
      calculated ? passage.route_combo : RouteComboRows(program().route);
  route_combo_->clear();
  for (const std::string& row : rows) route_combo_->addItem(ToQt(row));
  route_combo_place_->setVisible(!rows.empty());
  if (calculated) route_combo_->setToolTip(ToQt(passage.route_combo_text));
}

void FrmChart::Changed(std::uint32_t what) {
  if (program().passage.route_track.empty()) {
    // What ran along the track goes with it.
    view_.calculation_on_show = false;
    DropAnimation();
  }
  UpdateActions();
  if ((what & kRouteChanged) != 0) UpdateRouteCombo();
  UpdateStatusBar();
  UpdateCaption();
  ShowReadout();
  Repaint();
}

std::unique_ptr<Progress> FrmChart::StartProgress(const char*) {
  return std::make_unique<ProgressOnBar>(*this);
}

void FrmChart::ServeEvents() { QCoreApplication::processEvents(); }

void FrmChart::ShowReadout() {
  // Before the mouse has been over the chart there is no cursor to tell of.
  const bool on_chart = viewer_->image_height() > 0 && view_.cursor != Position{};
  readout_->setVisible(on_chart);
  if (!on_chart) return;
  QStringList rows;
  for (const std::string& row : CursorReadout(view_, LatToText3(view_.cursor.latitude),
                                              LongToText3(view_.cursor.longitude))) {
    rows << ToQt(row);
  }
  readout_->setText(rows.join('\n'));
  PlaceFloats();
}

void FrmChart::ShowEta(const std::string& text) {
  eta_ = text;
  UpdateStatusBar();
}

void FrmChart::ShowDividersText() {
  dividers_->setVisible(view_.dividers_on);
  if (!view_.dividers_on) return;
  dividers_->setText(ToQt(DividersText(view_)));
  dividers_->adjustSize();
  const QPoint cursor = viewer_->viewport()->mapFromGlobal(QCursor::pos());
  QPoint at = cursor + QPoint(18, 18);
  const QSize room = viewer_->viewport()->size();
  at.setX(std::clamp(at.x(), 0, std::max(0, room.width() - dividers_->width())));
  at.setY(std::clamp(at.y(), 0, std::max(0, room.height() - dividers_->height())));
  dividers_->move(at);
}

// The readout stands in the upper left corner, the overview in the lower right one.
void FrmChart::PlaceFloats() {
  readout_->adjustSize();
  readout_->move(kFloatMargin, kFloatMargin);
  mob_label_->adjustSize();
  mob_label_->move(kFloatMargin, readout_->geometry().bottom() + kFloatMargin);
  overview_->setVisible(view_.thumbnail_visible && viewer_->image_height() > 0);
  overview_->resize(overview_->SizeForSide(kOverviewSide));
  const QSize room = viewer_->viewport()->size();
  overview_->move(room.width() - overview_->width() - kFloatMargin,
                  room.height() - overview_->height() - kFloatMargin);
}

void FrmChart::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  PlaceFloats();
}

// A right click beside the chart shows the chart's menu; over the chart the mouse sees to it.
void FrmChart::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  const bool by_key = event->reason() == QContextMenuEvent::Keyboard;
  if (busy_ || (!by_key && viewer_->QWidget::geometry().contains(event->pos()))) return;
  view_.last_click = view_.cursor;
  ShowPopUp(event->globalPos());
}

void FrmChart::SetPointer(Pointer pointer) {
  switch (pointer) {
    case Pointer::kCross:
      return viewer_->SetPointer(Qt::CrossCursor);
    case Pointer::kMove:
      return viewer_->SetPointer(Qt::ClosedHandCursor);
    case Pointer::kHand:
      return viewer_->SetPointer(Qt::OpenHandCursor);
    case Pointer::kPointing:
      return viewer_->SetPointer(Qt::PointingHandCursor);
  }
}

void FrmChart::closeEvent(QCloseEvent* event) {
  if (busy_ || (!chart_lost_ && !MayExit(desktop_, this))) {
    event->ignore();
    return;
  }
  timer1_.stop();
  animate_timer_.stop();
  SaveView();
  WriteRecentFiles(desktop_.settings, recent_);
  desktop_.settings.Set("Windows", "frmChart", saveGeometry().toHex().toStdString());
  if (const Status flushed = desktop_.settings.Flush(); !flushed) {
    messages().Show(flushed.error().Text(), MessageIcon::kWarning, kProgramTitle);
  }
  event->accept();
}

}  // namespace skerrow
