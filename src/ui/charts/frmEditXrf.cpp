#include "ui/charts/frmEditXrf.h"

#include <QGridLayout>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "core/text.h"
#include "ui/forms/load_chart_form.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmEditXrf::frmEditXrf(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmEditXrf", "Sea Area Index", parent),
      areas_(Named<QListWidget>("lstAreas")),
      list_(Named<QListWidget>("List1")),
      number_(Named<QLineEdit>("txtChartNo")),
      name_(Named<QLineEdit>("txtChartName")),
      scale_(new FilteredEdit(KeyFilter::kNumber, desktop.messages, "txtChartScale")),
      upper_lat_(MakeLatitudeEdit(desktop.messages, "txtUpperLat")),
      lower_lat_(MakeLatitudeEdit(desktop.messages, "txtLowerLat")),
      lower_lon_(MakeLongitudeEdit(desktop.messages, "txtLowerLon")),
      upper_lon_(MakeLongitudeEdit(desktop.messages, "txtUpperLon")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  QVBoxLayout* left = MakeColumn();
  left->addWidget(MakeLabel("&Sea area:", areas_));
  areas_->setMaximumHeight(areas_->fontMetrics().height() * 6);
  left->addWidget(areas_);
  left->addWidget(MakeLabel("&Charts:", list_));
  left->addWidget(list_, 1);
  columns->addLayout(left, 2);
  columns->addLayout(MakeFields(), 3);
  body()->addLayout(columns, 1);
  QPushButton* close = AddButton("cmdOK", "OK", "Close the form");
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  connect(areas_, &QListWidget::currentRowChanged, this, [this](int row) { AreaChanged(row); });
  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) { RowChanged(row); });
  connect(insert_, &QPushButton::clicked, this, [this] { Insert(); });
  connect(modify_, &QPushButton::clicked, this, [this] { Modify(); });
  connect(delete_, &QPushButton::clicked, this, [this] { Delete(); });
  for (const std::string& area : SeaAreas(desktop.program.folders)) areas_->addItem(ToQt(area));
  const auto current =
      areas_->findItems(ToQt(Trim(desktop.program.config.sea_area)), Qt::MatchExactly);
  if (!current.isEmpty()) {
    areas_->setCurrentItem(current.front());
  } else {
    areas_->setCurrentRow(0);
  }
  list_->setFocus();
  resize(760, 480);
}

QLayout* frmEditXrf::MakeFields() {
  number_->setMaxLength(static_cast<int>(kChartIndexFields[0].size));
  name_->setMaxLength(static_cast<int>(kChartIndexFields[1].size));
  number_->setToolTip("The file name of the chart without its ending: 9999-1");
  scale_->SetColumns(10);
  scale_->setToolTip("Natural scale of the chart");
  upper_lat_->setToolTip("Northern border: 50.30.25N");
  lower_lat_->setToolTip("Southern border: 50.30.25N");
  lower_lon_->setToolTip("Western border: 001.05.40W");
  upper_lon_->setToolTip("Eastern border: 001.05.40W");
  auto* grid = new QGridLayout;
  const std::pair<const char*, QWidget*> rows[] = {
      {"Chart &number:", number_},
      {"C&hart name:", name_},
      {"Scale &1:", scale_},
      {"&Upper latitude:", upper_lat_},
      {"&Lower latitude:", lower_lat_},
      {"L&eft longitude:", lower_lon_},
      {"&Right longitude:", upper_lon_},
  };
  int at = 0;
  for (const auto& [text, box] : rows) {
    grid->addWidget(MakeLabel(text, box), at, 0);
    grid->addWidget(box, at, 1);
    ++at;
  }
  grid->setColumnStretch(1, 1);
  const auto button = [](const char* name, const char* text, const char* tip) {
    auto* made = Named<QPushButton>(name, QString(text));
    made->setAutoDefault(false);
    made->setToolTip(tip);
    return made;
  };
  insert_ = button("cmdInsert", "&Insert Entry After", "A new entry behind the highlighted one");
  modify_ = button("cmdModify", "&Modify Entry", "Give the highlighted entry these values");
  delete_ =
      button("cmdDelete", "&Delete this Entry", "Take the highlighted entry out of the index");
  QVBoxLayout* column = MakeColumn();
  column->addLayout(grid);
  column->addSpacing(8);
  column->addWidget(MakeHint("Each change is written to the index at once."));
  column->addLayout(MakeRow({insert_, modify_, delete_}));
  column->addStretch(1);
  return column;
}

void frmEditXrf::AreaChanged(int row) {
  if (row == area_row_) return;
  if (!MayLeave()) {
    const QSignalBlocker quiet(areas_);
    areas_->setCurrentRow(area_row_);
    return;
  }
  area_row_ = row;
  LoadArea();
}

void frmEditXrf::LoadArea() {
  index_ = {};
  if (areas_->currentItem() != nullptr) {
    Result<IndexList> index =
        ListIndex(desktop().program.folders, FromQt(areas_->currentItem()->text()));
    if (index) {
      index_ = std::move(index.value());
    } else {
      Refuse(index.error().Text());
    }
  }
  FillList(0);
}

void frmEditXrf::FillList(int row) {
  {
    const QSignalBlocker quiet(list_);
    list_->clear();
    for (const IndexRow& entry : index_.rows) list_->addItem(ToQt(Trim(entry.entry.title)));
    row_ = std::min(row, list_->count() - 1);
    list_->setCurrentRow(row_);
  }
  ShowEntry(row_);
}

void frmEditXrf::RowChanged(int row) {
  if (row == row_) return;
  if (!MayLeave()) {
    const QSignalBlocker quiet(list_);
    list_->setCurrentRow(row_);
    return;
  }
  row_ = row;
  ShowEntry(row);
}

void frmEditXrf::ShowEntry(int row) {
  shown_.reset();
  if (row >= 0) shown_ = index_.rows[static_cast<std::size_t>(row)].entry;
  texts_ = shown_ ? TextsOf(*shown_) : IndexTexts();
  ShowTexts(texts_);
  insert_->setEnabled(!index_.file.path.empty());
  modify_->setEnabled(row >= 0);
  delete_->setEnabled(row >= 0);
}

void frmEditXrf::ShowTexts(const IndexTexts& texts) {
  number_->setText(ToQt(texts.chart_no));
  name_->setText(ToQt(texts.chart_name));
  scale_->SetText(texts.scale);
  upper_lat_->SetText(texts.upper_lat);
  lower_lat_->SetText(texts.lower_lat);
  lower_lon_->SetText(texts.lower_lon);
  upper_lon_->SetText(texts.upper_lon);
}

IndexTexts frmEditXrf::Texts() const {
  return {FromQt(number_->text()), FromQt(name_->text()), scale_->Text(),    upper_lat_->Text(),
          lower_lat_->Text(),      lower_lon_->Text(),    upper_lon_->Text()};
}

std::optional<ChartIndexEntry> frmEditXrf::Read() {
  const BoxesRead<ChartIndexEntry> read = ReadIndexTexts(Texts(), shown_);
  if (!read.value) {
    Refuse(read.refusal, false,
           read.box == nullptr ? nullptr : findChild<QWidget*>(QString::fromUtf8(read.box)));
  }
  return read.value;
}

void frmEditXrf::Insert() {
  std::optional<ChartIndexEntry> entry = Read();
  if (!entry) return;
  const auto same = [&entry](const IndexRow& row) {
    return Trim(row.entry.chart_key) == entry->chart_key;
  };
  if (std::any_of(index_.rows.begin(), index_.rows.end(), same) &&
      !desktop().messages.Ask("The chart " + entry->chart_key +
                              " is in this index already. Insert it once more?")) {
    number_->setFocus();
    return;
  }
  // A new entry has no flags yet.
  entry->flag1.clear();
  entry->flag2.clear();
  const std::optional<std::size_t> after =
      row_ >= 0 ? std::optional(static_cast<std::size_t>(row_)) : std::nullopt;
  Follow(InsertIndexEntry(desktop().program.folders, index_, after, *entry), row_ + 1);
}

void frmEditXrf::Modify() {
  if (row_ < 0) return;
  const std::optional<ChartIndexEntry> entry = Read();
  if (!entry) return;
  Follow(
      ModifyIndexEntry(desktop().program.folders, index_, static_cast<std::size_t>(row_), *entry),
      row_);
}

void frmEditXrf::Delete() {
  if (row_ < 0) return;
  if (!desktop().messages.Ask("Delete the entry \"" + texts_.chart_name + "\" from the index?")) {
    return;
  }
  Follow(DeleteIndexEntry(desktop().program.folders, index_, static_cast<std::size_t>(row_)), row_);
}

void frmEditXrf::Follow(const Status& edited, int row) {
  if (!edited) return Refuse(edited.error().Text());
  written_ = true;
  FillList(row);
}

bool frmEditXrf::MayLeave() {
  return Texts() == texts_ ||
         desktop().messages.Ask("The changes of this entry are not in the index. Leave them?");
}

void frmEditXrf::done(int result) {
  if (busy() || !MayLeave()) return;
  Dialog::done(result);
}

}  // namespace skerrow
