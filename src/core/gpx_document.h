#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/position.h"

// What a document of GPX tells: exchange/ writes and uses it, platform/ reads it.
namespace skerrow {

struct GpxPoint {
  Position position;
  std::string name;
  std::string description;
  std::optional<double> time;  // seconds since 1970, UTC
  std::optional<float> speed;  // knots
  std::string arrival;         // of a planned route: "2026-12-05T08:10", the program's own time

  friend bool operator==(const GpxPoint&, const GpxPoint&) = default;
};

struct GpxLine {
  std::string name;
  std::vector<GpxPoint> points;
  std::size_t left_out = 0;  // its points without a place on the globe; when read

  friend bool operator==(const GpxLine&, const GpxLine&) = default;
};

struct GpxDocument {
  std::vector<GpxPoint> waypoints;
  std::vector<GpxLine> routes;
  std::vector<GpxLine> tracks;  // the segments of a track one after the other
  std::size_t left_out = 0;     // waypoints without a place on the globe; when read

  friend bool operator==(const GpxDocument&, const GpxDocument&) = default;
};

}  // namespace skerrow
