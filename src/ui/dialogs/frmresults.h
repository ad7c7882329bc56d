#pragma once

#include <QCheckBox>

#include "ui/dialogs/report_dialog.h"

namespace skerrow {

// "Results": the report of the last calculation, or the streams met along its track.
class frmresults : public ReportDialog {
  Q_OBJECT

 public:
  frmresults(Desktop& desktop, QWidget* parent);

  // Opens the last results, or says that there are none.
  static void ShowLast(Desktop& desktop, QWidget* parent);

  void done(int result) override;

 private:
  // The choices over the list.
  struct Choices {
    QWidget* box;
    QRadioButton* summary;
    QRadioButton* tidal_details;
    QCheckBox* every;
    QCheckBox* stream_id;
  };
  static Choices MakeChoices();

  frmresults(Desktop& desktop, QWidget* parent, const Choices& choices);
  void Load();

  Choices choices_;
};

}  // namespace skerrow
