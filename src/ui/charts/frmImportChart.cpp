#include "ui/charts/frmImportChart.h"

#include <QFileDialog>
#include <QGridLayout>
#include <cmath>

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kLookEachMs = 30;
constexpr int kLongestKey = 16;
constexpr int kLongestTitle = 64;
constexpr char kSection[] = "Charts";
constexpr char kFolder[] = "ImportFolder";

}  // namespace

frmImportChart::frmImportChart(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmImportChart", "Import Chart", parent),
      importer_(desktop.program.folders),
      file_(Named<QLineEdit>("txtFile")),
      browse_(Named<QPushButton>("cmdBrowse", "&Choose File…")),
      details_(MakeHint("")),
      notes_(Named<QLabel>("lblNotes")),
      areas_(Named<QComboBox>("cmbArea")),
      area_hint_(MakeHint("")),
      key_box_(Named<QLineEdit>("txtKey")),
      title_(Named<QLineEdit>("txtTitle")),
      scale_(new FilteredEdit(KeyFilter::kWholeNumber, desktop.messages, "txtScale")),
      preview_(new PicturePreview("GdViewer1")),
      bar_(Named<QProgressBar>("ProgressBar1")),
      state_(Named<QLabel>("lblState")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addLayout(MakeFields(), 1);
  columns->addWidget(preview_, 1);
  body()->addLayout(columns, 1);
  QWidget::setTabOrder(browse_, title_);
  QWidget::setTabOrder(title_, areas_);
  QWidget::setTabOrder(areas_, scale_);
  QWidget::setTabOrder(scale_, key_box_);
  body()->addWidget(state_);
  body()->addWidget(bar_);
  bar_->setRange(0, 100);
  bar_->setTextVisible(false);
  QSizePolicy keep = bar_->sizePolicy();
  keep.setRetainSizeWhenHidden(true);
  bar_->setSizePolicy(keep);
  import_ = AddButton("cmdImport", "&Import", "Brings the chart into your own chart folder");
  cancel_ = AddButton("cmdCancel", "Close");
  connect(browse_, &QPushButton::clicked, this, [this] { ChooseFile(); });
  connect(import_, &QPushButton::clicked, this, [this] { Import(); });
  connect(cancel_, &QPushButton::clicked, this, &frmImportChart::reject);
  connect(areas_, &QComboBox::currentTextChanged, this, [this](const QString& area) {
    area_hint_->setText(ToQt(NewAreaHint(this->desktop().program.folders, FromQt(area))));
    area_hint_->setVisible(!area_hint_->text().isEmpty());
  });
  connect(&look_, &QTimer::timeout, this, [this] { Look(); });
  for (const std::string& area : SeaAreas(desktop.program.folders)) areas_->addItem(ToQt(area));
  areas_->setCurrentText(ToQt(Trim(desktop.program.config.sea_area)));
  key_box_->setText(ToQt(FreeChartKey(desktop.program.folders)));
  SetWork(Work::kNone);
  ShowSource();
  browse_->setDefault(true);
  browse_->setFocus();
  resize(860, 520);
}

QLayout* frmImportChart::MakeFields() {
  file_->setReadOnly(true);
  file_->setFocusPolicy(Qt::ClickFocus);
  file_->setPlaceholderText("No file chosen yet");
  browse_->setToolTip("A GeoTIFF, BSB/KAP, MBTiles, PNG or JPEG file");
  areas_->setEditable(true);
  areas_->setInsertPolicy(QComboBox::NoInsert);
  areas_->setToolTip("The sea area whose list the chart joins; type a name for a new one");
  area_hint_->setObjectName("lblAreaHint");
  area_hint_->hide();
  details_->setObjectName("lblDetails");
  details_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  key_box_->setMaxLength(kLongestKey);
  key_box_->setToolTip("The name of the chart's files: its number, \"-\" and its panel");
  title_->setMaxLength(kLongestTitle);
  title_->setToolTip("As the list of charts shows it");
  scale_->SetColumns(9);
  scale_->setToolTip("The natural scale, 50000 for 1 : 50,000; it orders charts of one place");
  QVBoxLayout* column = MakeColumn();
  auto* row = new QHBoxLayout;
  row->addWidget(file_, 1);
  row->addWidget(browse_);
  column->addLayout(row);
  column->addWidget(details_);
  notes_->setWordWrap(true);
  notes_->setProperty("warning", true);
  notes_->hide();
  column->addWidget(notes_);
  auto* grid = new QGridLayout;
  grid->addWidget(MakeLabel("&Title:", title_), 0, 0);
  grid->addWidget(title_, 0, 1, 1, 3);
  grid->addWidget(MakeLabel("Sea &area:", areas_), 1, 0);
  grid->addWidget(areas_, 1, 1, 1, 3);
  grid->addWidget(area_hint_, 2, 1, 1, 3);
  grid->addWidget(MakeLabel("&Scale  1 :", scale_), 3, 0);
  grid->addWidget(scale_, 3, 1);
  grid->addWidget(MakeLabel("&Number:", key_box_), 3, 2);
  grid->addWidget(key_box_, 3, 3);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  column->addLayout(grid);
  column->addStretch(1);
  return column;
}

void frmImportChart::reject() {
  if (work_ == Work::kNone) return Dialog::reject();
  closing_ = work_ == Work::kReading;
  importer_.Cancel();
  cancel_->setEnabled(false);
}

void frmImportChart::ChooseFile() {
  SettingsStore& settings = desktop().settings;
  const QString path = QFileDialog::getOpenFileName(
      this, "Import Chart",
      ToQt(settings.Get(kSection, kFolder, desktop().program.folders.documents)),
      "Charts (*.tif *.tiff *.kap *.mbtiles *.png *.jpg *.jpeg);;All files (*)", nullptr,
      QFileDialog::DontUseNativeDialog);
  if (path.isEmpty()) return;
  settings.Set(kSection, kFolder, FolderOf(FromQt(path)));
  ReadFile(FromQt(path));
}

void frmImportChart::ReadFile(const std::string& path) {
  file_->setText(ToQt(path));
  file_->setToolTip(ToQt(path));
  importer_.Read(path);
  SetWork(Work::kReading);
}

ImportTexts frmImportChart::Texts() const {
  return {FromQt(areas_->currentText()), FromQt(key_box_->text()), FromQt(title_->text()),
          scale_->Text()};
}

void frmImportChart::Import() {
  if (work_ != Work::kNone || importer_.source() == nullptr) return;
  const ImportTexts texts = Texts();
  if (const auto refusal = CheckTexts(desktop().program.folders, texts)) {
    const std::initializer_list<std::pair<ImportField, QWidget*>> fields = {
        {ImportField::kArea, areas_},
        {ImportField::kKey, key_box_},
        {ImportField::kTitle, title_},
        {ImportField::kScale, scale_}};
    for (const auto& [field, widget] : fields) {
      if (field == refusal->field) return Refuse(refusal->text, false, widget);
    }
  }
  const ImportRequest request = RequestOf(texts);
  area_ = request.area;
  key_ = request.key;
  placed_ = importer_.source()->info().placed;
  importer_.Import(request);
  SetWork(Work::kImporting);
}

void frmImportChart::SetWork(Work work) {
  work_ = work;
  const bool working = work != Work::kNone;
  SetBusy(working);
  for (QWidget* widget :
       std::initializer_list<QWidget*>{browse_, areas_, key_box_, title_, scale_}) {
    widget->setEnabled(!working);
  }
  import_->setEnabled(!working && importer_.source() != nullptr);
  bar_->setVisible(working);
  bar_->setValue(0);
  cancel_->setEnabled(true);
  cancel_->setText(working ? "Cancel" : "Close");
  state_->setText(work == Work::kReading     ? "Reading the file"
                  : work == Work::kImporting ? "Bringing the chart in"
                                             : "");
  if (working) {
    look_.start(kLookEachMs);
  } else {
    look_.stop();
  }
}

void frmImportChart::Look() {
  if (importer_.working()) {
    bar_->setValue(static_cast<int>(std::lround(importer_.percent())));
    return;
  }
  Finish();
}

void frmImportChart::Finish() {
  const bool imported = work_ == Work::kImporting && !importer_.error();
  const bool reading = work_ == Work::kReading;
  SetWork(Work::kNone);
  if (imported) return accept();
  if (closing_) return Dialog::reject();
  if (reading) ShowSource();
  if (const auto& error = importer_.error()) {
    if (error->reason == kImportCancelled) {
      state_->setText("Stopped. Nothing was brought in.");
    } else {
      desktop().messages.Show(error->Text(), MessageIcon::kWarning);
    }
  }
}

void frmImportChart::ShowSource() {
  const ChartSource* source = importer_.source();
  import_->setEnabled(source != nullptr);
  preview_->Set(importer_.preview());
  notes_->setVisible(source != nullptr && !source->info().notes.empty());
  if (source == nullptr) {
    details_->setText(
        "A chart that tells its own place is brought onto a sheet of this program; a plain scan is "
        "taken as it is, for you to calibrate.");
    return;
  }
  const ChartSourceInfo& info = source->info();
  QStringList lines;
  for (const std::string& line : ImportLines(info)) lines << ToQt(line);
  details_->setText(lines.join('\n'));
  QStringList notes;
  for (const std::string& note : info.notes) notes << ToQt(note);
  notes_->setText(notes.join('\n'));
  title_->setText(ToQt(info.title));
  scale_->SetText(info.scale > 0.0 ? FormatFixed(info.scale, 1, 0) : "");
  import_->setDefault(true);
  // The first thing that is missing, else the title, which is a guess.
  if (info.placed) {
    title_->setFocus();
    title_->selectAll();
  } else {
    scale_->setFocus();
  }
}

std::optional<ImportedChart> AskForChart(Desktop& desktop, QWidget* parent) {
  frmImportChart dialog(desktop, parent);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  if (!dialog.placed()) {
    desktop.messages.Show(
        "The scan is in the list of charts. Its positions mean nothing yet: before you plan "
        "anything on it, press C for Calibrate Chart and give two of its places.",
        MessageIcon::kInformation);
  }
  return ImportedChart{dialog.area(), dialog.key(), dialog.placed()};
}

}  // namespace skerrow
