#pragma once

#include <QElapsedTimer>
#include <functional>
#include <map>
#include <string>

#include "core/messages.h"

namespace skerrow {

// Messages and questions in modal boxes over the active window.
class DesktopMessages final : public Messages {
 public:
  void Show(std::string_view text, MessageIcon icon, std::string_view title) override;
  bool Ask(std::string_view text, std::string_view title) override;
  void Notice(std::string_view text) override;
  void Beep() override;

  // Who shows notices; without one they are not shown.
  void SetNoticeBoard(std::function<void(std::string_view)> board) { board_ = std::move(board); }

 private:
  std::function<void(std::string_view)> board_;
  std::map<std::string, QElapsedTimer, std::less<>> told_;
};

}  // namespace skerrow
