#pragma once

#include <QButtonGroup>
#include <QLineEdit>
#include <QSlider>

#include "instruments/replay.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Replay Log File": the log and its pace.
class frmNMEAReplay : public Dialog {
  Q_OBJECT

 public:
  frmNMEAReplay(Desktop& desktop, ReplayKind kind, QWidget* parent);

  // What OK has asked for.
  const ReplayRequest& request() const { return request_; }

 private:
  void ShowPace();
  void Accept();

  ReplayRequest request_;
  TextList* files_;
  QLineEdit* name_;
  QButtonGroup* paces_;
  QSlider* speed_;
  QLabel* speed_text_;
};

}  // namespace skerrow
