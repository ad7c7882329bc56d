#include "ui/exchange/frmGoogleExport.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"

namespace skerrow {
namespace {

template <KmlKind kKind>
void Export(Context& c) {
  frmGoogleExport(c.desktop, kKind, &c.window).exec();
}

constexpr Command kCommands[] = {
    {"mnuRouteExportGoogle", "Route as &KML", "", "A stored route for a KML viewer", "", kNoNeed,
     Export<KmlKind::kRoute>},
    {"mnuWayPtsToGoogle", "Waypoints as KML", "", "A waypoint file for a KML viewer", "", kNoNeed,
     Export<KmlKind::kWaypoints>},
    {"mnuCOGToGoogle", "Course Over Ground as KML", "", "The calculated course for a KML viewer",
     "", kNeedsTrack, [](Context& c) { ExportCourse(c.desktop, &c.window); }},
    {"mnuGoogleTrackExport", "Track as KML", "", "A log's track for a KML viewer", "", kNoNeed,
     Export<KmlKind::kTrack>},
};

}  // namespace

std::span<const Command> ExchangeCommands() { return kCommands; }

}  // namespace skerrow
