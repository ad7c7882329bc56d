#pragma once

#include <string>
#include <string_view>

// Text helpers. Inside the program text is UTF-8; in records it is single-byte, code page 1252.
namespace skerrow {

// `text` without blanks (0x20) at both ends.
std::string Trim(std::string_view text);

// `text` without blanks at its end.
std::string TrimRight(std::string_view text);

// Runs of blanks reduced to one and both ends trimmed. Empty text stays empty.
std::string SqueezeBlanks(std::string_view text);

// UTF-8 from code page 1252. The five bytes with no character map to the control characters of
// the same number, so that every byte survives a round trip.
std::string FromAnsi(std::string_view bytes);

// Code page 1252 from UTF-8; a character outside the code page, or a broken sequence, becomes "?".
std::string ToAnsi(std::string_view text);

// Whether a text is well-formed UTF-8 (RFC 3629).
bool IsUtf8(std::string_view text);

// `text` with every `from` replaced by `to`.
std::string ReplaceAll(std::string text, std::string_view from, std::string_view to);

// ASCII lower case of `text`; other characters stay.
std::string ToLowerAscii(std::string_view text);

// The parts of a list row "name<tab>:latitude,longitude" as the pick lists show it.
struct ListRow {
  std::string name;
  std::string latitude_text;
  std::string longitude_text;
};

// Splits a list row at its first ":" and first ",". A row without them gives what stands before.
ListRow SplitListRow(std::string_view row);

// The first four comma-separated fields of a text, and the rest behind the fourth comma; where the
// text ends at the fourth comma the rest is three blanks. Missing fields are empty.
struct CommaFields {
  std::string field[4];
  std::string rest;
};
CommaFields SplitFields(std::string_view text);

}  // namespace skerrow
