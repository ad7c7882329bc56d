#include "ui/dialogs/file_dialogs.h"

#include <QFileDialog>

#include "core/files.h"
#include "routes/waypoint_forms.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

struct NameForm {
  const char* form;
  const char* title;
  const char* label;
};

NameForm FormOf(NameEntry entry) {
  switch (entry) {
    case NameEntry::kRouteSave:
      return {"frmRouteSave", "Save Route", "Save the route &as:"};
    case NameEntry::kWaypointSave:
      return {"frmWaySave", "Save Waypoints As", "Save the waypoints &as:"};
    case NameEntry::kNewWaypointFile:
    case NameEntry::kWaypointEditNew:
      break;
  }
  return {"frmNewWay", "New Waypoint File", "&Name of the new file:"};
}

}  // namespace

FileChoiceDialog::FileChoiceDialog(Desktop& desktop, const char* name, const QString& title,
                                   FileKind kind, QWidget* parent)
    : Dialog(desktop, name, title, parent),
      view_(new RecordFileView(desktop, kind, "fillist", "List1")),
      chosen_(Named<QLabel>("lblFile")) {
  body()->addWidget(view_, 1);
  chosen_->setProperty("heading", true);
  body()->addWidget(chosen_);
  QPushButton* ok = AddButton("cmdOK", tr("OK"));
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", tr("Cancel"));
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(view_, &RecordFileView::FileChosen, this,
          [this] { chosen_->setText(ToQt(view_->file())); });
  connect(view_->files(), &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
  view_->files()->setFocus();
  resize(640, 420);
}

bool FileChoiceDialog::ShowStatus(const Status& status) {
  if (!status) desktop().messages.Show(status.error().Text(), MessageIcon::kWarning);
  return status.ok();
}

FrmLoadWay::FrmLoadWay(Desktop& desktop, QWidget* parent)
    : FileChoiceDialog(desktop, "frmLoadWay", tr("Load Waypoint File"), FileKind::kWaypoint,
                       parent) {}

void FrmLoadWay::Accept() {
  const std::string file = view()->file();
  if (const FileRefusal refusal = CheckWaypointFileChoice(file); refusal != FileRefusal::kNone) {
    Refuse(FileRefusalText(refusal), false, view()->files());
    return;
  }
  Program& program = desktop().program;
  if (!ShowStatus(ChooseWaypointFile(program.folders, file, program.config, program.waypoints,
                                     desktop().messages))) {
    return;
  }
  accept();
  desktop().window.StateChanged();
}

FrmRouteLoad::FrmRouteLoad(Desktop& desktop, QWidget* parent)
    : FileChoiceDialog(desktop, "frmRouteLoad", tr("Load Route"), FileKind::kRoute, parent),
      use_default_speed_(Named<QCheckBox>("chkUseDefaultSpeed",
                                          tr("Check to use program &default speed between legs"))) {
  body()->addWidget(
      MakeHint(tr("By default the program will use the stored speed in its "
                  "calculations unless the box below is checked")));
  body()->addWidget(use_default_speed_);
}

void FrmRouteLoad::Accept() {
  Program& program = desktop().program;
  const std::string file = view()->file();
  const Status loaded = LoadRoute(
      file.empty() ? "" : RoutePath(program.folders, file),
      use_default_speed_->isChecked() ? RouteSpeeds::kProgramDefault : RouteSpeeds::kStored,
      RouteDefaultsOf(program), program.route, desktop().messages);
  if (!loaded && file.empty()) {
    Refuse(loaded.error().Text(), false, view()->files());
    return;
  }
  ShowStatus(loaded);
  // A file without entries has emptied the route and ends the dialog too.
  if (!loaded && !program.route.points.empty()) return;
  ForgetCalculation(program);
  accept();
  desktop().window.StateChanged();
}

FrmFileDelete::FrmFileDelete(Desktop& desktop, FileKind kind, QWidget* parent)
    : FileChoiceDialog(
          desktop, kind == FileKind::kRoute ? "frmRouteDelete" : "frmWayDelete",
          kind == FileKind::kRoute ? tr("Delete Route File") : tr("Delete Waypoint File"), kind,
          parent),
      kind_(kind) {}

void FrmFileDelete::Accept() {
  const Folders& folders = desktop().program.folders;
  const std::string file = view()->file();
  if (const FileRefusal refusal = CheckDelete(folders, kind_, file);
      refusal != FileRefusal::kNone) {
    Refuse(FileRefusalText(refusal), false, view()->files());
    return;
  }
  if (!desktop().messages.Ask(DeleteQuestion(kind_, file))) return;
  if (ShowStatus(DeleteRecordFile(folders, kind_, file))) view()->Refresh();
}

FrmWayFileLocate::FrmWayFileLocate(Desktop& desktop, QWidget* parent)
    : FileChoiceDialog(desktop, "frmWayFileLocate", tr("Locate a waypoint"), FileKind::kWaypoint,
                       parent) {
  view()->Refresh(desktop.program.config.waypoint_file);
  connect(view(), &RecordFileView::RowActivated, this, [this] { Accept(); });
}

void FrmWayFileLocate::Accept() {
  const WaypointRefusal refusal = CheckLocate(view()->rows().size(), view()->selected_row());
  if (refusal != WaypointRefusal::kNone) {
    Refuse(WaypointRefusalText(refusal), false, view()->entries());
    return;
  }
  // From the file, not from the texts of the row, which are rounded.
  const auto waypoints = ReadWaypointFile(WaypointPath(desktop().program.folders, view()->file()));
  if (!waypoints || *view()->selected_row() >= waypoints->size()) {
    if (!waypoints) Refuse(waypoints.error().Text());
    return;
  }
  chosen_waypoint_ = (*waypoints)[*view()->selected_row()];
  accept();
}

FileNameDialog::FileNameDialog(Desktop& desktop, NameEntry entry, QWidget* parent)
    : Dialog(desktop, FormOf(entry).form, tr(FormOf(entry).title), parent),
      entry_(entry),
      name_(Named<QLineEdit>("txtFileName")) {
  name_->setMinimumWidth(name_->fontMetrics().averageCharWidth() * 36);
  body()->addWidget(MakeLabel(tr(FormOf(entry).label), name_));
  body()->addWidget(name_);
  body()->addWidget(MakeHint(tr("The extension is added by itself.")));
  body()->addStretch(1);
  QPushButton* ok = AddButton("cmdOK", tr("OK"));
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", tr("Cancel"));
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  name_->setFocus();
}

void FileNameDialog::Accept() {
  const CheckedName checked = CheckFileName(FromQt(name_->text()), entry_);
  if (checked.refusal != FileRefusal::kNone) {
    Refuse(FileRefusalText(checked.refusal, entry_), false, name_);
    return;
  }
  const FileKind kind = entry_ == NameEntry::kRouteSave ? FileKind::kRoute : FileKind::kWaypoint;
  const std::string path =
      JoinPath(FolderOfKind(desktop().program.folders, kind), checked.file_name);
  if (FileReadable(path) && !desktop().messages.Ask(kOverwriteQuestion)) return;
  const Status written = Write(checked.file_name);
  if (!written) desktop().messages.Show(written.error().Text(), MessageIcon::kWarning);
  // Without a route there is nothing to name; any other failure leaves the name for another try.
  if (!written && !(kind == FileKind::kRoute && desktop().program.route.points.empty())) return;
  if (written) file_name_ = checked.file_name;
  accept();
  desktop().window.StateChanged();
}

Status FileNameDialog::Write(const std::string& file_name) {
  Program& program = desktop().program;
  switch (entry_) {
    case NameEntry::kRouteSave:
      return SaveRoute(RoutePath(program.folders, file_name), program.route,
                       program.config.vessel_speed);
    case NameEntry::kWaypointSave:
      return SaveWaypointsAs(program.folders, file_name, program.waypoints);
    case NameEntry::kNewWaypointFile:
      return NewWaypointFile(program.folders, file_name, program.config, program.waypoints,
                             desktop().messages);
    case NameEntry::kWaypointEditNew:
      break;
  }
  return WriteWaypointFile(WaypointPath(program.folders, file_name), {});
}

void RunFileImport(Desktop& desktop, FileKind kind, QWidget* parent) {
  const QString filter =
      kind == FileKind::kRoute ? QStringLiteral("*.rte") : QStringLiteral("*.way");
  constexpr const char* kSection = "Folders";
  const std::string key = kind == FileKind::kRoute ? "RouteImport" : "WaypointImport";
  const QStringList files = QFileDialog::getOpenFileNames(
      parent, ToQt(ImportTitle(kind)), ToQt(desktop.settings.Get(kSection, key)), filter);
  if (files.isEmpty()) {
    desktop.messages.Show(FileRefusalText(FileRefusal::kNothingToImport),
                          MessageIcon::kInformation);
    return;
  }
  std::vector<std::string> sources;
  for (const QString& file : files) sources.push_back(FromQt(file));
  desktop.settings.Set(kSection, key, FolderOf(sources.front()));
  const Result<int> copied = ImportFiles(desktop.program.folders, kind, sources, desktop.messages);
  desktop.messages.Show(copied ? ImportText(*copied) : copied.error().Text(),
                        copied ? MessageIcon::kInformation : MessageIcon::kWarning);
}

}  // namespace skerrow
