#pragma once

#include <QList>
#include <QString>

// The outline of a PDF, which readers show beside the pages.
namespace help {

struct OutlineEntry {
  QString title;
  int level = 1;   // an entry belongs under the one of the next lower level before it
  int page = 0;    // from 0
  double top = 0;  // of the entry, points from the bottom of the page
};

// Appends an outline to the PDF at `path` as QPdfWriter makes it: one cross-reference table, one
// flat list of pages. Gives false, with the file as it was, when the file does not look like that.
bool AddOutline(const QString& path, const QList<OutlineEntry>& entries);

}  // namespace help
