#pragma once

#include "core/messages.h"
#include "core/result.h"

namespace skerrow {

// Whether a write has been done. One that failed is told with the file, the reason, and that the
// file is as it was.
bool Written(const Status& status, Messages& messages);

}  // namespace skerrow
