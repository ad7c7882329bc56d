#include "instruments/upload.h"

#include <algorithm>
#include <map>

#include "core/text.h"
#include "instruments/nmea_checksum.h"

namespace skerrow {
namespace {

constexpr std::size_t kNameLength = 6;
constexpr std::size_t kIdentitiesInList = 6;
constexpr std::size_t kListLength = 65;
constexpr std::size_t kSentenceLength = 82;  // with "$" and CR LF

// Printing characters that IEC 61162 does not keep for itself.
bool FitsSentence(char c) {
  return c >= ' ' && c <= '~' && std::string_view("$*,!\\^~").find(c) == std::string_view::npos;
}

std::string Cleaned(std::string_view text, std::string_view left_out) {
  std::string kept;
  for (const char c : text) {
    if (FitsSentence(c) && left_out.find(c) == std::string_view::npos) kept.push_back(c);
  }
  return kept;
}

std::string Sentence(const std::string& body) {
  return "$" + body + "*" + NmeaChecksum(body) + "\r\n";
}

std::string NumberText(std::size_t number) {
  const std::string digits = std::to_string(number);
  return digits.size() < 3 ? std::string(3 - digits.size(), '0') + digits : digits;
}

// "50.30.25N" as "5030.25,N".
std::string FieldOf(std::string text) {
  text.erase(text.find('.'), 1);
  text.insert(text.size() - 1, 1, ',');
  return text;
}

std::vector<std::string> IdentitiesOf(std::span<const UploadPoint> points,
                                      const UploadOptions& options) {
  std::vector<std::string> identities;
  for (std::size_t i = 0; i < points.size(); ++i) {
    identities.push_back(IdentityOf(points[i], i + 1, options));
  }
  return identities;
}

}  // namespace

std::string IdentityOf(const UploadPoint& point, std::size_t number, const UploadOptions& options) {
  if (options.identity == UploadIdentity::kNumbers) return NumberText(number);
  std::string name;
  if (options.gps_type == kGarmin || options.gps_type == kMagellan) {
    name = Cleaned(point.name, " '-_()").substr(0, kNameLength);
    for (char& c : name) {
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
  } else {
    name = Trim(Cleaned(point.name, ""));
  }
  return name.empty() ? NumberText(number) : name;
}

std::vector<std::string> SharedIdentities(std::span<const UploadPoint> points,
                                          const UploadOptions& options) {
  std::map<std::string, std::map<std::pair<float, float>, int>> places;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Position at = points[i].position;
    ++places[IdentityOf(points[i], i + 1, options)][{at.latitude, at.longitude}];
  }
  std::vector<std::string> shared;
  for (const auto& [identity, at] : places) {
    if (at.size() > 1) shared.push_back(identity);
  }
  return shared;
}

std::string UploadPositionFields(Position position) {
  return FieldOf(LatToText(position.latitude)) + "," + FieldOf(LongToText(position.longitude));
}

std::string WaypointSentence(const UploadPoint& point, std::size_t number,
                             const UploadOptions& options) {
  const std::string place = UploadPositionFields(point.position);
  const std::string identity = IdentityOf(point, number, options);
  return Sentence(options.gps_type == kMagellan ? "PMGNWPL," + place + ",W,0," + identity + ",,"
                                                : "GPWPL," + place + "," + identity);
}

std::vector<std::string> RouteSentences(std::span<const std::string> identities,
                                        std::string_view route) {
  const std::string name = Trim(Cleaned(route, ""));
  const std::size_t others = std::string_view("$GPRTE,99,99,c,,*00\r\n").size() + name.size();
  const std::size_t room =
      std::min(kListLength, kSentenceLength - std::min(others, kSentenceLength));
  std::vector<std::string> lists;
  std::size_t in_list = 0;
  for (const std::string& identity : identities) {
    if (lists.empty() || in_list == kIdentitiesInList ||
        lists.back().size() + 1 + identity.size() > room) {
      lists.emplace_back(identity);
      in_list = 1;
    } else {
      lists.back() += "," + identity;
      ++in_list;
    }
  }
  std::vector<std::string> sentences;
  for (const std::string& list : lists) {
    std::string body = "GPRTE," + std::to_string(lists.size()) + ",";
    body += std::to_string(sentences.size() + 1) + ",c,";
    body += name + ",";
    body += list;
    sentences.push_back(Sentence(body));
  }
  return sentences;
}

std::vector<UploadStep> UploadOpening(const UploadOptions& options) {
  if (options.gps_type != kMagellan) return {};
  return {{"\r$PMGNCMD,HANDON*70\n", kWaypointPause, 0}};
}

std::vector<UploadStep> UploadWaypoints(std::span<const UploadPoint> points,
                                        const UploadOptions& options) {
  std::vector<UploadStep> steps;
  for (std::size_t i = 0; i < points.size(); ++i) {
    steps.push_back({WaypointSentence(points[i], i + 1, options), kWaypointPause, i + 1});
  }
  return steps;
}

std::vector<UploadStep> UploadRoute(std::span<const UploadPoint> points, std::string_view route,
                                    const UploadOptions& options) {
  std::vector<UploadStep> steps = UploadWaypoints(points, options);
  for (std::string& sentence : RouteSentences(IdentitiesOf(points, options), route)) {
    steps.push_back({std::move(sentence), kRoutePause, 0});
  }
  return steps;
}

}  // namespace skerrow
