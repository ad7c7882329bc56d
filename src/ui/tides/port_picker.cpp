#include "ui/tides/port_picker.h"

#include <QKeyEvent>

#include "core/text.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

PortPicker::PortPicker(const char* list_name, QWidget* parent)
    : QWidget(parent),
      find_(Named<QLineEdit>("txtFind")),
      list_(Named<QListWidget>(list_name)),
      note_(MakeHint({})) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  find_->setPlaceholderText("Part of the name");
  find_->setToolTip("Narrows the list down to the ports whose names hold this");
  find_->setClearButtonEnabled(true);
  auto* row = new QHBoxLayout;
  row->addWidget(MakeLabel("&Find:", find_));
  row->addWidget(find_, 1);
  column->addLayout(row);
  column->addWidget(list_, 1);
  column->addWidget(note_);
  note_->setObjectName(QStringLiteral("lblNote"));
  list_->setAccessibleName("Ports");
  find_->installEventFilter(this);
  connect(find_, &QLineEdit::textChanged, this, [this](const QString& text) { Narrow(text); });
  connect(list_, &QListWidget::currentRowChanged, this, [this] { emit Changed(); });
  connect(list_, &QListWidget::itemDoubleClicked, this, [this] { emit Taken(); });
  setFocusProxy(find_);
}

void PortPicker::SetPorts(PortList ports, int position) {
  ports_ = std::move(ports);
  list_->clear();
  for (const PortRow& row : ports_.rows) {
    auto* item = new QListWidgetItem(ToQt(Trim(row.port.name)) +
                                     QStringLiteral("   (%1)").arg(row.position));
    item->setData(Qt::UserRole, row.position);
    list_->addItem(item);
    if (row.position == position) list_->setCurrentItem(item);
  }
  const std::string note = ports_.rows.empty() ? "This file holds no ports." : ports_.left_out;
  note_->setText(ToQt(note));
  note_->setVisible(!note.empty());
  if (list_->currentItem() != nullptr) {
    list_->scrollToItem(list_->currentItem(), QAbstractItemView::PositionAtCenter);
  }
}

int PortPicker::Position() const {
  const QListWidgetItem* item = list_->currentItem();
  return item == nullptr || item->isHidden() ? 0 : item->data(Qt::UserRole).toInt();
}

const Port* PortPicker::Chosen() const {
  const int position = Position();
  for (const PortRow& row : ports_.rows) {
    if (row.position == position) return &row.port;
  }
  return nullptr;
}

void PortPicker::Narrow(const QString& text) {
  QListWidgetItem* first = nullptr;
  for (int row = 0; row < list_->count(); ++row) {
    QListWidgetItem* item = list_->item(row);
    const QString name = item->text().left(item->text().lastIndexOf(QLatin1String("   (")));
    item->setHidden(!name.contains(text.trimmed(), Qt::CaseInsensitive));
    if (!item->isHidden() && first == nullptr) first = item;
  }
  // What is hidden cannot be what is meant.
  const QListWidgetItem* current = list_->currentItem();
  if (current == nullptr || current->isHidden()) list_->setCurrentItem(first);
  if (list_->currentItem() != nullptr) list_->scrollToItem(list_->currentItem());
}

bool PortPicker::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    // Up and down in the box go through the list.
    auto* key = static_cast<QKeyEvent*>(event);
    const int step = key->key() == Qt::Key_Down ? 1 : key->key() == Qt::Key_Up ? -1 : 0;
    if (step != 0) {
      for (int row = list_->currentRow() + step; row >= 0 && row < list_->count(); row += step) {
        if (list_->item(row)->isHidden()) continue;
        list_->setCurrentRow(row);
        break;
      }
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace skerrow
