#include "ui/dialogs/report_dialog.h"

#include <QButtonGroup>

#include "ui/forms/report_look.h"
#include "ui/widgets/print_lines.h"

namespace skerrow {

ReportDialog::ReportDialog(Desktop& desktop, const char* name, const QString& title,
                           const char* list_name, QWidget* parent, QWidget* head)
    : Dialog(desktop, name, title, parent),
      list_(new TextList(desktop.clipboard, list_name)),
      copy_all_(Named<QRadioButton>("Option1", "Copy &all to Clipboard")),
      copy_selected_(Named<QRadioButton>("Option2", "Copy &Selected")) {
  if (head != nullptr) body()->addWidget(head);
  body()->addWidget(list_, 1);
  // Without a group of their own they would exclude the options of the head too.
  auto* copy_group = new QButtonGroup(this);
  copy_group->addButton(copy_all_);
  copy_group->addButton(copy_selected_);
  copy_all_->setChecked(true);
  auto* copies = new QHBoxLayout;
  copies->setSpacing(14);
  copies->addWidget(copy_all_);
  copies->addWidget(copy_selected_);
  auto* copy = Named<QPushButton>("cmdClipboardCopy", "&Copy");
  copy->setAutoDefault(false);
  copy->setToolTip("Puts the lines on the clipboard (Ctrl+C copies the selected ones)");
  copies->addWidget(copy);
  copies->addStretch(1);
  body()->addLayout(copies);
  QPushButton* print = AddLeftButton("cmdresultsprint", "&Print...", "Prints the list");
  ok_ = AddButton("cmdOK", "OK");
  ok_->setDefault(true);
  connect(copy, &QPushButton::clicked, this, [this] { Copy(); });
  connect(print, &QPushButton::clicked, this, [this] {
    PrintPages(this->desktop(), this,
               ReportPage(PrintHeading(), RouteTitle(this->desktop().program), list_->lines()));
  });
  connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
  resize(720, 540);
}

void ReportDialog::SetReport(const std::vector<std::string>& lines) {
  std::vector<RowLook> rows;
  for (const ReportLine& line : LooksOf(lines)) {
    RowLook row;
    row.bold = line.look == ReportLook::kHeading || line.look == ReportLook::kLeg ||
               line.look == ReportLook::kPort || line.look == ReportLook::kWarning;
    row.warning = line.look == ReportLook::kWarning;
    row.dim = line.look == ReportLook::kNotice;
    row.room_above = line.look == ReportLook::kLeg || line.look == ReportLook::kHeading;
    if (line.leg > 0) row.number = line.leg;
    rows.push_back(row);
  }
  list_->SetLines(lines, rows);
}

void ReportDialog::Copy() {
  if (copy_all_->isChecked()) {
    list_->CopyAll();
  } else {
    list_->CopySelected();
  }
}

}  // namespace skerrow
