#pragma once

#include <QImage>
#include <QPoint>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "ui/drawing/drawing_surface.h"
#include "ui/drawing/look.h"

namespace skerrow {

// Stamps (DrawingSurface::Stamp) that are drawn once and copied from then on. What is kept is
// bounded.
class StampPictures {
 public:
  struct Picture {
    QImage image;   // cut to what is drawn; null: nothing is
    QPoint corner;  // its top left from the stamp's place, screen pixels
  };
  // The picture of a stamp in a look, for a screen of `ratio` screen pixels to one view pixel. Good
  // until the next call.
  const Picture& Get(std::string_view key, double reach, const StampDrawing& draw, const Look& look,
                     double ratio);
  std::int64_t MemoryUse() const { return bytes_; }

 private:
  std::unordered_map<std::string, Picture> pictures_;
  // What the pictures are for; another look or screen starts anew.
  Look look_;
  double ratio_ = 1.0;
  std::int64_t bytes_ = 0;
};

}  // namespace skerrow
