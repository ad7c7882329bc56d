#include "ui/help/help_files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace skerrow {
namespace {

QString FromUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

std::string HelpFile(std::string_view name) {
  return HelpFile(name, QCoreApplication::applicationDirPath().toStdString());
}

std::string HelpFile(std::string_view name, const std::string& program_folder) {
  const QDir folder(QString::fromStdString(program_folder));
  const QString file = FromUtf8(name);
  const QString shared =
      QDir::cleanPath(folder.filePath(QStringLiteral("../share/skerrow/Help/") + file));
  const QString within = QDir::cleanPath(folder.filePath(QStringLiteral("Help/") + file));
  if (!QFileInfo::exists(shared) && QFileInfo::exists(within)) return within.toStdString();
  return shared.toStdString();
}

std::string HelpTitle(std::string_view path) {
  return QFileInfo(FromUtf8(path)).completeBaseName().toStdString();
}

}  // namespace skerrow
