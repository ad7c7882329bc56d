#include "ui/exchange/frmTxtFileImport.h"

#include <QDir>
#include <QFileDialog>

#include "core/files.h"
#include "ui/dialogs/save_text.h"
#include "ui/forms/gpx_form.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kLongestName = 120;

}  // namespace

frmTxtFileImport::frmTxtFileImport(Desktop& desktop, FileKind kind, MayReplace may_replace,
                                   QWidget* parent)
    : Dialog(desktop, kind == FileKind::kRoute ? "frmTxtRouteImport" : "frmTxtWayImport",
             kind == FileKind::kRoute ? "Import a Route from Text" : "Import Waypoints from Text",
             parent),
      kind_(kind),
      may_replace_(std::move(may_replace)),
      folder_(Named<QLineEdit>("txtFolder")),
      files_(new FileList),
      rows_(new TextList(desktop.clipboard, "List1")),
      remarks_(MakeHint({})),
      name_(Named<QLineEdit>("txtFileName")),
      show_(Named<QCheckBox>("chkShow", kind == FileKind::kRoute
                                            ? "Open the route on the &chart"
                                            : "Show the waypoints on the &chart")) {
  body()->addWidget(MakeLabel("F&older:", folder_));
  auto* browse = Named<QPushButton>("cmdBrowse", "&Browse...");
  browse->setAutoDefault(false);
  auto* place = new QHBoxLayout;
  place->addWidget(folder_, 1);
  place->addWidget(browse);
  body()->addLayout(place);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  QVBoxLayout* left = MakeColumn();
  left->addWidget(MakeLabel("&Files (*.csv, *.txt):", files_));
  left->addWidget(files_, 1);
  columns->addLayout(left, 2);
  QVBoxLayout* right = MakeColumn();
  right->addWidget(MakeLabel(kind == FileKind::kRoute ? "&Points" : "&Waypoints", rows_));
  right->addWidget(rows_, 1);
  columns->addLayout(right, 5);
  body()->addLayout(columns, 1);
  remarks_->setObjectName("lblRemarks");
  remarks_->setTextFormat(Qt::PlainText);
  remarks_->setMinimumHeight(2 * remarks_->fontMetrics().lineSpacing() + 4);
  remarks_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  body()->addWidget(remarks_);
  auto* save_as = new QHBoxLayout;
  save_as->addWidget(MakeLabel("&Save as:", name_));
  save_as->addWidget(name_, 1);
  body()->addLayout(save_as);
  name_->setMaxLength(kLongestName);
  name_->setToolTip(QString("The extension %1 is added").arg(ToQt(ExtensionOf(kind))));
  show_->setChecked(true);
  body()->addWidget(show_);
  QPushButton* ok = AddButton("cmdOK", "&Import");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(browse, &QPushButton::clicked, this, [this] { Browse(); });
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] { ShowFile(); });
  connect(ok, &QPushButton::clicked, this, [this] { Import(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  folder_->setText(QDir::toNativeSeparators(ToQt(TextFolderOf(desktop, kSpreadsheetFile))));
  connect(folder_, &QLineEdit::textChanged, this, [this] { FillList(); });
  FillList();
  files_->setFocus();
  resize(760, 500);
}

void frmTxtFileImport::Browse() {
  const QString folder = QFileDialog::getExistingDirectory(
      this, windowTitle(), folder_->text(),
      QFileDialog::ShowDirsOnly | QFileDialog::DontUseNativeDialog);
  if (!folder.isEmpty()) folder_->setText(QDir::toNativeSeparators(folder));
}

void frmTxtFileImport::FillList() {
  files_->Fill(ListTables(NativePath(FromQt(folder_->text()))));
  ShowFile();
}

void frmTxtFileImport::ShowFile() {
  table_.reset();
  fault_.clear();
  const std::string file = files_->Selected();
  if (file.empty()) {
    rows_->SetLines({});
    name_->clear();
    remarks_->setText(files_->count() == 0
                          ? QString("There are no such files in this folder.")
                          : QString("A table has a line for each point, under a heading line that "
                                    "reads Name, Latitude, Longitude%1.")
                                .arg(kind_ == FileKind::kRoute ? " and Speed" : ""));
    return;
  }
  Result<ImportedTable> table =
      ReadTable(desktop().program, kind_, JoinPath(NativePath(FromQt(folder_->text())), file));
  name_->setText(ToQt(file.substr(0, file.find('.'))));
  if (!table) {
    fault_ = table.error().Text();
    rows_->SetLines({});
    remarks_->setText(ToQt(fault_));
    return;
  }
  table_ = std::move(table.value());
  rows_->SetLines(table_->Rows());
  std::string remarks = std::to_string(table_->points()) + " points.";
  for (const std::string& remark : table_->Remarks()) remarks.append(" ").append(remark);
  remarks_->setText(ToQt(remarks));
}

void frmTxtFileImport::Import() {
  if (!table_) {
    return Refuse(fault_.empty() ? "Click the file that is to be imported" : fault_, false, files_);
  }
  Messages& messages = desktop().messages;
  const std::string name = FromQt(name_->text());
  if (RoutePartsOf(table_->route.size()) > 1 &&
      !messages.Ask(SplitQuestion(name, table_->route.size()))) {
    return;
  }
  const auto saved = SaveTable(desktop().program.folders, *table_, name, may_replace_);
  if (!saved) return Refuse(saved.error().Text(), false, name_);
  if (saved->empty()) return name_->setFocus();
  written_ = *saved;
  RememberTextFolder(desktop(), kSpreadsheetFile, NativePath(FromQt(folder_->text())));
  messages.Show(ImportedText(written_, table_->taken), MessageIcon::kInformation);
  accept();
}

}  // namespace skerrow
