#pragma once

#include <vector>

#include "app/program.h"

namespace skerrow {

// Most positions ahead that the chart shows.
inline constexpr std::size_t kMostBoatAhead = 7;

// Where the tide will take the boat: its position now and after one to six intervals of the
// settings. The boat is taken to hold its course and speed through the water, which are those over
// the ground less the stream that runs now; the stream of each place and time is then added to
// them, in steps of ten minutes at most. Empty where that is not wanted, without a good fix, or
// where the interval is none. It reads the streams by a reader of its own.
std::vector<Position> PredictBoatAhead(const Program& program);

}  // namespace skerrow
