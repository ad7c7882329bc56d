#pragma once

#include <string>
#include <string_view>

// What the engine has to say to the user passes through this interface; the desktop, the command
// line and the tests each have their own form of it.
namespace skerrow {

inline constexpr std::string_view kProgramTitle = "Skerrow";

enum class MessageIcon { kNone, kInformation, kWarning, kError };

class Messages {
 public:
  virtual ~Messages() = default;

  // Shows a message and returns when the user has seen it.
  virtual void Show(std::string_view text, MessageIcon icon = MessageIcon::kNone,
                    std::string_view title = kProgramTitle) = 0;

  // Asks a question with Yes and No; true for Yes.
  virtual bool Ask(std::string_view text, std::string_view title = kProgramTitle) = 0;

  // Tells something that interrupts nobody: in the status bar of the desktop, and each text at most
  // once a minute. Whatever goes wrong in a timer's tick is told so.
  virtual void Notice(std::string_view) {}

  // The short sound that goes with a refused entry.
  virtual void Beep() {}
};

// For operations whose messages nobody is to see; every question is answered with no.
class NoMessages final : public Messages {
 public:
  void Show(std::string_view, MessageIcon, std::string_view) override {}
  bool Ask(std::string_view, std::string_view) override { return false; }
};

}  // namespace skerrow
