#pragma once

#include <QGroupBox>
#include <initializer_list>
#include <span>
#include <vector>

#include "ui/forms/settings_table.h"

namespace skerrow {

// The controls of a table of settings. The dialog lays them out by their names.
class SettingControls {
 public:
  // `beeper` sounds for dropped keys; it must outlive the controls.
  SettingControls(std::span<const SettingField> fields, Messages& beeper);

  // A titled box with these controls, each with label and unit, from the top down.
  QGroupBox* MakeBox(const char* title, std::initializer_list<const char*> controls) const;

  // Fills the controls, and reads them. One text for each row of the table.
  void Show(const SettingTexts& texts);
  SettingTexts Texts() const;
  QWidget* control(std::size_t row) const { return controls_[row]; }

 private:
  std::span<const SettingField> fields_;
  std::vector<QWidget*> controls_;
  std::vector<QWidget*> others_;  // the second option of a row; null for other rows
};

}  // namespace skerrow
