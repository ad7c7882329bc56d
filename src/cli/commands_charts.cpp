#include <nlohmann/json.hpp>

#include "app/program.h"
#include "charts/chart_files.h"
#include "charts/chart_library.h"
#include "charts/chart_view.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/position.h"
#include "core/text.h"
#include "platform/chart_import.h"

namespace skerrow::cli {
namespace {

Json EntryJson(const ChartIndexEntry& entry) {
  return {{"chartKey", entry.chart_key},
          {"chartTitle", entry.title},
          {"scale", Number(entry.scale)},
          {"lowerLat", Number(entry.lower_lat)},
          {"lowerLon", Number(entry.lower_lon)},
          {"upperLat", Number(entry.upper_lat)},
          {"upperLon", Number(entry.upper_lon)},
          {"flag1", entry.flag1},
          {"flag2", entry.flag2}};
}

Answer EntriesAnswer(const std::vector<ChartIndexEntry>& entries) {
  Answer answer;
  answer.json() = Json::array();
  TextTable table({"Chart", ">Scale 1:", "South", "West", "North", "East", "Title"});
  for (const ChartIndexEntry& entry : entries) {
    answer.json().push_back(EntryJson(entry));
    table.Add({entry.chart_key, FormatFixed(entry.scale, 1, 0), LatToText(entry.lower_lat),
               LongToText(entry.lower_lon), LatToText(entry.upper_lat), LongToText(entry.upper_lon),
               entry.title});
  }
  answer.text = entries.empty() ? "no charts\n" : table.Text();
  return answer;
}

std::optional<Failure> LoadIndex(Session& session) {
  Program& program = session.program;
  const Status loaded =
      LoadChartIndex(program.folders, program.config, program.charts, session.messages);
  if (!loaded) return Failed(loaded.error());
  return std::nullopt;
}

Json ChartJson(const ChartRecord& chart) {
  return {{"upperLat", Number(chart.file.upper_lat)},
          {"topPix", Number(chart.file.top_pix)},
          {"lowerLat", Number(chart.file.lower_lat)},
          {"bottomPix", Number(chart.file.bottom_pix)},
          {"lowerLon", Number(chart.file.lower_lon)},
          {"leftPix", Number(chart.file.left_pix)},
          {"upperLon", Number(chart.file.upper_lon)},
          {"rightPix", Number(chart.file.right_pix)},
          {"width", Number(chart.file.width)},
          {"height", Number(chart.file.height)},
          {"topLat", Number(chart.top_lat)},
          {"topRow", Number(chart.top_row)},
          {"bottomLat", Number(chart.bottom_lat)},
          {"bottomRow", Number(chart.bottom_row)},
          {"westLon", Number(chart.west_lon)},
          {"westCol", Number(chart.west_col)},
          {"eastLon", Number(chart.east_lon)},
          {"eastCol", Number(chart.east_col)},
          {"topMerc", Number(chart.top_merc)},
          {"bottomMerc", Number(chart.bottom_merc)},
          {"mercSpan", Number(chart.merc_span)},
          {"rowSpan", Number(chart.row_span)},
          {"scale", Number(chart.scale)},
          {"spare1", Number(chart.spare1)},
          {"issue", Number(chart.issue)},
          {"spare2", Number(chart.spare2)},
          {"latPerRow", Number(chart.lat_per_row)},
          {"lonPerCol", Number(chart.lon_per_col)}};
}

}  // namespace

Outcome ListCharts(Session& session, const NoWords&) {
  if (auto failure = LoadIndex(session)) return *failure;
  return EntriesAnswer(session.program.charts.index);
}

Outcome ShowChart(Session& session, const ChartWords& words) {
  Program& program = session.program;
  const Status opened = OpenChart(program.folders, ChartPathOf(program.folders, words.key),
                                  program.config, program.charts);
  if (!opened) return Failed(opened.error());
  const ChartRecord& chart = program.charts.chart;
  Answer answer;
  answer.json() = ChartJson(chart);
  for (const auto& [name, value] : answer.json().items()) {
    answer.text +=
        name + std::string(12 - std::min<std::size_t>(name.size(), 11), ' ') + value.dump() + "\n";
  }
  if (const std::string& convert = words.convert; !convert.empty()) {
    const std::size_t comma = convert.find(',');
    if (comma == std::string::npos) {
      return WrongUsage({"", "--convert takes LAT,LONG, not \"" + convert + "\""});
    }
    const Result<Position> place =
        ParsePosition(convert.substr(0, comma), convert.substr(comma + 1));
    if (!place) return WrongUsage(place.error());
    const ChartView view = MakeChartView(chart, static_cast<std::int32_t>(chart.file.width),
                                         static_cast<std::int32_t>(chart.file.height));
    const std::int32_t column = view.LongToCol(place->longitude);
    const std::int32_t row = view.LatToRow(place->latitude);
    answer.json()["column"] = column;
    answer.json()["row"] = row;
    answer.text += LatToText(place->latitude) + "  " + LongToText(place->longitude) +
                   " lies at column " + std::to_string(column) + ", row " + std::to_string(row) +
                   "\n";
  }
  return answer;
}

Outcome FindCharts(Session& session, const PositionWords& words) {
  const Result<Position> place = ParsePosition(words.latitude, words.longitude);
  if (!place) return WrongUsage(place.error());
  if (auto failure = LoadIndex(session)) return *failure;
  ChartsAtPoint(*place, session.program.charts);
  return EntriesAnswer(session.program.charts.at_point);
}

Outcome ImportChartFile(Session& session, const ChartImportWords& words) {
  const Folders& folders = session.program.folders;
  const Result<std::unique_ptr<ChartSource>> source = OpenChartSource(words.file);
  if (!source) return Failed(source.error());
  const ChartSourceInfo& info = (*source)->info();
  ImportRequest request{words.area, words.key, words.title, info.scale};
  if (request.key.empty()) request.key = FreeChartKey(folders);
  if (request.title.empty()) request.title = info.title;
  if (!words.scale.empty()) {
    const Result<float> scale = ParseNumber(words.scale, "scale");
    if (!scale) return WrongUsage(scale.error());
    request.scale = *scale;
  } else if (!info.placed) {
    return WrongUsage({"", words.file + " does not tell its scale; give it with --scale"});
  }
  const Result<std::string> chart = ImportChart(folders, **source, request, session.progress);
  if (!chart) return Failed(chart.error());
  Answer answer;
  answer.json() = {{"chart", *chart},
                   {"chartKey", request.key},
                   {"chartTitle", request.title},
                   {"area", request.area},
                   {"kind", info.kind},
                   {"placed", info.placed},
                   {"scale", Number(request.scale)},
                   {"width", info.sheet.width},
                   {"height", info.sheet.height},
                   {"notes", info.notes}};
  answer.text = request.key + "  " + request.title + ", 1 : " + FormatFixed(request.scale, 1, 0) +
                ", " + std::to_string(info.sheet.width) + " x " +
                std::to_string(info.sheet.height) + " pixels\n";
  if (info.placed) {
    for (const auto& [name, value] :
         {std::pair("lowerLat", info.sheet.bottom_lat), std::pair("lowerLon", info.sheet.west_lon),
          std::pair("upperLat", info.sheet.top_lat), std::pair("upperLon", info.sheet.east_lon)}) {
      answer.json()[name] = Number(value);
    }
    answer.text += LatToText(info.sheet.bottom_lat) + " " + LongToText(info.sheet.west_lon) +
                   " to " + LatToText(info.sheet.top_lat) + " " + LongToText(info.sheet.east_lon) +
                   "\n";
  }
  for (const std::string& note : info.notes) answer.text += note + "\n";
  answer.text += "written to " + *chart + ".l55\n";
  return answer;
}

Outcome RemoveChartFile(Session& session, const ChartKeyWords& words) {
  const Program& program = session.program;
  if (IsChartOnShow(program.folders, program.config, words.key)) {
    return Failed({"", "the chart " + words.key +
                           " is the one the desktop shows; open another one there first"});
  }
  const Status removed = RemoveChart(program.folders, words.key);
  if (!removed) return Failed(removed.error());
  Answer answer;
  answer.json() = {{"removed", words.key}};
  answer.text = "removed the chart " + words.key + "\n";
  return answer;
}

}  // namespace skerrow::cli
