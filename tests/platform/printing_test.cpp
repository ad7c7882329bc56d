#include "platform/printing.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfDocument>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "platform/clipboard.h"

namespace skerrow {
namespace {

class PrintingTest : public ::testing::Test {
 protected:
  std::string path() const { return folder_.filePath("out.pdf").toStdString(); }
  // The pages of the file, white behind.
  std::vector<QImage> Pages() const {
    QPdfDocument pdf;
    pdf.load(QString::fromStdString(path()));
    std::vector<QImage> pages;
    for (int i = 0; i < pdf.pageCount(); ++i) {
      const QSize size = (pdf.pagePointSize(i)).toSize();
      QImage page(size, QImage::Format_RGB32);
      page.fill(Qt::white);
      QPainter(&page).drawImage(0, 0, pdf.render(i, size));
      pages.push_back(page);
    }
    return pages;
  }
  QTemporaryDir folder_;
};

// The share of the pixels of a part of the page that are dark.
double Ink(const QImage& page, QRect part) {
  int dark = 0;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) dark += qGray(page.pixel(x, y)) < 160;
  }
  return static_cast<double>(dark) / (part.width() * part.height());
}

TEST_F(PrintingTest, LinesRunOverPagesWithNumbersAtTheFoot) {
  PrintDocument document;
  document.title = "Tide table";
  for (int i = 0; i < 120; ++i) {
    document.items.push_back(PrintLine("Line " + std::to_string(i) + "\t12.34\tHW", {}, {40, 90}));
  }
  document.items.push_back(PrintNewPage());
  document.items.push_back(PrintLine(std::string("Last page ") + std::string(400, 'x') + " end"));
  const auto count = Print(document, {{}, path()});
  ASSERT_TRUE(count.ok()) << count.error().Text();
  const auto pages = Pages();
  ASSERT_EQ(static_cast<int>(pages.size()), *count);
  EXPECT_EQ(*count, 3);
  // A4 upright, in points.
  EXPECT_NEAR(pages[0].width(), 595, 2);
  EXPECT_NEAR(pages[0].height(), 842, 2);
  for (const QImage& page : pages) {
    EXPECT_GT(Ink(page, {42, 42, 300, 40}), 0.005);
    EXPECT_GT(Ink(page, {450, 780, 103, 22}), 0.005);  // the number
    EXPECT_EQ(Ink(page, {0, 0, 595, 40}), 0.0);        // the margin
    EXPECT_EQ(Ink(page, {556, 0, 38, 841}), 0.0);
  }
  // The second column begins 40 mm from the left margin of 15 mm: 156 points.
  EXPECT_GT(Ink(pages[0], {156, 42, 30, 60}), 0.02);
  EXPECT_EQ(Ink(pages[0], {125, 42, 29, 60}), 0.0);
}

TEST_F(PrintingTest, PicturesKeepTheirShapeAndStayOnOnePage) {
  PrintDocument document;
  document.landscape = true;
  document.page_numbers = false;
  document.items.push_back(PrintLine("The plot", {{}, 20.0, true}));
  std::vector<std::uint32_t> black(200 * 100, 0xff000000U);
  document.items.push_back(PrintPicture(PictureFromRgb32(200, 100, black), 100.0));
  document.items.push_back(PrintPicture(PictureFromRgb32(100, 200, black)));
  const auto count = Print(document, {{}, path()});
  ASSERT_TRUE(count.ok());
  const auto pages = Pages();
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_GT(pages[0].width(), pages[0].height());
  // 100 x 50 mm are 283 x 142 points.
  const double area = Ink(pages[0], pages[0].rect()) * pages[0].width() * pages[0].height();
  EXPECT_NEAR(area, 283.5 * 141.7, 1800.0);
  const double tall = Ink(pages[1], pages[1].rect()) * pages[1].width() * pages[1].height();
  const double height = pages[1].height() - 2 * 15.0 / 25.4 * 72.0;
  EXPECT_NEAR(tall, height * height / 2.0, 2500.0);
}

// Twelve blocks of ten lines, two abreast: none is parted, and each page has its foot.
TEST_F(PrintingTest, BlocksStandTwoAbreastAndWhole) {
  std::vector<std::vector<PrintItem>> blocks;
  for (int block = 0; block < 12; ++block) {
    const std::string name = "B" + std::to_string(block);
    blocks.emplace_back();
    for (int line = 0; line < 10; ++line) blocks.back().push_back(PrintLine(name + "x"));
  }
  PrintDocument document;
  document.foot = "Footname";
  document.items = {PrintLine("head"), PrintBlocks(blocks, 2)};
  ASSERT_EQ(*Print(document, {{}, path()}), 2);
  QPdfDocument pdf;
  pdf.load(QString::fromStdString(path()));
  int whole = 0;
  for (int page = 0; page < 2; ++page) {
    const QString text = pdf.getAllText(page).text();
    EXPECT_EQ(text.count("Footname"), 1) << page;
    EXPECT_TRUE(text.contains(QString("Page %1 of 2").arg(page + 1)));
    for (int block = 0; block < 12; ++block) {
      const auto lines = text.count(QString("B%1x").arg(block));
      EXPECT_TRUE(lines == 0 || lines == 10) << block << " on page " << page;
      whole += lines == 10 ? 1 : 0;
    }
  }
  EXPECT_EQ(whole, 12);
  const QImage page = Pages()[0];
  EXPECT_GT(Ink(page, {42, 60, 60, 100}), 0.02);
  EXPECT_GT(Ink(page, {310, 60, 60, 100}), 0.02) << "the second column";
  // Lines as wide as the page have it for themselves.
  blocks[3].push_back(PrintLine(std::string(90, 'w')));
  document.items[1] = PrintBlocks(blocks, 2);
  ASSERT_TRUE(Print(document, {{}, path()}));
  EXPECT_EQ(Ink(Pages()[0], {310, 60, 60, 100}), 0.0);
}

TEST_F(PrintingTest, ErrorsNameWhatIsMissing) {
  PrintDocument document;
  document.items.push_back(PrintLine("x"));
  const std::string nowhere = path() + "/no/file.pdf";
  EXPECT_EQ(Print(document, {{}, nowhere}).error().path, nowhere);
  EXPECT_EQ(Print(document, {"No such printer", {}}).error().reason,
            "there is no printer \"No such printer\"");
}

TEST(Clipboard, TextAndPicturesGoThroughTheDesktop) {
  SystemClipboard clipboard;
  clipboard.SetText("50°30.25N\nsecond");
  EXPECT_EQ(clipboard.Text(), "50°30.25N\nsecond");
  clipboard.SetPicture(PictureFromRgb32(2, 1, {0xff010203U, 0xff040506U}));
  EXPECT_EQ(clipboard.Text(), "");
}

}  // namespace
}  // namespace skerrow
