#include "ui/charts/frmLoadChart.h"

#include <QGridLayout>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"
#include "ui/charts/frmImportChart.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmLoadChart::frmLoadChart(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmLoadChart", "Select Chart", parent),
      config_(desktop.program.config),
      filter_(desktop.program.config.chart_scale_choice),
      areas_(Named<QListWidget>("lstAreas")),
      list_(Named<QListWidget>("List1")),
      scale_list_(Named<QComboBox>("cmbScale")),
      scale_text_(new FilteredEdit(KeyFilter::kNumber, desktop.messages, "txtScale")),
      search_(Named<QLineEdit>("txtSearch")),
      number_(Named<QLabel>("lblChartNumber")),
      preview_(new PicturePreview("GdViewer1")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addLayout(MakeChoices(), 2);
  QVBoxLayout* right = MakeColumn();
  number_->setProperty("heading", true);
  right->addWidget(number_);
  right->addWidget(preview_, 1);
  columns->addLayout(right, 3);
  body()->addLayout(columns, 1);
  QPushButton* import = AddLeftButton("cmdImport", "&Import…", "Bring a chart of another maker in");
  remove_ = AddLeftButton("cmdRemove", "&Remove…", "Takes one of your own charts away");
  ok_ = AddButton("cmdOK", "OK");
  ok_->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok_, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  connect(import, &QPushButton::clicked, this, [this] { Import(); });
  connect(remove_, &QPushButton::clicked, this, [this] { Remove(); });
  SetFilter(filter_);
  connect(areas_, &QListWidget::currentRowChanged, this, [this] { LoadArea(); });
  connect(list_, &QListWidget::currentRowChanged, this, [this] { ShowChart(); });
  connect(list_, &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
  connect(scale_list_, &QComboBox::activated, this, [this] {
    SetFilter(static_cast<float>(scale_list_->currentData().toInt()));
    FillCharts();
  });
  connect(scale_text_, &QLineEdit::textEdited, this, [this] {
    SetFilter(static_cast<float>(TextToNumber(scale_text_->Text())));
    FillCharts();
  });
  connect(search_, &QLineEdit::textEdited, this, [this] { Search(); });
  ListAreas();
  list_->setFocus();
  resize(880, 600);
}

QLayout* frmLoadChart::MakeChoices() {
  for (const int scale : kScaleFilters) {
    scale_list_->addItem(scale == 0 ? "all scales" : QString("1 : %L1").arg(scale), scale);
  }
  scale_text_->SetColumns(9);
  scale_text_->setToolTip("Scale of the chart; type one to list the charts above it");
  search_->setPlaceholderText("Letters of the title");
  search_->setClearButtonEnabled(true);
  areas_->setMinimumHeight(areas_->fontMetrics().height() * 4);
  areas_->setMaximumHeight(areas_->fontMetrics().height() * 7);
  QVBoxLayout* column = MakeColumn();
  column->addWidget(MakeLabel("Sea &area:", areas_));
  column->addWidget(areas_);
  column->addWidget(
      MakeHint("Choose a sea area, then a chart of it. The list shows the charts "
               "whose scale is above the one chosen here."));
  auto* grid = new QGridLayout;
  grid->addWidget(MakeLabel("Charts abo&ve:", scale_list_), 0, 0);
  grid->addWidget(scale_list_, 0, 1);
  grid->addWidget(MakeLabel("&Scale:", scale_text_), 0, 2);
  grid->addWidget(scale_text_, 0, 3);
  grid->addWidget(MakeLabel("&Find:", search_), 1, 0);
  grid->addWidget(search_, 1, 1, 1, 2);
  auto* again = Named<QPushButton>("cmdSearch", "Search A&gain");
  again->setAutoDefault(false);
  grid->addWidget(again, 1, 3);
  grid->setColumnStretch(1, 1);
  connect(again, &QPushButton::clicked, this, [this] { Search(); });
  column->addLayout(grid);
  column->addWidget(list_, 1);
  column->addWidget(MakeHint("A click shows the chart, a double click opens it."));
  return column;
}

void frmLoadChart::ListAreas() {
  {
    const QSignalBlocker quiet(areas_);
    areas_->clear();
    for (const std::string& area : SeaAreas(desktop().program.folders)) areas_->addItem(ToQt(area));
    const auto current = areas_->findItems(ToQt(Trim(config_.sea_area)), Qt::MatchExactly);
    areas_->setCurrentItem(current.isEmpty() ? areas_->item(0) : current.front());
  }
  LoadArea();
}

const ChartIndexEntry* frmLoadChart::Selected() const {
  const int row = list_->currentRow();
  return row < 0 ? nullptr : &charts_.index[rows_[static_cast<std::size_t>(row)].entry];
}

void frmLoadChart::Import() {
  const std::optional<ImportedChart> chart = AskForChart(desktop(), this);
  if (!chart) return;
  config_.sea_area = chart->area;
  SetFilter(0.0F);
  ListAreas();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (Trim(charts_.index[rows_[i].entry].chart_key) == chart->key) {
      list_->setCurrentRow(static_cast<int>(i));
    }
  }
  list_->setFocus();
}

void frmLoadChart::Remove() {
  const ChartIndexEntry* entry = Selected();
  if (entry == nullptr) return;
  Program& program = desktop().program;
  const std::string key = Trim(entry->chart_key);
  if (IsChartOnShow(program.folders, program.config, key)) {
    return Refuse("This is the chart on show. Open another one, then remove it.", false, list_);
  }
  if (!desktop().messages.Ask("Remove the chart " + key + ", " + Trim(entry->title) +
                              "?\n\nIts picture and its calibration are deleted.")) {
    return;
  }
  if (const Status removed = RemoveChart(program.folders, key); !removed) {
    desktop().messages.Show(removed.error().Text(), MessageIcon::kWarning);
  }
  ListAreas();
  list_->setFocus();
}

void frmLoadChart::LoadArea() {
  if (areas_->currentItem() == nullptr) return;
  config_.sea_area = FromQt(areas_->currentItem()->text());
  const Status loaded =
      LoadChartIndex(desktop().program.folders, config_, charts_, desktop().messages);
  if (!loaded) desktop().messages.Show(loaded.error().Text(), MessageIcon::kWarning);
  FillCharts();
}

void frmLoadChart::SetFilter(float scale) {
  filter_ = scale;
  const int row = scale_list_->findData(static_cast<int>(std::lround(scale)));
  scale_list_->setCurrentIndex(row);
}

void frmLoadChart::FillCharts() {
  rows_ = ChartRows(charts_.index, filter_);
  int current = rows_.empty() ? -1 : 0;
  {
    const QSignalBlocker quiet(list_);
    list_->clear();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      auto* item = new QListWidgetItem(ToQt(rows_[i].title), list_);
      item->setData(Qt::UserRole, static_cast<int>(rows_[i].entry));
      const std::string path =
          ChartPathOf(desktop().program.folders, Trim(charts_.index[rows_[i].entry].chart_key));
      if (path == Trim(desktop().program.config.chart_path)) current = static_cast<int>(i);
    }
    list_->setCurrentRow(current);
  }
  ShowChart();
}

void frmLoadChart::ShowChart() {
  const int row = list_->currentRow();
  ok_->setEnabled(row >= 0);
  remove_->setEnabled(row >= 0 && IsOwnChart(desktop().program.folders, Selected()->chart_key));
  if (row < 0) {
    number_->setText("No chart");
    preview_->Open({});
    return;
  }
  const ChartIndexEntry& entry = charts_.index[rows_[static_cast<std::size_t>(row)].entry];
  number_->setText(ToQt(Trim(entry.chart_key)));
  if (!scale_text_->hasFocus()) scale_text_->SetText(ShortText(entry.scale));
  preview_->Open(PreviewPath(desktop().program.folders, entry.chart_key));
}

void frmLoadChart::Search() {
  const std::optional<std::size_t> row =
      FindChartRow(rows_, FromQt(search_->text()), list_->currentRow());
  if (row) list_->setCurrentRow(static_cast<int>(*row));
}

void frmLoadChart::Accept() {
  const int row = list_->currentRow();
  if (row < 0) return;
  Program& program = desktop().program;
  const ChartChoice choice = {config_.sea_area,
                              charts_.index[rows_[static_cast<std::size_t>(row)].entry].chart_key,
                              filter_};
  if (const Status chosen = ChooseChart(program.folders, choice, program.config, program.charts);
      !chosen) {
    desktop().messages.Show(chosen.error().Text(), MessageIcon::kWarning);
    return;
  }
  accept();
}

}  // namespace skerrow
