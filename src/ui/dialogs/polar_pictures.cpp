#include "ui/dialogs/polar_pictures.h"

#include <QPainter>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/widgets/dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr std::int32_t kCursorColour = 0x404040;
constexpr QSize kSwatch(22, 12);
constexpr int kPictureScale = 3;
constexpr QSize kPolarPage(520, 900);
constexpr QSize kGraphPage(900, 420);

// The stroke of a curve beside its option.
QIcon Swatch(const WindOption& option, const Look& look, double ratio) {
  QPixmap pixmap((QSizeF(kSwatch) * ratio).toSize());
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  const auto colour = [&look](std::int32_t record) {
    const auto shown = static_cast<std::uint32_t>(ShownColour(record, look));
    return QColor(static_cast<int>(shown & 0xFFU), static_cast<int>(shown >> 8U & 0xFFU),
                  static_cast<int>(shown >> 16U & 0xFFU));
  };
  const QRectF stroke(1.0, kSwatch.height() / 2.0 - 2.0, kSwatch.width() - 2.0, 4.0);
  painter.fillRect(stroke, colour(option.cased ? plot_colours::kGrey : option.colour));
  if (option.cased) painter.fillRect(stroke.adjusted(1, 1, -1, -1), colour(option.colour));
  return pixmap;
}

}  // namespace

PolarPictures::PolarPictures(const Desktop& desktop, QObject* parent)
    : QObject(parent),
      desktop_(desktop),
      polar_(new PolarWidget("Picture1")),
      graph_(new PlotWidget("Picture2")),
      options_(new QWidget),
      group_(new QButtonGroup(this)),
      cursor_label_(Named<QLabel>("lblPolarCursor")),
      angle_label_(Named<QLabel>("lblWindAngle")) {
  polar_->setAccessibleName("Polar of the boat's speeds");
  polar_->setAccessibleDescription("The arrow keys move the readout, Enter picks the wind angle");
  polar_->SetKeyStep(kPolarAngleStep, 0.5);
  graph_->setAccessibleName("Graph of the boat's speed");
  graph_->setAccessibleDescription("The arrow keys move the readout");
  auto* column = new QVBoxLayout(options_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  for (std::size_t i = 0; i < kWindOptions.size(); ++i) {
    const std::string name = "optWindPlot" + std::to_string(i + 1);
    auto* button = Named<QRadioButton>(name.c_str(), QString::fromUtf8(kWindOptions[i].caption));
    button->setIconSize(kSwatch);
    button->setFocusPolicy(Qt::ClickFocus);
    group_->addButton(button, static_cast<int>(i));
    column->addWidget(button);
  }
  column->addStretch(1);
  for (QLabel* label : {cursor_label_, angle_label_}) label->setTextFormat(Qt::PlainText);
  connect(group_, &QButtonGroup::idToggled, this, [this](int id, bool on) {
    // Tab goes to the one that is chosen, the arrow keys to the others.
    group_->button(id)->setFocusPolicy(on ? Qt::StrongFocus : Qt::ClickFocus);
    if (!on) return;
    ShowPictures();
    emit OptionChanged(static_cast<std::size_t>(id));
  });
  connect(polar_, &PolarWidget::Pointed, this,
          [this](PolarPlace place) { Point(place, std::nullopt); });
  connect(polar_, &PolarWidget::Clicked, this, [this](PolarPlace place) {
    SetAngle(NearestPolarAngle(place.angle));
    emit AnglePicked(angle_);
  });
  connect(graph_, &PlotWidget::Pointed, this, [this](double x) {
    if (shown_ == Graph::kByAngle) return Point({x, 0.0}, option());
    Point({static_cast<double>(angle_), 0.0}, OptionOfWind(x));
  });
  FollowLook();
}

void PolarPictures::SetRows(PolarRows rows, std::optional<PolarEstimate> estimate) {
  rows_ = std::move(rows);
  estimate_ = std::move(estimate);
  polar_->SetCursor(std::nullopt);
  graph_->SetCursors({});
  cursor_label_->clear();
  angle_label_->clear();
  ShowPictures();
}

std::optional<std::size_t> PolarPictures::option() const {
  const int id = group_->checkedId();
  if (id < 0) return std::nullopt;
  return static_cast<std::size_t>(id);
}

void PolarPictures::Select(std::size_t option) {
  group_->button(static_cast<int>(option))->setChecked(true);
}

void PolarPictures::ShowGraph(Graph graph) {
  shown_ = graph;
  ShowPictures();
}

void PolarPictures::SetAngle(int angle) {
  angle_ = angle;
  ShowPictures();
}

void PolarPictures::ShowPictures() {
  polar_->SetDiagram(BoatPolar(rows_, option(), estimate_));
  graph_->SetCursors({});
  if (shown_ == Graph::kByWind) {
    graph_->SetPlot(SpeedByWind(rows_, angle_));
    graph_->SetKeyStep(2.0);
  } else {
    graph_->SetPlot(option() ? SpeedByAngle(rows_, *option()) : Plot());
    graph_->SetKeyStep(kPolarAngleStep);
  }
}

void PolarPictures::Point(PolarPlace place, std::optional<std::size_t> option) {
  const std::optional<PolarReadout> readout = ReadPolar(rows_, place, option);
  if (!readout) return;
  cursor_label_->setText(ToQt(readout->cursor));
  angle_label_->setText(ToQt(readout->angle));
  polar_->SetCursor(PolarCursor{readout->at, kCursorColour});
  PlotCursor line;
  line.colour = kCursorColour;
  line.dot = readout->at.value;
  if (shown_ == Graph::kByWind) {
    line.x = WindOfOption(readout->option);
    if (NearestPolarAngle(place.angle) != angle_) line.dot.reset();
  } else {
    line.x = place.angle;
    if (readout->option != this->option()) line.dot.reset();
  }
  graph_->SetCursors({line});
}

void PolarPictures::FollowLook() {
  const Look look = LookOf(desktop_.view);
  polar_->SetLook(look);
  graph_->SetLook(look);
  for (std::size_t i = 0; i < kWindOptions.size(); ++i) {
    group_->button(static_cast<int>(i))
        ->setIcon(Swatch(kWindOptions[i], look, options_->devicePixelRatioF()));
  }
}

Picture PolarPictures::PolarPage() const {
  const PolarDiagram diagram = BoatPolar(rows_, option(), estimate_);
  return PictureOf(
      [&diagram](DrawingSurface& surface) { DrawPolar(surface, surface.Bounds(), diagram); },
      kPolarPage.width(), kPolarPage.height(), kPictureScale);
}

Picture PolarPictures::GraphPage() const {
  return PlotPicture(graph_->plot(), {}, kGraphPage.width(), kGraphPage.height(), kPictureScale);
}

}  // namespace skerrow
