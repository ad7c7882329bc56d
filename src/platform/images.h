#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/result.h"

// Reading of picture files in raster formats. A file's kind is told by its content; its name does
// not matter. Drawings such as SVG are refused: a hundred bytes of one can ask for any number of
// pixels.
namespace skerrow {

// How the pixels of a Picture are stored.
enum class PixelFormat {
  kIndexed8,  // one byte a pixel, an index into the palette
  kRgb32      // four bytes a pixel, 0xffrrggbb in the machine's byte order
};

// The largest picture that is opened, told by its header before anything is decoded: twice the
// largest sheet there is, 20,000 x 13,000 pixels (an A0 chart at 400 dots an inch). It takes 2 GB
// of memory in full colour and half a gigabyte with a palette, as charts have.
inline constexpr std::int64_t kMaxPicturePixels = std::int64_t{512} * 1024 * 1024;

// A decoded picture. The pixels are shared between copies and never change.
struct Picture {
  int width = 0;   // pixels
  int height = 0;  // pixels
  PixelFormat format = PixelFormat::kRgb32;
  std::int64_t bytes_per_line = 0;
  std::array<std::uint32_t, 256> palette{};    // 0xffrrggbb; of kIndexed8 only
  std::shared_ptr<const std::uint8_t> pixels;  // the first byte of the first row

  bool empty() const { return width <= 0 || height <= 0 || pixels == nullptr; }
  std::int64_t ByteCount() const { return bytes_per_line * height; }
  const std::uint8_t* Row(int y) const { return pixels.get() + y * bytes_per_line; }
  // The colour of one pixel inside the picture, 0xffrrggbb.
  std::uint32_t Pixel(int x, int y) const;
};

// What can be known of a picture file without decoding it.
struct PictureInfo {
  int width = 0;
  int height = 0;
  std::string kind;  // "png", "tiff", "jpeg" ..
};

// How a long decoding reports and is stopped. Both are called on the decoding thread.
struct DecodeHooks {
  std::function<void(int percent)> progress;  // of the file read, 0 to 100; may be empty
  std::function<bool()> cancelled;            // may be empty
};

// The reason of the error of a decoding that was cancelled.
inline constexpr char kDecodeCancelled[] = "the opening was cancelled";

// Size and kind of the picture at `path`. Errors: missing, no file, unreadable, no raster picture,
// too large.
Result<PictureInfo> ReadPictureInfo(const std::string& path);

// The picture at `path` in its own depth: palette, grey and black-and-white pictures as
// kIndexed8, all others as kRgb32, transparent parts on white. Errors: as ReadPictureInfo, damaged,
// cancelled. May be called from any thread.
Result<Picture> DecodePicture(const std::string& path, const DecodeHooks& hooks = {});

// The pixels of a picture as red, green, blue, 255 bytes, row by row without gaps.
std::vector<std::uint8_t> ToRgba(const Picture& picture);

// A kRgb32 picture of the given size over `pixels` (0xffrrggbb, row by row without gaps).
Picture PictureFromRgb32(int width, int height, std::vector<std::uint32_t> pixels);

// Writes a picture as PNG. Error: the file and the reason.
Status WritePng(const std::string& path, const Picture& picture);

}  // namespace skerrow
