#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <future>
#include <string>
#include <vector>

#include "core/chart_source.h"

// The picture of a sheet on its way from the warping to the encoder.
namespace skerrow {

// How the colours of a chart come out: one byte a pixel, an index into a palette or a grey, or one
// for each of red, green and blue.
enum class Colours { kPalette, kGrey, kRgb };

using ChartPalette = std::vector<std::array<std::uint8_t, 3>>;  // red, green, blue

// A reading of the sheet from its top on, in strips; the next strip is worked out while the one
// before is being compressed.
class StripReader {
 public:
  // Makes the strip of `rows` rows from row `top` on into `out`, band after band; gives the reason
  // of a failure, empty for none.
  using Make = std::function<std::string(int top, int rows, std::uint8_t* out)>;

  StripReader(int width, int height, int bands, int strip_rows, Make make);
  ~StripReader();
  StripReader(const StripReader&) = delete;
  StripReader& operator=(const StripReader&) = delete;

  // Why a row could not be made; empty while all could.
  const std::string& fault() const { return fault_; }

  // A row of a band, counted from 0; null when it cannot be made. Rows come in order.
  const std::uint8_t* Row(int band, int y);

 private:
  struct Strip {
    std::string fault;
    std::vector<std::uint8_t> bytes;
  };

  int RowsFrom(int top) const;
  void Begin(int top);
  bool Advance();

  const int width_, height_, bands_, rows_;
  const Make make_;
  int top_ = -1;
  int held_ = 0;
  std::vector<std::uint8_t> strip_;
  std::string fault_;
  std::future<Strip> next_;
};

// A small picture that is gathered while the rows of the large one pass.
class SmallPicture {
 public:
  // `longest` is its longer side, pixels; `palette` has to outlive it.
  SmallPicture(int width, int height, int longest, Colours colours, const ChartPalette& palette);

  // Takes row `y` of a band, counted from 0.
  void Take(int band, int y, const std::uint8_t* row);
  RgbPicture Made() const;

 private:
  std::size_t Cell(int x, int y) const;
  void Add(std::size_t at, int value);

  const int whole_width_, whole_height_;
  const Colours colours_;
  const ChartPalette& palette_;
  const int width_, height_;
  const int skip_x_, skip_y_;  // of the large picture, each so manieth pixel counts
  std::vector<std::uint32_t> sums_;
  std::vector<std::uint32_t> counts_;
};

}  // namespace skerrow
