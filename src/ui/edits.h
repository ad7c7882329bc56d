#pragma once

#include <utility>

#include "app/edits.h"
#include "ui/desktop.h"

// Edits as the windows make them: through the edit session, and then shown.
namespace skerrow {

// Runs `edit` on the route as the edit `name`, and gives what it gives.
template <typename Edit>
auto EditRoute(Desktop& desktop, const char* name, Edit edit) {
  if constexpr (std::is_void_v<std::invoke_result_t<Edit, RouteState&>>) {
    EditRoute(desktop.program, desktop.messages, name, std::move(edit));
    desktop.window.Changed(kRouteChanged);
  } else {
    auto outcome = EditRoute(desktop.program, desktop.messages, name, std::move(edit));
    desktop.window.Changed(kRouteChanged);
    return outcome;
  }
}

}  // namespace skerrow
