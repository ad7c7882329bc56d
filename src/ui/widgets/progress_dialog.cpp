#include "ui/widgets/progress_dialog.h"

#include <QCoreApplication>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

namespace skerrow {

ProgressDialog::ProgressDialog(QWidget* parent, const char* what, std::unique_ptr<Progress> also)
    : also_(std::move(also)), window_(std::make_unique<QDialog>(parent)), bar_(new QProgressBar) {
  window_->setObjectName(QStringLiteral("ProgressDialog"));
  window_->setWindowTitle(QStringLiteral("Skerrow"));
  window_->setWindowModality(Qt::ApplicationModal);
  window_->setMinimumWidth(340);
  auto* column = new QVBoxLayout(window_.get());
  column->setContentsMargins(16, 14, 16, 12);
  column->setSpacing(10);
  column->addWidget(new QLabel(QString::fromUtf8(what)));
  bar_->setRange(0, 100);
  column->addWidget(bar_);
  auto* cancel = new QPushButton("&Cancel");
  cancel->setObjectName(QStringLiteral("cmdCancel"));
  column->addWidget(cancel, 0, Qt::AlignRight);
  QObject::connect(cancel, &QPushButton::clicked, window_.get(), &QDialog::reject);
  QObject::connect(window_.get(), &QDialog::rejected, window_.get(), [this] { cancelled_ = true; });
  running_.start();
}

ProgressDialog::~ProgressDialog() = default;

bool ProgressDialog::Step(double percent) {
  bar_->setValue(static_cast<int>(std::lround(percent)));
  if (!cancelled_ && !window_->isVisible() && running_.elapsed() >= kShowAfterMs) window_->show();
  QCoreApplication::processEvents();
  if (also_ != nullptr && !also_->Step(percent)) cancelled_ = true;
  return !cancelled_;
}

bool FormProgress::Step(double percent) {
  const int whole = static_cast<int>(std::lround(percent));
  bar_->setValue(whole);
  label_->setText(QStringLiteral("%1 %").arg(whole));
  QCoreApplication::processEvents();
  return !cancelled_;
}

}  // namespace skerrow
