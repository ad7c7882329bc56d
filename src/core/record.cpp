#include "core/record.h"

namespace skerrow {

std::string FieldTypeName(FieldType type, std::size_t size) {
  switch (type) {
    case FieldType::kText:
    case FieldType::kRawText:
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

std::string LeftOutText(const std::string& path, const LeftOut& left_out) {
  if (!left_out.Any()) return "";
  std::string text;
  if (left_out.damaged == 1) text = "1 damaged record is left out";
  if (left_out.damaged > 1) {
    text = std::to_string(left_out.damaged) + " damaged records are left out";
  }
  if (left_out.cut_bytes > 0) {
    text += (text.empty() ? "" : ", and ") +
            std::string("the last record is left out, it is cut ") + "short after " +
            std::to_string(left_out.cut_bytes) + " of " + std::to_string(left_out.record_size) +
            " bytes";
  }
  return Error{path, text}.Text();
}

void TellLeftOut(const std::string& path, const LeftOut& left_out, Messages& messages) {
  if (left_out.Any()) messages.Show(LeftOutText(path, left_out), MessageIcon::kWarning);
}

}  // namespace skerrow
