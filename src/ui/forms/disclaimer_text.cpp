#include "ui/forms/disclaimer_text.h"

#include <array>

namespace skerrow {
namespace {

constexpr std::array<std::string_view, 9> kLines = {
    "Skerrow Helm is an aid to planning a passage and a secondary means of navigation. It does "
    "not replace official charts, tide tables, pilot books or a proper lookout.",
    "Using it as the primary means of navigation is at the user's own risk. Whoever is in charge "
    "of the vessel remains responsible for her safety.",
    "Plane sailing calculations are used throughout. Ranges, bearings and times are good to within "
    "a few percent, and less so on long legs and in high latitudes.",
    "Tidal heights and tidal streams are derived from harmonic constants and tidal diamonds and "
    "are approximate. Wind and air pressure move the real tide by more than the figures suggest.",
    "Courses to steer, passage times and departure times rest on these figures. Check each one "
    "before you rely on it, and again when you are under way.",
    "The charts, ports and diamonds that come with the program are there for trying and learning "
    "it. The charts show no depths, the streams are a model: do not navigate by them.",
    "Sources of the sample data: tidal constants from TICON-4 (Hart-Davis, Dettmering and Seitz, "
    "2025, CC BY 4.0); coastline from GSHHG (Wessel and Smith, 1996, LGPL 3).",
    "The program is free software under the GNU General Public License, version 3, and comes "
    "without any warranty.",
    "Version 6.0.0.1",
};

}  // namespace

std::span<const std::string_view> DisclaimerLines() { return kLines; }

}  // namespace skerrow
