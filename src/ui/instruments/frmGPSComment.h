#pragma once

#include <QLineEdit>
#include <array>

#include "instruments/log.h"
#include "ui/widgets/live_dialog.h"

namespace skerrow {

// A comment of five lines for the log, at the boat's position.
class frmGPSComment : public LiveDialog {
  Q_OBJECT

 public:
  frmGPSComment(Desktop& desktop, QWidget* parent);

 protected:
  void Follow() override;

 private:
  void Accept();

  QLabel* interval_;
  QLabel* date_;
  QLabel* time_;
  QLabel* place_;
  QLabel* logging_;
  std::array<QLineEdit*, kCommentLines> lines_{};
};

}  // namespace skerrow
