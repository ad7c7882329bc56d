#pragma once

#include <QPointer>
#include <QWidget>

#include "core/messages.h"

namespace skerrow {

// Messages and questions in modal boxes over the active window.
class DesktopMessages final : public Messages {
 public:
  void Show(std::string_view text, MessageIcon icon, std::string_view title) override;
  bool Ask(std::string_view text, std::string_view title) override;
  void Beep() override;
};

}  // namespace skerrow
