#pragma once

#include <functional>
#include <string>

#include "app/program.h"

// Changes of the chart and of its area. A change is whole or has not happened.
namespace skerrow {

// Shows the image of the chart that the settings name. False, after telling why, when it cannot;
// the old image stands then.
using ShowChart = std::function<bool()>;

// Makes another chart current: `open` names it in the settings and reads its calibration, `show`
// brings it on screen, and the settings are stored. Where the sea area or the tidal area is another
// one, its data follow. False when nothing has changed: `open` failed (its error, if it has a text,
// is shown) or `show` did.
bool ChangeChart(Program& program, Messages& messages,
                 const std::function<Status(AppConfig&, ChartState&)>& open, const ShowChart& show);

// The chart of a path without extension, in the same area.
bool ChangeToChart(Program& program, Messages& messages, const std::string& chart_path,
                   const ShowChart& show);

// The chart of a ".cht" path, as the list of recent charts and files opened by name have it.
bool ChangeToStoredChart(Program& program, Messages& messages, const std::string& cht_path,
                         const ShowChart& show);

// The chart before the current one.
bool ChangeToPreviousChart(Program& program, Messages& messages, const ShowChart& show);

// Reads what belongs to the sea area beside the chart itself: reference ports, tides, diamonds,
// port marks and the chart index. What cannot be read is told.
void LoadArea(Program& program, Messages& messages);

}  // namespace skerrow
