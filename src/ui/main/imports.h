#pragma once

#include <string>

#include "routes/record_files.h"
#include "ui/main/context.h"

// What comes from other programs, and how it gets onto the chart.
namespace skerrow {

// Reads a GPX document and lets the user choose what of it to take; without a path the document is
// asked for first.
void ImportGpx(Context& c, const std::string& path = {});

// A route or waypoints from a table of text.
void ImportText(Context& c, FileKind kind);

// Makes the waypoint file at `path` the current one, after the question about waypoints that have
// been moved.
void OpenWaypoints(Context& c, const std::string& path);

}  // namespace skerrow
