#pragma once

#include <QComboBox>
#include <string>
#include <vector>

#include "ui/forms/wind_list_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// A list of imported wind, one time after the other.
class WindListDialog : public Dialog {
  Q_OBJECT

 protected:
  WindListDialog(Desktop& desktop, const char* name, const QString& title, QWidget* parent);

  // Offers the times and shows the one that the selected time uses. `trouble` stands in the place
  // of the records where there are none.
  void Offer(std::vector<WindTime> times, const std::string& trouble);
  // The rows of a time.
  virtual std::vector<std::string> Rows(const WindTime& time) const = 0;

 private:
  void ShowTime(int index);

  std::vector<WindTime> times_list_;
  QComboBox* times_;
  QPushButton* earlier_;
  QPushButton* later_;
  TextList* list_;
  QLabel* count_;
};

}  // namespace skerrow
