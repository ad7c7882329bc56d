#include "ui/tides/frmSkerrowTides.h"

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

#include "core/date_order.h"
#include "core/text.h"
#include "ui/dialogs/report_write.h"
#include "ui/dialogs/save_text.h"
#include "ui/forms/date_form.h"
#include "ui/tides/Frmriseresults.h"
#include "ui/tides/Frmsunrise.h"
#include "ui/tides/frmChartdepth.h"
#include "ui/tides/frmHCcopy.h"
#include "ui/tides/frmPortName.h"
#include "ui/tides/frmTideOptions.h"
#include "ui/tides/frmTidesSeaArea.h"
#include "ui/tides/frmTidesTimeDate.h"
#include "ui/tides/frmharmedit.h"
#include "ui/widgets/date_services.h"
#include "ui/widgets/print_lines.h"
#include "ui/widgets/progress_dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr const char* kToFreeze = "(Click mouse to freeze)";
constexpr const char* kToUnfreeze = "(Click mouse to unfreeze)";
constexpr double kKeyStep = 1.0 / 6.0;  // an entry of the curve

}  // namespace

frmSkerrowTides::frmSkerrowTides(Desktop& desktop, TideForm form, QWidget* parent)
    : Dialog(desktop, "frmSkerrowTides", "Skerrow Tides", parent),
      form_(std::move(form)),
      date_order_(DetectDateOrder(LocaleDateServices())),
      timer2_(new QTimer(this)) {
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  body()->addWidget(MakeHead());
  auto* middle = new QHBoxLayout;
  middle->setSpacing(12);
  middle->addWidget(MakeSide());
  pages_ = new QStackedWidget;
  pages_->addWidget(MakeDayPage());
  pages_->addWidget(MakeMonthPage());
  middle->addWidget(pages_, 1);
  body()->addLayout(middle, 1);
  notice_ = MakeHint({});
  notice_->setObjectName(QStringLiteral("lblNotice"));
  body()->addWidget(notice_);
  MakeMenus();
  QPushButton* close = AddButton("cmdClose", "&Close");
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  timer2_->setObjectName(QStringLiteral("Timer2"));
  timer2_->setInterval(1000);
  connect(timer2_, &QTimer::timeout, this, [this] { Tick(); });
  timer2_->start();
  FollowLook();
  ShowView(View::kDay);
  plot_->setFocus();
  resize(1060, 640);
}

// ---------------------------------------------------------------- the parts of the window

QWidget* frmSkerrowTides::MakeHead() {
  auto* head = new QWidget;
  auto* row = new QHBoxLayout(head);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  port_ = Named<QLabel>("lblPort");
  date_ = Named<QLabel>("lblDate");
  for (QLabel* label : {port_, date_}) {
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 1.2);
    font.setBold(true);
    label->setFont(font);
  }
  const auto button = [&](const char* name, Qt::ArrowType arrow, const QString& tip) {
    auto* made = Named<QToolButton>(name);
    made->setArrowType(arrow);
    made->setToolTip(tip);
    made->setAccessibleName(tip);
    made->setAutoRepeat(true);
    return made;
  };
  auto* previous = button("Previousday", Qt::LeftArrow, "The day before (Ctrl+Left)");
  auto* next = button("Nextday", Qt::RightArrow, "The next day (Ctrl+Right)");
  auto* today = Named<QToolButton>("cmdToday");
  today->setText("Today");
  today->setToolTip("Goes to the present day (Home)");
  row->addWidget(port_);
  row->addStretch(1);
  row->addWidget(date_);
  row->addWidget(previous);
  row->addWidget(today);
  row->addWidget(next);
  connect(previous, &QToolButton::clicked, this,
          [this] { StepTo([this] { form_.ToPreviousDay(); }); });
  connect(next, &QToolButton::clicked, this, [this] { StepTo([this] { form_.ToNextDay(); }); });
  connect(today, &QToolButton::clicked, this, [this] { StepTo([this] { form_.ToToday(); }); });
  return head;
}

QWidget* frmSkerrowTides::MakeSide() {
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  lines_ = new TextList(desktop().clipboard, "lstTides");
  lines_->setAccessibleName("High and low waters");
  sun_times_ = Named<QLabel>("lblSun");
  spring_neap_ = Named<QProgressBar>("ProgressBar");
  spring_neap_->setRange(0, 36);
  spring_neap_->setTextVisible(false);
  spring_neap_->setFixedHeight(12);
  spring_neap_->setAccessibleName("Between springs and neaps");
  springs_ = Named<QLabel>("lblSprings");
  neap_ = Named<QLabel>("lblNeap");
  neap_->setAlignment(Qt::AlignRight);
  spring_neap_label_ = Named<QLabel>("lblSpringNeap");
  spring_neap_label_->setAlignment(Qt::AlignHCenter);
  spring_neap_label_->setProperty("heading", true);
  auto* ends = new QHBoxLayout;
  ends->addWidget(springs_);
  ends->addStretch(1);
  ends->addWidget(neap_);
  column->addWidget(lines_, 1);
  column->addWidget(sun_times_);
  column->addSpacing(4);
  column->addLayout(ends);
  column->addWidget(spring_neap_);
  column->addWidget(spring_neap_label_);
  side->setFixedWidth(lines_->fontMetrics().horizontalAdvance("Depth at the place 00.0M 00") + 24);
  return side;
}

QWidget* frmSkerrowTides::MakeDayPage() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  plot_ = new PlotWidget("picTides");
  plot_->setAccessibleName("Tide curve");
  plot_->SetKeyStep(kKeyStep);
  column->addWidget(plot_, 1);
  terms_ = new TermsPanel;
  column->addWidget(terms_);
  time_ = Named<QLabel>("timeval");
  height_ = Named<QLabel>("hiteval");
  rate_ = Named<QLabel>("lblrate");
  depth_ = Named<QLabel>("lbldepth");
  mouse_status_ = Named<QLabel>("lblmousestatus", kToFreeze);
  mouse_status_->setProperty("hint", true);
  for (QLabel* label : {time_, height_}) {
    label->setProperty("heading", true);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance("00:00 "));
  }
  rate_->setMinimumWidth(rate_->fontMetrics().horizontalAdvance("(Falling @ 00.00 Mtrs/Hr )"));
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(new QLabel("Time"));
  row->addWidget(time_);
  row->addWidget(new QLabel("Height, M"));
  row->addWidget(height_);
  row->addWidget(rate_);
  row->addWidget(depth_);
  row->addStretch(1);
  row->addWidget(mouse_status_);
  column->addLayout(row);
  connect(plot_, &PlotWidget::Pointed, this, [this](double hours) { PointAt(hours); });
  connect(plot_, &PlotWidget::Clicked, this, [this] { Freeze(); });
  connect(plot_, &PlotWidget::Left, this, [this] { LeaveCurve(); });
  connect(terms_, &TermsPanel::Switched, this, [this] { ShowPlot(); });
  return page;
}

QWidget* frmSkerrowTides::MakeMonthPage() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  month_ = new TextList(desktop().clipboard, "monthspredictions");
  month_->setAccessibleName("The month's high and low waters");
  month_->setToolTip("A double click or Enter opens the day");
  auto* back = Named<QPushButton>("cmdCurve", "Show the C&urve");
  back->setAutoDefault(false);
  column->addWidget(month_, 1);
  column->addLayout(MakeRow({back}));
  connect(back, &QPushButton::clicked, this, [this] { ShowView(View::kDay); });
  connect(month_, &QListWidget::itemActivated, this, [this] { OpenMonthRow(); });
  return page;
}

QAction* frmSkerrowTides::AddEntry(QWidget* menu, const char* name, const QString& text,
                                   std::function<void()> slot, const QKeySequence& key) {
  auto* action = new QAction(text, this);
  action->setObjectName(QString::fromUtf8(name));
  action->setShortcut(key);
  menu->addAction(action);
  addAction(action);
  action->setEnabled(slot != nullptr);
  if (slot) {
    connect(action, &QAction::triggered, this, [this, slot = std::move(slot)] {
      if (!busy()) slot();
    });
  }
  return action;
}

void frmSkerrowTides::MakeMenus() {
  auto* menus = new QMenuBar;
  const auto save = [this](const char* title, const std::string& name, const std::string& text) {
    SaveText(desktop(), this, title, name, text);
  };
  const auto print = [this](const PrintDocument& page) { PrintPages(desktop(), this, page); };
  const auto copy = [this](const std::string& text) { desktop().clipboard.SetText(text); };

  QMenu* file = menus->addMenu("&File");
  AddEntry(
      file, "mnusaveday", "Save &Hourly Details...",
      [this, save] {
        save("Save hourly details", form_.DayFileName(), HourlyText(form_.screen()));
      },
      QKeySequence::Save);
  AddEntry(file, "mnusavmonth", "Save &Month...", [this, save] {
    if (!MonthThere()) return;
    save("Save Months Tides To Text File", form_.month().file_name,
         MonthFileText(form_.month().lines));
  });
  AddEntry(file, "mnusavesun", "Save &Sun...", [this, save] {
    if (SunThere()) {
      save("Save Sun's Data To Text File", SunFileName(*sun_), SunFileText(sun_->days));
    }
  });
  file->addSeparator();
  AddEntry(
      file, "mnudayprint", "&Print Day...",
      [this, print] {
        print(DayPage(form_, PlotPicture(TideDayPlot(form_.screen()), {}, 960, 400, 2)));
      },
      QKeySequence::Print);
  AddEntry(file, "mnuhrprint", "Print H&ourly Details...",
           [this, print] { print(HourlyPage(form_)); });
  AddEntry(file, "mnumonthprint", "Print Mo&nth...", [this, print] {
    if (MonthThere()) print(MonthPage(form_));
  });
  AddEntry(file, "mnusunprint", "Print S&un...", [this, print] {
    if (SunThere()) print(SunPage(*sun_));
  });
  file->addSeparator();
  AddEntry(
      file, "mnuexit", "&Close", [this] { accept(); }, QKeySequence::Close);

  QMenu* edit = menus->addMenu("&Edit");
  AddEntry(edit, "mnuCopyDaysTides", "Copy &Day's Tides",
           [this, copy] { copy(DayClipboardText(form_.screen())); });
  AddEntry(edit, "mnuCopyMonth", "Copy &Month", [this, copy] {
    if (MonthThere()) copy(MonthClipboardText(form_.screen(), form_.month().lines));
  });
  AddEntry(edit, "mnuCopySunTimes", "Copy &Sun Times",
           [this, copy] { copy(SunClipboardText(form_.screen())); });

  QMenu* ports = menus->addMenu("&Port");
  AddEntry(
      ports, "mnuPortList", "Port by &Name...", [this] { ChoosePort(); }, QKeySequence("Ctrl+F"));
  AddEntry(ports, "mnuArea", "Sea &Area...", [this] { ChooseArea(); });
  AddEntry(ports, "mnuchartdepth", "Enter Tidal Offset", [this] { EnterDepth(); });
  ports->addSeparator();
  AddEntry(ports, "mnumaintainfile", "&Correct Ports...", [this] {
    frmharmedit(this->desktop(), this).exec();
    ReadPortAgain();
  });
  AddEntry(ports, "mnucopyconstants", "Copy &Ports...", [this] {
    frmHCcopy(this->desktop(), this).exec();
    ReadPortAgain();
  });
  AddEntry(ports, "mnuCopyDiamonds", "Copy &Tidal Diamonds",
           [this] { frmHCcopy(this->desktop(), this, CopyKind::kDiamonds).exec(); });

  QMenu* date = menus->addMenu("&Date");
  AddEntry(
      date, "mnutidedate", "&Select Date...", [this] { ChooseDate(); }, QKeySequence("Ctrl+D"));
  AddEntry(
      date, "mnuToday", "&Today", [this] { StepTo([this] { form_.ToToday(); }); },
      QKeySequence(Qt::Key_Home));
  AddEntry(
      date, "mnuPreviousday", "&Previous Day",
      [this] { StepTo([this] { form_.ToPreviousDay(); }); }, QKeySequence("Ctrl+Left"));
  AddEntry(
      date, "mnuNextday", "&Next Day", [this] { StepTo([this] { form_.ToNextDay(); }); },
      QKeySequence("Ctrl+Right"));

  QMenu* view = menus->addMenu("&View");
  AddEntry(
      view, "mnuday", "&Day's Curve", [this] { ShowView(View::kDay); }, QKeySequence("Ctrl+1"));
  AddEntry(
      view, "mnumonth", "&Month's Tides", [this] { CalculateMonth(); }, QKeySequence("Ctrl+2"));
  layers_shown_ = AddEntry(
      view, "mnuLayersShow", "&Show Tides Constituents",
      [this] { ShowView(view_ == View::kTerms ? View::kDay : View::kTerms); },
      QKeySequence("Ctrl+3"));
  layers_shown_->setCheckable(true);
  AddEntry(
      view, "mnusunrise", "S&un and Moon...", [this] { CalculateSun(); }, QKeySequence("Ctrl+4"));
  view->addSeparator();
  AddEntry(view, "mnuoutputoptions", "&Tide Display Options", [this] { ChooseOptions(); });
  layout()->setMenuBar(menus);
}

// ---------------------------------------------------------------- what is shown

void frmSkerrowTides::ShowAll() {
  const TideScreen& screen = form_.screen();
  port_->setText(ToQt("Port    : " + Trim(screen.port.name)));
  date_->setText(
      ToQt("Date   : " + PredictedDayText(screen.month_date.day_of_month, screen.month_date.month,
                                          screen.date.year, date_order_)
                             .text));
  const std::vector<std::string> lines = form_.SideLines();
  std::vector<RowLook> looks(lines.size());
  looks[0].bold = true;
  for (std::size_t i = 3; i < lines.size(); ++i) looks[i].dim = lines[i].starts_with("Depth");
  lines_->SetLines(lines, looks);
  sun_times_->setText(ToQt("Sunrise " + SunEventText(screen.sun, kSunrise) + "\nSunset  " +
                           SunEventText(screen.sun, kSunset)));
  notice_->setText(
      ToQt(DerivedDataNotice() + "\n" + Trim(PrintedTimeBasis(screen.display.summer_time))));
  ShowSpringNeap();
  terms_->ShowConstants(screen.port);
  if (!mouse_hours_) plot_->SetPlace(form_.hours());
  ShowPlot();
  Tick();
}

void frmSkerrowTides::ShowView(View view) {
  view_ = view;
  layers_shown_->setChecked(view == View::kTerms);
  terms_->setVisible(view == View::kTerms);
  pages_->setCurrentIndex(view == View::kMonth ? 1 : 0);
  plot_->setAccessibleName(view == View::kTerms ? "Constituents of the tide" : "Tide curve");
  ShowAll();
}

void frmSkerrowTides::ShowNewDay() { ShowView(view_ == View::kMonth ? View::kDay : view_); }

void frmSkerrowTides::ShowPlot() {
  plot_->SetPlot(view_ == View::kTerms ? TideTermsPlot(form_.screen(), terms_->Shown())
                                       : TideDayPlot(form_.screen()));
  ShowCursors();
}

void frmSkerrowTides::ShowCursors() {
  const TideScreen& screen = form_.screen();
  plot_->SetCursors(
      CursorsOf(screen, {form_.hours(), form_.IsToday(), mouse_hours_, view_ == View::kTerms}));
  const double hours = mouse_hours_.value_or(form_.hours());
  const std::size_t index = CurveIndex(hours);
  if (mouse_hours_) {
    if (const std::optional<MouseReading> reading = ReadMouse(screen.tide, hours)) {
      time_->setText(ToQt(reading->time));
      height_->setText(ToQt(reading->height));
      rate_->setText(ToQt(reading->text));
    }
  } else {
    const CursorReading reading = ReadCursor(screen.tide, hours);
    time_->setText(ToQt(reading.time));
    height_->setText(ToQt(reading.height));
    rate_->setText(ToQt(reading.state));
  }
  depth_->setText(
      ToQt(PlaceDepthText(screen.port, screen.display, screen.tide.curve[index].height)));
  terms_->ShowReading(ReadLayers(screen.tide, index));
  plot_->setAccessibleDescription(time_->text() + " " + height_->text() + " M " + rate_->text() +
                                  " " + depth_->text());
}

void frmSkerrowTides::ShowSpringNeap() {
  const std::optional<SpringNeap>& found = form_.screen().spring_neap;
  spring_neap_->setVisible(found.has_value());
  springs_->setText(found ? ToQt(found->left) : QString());
  neap_->setText(found ? ToQt(found->right) : QString());
  spring_neap_label_->setText(found ? ToQt(found->label) : QString());
  if (found) spring_neap_->setValue(found->progress);
}

void frmSkerrowTides::FollowLook() {
  const Look look = LookOf(desktop().view);
  plot_->SetLook(look);
  terms_->SetLook(look);
}

void frmSkerrowTides::changeEvent(QEvent* event) {
  Dialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && plot_ != nullptr) FollowLook();
}

void frmSkerrowTides::Tick() {
  form_.Tick();
  setWindowTitle(ToQt(form_.Title()));
  ShowCursors();
}

// ---------------------------------------------------------------- mouse and keys on the curve

void frmSkerrowTides::PointAt(double hours) {
  if (mouse_frozen_ != 0) return;
  mouse_hours_ = hours;
  ShowCursors();
}

void frmSkerrowTides::Freeze() {
  mouse_frozen_ = mouse_frozen_ == 0 ? 1 : 0;
  mouse_status_->setText(mouse_frozen_ == 0 ? kToFreeze : kToUnfreeze);
}

void frmSkerrowTides::LeaveCurve() {
  if (mouse_frozen_ != 0) return;
  mouse_hours_.reset();
  ShowCursors();
}

// ---------------------------------------------------------------- what the commands do

void frmSkerrowTides::StepTo(const std::function<void()>& step) {
  if (busy()) return;
  step();
  ShowNewDay();
}

void frmSkerrowTides::ChooseDate() {
  frmTidesTimeDate dialog(desktop(), form_.screen().date, this);
  if (dialog.exec() == QDialog::Accepted) StepTo([&] { form_.GoTo(dialog.Chosen()); });
}

std::optional<PortList> frmSkerrowTides::Ports() {
  Result<PortList> ports = ListPorts(desktop().program.folders, form_.area());
  if (ports) return ports.value();
  desktop().messages.Show(ports.error().Text(), MessageIcon::kWarning);
  return std::nullopt;
}

bool frmSkerrowTides::Succeeded(const Status& status) {
  if (status) return true;
  desktop().messages.Show(status.error().Text(), MessageIcon::kWarning);
  return false;
}

void frmSkerrowTides::ChoosePort() {
  std::optional<PortList> ports = Ports();
  if (!ports) return;
  frmPortName dialog(desktop(), std::move(*ports), form_.position(), this);
  if (dialog.exec() != QDialog::Accepted || dialog.Position() < 1) return;
  if (!Succeeded(form_.Open(dialog.Position()))) return;
  Written(form_.Keep(), desktop().messages);
  ShowNewDay();
}

void frmSkerrowTides::ChooseArea() {
  frmTidesSeaArea dialog(desktop(), this);
  if (dialog.exec() != QDialog::Accepted || dialog.FileName().empty()) return;
  if (!Succeeded(form_.OpenArea(dialog.FileName()))) return;
  Written(form_.Keep(), desktop().messages);
  Program& program = desktop().program;
  program.port_markers = LoadPortMarkers(program.folders, form_.area(), desktop().messages);
  desktop().window.Changed(kSettingsChanged);
  ShowView(View::kDay);
  // The first port of the new area is on show; which one is meant is the next question.
  ChoosePort();
}

void frmSkerrowTides::EnterDepth() {
  std::optional<PortList> ports = Ports();
  if (!ports) return;
  if (frmChartdepth(desktop(), form_.area(), std::move(*ports), form_.position(), this).exec() !=
      QDialog::Accepted) {
    return;
  }
  ReadPortAgain();
}

void frmSkerrowTides::ReadPortAgain() {
  Succeeded(form_.Open(form_.position()));
  ShowNewDay();
}

void frmSkerrowTides::ChooseOptions() {
  if (frmTideOptions(desktop(), this).exec() != QDialog::Accepted) return;
  form_.ClearMonth();
  sun_.reset();
  form_.Refresh();
  ShowNewDay();
}

void frmSkerrowTides::CalculateMonth() {
  if (view_ == View::kTerms) ShowView(View::kDay);
  constexpr const char* kWhat = "Predicting the tides of the month";
  SetBusy(true);
  bool made = false;
  {
    ProgressDialog progress(this, kWhat, desktop().window.StartProgress(kWhat));
    made = form_.MakeMonth(progress);
  }
  SetBusy(false);
  if (!made) return;
  const std::vector<std::string>& lines = form_.month().lines;
  std::vector<RowLook> looks(lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    looks[i].bold = !lines[i].empty() && lines[i].find(':') == std::string::npos;
  }
  month_->SetLines(lines, looks);
  form_.Refresh();
  ShowView(View::kMonth);
  // The day on the screen is chosen among those of the list.
  const int day = form_.screen().month_date.day_of_month;
  for (int row = 0; row < month_->count(); ++row) {
    if (DayOfMonthLine(lines[static_cast<std::size_t>(row)]) != day) continue;
    month_->setCurrentRow(row);
    month_->scrollToItem(month_->item(row), QAbstractItemView::PositionAtTop);
  }
  month_->setFocus();
}

void frmSkerrowTides::OpenMonthRow() {
  // The day's line or one of its waters: the last line above that is no water's.
  for (int row = month_->currentRow(); row >= 0; --row) {
    const int day = DayOfMonthLine(FromQt(month_->item(row)->text()));
    if (day == 0) continue;
    const MonthList& month = form_.month();
    const DayAndYear date = {DateToDayOfYear(day, month.month, month.year),
                             static_cast<std::int16_t>(month.year)};
    if (date.day > 0) StepTo([&] { form_.GoTo(date); });
    return;
  }
}

void frmSkerrowTides::CalculateSun() {
  const TideScreen& screen = form_.screen();
  const std::string port = Trim(screen.port.name);
  const QString note = ToQt("For " + LongMonthName(screen.month_date.month) + " " +
                            std::to_string(screen.date.year) + ", on the clock of " + port + ".");
  Frmsunrise dialog(desktop(),
                    {port, LatToText(screen.port.latitude), LongToText(screen.port.longitude)},
                    note, this);
  if (dialog.exec() != QDialog::Accepted) return;
  sun_ = MakeSunResults(dialog.Entry(), CheckSunEntry(dialog.Entry()).position,
                        screen.month_date.month, screen.date.year,
                        TimeZoneHours(screen.port.time_zone), screen.display.summer_time);
  Frmriseresults(desktop(), *sun_, screen.month_date.day_of_month, this).exec();
}

bool frmSkerrowTides::MonthThere() {
  if (form_.HasMonth()) return true;
  desktop().messages.Show(NoMonthText());
  return false;
}

bool frmSkerrowTides::SunThere() {
  if (sun_) return true;
  desktop().messages.Show(NoSunText());
  return false;
}

void OpenTideScreen(Desktop& desktop, int position, QWidget* parent) {
  TideForm form(desktop.program);
  if (const Status opened = form.Open(position); !opened) {
    desktop.messages.Show(opened.error().Text(), MessageIcon::kWarning);
    return;
  }
  if (position > 0) Written(form.Keep(), desktop.messages);
  frmSkerrowTides(desktop, std::move(form), parent).exec();
}

}  // namespace skerrow
