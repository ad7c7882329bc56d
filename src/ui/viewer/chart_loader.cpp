#include "ui/viewer/chart_loader.h"

#include <utility>

namespace skerrow {

ChartLoader::ChartLoader(QObject* parent) : QObject(parent) {
  // A dropped opening may take a moment to notice; the next one need not wait for it.
  pool_.setMaxThreadCount(2);
}

ChartLoader::~ChartLoader() {
  if (job_ != nullptr) job_->dropped = true;
  pool_.waitForDone();
}

void ChartLoader::Start(const std::string& path) {
  if (job_ != nullptr) job_->dropped = true;
  job_ = std::make_shared<Job>();
  pool_.start([this, job = job_, path] { Run(job, path); });
}

void ChartLoader::Cancel() {
  if (!loading()) return;
  job_->dropped = true;
  job_.reset();
  emit Cancelled();
}

template <typename Report>
void ChartLoader::Post(const std::shared_ptr<Job>& job, Report report) {
  QMetaObject::invokeMethod(
      this,
      [this, job, report = std::move(report)]() mutable {
        if (job == job_ && !job->dropped) report();
      },
      Qt::QueuedConnection);
}

void ChartLoader::Run(const std::shared_ptr<Job>& job, const std::string& path) {
  const auto dropped = [&job] { return job->dropped.load(); };
  if (dropped()) return;
  DecodeHooks hooks;
  hooks.cancelled = dropped;
  hooks.progress = [this, &job](int percent) {
    Post(job, [this, percent] { emit Progressed(percent); });
  };
  auto picture = DecodePicture(path, hooks);
  if (dropped()) return;
  if (!picture) {
    Post(job, [this, error = picture.error()] {
      job_.reset();
      emit Failed(error);
    });
    return;
  }
  auto image = std::make_shared<ChartImage>(std::move(picture.value()));
  Post(job, [this, image] {
    job_->loaded = true;
    emit Loaded(image);
  });
  image->BuildLevels(dropped);
  Post(job, [this] { emit Reduced(); });
}

}  // namespace skerrow
