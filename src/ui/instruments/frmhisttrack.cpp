#include "ui/instruments/frmhisttrack.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <algorithm>

#include "core/files.h"
#include "ui/widgets/key_action.h"
#include "ui/widgets/print_lines.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

// Rows of the table to an inch of paper.
constexpr double kRowsPerInch = 15.0;
constexpr double kPointsPerInch = 72.0;
// The height of a printed line in parts of its font's size.
constexpr double kLineHeight = 1.2;

}  // namespace

frmhisttrack::frmhisttrack(Desktop& desktop, PlotTable table, QWidget* parent)
    : Dialog(desktop, "frmhisttrack", "Historical Plot", parent),
      table_(std::move(table)),
      rows_(new TextList(desktop.clipboard, "List1")),
      latitude_(MakeLatitudeEdit(desktop.messages, "txtlat")),
      longitude_(MakeLongitudeEdit(desktop.messages, "txtlong")),
      time_(Named<QLineEdit>("txttime")),
      date_(Named<QLineEdit>("txtdate")),
      comment_(Named<QLineEdit>("txtcomment")),
      print_all_(Named<QRadioButton>("Option1", "Print &all")),
      print_selected_(Named<QRadioButton>("Option2", "Print s&elected")) {
  body()->addWidget(MakeHeading(ToQt(FileNameOf(table_.path()))));
  body()->addWidget(MakeHint("A double click on a position opens it for editing."));
  body()->addWidget(rows_, 1);
  entry_ = MakeEntry();
  body()->addWidget(entry_);
  entry_->hide();

  auto* prints = new QButtonGroup(this);
  prints->addButton(print_all_);
  prints->addButton(print_selected_);
  print_all_->setChecked(true);
  QPushButton* print = Named<QPushButton>("cmdPrint", "&Print...");
  print->setAutoDefault(false);
  body()->addLayout(MakeRow({print_all_, print_selected_, print}));

  save_ = AddLeftButton("cmdAccept", "&Save Changes", "Writes the positions to the file");
  QPushButton* exit = AddButton("cmdExit", "E&xit");
  exit->setDefault(true);
  connect(rows_, &QListWidget::itemDoubleClicked, this, [this] { LoadRow(); });
  connect(print, &QPushButton::clicked, this, [this] { Print(); });
  connect(save_, &QPushButton::clicked, this, [this] { Save(); });
  connect(exit, &QPushButton::clicked, this, &QDialog::accept);
  KeyAction::Install(rows_, Qt::Key_Return, [this] { LoadRow(); });
  KeyAction::Install(rows_, Qt::Key_Delete, [this] {
    if (entry_->isVisible()) DeleteRow();
  });
  ShowRows(0);
  rows_->setFocus();
  resize(620, 540);
}

QGroupBox* frmhisttrack::MakeEntry() {
  auto* box = new QGroupBox("Position");
  auto* grid = new QGridLayout(box);
  grid->setHorizontalSpacing(10);
  const auto prepare = [](QLineEdit* line, int length, int columns) {
    line->setMaxLength(length);
    line->setFixedWidth(line->fontMetrics().averageCharWidth() * (columns + 3) + 12);
  };
  prepare(time_, 5, 6);
  prepare(date_, 16, 16);
  comment_->setMaxLength(35);
  int column = 0;
  const auto add = [&](const QString& title, QWidget* field) {
    grid->addWidget(MakeLabel(title, field), 0, column);
    grid->addWidget(field, 1, column++);
  };
  add("&Latitude", latitude_);
  add("L&ongitude", longitude_);
  add("&Time", time_);
  add("&Date", date_);
  add("Co&mment", comment_);
  grid->setColumnStretch(column - 1, 1);
  const auto button = [this](const char* name, const QString& text, const QString& tip,
                             void (frmhisttrack::*run)()) {
    auto* made = Named<QPushButton>(name, text);
    made->setAutoDefault(false);
    made->setToolTip(tip);
    connect(made, &QPushButton::clicked, this, run);
    return made;
  };
  QPushButton* change = button("cmdChange", "Accept &Change",
                               "Writes the boxes to the selected row", &frmhisttrack::AcceptChange);
  grid->addLayout(
      MakeRow({change,
               button("cmdInsert", "&Insert", "Adds the boxes as a row behind the selected one",
                      &frmhisttrack::InsertRow),
               button("cmdDelete", "Delete Ent&ry", "Takes the selected row out",
                      &frmhisttrack::DeleteRow)}),
      2, 0, 1, column);
  // Enter in a box accepts the change instead of leaving the dialog.
  auto* enter = new KeyAction(this, Qt::Key_Return, [this] { AcceptChange(); });
  for (QLineEdit* line :
       std::initializer_list<QLineEdit*>{latitude_, longitude_, time_, date_, comment_}) {
    line->installEventFilter(enter);
  }
  return box;
}

std::optional<std::size_t> frmhisttrack::SelectedRow() const {
  const QList<QListWidgetItem*> selected = rows_->selectedItems();
  if (selected.isEmpty()) return std::nullopt;
  return static_cast<std::size_t>(rows_->row(selected.front()));
}

void frmhisttrack::ShowRows(std::size_t row) {
  rows_->SetLines(table_.rows());
  if (!table_.rows().empty()) {
    rows_->setCurrentRow(static_cast<int>(std::min(row, table_.rows().size() - 1)));
  }
  save_->setEnabled(table_.changed());
}

void frmhisttrack::LoadRow() {
  const std::optional<std::size_t> row = SelectedRow();
  if (!row) return;
  const PlotRowTexts texts = table_.TextsOf(*row);
  latitude_->SetText(texts.latitude);
  longitude_->SetText(texts.longitude);
  time_->setText(ToQt(texts.time));
  date_->setText(ToQt(texts.date));
  comment_->setText(ToQt(texts.comment));
  entry_->show();
  latitude_->setFocus();
  latitude_->selectAll();
}

PlotRowTexts frmhisttrack::Typed() const {
  return {latitude_->Text(), longitude_->Text(), FromQt(time_->text()), FromQt(date_->text()),
          FromQt(comment_->text())};
}

void frmhisttrack::Told(const Error& error) {
  const PlotRowTexts typed = Typed();
  QWidget* field = latitude_;
  if (!SelectedRow()) {
    field = rows_;
  } else if (!typed.latitude.empty() && error.reason.find(typed.latitude) == std::string::npos) {
    field = longitude_;
  }
  Refuse(error.Text(), false, field);
}

void frmhisttrack::AcceptChange() {
  const std::optional<std::size_t> row = SelectedRow();
  if (!row) {
    Refuse("Select the row that the change is for", false, rows_);
    return;
  }
  if (const Status accepted = table_.Accept(*row, Typed()); !accepted) {
    Told(accepted.error());
    return;
  }
  ShowRows(*row);
  rows_->setFocus();
}

void frmhisttrack::DeleteRow() {
  const std::optional<std::size_t> row = SelectedRow();
  if (!row) return;
  table_.Delete(*row);
  ShowRows(*row);
}

void frmhisttrack::InsertRow() {
  const std::optional<std::size_t> row = SelectedRow();
  if (const Status inserted = table_.Insert(row.has_value(), row.value_or(0), Typed()); !inserted) {
    Told(inserted.error());
    return;
  }
  ShowRows(*row + 1);
}

void frmhisttrack::Save() {
  if (const Status saved = table_.Save(); !saved) {
    Refuse(saved.error().Text(), false, rows_);
    return;
  }
  save_->setEnabled(false);
  desktop().window.Changed(kTargetsChanged);
}

void frmhisttrack::Print() {
  const std::vector<std::string> lines =
      print_selected_->isChecked() ? rows_->SelectedLines() : table_.rows();
  PrintDocument page;
  page.title = "Historical track file " + FileNameOf(table_.path());
  PrintFont heading;
  heading.bold = true;
  page.items.push_back(PrintLine(page.title, heading));
  PrintFont small;
  small.size_pt = kPointsPerInch / kRowsPerInch / kLineHeight;
  for (const std::string& line : lines) page.items.push_back(PrintLine(line, small));
  PrintPages(desktop(), this, page);
}

void frmhisttrack::done(int result) {
  if (table_.changed() &&
      !desktop().messages.Ask("The changes of the plot are not saved. Leave without them?")) {
    return;
  }
  Program& program = desktop().program;
  program.plot.historical_plot_on = true;
  program.plot.plot_file_name.clear();
  Dialog::done(result);
  desktop().window.Changed(kTargetsChanged);
}

}  // namespace skerrow
