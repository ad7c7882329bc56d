#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace skerrow {

// "2026-12-05T06:30:20Z" and the other forms of ISO 8601 that files have, with fractions and
// offsets, as seconds since 1970; empty for a text that is none.
std::optional<double> ParseIsoTime(std::string_view text);
// The same moment as text of that form, to the millisecond.
std::string IsoTimeText(double seconds);

// The beginning of a day of the world's clock, in seconds since 1970.
double SecondsAtDay(int year, int month, int day);

}  // namespace skerrow
