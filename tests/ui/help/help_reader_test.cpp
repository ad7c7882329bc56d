// The help documents as they were set, and their reader.

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPdfDocument>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <set>

#include "platform/settings_store.h"
#include "support/memory_clipboard.h"
#include "support/temp_folder.h"
#include "ui/help/frmPDFReader.h"
#include "ui/help/help_files.h"
#include "ui/widgets/theme.h"

#ifdef __SANITIZE_ADDRESS__
// The PDF library keeps what it allocates in pools of its own, which the leak check cannot see
// into. Loading and closing one document over and over doesn't grow the process.
extern "C" const char* __lsan_default_suppressions() { return "leak:libQt6Pdf\n"; }
#endif

namespace skerrow::testing {
namespace {

std::string HelpPath(const std::string& name) {
  return std::string(SKERROW_HELP_FOLDER) + "/" + name;
}

std::string SourceOf(std::string_view file) {
  return FileBytes(SKERROW_SOURCE_DIR "/docs/help/" + HelpTitle(file) + ".md");
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

// Text goes missing when pages are laid out badly or letters are joined so that no search finds
// them; each document must hold every word of its source.
TEST(HelpFiles, HoldTitleContentsAndEveryWordOfTheirSource) {
  for (const HelpDocument& help : kHelpDocuments) {
    const std::string name(help.file);
    QPdfDocument document(nullptr);
    document.load(QString::fromStdString(HelpPath(name)));
    ASSERT_EQ(document.status(), QPdfDocument::Status::Ready) << name;
    const std::string title =
        document.metaData(QPdfDocument::MetaDataField::Title).toString().toStdString();
    EXPECT_NE(title.find(HelpTitle(name)), std::string::npos) << title;
    QPdfBookmarkModel bookmarks(nullptr);
    bookmarks.setDocument(&document);
    ASSERT_EQ(bookmarks.rowCount(), 1) << name;
    EXPECT_GE(bookmarks.rowCount(bookmarks.index(0, 0)), 2) << name;

    const QString paper = AllText(name);
    EXPECT_FALSE(paper.contains("[include") || paper.contains("[contents")) << name;
    for (QString line : QString::fromStdString(SourceOf(name)).split('\n')) {
      if (line.startsWith('!') || line.startsWith('[')) continue;
      line.remove('*').replace('|', ' ').replace('>', ' ').replace('<', ' ');
      for (const QString& word : line.split(' ', Qt::SkipEmptyParts)) {
        // A path or a compound word may be parted at the end of a line.
        if (word.size() < 4 || word.contains('-') || word.contains('/')) continue;
        EXPECT_TRUE(paper.contains(word)) << name << ": " << word.toStdString();
      }
    }
  }
  const QString manual = AllText("Manual.pdf");
  for (const char* chapter : {"Your first passage", "The modes", "If nothing arrives", "Words"}) {
    EXPECT_TRUE(manual.contains(QLatin1String(chapter))) << chapter;
  }
}

// The pictures that a document shows, those of the documents that it includes among them.
std::set<QString> PicturesOf(const std::string& source) {
  static const QRegularExpression picture(R"(!\[[^\]]*\]\(([^)]+)\))");
  static const QRegularExpression include(R"(\[include ([^\]]+)\])");
  const QString text = QString::fromStdString(source);
  std::set<QString> named;
  for (const QRegularExpressionMatch& match : picture.globalMatch(text)) {
    named.insert(match.captured(1));
  }
  for (const QRegularExpressionMatch& match : include.globalMatch(text)) {
    named.merge(PicturesOf(SourceOf(match.captured(1).toStdString() + ".pdf")));
  }
  return named;
}

// A reader of Markdown may drop a picture without a word.
TEST(HelpFiles, ShowEveryPictureOfTheirSource) {
  std::set<QString> all;
  for (const HelpDocument& help : kHelpDocuments) {
    const std::set<QString> named = PicturesOf(SourceOf(help.file));
    all.insert(named.begin(), named.end());
    const std::string paper = FileBytes(HelpPath(std::string(help.file)));
    std::size_t shown = 0;
    for (std::size_t at = 0; (at = paper.find("/Subtype /Image", at)) != std::string::npos; ++at) {
      ++shown;
    }
    EXPECT_EQ(shown, named.size()) << help.file;
    EXPECT_GE(shown, 1U) << help.file;
  }
  EXPECT_GE(all.size(), 20U);
}

TEST(HelpFiles, AreFoundBesideTheProgram) {
  const TempFolder folder;
  std::filesystem::create_directories(folder.File("bin/Help"));
  std::filesystem::create_directories(folder.File("share/skerrow/Help"));
  const std::string shared = folder.File("share/skerrow/Help/Toolbar.pdf");
  const std::string beside = folder.File("bin/Help/Toolbar.pdf");
  const auto found = [&] { return HelpFile("Toolbar.pdf", folder.File("bin")); };
  EXPECT_EQ(found(), shared) << "where it ought to be";
  folder.Write("bin/Help/Toolbar.pdf", "x");
  EXPECT_EQ(found(), beside);
  folder.Write("share/skerrow/Help/Toolbar.pdf", "x");
  EXPECT_EQ(found(), shared);
}

class HelpReaderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ApplyTheme(false);
    reader = std::make_unique<frmPDFReader>(settings, clipboard);
    reader->resize(980, 800);
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

TEST_F(HelpReaderTest, TurnsPagesAndGoesToAChapter) {
  Open("Manual.pdf");
  EXPECT_EQ(reader->windowTitle(), "Manual");
  // Fitted to the width: nothing to scroll sideways.
  EXPECT_EQ(reader->view().horizontalScrollBar()->maximum(), 0);
  auto* page = Child<QSpinBox>("txtPage");
  EXPECT_EQ(page->maximum(), reader->PageCount());
  Child<QAction>("cmdNext")->trigger();
  EXPECT_EQ(page->value(), 2);
  page->setValue(5);
  EXPECT_EQ(reader->CurrentPage(), 4);
  Child<QAction>("cmdPrevious")->trigger();
  EXPECT_EQ(reader->CurrentPage(), 3);
  QTest::keyClick(&reader->view(), Qt::Key_End);
  Child<QAction>("cmdNext")->trigger();
  EXPECT_EQ(reader->CurrentPage(), reader->PageCount() - 1);

  auto* tree = Child<QTreeView>("treeContents");
  const QModelIndex title = tree->rootIndex();
  ASSERT_TRUE(title.isValid()) << "the title itself is left out";
  const auto role = static_cast<int>(QPdfBookmarkModel::Role::Title);
  emit tree->clicked(
      tree->model()
          ->match(tree->model()->index(0, 0, title), role, "Settings", 1, Qt::MatchExactly)
          .value(0));
  QPdfDocument document(nullptr);
  document.load(QString::fromStdString(HelpPath("Manual.pdf")));
  EXPECT_TRUE(
      document.getAllText(reader->CurrentPage()).text().contains("General Settings changes"));
}

TEST_F(HelpReaderTest, ZoomsAndFits) {
  Open("Overview.pdf");
  PdfPageView& view = reader->view();
  const double fitted = view.zoom();
  Child<QAction>("cmdZoomIn")->trigger();
  EXPECT_NEAR(view.zoom(), fitted * 1.25, 1e-9);
  auto* zoom = Child<QComboBox>("cmbZoom");
  for (const char* text : {"150 %", "wide"}) {
    zoom->setEditText(text);
    emit zoom->textActivated(zoom->currentText());
    EXPECT_EQ(zoom->currentText(), "150 %");
  }
}

TEST_F(HelpReaderTest, FindsWordsOnwardsBackwardsAndRound) {
  Open("Manual.pdf");
  auto* text = Child<QLineEdit>("txtSearch");
  QTest::keyClicks(text, "settings");  // any case
  const auto count = static_cast<int>(AllText("Manual.pdf").count("settings", Qt::CaseInsensitive));
  EXPECT_EQ(Child<QLabel>("lblSearch")->text(), QString("1 of %1").arg(count));
  QTest::keyClick(text, Qt::Key_Return);
  EXPECT_EQ(reader->CurrentMatch(), 1);
  EXPECT_TRUE(reader->isVisible()) << "Return must not close the window";
  for (int i = 0; i < 2; ++i) Child<QAction>("cmdFindPrevious")->trigger();
  EXPECT_EQ(reader->CurrentMatch(), count - 1);
  EXPECT_GT(reader->CurrentPage(), 5) << "the place found comes into view";
  EXPECT_EQ(reader->Find("zyzzyva"), 0);
  EXPECT_EQ(Child<QLabel>("lblSearch")->text(), "not found");
  reader->view().GoTo(6);
  EXPECT_GT(reader->Find("chart"), 0);
  EXPECT_GE(reader->CurrentPage(), 5) << "a search begins at the page in view";
}

TEST_F(HelpReaderTest, NightLeavesNoBrightPaper) {
  ApplyTheme(true);
  Open("Overview.pdf");
  reader->Find("route");
  const QImage grey = reader->grab().toImage().convertToFormat(QImage::Format_Grayscale8);
  const uchar brightest =
      *std::max_element(grey.constBits(), grey.constBits() + grey.sizeInBytes());
  EXPECT_LT(brightest, 190) << "paper is 255, the icons' lines 185";
  EXPECT_GT(brightest, 60) << "the text itself must be legible";
  // Back to the day the same pages are white again.
  ApplyTheme(false);
  const QImage day = reader->view().viewport()->grab().toImage();
  EXPECT_EQ(qGray(day.pixel(day.width() / 2, 30)), 255);
}

TEST_F(HelpReaderTest, CopiesAndSaysWhatIsWrongWithAFile) {
  Open("Toolbar.pdf");
  reader->view().SelectAllOfPage();
  Child<QAction>("cmdCopy")->trigger();
  EXPECT_NE(clipboard.Text().find("two toolbars"), std::string::npos) << clipboard.Text();

  const TempFolder folder;
  const std::string missing = folder.File("Overview.pdf");
  const Status gone = reader->Open(missing);
  ASSERT_FALSE(gone.ok());
  EXPECT_EQ(gone.error().Text(), missing + ": The file does not exist.");
  reader->show();
  auto* problem = Child<QLabel>("lblProblem");
  EXPECT_TRUE(problem->isVisible());
  EXPECT_TRUE(problem->text().contains("Overview.pdf</p><p>The file does not exist"));
  EXPECT_FALSE(Child<QAction>("cmdNext")->isEnabled());
  EXPECT_EQ(reader->Find("chart"), 0);
  const Status bad = reader->Open(folder.Write("Broken.pdf", "%PDF-1.4\nrubbish"));
  ASSERT_FALSE(bad.ok());
  EXPECT_EQ(bad.error().reason, "The file is no document that can be read.");
  Open("Overview.pdf");
  EXPECT_FALSE(problem->isVisible());
}

TEST_F(HelpReaderTest, RemembersItsSizeAndKeepsItsTitleBarOnTheScreen) {
  const QRect room = reader->screen()->availableGeometry();
  Open("Overview.pdf");
  reader->resize(700, 500);
  Child<QAction>("cmdContents")->setChecked(false);
  reader.reset();
  reader = std::make_unique<frmPDFReader>(settings, clipboard);
  EXPECT_EQ(reader->size(), QSize(700, 500));
  EXPECT_FALSE(Child<QAction>("cmdContents")->isChecked());
  // The one of a larger screen, and a damaged store.
  for (const auto& [width, height] : {std::pair{980, 99999}, {-5, 99999}}) {
    settings.SetInt("frmPDFReader", "Width", width);
    settings.SetInt("frmPDFReader", "Height", height);
    reader.release()->deleteLater();
    reader = std::make_unique<frmPDFReader>(settings, clipboard);
    EXPECT_GE(reader->width(), reader->minimumWidth());
    EXPECT_LE(reader->height(), room.height() - 40) << "a title bar's height is left";
    EXPECT_GE(reader->y(), room.top());
    EXPECT_LE(reader->y() + reader->height() + 40, room.bottom() + 1);
  }
}

}  // namespace
}  // namespace skerrow::testing
