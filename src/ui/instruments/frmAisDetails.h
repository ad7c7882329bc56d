#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "ui/forms/ais_forms.h"
#include "ui/widgets/live_dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// Brings a place into the middle of the chart.
using ShowPlace = std::function<void(Position)>;

// The details of one target, followed while it is heard.
class frmAisDetails : public LiveDialog {
  Q_OBJECT

 public:
  frmAisDetails(Desktop& desktop, ShowPlace show_place, QWidget* parent);

  // Shows the details of another target.
  void SetTarget(std::int32_t mmsi);
  std::int32_t target() const { return mmsi_; }

 protected:
  void Follow() override;
  void hideEvent(QHideEvent* event) override;

 private:
  ShowPlace show_place_;
  std::int32_t mmsi_ = 0;
  std::string name_;
  QLabel* title_;
  QLabel* heard_;
  TextList* rows_;
  QPushButton* show_;
};

// Opens the details of a target, in the window that stands open if there is one.
void OpenAisDetails(Desktop& desktop, std::int32_t mmsi, const ShowPlace& show_place,
                    QWidget* parent);

// How the rows of a target's details look: the headings of the tracks stand out.
std::vector<RowLook> TargetDetailLooks(const std::vector<std::string>& rows);

}  // namespace skerrow
