#pragma once

#include <QPlainTextEdit>
#include <string>
#include <string_view>

namespace skerrow {

// The text of a port as it comes, scrolled to its end; emptied when it grows long.
class ReceivedBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit ReceivedBox(const char* name, QWidget* parent = nullptr);

  // Adds bytes of a port. What cannot be shown becomes "\u00b7".
  void Add(std::string_view received);
  // Adds a line of our own.
  void Say(std::string_view line);
  void Empty();

 private:
  void Append(const QString& text);

  std::string text_;
  bool after_return_ = false;  // a line end whose rest may still come
};

// Gives a read-only text another content, without a move of what is in view where it is the same.
void SetTextOf(QPlainTextEdit& box, const QString& text);

}  // namespace skerrow
