#include "ui/tides/save_text.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include "core/files.h"
#include "ui/tides/report_write.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr const char* kSection = "Tides";
constexpr const char* kFolderKey = "Folder";  // of the last text file

}  // namespace

bool SaveText(Desktop& desktop, QWidget* parent, const char* title, const std::string& name,
              const std::string& text) {
  QString folder = ToQt(desktop.settings.Get(kSection, kFolderKey));
  if (folder.isEmpty() || !QFileInfo(folder).isDir()) {
    folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  }
  // The dialog puts the ending to a name without one, so that it can ask about a file of that name.
  QFileDialog dialog(parent, title, folder, "Tables (*.txt)");
  dialog.setObjectName(QStringLiteral("dlgSaveText"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix("txt");
  dialog.selectFile(ToQt(name) + ".txt");
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  const QString file = dialog.selectedFiles().first();
  if (!Written(ReplaceFile(FromQt(file), text), desktop.messages)) return false;
  desktop.settings.Set(kSection, kFolderKey, FromQt(QFileInfo(file).absolutePath()));
  desktop.window.Tell("Saved " + FromQt(QFileInfo(file).fileName()));
  return true;
}

}  // namespace skerrow
