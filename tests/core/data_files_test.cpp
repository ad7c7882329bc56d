#include "core/data_files.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace skerrow {
namespace {

namespace fs = std::filesystem;
using testing::FileBytes;
using testing::TempFolder;

constexpr DataFolder kTides = DataFolder::kTidalStreams;

class DataFiles : public ::testing::Test {
 protected:
  DataFiles() : folders_{folder_.File("program"), folder_.File("documents"), folder_.path()} {
    for (const char* name : {"program/TS", "program/Charts", "documents"}) {
      fs::create_directories(folder_.File(name));
    }
    fs::permissions(folder_.File("documents"), fs::perms::all);
    installed_ = folder_.Write("program/TS/UK.hc", "installed");
  }
  std::string Own(const std::string& name) const {
    return folder_.File("documents/SkerrowHelm/TS/" + name);
  }
  // Asks for a file to write, as a user who may not write in the program's folder.
  std::string WritableWhenInstalled(const std::string& name) const {
    fs::permissions(folder_.File("program/TS"), fs::perms(0555));
    std::string path;
    testing::AsPlainUser([&] {
      const Result<std::string> writable = WritableData(folders_, kTides, name);
      path = writable ? *writable : writable.error().Text();
    });
    fs::permissions(folder_.File("program/TS"), fs::perms::owner_all);
    return path;
  }

  const TempFolder folder_;
  const Folders folders_;
  std::string installed_;
};

TEST_F(DataFiles, AreTheProgramsUntilTheUserHasOwn) {
  EXPECT_EQ(FindData(folders_, kTides, "UK.hc"), installed_);
  EXPECT_EQ(FindData(folders_, kTides, "none.hc"), folder_.File("program/TS/none.hc"));
  EXPECT_EQ(*WritableData(folders_, kTides, "UK.hc"), installed_);
  fs::create_directories(fs::path(Own("x")).parent_path());
  folder_.Write("documents/SkerrowHelm/TS/UK.hc", "own");
  EXPECT_EQ(FindData(folders_, kTides, "UK.hc"), Own("UK.hc"));
  EXPECT_EQ(*WritableData(folders_, kTides, "UK.hc"), Own("UK.hc"));
  EXPECT_EQ(FindData(folders_, DataFolder::kCharts, "UK.hc"), folder_.File("program/Charts/UK.hc"));
}

TEST_F(DataFiles, AnInstalledFileIsCopiedBeforeItIsChanged) {
  EXPECT_EQ(WritableWhenInstalled("UK.hc"), Own("UK.hc"));
  EXPECT_EQ(FileBytes(Own("UK.hc")), "installed");
  EXPECT_EQ(WritableWhenInstalled("new.hc"), Own("new.hc"));
  EXPECT_FALSE(fs::exists(Own("new.hc")));
}

TEST_F(DataFiles, WithoutAPlaceOfTheirOwnTellWhy) {
  folder_.Write("documents/SkerrowHelm", "a file where the folder should be");
  const std::string told = WritableWhenInstalled("UK.hc");
  EXPECT_TRUE(told.starts_with(folder_.File("documents/SkerrowHelm"))) << told;
}

TEST_F(DataFiles, AreListedOnceFromBothFolders) {
  fs::create_directories(Own("folder.hc"));
  folder_.Write("documents/SkerrowHelm/TS/UK.hc", "own");
  folder_.Write("documents/SkerrowHelm/TS/Biscay.HC", "own");
  folder_.Write("program/TS/Area.l25", "");
  EXPECT_EQ(ListData(folders_, kTides, ".hc"), (std::vector<std::string>{"Biscay.HC", "UK.hc"}));
}

}  // namespace
}  // namespace skerrow
