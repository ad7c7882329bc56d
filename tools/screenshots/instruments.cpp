#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTreeView>

#include "album.h"
#include "app/reception.h"
#include "core/files.h"
#include "instruments/plot_file.h"
#include "routes/record_files.h"
#include "ui/exchange/frmGoogleExport.h"
#include "ui/exchange/frmGpxExport.h"
#include "ui/exchange/frmGpxImport.h"
#include "ui/exchange/frmTextExport.h"
#include "ui/exchange/frmTxtFileImport.h"
#include "ui/forms/text_form.h"
#include "ui/instruments/frmAISGPSConfig.h"
#include "ui/instruments/frmAISLog.h"
#include "ui/instruments/frmAISSummary.h"
#include "ui/instruments/frmAisDetails.h"
#include "ui/instruments/frmCommsInfo.h"
#include "ui/instruments/frmGPSComment.h"
#include "ui/instruments/frmGPSLog.h"
#include "ui/instruments/frmNMEAReplay.h"
#include "ui/instruments/frmNewTrackName.h"
#include "ui/instruments/frmRouteFileUpload.h"
#include "ui/instruments/frmSingwayup.h"
#include "ui/instruments/frmTrackDelete.h"
#include "ui/instruments/frmTrackSelect.h"
#include "ui/instruments/frmWayFileUpload.h"
#include "ui/instruments/frmgpsdetail.h"
#include "ui/instruments/frmhisttrack.h"
#include "ui/instruments/frmmanualpos.h"

namespace screenshots {
namespace {

using namespace skerrow;  // NOLINT: this file is a part of a program

constexpr const char* kLog = "Channel crossing.nmea";
constexpr int kLines = 2400;  // of it, until the ships are around

void Select(QDialog& dialog, const char* name, int row) {
  if (auto* list = dialog.findChild<QListWidget*>(name); list != nullptr && list->count() > row) {
    list->setCurrentRow(row);
  }
}

// The boat among the ships of the sample log, as if they were received now.
void Sail(Studio& studio) {
  Program& program = studio.program;
  (void)ReplaceFile(LogPath(program.folders.Tracks(), "Channel crossing"),
                    ReadFile(program.folders.Samples() + "/" + kLog).value());
  (void)StartReplay({ReplayKind::kAis, kLog, 5}, program.folders.Tracks(), program.replay,
                    program.plot, program.nmea);
  AisReceiver receiver(program);
  for (int i = 0; i < kLines; ++i) {
    (void)ReplayTick(program.replay, program.plot, program.nmea, receiver, *program.clock);
  }
  program.replay = {};
  program.link.gps_enabled = program.link.ais_enabled = true;
  program.nmea.fix.position_good = true;
  program.config.range_rings_on = kTrue;
  ComputeCpa(*BoatMotion(program), program.ais.targets);
  ShowDetailsInAlarm(program.ais.targets, true, program.config.cpa_alarm_range);
  MakeComment(program.nmea.log, program.nmea.fix, {"Reefed", "Wind SW 6, sea rising"});
}

void KeepLinks(const Album& album, Studio& studio) {
  Desktop desktop = studio.desktop();
  (void)desktop.ports.AddSource("UDP 10110");
  (void)desktop.ports.AddSource("TCP 192.168.4.1:2000");
  frmAISGPSConfig config(desktop, nullptr);
  album.Keep(config, "frmAISGPSConfig");
  frmGPSLog gps(desktop, nullptr);
  album.Keep(gps, "frmGPSLog");
  frmAISLog ais(desktop, nullptr);
  album.Keep(ais, "frmAISLog");
  frmCommsInfo comms(desktop, nullptr);
  album.Keep(comms, "frmCommsInfo");
  frmgpsdetail detail(desktop, nullptr);
  album.Keep(detail, "frmgpsdetail");
}

void KeepTracks(const Album& album, Studio& studio) {
  Desktop desktop = studio.desktop();
  const std::string plot = studio.program.folders.Tracks() + "/Solent.trk";
  (void)AppendPlotRecord(plot, {50.75F, -1.5F, "09:30", "14 Jun 2026", "Hurst"});
  (void)AppendPlotRecord(plot, {50.70F, -1.6F, "10:15", "14 Jun 2026", "Needles, tide turned"});
  frmNMEAReplay replay(desktop, ReplayKind::kAis, nullptr);
  Select(replay, "fillist", 0);
  album.Keep(replay, "frmNMEAReplay");
  frmGPSComment comment(desktop, nullptr);
  album.Keep(comment, "frmGPSComment");
  frmTrackSelect select(desktop, nullptr);
  Select(select, "fillist", 0);
  album.Keep(select, "frmTrackSelect");
  PlotTable table;
  (void)table.Open(plot);
  frmhisttrack history(desktop, table, nullptr);
  album.Keep(history, "frmhisttrack");
  frmNewTrackName name(desktop, nullptr);
  album.Keep(name, "frmNewTrackName");
  studio.program.plot.plot_file_name = "Solent.trk";
  frmmanualpos manual(desktop, nullptr);
  album.Keep(manual, "frmmanualpos");
  frmTrackDelete remove(desktop, nullptr);
  album.Keep(remove, "frmTrackDelete");
  frmWayFileUpload waypoints(desktop, nullptr);
  Select(waypoints, "fillist", 0);
  album.Keep(waypoints, "frmWayFileUpload");
  frmRouteFileUpload route(desktop, nullptr);
  Select(route, "fillist", 0);
  album.Keep(route, "frmRouteFileUpload");
  frmSingwayup single(desktop, {"Anvil Point", {50.58F, -1.96F}}, nullptr);
  album.Keep(single, "frmSingwayup");
}

// A document as a plotter writes it.
std::unique_ptr<frmGpxImport> ImportOfATrip(Desktop& desktop) {
  GpxContents contents{"Plotter.gpx", {}, {}};
  GpxDocument& document = contents.document;
  const GpxPoint point{{50.5F, -1.5F}, "Needles", "", std::nullopt, std::nullopt, ""};
  document.routes = {{"Cowes to Poole", std::vector<GpxPoint>(12, point), 0},
                     {"Round Britain", std::vector<GpxPoint>(240, point), 0},
                     {"Damaged", std::vector<GpxPoint>(3, point), 1}};
  document.waypoints.assign(46, point);
  document.waypoints.front().name = "A name that is longer than the field of a file";
  document.tracks = {{"Day one", std::vector<GpxPoint>(90000, point), 0}};
  contents.items = GpxItemsOf(document, contents.path);
  return std::make_unique<frmGpxImport>(desktop, std::move(contents), nullptr, nullptr);
}

void KeepExchange(const Album& album, Studio& studio) {
  Desktop desktop = studio.desktop();
  const std::pair<KmlKind, const char*> kinds[] = {{KmlKind::kRoute, "frmGoogleRouteExport"},
                                                   {KmlKind::kWaypoints, "frmGoogleWayExport"},
                                                   {KmlKind::kTrack, "frmGoogleTrackExport"}};
  for (const auto& [kind, name] : kinds) {
    frmGoogleExport form(desktop, kind, nullptr);
    Select(form, "fillist", 0);
    album.Keep(form, name);
  }
  frmGpxExport out(desktop, nullptr);
  Select(out, "lstRoutes", 0);
  Select(out, "lstWaypoints", 0);
  album.Keep(out, "frmGpxExport");
  album.Keep(*ImportOfATrip(desktop), "frmGpxImport");
  using Source = frmTextExport::Source;
  for (const auto& [source, name] : {std::pair(Source::kRoute, "frmTextRouteExport"),
                                     std::pair(Source::kWaypoints, "frmTextWayExport")}) {
    frmTextExport form(desktop, source, nullptr);
    Select(form, "fillist", 0);
    album.Keep(form, name);
  }
  const Folders& folders = studio.program.folders;
  const std::string tables = JoinPath(folders.documents, "Tables");
  const std::string route = ListFiles(folders.Routes(), FileKind::kRoute).front();
  (void)MakeFolder(tables);
  (void)ReplaceFile(JoinPath(tables, "Trip.csv"), *TableOfFile(folders, FileKind::kRoute, route));
  studio.program.config.text_folder = tables;
  frmTxtFileImport in(desktop, FileKind::kRoute, nullptr, nullptr);
  Select(in, "fillist", 0);
  album.Keep(in, "frmTxtRouteImport");
}

}  // namespace

void KeepInstruments(const Album& album, Studio& studio) {
  studio.program.route.points.clear();
  studio.program.passage.route_track.clear();
  Sail(studio);
  studio.window().Changed(kAllChanged);
  studio.window().context().chart.ZoomTo(1.0);
  studio.window().context().chart.LocatePoint(studio.program.nmea.fix.At());
  studio.Settle({1280, 720});
  album.Keep(studio.window(), "frmChart-targets");
  Desktop desktop = studio.desktop();
  const auto nowhere = [](Position) {};
  frmAISSummary summary(desktop, nowhere, nullptr);
  auto* vessels = summary.findChild<QTreeView*>();
  vessels->setCurrentIndex(vessels->model()->index(5, 0));
  album.Keep(summary, "frmAISSummary");
  frmAisDetails details(desktop, nowhere, nullptr);
  details.SetTarget(studio.program.ais.targets.All().front().mmsi);
  album.Keep(details, "frmAisDetails");
  KeepLinks(album, studio);
  KeepTracks(album, studio);
  KeepExchange(album, studio);
  studio.program.link = {};
  studio.program.nmea = {};
  studio.program.plot = {};
}

}  // namespace screenshots
