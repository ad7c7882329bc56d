#include "ui/exchange/frmGoogleExport.h"
#include "ui/exchange/frmGpxExport.h"
#include "ui/exchange/frmTextExport.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/imports.h"

namespace skerrow {
namespace {

template <KmlKind kKind>
void Export(Context& c) {
  frmGoogleExport(c.desktop, kKind, &c.window).exec();
}

template <frmTextExport::Source kSource>
void ExportText(Context& c) {
  frmTextExport(c.desktop, kSource, &c.window).exec();
}

constexpr Command kCommands[] = {
    {"mnuFileRouteTextExport", "&Route as Text", "", "A stored route as a table for a spreadsheet",
     "", kNoNeed, ExportText<frmTextExport::Source::kRoute>},
    {"mnuFileWaypointTextExport", "Wa&ypoints as Text", "",
     "A waypoint file as a table for a spreadsheet", "", kNoNeed,
     ExportText<frmTextExport::Source::kWaypoints>},
    {"mnuFileCOGExport", "&Course Over Ground as Text", "",
     "The steps of the calculated course as a table for a spreadsheet", "", kNeedsTrack,
     ExportText<frmTextExport::Source::kCourse>},
    {"mnutxtRouteImport", "&Routes from Text", "", "A route from a table of a spreadsheet", "",
     kNoNeed, [](Context& c) { ImportText(c, FileKind::kRoute); }},
    {"mnutxtWayImport", "Wa&ypoints from Text", "", "Waypoints from a table of a spreadsheet", "",
     kNoNeed, [](Context& c) { ImportText(c, FileKind::kWaypoint); }},
    {"mnuGpxExport", "Routes, Waypoints and Tracks as &GPX", "",
     "For plotters, phones and other programs", "", kNoNeed,
     [](Context& c) { frmGpxExport(c.desktop, &c.window).exec(); }},
    {"mnuGpxImport", "Routes, Waypoints and Tracks from &GPX", "download",
     "From plotters, phones and other programs", "", kNoNeed, [](Context& c) { ImportGpx(c); }},
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
