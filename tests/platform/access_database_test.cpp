// Polars of the Jet format, by scripts that print what the programs of mdbtools print.

#include "platform/access_database.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "core/files.h"
#include "platform/polars.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

// Stands in the front of the search path while it lives.
class SearchPath {
 public:
  explicit SearchPath(const std::string& path) : before_(std::getenv("PATH")) {
    setenv("PATH", path.c_str(), 1);
  }
  ~SearchPath() { setenv("PATH", before_.c_str(), 1); }
  SearchPath(const SearchPath&) = delete;
  SearchPath& operator=(const SearchPath&) = delete;

 private:
  std::string before_;
};

class AccessPolars : public ::testing::Test {
 protected:
  AccessPolars() {
    std::filesystem::create_directories(Tools());
    std::filesystem::create_directories(folder_.File("tables"));
    std::ofstream(file_) << "a database";
    // The last two words are the file, and the table where there is one.
    Script("mdb-tables", "[ \"$1 $2\" = \"-1 --\" ] && [ -f \"$3\" ] && cat '" +
                             folder_.File("tables") + "/list'");
    Script("mdb-export",
           "[ \"$1\" = -- ] && [ -f \"$2\" ] && cat '" + folder_.File("tables") + "'/\"$3.csv\"");
  }
  std::string Tools() const { return folder_.File("bin"); }
  void Script(const std::string& name, const std::string& body) const {
    const std::string path = Tools() + "/" + name;
    std::ofstream(path) << "#!/bin/sh\n" << body << "\n";
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  }
  void Table(const std::string& name, const std::string& text) const {
    std::ofstream(folder_.File("tables") + "/list", std::ios::app) << name << "\n";
    std::ofstream(folder_.File("tables") + "/" + name + ".csv") << text;
  }
  // A database with three set-ups, one of them without a table.
  void Sample() const {
    Table("MSysNothing", "");
    Table("setups", "ID,SetUp\n1,\"Big \"\"J\"\"; genoa\"\n2,Storm\n3,Gone\n4,\n");
    Table("Big \"J\"; genoa",
          "ID,WindAngle,Wind0kn,wind2kn,Wind30kn,Other\n"
          "2,35,0,2.0999999999999999e+00,\"7,5\",x\n"
          "1,30,0.0000000000000000e+00,1.8999999761581421e+00,7,\"a\nb\"\n");
    Table("Storm", "windangle,wind10kn\n30,\n");
  }
  Result<PolarsImported> Import(std::string_view only = {}) const {
    const SearchPath path(Tools() + ":" + std::getenv("PATH"));
    return ImportAccessPolars(installed_, own_, file_, only);
  }

  testing::TempFolder folder_;
  std::string file_ = folder_.File("-Polars; 'x'.mdb");
  std::string installed_ = SKERROW_SOURCE_DIR "/program/Polars.db";
  std::string own_ = folder_.File("own/Polars.db");
};

TEST_F(AccessPolars, BringsInWhatIsNewAndTellsTheRest) {
  Sample();
  const Result<PolarsImported> first = Import();
  ASSERT_TRUE(first) << first.error().Text();
  EXPECT_EQ(first->added, (std::vector<std::string>{"Big \"J\"; genoa", "Storm"}));
  ASSERT_EQ(first->left_out.size(), 1U);
  EXPECT_EQ(first->left_out[0].name + ": " + first->left_out[0].reason,
            "Gone: its table is missing");
  const auto polars = OpenPolarDatabase(installed_, own_);
  EXPECT_EQ(polars->Path(), own_);
  const Result<PolarRows> rows = polars->Read("Big \"J\"; genoa");
  ASSERT_TRUE(rows) << rows.error().Text();
  ASSERT_EQ(rows->size(), 2U);
  EXPECT_EQ((*rows)[0][0], "30") << "the angles rise";
  EXPECT_EQ((*rows)[0][1], "0");
  EXPECT_EQ((*rows)[0][2], "1.9") << "not its binary form";
  EXPECT_FALSE((*rows)[0][3]);
  EXPECT_EQ((*rows)[1][2], "2.1");
  EXPECT_EQ((*rows)[1][16], "7,5");
  EXPECT_FALSE((*polars->Read("Storm"))[0][6]);

  // A second time every name is taken, and nothing changes.
  ASSERT_TRUE(polars->Change("Storm", {{0, 6, "3.5"}}));
  const std::string before = testing::FileBytes(own_);
  const Result<PolarsImported> again = Import();
  ASSERT_TRUE(again);
  EXPECT_TRUE(again->added.empty());
  ASSERT_EQ(again->left_out.size(), 3U);
  EXPECT_EQ(again->left_out[1].reason, "the name \"Storm\" is taken");
  EXPECT_EQ(testing::FileBytes(own_), before);
}

TEST_F(AccessPolars, OneCanBePicked) {
  Sample();
  ASSERT_TRUE(Import("Storm"));
  EXPECT_EQ(OpenPolarDatabase(installed_, own_)->SetUps()->back(), "Storm");
  const Result<PolarsImported> none = Import("storm");
  ASSERT_FALSE(none);
  EXPECT_EQ(none.error().reason, "there is no set-up \"storm\" in it");
}

TEST_F(AccessPolars, WhatIsWrongIsTold) {
  const auto reason = [this](const std::string& file, int limit_ms = 10000) {
    const SearchPath path(Tools() + ":" + std::getenv("PATH"));
    const auto read = ReadAccessPolars(file, std::chrono::milliseconds(limit_ms));
    return read ? std::string() : read.error().reason;
  };
  EXPECT_EQ(reason(folder_.File("none.mdb")), "the file is missing or can not be read");
  EXPECT_EQ(reason(file_), "mdbtools can not read it") << "there is no list";
  Table("Table1", "a\n1\n");
  EXPECT_EQ(reason(file_), "it is no polar database: there is no table \"SetUps\"");
  Table("SetUps", "Name\nSloop\n");
  EXPECT_EQ(reason(file_), "its table \"SetUps\" has no field \"SetUp\"");
  Table("SetUps", "SetUp\nTable1\nNo rows\nLong\nFails\n");
  Table("No rows", "windangle,wind2kn\n");
  std::string rows = "windangle,wind2kn\n";
  for (int i = 0; i < 1001; ++i) rows += "30,1\n";
  Table("Long", rows);
  std::ofstream(folder_.File("tables") + "/list", std::ios::app) << "Fails\n";
  const SearchPath path(Tools() + ":" + std::getenv("PATH"));
  const auto read = ReadAccessPolars(file_);
  ASSERT_TRUE(read) << read.error().Text();
  ASSERT_EQ(read->size(), 4U);
  EXPECT_EQ((*read)[0].trouble, "its table has not the columns of a polar");
  EXPECT_EQ((*read)[1].trouble, "its table is empty");
  EXPECT_EQ((*read)[2].trouble, "its table is longer than that of a polar");
  EXPECT_EQ((*read)[3].trouble, "its table can not be read");
  Script("mdb-tables", "cat /dev/zero");
  EXPECT_EQ(reason(file_), "it holds more than a polar database does");
  // Its children too are ended, and nothing is waited for.
  Script("mdb-tables", "sleep 30 & sleep 30");
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(reason(file_, 200), "reading it takes too long, and has been stopped");
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(10));
}

TEST_F(AccessPolars, WithoutTheProgramsItSaysWhichAreMissing) {
  const SearchPath path(folder_.File("nowhere"));
  const auto read = ReadAccessPolars(file_);
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error().reason,
            "an .mdb file is read by the programs of mdbtools, which are not installed");
}

TEST(CommaText, QuotesAndLines) {
  using Rows = std::vector<std::vector<std::string>>;
  EXPECT_EQ(ParseCommaText(""), Rows{});
  EXPECT_EQ(ParseCommaText("a,b\r\n\n1,\n"), (Rows{{"a", "b"}, {"1", ""}}));
  EXPECT_EQ(ParseCommaText("\"a,\"\"b\"\"\nc\",d"), (Rows{{"a,\"b\"\nc", "d"}}));
  EXPECT_EQ(ParseCommaText("\"open"), (Rows{{"open"}}));
}

}  // namespace
}  // namespace skerrow
