#include "ui/main/frmChart.h"

namespace skerrow {
namespace {

template <int Percent>
void Zoom(FrmChart& w) {
  w.ZoomTo(Percent / 100.0);
}

constexpr Command kCommands[] = {
    {"mnuSelectChartVisually", "Change &Chart", "openchart", "Choose another chart from the list",
     "", kNoNeed, [](FrmChart& w) { w.ChangeChart(); }},
    {"keyLargerScale", "Larger Scale", "", "The most detailed chart at the cursor", "=", kNoNeed,
     [](FrmChart& w) { w.LargerScale(); }},
    {"keySmallerScale", "Smaller Scale", "", "Back to the chart before, or a smaller scale", "-",
     kNoNeed, [](FrmChart& w) { w.SmallerScale(); }},
    {"mnuPUZoomToChart", "Zoom to &Larger Scale Chart", "", "The most detailed chart here", "=",
     kNoNeed, [](FrmChart& w) { w.LargerScale(); }},
    {"mnuPUPrevChart", "&Previous Chart", "", "Back to the chart before, or a smaller scale", "-",
     kNoNeed,
     [](FrmChart& w) {
       w.SmallerScale();
       w.viewer().FitWidth();
     }},
    {"mnuPUZoomRect", "Zoom to &Rectangle", "zoomrect", "Draw the part of the chart to zoom to", "",
     kNoNeed, [](FrmChart& w) { w.ToggleRectangle(); },
     [](const FrmChart& w) { return w.view().rectangle_mode; }},
    {"mnuPUZoomtoWidth", "Fit &Width", "fitwidth", "The whole width of the chart", "", kNoNeed,
     [](FrmChart& w) { w.viewer().FitWidth(); }},
    {"mnuPUZoomToHeight", "Fit &Height", "fitheight", "The whole height of the chart", "", kNoNeed,
     [](FrmChart& w) { w.viewer().FitHeight(); }},
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
    {"tbZoomIn", "Zoom In", "zoomin", "Zoom in on the cursor", "I", kNoNeed,
     [](FrmChart& w) { w.ZoomStep(true); }},
    {"tbZoomOut", "Zoom Out", "zoomout", "Zoom out from the cursor", "O", kNoNeed,
     [](FrmChart& w) { w.ZoomStep(false); }},
    {"tbLeft", "Left", "leftarrow", "Move the view to the left", "Left", kNoNeed,
     [](FrmChart& w) { w.PanView(PanDirection::kLeft); }},
    {"tbRight", "Right", "rightarrow", "Move the view to the right", "Right", kNoNeed,
     [](FrmChart& w) { w.PanView(PanDirection::kRight); }},
    {"tbUp", "Up", "uparrow", "Move the view up", "Up", kNoNeed,
     [](FrmChart& w) { w.PanView(PanDirection::kUp); }},
    {"tbDown", "Down", "downarrow", "Move the view down", "Down", kNoNeed,
     [](FrmChart& w) { w.PanView(PanDirection::kDown); }},
};

}  // namespace

std::span<const Command> ChartCommands() { return kCommands; }

}  // namespace skerrow
