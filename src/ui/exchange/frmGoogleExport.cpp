#include "ui/exchange/frmGoogleExport.h"

#include <QGridLayout>
#include <QInputDialog>

#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kLongestText = 120;

struct KindTexts {
  const char* form;
  const char* title;
  const char* files;
  const char* holds;
};

KindTexts TextsOf(KmlKind kind) {
  switch (kind) {
    case KmlKind::kRoute:
      return {"frmGoogleRouteExport", "Export a Route to a KML Viewer", "&Routes", "&Points"};
    case KmlKind::kWaypoints:
      return {"frmGoogleWayExport", "Export Waypoints to a KML Viewer", "&Waypoint files",
              "Wa&ypoints"};
    case KmlKind::kTrack:
      break;
  }
  return {"frmGoogleTrackExport", "Export a Track to a KML Viewer", "&Logs",
          "&Positions and comments"};
}

}  // namespace

frmGoogleExport::frmGoogleExport(Desktop& desktop, KmlKind kind, QWidget* parent)
    : Dialog(desktop, TextsOf(kind).form, TextsOf(kind).title, parent),
      kind_(kind),
      files_(new FileList),
      rows_(new TextList(desktop.clipboard, "List1")),
      name_(Named<QLineEdit>("txtFileName")),
      description_(Named<QLineEdit>("txtDescription")) {
  const KindTexts texts = TextsOf(kind);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  QVBoxLayout* left = MakeColumn();
  left->addWidget(MakeLabel(texts.files, files_));
  left->addWidget(files_, 1);
  columns->addLayout(left, 2);
  QVBoxLayout* right = MakeColumn();
  right->addWidget(MakeLabel(texts.holds, rows_));
  right->addWidget(rows_, 1);
  columns->addLayout(right, 5);
  body()->addLayout(columns, 1);
  auto* fields = new QGridLayout;
  fields->addWidget(MakeLabel("&Destination file:", name_), 0, 0);
  fields->addWidget(name_, 0, 1);
  fields->addWidget(MakeLabel("D&escription:", description_), 1, 0);
  fields->addWidget(description_, 1, 1);
  for (QLineEdit* field : {name_, description_}) field->setMaxLength(kLongestText);
  body()->addLayout(fields);
  body()->addWidget(MakeHint(
      "Click a file, change its suggested name if you like, and press Export. The file is "
      "made whether or not a viewer is installed; open it with the viewer when you want to "
      "see it."));
  const std::string folder = desktop.program.folders.GoogleEarth();
  body()->addWidget(MakeFolderHint("Exported files are in", folder));
  QPushButton* save = AddButton("Save", "E&xport");
  save->setDefault(true);
  QPushButton* close = AddButton("cmdCancel", "Close");
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] { ShowFile(); });
  connect(save, &QPushButton::clicked, this, [this] { Export(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  files_->Fill(KmlFiles(desktop.program.folders, kind));
  files_->setFocus();
  resize(860, 520);
}

void frmGoogleExport::ShowFile() {
  const std::string file = files_->Selected();
  if (file.empty()) return;
  const Program& program = desktop().program;
  const Result<std::vector<std::string>> rows = KmlRows(program.folders, kind_, file);
  rows_->SetLines(rows ? *rows : std::vector<std::string>{rows.error().Text()});
  const KmlHead offer = KmlOffer(file, program.clock->Now());
  name_->setText(ToQt(offer.name));
  description_->setText(ToQt(offer.description));
}

void frmGoogleExport::Export() {
  const std::string file = files_->Selected();
  if (file.empty()) return;
  const Program& program = desktop().program;
  KmlHead head{FromQt(name_->text()), FromQt(description_->text())};
  if (const Result<std::string> path = KmlPath(program.folders, head.name); !path) {
    return Refuse(path.error().Text(), false, name_);
  }
  const Result<bool> escape = KmlNeedsEscape(program, kind_, file, head);
  head.escape = escape && *escape && desktop().messages.Ask(kReadableQuestion);
  if (const Status saved = SaveKml(program, kind_, file, head); !saved) {
    return Refuse(std::string(kKmlFailure) + "\r\n" + saved.error().Text());
  }
  desktop().messages.Show(KmlSavedText(program.folders, head.name), MessageIcon::kInformation);
}

void ExportCourse(Desktop& desktop, QWidget* parent) {
  const Program& program = desktop.program;
  QInputDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("dlgCogName"));
  dialog.setWindowTitle("Export Current Route to a Google Earth File");
  dialog.setLabelText("Enter a Destination File Name");
  dialog.setTextValue(ToQt(CogKmlOffer(program.clock->Now())));
  if (dialog.exec() != QDialog::Accepted) return;
  KmlHead head{FromQt(dialog.textValue()), ""};
  if (head.name.empty()) return;
  head.escape = CogKmlNeedsEscape(program, head) && desktop.messages.Ask(kReadableQuestion);
  if (const Status saved = SaveCogKml(program, head); !saved) {
    desktop.messages.Show(std::string(kCogKmlFailure) + "\r\n" + saved.error().Text(),
                          MessageIcon::kWarning);
    return;
  }
  desktop.messages.Show(CogKmlSavedText(program.folders, head.name), MessageIcon::kInformation);
}

}  // namespace skerrow
