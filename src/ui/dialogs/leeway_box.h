#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>
#include <string>

#include "core/messages.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// Whether to allow for leeway, its angle and the side of the wind, which wait for that.
class LeewayBox : public QGroupBox {
 public:
  explicit LeewayBox(Messages& messages);

  void Set(bool in_use, const std::string& angle);
  // Puts what is entered into a form's entry.
  template <typename Entry>
  void Put(Entry& entry) const {
    entry.use_leeway = in_use_->isChecked();
    entry.wind_port = port_->isChecked();
    entry.wind_starboard = starboard_->isChecked();
    entry.leeway = angle_->Text();
  }
  void AddHint(const QString& text);
  FilteredEdit* angle() const { return angle_; }

 private:
  QVBoxLayout* rows_;
  QCheckBox* in_use_;
  FilteredEdit* angle_;
  QRadioButton* port_;
  QRadioButton* starboard_;
};

}  // namespace skerrow
