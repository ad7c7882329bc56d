#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPdfDocument>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QTreeView>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>

#include "support/temp_folder.h"
#include "ui/help/frmPDFReader.h"
#include "ui/help/help_files.h"

#ifdef __SANITIZE_ADDRESS__
// The PDF library keeps what it allocates in pools of its own, which the leak check cannot see
// into. Loading and closing one document over and over doesn't grow the process.
extern "C" const char* __lsan_default_suppressions() { return "leak:libQt6Pdf\n"; }
#endif

namespace skerrow {
namespace {

std::string HelpPath(const std::string& name) {
  return std::string(SKERROW_HELP_FOLDER) + "/" + name;
}

QString AllText(const std::string& name) {
  QPdfDocument document(nullptr);
  document.load(QString::fromStdString(HelpPath(name)));
  QString text;
  for (int page = 0; page < document.pageCount(); ++page) {
    text += document.getAllText(page).text() + QLatin1Char('\n');
  }
  return text;
}

QPalette DarkPalette() {
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(0x14, 0x08, 0x06));
  palette.setColor(QPalette::Base, QColor(0x0b, 0x04, 0x03));
  palette.setColor(QPalette::Button, QColor(0x22, 0x0e, 0x0a));
  for (const QPalette::ColorRole role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(role, QColor(0xd0, 0x60, 0x30));
  }
  palette.setColor(QPalette::Mid, QColor(0x40, 0x1c, 0x12));
  palette.setColor(QPalette::Highlight, QColor(0x70, 0x28, 0x10));
  return palette;
}

class HelpReaderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    reader = std::make_unique<frmPDFReader>(settings, clipboard);
    reader->resize(980, 800);
  }

  // A picture of the window stays behind when a test fails, or when a folder asks for it.
  void TearDown() override {
    const QByteArray folder = qgetenv("SKERROW_PICTURES");
    if (reader && (HasFailure() || !folder.isEmpty())) {
      const QString name =
          QString::fromLatin1(::testing::UnitTest::GetInstance()->current_test_info()->name());
      reader->grab().save(QDir(QString::fromLocal8Bit(folder)).filePath(name + ".png"));
    }
  }

  void Open(const std::string& name) {
    const Status status = reader->Open(HelpPath(name));
    ASSERT_TRUE(status.ok()) << status.error().Text();
    reader->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(reader.get()));
  }

  template <typename T>
  T* Child(const char* name) {
    T* child = reader->findChild<T*>(QString::fromLatin1(name));
    EXPECT_NE(child, nullptr) << name;
    return child;
  }

  MemorySettingsStore settings;
  MemoryClipboard clipboard;
  std::unique_ptr<frmPDFReader> reader;
};

TEST(HelpFiles, AllDocumentsAreThereWithTitleAndContents) {
  for (const HelpDocument& help : kHelpDocuments) {
    const std::string path = HelpPath(std::string(help.file));
    QPdfDocument document(nullptr);
    document.load(QString::fromStdString(path));
    ASSERT_EQ(document.status(), QPdfDocument::Status::Ready) << path;
    EXPECT_GE(document.pageCount(), 1) << path;
    const std::string title =
        document.metaData(QPdfDocument::MetaDataField::Title).toString().toStdString();
    EXPECT_NE(title.find(HelpTitle(path)), std::string::npos) << title;
    QPdfBookmarkModel bookmarks(nullptr);
    bookmarks.setDocument(&document);
    ASSERT_EQ(bookmarks.rowCount(), 1) << path;
    EXPECT_GE(bookmarks.rowCount(bookmarks.index(0, 0)), 2) << path;
  }
}

// Text goes missing when pages are laid out badly or letters are joined so that no search finds
// them; each document must hold every word of its source.
TEST(HelpFiles, EveryWordOfTheSourceIsOnPaper) {
  for (const HelpDocument& help : kHelpDocuments) {
    const std::string name(help.file);
    if (name == "Manual.pdf") continue;  // puts the others together
    const QString paper = AllText(name);
    QFile source(QStringLiteral(SKERROW_SOURCE_DIR "/docs/help/") +
                 QString::fromStdString(HelpTitle(name)) + ".md");
    ASSERT_TRUE(source.open(QIODevice::ReadOnly)) << name;
    for (QString line : QString::fromUtf8(source.readAll()).split('\n')) {
      if (line.startsWith('!')) continue;
      line.remove('*').replace('|', ' ').replace('>', ' ').replace('<', ' ');
      for (const QString& word : line.split(' ', Qt::SkipEmptyParts)) {
        // A path or a compound word may be parted at the end of a line.
        if (word.size() < 4 || word.contains('-') || word.contains('/')) continue;
        EXPECT_TRUE(paper.contains(word)) << name << ": " << word.toStdString();
      }
    }
  }
  const QString manual = AllText("Manual.pdf");
  for (const char* chapter : {"Your first passage", "The modes", "Reading the result",
                              "If nothing arrives", "Polar plots", "Words"}) {
    EXPECT_TRUE(manual.contains(QLatin1String(chapter))) << chapter;
  }
  EXPECT_FALSE(manual.contains(QLatin1String("[include")));
  EXPECT_FALSE(manual.contains(QLatin1String("[contents")));
}

TEST(HelpFiles, AreFoundBesideTheProgram) {
  const testing::TempFolder folder;
  namespace fs = std::filesystem;
  const fs::path root(folder.path());
  fs::create_directories(root / "bin" / "Help");
  fs::create_directories(root / "share" / "skerrow" / "Help");
  const std::string bin = (root / "bin").string();
  const std::string shared = (root / "share/skerrow/Help/Toolbar.pdf").string();
  EXPECT_EQ(HelpFile("Toolbar.pdf", bin), shared) << "where it ought to be";
  std::ofstream(root / "bin/Help/Toolbar.pdf") << "x";
  EXPECT_EQ(HelpFile("Toolbar.pdf", bin), (root / "bin/Help/Toolbar.pdf").string());
  std::ofstream(shared) << "x";
  EXPECT_EQ(HelpFile("Toolbar.pdf", bin), shared);
}

TEST_F(HelpReaderTest, ShowsTheDocumentUnderItsName) {
  Open("Passage Planning.pdf");
  EXPECT_EQ(reader->windowTitle(), "Passage Planning");
  EXPECT_EQ(reader->CurrentPage(), 0);
  EXPECT_EQ(Child<QSpinBox>("txtPage")->maximum(), reader->PageCount());
  EXPECT_TRUE(Child<QTreeView>("treeContents")->isVisible());
  // Fitted to the width: nothing to scroll sideways.
  EXPECT_EQ(reader->view().horizontalScrollBar()->maximum(), 0);
}

TEST_F(HelpReaderTest, TurnsPages) {
  Open("Manual.pdf");
  ASSERT_GT(reader->PageCount(), 5);
  Child<QAction>("cmdNext")->trigger();
  EXPECT_EQ(reader->CurrentPage(), 1);
  EXPECT_EQ(Child<QSpinBox>("txtPage")->value(), 2);
  Child<QSpinBox>("txtPage")->setValue(5);
  EXPECT_EQ(reader->CurrentPage(), 4);
  Child<QAction>("cmdPrevious")->trigger();
  EXPECT_EQ(reader->CurrentPage(), 3);
  QTest::keyClick(&reader->view(), Qt::Key_End);
  EXPECT_EQ(reader->CurrentPage(), reader->PageCount() - 1);
  Child<QAction>("cmdNext")->trigger();
  EXPECT_EQ(reader->CurrentPage(), reader->PageCount() - 1);
  QTest::keyClick(&reader->view(), Qt::Key_Home);
  EXPECT_EQ(reader->CurrentPage(), 0);
}

TEST_F(HelpReaderTest, GoesToAChapterOfTheContents) {
  Open("Manual.pdf");
  auto* tree = Child<QTreeView>("treeContents");
  const QModelIndex title = tree->rootIndex();
  ASSERT_TRUE(title.isValid()) << "the title itself is left out";
  QModelIndex chapter;
  for (int row = 0; row < tree->model()->rowCount(title); ++row) {
    const QModelIndex index = tree->model()->index(row, 0, title);
    if (index.data(static_cast<int>(QPdfBookmarkModel::Role::Title)) == "Settings") {
      chapter = index;
    }
  }
  ASSERT_TRUE(chapter.isValid());
  emit tree->clicked(chapter);
  const int page = chapter.data(static_cast<int>(QPdfBookmarkModel::Role::Page)).toInt();
  EXPECT_EQ(reader->CurrentPage(), page);
  QPdfDocument document(nullptr);
  document.load(QString::fromStdString(HelpPath("Manual.pdf")));
  EXPECT_TRUE(document.getAllText(page).text().contains("General Settings changes"));
}

TEST_F(HelpReaderTest, ZoomsAndFits) {
  Open("Overview.pdf");
  PdfPageView& view = reader->view();
  const double fitted = view.zoom();
  Child<QAction>("cmdZoomIn")->trigger();
  EXPECT_NEAR(view.zoom(), fitted * 1.25, 1e-9);
  EXPECT_EQ(view.fit(), PdfPageView::Fit::kNone);
  auto* zoom = Child<QComboBox>("cmbZoom");
  zoom->setEditText("150 %");
  emit zoom->textActivated(zoom->currentText());
  EXPECT_DOUBLE_EQ(view.zoom(), 1.5);
  zoom->setEditText("wide");
  emit zoom->textActivated(zoom->currentText());
  EXPECT_DOUBLE_EQ(view.zoom(), 1.5);
  EXPECT_EQ(zoom->currentText(), "150 %");
  view.SetZoom(100.0);
  EXPECT_DOUBLE_EQ(view.zoom(), PdfPageView::kMostZoom);
  Child<QAction>("cmdFitPage")->trigger();
  EXPECT_LE(view.zoom(), fitted);
  Child<QAction>("cmdFitWidth")->trigger();
  EXPECT_NEAR(view.zoom(), fitted, 0.02);
  reader->resize(1300, 800);
  QTest::qWait(10);
  EXPECT_GT(view.zoom(), fitted) << "a fit follows the window";
}

TEST_F(HelpReaderTest, FindsWordsOnwardsBackwardsAndRound) {
  Open("Manual.pdf");
  auto* text = Child<QLineEdit>("txtSearch");
  QTest::keyClicks(text, "settings");  // any case
  const QString all = AllText("Manual.pdf");
  const auto count = static_cast<int>(all.count("settings", Qt::CaseInsensitive));
  ASSERT_GT(count, 4);
  EXPECT_EQ(Child<QLabel>("lblSearch")->text(), QString("1 of %1").arg(count));
  QTest::keyClick(text, Qt::Key_Return);
  EXPECT_EQ(reader->CurrentMatch(), 1);
  EXPECT_TRUE(reader->isVisible()) << "Return must not close the window";
  Child<QAction>("cmdFindPrevious")->trigger();
  Child<QAction>("cmdFindPrevious")->trigger();
  EXPECT_EQ(reader->CurrentMatch(), count - 1);
  EXPECT_GT(reader->CurrentPage(), 5) << "the place found comes into view";
  Child<QAction>("cmdFindNext")->trigger();
  EXPECT_EQ(reader->CurrentMatch(), 0);
  EXPECT_EQ(reader->Find("zyzzyva"), 0);
  EXPECT_EQ(Child<QLabel>("lblSearch")->text(), "not found");
  EXPECT_EQ(reader->CurrentMatch(), -1);
  reader->FindNext();
  reader->view().GoTo(6);
  EXPECT_GT(reader->Find("chart"), 0);
  EXPECT_GE(reader->CurrentPage(), 5) << "a search begins at the page in view";
}

TEST_F(HelpReaderTest, CopiesWhatIsSelected) {
  Open("Toolbar.pdf");
  auto* copy = Child<QAction>("cmdCopy");
  EXPECT_FALSE(copy->isEnabled());
  QWidget* view = reader->view().viewport();
  const QPoint middle = view->rect().center();
  QTest::mousePress(view, Qt::LeftButton, {}, QPoint(middle.x() - 250, 60));
  QTest::mouseMove(view, QPoint(middle.x() + 250, 260));
  QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(middle.x() + 250, 260));
  ASSERT_TRUE(copy->isEnabled());
  copy->trigger();
  EXPECT_NE(clipboard.Text().find("two toolbars"), std::string::npos) << clipboard.Text();
  reader->view().SelectAllOfPage();
  copy->trigger();
  EXPECT_NE(clipboard.Text().find("The first toolbar"), std::string::npos);
}

TEST_F(HelpReaderTest, NightLeavesNoBrightPaper) {
  reader->setPalette(DarkPalette());
  Open("Overview.pdf");
  reader->Find("route");
  const QImage picture = reader->grab().toImage();
  int brightest = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      brightest = std::max(brightest, qGray(picture.pixel(x, y)));
    }
  }
  EXPECT_LT(brightest, 190) << "paper is 255, the icons' lines 185";
  EXPECT_GT(brightest, 60) << "the text itself must be legible";
  // Back to the day the same pages are white again.
  reader->setPalette(QPalette());
  const QImage day = reader->view().viewport()->grab().toImage();
  EXPECT_EQ(qGray(day.pixel(day.width() / 2, 30)), 255);
  reader->setPalette(DarkPalette());  // for the picture
}

TEST_F(HelpReaderTest, SaysWhatIsWrongWithAFile) {
  const testing::TempFolder folder;
  const std::string missing = folder.path() + "/Overview.pdf";
  const Status gone = reader->Open(missing);
  ASSERT_FALSE(gone.ok());
  EXPECT_EQ(gone.error().Text(), missing + ": The file does not exist.");
  reader->show();
  auto* problem = Child<QLabel>("lblProblem");
  EXPECT_TRUE(problem->isVisible());
  EXPECT_TRUE(problem->text().contains("Overview.pdf"));
  EXPECT_TRUE(problem->text().contains("does not exist"));
  EXPECT_FALSE(Child<QAction>("cmdNext")->isEnabled());
  EXPECT_EQ(reader->Find("chart"), 0);

  const std::string broken = folder.path() + "/Broken.pdf";
  std::ofstream(broken) << "%PDF-1.4\nrubbish";
  const Status bad = reader->Open(broken);
  ASSERT_FALSE(bad.ok());
  EXPECT_EQ(bad.error().reason, "The file is no document that can be read.");
  Open("Overview.pdf");
  EXPECT_FALSE(problem->isVisible());
  EXPECT_TRUE(Child<QAction>("cmdNext")->isEnabled());
  EXPECT_FALSE(reader->Open(missing).ok());  // for the picture
}

TEST_F(HelpReaderTest, RemembersItsSize) {
  Open("Overview.pdf");
  reader->resize(700, 500);
  Child<QAction>("cmdContents")->setChecked(false);
  reader.reset();
  reader = std::make_unique<frmPDFReader>(settings, clipboard);
  EXPECT_EQ(reader->size(), QSize(700, 500));
  Open("Overview.pdf");
  EXPECT_FALSE(Child<QTreeView>("treeContents")->isVisible());
  settings.SetInt("frmPDFReader", "Width", -5);  // a damaged store
  settings.SetInt("frmPDFReader", "Height", 99999);
  reader = std::make_unique<frmPDFReader>(settings, clipboard);
  EXPECT_GE(reader->width(), reader->minimumWidth());
}

}  // namespace
}  // namespace skerrow
