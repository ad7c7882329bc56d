#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <array>

#include "ui/drawing/look.h"
#include "ui/drawing/text_pictures.h"
#include "ui/forms/true_app_wind_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// The picture of the winds on the boat.
class WindTriangleView : public QWidget {
  Q_OBJECT

 public:
  explicit WindTriangleView(QWidget* parent = nullptr);

  void SetWinds(const std::optional<WindTriangle>& winds);
  void SetLook(Look look);

  QSize sizeHint() const override { return {300, 320}; }
  QSize minimumSizeHint() const override { return {220, 220}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::optional<WindTriangle> winds_;
  Look look_;
  TextPictures texts_;
};

// "True and Apparent Wind": either wind from the other, as its boxes are typed into.
class frmTrueAppWind : public Dialog {
  Q_OBJECT

 public:
  frmTrueAppWind(Desktop& desktop, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  FilteredEdit* Box(WindBox box) const { return boxes_[static_cast<std::size_t>(box)]; }
  QGroupBox* MakeBoat();
  // `labels` are those of speed, direction and angle, with their keys.
  QGroupBox* MakeWind(const QString& title, WindBox speed, const std::array<const char*, 3>& labels,
                      QLabel* force);
  // Shows the form's state; a box that is being typed into keeps its text.
  void ShowForm();
  void FollowLook();

  TrueAppWindForm form_;
  std::array<FilteredEdit*, kWindBoxes> boxes_{};
  QRadioButton* starboard_;
  QRadioButton* port_;
  QLabel* true_force_;
  QLabel* apparent_force_;
  QLabel* trouble_;
  WindTriangleView* picture_ = nullptr;
};

}  // namespace skerrow
