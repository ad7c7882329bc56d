#include <QClipboard>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>

#include "ui/main/chart_controller.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/main/time_controller.h"

namespace skerrow {
namespace {

constexpr Command kCommands[] = {
    {"mnuSelectPrinter", "Select Printer", "print", "Choose the printer for results and lists", "",
     kNoNeed,
     [](Context& c) {
       QPrinter printer;
       QPrintDialog dialog(&printer, &c.window);
       if (dialog.exec() == QDialog::Accepted) {
         c.desktop.settings.Set("Print", "Printer", printer.printerName().toStdString());
       }
     }},
    {"mnuexit", "E&xit", "exit", "Close the program", "Ctrl+Q", kNoNeed,
     [](Context& c) { c.window.close(); }},
    {"tbCopyChart", "Copy Chart", "copychart", "Copy the window as a picture to the clipboard", "",
     kNoNeed, [](Context& c) { QGuiApplication::clipboard()->setPixmap(c.window.grab()); }},
};

}  // namespace

std::span<const Command> FileCommands() { return kCommands; }

}  // namespace skerrow
