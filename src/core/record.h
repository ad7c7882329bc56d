#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/files.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/result.h"
#include "core/text.h"

// Fixed-length binary records: little-endian, packed, text in code page 1252 padded with blanks.
// A record is described once, by a table of its fields in file order; reading, writing, the size
// check and the documentation come from that table.
namespace skerrow {

// A text ends at its first NUL or at the blanks that pad it; a raw text keeps every byte, for
// fields that are only carried along.
enum class FieldType {
  kText,
  kRawText,
  kInt16,
  kBool16,
  kInt32,
  kColour,
  kFloat,
  kInt16Array,
  kFloatArray
};

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
            std::string_view text = data.substr(field.offset, field.size);
            if (field.type == FieldType::kText) text = text.substr(0, text.find('\0'));
            value = FromAnsi(TrimRight(text));
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

// The name of the first field of `record` that holds a number that is none or infinite; null when
// all are finite. Such a record is damaged: no reader uses it and no writer writes it.
template <typename R, std::size_t N>
const char* DamagedField(const R& record, const std::array<RecordField<R>, N>& table) {
  for (const auto& field : table) {
    const bool finite = std::visit(
        [&](auto member) {
          const auto& value = record.*member;
          using V = std::decay_t<decltype(value)>;
          if constexpr (std::is_same_v<V, float>) {
            return std::isfinite(value);
          } else if constexpr (std::is_same_v<V, std::array<float, 12>> ||
                               std::is_same_v<V, std::array<float, 14>>) {
            return std::all_of(value.begin(), value.end(),
                               [](float f) { return std::isfinite(f); });
          } else {
            return true;
          }
        },
        field.member);
    if (!finite) return field.name;
  }
  return nullptr;
}

// What a reader left out of a file of records.
struct LeftOut {
  std::size_t damaged = 0;      // whole records with a damaged field
  std::size_t cut_bytes = 0;    // bytes there are of a last record that is cut short
  std::size_t record_size = 0;  // bytes of a whole one

  bool Any() const { return damaged > 0 || cut_bytes > 0; }
};

// "path: 2 damaged records are left out" and the like; empty when nothing is.
std::string LeftOutText(const std::string& path, const LeftOut& left_out);

// Shows that text, when there is any.
void TellLeftOut(const std::string& path, const LeftOut& left_out, Messages& messages);

// The records of a file by their position in it, which is the number that others know a record by:
// a damaged one leaves its place empty. One that is cut short at the end of the file has no place.
template <typename R>
struct RecordFile {
  std::vector<std::optional<R>> records;
  LeftOut left_out;

  // Those that can be used, in file order.
  std::vector<R> Sound() const {
    std::vector<R> sound;
    for (const auto& record : records) {
      if (record) sound.push_back(*record);
    }
    return sound;
  }
};

// All records of `content`, the file at `path`. Error: more than a 16-bit number counts.
template <typename R, std::size_t N>
Result<RecordFile<R>> DecodeRecords(std::string_view content, const std::string& path,
                                    const std::array<RecordField<R>, N>& table) {
  const std::size_t size = table.back().offset + table.back().size;
  if (RecordCount(content.size(), size) > INT16_MAX) {
    return Error{path, "the file holds too many records"};
  }
  RecordFile<R> file;
  file.left_out.record_size = size;
  file.left_out.cut_bytes = content.size() % size;
  file.records.resize(content.size() / size);
  for (std::size_t i = 0; i < file.records.size(); ++i) {
    R record;
    DecodeRecord(content.substr(i * size, size), table, record);
    if (DamagedField(record, table) == nullptr) {
      file.records[i] = std::move(record);
    } else {
      ++file.left_out.damaged;
    }
  }
  return file;
}

// Reads a whole file of records.
template <typename R, std::size_t N>
Result<RecordFile<R>> ReadRecords(const std::string& path,
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

// Refuses records that hold a number that is none: such a record could not be read again.
template <typename R, std::size_t N>
Status CheckRecords(const std::string& path, std::span<const R> records,
                    const std::array<RecordField<R>, N>& table) {
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (const char* field = DamagedField(records[i], table)) {
      return Error{path, "nothing is written, the " + std::string(field) + " of record " +
                             std::to_string(i + 1) + " is no number"};
    }
  }
  return Done{};
}

// Replaces the file at `path` by a run of records. Errors, with the file as it was: those of
// CheckRecords and ReplaceFile.
template <typename R, std::size_t N>
Status WriteRecords(const std::string& path, std::span<const R> records,
                    const std::array<RecordField<R>, N>& table) {
  if (Status sound = CheckRecords(path, records, table); !sound) return sound;
  return ReplaceFile(path, EncodeRecords(records, table));
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
