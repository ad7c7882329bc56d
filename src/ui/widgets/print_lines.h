#pragma once

#include <string>
#include <vector>

#include "platform/images.h"
#include "ui/desktop.h"

class QWidget;

namespace skerrow {

// Where the name of the chosen printer is kept in the settings store.
inline constexpr const char* kPrintSection = "Print";
inline constexpr const char* kPrinterKey = "Printer";

// Asks for a printer or a PDF file and prints `lines` under `heading`; a picture that is not empty
// stands above them. What goes wrong is shown.
void PrintLines(Desktop& desktop, QWidget* parent, const std::string& heading,
                const std::vector<std::string>& lines, const Picture& picture = {});

}  // namespace skerrow
