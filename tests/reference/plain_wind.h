#pragma once

#include <optional>
#include <span>

#include "wind/wind_store.h"

namespace skerrow::reference {

// The record that a scan of a whole store finds for a place and time; empty when none serves.
std::optional<WindFound> PlainFindWind(std::span<const WindCell> cells, Position place,
                                       DayAndYear date, float hours);

}  // namespace skerrow::reference
