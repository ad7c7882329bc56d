#include "ui/charts/frmSelectL25.h"

#include <QFileInfo>
#include <QUrl>

#include "core/data_files.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmSelectL25::frmSelectL25(const Folders& folders, QWidget* parent)
    : QFileDialog(parent, "Select Tidal Diamonds", ToQt(folders.TidalStreams()),
                  "Tidal diamonds (*.l25)") {
  setObjectName(QStringLiteral("frmSelectL25"));
  setFileMode(QFileDialog::ExistingFile);
  // The user's own files are one click away.
  QList<QUrl> places = {QUrl::fromLocalFile(ToQt(folders.TidalStreams()))};
  const QString own = ToQt(OwnDataFolder(folders, DataFolder::kTidalStreams));
  if (QFileInfo(own).isDir()) places << QUrl::fromLocalFile(own);
  setSidebarUrls(places);
}

std::string frmSelectL25::FileName() const {
  const QStringList files = selectedFiles();
  return files.isEmpty() ? std::string() : FromQt(files.first());
}

}  // namespace skerrow
