#include "ui/dialogs/report_write.h"

namespace skerrow {

bool Written(const Status& status, Messages& messages) {
  if (status) return true;
  messages.Show(
      "This file could not be written, and nothing in it has changed:\n" + status.error().Text(),
      MessageIcon::kError);
  return false;
}

}  // namespace skerrow
