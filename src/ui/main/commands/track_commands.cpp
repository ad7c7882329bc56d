#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/instrument_controller.h"

namespace skerrow {
namespace {

constexpr Command kCommands[] = {
    {"mnuFileDelTrack", "&Historical Track", "", "", ""},
    {"mnuhistPlot", "&Plot or Table", "", "", ""},
    {"mnuremovehistplot", "&Remove Plot", "", "", ""},
    {"mnugpscomment", "Enter GPS &Comment", "", "", ""},
    {"mnuposmanual", "&Manual Entry", "", "", ""},
    {"mnutrackoff", "Track Plot &Off", "", "", ""},
    {"mnurtegpsupload", "Upload &Route to GPS", "upload", "", ""},
    {"mnugpswaypointupload", "Upload &Waypoints to GPS", "", "", ""},
    {"mnuLogGPS", "&Log GPS Data", "record", "", ""},
    {"mnuStopGPSDataLog", "&Stop GPS Log", "", "", ""},
    {"mnuGPSReplay", "Re&play Log", "", "", ""},
    {"mnuGPSReplayPause", "Pa&use Replay", "", "", ""},
    {"mnuGPSReplayHalt", "&Halt Replay", "", "", ""},
    {"mnuLogAIS", "&Log AIS Data", "", "", ""},
    {"mnuStopAISDataLog", "Stop AIS Lo&g", "", "", ""},
    {"mnuAISReplay", "Re&play Log", "", "", ""},
    {"mnuAISReplayPause", "Pa&use Replay", "", "", ""},
    {"mnuAISReplayHalt", "&Halt Replay", "", "", ""},
};

}  // namespace

std::span<const Command> TrackCommands() { return kCommands; }

}  // namespace skerrow
