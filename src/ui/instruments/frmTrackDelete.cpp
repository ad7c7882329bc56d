#include "ui/instruments/frmTrackDelete.h"

#include "instruments/plot_file.h"

namespace skerrow {

frmTrackDelete::frmTrackDelete(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmTrackDelete", "Delete a Track File", parent),
      files_(new TextList(desktop.clipboard, "trackFileBox")) {
  files_->setSelectionMode(QAbstractItemView::SingleSelection);
  files_->SetLines(ListTracks(desktop.program.folders.Tracks(), TrackKind::kDelete));
  body()->addWidget(MakeLabel("&Track files", files_));
  body()->addWidget(files_, 1);
  if (files_->lines().empty()) body()->addWidget(MakeHint("There are no track files."));
  QPushButton* ok = AddButton("cmdOK", "&Delete", "Deletes the highlighted file");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(files_, &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  files_->setFocus();
  resize(380, 340);
}

void frmTrackDelete::Accept() {
  const std::vector<std::string> selected = files_->SelectedLines();
  const std::string name = selected.empty() ? "" : selected.front();
  if (DeleteTrackFile(desktop().program.folders.Tracks(), name, desktop().messages)) {
    accept();
    desktop().window.Changed(kTargetsChanged);
  }
}

}  // namespace skerrow
