#pragma once

#include <QListWidget>
#include <optional>
#include <vector>

#include "ui/forms/waypoint_forms.h"

namespace skerrow {

// A list of waypoints. The texts of its rows are those of the dialogs, "Lizard,49.56.40N :
// 005.12.36W"; on screen the positions stand below each other.
class WaypointList : public QListWidget {
  Q_OBJECT

 public:
  // `text_of` makes a row's text: PickListText or WaypointEditText.
  WaypointList(const char* name, std::string (*text_of)(const WaypointRow&),
               QWidget* parent = nullptr);

  void SetRows(std::vector<WaypointRow> rows);
  const std::vector<WaypointRow>& rows() const { return rows_; }
  void Append(const WaypointRow& row);
  void RemoveAt(std::size_t index);

  // The selected row, from 0; the first of several.
  std::optional<std::size_t> SelectedIndex() const;
  std::optional<WaypointRow> SelectedRow() const;
  void SelectIndex(std::size_t index);
  // The texts of all rows, or of the selected ones.
  std::vector<std::string> Texts(bool selected_only) const;

  // Room that the widest name takes, pixels.
  int NameWidth() const { return name_width_; }

  QSize sizeHint() const override { return {330, 260}; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Measure();

  std::string (*text_of_)(const WaypointRow&);
  std::vector<WaypointRow> rows_;
  int name_width_ = 0;
};

}  // namespace skerrow
