#include "ui/forms/track_forms.h"

#include "core/position.h"
#include "core/text.h"

namespace skerrow {
namespace {

// "093005" as "09:30:05" and "140626" as "14/06/26"; any other text as it came.
std::string InPairs(const std::string& text, char between) {
  constexpr std::size_t kDigits = 6;
  if (text.size() < kDigits ||
      text.substr(0, kDigits).find_first_not_of("0123456789") != std::string::npos) {
    return text;
  }
  return text.substr(0, 2) + between + text.substr(2, 2) + between + text.substr(4, 2);
}

}  // namespace

CommentHeading CommentHeadingOf(const AppConfig& config, const GpsFix& fix) {
  CommentHeading heading;
  heading.interval = "Update interval " + std::to_string(config.log_interval) + " seconds";
  heading.date = InPairs(Trim(fix.fix_date), '/');
  heading.time = InPairs(Trim(fix.fix_time), ':');
  if (fix.boat_latitude != 0.0F) {
    heading.place = LatToText3(fix.boat_latitude) + "  " + LongToText3(fix.boat_longitude);
  }
  return heading;
}

Status PlotTable::Open(const std::string& path) {
  const Result<RecordFile<PlotRecord>> file = ReadPlotFile(path);
  if (!file) return file.error();
  path_ = path;
  left_out_ = file->left_out;
  rows_.clear();
  for (const PlotRecord& record : file->Sound()) rows_.push_back(PlotRow(record));
  changed_ = false;
  return Done{};
}

Status PlotTable::Accept(std::size_t row, const PlotRowTexts& texts) {
  if (const Result<PlotRecord> record = ManualPlotRecord(texts); !record) return record.error();
  const std::string now = JoinPlotRow(texts);
  if (now == rows_.at(row)) return Done{};
  rows_[row] = now;
  changed_ = true;
  return Done{};
}

void PlotTable::Delete(std::size_t row) {
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
  changed_ = true;
}

Status PlotTable::Insert(bool row_selected, std::size_t row, const PlotRowTexts& texts) {
  if (const std::string fault = PlotInsertFault(row_selected, texts); !fault.empty()) {
    return Error{"", fault};
  }
  if (const Result<PlotRecord> record = ManualPlotRecord(texts); !record) return record.error();
  rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(row) + 1, JoinPlotRow(texts));
  changed_ = true;
  return Done{};
}

Status PlotTable::Save() {
  if (rows_.empty()) {
    return Error{"",
                 "A plot without positions is not saved. To be rid of the file use File > Delete > "
                 "Historical Track."};
  }
  if (Status saved = SavePlotRows(path_, rows_); !saved) return saved;
  changed_ = false;
  return Done{};
}

}  // namespace skerrow
