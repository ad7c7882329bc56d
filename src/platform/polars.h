#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/polar_database.h"

namespace skerrow {

// The polars in an SQLite database: the user's own file where there is one, otherwise the installed
// file, which is copied to the user's at the first change. Nothing is opened before it is used, and
// nothing stays open.
std::unique_ptr<PolarDatabase> OpenPolarDatabase(const std::string& installed_file,
                                                 const std::string& user_file);

// What an import of a whole database did.
struct PolarsImported {
  std::vector<std::string> added;  // names of set-ups
  struct LeftOut {
    std::string name;
    std::string reason;  // "the name "Sloop" is taken"
  };
  std::vector<LeftOut> left_out;
};

// Adds the set-ups of an ".mdb" database (ReadAccessPolars) to the user's polars: all that can be
// added, at once, or none of them. Nothing is overwritten: a set-up whose name is taken is left
// out, and so is one whose table is no polar. `only` picks the one of that name. It may take some
// seconds. Errors: those of the reading and of a change; no set-up, or none of that name.
Result<PolarsImported> ImportAccessPolars(const std::string& installed_file,
                                          const std::string& user_file, const std::string& file,
                                          std::string_view only = {});

// Whether a file's name is that of a database which ImportAccessPolars reads.
bool IsAccessFile(std::string_view file);

}  // namespace skerrow
