#include "ui/dialogs/frmWind.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>
#include <array>

#include "app/wind_work.h"
#include "core/numbers.h"
#include "platform/polars.h"
#include "routes/route_rows.h"
#include "ui/dialogs/frmEditPlot.h"
#include "ui/dialogs/frmPolarPlot.h"
#include "ui/edits.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kForces = 13;
constexpr int kLongestNumber = 6;

// The places of the points of the compass round a square of five fields, from north on.
constexpr std::array<std::array<int, 2>, kCompassPoints> kRose = {{{0, 2},
                                                                   {0, 3},
                                                                   {0, 4},
                                                                   {1, 4},
                                                                   {2, 4},
                                                                   {3, 4},
                                                                   {4, 4},
                                                                   {4, 3},
                                                                   {4, 2},
                                                                   {4, 1},
                                                                   {4, 0},
                                                                   {3, 0},
                                                                   {2, 0},
                                                                   {1, 0},
                                                                   {0, 0},
                                                                   {0, 1}}};

}  // namespace

frmWind::frmWind(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmWind", "Wind Calculation", parent),
      polars_(OpenPolarDatabase(desktop.program.folders.InstalledPolars(),
                                desktop.program.folders.OwnPolars())),
      speed_(MakeSpeedEdit(desktop.messages, "txtWindSpeed")),
      direction_(MakeBearingEdit(desktop.messages, "txtWindDir")),
      heading_(MakeBearingEdit(desktop.messages, "txtHeading")),
      forces_(new QButtonGroup(this)),
      compass_(new QButtonGroup(this)),
      set_ups_(Named<QListWidget>("lstSetUps")),
      boat_(Named<QLabel>("lblBoat")),
      result_(Named<QLineEdit>("txtResult")),
      tack_(Named<QLabel>("lblTack")),
      constant_(Named<QCheckBox>("chkConstantWind", "&One wind for the whole route")),
      legs_(new TextList(desktop.clipboard, "List1")),
      leg_wind_(MakeHint("")) {
  auto* menus = new QMenuBar;
  QMenu* polar = menus->addMenu("&Polar");
  QAction* edit = polar->addAction("&Edit Polar Plot...");
  edit->setObjectName(QStringLiteral("mnuEditPolar"));
  connect(edit, &QAction::triggered, this, [this] { EditPolar(); });
  layout()->setMenuBar(menus);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  QVBoxLayout* left = MakeColumn();
  left->setSpacing(10);
  left->addWidget(MakeWind());
  left->addWidget(MakeBoat(), 1);
  columns->addLayout(left);
  columns->addWidget(MakeRoute(), 1);
  body()->addLayout(columns, 1);
  QPushButton* close = AddButton("cmdClose", "Close");
  connect(close, &QPushButton::clicked, this, &QDialog::accept);

  const WindEntry entry = WindEntryOf(desktop.program);
  speed_->SetText(entry.speed);
  direction_->SetText(entry.direction);
  FollowBoxes();
  const std::vector<std::string> names = ListSetUps();
  if (const auto selected = SelectedSetUp(desktop.program.wind_config, names)) {
    TakeUp(names[*selected]);
  }
  ShowLegs();
  speed_->setFocus();
  speed_->selectAll();
  resize(940, 620);
}

QWidget* frmWind::MakeWind() {
  auto* box = new QGroupBox("True wind");
  auto* column = new QVBoxLayout(box);
  for (FilteredEdit* edit : {speed_, direction_, heading_}) {
    edit->SetColumns(6);
    edit->setMaxLength(kLongestNumber);
    connect(edit, &QLineEdit::returnPressed, this, [this] { Estimate(); });
  }
  speed_->setToolTip("0 to 40 knots");
  direction_->setToolTip("Degrees true that the wind blows from");
  column->addLayout(MakeRow({MakeLabel("&Speed:", speed_), speed_, new QLabel("kn")}));
  column->addWidget(MakeForces());
  column->addSpacing(4);
  column->addLayout(MakeRow(
      {MakeLabel("&Direction:", direction_), direction_, new QLabel(QStringLiteral("\u00b0T"))}));
  column->addWidget(MakeCompass());
  for (FilteredEdit* edit : {speed_, direction_}) {
    connect(edit, &QLineEdit::textChanged, this, [this] { FollowBoxes(); });
  }
  return box;
}

QWidget* frmWind::MakeForces() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  layout->addWidget(new QLabel("Force"));
  for (int force = 0; force < kForces; ++force) {
    const std::string name = "optTrueForce" + std::to_string(force);
    auto* button = Named<QPushButton>(name.c_str(), QString::number(force));
    button->setCheckable(true);
    button->setAutoDefault(false);
    button->setFixedWidth(30);
    button->setFocusPolicy(force == 0 ? Qt::StrongFocus : Qt::ClickFocus);
    const std::optional<int> knots = BeaufortSpeed(force);
    button->setToolTip(QString("Force %1: %2 kn").arg(force).arg(*knots));
    button->setAccessibleName(QString("Force %1").arg(force));
    forces_->addButton(button, force);
    layout->addWidget(button);
  }
  layout->addStretch(1);
  connect(forces_, &QButtonGroup::idClicked, this,
          [this](int force) { speed_->SetText(std::to_string(*BeaufortSpeed(force))); });
  return row;
}

QWidget* frmWind::MakeCompass() {
  auto* rose = new QWidget;
  auto* grid = new QGridLayout(rose);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(2);
  for (std::size_t point = 0; point < kCompassPoints; ++point) {
    const std::string name = "optDirTrue" + std::to_string(point);
    auto* button = Named<QPushButton>(name.c_str(), QString::fromUtf8(kCompassNames[point]));
    button->setCheckable(true);
    button->setAutoDefault(false);
    button->setFixedWidth(54);
    button->setFocusPolicy(point == 0 ? Qt::StrongFocus : Qt::ClickFocus);
    button->setToolTip(ToQt("From " + CompassText(point) + "\u00b0"));
    compass_->addButton(button, static_cast<int>(point));
    grid->addWidget(button, kRose[point][0], kRose[point][1]);
  }
  grid->setColumnStretch(5, 1);
  connect(compass_, &QButtonGroup::idClicked, this,
          [this](int point) { direction_->SetText(CompassText(static_cast<std::size_t>(point))); });
  return rose;
}

QWidget* frmWind::MakeBoat() {
  auto* box = new QGroupBox("Boat");
  auto* column = new QVBoxLayout(box);
  auto* plot = Named<QPushButton>("cmdDisplayPolar", "Displa&y Polar Plot");
  auto* calc = Named<QPushButton>("cmdCalc", "&Estimate Boat Speed");
  for (QPushButton* button : {plot, calc}) button->setAutoDefault(false);
  auto* head = new QHBoxLayout;
  head->addWidget(MakeLabel("Set-&ups", set_ups_));
  boat_->setAlignment(Qt::AlignRight);
  head->addWidget(boat_, 1);
  column->addLayout(head);
  set_ups_->setMinimumHeight(70);
  column->addWidget(set_ups_, 1);
  column->addLayout(MakeRow({plot}));
  result_->setReadOnly(true);
  result_->setMaximumWidth(70);
  result_->setAccessibleName("Boat speed");
  result_->setFocusPolicy(Qt::ClickFocus);
  column->addLayout(
      MakeRow({MakeLabel("&Heading:", heading_), heading_, new QLabel(QStringLiteral("\u00b0T")),
               calc, result_, new QLabel("kn")}));
  column->addWidget(tack_);
  connect(plot, &QPushButton::clicked, this, [this] { ShowPolar(); });
  connect(calc, &QPushButton::clicked, this, [this] { Estimate(); });
  // The selection, not the current row: a list that gets the keyboard makes its first row current.
  connect(set_ups_, &QListWidget::itemSelectionChanged, this, [this] {
    if (!set_ups_->selectedItems().isEmpty()) ChooseSetUp(set_ups_->currentRow());
  });
  connect(set_ups_, &QListWidget::itemActivated, this, [this] { ShowPolar(); });
  return box;
}

QWidget* frmWind::MakeRoute() {
  auto* box = new QGroupBox("Route");
  auto* column = new QVBoxLayout(box);
  const Program& program = desktop().program;
  constant_->setChecked(program.config.use_manual_wind != 0);
  constant_->setToolTip("Without this mark each leg takes the wind of the imported forecast");
  column->addWidget(constant_);
  legs_->setSelectionMode(QAbstractItemView::SingleSelection);
  legs_->setToolTip(
      "A click gives the leg the wind's direction, a double click its speed by the polar");
  column->addWidget(legs_, 1);
  leg_wind_->setObjectName("lblLegWind");
  leg_wind_->setText(
      "A click on a leg gives it the direction above; a double click or Enter works "
      "out its speed.");
  column->addWidget(leg_wind_);
  auto* polar = Named<QPushButton>("cmdCalcPolar", "&Calculate Boat Speed From Polar Plot");
  auto* reset = Named<QPushButton>("cmdReset", "&Reset Leg Speed to Default");
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {polar, reset}) {
    button->setAutoDefault(false);
    button->setEnabled(program.route.points.size() >= 2);
    buttons->addWidget(button);
  }
  buttons->addStretch(1);
  column->addLayout(buttons);
  connect(constant_, &QCheckBox::clicked, this, [this](bool on) {
    Desktop& d = this->desktop();
    const Status saved = UseEnteredWind(d.program, on, d.messages);
    if (!saved) d.messages.Show(saved.error().Text(), MessageIcon::kWarning);
    d.window.Changed(kRouteChanged | kSettingsChanged);
  });
  connect(legs_, &QListWidget::itemClicked, this,
          [this] { SetLegWind(static_cast<std::size_t>(LegOfRow(legs_->currentRow()))); });
  connect(legs_, &QListWidget::itemActivated, this,
          [this] { CalculateLeg(static_cast<std::size_t>(LegOfRow(legs_->currentRow()))); });
  connect(polar, &QPushButton::clicked, this, [this] { CalculateRoute(); });
  connect(reset, &QPushButton::clicked, this, [this] { Reset(); });
  return box;
}

WindEntry frmWind::Entry() const { return {speed_->Text(), direction_->Text(), heading_->Text()}; }

bool frmWind::Passes(WindRefusal refusal) {
  if (refusal == WindRefusal::kNone) return true;
  QWidget* field = refusal == WindRefusal::kSpeed       ? static_cast<QWidget*>(speed_)
                   : refusal == WindRefusal::kDirection ? direction_
                   : refusal == WindRefusal::kHeading   ? heading_
                                                        : static_cast<QWidget*>(set_ups_);
  Refuse(WindRefusalText(refusal), false, field);
  return false;
}

void frmWind::FollowBoxes() {
  const auto follow = [](QButtonGroup* group, int id) {
    group->setExclusive(false);
    for (QAbstractButton* button : group->buttons()) button->setChecked(group->id(button) == id);
    group->setExclusive(true);
  };
  const bool fits = CheckWind(Entry()) == WindRefusal::kNone;
  const Wind wind = EnteredWind(Entry());
  follow(forces_, fits ? BeaufortForce(wind.speed_kn) : -1);
  follow(compass_, fits ? static_cast<int>(NearestCompassPoint(wind.from_deg)) : -1);
}

std::vector<std::string> frmWind::ListSetUps() {
  Result<std::vector<std::string>> names = polars_->SetUps();
  {
    const QSignalBlocker quiet(set_ups_);
    set_ups_->clear();
    if (names) {
      for (const std::string& set_up : *names) set_ups_->addItem(ToQt(set_up));
    }
    set_ups_->setCurrentRow(-1);
  }
  set_ups_->setToolTip(ToQt("The set-ups are in " + polars_->Path()));
  set_up_.clear();
  table_.reset();
  boat_->setText(names ? QString() : ToQt("No set-ups: " + names.error().Text()));
  boat_->setToolTip(boat_->text());
  return names ? std::move(names.value()) : std::vector<std::string>();
}

void frmWind::TakeUp(const std::string& name) {
  const auto found = set_ups_->findItems(ToQt(name), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (!found.isEmpty()) set_ups_->setCurrentItem(found.first());
}

void frmWind::ChooseSetUp(int row) {
  const std::string name = FromQt(set_ups_->item(row)->text());
  Result<PolarRows> rows = polars_->Read(name);
  set_up_.clear();
  table_.reset();
  boat_->clear();
  if (!rows) return Refuse(rows.error().Text());
  set_up_ = name;
  rows_ = std::move(rows.value());
  table_.emplace(rows_);
  boat_->setText(ToQt(name));
  WindConfig& config = desktop().program.wind_config;
  const auto index = static_cast<std::int16_t>(row + 1);
  if (config.selected_setup == index) return;
  config.selected_setup = index;
  const Status saved = SaveWindConfig(desktop().program.folders, config);
  if (!saved) desktop().messages.Notice(saved.error().Text());
}

void frmWind::KeepWind() {
  Desktop& d = desktop();
  const Status saved = EnterWind(d.program, EnteredWind(Entry()), d.messages);
  if (!saved) d.messages.Show(saved.error().Text(), MessageIcon::kWarning);
  d.window.Changed(kRouteChanged | kSettingsChanged);
}

void frmWind::Estimate() {
  const WindEntry entry = Entry();
  if (!Passes(CheckEstimate(entry, table_.has_value()))) return;
  const Wind wind = EnteredWind(entry);
  const RelativeWind relative = RelativeWindOf(wind.from_deg, TextToNumber(entry.heading));
  tack_->setText(ToQt(WindSideText(relative)));
  const auto speed = EstimateBoatSpeed(rows_, wind.speed_kn, relative.angle,
                                       desktop().program.config.closest_sailing_angle);
  KeepWind();
  if (!speed) return Refuse(kPolarCellFault);
  result_->setText(ToQt(*speed));
}

void frmWind::CalculateRoute() {
  if (!Passes(CheckWind(Entry()))) return;
  if (!Passes(table_ ? WindRefusal::kNone : WindRefusal::kSetUp)) return;
  // What is in the boxes is what the skipper means, whether it has been estimated with or not.
  KeepWind();
  const bool done = EditRoute(desktop(), "Speeds by Wind", [this](RouteState& route) {
    return SetSpeedsByWind(route.points, *table_, RouteWindRequestOf(desktop().program),
                           desktop().messages);
  });
  ShowLegs();
  if (done) leg_wind_->setText("Each leg has its speed and tack by the polar and the wind.");
}

void frmWind::CalculateLeg(std::size_t leg) {
  SetLegWind(leg);
  if (CheckWind(Entry()) != WindRefusal::kNone) return;
  if (!Passes(table_ ? WindRefusal::kNone : WindRefusal::kSetUp)) return;
  RouteWindRequest request = RouteWindRequestOf(desktop().program);
  request.default_wind = EnteredWind(Entry());
  EditRoute(desktop(), "Speed of Leg by Wind", [&](RouteState& route) {
    return SetLegSpeedByWind(route.points, leg - 1, *table_, request, desktop().messages);
  });
  ShowLegs();
  leg_wind_->setText(ToQt(LegWindDetail(desktop().program.route, leg)));
}

void frmWind::SetLegWind(std::size_t leg) {
  if (!Passes(CheckWind(Entry()))) return;
  EditRoute(desktop(), "Wind of Leg", [&](RouteState& route) {
    if (leg - 1 < route.points.size()) {
      route.points[leg - 1].wind_direction = EnteredWind(Entry()).from_deg;
    }
  });
  leg_wind_->setText(ToQt(LegWindText(leg, direction_->Text())));
}

void frmWind::Reset() {
  EditRoute(desktop(), "Reset Leg Speed", [this](RouteState& route) {
    ResetLegSpeeds(route, desktop().program.config.vessel_speed);
  });
  ShowLegs();
}

void frmWind::ShowLegs() {
  const int row = legs_->currentRow();
  legs_->SetLines(RouteRows(desktop().program.route));
  if (row >= 0) legs_->setCurrentRow(row);
}

void frmWind::ShowPolar() {
  if (!Passes(table_ ? WindRefusal::kNone : WindRefusal::kSetUp)) return;
  const WindEntry entry = Entry();
  std::optional<PolarEstimate> estimate;
  if (CheckEstimate(entry, true) == WindRefusal::kNone) {
    const Wind wind = EnteredWind(entry);
    const double angle = RelativeWindOf(wind.from_deg, TextToNumber(entry.heading)).angle;
    const auto speed = EstimateBoatSpeed(rows_, wind.speed_kn, angle,
                                         desktop().program.config.closest_sailing_angle);
    if (speed) estimate = {wind.speed_kn, angle, *speed};
  }
  frmPolarPlot(desktop(), set_up_, rows_, estimate, this).exec();
}

void frmWind::EditPolar() {
  frmEditPlot editor(desktop(), set_up_, this);
  editor.exec();
  // A change copies the installed database, so that the file may be another one now.
  ListSetUps();
  TakeUp(editor.set_up());
}

}  // namespace skerrow
