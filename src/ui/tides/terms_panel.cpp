#include "ui/tides/terms_panel.h"

#include <QGridLayout>
#include <QIcon>
#include <QPainter>

#include "core/numbers.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

struct TermNames {
  const char* box;
  const char* constants;
  const char* height;
};
constexpr TermNames kNames[kTideTerms] = {
    {"chkM2", "lblm2Harm", "lblHtM2"}, {"chkS2", "lbls2Harm", "lblHtS2"},
    {"chkK1", "lblk1Harm", "lblHtK1"}, {"chkO1", "lblo1Harm", "lblHtO1"},
    {"chkf4", "lblf4Harm", "lblHtf4"}, {"chkf6", "lblf6Harm", "lblHtf6"},
    {"chkZ0", "lblz0Harm", "lblHtZ0"}};

QString Constants(float phase, float size, const char* unit, int decimals) {
  return ToQt("g " + FormatFixed(phase, 1, 1) + "°\nH " + FormatFixed(size, 1, decimals) + unit);
}

// The line or the dots of a term as a small picture.
QIcon SampleOf(const TideTermLook& term, const Look& look, double ratio) {
  const QSize size(22, 12);
  QPixmap picture(size * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const std::int32_t shown = ShownColour(term.colour, look);
  const QColor colour(shown & 0xff, (shown >> 8) & 0xff, (shown >> 16) & 0xff);
  painter.setPen(QPen(colour, 3, Qt::SolidLine, Qt::RoundCap));
  const double y = size.height() / 2.0;
  if (term.dots) {
    for (double x = 3; x < size.width(); x += 5) painter.drawPoint(QPointF(x, y));
  } else {
    painter.drawLine(QPointF(2, y), QPointF(size.width() - 2, y));
  }
  return picture;
}

}  // namespace

TermsPanel::TermsPanel(QWidget* parent) : QWidget(parent), sum_(Named<QLabel>("lblSumHt")) {
  setObjectName(QStringLiteral("pnlTerms"));
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(14);
  grid->setVerticalSpacing(2);
  for (std::size_t term = 0; term < kTideTerms; ++term) {
    const TermNames& names = kNames[term];
    const int column = static_cast<int>(term);
    boxes_[term] = Named<QCheckBox>(names.box, LookOfTerm(term).name);
    boxes_[term]->setChecked(true);
    boxes_[term]->setToolTip(QStringLiteral("Shows or hides %1").arg(LookOfTerm(term).name));
    connect(boxes_[term], &QCheckBox::toggled, this, [this] { emit Switched(); });
    constants_[term] = Named<QLabel>(names.constants);
    constants_[term]->setProperty("hint", true);
    heights_[term] = Named<QLabel>(names.height);
    grid->addWidget(boxes_[term], 0, column);
    grid->addWidget(constants_[term], 1, column);
    grid->addWidget(heights_[term], 2, column);
  }
  auto* head = new QLabel("Sum");
  head->setProperty("heading", true);
  sum_->setProperty("heading", true);
  grid->addWidget(head, 0, static_cast<int>(kTideTerms));
  grid->addWidget(sum_, 2, static_cast<int>(kTideTerms));
  grid->setColumnStretch(static_cast<int>(kTideTerms) + 1, 1);
  SetLook({});
}

void TermsPanel::ShowConstants(const Port& port) {
  constants_[0]->setText(Constants(port.m2_g, port.m2_hm, " m", 2));
  constants_[1]->setText(Constants(port.s2_g, port.s2_hm, " m", 2));
  constants_[2]->setText(Constants(port.k1_g, port.k1_hm, " m", 2));
  constants_[3]->setText(Constants(port.o1_g, port.o1_hm, " m", 2));
  // The corrections are factors, not metres.
  constants_[4]->setText(Constants(port.sf4, port.lf4, "", 3));
  constants_[5]->setText(Constants(port.sf6, port.lf6, "", 3));
  constants_[6]->setText(ToQt("\nH " + FormatFixed(port.z0, 1, 2) + " m"));
}

void TermsPanel::ShowReading(const LayerReading& reading) {
  const float values[kTideTerms] = {reading.m2, reading.s2, reading.k1, reading.o1,
                                    reading.f4, reading.f6, reading.z0};
  for (std::size_t term = 0; term < kTideTerms; ++term) {
    heights_[term]->setText(ToQt(FormatFixed(values[term], 1, 2) + " m"));
  }
  sum_->setText(ToQt(FormatFixed(reading.sum, 1, 2) + " m"));
}

TideTermsShown TermsPanel::Shown() const {
  TideTermsShown shown{};
  for (std::size_t term = 0; term < kTideTerms; ++term) shown[term] = boxes_[term]->isChecked();
  return shown;
}

void TermsPanel::SetLook(const Look& look) {
  for (std::size_t term = 0; term < kTideTerms; ++term) {
    boxes_[term]->setIconSize(QSize(22, 12));
    boxes_[term]->setIcon(SampleOf(LookOfTerm(term), look, devicePixelRatioF()));
  }
}

}  // namespace skerrow
