#include "ui/forms/chart_tool_forms.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>

#include "core/numbers.h"
#include "core/position.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr const char* kUpperLatitude = "Error - Upper Latitude entry";
constexpr const char* kLowerLatitude = "Error - Lower Latitude entry";
constexpr const char* kLongitudes = "Error - Longitudes entry";
constexpr const char* kScale = "Error - Scale entry";

// A position text in upper case, when it has degrees and minutes and is made of digits, points and
// at most one of `letters`, at its end. "50N" would be 50 minutes, which nobody means here.
std::optional<std::string> PositionText(std::string_view text, std::string_view letters,
                                        bool letter_needed) {
  std::string position = Trim(text);
  for (char& c : position) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  const bool letter = !position.empty() && letters.find(position.back()) != std::string_view::npos;
  const std::string_view digits(position.data(), position.size() - (letter ? 1 : 0));
  if (letter_needed && !letter) return std::nullopt;
  if (digits.empty() || digits.front() == '.' || digits.find('.') == std::string_view::npos ||
      digits.find_first_not_of("0123456789.") != std::string_view::npos) {
    return std::nullopt;
  }
  return position;
}

std::optional<float> NumberOf(std::string_view text) {
  std::string number = Trim(text);
  if (number.starts_with('+')) number.erase(0, 1);
  double value = 0.0;
  const char* end = number.data() + number.size();
  const auto [at, error] = std::from_chars(number.data(), end, value);
  if (error != std::errc() || at != end || !std::isfinite(static_cast<float>(value))) {
    return std::nullopt;
  }
  return static_cast<float>(value);
}

std::optional<float> Parse(ChartBox kind, std::string_view text) {
  switch (kind) {
    case ChartBox::kLatitude: {
      const std::optional<std::string> position = PositionText(text, "NS", false);
      if (!position) return std::nullopt;
      const float latitude = TextToLat(*position);
      return std::fabs(latitude) <= 90.0F ? std::optional(latitude) : std::nullopt;
    }
    case ChartBox::kLongitude: {
      const std::optional<std::string> position = PositionText(text, "EW", true);
      if (!position) return std::nullopt;
      const float longitude = TextToLong(*position);
      return std::fabs(longitude) <= 360.0F ? std::optional(longitude) : std::nullopt;
    }
    case ChartBox::kNumber:
      return NumberOf(text);
    case ChartBox::kPositive:
      break;
  }
  const std::optional<float> number = NumberOf(text);
  return number && *number > 0.0F ? number : std::nullopt;
}

// What is no number leaves its box empty, to be filled in.
std::string Show(ChartBox kind, float value) {
  if (!std::isfinite(value)) return "";
  switch (kind) {
    case ChartBox::kLatitude:
      return LatToText(value);
    case ChartBox::kLongitude:
      return LongToText(value);
    case ChartBox::kNumber:
    case ChartBox::kPositive:
      break;
  }
  return ShortText(value);
}

// The value of a box that `shown` was put into; a text that is left as it was keeps it whole.
std::optional<float> ReadBox(ChartBox kind, const std::string& text, std::optional<float> shown) {
  if (shown && std::isfinite(*shown) && text == Show(kind, *shown)) return shown;
  return Parse(kind, text);
}

}  // namespace

const std::array<CalibrationBox, kCalibrationBoxCount> kCalibrationBoxes = {{
    {"txtUpperLat", ChartBox::kLatitude, &ChartFileRecord::upper_lat, kUpperLatitude},
    {"txtTopPix", ChartBox::kNumber, &ChartFileRecord::top_pix, "Error - Upper Row entry"},
    {"txtLowerLat", ChartBox::kLatitude, &ChartFileRecord::lower_lat, kLowerLatitude},
    {"txtBottomPix", ChartBox::kNumber, &ChartFileRecord::bottom_pix, "Error - Lower Row entry"},
    {"txtLowerLon", ChartBox::kLongitude, &ChartFileRecord::lower_lon, kLongitudes},
    {"txtLeftPix", ChartBox::kNumber, &ChartFileRecord::left_pix, "Error - Left Column entry"},
    {"txtUpperLon", ChartBox::kLongitude, &ChartFileRecord::upper_lon, kLongitudes},
    {"txtRightPix", ChartBox::kNumber, &ChartFileRecord::right_pix, "Error - Right Column entry"},
    {"txtScale", ChartBox::kPositive, &ChartFileRecord::scale, kScale},
    {"txtWidth", ChartBox::kPositive, &ChartFileRecord::width, "Error - Width entry"},
    {"txtHeight", ChartBox::kPositive, &ChartFileRecord::height, "Error - Height entry"},
}};

CalibrationTexts TextsOf(const ChartFileRecord& chart) {
  CalibrationTexts texts;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    texts[i] = Show(kCalibrationBoxes[i].kind, chart.*kCalibrationBoxes[i].value);
  }
  return texts;
}

BoxesRead<ChartFileRecord> ReadCalibrationTexts(const CalibrationTexts& texts,
                                                const ChartFileRecord& shown) {
  ChartFileRecord chart = shown;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const CalibrationBox& box = kCalibrationBoxes[i];
    const std::optional<float> value = ReadBox(box.kind, texts[i], shown.*box.value);
    if (!value) return {std::nullopt, box.refusal, box.name};
    chart.*box.value = *value;
  }
  if (const Result<ChartRecord> worked_out = WorkOutChart(chart); !worked_out) {
    return {std::nullopt, NotCalibrated(worked_out.error()).Text(), nullptr};
  }
  return {chart, "", nullptr};
}

std::string ChartEdgesText(const ChartRecord& chart) {
  if (chart.lat_per_row < 0.0) return "By these lines north is at the foot of the chart";
  if (chart.lon_per_col < 0.0) return "By these lines east is at the left of the chart";
  return "The image reaches from " + LongToText(chart.west_lon) + " to " +
         LongToText(chart.east_lon);
}

std::string CheckPointText(const ChartRecord& chart, std::int32_t image_width,
                           std::int32_t image_height, double column, double row) {
  const ChartView view = MakeChartView(chart, image_width, image_height);
  return "Column " + std::to_string(RoundToInteger(column)) + ", row " +
         std::to_string(RoundToInteger(row)) + ":  " + LatToText3(view.RowToLat(row)) + "  " +
         LongToText3(view.ColToLong(column));
}

CalibrationTexts PickCorner(CalibrationTexts texts, ChartCorner corner, double column, double row,
                            std::int32_t image_width, std::int32_t image_height) {
  const bool upper = corner == ChartCorner::kUpperLeft;
  const auto whole = [](double pixel) { return std::to_string(RoundToInteger(pixel)); };
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const auto value = kCalibrationBoxes[i].value;
    if (value == (upper ? &ChartFileRecord::top_pix : &ChartFileRecord::bottom_pix)) {
      texts[i] = whole(row);
    } else if (value == (upper ? &ChartFileRecord::left_pix : &ChartFileRecord::right_pix)) {
      texts[i] = whole(column);
    } else if (value == &ChartFileRecord::width) {
      texts[i] = std::to_string(image_width);
    } else if (value == &ChartFileRecord::height) {
      texts[i] = std::to_string(image_height);
    }
  }
  return texts;
}

IndexTexts TextsOf(const ChartIndexEntry& entry) {
  return {Trim(entry.chart_key),
          Trim(entry.title),
          Show(ChartBox::kPositive, entry.scale),
          Show(ChartBox::kLatitude, entry.upper_lat),
          Show(ChartBox::kLatitude, entry.lower_lat),
          Show(ChartBox::kLongitude, entry.lower_lon),
          Show(ChartBox::kLongitude, entry.upper_lon)};
}

BoxesRead<ChartIndexEntry> ReadIndexTexts(const IndexTexts& texts,
                                          const std::optional<ChartIndexEntry>& shown) {
  struct Box {
    const char* name;
    ChartBox kind;
    std::string IndexTexts::*text;
    float ChartIndexEntry::*value;
    const char* refusal;
  };
  static constexpr Box kBoxes[] = {
      {"txtChartScale", ChartBox::kPositive, &IndexTexts::scale, &ChartIndexEntry::scale, kScale},
      {"txtUpperLat", ChartBox::kLatitude, &IndexTexts::upper_lat, &ChartIndexEntry::upper_lat,
       kUpperLatitude},
      {"txtLowerLat", ChartBox::kLatitude, &IndexTexts::lower_lat, &ChartIndexEntry::lower_lat,
       kLowerLatitude},
      {"txtLowerLon", ChartBox::kLongitude, &IndexTexts::lower_lon, &ChartIndexEntry::lower_lon,
       kLongitudes},
      {"txtUpperLon", ChartBox::kLongitude, &IndexTexts::upper_lon, &ChartIndexEntry::upper_lon,
       kLongitudes},
  };
  ChartIndexEntry entry = shown.value_or(ChartIndexEntry());
  if (!shown || texts.chart_no != Trim(shown->chart_key)) entry.chart_key = Trim(texts.chart_no);
  if (!shown || texts.chart_name != Trim(shown->title)) entry.title = Trim(texts.chart_name);
  for (const Box& box : kBoxes) {
    const std::optional<float> value = ReadBox(
        box.kind, texts.*box.text, shown ? std::optional((*shown).*box.value) : std::nullopt);
    if (!value) return {std::nullopt, box.refusal, box.name};
    entry.*box.value = *value;
  }
  if (const Status sound = CheckIndexEntry(entry); !sound) {
    return {std::nullopt, sound.error().Text(), nullptr};
  }
  return {entry, "", nullptr};
}

std::string HarvestText(std::size_t number, const Diamond& diamond) {
  return "No in File " + std::to_string(number) + " : " + LatToText(diamond.latitude) + ", " +
         LongToText(diamond.longitude);
}

std::string KeptText(std::size_t number, std::size_t in_area) {
  return "No in File " + std::to_string(number) + " kept, " + std::to_string(in_area) +
         " in the area";
}

}  // namespace skerrow
