#include "ui/dialogs/save_text.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include "core/config.h"
#include "core/files.h"
#include "ui/dialogs/report_write.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr const char* kFolderKey = "Folder";  // of the last text file

}  // namespace

std::string TextFolderOf(Desktop& desktop, const TextFileKind& kind) {
  const Program& program = desktop.program;
  std::string folder;
  if (kind.section != nullptr) {
    folder = desktop.settings.Get(kind.section, kFolderKey);
  } else if (NativePath(program.config.text_folder) != program.folders.program) {
    // At first the record names the program's folder, which is no place for the user's files.
    folder = NativePath(program.config.text_folder);
  }
  if (!folder.empty() && QFileInfo(ToQt(folder)).isDir()) return folder;
  return FromQt(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

void RememberTextFolder(Desktop& desktop, const TextFileKind& kind, const std::string& folder) {
  if (kind.section != nullptr) return desktop.settings.Set(kind.section, kFolderKey, folder);
  Program& program = desktop.program;
  if (NativePath(program.config.text_folder) == folder) return;
  const Status saved = ReloadThenSave(program.folders, program.config,
                                      [&](AppConfig& config) { config.text_folder = folder; });
  if (!saved) desktop.messages.Show(saved.error().Text(), MessageIcon::kWarning);
}

bool SaveText(Desktop& desktop, QWidget* parent, const char* title, const std::string& name,
              const std::string& text, const TextFileKind& kind) {
  // The dialog puts the ending to a name without one, so that it can ask about a file of that name.
  QFileDialog dialog(parent, title, ToQt(TextFolderOf(desktop, kind)), kind.filter);
  dialog.setObjectName(QStringLiteral("dlgSaveText"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(kind.ending);
  dialog.selectFile(ToQt(name) + "." + kind.ending);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  const QString file = dialog.selectedFiles().first();
  if (!Written(ReplaceFile(FromQt(file), text), desktop.messages)) return false;
  RememberTextFolder(desktop, kind, FromQt(QFileInfo(file).absolutePath()));
  desktop.window.Tell("Saved " + FromQt(QFileInfo(file).fileName()));
  return true;
}

std::string AskTextFile(Desktop& desktop, QWidget* parent, const char* title,
                        const TextFileKind& kind) {
  QFileDialog dialog(parent, title, ToQt(TextFolderOf(desktop, kind)), kind.filter);
  dialog.setObjectName(QStringLiteral("dlgOpenText"));
  dialog.setFileMode(QFileDialog::ExistingFile);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  const QString file = dialog.selectedFiles().first();
  RememberTextFolder(desktop, kind, FromQt(QFileInfo(file).absolutePath()));
  return FromQt(file);
}

}  // namespace skerrow
