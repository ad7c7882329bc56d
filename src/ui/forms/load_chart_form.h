#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "charts/chart_files.h"
#include "charts/chart_library.h"
#include "core/folders.h"

// Choosing a chart from the lists of sea areas and charts.
namespace skerrow {

// The scale filters offered, denominators; a chart passes one that is below its scale.
inline constexpr int kScaleFilters[] = {0,     2500,   5000,   10000,  25000,  50000,
                                        75000, 100000, 150000, 200000, 500000, 1000000};

// A row of the chart list.
struct ChartRow {
  std::string title;
  std::size_t entry = 0;  // in the index
};

// The charts whose scale is above the filter, in index order.
std::vector<ChartRow> ChartRows(const std::vector<ChartIndexEntry>& index, float scale_filter);

// The first row behind `current` (-1 for none) whose title contains the letters, in either case;
// the search goes on at the top. Empty letters find nothing.
std::optional<std::size_t> FindChartRow(const std::vector<ChartRow>& rows, std::string_view letters,
                                        int current);

// The preview picture of a chart.
std::string PreviewPath(const Folders& folders, std::string_view chart_key);

// What OK makes current.
struct ChartChoice {
  std::string sea_area;
  std::string chart_key;
  float scale_filter = 0.0F;
};

// Makes the choice the current chart, in `config` and in the stored settings. On an error
// everything is as it was.
Status ChooseChart(const Folders& folders, const ChartChoice& choice, AppConfig& config,
                   ChartState& charts);

}  // namespace skerrow
