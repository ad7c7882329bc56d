#pragma once

#include <QRadioButton>

#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Select track": puts the track of a log on the chart, or opens a plot file as a table.
class frmTrackSelect : public Dialog {
  Q_OBJECT

 public:
  frmTrackSelect(Desktop& desktop, QWidget* parent);

 private:
  void FillList();
  void Accept();
  void ShowTrack(const std::string& name);
  void ShowTable(const std::string& name);

  TextList* files_;
  QLabel* chosen_;
  QLabel* none_;
  QRadioButton* track_;
  QRadioButton* table_;
};

}  // namespace skerrow
