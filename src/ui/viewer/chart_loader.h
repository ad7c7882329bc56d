#pragma once

#include <QObject>
#include <QThreadPool>
#include <atomic>
#include <memory>
#include <optional>
#include <string>

#include "core/result.h"
#include "ui/viewer/chart_image.h"

namespace skerrow {

// Opens charts off the main thread, one at a time.
class ChartLoader final : public QObject {
  Q_OBJECT

 public:
  explicit ChartLoader(QObject* parent = nullptr);
  // Stops what is going on and waits until it has stopped.
  ~ChartLoader() override;

  // Begins to open the picture at `path`, whatever was being opened before being dropped without a
  // word. Ends with Loaded, Failed or Cancelled, and Reduced after Loaded.
  void Start(const std::string& path);
  // Stops an opening; Cancelled follows. Without one it does nothing.
  void Cancel();
  // Whether an opening is under way, up to Loaded.
  bool loading() const { return job_ != nullptr && !job_->loaded; }

 signals:
  // So much of the file has been read, 0 to 100.
  void Progressed(int percent);
  // The chart can be shown.
  void Loaded(std::shared_ptr<skerrow::ChartImage> image);
  // The chart that came with Loaded now has its reductions.
  void Reduced();
  // The file cannot be opened.
  void Failed(const skerrow::Error& error);
  void Cancelled();

 private:
  struct Job {
    std::atomic<bool> dropped{false};
    bool loaded = false;  // main thread only
  };

  void Run(const std::shared_ptr<Job>& job, const std::string& path);
  // Has `report` called on the main thread, unless the job has been dropped meanwhile.
  template <typename Report>
  void Post(const std::shared_ptr<Job>& job, Report report);

  std::shared_ptr<Job> job_;
  QThreadPool pool_;
};

}  // namespace skerrow
