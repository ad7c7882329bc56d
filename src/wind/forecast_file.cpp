#include "wind/forecast_file.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "core/files.h"
#include "core/text.h"
#include "wind/grib_winds.h"

namespace skerrow {
namespace {

constexpr std::size_t kShortestName = 5;

}  // namespace

bool IsForecastName(std::string_view name) {
  const std::string lower = ToLowerAscii(name);
  return std::any_of(std::begin(kForecastPatterns), std::end(kForecastPatterns),
                     [&](std::string_view pattern) { return lower.ends_with(pattern.substr(1)); });
}

GribFile ReadForecastFile(const std::string& path, ForecastReader& reader, Messages& messages,
                          Progress& progress) {
  GribFile file;
  const auto fail = [&](const Error& error) {
    messages.Show(error.path.empty() ? path + ": " + error.reason : error.Text(),
                  MessageIcon::kError);
    return file;
  };
  if (FileNameOf(path).size() < kShortestName) {
    messages.Show("Select a file", MessageIcon::kWarning);
    return file;
  }
  Result<std::string> content = ReadFile(path, kMaxGribSize);
  if (!content) return fail(content.error());
  content = reader.Expand(std::move(content.value()), kMaxGribSize);
  if (!content) return fail(content.error());
  if (GribEdition(*content) != 2) return DecodeGrib(*content, messages, progress);
  Result<std::vector<GribRecord>> records = reader.ReadEdition2(*content);
  if (!records) return fail(records.error());
  file.records = std::move(records.value());
  file.whole = true;
  return file;
}

void BeginOn(DayAndYear day, std::vector<GribRecord>& records) {
  double first = 0.0;
  bool any = false;
  for (const GribRecord& record : records) {
    if (record.values.empty()) continue;
    first = any ? std::min(first, record.Time()) : record.Time();
    any = true;
  }
  if (!any) return;
  const auto shift =
      static_cast<float>(24.0 * (DaysFrom2000(day) - static_cast<int>(std::floor(first))));
  for (GribRecord& record : records) record.valid_hour += shift;
}

bool ImportForecast(const Folders& folders, std::vector<GribRecord> records,
                    std::optional<DayAndYear> begin_today, Messages& messages) {
  if (begin_today) BeginOn(*begin_today, records);
  const std::vector<GribWind> winds = MakeGribWinds(records, messages);
  const bool any = std::any_of(winds.begin(), winds.end(),
                               [](const GribWind& wind) { return wind.speed < kNoWind; });
  if (!any) {
    messages.Show("There is no wind in this forecast. What was imported before is kept.",
                  MessageIcon::kWarning);
    return false;
  }
  if (const Status written = WriteWindStore(folders, WindCellsOf(winds)); !written) {
    messages.Show(written.error().Text(), MessageIcon::kError);
    return false;
  }
  // The store is what counts; the viewer's copy may fail without harm to it.
  if (const Status written = WriteGribWinds(folders, winds); !written) {
    messages.Show(written.error().Text(), MessageIcon::kWarning);
  }
  messages.Show("File Imported", MessageIcon::kInformation);
  return true;
}

}  // namespace skerrow
