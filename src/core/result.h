#pragma once

#include <string>
#include <utility>
#include <variant>

namespace skerrow {

// Why an operation could not be done: the file it was about (may be empty) and the reason.
struct Error {
  std::string path;
  std::string reason;

  // "path: reason", or the reason alone.
  std::string Text() const { return path.empty() ? reason : path + ": " + reason; }
};

// A value, or the error that stood in its way.
template <typename T>
class [[nodiscard]] Result {
 public:
  Result(T value) : outcome_(std::move(value)) {}      // NOLINT: conversions are the point
  Result(Error error) : outcome_(std::move(error)) {}  // NOLINT
  bool ok() const { return std::holds_alternative<T>(outcome_); }
  explicit operator bool() const { return ok(); }
  // Only when ok().
  const T& value() const { return std::get<T>(outcome_); }
  T& value() { return std::get<T>(outcome_); }
  const T& operator*() const { return value(); }
  const T* operator->() const { return &value(); }
  // Only when not ok().
  const Error& error() const { return std::get<Error>(outcome_); }

 private:
  std::variant<T, Error> outcome_;
};

// The result of an operation that gives no value.
struct Done {};
using Status = Result<Done>;

}  // namespace skerrow
