#pragma once

#include "platform/printing.h"
#include "ui/desktop.h"

class QWidget;

namespace skerrow {

// Where the name of the chosen printer is kept in the settings store.
inline constexpr const char* kPrintSection = "Print";
inline constexpr const char* kPrinterKey = "Printer";

inline constexpr const char* kPrintFolderKey = "Folder";  // of the last PDF file

// Asks for a printer or a PDF file and prints the document. What goes wrong is shown.
void PrintPages(Desktop& desktop, QWidget* parent, const PrintDocument& document);

}  // namespace skerrow
