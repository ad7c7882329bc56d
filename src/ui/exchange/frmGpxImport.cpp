#include "ui/exchange/frmGpxImport.h"

#include <QHeaderView>
#include <QShortcut>

#include "platform/gpx_reader.h"
#include "routes/route.h"
#include "ui/forms/file_forms.h"
#include "ui/widgets/background_work.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

enum Column { kWhat, kName, kPoints, kSaveAs, kRemarks, kColumns };

}  // namespace

frmGpxImport::frmGpxImport(Desktop& desktop, GpxDocument document, const std::string& path,
                           QWidget* parent)
    : Dialog(desktop, "frmGpxImport", "Import a GPX Document", parent),
      document_(std::move(document)),
      items_(GpxItemsOf(document_, path)),
      contents_(Named<QTableWidget>("lstContents")),
      remarks_(MakeHint({})),
      show_(Named<QCheckBox>("chkShow", "Show it on the &chart")) {
  auto* summary = new QLabel(ToQt(GpxSummary(document_, path)));
  summary->setObjectName("lblSummary");
  summary->setTextFormat(Qt::PlainText);
  summary->setWordWrap(true);
  body()->addWidget(summary);
  body()->addWidget(
      MakeLabel("&Tick what is to be imported, and change the names if you like:", contents_));
  body()->addWidget(contents_, 1);
  remarks_->setObjectName("lblRemarks");
  remarks_->setTextFormat(Qt::PlainText);
  // Room for two lines, so that the list keeps its place from row to row.
  remarks_->setMinimumHeight(2 * remarks_->fontMetrics().lineSpacing() + 4);
  remarks_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  body()->addWidget(remarks_);
  show_->setToolTip("The first route, the waypoints and the first track of those imported");
  show_->setChecked(true);
  body()->addWidget(show_);
  QPushButton* all = AddLeftButton("cmdSelectAll", "Tick &All");
  QPushButton* none = AddLeftButton("cmdSelectNone", "Tick &None");
  QPushButton* ok = AddButton("cmdOK", "&Import");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(all, &QPushButton::clicked, this, [this] { TickAll(true); });
  connect(none, &QPushButton::clicked, this, [this] { TickAll(false); });
  connect(ok, &QPushButton::clicked, this, [this] { Import(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(contents_, &QTableWidget::currentCellChanged, this, [this] { ShowRemarks(); });
  // The name is edited, and the tick set, from any column of their row.
  auto* tick = new QShortcut(Qt::Key_Space, contents_, nullptr, nullptr, Qt::WidgetShortcut);
  connect(tick, &QShortcut::activated, this, [this] {
    QTableWidgetItem* what = contents_->item(contents_->currentRow(), kWhat);
    if (what == nullptr || !(what->flags() & Qt::ItemIsUserCheckable)) return;
    what->setCheckState(what->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
  });
  auto* edit = new QShortcut(Qt::Key_F2, contents_, nullptr, nullptr, Qt::WidgetShortcut);
  connect(edit, &QShortcut::activated, this, [this] {
    QTableWidgetItem* name = contents_->item(contents_->currentRow(), kSaveAs);
    if (name == nullptr || !(name->flags() & Qt::ItemIsEditable)) return;
    contents_->setCurrentItem(name);
    contents_->editItem(name);
  });
  FillList();
  contents_->setFocus();
  resize(820, 440);
}

void frmGpxImport::FillList() {
  contents_->setColumnCount(kColumns);
  contents_->setHorizontalHeaderLabels({"Import", "Name", "Points", "Save as", "Remarks"});
  contents_->verticalHeader()->hide();
  contents_->setSelectionBehavior(QAbstractItemView::SelectRows);
  contents_->setSelectionMode(QAbstractItemView::SingleSelection);
  contents_->setTabKeyNavigation(false);
  contents_->setWordWrap(false);
  contents_->setEditTriggers(QAbstractItemView::DoubleClicked);
  contents_->setRowCount(static_cast<int>(items_.size()));
  for (int row = 0; row < contents_->rowCount(); ++row) {
    const GpxItem& item = items_[static_cast<std::size_t>(row)];
    std::string remarks;
    for (const std::string& remark : item.remarks) {
      remarks.append(remarks.empty() ? "" : " ").append(remark);
    }
    const auto put = [&](Column column, const QString& text, Qt::ItemFlags flags) {
      auto* cell = new QTableWidgetItem(text);
      cell->setFlags(flags);
      if (column == kPoints) cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      if (column == kRemarks && !remarks.empty()) cell->setToolTip(ToQt(remarks));
      contents_->setItem(row, column, cell);
      return cell;
    };
    const Qt::ItemFlags plain = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    QTableWidgetItem* what = put(kWhat, GpxKindText(item.kind), plain);
    if (item.takeable) {
      what->setFlags(plain | Qt::ItemIsUserCheckable);
      what->setCheckState(Qt::Checked);
    }
    put(kName, ToQt(item.name), plain);
    put(kPoints, QString::number(item.points), plain);
    put(kSaveAs, ToQt(item.file_name), item.takeable ? plain | Qt::ItemIsEditable : plain)
        ->setToolTip("F2 or a double click changes it");
    put(kRemarks, ToQt(remarks), plain);
  }
  contents_->resizeColumnsToContents();
  constexpr int kWidestName = 220;
  for (const int column : {kName, kSaveAs}) {
    contents_->setColumnWidth(column, std::min(contents_->columnWidth(column) + 12, kWidestName));
  }
  // The remarks take the room that is left; in full they stand under the list.
  contents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  contents_->horizontalHeader()->setSectionResizeMode(kRemarks, QHeaderView::Stretch);
  contents_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  contents_->horizontalHeader()->setHighlightSections(false);
  if (contents_->rowCount() > 0) contents_->setCurrentCell(0, kWhat);
}

void frmGpxImport::ShowRemarks() {
  const int row = contents_->currentRow();
  remarks_->setText(row < 0 ? QString() : contents_->item(row, kRemarks)->text());
}

void frmGpxImport::TickAll(bool on) {
  for (int row = 0; row < contents_->rowCount(); ++row) {
    QTableWidgetItem* cell = contents_->item(row, kWhat);
    if (cell->flags() & Qt::ItemIsUserCheckable) {
      cell->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    }
  }
}

bool frmGpxImport::Take(int row) {
  const GpxItem& item = items_[static_cast<std::size_t>(row)];
  const std::string name = FromQt(contents_->item(row, kSaveAs)->text());
  const bool split = item.kind == GpxKind::kRoute && RoutePartsOf(item.points) > 1;
  Messages& messages = desktop().messages;
  contents_->setCurrentCell(row, kWhat);
  if (split && !messages.Ask(SplitQuestion(name, item.points))) return false;
  Taken one;
  const auto saved = SaveGpxItem(
      desktop().program, document_, item, name, one, [&messages](const std::string& file) {
        return messages.Ask(file + ": " + std::string(kOverwriteQuestion));
      });
  if (!saved) {
    Refuse(saved.error().Text(), false, contents_);
    return false;
  }
  if (saved->empty()) return false;
  files_.insert(files_.end(), saved->begin(), saved->end());
  AddTaken(taken_, one);
  // What is done is not done again when a later one stands in the way.
  contents_->item(row, kWhat)->setCheckState(Qt::Unchecked);
  return true;
}

void frmGpxImport::Import() {
  bool any = false;
  for (int row = 0; row < contents_->rowCount(); ++row) {
    if (contents_->item(row, kWhat)->checkState() != Qt::Checked) continue;
    any = true;
    if (!Take(row)) return contents_->setFocus();
  }
  if (!any) return Refuse("Tick what is to be imported", false, contents_);
  desktop().messages.Show(ImportedText(files_, taken_), MessageIcon::kInformation);
  accept();
}

bool ReadGpxDocument(Desktop& desktop, QWidget* parent, const std::string& path,
                     GpxDocument& document) {
  Result<GpxDocument> read =
      RunInBackground(desktop, parent, "Reading the document",
                      [&path](Progress& progress) { return ReadGpxFile(path, progress); });
  if (!read) {
    if (read.error().reason != kGpxStopped) {
      desktop.messages.Show(read.error().Text(), MessageIcon::kWarning);
    }
    return false;
  }
  if (GpxItemsOf(*read, path).empty()) {
    desktop.messages.Show(Error{path, "it holds no route, waypoint or track"}.Text(),
                          MessageIcon::kWarning);
    return false;
  }
  document = std::move(read.value());
  return true;
}

}  // namespace skerrow
