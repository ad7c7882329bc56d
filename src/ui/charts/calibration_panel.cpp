#include "ui/charts/calibration_panel.h"

#include <QLabel>
#include <string_view>

#include "ui/widgets/dialog.h"

namespace skerrow {
namespace {

// Where the box of a name stands, and what is said of it.
struct Place {
  std::string_view name;
  int row;
  int column;  // of its label
  const char* label;
  const char* tip;
};

constexpr Place kPlaces[] = {
    {"txtUpperLat", 1, 0, "L&atitude:", "Latitude of the upper line: 50.30.25N"},
    {"txtTopPix", 1, 2, "Row:", "Image row of the upper line, pixels from the top"},
    {"txtLowerLon", 2, 0, "L&ongitude:", "Longitude of the left line: 001.05.40W"},
    {"txtLeftPix", 2, 2, "Column:", "Image column of the left line, pixels from the left"},
    {"txtLowerLat", 4, 0, "La&titude:", "Latitude of the lower line: 50.30.25N"},
    {"txtBottomPix", 4, 2, "Row:", "Image row of the lower line, pixels from the top"},
    {"txtUpperLon", 5, 0, "Long&itude:", "Longitude of the right line: 001.05.40W"},
    {"txtRightPix", 5, 2, "Column:", "Image column of the right line, pixels from the left"},
    {"txtScale", 7, 0, "Scale &1:", "Natural scale of the chart"},
    {"txtWidth", 8, 0, "&Width:", "Width of the image, pixels"},
    {"txtHeight", 8, 2, "Height:", "Height of the image, pixels"},
};

constexpr int kUpperHeading = 0;
constexpr int kLowerHeading = 3;
constexpr int kChartHeading = 6;
constexpr int kButtonColumn = 3;
// One past the last of each.
constexpr int kColumns = 5;
constexpr int kRows = 9;

KeyFilter FilterOf(ChartBox kind) {
  switch (kind) {
    case ChartBox::kLatitude:
      return KeyFilter::kLatitude;
    case ChartBox::kLongitude:
      return KeyFilter::kLongitude;
    case ChartBox::kNumber:
      return KeyFilter::kSignedNumber;
    case ChartBox::kPositive:
      break;
  }
  return KeyFilter::kNumber;
}

}  // namespace

CalibrationPanel::CalibrationPanel(Messages& beeper, QWidget* parent)
    : QWidget(parent), grid_(new QGridLayout(this)) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setHorizontalSpacing(8);
  grid_->setVerticalSpacing(6);
  grid_->setColumnStretch(kColumns, 1);
  grid_->setRowStretch(kRows, 1);
  grid_->addWidget(MakeHeading("Upper left"), kUpperHeading, 0, 1, kButtonColumn);
  grid_->addWidget(MakeHeading("Lower right"), kLowerHeading, 0, 1, kButtonColumn);
  grid_->addWidget(MakeHeading("Chart"), kChartHeading, 0, 1, kButtonColumn);
  for (const Place& place : kPlaces) {
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
      const CalibrationBox& box = kCalibrationBoxes[i];
      if (place.name != box.name) continue;
      // They are made in the order of their places, which Tab follows.
      boxes_[i] = new FilteredEdit(FilterOf(box.kind), beeper, box.name);
      boxes_[i]->SetColumns(10);
      boxes_[i]->setToolTip(place.tip);
      grid_->addWidget(MakeLabel(place.label, boxes_[i]), place.row, place.column);
      grid_->addWidget(boxes_[i], place.row, place.column + 1);
      connect(boxes_[i], &QLineEdit::textChanged, this, &CalibrationPanel::Changed);
    }
  }
}

CalibrationTexts CalibrationPanel::Texts() const {
  CalibrationTexts texts;
  for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = boxes_[i]->Text();
  return texts;
}

void CalibrationPanel::SetTexts(const CalibrationTexts& texts) {
  for (std::size_t i = 0; i < texts.size(); ++i) boxes_[i]->SetText(texts[i]);
}

QWidget* CalibrationPanel::Box(const char* name) const {
  for (FilteredEdit* box : boxes_) {
    if (name != nullptr && box->objectName() == QString::fromUtf8(name)) return box;
  }
  return nullptr;
}

void CalibrationPanel::AddCornerButton(ChartCorner corner, QPushButton* button) {
  const bool upper = corner == ChartCorner::kUpperLeft;
  grid_->addWidget(button, upper ? kUpperHeading : kLowerHeading, kButtonColumn, 1, 2,
                   Qt::AlignLeft);
  setTabOrder(Box(upper ? "txtLeftPix" : "txtRightPix"), button);
}

}  // namespace skerrow
