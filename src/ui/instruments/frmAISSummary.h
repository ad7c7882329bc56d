#pragma once

#include <QLineEdit>
#include <QTreeView>
#include <optional>

#include "ui/instruments/frmAisDetails.h"
#include "ui/instruments/target_model.h"

namespace skerrow {

// The list of the targets with the details of the one selected.
class frmAISSummary : public LiveDialog {
  Q_OBJECT

 public:
  frmAISSummary(Desktop& desktop, ShowPlace show_place, QWidget* parent);

 protected:
  void Follow() override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* MakeListSide();
  QWidget* MakeDetailSide();
  void SortBy(int column, Qt::SortOrder order);
  void Selected();
  void ShowDetails();
  void ShowOnChart();
  // The target of the selected row; null when none is.
  const AisTarget* Target() const;
  std::int32_t SelectedMmsi() const;

  ShowPlace show_place_;
  TargetModel* model_;
  TargetOrder order_;
  QLineEdit* filter_;
  QLabel* count_;
  QTreeView* list_;
  QLabel* time_;
  QLabel* name_;
  TextList* details_;
  QPushButton* mark_;
  QPushButton* clear_;
  QPushButton* copy_details_;
  QPushButton* show_;
};

// Opens the list, in the window that stands open if there is one.
void OpenAisSummary(Desktop& desktop, const ShowPlace& show_place, QWidget* parent);

}  // namespace skerrow
