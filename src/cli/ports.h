#pragma once

#include <span>
#include <string>

#include "cli/session.h"
#include "core/result.h"
#include "instruments/upload.h"

namespace skerrow::cli {

// Sends an upload to a port: its number, the path of a device, or a network source. Error: the
// port, and why it could not be opened or stopped taking bytes.
Status SendSteps(Session& session, const std::string& device, int gps_type,
                 std::span<const UploadStep> steps);

}  // namespace skerrow::cli
