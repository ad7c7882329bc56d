#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "core/calendar.h"
#include "core/position.h"
#include "core/result.h"

// What a command answers, and the forms its numbers take.
namespace skerrow::cli {

using Json = nlohmann::ordered_json;

// Both forms of an answer; the options decide which is printed. Files that build the first one
// include the JSON library themselves.
class Answer {
 public:
  Answer();
  ~Answer();
  Answer(Answer&& other) noexcept;
  Answer& operator=(Answer&& other) noexcept;

  Json& json() { return *json_; }
  // What is printed: the JSON form in one line, or the text.
  std::string Printed(bool as_json) const;

  std::string text;

 private:
  std::unique_ptr<Json> json_;
};

// A single-precision value as the shortest number that reads back to the same 32 bits; null when
// it is not finite.
Json Number(float value);
Json Number(double value);

// [latitude, longitude].
Json Place(Position position);

// [hours, day, year].
Json Moment(float hours, DayAndYear date);

// Rows of text in columns: each column as wide as its widest entry, two blanks between. Columns
// whose header begins with ">" are set right, without that sign.
class TextTable {
 public:
  explicit TextTable(std::vector<std::string> headers);
  void Add(std::vector<std::string> row);
  std::string Text() const;

 private:
  std::vector<std::vector<std::string>> rows_;
  std::vector<bool> right_;
};

// Number of characters (not bytes) of a UTF-8 text.
std::size_t CharacterCount(std::string_view text);

}  // namespace skerrow::cli
