#include "ui/exchange/frmTextExport.h"

#include "core/files.h"
#include "ui/dialogs/save_text.h"
#include "ui/forms/kml_form.h"
#include "ui/forms/text_form.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

struct SourceTexts {
  const char* form;
  const char* title;
  const char* files;
  const char* holds;
};

SourceTexts TextsOf(frmTextExport::Source source) {
  switch (source) {
    case frmTextExport::Source::kRoute:
      return {"frmTextRouteExport", "Export a Route as Text", "&Routes", "&Points"};
    case frmTextExport::Source::kWaypoints:
      return {"frmTextWayExport", "Export Waypoints as Text", "&Waypoint files", "Wa&ypoints"};
    case frmTextExport::Source::kCourse:
      break;
  }
  return {"frmCOGexport", "Export Course Over Ground as Text", "",
          "&Time, to steer, position, over the ground, stream and diamond"};
}

FileKind KindOf(frmTextExport::Source source) {
  return source == frmTextExport::Source::kRoute ? FileKind::kRoute : FileKind::kWaypoint;
}

}  // namespace

frmTextExport::frmTextExport(Desktop& desktop, Source source, QWidget* parent)
    : Dialog(desktop, TextsOf(source).form, TextsOf(source).title, parent),
      source_(source),
      rows_(new TextList(desktop.clipboard, "List1")) {
  const SourceTexts texts = TextsOf(source);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  if (source != Source::kCourse) {
    files_ = new FileList;
    QVBoxLayout* left = MakeColumn();
    left->addWidget(MakeLabel(texts.files, files_));
    left->addWidget(files_, 1);
    columns->addLayout(left, 2);
  }
  QVBoxLayout* right = MakeColumn();
  right->addWidget(MakeLabel(texts.holds, rows_));
  right->addWidget(rows_, 1);
  columns->addLayout(right, 5);
  body()->addLayout(columns, 1);
  body()->addWidget(
      MakeHint("A table with a heading line and commas, which every spreadsheet opens. Positions "
               "stand in decimal degrees and in degrees and minutes."));
  QPushButton* save = AddButton("Save", "E&xport...");
  save->setDefault(true);
  QPushButton* close = AddButton("cmdCancel", "Close");
  connect(save, &QPushButton::clicked, this, [this] { Export(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  if (files_ != nullptr) {
    connect(files_, &QListWidget::itemSelectionChanged, this, [this] { ShowFile(); });
    connect(files_, &QListWidget::itemDoubleClicked, this, [this] { Export(); });
    const FileKind kind = KindOf(source);
    files_->Fill(FolderOfKind(desktop.program.folders, kind), kind);
    files_->setFocus();
  } else {
    rows_->SetLines(CourseRows(desktop.program.passage));
    rows_->setFocus();
  }
  resize(740, 440);
}

void frmTextExport::ShowFile() {
  const std::string file = files_->Selected();
  if (file.empty()) return rows_->SetLines({});
  const Result<std::vector<std::string>> rows =
      KmlRows(desktop().program.folders,
              source_ == Source::kRoute ? KmlKind::kRoute : KmlKind::kWaypoints, file);
  rows_->SetLines(rows ? *rows : std::vector<std::string>{rows.error().Text()});
}

void frmTextExport::Export() {
  const Program& program = desktop().program;
  std::string name;
  Result<std::string> table = std::string();
  if (files_ == nullptr) {
    name = CogKmlOffer(program.clock->Now());
    table = CourseTableFile(program.passage);
  } else {
    const std::string file = files_->Selected();
    if (file.empty()) return Refuse("Click the file that is to be exported", false, files_);
    name = file.substr(0, file.rfind('.'));
    table = TableOfFile(program.folders, KindOf(source_), file);
  }
  if (!table) return Refuse(table.error().Text(), false, files_);
  if (SaveText(desktop(), this, TextsOf(source_).title, name, *table, kSpreadsheetFile)) accept();
}

}  // namespace skerrow
