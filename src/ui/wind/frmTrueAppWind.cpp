#include "ui/wind/frmTrueAppWind.h"

#include <QButtonGroup>
#include <QEvent>
#include <QGridLayout>
#include <QPainter>

#include "ui/drawing/qt_surface.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

WindTriangleView::WindTriangleView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("Picture1"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void WindTriangleView::SetWinds(const std::optional<WindTriangle>& winds) {
  winds_ = winds;
  update();
}

void WindTriangleView::SetLook(Look look) {
  look_ = look;
  update();
}

void WindTriangleView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QtSurface surface(painter, size(), look_, &texts_);
  DrawWindTriangle(surface, winds_);
}

frmTrueAppWind::frmTrueAppWind(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmTrueAppWind", "True and Apparent Wind", parent),
      form_(desktop.program),
      starboard_(Named<QRadioButton>("optStarboard", "St&arboard")),
      port_(Named<QRadioButton>("optPort", "&Port")),
      true_force_(Named<QLabel>("lblTrueForce")),
      apparent_force_(Named<QLabel>("lblAppForce")),
      trouble_(Named<QLabel>("lblTrouble")) {
  constexpr std::array<const char*, kWindBoxes> kNames = {
      "txtBoatSpeed", "txtCourse",   "txtTrueSpeed", "txtTrueDir",
      "txtTrueAngle", "txtAppSpeed", "txtAppDir",    "txtAppAngle"};
  for (std::size_t i = 0; i < kWindBoxes; ++i) {
    boxes_[i] = new FilteredEdit(KeyFilter::kNumber, desktop.messages, kNames[i]);
    boxes_[i]->SetColumns(6);
    connect(boxes_[i], &QLineEdit::textEdited, this, [this, i] {
      form_.Edit(static_cast<WindBox>(i), boxes_[i]->Text());
      ShowForm();
    });
  }
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  auto* left = MakeColumn();
  left->setSpacing(10);
  left->addWidget(MakeBoat());
  auto* winds = new QHBoxLayout;
  winds->setSpacing(10);
  winds->addWidget(MakeWind("True wind", WindBox::kTrueSpeed,
                            {"&Speed:", "&From:", "A&ngle off the bow:"}, true_force_));
  winds->addWidget(MakeWind("Apparent wind", WindBox::kApparentSpeed,
                            {"Sp&eed:", "F&rom:", "An&gle off the bow:"}, apparent_force_));
  left->addLayout(winds);
  trouble_->setWordWrap(true);
  trouble_->setProperty("heading", true);
  left->addWidget(trouble_);
  left->addWidget(MakeHint(
      "Type into either wind, and the other follows. With speed and course over the ground the "
      "true wind is that over the ground; with speed and heading through the water it is that over "
      "the water, which a tide carries along."));
  left->addStretch(1);
  columns->addLayout(left);
  picture_ = new WindTriangleView;
  picture_->setAccessibleName("The winds on the boat, which sails up the picture");
  picture_->setToolTip(
      "The boat sails up the picture. The true wind and the wind that she makes by her own speed "
      "add up to the apparent wind.");
  columns->addWidget(picture_, 1);
  body()->addLayout(columns, 1);
  QPushButton* close = AddButton("cmdCancel", "Close");
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  for (QRadioButton* side : {starboard_, port_}) {
    connect(side, &QRadioButton::clicked, this, [this] {
      form_.SetStarboard(starboard_->isChecked());
      ShowForm();
    });
  }
  FollowLook();
  ShowForm();
  Box(WindBox::kBoatSpeed)->setFocus();
  Box(WindBox::kBoatSpeed)->selectAll();
  resize(860, 420);
}

QGroupBox* frmTrueAppWind::MakeBoat() {
  auto* boat = new QGroupBox("Boat");
  auto* rows = new QGridLayout(boat);
  FilteredEdit* speed = Box(WindBox::kBoatSpeed);
  FilteredEdit* course = Box(WindBox::kCourse);
  speed->setToolTip("The boat's speed, knots");
  course->setToolTip("The boat's course, degrees true");
  rows->addWidget(MakeLabel("&Boat speed:", speed), 0, 0);
  rows->addLayout(MakeRow({speed, new QLabel("kn")}), 0, 1);
  rows->addWidget(MakeLabel("&Course:", course), 1, 0);
  rows->addLayout(MakeRow({course, new QLabel(QStringLiteral("\u00b0T"))}), 1, 1);
  auto* sides = new QButtonGroup(this);
  sides->addButton(starboard_);
  sides->addButton(port_);
  rows->addWidget(new QLabel("Wind over the side:"), 2, 0);
  rows->addLayout(MakeRow({starboard_, port_}), 2, 1);
  rows->setColumnStretch(1, 1);
  return boat;
}

QGroupBox* frmTrueAppWind::MakeWind(const QString& title, WindBox speed,
                                    const std::array<const char*, 3>& labels, QLabel* force) {
  auto* wind = new QGroupBox(title);
  auto* rows = new QGridLayout(wind);
  constexpr std::array<const char*, 3> kUnits = {"kn", "\u00b0T", "\u00b0"};
  constexpr std::array<const char*, 3> kTips = {
      "Knots", "The direction that the wind blows from, degrees true",
      "0 is dead ahead, 180 dead astern"};
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const auto row = static_cast<int>(i);
    FilteredEdit* box = boxes_[static_cast<std::size_t>(speed) + i];
    box->setToolTip(QString::fromUtf8(kTips[i]));
    rows->addWidget(MakeLabel(QString::fromUtf8(labels[i]), box), row, 0);
    rows->addLayout(MakeRow({box, new QLabel(QString::fromUtf8(kUnits[i]))}), row, 1);
  }
  force->setProperty("heading", true);
  rows->addWidget(force, 3, 1);
  rows->setColumnStretch(1, 1);
  return wind;
}

void frmTrueAppWind::ShowForm() {
  for (std::size_t i = 0; i < kWindBoxes; ++i) {
    const std::string& text = form_.TextOf(static_cast<WindBox>(i));
    if (boxes_[i]->Text() != text) boxes_[i]->SetText(text);
  }
  (form_.starboard() ? starboard_ : port_)->setChecked(true);
  true_force_->setText(ToQt(form_.TrueForce()));
  apparent_force_->setText(ToQt(form_.ApparentForce()));
  trouble_->setText(ToQt(form_.trouble()));
  picture_->SetWinds(form_.Triangle());
}

void frmTrueAppWind::FollowLook() {
  const ViewState& view = desktop().view;
  picture_->SetLook({view.night, view.night ? view.brightness.level : 100});
}

void frmTrueAppWind::changeEvent(QEvent* event) {
  Dialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && picture_ != nullptr) FollowLook();
}

}  // namespace skerrow
