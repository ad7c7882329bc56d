#include "ui/tides/Frmriseresults.h"

#include <QGridLayout>
#include <QHeaderView>
#include <algorithm>

#include "core/calendar.h"
#include "tides/tide_screen.h"
#include "ui/dialogs/save_text.h"
#include "ui/widgets/print_lines.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kColumnGap = 10;

}  // namespace

Frmriseresults::Frmriseresults(Desktop& desktop, const SunResults& results, int day,
                               QWidget* parent)
    : Dialog(desktop, "Frmriseresults", "Sun and Moon Results", parent),
      results_(results),
      date_(Named<QLabel>("lblDate")),
      daylight_(Named<QLabel>("lblDaylight")),
      twilight_(Named<QLabel>("lblTwilight")),
      scroll_(Named<QScrollBar>("VScroll1", Qt::Vertical)),
      table_(Named<QTreeWidget>("lstSun")),
      moon_(new TextList(desktop.clipboard, "lstMoon")) {
  auto* place =
      MakeHeading(ToQt(results.name + "   " + results.latitude + "  " + results.longitude + "   " +
                       LongMonthName(results.month) + " " + std::to_string(results.year)));
  place->setObjectName(QStringLiteral("lblPlace"));
  body()->addWidget(place);
  body()->addWidget(MakeHint(ToQt(PrintedTimeBasis(results.summer_time)).trimmed()));

  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(5);
  date_->setProperty("heading", true);
  grid->addWidget(date_, 0, 0, 1, 2);
  const std::vector<SunRow> rows = SunRowsOf(results.days.front());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const int row = static_cast<int>(i) + 1;
    grid->addWidget(new QLabel(ToQt(rows[i].words)), row, 0);
    auto* time = new QLabel;
    time->setObjectName(QStringLiteral("lblSun%1").arg(row));
    time->setMinimumWidth(time->fontMetrics().horizontalAdvance("00:00 none "));
    times_.push_back(time);
    grid->addWidget(time, row, 1);
  }
  grid->addWidget(daylight_, 9, 0, 1, 2);
  grid->addWidget(twilight_, 10, 0, 1, 2);
  grid->setRowStretch(11, 1);
  scroll_->setRange(0, static_cast<int>(results.days.size()) - 1);
  scroll_->setPageStep(7);
  scroll_->setAccessibleName("Day of the month");
  scroll_->setToolTip("The day of the month");
  scroll_->setFocusPolicy(Qt::StrongFocus);

  FillTable();
  table_->setAccessibleName("The sun of the month");
  moon_->SetLines(results.moon);
  moon_->setAccessibleName("Phases of the moon");
  moon_->setFixedHeight(moon_->sizeHintForRow(0) * static_cast<int>(results.moon.size()) + 8);

  auto* panels = new QHBoxLayout;
  panels->setSpacing(14);
  panels->addLayout(grid);
  panels->addWidget(scroll_);
  auto* right = MakeColumn();
  right->addWidget(table_, 1);
  right->addWidget(MakeHeading("Phases of the moon"));
  right->addWidget(moon_);
  panels->addLayout(right, 1);
  body()->addLayout(panels, 1);

  QPushButton* save = AddLeftButton("cmdSave", "&Save...", "Saves the month as a text file");
  QPushButton* print = AddLeftButton("cmdPrint", "&Print...", "Prints the month");
  QPushButton* copy =
      AddLeftButton("cmdCopy", "&Copy", "Puts the table of the month on the clipboard");
  QPushButton* close = AddButton("cmdOK", "OK");
  close->setDefault(true);
  connect(save, &QPushButton::clicked, this, [this] {
    SaveText(this->desktop(), this, "Save Sun's Data To Text File", SunFileName(results_),
             SunFileText(results_.days));
  });
  connect(print, &QPushButton::clicked, this,
          [this] { PrintPages(this->desktop(), this, SunPage(results_)); });
  connect(copy, &QPushButton::clicked, this,
          [this] { this->desktop().clipboard.SetText(JoinLines(SunTableLines(results_))); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  connect(scroll_, &QScrollBar::valueChanged, this, [this](int index) { ShowDay(index); });
  connect(table_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (item != nullptr) scroll_->setValue(table_->indexOfTopLevelItem(item));
  });
  const int first = std::clamp(day - 1, 0, scroll_->maximum());
  scroll_->setValue(first);
  ShowDay(first);
  scroll_->setFocus();
  resize(960, 520);
}

void Frmriseresults::FillTable() {
  const auto columns = [](const std::string& line) { return ToQt(line).split(QLatin1Char('\t')); };
  const std::vector<std::string> lines = SunTableLines(results_);
  table_->setRootIsDecorated(false);
  table_->setAlternatingRowColors(true);
  table_->setUniformRowHeights(true);
  table_->setHeaderLabels(columns(lines.front()));
  table_->header()->setSectionsMovable(false);
  for (std::size_t i = 1; i < lines.size(); ++i) {
    table_->addTopLevelItem(new QTreeWidgetItem(columns(lines[i])));
  }
  for (int column = 0; column < table_->columnCount(); ++column) {
    table_->resizeColumnToContents(column);
    table_->setColumnWidth(column, table_->columnWidth(column) + kColumnGap);
  }
}

void Frmriseresults::ShowDay(int index) {
  const SunDay& day = results_.days[static_cast<std::size_t>(index)];
  date_->setText(ToQt(day.date_text + " " + std::to_string(results_.year) + "  " +
                      WeekdayName(index + 1, results_.month, results_.year)));
  const std::vector<SunRow> rows = SunRowsOf(day);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    times_[i]->setText(ToQt(rows[i].time));
    times_[i]->setToolTip(rows[i].happens ? QString() : "This does not happen on that day");
  }
  daylight_->setText(ToQt(DaylightText(day.times)));
  twilight_->setText(ToQt(TwilightText(day.times)));
  table_->setCurrentItem(table_->topLevelItem(index));
}

}  // namespace skerrow
