#include "ui/dialogs/report_write.h"

#include <gtest/gtest.h>

#include "core/files.h"
#include "support/recording_messages.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

TEST(ReportWrite, NamesTheFileThatCouldNotBeWritten) {
  testing::TempFolder folder;
  testing::RecordingMessages messages;
  EXPECT_TRUE(Written(ReplaceFile(folder.File("UK.hc"), "x"), messages));
  ASSERT_TRUE(MakeFolder(folder.File("Taken.hc")));
  const Status refused = ReplaceFile(folder.File("Taken.hc"), "x");
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.error().path, folder.File("Taken.hc"));
  messages.Expect(
      "This file could not be written, and nothing in it has changed:\n" + refused.error().Text(),
      MessageIcon::kError);
  EXPECT_FALSE(Written(refused, messages));
}

}  // namespace
}  // namespace skerrow
