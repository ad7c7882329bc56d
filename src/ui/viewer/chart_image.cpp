#include "ui/viewer/chart_image.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace skerrow {
namespace {

// The least side of the smallest reduction.
constexpr int kSmallestSide = 256;

// A colour as three sums of 16 bits each: blue lowest, then green, then red. A sum of weights of
// 256 in all cannot overflow its 16 bits.
using Sums = std::uint64_t;

constexpr Sums Spread(std::uint32_t pixel) {
  return (pixel & 0xffU) | (Sums{pixel & 0xff00U} << 8) | (Sums{pixel & 0xff0000U} << 16);
}

std::uint32_t Rgb32At(const std::uint8_t* row, int x) {
  std::uint32_t pixel = 0;
  std::memcpy(&pixel, row + std::size_t{4} * static_cast<std::size_t>(x), sizeof pixel);
  return pixel;
}

// Reads the pixels of a row in either format as colours or as sums.
class RowReader {
 public:
  explicit RowReader(const Picture& picture) : picture_(picture) {
    if (!indexed()) return;
    for (std::size_t i = 0; i < spread_.size(); ++i) spread_[i] = Spread(picture.palette[i]);
  }
  bool indexed() const { return picture_.format == PixelFormat::kIndexed8; }
  Sums SumsAt(const std::uint8_t* row, int x) const {
    return indexed() ? spread_[row[x]] : Spread(Rgb32At(row, x));
  }
  std::uint32_t ColourAt(const std::uint8_t* row, int x) const {
    return indexed() ? picture_.palette[row[x]] : Rgb32At(row, x) | 0xff000000U;
  }

 private:
  const Picture& picture_;
  std::array<Sums, 256> spread_{};
};

// For each pixel of one axis of a block, which pixels of the source it covers and how much of each
// counts, in 256ths.
struct AxisTaps {
  struct Tap {
    int first = 0;
    int count = 0;
    std::size_t weights = 0;  // index of the first one
  };
  std::vector<Tap> taps;
  std::vector<std::uint32_t> weights;
};

AxisTaps MakeTaps(double scale, int start, int count, int source) {
  AxisTaps axis;
  axis.taps.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const double from = std::clamp((start + i) / scale, 0.0, static_cast<double>(source));
    const double to = std::clamp((start + i + 1) / scale, 0.0, static_cast<double>(source));
    int first = std::clamp(static_cast<int>(std::floor(from)), 0, source - 1);
    const int last = std::clamp(static_cast<int>(std::ceil(to)) - 1, first, source - 1);
    AxisTaps::Tap tap{first, last - first + 1, axis.weights.size()};
    std::int64_t left = 256;
    std::size_t heaviest = axis.weights.size();
    for (int pixel = first; pixel <= last; ++pixel) {
      const double part = std::min(to, pixel + 1.0) - std::max(from, static_cast<double>(pixel));
      const double share = to > from ? std::clamp(part / (to - from), 0.0, 1.0) : 0.0;
      const auto weight = static_cast<std::uint32_t>(std::lround(share * 256.0));
      left -= weight;
      axis.weights.push_back(weight);
      if (weight > axis.weights[heaviest]) heaviest = axis.weights.size() - 1;
    }
    // What rounding lost or gained goes to the pixel that counts most.
    axis.weights[heaviest] = static_cast<std::uint32_t>(axis.weights[heaviest] + left);
    while (tap.count > 1 && axis.weights[tap.weights] == 0) {
      ++tap.first;
      ++tap.weights;
      --tap.count;
    }
    while (tap.count > 1 &&
           axis.weights[tap.weights + static_cast<std::size_t>(tap.count) - 1] == 0) {
      --tap.count;
    }
    axis.taps.push_back(tap);
  }
  return axis;
}

// One row of the source, averaged along the columns of a block.
void AverageRow(const RowReader& reader, const std::uint8_t* row, const AxisTaps& columns,
                std::vector<Sums>& out) {
  for (std::size_t i = 0; i < columns.taps.size(); ++i) {
    const AxisTaps::Tap& tap = columns.taps[i];
    const std::uint32_t* weight = &columns.weights[tap.weights];
    Sums sum = 0;
    for (int k = 0; k < tap.count; ++k) sum += reader.SumsAt(row, tap.first + k) * weight[k];
    out[i] = sum;
  }
}

void RenderArea(const Picture& source, double scale, int x, int y, int width, int height,
                std::uint32_t* out, std::ptrdiff_t stride) {
  const RowReader reader(source);
  const AxisTaps columns = MakeTaps(scale, x, width, source.width);
  const AxisTaps rows = MakeTaps(scale, y, height, source.height);
  // Rows next to each other share at most two rows of the source: each of the two slots keeps one.
  const auto block_width = static_cast<std::size_t>(width);
  std::array<std::vector<Sums>, 2> slot{std::vector<Sums>(block_width),
                                        std::vector<Sums>(block_width)};
  std::array<int, 2> slot_row{-1, -1};
  std::vector<std::uint32_t> sum(3 * block_width);
  for (int j = 0; j < height; ++j, out += stride) {
    const AxisTaps::Tap& tap = rows.taps[static_cast<std::size_t>(j)];
    std::fill(sum.begin(), sum.end(), 0x8000U);
    for (int k = 0; k < tap.count; ++k) {
      const int row = tap.first + k;
      const auto which = static_cast<std::size_t>(row & 1);
      if (slot_row[which] != row) {
        AverageRow(reader, source.Row(row), columns, slot[which]);
        slot_row[which] = row;
      }
      const std::uint32_t weight = rows.weights[tap.weights + static_cast<std::size_t>(k)];
      const std::vector<Sums>& averaged = slot[which];
      for (std::size_t i = 0; i < block_width; ++i) {
        sum[3 * i] += static_cast<std::uint32_t>(averaged[i] & 0xffffU) * weight;
        sum[3 * i + 1] += static_cast<std::uint32_t>((averaged[i] >> 16) & 0xffffU) * weight;
        sum[3 * i + 2] += static_cast<std::uint32_t>((averaged[i] >> 32) & 0xffffU) * weight;
      }
    }
    for (std::size_t i = 0; i < block_width; ++i) {
      out[i] = 0xff000000U | (sum[3 * i] >> 16) | ((sum[3 * i + 1] >> 16) << 8) |
               ((sum[3 * i + 2] >> 16) << 16);
    }
  }
}

// Also the whole of the work at a scale of 1, where the nearest pixel is the pixel.
void RenderNearest(const Picture& source, double scale, int x, int y, int width, int height,
                   std::uint32_t* out, std::ptrdiff_t stride) {
  const RowReader reader(source);
  const auto nearest = [scale](int place, int size) {
    return std::clamp(static_cast<int>(std::floor((place + 0.5) / scale)), 0, size - 1);
  };
  std::vector<int> columns(static_cast<std::size_t>(width));
  for (int i = 0; i < width; ++i)
    columns[static_cast<std::size_t>(i)] = nearest(x + i, source.width);
  const std::uint32_t* above = nullptr;
  int row_above = -1;
  for (int j = 0; j < height; ++j, out += stride) {
    const int row_number = nearest(y + j, source.height);
    if (row_number == row_above) {
      std::copy_n(above, width, out);
    } else {
      const std::uint8_t* row = source.Row(row_number);
      for (int i = 0; i < width; ++i) {
        out[i] = reader.ColourAt(row, columns[static_cast<std::size_t>(i)]);
      }
    }
    above = out;
    row_above = row_number;
  }
}

// `source` at one `factor`th of its size, each pixel the mean of the square it stands for. Empty
// when cancelled.
Picture Reduce(const Picture& source, int factor, const std::function<bool()>& cancelled) {
  const RowReader reader(source);
  const int width = (source.width + factor - 1) / factor;
  const int height = (source.height + factor - 1) / factor;
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) *
                                    static_cast<std::size_t>(height));
  // The pixels of a square stay within the 16 bits of a sum.
  static_assert(16 * 16 * 255 <= std::numeric_limits<std::uint16_t>::max());
  std::vector<Sums> sums(static_cast<std::size_t>(width));
  std::uint32_t* out = pixels.data();
  for (int y = 0; y < height; ++y, out += width) {
    if (cancelled && cancelled()) return {};
    const int rows = std::min(factor, source.height - y * factor);
    std::fill(sums.begin(), sums.end(), 0);
    for (int r = 0; r < rows; ++r) {
      const std::uint8_t* row = source.Row(y * factor + r);
      for (int x = 0; x < width; ++x) {
        const int end = std::min((x + 1) * factor, source.width);
        Sums sum = 0;
        for (int column = x * factor; column < end; ++column) sum += reader.SumsAt(row, column);
        sums[static_cast<std::size_t>(x)] += sum;
      }
    }
    for (int x = 0; x < width; ++x) {
      const auto count = static_cast<std::uint32_t>(
          rows * (std::min((x + 1) * factor, source.width) - x * factor));
      const Sums sum = sums[static_cast<std::size_t>(x)];
      const auto mean = [count, sum](int shift) {
        return (static_cast<std::uint32_t>((sum >> shift) & 0xffffU) + count / 2) / count;
      };
      out[x] = 0xff000000U | mean(0) | (mean(16) << 8) | (mean(32) << 16);
    }
  }
  return PictureFromRgb32(width, height, std::move(pixels));
}

}  // namespace

void ChartImage::BuildLevels(const std::function<bool()>& cancelled) {
  if (picture_.empty() || levels_ready()) return;
  std::vector<Level> levels;
  int reduction = picture_.format == PixelFormat::kIndexed8 ? 8 : 4;
  int factor = reduction;
  const Picture* source = &picture_;
  levels.reserve(16);  // the pointer above must hold
  while (std::min(picture_.width, picture_.height) / reduction >= kSmallestSide) {
    Picture reduced = Reduce(*source, factor, cancelled);
    if (reduced.empty()) return;
    levels.push_back({reduction, std::move(reduced)});
    source = &levels.back().picture;
    factor = 2;
    reduction *= 2;
  }
  levels_ = std::move(levels);
  levels_ready_.store(true, std::memory_order_release);
}

std::int64_t ChartImage::MemoryUse() const {
  std::int64_t bytes = picture_.ByteCount();
  if (levels_ready()) {
    for (const Level& level : levels_) bytes += level.picture.ByteCount();
  }
  return bytes;
}

const Picture& ChartImage::SourceFor(double scale, int& reduction) const {
  const Picture* source = &picture_;
  reduction = 1;
  if (!levels_ready()) return *source;
  for (const Level& level : levels_) {
    if (scale * level.reduction > 1.0) break;
    source = &level.picture;
    reduction = level.reduction;
  }
  return *source;
}

void ChartImage::Render(double scale, int x, int y, int width, int height, Quality quality,
                        std::uint32_t* out, std::ptrdiff_t stride) const {
  if (picture_.empty() || width <= 0 || height <= 0 || !(scale > 0.0)) return;
  int reduction = 1;
  const Picture& source = SourceFor(scale, reduction);
  const double source_scale = scale * reduction;
  if (quality == Quality::kCoarse || source_scale == 1.0) {
    RenderNearest(source, source_scale, x, y, width, height, out, stride);
  } else {
    RenderArea(source, source_scale, x, y, width, height, out, stride);
  }
}

void ApplyLook(const Look& look, std::uint32_t* pixels, std::size_t count) {
  const double top = CeilingOf(look);
  if (top == 255.0) return;
  std::array<std::uint8_t, 256> shown{};
  for (std::size_t i = 0; i < shown.size(); ++i) {
    shown[i] = static_cast<std::uint8_t>(std::lround(static_cast<double>(i) * top / 255.0));
  }
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t pixel = pixels[i];
    int red = static_cast<int>((pixel >> 16) & 0xffU);
    int green = static_cast<int>((pixel >> 8) & 0xffU);
    int blue = static_cast<int>(pixel & 0xffU);
    if (look.night) {
      // The lightness turned over by one step for all three: the hue and its strength stay.
      const int shift = 255 - std::max({red, green, blue}) - std::min({red, green, blue});
      red += shift;
      green += shift;
      blue += shift;
    }
    pixels[i] = 0xff000000U | (std::uint32_t{shown[static_cast<std::size_t>(red)]} << 16) |
                (std::uint32_t{shown[static_cast<std::size_t>(green)]} << 8) |
                shown[static_cast<std::size_t>(blue)];
  }
}

}  // namespace skerrow
