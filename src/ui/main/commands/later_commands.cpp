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

// Each of these gets its handler, and moves to the file of its subject, with its subsystem.
constexpr Command kCommands[] = {
    {"mnuFileDelTrack", "&Historical Track", "", "", ""},
    {"mnuhistPlot", "&Plot or Table", "", "", ""},
    {"mnuremovehistplot", "&Remove Plot", "", "", ""},
    {"mnuFileRouteTextExport", "&Route as Text", "", "", ""},
    {"mnuFileWaypointTextExport", "Wa&ypoints as Text", "", "", ""},
    {"mnuFileCOGExport", "&Course Over Ground as Text", "", "", ""},
    {"mnuRouteExportGoogle", "Route as &KML", "", "", ""},
    {"mnuWayPtsToGoogle", "Waypoints as KML", "", "", ""},
    {"mnuCOGToGoogle", "Course Over Ground as KML", "", "", ""},
    {"mnuGoogleTrackExport", "Track as KML", "", "", ""},
    {"mnutxtRouteImport", "&Routes from Text", "", "", ""},
    {"mnutxtWayImport", "Wa&ypoints from Text", "", "", ""},
    {"mnuGPSattach", "GPS &Enable", "gps", "", ""},
    {"mnuPosGpsDisconnect", "GPS &Disable", "", "", ""},
    {"mnuGPSCentre", "GPS &Find Position on Chart", "boatsnap", "Keep the boat on the chart", "G",
     kNoNeed, nullptr, [](const Context& c) { return c.program.config.gps_centre != 0; }},
    {"mnugpscomment", "Enter GPS &Comment", "", "", ""},
    {"mnugpsdisplay", "GPS &Monitor", "", "", ""},
    {"mnuposmanual", "&Manual Entry", "", "", ""},
    {"mnutrackoff", "Track Plot &Off", "", "", ""},
    {"mnurtegpsupload", "Upload &Route to GPS", "upload", "", ""},
    {"mnugpswaypointupload", "Upload &Waypoints to GPS", "", "", ""},
    {"mnuLogGPS", "&Log GPS Data", "record", "", ""},
    {"mnuStopGPSDataLog", "&Stop GPS Log", "", "", ""},
    {"mnuGPSReplay", "Re&play Log", "", "", ""},
    {"mnuGPSReplayPause", "Pa&use Replay", "", "", ""},
    {"mnuGPSReplayHalt", "&Halt Replay", "", "", ""},
    {"mnuAISEnable", "AIS &Enable", "ais", "", ""},
    {"mnuAISDisable", "AIS &Disable", "", "", ""},
    {"mnuAISTargetList", "&Target List", "", "", ""},
    {"mnuShowAISDetails", "&Show Details", "", "", ""},
    {"mnuShowHistorical", "Show &History", "", "", ""},
    {"mnuAISDisplayPredicted", "Show &Predicted Track", "", "", ""},
    {"mnuAISShowHeadVect", "Show Heading &Vector", "", "", ""},
    {"mnuLogAIS", "&Log AIS Data", "", "", ""},
    {"mnuStopAISDataLog", "Stop AIS Lo&g", "", "", ""},
    {"mnuAISReplay", "Re&play Log", "", "", ""},
    {"mnuAISReplayPause", "Pa&use Replay", "", "", ""},
    {"mnuAISReplayHalt", "&Halt Replay", "", "", ""},
    {"mnuGPSAISConfig", "Instruments (GPS && AIS)", "configgps", "", ""},
    {"mnuCommsMonitor", "Comms Ports Diagnostics", "", "", ""},
    {"keyChartInfo", "Calibrate Chart", "", "", "C", kNeedsTools},
    {"mnuChartEdit", "Chart &Settings", "", "", "", kNeedsTools},
    {"mnuXrfEdit", "Sea Area &Index", "", "", ""},
    {"mnuChartBoundaries", "Chart &Boundaries", "", "", ""},
    {"mnuPUAISDetails", "AIS Target Details", "", "", ""},
    {"keyAisDialog", "Details of the Nearest Target", "", "", "F2"},
    {"keyAisDetails", "Details Beside the Nearest Target", "", "", "F3"},
    {"keyAisHistory", "History of the Nearest Target", "", "", "F4"},
    {"keyAisPredicted", "Predicted Track of the Nearest Target", "", "", "F5"},
    {"keyAisHeading", "Heading Vector of the Nearest Target", "", "", "F6"},
    {"keyLoadDiamonds", "Load Diamonds", "", "", "F8", kNeedsTools},
    {"keyNextDiamond", "Next Diamond", "", "", "F11", kNeedsTools},
    {"keyKeepDiamond", "Keep Diamond", "", "", "F12", kNeedsTools},
    {"tbShowAis", "Show AIS Targets", "showais", "", ""},
    {"tbAisDetails", "AIS Details", "aisdetails", "", ""},
};

}  // namespace

std::span<const Command> LaterCommands() { return kCommands; }

}  // namespace skerrow
