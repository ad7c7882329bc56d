#pragma once

#include <QScrollBar>
#include <vector>

#include "ui/forms/sun_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Sun and Moon Results": a day at a time, the month as a table, and the phases of the moon.
class Frmriseresults : public Dialog {
  Q_OBJECT

 public:
  // The results must outlive the dialog. `day` of the month is shown first.
  Frmriseresults(Desktop& desktop, const SunResults& results, int day, QWidget* parent);

 private:
  void ShowDay(int index);

  const SunResults& results_;
  QLabel* date_;
  std::vector<QLabel*> times_;
  QLabel* daylight_;
  QLabel* twilight_;
  QScrollBar* scroll_;
  TextList* table_;
  TextList* moon_;
};

}  // namespace skerrow
