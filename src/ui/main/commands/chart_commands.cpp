
#include "charts/chart_tools.h"
#include "ui/main/chart_controller.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/main/time_controller.h"

namespace skerrow {
namespace {

template <int Percent>
void Zoom(Context& c) {
  c.chart.ZoomTo(Percent / 100.0);
}

// With the tools shown the key also copies the list of the charts there.
void LargerScaleByKey(Context& c) {
  if (c.view.tools_shown && c.chart.HasPlaces()) {
    ChartsAtPoint(c.view.cursor, c.program.charts);
    const std::string charts = ChartListText(c.program.charts.at_point);
    if (!charts.empty()) c.desktop.clipboard.SetText(charts);
  }
  c.chart.LargerScale();
}

constexpr Command kCommands[] = {
    {"mnuSelectChartVisually", "Change Chart", "openchart", "Choose another chart from the list",
     "", kNoNeed, [](Context& c) { c.chart.Choose(); }},
    {"keyLargerScale", "Larger Scale", "", "The most detailed chart at the cursor", "=", kNoNeed,
     LargerScaleByKey},
    {"keySmallerScale", "Smaller Scale", "", "Back to the chart before, or a smaller scale", "-",
     kNoNeed, [](Context& c) { c.chart.SmallerScale(); }},
    {"mnuPUZoomToChart", "Zoom to &Larger Scale Chart", "", "The most detailed chart here", "=",
     kNoNeed, [](Context& c) { c.chart.LargerScale(); }},
    {"mnuPUPrevChart", "&Previous Chart", "", "Back to the chart before, or a smaller scale", "-",
     kNoNeed,
     [](Context& c) {
       c.chart.SmallerScale();
       c.viewer.FitWidth();
     }},
    {"mnuPUZoomRect", "Zoom to &Rectangle", "zoomrect", "Draw the part of the chart to zoom to", "",
     kNoNeed, [](Context& c) { c.chart.ToggleRectangle(); },
     [](const Context& c) { return c.view.rectangle_mode; }},
    {"mnuPUZoomtoWidth", "Fit &Width", "fitwidth", "The whole width of the chart", "", kNoNeed,
     [](Context& c) { c.viewer.FitWidth(); }},
    {"mnuPUZoomToHeight", "Fit &Height", "fitheight", "The whole height of the chart", "", kNoNeed,
     [](Context& c) { c.viewer.FitHeight(); }},
    {"mnuZoom1", "10 %", "", "", "1", kNoNeed, Zoom<10>},
    {"mnuZoom2", "20 %", "", "", "2", kNoNeed, Zoom<20>},
    {"mnuZoom3", "30 %", "", "", "3", kNoNeed, Zoom<30>},
    {"mnuZoom4", "40 %", "", "", "4", kNoNeed, Zoom<40>},
    {"mnuZoom5", "50 %", "", "", "5", kNoNeed, Zoom<50>},
    {"mnuZoom6", "60 %", "", "", "6", kNoNeed, Zoom<60>},
    {"mnuZoom7", "70 %", "", "", "7", kNoNeed, Zoom<70>},
    {"mnuZoom8", "80 %", "", "", "8", kNoNeed, Zoom<80>},
    {"mnuZoom9", "90 %", "", "", "9", kNoNeed, Zoom<90>},
    {"mnuZoom10", "100 %", "", "", "0", kNoNeed, Zoom<100>},
    {"tbZoomIn", "Zoom In", "zoomin", "Zoom in on the middle of the view", "", kNoNeed,
     [](Context& c) { c.chart.ZoomStep(true, ChartController::About::kMiddle); }},
    {"tbZoomOut", "Zoom Out", "zoomout", "Zoom out from the middle of the view", "", kNoNeed,
     [](Context& c) { c.chart.ZoomStep(false, ChartController::About::kMiddle); }},
    {"tbLeft", "Left", "leftarrow", "Move the view to the left", "Left", kNoNeed,
     [](Context& c) { c.chart.PanView(PanDirection::kLeft); }},
    {"tbRight", "Right", "rightarrow", "Move the view to the right", "Right", kNoNeed,
     [](Context& c) { c.chart.PanView(PanDirection::kRight); }},
    {"tbUp", "Up", "uparrow", "Move the view up", "Up", kNoNeed,
     [](Context& c) { c.chart.PanView(PanDirection::kUp); }},
    {"tbDown", "Down", "downarrow", "Move the view down", "Down", kNoNeed,
     [](Context& c) { c.chart.PanView(PanDirection::kDown); }},
    {"keyZoomIn", "Zoom In", "", "Zoom in on the cursor", "I", kNoNeed,
     [](Context& c) { c.chart.ZoomStep(true, ChartController::About::kCursor); }},
    {"keyZoomOut", "Zoom Out", "", "Zoom out from the cursor", "O", kNoNeed,
     [](Context& c) { c.chart.ZoomStep(false, ChartController::About::kCursor); }},
    {"keyHome", "Middle of the Chart", "", "", "Home", kNoNeed, [](Context& c) { c.chart.Home(); }},
    {"keyRepaint", "Repaint", "", "", "Enter", kNoNeed, [](Context& c) { c.viewer.Redraw(); }},
};

}  // namespace

std::span<const Command> ChartCommands() { return kCommands; }

}  // namespace skerrow
