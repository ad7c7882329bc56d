#include "ui/forms/report_look.h"

#include <filesystem>

#include "core/numbers.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr int kLegLines = 6;
constexpr int kLegColumns = 2;
constexpr int kPortColumns = 4;
const PrintFont kPlainFont = {"", 9.0, false};
const PrintFont kBoldFont = {"", 9.0, true};
const PrintFont kHeadingFont = {"", 11.0, true};
const PrintFont kTitleFont = {"", 14.0, true};
const std::vector<double> kTabsMm = {30, 62, 94, 122, 152};
const PrintFont kLegFont = {"", 8.0, false};  // two legs abreast fit a page of A4
const PrintFont kLegHeadFont = {"", 8.0, true};
const std::vector<double> kLegTabsMm = {13, 28};
const std::vector<double> kHeightTabsMm = {12, 26};

// "05:10<tab>6.6", as the events of a port stand in a report.
bool IsHeight(std::string_view line) {
  return line.size() > 6 && line[2] == ':' && line.rfind('\t') == 5 && line[0] >= '0' &&
         line[0] <= '9';
}

double HeightIn(std::string_view line) { return TextToNumber(line.substr(6)); }

// High and low water take turns, so that any neighbour tells which of the two an event is.
ReportLook HeightLook(const std::vector<std::string>& lines, std::size_t at) {
  for (const std::size_t other : {at + 1, at - 1}) {
    if (other >= lines.size() || !IsHeight(lines[other])) continue;
    const double difference = HeightIn(lines[at]) - HeightIn(lines[other]);
    if (difference > 0.0) return ReportLook::kHighWater;
    if (difference < 0.0) return ReportLook::kLowWater;
  }
  return ReportLook::kHeight;
}

PrintItem PageLine(const std::string& line, ReportLine look, bool in_leg) {
  switch (look.look) {
    case ReportLook::kHeading:
      return PrintLine(line, kHeadingFont, kTabsMm);
    case ReportLook::kWarning:
    case ReportLook::kPort:
      return PrintLine(line, kBoldFont, kTabsMm);
    case ReportLook::kLeg:
      return PrintLine(std::to_string(look.leg) + "  " + line, kLegHeadFont, kLegTabsMm);
    case ReportLook::kHighWater:
      return PrintLine("HW\t" + line + " m", kPlainFont, kHeightTabsMm);
    case ReportLook::kLowWater:
      return PrintLine("LW\t" + line + " m", kPlainFont, kHeightTabsMm);
    case ReportLook::kHeight:
      return PrintLine("\t" + line + " m", kPlainFont, kHeightTabsMm);
    case ReportLook::kPlain:
    case ReportLook::kNotice:
      break;
  }
  return in_leg ? PrintLine(line, kLegFont, kLegTabsMm) : PrintLine(line, kPlainFont, kTabsMm);
}

}  // namespace

std::vector<ReportLine> LooksOf(const std::vector<std::string>& lines) {
  std::vector<ReportLine> looks(lines.size());
  int leg = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string_view line = lines[i];
    ReportLine& look = looks[i];
    if (line.starts_with("RESULTS ARE FROM")) {
      look.look = ReportLook::kNotice;
    } else if (line.starts_with("* WARNING *")) {
      look.look = ReportLook::kWarning;
    } else if (line.starts_with("Steer ")) {
      look = {ReportLook::kLeg, ++leg};
    } else if (line.starts_with("Port Name ")) {
      look.look = ReportLook::kPort;
    } else if (IsHeight(line)) {
      look.look = HeightLook(lines, i);
    } else if (line.starts_with("Route calculation for ") ||
               line.starts_with("Optimum Departure for ") ||
               line.starts_with("Course Over Ground Calculation for ") ||
               line.starts_with("Drift Prediction for ") || line.starts_with("Route Details") ||
               line.starts_with("Reference Port predictions") || line.starts_with("Depart\t") ||
               line.starts_with("Time\tPredicted")) {
      look.look = ReportLook::kHeading;
    }
  }
  return looks;
}

std::string RouteTitle(const Program& program) {
  if (!program.edits.route_path.empty()) {
    return std::filesystem::path(program.edits.route_path).stem().string();
  }
  const std::vector<RoutePoint>& points = program.route.points;
  if (points.size() < 2) return "";
  const auto name = [](const RoutePoint& point) {
    return point.name.empty() ? LatToText(point.latitude) + " " + LongToText(point.longitude)
                              : point.name;
  };
  return name(points.front()) + " to " + name(points.back());
}

PrintDocument ReportPage(const std::string& heading, const std::string& route,
                         const std::vector<std::string>& lines, const Picture& picture) {
  PrintDocument page;
  page.title = route.empty() ? heading : heading + " - " + route;
  page.foot = route;
  page.items.push_back(PrintLine(heading, kTitleFont));
  if (!route.empty()) page.items.push_back(PrintLine(route, kHeadingFont));
  page.items.push_back(PrintLine(" ", kPlainFont));
  if (!picture.empty()) {
    page.items.push_back(PrintPicture(picture));
    page.items.push_back(PrintLine(" ", kPlainFont));
  }
  const std::vector<ReportLine> looks = LooksOf(lines);
  std::vector<std::vector<PrintItem>> blocks;
  ReportLook kind = ReportLook::kPlain;  // of the blocks at hand
  const auto close = [&] {
    const int columns = kind == ReportLook::kLeg ? kLegColumns : kPortColumns;
    if (!blocks.empty()) page.items.push_back(PrintBlocks(std::move(blocks), columns));
    blocks.clear();
  };
  for (std::size_t i = 0; i < lines.size();) {
    const ReportLook look = looks[i].look;
    if (look != ReportLook::kLeg && look != ReportLook::kPort) {
      // The blank lines between ports are the room between their blocks.
      if (blocks.empty() || !Trim(lines[i]).empty()) {
        close();
        page.items.push_back(PageLine(lines[i], looks[i], false));
      }
      ++i;
      continue;
    }
    if (look != kind) close();
    kind = look;
    std::vector<PrintItem> block;
    const std::size_t first = i;
    const auto belongs = [&] {
      if (i >= lines.size() || Trim(lines[i]).empty()) return false;
      if (look == ReportLook::kLeg) return i - first < kLegLines;
      return i == first || looks[i].look != ReportLook::kPort;
    };
    for (; belongs(); ++i) {
      block.push_back(PageLine(lines[i], looks[i], look == ReportLook::kLeg));
    }
    blocks.push_back(std::move(block));
  }
  close();
  return page;
}

}  // namespace skerrow
