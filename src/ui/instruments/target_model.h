#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "ui/forms/ais_forms.h"

namespace skerrow {

// The rows of the list of targets for a view. A row stays the row of its vessel: what is selected
// follows the vessel when others come and go or the order changes.
class TargetModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  // Shows these rows; what has not changed is not touched.
  void SetRows(std::vector<TargetRow> rows);
  const std::vector<TargetRow>& rows() const { return rows_; }
  // The row of a vessel, -1 when there is none.
  int RowOf(std::int32_t mmsi) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<TargetRow> rows_;
};

}  // namespace skerrow
