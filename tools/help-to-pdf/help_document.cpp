#include "help_document.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QFontMetricsF>
#include <QImageReader>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFragment>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>
#include <QUrl>

namespace help {
namespace {

// Lengths below are in the document's own unit, a 96th of an inch.
constexpr double kUnitsPerInch = 96.0;
constexpr double kTextPt = 10.5;
constexpr double kSmallPt = 9.0;
constexpr double kLeading = 4.0;  // between the lines of a paragraph
constexpr double kListMargin = 8.0;
constexpr const char* kBullet = "\u2022\u2002";
constexpr int kBulleted = QTextFormat::UserProperty + 1;
constexpr double kPageRoom = 8.0;
constexpr double kLargestWholeTable = 0.5;  // of a page, with its heading
constexpr double kTableLeading = 2.0;
constexpr double kWidestPicture = 620.0;
constexpr double kTallestPicture = 420.0;
const QColor kInk(0x22, 0x2b, 0x35);
const QColor kHeadingInk(0x12, 0x3f, 0x6b);
const QColor kCaptionInk(0x5b, 0x68, 0x75);
const QColor kRule(0xc9, 0xd2, 0xdb);
const QColor kTableHead(0xe8, 0xee, 0xf4);
constexpr const char* kContentsMark = "[contents]";
constexpr const char* kCaptionMark = "\u2063";  // invisible: tells captions from other paragraphs

QFont TextFont() {
  QFont font;
  font.setFamilies({QStringLiteral("Lato"), QStringLiteral("Open Sans"),
                    QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans")});
  font.setPointSizeF(kTextPt);
  font.setHintingPreference(QFont::PreferNoHinting);
  // Any spacing parts the ligatures, which could not be searched for.
  font.setLetterSpacing(QFont::AbsoluteSpacing, 0.05);
  return font;
}

double HeadingPt(int level) {
  if (level == 1) return 24.0;
  if (level == 2) return 15.5;
  return 12.0;
}

QString PicturePath(const QString& name, const QStringList& folders) {
  for (const QString& folder : folders) {
    const QFileInfo file(QDir(folder), name);
    if (file.isFile()) return file.absoluteFilePath();
  }
  return {};
}

void MergeCharFormat(const QTextBlock& block, const QTextCharFormat& format) {
  QTextCursor cursor(block);
  cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
  cursor.mergeCharFormat(format);
}

// The reader makes headings larger by steps, which go before any size in points.
void ForgetSizeAdjustment(const QTextBlock& block) {
  QList<QTextFragment> fragments;
  for (auto it = block.begin(); !it.atEnd(); ++it) fragments << it.fragment();
  for (const QTextFragment& fragment : fragments) {
    QTextCharFormat format = fragment.charFormat();
    format.clearProperty(QTextFormat::FontSizeAdjustment);
    QTextCursor cursor(block);
    cursor.setPosition(fragment.position());
    cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
    cursor.setCharFormat(format);
  }
}

// Gives false when the block begins a page already.
bool BreakBefore(const QTextBlock& block) {
  QTextBlockFormat format = block.blockFormat();
  if (format.pageBreakPolicy() == QTextFormat::PageBreak_AlwaysBefore) return false;
  format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  QTextCursor(block).setBlockFormat(format);
  return true;
}

bool InTable(const QTextBlock& block) { return QTextCursor(block).currentTable() != nullptr; }

}  // namespace

QString WithPictures(const QString& markdown, const QStringList& folders, QStringList* missing) {
  static const QRegularExpression picture(QStringLiteral("^!\\[([^\\]]*)\\]\\(([^)]+)\\)\\s*$"));
  QStringList result;
  for (const QString& line : markdown.split(QLatin1Char('\n'))) {
    const QRegularExpressionMatch match = picture.match(line);
    if (!match.hasMatch()) {
      result << line;
      continue;
    }
    const QString path = PicturePath(match.captured(2), folders);
    if (path.isEmpty()) {
      *missing << match.captured(2);
      continue;
    }
    // The reader of Qt 6.4 drops a picture whose brackets are empty.
    const QString caption = match.captured(1);
    const QString words = caption.isEmpty() ? match.captured(2) : caption;
    result << QStringLiteral("![%1](<%2>)").arg(words, QUrl::fromLocalFile(path).toString());
    if (!caption.isEmpty()) result << QString() << QString::fromUtf8(kCaptionMark) + caption;
  }
  return result.join(QLatin1Char('\n'));
}

QString WithIncludes(const QString& markdown, const QString& folder, QStringList* missing) {
  static const QRegularExpression include(QStringLiteral("^\\[include ([^\\]]+)\\]\\s*$"));
  QStringList result;
  for (const QString& line : markdown.split(QLatin1Char('\n'))) {
    const QRegularExpressionMatch match = include.match(line);
    if (!match.hasMatch()) {
      result << line;
      continue;
    }
    QFile file(QDir(folder).filePath(match.captured(1) + QStringLiteral(".md")));
    if (!file.open(QIODevice::ReadOnly)) {
      *missing << file.fileName();
      continue;
    }
    for (const QString& included : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
      result << (included.startsWith(QLatin1Char('#')) ? QLatin1Char('#') + included : included);
    }
  }
  return result.join(QLatin1Char('\n'));
}

HelpDocument::HelpDocument(const QString& markdown) {
  document_.setDefaultFont(TextFont());
  document_.setDocumentMargin(0.0);
  document_.setIndentWidth(22.0);
  document_.setUseDesignMetrics(true);
  document_.setMarkdown(markdown, QTextDocument::MarkdownDialectGitHub);
  const QTextBlock first = document_.begin();
  if (first.blockFormat().headingLevel() == 1) title_ = first.text();
  document_.setMetaInformation(QTextDocument::DocumentTitle, title_);
}

void HelpDocument::LayOut(QPaintDevice* device, QSizeF page) {
  document_.documentLayout()->setPaintDevice(device);
  FillContents(Headings());
  sideways_ = device->logicalDpiX() / kUnitsPerInch;
  SetBullets();
  StyleBlocks();
  StyleTables();
  StyleCode();
  // Room above and below the lines of each page, into which tall letters may reach.
  QTextFrameFormat frame = document_.rootFrame()->frameFormat();
  frame.setTopMargin(kPageRoom);
  frame.setBottomMargin(kPageRoom);
  document_.rootFrame()->setFrameFormat(frame);
  // Each break moves what follows, so the walk starts again until nothing moves.
  do {
    LayOutAfresh(page);
  } while (BreakWhereParted());
  FillContents(Headings());
  LayOutAfresh(page);
}

// A change of the text lays only a part of it out again, which leaves what stands behind a moved
// page break behind.
void HelpDocument::LayOutAfresh(QSizeF page) {
  document_.setPageSize(QSizeF());
  document_.setPageSize(page);
  static_cast<void>(document_.pageCount());
}

QList<Heading> HelpDocument::Headings() const {
  QList<Heading> headings;
  const double page_height = document_.pageSize().height();
  for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
    const int level = block.blockFormat().headingLevel();
    if (level == 0) continue;
    Heading heading{block.text(), level, 0, 0.0};
    if (page_height > 0.0) {
      const double top = document_.documentLayout()->blockBoundingRect(block).top();
      heading.page = static_cast<int>(top / page_height);
      heading.top = top - heading.page * page_height;
    }
    headings << heading;
  }
  return headings;
}

// The first call puts a table in the place of the mark; later ones fill in the pages.
void HelpDocument::FillContents(const QList<Heading>& headings) {
  QList<Heading> chapters;
  for (const Heading& heading : headings) {
    if (heading.level == 2) chapters << heading;
  }
  if (contents_ != nullptr) {
    for (int row = 0; row < contents_->rows() && row < chapters.size(); ++row) {
      QTextCursor page = contents_->cellAt(row, 1).firstCursorPosition();
      page.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
      page.insertText(QString::number(chapters[row].page + 1));
    }
    return;
  }
  for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
    if (block.text() != QLatin1String(kContentsMark)) continue;
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    QTextTableFormat format;
    format.setBorder(0.0);
    format.setCellPadding(2.0);
    format.setCellSpacing(0.0);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100.0));
    format.setColumnWidthConstraints({QTextLength(QTextLength::PercentageLength, 90.0),
                                      QTextLength(QTextLength::PercentageLength, 10.0)});
    contents_ = cursor.insertTable(static_cast<int>(chapters.size()), 2, format);
    for (int row = 0; row < chapters.size(); ++row) {
      contents_->cellAt(row, 0).firstCursorPosition().insertText(chapters[row].text);
      QTextCursor page = contents_->cellAt(row, 1).firstCursorPosition();
      QTextBlockFormat right;
      right.setAlignment(Qt::AlignRight);
      page.setBlockFormat(right);
      page.insertText(QStringLiteral("0"));
    }
    return;
  }
}

// The toolkit's own bullets stand too close to the text and are always black.
void HelpDocument::SetBullets() {
  const double hang = QFontMetricsF(TextFont()).horizontalAdvance(QString::fromUtf8(kBullet));
  for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
    QTextList* list = block.textList();
    if (list == nullptr || list->format().style() != QTextListFormat::ListDisc) continue;
    const bool last = block.next().textList() != list;
    list->remove(block);
    QTextBlockFormat format = block.blockFormat();
    format.setIndent(0);
    format.setLeftMargin((kListMargin + hang) * sideways_);
    format.setTextIndent(-hang * sideways_);
    format.setBottomMargin(last ? 9.0 : 3.0);
    format.setProperty(kBulleted, true);
    QTextCursor cursor(block);
    cursor.setBlockFormat(format);
    cursor.insertText(QString::fromUtf8(kBullet), QTextCharFormat());
  }
}

void HelpDocument::StyleBlocks() {
  const QString caption_mark = QString::fromUtf8(kCaptionMark);
  for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
    QTextCursor cursor(block);
    QTextBlockFormat format = block.blockFormat();
    QTextCharFormat text;
    text.setForeground(kInk);
    const int level = format.headingLevel();
    if (level > 0) {
      text.setForeground(kHeadingInk);
      ForgetSizeAdjustment(block);
      text.setFontPointSize(HeadingPt(level));
      text.setFontWeight(level == 1 ? QFont::Bold : QFont::DemiBold);
      format.setTopMargin(level == 1 ? 0.0 : level == 2 ? 24.0 : 15.0);
      format.setBottomMargin(level == 1 ? 16.0 : level == 2 ? 7.0 : 4.0);
    } else if (block.text().startsWith(caption_mark)) {
      text.setForeground(kCaptionInk);
      text.setFontPointSize(kSmallPt);
      text.setFontItalic(true);
      format.setAlignment(Qt::AlignHCenter);
      format.setTopMargin(4.0);
      format.setBottomMargin(14.0);
    } else if (InTable(block)) {
      text.setFontPointSize(kSmallPt + 0.5);
      format.setLineHeight(kTableLeading, QTextBlockFormat::LineDistanceHeight);
      format.setTopMargin(0.0);
      format.setBottomMargin(0.0);
    } else {
      format.setLineHeight(kLeading, QTextBlockFormat::LineDistanceHeight);
      format.setTopMargin(0.0);
      if (!format.hasProperty(kBulleted)) {
        format.setBottomMargin(block.textList() != nullptr ? 3.0 : 8.0);
      }
      if (block.textList() != nullptr && block.next().textList() != block.textList()) {
        format.setBottomMargin(9.0);
      }
      if (format.hasProperty(QTextFormat::BlockQuoteLevel)) {
        format.setLeftMargin(14.0 * sideways_);
        text.setForeground(kHeadingInk);
      }
    }
    // Pictures: no wider than the text, in the middle, together with their caption.
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      if (!fragment.charFormat().isImageFormat()) continue;
      QTextImageFormat picture = fragment.charFormat().toImageFormat();
      const QSizeF size = QImageReader(QUrl(picture.name()).toLocalFile()).size();
      const QSizeF fitted = size.scaled(qMin(kWidestPicture, size.width()),
                                        qMin(kTallestPicture, size.height()), Qt::KeepAspectRatio);
      picture.setWidth(fitted.width());
      picture.setHeight(fitted.height());
      QTextCursor at(&document_);
      at.setPosition(fragment.position());
      at.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
      at.setCharFormat(picture);
      format.setAlignment(Qt::AlignHCenter);
      format.setTopMargin(6.0);
      format.setBottomMargin(2.0);
      format.setLineHeight(100.0, QTextBlockFormat::ProportionalHeight);
      break;
    }
    cursor.setBlockFormat(format);
    MergeCharFormat(block, text);
  }
}

void HelpDocument::StyleTables() {
  for (QTextFrame* frame : document_.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr || table == contents_) continue;
    QTextTableFormat format = table->format();
    format.setBorder(1.0);
    format.setBorderBrush(kRule);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderCollapse(true);
    format.setCellPadding(4.5);
    format.setCellSpacing(0.0);
    format.setTopMargin(4.0);
    format.setBottomMargin(12.0);
    format.setHeaderRowCount(1);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100.0));
    // The first column as wide as its longest entry asks for, within reason.
    qsizetype longest = 0;
    for (int row = 0; row < table->rows(); ++row) {
      longest = qMax(longest, table->cellAt(row, 0).firstCursorPosition().block().text().size());
    }
    const double first = qBound(16.0, 4.0 + 1.15 * static_cast<double>(longest), 44.0);
    QList<QTextLength> widths = {QTextLength(QTextLength::PercentageLength, first)};
    for (int column = 1; column < table->columns(); ++column) {
      widths << QTextLength(QTextLength::PercentageLength,
                            (100.0 - first) / (table->columns() - 1));
    }
    format.setColumnWidthConstraints(widths);
    table->setFormat(format);
    for (int column = 0; column < table->columns(); ++column) {
      QTextTableCell cell = table->cellAt(0, column);
      QTextCharFormat head = cell.format();
      head.setBackground(kTableHead);
      cell.setFormat(head);
      QTextCharFormat bold;
      bold.setFontWeight(QFont::Bold);
      MergeCharFormat(cell.firstCursorPosition().block(), bold);
    }
  }
}

void HelpDocument::StyleCode() {
  for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
    QList<QTextFragment> fixed;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      if (it.fragment().charFormat().fontFixedPitch()) fixed << it.fragment();
    }
    for (const QTextFragment& fragment : fixed) {
      QTextCursor at(&document_);
      at.setPosition(fragment.position());
      at.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
      QTextCharFormat code;
      code.setFontFamilies({QStringLiteral("DejaVu Sans Mono"), QStringLiteral("monospace")});
      code.setFontPointSize(kSmallPt);
      at.mergeCharFormat(code);
    }
  }
}

bool HelpDocument::HeadingIsParted(const QTextBlock& block) const {
  const QRectF box = document_.documentLayout()->blockBoundingRect(block);
  const QTextBlock next = block.next();
  if (!next.isValid()) return false;
  const QRectF follows = document_.documentLayout()->blockBoundingRect(next);
  const double wanted = qMin(follows.height(), 3.0 * box.height());
  return PageOf(follows.top() + wanted) > PageOf(box.top());
}

bool HelpDocument::TableIsParted(const QTextBlock& heading, QTextTable* table) const {
  const double top = document_.documentLayout()->blockBoundingRect(heading).top();
  const QRectF box = document_.documentLayout()->frameBoundingRect(table);
  const bool fits = box.bottom() - top < kLargestWholeTable * document_.pageSize().height();
  return fits && PageOf(top) != PageOf(box.bottom() - 1.0);
}

int HelpDocument::PageOf(double y) const {
  return static_cast<int>(y / document_.pageSize().height());
}

bool HelpDocument::BreakWhereParted() {
  QTextBlock heading;
  int blocks_since = 0;
  QTextTable* last_table = nullptr;
  for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
    ++blocks_since;
    if (block.blockFormat().headingLevel() >= 2) {
      // Of two headings in a row the first one takes the break.
      if (blocks_since > 1) heading = block;
      blocks_since = 0;
      if (HeadingIsParted(block) && BreakBefore(heading)) return true;
      continue;
    }
    QTextTable* table = QTextCursor(block).currentTable();
    if (table == nullptr || table == last_table) continue;
    last_table = table;
    // The heading goes along, with a sentence between the two.
    const bool headed = heading.isValid() && blocks_since <= 2;
    if (headed && TableIsParted(heading, table) && BreakBefore(heading)) return true;
  }
  return false;
}

}  // namespace help
