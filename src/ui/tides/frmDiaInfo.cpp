#include "ui/tides/frmDiaInfo.h"

#include <QGridLayout>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "ui/dialogs/report_write.h"
#include "ui/tides/frmDiaRate.h"
#include "ui/widgets/key_action.h"
#include "ui/widgets/print_lines.h"
#include "ui/widgets/progress_dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kStepRepeat = 100;  // ms

QPushButton* MakeButton(const char* name, const QString& text, const QString& tip) {
  auto* button = Named<QPushButton>(name, text);
  button->setAutoDefault(false);
  button->setToolTip(tip);
  return button;
}

}  // namespace

frmDiaInfo::frmDiaInfo(Desktop& desktop, std::size_t index, QWidget* parent)
    : Dialog(desktop, "frmDiaInfo", "Tidal Diamond Data", parent),
      index_(index),
      diamond_(desktop.program.tides.diamonds[index]),
      data_list_(new TextList(desktop.clipboard, "lstDiaData")),
      report_list_(new TextList(desktop.clipboard, "lstTides")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addWidget(MakeDataColumn(), 5);
  columns->addWidget(MakeReportColumn(), 6);
  body()->addLayout(columns, 1);
  QPushButton* copy =
      AddLeftButton("cmdCopy", "&Copy", "Puts the lines of both lists on the clipboard");
  QPushButton* print = AddLeftButton("cmdPrint", "&Print...", "Prints both lists");
  QPushButton* close = AddButton("cmdClose", "Close");
  connect(copy, &QPushButton::clicked, this,
          [this] { this->desktop().clipboard.SetText(DiamondClipboardText(data_, report_)); });
  connect(print, &QPushButton::clicked, this, [this] {
    PrintPages(this->desktop(), this, DiamondPage(this->desktop().program, diamond_, report_));
  });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  // No button is the default one: Enter belongs to the boxes and lists.
  ShowTable();
  Recalculate();
  report_list_->setFocus();
  resize(880, 650);
}

QWidget* frmDiaInfo::MakeDataColumn() {
  auto* column = new QWidget;
  auto* rows = MakeColumn();
  rows->setContentsMargins(0, 0, 0, 0);
  column->setLayout(rows);
  rows->addWidget(MakeLabel("&Data of the diamond", data_list_));
  data_list_->setSelectionMode(QAbstractItemView::SingleSelection);
  data_list_->setMinimumWidth(280);
  rows->addWidget(data_list_, 1);
  change_ = MakeButton("cmdChange", "C&hange This Data", "Brings the highlighted row into boxes");
  QPushButton* add = MakeButton("cmdAdd", "&Add Entry", "Adds a diamond with the same data");
  QPushButton* remove = MakeButton("cmdDelete", "De&lete Entry", "Deletes this diamond");
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  for (QPushButton* button : {change_, add, remove}) buttons->addWidget(button, 1);
  rows->addLayout(buttons);
  edit_box_ = Named<QGroupBox>("Frame1", "Change");
  rows->addWidget(MakeEditBox());
  connect(change_, &QPushButton::clicked, this, [this] { BeginChange(); });
  connect(add, &QPushButton::clicked, this, [this] { AddEntry(); });
  connect(remove, &QPushButton::clicked, this, [this] { DeleteEntry(); });
  connect(data_list_, &QListWidget::itemDoubleClicked, this, [this] { BeginChange(); });
  KeyAction::Install(data_list_, Qt::Key_Return, [this] { BeginChange(); });
  connect(data_list_, &QListWidget::currentRowChanged, this, [this](int row) {
    change_->setEnabled(row >= 0 &&
                        !DiamondFields(diamond_, static_cast<std::size_t>(row)).empty());
    if (edit_box_->isVisible()) EndChange();
  });
  return column;
}

QWidget* frmDiaInfo::MakeEditBox() {
  auto* grid = new QGridLayout(edit_box_);
  grid->setHorizontalSpacing(8);
  for (std::size_t i = 0; i < texts_.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    texts_[i] =
        new FilteredEdit(KeyFilter::kSignedNumber, desktop().messages, ("Text" + number).c_str());
    labels_[i] = Named<QLabel>(("Label" + number).c_str());
    labels_[i]->setBuddy(texts_[i]);
    grid->addWidget(labels_[i], 0, static_cast<int>(i));
    grid->addWidget(texts_[i], 1, static_cast<int>(i));
    KeyAction::Install(texts_[i], Qt::Key_Return, [this] { Accept(); });
  }
  accept_ = MakeButton("cmdAccept", "Acc&ept", "Writes the data into the file of the sea area");
  QPushButton* cancel = MakeButton("cmdCancelChange", "Cancel", "Leaves the data as they are");
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(accept_);
  buttons->addWidget(cancel);
  grid->addLayout(buttons, 2, 0, 1, 3);
  connect(accept_, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, [this] { EndChange(); });
  edit_box_->hide();
  return edit_box_;
}

QWidget* frmDiaInfo::MakeReportColumn() {
  auto* column = new QWidget;
  auto* rows = MakeColumn();
  rows->setContentsMargins(0, 0, 0, 0);
  column->setLayout(rows);
  rows->addWidget(MakeReportBox());
  rows->addWidget(report_list_, 1);
  rows->addWidget(MakeHint("Click a time, or press Enter on it, for the graph of that day."));
  rows->addWidget(MakePortBox());
  connect(report_list_, &QListWidget::itemClicked, this, [this] { OpenGraph(); });
  KeyAction::Install(report_list_, Qt::Key_Return, [this] { OpenGraph(); });
  return column;
}

QWidget* frmDiaInfo::MakeReportBox() {
  slack_ = Named<QRadioButton>("OptSlack", "Report &Slack Time");
  flood_ = Named<QRadioButton>("optFlood", "Report Max &Flood Time");
  above_ = Named<QRadioButton>("OptAbove", "&Times above and below");
  rate_ = new FilteredEdit(KeyFilter::kNumber, desktop().messages, "txtRate");
  rate_->SetColumns(4);
  rate_->setToolTip("Threshold in knots; the up and down keys change it by 0.1");
  rate_->setAccessibleName("Threshold, knots");
  rate_->SetText(ShortText(desktop().program.config.slack_threshold));
  recalculate_ =
      MakeButton("cmdRecalculate", "&Recalculate", "Makes the report with these options");
  QPushButton* month =
      MakeButton("Command1", "&Monthly Report", "The times of each day of the month");
  auto* box = new QGroupBox("Report");
  auto* grid = new QGridLayout(box);
  grid->addWidget(slack_, 0, 0);
  grid->addWidget(flood_, 1, 0);
  auto* threshold = new QHBoxLayout;
  threshold->setSpacing(6);
  threshold->addWidget(above_);
  threshold->addWidget(rate_);
  auto* steps = new QVBoxLayout;
  steps->setSpacing(0);
  for (const int direction : {1, -1}) {
    auto* step = Named<QToolButton>(direction > 0 ? "UpDown1Up" : "UpDown1Down");
    step->setArrowType(direction > 0 ? Qt::UpArrow : Qt::DownArrow);
    step->setToolTip(direction > 0 ? "0.1 knots more" : "0.1 knots less");
    step->setAccessibleName(step->toolTip());
    step->setAutoRepeat(true);
    step->setAutoRepeatInterval(kStepRepeat);
    step->setFocusPolicy(Qt::NoFocus);
    step->setFixedSize(22, rate_->sizeHint().height() / 2);
    connect(step, &QToolButton::clicked, this, [this, direction] { Step(direction); });
    steps->addWidget(step);
  }
  threshold->addLayout(steps);
  threshold->addWidget(new QLabel("knots"));
  threshold->addStretch(1);
  grid->addLayout(threshold, 2, 0);
  grid->addWidget(month, 0, 1);
  grid->addWidget(recalculate_, 1, 1);
  grid->setColumnStretch(0, 1);
  // Its place stays while there is nothing to recalculate.
  QSizePolicy policy = recalculate_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  recalculate_->setSizePolicy(policy);
  recalculate_->hide();
  slack_->setChecked(true);
  for (QRadioButton* option : {slack_, flood_, above_}) {
    connect(option, &QRadioButton::toggled, this, [this](bool on) {
      if (on) OptionsChanged();
    });
  }
  connect(rate_, &QLineEdit::textChanged, this, [this] {
    if (above_->isChecked()) {
      OptionsChanged();
    } else {
      above_->setChecked(true);
    }
  });
  KeyAction::Install(rate_, Qt::Key_Return, [this] { Recalculate(); });
  KeyAction::Install(rate_, Qt::Key_Up, [this] { Step(1); });
  KeyAction::Install(rate_, Qt::Key_Down, [this] { Step(-1); });
  connect(recalculate_, &QPushButton::clicked, this, [this] { Recalculate(); });
  connect(month, &QPushButton::clicked, this, [this] { MonthlyReport(); });
  return box;
}

QWidget* frmDiaInfo::MakePortBox() {
  auto* box = new QGroupBox("Reference Port Tides");
  auto* row = new QHBoxLayout(box);
  QPushButton* calculate = MakeButton("cmdCalculate", "Calc&ulate",
                                      "A month of high and low waters of the reference port");
  row->addWidget(calculate);
  row->addWidget(MakeHint("The high and low waters of the month"), 1);
  connect(calculate, &QPushButton::clicked, this, [this] { MonthlyHeights(); });
  return box;
}

DiamondReport frmDiaInfo::Report() const {
  if (above_->isChecked()) return DiamondReport::kAboveAndBelow;
  return flood_->isChecked() ? DiamondReport::kFlood : DiamondReport::kSlack;
}

std::optional<DiamondRequest> frmDiaInfo::Request() {
  const SelectedTime& time = desktop().program.selected_time;
  DiamondRequest request{diamond_, Report(), 0.0F, time.Day(), time.hours};
  threshold_.reset();
  if (request.report != DiamondReport::kAboveAndBelow) return request;
  threshold_ = ReadThreshold(rate_->Text(), desktop().messages);
  if (!threshold_) return std::nullopt;
  request.threshold = *threshold_;
  return request;
}

void frmDiaInfo::OptionsChanged() { recalculate_->show(); }

void frmDiaInfo::Step(int steps) { rate_->SetText(StepThreshold(rate_->Text(), steps)); }

void frmDiaInfo::Recalculate() {
  const std::optional<DiamondRequest> request = Request();
  if (!request) return;
  DiamondDay day = MakeDiamondDay(desktop().program.tides, *request);
  if (day.fault != StreamFault::kNone) {
    desktop().messages.Show(StreamFaultText("CalcDaysStream"), MessageIcon::kWarning);
  }
  // The keyboard must not stay on a button that goes.
  if (recalculate_->hasFocus()) report_list_->setFocus();
  recalculate_->hide();
  ShowReport(std::move(day.lines));
}

void frmDiaInfo::MonthlyReport() {
  const std::optional<DiamondRequest> request = Request();
  if (!request) return;
  std::optional<std::vector<DiamondLine>> month;
  SetBusy(true);
  {
    constexpr const char* kWhat = "Monthly Tidal Stream Times";
    ProgressDialog progress(this, kWhat, desktop().window.StartProgress(kWhat));
    month = MakeDiamondMonth(desktop().program.tides, *request, progress);
  }
  SetBusy(false);
  if (!month) return;
  if (month->empty()) {
    desktop().messages.Show(StreamFaultText("CalcDaysStream"), MessageIcon::kWarning);
  }
  if (recalculate_->hasFocus()) report_list_->setFocus();
  recalculate_->hide();
  ShowReport(std::move(*month));
}

void frmDiaInfo::MonthlyHeights() {
  const Result<std::optional<std::vector<DiamondLine>>> month = [this] {
    constexpr const char* kWhat = "Monthly Tidal Heights";
    SetBusy(true);
    auto lines = [&] {
      ProgressDialog progress(this, kWhat, desktop().window.StartProgress(kWhat));
      return RefPortMonth(desktop().program, diamond_, progress);
    }();
    SetBusy(false);
    return lines;
  }();
  if (!month) {
    desktop().messages.Show(month.error().Text(), MessageIcon::kWarning);
  } else if (*month) {
    ShowReport(**month);
    OptionsChanged();  // the way back to the streams
  }
}

void frmDiaInfo::ShowTable() {
  data_ = DiamondDataLines(diamond_, RefPortName(desktop().program.tides, diamond_));
  std::vector<RowLook> looks(data_.size());
  looks[0].bold = true;
  looks[kFirstSlotRow - 1].bold = true;
  const int row = data_list_->currentRow();
  data_list_->SetLines(data_, looks);
  data_list_->setCurrentRow(std::max(row, 0));
}

void frmDiaInfo::ShowReport(std::vector<DiamondLine> lines) {
  report_ = std::move(lines);
  std::vector<std::string> texts;
  std::vector<RowLook> looks;
  for (const DiamondLine& line : report_) {
    texts.push_back(line.text);
    RowLook look;
    look.bold = line.heading;
    looks.push_back(look);
  }
  report_list_->SetLines(texts, looks);
}

void frmDiaInfo::OpenGraph() {
  const auto row = static_cast<std::size_t>(std::max(report_list_->currentRow(), 0));
  if (row >= report_.size() || !report_[row].date) return;
  StreamReader reader(desktop().program.tides);
  DayStream stream;
  if (FillDayStream(reader, diamond_, *report_[row].date, stream) != StreamFault::kNone) {
    desktop().messages.Show(StreamFaultText("CalcDaysStream"), MessageIcon::kWarning);
    return;
  }
  frmDiaRate(desktop(), diamond_, {*report_[row].date, stream, threshold_, report_[row].text}, this)
      .exec();
}

void frmDiaInfo::BeginChange() {
  const int row = data_list_->currentRow();
  if (row < 0) return;
  const std::vector<DiamondField> fields = DiamondFields(diamond_, static_cast<std::size_t>(row));
  if (fields.empty()) return;
  edited_row_ = static_cast<std::size_t>(row);
  for (std::size_t i = 0; i < texts_.size(); ++i) {
    const bool used = i < fields.size();
    labels_[i]->setVisible(used);
    texts_[i]->setVisible(used);
    if (!used) continue;
    labels_[i]->setText(ToQt(fields[i].label));
    texts_[i]->SetFilter(fields[i].filter);
    texts_[i]->SetText(fields[i].text);
  }
  edit_box_->show();
  layout()->activate();
  data_list_->scrollToItem(data_list_->currentItem());
  texts_[0]->setFocus();
  texts_[0]->selectAll();
}

void frmDiaInfo::EndChange() {
  edit_box_->hide();
  data_list_->setFocus();
}

void frmDiaInfo::Accept() {
  std::vector<std::string> texts;
  for (const FilteredEdit* text : texts_) texts.push_back(text->Text());
  const ChangedDiamond changed =
      ChangeDiamond(desktop().program.folders, diamond_, edited_row_, texts);
  if (!changed.diamond) {
    Refuse(changed.refusal, true, texts_[changed.field]);
    return;
  }
  const Result<std::size_t> place = WriteChangedDiamond(desktop().program, index_, diamond_,
                                                        *changed.diamond, desktop().messages);
  if (!place) {
    (void)Written(place.error(), desktop().messages);
    return;
  }
  EndChange();
  TakeUp(*place);
}

void frmDiaInfo::AddEntry() {
  const Result<std::size_t> place = AddDiamond(desktop().program, diamond_, desktop().messages);
  if (!place) {
    (void)Written(place.error(), desktop().messages);
    return;
  }
  TakeUp(*place);
  desktop().messages.Show(
      "A diamond with the same data has been added and is now shown. Change its number and its "
      "position.",
      MessageIcon::kInformation);
}

void frmDiaInfo::DeleteEntry() {
  if (!desktop().messages.Ask(RemoveDiamondQuestion(diamond_))) return;
  if (!Written(RemoveDiamond(desktop().program, index_, diamond_, desktop().messages),
               desktop().messages)) {
    return;
  }
  file_changed_ = true;
  accept();
}

void frmDiaInfo::TakeUp(std::size_t index) {
  file_changed_ = true;
  index_ = index;
  diamond_ = desktop().program.tides.diamonds[index];
  ShowTable();
  Recalculate();
}

void frmDiaInfo::done(int result) {
  // Esc in the boxes leaves the change alone, not the window.
  if (result == QDialog::Rejected && edit_box_->isVisible()) {
    EndChange();
    return;
  }
  Dialog::done(result);
  if (file_changed_) desktop().window.Changed(kAllChanged);
}

}  // namespace skerrow
