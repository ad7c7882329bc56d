#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QWidget>
#include <array>

#include "ui/drawing/look.h"
#include "ui/forms/tide_plot.h"

namespace skerrow {

// The constituents view's check boxes: each term with its colour, its constants and its height at
// the cursor, and the sum of them all.
class TermsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit TermsPanel(QWidget* parent = nullptr);

  void ShowConstants(const Port& port);
  void ShowReading(const LayerReading& reading);
  TideTermsShown Shown() const;
  // The marks of the colours follow the look.
  void SetLook(const Look& look);

 signals:
  // A box has been clicked.
  void Switched();

 private:
  std::array<QCheckBox*, kTideTerms> boxes_;
  std::array<QLabel*, kTideTerms> constants_;
  std::array<QLabel*, kTideTerms> heights_;
  QLabel* sum_;
};

}  // namespace skerrow
