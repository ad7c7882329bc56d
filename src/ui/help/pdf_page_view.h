#pragma once

#include <QAbstractScrollArea>
#include <QHash>
#include <QImage>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QRectF>
#include <optional>

namespace skerrow {

// The pages of a document below one another. In a dark palette the pages are shown in its colours,
// so that no white paper lights up the cabin.
class PdfPageView final : public QAbstractScrollArea {
  Q_OBJECT

 public:
  enum class Fit { kNone, kWidth, kPage };

  // A place in the document: rectangles in points from the page's upper left corner.
  struct Match {
    int page = 0;
    QList<QRectF> rectangles;
  };

  static constexpr double kLeastZoom = 0.25;
  static constexpr double kMostZoom = 4.0;

  explicit PdfPageView(QWidget* parent = nullptr);

  // The document to show, not owned; call again when its pages have changed.
  void SetDocument(QPdfDocument* document);

  double zoom() const { return zoom_; }
  Fit fit() const { return fit_; }
  // 1.0 shows the pages in their printed size. Ends a fit.
  void SetZoom(double zoom);
  void SetFit(Fit fit);

  // The page that takes up the upper part of the view, from 0.
  int CurrentPage() const;
  // Brings a page to the top; `y` is a place on it in points.
  void GoTo(int page, double y = 0.0);

  // The places found by a search and the index of the one in hand, -1 for none. That one is
  // brought into view.
  void SetMatches(const QList<Match>& matches, int current);

  QString SelectedText() const;
  void SelectAllOfPage();
  void ClearSelection();

 signals:
  void PageChanged(int page);
  void ZoomChanged();
  void SelectionChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct PagePlace {
    int page = 0;
    QPointF point;  // points from the page's upper left corner
  };

  int PageCount() const { return document_ == nullptr ? 0 : document_->pageCount(); }
  double PixelsPerPoint() const;
  void LayOut();
  void ChangeZoom(double zoom);
  // Of a page in the view; whole pixels.
  QRect PageRect(int page) const;
  QImage PageImage(int page, QSize size);
  std::optional<PagePlace> PlaceAt(QPointF at) const;
  // The place in a line of the page's text that is nearest to a place.
  QPointF NearestText(const PagePlace& place);
  QRectF ToView(int page, const QRectF& points) const;
  void ShowMatch(const Match& match);
  void PaintMarks(QPainter& painter, int page);
  bool Dark() const;

  QPdfDocument* document_ = nullptr;
  double zoom_ = 1.0;
  Fit fit_ = Fit::kWidth;
  QList<QRect> pages_;  // where the pages stand, from the top of all
  QHash<int, QImage> images_;
  QList<Match> matches_;
  int current_match_ = -1;
  std::optional<PagePlace> drag_start_;
  std::optional<QPdfSelection> selection_;
  int selection_page_ = -1;
  QList<QRectF> text_lines_;  // of the page that is being selected from
  int text_page_ = -1;
  int told_page_ = -1;
};

}  // namespace skerrow
