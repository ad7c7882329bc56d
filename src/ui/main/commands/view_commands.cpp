#include "ui/main/chart_controller.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/main/time_controller.h"

namespace skerrow {
namespace {

constexpr Command kCommands[] = {
    {"mnuViewNormal", "&Normal View", "day", "The day's colours and full brightness", "", kNoNeed,
     [](Context& c) { c.look.Day(); }},
    {"mnuViewNight", "N&ight View", "night", "Dark colours; each time a step darker", "F9", kNoNeed,
     [](Context& c) { c.look.Darker(); }},
    {"mnuIncreaseIntensity", "&Increase Brightness", "", "A step brighter, up to the day's", "F10",
     kNoNeed, [](Context& c) { c.look.Brighter(); }},
    {"mnushowTideHeights", "Show/Hide Tidal &Ports", "viewports", "The ports with tide heights",
     "P", kNoNeed, [](Context& c) { c.look.Toggle(&AppConfig::show_tide_heights); },
     [](const Context& c) { return c.program.config.show_tide_heights != 0; }},
    {"mnuShowWaypoints", "Show/Hide &Waypoints", "viewwaypoints", "The marks of the waypoint file",
     "W", kNoNeed, [](Context& c) { c.look.Toggle(&AppConfig::show_waypoints); },
     [](const Context& c) { return c.program.config.show_waypoints == 1.0F; }},
    {"mnuViewVectors", "Show/Hide &Vectors", "vectors", "The course-to-steer vectors of the legs",
     "", kNoNeed, [](Context& c) { c.look.Toggle(&AppConfig::show_vectors); },
     [](const Context& c) { return c.program.config.show_vectors != 0; }},
    {"mnuViewChartBoundaries", "Show/Hide Chart &Boundaries", "boundaries",
     "The borders of the larger-scale charts", "", kNoNeed,
     [](Context& c) { c.look.Toggle(&AppConfig::show_chart_boundaries); },
     [](const Context& c) { return c.program.config.show_chart_boundaries != 0; }},
    {"mnuThumbShow", "Show/Hide Thumbnail", "thumbnail", "The small view of the whole chart", "",
     kNoNeed, [](Context& c) { c.look.ToggleThumbnail(); },
     [](const Context& c) { return c.view.thumbnail_visible; }},
    {"mnuToolBarVisible", "Show/Hide Toolbar", "", "Both toolbars", "", kNoNeed,
     [](Context& c) { c.look.Toggle(&AppConfig::toolbar_visible); },
     [](const Context& c) { return c.program.config.toolbar_visible != 0; }},
    {"mnuDividersOn", "Di&viders On", "dividers", "Measure range and bearing", "", kNoNeed,
     [](Context& c) { c.route.ToggleDividers(); },
     [](const Context& c) { return c.view.dividers_on; }},
    {"tbMob", "Man Overboard", "mob", "Mark where somebody went over board, or cancel the mark",
     "F7", kNoNeed, [](Context& c) { c.mob.Toggle(); },
     [](const Context& c) { return c.program.mob.on || c.view.mob_pending; }},
    {"mnuConfigProgram", "General Settings", "config", "Boat, chart, streams and wind settings", "",
     kNoNeed, [](Context& c) { c.route.SettingsDialog(); }},
    {"mnuEveryName", "Show Every &Name", "", "All names over the chart, be there room or not", "",
     kNoNeed, [](Context& c) { c.look.ToggleEveryName(); },
     [](const Context& c) { return c.view.every_name; }},
};

}  // namespace

std::span<const Command> ViewCommands() { return kCommands; }

}  // namespace skerrow
