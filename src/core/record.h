#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/files.h"
#include "core/numbers.h"
#include "core/result.h"
#include "core/text.h"

// Fixed-length binary records: little-endian, packed, text in code page 1252 padded with blanks.
// A record is described once, by a table of its fields in file order; reading, writing, the size
// check and the documentation come from that table.
namespace skerrow {

enum class FieldType { kText, kInt16, kBool16, kInt32, kColour, kFloat, kInt16Array, kFloatArray };

// The name of a field type as documentation and the command line show it.
std::string FieldTypeName(FieldType type, std::size_t size);

// One field of record `R`. Text members hold UTF-8 without the padding.
template <typename R>
struct RecordField {
  using Member = std::variant<std::string R::*, std::int16_t R::*, std::int32_t R::*, float R::*,
                              std::array<std::int16_t, 8> R::*, std::array<float, 12> R::*,
                              std::array<float, 14> R::*>;
  std::size_t offset;
  std::size_t size;
  FieldType type;
  const char* name;
  Member member;
  const char* meaning;
};

// Whether the fields of `table` lie one behind the other from 0 and end at `record_size`.
template <typename R, std::size_t N>
constexpr bool IsPacked(const std::array<RecordField<R>, N>& table, std::size_t record_size) {
  std::size_t at = 0;
  for (const auto& field : table) {
    if (field.offset != at) return false;
    at += field.size;
  }
  return at == record_size;
}

namespace bytes {

inline std::uint16_t Get16(std::string_view from, std::size_t at) {
  const auto low = static_cast<unsigned char>(from[at]);
  const auto high = static_cast<unsigned char>(from[at + 1]);
  return static_cast<std::uint16_t>(low | (high << 8));
}

inline std::uint32_t Get32(std::string_view from, std::size_t at) {
  return Get16(from, at) | (static_cast<std::uint32_t>(Get16(from, at + 2)) << 16);
}

inline float GetFloat(std::string_view from, std::size_t at) {
  return std::bit_cast<float>(Get32(from, at));
}

inline void Put16(std::string& into, std::size_t at, std::uint16_t value) {
  into[at] = static_cast<char>(value & 0xFF);
  into[at + 1] = static_cast<char>(value >> 8);
}

inline void Put32(std::string& into, std::size_t at, std::uint32_t value) {
  Put16(into, at, static_cast<std::uint16_t>(value & 0xFFFF));
  Put16(into, at + 2, static_cast<std::uint16_t>(value >> 16));
}

inline void PutFloat(std::string& into, std::size_t at, float value) {
  Put32(into, at, std::bit_cast<std::uint32_t>(value));
}

// `text` as code page 1252, cut or padded with blanks to `size` bytes.
inline std::string PaddedText(std::string_view text, std::size_t size) {
  std::string field = ToAnsi(text);
  field.resize(size, ' ');
  return field;
}

}  // namespace bytes

// The bytes of one record.
template <typename R, std::size_t N>
std::string EncodeRecord(const R& record, const std::array<RecordField<R>, N>& table) {
  std::string out(table.back().offset + table.back().size, '\0');
  for (const auto& field : table) {
    std::visit(
        [&](auto member) {
          const auto& value = record.*member;
          using V = std::decay_t<decltype(value)>;
          if constexpr (std::is_same_v<V, std::string>) {
            out.replace(field.offset, field.size, bytes::PaddedText(value, field.size));
          } else if constexpr (std::is_same_v<V, std::int16_t>) {
            bytes::Put16(out, field.offset, static_cast<std::uint16_t>(value));
          } else if constexpr (std::is_same_v<V, std::int32_t>) {
            bytes::Put32(out, field.offset, static_cast<std::uint32_t>(value));
          } else if constexpr (std::is_same_v<V, float>) {
            bytes::PutFloat(out, field.offset, value);
          } else if constexpr (std::is_same_v<V, std::array<std::int16_t, 8>>) {
            for (std::size_t i = 0; i < value.size(); ++i) {
              bytes::Put16(out, field.offset + 2 * i, static_cast<std::uint16_t>(value[i]));
            }
          } else {
            for (std::size_t i = 0; i < value.size(); ++i) {
              bytes::PutFloat(out, field.offset + 4 * i, value[i]);
            }
          }
        },
        field.member);
  }
  return out;
}

// Takes a record from the start of `data`. Where `data` ends before the record does, what lies
// beyond keeps the value that `record` held, byte for byte.
template <typename R, std::size_t N>
void DecodeRecord(std::string_view data, const std::array<RecordField<R>, N>& table, R& record) {
  const std::size_t size = table.back().offset + table.back().size;
  std::string merged;
  if (data.size() < size) {
    merged = EncodeRecord(record, table);
    merged.replace(0, data.size(), data);
    data = merged;
  }
  for (const auto& field : table) {
    std::visit(
        [&](auto member) {
          auto& value = record.*member;
          using V = std::decay_t<decltype(value)>;
          if constexpr (std::is_same_v<V, std::string>) {
            value = FromAnsi(TrimRight(data.substr(field.offset, field.size)));
          } else if constexpr (std::is_same_v<V, std::int16_t>) {
            value = static_cast<std::int16_t>(bytes::Get16(data, field.offset));
          } else if constexpr (std::is_same_v<V, std::int32_t>) {
            value = static_cast<std::int32_t>(bytes::Get32(data, field.offset));
          } else if constexpr (std::is_same_v<V, float>) {
            value = bytes::GetFloat(data, field.offset);
          } else if constexpr (std::is_same_v<V, std::array<std::int16_t, 8>>) {
            for (std::size_t i = 0; i < value.size(); ++i) {
              value[i] = static_cast<std::int16_t>(bytes::Get16(data, field.offset + 2 * i));
            }
          } else {
            for (std::size_t i = 0; i < value.size(); ++i) {
              value[i] = bytes::GetFloat(data, field.offset + 4 * i);
            }
          }
        },
        field.member);
  }
}

// The number of records in a file: its length by the record's, to the nearest whole number. More
// than the 16-bit record numbers can count is refused by ReadRecords.
std::int64_t RecordCount(std::size_t file_size, std::size_t record_size);

// All records of `content`. A last record cut short has blanks and zeros where it ends.
template <typename R, std::size_t N>
Result<std::vector<R>> DecodeRecords(std::string_view content, const std::string& path,
                                     const std::array<RecordField<R>, N>& table) {
  const std::size_t size = table.back().offset + table.back().size;
  const std::int64_t count = RecordCount(content.size(), size);
  if (count > INT16_MAX) return Error{path, "the file holds too many records"};
  std::vector<R> records(static_cast<std::size_t>(count));
  for (std::size_t i = 0; i < records.size(); ++i) {
    DecodeRecord(content.substr(i * size), table, records[i]);
  }
  return records;
}

// Reads a whole file of records.
template <typename R, std::size_t N>
Result<std::vector<R>> ReadRecords(const std::string& path,
                                   const std::array<RecordField<R>, N>& table) {
  const Result<std::string> content = ReadFile(path);
  if (!content) return content.error();
  return DecodeRecords(*content, path, table);
}

// The bytes of a run of records.
template <typename R, std::size_t N>
std::string EncodeRecords(std::span<const R> records, const std::array<RecordField<R>, N>& table) {
  std::string out;
  for (const R& record : records) out += EncodeRecord(record, table);
  return out;
}

// The table as rows of Markdown: offset, size, type, name, meaning.
template <typename R, std::size_t N>
std::string RecordMarkdown(const std::array<RecordField<R>, N>& table) {
  std::string out = "| Offset | Size | Type | Field | Meaning |\n|---|---|---|---|---|\n";
  for (const auto& field : table) {
    out += "| " + std::to_string(field.offset) + " | " + std::to_string(field.size) + " | " +
           FieldTypeName(field.type, field.size) + " | " + field.name + " | " + field.meaning +
           " |\n";
  }
  return out;
}

}  // namespace skerrow
