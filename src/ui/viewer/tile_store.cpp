#include "ui/viewer/tile_store.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace skerrow {

TileStore::TileStore(QObject* parent) : QObject(parent) {
  const unsigned cores = std::max(std::thread::hardware_concurrency(), 2U);
  const unsigned count = std::min(cores - 1, 4U);
  for (unsigned i = 0; i < count; ++i) workers_.emplace_back([this] { Work(); });
}

TileStore::~TileStore() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  wake_.notify_all();
  for (std::thread& worker : workers_) worker.join();
}

std::size_t TileStore::KeyHash::operator()(const TileKey& key) const {
  std::size_t hash = std::hash<double>()(key.scale);
  hash = hash * 1000003U + static_cast<std::size_t>(key.column);
  return hash * 1000003U + static_cast<std::size_t>(key.row);
}

void TileStore::SetImage(std::shared_ptr<const ChartImage> image) {
  Forget();
  image_ = std::move(image);
}

void TileStore::SetLook(const Look& look) {
  if (look == look_) return;
  Forget();
  look_ = look;
}

void TileStore::Forget() {
  tiles_.clear();
  visible_.clear();
  ++generation_;
  const std::lock_guard lock(mutex_);
  queue_.clear();
  finished_.clear();
}

QImage TileStore::Draw(const ChartImage& image, const Look& look, const TileKey& key,
                       ChartImage::Quality quality) {
  QImage tile(kTileSize, kTileSize, QImage::Format_RGB32);
  auto* pixels = reinterpret_cast<std::uint32_t*>(tile.bits());
  image.Render(key.scale, key.column * kTileSize, key.row * kTileSize, kTileSize, kTileSize,
               quality, pixels, kTileSize);
  ApplyLook(look, pixels, std::size_t{kTileSize} * kTileSize);
  return tile;
}

void TileStore::Request(const std::vector<TileKey>& visible, const std::vector<TileKey>& next) {
  if (image_ == nullptr) return;
  ++use_;
  visible_ = {visible.begin(), visible.end()};
  std::vector<TileKey> wanted;
  for (const TileKey& key : visible) {
    Entry& entry = tiles_[key];
    entry.last_used = use_;
    if (entry.image.isNull()) {
      // At a scale of 1 the quick form is the fine one.
      entry.image = Draw(*image_, look_, key, ChartImage::Quality::kCoarse);
      entry.fine = key.scale == 1.0;
    }
    if (!entry.fine) wanted.push_back(key);
  }
  for (const TileKey& key : next) {
    const auto found = tiles_.find(key);
    if (found == tiles_.end()) wanted.push_back(key);
  }
  Evict();
  std::size_t queued = 0;
  {
    const std::lock_guard lock(mutex_);
    queue_.clear();
    for (const TileKey& key : wanted) {
      if (in_work_.contains({generation_, key})) continue;
      queue_.push_back({key, generation_, look_, image_});
    }
    queued = queue_.size();
  }
  if (queued > 0) wake_.notify_all();
}

const QImage& TileStore::Tile(const TileKey& key) const {
  static const QImage none;
  const auto found = tiles_.find(key);
  return found == tiles_.end() ? none : found->second.image;
}

bool TileStore::Idle() const {
  const std::lock_guard lock(mutex_);
  return queue_.empty() && in_work_.empty() && finished_.empty();
}

void TileStore::Evict() {
  const auto most = static_cast<std::size_t>(std::max<std::int64_t>(budget_ / kTileBytes, 1));
  if (tiles_.size() <= most) return;
  std::vector<std::pair<std::uint64_t, TileKey>> old;
  for (const auto& [key, entry] : tiles_) {
    if (!visible_.contains(key)) old.emplace_back(entry.last_used, key);
  }
  std::sort(old.begin(), old.end());
  for (const auto& [last_used, key] : old) {
    if (tiles_.size() <= most) return;
    tiles_.erase(key);
  }
}

void TileStore::Work() {
  std::unique_lock lock(mutex_);
  while (true) {
    wake_.wait(lock, [this] { return stopping_ || !queue_.empty(); });
    if (stopping_) return;
    Job job = std::move(queue_.front());
    queue_.pop_front();
    const std::pair<std::uint64_t, TileKey> mark(job.generation, job.key);
    in_work_.insert(mark);
    lock.unlock();
    QImage tile = Draw(*job.image, job.look, job.key, ChartImage::Quality::kFine);
    job.image.reset();
    lock.lock();
    in_work_.erase(mark);
    const bool first = finished_.empty();
    finished_.emplace_back(job.key, job.generation, std::move(tile));
    if (first && !stopping_) {
      QMetaObject::invokeMethod(
          this, [this] { TakeFinished(); }, Qt::QueuedConnection);
    }
  }
}

void TileStore::TakeFinished() {
  std::vector<std::tuple<TileKey, std::uint64_t, QImage>> finished;
  {
    const std::lock_guard lock(mutex_);
    finished.swap(finished_);
  }
  bool shown = false;
  for (auto& [key, generation, image] : finished) {
    if (generation != generation_) continue;
    Entry& entry = tiles_[key];
    entry.image = std::move(image);
    entry.fine = true;
    entry.last_used = std::max(entry.last_used, use_);
    shown = shown || visible_.contains(key);
  }
  Evict();
  if (shown) emit TilesReady();
}

}  // namespace skerrow
