#include "core/date_order.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>

namespace skerrow {
namespace {

// A machine that prints today so and reads the test dates so.
class FakeDates final : public DateServices {
 public:
  FakeDates(std::string today, std::map<std::string, std::string> weekdays)
      : today_(std::move(today)), weekdays_(std::move(weekdays)) {}
  std::string ShortToday() const override { return today_; }
  std::string AbbreviatedWeekday(std::string_view text) const override {
    const auto at = weekdays_.find(std::string(text));
    return at == weekdays_.end() ? "" : at->second;
  }

 private:
  std::string today_;
  std::map<std::string, std::string> weekdays_;
};

TEST(DateOrder, FindsEachTemplate) {
  for (const char separator : {'/', '-', '.'}) {
    const std::string sep(1, separator);
    const std::string last = "03" + sep + "01" + sep + "2001";
    const std::string first = "2001" + sep + "03" + sep + "01";
    const std::string today_last = "07" + sep + "05" + sep + "2012";
    const std::string today_first = "2012" + sep + "05" + sep + "07";
    const struct {
      std::string today, asked, weekday, order;
    } rows[] = {{today_last, last, "Wed", "DD" + sep + "MM" + sep + "YYYY"},
                {today_last, last, "jeu", "MM" + sep + "DD" + sep + "YYYY"},
                {today_first, first, "mié", "YYYY" + sep + "DD" + sep + "MM"},
                {today_first, first, "Do", "YYYY" + sep + "MM" + sep + "DD"},
                {today_last, last, "Mon", ""},
                {today_last, last, "", ""}};
    for (const auto& row : rows) {
      EXPECT_EQ(DetectDateOrder(FakeDates(row.today, {{row.asked, row.weekday}})), row.order);
      if (row.order.empty()) continue;
      EXPECT_NE(std::find(kDateTemplates.begin(), kDateTemplates.end(), row.order),
                kDateTemplates.end());
    }
  }
}

TEST(DateOrder, RefusesOtherForms) {
  for (const char* today : {"07 05 2012", "07/05/12", "7/2012/5", "", "/", "abc/def"}) {
    EXPECT_EQ(DetectDateOrder(FakeDates(today, {{"03/01/2001", "Wed"}})), "") << today;
  }
  // The last of "/", "-", "." found counts, tested in that order.
  EXPECT_EQ(DetectDateOrder(FakeDates("07/05.2012", {{"03.01.2001", "Wed"}})), "DD.MM.YYYY");
}

}  // namespace
}  // namespace skerrow
