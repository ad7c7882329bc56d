#pragma once

#include <string>

#include "ui/desktop.h"

class QWidget;

namespace skerrow {

// Asks for the place of a text file ("Tables (*.txt)"), offering `name`, and writes `text` there.
// A cancel writes nothing; a file that cannot be written is told. Whether it has been written.
bool SaveText(Desktop& desktop, QWidget* parent, const char* title, const std::string& name,
              const std::string& text);

}  // namespace skerrow
