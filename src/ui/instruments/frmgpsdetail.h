#pragma once

#include <QPushButton>
#include <array>

#include "ui/forms/link_form.h"
#include "ui/instruments/received_box.h"
#include "ui/widgets/live_dialog.h"

namespace skerrow {

// "GPS Monitor": what the GPS tells, its text and the lines of its port. Beside the chart.
class frmgpsdetail : public LiveDialog {
  Q_OBJECT

 public:
  frmgpsdetail(Desktop& desktop, QWidget* parent);

  void done(int result) override;

 protected:
  void Follow() override;

 private:
  QWidget* MakePlace();
  QWidget* MakeDestination();
  void ShowText();
  void SaveWaypoint();

  std::array<QLabel*, 5> fix_{};          // latitude, longitude, speed, course, time
  std::array<QLabel*, 7> destination_{};  // name, place, range, bearing, cross track, side
  QPushButton* save_;
  ReceivedBox* received_;
  QPlainTextEdit* lines_;
  std::size_t shown_blocks_ = 0;
};

}  // namespace skerrow
