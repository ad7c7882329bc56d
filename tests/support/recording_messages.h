#pragma once

#include <deque>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "core/messages.h"

namespace skerrow::testing {

// Fails on every message and question that the test has not announced, in order, and on those
// announced that never came.
class RecordingMessages final : public Messages {
 public:
  ~RecordingMessages() override {
    for (const Expected& expected : expected_) {
      ADD_FAILURE() << "never shown: " << expected.text;
    }
  }

  void Expect(std::string text) { expected_.push_back({std::move(text), false, false}); }
  void ExpectQuestion(std::string text, bool answer) {
    expected_.push_back({std::move(text), true, answer});
  }

  void Show(std::string_view text, MessageIcon, std::string_view) override { Take(text, false); }
  bool Ask(std::string_view text, std::string_view) override { return Take(text, true); }

 private:
  struct Expected {
    std::string text;
    bool question = false;
    bool answer = false;
  };

  bool Take(std::string_view text, bool question) {
    if (expected_.empty()) {
      ADD_FAILURE() << "unexpected " << (question ? "question: " : "message: ") << text;
      return false;
    }
    const Expected expected = expected_.front();
    expected_.pop_front();
    EXPECT_EQ(text, expected.text);
    EXPECT_EQ(question, expected.question) << text;
    return expected.answer;
  }

  std::deque<Expected> expected_;
};

}  // namespace skerrow::testing
