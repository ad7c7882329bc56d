#include "fuzz/readers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "charts/chart_files.h"
#include "charts/chart_view.h"
#include "core/config.h"
#include "core/text.h"
#include "exchange/text_table.h"
#include "instruments/ais_decoder.h"
#include "instruments/ais_targets.h"
#include "instruments/nmea_checksum.h"
#include "instruments/plot_file.h"
#include "instruments/replay.h"
#include "instruments/serial_link.h"
#include "routes/route_editing.h"
#include "routes/route_rows.h"
#include "support/still_clock.h"
#include "support/temp_folder.h"
#include "tides/streams.h"
#include "wind/grib.h"
#include "wind/polar.h"
#include "wind/wind_config.h"
#include "wind/wind_store.h"

namespace skerrow {
namespace {

// Shows nothing and answers Yes.
class Silent final : public Messages {
 public:
  void Show(std::string_view, MessageIcon, std::string_view) override {}
  bool Ask(std::string_view, std::string_view) override { return true; }
};

void Require(bool holds) {
  if (!holds) std::abort();
}

// In memory where the system offers it: every input is a file.
std::filesystem::path FastFolder() {
  std::error_code error;
  if (std::filesystem::is_directory("/dev/shm", error)) return "/dev/shm";
  return std::filesystem::temp_directory_path();
}

struct Place {
  Place() : folders{folder.path(), folder.path(), folder.path()} {
    MakeUserFolders(folders);
    (void)MakeFolder(folders.Charts());
    (void)MakeFolder(folders.TidalStreams());
    (void)MakeFolder(folders.HarmonicStreams());
  }
  testing::TempFolder folder{FastFolder()};
  Folders folders;
  Silent messages;
};

void Waypoints(Place& place, const std::string& bytes) {
  AppConfig config;
  config.waypoint_file = "f.way";
  place.folder.Write("SkerrowHelm/Waypoints/f.way", bytes);
  WaypointState state;
  if (!LoadCurrentWaypoints(place.folders, config, state, place.messages)) return;
  Require(state.waypoints.size() <= bytes.size() / 43 + 1);
  NearestWaypoint(state.waypoints, {50, -1});
  for (const Waypoint& waypoint : state.waypoints) {
    PickListText(RowOf(waypoint));
    WaypointOf(RowOf(waypoint));
  }
  Require(SaveWaypointsAs(place.folders, "g.way", state).ok());
  const auto saved = ReadWaypointFile(WaypointPath(place.folders, "g.way"));
  Require(saved.ok() && *saved == state.waypoints);
  Require(AppendWaypoint(place.folders, config, {"new", 50, -1}).ok());
  const auto again = ReadWaypointFile(WaypointPath(place.folders, "f.way"));
  Require(again.ok() && again->back().name == "new");
}

void Route(Place& place, const std::string& bytes) {
  const std::string path = place.folder.Write("f.rte", bytes);
  RouteState state;
  RouteDefaults defaults;
  defaults.constant_wind = false;
  defaults.departure_day = {365, 2026};
  defaults.wind_at = [](Position, DayAndYear day, float hours) -> std::optional<Wind> {
    Require(day.day >= 1 && day.day <= 366 && hours >= 0.0F && hours <= 24.0F);
    return Wind{5, 5};
  };
  if (!LoadRoute(path, RouteSpeeds::kStored, defaults, state, place.messages)) return;
  for (const RoutePoint& point : state.points) {
    Require(std::fabs(point.latitude) <= 90 && std::fabs(point.longitude) <= 180);
    Require(point.speed >= 0 && std::isfinite(point.speed));
  }
  Require(std::isfinite(state.distance));
  RouteRows(state);
  InsertRoutePoint(state, {50, -1}, defaults, place.messages);
  DeleteRoutePoint(state, {50, -1}, defaults, place.messages);
  ReverseRoute(state, defaults, place.messages);
  (void)SaveRoute(place.folder.File("g.rte"), state, 5.0F);
}

void Chart(Place& place, const std::string& bytes) {
  place.folder.Write("Charts/f.cht", bytes);
  AppConfig config;
  config.chart_path = ChartPathOf(place.folders, "f");
  ChartState state;
  if (!ReadChartSettings(place.folders, config, state)) return;
  const ChartView view = MakeChartView(state.chart, 1000, 800);
  Require(std::isfinite(view.pixels_per_degree) && view.pixels_per_degree != 0.0);
  view.LatToRow(view.RowToLat(400));
  ChartIssueText(state.chart.issue);
}

void Index(Place& place, const std::string& bytes) {
  place.folder.Write("Charts/f.xrf", bytes);
  AppConfig config;
  config.sea_area = "f";
  ChartState state;
  if (!LoadChartIndex(place.folders, config, state, place.messages)) return;
  Require(state.index.size() <= bytes.size() / 102);
  ChartsAtPoint({50, -1}, state);
  LargerScaleChart({0, 0}, state);
  SortChartsByScale(state.index);
}

void Config(Place& place, const std::string& bytes) {
  place.folder.Write("SkerrowHelm/HelmConfigv60.cfg", bytes);
  AppConfig config;
  Require(ReadConfig(place.folders, config).ok());
  Require(SaveConfig(place.folders, config).ok());
  const std::string saved = testing::FileBytes(place.folders.ConfigFile());
  Require(saved.size() == kAppConfigSize);
  for (const RecordField<AppConfig>& field : kAppConfigFields) {
    if (field.offset + field.size > bytes.size()) break;
    std::string stored = bytes.substr(field.offset, field.size);
    if (field.type == FieldType::kText) stored.resize(std::min(stored.find('\0'), stored.size()));
    stored.resize(field.size, ' ');
    Require(saved.substr(field.offset, field.size) == stored);
  }
}

void WindSettings(Place& place, const std::string& bytes) {
  place.folder.Write("SkerrowHelm/WindConfig.cfg", bytes);
  const Wind wind = LoadWindConfig(place.folders).Default();
  Require(!std::isnan(wind.speed_kn) && !std::isnan(wind.from_deg));
}

// A port as the curve and the streams use it: the heights of a damaged one must never get there.
void CheckPort(const Port& port) {
  Require(DamagedField(port, kPortFields) == nullptr);
  Require(port.name.find('\0') == std::string::npos);
  TimeZoneLetter(TimeZoneHours(port.time_zone));
  PredictHeights(port, 100, 4, 2026, true);
}

void AreaPorts(Place& place, const std::string& bytes) {
  place.folder.Write("TS/f.hc", bytes);
  const auto file = ReadAreaPorts(place.folders, "f.hc");
  if (!file) return;
  Require(file->records.size() == bytes.size() / kPortSize);
  const std::vector<Port> ports = file->Sound();
  Require(LoadPortMarkers(place.folders, "f.hc", place.messages).size() == ports.size());
  Require(ports.size() + file->left_out.damaged == file->records.size());
  if (!ports.empty()) CheckPort(ports.front());
  Require(!ReadAreaPort(place.folders, "f.hc", static_cast<int>(file->records.size()) + 1).ok());
}

// The reference ports behind a diamond each, from the file to a stream.
void RefPorts(Place& place, const std::string& bytes) {
  place.folder.Write("RefPorts.hc", bytes);
  TideState state;
  state.ref_ports = {0, 1, 2, 3};
  BuildRefPortHeights(state, place.folders, {100, 2026}, false, place.messages);
  RefreshTideState(state, true, 6.5F, {});
  for (const RefPortState& port : state.ref_port_states) {
    Require(port.dep_slot >= -7 && port.dep_slot <= 6 && port.mins_left >= 0);
    Require(port.tides.size() <= kMaxWaters);
  }
}

void Diamonds(Place& place, const std::string& bytes) {
  place.folder.Write("TS/f.l25", bytes);
  TideState state;
  FindRefPorts(state, place.folders, "f");
  LoadDiamonds(state, place.folders, "f", place.messages);
  LoadSlDiamonds(state, place.folders, "f.l25", place.messages);
  Require(state.diamonds.size() <= state.sl_diamonds.size());
  Require(state.sl_diamonds.size() <= bytes.size() / kDiamondSize);
  std::error_code error;
  std::filesystem::copy_file(SKERROW_SOURCE_DIR "/program/RefPorts.hc",
                             place.folder.File("RefPorts.hc"),
                             std::filesystem::copy_options::overwrite_existing, error);
  BuildRefPortHeights(state, place.folders, {100, 2026}, false, place.messages);
  RefreshTideState(state, true, 6.5F, {});
  CalculateTidalStreamTable(state, place.messages);
  StreamReader reader(state);
  for (const Diamond& diamond : state.diamonds) {
    Require(diamond.latitude > 35.0F && diamond.latitude < 75.0F);
    StreamReading reading;
    reader.CalculateTidalStreams({diamond.latitude, diamond.longitude}, 6.5F, {100, 2026}, reading);
    StreamLabel(state, reading);
    if (reading.no_tide >= 0) NoTideText(state, {reading.no_tide});
  }
  SaveTidalDiamonds(state, place.folders, "f", place.messages);
}

void Grib(Place& place, const std::string& bytes) {
  NoProgress progress;
  const GribFile file = DecodeGrib(bytes, place.messages, progress);
  std::size_t points = 0;
  for (const GribRecord& record : file.records) {
    Require(record.values.empty() || record.values.size() == record.grid.Points());
    points += record.values.size();
  }
  Require(points <= MostGribPoints(bytes.size()));
  const WindStore store(MakeWindCells(file.records, place.messages));
  store.Find({50, -1}, {100, 2026}, 6.5F);
}

void WindFile(Place& place, const std::string& bytes) {
  place.folder.Write("SkerrowHelm/~wind.dat", bytes);
  const auto cells = ReadWindStore(place.folders);
  Require(cells.ok() && cells->size() == bytes.size() / kWindCellSize);
  const WindStore store(*cells);
  for (const float hours : {0.0F, 23.9F}) {
    const auto found = store.Find({50, -1}, {1, 2000}, hours);
    Require(!found || (found->record < cells->size() && found->speed < kNoWind));
    store.Serving({1, 2000}, hours);
  }
}

void PolarText(Place&, const std::string& bytes) {
  const Result<PolarImport> import = PolarFromText(bytes);
  if (!import) return;
  Require(import->rows.size() == kPolarAngles);
  const PolarTable table(import->rows);
  for (const double angle : {0.0, 44.0, 180.0}) {
    const auto speed = table.Estimate(11.0, angle, 30.0);
    Require(speed && std::isfinite(*speed) && *speed >= 0 && *speed <= 200);
  }
  Require(PolarFromText(PolarToText(import->rows)).ok());
}

void HarmonicStations(Place& place, const std::string& bytes) {
  place.folder.Write("HarmTS/f.l27", bytes);
  TideState state;
  LoadHarmonicStations(state, HarmonicStationPath(place.folders, "f"), 6.5F, {100, 2026},
                       place.messages);
  Require(state.harmonic_stations.size() <= bytes.size() / kHarmonicStationSize);
  Require(state.harmonic_streams.size() == state.harmonic_stations.size());
  for (const HarmonicStream& stream : state.harmonic_streams) {
    Require(stream.name.size() <= 3 * 12 && stream.name.find('\0') == std::string::npos);
  }
}

// A log with every kind of line, in which three bytes each of `bytes` change one at a place.
std::string ChangedLog(const std::string& bytes) {
  std::string log =
      "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n"
      "!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C\r\n"
      "$PSKLOG,6,1,5030.250,N,00120.250,W,051226,063020*23\r\n$PSKLOG,6,2,one, two*00\r\n"
      "$GPRMB,A,0.66,L,003,004,4917.24,N,12309.57,W,001.3,052.5,000.5,V*20\r\n"
      "$GPRMC,123549.5,A,4807.0385,S,01131.00055,W,,,230394,003.1,W*00\r\n"
      "$GPGLL,4916.45,N,12311.12,W,225444,A,*1D\r\n";
  for (std::size_t i = 0; i + 2 < bytes.size(); i += 3) {
    const auto place = static_cast<unsigned char>(bytes[i]) + 256U * (bytes[i + 1] & 1U);
    log[place % log.size()] = bytes[i + 2];
  }
  return log;
}

// `text` with the checksum of each line made good.
std::string Mended(std::string text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
    const std::size_t star = text.find('*', at);
    if (star > at && star < end && star + 2 < end) {
      text.replace(star + 1, 2, NmeaChecksum(text.substr(at + 1, star - at - 1)));
    }
    at = end + 1;
  }
  return text;
}

// Ports that hand out a text in blocks whose sizes vary.
class TextPorts final : public SerialPorts {
 public:
  explicit TextPorts(const std::string& text) : waiting_{text, text} {}
  int Reset(int, std::size_t, std::size_t) override { return 0; }
  int SetBaud(int, int) override { return 0; }
  int SetParameters(int) override { return 0; }
  int SetLine(int, OutLine, bool) override { return 0; }
  int ReadLine(int, InLine) override { return 0; }
  int ReadOutLine(int, OutLine) override { return 0; }
  int Get(int port, std::string& received, std::size_t most) override {
    std::string& waiting = waiting_[port & 1];
    size_ = size_ % 37 + 1;
    received = waiting.substr(0, std::min(most, size_));
    waiting.erase(0, received.size());
    return static_cast<int>(received.size());
  }
  int Put(int, std::string_view) override { return 0; }
  int ClearReceived(int) override { return 0; }
  int ClearSending(int) override { return 0; }
  void Done(int) override {}
  std::string LastErrorText() const override { return ""; }
  bool Empty() const { return waiting_[0].empty() && waiting_[1].empty(); }

 private:
  std::string waiting_[2];
  std::size_t size_ = 0;
};

class CheckingAis final : public AisSentenceSink {
 public:
  bool Take(std::string_view sentence) override {
    Require(sentence.size() >= kShortestAisSentence);
    ++taken;
    return ChecksumGood(sentence);
  }
  std::size_t taken = 0;
};

void RequireOnGlobe(float latitude, float longitude) {
  Require(std::fabs(latitude) <= 90.0F && std::fabs(longitude) <= 180.0F);
}

void RequireSound(const NmeaState& state) {
  RequireOnGlobe(state.fix.boat_latitude, state.fix.boat_longitude);
  Require(std::isfinite(state.fix.speed_over_ground) &&
          std::isfinite(state.fix.course_over_ground));
  for (const GpsTrackPoint& point : state.track) RequireOnGlobe(point.latitude, point.longitude);
}

// Both ports, whole and in blocks: the end of a block changes nothing.
void Sentences(Place&, const std::string& bytes) {
  const testing::StillClock clock;
  AppConfig config;
  config.gps_port = 0;
  config.ais_port = 1;
  for (const std::string& text : {bytes, Mended(bytes), Mended(ChangedLog(bytes))}) {
    NmeaState whole;
    CheckingAis ais;
    whole.log.logging_on = true;
    AssembleGpsBlock(whole, text, clock);
    RequireSound(whole);
    const std::size_t end = text.rfind('\r');
    AssembleAisBlock(whole, std::string_view(text).substr(0, end + 1), {ais, clock, true});
    RequireSound(whole);

    NmeaState gps;
    NmeaState cut;
    CheckingAis cut_ais;
    gps.log.logging_on = true;
    TextPorts ports(text);
    LinkState link;
    Require(ConnectGps(link, config, ports, 0).ok() && ConnectAis(link, config, ports, 0).ok());
    for (int step = 0; !ports.Empty(); ++step) {
      ReceiveStep(link, link.phase == 0 ? gps : cut, config, ports, cut_ais, clock, step);
    }
    Require(cut_ais.taken == ais.taken);
    AssembleGpsBlock(gps, "", clock);
    NmeaState again;
    again.log.logging_on = true;
    AssembleGpsBlock(again, text, clock);
    Require(gps.fix == again.fix && gps.track == again.track && gps.gps_line == again.gps_line &&
            gps.log.queue == again.log.queue);
  }
}

// Readers and replay of logs, and a record added to one.
void Logs(Place& place, const std::string& bytes) {
  const testing::StillClock clock;
  NoProgress progress;
  for (const std::string& text : {bytes, Mended(ChangedLog(bytes))}) {
    const std::string path = place.folder.Write("f.nmea", text);
    NmeaState state;
    Require(LoadTrackFromLog(path, state.fix, state.track, progress).ok());
    RequireSound(state);
    Require(LoadCommentsFromLog(path, state.log.comments, progress).ok());
    for (const CommentRecord& comment : state.log.comments) {
      Require(std::isfinite(comment.latitude) && std::isfinite(comment.longitude));
      for (const std::string& line : comment.lines) Require(line.size() <= 3 * kCommentLength);
    }
    const std::size_t fixes = state.track.size();
    ReplayState replay;
    PlotState plot;
    CheckingAis ais;
    Require(StartReplay({ReplayKind::kAis, "f", 40, ReplayPace::kLogTime10}, place.folder.path(),
                        replay, plot, state)
                .ok());
    for (std::size_t ticks = 0; replay.running; ++ticks) {
      Require(ticks <= text.size() + 1 && ReplayWait(replay) >= 0);
      ReplayTick(replay, plot, state, ais, clock);
    }
    RequireSound(state);

    state.log.logging_on = true;
    state.log.log_file_name = "f";
    QueueSentence(state.log, "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,,*11");
    Require(WriteLogRecord(state.log, place.folder.path(), place.messages).ok());
    Require(testing::FileBytes(path).starts_with(text));
    GpsTrack track;
    Require(LoadTrackFromLog(path, state.fix, track, progress).ok() && track.size() == fixes + 1);
  }
}

// Each line as a sentence, with the checksum it ought to have, since a false one ends the way of
// nearly all inputs; told and standard in turn.
void Ais(Place&, const std::string& bytes) {
  AisAssembly assembly[2];
  AisTargets targets;
  std::size_t line = 0;
  for (std::size_t at = 0; at < bytes.size(); ++line) {
    const std::size_t end = std::min(bytes.find('\n', at), bytes.size());
    const std::string body = bytes.substr(at, end - at);
    at = end + 1;
    const std::string sentence = "!AIVDM" + body;
    const AisDecoderOptions options{line % 2 == 1};
    (void)DecodeAivdm(sentence, options, assembly[line % 2]);
    const AisMessage message =
        DecodeAivdm(sentence.substr(0, sentence.find('*')) + "*" +
                        NmeaChecksum(std::string_view(sentence).substr(1, sentence.find('*') - 1)),
                    options, assembly[line % 2]);
    const auto now = static_cast<float>(line * 7 % 240) / 10.0F;
    targets.Update(message, options, {}, now);
    if (message.position) {
      Require(options.standard || (message.position->position && message.position->speed));
      Require(!message.position->speed ||
              (*message.position->speed >= 0.0F && *message.position->speed <= 1023.0F));
    }
  }
  ComputeCpa({{50, -1}, 5, 45}, targets);
  for (const AisTarget& target : targets.All()) {
    Require(targets.Find(target.mmsi) == &target);
    Require(!std::isnan(target.cpa) && !std::isnan(target.tcpa));
    Require(target.vessel_name.size() <= 20 && target.destination.size() <= 20);
    AisDataLines(target, true, 12.5F);
  }
}

void Plot(Place& place, const std::string& bytes) {
  const std::string path = place.folder.Write("f.trk", bytes);
  const auto file = ReadPlotFile(path);
  Require(file.ok() && file->records.size() == bytes.size() / kPlotRecordSize);
  std::vector<std::string> rows;
  for (const PlotRecord& record : file->Sound()) {
    ManualPlotRow(record);
    rows.push_back(JoinPlotRow(SplitPlotRow(PlotRow(record))));
  }
  Require(AppendPlotRecord(path, {50, -1, "06:30", "5 Dec 2026", "x"}).ok());
  Require(ReadPlotFile(path)->Sound().back().comment == "x");
  if (SavePlotRows(path, rows).ok() && !rows.empty()) {
    Require(ReadPlotFile(path)->records.size() == rows.size());
  }
}

// What is read of a table can be, and is read again from the table that is made of it.
void Text(Place&, const std::string& bytes) {
  Taken taken;
  if (const auto marks = ReadWaypointTable(bytes, taken)) {
    for (const Waypoint& mark : *marks) {
      Require(std::fabs(mark.latitude) <= 90.0F && std::fabs(mark.longitude) <= 180.0F);
      Require(ToAnsi(mark.name).size() <= 35);
    }
    const auto again = ReadWaypointTable(TableFile(WaypointTable(*marks)), taken);
    Require(again.ok() && *again == *marks);
  }
  if (const auto route = ReadRouteTable(bytes, 5.0F, taken)) {
    for (const RouteRecord& record : *route) {
      Require(std::fabs(record.latitude) <= 90.0F && std::fabs(record.longitude) <= 180.0F);
      Require(record.speed >= 0.0F && std::isfinite(record.speed));
    }
    const auto again = ReadRouteTable(TableFile(RouteTable(*route)), 5.0F, taken);
    Require(again.ok() && *again == *route);
  }
}

using Feeder = void (*)(Place&, const std::string&);

// One folder serves all inputs of a reader.
template <Feeder kFeed>
void InItsPlace(const std::string& bytes) {
  static Place place;
  kFeed(place, bytes);
}

}  // namespace

const std::vector<FuzzReader>& FuzzReaders() {
  static const std::vector<FuzzReader> readers = {{"way", InItsPlace<Waypoints>, 35, 2, 0},
                                                  {"rte", InItsPlace<Route>, 35, 3, 0},
                                                  {"cht", InItsPlace<Chart>, 0, 14, 8},
                                                  {"xrf", InItsPlace<Index>, 80, 5, 2},
                                                  {"config", InItsPlace<Config>, 2432, 0, 524},
                                                  {"wind", InItsPlace<WindSettings>, 24, 0, 0},
                                                  {"hc", InItsPlace<AreaPorts>, 36, 40, 1},
                                                  {"refports", InItsPlace<RefPorts>, 40, 39, 1},
                                                  {"l25", InItsPlace<Diamonds>, 0, 49, 0},
                                                  {"l27", InItsPlace<HarmonicStations>, 12, 36, 0},
                                                  {"grib", InItsPlace<Grib>, 0, 0, 200},
                                                  {"store", InItsPlace<WindFile>, 0, 5, 0},
                                                  {"polar", InItsPlace<PolarText>, 40, 0, 0},
                                                  {"ais", InItsPlace<Ais>, 60, 0, 0},
                                                  {"plot", InItsPlace<Plot>, 56, 2, 0},
                                                  {"nmea", InItsPlace<Sentences>, 10, 0, 20},
                                                  {"log", InItsPlace<Logs>, 10, 0, 20},
                                                  {"text", InItsPlace<Text>, 40, 0, 0}};
  return readers;
}

}  // namespace skerrow
