#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "core/clock.h"
#include "core/result.h"
#include "exchange/kml.h"

// The export of stored routes, waypoint files and logs, and of the calculated course, to a KML
// viewer.
namespace skerrow {

enum class KmlKind { kRoute, kWaypoints, kTrack };

inline constexpr std::string_view kKmlFailure = "An Error has occured - Nothing saved ";
inline constexpr std::string_view kCogKmlFailure = "An error occurred, nothing written";
inline constexpr std::string_view kReadableQuestion =
    "Write these names so that every viewer can read them?";

// The files of the user's that can be exported.
std::vector<std::string> KmlFiles(const Folders& folders, KmlKind kind);

// What a file holds, a row each: name, latitude and longitude, of a route the speed too; of a log
// time, date and position of its good fixes with the comments between them. Errors: missing,
// unreadable.
Result<std::vector<std::string>> KmlRows(const Folders& folders, KmlKind kind,
                                         const std::string& file);

// What the boxes offer for a file: its name up to the first ".", and "Created : " with the date.
KmlHead KmlOffer(std::string_view file, const ClockReading& now);

// "COG 05 Dec 2026".
std::string CogKmlOffer(const ClockReading& now);

// Whether names of the document would keep many viewers from reading it as it stands.
Result<bool> KmlNeedsEscape(const Program& program, KmlKind kind, const std::string& file,
                            const KmlHead& head);
bool CogKmlNeedsEscape(const Program& program, const KmlHead& head);

// Writes the document of a file, or of the calculated course, into the user's folder for them.
Status SaveKml(const Program& program, KmlKind kind, const std::string& file, const KmlHead& head);
Status SaveCogKml(const Program& program, const KmlHead& head);

// "File saved to NAME.kml" and the folder; "NAME.kml written to" and the folder.
std::string KmlSavedText(const Folders& folders, std::string_view name);
std::string CogKmlSavedText(const Folders& folders, std::string_view name);

}  // namespace skerrow
