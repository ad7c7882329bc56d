#pragma once

#include <string>
#include <string_view>

// Positions and their text forms. "50.30.25N" is 50 degrees 30.25 minutes north: the first point
// separates degrees from minutes, the second is the decimal point of the minutes.
namespace skerrow {

// A place in decimal degrees, north and east positive.
struct Position {
  float latitude = 0.0F;
  float longitude = 0.0F;

  friend bool operator==(const Position&, const Position&) = default;
};

// "DD.MM.mmH". 59.99 minutes and more carry into the next whole degree: 50.9999 gives "51.00.00N".
// 0 gives "00.00.00N", -0.5 gives "00.30.00S".
std::string LatToText(float latitude);

// "DD.MM.mmmH", with no carry of rounded minutes: what the cursor readouts show.
std::string LatToText3(float latitude);

// "DDD.MM.mmH". East longitudes are nudged up by 0.00001 degrees before the degree is cut off:
// 0.999995 gives "001.00.00E". 0 gives "000.00.00E".
std::string LongToText(float longitude);

// "DDD.MM.mmmH", by the same steps.
std::string LongToText3(float longitude);

// Decimal degrees from a latitude text; any text gives a number. Each upper-case "S" turns the
// sign. A text without a point is all minutes.
//   "50.30.25N" -> 50.504166   "50.30.25s" -> 50.504166   "30" -> 0.5   "" -> 0
float TextToLat(std::string_view text);

// As TextToLat, with "W" in the place of "S". "001.05.40W" gives -1.09.
float TextToLong(std::string_view text);

}  // namespace skerrow
