#include "ui/forms/edit_plot_form.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"
#include "ui/forms/polar_plot.h"

namespace skerrow {
namespace {

constexpr double kAngleSlack = 0.1;  // degrees, from a multiple of 5

Error Refused(std::string words) { return {"", std::move(words)}; }

Error TooFast(double speed) {
  return Refused(ShortText(static_cast<float>(speed)) + " knots is no boat's speed");
}

Error NoRow(int angle) {
  return Refused("This set-up has no row for a wind angle of " + std::to_string(angle) + "\u00b0");
}

PolarRows EmptyTable() {
  PolarRows rows(kPolarAngles);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].fill("0");
    rows[i][0] = std::to_string(AngleOfBox(i));
  }
  return rows;
}

}  // namespace

Result<PolarBoxes> AdjustBoxes(const PolarBoxes& boxes, std::string_view text) {
  const double change = TextToNumber(text);
  PolarBoxes adjusted;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const double value = TextToNumber(boxes[i]) + change;
    if (value < 0.0) return Refused("This produces a negative value - Please study your entries");
    adjusted[i] = FormatFixed(value, 1, 1);
  }
  return adjusted;
}

PolarEditor::PolarEditor(std::unique_ptr<PolarDatabase> database)
    : database_(std::move(database)) {}

Status PolarEditor::Load(std::string_view name) {
  Result<std::vector<std::string>> names = database_->SetUps();
  names_.clear();
  name_.clear();
  rows_.clear();
  if (!names) return names.error();
  names_ = std::move(names.value());
  if (names_.empty()) return Done{};
  const auto found = std::find(names_.begin(), names_.end(), name);
  const std::string wanted = found == names_.end() ? names_.front() : *found;
  Result<PolarRows> rows = database_->Read(wanted);
  if (!rows) return rows.error();
  name_ = wanted;
  rows_ = std::move(rows.value());
  return Done{};
}

std::optional<std::size_t> PolarEditor::RowOf(int angle) const {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i][0] && TextToNumber(*rows_[i][0]) == angle) return i;
  }
  return std::nullopt;
}

Status PolarEditor::Change(const std::string& what, const std::vector<PolarChange>& changes) {
  std::vector<PolarChange> before = changes;
  for (PolarChange& cell : before) cell.text = rows_[cell.row][cell.column].value_or("");
  if (Status changed = database_->Change(name_, changes); !changed) return changed;
  undo_.push_back(
      {what, [name = name_, before](PolarDatabase& base) { return base.Change(name, before); },
       name_});
  return Load(std::string(name_));
}

Result<bool> PolarEditor::ChangeAtAngle(std::optional<int> angle, std::string_view wind,
                                        std::string_view boat_speed) {
  if (name_.empty()) return Refused(kNoSetUp);
  const double speed = TextToNumber(boat_speed);
  if (speed == 0.0) return false;
  if (speed < 0.0 || speed > kFastestBoat) return TooFast(speed);
  if (!angle) return Refused("Click on the polar to choose a wind angle");
  const double knots = TextToNumber(wind);
  const auto option = static_cast<std::size_t>(std::clamp(knots / 2.0 - 1.0, 0.0, 14.0));
  if (knots != WindOfOption(option)) return Refused("Wind speed must be a multiple of 2");
  const std::optional<std::size_t> row = RowOf(*angle);
  if (!row) return NoRow(*angle);
  const Status changed = Change("Change of " + std::to_string(*angle) + "\u00b0 at " +
                                    std::to_string(WindOfOption(option)) + "kn",
                                {{*row, ColumnOfOption(option), Trim(boat_speed)}});
  if (!changed) return changed.error();
  return true;
}

Status PolarEditor::ChangeAtWind(std::optional<std::size_t> option, std::string_view angle,
                                 std::string_view boat_speed) {
  if (name_.empty()) return Refused(kNoSetUp);
  if (!option) return Refused("No wind speed selected");
  if (Trim(angle).empty()) return Refused("Check Wind Angle");
  const double degrees = TextToNumber(angle);
  const double multiple = std::round(degrees / kPolarAngleStep) * kPolarAngleStep;
  if (std::abs(degrees - multiple) > kAngleSlack) {
    return Refused("Wind angle must be an exact multiple of 5 - Entry not accepted");
  }
  if (degrees < 0.0 || degrees > 180.0) return Refused("Check Wind Angle Entry");
  const double speed = TextToNumber(boat_speed);
  if (speed == 0.0) {
    return Refused("Boat Speed of 0kn Detected ! - Entry must be greater than 0kn");
  }
  if (speed < 0.0 || speed > kFastestBoat) return TooFast(speed);
  const int whole = static_cast<int>(multiple);
  const std::optional<std::size_t> row = RowOf(whole);
  if (!row) return NoRow(whole);
  return Change("Change of " + std::to_string(whole) + "\u00b0 at " +
                    std::to_string(WindOfOption(*option)) + "kn",
                {{*row, ColumnOfOption(*option), Trim(boat_speed)}});
}

PolarBoxes PolarEditor::Boxes(std::size_t option) const {
  PolarBoxes boxes;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    if (const auto row = RowOf(AngleOfBox(i))) {
      boxes[i] = Trim(rows_[*row][ColumnOfOption(option)].value_or(""));
    }
  }
  return boxes;
}

Status PolarEditor::AcceptBoxes(std::optional<std::size_t> option, const PolarBoxes& boxes) {
  if (name_.empty()) return Refused(kNoSetUp);
  if (!option) return Refused("No wind speed selected");
  std::vector<PolarChange> changes;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const std::string text = Trim(boxes[i]);
    if (text.empty()) return Refused("Empty Data field");
    const double speed = TextToNumber(text);
    if (speed == 0.0) return Refused("Invalid Data (Zero Entry)");
    if (speed < 0.0 || speed > kFastestBoat) return TooFast(speed);
    const std::optional<std::size_t> row = RowOf(AngleOfBox(i));
    if (!row) return NoRow(AngleOfBox(i));
    changes.push_back({*row, ColumnOfOption(*option), text});
  }
  return Change("Change of " + std::to_string(WindOfOption(*option)) + "kn", changes);
}

Status PolarEditor::Create(std::string_view name) { return Add(name, EmptyTable()); }

Status PolarEditor::Copy(std::string_view name) {
  if (name_.empty()) return Refused(kNoSetUp);
  return Add(name, rows_);
}

Status PolarEditor::Add(std::string_view name, const PolarRows& rows) {
  const std::string added = Trim(name);
  if (Status made = database_->Create(added, rows); !made) return made;
  undo_.push_back(
      {"New Set-up " + added, [added](PolarDatabase& base) { return base.Delete(added); }, name_});
  return Load(added);
}

Status PolarEditor::Imported(const std::vector<std::string>& names) {
  if (names.empty()) return Done{};
  undo_.push_back(
      {"Import of " + std::to_string(names.size()) + (names.size() == 1 ? " Set-up" : " Set-ups"),
       [names](PolarDatabase& base) -> Status {
         for (const std::string& name : names) {
           if (Status deleted = base.Delete(name); !deleted) return deleted;
         }
         return Done{};
       },
       name_});
  return Load(names.front());
}

Status PolarEditor::Rename(std::string_view name) {
  if (name_.empty()) return Refused(kNoSetUp);
  const std::string now = Trim(name);
  if (Status renamed = database_->Rename(name_, now); !renamed) return renamed;
  undo_.push_back({"Rename of " + name_,
                   [before = name_, now](PolarDatabase& base) { return base.Rename(now, before); },
                   name_});
  return Load(now);
}

Status PolarEditor::Delete() {
  if (name_.empty()) return Refused(kNoSetUp);
  if (Status deleted = database_->Delete(name_); !deleted) return deleted;
  undo_.push_back(
      {"Delete of " + name_,
       [name = name_, rows = rows_](PolarDatabase& base) { return base.Create(name, rows); },
       name_});
  return Load("");
}

Status PolarEditor::Undo() {
  if (undo_.empty()) return Done{};
  if (Status undone = undo_.back().back(*database_); !undone) return undone;
  const std::string name = undo_.back().name;
  undo_.pop_back();
  return Load(name);
}

}  // namespace skerrow
