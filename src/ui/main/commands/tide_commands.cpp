#include "core/numbers.h"
#include "core/text.h"
#include "ui/forms/tide_forms.h"
#include "ui/main/chart_controller.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/main/time_controller.h"
#include "ui/tides/frmSkerrowTides.h"

namespace skerrow {
namespace {

// The port within the search circle of the last click, while the ports are shown: it becomes the
// selected one, and the tide screen opens on it.
void OpenPortAtClick(Context& c) {
  const AppConfig& config = c.program.config;
  if (!c.view.last_click) return;
  if (config.show_tide_heights == 0) return c.desktop.window.Tell("The tidal ports are not shown");
  const Result<PortList> ports = ListPorts(c.program.folders, Trim(config.tidal_port_file));
  if (!ports) {
    c.messages.Show(ports.error().Text(), MessageIcon::kWarning);
    return;
  }
  const int position = PortNear(*ports, *c.view.last_click, config.search_circle);
  if (position > 0) return OpenTideScreen(c.desktop, position, &c.window);
  c.desktop.window.Tell("No tidal port within " + ShortText(config.search_circle) + " nm");
}

constexpr Command kCommands[] = {
    {"mnuTidesCalculate", "Calculate", "tides", "The tide's heights at a port", "", kNoNeed,
     [](Context& c) { OpenTideScreen(c.desktop, 0, &c.window); }},
    {"mnuPUTidalHeights", "Tidal Height Prediction", "", "The tide's heights at the port here", "",
     kNoNeed, OpenPortAtClick},
};

}  // namespace

std::span<const Command> TideCommands() { return kCommands; }

}  // namespace skerrow
