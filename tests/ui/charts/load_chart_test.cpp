// The list of charts, by real events.

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/charts/frmLoadChart.h"
#include "ui/widgets/picture_preview.h"

namespace skerrow::testing {
namespace {

class ChartList : public SampleDesk {};

TEST_F(ChartList, FiltersSearchesAndChooses) {
  frmLoadChart form(desktop, nullptr);
  form.show();
  auto* list = form.findChild<QListWidget*>("List1");
  auto* preview = form.findChild<PicturePreview*>("GdViewer1");
  ASSERT_EQ(list->count(), 4);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !preview->empty(); }));
  auto* search = form.findChild<QLineEdit*>("txtSearch");
  QTest::keyClicks(search, "islands");
  EXPECT_EQ(list->currentItem()->text(), "Channel Islands");
  const QString key = form.findChild<QLabel*>("lblChartNumber")->text();
  const QPoint row = list->visualItemRect(list->currentItem()).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row);
  EXPECT_FALSE(form.isVisible());
  EXPECT_TRUE(program.config.chart_path.ends_with("/" + key.toStdString()));

  frmLoadChart none(desktop, nullptr);
  none.show();
  auto* scale = none.findChild<QLineEdit*>("txtScale");
  scale->setFocus();
  scale->selectAll();
  QTest::keyClicks(scale, "9000000");
  EXPECT_EQ(none.findChild<QListWidget*>("List1")->count(), 0);
  EXPECT_TRUE(none.findChild<PicturePreview*>("GdViewer1")->empty());
  EXPECT_FALSE(none.findChild<QPushButton*>("cmdOK")->isEnabled());
}

}  // namespace
}  // namespace skerrow::testing
