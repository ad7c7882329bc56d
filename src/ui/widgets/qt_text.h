#pragma once

#include <QString>
#include <string>
#include <string_view>
#include <vector>

namespace skerrow {

// UTF-8 text as the toolkit's, and back.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) { return text.toStdString(); }

}  // namespace skerrow
