#pragma once

#include <string>
#include <vector>

#include "core/result.h"
#include "platform/images.h"

// Printing of plain documents: lines of text with fonts and tab stops, and pictures.
namespace skerrow {

// The look of a line. Sizes in points.
struct PrintFont {
  std::string family;  // empty: the desktop's own sans-serif
  double size_pt = 10.0;
  bool bold = false;
};

// One thing after the other down the page.
struct PrintItem {
  enum class Kind { kLine, kPicture, kNewPage, kBlocks };
  Kind kind = Kind::kLine;
  // kLine: UTF-8; each "\t" goes on to the next tab stop. Words that do not fit the width of the
  // page run over to the next line, unless the line has tabs.
  std::string text;
  PrintFont font;
  std::vector<double> tabs_mm;  // from the left margin; behind the last one every 20 mm
  // kPicture: as wide as the page at most, and never split over two pages.
  Picture picture;
  double width_mm = 0.0;  // 0: the width of the page
  // kBlocks: lines that belong together. Blocks stand side by side in as many columns as hold their
  // lines, in reading order, and none is parted by the end of a page that could hold it.
  std::vector<std::vector<PrintItem>> blocks;
  int columns = 1;  // at most
};

PrintItem PrintLine(std::string text, PrintFont font = {}, std::vector<double> tabs_mm = {});
PrintItem PrintPicture(Picture picture, double width_mm = 0.0);
PrintItem PrintNewPage();
PrintItem PrintBlocks(std::vector<std::vector<PrintItem>> blocks, int columns);

// What is printed.
struct PrintDocument {
  std::string title;  // the name of the job
  bool landscape = false;
  double margin_mm = 15.0;
  std::string foot;          // at the foot of each page, at its left
  bool page_numbers = true;  // "Page 2 of 3" at its right, when there is a foot or a second page
  std::vector<PrintItem> items;
};

// Where to.
struct PrintTarget {
  std::string printer;   // a printer's name; empty: the default one
  std::string pdf_file;  // when given, a PDF file in place of a printer
};

// Names of the printers of this machine, the default one first.
std::vector<std::string> PrinterNames();

// Prints a document and gives the number of its pages. A document without items is one empty page.
// Errors: no such printer, the file cannot be written.
Result<int> Print(const PrintDocument& document, const PrintTarget& target);

}  // namespace skerrow
