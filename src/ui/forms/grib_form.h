#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "core/calendar.h"
#include "core/folders.h"
#include "core/messages.h"
#include "wind/forecast_file.h"

// What the dialog that imports forecasts lists and says, and its work.
namespace skerrow {

// The names of the forecast files in the user's folder, by name.
std::vector<std::string> ListForecasts(const Folders& folders);

// The forecast that comes with the program.
std::string SampleForecast(const Folders& folders);

// "Downloaded on 5/12/2026(At 06:01)  Valid from 6/12/2026" for a file name with "GFS" and "_" in
// it, from its parts that are a date of eight digits and a time of four or six. One date stands for
// both. Empty for other names, and for one without a date and a time.
std::string DownloadText(std::string_view file_name);

// The messages of a file, under a heading: number, parameter and time, parted by tabs.
std::vector<std::string> GribRows(const std::vector<GribRecord>& records);

// A message to be shown once the work is done.
struct KeptMessage {
  std::string text;
  MessageIcon icon = MessageIcon::kNone;
};

// The import of a forecast in a thread of its own: reads the file, then puts its wind in the place
// of the store's. Whoever destroys it stops it and waits.
class ForecastImport {
 public:
  ForecastImport(Folders folders, std::string path, std::optional<DayAndYear> begin_today);
  ~ForecastImport();
  ForecastImport(const ForecastImport&) = delete;
  ForecastImport& operator=(const ForecastImport&) = delete;

  // Stops the reading at its next message. The store is left alone, unless it is being written.
  void Cancel() { cancelled_ = true; }

  bool done() const { return done_; }
  bool writing() const { return writing_; }
  int records() const { return records_; }     // messages read so far
  double percent() const { return percent_; }  // of the file
  bool cancelled() const { return cancelled_; }

  // What came of it, once it is done.
  bool imported() const { return imported_; }
  const std::vector<std::string>& rows() const { return rows_; }
  const std::vector<KeptMessage>& messages() const { return messages_; }

 private:
  class Keeper;
  class Teller;
  void Run();

  const Folders folders_;
  const std::string path_;
  const std::optional<DayAndYear> begin_today_;
  std::atomic<bool> cancelled_ = false;
  std::atomic<bool> done_ = false;
  std::atomic<bool> writing_ = false;
  std::atomic<int> records_ = 0;
  std::atomic<double> percent_ = 0.0;
  bool imported_ = false;
  std::vector<std::string> rows_;
  std::vector<KeptMessage> messages_;
  std::thread thread_;
};

}  // namespace skerrow
