#include "ui/instruments/upload_dialog.h"

#include <QButtonGroup>

#include "core/numbers.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

int UploadPort(const Program& program) {
  return program.link.gps.number >= 0 ? program.link.gps.number : program.config.gps_port;
}

UploadOptions UploadOptionsOf(const AppConfig& config) {
  return {.gps_type = static_cast<int>(TextToNumber(config.gps_type_text))};
}

UploadDialog::UploadDialog(Desktop& desktop, const Words& words, QWidget* parent)
    : Dialog(desktop, words.name, words.title, parent),
      words_(words),
      options_(UploadOptionsOf(desktop.program.config)),
      port_(UploadPort(desktop.program)),
      files_(new TextList(desktop.clipboard, words.files)),
      records_(new TextList(desktop.clipboard, "List1")),
      names_(Named<QRadioButton>("optnames", "Upload waypoint identity as na&mes")),
      numbers_(Named<QRadioButton>("Optnumbers", "Upload waypoint identity as n&umbers")),
      state_(MakeHint({})),
      bar_(new QProgressBar) {
  files_->setSelectionMode(QAbstractItemView::SingleSelection);
  files_->SetLines(ListFiles(FolderOfKind(desktop.program.folders, words.kind), words.kind));
  records_->setSelectionMode(QAbstractItemView::SingleSelection);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  auto* left = MakeColumn();
  left->addWidget(MakeLabel(words.files_text, files_));
  left->addWidget(files_, 1);
  columns->addLayout(left, 1);
  side_ = MakeColumn();
  side_->addWidget(MakeLabel("&Points, with the identity that the GPS gets", records_));
  side_->addWidget(records_, 1);
  auto* identities = new QButtonGroup(this);
  identities->addButton(names_);
  identities->addButton(numbers_);
  names_->setChecked(true);
  side_->addWidget(names_);
  side_->addWidget(numbers_);
  columns->addLayout(side_, 2);
  body()->addLayout(columns, 1);
  state_->setObjectName(QStringLiteral("lblState"));
  state_->setMinimumHeight(2 * state_->fontMetrics().height() + 4);
  body()->addWidget(state_);
  bar_->setObjectName(QStringLiteral("ProgressBar1"));
  bar_->setRange(0, 100);
  bar_->setValue(0);
  body()->addWidget(bar_);

  upload_ = AddButton("cmdupload", "&Upload", "Sends the points to the GPS");
  upload_->setDefault(true);
  cancel_ = AddButton("cmdCancel", "Cancel");
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] { Tick(); });
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] { ShowFile(); });
  connect(identities, &QButtonGroup::buttonClicked, this, [this] { ShowPoints(); });
  connect(upload_, &QPushButton::clicked, this, [this] { Start(); });
  connect(cancel_, &QPushButton::clicked, this, [this] { reject(); });
  files_->setFocus();
  resize(720, 460);
  // The hand-shake of a Magellan comes before anything else.
  for (const UploadStep& step : UploadOpening(options_)) {
    if (desktop.ports.Put(port_, step.text) < 0) state_->setText(ToQt(kUploadRefused));
  }
}

void UploadDialog::ShowFile() {
  const std::vector<std::string> selected = files_->SelectedLines();
  points_.clear();
  if (!selected.empty()) {
    Result<std::vector<UploadPoint>> read =
        ReadUploadPoints(desktop().program.folders, words_.kind, selected.front());
    if (read) {
      points_ = std::move(read.value());
      FileChosen(selected.front());
    } else {
      Refuse(read.error().Text(), false, files_);
    }
  }
  ShowPoints();
}

void UploadDialog::ShowPoints() {
  options_.identity = numbers_->isChecked() ? UploadIdentity::kNumbers : UploadIdentity::kNames;
  records_->SetLines(UploadRows(points_, options_));
  state_->setText(ToQt(SharedIdentityText(points_, options_)));
}

void UploadDialog::Start() {
  if (points_.empty()) {
    Refuse(kNothingToTransfer, false, files_);
    return;
  }
  run_.Start(Steps());
  SetSending(true);
  Tick();
}

void UploadDialog::Tick() {
  switch (run_.Next(desktop().ports, port_)) {
    case UploadRun::Step::kSent:
      bar_->setValue(static_cast<int>(run_.Percent()));
      if (run_.record() > 0) {
        records_->setCurrentRow(static_cast<int>(run_.record()) - 1);
        state_->setText(QString("Sending point %1 of %2").arg(run_.record()).arg(points_.size()));
      } else {
        state_->setText("Sending the route");
      }
      timer_.start(run_.pause());
      return;
    case UploadRun::Step::kRefused:
      Stopped(ToQt(kUploadRefused));
      return;
    case UploadRun::Step::kDone:
      SetSending(false);
      records_->clearSelection();
      accept();
      desktop().messages.Show(words_.done);
      return;
  }
}

void UploadDialog::Stopped(const QString& why) {
  timer_.stop();
  run_.Stop();
  SetSending(false);
  state_->setText(why);
}

void UploadDialog::SetSending(bool sending) {
  upload_->setEnabled(!sending);
  files_->setEnabled(!sending);
  names_->setEnabled(!sending);
  numbers_->setEnabled(!sending);
  cancel_->setText(sending ? "&Stop" : "Cancel");
  if (!sending) bar_->setValue(0);
  emit Sending(sending);
}

std::optional<UploadPoint> UploadDialog::SelectedPoint() const {
  const QList<QListWidgetItem*> selected = records_->selectedItems();
  if (selected.isEmpty()) return std::nullopt;
  return points_[static_cast<std::size_t>(records_->row(selected.front()))];
}

void UploadDialog::reject() {
  if (!run_.running()) {
    Dialog::reject();
    return;
  }
  Stopped(run_.record() > 0
              ? QString("Stopped after point %1 of %2. What was sent stays in the GPS.")
                    .arg(run_.record())
                    .arg(points_.size())
              : QString("Stopped. What was sent stays in the GPS."));
}

}  // namespace skerrow
