#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

// A help document: Markdown with a title, laid out for paper.
namespace help {

// A heading, where it came to stand.
struct Heading {
  QString text;
  int level = 1;
  int page = 0;    // from 0
  double top = 0;  // from the top of the page's text, device pixels
};

// Finds the pictures of a Markdown text in `folders` and puts the caption of each, the words in its
// brackets, below it. Names in `missing` those that are in none of them.
QString WithPictures(const QString& markdown, const QStringList& folders, QStringList* missing);

// Puts the documents that lines such as "[include Toolbar]" name, found in `folder`, in the place
// of the line, their headings one level deeper. Names in `missing` those that cannot be read.
QString WithIncludes(const QString& markdown, const QString& folder, QStringList* missing);

class HelpDocument {
 public:
  // `markdown` opens with a heading of the first level, the title. A paragraph "[contents]" stands
  // for the list of the headings of the second level with their pages.
  explicit HelpDocument(const QString& markdown);

  const QString& title() const { return title_; }
  // Lays the text out on pages of that size (device pixels) and keeps headings with what follows.
  void LayOut(QPaintDevice* device, QSizeF page);
  QTextDocument& document() { return document_; }
  QList<Heading> Headings() const;

 private:
  void LayOutAfresh(QSizeF page);
  void FillContents(const QList<Heading>& headings);
  void SetBullets();
  void StyleBlocks();
  void StyleTables();
  void StyleCode();
  int PageOf(double y) const;
  // Whether a heading stands on another page than the first lines below it.
  bool HeadingIsParted(const QTextBlock& block) const;
  // Whether a table of moderate size does not end on the page of its heading.
  bool TableIsParted(const QTextBlock& heading, QTextTable* table) const;
  // Breaks the page before the first heading that asks for it, and tells whether there was one.
  bool BreakWhereParted();

  QString title_;
  QTextDocument document_;
  QTextTable* contents_ = nullptr;
  // Device pixels in a unit: the layout takes margins to the side as they are, and scales all else.
  double sideways_ = 1.0;
};

}  // namespace help
