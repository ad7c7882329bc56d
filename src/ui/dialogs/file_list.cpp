#include "ui/dialogs/file_list.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPainter>
#include <QStyledItemDelegate>

#include "core/text.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kMargin = 6;

// Gives the rows the height and the margin of the other lists.
class FileDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QString text = item.text;
    item.text.clear();
    QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    const bool selected = item.state & QStyle::State_Selected;
    painter->setPen(item.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter->setFont(item.font);
    const QRect room = item.rect.adjusted(kMargin, 0, -kMargin, 0);
    painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      item.fontMetrics.elidedText(text, Qt::ElideMiddle, room.width()));
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {60, option.fontMetrics.height() + 4};
  }
};

}  // namespace

FileList::FileList(QWidget* parent) : QListWidget(parent) {
  setObjectName(QStringLiteral("fillist"));
  setUniformItemSizes(true);
  setItemDelegate(new FileDelegate(this));
}

void FileList::Fill(const std::string& folder, FileKind kind) { Fill(ListFiles(folder, kind)); }

void FileList::Fill(const std::vector<std::string>& names) {
  clear();
  for (const std::string& name : names) addItem(ToQt(name));
}

std::string FileList::Selected() const {
  const QList<QListWidgetItem*> selected = selectedItems();
  return selected.isEmpty() ? std::string() : FromQt(selected.front()->text());
}

void FileList::Select(const std::string& name) {
  clearSelection();
  for (int row = 0; row < count(); ++row) {
    if (FromQt(item(row)->text()) == name) {
      setCurrentRow(row);
      return;
    }
  }
}

std::optional<std::string> ExistingFile(const std::string& folder, FileKind kind,
                                        const std::string& name) {
  std::optional<std::string> found;
  for (const std::string& other : ListFiles(folder, kind)) {
    if (other == name) return name;
    if (ToLowerAscii(other) == ToLowerAscii(name)) found = other;
  }
  return found;
}

QLabel* MakeFolderHint(const QString& text, const std::string& folder) {
  QLabel* hint = MakeHint({});
  const QString path = QDir::toNativeSeparators(ToQt(folder));
  hint->setWordWrap(false);
  hint->setTextFormat(Qt::PlainText);
  const int room = hint->fontMetrics().averageCharWidth() * 46;
  hint->setText(text + QLatin1Char(' ') +
                hint->fontMetrics().elidedText(path, Qt::ElideMiddle, room));
  hint->setToolTip(path);
  return hint;
}

}  // namespace skerrow
