// Sets a help document, written in Markdown, as a PDF with numbered pages and an outline.
//   help-to-pdf OUTPUT.pdf INPUT.md [PICTURE_FOLDER...]

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QTextStream>

#include "help_document.h"
#include "pdf_outline.h"

namespace {

constexpr int kDotsPerInch = 300;
constexpr double kPointsPerInch = 72.0;
constexpr double kMillimetresPerInch = 25.4;
constexpr double kSideMm = 22.0;
constexpr double kTopMm = 20.0;
constexpr double kBottomMm = 24.0;
constexpr double kFooterMm = 9.0;  // below the text
constexpr const char* kProgram = "Skerrow Helm";

double Pixels(double millimetres) { return millimetres / kMillimetresPerInch * kDotsPerInch; }

void PaintPage(QPainter& painter, help::HelpDocument& help, int page, int pages, QSizeF body) {
  painter.save();
  painter.translate(0.0, -page * body.height());
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = QRectF(0.0, page * body.height(), body.width(), body.height());
  painter.setClipRect(context.clip);
  help.document().documentLayout()->draw(&painter, context);
  painter.restore();

  QFont font = help.document().defaultFont();
  font.setPointSizeF(8.5);
  painter.setFont(font);
  const double rule = body.height() + Pixels(kFooterMm) - Pixels(4.0);
  painter.setPen(QPen(QColor(0xc9, 0xd2, 0xdb), Pixels(0.2)));
  painter.drawLine(QPointF(0.0, rule), QPointF(body.width(), rule));
  painter.setPen(QColor(0x5b, 0x68, 0x75));
  const QRectF line(0.0, rule + Pixels(1.2), body.width(), Pixels(6.0));
  QString left = QLatin1String(kProgram);
  if (help.title() != left) left += QStringLiteral("  ·  ") + help.title();
  painter.drawText(line, Qt::AlignLeft | Qt::AlignTop, left);
  painter.drawText(line, Qt::AlignRight | Qt::AlignTop,
                   QStringLiteral("%1 / %2").arg(page + 1).arg(pages));
}

bool WritePdf(const QString& output, help::HelpDocument& help) {
  QPdfWriter writer(output);
  writer.setResolution(kDotsPerInch);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageMargins(QMarginsF(kSideMm, kTopMm, kSideMm, kBottomMm), QPageLayout::Millimeter);
  writer.setTitle(help.title());
  writer.setCreator(QLatin1String(kProgram));
  const QSizeF body(writer.width(), writer.height());
  help.LayOut(&writer, body);

  QPainter painter;
  if (!painter.begin(&writer)) return false;
  const int pages = help.document().pageCount();
  for (int page = 0; page < pages; ++page) {
    if (page > 0) writer.newPage();
    PaintPage(painter, help, page, pages, body);
  }
  if (!painter.end()) return false;

  const double page_height = QPageSize(QPageSize::A4).size(QPageSize::Point).height();
  QList<help::OutlineEntry> outline;
  for (const help::Heading& heading : help.Headings()) {
    if (heading.level > 3) continue;
    const double from_top =
        (heading.top / kDotsPerInch + kTopMm / kMillimetresPerInch) * kPointsPerInch;
    outline << help::OutlineEntry{heading.text, heading.level, heading.page,
                                  page_height - from_top};
  }
  if (!help::AddOutline(output, outline)) {
    QTextStream(stderr) << output << ": left without an outline\n";
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  QTextStream errors(stderr);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() < 3) {
    errors << "usage: help-to-pdf OUTPUT.pdf INPUT.md [PICTURE_FOLDER...]\n";
    return 2;
  }
  QFile input(arguments[2]);
  if (!input.open(QIODevice::ReadOnly)) {
    errors << arguments[2] << ": " << input.errorString() << "\n";
    return 1;
  }
  QStringList missing;
  QString text = help::WithIncludes(QString::fromUtf8(input.readAll()),
                                    QFileInfo(input).absolutePath(), &missing);
  text = help::WithPictures(text, arguments.mid(3), &missing);
  if (!missing.isEmpty()) {
    errors << "cannot be read: " << missing.join(QLatin1String(", ")) << "\n";
    return 1;
  }
  help::HelpDocument help(text);
  if (help.title().isEmpty()) {
    errors << arguments[2] << ": does not open with a title\n";
    return 1;
  }
  if (!WritePdf(arguments[1], help)) {
    errors << arguments[1] << ": cannot be written\n";
    return 1;
  }
  return 0;
}
