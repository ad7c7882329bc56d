#pragma once

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <vector>

#include <nlohmann/json.hpp>

#include "support/temp_folder.h"

namespace skerrow::cli {

using skerrow::testing::FileBytes;
using skerrow::testing::TempFolder;

struct Ran {
  int status = -1;
  std::string out;
  std::string err;
  nlohmann::json json() const { return nlohmann::json::parse(out, nullptr, false); }
};

// Runs the real program with folders of its own.
class CommandLine : public ::testing::Test {
 protected:
  Ran Run(const std::string& words) {
    const std::string out = user_.File("out.txt");
    const std::string err = user_.File("err.txt");
    const std::string command = std::string("env -u SKERROW_PROGRAM ") + SKERROW_CLI +
                                " --documents '" + user_.path() + "/documents' --settings '" +
                                user_.path() + "/settings' " + words + " >" + out + " 2>" + err;
    const int raw = std::system(command.c_str());
    return {WEXITSTATUS(raw), FileBytes(out), FileBytes(err)};
  }

  nlohmann::json Json(const std::string& words) {
    const Ran ran = Run("--json " + words);
    EXPECT_EQ(ran.status, 0) << words << ": " << ran.err;
    const nlohmann::json json = ran.json();
    EXPECT_FALSE(json.is_discarded()) << ran.out.substr(0, 200);
    return json;
  }

  // An error: the status, nothing on standard output, one line on standard error.
  void ExpectError(const std::string& words, int status, const std::string& part) {
    const Ran ran = Run(words);
    EXPECT_EQ(ran.status, status) << words;
    EXPECT_EQ(ran.out, "") << words;
    EXPECT_NE(ran.err.find(part), std::string::npos) << words << ": " << ran.err;
    EXPECT_EQ(std::count(ran.err.begin(), ran.err.end(), '\n'), 1) << ran.err;
  }

  TempFolder user_;
};

inline std::vector<std::string> Keys(const nlohmann::json& object) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : object.items()) keys.push_back(key);
  std::sort(keys.begin(), keys.end());
  return keys;
}

}  // namespace skerrow::cli
