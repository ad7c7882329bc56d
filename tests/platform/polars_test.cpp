#include "platform/polars.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "core/files.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

void Sql(const std::string& path, const std::string& sql) {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(database);
  sqlite3_close(database);
}

// An installed database with a set-up whose columns are of several types, one of them missing.
class Polars : public ::testing::Test {
 protected:
  Polars() {
    Sql(installed_,
        "CREATE TABLE SetUps (SetUp TEXT); INSERT INTO SetUps VALUES ('Sloop');"
        "CREATE TABLE Sloop (windangle INTEGER, WIND0KN REAL, wind2kn TEXT, wind6kn NUMERIC);"
        "INSERT INTO Sloop VALUES (30, 0.5, '1.25', NULL), (35, 0, '', 4);");
  }
  testing::TempFolder folder_;
  std::string installed_ = folder_.File("Polars.db");
  std::string user_ = folder_.File("own/Polars.db");
  std::unique_ptr<PolarDatabase> polars_ = OpenPolarDatabase(installed_, user_);
};

TEST_F(Polars, ReadsCellsAsTexts) {
  ASSERT_TRUE(polars_->SetUps()) << polars_->SetUps().error().Text();
  EXPECT_EQ(*polars_->SetUps(), std::vector<std::string>{"Sloop"});
  const Result<PolarRows> rows = polars_->Read("Sloop");
  ASSERT_TRUE(rows) << rows.error().Text();
  ASSERT_EQ(rows->size(), 2U);
  EXPECT_EQ((*rows)[0][0], "30");
  EXPECT_EQ((*rows)[0][1], "0.5");
  EXPECT_EQ((*rows)[0][2], "1.25");
  EXPECT_FALSE((*rows)[0][3]);  // no column for 4 knots
  EXPECT_FALSE((*rows)[0][4]);  // empty
  EXPECT_FALSE((*rows)[1][2]);
  EXPECT_EQ((*rows)[1][4], "4");
  EXPECT_FALSE(polars_->Read("Ketch"));
}

TEST_F(Polars, TheFirstChangeGoesToACopy) {
  const std::string before = testing::FileBytes(installed_);
  EXPECT_EQ(polars_->Path(), installed_);
  ASSERT_TRUE(polars_->Change("Sloop", {{0, 4, "3.5"}, {1, 2, "2"}}));
  EXPECT_EQ(polars_->Path(), user_);
  EXPECT_EQ((*polars_->Read("Sloop"))[0][4], "3.5");
  EXPECT_EQ((*polars_->Read("Sloop"))[1][2], "2");
  EXPECT_EQ(testing::FileBytes(installed_), before);
  // All or nothing: the second row is not there.
  EXPECT_FALSE(polars_->Change("Sloop", {{0, 4, "9"}, {7, 4, "9"}}));
  EXPECT_FALSE(polars_->Change("Sloop", {{0, 4, "9"}, {0, 3, "9"}}));
  EXPECT_EQ((*polars_->Read("Sloop"))[0][4], "3.5");
}

TEST_F(Polars, SetUpsComeAndGoUnderAnyName) {
  const std::string hostile = "Rob's \"quick\"; DROP TABLE SetUps; --";
  PolarRows rows(31);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (auto& cell : rows[i]) cell = std::to_string(i);
  }
  ASSERT_TRUE(polars_->Create(hostile, rows));
  EXPECT_EQ(*polars_->SetUps(), (std::vector<std::string>{"Sloop", hostile}));
  EXPECT_EQ(*polars_->Read(hostile), rows);
  for (const char* taken : {"Sloop", "sloop", "SetUps", "", " x", "sqlite_x"}) {
    EXPECT_FALSE(polars_->Create(taken, rows)) << taken;
    EXPECT_FALSE(polars_->Rename(hostile, taken)) << taken;
  }
  EXPECT_FALSE(polars_->Create(std::string(65, 'x'), rows));
  ASSERT_TRUE(polars_->Rename("Sloop", "SLOOP"));  // its own name in other letters
  ASSERT_TRUE(polars_->Rename(hostile, "Ketch"));
  EXPECT_EQ(*polars_->SetUps(), (std::vector<std::string>{"SLOOP", "Ketch"}));
  ASSERT_TRUE(polars_->Delete("SLOOP"));
  EXPECT_FALSE(polars_->Delete("SLOOP"));
  EXPECT_EQ(*polars_->SetUps(), std::vector<std::string>{"Ketch"});
  EXPECT_EQ(*polars_->Read("Ketch"), rows);
}

TEST_F(Polars, MissingDamagedAndLocked) {
  const auto missing = OpenPolarDatabase(folder_.File("none.db"), folder_.File("none2.db"));
  EXPECT_NE(missing->SetUps().error().Text().find("missing"), std::string::npos);
  EXPECT_FALSE(missing->Change("Sloop", {}));
  const std::string broken = folder_.Write("broken.db", std::string(5000, 'x'));
  const auto damaged = OpenPolarDatabase(broken, folder_.File("none3.db"));
  EXPECT_NE(damaged->SetUps().error().Text().find("damaged"), std::string::npos);

  ASSERT_TRUE(polars_->Change("Sloop", {{0, 4, "1"}}));
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(user_.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  const Status locked = polars_->Change("Sloop", {{0, 4, "2"}});
  ASSERT_FALSE(locked);
  EXPECT_NE(locked.error().Text().find("in use by another program"), std::string::npos);
  sqlite3_close(other);
  EXPECT_EQ((*polars_->Read("Sloop"))[0][4], "1");
}

}  // namespace
}  // namespace skerrow
