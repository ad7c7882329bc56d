#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <initializer_list>
#include <string_view>

#include "ui/desktop.h"

namespace skerrow {

// Makes a widget of a kind with its published name, and a tool tip where one helps.
template <typename Widget, typename... Arguments>
Widget* Named(const char* name, Arguments&&... arguments) {
  auto* widget = new Widget(std::forward<Arguments>(arguments)...);
  widget->setObjectName(QString::fromUtf8(name));
  return widget;
}

// A quiet explanatory text, and a title over a part of a dialog. Both wrap.
QLabel* MakeHint(const QString& text);
QLabel* MakeHeading(const QString& text);

// An empty column whose parts stand close together.
QVBoxLayout* MakeColumn();

// Widgets side by side with even gaps, flush left.
QHBoxLayout* MakeRow(std::initializer_list<QWidget*> widgets);

// A label of `text` whose mnemonic goes to `buddy`.
QLabel* MakeLabel(const QString& text, QWidget* buddy);

// What all dialogs have in common: a body over a row of buttons, a size that is kept between runs,
// Esc to cancel, and no way out while a calculation runs.
class Dialog : public QDialog {
  Q_OBJECT

 public:
  // `name` is the form's name; its size is stored under it.
  Dialog(Desktop& desktop, const char* name, const QString& title, QWidget* parent);

  void done(int result) override;

 protected:
  Desktop& desktop() const { return desktop_; }
  QVBoxLayout* body() const { return body_; }
  // Buttons stand at the right of the bottom row in the order of the calls; `left` ones at its
  // left.
  QPushButton* AddButton(const char* name, const QString& text, const QString& tip = {});
  QPushButton* AddLeftButton(const char* name, const QString& text, const QString& tip = {});

  // Shows the words of a refusal with a warning, after a beep when `beep` is set, and brings the
  // keyboard to the field that is to be corrected.
  void Refuse(std::string_view text, bool beep = false, QWidget* field = nullptr);

  // While a calculation serves events the dialog takes no input but through the progress window.
  void SetBusy(bool busy);
  bool busy() const { return busy_; }

  void showEvent(QShowEvent* event) override;

 private:
  Desktop& desktop_;
  QVBoxLayout* outer_;
  QVBoxLayout* body_;
  QHBoxLayout* buttons_;
  int left_buttons_ = 0;
  bool busy_ = false;
  bool placed_ = false;
};

}  // namespace skerrow
