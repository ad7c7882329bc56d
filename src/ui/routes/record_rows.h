#pragma once

#include <string>
#include <vector>

#include "core/folders.h"
#include "core/result.h"
#include "ui/forms/file_forms.h"

namespace skerrow {

// The records of a waypoint or route file as rows "name<tab>latitude<tab>longitude"; a route's
// with the speed of each leg behind them.
Result<std::vector<std::string>> RecordRows(const Folders& folders, FileKind kind,
                                            const std::string& file_name);

}  // namespace skerrow
