#include "platform/images.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QString>
#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>
#include <string_view>
#include <utility>

#include "core/files.h"
#include "core/system_file.h"

namespace skerrow {
namespace {

// The raster formats, by the names that the decoders give them.
constexpr std::array<std::string_view, 10> kRasterFormats = {"png", "tiff", "tif",  "jpeg", "jpg",
                                                             "bmp", "gif",  "webp", "ppm",  "pgm"};

// A file that tells how much of it has been read, and that ends early when the reader should stop.
// It is deliberately no QFile, so that no decoder maps the file and passes by these reports.
class WatchedFile final : public QIODevice {
 public:
  WatchedFile(SystemFile source, const DecodeHooks& hooks)
      : source_(std::move(source)), hooks_(hooks) {}

  bool open(OpenMode mode) override {
    return file_.open(source_.descriptor(), mode) && QIODevice::open(mode | QIODevice::Unbuffered);
  }
  qint64 size() const override { return file_.size(); }
  bool seek(qint64 position) override { return QIODevice::seek(position) && file_.seek(position); }
  bool isSequential() const override { return false; }
  QString Reason() const { return file_.errorString(); }
  bool cancelled() const { return cancelled_; }
  bool failed() const { return failed_; }  // for Reason

 protected:
  qint64 readData(char* data, qint64 length) override {
    cancelled_ = cancelled_ || (hooks_.cancelled && hooks_.cancelled());
    // The end of the file, never a failure: the TIFF library takes the -1 of a failure for a length
    // and clears a byte before its own memory.
    if (cancelled_) return 0;
    const qint64 count = file_.read(data, length);
    if (count < 0) {
      failed_ = true;
      return 0;
    }
    if (hooks_.progress && file_.size() > 0) {
      const int percent = static_cast<int>(file_.pos() * 100 / file_.size());
      if (percent > percent_) hooks_.progress(percent_ = percent);
    }
    return count;
  }
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  SystemFile source_;
  QFile file_;
  const DecodeHooks& hooks_;
  int percent_ = -1;
  bool cancelled_ = false;
  bool failed_ = false;
};

// The decoders' own bound, which is far below a chart, is raised once to ours.
void RaiseAllocationLimit() {
  static std::once_flag once;
  std::call_once(once, [] {
    QImageReader::setAllocationLimit(
        static_cast<int>(kMaxPicturePixels * 4 / (std::int64_t{1024} * 1024)));
  });
}

std::string ReaderReason(const QImageReader& reader, const WatchedFile& file) {
  if (file.cancelled()) return kDecodeCancelled;
  if (file.failed()) return file.Reason().toStdString();
  if (file.size() == 0) return "the file is empty";
  switch (reader.error()) {
    case QImageReader::UnsupportedFormatError:
      return "this is no kind of picture that can be opened";
    case QImageReader::InvalidDataError:
      return "the picture is damaged";
    default:
      return "the picture cannot be read (" + reader.errorString().toStdString() + ")";
  }
}

// A picture that is open and has passed the checks that need no decoding.
struct OpenPicture {
  std::unique_ptr<WatchedFile> file;
  std::unique_ptr<QImageReader> reader;
  QSize size;
};

Result<std::shared_ptr<OpenPicture>> CheckPicture(const std::string& path,
                                                  const DecodeHooks& hooks) {
  Result<SystemFile> source = SystemFile::OpenForReading(path);
  if (!source) return source.error();
  auto picture = std::make_shared<OpenPicture>();
  picture->file = std::make_unique<WatchedFile>(std::move(source.value()), hooks);
  WatchedFile& file = *picture->file;
  if (!file.open(QIODevice::ReadOnly)) return Error{path, file.Reason().toStdString()};
  RaiseAllocationLimit();
  picture->reader = std::make_unique<QImageReader>();
  QImageReader& reader = *picture->reader;
  reader.setDecideFormatFromContent(true);
  reader.setDevice(&file);
  if (!reader.canRead()) return Error{path, ReaderReason(reader, file)};
  const std::string format = reader.format().toStdString();
  if (std::find(kRasterFormats.begin(), kRasterFormats.end(), format) == kRasterFormats.end()) {
    return Error{path, "this is no kind of picture that can be opened (" + format + ")"};
  }
  picture->size = reader.size();
  if (picture->size.isEmpty()) return Error{path, "the picture is damaged"};
  if (std::int64_t{picture->size.width()} * picture->size.height() > kMaxPicturePixels) {
    return Error{path, "the picture is too large, " + std::to_string(picture->size.width()) +
                           " x " + std::to_string(picture->size.height()) + " pixels"};
  }
  return picture;
}

// `image` in one of our two formats, without a second copy of the pixels where that can be.
void ToOwnFormat(QImage& image) {
  switch (image.format()) {
    case QImage::Format_Indexed8:
    case QImage::Format_RGB32:
      return;
    case QImage::Format_Grayscale8:
    case QImage::Format_Mono:
    case QImage::Format_MonoLSB:
      image.convertTo(QImage::Format_Indexed8);
      return;
    default:
      break;
  }
  if (image.hasAlphaChannel()) {
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
      auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
      for (int x = 0; x < image.width(); ++x) {
        const int paper = 255 - qAlpha(row[x]);
        row[x] = qRgb(qRed(row[x]) + paper, qGreen(row[x]) + paper, qBlue(row[x]) + paper);
      }
    }
    image.reinterpretAsFormat(QImage::Format_RGB32);
  } else {
    image.convertTo(QImage::Format_RGB32);
  }
}

// A palette entry on white paper.
std::uint32_t OnPaper(QRgb colour) {
  const auto mix = [alpha = qAlpha(colour)](int channel) {
    return (channel * alpha + 255 * (255 - alpha) + 127) / 255;
  };
  return qRgb(mix(qRed(colour)), mix(qGreen(colour)), mix(qBlue(colour)));
}

Picture Wrap(QImage image) {
  Picture picture;
  picture.width = image.width();
  picture.height = image.height();
  picture.bytes_per_line = image.bytesPerLine();
  picture.format =
      image.format() == QImage::Format_Indexed8 ? PixelFormat::kIndexed8 : PixelFormat::kRgb32;
  // An index beyond the colour table shows as white.
  picture.palette.fill(0xffffffffU);
  const QList<QRgb> table = image.colorTable();
  for (qsizetype i = 0; i < table.size() && i < 256; ++i) {
    picture.palette[static_cast<std::size_t>(i)] = OnPaper(table[i]);
  }
  auto owner = std::make_shared<const QImage>(std::move(image));
  picture.pixels = std::shared_ptr<const std::uint8_t>(owner, owner->constBits());
  return picture;
}

QImage AsQImage(const Picture& picture) {
  QImage image(
      picture.pixels.get(), picture.width, picture.height, picture.bytes_per_line,
      picture.format == PixelFormat::kIndexed8 ? QImage::Format_Indexed8 : QImage::Format_RGB32);
  if (picture.format == PixelFormat::kIndexed8) {
    image.setColorTable(QList<QRgb>(picture.palette.begin(), picture.palette.end()));
  }
  return image;
}

}  // namespace

std::uint32_t Picture::Pixel(int x, int y) const {
  if (format == PixelFormat::kIndexed8) return palette[Row(y)[x]];
  std::uint32_t pixel = 0;
  std::memcpy(&pixel, Row(y) + std::size_t{4} * static_cast<std::size_t>(x), sizeof pixel);
  return pixel | 0xff000000U;
}

Result<PictureInfo> ReadPictureInfo(const std::string& path) {
  const DecodeHooks no_hooks;
  const auto picture = CheckPicture(path, no_hooks);
  if (!picture) return picture.error();
  const OpenPicture& open = **picture;
  return PictureInfo{open.size.width(), open.size.height(), open.reader->format().toStdString()};
}

Result<Picture> DecodePicture(const std::string& path, const DecodeHooks& hooks) {
  const auto picture = CheckPicture(path, hooks);
  if (!picture) return picture.error();
  const OpenPicture& open = **picture;
  QImage image;
  const bool read = open.reader->read(&image);
  if (open.file->cancelled() || open.file->failed()) {
    return Error{path, ReaderReason(*open.reader, *open.file)};
  }
  if (!read || image.isNull()) return Error{path, ReaderReason(*open.reader, *open.file)};
  ToOwnFormat(image);
  if (image.isNull()) return Error{path, "there is not enough memory for the picture"};
  return Wrap(std::move(image));
}

std::vector<std::uint8_t> ToRgba(const Picture& picture) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height) *
                4);
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const std::uint32_t pixel = picture.Pixel(x, y);
      bytes.push_back(static_cast<std::uint8_t>(pixel >> 16));
      bytes.push_back(static_cast<std::uint8_t>(pixel >> 8));
      bytes.push_back(static_cast<std::uint8_t>(pixel));
      bytes.push_back(255);
    }
  }
  return bytes;
}

Picture PictureFromRgb32(int width, int height, std::vector<std::uint32_t> pixels) {
  Picture picture;
  picture.width = width;
  picture.height = height;
  picture.bytes_per_line = std::int64_t{4} * width;
  auto owner = std::make_shared<const std::vector<std::uint32_t>>(std::move(pixels));
  picture.pixels = std::shared_ptr<const std::uint8_t>(
      owner, reinterpret_cast<const std::uint8_t*>(owner->data()));
  return picture;
}

Status WritePng(const std::string& path, const Picture& picture) {
  if (picture.empty()) return Error{path, "there is no picture to write"};
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  if (!AsQImage(picture).save(&buffer, "PNG")) return Error{path, "the picture cannot be encoded"};
  const QByteArray& bytes = buffer.data();
  return ReplaceFile(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

}  // namespace skerrow
