#pragma once

#include <QPixmap>
#include <QWidget>
#include <string>

namespace skerrow {

// A picture file fitted into the widget; dimmed at night. A file that is missing or no picture
// leaves a quiet note in its place.
class PicturePreview : public QWidget {
  Q_OBJECT

 public:
  explicit PicturePreview(const char* name, QWidget* parent = nullptr);

  // Shows the picture at `path`; an empty path shows nothing. False when there is none.
  bool Open(const std::string& path);
  bool empty() const { return pixmap_.isNull(); }

  QSize sizeHint() const override { return {420, 420}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap pixmap_;
  QString note_;
};

}  // namespace skerrow
