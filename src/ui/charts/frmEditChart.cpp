#include "ui/charts/frmEditChart.h"

#include <QSignalBlocker>
#include <utility>

#include "core/text.h"
#include "platform/images.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmEditChart::frmEditChart(Desktop& desktop, Open open, QWidget* parent)
    : Dialog(desktop, "frmEditChart", "Chart Settings", parent),
      open_(std::move(open)),
      areas_(Named<QComboBox>("cmbAreas")),
      list_(Named<QListWidget>("List1")),
      search_(Named<QLineEdit>("txtSearch")),
      heading_(Named<QLabel>("lblChartNumber")),
      panel_(new CalibrationPanel(desktop.messages)),
      preview_(new PicturePreview("GdViewer1")),
      size_(Named<QLabel>("lblSize")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addLayout(MakeChoices(), 2);
  columns->addLayout(MakeFields(), 4);
  body()->addLayout(columns, 1);
  accept_ = AddLeftButton("cmdAcceptChanges", "A&ccept Changes",
                          "Store these settings in the chart's file, and its scale in the index");
  QPushButton* ok = AddButton("cmdOK", "OK", "Close the form");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  connect(accept_, &QPushButton::clicked, this, [this] { Accept(); });
  connect(areas_, &QComboBox::activated, this, [this](int row) {
    if (row == area_row_) return;
    if (MayLeave()) return LoadArea();
    areas_->setCurrentIndex(area_row_);
  });
  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) { RowChanged(row); });
  connect(list_, &QListWidget::itemDoubleClicked, this,
          [this](const QListWidgetItem* item) { OpenChart(list_->row(item)); });
  connect(search_, &QLineEdit::textEdited, this, [this] { Search(); });
  for (const std::string& area : SeaAreas(desktop.program.folders)) areas_->addItem(ToQt(area));
  const int current = areas_->findText(ToQt(Trim(desktop.program.config.sea_area)));
  areas_->setCurrentIndex(current >= 0 ? current : 0);
  LoadArea();
  list_->setFocus();
  resize(1000, 540);
}

QLayout* frmEditChart::MakeChoices() {
  search_->setPlaceholderText("Letters of the title");
  search_->setClearButtonEnabled(true);
  QVBoxLayout* column = MakeColumn();
  column->addWidget(MakeLabel("&Sea area:", areas_));
  column->addWidget(areas_);
  auto* find = new QHBoxLayout;
  find->addWidget(MakeLabel("&Find:", search_));
  find->addWidget(search_, 1);
  auto* again = Named<QPushButton>("cmdSearch", "Search A&gain");
  again->setAutoDefault(false);
  connect(again, &QPushButton::clicked, this, [this] { Search(); });
  find->addWidget(again);
  column->addLayout(find);
  column->addWidget(list_, 1);
  column->addWidget(MakeHint("A double click opens the chart behind this form."));
  return column;
}

QLayout* frmEditChart::MakeFields() {
  QVBoxLayout* column = MakeColumn();
  heading_->setProperty("heading", true);
  column->addWidget(heading_);
  auto* parts = new QHBoxLayout;
  parts->addWidget(panel_);
  parts->addWidget(preview_, 1);
  column->addLayout(parts, 1);
  column->addWidget(size_);
  return column;
}

void frmEditChart::LoadArea() {
  area_row_ = areas_->currentIndex();
  const Folders& folders = desktop().program.folders;
  index_ = {};
  rows_.clear();
  {
    const QSignalBlocker quiet(list_);
    list_->clear();
  }
  row_ = -1;
  ShowChart(-1);
  if (area_row_ < 0) return;
  Result<IndexList> index = ListIndex(folders, FromQt(areas_->currentText()));
  if (!index) return Refuse(index.error().Text());
  index_ = std::move(index.value());
  int current = -1;
  const QSignalBlocker quiet(list_);
  for (std::size_t i = 0; i < index_.rows.size(); ++i) {
    const ChartIndexEntry& entry = index_.rows[i].entry;
    rows_.push_back({Trim(entry.title), i});
    list_->addItem(ToQt(rows_.back().title));
    if (ChartPathOf(folders, Trim(entry.chart_key)) == Trim(desktop().program.config.chart_path)) {
      current = static_cast<int>(i);
    }
  }
  if (current < 0) return;
  list_->setCurrentRow(current);
  row_ = current;
  ShowChart(current);
}

void frmEditChart::Search() {
  if (const auto row = FindChartRow(rows_, FromQt(search_->text()), list_->currentRow())) {
    list_->setCurrentRow(static_cast<int>(*row));
  }
}

void frmEditChart::RowChanged(int row) {
  if (row == row_) return;
  if (!MayLeave()) {
    const QSignalBlocker quiet(list_);
    list_->setCurrentRow(row_);
    return;
  }
  row_ = row;
  ShowChart(row);
}

void frmEditChart::ShowChart(int row) {
  shown_.reset();
  heading_->setText("No chart");
  size_->clear();
  std::string image;
  std::string refusal;
  if (row >= 0) {
    const Folders& folders = desktop().program.folders;
    const std::string key = Trim(index_.rows[static_cast<std::size_t>(row)].entry.chart_key);
    heading_->setText(ToQt(key));
    image = PreviewPath(folders, key);
    const Result<std::optional<ChartFileRecord>> chart = ReadCalibration(
        folders, ChartPathOf(folders, key), Calibration::kWorking, kListClickSettings);
    if (chart) {
      // An empty file has room for a calibration.
      shown_ = chart.value().value_or(ChartFileRecord());
    } else {
      refusal = chart.error().Text();
    }
    const Result<PictureInfo> sheet =
        ReadPictureInfo(ChartPathOf(folders, key) + std::string(kChartImage));
    const Result<PictureInfo> preview = ReadPictureInfo(image);
    const auto pixels = [](const Result<PictureInfo>& picture) {
      return picture ? QString("%1 x %2 pixels").arg(picture->width).arg(picture->height)
                     : QString("none");
    };
    size_->setText("Image: " + pixels(sheet) + "     Preview: " + pixels(preview));
  }
  preview_->Open(image);
  texts_ = shown_ ? TextsOf(*shown_) : CalibrationTexts();
  panel_->SetTexts(texts_);
  panel_->setEnabled(shown_.has_value());
  if (accept_ != nullptr) accept_->setEnabled(shown_.has_value());
  if (!refusal.empty()) Refuse(refusal);
}

bool frmEditChart::Edited() const { return shown_ && panel_->Texts() != texts_; }

bool frmEditChart::MayLeave() {
  return !Edited() ||
         desktop().messages.Ask("The changes of this chart are not accepted. Leave them?");
}

void frmEditChart::Accept() {
  if (!shown_ || row_ < 0) return;
  const BoxesRead<ChartFileRecord> read = ReadCalibrationTexts(panel_->Texts(), *shown_);
  if (!read.value) return Refuse(read.refusal, false, panel_->Box(read.box));
  const Folders& folders = desktop().program.folders;
  const auto row = static_cast<std::size_t>(row_);
  const std::string path = ChartPathOf(folders, Trim(index_.rows[row].entry.chart_key));
  // Both files are looked for before the first is written.
  const Result<IndexList> index = ListIndex(folders, index_.sea_area);
  if (!index) return Refuse(index.error().Text());
  if (Status same = CheckUnchanged(index_.file); !same) return Refuse(same.error().Text());
  const Status saved =
      SaveCalibration(folders, path, *read.value, Delivered::kAsItIs, kListClickSettings);
  if (!saved) return Refuse(saved.error().Text());
  written_ = true;
  shown_ = read.value;
  texts_ = TextsOf(*shown_);
  panel_->SetTexts(texts_);
  const Status scaled = SetIndexScale(folders, index_, row, read.value->scale);
  if (!scaled) return Refuse("The scale in the index is as it was.\n" + scaled.error().Text());
  desktop().window.Tell("Saved the settings of " + FromQt(heading_->text()));
}

void frmEditChart::OpenChart(int row) {
  if (row < 0) return;
  const ChartChoice choice = {index_.sea_area,
                              Trim(index_.rows[static_cast<std::size_t>(row)].entry.chart_key),
                              desktop().program.config.chart_scale_choice};
  SetBusy(true);
  open_(choice);
  SetBusy(false);
}

void frmEditChart::done(int result) {
  if (busy() || !MayLeave()) return;
  Dialog::done(result);
}

}  // namespace skerrow
