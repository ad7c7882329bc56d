#include "ui/tides/frmTideOptions.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QGroupBox>

#include "ui/dialogs/report_write.h"

namespace skerrow {

frmTideOptions::frmTideOptions(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmTideOptions", "Tide Display Options", parent),
      options_{Named<QRadioButton>("Option1", "Heights to chart datum only"),
               Named<QRadioButton>("Option2", "Heights to include users charted depth"),
               Named<QRadioButton>(
                   "Option3", "As above with allowance for Draught and Under Keel clearance  ")},
      draught_(new FilteredEdit(KeyFilter::kNumber, desktop.messages, "draughttext")),
      clearance_(new FilteredEdit(KeyFilter::kNumber, desktop.messages, "ukctext")),
      summer_(Named<QRadioButton>("optDaylightSavings", "Results Adjusted for Summer Time ")),
      standard_(
          Named<QRadioButton>("optNonDaylightsavings", "Results Displayed for Standard Time")) {
  const TideOptionTexts texts = TideOptionTextsOf(desktop.program.config);
  auto* heights = new QGroupBox("Heights");
  auto* heights_column = new QVBoxLayout(heights);
  for (QRadioButton* option : options_) {
    heights_column->addWidget(option);
    connect(option, &QRadioButton::toggled, this, [this] { Enable(); });
  }
  auto* form = new QFormLayout;
  form->setContentsMargins(24, 4, 0, 0);
  form->setHorizontalSpacing(12);
  for (FilteredEdit* edit : {draught_, clearance_}) edit->SetColumns(6);
  form->addRow(MakeLabel("&Draught, metres:", draught_), draught_);
  form->addRow(MakeLabel("&Under keel clearance, metres:", clearance_), clearance_);
  heights_column->addLayout(form);
  heights_column->addWidget(
      MakeHint("The charted depth is that of Enter Tidal Offset. The curve stays as it is; the "
               "readout, the list and the print add the depth at the place."));
  body()->addWidget(heights);
  auto* times = new QGroupBox("Times");
  auto* times_column = new QVBoxLayout(times);
  times_column->addWidget(summer_);
  times_column->addWidget(standard_);
  body()->addWidget(times);
  body()->addStretch(1);
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  options_[texts.option - 1]->setChecked(true);
  draught_->SetText(texts.draught);
  clearance_->SetText(texts.clearance);
  (texts.summer_time ? summer_ : standard_)->setChecked(true);
  Enable();
  options_[texts.option - 1]->setFocus();
}

void frmTideOptions::Enable() {
  for (FilteredEdit* edit : {draught_, clearance_}) edit->setEnabled(options_[2]->isChecked());
}

void frmTideOptions::Accept() {
  TideOptionTexts texts;
  for (int option = 1; option <= 3; ++option) {
    if (options_[option - 1]->isChecked()) texts.option = option;
  }
  texts.draught = draught_->Text();
  texts.clearance = clearance_->Text();
  texts.summer_time = summer_->isChecked();
  if (const TideOptionRefusal refusal = CheckTideOptions(texts);
      refusal != TideOptionRefusal::kNone) {
    options_[2]->setChecked(true);
    Refuse(kTooManyMetres, true, refusal == TideOptionRefusal::kDraught ? draught_ : clearance_);
    return;
  }
  Written(CommitTideOptions(desktop().program, texts, desktop().messages), desktop().messages);
  accept();
  desktop().window.Changed(kSettingsChanged | kTimeChanged);
}

}  // namespace skerrow
