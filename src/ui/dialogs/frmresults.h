#pragma once

#include <QCheckBox>

#include "ui/dialogs/report_dialog.h"

namespace skerrow {

// "Results": the report of the last calculation, or the streams met along its track.
class FrmResults : public ReportDialog {
  Q_OBJECT

 public:
  FrmResults(Desktop& desktop, QWidget* parent);

  // Opens the last results, or says that there are none.
  static void ShowLast(Desktop& desktop, QWidget* parent);

  void done(int result) override;

 private:
  void Load();

  QRadioButton* summary_;
  QRadioButton* tidal_details_;
  QCheckBox* every_;
  QCheckBox* stream_id_;
};

}  // namespace skerrow
