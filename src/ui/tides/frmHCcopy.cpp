#include "ui/tides/frmHCcopy.h"

#include <QtWidgets/QLineEdit>
#include <algorithm>

#include "tides/tidal_files.h"
#include "ui/dialogs/report_write.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

const char* TitleOf(CopyKind kind) {
  return kind == CopyKind::kPorts ? "Ports Copy Utility" : "Copy Tidal Diamonds";
}

const char* HintOf(CopyKind kind) {
  return kind == CopyKind::kPorts
             ? "Click on a filename to which ports will be added or type a new file name (omit the "
               ".HC extension)"
             : "Click on a filename to which diamonds will be added or type a new file name (omit "
               "the .L25 extension)";
}

}  // namespace

frmHCcopy::frmHCcopy(Desktop& desktop, QWidget* parent, CopyKind kind)
    : Dialog(desktop, "frmHCcopy", TitleOf(kind), parent),
      kind_(kind),
      sources_(Named<QListWidget>("fileList")),
      records_(new TextList(desktop.clipboard, "List1")),
      destinations_(Named<QListWidget>("fileDestName")),
      name_(Named<QLineEdit>("txtname")),
      done_(MakeHint("")) {
  const bool ports = kind == CopyKind::kPorts;
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  QVBoxLayout* from = MakeColumn();
  from->addWidget(MakeLabel("Copy &from", sources_));
  from->addWidget(sources_, 1);
  columns->addLayout(from, 1);
  QVBoxLayout* marks = MakeColumn();
  marks->addWidget(MakeLabel(ports ? "&Ports" : "&Diamonds", records_));
  marks->addWidget(records_, 1);
  marks->addWidget(MakeHint("Ctrl or Shift with a click marks several"));
  columns->addLayout(marks, ports ? 2 : 3);
  QVBoxLayout* to = MakeColumn();
  to->addWidget(MakeLabel("Copy &to", destinations_));
  to->addWidget(destinations_, 1);
  to->addWidget(MakeHint(HintOf(kind)));
  name_->setMaxLength(120);
  to->addWidget(MakeLabel("File &name:", name_));
  to->addWidget(name_);
  columns->addLayout(to, 2);
  body()->addLayout(columns, 1);
  done_->setObjectName("lblDone");
  body()->addWidget(done_);
  records_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  QPushButton* copy = AddButton("cmdcopy", "&Copy");
  copy->setDefault(true);
  QPushButton* close = AddButton("cmdCancel", "Close");
  connect(copy, &QPushButton::clicked, this, [this] { Copy(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  connect(sources_, &QListWidget::currentRowChanged, this, [this](int row) { OpenSource(row); });
  // What is selected counts: the keyboard passing through names no file.
  const auto name_it = [this] {
    const QList<QListWidgetItem*> selected = destinations_->selectedItems();
    if (!selected.isEmpty()) name_->setText(selected.front()->text());
  };
  connect(destinations_, &QListWidget::itemSelectionChanged, this, name_it);
  connect(destinations_, &QListWidget::itemClicked, this, name_it);
  ListFiles();
  sources_->setCurrentRow(0);
  sources_->setFocus();
  resize(820, 460);
}

void frmHCcopy::ListFiles() {
  const std::vector<std::string> names =
      ListTidalFiles(desktop().program.folders, ExtensionOf(kind_));
  for (QListWidget* list : {sources_, destinations_}) {
    const QSignalBlocker quiet(list);
    const QList<QListWidgetItem*> chosen = list->selectedItems();
    const QString before = chosen.isEmpty() ? QString() : chosen.front()->text();
    list->clear();
    for (const std::string& name : names) list->addItem(ToQt(name));
    const QList<QListWidgetItem*> again = list->findItems(before, Qt::MatchExactly);
    if (!before.isEmpty() && !again.isEmpty()) list->setCurrentItem(again.front());
  }
}

void frmHCcopy::OpenSource(int row) {
  source_.reset();
  records_->SetLines({});
  if (row < 0) return;
  Result<CopySource> opened =
      OpenCopySource(desktop().program.folders, kind_, FromQt(sources_->item(row)->text()));
  if (!opened) {
    desktop().messages.Show(opened.error().Text(), MessageIcon::kWarning);
    return;
  }
  source_ = std::move(opened.value());
  records_->SetLines(source_->rows);
}

void frmHCcopy::Copy() {
  std::vector<std::size_t> marked;
  for (const QModelIndex& index : records_->selectionModel()->selectedRows()) {
    marked.push_back(static_cast<std::size_t>(index.row()));
  }
  std::sort(marked.begin(), marked.end());
  const Result<std::string> copied =
      CopyMarked(desktop().program, desktop().messages, kind_, source_.value_or(CopySource()),
                 marked, FromQt(name_->text()));
  if (!copied) {
    const Error& error = copied.error();
    if (!error.path.empty()) {
      Written(error, desktop().messages);
    } else {
      Refuse(error.Text(), false,
             marked.empty() && !name_->text().trimmed().isEmpty() ? static_cast<QWidget*>(records_)
                                                                  : name_);
    }
    return;
  }
  const std::string text = CopiedText(kind_, marked.size(), *copied);
  done_->setText(ToQt(text));
  ListFiles();
  // A file that was copied to may be the one that is listed.
  OpenSource(sources_->currentRow());
  desktop().window.Tell(text);
  desktop().window.Changed(kSettingsChanged | kViewChanged);
}

}  // namespace skerrow
