#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "platform/images.h"
#include "ui/drawing/look.h"

namespace skerrow {

// A chart's picture with the pyramid of its reductions, from which any part of it is drawn at any
// scale. The reductions take a twelfth of the picture's own memory: they begin at a quarter of its
// size when it has four bytes a pixel, at an eighth when it has one. Drawing is safe from any
// number of threads, also while the reductions are being made.
class ChartImage {
 public:
  explicit ChartImage(Picture picture) : picture_(std::move(picture)) {}

  int width() const { return picture_.width; }
  int height() const { return picture_.height; }
  const Picture& picture() const { return picture_; }

  // Makes the reductions; once. Until it is done drawing at small scales is slower, and the same to
  // the eye. `cancelled` ends it early, without any reductions; it may be empty.
  void BuildLevels(const std::function<bool()>& cancelled = {});
  bool levels_ready() const { return levels_ready_.load(std::memory_order_acquire); }

  // Memory held, in bytes.
  std::int64_t MemoryUse() const;

  enum class Quality {
    kCoarse,  // the nearest pixel: at once, jagged below 100 %
    kFine     // the mean over the area that a pixel covers
  };
  // A block of pixels of the picture as scaled by `scale` (above 0): the one whose top left pixel
  // is (x, y) of the scaled picture. Each pixel depends on its place alone, so blocks fit together
  // without seams. At a scale of 1 it is the picture itself; at 2, 3 .. each pixel is repeated; in
  // between pixels keep sharp edges. Beyond the edges of the picture the edge goes on. `out` takes
  // 0xffrrggbb, rows `stride` pixels apart.
  void Render(double scale, int x, int y, int width, int height, Quality quality,
              std::uint32_t* out, std::ptrdiff_t stride) const;

 private:
  struct Level {
    int reduction = 1;
    Picture picture;
  };
  // The smallest form of the picture that has at least the detail of `scale`.
  const Picture& SourceFor(double scale, int& reduction) const;

  Picture picture_;
  std::vector<Level> levels_;
  std::atomic<bool> levels_ready_{false};
};

// Changes pixels (0xffrrggbb) to a look.
void ApplyLook(const Look& look, std::uint32_t* pixels, std::size_t count);

}  // namespace skerrow
