#include "platform/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QString>

namespace skerrow {

void SystemClipboard::SetText(std::string_view text) {
  QGuiApplication::clipboard()->setText(
      QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

std::string SystemClipboard::Text() const {
  return QGuiApplication::clipboard()->text().toStdString();
}

void SystemClipboard::SetPicture(const Picture& picture) {
  if (picture.empty()) return;
  const std::vector<std::uint8_t> bytes = ToRgba(picture);
  QGuiApplication::clipboard()->setImage(
      QImage(bytes.data(), picture.width, picture.height, QImage::Format_RGBX8888).copy());
}

}  // namespace skerrow
