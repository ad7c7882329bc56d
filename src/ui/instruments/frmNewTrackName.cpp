#include "ui/instruments/frmNewTrackName.h"

#include "core/calendar.h"
#include "instruments/plot_file.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmNewTrackName::frmNewTrackName(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmNewTrackName", "Select track name", parent),
      name_(Named<QLineEdit>("txtNewTrackName")),
      files_(new TextList(desktop.clipboard, "trackFileBox")) {
  const ClockReading now = desktop.program.clock->Now();
  name_->setText(ToQt(TrackFileName(now.day_of_month, now.month, now.year)));
  name_->setMaxLength(120);
  name_->setToolTip("Ends with a month, .jan to .dec, or with .trk");
  name_->selectAll();
  files_->setSelectionMode(QAbstractItemView::SingleSelection);
  files_->SetLines(ListTracks(desktop.program.folders.Tracks(), TrackKind::kNewTrack));
  body()->addWidget(MakeLabel("Track &name:", name_));
  body()->addWidget(name_);
  body()->addSpacing(4);
  body()->addWidget(MakeLabel("&Tracks that can be continued:", files_));
  body()->addWidget(files_, 1);
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] {
    const std::vector<std::string> selected = files_->SelectedLines();
    if (!selected.empty()) name_->setText(ToQt(selected.front()));
  });
  connect(files_, &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  name_->setFocus();
  resize(400, 340);
}

void frmNewTrackName::Accept() {
  const Result<std::string> name = CheckTrackName(FromQt(name_->text()));
  if (!name) {
    Refuse(name.error().Text(), false, name_);
    return;
  }
  Program& program = desktop().program;
  program.plot.plot_file_name = JoinPath(program.folders.Tracks(), *name);
  accept();
}

}  // namespace skerrow
