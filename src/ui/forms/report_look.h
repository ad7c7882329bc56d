#pragma once

#include <string>
#include <vector>

#include "app/program.h"
#include "platform/printing.h"

// How the lines of a report stand out, on the screen and on paper. The words stay as they are.
namespace skerrow {

enum class ReportLook {
  kPlain,
  kNotice,   // that all is approximate
  kWarning,  // that a leg cannot be done
  kHeading,
  kLeg,        // the first of a leg's six lines
  kPort,       // the first line of a port
  kHighWater,  // time and height
  kLowWater,
  kHeight,  // one alone, of which nothing can be said
};

struct ReportLine {
  ReportLook look = ReportLook::kPlain;
  int leg = 0;  // of kLeg, from 1
};

// One for each line of a report.
std::vector<ReportLine> LooksOf(const std::vector<std::string>& lines);

// The name of the route for a page: that of its file, or its ends where it is in no file.
//   "Solent", "Lizard to Start Point"; empty without a route
std::string RouteTitle(const Program& program);

// A report as a page: `heading` and the route's name above, the legs and the ports in blocks that
// stay whole, side by side where they fit, heights in metres with high and low water told, and the
// name again at the foot beside the number of the page. A picture that is not empty stands above
// the lines.
PrintDocument ReportPage(const std::string& heading, const std::string& route,
                         const std::vector<std::string>& lines, const Picture& picture = {});

}  // namespace skerrow
