#pragma once

#include <QRadioButton>
#include <string>
#include <vector>

#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// A list of report lines with its ways out: to the clipboard, whole or selected, and to a printer.
class ReportDialog : public Dialog {
  Q_OBJECT

 public:
  // `head` stands over the list; it may be null.
  ReportDialog(Desktop& desktop, const char* name, const QString& title, const char* list_name,
               QWidget* parent, QWidget* head = nullptr);

  TextList* list() const { return list_; }

 protected:
  // Fills the list, its headings, legs and warnings told apart.
  void SetReport(const std::vector<std::string>& lines);
  // The heading of the printed page.
  virtual std::string PrintHeading() const { return "Results"; }
  QPushButton* ok_button() const { return ok_; }

 private:
  void Copy();

  TextList* list_;
  QRadioButton* copy_all_;
  QRadioButton* copy_selected_;
  QPushButton* ok_;
};

}  // namespace skerrow
