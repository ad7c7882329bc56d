#include "platform/chart_strips.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace skerrow {
namespace {

// How many pixels of the large picture along a side stand for one of the small one.
constexpr int kSamples = 6;

// A side of the small picture.
int SideOf(int side, int width, int height, int longest) {
  const double share = static_cast<double>(longest) / std::max(width, height);
  return std::clamp(static_cast<int>(std::lround(side * share)), 1, side);
}

}  // namespace

StripReader::StripReader(int width, int height, int bands, int strip_rows, Make make)
    : width_(width), height_(height), bands_(bands), rows_(strip_rows), make_(std::move(make)) {}

StripReader::~StripReader() {
  if (next_.valid()) next_.wait();
}

const std::uint8_t* StripReader::Row(int band, int y) {
  while (top_ < 0 || y >= top_ + held_) {
    if (!Advance()) return nullptr;
  }
  if (y < top_) return nullptr;
  const std::size_t line = static_cast<std::size_t>(band) * static_cast<std::size_t>(held_) +
                           static_cast<std::size_t>(y - top_);
  return strip_.data() + line * static_cast<std::size_t>(width_);
}

int StripReader::RowsFrom(int top) const { return std::min(rows_, height_ - top); }

void StripReader::Begin(int top) {
  if (top >= height_) return;
  next_ = std::async(std::launch::async, [this, top] {
    Strip strip;
    const int rows = RowsFrom(top);
    strip.bytes.resize(static_cast<std::size_t>(bands_) * static_cast<std::size_t>(rows) *
                       static_cast<std::size_t>(width_));
    strip.fault = make_(top, rows, strip.bytes.data());
    return strip;
  });
}

bool StripReader::Advance() {
  if (top_ < 0) Begin(0);
  if (!next_.valid()) return false;
  Strip strip = next_.get();
  fault_ = std::move(strip.fault);
  if (!fault_.empty()) return false;
  top_ = top_ < 0 ? 0 : top_ + held_;
  held_ = RowsFrom(top_);
  strip_ = std::move(strip.bytes);
  Begin(top_ + held_);
  return true;
}

SmallPicture::SmallPicture(int width, int height, int longest, Colours colours,
                           const ChartPalette& palette)
    : whole_width_(width),
      whole_height_(height),
      colours_(colours),
      palette_(palette),
      width_(SideOf(width, width, height, longest)),
      height_(SideOf(height, width, height, longest)),
      skip_x_(std::max(1, width / width_ / kSamples)),
      skip_y_(std::max(1, height / height_ / kSamples)),
      sums_(3 * static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)),
      counts_(sums_.size()) {}

void SmallPicture::Take(int band, int y, const std::uint8_t* row) {
  constexpr std::array<std::uint8_t, 3> kWhite = {255, 255, 255};
  if (y % skip_y_ != 0) return;
  for (int x = 0; x < whole_width_; x += skip_x_) {
    const std::size_t at = 3 * Cell(x, y);
    if (colours_ == Colours::kRgb) {
      Add(at + static_cast<std::size_t>(band), row[x]);
      continue;
    }
    for (std::size_t i = 0; i < 3; ++i) {
      const bool grey = colours_ == Colours::kGrey;
      Add(at + i, grey ? row[x] : (row[x] < palette_.size() ? palette_[row[x]] : kWhite)[i]);
    }
  }
}

RgbPicture SmallPicture::Made() const {
  RgbPicture picture{width_, height_, std::vector<std::uint8_t>(sums_.size(), 255)};
  for (std::size_t i = 0; i < sums_.size(); ++i) {
    if (counts_[i] == 0) continue;
    picture.pixels[i] = static_cast<std::uint8_t>((sums_[i] + counts_[i] / 2) / counts_[i]);
  }
  return picture;
}

std::size_t SmallPicture::Cell(int x, int y) const {
  const auto column = static_cast<std::size_t>(std::int64_t{x} * width_ / whole_width_);
  const auto line = static_cast<std::size_t>(std::int64_t{y} * height_ / whole_height_);
  return line * static_cast<std::size_t>(width_) + column;
}

void SmallPicture::Add(std::size_t at, int value) {
  sums_[at] += static_cast<std::uint32_t>(value);
  ++counts_[at];
}

}  // namespace skerrow
