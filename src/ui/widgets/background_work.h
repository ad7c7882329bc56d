#pragma once

#include <atomic>
#include <chrono>
#include <future>

#include "core/progress.h"
#include "ui/desktop.h"
#include "ui/widgets/progress_dialog.h"

namespace skerrow {

// The progress of work in another thread, asked from this one.
class ThreadProgress final : public Progress {
 public:
  bool Step(double percent) override {
    percent_ = percent;
    return !stopped_;
  }
  double percent() const { return percent_; }
  void Stop() { stopped_ = true; }

 private:
  std::atomic<double> percent_ = 0.0;
  std::atomic<bool> stopped_ = false;
};

// Runs `work`, which takes a Progress, in a thread of its own and gives what it gives. The windows
// answer meanwhile; a progress window over `parent` offers to stop it. `work` must not touch what
// the windows share.
template <typename Work>
auto RunInBackground(Desktop& desktop, QWidget* parent, const char* what, Work work) {
  constexpr std::chrono::milliseconds kLookEach{10};
  ThreadProgress told;
  auto value = std::async(std::launch::async, [&] { return work(static_cast<Progress&>(told)); });
  ProgressDialog shown(parent, what, desktop.window.StartProgress(what));
  while (value.wait_for(kLookEach) != std::future_status::ready) {
    if (!shown.Step(told.percent())) told.Stop();
  }
  return value.get();
}

}  // namespace skerrow
