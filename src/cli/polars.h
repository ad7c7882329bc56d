#pragma once

#include <string>

#include "cli/session.h"
#include "core/polar_database.h"
#include "core/result.h"

namespace skerrow::cli {

// The table of a set-up by its name, or of a file of the shared text form.
Result<PolarRows> ReadPolar(const Session& session, const std::string& name);

// The smallest angle to the wind that is sailed; empty takes the setting.
Result<float> ParseClosest(const Session& session, const std::string& text);

}  // namespace skerrow::cli
