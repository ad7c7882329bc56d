#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace skerrow {

// By what a file is known to have changed. All missing files have the same.
struct FileStamp {
  bool there = false;
  std::uintmax_t size = 0;
  std::filesystem::file_time_type time;
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

FileStamp StampOf(const std::string& path);

}  // namespace skerrow
