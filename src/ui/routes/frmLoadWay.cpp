#include "ui/routes/frmLoadWay.h"

#include <filesystem>

#include "core/files.h"
#include "routes/waypoint.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

Status OpenWaypointFile(Desktop& desktop, const std::string& path) {
  Program& program = desktop.program;
  const std::string name = FileNameOf(path);
  const std::string target = WaypointPath(program.folders, name);
  std::error_code error;
  if (!std::filesystem::equivalent(path, target, error)) {
    const auto read = ReadWaypointFile(path);
    if (!read) return read.error();
    if (read->empty()) return Error{path, "there is no waypoint in it"};
    const Result<int> copied =
        ImportFiles(program.folders, FileKind::kWaypoint, {path}, desktop.messages);
    if (!copied) return copied.error();
    if (*copied == 0) return Done{};
  }
  return ChooseWaypointFile(program.folders, name, program.config, program.waypoints,
                            desktop.messages);
}

frmLoadWay::frmLoadWay(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmLoadWay", "Load Waypoint File", parent),
      files_(new FileList),
      name_(Named<QLabel>("lblFileName")),
      count_(Named<QLabel>("labelnoofpoints")) {
  body()->addWidget(
      MakeHint(QString("Now in use: %1").arg(ToQt(desktop.program.config.waypoint_file))));
  body()->addWidget(MakeLabel("Waypoint &files", files_));
  body()->addWidget(files_, 1);
  name_->setProperty("heading", true);
  name_->setTextFormat(Qt::PlainText);
  body()->addWidget(name_);
  body()->addWidget(count_);
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  files_->Fill(desktop.program.folders.Waypoints(), FileKind::kWaypoint);
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] { ShowFile(); });
  connect(files_, &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  files_->setFocus();
  resize(400, 400);
}

void frmLoadWay::ShowFile() {
  const std::string name = files_->Selected();
  name_->setText(ToQt(name));
  count_->setText(name.empty()
                      ? QString()
                      : ToQt(CountText(CountRecords(WaypointPath(desktop().program.folders, name),
                                                    kWaypointSize))));
}

void frmLoadWay::Accept() {
  const std::string name = FromQt(name_->text());
  const FileRefusal refusal = CheckWaypointFileChoice(name);
  if (refusal != FileRefusal::kNone) {
    Refuse(FileRefusalText(refusal), false, files_);
    return;
  }
  Program& program = desktop().program;
  const Status chosen = ChooseWaypointFile(program.folders, name, program.config, program.waypoints,
                                           desktop().messages);
  if (!chosen) {
    Refuse(chosen.error().Text(), false, files_);
    // A file that was loaded and only not stored as the current one is in use all the same.
    if (program.config.waypoint_file != name) return;
  }
  accept();
  desktop().window.Changed(kViewChanged);
}

}  // namespace skerrow
