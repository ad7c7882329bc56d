#include "ui/dialogs/departure_chart.h"

#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>

#include "ui/widgets/qt_text.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

// Hours between grid lines so that a handful of them fit.
double GridStep(double top) {
  for (const double step : {0.25, 0.5, 1.0, 2.0, 3.0, 6.0, 12.0, 24.0}) {
    if (top / step <= 6.0) return step;
  }
  return std::ceil(top / 6.0);
}

QString GridText(double hours) {
  return hours == std::floor(hours) ? QStringLiteral("%1 h").arg(hours)
                                    : QStringLiteral("%1 h").arg(hours, 0, 'g', 3);
}

}  // namespace

DepartureChart::DepartureChart(OptimumChart chart, QWidget* parent)
    : QWidget(parent), chart_(std::move(chart)) {
  setObjectName(QStringLiteral("pctResults"));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setContextMenuPolicy(Qt::CustomContextMenu);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName("Passage time by hour of departure");
}

void DepartureChart::Mark(std::size_t index) {
  if (index >= chart_.times().size()) return;
  const bool other = marked_ != index;
  marked_ = index;
  update();
  if (other) emit Marked(index);
}

int DepartureChart::LeftMargin() const {
  return fontMetrics().horizontalAdvance(QStringLiteral("0.25 h")) + 10;
}

void DepartureChart::PaintGrid(QPainter& painter, const QRectF& plot) const {
  const Theme& theme = ThemeInForce();
  const double top = chart_.Top();
  if (!(top > 0.0)) return;
  const double step = GridStep(top);
  for (double hours = 0.0; hours <= top; hours += step) {
    const double y = plot.bottom() - hours / top * plot.height();
    painter.setPen(QPen(theme.border, 1, Qt::DotLine));
    painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
    if (hours == 0.0 || y < plot.top() + 8) continue;
    painter.setPen(theme.dim_text);
    painter.drawText(QRectF(plot.left() - LeftMargin(), y - 10, LeftMargin() - 6, 20),
                     Qt::AlignRight | Qt::AlignVCenter, GridText(hours));
  }
}

void DepartureChart::PaintBars(QPainter& painter, const QRectF& plot) const {
  const Theme& theme = ThemeInForce();
  const double top = chart_.Top();
  if (!(top > 0.0)) return;
  const std::vector<float>& times = chart_.times();
  const double width = plot.width() / static_cast<double>(times.size());
  const auto bar = [&](std::size_t j) {
    const double height = static_cast<double>(times[j]) / top * plot.height();
    return QRectF(plot.left() + static_cast<double>(j) * width, plot.bottom() - height, width,
                  height);
  };
  for (std::size_t j = 0; j < times.size(); ++j) {
    const bool marked = marked_ == j;
    if (std::isfinite(times[j])) {
      painter.fillRect(bar(j), marked ? theme.bar_marked : theme.bar);
    } else {
      // A departure that has been left out: its whole place is hatched.
      const QRectF place(plot.left() + static_cast<double>(j) * width, plot.top(), width,
                         plot.height());
      painter.fillRect(place, QBrush(marked ? theme.bar_marked : theme.border, Qt::BDiagPattern));
    }
  }
  painter.setPen(QPen(theme.bar_outline, 1));
  painter.setBrush(Qt::NoBrush);
  for (std::size_t j = 0; j < times.size(); ++j) {
    if (std::isfinite(times[j])) painter.drawRect(bar(j));
  }
}

void DepartureChart::PaintExtreme(QPainter& painter, const QRectF& plot, std::size_t index,
                                  const std::string& label, const QColor& colour,
                                  bool above) const {
  const double top = chart_.Top();
  if (!(top > 0.0)) return;
  const double y = plot.bottom() - static_cast<double>(chart_.times()[index]) / top * plot.height();
  painter.setPen(QPen(colour, 1.5));
  painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
  const QString text = ToQt(label).trimmed();
  const QFontMetrics metrics = painter.fontMetrics();
  const double width = metrics.horizontalAdvance(text) + 12;
  const double height = metrics.height() + 4;
  const QRectF box(plot.left() + chart_.LabelLeft(index, width, plot.width()),
                   above ? y - height - 3 : y + 3, width, height);
  painter.setBrush(ThemeInForce().plot_back);
  painter.drawRoundedRect(box, 3, 3);
  painter.setPen(colour);
  painter.drawText(box, Qt::AlignCenter, text);
}

void DepartureChart::PaintAll(QPainter& painter, const QRectF& area) const {
  const Theme& theme = ThemeInForce();
  painter.fillRect(area, theme.plot_back);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF plot = area.adjusted(LeftMargin(), 0, 0, 0);
  PaintGrid(painter, plot);
  if (chart_.empty()) return;
  PaintBars(painter, plot);
  const OptimumExtremes extremes = chart_.extremes();
  PaintExtreme(painter, plot, extremes.longest, chart_.LongestLabel(), theme.longest_line, true);
  PaintExtreme(painter, plot, extremes.shortest, chart_.ShortestLabel(), theme.shortest_line,
               false);
}

void DepartureChart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintAll(painter, rect());
  painter.setBrush(Qt::NoBrush);
  painter.setPen(hasFocus() ? ThemeInForce().accent : ThemeInForce().border);
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void DepartureChart::mouseMoveEvent(QMouseEvent* event) {
  if (const auto index =
          chart_.BarAt(event->position().x() - LeftMargin(), width() - LeftMargin())) {
    Mark(*index);
  }
}

void DepartureChart::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && marked_) emit Chosen(*marked_);
}

void DepartureChart::keyPressEvent(QKeyEvent* event) {
  const std::size_t count = chart_.times().size();
  if (count == 0) return QWidget::keyPressEvent(event);
  const std::size_t at = marked_.value_or(0);
  switch (event->key()) {
    case Qt::Key_Left:
      return Mark(at > 0 ? at - 1 : 0);
    case Qt::Key_Right:
      return Mark(marked_ ? std::min(at + 1, count - 1) : 0);
    case Qt::Key_Home:
      return Mark(0);
    case Qt::Key_End:
      return Mark(count - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (marked_) emit Chosen(*marked_);
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

Picture DepartureChart::ToPicture(int width, int height) const {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(ThemeInForce().plot_back);
  const double scale_height = fontMetrics().height() + 12;
  {
    QPainter painter(&image);
    painter.setFont(font());
    PaintAll(painter, QRectF(0, 0, width, height - scale_height));
    HourScale::Paint(painter, *this, QRectF(0, height - scale_height, width, scale_height));
  }
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) *
                                    static_cast<std::size_t>(height));
  for (int y = 0; y < height; ++y) {
    std::memcpy(&pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width)],
                image.constScanLine(y), static_cast<std::size_t>(width) * sizeof(std::uint32_t));
  }
  return PictureFromRgb32(width, height, std::move(pixels));
}

HourScale::HourScale(const DepartureChart& chart, QWidget* parent)
    : QWidget(parent), chart_(chart) {
  setObjectName(QStringLiteral("pctScale"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize HourScale::sizeHint() const { return {200, fontMetrics().height() + 12}; }

void HourScale::Paint(QPainter& painter, const DepartureChart& chart, const QRectF& area) {
  const Theme& theme = ThemeInForce();
  const double left = area.left() + chart.LeftMargin();
  const double width = area.width() - chart.LeftMargin();
  const double unit =
      width / static_cast<double>(std::max<std::size_t>(chart.chart().times().size(), 1));
  for (const OptimumChart::HourLabel& label : chart.chart().HourLabels()) {
    const double x = left + static_cast<double>(label.index) * unit;
    painter.setPen(theme.text);
    painter.drawLine(QPointF(x, area.top()), QPointF(x, area.top() + 5));
    const double text_width = painter.fontMetrics().horizontalAdvance(ToQt(label.text)) + 4;
    // Labels stand under their tick; those at the ends stay inside.
    const double text_left =
        std::min(std::max(area.left(), x - text_width / 2), area.right() - text_width);
    painter.drawText(QRectF(text_left, area.top() + 6, text_width, area.height() - 6),
                     Qt::AlignHCenter | Qt::AlignTop, ToQt(label.text));
  }
}

void HourScale::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  Paint(painter, chart_, rect());
}

}  // namespace skerrow
