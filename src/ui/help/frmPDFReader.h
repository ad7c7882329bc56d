#pragma once

#include <QDialog>
#include <QList>
#include <QPdfBookmarkModel>
#include <QPdfDocument>
#include <QPdfSearchModel>
#include <string>

#include "core/result.h"
#include "platform/clipboard.h"
#include "platform/settings_store.h"
#include "ui/help/pdf_page_view.h"

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;
class QSplitter;
class QStackedWidget;
class QToolBar;
class QTreeView;

namespace skerrow {

// The reader of the help documents: pages, contents, zoom and search. It keeps its size from one
// time to the next.
class frmPDFReader final : public QDialog {
  Q_OBJECT

 public:
  // `settings` and `clipboard` must outlive the window.
  frmPDFReader(SettingsStore& settings, Clipboard& clipboard, QWidget* parent = nullptr);
  ~frmPDFReader() override;

  // Shows the document at `path`. Error, which the window shows too: the file and the reason.
  Status Open(const std::string& path);

  int PageCount() const { return document_.pageCount(); }
  // From 0.
  int CurrentPage() const { return view_->CurrentPage(); }
  PdfPageView& view() { return *view_; }

  // Looks for a text from the page in view on, whatever its case, and goes to the first place.
  // Gives the number of places; an empty text gives 0 and takes the marks away.
  int Find(const QString& text);
  // Goes to the next place, or the one before, round the end.
  void FindNext();
  void FindPrevious();
  // The place in hand, from 0; -1 for none.
  int CurrentMatch() const { return current_match_; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void MakeActions();
  void MakePageBar(QToolBar& bar);
  void MakeSearchBar(QToolBar& bar);
  QAction* AddAction(QToolBar& bar, const QString& name, const QString& text, const QString& icon,
                     const QList<QKeySequence>& keys);
  void SetIcons();
  void RestoreSize();
  void FillOutline();
  void ShowMatch(int index);
  void UpdatePage();
  void UpdateZoom();
  void TakeZoom(const QString& text);
  void Copy();

  SettingsStore& settings_;
  Clipboard& clipboard_;
  QPdfDocument document_;
  QPdfSearchModel search_;
  QPdfBookmarkModel bookmarks_;

  QStackedWidget* pages_ = nullptr;
  QSplitter* splitter_ = nullptr;
  QTreeView* outline_ = nullptr;
  PdfPageView* view_ = nullptr;
  QLabel* problem_ = nullptr;
  QSpinBox* page_ = nullptr;
  QLabel* page_count_ = nullptr;
  QComboBox* zoom_ = nullptr;
  QLineEdit* search_text_ = nullptr;
  QLabel* search_result_ = nullptr;
  QAction* contents_ = nullptr;
  QAction* copy_ = nullptr;
  QList<QPair<QAction*, QString>> icons_;

  QList<PdfPageView::Match> matches_;
  int current_match_ = -1;
  QString searched_;
};

}  // namespace skerrow
