#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "core/polar_database.h"
#include "core/result.h"

namespace skerrow {

// A set-up of a polar database in the Jet format.
struct AccessSetUp {
  std::string name;
  PolarRows rows;
  std::string trouble;  // why its table can not be read; empty: it has been
};

// The set-ups of an ".mdb" file, in the order of its table "SetUps", read by the programs of
// mdbtools (mdb-tables and mdb-export), which must be installed. Their output and their time are
// bounded: `limit` is for all of them together. Errors: the programs are missing, they refuse the
// file, it has no table "SetUps", a bound is passed.
Result<std::vector<AccessSetUp>> ReadAccessPolars(
    const std::string& file, std::chrono::milliseconds limit = std::chrono::seconds(10));

// The fields of a text of comma-separated values, by row: quotes are doubled within quotes.
std::vector<std::vector<std::string>> ParseCommaText(std::string_view text);

}  // namespace skerrow
