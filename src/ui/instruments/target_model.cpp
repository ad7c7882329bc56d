#include "ui/instruments/target_model.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "ui/widgets/qt_text.h"
#include "ui/widgets/theme.h"

namespace skerrow {

int TargetModel::RowOf(std::int32_t mmsi) const {
  const auto at = std::find_if(rows_.begin(), rows_.end(),
                               [mmsi](const TargetRow& row) { return row.mmsi == mmsi; });
  return at == rows_.end() ? -1 : static_cast<int>(at - rows_.begin());
}

void TargetModel::SetRows(std::vector<TargetRow> rows) {
  std::unordered_map<std::int32_t, int> places;
  for (const TargetRow& row : rows) places.emplace(row.mmsi, static_cast<int>(places.size()));
  for (int row = static_cast<int>(rows_.size()); row-- > 0;) {
    if (places.contains(rows_[static_cast<std::size_t>(row)].mmsi)) continue;
    beginRemoveRows({}, row, row);
    rows_.erase(rows_.begin() + row);
    endRemoveRows();
  }
  if (rows_.size() < rows.size()) {
    std::unordered_set<std::int32_t> known;
    for (const TargetRow& row : rows_) known.insert(row.mmsi);
    beginInsertRows({}, static_cast<int>(rows_.size()), static_cast<int>(rows.size()) - 1);
    for (const TargetRow& row : rows) {
      if (!known.contains(row.mmsi)) rows_.push_back(row);
    }
    endInsertRows();
  }
  const bool same_order =
      std::equal(rows_.begin(), rows_.end(), rows.begin(),
                 [](const TargetRow& a, const TargetRow& b) { return a.mmsi == b.mmsi; });
  if (!same_order) {
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& place : before) {
      const std::int32_t mmsi = rows_[static_cast<std::size_t>(place.row())].mmsi;
      after << createIndex(places.at(mmsi), place.column());
    }
    rows_ = std::move(rows);
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
    return;
  }
  const std::vector<TargetRow> old = std::exchange(rows_, std::move(rows));
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (rows_[row].cells == old[row].cells && rows_[row].alarm == old[row].alarm) continue;
    emit dataChanged(index(static_cast<int>(row), 0),
                     index(static_cast<int>(row), static_cast<int>(kTargetColumns) - 1));
  }
}

int TargetModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int TargetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(kTargetColumns);
}

QVariant TargetModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (!index.isValid() || row >= rows_.size()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(rows_[row].cells[static_cast<std::size_t>(index.column())]);
    case Qt::ForegroundRole:
      return rows_[row].alarm ? QVariant(ThemeInForce().warning) : QVariant();
    case Qt::ToolTipRole:
      return rows_[row].alarm ? QVariant(QStringLiteral("Comes under the CPA alarm range"))
                              : QVariant();
    default:
      return {};
  }
}

QVariant TargetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  if (role == Qt::DisplayRole) return ToQt(TargetHeadings()[static_cast<std::size_t>(section)]);
  if (role == Qt::TextAlignmentRole) return int{Qt::AlignLeft | Qt::AlignVCenter};
  return {};
}

}  // namespace skerrow
