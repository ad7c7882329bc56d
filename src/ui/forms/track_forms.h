#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/config.h"
#include "core/result.h"
#include "instruments/gps_fix.h"
#include "instruments/plot_file.h"

// What the dialogs of logs, tracks and comments know without their widgets.
namespace skerrow {

// The lines above a comment: when it is written, and what goes with it.
struct CommentHeading {
  std::string interval;  // "Update interval 30 seconds"
  std::string date;      // "14/06/26", or what came
  std::string time;      // "09:30:05"
  std::string place;     // "50.30.251N  001.20.251W"
};
CommentHeading CommentHeadingOf(const AppConfig& config, const GpsFix& fix);

inline constexpr std::string_view kNoPositionForComment =
    "The GPS has given no position yet, and a comment stands at one. Wait for a fix.";

// The rows of a plot file while they are edited. The file changes at Save only.
class PlotTable {
 public:
  // Errors: those of ReadPlotFile.
  Status Open(const std::string& path);

  const std::string& path() const { return path_; }
  const std::vector<std::string>& rows() const { return rows_; }
  const LeftOut& left_out() const { return left_out_; }
  bool changed() const { return changed_; }

  PlotRowTexts TextsOf(std::size_t row) const { return SplitPlotRow(rows_.at(row)); }

  // "Accept Change": the texts become those of a row. Errors: a position that cannot be.
  Status Accept(std::size_t row, const PlotRowTexts& texts);
  void Delete(std::size_t row);
  // Puts a row behind another. Errors: those of PlotInsertFault, and a position that cannot be.
  Status Insert(bool row_selected, std::size_t row, const PlotRowTexts& texts);
  // Errors: those of SavePlotRows, and a table without rows, which is no plot.
  Status Save();

 private:
  std::string path_;
  std::vector<std::string> rows_;
  LeftOut left_out_;
  bool changed_ = false;
};

}  // namespace skerrow
