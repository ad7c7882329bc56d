#pragma once

#include <QCalendarWidget>
#include <QComboBox>
#include <string>

#include "core/calendar.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "Tide Date": the day of the tide screen, by lists or from a calendar.
class frmTidesTimeDate : public Dialog {
  Q_OBJECT

 public:
  frmTidesTimeDate(Desktop& desktop, DayAndYear date, QWidget* parent);

  // The chosen day, once accepted.
  DayAndYear Chosen() const;

 private:
  void ShowDay();
  void ListsToCalendar();
  void CalendarToLists();
  void Accept();

  std::string date_order_;
  QComboBox* day_;
  QComboBox* month_;
  QComboBox* year_;
  QLabel* weekday_;
  QCalendarWidget* calendar_;
};

}  // namespace skerrow
