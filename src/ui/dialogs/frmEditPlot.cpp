#include "ui/dialogs/frmEditPlot.h"

#include <QActionGroup>
#include <QEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QInputDialog>
#include <QMenu>
#include <chrono>
#include <future>

#include "core/files.h"
#include "platform/polars.h"
#include "ui/dialogs/save_text.h"
#include "ui/widgets/progress_dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr TextFileKind kPolarText = {"Polars (*.pol *.txt *.csv)", "pol", "Polars"};
constexpr TextFileKind kDatabase = {"Databases of polars (*.mdb)", "mdb", "Polars"};
constexpr int kLongestName = 64;
constexpr int kLongestNumber = 6;
constexpr int kBoxColumns = 4;
constexpr std::size_t kUsualOption = 5;  // 12 knots
constexpr double kUnknownPercent = 50.0;

}  // namespace

frmEditPlot::frmEditPlot(Desktop& desktop, const std::string& set_up, QWidget* parent)
    : Dialog(desktop, "frmEditPlot", "Polar Plot", parent),
      editor_(OpenPolarDatabase(desktop.program.folders.InstalledPolars(),
                                desktop.program.folders.OwnPolars())),
      pictures_(new PolarPictures(desktop, this)),
      set_ups_(Named<QComboBox>("cmbSetUps")),
      angle_picked_(Named<QLabel>("lblAngle", "click on the polar")),
      wind1_(MakeNumber("txtWindSpeed1", 5, "2, 4, 6 .. 30 knots")),
      boat1_(MakeNumber("txtBoatSpeed1", 6, "Knots")),
      angle2_(MakeNumber("txtAngle", 5, "30, 35, 40 .. 180 degrees")),
      boat2_(MakeNumber("txtBoatSpeed2", 6, "Knots")),
      change_(new FilteredEdit(KeyFilter::kSignedNumber, desktop.messages, "txtAddSubtract")),
      path_(MakeHint("")) {
  layout()->setMenuBar(MakeMenus());
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addWidget(pictures_->polar(), 3);
  QVBoxLayout* middle = MakeColumn();
  middle->addWidget(MakeLabel("&Set-up:", set_ups_));
  set_ups_->setMinimumContentsLength(18);
  middle->addWidget(set_ups_);
  middle->addSpacing(6);
  middle->addWidget(pictures_->options());
  middle->addWidget(pictures_->cursor_label());
  middle->addWidget(pictures_->angle_label());
  middle->addStretch(1);
  columns->addLayout(middle);
  auto* pages = Named<QTabWidget>("tabEdit");
  pages->addTab(MakeSingle(), "Single &Values");
  pages->addTab(MakeBoxes(), "&Text Edit");
  columns->addWidget(pages, 4);
  body()->addLayout(columns, 1);
  path_->setObjectName("lblDatabase");
  path_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  body()->addWidget(path_);
  QPushButton* close = AddButton("cmdClose", "Close");
  connect(close, &QPushButton::clicked, this, &QDialog::accept);

  connect(pictures_, &PolarPictures::AnglePicked, this, [this](int angle) {
    angle_ = angle;
    angle_picked_->setText(QString::number(angle) + QStringLiteral("\u00b0"));
    angle2_->setText(QString::number(angle));
    boat1_->setFocus();
    boat1_->selectAll();
  });
  connect(pictures_, &PolarPictures::OptionChanged, this, [this](std::size_t option) {
    if (option == option_) return;
    if (!MayDrop()) return pictures_->Select(*option_);
    ShowBoxes();
  });
  // Queued, so that the list has taken its choice whole when the question puts it back.
  connect(
      set_ups_, &QComboBox::activated, this,
      [this] {
        const std::string name = FromQt(set_ups_->currentText());
        if (name == editor_.name()) return;
        if (!MayDrop()) return set_ups_->setCurrentText(ToQt(editor_.name()));
        ShowSetUp(editor_.Load(name));
      },
      Qt::QueuedConnection);
  pictures_->Select(kUsualOption);
  ShowSetUp(editor_.Load(set_up));
  pictures_->polar()->setFocus();
  resize(1180, 640);
}

FilteredEdit* frmEditPlot::MakeNumber(const char* name, int columns, const char* tip) {
  auto* box = new FilteredEdit(KeyFilter::kNumber, desktop().messages, name);
  box->SetColumns(columns);
  box->setMaxLength(kLongestNumber);
  box->setToolTip(tip);
  return box;
}

QMenuBar* frmEditPlot::MakeMenus() {
  auto* bar = new QMenuBar;
  const auto add = [this](QMenu* menu, const char* name, const char* text, const QKeySequence& key,
                          bool needs_set_up, void (frmEditPlot::*act)()) {
    QAction* action = menu->addAction(text);
    action->setObjectName(QString::fromUtf8(name));
    action->setShortcut(key);
    if (needs_set_up) with_set_up_.push_back(action);
    connect(action, &QAction::triggered, this, act);
    return action;
  };
  QMenu* file = bar->addMenu("Se&t-up");
  add(file, "mnuNewSetUp", "&New...", {}, false, &frmEditPlot::Create);
  add(file, "mnuCopySetUp", "&Copy...", {}, true, &frmEditPlot::Copy);
  add(file, "mnuRenameSetUp", "&Rename...", {}, true, &frmEditPlot::Rename);
  add(file, "mnuDeleteSetUp", "&Delete...", {}, true, &frmEditPlot::Delete);
  file->addSeparator();
  add(file, "mnuImportPolar", "&Import Polar Text...", {}, false, &frmEditPlot::Import);
  add(file, "mnuImportDatabase", "Import Set-ups from a &Database...", {}, false,
      &frmEditPlot::ImportDatabase);
  add(file, "mnuExportPolar", "&Export Polar Text...", {}, true, &frmEditPlot::Export);
  QMenu* edit = bar->addMenu("&Edit");
  undo_ = add(edit, "mnuUndo", "&Undo", QKeySequence::Undo, false, &frmEditPlot::Undo);
  QMenu* graph = bar->addMenu("&Graph");
  auto* graphs = new QActionGroup(this);
  const auto choose = [&](const char* name, const char* text, PolarPictures::Graph shown) {
    QAction* action = graph->addAction(text);
    action->setObjectName(QString::fromUtf8(name));
    action->setCheckable(true);
    graphs->addAction(action);
    connect(action, &QAction::triggered, this, [this, shown] { pictures_->ShowGraph(shown); });
    return action;
  };
  choose("mnuGraphBoatvsWindSpeed", "Boat Speed against &Wind Speed",
         PolarPictures::Graph::kByWind);
  choose("mnuGraphWindAnglevsBoatSpeed", "Boat Speed against Wind &Angle",
         PolarPictures::Graph::kByAngle)
      ->setChecked(true);
  return bar;
}

QWidget* frmEditPlot::MakeSingle() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setSpacing(8);
  column->addWidget(
      MakeHint("Select a wind speed, enter a boat speed for the specific true wind angle to the "
               "boat, press 'Change Data' when complete"));
  auto* angle_box = new QGroupBox("Modify Data for Selected Wind Angle to Boat");
  auto* angle_rows = new QGridLayout(angle_box);
  angle_rows->addWidget(new QLabel("Angle:"), 0, 0);
  angle_rows->addWidget(angle_picked_, 0, 1, 1, 3);
  angle_rows->addWidget(MakeLabel("&Wind speed:", wind1_), 1, 0);
  angle_rows->addWidget(wind1_, 1, 1);
  angle_rows->addWidget(MakeLabel("&Boat speed:", boat1_), 1, 2);
  angle_rows->addWidget(boat1_, 1, 3);
  auto* change1 = Named<QPushButton>("cmdChange1", "&Change Data");
  angle_rows->addWidget(change1, 1, 4);
  angle_rows->setColumnStretch(5, 1);
  column->addWidget(angle_box);

  auto* wind_box = new QGroupBox("Modify Data for Selected True Wind Speed Wind");
  auto* wind_rows = new QGridLayout(wind_box);
  wind_rows->addWidget(MakeLabel("&Angle:", angle2_), 0, 0);
  wind_rows->addWidget(angle2_, 0, 1);
  wind_rows->addWidget(MakeLabel("B&oat speed:", boat2_), 0, 2);
  wind_rows->addWidget(boat2_, 0, 3);
  auto* change2 = Named<QPushButton>("cmdChangeData2", "C&hange Data");
  wind_rows->addWidget(change2, 0, 4);
  wind_rows->setColumnStretch(5, 1);
  column->addWidget(wind_box);
  pictures_->graph()->setMinimumHeight(180);
  column->addWidget(pictures_->graph(), 1);
  for (QPushButton* button : {change1, change2}) button->setAutoDefault(false);
  connect(change1, &QPushButton::clicked, this, [this] { ChangeAtAngle(); });
  connect(change2, &QPushButton::clicked, this, [this] { ChangeAtWind(); });
  for (FilteredEdit* box : {wind1_, boat1_}) {
    connect(box, &QLineEdit::returnPressed, this, [this] { ChangeAtAngle(); });
  }
  for (FilteredEdit* box : {angle2_, boat2_}) {
    connect(box, &QLineEdit::returnPressed, this, [this] { ChangeAtWind(); });
  }
  return page;
}

QWidget* frmEditPlot::MakeBoxes() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  auto* box = new QGroupBox("Text Edit Polar Data (Select Wind Speed)");
  auto* grid = new QGridLayout(box);
  grid->setVerticalSpacing(4);
  constexpr int kRows = (static_cast<int>(kPolarAngles) + kBoxColumns - 1) / kBoxColumns;
  for (std::size_t i = 0; i < boxes_.size(); ++i) {
    const std::string name = "txtEditSpeed" + std::to_string(i);
    boxes_[i] = MakeNumber(name.c_str(), 5, "Boat speed, knots");
    const int row = static_cast<int>(i) % kRows;
    const int place = static_cast<int>(i) / kRows * 2;
    grid->addWidget(new QLabel(QString::number(AngleOfBox(i)) + QStringLiteral("\u00b0")), row,
                    place, Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(boxes_[i], row, place + 1);
  }
  grid->setColumnStretch(2 * kBoxColumns, 1);
  column->addWidget(box);
  change_->SetColumns(6);
  change_->setMaxLength(kLongestNumber);
  change_->setToolTip("Knots to be added to every box, or taken away");
  auto* adjust = Named<QPushButton>("cmdAdjust", "A&djust +/-");
  auto* accept = Named<QPushButton>("Command1", "Acce&pt Change");
  accept->setToolTip("Writes all boxes into the set-up");
  for (QPushButton* button : {adjust, accept}) button->setAutoDefault(false);
  column->addLayout(MakeRow({MakeLabel("A&ll boxes:", change_), change_, adjust, accept}));
  column->addStretch(1);
  connect(adjust, &QPushButton::clicked, this, [this] { Adjust(); });
  connect(accept, &QPushButton::clicked, this, [this] { AcceptBoxes(); });
  connect(change_, &QLineEdit::returnPressed, this, [this] { Adjust(); });
  return page;
}

void frmEditPlot::ShowSetUp(const Status& loaded) {
  set_ups_->clear();
  for (const std::string& name : editor_.names()) set_ups_->addItem(ToQt(name));
  set_ups_->setCurrentText(ToQt(editor_.name()));
  if (editor_.name().empty()) set_ups_->setCurrentIndex(-1);
  for (QAction* action : with_set_up_) action->setEnabled(!editor_.name().empty());
  const std::string undo = editor_.undo_name();
  undo_->setEnabled(!undo.empty());
  undo_->setText("&Undo " + ToQt(undo));
  path_->setText(ToQt(loaded ? "The set-ups are in " + editor_.Path()
                             : "The set-ups cannot be read. " + loaded.error().Text()));
  pictures_->SetRows(editor_.rows());
  ShowBoxes();
}

void frmEditPlot::ShowBoxes() {
  option_ = pictures_->option();
  if (option_) wind1_->setText(QString::number(WindOfOption(*option_)));
  shown_ = option_ ? editor_.Boxes(*option_) : PolarBoxes{};
  for (std::size_t i = 0; i < boxes_.size(); ++i) boxes_[i]->SetText(shown_[i]);
}

PolarBoxes frmEditPlot::Boxes() const {
  PolarBoxes boxes;
  for (std::size_t i = 0; i < boxes.size(); ++i) boxes[i] = boxes_[i]->Text();
  return boxes;
}

bool frmEditPlot::MayDrop() {
  if (Boxes() == shown_) return true;
  return desktop().messages.Ask("The boxes hold changes that have not been accepted. Leave them?");
}

void frmEditPlot::After(const Status& changed, QWidget* field) {
  if (!changed) return Refuse(changed.error().Text(), false, field);
  ShowSetUp(changed);
}

void frmEditPlot::ChangeAtAngle() {
  if (!MayDrop()) return;
  const Result<bool> changed = editor_.ChangeAtAngle(angle_, wind1_->Text(), boat1_->Text());
  if (!changed) return After(changed.error(), angle_ ? wind1_ : nullptr);
  if (*changed) After(Done{});
}

void frmEditPlot::ChangeAtWind() {
  if (!MayDrop()) return;
  const Status changed = editor_.ChangeAtWind(option_, angle2_->Text(), boat2_->Text());
  const bool speed = !changed && changed.error().Text().starts_with("Boat Speed");
  After(changed, speed ? boat2_ : angle2_);
}

void frmEditPlot::AcceptBoxes() { After(editor_.AcceptBoxes(option_, Boxes())); }

void frmEditPlot::Adjust() {
  const Result<PolarBoxes> adjusted = AdjustBoxes(Boxes(), change_->Text());
  if (!adjusted) return Refuse(adjusted.error().Text(), false, change_);
  for (std::size_t i = 0; i < boxes_.size(); ++i) boxes_[i]->SetText((*adjusted)[i]);
}

std::string frmEditPlot::AskName(const QString& title, const std::string& name) {
  QInputDialog dialog(this);
  dialog.setObjectName(QStringLiteral("dlgSetUpName"));
  dialog.setWindowTitle(title);
  dialog.setLabelText("Name of the set-up:");
  dialog.setTextValue(ToQt(name));
  if (auto* box = dialog.findChild<QLineEdit*>()) box->setMaxLength(kLongestName);
  return dialog.exec() == QDialog::Accepted ? FromQt(dialog.textValue()) : std::string();
}

void frmEditPlot::Create() {
  if (!MayDrop()) return;
  const std::string name = AskName("New Set-up", "");
  if (!name.empty()) After(editor_.Create(name));
}

void frmEditPlot::Copy() {
  if (!MayDrop()) return;
  const std::string name = AskName("Copy Set-up", editor_.name() + " copy");
  if (!name.empty()) After(editor_.Copy(name));
}

void frmEditPlot::Rename() {
  if (!MayDrop()) return;
  const std::string name = AskName("Rename Set-up", editor_.name());
  if (!name.empty() && name != editor_.name()) After(editor_.Rename(name));
}

void frmEditPlot::Delete() {
  if (!desktop().messages.Ask("Delete the set-up \"" + editor_.name() + "\"?")) return;
  After(editor_.Delete());
}

void frmEditPlot::Import() {
  if (!MayDrop()) return;
  const std::string file = AskTextFile(desktop(), this, "Import Polar Text", kPolarText);
  if (file.empty()) return;
  const Result<std::string> text = ReadFile(file);
  if (!text) return Refuse(text.error().Text());
  const Result<PolarImport> import = PolarFromText(*text);
  if (!import) return Refuse(Error{file, import.error().Text()}.Text());
  const std::string name =
      AskName("Import Polar Text", FromQt(QFileInfo(ToQt(file)).completeBaseName()));
  if (name.empty()) return;
  const Status added = editor_.Add(name, import->rows);
  After(added);
  if (!added || import->guessed == 0) return;
  desktop().messages.Show(std::to_string(import->guessed) +
                              " values lie outside the table of the file and repeat its edge. "
                              "Check them before you rely on them.",
                          MessageIcon::kInformation);
}

void frmEditPlot::ImportDatabase() {
  if (!MayDrop()) return;
  const std::string file = AskTextFile(desktop(), this, "Import Set-ups", kDatabase);
  if (file.empty()) return;
  const Folders& folders = desktop().program.folders;
  // The programs that read the file have a time limit, so that the wait for them ends.
  std::future<Result<PolarsImported>> work = std::async(std::launch::async, [&] {
    return ImportAccessPolars(folders.InstalledPolars(), folders.OwnPolars(), file);
  });
  SetBusy(true);
  {
    ProgressDialog progress(this, "Reading the set-ups");
    while (work.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready) {
      progress.Step(kUnknownPercent);
    }
  }
  SetBusy(false);
  const Result<PolarsImported> done = work.get();
  if (!done) return Refuse(done.error().Text());
  After(editor_.Imported(done->added));
  std::string told = std::to_string(done->added.size()) +
                     (done->added.size() == 1 ? " set-up imported" : " set-ups imported");
  for (const auto& [name, reason] : done->left_out) {
    told.append("\n\"").append(name).append("\" is left out: ").append(reason);
  }
  desktop().messages.Show(told, MessageIcon::kInformation);
}

void frmEditPlot::Export() {
  SaveText(desktop(), this, "Export Polar Text", editor_.name(), PolarToText(editor_.rows()),
           kPolarText);
}

void frmEditPlot::Undo() {
  if (MayDrop()) After(editor_.Undo());
}

void frmEditPlot::done(int result) {
  if (!MayDrop()) return;
  Dialog::done(result);
}

void frmEditPlot::changeEvent(QEvent* event) {
  Dialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && pictures_ != nullptr) pictures_->FollowLook();
}

}  // namespace skerrow
