#include "ui/dialogs/frmtimdat.h"

#include <QFormLayout>
#include <QStyle>
#include <algorithm>

#include "core/date_order.h"
#include "ui/forms/calc_route_form.h"
#include "ui/forms/date_form.h"
#include "ui/widgets/date_services.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmtimdat::frmtimdat(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmtimdat", "Date and Time", parent),
      date_order_(DetectDateOrder(LocaleDateServices())),
      time_(new TimeEntry(desktop.messages, "txtTime", "lsthrs", "lstmins")),
      day_(Named<QComboBox>("lstDay")),
      month_(Named<QComboBox>("lstMonth")),
      year_(Named<QComboBox>("lstYear")),
      predicted_day_(Named<QLabel>("Predictedday")) {
  const SelectedTime& selected = desktop.program.selected_time;
  for (int day = 1; day <= 31; ++day) day_->addItem(QString::number(day), day);
  for (int month = 1; month <= 12; ++month) month_->addItem(ToQt(LongMonthName(month)), month);
  for (const int year : YearsToOffer(desktop.program.clock->Now().year, selected.year)) {
    year_->addItem(QString::number(year), year);
  }
  auto* form = new QFormLayout;
  form->setHorizontalSpacing(12);
  form->addRow(MakeLabel("&Time:", time_->text_box()), time_);
  auto* date = new QHBoxLayout;
  date->setSpacing(6);
  // In the order in which this machine writes dates.
  const bool year_first = date_order_.starts_with("YYYY");
  const bool month_first = date_order_.find("MM") < date_order_.find("DD");
  if (year_first) date->addWidget(year_);
  date->addWidget(month_first ? month_ : day_);
  date->addWidget(month_first ? day_ : month_);
  if (!year_first) date->addWidget(year_);
  date->addStretch(1);
  form->addRow(MakeLabel("&Date:", year_first ? year_ : month_first ? month_ : day_), date);
  predicted_day_->setMinimumWidth(predicted_day_->fontMetrics().averageCharWidth() * 36);
  form->addRow(QString(), predicted_day_);
  body()->addLayout(form);
  body()->addStretch(1);
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");

  time_->SetText(CalcRouteTextsOf(desktop.program).time);
  day_->setCurrentIndex(selected.day_of_month - 1);
  month_->setCurrentIndex(selected.month - 1);
  year_->setCurrentIndex(std::max(0, year_->findData(selected.year)));
  for (QComboBox* list : {day_, month_, year_}) {
    list->setMaxVisibleItems(16);
    connect(list, &QComboBox::currentIndexChanged, this, [this] { ShowDay(); });
  }
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  ShowDay();
  time_->setFocus();
  time_->text_box()->selectAll();
}

void frmtimdat::ShowDay() {
  const PredictedDay day =
      PredictedDayText(day_->currentData().toInt(), month_->currentData().toInt(),
                       year_->currentData().toInt(), date_order_);
  predicted_day_->setText(ToQt(day.text));
  predicted_day_->setProperty("warning", !day.valid);
  predicted_day_->style()->unpolish(predicted_day_);
  predicted_day_->style()->polish(predicted_day_);
}

void frmtimdat::Accept() {
  const SelectedTimeEntry entry = {time_->Text(), day_->currentData().toInt(),
                                   month_->currentData().toInt(), year_->currentData().toInt()};
  const SelectedTimeRefusal refusal = SetSelectedTime(desktop().program, entry, desktop().messages);
  switch (refusal) {
    case SelectedTimeRefusal::kNone:
      accept();
      desktop().window.Changed(kRouteChanged | kTimeChanged);
      break;
    case SelectedTimeRefusal::kNoTime:
      Refuse(SelectedTimeText(refusal), false, time_->text_box());
      break;
    case SelectedTimeRefusal::kOutOfRange:
      Refuse(SelectedTimeText(refusal), true, time_->text_box());
      break;
    case SelectedTimeRefusal::kNoSuchDate:
      // The warning stands beside the lists.
      desktop().messages.Beep();
      ShowDay();
      day_->setFocus();
      break;
  }
}

}  // namespace skerrow
