#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/position.h"

// Waypoints and routes as NMEA sentences for a GPS.
namespace skerrow {

// Types of GPS whose sentences differ; every other one gets the Garmin form of a sentence and the
// names as they are.
inline constexpr int kGarmin = 2;
inline constexpr int kMagellan = 3;

enum class UploadIdentity { kNames, kNumbers };

struct UploadOptions {
  int gps_type = 1;  // 1 to 7
  UploadIdentity identity = UploadIdentity::kNames;
};

struct UploadPoint {
  std::string name;
  Position position;
};

// A text that goes out as a whole, and the wait before the next.
struct UploadStep {
  std::string text;
  int pause_ms = 0;
  std::size_t record = 0;  // the point it sends, from 1; 0 for none
};

// Between two waypoints: a GPS of 4800 baud takes a sentence in 100 ms and has to store it.
inline constexpr int kWaypointPause = 250;
// Between two sentences of a route.
inline constexpr int kRoutePause = 500;

inline constexpr std::string_view kNothingToTransfer = "Nothing to transfer";
inline constexpr std::string_view kWaypointsTransferred = " Waypoint transfer complete ";
inline constexpr std::string_view kRouteTransferred = " Transfer complete ";

// What the GPS calls point `number` (from 1). A name loses the characters that a sentence cannot
// hold; where nothing is left of it, the number stands for it.
std::string IdentityOf(const UploadPoint& point, std::size_t number, const UploadOptions& options);

// Identities that several of the points share: of these a GPS keeps the last only. In order.
std::vector<std::string> SharedIdentities(std::span<const UploadPoint> points,
                                          const UploadOptions& options);

// "5030.25,N,00105.40,W".
std::string UploadPositionFields(Position position);

// The sentence of one point, with CR and LF.
std::string WaypointSentence(const UploadPoint& point, std::size_t number,
                             const UploadOptions& options);

// The sentences of a route that leads over points of these identities, with CR and LF. A list
// closes with its sixth identity, or where the next would take it past 65 characters or the
// sentence past the 82 that IEC 61162 allows; a longer identity stands alone.
std::vector<std::string> RouteSentences(std::span<const std::string> identities,
                                        std::string_view route);

// What a dialog sends when it opens: the hand-shake of a Magellan, or nothing.
std::vector<UploadStep> UploadOpening(const UploadOptions& options);

// All that is sent for a file of waypoints, without the opening.
std::vector<UploadStep> UploadWaypoints(std::span<const UploadPoint> points,
                                        const UploadOptions& options);

// The same for a route by its number or name: its points as waypoints, then the route.
std::vector<UploadStep> UploadRoute(std::span<const UploadPoint> points, std::string_view route,
                                    const UploadOptions& options);

}  // namespace skerrow
