#include "ui/help/frmPDFReader.h"

#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPdfLink>
#include <QSpinBox>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyledItemDelegate>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>
#include <cmath>

#include "ui/help/help_files.h"
#include "ui/icons/icons.h"
#include "ui/widgets/place_window.h"

namespace skerrow {
namespace {

constexpr const char* kSection = "frmPDFReader";
constexpr int kLeastWidth = 440;
constexpr int kLeastHeight = 300;
constexpr int kOutlineWidth = 250;
constexpr int kRowAir = 8;
constexpr double kZoomStep = 1.25;
constexpr int kDarkLightness = 128;
constexpr int kPercents[] = {50, 75, 100, 125, 150, 200, 300};

// Rows with some air between them.
class RoomyRows final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kRowAir);
  }
};

std::string Problem(const std::string& path, QPdfDocument::Error error) {
  const char* reason = "The file is no document that can be read.";
  if (!QFileInfo::exists(QString::fromStdString(path))) {
    reason = "The file does not exist.";
  } else if (error == QPdfDocument::Error::IncorrectPassword) {
    reason = "The file is locked by a password.";
  } else if (!QFileInfo(QString::fromStdString(path)).isReadable()) {
    reason = "The file must not be read.";
  }
  return reason;
}

// The letters of a place found, put together line by line.
QList<QRectF> Lines(const QList<QRectF>& letters) {
  QList<QRectF> lines;
  for (const QRectF& letter : letters) {
    const bool same = !lines.isEmpty() && letter.center().y() > lines.back().top() &&
                      letter.center().y() < lines.back().bottom();
    if (same) {
      lines.back() |= letter;
    } else {
      lines << letter;
    }
  }
  return lines;
}

QString WithKey(const QString& text, const QList<QKeySequence>& keys) {
  if (keys.isEmpty()) return text;
  return QStringLiteral("%1 (%2)").arg(text, keys.front().toString(QKeySequence::NativeText));
}

}  // namespace

frmPDFReader::frmPDFReader(SettingsStore& settings, Clipboard& clipboard, QWidget* parent)
    : QDialog(parent, Qt::Window),
      settings_(settings),
      clipboard_(clipboard),
      document_(nullptr),
      search_(nullptr),
      bookmarks_(nullptr) {
  setObjectName(QStringLiteral("frmPDFReader"));
  setWindowTitle("Help");
  setMinimumSize(kLeastWidth, kLeastHeight);

  view_ = new PdfPageView(this);
  view_->setObjectName(QStringLiteral("pdfView"));
  outline_ = new QTreeView(this);
  outline_->setObjectName(QStringLiteral("treeContents"));
  outline_->setHeaderHidden(true);
  outline_->setFrameShape(QFrame::NoFrame);
  outline_->setItemDelegate(new RoomyRows(outline_));
  outline_->setIndentation(14);
  outline_->setModel(&bookmarks_);
  outline_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  problem_ = new QLabel(this);
  problem_->setObjectName(QStringLiteral("lblProblem"));
  problem_->setAlignment(Qt::AlignCenter);
  problem_->setWordWrap(true);
  problem_->setMargin(24);
  problem_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  splitter_ = new QSplitter(this);
  splitter_->addWidget(outline_);
  splitter_->addWidget(view_);
  splitter_->setStretchFactor(1, 1);
  splitter_->setCollapsible(1, false);
  splitter_->setSizes({kOutlineWidth, 3 * kOutlineWidth});
  pages_ = new QStackedWidget(this);
  pages_->addWidget(splitter_);
  pages_->addWidget(problem_);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  MakeActions();
  layout->addWidget(pages_, 1);

  connect(view_, &PdfPageView::PageChanged, this, &frmPDFReader::UpdatePage);
  connect(view_, &PdfPageView::ZoomChanged, this, &frmPDFReader::UpdateZoom);
  connect(view_, &PdfPageView::SelectionChanged, this,
          [this] { copy_->setEnabled(!view_->SelectedText().isEmpty()); });
  const auto go = [this](const QModelIndex& index) {
    view_->GoTo(index.data(static_cast<int>(QPdfBookmarkModel::Role::Page)).toInt(),
                index.data(static_cast<int>(QPdfBookmarkModel::Role::Location)).toPointF().y());
  };
  connect(outline_, &QTreeView::clicked, this, go);
  connect(outline_, &QTreeView::activated, this, go);
  RestoreSize();
  view_->setFocus();
}

frmPDFReader::~frmPDFReader() {
  if (!isMaximized()) {
    settings_.SetInt(kSection, "Width", width());
    settings_.SetInt(kSection, "Height", height());
  }
  settings_.SetInt(kSection, "Contents", contents_->isChecked() ? 1 : 0);
  // The models let go of the document before it goes.
  outline_->setModel(nullptr);
  view_->SetDocument(nullptr);
  search_.setDocument(nullptr);
  bookmarks_.setDocument(nullptr);
}

void frmPDFReader::RestoreSize() {
  const QSize size(settings_.GetInt(kSection, "Width", 980),
                   settings_.GetInt(kSection, "Height", 860));
  PlaceWindow(*this, size.expandedTo(minimumSize()));
  contents_->setChecked(settings_.GetInt(kSection, "Contents", 1) != 0);
}

QAction* frmPDFReader::AddAction(QToolBar& bar, const QString& name, const QString& text,
                                 const QString& icon, const QList<QKeySequence>& keys) {
  QAction* action = bar.addAction(text);
  action->setObjectName(name);
  action->setShortcuts(keys);
  action->setToolTip(WithKey(text, keys));
  if (!icon.isEmpty()) icons_ << qMakePair(action, icon);
  return action;
}

void frmPDFReader::MakeActions() {
  auto* bar = new QToolBar(this);
  bar->setObjectName(QStringLiteral("tbReader"));
  bar->setIconSize(QSize(20, 20));
  layout()->addWidget(bar);
  contents_ = AddAction(*bar, QStringLiteral("cmdContents"), "Contents", QString(),
                        {QKeySequence(Qt::Key_F7)});
  contents_->setCheckable(true);
  connect(contents_, &QAction::toggled, outline_, &QWidget::setVisible);
  bar->addSeparator();
  MakePageBar(*bar);
  bar->addSeparator();
  copy_ = AddAction(*bar, QStringLiteral("cmdCopy"), "Copy", QStringLiteral("copy"),
                    {QKeySequence(QKeySequence::Copy)});
  copy_->setEnabled(false);
  connect(copy_, &QAction::triggered, this, &frmPDFReader::Copy);
  auto* all = new QAction("Select the text of the page", this);
  all->setShortcut(QKeySequence(QKeySequence::SelectAll));
  connect(all, &QAction::triggered, view_, &PdfPageView::SelectAllOfPage);
  addAction(all);
  auto* stretch = new QWidget(this);
  stretch->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar->addWidget(stretch);
  MakeSearchBar(*bar);
  SetIcons();
}

void frmPDFReader::MakePageBar(QToolBar& bar) {
  QAction* previous =
      AddAction(bar, QStringLiteral("cmdPrevious"), "Previous page", QStringLiteral("uparrow"),
                {QKeySequence(Qt::ALT | Qt::Key_PageUp), QKeySequence(Qt::CTRL | Qt::Key_PageUp)});
  QAction* next = AddAction(
      bar, QStringLiteral("cmdNext"), "Next page", QStringLiteral("downarrow"),
      {QKeySequence(Qt::ALT | Qt::Key_PageDown), QKeySequence(Qt::CTRL | Qt::Key_PageDown)});
  connect(previous, &QAction::triggered, this, [this] { view_->GoTo(view_->CurrentPage() - 1); });
  connect(next, &QAction::triggered, this, [this] { view_->GoTo(view_->CurrentPage() + 1); });
  page_ = new QSpinBox(this);
  page_->setObjectName(QStringLiteral("txtPage"));
  page_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  page_->setAlignment(Qt::AlignRight);
  page_->setKeyboardTracking(false);
  page_->setFixedWidth(44);
  page_->setToolTip("Page");
  connect(page_, &QSpinBox::valueChanged, this, [this](int page) { view_->GoTo(page - 1); });
  page_count_ = new QLabel(this);
  page_count_->setContentsMargins(4, 0, 6, 0);
  bar.addWidget(page_);
  bar.addWidget(page_count_);
  bar.addSeparator();

  QAction* out = AddAction(bar, QStringLiteral("cmdZoomOut"), "Smaller", QStringLiteral("zoomout"),
                           {QKeySequence(QKeySequence::ZoomOut)});
  QAction* in =
      AddAction(bar, QStringLiteral("cmdZoomIn"), "Larger", QStringLiteral("zoomin"),
                {QKeySequence(QKeySequence::ZoomIn), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
  connect(out, &QAction::triggered, this, [this] { view_->SetZoom(view_->zoom() / kZoomStep); });
  connect(in, &QAction::triggered, this, [this] { view_->SetZoom(view_->zoom() * kZoomStep); });
  zoom_ = new QComboBox(this);
  zoom_->setObjectName(QStringLiteral("cmbZoom"));
  zoom_->setEditable(true);
  zoom_->setInsertPolicy(QComboBox::NoInsert);
  zoom_->setFixedWidth(84);
  zoom_->setToolTip("Zoom");
  for (const int percent : kPercents) zoom_->addItem(QStringLiteral("%1 %").arg(percent));
  connect(zoom_, &QComboBox::textActivated, this, &frmPDFReader::TakeZoom);
  bar.addWidget(zoom_);
  QAction* width = AddAction(bar, QStringLiteral("cmdFitWidth"), "Fit width",
                             QStringLiteral("fitwidth"), {QKeySequence(Qt::CTRL | Qt::Key_0)});
  QAction* whole = AddAction(bar, QStringLiteral("cmdFitPage"), "Whole page",
                             QStringLiteral("fitheight"), {QKeySequence(Qt::CTRL | Qt::Key_9)});
  connect(width, &QAction::triggered, this, [this] { view_->SetFit(PdfPageView::Fit::kWidth); });
  connect(whole, &QAction::triggered, this, [this] { view_->SetFit(PdfPageView::Fit::kPage); });
}

void frmPDFReader::MakeSearchBar(QToolBar& bar) {
  search_result_ = new QLabel(this);
  search_result_->setObjectName(QStringLiteral("lblSearch"));
  search_result_->setContentsMargins(0, 0, 8, 0);
  search_result_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  // The bar gives a label the room of its first text; this one comes and goes.
  search_result_->setMinimumWidth(
      search_result_->fontMetrics().horizontalAdvance(QStringLiteral("9999 of 9999")));
  bar.addWidget(search_result_);
  search_text_ = new QLineEdit(this);
  search_text_->setObjectName(QStringLiteral("txtSearch"));
  search_text_->setPlaceholderText("Find");
  search_text_->setClearButtonEnabled(true);
  search_text_->setMinimumWidth(110);
  search_text_->setMaximumWidth(190);
  search_text_->setToolTip("Find in this document (Ctrl+F)");
  connect(search_text_, &QLineEdit::textChanged, this, &frmPDFReader::Find);
  connect(search_text_, &QLineEdit::returnPressed, this, &frmPDFReader::FindNext);
  bar.addWidget(search_text_);
  QAction* previous = AddAction(bar, QStringLiteral("cmdFindPrevious"), "Previous place found",
                                QStringLiteral("previous"), {QKeySequence(Qt::SHIFT | Qt::Key_F3)});
  QAction* next = AddAction(bar, QStringLiteral("cmdFindNext"), "Next place found",
                            QStringLiteral("next"), {QKeySequence(Qt::Key_F3)});
  connect(previous, &QAction::triggered, this, &frmPDFReader::FindPrevious);
  connect(next, &QAction::triggered, this, &frmPDFReader::FindNext);
  auto* find = new QAction("Find", this);
  find->setShortcut(QKeySequence(QKeySequence::Find));
  connect(find, &QAction::triggered, this, [this] {
    search_text_->setFocus();
    search_text_->selectAll();
  });
  addAction(find);
}

void frmPDFReader::SetIcons() {
  const bool night = palette().color(QPalette::Base).lightness() < kDarkLightness;
  for (const auto& [action, icon] : icons_) action->setIcon(Icon(icon, night));
}

void frmPDFReader::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) SetIcons();
  QDialog::changeEvent(event);
}

Status frmPDFReader::Open(const std::string& path) {
  setWindowTitle(QString::fromStdString(HelpTitle(path)));
  matches_.clear();
  current_match_ = -1;
  searched_.clear();
  search_.setDocument(nullptr);
  view_->SetDocument(nullptr);
  bookmarks_.setDocument(nullptr);
  document_.close();
  document_.load(QString::fromStdString(path));
  const bool good = document_.status() == QPdfDocument::Status::Ready && document_.pageCount() > 0;
  for (const auto& [action, icon] : icons_) action->setEnabled(good && action != copy_);
  contents_->setEnabled(good);
  page_->setEnabled(good);
  zoom_->setEnabled(good);
  search_text_->setEnabled(good);
  if (!good) {
    const Error error{path, Problem(path, document_.error())};
    document_.close();
    page_count_->clear();
    problem_->setText(QString("<h3>This document cannot be shown</h3><p>%1</p><p>%2</p>")
                          .arg(QString::fromStdString(path).toHtmlEscaped(),
                               QString::fromStdString(error.reason).toHtmlEscaped()));
    pages_->setCurrentWidget(problem_);
    return error;
  }
  search_.setDocument(&document_);
  bookmarks_.setDocument(&document_);
  pages_->setCurrentWidget(splitter_);
  view_->SetDocument(&document_);
  view_->SetFit(PdfPageView::Fit::kWidth);
  FillOutline();
  const QSignalBlocker quiet(page_);
  page_->setRange(1, document_.pageCount());
  page_count_->setText(QString("of %1").arg(document_.pageCount()));
  UpdatePage();
  Find(search_text_->text());
  return Done{};
}

void frmPDFReader::FillOutline() {
  const bool any = bookmarks_.rowCount() > 0;
  contents_->setEnabled(any);
  outline_->setVisible(any && contents_->isChecked());
  // A title alone on the first level says no more than the window's own.
  outline_->setRootIndex(bookmarks_.rowCount() == 1 ? bookmarks_.index(0, 0) : QModelIndex());
}

int frmPDFReader::Find(const QString& text) {
  matches_.clear();
  current_match_ = -1;
  searched_ = text.trimmed();
  search_.setSearchString(searched_);
  if (!searched_.isEmpty() && search_.document() != nullptr) {
    for (int page = 0; page < document_.pageCount(); ++page) {
      for (const QPdfLink& link : search_.resultsOnPage(page)) {
        matches_ << PdfPageView::Match{page, Lines(link.rectangles())};
      }
    }
  }
  if (matches_.isEmpty()) {
    view_->SetMatches({}, -1);
    search_result_->setText(searched_.isEmpty() ? QString() : "not found");
    return 0;
  }
  const int from = view_->CurrentPage();
  int first = 0;
  while (first + 1 < matches_.size() && matches_[first].page < from) ++first;
  ShowMatch(matches_[first].page < from ? 0 : first);
  return static_cast<int>(matches_.size());
}

void frmPDFReader::FindNext() {
  if (matches_.isEmpty()) return;
  ShowMatch((current_match_ + 1) % static_cast<int>(matches_.size()));
}

void frmPDFReader::FindPrevious() {
  if (matches_.isEmpty()) return;
  const auto count = static_cast<int>(matches_.size());
  ShowMatch((current_match_ + count - 1) % count);
}

void frmPDFReader::ShowMatch(int index) {
  current_match_ = index;
  view_->SetMatches(matches_, index);
  search_result_->setText(QString("%1 of %2").arg(index + 1).arg(matches_.size()));
}

void frmPDFReader::UpdatePage() {
  const QSignalBlocker quiet(page_);
  page_->setValue(view_->CurrentPage() + 1);
}

void frmPDFReader::UpdateZoom() {
  const QSignalBlocker quiet(zoom_);
  zoom_->setCurrentIndex(-1);
  zoom_->setEditText(QStringLiteral("%1 %").arg(std::lround(view_->zoom() * 100.0)));
}

void frmPDFReader::TakeZoom(const QString& text) {
  QString number = text;
  number.remove(QLatin1Char('%'));
  bool good = false;
  const int percent = number.trimmed().toInt(&good);
  if (good && percent > 0) {
    view_->SetZoom(percent / 100.0);
  } else {
    UpdateZoom();
  }
}

void frmPDFReader::Copy() {
  const QString text = view_->SelectedText();
  if (!text.isEmpty()) clipboard_.SetText(text.toStdString());
}

}  // namespace skerrow
