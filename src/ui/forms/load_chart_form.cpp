#include "ui/forms/load_chart_form.h"

#include "core/files.h"
#include "core/text.h"

namespace skerrow {

std::vector<ChartRow> ChartRows(const std::vector<ChartIndexEntry>& index, float scale_filter) {
  std::vector<ChartRow> rows;
  for (std::size_t i = 0; i < index.size(); ++i) {
    if (scale_filter < index[i].scale) rows.push_back({Trim(index[i].title), i});
  }
  return rows;
}

std::optional<std::size_t> FindChartRow(const std::vector<ChartRow>& rows, std::string_view letters,
                                        int current) {
  const std::string wanted = ToLowerAscii(Trim(letters));
  if (wanted.empty() || rows.empty()) return std::nullopt;
  const auto from = static_cast<std::size_t>(current) + 1;
  for (std::size_t k = 0; k < rows.size(); ++k) {
    const std::size_t row = (from + k) % rows.size();
    if (ToLowerAscii(rows[row].title).find(wanted) != std::string::npos) return row;
  }
  return std::nullopt;
}

std::string PreviewPath(const Folders& folders, std::string_view chart_key) {
  return ChartPathOf(folders, Trim(chart_key)) + std::string(kChartPreview);
}

Status ChooseChart(const Folders& folders, const ChartChoice& choice, AppConfig& config,
                   ChartState& charts) {
  AppConfig chosen = config;
  const std::string path = ChartPathOf(folders, Trim(choice.chart_key));
  const auto apply = [&](AppConfig& record) {
    record.sea_area = choice.sea_area;
    record.tidal_area = choice.sea_area;
    record.chart_path = path;
    record.chart_file_name = Trim(choice.chart_key) + ".cht";
    record.chart_folder = FolderOf(path);
    record.chart_scale_choice = choice.scale_filter;
  };
  apply(chosen);
  if (Status status = ReadChartSettings(folders, chosen, charts); !status) return status;
  return ReloadThenSave(folders, config, apply);
}

}  // namespace skerrow
