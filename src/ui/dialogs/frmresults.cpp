#include "ui/dialogs/frmresults.h"

#include <QButtonGroup>

#include "ui/forms/results_form.h"

namespace skerrow {

frmresults::Choices frmresults::MakeChoices() {
  Choices choices = {new QWidget, Named<QRadioButton>("optSummary", "Display Calculation Su&mmary"),
                     Named<QRadioButton>("optTidalDetails", "Display Calculated &Tidal Data"),
                     Named<QCheckBox>("chkDisplayAll", "Display &Every Result"),
                     Named<QCheckBox>("chKTidalStreams", "Display Tidal Stream &ID")};
  auto* views = new QButtonGroup(choices.box);
  views->addButton(choices.summary);
  views->addButton(choices.tidal_details);
  choices.summary->setChecked(true);
  auto* row = new QHBoxLayout(choices.box);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(18);
  for (QWidget* choice : std::initializer_list<QWidget*>{choices.summary, choices.tidal_details,
                                                         choices.every, choices.stream_id}) {
    row->addWidget(choice);
  }
  row->addStretch(1);
  return choices;
}

frmresults::frmresults(Desktop& desktop, QWidget* parent)
    : frmresults(desktop, parent, MakeChoices()) {}

frmresults::frmresults(Desktop& desktop, QWidget* parent, const Choices& choices)
    : ReportDialog(desktop, "frmresults", "Results", "lstResults", parent, choices.box),
      choices_(choices) {
  for (QAbstractButton* choice : choices_.box->findChildren<QAbstractButton*>()) {
    connect(choice, &QAbstractButton::toggled, this, [this] { Load(); });
  }
  Load();
}

void frmresults::ShowLast(Desktop& desktop, QWidget* parent) {
  if (desktop.program.passage.result_lines.empty()) {
    desktop.messages.Show(kNoResults, MessageIcon::kInformation);
    return;
  }
  frmresults(desktop, parent).exec();
}

void frmresults::Load() {
  const PassageState& passage = desktop().program.passage;
  const bool tidal = choices_.tidal_details->isChecked();
  choices_.every->setEnabled(tidal);
  choices_.stream_id->setEnabled(tidal);
  SetReport(tidal
                ? StreamRows(passage, choices_.every->isChecked(), choices_.stream_id->isChecked())
                : passage.result_lines);
}

void frmresults::done(int result) {
  Program& program = desktop().program;
  FinishResults(program, RouteDefaultsOf(program));
  ReportDialog::done(result);
  desktop().window.Changed(kRouteChanged | kTimeChanged);
}

}  // namespace skerrow
