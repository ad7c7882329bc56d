#include "ui/widgets/text_list.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "ui/widgets/qt_text.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

constexpr int kMargin = 6;
constexpr int kColumnGap = 18;
constexpr int kRoomAbove = 9;
constexpr int kNumberGap = 10;

// The columns of a row. Tabs in a run count as one: some rows pad short names with a second.
QStringList ColumnsIn(QString text) {
  while (text.contains(QLatin1String("\t\t"))) text.replace("\t\t", "\t");
  return text.split(QLatin1Char('\t'));
}

// Paints a row's columns at the list's tab stops.
class ColumnDelegate final : public QStyledItemDelegate {
 public:
  explicit ColumnDelegate(const TextList* list, QObject* parent)
      : QStyledItemDelegate(parent), list_(list) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QString text = row.text;
    row.text.clear();
    QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, list_);
    const RowLook look = list_->LookOf(index.row());
    const bool selected = row.state & QStyle::State_Selected;
    QColor ink = row.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    if (!selected && look.dim) ink = ThemeInForce().dim_text;
    if (!selected && look.warning) ink = ThemeInForce().warning;
    QFont font = row.font;
    font.setBold(look.bold);
    painter->setFont(font);
    QRect room = row.rect.adjusted(kMargin, look.room_above ? kRoomAbove : 0, 0, 0);
    if (look.number > 0) {
      painter->setPen(selected ? ink : ThemeInForce().accent);
      painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter, QString::number(look.number));
    }
    painter->setPen(ink);
    const QStringList parts = ColumnsIn(text);
    const std::vector<int>& edges = list_->ColumnsOf(static_cast<std::size_t>(parts.size() - 1));
    for (qsizetype i = 0; i < parts.size(); ++i) {
      const int left = room.left() + list_->margin() + edges[static_cast<std::size_t>(i)];
      painter->drawText(QRect(left, room.top(), 4000, room.height()),
                        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, parts[i]);
    }
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QStringList parts = ColumnsIn(index.data().toString());
    const std::vector<int>& edges = list_->ColumnsOf(static_cast<std::size_t>(parts.size() - 1));
    const int width = edges.back() + option.fontMetrics.horizontalAdvance(parts.back());
    const int above = list_->LookOf(index.row()).room_above ? kRoomAbove : 0;
    return {width + list_->margin() + 2 * kMargin, option.fontMetrics.height() + 4 + above};
  }

 private:
  const TextList* list_;
};

}  // namespace

std::string JoinLines(const std::vector<std::string>& lines) {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) text += '\n';
    text += lines[i];
  }
  return text;
}

TextList::TextList(Clipboard& clipboard, const char* name, QWidget* parent)
    : QListWidget(parent), clipboard_(clipboard) {
  setObjectName(QString::fromUtf8(name));
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setItemDelegate(new ColumnDelegate(this, this));
  MeasureColumns();
}

void TextList::SetLines(const std::vector<std::string>& lines, std::vector<RowLook> looks) {
  clear();  // before the columns of the rows that go
  lines_ = lines;
  looks_ = std::move(looks);
  MeasureColumns();
  for (const std::string& line : lines) addItem(ToQt(line));
}

void TextList::UpdateLines(const std::vector<std::string>& lines, std::vector<RowLook> looks) {
  if (lines == lines_ && looks == looks_) return;
  const int top = verticalScrollBar()->value();
  if (lines.size() != lines_.size()) {
    const int row = currentRow();
    SetLines(lines, std::move(looks));
    setCurrentRow(std::min(row, count() - 1));
  } else {
    const std::vector<std::vector<int>> before = columns_;
    const std::vector<std::string> old = std::exchange(lines_, lines);
    looks_ = std::move(looks);
    MeasureColumns();
    for (int row = 0; row < count(); ++row) {
      const auto index = static_cast<std::size_t>(row);
      if (lines[index] != old[index]) item(row)->setText(ToQt(lines[index]));
    }
    if (columns_ != before) scheduleDelayedItemsLayout();
    viewport()->update();
  }
  verticalScrollBar()->setValue(top);
}

RowLook TextList::LookOf(int row) const {
  const auto index = static_cast<std::size_t>(row);
  return index < looks_.size() ? looks_[index] : RowLook{};
}

QFontMetrics TextList::MetricsOf(int row) const {
  QFont row_font = font();
  row_font.setBold(LookOf(row).bold);
  return QFontMetrics(row_font, this);
}

void TextList::MeasureColumns() {
  margin_ = 0;
  std::vector<std::vector<int>> widths(1);
  for (std::size_t row = 0; row < lines_.size(); ++row) {
    const QFontMetrics metrics = MetricsOf(static_cast<int>(row));
    if (const int number = LookOf(static_cast<int>(row)).number; number > 0) {
      margin_ = std::max(margin_, metrics.horizontalAdvance(QString::number(number)) + kNumberGap);
    }
    const QStringList parts = ColumnsIn(ToQt(lines_[row]));
    const auto tabs = static_cast<std::size_t>(parts.size() - 1);
    if (widths.size() <= tabs) widths.resize(tabs + 1);
    widths[tabs].resize(tabs, 0);
    for (std::size_t i = 0; i < tabs; ++i) {
      const QString& part = parts[static_cast<qsizetype>(i)];
      widths[tabs][i] = std::max(widths[tabs][i], metrics.horizontalAdvance(part));
    }
  }
  columns_.clear();
  for (const std::vector<int>& group : widths) {
    std::vector<int> edges = {0};
    for (const int width : group) edges.push_back(edges.back() + width + kColumnGap);
    columns_.push_back(std::move(edges));
  }
}

const std::vector<int>& TextList::ColumnsOf(std::size_t tabs) const { return columns_.at(tabs); }

std::vector<std::string> TextList::SelectedLines() const {
  std::vector<std::string> selected;
  for (int row = 0; row < count(); ++row) {
    if (item(row)->isSelected()) selected.push_back(FromQt(item(row)->text()));
  }
  return selected;
}

bool TextList::CopyAll() {
  if (count() == 0) return false;
  clipboard_.SetText(JoinLines(lines_));
  return true;
}

bool TextList::CopySelected() {
  const std::vector<std::string> selected = SelectedLines();
  if (selected.empty()) return false;
  clipboard_.SetText(JoinLines(selected));
  return true;
}

void TextList::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    CopySelected();
    event->accept();
    return;
  }
  QListWidget::keyPressEvent(event);
}

void TextList::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) {
    MeasureColumns();
    scheduleDelayedItemsLayout();
  }
  QListWidget::changeEvent(event);
}

}  // namespace skerrow
