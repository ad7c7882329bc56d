#pragma once

#include <QImage>
#include <QPixmap>
#include <QThreadPool>
#include <QWidget>
#include <atomic>
#include <memory>
#include <string>

#include "core/chart_source.h"

namespace skerrow {

// A picture file fitted into the widget; dimmed at night. A file that is missing or no picture
// leaves a quiet note in its place. Decoding runs beside the window, however large the picture.
class PicturePreview : public QWidget {
  Q_OBJECT

 public:
  explicit PicturePreview(const char* name, QWidget* parent = nullptr);
  ~PicturePreview() override;

  // Begins to open the picture at `path` in place of the one before; an empty path shows nothing.
  void Open(const std::string& path);
  // Shows a picture at hand; an empty one shows nothing.
  void Set(const RgbPicture& picture);
  bool empty() const { return pixmap_.isNull(); }
  // Whether the picture asked for last is still being opened.
  bool opening() const { return job_ != nullptr; }

  QSize sizeHint() const override { return {420, 420}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // One opening; true once another has taken its place.
  using Job = std::atomic<bool>;

  void Drop();
  void Show(const QImage& image);

  QPixmap pixmap_;
  QString note_;
  std::shared_ptr<Job> job_;
  QThreadPool pool_;
};

}  // namespace skerrow
