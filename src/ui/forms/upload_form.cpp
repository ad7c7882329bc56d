#include "ui/forms/upload_form.h"

#include <utility>

#include "core/position.h"
#include "routes/route.h"
#include "routes/waypoint.h"

namespace skerrow {
namespace {

template <typename Record>
std::vector<UploadPoint> PointsOf(const std::vector<Record>& records) {
  std::vector<UploadPoint> points;
  points.reserve(records.size());
  for (const Record& record : records) {
    points.push_back({record.name, {record.latitude, record.longitude}});
  }
  return points;
}

}  // namespace

Result<std::vector<UploadPoint>> ReadUploadPoints(const Folders& folders, FileKind kind,
                                                  const std::string& file_name) {
  if (kind == FileKind::kWaypoint) {
    const auto waypoints = ReadWaypointFile(WaypointPath(folders, file_name));
    if (!waypoints) return waypoints.error();
    return PointsOf(*waypoints);
  }
  const auto records = ReadRouteFile(RoutePath(folders, file_name));
  if (!records) return records.error();
  return PointsOf(*records);
}

std::vector<std::string> UploadRows(std::span<const UploadPoint> points,
                                    const UploadOptions& options) {
  std::vector<std::string> rows;
  rows.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    const UploadPoint& point = points[i];
    rows.push_back(IdentityOf(point, i + 1, options) + "\t" + point.name + "\t" +
                   LatToText(point.position.latitude) + "\t" +
                   LongToText(point.position.longitude));
  }
  return rows;
}

std::string SharedIdentityText(std::span<const UploadPoint> points, const UploadOptions& options) {
  constexpr std::size_t kMostNamed = 4;
  const std::vector<std::string> shared = SharedIdentities(points, options);
  if (shared.empty()) return "";
  std::string text;
  for (std::size_t i = 0; i < shared.size() && i < kMostNamed; ++i) {
    text += (i > 0 ? ", " : "") + shared[i];
  }
  if (shared.size() > kMostNamed) text += " and others";
  return text +
         ": several places have this identity, and the GPS keeps the last. Numbers tell them "
         "apart.";
}

std::string UploadRouteName(const std::string& file_name) {
  return file_name.substr(0, file_name.rfind('.'));
}

void UploadRun::Start(std::vector<UploadStep> steps) {
  steps_ = std::move(steps);
  next_ = 0;
  record_ = 0;
  pause_ = 0;
  running_ = true;
}

UploadRun::Step UploadRun::Next(SerialPorts& ports, int port) {
  if (!running_ || next_ >= steps_.size()) {
    running_ = false;
    return Step::kDone;
  }
  const UploadStep& step = steps_[next_];
  if (ports.Put(port, step.text) < 0) {
    running_ = false;
    return Step::kRefused;
  }
  record_ = step.record;
  pause_ = step.pause_ms;
  ++next_;
  return Step::kSent;
}

double UploadRun::Percent() const {
  return steps_.empty() ? 0.0
                        : 100.0 * static_cast<double>(next_) / static_cast<double>(steps_.size());
}

}  // namespace skerrow
