#include "core/text.h"

#include <array>
#include <cstdint>

namespace skerrow {
namespace {

// Characters 0x80 to 0x9F of Windows code page 1252 (the mapping published by Unicode as CP1252).
constexpr std::array<std::uint16_t, 32> kCp1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& text, std::uint32_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | (code >> 12));
    text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  }
}

// Decodes one UTF-8 sequence at `pos` and moves past it; a broken one gives U+FFFD and moves one.
std::uint32_t NextCodePoint(std::string_view text, std::size_t& pos) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(pos);
  int extra = 0;
  std::uint32_t code = lead;
  if (lead >= 0xF0 && lead < 0xF8) {
    extra = 3;
    code = lead & 0x07U;
  } else if (lead >= 0xE0 && lead < 0xF0) {
    extra = 2;
    code = lead & 0x0FU;
  } else if (lead >= 0xC2 && lead < 0xE0) {
    extra = 1;
    code = lead & 0x1FU;
  } else if (lead >= 0x80) {
    ++pos;
    return 0xFFFD;
  }
  if (pos + static_cast<std::size_t>(extra) >= text.size()) {
    ++pos;
    return 0xFFFD;
  }
  for (int i = 1; i <= extra; ++i) {
    const unsigned char next = byte(pos + static_cast<std::size_t>(i));
    if ((next & 0xC0) != 0x80) {
      ++pos;
      return 0xFFFD;
    }
    code = (code << 6) | (next & 0x3FU);
  }
  pos += static_cast<std::size_t>(extra) + 1;
  return code;
}

}  // namespace

std::string TrimRight(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return std::string(text);
}

std::string Trim(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  return TrimRight(text);
}

std::string SqueezeBlanks(std::string_view text) {
  std::string squeezed;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool begins_pair = text[i] == ' ' && i + 1 < text.size() && text[i + 1] == ' ';
    if (!begins_pair) squeezed += text[i];
  }
  return Trim(squeezed);
}

std::string FromAnsi(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendUtf8(text, byte >= 0x80 && byte < 0xA0 ? kCp1252High[byte - 0x80U] : byte);
  }
  return text;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0x80                   ? 1
                               : lead >= 0xC2 && lead < 0xE0 ? 2
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead >= 0xF0 && lead < 0xF5 ? 4
                                                             : 0;
    if (length == 0 || text.size() < length) return false;
    for (std::size_t i = 1; i < length; ++i) {
      if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return false;
    }
    if (length > 2) {
      // Overlong forms, surrogates and what lies beyond the last code point.
      const auto second = static_cast<unsigned char>(text[1]);
      if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
          (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F)) {
        return false;
      }
    }
    text.remove_prefix(length);
  }
  return true;
}

std::string ToAnsi(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t pos = 0; pos < text.size();) {
    const std::uint32_t code = NextCodePoint(text, pos);
    if (code < 0x80 || (code >= 0xA0 && code < 0x100)) {
      bytes += static_cast<char>(code);
      continue;
    }
    char byte = '?';
    for (std::size_t i = 0; i < kCp1252High.size(); ++i) {
      if (kCp1252High[i] == code) byte = static_cast<char>(0x80 + i);
    }
    bytes += byte;
  }
  return bytes;
}

std::string ReplaceAll(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
    text.replace(at, from.size(), to);
    at += to.size();
  }
  return text;
}

std::string ToLowerAscii(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

ListRow SplitListRow(std::string_view row) {
  const std::string trimmed = Trim(row);
  const std::string_view text = trimmed;
  const std::size_t colon = text.find(':');
  const std::size_t comma = text.find(',');
  ListRow parts;
  // One character (the tab) stands between name and colon.
  const std::size_t name_end = colon == std::string_view::npos ? text.size() : colon;
  parts.name = Trim(
      text.substr(0, name_end > 0 && colon != std::string_view::npos ? name_end - 1 : name_end));
  if (const std::size_t tab = parts.name.find('\t'); tab != std::string::npos) {
    parts.name = Trim(std::string_view(parts.name).substr(0, tab));
  }
  if (colon == std::string_view::npos) return parts;
  if (comma == std::string_view::npos || comma < colon) {
    parts.latitude_text = Trim(text.substr(colon + 1));
    return parts;
  }
  parts.latitude_text = Trim(text.substr(colon + 1, comma - colon - 1));
  parts.longitude_text = Trim(text.substr(comma + 1));
  return parts;
}

CommaFields SplitFields(std::string_view text) {
  const std::string trimmed = Trim(text);
  std::string_view left = trimmed;
  CommaFields fields;
  for (std::string& field : fields.field) {
    const std::size_t comma = left.find(',');
    if (comma == std::string_view::npos) {
      field = std::string(left);
      return fields;
    }
    field = std::string(left.substr(0, comma));
    left.remove_prefix(comma + 1);
  }
  fields.rest = left.empty() ? "   " : std::string(left);
  return fields;
}

}  // namespace skerrow
