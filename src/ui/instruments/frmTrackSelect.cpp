#include "ui/instruments/frmTrackSelect.h"

#include <QButtonGroup>

#include "app/historical_track.h"
#include "core/config.h"
#include "core/files.h"
#include "ui/forms/track_forms.h"
#include "ui/instruments/frmhisttrack.h"
#include "ui/widgets/progress_dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

// Yes, No or Cancel to turning the track layer on.
class LayerQuestion final : public Dialog {
 public:
  LayerQuestion(Desktop& desktop, QWidget* parent)
      : Dialog(desktop, "frmTrackLayer", "Track layer", parent) {
    body()->addWidget(new QLabel(ToQt(kTrackLayerQuestion)));
    QPushButton* yes = AddButton("cmdYes", "&Yes");
    yes->setDefault(true);
    QPushButton* no = AddButton("cmdNo", "&No");
    QPushButton* cancel = AddButton("cmdCancel", "Cancel");
    connect(yes, &QPushButton::clicked, this, [this] {
      turn_on_ = true;
      accept();
    });
    connect(no, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  }
  bool turn_on() const { return turn_on_; }

 private:
  bool turn_on_ = false;
};

}  // namespace

frmTrackSelect::frmTrackSelect(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmTrackSelect", "Select track", parent),
      files_(new TextList(desktop.clipboard, "trackFileBox")),
      chosen_(Named<QLabel>("lblTrack")),
      none_(MakeHint({})),
      track_(Named<QRadioButton>("OptTrack", "Display as a &Track Plot")),
      table_(Named<QRadioButton>("optTable", "Display as a Ta&ble")) {
  files_->setSelectionMode(QAbstractItemView::SingleSelection);
  chosen_->setProperty("heading", true);
  chosen_->setTextFormat(Qt::PlainText);
  track_->setToolTip("The track of a log, with its comments, on the chart");
  table_->setToolTip("The positions of a plot file, to be edited");
  auto* kinds = new QButtonGroup(this);
  kinds->addButton(track_);
  kinds->addButton(table_);
  track_->setChecked(true);
  body()->addWidget(track_);
  body()->addWidget(table_);
  body()->addSpacing(4);
  body()->addWidget(MakeLabel("&Files:", files_));
  body()->addWidget(files_, 1);
  body()->addWidget(none_);
  body()->addWidget(chosen_);
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(kinds, &QButtonGroup::buttonClicked, this, [this] { FillList(); });
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] {
    const std::vector<std::string> selected = files_->SelectedLines();
    chosen_->setText(selected.empty() ? QString() : ToQt(selected.front()));
  });
  connect(files_, &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  FillList();
  files_->setFocus();
  resize(400, 400);
}

void frmTrackSelect::FillList() {
  // A table shows the records of a plot file, which no log has.
  const bool table = table_->isChecked();
  files_->SetLines(
      ListTracks(desktop().program.folders.Tracks(), table ? TrackKind::kPlot : TrackKind::kLog));
  chosen_->clear();
  none_->setText(!files_->lines().empty() ? QString()
                 : table ? QString("There are no plot files. Manual Entry makes them.")
                         : QString("There are no logs."));
  none_->setVisible(files_->lines().empty());
}

void frmTrackSelect::Accept() {
  if (desktop().program.link.gps_enabled) {
    desktop().messages.Show(kHistoricalWhileGps);
    reject();
    return;
  }
  const std::string file = FromQt(chosen_->text());
  const Result<std::string> chosen = CheckTrackChoice(file);
  if (!chosen) {
    Refuse(chosen.error().Text(), false, files_);
    return;
  }
  if (track_->isChecked()) {
    ShowTrack(file);
  } else {
    ShowTable(file);
  }
}

void frmTrackSelect::ShowTrack(const std::string& name) {
  Program& program = desktop().program;
  if (program.config.track_layer_on == 0.0F) {
    LayerQuestion question(desktop(), this);
    if (question.exec() != QDialog::Accepted) return;
    if (question.turn_on()) {
      program.config.track_layer_on = 1.0F;
      if (const Status saved = SaveConfig(program.folders, program.config); !saved) {
        Refuse(saved.error().Text());
      }
    }
  }
  SetBusy(true);
  Result<bool> shown = false;
  {
    ProgressDialog progress(this, "Reading the log");
    shown = ShowHistoricalTrack(program, name, progress);
  }
  SetBusy(false);
  if (!shown) {
    Refuse(shown.error().Text(), false, files_);
    return;
  }
  if (!*shown) return;
  accept();
  desktop().window.Changed(kTargetsChanged | kSettingsChanged);
}

void frmTrackSelect::ShowTable(const std::string& name) {
  Program& program = desktop().program;
  PlotTable table;
  const std::string path = JoinPath(program.folders.Tracks(), name);
  if (const Status opened = table.Open(path); !opened) {
    Refuse(opened.error().Text(), false, files_);
    return;
  }
  TellLeftOut(path, table.left_out(), desktop().messages);
  program.plot.plot_file_name = path;
  accept();
  frmhisttrack(desktop(), std::move(table), parentWidget()).exec();
}

}  // namespace skerrow
