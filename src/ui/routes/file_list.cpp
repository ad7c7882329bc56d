#include "ui/routes/file_list.h"

#include <QDir>
#include <QLabel>

#include "core/text.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

FileList::FileList(QWidget* parent) : QListWidget(parent) {
  setObjectName(QStringLiteral("fillist"));
  setUniformItemSizes(true);
  setTextElideMode(Qt::ElideMiddle);
}

void FileList::Fill(const std::string& folder, FileKind kind) {
  clear();
  for (const std::string& name : ListFiles(folder, kind)) addItem(ToQt(name));
}

std::string FileList::Selected() const {
  const QList<QListWidgetItem*> selected = selectedItems();
  return selected.isEmpty() ? std::string() : FromQt(selected.front()->text());
}

void FileList::Select(const std::string& name) {
  clearSelection();
  for (int row = 0; row < count(); ++row) {
    if (FromQt(item(row)->text()) == name) {
      setCurrentRow(row);
      return;
    }
  }
}

std::optional<std::string> ExistingFile(const std::string& folder, FileKind kind,
                                        const std::string& name) {
  std::optional<std::string> found;
  for (const std::string& other : ListFiles(folder, kind)) {
    if (other == name) return name;
    if (ToLowerAscii(other) == ToLowerAscii(name)) found = other;
  }
  return found;
}

QLabel* MakeFolderHint(const QString& text, const std::string& folder) {
  QLabel* hint = MakeHint({});
  const QString path = QDir::toNativeSeparators(ToQt(folder));
  hint->setWordWrap(false);
  hint->setTextFormat(Qt::PlainText);
  const int room = hint->fontMetrics().averageCharWidth() * 46;
  hint->setText(text + QLatin1Char(' ') +
                hint->fontMetrics().elidedText(path, Qt::ElideMiddle, room));
  hint->setToolTip(path);
  return hint;
}

}  // namespace skerrow
