#pragma once

#include <atomic>

#include "core/progress.h"

namespace skerrow {

// The progress of work in another thread, asked from this one.
class ThreadProgress final : public Progress {
 public:
  bool Step(double percent) override {
    percent_ = percent;
    return !stopped_;
  }

  // Before the work begins, and begins once more.
  void Begin() {
    percent_ = 0.0;
    stopped_ = false;
  }
  // The work ends at its next step.
  void Stop() { stopped_ = true; }
  double percent() const { return percent_; }

 private:
  std::atomic<double> percent_ = 0.0;
  std::atomic<bool> stopped_ = false;
};

}  // namespace skerrow
