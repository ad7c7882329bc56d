#include "ui/instruments/frmmanualpos.h"

#include <QFormLayout>

#include "core/files.h"
#include "core/position.h"
#include "instruments/plot_file.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmmanualpos::frmmanualpos(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmmanualpos", "Manual Entry", parent),
      latitude_(MakeLatitudeEdit(desktop.messages, "txtlat")),
      longitude_(MakeLongitudeEdit(desktop.messages, "txtlong")),
      time_(Named<QLineEdit>("txttime")),
      date_(Named<QLineEdit>("txtdate")),
      comment_(Named<QLineEdit>("txtcomment")),
      records_(new TextList(desktop.clipboard, "List1")) {
  Program& program = desktop.program;
  program.plot.track_plot_on = true;
  if (!program.route.points.empty()) {
    latitude_->SetText(LatToText(program.route.points.front().latitude));
    longitude_->SetText(LongToText(program.route.points.front().longitude));
  }
  const PlotDefaults defaults = DefaultPlotTexts(program.clock->Now());
  const auto prepare = [](QLineEdit* box, const std::string& text, int length, int columns) {
    box->setText(ToQt(text));
    box->setMaxLength(length);
    box->setFixedWidth(box->fontMetrics().averageCharWidth() * (columns + 3) + 12);
  };
  prepare(time_, defaults.time, 5, 6);
  prepare(date_, defaults.date, 16, 16);
  comment_->setMaxLength(35);
  comment_->setPlaceholderText("Up to 35 characters");
  body()->addWidget(MakeHint(ToQt(kManualEntryHint)));
  auto* form = new QFormLayout;
  form->setHorizontalSpacing(10);
  form->setVerticalSpacing(8);
  form->addRow("&Latitude:", latitude_);
  form->addRow("L&ongitude:", longitude_);
  form->addRow("&Time:", time_);
  form->addRow("&Date:", date_);
  form->addRow("&Comment:", comment_);
  body()->addLayout(form);
  body()->addSpacing(4);
  const std::string& path = program.plot.plot_file_name;
  body()->addWidget(
      MakeLabel(ToQt("&Positions in " + ReplaceAll(FileNameOf(path), "&", "&&")), records_));
  body()->addWidget(records_, 1);
  if (FileIsThere(path)) {
    std::vector<std::string> rows;
    if (const Result<RecordFile<PlotRecord>> file = ReadPlotFile(path); file) {
      for (const PlotRecord& record : file->Sound()) rows.push_back(ManualPlotRow(record));
    } else {
      body()->addWidget(MakeHint(ToQt(file.error().Text())));
    }
    records_->SetLines(rows);
    records_->scrollToBottom();
  }
  QPushButton* ok = AddButton("Cmdfrmmanok", "OK", "Adds the position to the plot");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  latitude_->setFocus();
  latitude_->selectAll();
  resize(560, 460);
}

void frmmanualpos::Accept() {
  const PlotRowTexts typed = {latitude_->Text(), longitude_->Text(), FromQt(time_->text()),
                              FromQt(date_->text()), FromQt(comment_->text())};
  const Result<PlotRecord> record = ManualPlotRecord(typed);
  if (!record) {
    QWidget* field = typed.longitude.empty() ? longitude_ : latitude_;
    Refuse(record.error().Text(), typed.longitude.empty() || typed.latitude.empty(), field);
    return;
  }
  Program& program = desktop().program;
  if (const Status written = AppendPlotRecord(program.plot.plot_file_name, *record); !written) {
    Refuse(written.error().Text());
    return;
  }
  program.plot.track_plot_on = true;
  accept();
  desktop().window.Changed(kTargetsChanged);
}

}  // namespace skerrow
