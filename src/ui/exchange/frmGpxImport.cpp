#include "ui/exchange/frmGpxImport.h"

#include <QHeaderView>
#include <QShortcut>
#include <algorithm>

#include "platform/gpx_reader.h"
#include "routes/route.h"
#include "ui/widgets/background_work.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

enum Column { kWhat, kName, kPoints, kSaveAs, kRemarks, kColumns };

}  // namespace

frmGpxImport::frmGpxImport(Desktop& desktop, GpxContents contents, MayReplace may_replace,
                           QWidget* parent)
    : Dialog(desktop, "frmGpxImport", "Import a GPX Document", parent),
      contents_(std::move(contents)),
      may_replace_(std::move(may_replace)),
      list_(Named<QTableWidget>("lstContents")),
      remarks_(MakeHint({})),
      show_(Named<QCheckBox>("chkShow", "Show it on the &chart")) {
  auto* summary = new QLabel(ToQt(GpxSummary(contents_)));
  summary->setObjectName("lblSummary");
  summary->setTextFormat(Qt::PlainText);
  summary->setWordWrap(true);
  body()->addWidget(summary);
  body()->addWidget(
      MakeLabel("&Tick what is to be imported, and change the names if you like:", list_));
  body()->addWidget(list_, 1);
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
  connect(list_, &QTableWidget::currentCellChanged, this, [this] { ShowRemarks(); });
  // The name is edited, and the tick set, from any column of their row.
  auto* tick = new QShortcut(Qt::Key_Space, list_, nullptr, nullptr, Qt::WidgetShortcut);
  connect(tick, &QShortcut::activated, this, [this] {
    QTableWidgetItem* what = list_->item(list_->currentRow(), kWhat);
    if (what == nullptr || !(what->flags() & Qt::ItemIsUserCheckable)) return;
    what->setCheckState(what->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
  });
  auto* edit = new QShortcut(Qt::Key_F2, list_, nullptr, nullptr, Qt::WidgetShortcut);
  connect(edit, &QShortcut::activated, this, [this] {
    QTableWidgetItem* name = list_->item(list_->currentRow(), kSaveAs);
    if (name == nullptr || !(name->flags() & Qt::ItemIsEditable)) return;
    list_->setCurrentItem(name);
    list_->editItem(name);
  });
  FillList();
  list_->setFocus();
  resize(820, 440);
}

void frmGpxImport::FillList() {
  list_->setColumnCount(kColumns);
  list_->setHorizontalHeaderLabels({"Import", "Name", "Points", "Save as", "Remarks"});
  list_->verticalHeader()->hide();
  list_->setSelectionBehavior(QAbstractItemView::SelectRows);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  list_->setTabKeyNavigation(false);
  list_->setWordWrap(false);
  list_->setEditTriggers(QAbstractItemView::DoubleClicked);
  list_->setRowCount(static_cast<int>(contents_.items.size()));
  for (int row = 0; row < list_->rowCount(); ++row) {
    const GpxItem& item = contents_.items[static_cast<std::size_t>(row)];
    std::string remarks;
    for (const std::string& remark : item.remarks) {
      remarks.append(remarks.empty() ? "" : " ").append(remark);
    }
    const auto put = [&](Column column, const QString& text, Qt::ItemFlags flags) {
      auto* cell = new QTableWidgetItem(text);
      cell->setFlags(flags);
      if (column == kPoints) cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      if (column == kRemarks && !remarks.empty()) cell->setToolTip(ToQt(remarks));
      list_->setItem(row, column, cell);
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
  list_->resizeColumnsToContents();
  constexpr int kWidestName = 220;
  for (const int column : {kName, kSaveAs}) {
    list_->setColumnWidth(column, std::min(list_->columnWidth(column) + 12, kWidestName));
  }
  // The remarks take the room that is left; in full they stand under the list.
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->horizontalHeader()->setSectionResizeMode(kRemarks, QHeaderView::Stretch);
  list_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  list_->horizontalHeader()->setHighlightSections(false);
  if (list_->rowCount() > 0) list_->setCurrentCell(0, kWhat);
}

void frmGpxImport::ShowRemarks() {
  const int row = list_->currentRow();
  remarks_->setText(row < 0 ? QString() : list_->item(row, kRemarks)->text());
}

void frmGpxImport::TickAll(bool on) {
  for (int row = 0; row < list_->rowCount(); ++row) {
    QTableWidgetItem* cell = list_->item(row, kWhat);
    if (cell->flags() & Qt::ItemIsUserCheckable) {
      cell->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    }
  }
}

bool frmGpxImport::Take(int row) {
  const GpxItem& item = contents_.items[static_cast<std::size_t>(row)];
  const std::string name = FromQt(list_->item(row, kSaveAs)->text());
  const bool split = item.kind == GpxKind::kRoute && RoutePartsOf(item.points) > 1;
  Messages& messages = desktop().messages;
  list_->setCurrentCell(row, kWhat);
  if (split && !messages.Ask(SplitQuestion(name, item.points))) return false;
  Taken one;
  const auto saved =
      SaveGpxItem(desktop().program, contents_.document, item, name, one, may_replace_);
  if (!saved) {
    Refuse(saved.error().Text(), false, list_);
    return false;
  }
  if (saved->empty()) return false;
  files_.insert(files_.end(), saved->begin(), saved->end());
  AddTaken(taken_, one);
  // What is done is not done again when a later one stands in the way.
  list_->item(row, kWhat)->setCheckState(Qt::Unchecked);
  return true;
}

void frmGpxImport::Import() {
  bool any = false;
  for (int row = 0; row < list_->rowCount(); ++row) {
    if (list_->item(row, kWhat)->checkState() != Qt::Checked) continue;
    any = true;
    if (!Take(row)) return list_->setFocus();
  }
  if (!any) return Refuse("Tick what is to be imported", false, list_);
  desktop().messages.Show(ImportedText(files_, taken_), MessageIcon::kInformation);
  accept();
}

std::optional<GpxContents> ReadGpxContents(Desktop& desktop, QWidget* parent,
                                           const std::string& path) {
  Result<GpxContents> read =
      RunInBackground(desktop, parent, "Reading the document",
                      [&path](Progress& progress) { return ReadContents(path, progress); });
  if (read) return std::move(read.value());
  if (read.error().reason != kGpxStopped) {
    desktop.messages.Show(read.error().Text(), MessageIcon::kWarning);
  }
  return std::nullopt;
}

}  // namespace skerrow
