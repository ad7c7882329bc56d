#include "ui/wind/frmGribImport.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <cmath>

#include "core/files.h"
#include "ui/forms/grib_form.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmGribImport::frmGribImport(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmGribImport", "Read Grib Data", parent),
      files_(Named<QListWidget>("FileList")),
      file_name_(MakeHint("")),
      records_(new TextList(desktop.clipboard, "List1")),
      count_(Named<QLabel>("lblRecCount")),
      use_(Named<QCheckBox>("chkUse", "Show this &wind on the chart and give it to routes")),
      bar_(Named<QProgressBar>("ProgressBar1")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  QVBoxLayout* left = MakeColumn();
  left->addWidget(MakeLabel("&Forecast files", files_));
  left->addWidget(files_, 1);
  file_name_->setObjectName("lblFileName");
  left->addWidget(file_name_);
  QLabel* folder = MakeHint("Files are looked for in " + ToQt(desktop.program.folders.GribData()));
  folder->setTextInteractionFlags(Qt::TextSelectableByMouse);
  left->addWidget(folder);
  columns->addLayout(left, 1);
  QVBoxLayout* right = MakeColumn();
  right->addWidget(MakeLabel("&Messages in the file", records_));
  right->addWidget(records_, 1);
  right->addWidget(count_);
  right->addWidget(bar_);
  columns->addLayout(right, 1);
  body()->addLayout(columns, 1);
  use_->setChecked(true);
  body()->addWidget(use_);
  body()->addWidget(
      MakeHint("GRIB files are complex and take some time to read. What is imported "
               "is kept until the next import."));
  bar_->setRange(0, 100);
  bar_->setTextVisible(false);
  sample_ = AddLeftButton("cmdSample", "&Open a sample forecast",
                          "A depression that crosses the Channel in five days from today on");
  export_ = AddButton("cmdExport", "&Import", "Reads the file and keeps its wind");
  export_->setDefault(true);
  cancel_ = AddButton("cmdCancel", "Close");
  connect(export_, &QPushButton::clicked, this, [this] { ImportSelected(); });
  connect(sample_, &QPushButton::clicked, this, [this] {
    Import(SampleForecast(this->desktop().program.folders),
           this->desktop().program.clock->Now().Day());
  });
  connect(cancel_, &QPushButton::clicked, this, &frmGribImport::reject);
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] { ShowFile(); });
  connect(files_, &QListWidget::itemDoubleClicked, this, [this] { ImportSelected(); });
  ListFiles();
  SetWorking(false);
  files_->setFocus();
  resize(760, 460);
}

void frmGribImport::reject() {
  stop_ = true;
  if (!busy()) Dialog::reject();
}

void frmGribImport::ListFiles() {
  files_->clear();
  for (const std::string& name : ListForecasts(desktop().program.folders)) {
    files_->addItem(ToQt(name));
  }
  if (files_->count() == 0) {
    file_name_->setText(
        "There is no forecast file yet. Save one from a forecast service in the "
        "folder below, or open the sample.");
  } else {
    files_->setCurrentRow(0);
  }
}

void frmGribImport::ShowFile() {
  const QList<QListWidgetItem*> selected = files_->selectedItems();
  file_name_->setText(selected.isEmpty() ? QString()
                                         : ToQt(DownloadText(FromQt(selected.front()->text()))));
}

void frmGribImport::ImportSelected() {
  const QList<QListWidgetItem*> selected = files_->selectedItems();
  if (selected.isEmpty()) return Refuse("Select a file", false, files_);
  Import(JoinPath(desktop().program.folders.GribData(), FromQt(selected.front()->text())),
         std::nullopt);
}

void frmGribImport::SetWorking(bool working) {
  SetBusy(working);
  for (QWidget* widget : std::initializer_list<QWidget*>{files_, use_, sample_, export_}) {
    widget->setEnabled(!working);
  }
  // What does not show keeps its room, so that nothing jumps.
  QSizePolicy keep = bar_->sizePolicy();
  keep.setRetainSizeWhenHidden(true);
  bar_->setSizePolicy(keep);
  bar_->setVisible(working);
  bar_->setValue(0);
  cancel_->setEnabled(true);
  cancel_->setText(working ? "Cancel" : "Close");
}

void frmGribImport::Import(const std::string& path, std::optional<DayAndYear> begin_today) {
  if (busy()) return;
  constexpr int kLookEachMs = 20;
  stop_ = false;
  records_->SetLines({});
  SetWorking(true);
  bool imported = false;
  bool stopped = false;
  std::vector<KeptMessage> messages;
  {
    ForecastImport work(desktop().program.folders, path, begin_today);
    QEventLoop loop;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &loop, [&] {
      if (work.done()) return loop.quit();
      if (stop_) {
        work.Cancel();
        cancel_->setEnabled(false);
      }
      if (work.writing()) {
        bar_->setRange(0, 0);
        cancel_->setEnabled(false);
        count_->setText("Please Wait  Writing Data...");
      } else {
        bar_->setValue(static_cast<int>(std::lround(work.percent())));
        count_->setText("Processing Record Number " + QString::number(work.records()));
      }
    });
    timer.start(kLookEachMs);
    loop.exec();
    imported = work.imported();
    stopped = !imported && work.cancelled();
    messages = work.messages();
    std::vector<RowLook> looks(work.rows().size());
    if (!looks.empty()) looks.front().bold = true;
    records_->SetLines(work.rows(), looks);
    count_->setText(stopped ? "Stopped. What was imported before is kept."
                            : "Processing Record Number " + QString::number(work.records()));
  }
  bar_->setRange(0, 100);
  SetWorking(false);
  if (imported) UseForecast();
  for (const KeptMessage& message : messages) desktop().messages.Show(message.text, message.icon);
  files_->setFocus();
}

void frmGribImport::UseForecast() {
  Program& program = desktop().program;
  if (use_->isChecked()) {
    const Status saved = ReloadThenSave(program.folders, program.config, [](AppConfig& config) {
      config.use_manual_wind = kFalse;
      config.show_wind_grid = kTrue;
    });
    if (!saved) desktop().messages.Show(saved.error().Text(), MessageIcon::kWarning);
  }
  RecomputeWinds(program.route, RouteDefaultsOf(program), desktop().messages);
  desktop().window.Changed(kRouteChanged | kTimeChanged | kSettingsChanged);
}

}  // namespace skerrow
