#include "ui/forms/grib_form.h"

#include <algorithm>
#include <filesystem>

#include "core/files.h"
#include "core/text.h"
#include "platform/forecasts.h"
#include "wind/stored_wind.h"

namespace skerrow {
namespace {

// A run of digits of the name.
std::vector<std::string> DigitRuns(std::string_view name) {
  std::vector<std::string> runs;
  bool inside = false;
  for (const char c : name) {
    const bool digit = c >= '0' && c <= '9';
    if (digit && !inside) runs.emplace_back();
    if (digit) runs.back() += c;
    inside = digit;
  }
  return runs;
}

// "5/12/2026" of "20261205"; empty when there is no such date.
std::string DateOf(const std::string& run) {
  if (run.size() != 8) return "";
  const int year = std::stoi(run.substr(0, 4));
  const int month = std::stoi(run.substr(4, 2));
  const int day = std::stoi(run.substr(6, 2));
  if (year < 1900 || DateToDayOfYear(day, month, year) == 0) return "";
  return std::to_string(day) + "/" + std::to_string(month) + "/" + std::to_string(year);
}

// "06:01" of "0601" or "060133".
std::string TimeOf(const std::string& run) {
  if (run.size() != 4 && run.size() != 6) return "";
  if (std::stoi(run.substr(0, 2)) > 23 || std::stoi(run.substr(2, 2)) > 59) return "";
  return run.substr(0, 2) + ":" + run.substr(2, 2);
}

}  // namespace

std::vector<std::string> ListForecasts(const Folders& folders) {
  namespace fs = std::filesystem;
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator it(folders.GribData(), error), end; !error && it != end;
       it.increment(error)) {
    const std::string name = it->path().filename().string();
    if (IsForecastName(name) && FileReadable(it->path().string())) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string SampleForecast(const Folders& folders) {
  return JoinPath(folders.Samples(), "Channel low.grb");
}

std::string DownloadText(std::string_view file_name) {
  if (file_name.find("GFS") == std::string_view::npos ||
      file_name.find('_') == std::string_view::npos) {
    return "";
  }
  std::vector<std::string> dates;
  std::string time;
  for (const std::string& run : DigitRuns(file_name)) {
    if (std::string date = DateOf(run); !date.empty()) {
      dates.push_back(std::move(date));
    } else if (time.empty()) {
      time = TimeOf(run);
    }
  }
  if (dates.empty() || time.empty()) return "";
  return "Downloaded on " + dates.front() + "(At " + time + ") " + " Valid from " +
         (dates.size() > 1 ? dates[1] : dates.front());
}

std::vector<std::string> GribRows(const std::vector<GribRecord>& records) {
  std::vector<std::string> rows = {"Rec No\tParam Number\tTime"};
  int number = 0;
  for (const GribRecord& record : records) {
    rows.push_back(
        std::to_string(++number) + "\t" + std::to_string(record.parameter) + "\t" +
        (record.forecast_minutes == kUnhandledTime ? "unknown" : DaysText(record.Time())));
  }
  return rows;
}

class ForecastImport::Keeper final : public Messages {
 public:
  explicit Keeper(std::vector<KeptMessage>& kept) : kept_(kept) {}
  void Show(std::string_view text, MessageIcon icon, std::string_view) override {
    kept_.push_back({std::string(text), icon});
  }
  bool Ask(std::string_view, std::string_view) override { return false; }

 private:
  std::vector<KeptMessage>& kept_;
};

class ForecastImport::Teller final : public Progress {
 public:
  explicit Teller(ForecastImport& work) : work_(work) {}
  bool Step(double percent) override {
    ++work_.records_;
    work_.percent_ = percent;
    return !work_.cancelled_;
  }

 private:
  ForecastImport& work_;
};

ForecastImport::ForecastImport(Folders folders, std::string path,
                               std::optional<DayAndYear> begin_today)
    : folders_(std::move(folders)), path_(std::move(path)), begin_today_(begin_today) {
  thread_ = std::thread([this] { Run(); });
}

ForecastImport::~ForecastImport() {
  Cancel();
  thread_.join();
}

void ForecastImport::Run() {
  Keeper keeper(messages_);
  Teller teller(*this);
  const std::unique_ptr<ForecastReader> reader = MakeForecastReader();
  GribFile file = ReadForecastFile(path_, *reader, keeper, teller);
  if (begin_today_) BeginOn(*begin_today_, file.records);
  records_ = static_cast<int>(file.records.size());
  rows_ = GribRows(file.records);
  if (!cancelled_ && !file.records.empty()) {
    writing_ = true;
    imported_ = ImportForecast(folders_, std::move(file.records), std::nullopt, keeper);
  }
  done_ = true;
}

}  // namespace skerrow
