// A chart of the user's, from its file to a route on it.

#include <QImage>
#include <QLineEdit>
#include <QPushButton>

#include "ui/charts/frmImportChart.h"
#include "window_fixture.h"

namespace skerrow::testing {
namespace {

class ImportCommand : public MainWindowTest {
 protected:
  void ImportPicture(bool placed) {
    QImage image(1200, 900, QImage::Format_RGB888);
    image.fill(QColor(200, 220, 255));
    const std::string path = user_.File("bay.png");
    ASSERT_TRUE(image.save(QString::fromStdString(path)));
    if (placed) user_.Write("bay.pgw", "0.001\n0\n0\n-0.001\n-2.4\n50.6\n");
    OnDialog([path](QWidget* dialog) {
      auto* form = qobject_cast<frmImportChart*>(dialog);
      ASSERT_NE(form, nullptr);
      form->ReadFile(path);
      auto* browse = form->findChild<QPushButton*>("cmdBrowse");
      ASSERT_TRUE(QTest::qWaitFor([&] { return browse->isEnabled(); }));
      Type(*form, "txtScale", "40000");
      Click(form, "cmdImport");
      EXPECT_TRUE(QTest::qWaitFor([&] { return !form->isVisible(); }, 20000));
    });
    Command("mnuImportChart");
  }
};

TEST_F(ImportCommand, TheChartIsShownWholeAndARouteLiesOnIt) {
  Start();
  ImportPicture(true);
  EXPECT_TRUE(program_.config.chart_path.ends_with("/SkerrowHelm/Charts/1001-1"));
  EXPECT_EQ(program_.config.sea_area, "Sample Chart");
  EXPECT_EQ(program_.charts.index.size(), 5U);
  EXPECT_EQ(window_->viewer().image_width(), 1200);
  EXPECT_TRUE(canvas()->rect().contains(At({50.58F, -2.38F})));
  EXPECT_TRUE(canvas()->rect().contains(At({49.72F, -1.22F})));
  EXPECT_FALSE(program_.tides.diamonds.empty());
  LayRoute();
  EXPECT_NEAR(program_.route.points[1].latitude, 50.0, 0.01);
  // It is found as the most detailed chart at a place after another one was opened.
  EXPECT_EQ(LargerScaleChart({50.0F, -1.9F}, program_.charts), std::nullopt);
  program_.charts.chart.scale = 500000;
  EXPECT_EQ(LargerScaleChart({50.0F, -1.9F}, program_.charts), "1001-1");
}

TEST_F(ImportCommand, AScanIsShownWithTheTools) {
  Start();
  messages_.Expect(
      "The scan is in the list of charts. Its positions mean nothing yet: before you plan "
      "anything on it, press C for Calibrate Chart and give two of its places.",
      MessageIcon::kInformation);
  ImportPicture(false);
  EXPECT_TRUE(program_.config.chart_path.ends_with("/1001-1"));
  EXPECT_TRUE(window_->action("mnuChartEdit")->isVisible());
}

}  // namespace
}  // namespace skerrow::testing
