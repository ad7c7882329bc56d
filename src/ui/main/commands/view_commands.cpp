#include "ui/dialogs/frmConfigure.h"
#include "ui/main/frmChart.h"

namespace skerrow {
namespace {

// Vectors are drawn where tides are in use.
void FollowVectors(FrmChart& w) { w.Changed(kAllChanged); }

constexpr Command kCommands[] = {
    {"mnuViewNormal", "&Normal View", "day", "The day's colours and full brightness", "", kNoNeed,
     [](FrmChart& w) {
       w.AdjustBrightness(100);
       w.SetNight(false);
     }},
    {"mnuViewNight", "N&ight View", "night", "Dark colours; each time a step darker", "F9", kNoNeed,
     [](FrmChart& w) {
       w.AdjustBrightness(-10);
       w.SetNight(true);
     }},
    {"mnuIncreaseIntensity", "&Increase Brightness", "", "A step brighter, up to the day's", "F10",
     kNoNeed,
     [](FrmChart& w) {
       w.AdjustBrightness(10);
       if (w.viewer().look().brightness >= 100) w.SetNight(false);
     }},
    {"mnushowTideHeights", "Show/Hide Tidal &Ports", "viewports", "The ports with tide heights",
     "P", kNoNeed, [](FrmChart& w) { w.Toggle(&AppConfig::show_tide_heights); },
     [](const FrmChart& w) { return w.program().config.show_tide_heights != 0; }},
    {"mnuShowWaypoints", "Show/Hide &Waypoints", "viewwaypoints", "The marks of the waypoint file",
     "W", kNoNeed, [](FrmChart& w) { w.Toggle(&AppConfig::show_waypoints); },
     [](const FrmChart& w) { return w.program().config.show_waypoints == 1.0F; }},
    {"mnuViewVectors", "Show/Hide &Vectors", "vectors", "The course-to-steer vectors of the legs",
     "", kNoNeed,
     [](FrmChart& w) {
       w.Toggle(&AppConfig::show_vectors);
       FollowVectors(w);
     },
     [](const FrmChart& w) { return w.program().config.show_vectors != 0; }},
    {"mnuViewChartBoundaries", "Show/Hide Chart &Boundaries", "boundaries",
     "The borders of the larger-scale charts", "", kNoNeed,
     [](FrmChart& w) { w.Toggle(&AppConfig::show_chart_boundaries); },
     [](const FrmChart& w) { return w.program().config.show_chart_boundaries != 0; }},
    {"mnuThumbShow", "Show/Hide &Thumbnail", "thumbnail", "The small view of the whole chart", "",
     kNoNeed, [](FrmChart& w) { w.ToggleThumbnail(); },
     [](const FrmChart& w) { return w.view().thumbnail_visible; }},
    {"mnuToolBarVisible", "Show/Hide T&oolbar", "", "Both toolbars", "", kNoNeed,
     [](FrmChart& w) { w.ToggleToolbars(); },
     [](const FrmChart& w) { return w.program().config.toolbar_visible != 0; }},
    {"mnuDividersOn", "Di&viders On", "dividers", "Measure range and bearing", "", kNoNeed,
     [](FrmChart& w) { w.ToggleDividers(); },
     [](const FrmChart& w) { return w.view().dividers_on; }},
    {"mnuGPSCentre", "GPS &Find Position on Chart", "boatsnap", "Keep the boat on the chart", "G",
     kNoNeed, [](FrmChart& w) { w.Toggle(&AppConfig::gps_centre); },
     [](const FrmChart& w) { return w.program().config.gps_centre != 0; }},
    {"tbMob", "Man Overboard", "mob", "Mark where somebody went over board, or cancel the mark", "",
     kNoNeed, [](FrmChart& w) { w.ToggleMob(); },
     [](const FrmChart& w) { return w.program().mob.on; }},
    {"mnuConfigProgram", "&General Settings", "config", "Boat, chart, streams and wind settings",
     "", kNoNeed,
     [](FrmChart& w) {
       const RouteState before = w.program().route;
       FrmConfigure dialog(
           w.desktop(), [&w] { w.ShowTools(); }, &w);
       dialog.exec();
       // The speed chosen goes to every point of the route, which is an edit of it.
       RememberRouteEdit(w.program(), w.messages(), "General Settings", before);
       FollowVectors(w);
     }},
};

}  // namespace

std::span<const Command> ViewCommands() { return kCommands; }

}  // namespace skerrow
