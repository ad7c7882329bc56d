#include "cli/answer.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include <nlohmann/json.hpp>

namespace skerrow::cli {

Answer::Answer() : json_(std::make_unique<Json>()) {}
Answer::~Answer() = default;
Answer::Answer(Answer&& other) noexcept = default;
Answer& Answer::operator=(Answer&& other) noexcept = default;

std::string Answer::Printed(bool as_json) const {
  return as_json ? json_->dump(-1, ' ', false, Json::error_handler_t::replace) + "\n" : text;
}

Json Number(float value) {
  if (!std::isfinite(value)) return nullptr;
  char buffer[32];
  const auto text = std::to_chars(buffer, buffer + sizeof buffer, value);
  double shortest = 0.0;
  std::from_chars(buffer, text.ptr, shortest);
  return shortest;
}

Json Number(double value) { return std::isfinite(value) ? Json(value) : Json(nullptr); }

Json Place(Position position) {
  return Json::array({Number(position.latitude), Number(position.longitude)});
}

Json Moment(float hours, DayAndYear date) {
  return Json::array({Number(hours), date.day, date.year});
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

TextTable::TextTable(std::vector<std::string> headers) {
  for (std::string& header : headers) {
    right_.push_back(header.starts_with(">"));
    if (right_.back()) header.erase(0, 1);
  }
  rows_.push_back(std::move(headers));
}

void TextTable::Add(std::vector<std::string> row) {
  row.resize(right_.size());
  rows_.push_back(std::move(row));
}

std::string TextTable::Text() const {
  std::vector<std::size_t> widths(right_.size(), 0);
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], CharacterCount(row[i]));
    }
  }
  std::string text;
  for (const auto& row : rows_) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string padding(widths[i] - CharacterCount(row[i]), ' ');
      line += (i > 0 ? "  " : "") + (right_[i] ? padding + row[i] : row[i] + padding);
    }
    while (!line.empty() && line.back() == ' ') line.pop_back();
    text += line + "\n";
  }
  return text;
}

}  // namespace skerrow::cli
