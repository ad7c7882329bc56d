#include "platform/gpx_reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

#include <pugixml.hpp>

#include "core/files.h"
#include "core/iso_time.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr int kDeepestExtension = 8;
constexpr float kKnotsPerMetreASecond = 1.943844F;  // 3600 / 1852

// The name of an element or attribute without the prefix of its namespace.
std::string_view LocalName(std::string_view name) { return name.substr(name.rfind(':') + 1); }

std::optional<float> NumberOf(std::string_view text) {
  const std::string trimmed = Trim(text);
  float value = 0.0F;
  const char* begin = trimmed.data() + (trimmed.starts_with('+') ? 1 : 0);
  const char* end = trimmed.data() + trimmed.size();
  const auto read = std::from_chars(begin, end, value);
  if (read.ec != std::errc() || read.ptr != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<Position> PlaceOf(const pugi::xml_node& node) {
  const std::optional<float> latitude = NumberOf(node.attribute("lat").value());
  const std::optional<float> longitude = NumberOf(node.attribute("lon").value());
  if (!latitude || !longitude || std::abs(*latitude) > 90.0F) return std::nullopt;
  // Programs of countries near the date line write 180 to 360 as well.
  const float east = *longitude > 180.0F && *longitude <= 360.0F ? *longitude - 360.0F : *longitude;
  if (std::abs(east) > 180.0F) return std::nullopt;
  return Position{*latitude, east};
}

// Bytes that are no UTF-8 in a document that says nothing else are taken for the single-byte text
// that old programs write.
std::string TextOf(const pugi::xml_node& node) {
  const std::string text = Trim(node.text().get());
  return IsUtf8(text) ? text : FromAnsi(text);
}

void TakeExtensions(const pugi::xml_node& node, GpxPoint& point, int depth = 0) {
  if (depth > kDeepestExtension) return;
  for (const pugi::xml_node& child : node.children()) {
    const std::string_view name = child.name();
    if (name == "skerrow:speed") {
      point.speed = NumberOf(child.text().get());
    } else if (name == "skerrow:arrival") {
      point.arrival = TextOf(child);
    } else if (!point.speed && LocalName(name) == "speed") {
      // Metres a second, as the recorders of many makers have it.
      if (const auto speed = NumberOf(child.text().get())) {
        point.speed = *speed * kKnotsPerMetreASecond;
      }
    } else if (child.first_child().type() == pugi::node_element) {
      TakeExtensions(child, point, depth + 1);
    }
  }
}

void AddPoint(const pugi::xml_node& node, std::vector<GpxPoint>& points, std::size_t& left_out) {
  const std::optional<Position> place = PlaceOf(node);
  if (!place) {
    ++left_out;
    return;
  }
  GpxPoint point{*place, "", "", std::nullopt, std::nullopt, ""};
  for (const pugi::xml_node& child : node.children()) {
    const std::string_view name = LocalName(child.name());
    if (name == "name") {
      point.name = TextOf(child);
    } else if (name == "desc") {
      point.description = TextOf(child);
    } else if (name == "time") {
      point.time = ParseIsoTime(child.text().get());
    } else if (name == "extensions") {
      TakeExtensions(child, point);
    }
  }
  points.push_back(std::move(point));
}

// How far the reading is.
class Reading {
 public:
  Reading(Progress& progress, std::size_t size) : progress_(progress), size_(size) {}

  // Asked at each point; false when the reading is to stop.
  bool GoOn(const pugi::xml_node& node) {
    if (stopped_ || ++points_ % kPointsAStep != 0) return !stopped_;
    // In another encoding than UTF-8 the place in the text is not known.
    const auto at = static_cast<double>(std::max<std::ptrdiff_t>(node.offset_debug(), 0));
    stopped_ = !progress_.Step(kParsed + (100.0 - kParsed) * at / static_cast<double>(size_));
    return !stopped_;
  }
  // The elements stand; what is left are their points.
  bool Parsed() { return progress_.Step(kParsed); }
  bool stopped() const { return stopped_; }

 private:
  static constexpr std::size_t kPointsAStep = 1000;
  static constexpr double kParsed = 40.0;  // percent; the share of the time that parsing takes

  Progress& progress_;
  std::size_t size_;
  std::size_t points_ = 0;
  bool stopped_ = false;
};

GpxLine LineOf(const pugi::xml_node& node, Reading& reading) {
  GpxLine line;
  for (const pugi::xml_node& child : node.children()) {
    const std::string_view name = LocalName(child.name());
    if (name == "name") {
      line.name = TextOf(child);
    } else if (name == "rtept") {
      if (!reading.GoOn(child)) break;
      AddPoint(child, line.points, line.left_out);
    } else if (name == "trkseg") {
      for (const pugi::xml_node& point : child.children()) {
        if (LocalName(point.name()) != "trkpt") continue;
        if (!reading.GoOn(point)) break;
        AddPoint(point, line.points, line.left_out);
      }
    }
  }
  return line;
}

}  // namespace

Result<GpxDocument> ReadGpx(std::string_view text, Progress& progress) {
  pugi::xml_document xml;
  const pugi::xml_parse_result parsed = xml.load_buffer(text.data(), text.size());
  if (!parsed) return Error{"", std::string("this is no XML: ") + parsed.description()};
  const pugi::xml_node root = xml.document_element();
  if (LocalName(root.name()) != "gpx") return Error{"", "this is no GPX document"};
  Reading reading(progress, text.size());
  if (!reading.Parsed()) return Error{"", kGpxStopped};
  GpxDocument document;
  for (const pugi::xml_node& child : root.children()) {
    const std::string_view name = LocalName(child.name());
    if (name == "wpt") {
      if (!reading.GoOn(child)) break;
      AddPoint(child, document.waypoints, document.left_out);
    } else if (name == "rte") {
      document.routes.push_back(LineOf(child, reading));
    } else if (name == "trk") {
      document.tracks.push_back(LineOf(child, reading));
    }
  }
  if (reading.stopped()) return Error{"", kGpxStopped};
  return document;
}

Result<GpxDocument> ReadGpx(std::string_view text) {
  NoProgress progress;
  return ReadGpx(text, progress);
}

Result<GpxDocument> ReadGpxFile(const std::string& path, Progress& progress) {
  const Result<std::string> text = ReadFile(path, kMostGpxBytes);
  if (!text) return text.error();
  Result<GpxDocument> document = ReadGpx(*text, progress);
  if (!document) return Error{path, document.error().reason};
  return document;
}

Result<GpxDocument> ReadGpxFile(const std::string& path) {
  NoProgress progress;
  return ReadGpxFile(path, progress);
}

}  // namespace skerrow
