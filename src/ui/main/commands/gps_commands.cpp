#include "ui/instruments/frmAISGPSConfig.h"
#include "ui/instruments/frmAISLog.h"
#include "ui/instruments/frmCommsInfo.h"
#include "ui/instruments/frmGPSLog.h"
#include "ui/instruments/frmgpsdetail.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/instrument_controller.h"
#include "ui/main/look_controller.h"

namespace skerrow {
namespace {

void EnableGps(Context& c) {
  if (frmGPSLog(c.desktop, &c.window).exec() == QDialog::Accepted) c.instruments.ConnectGps();
}

void EnableAis(Context& c) {
  if (frmAISLog(c.desktop, &c.window).exec() == QDialog::Accepted) {
    c.instruments.ConnectAis();
  } else {
    c.messages.Show(kAisCancelled, MessageIcon::kInformation);
  }
}

void DisableAis(Context& c) {
  if (c.messages.Ask("Disable AIS link?", kProgramTitle)) c.instruments.DisconnectAis();
}

constexpr Command kCommands[] = {
    {"mnuGPSattach", "GPS &Enable", "gps", "Connect the GPS", "", kNeedsGpsOff, EnableGps},
    {"mnuPosGpsDisconnect", "GPS &Disable", "", "Close the GPS port", "", kNeedsGpsOn,
     [](Context& c) { c.instruments.DisconnectGps(); }},
    {"mnuGPSCentre", "GPS &Find Position on Chart", "boatsnap", "Keep the boat on the chart", "G",
     kNeedsBoat, [](Context& c) { c.look.Toggle(&AppConfig::gps_centre); },
     [](const Context& c) { return c.program.config.gps_centre != 0; }},
    {"mnugpsdisplay", "GPS &Monitor", "", "What the GPS tells, and its text", "", kNeedsGpsOn,
     [](Context& c) { ShowBeside<frmgpsdetail>(c.desktop, c.window); }},
    {"mnuAISEnable", "AIS &Enable", "ais", "Connect the AIS receiver", "", kNeedsAisOff, EnableAis},
    {"mnuAISDisable", "AIS &Disable", "", "Close the AIS port", "", kNeedsAisOn, DisableAis},
    {"mnuGPSAISConfig", "Instruments (GPS && AIS)", "configgps",
     "Ports, range rings, vessels and network sources", "", kNoNeed,
     [](Context& c) { frmAISGPSConfig(c.desktop, &c.window).exec(); }},
    {"mnuCommsMonitor", "Comms Ports Diagnostics", "", "What a port sends, at any speed", "",
     kNoNeed, [](Context& c) { ShowBeside<frmCommsInfo>(c.desktop, c.window); }},
};

}  // namespace

std::span<const Command> GpsCommands() { return kCommands; }

}  // namespace skerrow
