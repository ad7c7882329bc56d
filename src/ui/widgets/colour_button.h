#pragma once

#include <QPushButton>
#include <cstdint>

namespace skerrow {

// A swatch of a stored colour that a click changes through the colour dialog.
class ColourButton : public QPushButton {
  Q_OBJECT

 public:
  ColourButton(const char* name, const QString& what, QWidget* parent = nullptr);

  // Red in the lowest byte, then green, then blue.
  std::int32_t colour() const { return colour_; }
  void SetColour(std::int32_t colour);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Choose();

  QString what_;
  std::int32_t colour_ = 0;
};

}  // namespace skerrow
