#pragma once

#include <memory>
#include <string>

#include "core/polar_database.h"

namespace skerrow {

// The polars in an SQLite database: the user's own file where there is one, otherwise the installed
// file, which is copied to the user's at the first change. Nothing is opened before it is used, and
// nothing stays open.
std::unique_ptr<PolarDatabase> OpenPolarDatabase(const std::string& installed_file,
                                                 const std::string& user_file);

}  // namespace skerrow
