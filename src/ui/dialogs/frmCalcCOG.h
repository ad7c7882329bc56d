#pragma once

#include <QCheckBox>
#include <QRadioButton>
#include <functional>

#include "ui/dialogs/leeway_box.h"
#include "ui/forms/drift_forms.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Leg Set-up": where a boat goes that holds its heading.
class frmCalcCOG : public Dialog {
  Q_OBJECT

 public:
  // `upload` takes a waypoint to the GPS; without one the dialog offers no upload.
  using Upload = std::function<void(const UploadPoint&)>;
  frmCalcCOG(Desktop& desktop, QWidget* parent, Upload upload = {});

 private:
  QWidget* MakeEntries();
  QWidget* MakePlaces();
  QLayout* MakeWaypoints();
  // Puts the selected waypoint into the start or the destination.
  void TakeWaypoint(bool to_start);
  // Shows the bearing to the destination as the heading, unless the user has typed one.
  void OfferHeading();
  CogEntry Entry() const;
  QWidget* BoxOf(DriftField field) const;
  void Calculate();
  void UploadDestination();

  Upload upload_;

  FilteredEdit* start_latitude_;
  FilteredEdit* start_longitude_;
  QLabel* start_name_;
  FilteredEdit* dest_latitude_;
  FilteredEdit* dest_longitude_;
  QLabel* dest_name_;
  FilteredEdit* speed_;
  FilteredEdit* duration_;
  FilteredEdit* heading_;
  LeewayBox* leeway_;
  TextList* waypoints_;
  QPushButton* to_start_;
  QPushButton* to_dest_;
  std::string offered_;  // the heading last offered
  bool next_is_dest_;    // where a double click on a waypoint puts it
};

}  // namespace skerrow
