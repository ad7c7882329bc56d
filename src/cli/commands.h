#pragma once

#include <string>
#include <variant>
#include <vector>

#include "cli/answer.h"
#include "cli/session.h"

// The commands of the command-line program. Each takes words of its own, as they were typed, and
// gives its answer or its failure. A word that cannot be understood is wrong usage, with exit
// status 2; a file that cannot be read or a route that cannot be calculated is a failure, with
// exit status 1. Dates are "2026-12-05", times "06:30" or "6.5"; empty ones take the clock's.
namespace skerrow::cli {

using Outcome = std::variant<Answer, Failure>;

// A failure of the work itself.
Failure Failed(const Error& error);
// Something typed that cannot be understood.
Failure WrongUsage(const Error& error);

// For commands that take no words.
struct NoWords {};

// Every setting with its place in the file, type and value.
Outcome ConfigShow(Session& session, const NoWords& words);

// Writes the default settings over the stored ones and shows them.
Outcome ConfigInit(Session& session, const NoWords& words);

struct SetWords {
  std::string field;  // published name of the setting
  std::string value;
};
// Changes one stored setting and shows all.
Outcome ConfigSet(Session& session, const SetWords& words);

struct PositionWords {
  std::string latitude;   // "50.30.25N" or signed degrees
  std::string longitude;  // "001.20.00W" or signed degrees
};
// A position in degrees and in both text forms.
Outcome ShowPosition(Session& session, const PositionWords& words);

struct RangeWords {
  std::vector<std::string> place;  // latitude, longitude, latitude, longitude
};
// Range and bearing from the first position to the second by plane sailing.
Outcome ShowRange(Session& session, const RangeWords& words);

struct MoveWords {
  std::vector<std::string> words;  // latitude, longitude, degrees true, nautical miles
};
// A position moved along a bearing.
Outcome ShowMove(Session& session, const MoveWords& words);

struct WaypointsWords {
  std::string file;  // a path, or a name in the waypoints folder; empty takes the current file
};
// The marks of a waypoint file. Asking for the current one makes the sample file when missing.
Outcome ListWaypoints(Session& session, const WaypointsWords& words);

struct RouteWords {
  std::string file;  // a path, or a name in the folders of routes and samples
};
// The points, legs and drawn track of a route file.
Outcome ShowRoute(Session& session, const RouteWords& words);

// The charts of the sea area.
Outcome ListCharts(Session& session, const NoWords& words);

struct ChartWords {
  std::string key;      // such as "9999-1"
  std::string convert;  // "LAT,LONG" to convert to column and row, or empty
};
// The calibration of a chart and what follows from it.
Outcome ShowChart(Session& session, const ChartWords& words);

// The charts at a position, the most detailed first.
Outcome FindCharts(Session& session, const PositionWords& words);

// The catalogue lines of the charts of the sea area.
Outcome ListChartBounds(Session& session, const NoWords& words);

struct CalibrateWords {
  std::string key;
  // Positions as ParsePosition takes them, rows and columns in image pixels; empty ones stay.
  std::string upper_lat, lower_lat, left_long, right_long;
  std::string top_row, bottom_row, left_column, right_column;
  std::string scale, width, height;
  std::vector<std::string> points;  // row, column, latitude, longitude of one or both corners
  bool restore = false;             // the calibration as delivered
};
// Changes the calibration of a chart in its file, which keeps the one delivered, and shows it.
Outcome CalibrateChart(Session& session, const CalibrateWords& words);

struct ChartImportWords {
  std::string file;
  std::string area;   // an area there is, or a new one
  std::string key;    // empty takes a free one
  std::string title;  // empty takes that of the file
  std::string scale;  // denominator; empty takes that of the file
};
// Brings a chart of another maker into the user's folder.
Outcome ImportChartFile(Session& session, const ChartImportWords& words);

struct ChartKeyWords {
  std::string key;
};
// Takes one of the user's own charts away.
Outcome RemoveChartFile(Session& session, const ChartKeyWords& words);

struct DayWords {
  std::string date;
};
// Phase and amplitude factor of the four groups of constituents at 0 h of a day.
Outcome ShowConstituents(Session& session, const DayWords& words);

struct TideWords {
  std::string port;  // record number, or the name or the only beginning of one
  std::string date;
  std::string file;     // constants file; empty takes that of the settings
  bool screen = false;  // what the tide screen tells of the day instead of the curve
  bool month = false;   // the month's table instead
};
// High and low waters and the curve of a port for a day, metres above chart datum; or what the tide
// screen tells of it, or the table of its month.
Outcome ShowTide(Session& session, const TideWords& words);

struct SunWords {
  PositionWords place;
  std::string date;
  std::string zone;    // hours of the place's time zone, -11 to 11, west positive; empty is 0
  bool month = false;  // the table of the month instead
};
// Sunrise, sunset and twilights of a place.
Outcome ShowSun(Session& session, const SunWords& words);

// The phases of the moon about a month.
Outcome ShowMoon(Session& session, const DayWords& words);

struct WhenWords {
  std::string date;
  std::string time;
};
// The state of the tide at each reference port; without a time, that of midnight.
Outcome ShowRefPorts(Session& session, const WhenWords& words);

struct StreamWords {
  PositionWords place;
  WhenWords when;
};
// The stream at a place and time, or the reason why none is known there.
Outcome ShowStream(Session& session, const StreamWords& words);

// The stream at every diamond of the sea area, as the chart shows it.
Outcome ShowStreams(Session& session, const WhenWords& words);

struct DiamondWords {
  std::string ref;  // "chart-diamond", as ShowStreams prints it
  WhenWords when;
  std::string report;     // "slack", "flood" or "above"; empty takes the first
  std::string threshold;  // knots, of "above"; empty takes the setting
  bool month = false;     // the whole month of the date
};
// A diamond's table and its report of a day or a month.
Outcome ShowDiamond(Session& session, const DiamondWords& words);

// The streams of the sea area's harmonic stations.
Outcome ShowHarmonic(Session& session, const WhenWords& words);

struct LegWords {
  std::vector<std::string> place;  // latitude, longitude, latitude, longitude
  std::string speed;               // through the water, knots, above 0.5
  WhenWords when;
};
// The course to steer for one leg, with its track, streams and drift.
Outcome SolveLeg(Session& session, const LegWords& words);

// The polar of a command: a set-up of the database, or a file of the shared text form.
struct PolarWords {
  std::string name;
  std::string closest;  // the smallest angle to the wind, degrees; empty takes the setting
};

// Sailing by a polar: the speeds and tacks of a route's legs come from it and the wind.
struct SailWords {
  PolarWords polar;        // no name: the speeds of the route
  std::string wind_from;   // degrees; empty takes the default wind
  std::string wind_speed;  // knots
  bool forecast = false;   // the imported wind instead
};

struct PlanWords {
  std::string file;  // as RouteWords; empty takes the sample route
  WhenWords when;
  std::string leeway;              // degrees, 0 to 90; empty takes the setting
  std::vector<std::string> tacks;  // "N=port", "N=starboard" or "N=none" for leg N
  SailWords sail;
};
// The passage plan of a route.
Outcome PlanRoute(Session& session, const PlanWords& words);

struct OptimumWords {
  std::string file;  // as PlanWords
  std::string date;
  std::string slot;  // 1 to 5: night, morning, afternoon, evening, the whole day
  SailWords sail;
  bool each = false;  // work out the speeds anew for each departure
};
// Passage time and distances for a departure at each hour of a slot.
Outcome FindDeparture(Session& session, const OptimumWords& words);

struct GribWords {
  std::string file;
  bool today = false;  // on import: move the forecast by whole days to begin today
};
// The messages of a forecast file.
Outcome ShowGrib(Session& session, const GribWords& words);
// Puts the wind of a forecast file in the place of the store's.
Outcome ImportGrib(Session& session, const GribWords& words);

// The imported wind at a place and time, or the reason why none is known there.
Outcome ShowWind(Session& session, const StreamWords& words);

struct WindListWords {
  WhenWords when;
  std::string box;  // "S,W,N,E", degrees; empty for everywhere
};
// The imported winds that serve a time.
Outcome ListWind(Session& session, const WindListWords& words);

// All records of the imported wind.
Outcome ShowWindStore(Session& session, const NoWords& words);

struct RelativeWords {
  std::string from, course;  // degrees true
};
// The angle between a wind and a course, and its side.
Outcome ShowRelativeWind(Session& session, const RelativeWords& words);

struct ConvertWords {
  std::string speed, angle;  // of the wind given: knots, degrees from the bow
  std::string boat;          // the boat's speed, knots
  bool to_true = false;      // from an apparent wind
};
// The apparent wind of a true one, or the other way round.
Outcome ConvertWind(Session& session, const ConvertWords& words);

// The set-ups of the polar database.
Outcome ListPolars(Session& session, const NoWords& words);
// The table of a set-up.
Outcome ShowPolar(Session& session, const PolarWords& words);
// The shared text form of a set-up.
Outcome ExportPolar(Session& session, const PolarWords& words);

struct PolarImportWords {
  std::string file;
  std::string name;  // of the new set-up; with a database, of the one to take
};
// Adds a set-up from a file of the shared text form, or the set-ups of an .mdb database.
Outcome ImportPolar(Session& session, const PolarImportWords& words);

struct PolarSpeedWords {
  PolarWords polar;
  std::string wind;          // knots
  std::string angle;         // to the bow, degrees; or
  std::string from, course;  // the wind's direction and the course, degrees
};
// The boat's speed in a wind.
Outcome ShowPolarSpeed(Session& session, const PolarSpeedWords& words);

struct DriftWords {
  PositionWords place;
  WhenWords when;
  std::string duration;         // hours
  std::string heading;          // degrees true; empty with the speed for what drifts freely
  std::string speed;            // through the water, knots
  std::vector<std::string> to;  // latitude, longitude; empty for none
};
// Where an object goes with the stream, holding its heading.
Outcome PredictDrift(Session& session, const DriftWords& words);

struct ExportStreamsWords {
  std::string date;
  std::string days;
};
// Writes the components of the streams of all diamonds, hour by hour, to the user's folder.
Outcome ExportStreamFiles(Session& session, const ExportStreamsWords& words);

struct DecodeWords {
  std::string file;      // a path, a name in the tracks folder, or "-" for standard input
  std::string port;      // "gps" or "ais"; empty takes the text as a replayed log
  std::string blocks;    // bytes of a block as a port gives them; "json" for an array of blocks
  bool logging = false;  // queue sentences for the log
  bool gps_through_ais = false;
  std::string system_date;  // DDMMYY, of sentences without one; empty takes the clock's
};
// What the text of an instrument tells: each sentence that changed the fix, and what came of all.
Outcome DecodeText(Session& session, const DecodeWords& words);

struct LogWords {
  std::string file;  // a path, or a name in the tracks folder
};
// The fixes of a log as a track.
Outcome ShowTrack(Session& session, const LogWords& words);
// The comments of a log.
Outcome ShowComments(Session& session, const LogWords& words);

struct CommentWords {
  PositionWords place;
  std::string date;  // "2026-12-05", or as a GPS tells it
  std::string time;  // "06:30", or as a GPS tells it
  std::vector<std::string> lines;
};
// The sentences of a comment as a log has them.
Outcome ShowComment(Session& session, const CommentWords& words);

// Writes a cleaned copy of the diamonds of the sea area beside its file.
Outcome ExportDiamonds(Session& session, const NoWords& words);

struct TargetsWords {
  std::string file;               // a log, or "-" for standard input
  std::string at;                 // the clock at the first line: "12:00" or "12:00:30"
  std::string tick;               // seconds from one line to the next
  std::vector<std::string> boat;  // latitude, longitude, speed, course
  bool standard = false;          // decode by the standard
  bool events = false;            // the file is a JSON array of ["HH:MM:SS", sentence]
  bool gps_enabled = false;       // of events: the GPS is on
};
// The AIS targets after a whole log.
Outcome ListTargets(Session& session, const TargetsWords& words);

struct CpaWords {
  std::vector<std::string> words;  // latitude, longitude, speed, course, twice
};
// The closest approach of the second vessel to the first.
Outcome ShowCpa(Session& session, const CpaWords& words);

struct PlotWords {
  std::string file;  // a path, or a name in the tracks folder
};
// The records of a plot file.
Outcome ShowPlot(Session& session, const PlotWords& words);

struct UploadWords {
  std::string file;      // a waypoint or route file, as WaypointsWords and RouteWords
  std::string type;      // of the GPS, 1 to 7
  std::string identity;  // "names" or "numbers"
  std::string route;     // number or name of a route; empty takes that of its file
  std::string device;    // where it is sent to, as ListenWords::source; empty only shows it
};
// What is sent to a GPS, in order; with a device it is sent.
Outcome ShowUpload(Session& session, const UploadWords& words);

// The serial ports and network sources by their numbers.
Outcome ListPorts(Session& session, const NoWords& words);

struct ListenWords {
  std::string source;   // number, path of a device, "TCP host:port" or "UDP port"
  std::string baud;     // of a serial device
  std::string seconds;  // how long
};
// What a port receives.
Outcome Listen(Session& session, const ListenWords& words);

struct KmlWords {
  std::string file;  // a path, or a name in the user's folder of its kind
  std::string name;  // of the document; empty takes the file's
  std::string description;
  bool escape = false;  // write names so that every viewer can read them
};
// A stored route, a waypoint file or a log as a document for a KML viewer.
Outcome ExportRouteDocument(Session& session, const KmlWords& words);
Outcome ExportWaypointDocument(Session& session, const KmlWords& words);
Outcome ExportTrackDocument(Session& session, const KmlWords& words);

struct KmlPlanWords {
  PlanWords plan;
  KmlWords kml;
};
// The calculated course of a route beside its legs.
Outcome ExportPlanDocument(Session& session, const KmlPlanWords& words);

struct GpxExportWords {
  std::vector<std::string> routes;     // route files
  std::vector<std::string> waypoints;  // waypoint files
  std::vector<std::string> tracks;     // logs
  std::string output;                  // file to write; empty prints the document
};
// Stored routes, waypoints and the tracks of logs as a GPX document.
Outcome ExportGpx(Session& session, const GpxExportWords& words);

struct GpxImportWords {
  std::string file;
  std::string name;   // of the file to be made; empty takes the document's name
  std::string route;  // number from 1
  bool waypoints = false;
  std::string track;  // number from 1
};
// What a GPX document holds, or one thing of it as a file of the user's.
Outcome ImportGpx(Session& session, const GpxImportWords& words);

}  // namespace skerrow::cli
