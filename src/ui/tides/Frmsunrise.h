#pragma once

#include "ui/forms/sun_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// "Sun and Moon": the place whose month is worked out.
class Frmsunrise : public Dialog {
  Q_OBJECT

 public:
  // `entry` stands in the fields at first; `note` says which month and which clock.
  Frmsunrise(Desktop& desktop, const SunEntry& entry, const QString& note, QWidget* parent);

  // What has been entered, once accepted.
  SunEntry Entry() const;

 private:
  void Accept();

  QLineEdit* name_;
  FilteredEdit* latitude_;
  FilteredEdit* longitude_;
  QLabel* hint_;
};

}  // namespace skerrow
