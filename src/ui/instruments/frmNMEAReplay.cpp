#include "ui/instruments/frmNMEAReplay.h"

#include <QGroupBox>
#include <QRadioButton>

#include "core/files.h"
#include "core/text.h"
#include "instruments/plot_file.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

struct PaceRow {
  ReplayPace pace;
  const char* name;
  const char* text;
  const char* tip;
};
constexpr PaceRow kPaces[] = {
    {ReplayPace::kInterval, "optInterval", "&A line every", "At the speed of the slider"},
    {ReplayPace::kLogTime, "optLogTime1", "Log time \u00d7 &1",
     "As the sentences came in, by the times that they carry"},
    {ReplayPace::kLogTime10, "optLogTime10", "Log time \u00d7 1&0", "Ten times as fast"},
    {ReplayPace::kLogTime60, "optLogTime60", "Log time \u00d7 &60", "An hour in a minute"},
};

}  // namespace

frmNMEAReplay::frmNMEAReplay(Desktop& desktop, ReplayKind kind, QWidget* parent)
    : Dialog(desktop, "frmNMEAReplay", "Replay Log File", parent),
      files_(new TextList(desktop.clipboard, "fillist")),
      name_(Named<QLineEdit>("txtFileName")),
      paces_(new QButtonGroup(this)),
      speed_(Named<QSlider>("HScroll1", Qt::Horizontal)),
      speed_text_(Named<QLabel>("lblSpeed")) {
  request_.kind = kind;
  files_->setSelectionMode(QAbstractItemView::SingleSelection);
  files_->SetLines(ListTracks(desktop.program.folders.Tracks(), TrackKind::kLog));
  body()->addWidget(MakeLabel("&Log files", files_));
  body()->addWidget(files_, 1);
  auto* name = new QHBoxLayout;
  name->setSpacing(8);
  name->addWidget(MakeLabel("File &name:", name_));
  name->addWidget(name_, 1);
  body()->addLayout(name);

  auto* box = new QGroupBox("Replay Speed");
  auto* rows = new QVBoxLayout(box);
  rows->setSpacing(6);
  for (const PaceRow& row : kPaces) {
    auto* option = Named<QRadioButton>(row.name, QString::fromUtf8(row.text));
    option->setToolTip(row.tip);
    paces_->addButton(option, static_cast<int>(row.pace));
    if (row.pace != ReplayPace::kInterval) {
      rows->addWidget(option);
      continue;
    }
    option->setChecked(true);
    speed_->setRange(kReplayFastest, kReplaySlowest);
    speed_->setValue(kReplayStart);
    speed_->setPageStep(20);
    speed_->setMinimumWidth(150);
    speed_->setAccessibleName("Milliseconds between two lines");
    speed_->setToolTip("To the left the replay is faster");
    speed_text_->setMinimumWidth(speed_text_->fontMetrics().horizontalAdvance("150 ms"));
    auto* line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(option);
    line->addWidget(speed_, 1);
    line->addWidget(speed_text_);
    rows->addLayout(line);
  }
  body()->addWidget(box);

  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] {
    const std::vector<std::string> selected = files_->SelectedLines();
    if (!selected.empty()) name_->setText(ToQt(selected.front()));
  });
  connect(files_, &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
  connect(speed_, &QSlider::valueChanged, this, [this] { ShowPace(); });
  connect(paces_, &QButtonGroup::idToggled, this, [this] { ShowPace(); });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  ShowPace();
  files_->setFocus();
  resize(420, 440);
}

void frmNMEAReplay::ShowPace() {
  const bool by_slider = paces_->checkedId() == static_cast<int>(ReplayPace::kInterval);
  speed_->setEnabled(by_slider);
  speed_text_->setEnabled(by_slider);
  speed_text_->setText(QString("%1 ms").arg(speed_->value()));
}

void frmNMEAReplay::Accept() {
  request_.name = Trim(FromQt(name_->text()));
  request_.interval = speed_->value();
  request_.pace = static_cast<ReplayPace>(paces_->checkedId());
  // Asked here, so that the words come while the name can still be corrected.
  if (const Status there = CheckReplay(request_, desktop().program.folders.Tracks()); !there) {
    Refuse(there.error().Text(), false, name_);
    return;
  }
  accept();
}

}  // namespace skerrow
