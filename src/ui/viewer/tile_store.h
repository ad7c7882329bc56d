#pragma once

#include <QImage>
#include <QObject>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <set>
#include <thread>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "ui/viewer/chart_image.h"

namespace skerrow {

// One tile of a chart scaled by `scale`: the square of kTileSize screen pixels whose top left
// pixel is (column, row) * kTileSize of the scaled picture.
struct TileKey {
  double scale = 1.0;
  int column = 0;
  int row = 0;

  friend bool operator==(const TileKey&, const TileKey&) = default;
  friend auto operator<=>(const TileKey&, const TileKey&) = default;
};

// The tiles of one chart that are held ready to be painted. What is asked for is there at once,
// coarse if need be; the fine form is made in the background and announced. Used from one thread.
class TileStore final : public QObject {
  Q_OBJECT

 public:
  static constexpr int kTileSize = 256;
  static constexpr std::int64_t kTileBytes = std::int64_t{4} * kTileSize * kTileSize;

  explicit TileStore(QObject* parent = nullptr);
  ~TileStore() override;

  // The chart to be shown; null: none. Forgets all tiles.
  void SetImage(std::shared_ptr<const ChartImage> image);
  // How it is shown. Forgets all tiles when that changes.
  void SetLook(const Look& look);
  const Look& look() const { return look_; }
  // The memory the tiles may take. Tiles of the last request stay whatever they take.
  void SetBudget(std::int64_t bytes) { budget_ = bytes; }

  // Says which tiles are on show, and which might be next; the fine forms are made in this order,
  // and nothing else any more. Every tile of `visible` can then be taken with Tile.
  void Request(const std::vector<TileKey>& visible, const std::vector<TileKey>& next);
  // A tile of the last request. Its pixels beyond the edges of the chart mean nothing.
  const QImage& Tile(const TileKey& key) const;

  // Whether all that was requested is there in its fine form.
  bool Idle() const;
  std::int64_t MemoryUse() const { return static_cast<std::int64_t>(tiles_.size()) * kTileBytes; }

 signals:
  // Fine forms of tiles on show have come.
  void TilesReady();

 private:
  struct Entry {
    QImage image;
    bool fine = false;
    std::uint64_t last_used = 0;
  };
  struct KeyHash {
    std::size_t operator()(const TileKey& key) const;
  };
  struct Job {
    TileKey key;
    std::uint64_t generation = 0;
    Look look;
    std::shared_ptr<const ChartImage> image;
  };

  static QImage Draw(const ChartImage& image, const Look& look, const TileKey& key,
                     ChartImage::Quality quality);
  void Forget();
  void Evict();
  void Work();
  void TakeFinished();

  std::shared_ptr<const ChartImage> image_;
  Look look_;
  std::int64_t budget_ = 64 * kTileBytes;
  std::uint64_t generation_ = 0;
  std::uint64_t use_ = 0;
  std::unordered_map<TileKey, Entry, KeyHash> tiles_;
  std::set<TileKey> visible_;

  mutable std::mutex mutex_;  // guards what follows
  std::condition_variable wake_;
  std::deque<Job> queue_;
  std::set<std::pair<std::uint64_t, TileKey>> in_work_;
  std::vector<std::tuple<TileKey, std::uint64_t, QImage>> finished_;
  bool stopping_ = false;
  std::vector<std::thread> workers_;
};

}  // namespace skerrow
