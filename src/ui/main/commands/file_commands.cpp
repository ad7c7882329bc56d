#include <QPrintDialog>
#include <QPrinter>

#include "ui/main/frmChart.h"

namespace skerrow {
namespace {

constexpr Command kCommands[] = {
    {"mnuSelectPrinter", "Select &Printer", "print", "Choose the printer for results and lists", "",
     kNoNeed,
     [](FrmChart& w) {
       QPrinter printer;
       QPrintDialog dialog(&printer, &w);
       if (dialog.exec() == QDialog::Accepted) {
         w.desktop().settings.Set("Print", "Printer", printer.printerName().toStdString());
       }
     }},
    {"mnuexit", "E&xit", "exit", "Close the program", "Ctrl+Q", kNoNeed,
     [](FrmChart& w) { w.close(); }},
    {"tbCopyChart", "Copy Chart", "copychart", "Copy the window as a picture to the clipboard", "",
     kNoNeed, [](FrmChart& w) { w.CopyWindow(); }},
};

}  // namespace

std::span<const Command> FileCommands() { return kCommands; }

}  // namespace skerrow
