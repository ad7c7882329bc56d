#pragma once

#include <QGroupBox>
#include <QPushButton>

#include "ui/forms/route_forms.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// One leg in boxes: names, positions and speed, with the buttons that accept them.
class LegBox : public QGroupBox {
  Q_OBJECT

 public:
  // What the two dialogs that have a leg box call its parts.
  struct Captions {
    const char* from;
    const char* all_legs;
    const char* accept_name;  // published name of the accepting button
    const char* accept;
  };
  LegBox(Messages& beeper, const Captions& captions);

  // Shows leg `leg` (from 1); 0 and empty texts where none is selected.
  void Show(const LegEntry& entry, std::size_t leg);
  LegEntry Entry() const;
  std::string Speed() const { return speed_->Text(); }
  QLineEdit* first_box() const { return start_name_; }
  QList<QLineEdit*> boxes() const;
  // The box that a refusal is about; null for one that is about none.
  QWidget* AtFault(RouteFormRefusal refusal) const;

 signals:
  void Accepted();
  void SpeedForAll();

 private:
  QLineEdit* start_name_;
  FilteredEdit* start_latitude_;
  FilteredEdit* start_longitude_;
  QLineEdit* end_name_;
  FilteredEdit* end_latitude_;
  FilteredEdit* end_longitude_;
  FilteredEdit* speed_;
};

}  // namespace skerrow
