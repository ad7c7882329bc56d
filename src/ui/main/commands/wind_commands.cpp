#include "app/wind_work.h"
#include "ui/dialogs/frmWind.h"
#include "ui/main/chart_controller.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/main/time_controller.h"
#include "ui/wind/frmGribImport.h"
#include "ui/wind/frmTrueAppWind.h"
#include "ui/wind/frmViewSmartMet.h"

namespace skerrow {
namespace {

void UseWind(Context& c, bool entered) {
  const Status saved = UseEnteredWind(c.program, entered, c.messages);
  if (!saved) c.messages.Show(saved.error().Text(), MessageIcon::kWarning);
  c.desktop.window.Changed(kRouteChanged | kSettingsChanged);
}

constexpr Command kCommands[] = {
    {"mnuWindEnter", "&Enter Wind", "", "The wind, the boat's polar, and the speed of each leg", "",
     kNoNeed, [](Context& c) { frmWind(c.desktop, &c.window).exec(); }},
    {"mnuUserEntered", "&User Entered Wind", "", "One wind for the whole passage, as entered", "",
     kNoNeed, [](Context& c) { UseWind(c, true); },
     [](const Context& c) { return c.program.config.use_manual_wind != 0; }},
    {"mnuSmartMet", "&Forecast Wind", "", "The wind of the imported forecast", "", kNoNeed,
     [](Context& c) { UseWind(c, false); },
     [](const Context& c) { return c.program.config.use_manual_wind == 0; }},
    {"mnuWindGribImport", "&Import GRIB File", "wind", "Reads the wind of a forecast file", "",
     kNoNeed, [](Context& c) { frmGribImport(c.desktop, &c.window).exec(); }},
    {"mnuViewSmartMet", "&View Wind Data", "", "The imported wind as a list", "", kNoNeed,
     [](Context& c) { frmViewSmartMet(c.desktop, &c.window).exec(); }},
    {"mnuWindTrueApp", "&True and Apparent Wind", "", "The true wind from the apparent, and back",
     "", kNoNeed, [](Context& c) { frmTrueAppWind(c.desktop, &c.window).exec(); }},
    {"mnuWindDisplay", "Show/Hide Wind &Grid", "viewwind", "The wind all over the chart", "#",
     kNoNeed, [](Context& c) { c.look.Toggle(&AppConfig::show_wind_grid); },
     [](const Context& c) { return c.program.config.show_wind_grid != 0; }},
    {"mnuDisplayWindOverRoute", "Show/Hide Wind Over &Route", "windover",
     "The wind at each point of the route", "N", kNoNeed,
     [](Context& c) { c.look.Toggle(&AppConfig::show_wind_over_route); },
     [](const Context& c) { return c.program.config.show_wind_over_route != 0; }},
};

}  // namespace

std::span<const Command> WindCommands() { return kCommands; }

}  // namespace skerrow
