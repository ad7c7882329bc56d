#include "ui/widgets/dialog.h"

#include <QShowEvent>
#include <algorithm>

#include "ui/widgets/place_window.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr std::string_view kSizesSection = "Windows";

}  // namespace

QLabel* MakeHint(const QString& text) {
  auto* label = new QLabel(text);
  label->setWordWrap(true);
  label->setProperty("hint", true);
  return label;
}

QLabel* MakeHeading(const QString& text) {
  auto* label = new QLabel(text);
  label->setWordWrap(true);
  label->setProperty("heading", true);
  return label;
}

QLabel* MakeLabel(const QString& text, QWidget* buddy) {
  auto* label = new QLabel(text);
  label->setBuddy(buddy);
  return label;
}

QVBoxLayout* MakeColumn() {
  auto* column = new QVBoxLayout;
  column->setSpacing(6);
  return column;
}

QHBoxLayout* MakeRow(std::initializer_list<QWidget*> widgets) {
  auto* row = new QHBoxLayout;
  row->setSpacing(6);
  for (QWidget* widget : widgets) row->addWidget(widget);
  row->addStretch(1);
  return row;
}

Dialog::Dialog(Desktop& desktop, const char* name, const QString& title, QWidget* parent)
    : QDialog(parent),
      desktop_(desktop),
      outer_(new QVBoxLayout(this)),
      body_(new QVBoxLayout),
      buttons_(new QHBoxLayout) {
  setObjectName(QString::fromUtf8(name));
  setWindowTitle(title);
  setSizeGripEnabled(true);
  outer_->setContentsMargins(14, 14, 14, 12);
  outer_->setSpacing(12);
  body_->setSpacing(8);
  buttons_->setSpacing(8);
  buttons_->addStretch(1);
  outer_->addLayout(body_, 1);
  outer_->addLayout(buttons_);
}

QPushButton* Dialog::AddButton(const char* name, const QString& text, const QString& tip) {
  auto* button = Named<QPushButton>(name, text);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  button->setMinimumWidth(button->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 12);
  buttons_->addWidget(button);
  return button;
}

QPushButton* Dialog::AddLeftButton(const char* name, const QString& text, const QString& tip) {
  QPushButton* button = AddButton(name, text, tip);
  buttons_->removeWidget(button);
  buttons_->insertWidget(left_buttons_++, button);
  return button;
}

void Dialog::Refuse(std::string_view text, bool beep, QWidget* field) {
  if (beep) desktop_.messages.Beep();
  desktop_.messages.Show(text, MessageIcon::kWarning);
  if (field != nullptr) field->setFocus(Qt::OtherFocusReason);
}

void Dialog::SetBusy(bool busy) {
  busy_ = busy;
  for (QPushButton* button : findChildren<QPushButton*>()) {
    // What was disabled before stays so afterwards.
    if (busy) button->setProperty("wasEnabled", button->isEnabled());
    button->setEnabled(!busy && button->property("wasEnabled").toBool());
  }
}

void Dialog::done(int result) {
  if (busy_) return;
  desktop_.settings.Set(kSizesSection, FromQt(objectName()),
                        std::to_string(width()) + "x" + std::to_string(height()));
  QDialog::done(result);
}

void Dialog::showEvent(QShowEvent* event) {
  if (!placed_) {
    placed_ = true;
    const QStringList stored =
        ToQt(desktop_.settings.Get(kSizesSection, FromQt(objectName()))).split(QLatin1Char('x'));
    QSize wanted = size();
    if (stored.size() == 2 && stored[0].toInt() > 0 && stored[1].toInt() > 0) {
      wanted = QSize(stored[0].toInt(), stored[1].toInt());
    }
    PlaceWindow(*this, wanted);
  }
  QDialog::showEvent(event);
}

}  // namespace skerrow
