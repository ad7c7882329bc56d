#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/clipboard.h"
#include "platform/settings_store.h"

// The desktop's services without a desktop.
namespace skerrow::testing {

// A store that lives no longer than the object.
class MemorySettingsStore final : public SettingsStore {
 public:
  std::string Get(std::string_view section, std::string_view key,
                  std::string_view fallback = {}) const override {
    const auto found = values_.find({std::string(section), std::string(key)});
    return found == values_.end() ? std::string(fallback) : found->second;
  }
  void Set(std::string_view section, std::string_view key, std::string_view value) override {
    values_[{std::string(section), std::string(key)}] = value;
  }
  void Remove(std::string_view section, std::string_view key) override {
    std::erase_if(values_, [&](const auto& row) {
      return row.first.first == section && (key.empty() || row.first.second == key);
    });
  }
  Status Flush() override { return Done{}; }

 private:
  std::map<std::pair<std::string, std::string>, std::string> values_;
};

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
