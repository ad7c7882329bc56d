#pragma once

#include "ui/dialogs/departure_chart.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

class QAction;

namespace skerrow {

// "Optimum Results": the passage time of every departure as bars and as a table.
class frmOptResults : public Dialog {
  Q_OBJECT

 public:
  frmOptResults(Desktop& desktop, QWidget* parent);

 private:
  void MakeCommands();
  QAction* MakeAction(const char* name, const QString& text);
  void ShowMarked(std::size_t index);
  void CopyImage();
  void Print();
  void CalculateCourse();

  DepartureChart* chart_;
  HourScale* scale_;
  TextList* list_;
  QLabel* cursor_;
};

}  // namespace skerrow
