#pragma once

#include <QAbstractScrollArea>
#include <QPointF>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/progress.h"
#include "core/result.h"
#include "ui/drawing/drawing_surface.h"
#include "ui/viewer/chart_image.h"
#include "ui/viewer/chart_loader.h"
#include "ui/viewer/overlay_layer.h"
#include "ui/viewer/tile_store.h"
#include "ui/viewer/view_geometry.h"

namespace skerrow {

// What the mouse did over a chart.
struct ViewerMouse {
  ViewPoint at;                           // in the view
  ImagePoint image;                       // in the chart's picture; may be outside it
  QPoint global;                          // on the desktop, for pop-up menus
  Qt::MouseButton button = Qt::NoButton;  // whose state changed; none for a move
  Qt::MouseButtons buttons;               // held now
  Qt::KeyboardModifiers modifiers;
};

// Who is told of the keyboard and the mouse over a chart. What returns true has dealt with the
// event; otherwise the viewer's mouse mode or own scrolling takes it.
class ViewerEvents {
 public:
  virtual ~ViewerEvents() = default;
  virtual bool MousePressed(const ViewerMouse&) { return false; }
  virtual bool MouseMoved(const ViewerMouse&) { return false; }
  virtual bool MouseReleased(const ViewerMouse&) { return false; }
  virtual bool DoubleClicked(const ViewerMouse&) { return false; }
  // `angle` is in eighths of a degree, 120 for a notch away from the user.
  virtual bool Wheel(const ViewerMouse&, int angle) {
    static_cast<void>(angle);
    return false;
  }
  virtual bool KeyPressed(QKeyEvent&) { return false; }
  virtual void MouseLeft() {}
};

// The chart on screen: the picture with its zoom and scroll position, a selection rectangle, and
// whatever the overlay painter draws over it. It has no policy of its own for keys and the mouse
// beyond the mouse mode.
class ChartViewer final : public QAbstractScrollArea {
  Q_OBJECT

 public:
  // What stands on screen when a chart cannot be opened.
  enum class OnFailure { kKeepOld, kShowEmpty };
  enum class MouseMode {
    kNone,        // events go to ViewerEvents alone
    kRubberBand,  // the left button draws the selection
    kPan          // the left button drags the chart
  };
  using LivePainter = std::function<void(DrawingSurface&)>;

  explicit ChartViewer(QWidget* parent = nullptr);
  ~ChartViewer() override;

  // ---- The picture

  // Begins to open the picture at `path`; Opened or OpenFailed or OpenCancelled follows. Until then
  // the old chart stays.
  void Open(const std::string& path, OnFailure on_failure);
  // The same, and returns when it is done. Events are served meanwhile; `progress` may cancel.
  Status OpenAndWait(const std::string& path, OnFailure on_failure, Progress& progress);
  void CancelOpen();
  bool opening() const { return loader_.loading(); }
  // Shows a picture at once; null or an empty one shows none. Zoom and position stay as they are
  // as far as they can.
  void ShowImage(std::shared_ptr<const ChartImage> image);
  std::shared_ptr<const ChartImage> image() const { return image_; }
  // Pixels of the picture; 0 when there is none.
  int image_width() const { return geometry_.image_width(); }
  int image_height() const { return geometry_.image_height(); }

  // ---- Zoom and position. All of these ask for a repaint and tell ViewChanged when they change
  // something.

  const ViewGeometry& geometry() const { return geometry_; }
  double zoom() const { return geometry_.zoom(); }
  void SetZoom(double zoom);
  void SetZoomPercent(double percent) { SetZoom(percent / 100.0); }
  void ZoomAbout(QPointF at, double zoom);
  // A wheel turned by `angle` eighths of a degree at `at`: a quarter more for each notch.
  void ZoomByWheel(QPointF at, int angle);
  void FitWidth();
  void FitHeight();
  void FitAll();
  void ZoomToRect(ImageRect rect);
  void CentreOn(ImagePoint point);
  // Brings a place of the chart under a place of the view; with the place under the mouse at the
  // press this drags the chart without slip.
  void Place(ImagePoint point, QPointF at);
  void PanBy(QPointF delta);
  ImageRect VisibleRect() const { return geometry_.VisibleRect(); }
  QPointF ScrollPosition() const { return {geometry_.ScrollX(), geometry_.ScrollY()}; }
  QPointF ScrollRange() const { return {geometry_.ScrollRangeX(), geometry_.ScrollRangeY()}; }
  void SetScrollPosition(QPointF position);
  ImagePoint ViewToImage(QPointF at) const { return geometry_.ToImage({at.x(), at.y()}); }
  QPointF ImageToView(ImagePoint point) const;

  // ---- The selection

  void SetSelection(ImageRect rect);
  std::optional<ImageRect> selection() const { return selection_; }
  void ClearSelection();
  // Zooms to the selection and leaves it standing; without one nothing happens.
  void ZoomToSelection();

  // ---- Looks

  // The night view: dark paper, background and scroll bars.
  void SetNight(bool night);
  // 10 to 100 percent.
  void SetBrightness(int percent);
  const Look& look() const { return tiles_.look(); }
  void SetPointer(Qt::CursorShape shape) { viewport()->setCursor(shape); }

  // ---- Painting and events

  // Draws what stands over the chart. It is called when that has changed (Redraw) and when another
  // part of the chart or another scale comes into view, not at every paint: while the chart is
  // dragged its last picture moves along, and what comes in at the edges follows within moments.
  void SetOverlayPainter(OverlayPainter painter);
  // Called at the end of every paint while the mouse is over the chart, to draw in view pixels what
  // follows it. It must be quick.
  void SetLivePainter(LivePainter painter) { live_ = std::move(painter); }
  // Asks for a repaint with the overlays drawn anew.
  void Redraw();
  // Asks for a repaint for the sake of the live painter.
  void RedrawLive() { viewport()->update(); }
  // Not owned; null: nobody.
  void SetEvents(ViewerEvents* events) { events_ = events; }
  void SetMouseMode(MouseMode mode);
  MouseMode mouse_mode() const { return mouse_mode_; }
  // Whether the left button is drawing the selection just now.
  bool rubber_banding() const { return band_start_.has_value(); }
  // Whether everything on show is in its fine form.
  bool Refined() const { return tiles_.Idle() && !edge_timer_.isActive(); }
  // Bytes held for the chart: the picture, its reductions, the tiles and the overlays.
  std::int64_t MemoryUse() const;

 signals:
  void Opened();
  void OpenFailed(const QString& path, const QString& reason);
  void OpenCancelled();
  void OpenProgress(int percent);
  // Zoom, position, picture or size of the view changed.
  void ViewChanged();
  // The look, or how much is known of the picture, changed.
  void PictureChanged();
  // The left button drew a selection in kRubberBand.
  void SelectionMade();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void UpdateViewSize();
  void AfterViewChange();
  void SyncScrollBars();
  void ApplyLook(Look look);
  QColor Desk() const;
  void RequestTiles();
  void PaintChart(QPainter& painter);
  void PaintWithOverlays(QPainter& painter);
  // The tiles (column, row) that a part of the scaled chart touches, and the part in view.
  QRect TilesUnder(const QRect& area) const;
  QRect ViewArea() const;
  // Draws that part, as far as it has tiles, and the desk about the chart; whether it had them all.
  bool DrawTiles(QPainter& painter, const QRect& area);
  void PaintSelection(DrawingSurface& surface);
  ViewerMouse Describe(const QMouseEvent& event) const;

  ViewGeometry geometry_;
  std::shared_ptr<const ChartImage> image_;
  TileStore tiles_;
  ChartLoader loader_;
  OnFailure on_failure_ = OnFailure::kKeepOld;
  OverlayPainter overlay_;
  LivePainter live_;
  OverlayLayer layer_;
  TextPictures texts_;
  // Until the overlays are drawn for the parts of the chart that came into view.
  QTimer edge_timer_;
  bool moving_ = false;
  ViewerEvents* events_ = nullptr;
  MouseMode mouse_mode_ = MouseMode::kNone;
  std::optional<ImageRect> selection_;
  std::optional<ImagePoint> band_start_;
  std::optional<ImagePoint> pan_grip_;
  bool syncing_bars_ = false;
  bool mouse_inside_ = false;
};

}  // namespace skerrow
