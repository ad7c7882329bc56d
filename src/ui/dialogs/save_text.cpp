#include "ui/dialogs/save_text.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include "core/files.h"
#include "ui/dialogs/report_write.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr const char* kFolderKey = "Folder";  // of the last text file

QString FolderOf(Desktop& desktop, const TextFileKind& kind) {
  QString folder = ToQt(desktop.settings.Get(kind.section, kFolderKey));
  if (!folder.isEmpty() && QFileInfo(folder).isDir()) return folder;
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

void Remember(Desktop& desktop, const TextFileKind& kind, const QString& file) {
  desktop.settings.Set(kind.section, kFolderKey, FromQt(QFileInfo(file).absolutePath()));
}

}  // namespace

bool SaveText(Desktop& desktop, QWidget* parent, const char* title, const std::string& name,
              const std::string& text, const TextFileKind& kind) {
  // The dialog puts the ending to a name without one, so that it can ask about a file of that name.
  QFileDialog dialog(parent, title, FolderOf(desktop, kind), kind.filter);
  dialog.setObjectName(QStringLiteral("dlgSaveText"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(kind.ending);
  dialog.selectFile(ToQt(name) + "." + kind.ending);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  const QString file = dialog.selectedFiles().first();
  if (!Written(ReplaceFile(FromQt(file), text), desktop.messages)) return false;
  Remember(desktop, kind, file);
  desktop.window.Tell("Saved " + FromQt(QFileInfo(file).fileName()));
  return true;
}

std::string AskTextFile(Desktop& desktop, QWidget* parent, const char* title,
                        const TextFileKind& kind) {
  QFileDialog dialog(parent, title, FolderOf(desktop, kind), kind.filter);
  dialog.setObjectName(QStringLiteral("dlgOpenText"));
  dialog.setFileMode(QFileDialog::ExistingFile);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  const QString file = dialog.selectedFiles().first();
  Remember(desktop, kind, file);
  return FromQt(file);
}

}  // namespace skerrow
