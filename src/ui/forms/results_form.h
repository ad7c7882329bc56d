#pragma once

#include <string>
#include <vector>

#include "app/program.h"
#include "passage/passage_state.h"

// What the results dialogs show, and what leaving them does.
namespace skerrow {

// Shown where a results dialog would open on nothing.
inline constexpr const char* kNoResults = "No Results to display";

// The stream readings of the calculated track, one row each under a heading row, columns by tabs.
// Every third reading, from the first on, unless `every_reading`.
//   "09:05<tab>50.30.25N, 001.05.40W<tab>1.2@092<tab>2615, A"
std::vector<std::string> StreamRows(const PassageState& passage, bool every_reading,
                                    bool with_stream_id);

// What leaving the results does: with winds from forecasts in force, each route point of a
// calculated route takes the wind of its place at the time the boat gets there; then the tide
// state is refreshed. `defaults` gives the winds.
void FinishResults(Program& program, const RouteDefaults& defaults);

}  // namespace skerrow
