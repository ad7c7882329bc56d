#include "ui/widgets/text_list.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kMargin = 6;
constexpr int kColumnGap = 18;

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
    const bool selected = row.state & QStyle::State_Selected;
    painter->setPen(row.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter->setFont(row.font);
    const QStringList parts = ColumnsIn(text);
    const std::vector<int>& edges = list_->ColumnsOf(static_cast<std::size_t>(parts.size() - 1));
    for (qsizetype i = 0; i < parts.size(); ++i) {
      const int left = row.rect.left() + kMargin + edges[static_cast<std::size_t>(i)];
      painter->drawText(QRect(left, row.rect.top(), 4000, row.rect.height()),
                        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, parts[i]);
    }
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QStringList parts = ColumnsIn(index.data().toString());
    const std::vector<int>& edges = list_->ColumnsOf(static_cast<std::size_t>(parts.size() - 1));
    const int width = edges.back() + option.fontMetrics.horizontalAdvance(parts.back());
    return {width + 2 * kMargin, option.fontMetrics.height() + 4};
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

int SelectedRow(const QListWidget& list) {
  const QList<QListWidgetItem*> selected = list.selectedItems();
  return selected.isEmpty() ? -1 : list.row(selected.front());
}

TextList::TextList(Clipboard& clipboard, const char* name, QWidget* parent)
    : QListWidget(parent), clipboard_(clipboard) {
  setObjectName(QString::fromUtf8(name));
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setItemDelegate(new ColumnDelegate(this, this));
  MeasureColumns();
}

void TextList::SetLines(const std::vector<std::string>& lines) {
  lines_ = lines;
  MeasureColumns();
  clear();
  for (const std::string& line : lines) addItem(ToQt(line));
}

void TextList::MeasureColumns() {
  std::vector<std::vector<int>> widths(1);
  for (const std::string& line : lines_) {
    const QStringList parts = ColumnsIn(ToQt(line));
    const auto tabs = static_cast<std::size_t>(parts.size() - 1);
    if (widths.size() <= tabs) widths.resize(tabs + 1);
    widths[tabs].resize(tabs, 0);
    for (std::size_t i = 0; i < tabs; ++i) {
      const QString& part = parts[static_cast<qsizetype>(i)];
      widths[tabs][i] = std::max(widths[tabs][i], fontMetrics().horizontalAdvance(part));
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
