#include "platform/terminal.h"

#include <unistd.h>

namespace skerrow {

bool StandardErrorIsTerminal() { return isatty(STDERR_FILENO) != 0; }

}  // namespace skerrow
