#include "ui/widgets/desktop_messages.h"

#include <QApplication>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>

#include "ui/widgets/qt_text.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

// A disc with a sign in the colours of the theme: the style's own icons shine at night.
QPixmap IconOf(QChar sign, const QColor& colour) {
  const qreal ratio = qApp->devicePixelRatio();
  constexpr int kSize = 36;
  QPixmap pixmap(QSize(kSize, kSize) * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawEllipse(QRectF(1, 1, kSize - 2, kSize - 2));
  QFont font = QApplication::font();
  font.setPixelSize(24);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(ThemeInForce().night ? ThemeInForce().base : QColor(Qt::white));
  painter.drawText(QRectF(0, 0, kSize, kSize), Qt::AlignCenter, QString(sign));
  return pixmap;
}

void Prepare(QMessageBox& box, std::string_view text, std::string_view title) {
  box.setObjectName(QStringLiteral("MessageBox"));
  box.setWindowTitle(ToQt(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(text));
}

}  // namespace

void DesktopMessages::Show(std::string_view text, MessageIcon icon, std::string_view title) {
  QMessageBox box(QApplication::activeWindow());
  Prepare(box, text, title);
  const Theme& theme = ThemeInForce();
  const QColor calm = theme.night ? theme.bar_marked : theme.accent;
  switch (icon) {
    case MessageIcon::kNone:
      break;
    case MessageIcon::kInformation:
      box.setIconPixmap(IconOf(QLatin1Char('i'), calm));
      break;
    case MessageIcon::kWarning:
      box.setIconPixmap(
          IconOf(QLatin1Char('!'), theme.night ? theme.warning : QColor(0xd9, 0x7a, 0x06)));
      break;
    case MessageIcon::kError:
      box.setIconPixmap(IconOf(QLatin1Char('!'), theme.warning));
      break;
  }
  box.setStandardButtons(QMessageBox::Ok);
  box.exec();
}

bool DesktopMessages::Ask(std::string_view text, std::string_view title) {
  QMessageBox box(QApplication::activeWindow());
  Prepare(box, text, title);
  const Theme& theme = ThemeInForce();
  box.setIconPixmap(IconOf(QLatin1Char('?'), theme.night ? theme.bar_marked : theme.accent));
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setDefaultButton(QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

void DesktopMessages::Notice(std::string_view text) {
  constexpr qint64 kQuiet = 60000;  // ms
  constexpr std::size_t kMostTexts = 200;
  const auto told = told_.find(text);
  if (told != told_.end() && !told->second.hasExpired(kQuiet)) return;
  if (told_.size() >= kMostTexts) told_.clear();
  told_[std::string(text)].start();
  if (board_) board_(text);
}

void DesktopMessages::Beep() { QApplication::beep(); }

}  // namespace skerrow
