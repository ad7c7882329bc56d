#pragma once

#include <QElapsedTimer>
#include <memory>

#include "core/progress.h"

class QDialog;
class QLabel;
class QProgressBar;
class QWidget;

namespace skerrow {

// The progress of a long operation in a small window over `parent`, shown once the operation has
// taken 300 ms. Each step serves events; Cancel, Esc and closing the window stop the operation at
// its next step.
class ProgressDialog final : public Progress {
 public:
  // `also`, when given, is told every step too; its wish to stop counts like Cancel.
  ProgressDialog(QWidget* parent, const char* what, std::unique_ptr<Progress> also = nullptr);
  ~ProgressDialog() override;

  bool Step(double percent) override;

  static constexpr int kShowAfterMs = 300;

 private:
  std::unique_ptr<Progress> also_;
  std::unique_ptr<QDialog> window_;
  QProgressBar* bar_;
  QElapsedTimer running_;
  bool cancelled_ = false;
};

// The progress of an operation on a bar and a label of a form of its own.
class FormProgress final : public Progress {
 public:
  // `cancelled` is set by the form's own button. All three must outlive the object.
  FormProgress(QProgressBar* bar, QLabel* label, const bool& cancelled)
      : bar_(bar), label_(label), cancelled_(cancelled) {}

  bool Step(double percent) override;

 private:
  QProgressBar* bar_;
  QLabel* label_;
  const bool& cancelled_;
};

}  // namespace skerrow
