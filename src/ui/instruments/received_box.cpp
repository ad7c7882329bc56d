#include "ui/instruments/received_box.h"

#include <QFontDatabase>
#include <QScrollBar>

#include "instruments/serial_link.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr QChar kUnprintable(0x00b7);

}  // namespace

ReceivedBox::ReceivedBox(const char* name, QWidget* parent) : QPlainTextEdit(parent) {
  setObjectName(QString::fromUtf8(name));
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setTabChangesFocus(true);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

void ReceivedBox::Add(std::string_view received) {
  if (received.empty()) return;
  const std::string before = text_;
  ShowReceived(text_, received);
  const bool kept = text_.size() > before.size() && text_.compare(0, before.size(), before) == 0;
  if (!kept) clear();
  QString fresh;
  for (const QChar c : ToQt(std::string_view(text_).substr(kept ? before.size() : 0))) {
    const bool line_end = c == QLatin1Char('\r') || c == QLatin1Char('\n');
    if (line_end) {
      // A sentence of the assembly keeps its own return before the line end.
      if (!after_return_) fresh += QLatin1Char('\n');
    } else {
      fresh += c.isPrint() ? c : kUnprintable;
    }
    after_return_ = c == QLatin1Char('\r');
  }
  Append(fresh);
}

void ReceivedBox::Say(std::string_view line) {
  text_.append("\r\n").append(line).append("\r\n");
  Append(QLatin1Char('\n') + ToQt(line) + QLatin1Char('\n'));
}

void ReceivedBox::Empty() {
  text_.clear();
  clear();
}

void ReceivedBox::Append(const QString& text) {
  // By a cursor of its own: what the user has marked stays marked.
  QTextCursor end(document());
  end.movePosition(QTextCursor::End);
  end.insertText(text);
  verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void SetTextOf(QPlainTextEdit& box, const QString& text) {
  if (box.toPlainText() == text) return;
  const int at = box.verticalScrollBar()->value();
  box.setPlainText(text);
  box.verticalScrollBar()->setValue(at);
}

}  // namespace skerrow
