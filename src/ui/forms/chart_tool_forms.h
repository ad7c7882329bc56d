#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "charts/chart_tools.h"
#include "charts/chart_view.h"
#include "tides/diamond.h"

// The logic of the chart tools: what their boxes show, and what is read from them. A box that is
// left as it was shown keeps its value to the last bit, though its text is rounded.
namespace skerrow {

// ---------------------------------------------------------------- calibrations

// What kind of number stands in a box.
enum class ChartBox { kLatitude, kLongitude, kNumber, kPositive };

// A box of the calibration forms.
struct CalibrationBox {
  const char* name;  // object name
  ChartBox kind;
  float ChartFileRecord::*value;
  const char* refusal;
};

inline constexpr std::size_t kCalibrationBoxCount = 11;
extern const std::array<CalibrationBox, kCalibrationBoxCount> kCalibrationBoxes;
using CalibrationTexts = std::array<std::string, kCalibrationBoxCount>;

// The texts of a calibration, in the order of the boxes.
CalibrationTexts TextsOf(const ChartFileRecord& chart);

// What boxes hold, or why they are refused and which box is to be corrected; null where it is not
// one of them.
template <typename R>
struct BoxesRead {
  std::optional<R> value;
  std::string refusal;
  const char* box = nullptr;
};

// The calibration that `texts` tell, over `shown`, whose texts were put into the boxes. Refused: a
// text that is no position or number ("Error - Upper Latitude entry" and its like), and what
// WorkOutChart refuses.
BoxesRead<ChartFileRecord> ReadCalibrationTexts(const CalibrationTexts& texts,
                                                const ChartFileRecord& shown);

// The edges of the image of a chart, "West edge 005.04.50W" and its like. Where a calibration turns
// the chart over, that is said instead, since it is hardly ever meant.
std::string ChartEdgesText(const ChartRecord& chart);

// The place of an image point by a calibration that is not in force yet, with its column and row.
std::string CheckPointText(const ChartRecord& chart, std::int32_t image_width,
                           std::int32_t image_height, double column, double row);

// The corner whose two lines a click on the chart sets.
enum class ChartCorner { kUpperLeft, kLowerRight };

// The texts after a click on column and row of the image, whose size they then tell too.
CalibrationTexts PickCorner(CalibrationTexts texts, ChartCorner corner, double column, double row,
                            std::int32_t image_width, std::int32_t image_height);

// ---------------------------------------------------------------- the index of an area

// The boxes of an entry of the index.
struct IndexTexts {
  std::string chart_no;
  std::string chart_name;
  std::string scale;
  std::string upper_lat;
  std::string lower_lat;
  std::string lower_lon;
  std::string upper_lon;

  friend bool operator==(const IndexTexts&, const IndexTexts&) = default;
};

IndexTexts TextsOf(const ChartIndexEntry& entry);

// The entry that `texts` tell, over `shown` if its texts were put into the boxes. Refused: a text
// that is no position or number, and what CheckIndexEntry refuses.
BoxesRead<ChartIndexEntry> ReadIndexTexts(const IndexTexts& texts,
                                          const std::optional<ChartIndexEntry>& shown);

// ---------------------------------------------------------------- the harvest of diamonds

// "No in File 5 : 50.30.00N, 001.20.00W"; `number` counts from 1.
std::string HarvestText(std::size_t number, const Diamond& diamond);
// "No in File 5 kept, 57 in the area".
std::string KeptText(std::size_t number, std::size_t in_area);
inline constexpr std::string_view kEndOfFile = "End of File";

}  // namespace skerrow
