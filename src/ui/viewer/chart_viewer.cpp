#include "ui/viewer/chart_viewer.h"

#include <QEventLoop>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/drawing/qt_surface.h"

namespace skerrow {
namespace {

constexpr QRgb kDayDesk = qRgb(0xc3, 0xcb, 0xd4);
constexpr QRgb kNightDesk = qRgb(0x10, 0x08, 0x06);
constexpr double kZoomPerNotch = 1.25;
constexpr int kEdgeDelay = 60;                       // ms
constexpr std::int32_t kSelectionColour = 0x0000ff;  // red

// Slim scroll bars whose colours do not hang on the desktop's style.
QString ScrollBarStyle(const Look& look) {
  const auto name = [&look](QRgb day, QRgb night) {
    return Dimmed(QColor(look.night ? night : day), look).name();
  };
  const QString groove = name(qRgb(0xdd, 0xe2, 0xe8), qRgb(0x0b, 0x04, 0x03));
  const QString handle = name(qRgb(0x98, 0xa4, 0xb1), qRgb(0x4d, 0x20, 0x16));
  const QString hover = name(qRgb(0x78, 0x86, 0x95), qRgb(0x6e, 0x2e, 0x20));
  return QStringLiteral(
             "QScrollBar { background: %1; border: none; margin: 0; }"
             "QScrollBar:horizontal { height: 11px; }"
             "QScrollBar:vertical { width: 11px; }"
             "QScrollBar::handle { background: %2; border-radius: 3px; margin: 2px; }"
             "QScrollBar::handle:horizontal { min-width: 28px; }"
             "QScrollBar::handle:vertical { min-height: 28px; }"
             "QScrollBar::handle:hover, QScrollBar::handle:pressed { background: %3; }"
             "QScrollBar::handle:disabled { background: %1; }"
             "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
             "QScrollBar::add-page, QScrollBar::sub-page { background: none; }"
             "QAbstractScrollArea::corner { background: %1; border: none; }")
      .arg(groove, handle, hover);
}

ImageRect Between(ImagePoint a, ImagePoint b, int width, int height) {
  const auto whole = [](double value, int most) {
    return std::clamp(static_cast<int>(std::lround(value)), 0, most);
  };
  const int left = whole(std::min(a.column, b.column), width);
  const int top = whole(std::min(a.row, b.row), height);
  const int right = whole(std::max(a.column, b.column), width);
  const int bottom = whole(std::max(a.row, b.row), height);
  return {left, top, right - left, bottom - top};
}

}  // namespace

ChartViewer::ChartViewer(QWidget* parent) : QAbstractScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  // Always there, so that a zoom does not change the size of the view it is fitted to.
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setFocusPolicy(Qt::StrongFocus);
  setStyleSheet(ScrollBarStyle({}));
  viewport()->setMouseTracking(true);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  viewport()->setCursor(Qt::CrossCursor);
  connect(&tiles_, &TileStore::TilesReady, viewport(), qOverload<>(&QWidget::update));
  edge_timer_.setSingleShot(true);
  edge_timer_.setInterval(kEdgeDelay);
  connect(&edge_timer_, &QTimer::timeout, this, [this] {
    moving_ = true;
    Redraw();
  });
  connect(&loader_, &ChartLoader::Progressed, this, &ChartViewer::OpenProgress);
  connect(&loader_, &ChartLoader::Cancelled, this, &ChartViewer::OpenCancelled);
  connect(&loader_, &ChartLoader::Reduced, this, [this] {
    emit PictureChanged();
    viewport()->update();
  });
  connect(&loader_, &ChartLoader::Loaded, this, [this](std::shared_ptr<ChartImage> loaded) {
    ShowImage(std::move(loaded));
    emit Opened();
  });
  connect(&loader_, &ChartLoader::Failed, this, [this](const Error& error) {
    if (on_failure_ == OnFailure::kShowEmpty) ShowImage(nullptr);
    emit OpenFailed(QString::fromStdString(error.path), QString::fromStdString(error.reason));
  });
}

ChartViewer::~ChartViewer() = default;

void ChartViewer::Open(const std::string& path, OnFailure on_failure) {
  on_failure_ = on_failure;
  loader_.Start(path);
}

Status ChartViewer::OpenAndWait(const std::string& path, OnFailure on_failure, Progress& progress) {
  Status result = Done{};
  QEventLoop loop;
  QObject scope;
  connect(this, &ChartViewer::Opened, &scope, [&loop] { loop.quit(); });
  connect(this, &ChartViewer::OpenCancelled, &scope, [&] {
    result = Error{path, kDecodeCancelled};
    loop.quit();
  });
  connect(this, &ChartViewer::OpenFailed, &scope, [&](const QString& file, const QString& reason) {
    result = Error{file.toStdString(), reason.toStdString()};
    loop.quit();
  });
  double percent = 0.0;
  connect(this, &ChartViewer::OpenProgress, &scope, [&percent](int read) { percent = read; });
  QTimer beat;
  connect(&beat, &QTimer::timeout, &scope, [&] {
    if (!progress.Step(percent)) CancelOpen();
  });
  beat.start(50);
  Open(path, on_failure);
  loop.exec();
  return result;
}

void ChartViewer::CancelOpen() { loader_.Cancel(); }

void ChartViewer::ShowImage(std::shared_ptr<const ChartImage> image) {
  image_ = image != nullptr && !image->picture().empty() ? std::move(image) : nullptr;
  tiles_.SetImage(image_);
  geometry_.SetImageSize(image_ ? image_->width() : 0, image_ ? image_->height() : 0);
  selection_.reset();
  band_start_.reset();
  pan_grip_.reset();
  layer_.Invalidate();
  emit PictureChanged();
  AfterViewChange();
}

void ChartViewer::SetOverlayPainter(OverlayPainter painter) {
  overlay_ = std::move(painter);
  Redraw();
}

void ChartViewer::Redraw() {
  layer_.Invalidate();
  viewport()->update();
}

std::int64_t ChartViewer::MemoryUse() const {
  return (image_ ? image_->MemoryUse() : 0) + tiles_.MemoryUse() + layer_.MemoryUse() +
         texts_.MemoryUse();
}

void ChartViewer::SetZoom(double zoom) {
  geometry_.SetZoom(zoom);
  AfterViewChange();
}

void ChartViewer::ZoomAbout(QPointF at, double zoom) {
  geometry_.ZoomAbout({at.x(), at.y()}, zoom);
  AfterViewChange();
}

void ChartViewer::ZoomByWheel(QPointF at, int angle) {
  ZoomAbout(at, zoom() * std::pow(kZoomPerNotch, angle / 120.0));
}

void ChartViewer::FitWidth() {
  geometry_.FitWidth();
  AfterViewChange();
}

void ChartViewer::FitHeight() {
  geometry_.FitHeight();
  AfterViewChange();
}

void ChartViewer::FitAll() {
  geometry_.FitAll();
  AfterViewChange();
}

void ChartViewer::ZoomToRect(ImageRect rect) {
  geometry_.ZoomToRect(rect);
  AfterViewChange();
}

void ChartViewer::CentreOn(ImagePoint point) {
  geometry_.CentreOn(point);
  AfterViewChange();
}

void ChartViewer::Place(ImagePoint point, QPointF at) {
  geometry_.Place(point, {at.x(), at.y()});
  AfterViewChange();
}

void ChartViewer::PanBy(QPointF delta) {
  geometry_.PanBy(delta.x(), delta.y());
  AfterViewChange();
}

void ChartViewer::SetScrollPosition(QPointF position) {
  geometry_.SetScroll(position.x(), position.y());
  AfterViewChange();
}

QPointF ChartViewer::ImageToView(ImagePoint point) const {
  const ViewPoint at = geometry_.ToView(point);
  return {at.x, at.y};
}

void ChartViewer::SetSelection(ImageRect rect) {
  selection_ = rect;
  viewport()->update();
}

void ChartViewer::ClearSelection() {
  selection_.reset();
  band_start_.reset();
  viewport()->update();
}

void ChartViewer::ZoomToSelection() {
  if (selection_) ZoomToRect(*selection_);
}

void ChartViewer::SetNight(bool night) { ApplyLook({night, look().brightness}); }

void ChartViewer::SetBrightness(int percent) {
  ApplyLook({look().night, std::clamp(percent, 10, 100)});
}

void ChartViewer::ApplyLook(Look new_look) {
  if (new_look == look()) return;
  tiles_.SetLook(new_look);
  setStyleSheet(ScrollBarStyle(new_look));
  emit PictureChanged();
  viewport()->update();
}

void ChartViewer::SetMouseMode(MouseMode mode) {
  mouse_mode_ = mode;
  band_start_.reset();
  pan_grip_.reset();
}

void ChartViewer::UpdateViewSize() {
  const QSize size = viewport()->size();
  const double ratio = viewport()->devicePixelRatioF();
  if (geometry_.view_width() == size.width() && geometry_.view_height() == size.height() &&
      geometry_.pixel_ratio() == ratio) {
    return;
  }
  geometry_.SetViewSize(size.width(), size.height(), ratio);
  layer_.Invalidate();  // marks are sized by the view
  const double screen_pixels = size.width() * ratio * size.height() * ratio;
  // Enough for the view, what is around it, and the scale before.
  tiles_.SetBudget(std::max<std::int64_t>(std::int64_t{16} << 20,
                                          static_cast<std::int64_t>(screen_pixels * 4.0 * 3.0)));
  AfterViewChange();
}

void ChartViewer::AfterViewChange() {
  SyncScrollBars();
  emit ViewChanged();
  viewport()->update();
}

void ChartViewer::SyncScrollBars() {
  syncing_bars_ = true;
  const auto sync = [](QScrollBar* bar, double position, double range, double page) {
    bar->setRange(0, static_cast<int>(std::lround(range)));
    bar->setPageStep(std::max(static_cast<int>(page), 1));
    bar->setSingleStep(std::max(static_cast<int>(page / 10.0), 1));
    bar->setValue(static_cast<int>(std::lround(position)));
  };
  sync(horizontalScrollBar(), geometry_.ScrollX(), geometry_.ScrollRangeX(),
       geometry_.view_width());
  sync(verticalScrollBar(), geometry_.ScrollY(), geometry_.ScrollRangeY(), geometry_.view_height());
  syncing_bars_ = false;
}

void ChartViewer::scrollContentsBy(int, int) {
  if (syncing_bars_) return;
  // Only the bar that moved: the other one's whole number would round the position.
  const int x = horizontalScrollBar()->value();
  const int y = verticalScrollBar()->value();
  const bool moved_x = x != static_cast<int>(std::lround(geometry_.ScrollX()));
  const bool moved_y = y != static_cast<int>(std::lround(geometry_.ScrollY()));
  geometry_.SetScroll(moved_x ? x : geometry_.ScrollX(), moved_y ? y : geometry_.ScrollY());
  AfterViewChange();
}

void ChartViewer::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  UpdateViewSize();
}

void ChartViewer::paintEvent(QPaintEvent* event) {
  // The window may have come to a screen of another density.
  UpdateViewSize();
  QPainter painter(viewport());
  if (image_) {
    RequestTiles();
    if (!overlay_) {
      PaintChart(painter);
    } else {
      PaintWithOverlays(painter);
    }
  } else {
    for (const QRect& part : event->region()) painter.fillRect(part, Desk());
  }
  QtSurface surface(painter, QSizeF(viewport()->size()), look(), &texts_);
  if (live_ && image_ && mouse_inside_) live_(surface);
  PaintSelection(surface);
}

QColor ChartViewer::Desk() const {
  return Dimmed(QColor(look().night ? kNightDesk : kDayDesk), look());
}

void ChartViewer::PaintWithOverlays(QPainter& painter) {
  const bool usable = layer_.Usable(geometry_, look());
  const bool lasting = usable || moving_;
  moving_ = false;
  if (!usable) {
    layer_.Draw(geometry_, look(), texts_, overlay_);
    edge_timer_.stop();
  } else if (!layer_.Covers(geometry_, OverlayLayer::kMargin / 2) && !edge_timer_.isActive()) {
    edge_timer_.start();
  }
  // When the same overlays are painted again, the next time shall be one copy.
  if (lasting && tiles_.Idle()) {
    layer_.Compose(geometry_,
                   [this](QPainter& whole, const QRect& area) { return DrawTiles(whole, area); });
  }
  if (layer_.Whole(geometry_, look())) {
    layer_.PaintWhole(painter, geometry_);
    return;
  }
  PaintChart(painter);
  layer_.Paint(painter, geometry_);
}

QRect ChartViewer::TilesUnder(const QRect& area) const {
  constexpr int kTile = TileStore::kTileSize;
  const QPoint last((geometry_.ScaledWidth() - 1) / kTile, (geometry_.ScaledHeight() - 1) / kTile);
  const QPoint first(std::max(area.left(), 0) / kTile, std::max(area.top(), 0) / kTile);
  return {first, QPoint(std::min(area.right() / kTile, last.x()),
                        std::min(area.bottom() / kTile, last.y()))};
}

QRect ChartViewer::ViewArea() const {
  const double ratio = geometry_.pixel_ratio();
  return {geometry_.OriginX(), geometry_.OriginY(),
          static_cast<int>(std::ceil(geometry_.view_width() * ratio)),
          static_cast<int>(std::ceil(geometry_.view_height() * ratio))};
}

// The tiles in view, and those in reach of the overlays about it.
void ChartViewer::RequestTiles() {
  constexpr int kReach = OverlayLayer::kMargin;
  const QRect seen = TilesUnder(ViewArea());
  const QRect around = TilesUnder(ViewArea().adjusted(-kReach, -kReach, kReach, kReach));
  std::vector<TileKey> visible;
  std::vector<TileKey> next;
  for (int y = around.top(); y <= around.bottom(); ++y) {
    for (int x = around.left(); x <= around.right(); ++x) {
      (seen.contains(x, y) ? visible : next).push_back({geometry_.Scale(), x, y});
    }
  }
  tiles_.Request(visible, next);
}

void ChartViewer::PaintChart(QPainter& painter) {
  const double ratio = geometry_.pixel_ratio();
  painter.save();
  // In screen pixels, so that tiles are copied and not scaled.
  painter.scale(1.0 / ratio, 1.0 / ratio);
  DrawTiles(painter, ViewArea());
  painter.restore();
}

bool ChartViewer::DrawTiles(QPainter& painter, const QRect& area) {
  constexpr int kTile = TileStore::kTileSize;
  const QRect chart(0, 0, geometry_.ScaledWidth(), geometry_.ScaledHeight());
  const QRect tiles = TilesUnder(area);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  bool all = true;
  for (int y = tiles.top(); y <= tiles.bottom(); ++y) {
    for (int x = tiles.left(); x <= tiles.right(); ++x) {
      const QImage& tile = tiles_.Tile({geometry_.Scale(), x, y});
      const QRect part = QRect(x * kTile, y * kTile, kTile, kTile) & chart;
      all = all && !tile.isNull();
      painter.drawImage(part.topLeft() - area.topLeft(), tile, QRect(QPoint(0, 0), part.size()));
    }
  }
  if (!chart.contains(area)) {
    for (const QRect& part : QRegion(area).subtracted(QRegion(chart))) {
      painter.fillRect(part.translated(-area.topLeft()), Desk());
    }
  }
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  return all;
}

void ChartViewer::PaintSelection(DrawingSurface& surface) {
  if (!selection_ || selection_->width <= 0 || selection_->height <= 0) return;
  const ViewPoint from = geometry_.ToView(
      {static_cast<double>(selection_->left), static_cast<double>(selection_->top)});
  const ViewPoint to =
      geometry_.ToView({static_cast<double>(selection_->left + selection_->width),
                        static_cast<double>(selection_->top + selection_->height)});
  const SurfacePoint corners[] = {{from.x, from.y}, {to.x, from.y}, {to.x, to.y}, {from.x, to.y}};
  surface.SetFill(std::nullopt);
  surface.SetPen(2, kSelectionColour, LineStyle::kDash);
  surface.Polygon(corners);
}

ViewerMouse ChartViewer::Describe(const QMouseEvent& event) const {
  ViewerMouse mouse;
  mouse.at = {event.position().x(), event.position().y()};
  mouse.image = geometry_.ToImage(mouse.at);
  mouse.global = event.globalPosition().toPoint();
  mouse.button = event.button();
  mouse.buttons = event.buttons();
  mouse.modifiers = event.modifiers();
  return mouse;
}

void ChartViewer::mousePressEvent(QMouseEvent* event) {
  const ViewerMouse mouse = Describe(*event);
  event->accept();
  if (events_ != nullptr && events_->MousePressed(mouse)) return;
  if (event->button() != Qt::LeftButton || !image_) return;
  if (mouse_mode_ == MouseMode::kRubberBand) {
    band_start_ = mouse.image;
    selection_.reset();
    viewport()->update();
  } else if (mouse_mode_ == MouseMode::kPan) {
    pan_grip_ = mouse.image;
  }
}

void ChartViewer::mouseMoveEvent(QMouseEvent* event) {
  const ViewerMouse mouse = Describe(*event);
  event->accept();
  if (events_ != nullptr && events_->MouseMoved(mouse)) return;
  if (band_start_) {
    SetSelection(Between(*band_start_, mouse.image, image_width(), image_height()));
  } else if (pan_grip_ && (event->buttons() & Qt::LeftButton) != 0) {
    Place(*pan_grip_, event->position());
  }
}

void ChartViewer::mouseReleaseEvent(QMouseEvent* event) {
  const ViewerMouse mouse = Describe(*event);
  event->accept();
  if (event->button() == Qt::LeftButton) {
    pan_grip_.reset();
    if (band_start_) {
      const ImageRect rect = Between(*band_start_, mouse.image, image_width(), image_height());
      band_start_.reset();
      SetSelection(rect);
      emit SelectionMade();
    }
  }
  if (events_ != nullptr) events_->MouseReleased(mouse);
}

void ChartViewer::mouseDoubleClickEvent(QMouseEvent* event) {
  const ViewerMouse mouse = Describe(*event);
  event->accept();
  if (events_ != nullptr && events_->DoubleClicked(mouse)) return;
  // A press like any other to whoever does not care.
  mousePressEvent(event);
}

void ChartViewer::wheelEvent(QWheelEvent* event) {
  ViewerMouse mouse;
  mouse.at = {event->position().x(), event->position().y()};
  mouse.image = geometry_.ToImage(mouse.at);
  mouse.global = event->globalPosition().toPoint();
  mouse.buttons = event->buttons();
  mouse.modifiers = event->modifiers();
  event->accept();
  if (events_ != nullptr && events_->Wheel(mouse, event->angleDelta().y())) return;
  QAbstractScrollArea::wheelEvent(event);
}

void ChartViewer::keyPressEvent(QKeyEvent* event) {
  event->accept();
  if (events_ != nullptr && events_->KeyPressed(*event)) return;
  QAbstractScrollArea::keyPressEvent(event);
}

bool ChartViewer::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::MouseMove) mouse_inside_ = true;
  if (event->type() == QEvent::Leave) {
    mouse_inside_ = false;
    RedrawLive();
    if (events_ != nullptr) events_->MouseLeft();
  }
  return QAbstractScrollArea::viewportEvent(event);
}

}  // namespace skerrow
