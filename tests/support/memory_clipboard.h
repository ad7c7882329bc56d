#pragma once

#include <string>

#include "platform/clipboard.h"

namespace skerrow::testing {

// A clipboard of its own.
class MemoryClipboard final : public Clipboard {
 public:
  void SetText(std::string_view text) override {
    text_ = text;
    picture_ = {};
  }
  std::string Text() const override { return text_; }
  void SetPicture(const Picture& picture) override {
    if (picture.empty()) return;
    text_.clear();
    picture_ = picture;
  }
  const Picture& picture() const { return picture_; }

 private:
  std::string text_;
  Picture picture_;
};

}  // namespace skerrow::testing
