#include "ui/exchange/frmGpxExport.h"

#include "instruments/plot_file.h"
#include "ui/dialogs/save_text.h"
#include "ui/widgets/background_work.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

std::vector<std::string> ChosenOf(const FileList& list) {
  std::vector<std::string> chosen;
  for (int row = 0; row < list.count(); ++row) {
    if (list.item(row)->isSelected()) chosen.push_back(FromQt(list.item(row)->text()));
  }
  return chosen;
}

}  // namespace

frmGpxExport::frmGpxExport(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmGpxExport", "Export as GPX", parent),
      current_(Named<QCheckBox>("chkCurrentRoute",
                                "The route on the &chart, with what was calculated for it")),
      routes_(new FileList),
      waypoints_(new FileList),
      tracks_(new FileList) {
  const Program& program = desktop.program;
  const bool route = program.route.points.size() >= 2;
  current_->setEnabled(route);
  current_->setChecked(route);
  body()->addWidget(current_);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  const auto add = [&](FileList* list, const char* name, const char* label,
                       const std::vector<std::string>& files) {
    list->setObjectName(name);
    list->setSelectionMode(QAbstractItemView::MultiSelection);
    list->Fill(files);
    QVBoxLayout* column = MakeColumn();
    column->addWidget(MakeLabel(label, list));
    column->addWidget(list, 1);
    columns->addLayout(column, 1);
  };
  const Folders& folders = program.folders;
  add(routes_, "lstRoutes", "&Routes", ListFiles(folders.Routes(), FileKind::kRoute));
  add(waypoints_, "lstWaypoints", "&Waypoint files",
      ListFiles(folders.Waypoints(), FileKind::kWaypoint));
  std::vector<std::string> tracks = ListTracks(folders.Tracks(), TrackKind::kLog);
  const std::vector<std::string> plots = ListTracks(folders.Tracks(), TrackKind::kPlot);
  tracks.insert(tracks.end(), plots.begin(), plots.end());
  add(tracks_, "lstTracks", "&Tracks", tracks);
  body()->addLayout(columns, 1);
  body()->addWidget(MakeHint(
      "Click what is to go into the document; a second click takes it out again. Plotters, "
      "phones and other programs read GPX."));
  QPushButton* save = AddButton("Save", "E&xport...");
  save->setDefault(true);
  QPushButton* close = AddButton("cmdCancel", "Close");
  connect(save, &QPushButton::clicked, this, [this] { Export(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  (route ? static_cast<QWidget*>(current_) : routes_)->setFocus();
  resize(700, 420);
}

GpxChoice frmGpxExport::Choice() const {
  return {current_->isChecked(), ChosenOf(*routes_), ChosenOf(*waypoints_), ChosenOf(*tracks_)};
}

void frmGpxExport::Export() {
  if (busy()) return;
  const GpxChoice choice = Choice();
  if (choice.Nothing()) return Refuse("Choose what is to be exported", false, routes_);
  const Program& program = desktop().program;
  const GpxSources sources = GpxSourcesOf(program, choice);
  SetBusy(true);
  const Result<std::string> text =
      RunInBackground(desktop(), this, "Gathering the document",
                      [&sources](Progress& progress) { return GpxTextOf(sources, progress); });
  SetBusy(false);
  if (!text) return Refuse(text.error().Text());
  if (SaveText(desktop(), this, "Export as GPX", GpxOffer(program, choice), *text, kGpxFile)) {
    accept();
  }
}

}  // namespace skerrow
