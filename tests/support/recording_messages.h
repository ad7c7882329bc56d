#pragma once

#include <deque>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>

#include "core/messages.h"

namespace skerrow::testing {

// Fails on every message and question that the test has not announced, in order, and on those
// announced that never came. Icon and title are held against those announced; without one a
// message has the program's title, and a question any.
class RecordingMessages final : public Messages {
 public:
  ~RecordingMessages() override {
    for (const Expected& expected : expected_) {
      ADD_FAILURE() << "never shown: " << expected.text;
    }
  }

  void Expect(std::string text, std::optional<MessageIcon> icon = std::nullopt,
              std::string title = std::string(kProgramTitle)) {
    expected_.push_back({std::move(text), std::move(title), icon, std::nullopt});
  }
  void ExpectQuestion(std::string text, bool answer,
                      std::optional<std::string> title = std::nullopt) {
    expected_.push_back({std::move(text), std::move(title), std::nullopt, answer});
  }
  bool AllShown() const { return expected_.empty(); }

  void Show(std::string_view text, MessageIcon icon, std::string_view title) override {
    Take(text, title, icon);
  }
  bool Ask(std::string_view text, std::string_view title) override {
    return Take(text, title, std::nullopt);
  }
  void Beep() override { ++beeps; }

  int beeps = 0;

 private:
  struct Expected {
    std::string text;
    std::optional<std::string> title;
    std::optional<MessageIcon> icon;
    std::optional<bool> answer;  // of a question
  };

  // `icon` is that of a message, none for a question.
  bool Take(std::string_view text, std::string_view title, std::optional<MessageIcon> icon) {
    if (expected_.empty()) {
      ADD_FAILURE() << "unexpected " << (icon ? "message: " : "question: ") << text;
      return false;
    }
    const Expected expected = expected_.front();
    expected_.pop_front();
    EXPECT_EQ(text, expected.text);
    EXPECT_EQ(title, expected.title.value_or(std::string(title))) << text;
    EXPECT_EQ(!icon, expected.answer.has_value()) << text;
    if (icon && expected.icon) {
      EXPECT_EQ(*icon, *expected.icon) << text;
    }
    return expected.answer.value_or(false);
  }

  std::deque<Expected> expected_;
};

}  // namespace skerrow::testing
