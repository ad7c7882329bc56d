#include "ui/routes/waypoint_list.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>
#include <algorithm>

#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kMargin = 6;
constexpr int kGap = 16;

QString NamePart(const WaypointRow& row) { return ToQt(row.name) + QLatin1Char(','); }
QString PositionPart(const WaypointRow& row) {
  return ToQt(row.latitude_text + " : " + row.longitude_text);
}

// Paints the name with its comma, and the position at the list's second column.
class WaypointDelegate final : public QStyledItemDelegate {
 public:
  explicit WaypointDelegate(const WaypointList* list, QObject* parent)
      : QStyledItemDelegate(parent), list_(list) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    item.text.clear();
    QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, list_);
    const auto number = static_cast<std::size_t>(index.row());
    if (number >= list_->rows().size()) return;
    const WaypointRow& row = list_->rows()[number];
    const bool selected = item.state & QStyle::State_Selected;
    painter->setPen(item.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter->setFont(item.font);
    const QRect left = item.rect.adjusted(kMargin, 0, 0, 0);
    constexpr int kFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;
    painter->drawText(left, kFlags, NamePart(row));
    painter->drawText(left.adjusted(list_->NameWidth() + kGap, 0, 0, 0), kFlags, PositionPart(row));
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const auto number = static_cast<std::size_t>(index.row());
    if (number >= list_->rows().size()) return QStyledItemDelegate::sizeHint(option, index);
    const int position = option.fontMetrics.horizontalAdvance(PositionPart(list_->rows()[number]));
    return {list_->NameWidth() + kGap + position + 2 * kMargin, option.fontMetrics.height() + 4};
  }

 private:
  const WaypointList* list_;
};

}  // namespace

WaypointList::WaypointList(const char* name, std::string (*text_of)(const WaypointRow&),
                           QWidget* parent)
    : QListWidget(parent), text_of_(text_of) {
  setObjectName(QString::fromUtf8(name));
  setItemDelegate(new WaypointDelegate(this, this));
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  // A name of usual length, a position and the scroll bar.
  setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("Dartmouth Approaches,")) +
                  fontMetrics().horizontalAdvance(QStringLiteral("50.30.25N : 001.05.40W")) + kGap +
                  4 * kMargin + style()->pixelMetric(QStyle::PM_ScrollBarExtent));
}

void WaypointList::SetRows(std::vector<WaypointRow> rows) {
  clear();
  rows_ = std::move(rows);
  Measure();
  for (const WaypointRow& row : rows_) addItem(ToQt(text_of_(row)));
}

void WaypointList::Append(const WaypointRow& row) {
  rows_.push_back(row);
  Measure();
  addItem(ToQt(text_of_(row)));
  scheduleDelayedItemsLayout();
  scrollToBottom();
}

void WaypointList::RemoveAt(std::size_t index) {
  if (index >= rows_.size()) return;
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
  delete takeItem(static_cast<int>(index));
  Measure();
  scheduleDelayedItemsLayout();
}

std::optional<std::size_t> WaypointList::SelectedIndex() const {
  for (int i = 0; i < count(); ++i) {
    if (item(i)->isSelected()) return static_cast<std::size_t>(i);
  }
  return std::nullopt;
}

std::optional<WaypointRow> WaypointList::SelectedRow() const {
  const std::optional<std::size_t> index = SelectedIndex();
  if (!index) return std::nullopt;
  return rows_[*index];
}

void WaypointList::SelectIndex(std::size_t index) {
  clearSelection();
  if (index < rows_.size()) setCurrentRow(static_cast<int>(index));
}

std::vector<std::string> WaypointList::Texts(bool selected_only) const {
  std::vector<std::string> texts;
  for (int i = 0; i < count(); ++i) {
    if (!selected_only || item(i)->isSelected()) texts.push_back(FromQt(item(i)->text()));
  }
  return texts;
}

void WaypointList::Measure() {
  name_width_ = 0;
  for (const WaypointRow& row : rows_) {
    name_width_ = std::max(name_width_, fontMetrics().horizontalAdvance(NamePart(row)));
  }
}

void WaypointList::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) {
    Measure();
    scheduleDelayedItemsLayout();
  }
  QListWidget::changeEvent(event);
}

}  // namespace skerrow
