#pragma once

#include <memory>

#include "core/forecast.h"

namespace skerrow {

// The real reader: edition 2 by ecCodes, gzip by zlib, bzip2 by libbz2.
std::unique_ptr<ForecastReader> MakeForecastReader();

}  // namespace skerrow
