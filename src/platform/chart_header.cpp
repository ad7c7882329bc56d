#include "platform/chart_header.h"

#include <cmath>
#include <cstddef>
#include <string_view>

#include "core/numbers.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr std::size_t kLongestHeader = std::size_t{256} * 1024;
constexpr char kHeaderEnd = 0x1a;

// The lines of a header, those that go on in the next one joined.
std::string JoinedLines(std::string_view text) {
  std::string joined;
  joined.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r') continue;
    if (text[i] == '\n' && i + 1 < text.size() && text[i + 1] == ' ') {
      while (i + 1 < text.size() && text[i + 1] == ' ') ++i;
      if (!joined.empty() && joined.back() != ',') joined += ',';
      continue;
    }
    joined += text[i];
  }
  return joined;
}

// The rest of the line that begins with `mark`; empty when there is none.
std::string_view LineOf(std::string_view text, std::string_view mark) {
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = text.find('\n', at);
    if (end == std::string_view::npos) end = text.size();
    const std::string_view line = text.substr(at, end - at);
    if (line.starts_with(mark)) return line.substr(mark.size());
    at = end + 1;
  }
  return {};
}

// Where the field "XX=" of a line begins; a value goes on until the next such field, since names
// may hold commas.
bool FieldBegins(std::string_view line, std::size_t at) {
  const auto capital = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); };
  return at + 2 < line.size() && capital(line[at]) && capital(line[at + 1]) && line[at + 2] == '=';
}

std::string FieldOf(std::string_view line, std::string_view field) {
  for (std::size_t at = 0; at < line.size(); ++at) {
    const bool begins = at == 0 || line[at - 1] == ',';
    if (!begins || !FieldBegins(line, at) || line.substr(at, 2) != field) continue;
    std::size_t end = at + 3;
    while (end < line.size() && !(line[end] == ',' && FieldBegins(line, end + 1))) ++end;
    return Trim(FromAnsi(line.substr(at + 3, end - at - 3)));
  }
  return "";
}

double NumberOf(std::string_view text) {
  const double value = TextToNumber(Trim(text));
  return std::isfinite(value) ? value : 0.0;
}

}  // namespace

ChartHeader ReadChartHeader(const SystemFile& file) {
  ChartHeader header;
  const Result<std::string> start = file.ReadAt(0, kLongestHeader);
  if (!start) return header;
  const std::size_t end = start->find(kHeaderEnd);
  if (end == std::string::npos) return header;
  const std::string text = JoinedLines(std::string_view(*start).substr(0, end));
  std::string_view general = LineOf(text, "BSB/");
  if (general.empty()) general = LineOf(text, "NOS/");
  const std::string_view details = LineOf(text, "KNP/");
  if (general.empty() || details.empty()) return header;
  header.name = FieldOf(general, "NA");
  header.scale = NumberOf(FieldOf(details, "SC"));
  header.datum = FieldOf(details, "GD");
  const std::string_view shift = LineOf(text, "DTM/");
  if (const std::size_t comma = shift.find(','); comma != std::string_view::npos) {
    header.shift_north = NumberOf(shift.substr(0, comma));
    header.shift_east = NumberOf(shift.substr(comma + 1));
  }
  return header;
}

}  // namespace skerrow
