#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/result.h"

namespace skerrow {

// The columns of a set-up's table, in their order: the true wind angle, degrees, and the boat's
// speed, knots, in a wind of 0, 2, 4 .. 30 knots.
inline constexpr std::array<std::string_view, 17> kPolarColumns = {
    "windangle", "Wind0kn",  "wind2kn",  "wind4kn",  "wind6kn",  "wind8kn",
    "wind10kn",  "Wind12kn", "wind14kn", "wind16kn", "wind18kn", "wind20kn",
    "Wind22kn",  "Wind24kn", "Wind26kn", "Wind28kn", "Wind30kn"};

// A row as the database has it: texts, whatever the type of a column; nothing for an empty cell and
// for a column that the table lacks.
using PolarRow = std::array<std::optional<std::string>, kPolarColumns.size()>;

// A set-up's table. A whole one has 31 rows, for the angles 30, 35 .. 180.
using PolarRows = std::vector<PolarRow>;

// A cell to be changed: row from 0, column in kPolarColumns.
struct PolarChange {
  std::size_t row = 0;
  std::size_t column = 0;
  std::string text;
};

// The tables of boat speeds, one for each set-up of a boat, and the table "SetUps" of their names.
// Errors of all: the file is missing, damaged, or locked by another program; names are compared
// with regard to case. The first change of a database that is installed read-only is made in a copy
// of the user's own, which is in use from then on.
class PolarDatabase {
 public:
  virtual ~PolarDatabase() = default;

  // The file in use, or where it would be.
  virtual std::string Path() const = 0;
  // The names of the set-ups, in the order of their table.
  virtual Result<std::vector<std::string>> SetUps() = 0;
  // A set-up's table. Error: there is none of that name.
  virtual Result<PolarRows> Read(std::string_view set_up) = 0;
  // Writes cells, all or none of them. Errors: no such set-up, row or column.
  virtual Status Change(std::string_view set_up, const std::vector<PolarChange>& changes) = 0;
  // Adds a set-up behind the others. Errors: the name is taken, empty, or longer than 64 letters.
  virtual Status Create(std::string_view set_up, const PolarRows& rows) = 0;
  // Gives a set-up another name; its place in the list stays. Errors as for Create.
  virtual Status Rename(std::string_view set_up, std::string_view name) = 0;
  // Deletes a set-up with its table.
  virtual Status Delete(std::string_view set_up) = 0;
};

}  // namespace skerrow
