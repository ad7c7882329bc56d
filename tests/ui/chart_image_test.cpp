#include "ui/viewer/chart_image.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace skerrow {
namespace {

using Quality = ChartImage::Quality;

Picture Noise(int width, int height, unsigned seed) {
  std::mt19937 random(seed);
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) *
                                    static_cast<std::size_t>(height));
  for (std::uint32_t& pixel : pixels) pixel = 0xff000000U | (random() & 0xffffffU);
  return PictureFromRgb32(width, height, std::move(pixels));
}

Picture IndexedNoise(int width, int height, unsigned seed) {
  std::mt19937 random(seed);
  auto bytes = std::make_shared<std::vector<std::uint8_t>>(static_cast<std::size_t>(width) *
                                                           static_cast<std::size_t>(height));
  for (std::uint8_t& byte : *bytes) byte = static_cast<std::uint8_t>(random() % 7);
  Picture picture;
  picture.width = width;
  picture.height = height;
  picture.format = PixelFormat::kIndexed8;
  picture.bytes_per_line = width;
  for (std::uint32_t& colour : picture.palette) colour = 0xff000000U | (random() & 0xffffffU);
  picture.pixels = std::shared_ptr<const std::uint8_t>(bytes, bytes->data());
  return picture;
}

std::vector<std::uint32_t> Block(const ChartImage& image, double scale, int x, int y, int width,
                                 int height, Quality quality) {
  std::vector<std::uint32_t> out(static_cast<std::size_t>(width) *
                                 static_cast<std::size_t>(height));
  image.Render(scale, x, y, width, height, quality, out.data(), width);
  return out;
}

double Channel(std::uint32_t pixel, int shift) { return (pixel >> shift) & 0xffU; }

// The mean of a channel over a part of the picture, worked out the long way.
double MeanOver(const Picture& picture, double left, double top, double right, double bottom,
                int shift) {
  double sum = 0.0;
  double area = 0.0;
  for (int y = static_cast<int>(top); y < std::min<double>(std::ceil(bottom), picture.height);
       ++y) {
    for (int x = static_cast<int>(left); x < std::min<double>(std::ceil(right), picture.width);
         ++x) {
      const double part = (std::min(x + 1.0, right) - std::max<double>(x, left)) *
                          (std::min(y + 1.0, bottom) - std::max<double>(y, top));
      sum += part * Channel(picture.Pixel(x, y), shift);
      area += part;
    }
  }
  return sum / area;
}

TEST(ChartImage, FineFormIsTheMeanOverTheArea) {
  for (const Picture& picture : {Noise(97, 61, 1), IndexedNoise(97, 61, 2)}) {
    const ChartImage image(picture);
    for (const double scale : {0.13, 0.5, 0.73, 1.0, 1.3, 2.0, 2.5, 5.0}) {
      const int width = static_cast<int>(97 * scale);
      const int height = static_cast<int>(61 * scale);
      const auto block = Block(image, scale, 0, 0, width, height, Quality::kFine);
      for (int y = 0; y < height; y += 3) {
        for (int x = 0; x < width; x += 2) {
          for (const int shift : {0, 8, 16}) {
            const double expected =
                MeanOver(picture, x / scale, y / scale, (x + 1) / scale, (y + 1) / scale, shift);
            // The weights are rounded to 256ths.
            ASSERT_NEAR(Channel(block[static_cast<std::size_t>(y * width + x)], shift), expected,
                        3.0)
                << scale << ": " << x << "," << y;
          }
        }
      }
    }
  }
}

TEST(ChartImage, BlocksFitTogetherWithoutSeams) {
  ChartImage image(Noise(1500, 1100, 5));
  image.BuildLevels();
  for (const double scale : {0.07, 0.21, 0.333, 0.77, 1.37, 2.5}) {
    for (const Quality quality : {Quality::kCoarse, Quality::kFine}) {
      const auto whole = Block(image, scale, 30, 20, 64, 48, quality);
      for (const auto& [x, y] : {std::pair{0, 0}, {17, 0}, {0, 31}, {17, 31}, {40, 9}}) {
        const auto part = Block(image, scale, 30 + x, 20 + y, 16, 16, quality);
        for (int j = 0; j < 16; ++j) {
          for (int i = 0; i < 16; ++i) {
            ASSERT_EQ(part[static_cast<std::size_t>(j * 16 + i)],
                      whole[static_cast<std::size_t>((y + j) * 64 + x + i)])
                << scale;
          }
        }
      }
    }
  }
}

TEST(ChartImage, ReductionsShowTheSamePictureForLittleMemory) {
  for (const Picture& picture : {Noise(2111, 2050, 6), IndexedNoise(2111, 2050, 7)}) {
    const ChartImage plain(picture);
    ChartImage reduced(picture);
    reduced.BuildLevels();
    ASSERT_TRUE(reduced.levels_ready());
    EXPECT_GT(reduced.MemoryUse(), picture.ByteCount());
    EXPECT_LT(static_cast<double>(reduced.MemoryUse()),
              1.09 * static_cast<double>(picture.ByteCount()));
    for (const double scale : {0.05, 0.1, 0.25}) {
      const int width = static_cast<int>(2111 * scale);
      const int height = static_cast<int>(2050 * scale);
      const auto expected = Block(plain, scale, 0, 0, width, height, Quality::kFine);
      const auto shown = Block(reduced, scale, 0, 0, width, height, Quality::kFine);
      double worst = 0.0;
      double sum = 0.0;
      for (std::size_t i = 0; i < shown.size(); ++i) {
        const double off = std::abs(Channel(shown[i], 8) - Channel(expected[i], 8));
        worst = std::max(worst, off);
        sum += off;
      }
      // Noise is the worst case; a reduction shifts no edge by more than its own pixel.
      EXPECT_LT(worst, 60.0) << scale;
      EXPECT_LT(sum / static_cast<double>(shown.size()), 8.0) << scale;
    }
  }
}

TEST(ChartImage, CancelledReductionsLeaveThePictureUsable) {
  ChartImage image(Noise(2048, 2048, 8));
  int rows = 0;
  image.BuildLevels([&rows] { return ++rows > 100; });
  EXPECT_FALSE(image.levels_ready());
  EXPECT_EQ(Block(image, 1.0, 3, 4, 1, 1, Quality::kFine)[0], image.picture().Pixel(3, 4));
}

TEST(ApplyLook, NightTurnsPaperDarkAndInkLight) {
  std::uint32_t white = 0xffffffffU;
  std::uint32_t black = 0xff000000U;
  std::uint32_t sand = 0xfff0e0b0U;
  const Look night{true, 100};
  ApplyLook(night, &white, 1);
  ApplyLook(night, &black, 1);
  ApplyLook(night, &sand, 1);
  EXPECT_EQ(white, 0xff000000U);
  EXPECT_EQ(black, 0xffa5a5a5U);
  // The hue stays: red over green over blue.
  EXPECT_GT(Channel(sand, 16), Channel(sand, 8));
  EXPECT_GT(Channel(sand, 8), Channel(sand, 0));
  EXPECT_LT(Channel(sand, 16), 80.0);
}

TEST(ApplyLook, BrightnessScalesAndFullDayChangesNothing) {
  std::uint32_t pixels[] = {0xffc86432U, 0xffc86432U, 0xffc86432U};
  ApplyLook({}, &pixels[0], 1);
  ApplyLook({false, 50}, &pixels[1], 1);
  ApplyLook({false, -5}, &pixels[2], 1);  // no darker than 10
  EXPECT_EQ(pixels[0], 0xffc86432U);
  EXPECT_EQ(pixels[1], 0xff643219U);
  EXPECT_EQ(pixels[2], 0xff140a05U);
}

}  // namespace
}  // namespace skerrow
