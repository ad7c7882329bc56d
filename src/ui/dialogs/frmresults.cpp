#include "ui/dialogs/frmresults.h"

#include <QButtonGroup>
#include <QGridLayout>

#include "ui/forms/results_form.h"

namespace skerrow {

FrmResults::FrmResults(Desktop& desktop, QWidget* parent)
    : ReportDialog(desktop, "frmresults", tr("Results"), "lstResults", parent),
      summary_(Named<QRadioButton>("optSummary", tr("Display Calculation Su&mmary"))),
      tidal_details_(Named<QRadioButton>("optTidalDetails", tr("Display Calculated &Tidal Data"))),
      every_(Named<QCheckBox>("chkDisplayAll", tr("Display &Every Result"))),
      stream_id_(Named<QCheckBox>("chKTidalStreams", tr("Display Tidal Stream &ID"))) {
  auto* views = new QButtonGroup(this);
  views->addButton(summary_);
  views->addButton(tidal_details_);
  summary_->setChecked(true);
  auto* choices = new QGridLayout;
  choices->setHorizontalSpacing(18);
  choices->addWidget(summary_, 0, 0);
  choices->addWidget(tidal_details_, 0, 1);
  choices->addWidget(every_, 0, 2);
  choices->addWidget(stream_id_, 0, 3);
  choices->setColumnStretch(4, 1);
  head()->addLayout(choices);
  for (QAbstractButton* choice :
       std::initializer_list<QAbstractButton*>{summary_, tidal_details_, every_, stream_id_}) {
    connect(choice, &QAbstractButton::toggled, this, [this] { Load(); });
  }
  Load();
}

void FrmResults::ShowLast(Desktop& desktop, QWidget* parent) {
  if (desktop.program.passage.result_lines.empty()) {
    desktop.messages.Show(kNoResults, MessageIcon::kInformation);
    return;
  }
  FrmResults(desktop, parent).exec();
}

void FrmResults::Load() {
  const PassageState& passage = desktop().program.passage;
  const bool tidal = tidal_details_->isChecked();
  every_->setEnabled(tidal);
  stream_id_->setEnabled(tidal);
  list()->SetLines(tidal ? StreamRows(passage, every_->isChecked(), stream_id_->isChecked())
                         : passage.result_lines);
}

void FrmResults::done(int result) {
  Program& program = desktop().program;
  FinishResults(program, RouteDefaultsOf(program));
  ReportDialog::done(result);
  desktop().window.Changed(kRouteChanged | kTimeChanged);
}

}  // namespace skerrow
