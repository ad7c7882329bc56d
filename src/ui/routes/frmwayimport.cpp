#include "ui/routes/frmwayimport.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>

#include "core/text.h"
#include "routes/waypoint.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr std::string_view kFoldersSection = "Folders";

QString TitleOf(FileKind kind, frmwayimport::Direction direction) {
  if (direction == frmwayimport::Direction::kImport) return ToQt(ImportTitle(kind));
  return kind == FileKind::kWaypoint ? "Export Skerrow Waypoint files to external storage"
                                     : "Export Skerrow Route files to external storage";
}

// The key that the folder last used is stored under.
std::string FolderKey(FileKind kind, frmwayimport::Direction direction) {
  const std::string verb = direction == frmwayimport::Direction::kImport ? "Import" : "Export";
  return verb + (kind == FileKind::kWaypoint ? "Waypoints" : "Routes");
}

}  // namespace

Result<int> ExportFiles(const Folders& folders, FileKind kind,
                        const std::vector<std::string>& names, const std::string& folder,
                        Messages& messages) {
  if (names.empty()) return Error{"", "Nothing to export"};
  if (!QFileInfo(ToQt(folder)).isDir()) return Error{folder, "there is no such folder"};
  int copied = 0;
  for (const std::string& name : names) {
    const std::string source = JoinPath(FolderOfKind(folders, kind), name);
    const std::string target = JoinPath(folder, name);
    const QFileInfo there(ToQt(target));
    if (there.exists() &&
        there.canonicalFilePath() == QFileInfo(ToQt(source)).canonicalFilePath()) {
      continue;
    }
    if (there.exists() && !messages.Ask(name + ": " + std::string(kOverwriteQuestion))) continue;
    const Result<std::string> content = ReadFile(source);
    if (!content) return content.error();
    if (const Status written = ReplaceFile(target, *content); !written) return written.error();
    ++copied;
  }
  return copied;
}

frmwayimport::frmwayimport(Desktop& desktop, FileKind kind, QWidget* parent, Direction direction)
    : Dialog(desktop, direction == Direction::kImport ? "frmwayimport" : "frmwayexport",
             TitleOf(kind, direction), parent),
      kind_(kind),
      direction_(direction),
      folder_(Named<QLineEdit>("txtFolder")),
      files_(new FileList),
      chosen_(Named<QLabel>("lblChosen")) {
  body()->addWidget(
      MakeLabel(importing() ? "&Copy from the folder:" : "&Copy into the folder:", folder_));
  auto* place = new QHBoxLayout;
  auto* browse = Named<QPushButton>("cmdBrowse", "&Browse...");
  browse->setAutoDefault(false);
  place->addWidget(folder_, 1);
  place->addWidget(browse);
  body()->addLayout(place);
  const QString filter = QStringLiteral("*") + ToQt(ExtensionOf(kind));
  body()->addWidget(MakeLabel(QString("&Files (%1):").arg(filter), files_));
  body()->addWidget(files_, 1);
  body()->addWidget(chosen_);
  files_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  QPushButton* all = AddLeftButton("cmdSelectAll", "Select &All");
  QPushButton* ok = AddButton("cmdOK", "OK", "Copies the selected files");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(browse, &QPushButton::clicked, this, [this] { Browse(); });
  connect(all, &QPushButton::clicked, files_, &QListWidget::selectAll);
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] {
    const auto count = files_->selectedItems().size();
    chosen_->setText(QString("%1 of %2 files selected").arg(count).arg(files_->count()));
  });
  folder_->setText(QDir::toNativeSeparators(ToQt(FirstFolder())));
  if (importing()) connect(folder_, &QLineEdit::textChanged, this, [this] { FillList(); });
  FillList();
  files_->setFocus();
  resize(560, 420);
}

std::string frmwayimport::FirstFolder() const {
  std::string stored = desktop().settings.Get(kFoldersSection, FolderKey(kind_, direction_));
  if (QFileInfo(ToQt(stored)).isDir()) return stored;
  const Folders& folders = desktop().program.folders;
  // At first the routes that come with the program are at hand.
  if (importing() && !ListFiles(folders.Samples(), kind_).empty()) return folders.Samples();
  return folders.documents;
}

void frmwayimport::Browse() {
  const QString folder = QFileDialog::getExistingDirectory(
      this, windowTitle(), folder_->text(),
      QFileDialog::ShowDirsOnly | QFileDialog::DontUseNativeDialog);
  if (!folder.isEmpty()) folder_->setText(QDir::toNativeSeparators(folder));
}

void frmwayimport::FillList() {
  files_->Fill(importing() ? NativePath(FromQt(folder_->text()))
                           : FolderOfKind(desktop().program.folders, kind_),
               kind_);
  chosen_->setText(files_->count() == 0
                       ? "There are no such files in this folder."
                       : QString("%1 of %2 files selected").arg(0).arg(files_->count()));
}

void frmwayimport::Accept() {
  Program& program = desktop().program;
  const std::string folder = NativePath(FromQt(folder_->text()));
  std::vector<std::string> names;
  for (int row = 0; row < files_->count(); ++row) {
    if (files_->item(row)->isSelected()) names.push_back(FromQt(files_->item(row)->text()));
  }
  std::vector<std::string> sources;
  sources.reserve(names.size());
  for (const std::string& name : names) sources.push_back(JoinPath(folder, name));
  const Result<int> copied =
      importing() ? ImportFiles(program.folders, kind_, sources, desktop().messages)
                  : ExportFiles(program.folders, kind_, names, folder, desktop().messages);
  if (!copied) {
    Refuse(copied.error().Text(), false, files_);
    return;
  }
  desktop().settings.Set(kFoldersSection, FolderKey(kind_, direction_), folder);
  desktop().messages.Show(ImportText(*copied), MessageIcon::kInformation);
  const bool current_came = importing() && kind_ == FileKind::kWaypoint && *copied > 0 &&
                            std::count(names.begin(), names.end(), program.config.waypoint_file);
  if (current_came) {
    const Status loaded = LoadCurrentWaypoints(program.folders, program.config, program.waypoints,
                                               desktop().messages);
    if (!loaded) desktop().messages.Show(loaded.error().Text(), MessageIcon::kWarning);
  }
  accept();
  desktop().window.Changed(kViewChanged);
}

}  // namespace skerrow
