#include "platform/images.h"

#include <QImage>
#include <QTemporaryDir>
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace skerrow {
namespace {

class ImagesTest : public ::testing::Test {
 protected:
  std::string Path(const char* name) const {
    return folder_.filePath(QLatin1String(name)).toStdString();
  }
  // Saves `image` under a name that says nothing of its kind.
  std::string Save(const QImage& image, const char* name, const char* kind) const {
    EXPECT_TRUE(image.save(QString::fromStdString(Path(name)), kind)) << kind;
    return Path(name);
  }
  QTemporaryDir folder_;
};

QImage Colours() {
  QImage image(37, 21, QImage::Format_RGB32);
  for (int y = 0; y < 21; ++y) {
    for (int x = 0; x < 37; ++x) image.setPixel(x, y, qRgb(x * 6, y * 12, x + y));
  }
  return image;
}

TEST_F(ImagesTest, ReadsByContentWhateverTheName) {
  for (const char* kind : {"PNG", "TIFF", "BMP"}) {
    const std::string path = Save(Colours(), "9999-1.l55", kind);
    const auto info = ReadPictureInfo(path);
    ASSERT_TRUE(info.ok()) << kind << " " << info.error().Text();
    EXPECT_EQ(info->width, 37);
    EXPECT_EQ(info->height, 21);
    const auto picture = DecodePicture(path);
    ASSERT_TRUE(picture.ok()) << kind;
    EXPECT_EQ(picture->format, PixelFormat::kRgb32);
    for (int y = 0; y < 21; ++y) {
      for (int x = 0; x < 37; ++x) {
        ASSERT_EQ(picture->Pixel(x, y), Colours().pixel(x, y)) << kind;
      }
    }
  }
}

TEST_F(ImagesTest, PalettesGreysAndBlackAndWhiteStayOneByteAPixel) {
  QImage palette(30, 20, QImage::Format_Indexed8);
  palette.setColorTable({qRgb(10, 20, 30), qRgb(200, 100, 50), qRgb(0, 0, 255)});
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 30; ++x) palette.setPixel(x, y, static_cast<unsigned>((x + y) % 3));
  }
  const QImage grey = Colours().convertToFormat(QImage::Format_Grayscale8);
  const QImage mono = Colours().convertToFormat(QImage::Format_Mono);
  for (const QImage& image : {palette, grey, mono}) {
    const auto picture = DecodePicture(Save(image, "chart", "PNG"));
    ASSERT_TRUE(picture.ok());
    EXPECT_EQ(picture->format, PixelFormat::kIndexed8) << image.format();
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) ASSERT_EQ(picture->Pixel(x, y), image.pixel(x, y));
    }
  }
}

TEST_F(ImagesTest, TransparentPartsAreWhiteAndDeepColoursFit) {
  QImage image(2, 1, QImage::Format_ARGB32);
  image.setPixel(0, 0, qRgba(200, 0, 0, 0));
  image.setPixel(1, 0, qRgba(0, 0, 0, 128));
  const auto picture = DecodePicture(Save(image, "chart", "PNG"));
  ASSERT_TRUE(picture.ok());
  EXPECT_EQ(picture->Pixel(0, 0), 0xffffffffU);
  EXPECT_EQ(picture->Pixel(1, 0), 0xff7f7f7fU);

  QImage deep = Colours().convertToFormat(QImage::Format_RGBX64);
  const auto shallow = DecodePicture(Save(deep, "deep", "PNG"));
  ASSERT_TRUE(shallow.ok());
  EXPECT_EQ(shallow->Pixel(5, 6), Colours().pixel(5, 6));
}

TEST_F(ImagesTest, ErrorsNameTheFileAndTheReason) {
  std::ofstream(Path("text")) << "nothing that is a picture";
  std::ofstream(Path("empty"));
  EXPECT_EQ(DecodePicture(Path("text")).error().Text(),
            Path("text") + ": this is no kind of picture that can be opened");
  EXPECT_EQ(DecodePicture(Path("empty")).error().Text(), Path("empty") + ": the file is empty");
  EXPECT_EQ(DecodePicture(folder_.path().toStdString()).error().reason, "this is not a file");
  EXPECT_EQ(ReadPictureInfo(Path("missing")).error().path, Path("missing"));
  EXPECT_FALSE(ReadPictureInfo(Path("missing")).error().reason.empty());

  // Every cut of a good file gives an error or a picture, and never more.
  const std::string path = Save(Colours(), "whole", "PNG");
  std::ifstream file(path, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), {});
  int refused = 0;
  for (std::size_t length = 0; length < bytes.size(); length += 7) {
    std::ofstream(Path("cut"), std::ios::binary) << bytes.substr(0, length);
    const auto picture = DecodePicture(Path("cut"));
    if (!picture.ok()) {
      ++refused;
      EXPECT_EQ(picture.error().path, Path("cut"));
    }
  }
  EXPECT_GT(refused, 5);
}

// What would hang, or cost gigabytes, is refused by its kind and its header.
TEST_F(ImagesTest, PipesDrawingsAndHugeSheetsAreRefusedUndecoded) {
  alarm(20);
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(DecodePicture(Path("pipe")).error().Text(), Path("pipe") + ": this is not a file");
  alarm(0);
  std::ofstream(Path("9999-1.l55"))
      << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"32768\" height=\"32768\"/>";
  EXPECT_NE(DecodePicture(Path("9999-1.l55")).error().reason.find("no kind of picture"),
            std::string::npos);
  // A grey picture of one byte a pixel, all of them missing: only its header speaks.
  std::ofstream(Path("sheet")) << "P5 32000 16777 255\n";
  EXPECT_TRUE(ReadPictureInfo(Path("sheet")).ok());
  std::ofstream(Path("sheet")) << "P5 32000 16778 255\n";
  EXPECT_EQ(DecodePicture(Path("sheet")).error().reason,
            "the picture is too large, 32000 x 16778 pixels");
}

TEST_F(ImagesTest, ReportsProgressAndStopsWhenAsked) {
  QImage noise(800, 600, QImage::Format_RGB32);
  std::uint32_t random = 1;
  for (int y = 0; y < 600; ++y) {
    for (int x = 0; x < 800; ++x) {
      random = random * 1664525U + 1013904223U;
      noise.setPixel(x, y, 0xff000000U | random >> 8);
    }
  }
  const std::string path = Save(noise, "noise", "PNG");
  std::vector<int> steps;
  DecodeHooks hooks;
  hooks.progress = [&steps](int percent) { steps.push_back(percent); };
  ASSERT_TRUE(DecodePicture(path, hooks).ok());
  EXPECT_GT(steps.size(), 20U);
  EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
  hooks.cancelled = [&steps] { return steps.size() > 130; };
  steps.assign(100, 0);
  const auto stopped = DecodePicture(path, hooks);
  ASSERT_FALSE(stopped.ok());
  EXPECT_EQ(stopped.error().reason, kDecodeCancelled);
  EXPECT_LT(steps.size(), 140U);
  // At whatever read it is stopped, no decoder writes where it should not: the sanitizers tell.
  for (const char* format : {"TIFF", "PNG", "JPG"}) {
    const std::string small = Save(noise.copy(0, 0, 64, 48), "small", format);
    for (int most = 0; most < 60; ++most) {
      int reads = 0;
      DecodeHooks few;
      few.cancelled = [&reads, most] { return ++reads > most; };
      const auto decoded = DecodePicture(small, few);
      EXPECT_EQ(decoded.ok(), reads <= most) << format << most;
    }
  }
}

TEST_F(ImagesTest, WrittenPngComesBack) {
  const auto picture = PictureFromRgb32(2, 1, {0xff010203U, 0xfffffefdU});
  ASSERT_TRUE(WritePng(Path("out"), picture).ok());
  const auto back = DecodePicture(Path("out"));
  ASSERT_TRUE(back.ok());
  EXPECT_EQ(ToRgba(*back), (std::vector<std::uint8_t>{1, 2, 3, 255, 255, 254, 253, 255}));
  EXPECT_FALSE(WritePng(Path("no/such/folder"), picture).ok());
}

}  // namespace
}  // namespace skerrow
