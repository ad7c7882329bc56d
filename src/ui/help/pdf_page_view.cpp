#include "ui/help/pdf_page_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace skerrow {
namespace {

constexpr int kGap = 14;  // round the pages
constexpr double kPointsPerInch = 72.0;
constexpr double kWheelStep = 1.1;
constexpr int kDarkLightness = 128;
constexpr qsizetype kKeptPages = 8;
const QColor kMatchColour(255, 214, 70, 110);
const QColor kCurrentMatchColour(255, 140, 0, 150);

// The page in the colours of the palette: what was paper gets `paper`, what was ink gets `ink`.
void Recolour(QImage& image, const QColor& paper, const QColor& ink) {
  std::array<QRgb, 256> shades{};
  for (int i = 0; i < 256; ++i) {
    const auto mix = [i](int dark, int light) { return dark + (light - dark) * i / 255; };
    shades[static_cast<std::size_t>(i)] =
        qRgb(mix(ink.red(), paper.red()), mix(ink.green(), paper.green()),
             mix(ink.blue(), paper.blue()));
  }
  for (int y = 0; y < image.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      row[x] = shades[static_cast<std::size_t>(qGray(row[x]))];
    }
  }
}

}  // namespace

PdfPageView::PdfPageView(QWidget* parent) : QAbstractScrollArea(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  viewport()->setMouseTracking(true);
  viewport()->setCursor(Qt::IBeamCursor);
}

void PdfPageView::SetDocument(QPdfDocument* document) {
  document_ = document;
  images_.clear();
  matches_.clear();
  current_match_ = -1;
  told_page_ = -1;
  text_page_ = -1;
  ClearSelection();
  LayOut();
  verticalScrollBar()->setValue(0);
  viewport()->update();
}

double PdfPageView::PixelsPerPoint() const { return logicalDpiY() / kPointsPerInch * zoom_; }

void PdfPageView::LayOut() {
  const double per_inch = logicalDpiY() / kPointsPerInch;
  if (fit_ != Fit::kNone && PageCount() > 0) {
    // All pages of a document have one size; the first one stands for them.
    const QSizeF page = document_->pagePointSize(0) * per_inch;
    double fitted = (viewport()->width() - 2.0 * kGap) / page.width();
    if (fit_ == Fit::kPage) {
      fitted = std::min(fitted, (viewport()->height() - 2.0 * kGap) / page.height());
    }
    zoom_ = std::clamp(fitted, kLeastZoom, kMostZoom);
  }
  pages_.clear();
  int top = kGap;
  int widest = 0;
  for (int page = 0; page < PageCount(); ++page) {
    const QSize size = (document_->pagePointSize(page) * PixelsPerPoint()).toSize();
    pages_ << QRect(QPoint(0, top), size);
    top += size.height() + kGap;
    widest = std::max(widest, size.width());
  }
  const int room = std::max(viewport()->width(), widest + 2 * kGap);
  for (QRect& page : pages_) page.moveLeft((room - page.width()) / 2);
  verticalScrollBar()->setRange(0, std::max(0, top - viewport()->height()));
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(40);
  horizontalScrollBar()->setRange(0, room - viewport()->width());
  horizontalScrollBar()->setPageStep(viewport()->width());
  horizontalScrollBar()->setSingleStep(40);
}

void PdfPageView::ChangeZoom(double zoom) {
  // The place at the top of the view stays there.
  const std::optional<PagePlace> place = PlaceAt(QPointF(viewport()->width() / 2.0, kGap));
  zoom_ = zoom;
  images_.clear();
  LayOut();
  if (place && place->page < pages_.size()) {
    verticalScrollBar()->setValue(pages_[place->page].top() - kGap +
                                  static_cast<int>(place->point.y() * PixelsPerPoint()));
  }
  viewport()->update();
  emit ZoomChanged();
}

void PdfPageView::SetZoom(double zoom) {
  fit_ = Fit::kNone;
  ChangeZoom(std::clamp(zoom, kLeastZoom, kMostZoom));
}

void PdfPageView::SetFit(Fit fit) {
  fit_ = fit;
  ChangeZoom(zoom_);
}

int PdfPageView::CurrentPage() const {
  const int line = verticalScrollBar()->value() + viewport()->height() / 3;
  for (int page = 0; page < pages_.size(); ++page) {
    if (line < pages_[page].bottom() + kGap) return page;
  }
  return static_cast<int>(std::max<qsizetype>(0, pages_.size() - 1));
}

void PdfPageView::GoTo(int page, double y) {
  if (page < 0 || page >= pages_.size()) return;
  verticalScrollBar()->setValue(pages_[page].top() - kGap + static_cast<int>(y * PixelsPerPoint()));
}

void PdfPageView::SetMatches(const QList<Match>& matches, int current) {
  matches_ = matches;
  current_match_ = current;
  if (current >= 0 && current < matches_.size()) ShowMatch(matches_[current]);
  viewport()->update();
}

void PdfPageView::ShowMatch(const Match& match) {
  if (match.rectangles.isEmpty()) return;
  const QRectF place = ToView(match.page, match.rectangles.front());
  const QRectF easy = QRectF(viewport()->rect()).adjusted(20, 40, -20, -60);
  if (easy.contains(place)) return;
  verticalScrollBar()->setValue(verticalScrollBar()->value() + static_cast<int>(place.top()) -
                                viewport()->height() / 3);
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() +
                                  static_cast<int>(place.center().x()) - viewport()->width() / 2);
}

QString PdfPageView::SelectedText() const { return selection_ ? selection_->text() : QString(); }

void PdfPageView::SelectAllOfPage() {
  if (PageCount() == 0) return;
  selection_page_ = CurrentPage();
  selection_ = document_->getAllText(selection_page_);
  viewport()->update();
  emit SelectionChanged();
}

void PdfPageView::ClearSelection() {
  selection_.reset();
  selection_page_ = -1;
  viewport()->update();
  emit SelectionChanged();
}

bool PdfPageView::Dark() const {
  return palette().color(QPalette::Base).lightness() < kDarkLightness;
}

QRect PdfPageView::PageRect(int page) const {
  return pages_[page].translated(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
}

QRectF PdfPageView::ToView(int page, const QRectF& points) const {
  const double scale = PixelsPerPoint();
  const QRect rect = PageRect(page);
  return {rect.left() + points.left() * scale, rect.top() + points.top() * scale,
          points.width() * scale, points.height() * scale};
}

std::optional<PdfPageView::PagePlace> PdfPageView::PlaceAt(QPointF at) const {
  for (int page = 0; page < pages_.size(); ++page) {
    const QRect rect = PageRect(page);
    if (at.y() > rect.bottom() + kGap) continue;
    return PagePlace{page, (at - QPointF(rect.topLeft())) / PixelsPerPoint()};
  }
  return std::nullopt;
}

QImage PdfPageView::PageImage(int page, QSize size) {
  const auto kept = images_.constFind(page);
  if (kept != images_.constEnd() && kept->size() == size) return *kept;
  if (images_.size() >= kKeptPages) images_.clear();
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  {
    QPainter painter(&image);
    painter.drawImage(0, 0, document_->render(page, size));
  }
  if (Dark()) {
    Recolour(image, palette().color(QPalette::Base), palette().color(QPalette::Text));
  }
  images_.insert(page, image);
  return image;
}

void PdfPageView::PaintMarks(QPainter& painter, int page) {
  const bool dark = Dark();
  const QColor ink = palette().color(QPalette::Text);
  for (int i = 0; i < matches_.size(); ++i) {
    if (matches_[i].page != page) continue;
    const bool current = i == current_match_;
    for (const QRectF& rect : matches_[i].rectangles) {
      const QRectF place = ToView(page, rect).adjusted(-1, -1, 1, 1);
      if (dark) {
        // A fill would swallow the dim text; a frame does not.
        painter.setPen(QPen(ink, current ? 2.5 : 0.8));
        painter.drawRect(place.adjusted(-1, -1, 1, 1));
      } else {
        painter.fillRect(place, current ? kCurrentMatchColour : kMatchColour);
      }
    }
  }
  if (!selection_ || selection_page_ != page) return;
  QColor colour = palette().color(QPalette::Highlight);
  colour.setAlpha(90);
  for (const QPolygonF& part : selection_->bounds()) {
    painter.fillRect(ToView(page, part.boundingRect()), colour);
  }
}

void PdfPageView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), Dark() ? palette().color(QPalette::Window)
                                         : palette().color(QPalette::Window).darker(115));
  const double ratio = devicePixelRatioF();
  for (int page = 0; page < pages_.size(); ++page) {
    const QRect rect = PageRect(page);
    if (!rect.intersects(event->rect())) continue;
    const QSize size = (QSizeF(rect.size()) * ratio).toSize();
    painter.drawImage(rect, PageImage(page, size));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect.adjusted(-1, -1, 0, 0));
    PaintMarks(painter, page);
  }
}

void PdfPageView::resizeEvent(QResizeEvent*) {
  if (fit_ != Fit::kNone) {
    ChangeZoom(zoom_);
  } else {
    LayOut();
  }
}

void PdfPageView::scrollContentsBy(int, int) {
  viewport()->update();
  if (const int page = CurrentPage(); page != told_page_) {
    told_page_ = page;
    emit PageChanged(page);
  }
}

void PdfPageView::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) == 0) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  SetZoom(zoom_ * std::pow(kWheelStep, event->angleDelta().y() / 120.0));
  event->accept();
}

QPointF PdfPageView::NearestText(const PagePlace& place) {
  if (text_page_ != place.page) {
    text_page_ = place.page;
    text_lines_.clear();
    for (const QPolygonF& line : document_->getAllText(place.page).bounds()) {
      text_lines_ << line.boundingRect().adjusted(0.5, 0.5, -0.5, -0.5);
    }
  }
  QPointF nearest = place.point;
  double least = std::numeric_limits<double>::infinity();
  for (const QRectF& line : text_lines_) {
    const QPointF at(std::clamp(place.point.x(), line.left(), std::max(line.left(), line.right())),
                     std::clamp(place.point.y(), line.top(), std::max(line.top(), line.bottom())));
    // A line at the same height is nearer than one above or below it.
    const double distance = std::hypot(at.x() - place.point.x(), 4.0 * (at.y() - place.point.y()));
    if (distance < least) {
      least = distance;
      nearest = at;
    }
  }
  return nearest;
}

void PdfPageView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  ClearSelection();
  drag_start_ = PlaceAt(event->position());
}

void PdfPageView::mouseMoveEvent(QMouseEvent* event) {
  if (!drag_start_) return;
  const std::optional<PagePlace> end = PlaceAt(event->position());
  if (!end || end->page != drag_start_->page) return;
  selection_page_ = end->page;
  selection_ = document_->getSelection(end->page, NearestText(*drag_start_), NearestText(*end));
  viewport()->update();
  emit SelectionChanged();
}

void PdfPageView::mouseReleaseEvent(QMouseEvent*) { drag_start_.reset(); }

void PdfPageView::keyPressEvent(QKeyEvent* event) {
  QScrollBar* bar = verticalScrollBar();
  switch (event->key()) {
    case Qt::Key_Home:
      bar->setValue(0);
      break;
    case Qt::Key_End:
      bar->setValue(bar->maximum());
      break;
    case Qt::Key_Space:
      bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
      break;
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void PdfPageView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
    images_.clear();
    viewport()->update();
  }
  QAbstractScrollArea::changeEvent(event);
}

}  // namespace skerrow
