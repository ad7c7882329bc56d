#pragma once

#include <chrono>
#include <future>

#include "core/thread_progress.h"
#include "ui/desktop.h"
#include "ui/widgets/progress_dialog.h"

namespace skerrow {

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
