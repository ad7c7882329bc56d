#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>

#include "platform/images.h"
#include "ui/drawing/drawing_surface.h"
#include "ui/drawing/look.h"
#include "ui/drawing/text_pictures.h"

class QKeyEvent;

namespace skerrow {

// What draws a picture on a surface.
using DrawOn = std::function<void(DrawingSurface&)>;

// A picture by day, for paper and the clipboard: laid out for `width` x `height` pixels and drawn
// `scale` times as large.
Picture PictureOf(const DrawOn& draw, int width, int height, int scale = 1);

// A picture in a window that is drawn once, and what moves over it, which is drawn at each paint.
// Both follow the look. The arrow keys and the mouse move a place on it.
class PictureWidget : public QWidget {
  Q_OBJECT

 public:
  explicit PictureWidget(const char* name, QWidget* parent = nullptr);

  void SetLook(Look look);

 signals:
  // The mouse has left.
  void Left();

 protected:
  // The still picture, and what stands over it.
  virtual void DrawStill(DrawingSurface& surface) const = 0;
  virtual void DrawOver(DrawingSurface& surface) const = 0;
  // Where the frame of the keyboard goes.
  virtual SurfaceRect FocusFrame(const DrawingSurface& surface) const = 0;

  // The picture has changed.
  void Redraw();
  bool drawn() const { return !picture_.isNull(); }
  SurfaceRect Whole() const;
  // Runs `use` with a surface on nothing, for measuring texts as the screen has them.
  void Measured(const std::function<void(const DrawingSurface&)>& use) const;

  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  Look look_;
  QPixmap picture_;  // null: to be drawn
  mutable TextPictures texts_;
};

// The key of an event without modifiers, those of the keypad apart; 0 for one with.
int PlainKey(const QKeyEvent& event);

}  // namespace skerrow
