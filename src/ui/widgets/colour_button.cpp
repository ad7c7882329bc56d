#include "ui/widgets/colour_button.h"

#include <QAbstractSpinBox>
#include <QColorDialog>
#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>

#include "core/config.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

QColor ToColour(std::int32_t value) {
  return {value & 0xff, (value >> 8) & 0xff, (value >> 16) & 0xff};
}

// Dims the fields of colour at night, which no palette reaches; what bears text stays as it is.
void DimColourFields(const QColorDialog& dialog) {
  for (QWidget* part : dialog.findChildren<QWidget*>()) {
    const bool bears_text = qobject_cast<QLabel*>(part) || qobject_cast<QAbstractButton*>(part) ||
                            qobject_cast<QAbstractSpinBox*>(part) || qobject_cast<QLineEdit*>(part);
    if (bears_text || part->findChild<QWidget*>() != nullptr) continue;
    auto* effect = new QGraphicsOpacityEffect(part);
    effect->setOpacity(0.4);
    part->setGraphicsEffect(effect);
  }
}

}  // namespace

ColourButton::ColourButton(const char* name, const QString& what, QWidget* parent)
    : QPushButton(parent), what_(what) {
  setObjectName(QString::fromUtf8(name));
  setToolTip(QString("%1: click to choose").arg(what));
  setAccessibleName(what);
  setAutoDefault(false);
  setFixedWidth(64);
  connect(this, &QPushButton::clicked, this, [this] { Choose(); });
}

void ColourButton::SetColour(std::int32_t colour) {
  colour_ = colour;
  update();
}

void ColourButton::paintEvent(QPaintEvent* event) {
  QPushButton::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Theme& theme = ThemeInForce();
  QColor shown = ToColour(colour_);
  if (theme.night) shown = shown.darker(240);
  painter.setPen(theme.border);
  painter.setBrush(shown);
  painter.drawRoundedRect(QRectF(rect()).adjusted(7, 6, -7, -6), 2, 2);
}

void ColourButton::Choose() {
  QColorDialog dialog(ToColour(colour_), this);
  dialog.setWindowTitle(what_);
  dialog.setOption(QColorDialog::DontUseNativeDialog);
  if (ThemeInForce().night) DimColourFields(dialog);
  if (dialog.exec() != QDialog::Accepted) return;
  const QColor chosen = dialog.currentColor();
  SetColour(Rgb(chosen.red(), chosen.green(), chosen.blue()));
}

}  // namespace skerrow
