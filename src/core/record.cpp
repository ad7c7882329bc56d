#include "core/record.h"

namespace skerrow {

std::string FieldTypeName(FieldType type, std::size_t size) {
  switch (type) {
    case FieldType::kText:
      return "text";
    case FieldType::kInt16:
      return "int16";
    case FieldType::kBool16:
      return "bool16";
    case FieldType::kInt32:
      return "int32";
    case FieldType::kColour:
      return "colour";
    case FieldType::kFloat:
      return "float32";
    case FieldType::kInt16Array:
      return "int16[" + std::to_string(size / 2) + "]";
    case FieldType::kFloatArray:
      return "float32[" + std::to_string(size / 4) + "]";
  }
  return "";
}

std::int64_t RecordCount(std::size_t file_size, std::size_t record_size) {
  return RoundToInteger(static_cast<double>(file_size) / static_cast<double>(record_size));
}

}  // namespace skerrow
