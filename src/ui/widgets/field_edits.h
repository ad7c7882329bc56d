#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QWidget>
#include <string>
#include <string_view>

#include "core/messages.h"
#include "ui/widgets/key_filters.h"

// The typed fields that several dialogs have in common.
namespace skerrow {

// A text box that takes only the keys of its filter. A paste keeps what passes.
class FilteredEdit : public QLineEdit {
  Q_OBJECT

 public:
  // `beeper` sounds for a dropped key; it must outlive the box. `name` is the object name.
  FilteredEdit(KeyFilter filter, Messages& beeper, const char* name, QWidget* parent = nullptr);

  std::string Text() const;
  void SetText(std::string_view text);
  void SetFilter(KeyFilter filter);
  // Makes the box as wide as so many digits need.
  void SetColumns(int digits);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  KeyFilter filter_;
  Messages& beeper_;
};

// Number boxes: knots, degrees, miles.
FilteredEdit* MakeSpeedEdit(Messages& beeper, const char* name);
FilteredEdit* MakeBearingEdit(Messages& beeper, const char* name);

// Boxes for a position in the program's form, "50.30.25N" and "001.05.40W".
FilteredEdit* MakeLatitudeEdit(Messages& beeper, const char* name);
FilteredEdit* MakeLongitudeEdit(Messages& beeper, const char* name);

// A box for a time "hh:mm" with the lists of hours and minutes that write into it.
class TimeEntry : public QWidget {
  Q_OBJECT

 public:
  TimeEntry(Messages& beeper, const char* text_name, const char* hours_name,
            const char* minutes_name, QWidget* parent = nullptr);

  std::string Text() const { return text_->Text(); }
  // Shows a time text; the lists follow it where it is one.
  void SetText(std::string_view text);
  FilteredEdit* text_box() const { return text_; }

 private:
  void ListsToText();

  FilteredEdit* text_;
  QComboBox* hours_;
  QComboBox* minutes_;
};

}  // namespace skerrow
