#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/polar_database.h"
#include "core/result.h"
#include "wind/polar.h"

// What `frmEditPlot` does to the set-ups of a boat.
namespace skerrow {

// The texts of a column, one for each angle from 30 degrees on.
using PolarBoxes = std::array<std::string, kPolarAngles>;

// The angle of a box, degrees.
constexpr int AngleOfBox(std::size_t box) {
  return kFirstPolarAngle + kPolarAngleStep * static_cast<int>(box);
}

// Adds the number of a text to each box, one decimal. Error: a box would fall below 0, and the
// boxes are to stay as they are.
Result<PolarBoxes> AdjustBoxes(const PolarBoxes& boxes, std::string_view text);

// One set-up of the database in hand, its changes, and the way back. What is refused or fails
// changes nothing; the error says why, in words for the user.
class PolarEditor {
 public:
  explicit PolarEditor(std::unique_ptr<PolarDatabase> database);

  // The file in use.
  std::string Path() const { return database_->Path(); }
  // Reads the names, and takes up `name`, or else the first set-up.
  Status Load(std::string_view name);
  const std::vector<std::string>& names() const { return names_; }
  // The set-up in hand; empty when there is none.
  const std::string& name() const { return name_; }
  const PolarRows& rows() const { return rows_; }

  // "Modify Data for Selected Wind Angle to Boat": the cell of a picked angle and a wind speed.
  // False for a boat speed of 0, which is ignored.
  Result<bool> ChangeAtAngle(std::optional<int> angle, std::string_view wind,
                             std::string_view boat_speed);
  // "Modify Data for Selected True Wind Speed Wind": the cell of an angle in the column of a wind
  // option, from 0.
  Status ChangeAtWind(std::optional<std::size_t> option, std::string_view angle,
                      std::string_view boat_speed);
  // The column of an option in boxes; empty ones for cells that are empty or missing.
  PolarBoxes Boxes(std::size_t option) const;
  // Writes all boxes into the column of an option.
  Status AcceptBoxes(std::optional<std::size_t> option, const PolarBoxes& boxes);

  // Adds a set-up and takes it up: one without boat speeds, a copy of the one in hand, an imported
  // one.
  Status Create(std::string_view name);
  Status Copy(std::string_view name);
  Status Add(std::string_view name, const PolarRows& rows);
  // Takes up the first of set-ups that have been imported into the database by other means; to take
  // the import back deletes them all.
  Status Imported(const std::vector<std::string>& names);
  // Renames or deletes the one in hand.
  Status Rename(std::string_view name);
  Status Delete();

  // What Undo takes back, as "Undo " goes on; empty when there is nothing.
  std::string undo_name() const { return undo_.empty() ? "" : undo_.back().what; }
  // Takes the last change back.
  Status Undo();

 private:
  struct Undoable {
    std::string what;
    std::function<Status(PolarDatabase&)> back;
    std::string name;  // the set-up to take up then
  };

  std::optional<std::size_t> RowOf(int angle) const;
  Status Change(const std::string& what, const std::vector<PolarChange>& changes);

  std::unique_ptr<PolarDatabase> database_;
  std::vector<std::string> names_;
  std::string name_;
  PolarRows rows_;
  std::vector<Undoable> undo_;
};

}  // namespace skerrow
