#include "platform/printing.h"

#include <QFile>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QMarginsF>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QString>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <functional>
#include <utility>

namespace skerrow {
namespace {

constexpr double kDefaultTabMm = 20.0;
constexpr double kFootMm = 7.0;
constexpr double kColumnGapMm = 5.0;
constexpr double kBlockGapMm = 3.0;

QFont ToQFont(const PrintFont& font) {
  QFont result = font.family.empty() ? QFont(QStringLiteral("Sans Serif"))
                                     : QFont(QString::fromStdString(font.family));
  result.setPointSizeF(std::max(font.size_pt, 1.0));
  result.setBold(font.bold);
  return result;
}

// Lays a document out from top to bottom, and draws it while there is something to draw on: once
// without, to count the pages, and once with.
class PageRun {
 public:
  // `new_page` ends the page and begins the next one.
  PageRun(const PrintDocument& document, QPaintDevice& device, double dots_per_mm, QRectF page,
          QPainter* painter, std::function<void()> new_page)
      : document_(document),
        device_(device),
        dots_per_mm_(dots_per_mm),
        page_(page),
        painter_(painter),
        new_page_(std::move(new_page)) {
    if (document.page_numbers || !document.foot.empty()) {
      page_.setBottom(page_.bottom() - kFootMm * dots_per_mm_);
    }
    width_ = page_.width();
  }

  // Gives the number of pages. `page_count` of an earlier run is printed at the foot; 0 for none.
  int Run(int page_count) {
    page_count_ = page_count;
    Foot();
    for (const PrintItem& item : document_.items) Set(item);
    return page_number_;
  }

 private:
  void Set(const PrintItem& item) {
    switch (item.kind) {
      case PrintItem::Kind::kLine:
        Line(item);
        break;
      case PrintItem::Kind::kPicture:
        DrawPicture(item);
        break;
      case PrintItem::Kind::kNewPage:
        NextPage();
        break;
      case PrintItem::Kind::kBlocks:
        Blocks(item);
        break;
    }
  }

  void Foot() {
    if (painter_ == nullptr) return;
    const QRectF line(page_.left(), page_.bottom(), page_.width(), kFootMm * dots_per_mm_);
    painter_->setFont(ToQFont({{}, 8.0, false}));
    painter_->drawText(line, Qt::AlignLeft | Qt::AlignBottom,
                       QString::fromStdString(document_.foot));
    if (!document_.page_numbers || (document_.foot.empty() && page_count_ < 2)) return;
    painter_->drawText(line, Qt::AlignRight | Qt::AlignBottom,
                       QStringLiteral("Page %1 of %2").arg(page_number_).arg(page_count_));
  }

  // The height of a block in the column in force, set without a page.
  double HeightOf(const std::vector<PrintItem>& block) {
    QPainter* painter = std::exchange(painter_, nullptr);
    const double top = std::exchange(y_, 0.0);
    measuring_ = true;
    for (const PrintItem& item : block) Set(item);
    measuring_ = false;
    painter_ = painter;
    return std::exchange(y_, top);
  }

  double WidthOf(const PrintItem& item) const {
    const QFont font(ToQFont(item.font), &device_);
    const QFontMetricsF metrics(font, &device_);
    double x = 0.0;
    const QStringList parts = QString::fromStdString(item.text).split(QLatin1Char('\t'));
    for (qsizetype i = 0; i < parts.size(); ++i) {
      if (i > 0) x = NextTab(item, x);
      x += metrics.horizontalAdvance(parts[i]);
    }
    return x;
  }

  void Blocks(const PrintItem& item) {
    double widest = 0.0;
    for (const std::vector<PrintItem>& block : item.blocks) {
      for (const PrintItem& line : block) widest = std::max(widest, WidthOf(line));
    }
    const double gap = kColumnGapMm * dots_per_mm_;
    std::size_t columns = static_cast<std::size_t>(std::max(item.columns, 1));
    const auto width = [&] {
      return (page_.width() - static_cast<double>(columns - 1) * gap) /
             static_cast<double>(columns);
    };
    while (columns > 1 && width() < widest) --columns;
    width_ = width();
    if (y_ > 0.0) y_ += kBlockGapMm * dots_per_mm_;
    for (std::size_t first = 0; first < item.blocks.size(); first += columns) {
      const std::size_t last = std::min(first + columns, item.blocks.size());
      double height = 0.0;
      for (std::size_t i = first; i < last; ++i) {
        height = std::max(height, HeightOf(item.blocks[i]));
      }
      Reserve(height);
      const double top = y_;
      const int page = page_number_;
      for (std::size_t i = first; i < last; ++i) {
        // A block of more than a page has gone on to the next one by itself.
        if (page_number_ == page) y_ = top;
        left_ = static_cast<double>(i - first) * (width_ + gap);
        for (const PrintItem& line : item.blocks[i]) Set(line);
      }
      left_ = 0.0;
      if (page_number_ == page) y_ = top + height;
      y_ += kBlockGapMm * dots_per_mm_;
    }
    width_ = page_.width();
  }

  void NextPage() {
    ++page_number_;
    y_ = 0.0;
    if (painter_ != nullptr) new_page_();
    Foot();
  }

  // Makes sure that `height` fits below what is on the page; what is higher than a page stays.
  void Reserve(double height) {
    if (!measuring_ && y_ > 0.0 && y_ + height > page_.height()) NextPage();
  }

  void Line(const PrintItem& item) {
    const QFont font(ToQFont(item.font), &device_);
    const QFontMetricsF metrics(font, &device_);
    const QString text = QString::fromStdString(item.text);
    if (text.contains(QLatin1Char('\t'))) {
      Reserve(metrics.lineSpacing());
      TabbedLine(item, text, font, metrics);
      y_ += metrics.lineSpacing();
      return;
    }
    QTextLayout layout(text, font, &device_);
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    bool any = false;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth(width_);
      Reserve(metrics.lineSpacing());
      const QString part = text.mid(line.textStart(), line.textLength());
      DrawText(0.0, part, font, metrics);
      y_ += metrics.lineSpacing();
      any = true;
    }
    layout.endLayout();
    if (!any) y_ += metrics.lineSpacing();
  }

  void TabbedLine(const PrintItem& item, const QString& text, const QFont& font,
                  const QFontMetricsF& metrics) {
    double x = 0.0;
    bool first = true;
    for (const QString& part : text.split(QLatin1Char('\t'))) {
      if (!first) x = NextTab(item, x);
      first = false;
      DrawText(x, part, font, metrics);
      x += metrics.horizontalAdvance(part);
    }
  }

  double NextTab(const PrintItem& item, double x) const {
    for (const double tab : item.tabs_mm) {
      if (tab * dots_per_mm_ > x) return tab * dots_per_mm_;
    }
    double tab = item.tabs_mm.empty() ? 0.0 : item.tabs_mm.back();
    while (tab * dots_per_mm_ <= x) tab += kDefaultTabMm;
    return tab * dots_per_mm_;
  }

  void DrawText(double x, const QString& text, const QFont& font, const QFontMetricsF& metrics) {
    if (painter_ == nullptr) return;
    painter_->setFont(font);
    painter_->drawText(QPointF(page_.left() + left_ + x, page_.top() + y_ + metrics.ascent()),
                       text);
  }

  void DrawPicture(const PrintItem& item) {
    if (item.picture.empty()) return;
    double width = item.width_mm > 0.0 ? item.width_mm * dots_per_mm_ : page_.width();
    width = std::min(width, page_.width());
    double height = width * item.picture.height / item.picture.width;
    if (height > page_.height()) {
      width *= page_.height() / height;
      height = page_.height();
    }
    Reserve(height);
    if (painter_ != nullptr) {
      const std::vector<std::uint8_t> bytes = ToRgba(item.picture);
      const QImage image(bytes.data(), item.picture.width, item.picture.height,
                         QImage::Format_RGBX8888);
      painter_->drawImage(QRectF(page_.left(), page_.top() + y_, width, height), image.copy());
    }
    y_ += height;
  }

  const PrintDocument& document_;
  QPaintDevice& device_;
  double dots_per_mm_;
  QRectF page_;
  QPainter* painter_;
  std::function<void()> new_page_;
  double y_ = 0.0;
  double left_ = 0.0;   // of the column in force, from the page's left
  double width_ = 0.0;  // of that column
  bool measuring_ = false;
  int page_number_ = 1;
  int page_count_ = 0;
};

// Points `printer` at the target. Error: why it can't.
Status Prepare(QPrinter& printer, const PrintDocument& document, const PrintTarget& target) {
  printer.setDocName(QString::fromStdString(document.title));
  printer.setCreator(QStringLiteral("Skerrow"));
  printer.setPageOrientation(document.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  if (!target.pdf_file.empty()) {
    const QString name = QString::fromStdString(target.pdf_file);
    QFile probe(name);
    if (!probe.open(QIODevice::WriteOnly | QIODevice::Append)) {
      return Error{target.pdf_file, probe.errorString().toStdString()};
    }
    probe.close();
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(name);
    printer.setPageSize(QPageSize(QPageSize::A4));
  } else if (!target.printer.empty()) {
    const QString name = QString::fromStdString(target.printer);
    if (QPrinterInfo::printerInfo(name).isNull()) {
      return Error{{}, "there is no printer \"" + target.printer + "\""};
    }
    printer.setPrinterName(name);
  } else if (QPrinterInfo::defaultPrinter().isNull()) {
    return Error{{}, "there is no printer"};
  }
  printer.setPageMargins(
      QMarginsF(document.margin_mm, document.margin_mm, document.margin_mm, document.margin_mm),
      QPageLayout::Millimeter);
  return Done{};
}

}  // namespace

PrintItem PrintLine(std::string text, PrintFont font, std::vector<double> tabs_mm) {
  PrintItem item;
  item.text = std::move(text);
  item.font = std::move(font);
  item.tabs_mm = std::move(tabs_mm);
  return item;
}

PrintItem PrintPicture(Picture picture, double width_mm) {
  PrintItem item;
  item.kind = PrintItem::Kind::kPicture;
  item.picture = std::move(picture);
  item.width_mm = width_mm;
  return item;
}

PrintItem PrintNewPage() {
  PrintItem item;
  item.kind = PrintItem::Kind::kNewPage;
  return item;
}

PrintItem PrintBlocks(std::vector<std::vector<PrintItem>> blocks, int columns) {
  PrintItem item;
  item.kind = PrintItem::Kind::kBlocks;
  item.blocks = std::move(blocks);
  item.columns = columns;
  return item;
}

std::vector<std::string> PrinterNames() {
  std::vector<std::string> names;
  const std::string first = QPrinterInfo::defaultPrinterName().toStdString();
  if (!first.empty()) names.push_back(first);
  for (const QString& name : QPrinterInfo::availablePrinterNames()) {
    if (name.toStdString() != first) names.push_back(name.toStdString());
  }
  return names;
}

Result<int> Print(const PrintDocument& document, const PrintTarget& target) {
  QPrinter printer(QPrinter::HighResolution);
  const Status status = Prepare(printer, document, target);
  if (!status) return status.error();
  const double dots_per_mm = printer.resolution() / 25.4;
  const QRectF page(QPointF(0.0, 0.0), printer.pageRect(QPrinter::DevicePixel).size());
  const int pages = PageRun(document, printer, dots_per_mm, page, nullptr, {}).Run(0);
  QPainter painter;
  if (!painter.begin(&printer)) return Error{target.pdf_file, "the printing cannot be started"};
  PageRun(document, printer, dots_per_mm, page, &painter, [&printer] {
    printer.newPage();
  }).Run(pages);
  if (!painter.end() || printer.printerState() == QPrinter::Error) {
    return Error{target.pdf_file, "the printing failed"};
  }
  return pages;
}

}  // namespace skerrow
