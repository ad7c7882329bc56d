#pragma once

#include <QObject>
#include <string>

#include "ui/desktop.h"

namespace skerrow {

// Man overboard in the main window: the mark is asked for, set where the boat is or where the next
// click points, and told of until it is cancelled.
class MobController final : public QObject {
  Q_OBJECT

 public:
  explicit MobController(Desktop& desktop);
  ~MobController() override;

  // Asks to activate or to cancel. Without a boat's position the next click on the chart sets the
  // mark; no position is guessed.
  void Toggle();
  // The click that was waited for.
  void SetAt(Position place);
  // Esc while a click is waited for. True when one was.
  bool GiveUpWaiting();

  // What lblMOB says: the position where it lies on the chart (`shown_line`), and below it times
  // and the way there; the request for a click while one is waited for.
  std::string LabelText(const std::string& shown_line) const;
  // The menu entry, which tells the position wherever it lies.
  std::string MenuText() const;

 protected:
  // The key F7 activates it whatever window of the program has the keyboard.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Desktop& desktop_;
  bool asking_ = false;
};

}  // namespace skerrow
