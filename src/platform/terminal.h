#pragma once

namespace skerrow {

// Whether standard error goes to a terminal that a person looks at.
bool StandardErrorIsTerminal();

}  // namespace skerrow
