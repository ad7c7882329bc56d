#pragma once

#include <QLabel>
#include <QTimer>
#include <utility>

#include "ui/widgets/dialog.h"

namespace skerrow {

// A dialog over what changes by itself, as the instruments do: it stands beside the chart and
// follows while it is shown.
class LiveDialog : public Dialog {
  Q_OBJECT

 public:
  // `interval` between two looks at the state, in milliseconds.
  LiveDialog(Desktop& desktop, const char* name, const QString& title, QWidget* parent,
             int interval = 1000);

 protected:
  // Shows the state as it is now. What has not changed is to be left as it stands, so that nothing
  // flickers and no selection is lost.
  virtual void Follow() = 0;

  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void PlaceBeside();

  QTimer timer_;
  bool placed_ = false;
};

// Shows the dialog of a kind beside the chart, the one that is open or a new one that is made of
// `arguments` besides.
template <typename Form, typename... Arguments>
void ShowBeside(Desktop& desktop, QWidget& window, Arguments&&... arguments) {
  auto* form = window.findChild<Form*>();
  if (form == nullptr) {
    form = new Form(desktop, std::forward<Arguments>(arguments)..., &window);
    form->setAttribute(Qt::WA_DeleteOnClose);
  }
  form->show();
  form->raise();
  form->activateWindow();
}

// Gives a label a text, if it is another one.
void SetTextOf(QLabel& label, const QString& text);

}  // namespace skerrow
