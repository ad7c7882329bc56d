#pragma once

#include <string>
#include <string_view>

#include "platform/images.h"

// The clipboard.
namespace skerrow {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  // Puts a text on the clipboard in place of what was there. UTF-8, lines ended by "\n".
  virtual void SetText(std::string_view text) = 0;
  // The text on the clipboard; empty when there is none.
  virtual std::string Text() const = 0;
  // Puts a picture on the clipboard in place of what was there; an empty one changes nothing.
  virtual void SetPicture(const Picture& picture) = 0;
};

// The desktop's clipboard. Needs the running application.
class SystemClipboard final : public Clipboard {
 public:
  void SetText(std::string_view text) override;
  std::string Text() const override;
  void SetPicture(const Picture& picture) override;
};

}  // namespace skerrow
