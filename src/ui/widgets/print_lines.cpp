#include "ui/widgets/print_lines.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>
#include <optional>

#include "ui/widgets/dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

// Asks where to print.
class PrintChoice final : public Dialog {
 public:
  PrintChoice(Desktop& desktop, QWidget* parent)
      : Dialog(desktop, "frmPrint", "Print", parent), printers_(Named<QComboBox>("cmbPrinter")) {
    const std::string last = desktop.settings.Get(kPrintSection, kPrinterKey);
    for (const std::string& name : PrinterNames()) printers_->addItem(ToQt(name), ToQt(name));
    printers_->addItem("PDF file...", QString());
    if (const int row = printers_->findData(ToQt(last)); row >= 0) printers_->setCurrentIndex(row);
    printers_->setMinimumContentsLength(28);
    body()->addWidget(MakeLabel("Print &to:", printers_));
    body()->addWidget(printers_);
    body()->addStretch(1);
    QPushButton* print = AddButton("cmdPrint", "&Print");
    print->setDefault(true);
    QPushButton* cancel = AddButton("cmdCancel", "Cancel");
    connect(print, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  }

  std::optional<PrintTarget> Ask(const std::string& title) {
    if (exec() != QDialog::Accepted) return std::nullopt;
    PrintTarget target;
    target.printer = FromQt(printers_->currentData().toString());
    desktop().settings.Set(kPrintSection, kPrinterKey, target.printer);
    if (!target.printer.empty()) return target;
    QString folder = ToQt(desktop().settings.Get(kPrintSection, kPrintFolderKey));
    if (!QFileInfo(folder).isDir()) {
      folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    }
    const QString name = ToQt(title).replace(QLatin1Char('/'), QLatin1Char('-'));
    const QString file =
        QFileDialog::getSaveFileName(parentWidget(), "Print to a PDF file",
                                     QDir(folder).filePath(name + ".pdf"), "PDF files (*.pdf)");
    if (file.isEmpty()) return std::nullopt;
    desktop().settings.Set(kPrintSection, kPrintFolderKey, FromQt(QFileInfo(file).absolutePath()));
    target.pdf_file = FromQt(file);
    return target;
  }

 private:
  QComboBox* printers_;
};

}  // namespace

void PrintPages(Desktop& desktop, QWidget* parent, const PrintDocument& document) {
  PrintChoice choice(desktop, parent);
  const std::optional<PrintTarget> target = choice.Ask(document.title);
  if (!target) return;
  if (const Result<int> printed = Print(document, *target); !printed) {
    desktop.messages.Show(printed.error().Text(), MessageIcon::kWarning);
  }
}

}  // namespace skerrow
