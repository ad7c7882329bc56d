#include "platform/gpx_reader.h"

#include <cctype>
#include <charconv>
#include <cmath>

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

void AddPoint(const pugi::xml_node& node, std::vector<GpxPoint>& points, GpxDocument& document) {
  const std::optional<Position> place = PlaceOf(node);
  if (!place) {
    ++document.left_out;
    return;
  }
  GpxPoint point{*place, "", "", std::nullopt, std::nullopt};
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

GpxLine LineOf(const pugi::xml_node& node, GpxDocument& document) {
  GpxLine line;
  for (const pugi::xml_node& child : node.children()) {
    const std::string_view name = LocalName(child.name());
    if (name == "name") {
      line.name = TextOf(child);
    } else if (name == "rtept") {
      AddPoint(child, line.points, document);
    } else if (name == "trkseg") {
      for (const pugi::xml_node& point : child.children()) {
        if (LocalName(point.name()) == "trkpt") AddPoint(point, line.points, document);
      }
    }
  }
  return line;
}

}  // namespace

Result<GpxDocument> ReadGpx(std::string_view text) {
  pugi::xml_document xml;
  const pugi::xml_parse_result parsed = xml.load_buffer(text.data(), text.size());
  if (!parsed) return Error{"", std::string("this is no XML: ") + parsed.description()};
  const pugi::xml_node root = xml.document_element();
  if (LocalName(root.name()) != "gpx") return Error{"", "this is no GPX document"};
  GpxDocument document;
  for (const pugi::xml_node& child : root.children()) {
    const std::string_view name = LocalName(child.name());
    if (name == "wpt") {
      AddPoint(child, document.waypoints, document);
    } else if (name == "rte") {
      document.routes.push_back(LineOf(child, document));
    } else if (name == "trk") {
      document.tracks.push_back(LineOf(child, document));
    }
  }
  return document;
}

Result<GpxDocument> ReadGpxFile(const std::string& path) {
  const Result<std::string> text = ReadFile(path, kMostGpxBytes);
  if (!text) return text.error();
  Result<GpxDocument> document = ReadGpx(*text);
  if (!document) return Error{path, document.error().reason};
  return document;
}

}  // namespace skerrow
