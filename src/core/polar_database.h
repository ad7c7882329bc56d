#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/result.h"

namespace skerrow {

// The tables of boat speeds, one for each set-up of a boat: 31 rows for the true wind angles 30 to
// 180 degrees, a column for each wind speed from 0 to 30 knots in steps of 2.
class PolarDatabase {
 public:
  virtual ~PolarDatabase() = default;

  // The names of the set-ups, in the order of their table.
  virtual Result<std::vector<std::string>> SetUps() = 0;
  // Rows of a set-up's table.
  virtual Result<std::size_t> RowCount(std::string_view set_up) = 0;
  // A cell as text: row from 0, column by its name, such as "wind12kn", in either case. Errors: no
  // such set-up, row or column; an empty cell.
  virtual Result<std::string> Cell(std::string_view set_up, std::size_t row,
                                   std::string_view column) = 0;
  // Writes a cell. The first change of a database that is installed read-only is made in a copy of
  // the user's own.
  virtual Status SetCell(std::string_view set_up, std::size_t row, std::string_view column,
                         std::string_view text) = 0;
};

}  // namespace skerrow
