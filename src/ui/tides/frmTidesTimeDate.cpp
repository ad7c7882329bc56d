#include "ui/tides/frmTidesTimeDate.h"

#include <QSignalBlocker>
#include <QStyle>
#include <QTextCharFormat>
#include <QToolButton>

#include "core/date_order.h"
#include "ui/forms/date_form.h"
#include "ui/widgets/date_services.h"
#include "ui/widgets/qt_text.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

// The years that the constituents are computed for.
constexpr int kFirstYear = 1900;
constexpr int kLastYear = 2100;

// The toolkit's red weekends and white arrows would shine at night.
void CalmColours(QCalendarWidget& calendar) {
  QTextCharFormat weekend;
  weekend.setForeground(ThemeInForce().text);
  calendar.setWeekdayTextFormat(Qt::Saturday, weekend);
  calendar.setWeekdayTextFormat(Qt::Sunday, weekend);
  for (const auto& [name, arrow] : {std::pair("qt_calendar_prevmonth", Qt::LeftArrow),
                                    std::pair("qt_calendar_nextmonth", Qt::RightArrow)}) {
    if (auto* button = calendar.findChild<QToolButton*>(QLatin1String(name))) {
      button->setIcon({});
      button->setArrowType(arrow);
    }
  }
}

}  // namespace

frmTidesTimeDate::frmTidesTimeDate(Desktop& desktop, DayAndYear date, QWidget* parent)
    : Dialog(desktop, "frmTidesTimeDate", "Tide Date", parent),
      date_order_(DetectDateOrder(LocaleDateServices())),
      day_(Named<QComboBox>("lstDay")),
      month_(Named<QComboBox>("lstMonth")),
      year_(Named<QComboBox>("lstYear")),
      weekday_(Named<QLabel>("lblWeekday")),
      calendar_(Named<QCalendarWidget>("calendar")) {
  for (int year = kFirstYear; year <= kLastYear; ++year) {
    year_->addItem(QString::number(year), year);
  }
  for (int month = 1; month <= 12; ++month) month_->addItem(ToQt(LongMonthName(month)), month);
  for (int day = 1; day <= 31; ++day) day_->addItem(QString::number(day), day);
  auto* lists = new QHBoxLayout;
  lists->setSpacing(6);
  lists->addWidget(MakeLabel("&Year:", year_));
  lists->addWidget(year_);
  lists->addWidget(MakeLabel("&Month:", month_));
  lists->addWidget(month_);
  lists->addWidget(MakeLabel("&Day:", day_));
  lists->addWidget(day_);
  lists->addStretch(1);
  body()->addLayout(lists);
  weekday_->setProperty("heading", true);
  body()->addWidget(weekday_);
  calendar_->setMinimumDate(QDate(kFirstYear, 1, 1));
  calendar_->setMaximumDate(QDate(kLastYear, 12, 31));
  calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar_->setAccessibleName("Calendar");
  CalmColours(*calendar_);
  body()->addWidget(calendar_, 1);
  QPushButton* today = AddLeftButton("cmdToday", "&Today");
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");

  const auto choose = [this](DayAndYear chosen) {
    MonthDate shown;
    if (!DayOfYearToDate(chosen.day, chosen.year, shown)) return;
    calendar_->setSelectedDate(QDate(chosen.year, shown.month, shown.day_of_month));
    CalendarToLists();
  };
  for (QComboBox* list : {year_, month_, day_}) {
    list->setMaxVisibleItems(16);
    connect(list, &QComboBox::currentIndexChanged, this, [this] { ListsToCalendar(); });
  }
  connect(calendar_, &QCalendarWidget::selectionChanged, this, [this] { CalendarToLists(); });
  connect(calendar_, &QCalendarWidget::activated, this, [this] { Accept(); });
  connect(today, &QPushButton::clicked, this,
          [this, choose] { choose(this->desktop().program.clock->Now().Day()); });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  choose(date);
  ShowDay();
  calendar_->setFocus();
  resize(430, 380);
}

DayAndYear frmTidesTimeDate::Chosen() const {
  const int year = year_->currentData().toInt();
  return {DateToDayOfYear(day_->currentData().toInt(), month_->currentData().toInt(), year),
          static_cast<std::int16_t>(year)};
}

void frmTidesTimeDate::ShowDay() {
  const PredictedDay day =
      PredictedDayText(day_->currentData().toInt(), month_->currentData().toInt(),
                       year_->currentData().toInt(), date_order_);
  weekday_->setText(ToQt(day.text));
  weekday_->setProperty("warning", !day.valid);
  weekday_->style()->unpolish(weekday_);
  weekday_->style()->polish(weekday_);
}

void frmTidesTimeDate::ListsToCalendar() {
  ShowDay();
  const QDate date(year_->currentData().toInt(), month_->currentData().toInt(),
                   day_->currentData().toInt());
  if (!date.isValid()) return;
  const QSignalBlocker quiet(calendar_);
  calendar_->setSelectedDate(date);
}

void frmTidesTimeDate::CalendarToLists() {
  const QDate date = calendar_->selectedDate();
  {
    const QSignalBlocker years(year_);
    const QSignalBlocker months(month_);
    const QSignalBlocker days(day_);
    year_->setCurrentIndex(year_->findData(date.year()));
    month_->setCurrentIndex(date.month() - 1);
    day_->setCurrentIndex(date.day() - 1);
  }
  ShowDay();
}

void frmTidesTimeDate::Accept() {
  if (Chosen().day > 0) return accept();
  // The warning stands beside the lists.
  desktop().messages.Beep();
  day_->setFocus();
}

}  // namespace skerrow
