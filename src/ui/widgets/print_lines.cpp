#include "ui/widgets/print_lines.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>
#include <optional>

#include "platform/printing.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

// Asks where to print.
class PrintChoice final : public Dialog {
 public:
  PrintChoice(Desktop& desktop, QWidget* parent)
      : Dialog(desktop, "frmPrint", QObject::tr("Print"), parent),
        printers_(Named<QComboBox>("cmbPrinter")) {
    const std::string last = desktop.settings.Get(kPrintSection, kPrinterKey);
    for (const std::string& name : PrinterNames()) printers_->addItem(ToQt(name), ToQt(name));
    printers_->addItem(QObject::tr("PDF file..."), QString());
    if (const int row = printers_->findData(ToQt(last)); row >= 0) printers_->setCurrentIndex(row);
    printers_->setMinimumContentsLength(28);
    body()->addWidget(MakeLabel(QObject::tr("Print &to:"), printers_));
    body()->addWidget(printers_);
    body()->addStretch(1);
    QPushButton* print = AddButton("cmdPrint", QObject::tr("&Print"));
    print->setDefault(true);
    QPushButton* cancel = AddButton("cmdCancel", QObject::tr("Cancel"));
    connect(print, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  }

  std::optional<PrintTarget> Ask(const std::string& heading) {
    if (exec() != QDialog::Accepted) return std::nullopt;
    PrintTarget target;
    target.printer = FromQt(printers_->currentData().toString());
    desktop().settings.Set(kPrintSection, kPrinterKey, target.printer);
    if (!target.printer.empty()) return target;
    QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    const QString file = QFileDialog::getSaveFileName(
        parentWidget(), QObject::tr("Print to a PDF file"),
        folder.filePath(ToQt(heading) + QStringLiteral(".pdf")), QObject::tr("PDF files (*.pdf)"));
    if (file.isEmpty()) return std::nullopt;
    target.pdf_file = FromQt(file);
    return target;
  }

 private:
  QComboBox* printers_;
};

}  // namespace

void PrintLines(Desktop& desktop, QWidget* parent, const std::string& heading,
                const std::vector<std::string>& lines, const Picture& picture) {
  PrintChoice choice(desktop, parent);
  const std::optional<PrintTarget> target = choice.Ask(heading);
  if (!target) return;
  PrintDocument document;
  document.title = heading;
  document.items.push_back(PrintLine(heading, {"", 14.0, true}));
  document.items.push_back(PrintLine(" "));
  if (!picture.empty()) {
    document.items.push_back(PrintPicture(picture));
    document.items.push_back(PrintLine(" "));
  }
  for (const std::string& line : lines) {
    document.items.push_back(PrintLine(line, {"", 9.0, false}, {30, 62, 94, 122, 152}));
  }
  if (const Result<int> printed = Print(document, *target); !printed) {
    desktop.messages.Show(printed.error().Text(), MessageIcon::kWarning);
  }
}

}  // namespace skerrow
