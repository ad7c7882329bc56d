#include "ui/widgets/live_dialog.h"

#include "support/hands.h"
#include "support/sample_desk.h"

namespace skerrow::testing {
namespace {

class Counting : public LiveDialog {
 public:
  explicit Counting(Desktop& desktop) : LiveDialog(desktop, "Counting", "Counting", nullptr, 20) {}
  int looks = 0;

 protected:
  void Follow() override { ++looks; }
};

class LiveDialogs : public SampleDesk {};

TEST_F(LiveDialogs, FollowTheStateWhileTheyAreShown) {
  Counting dialog(desktop);
  EXPECT_FALSE(dialog.isModal());
  QTest::qWait(60);
  EXPECT_EQ(dialog.looks, 0);
  dialog.show();
  EXPECT_EQ(dialog.looks, 1);
  EXPECT_TRUE(QTest::qWaitFor([&dialog] { return dialog.looks > 2; }, 5000));
  dialog.hide();
  const int looks = dialog.looks;
  QTest::qWait(60);
  EXPECT_EQ(dialog.looks, looks);
}

}  // namespace
}  // namespace skerrow::testing
