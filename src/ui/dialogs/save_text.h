#pragma once

#include <string>

#include "ui/desktop.h"

class QWidget;

namespace skerrow {

// A kind of text file: its name among the files to choose from, its ending, and the part of the
// settings that remembers its folder; none: the settings record does, for text export and import.
struct TextFileKind {
  const char* filter;
  const char* ending;
  const char* section;
};
inline constexpr TextFileKind kTableFile = {"Tables (*.txt)", "txt", "Tides"};
inline constexpr TextFileKind kSpreadsheetFile = {"Tables (*.csv *.txt)", "csv", nullptr};
inline constexpr TextFileKind kGpxFile = {"GPX documents (*.gpx *.GPX)", "gpx", "Gpx"};

// The folder last used for a kind of file, or that of the user's documents.
std::string TextFolderOf(Desktop& desktop, const TextFileKind& kind);
void RememberTextFolder(Desktop& desktop, const TextFileKind& kind, const std::string& folder);

// Asks for the place of a text file, offering `name`, and writes `text` there. A cancel writes
// nothing; a file that cannot be written is told. Whether it has been written.
bool SaveText(Desktop& desktop, QWidget* parent, const char* title, const std::string& name,
              const std::string& text, const TextFileKind& kind = kTableFile);

// Asks for a text file to read; empty after a cancel.
std::string AskTextFile(Desktop& desktop, QWidget* parent, const char* title,
                        const TextFileKind& kind);

}  // namespace skerrow
