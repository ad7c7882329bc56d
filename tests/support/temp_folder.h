#pragma once

#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <system_error>
#include <unistd.h>

namespace skerrow::testing {

// A fresh folder that goes with the test.
class TempFolder {
 public:
  explicit TempFolder(
      const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    static std::atomic<unsigned> counter{0};
    path_ = parent / ("skerrow-test-" + std::to_string(std::random_device{}()) + "-" +
                      std::to_string(counter++));
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code error;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, error);
    std::filesystem::remove_all(path_, error);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string path() const { return path_.string(); }
  std::string File(const std::string& name) const { return (path_ / name).string(); }

  // Writes a file of that name and gives its path.
  std::string Write(const std::string& name, const std::string& content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
    return File(name);
  }

  // The entries of the folder, not of those below it.
  std::size_t EntryCount() const {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(path_)) ++count;
    return count;
  }

 private:
  std::filesystem::path path_;
};

// Calls `work` as a user without special rights: the superuser, who may write everywhere, becomes
// nobody for the moment.
template <typename Work>
void AsPlainUser(Work work) {
  const bool superuser = geteuid() == 0;
  if (superuser && seteuid(65534) != 0) throw std::runtime_error("cannot become a plain user");
  work();
  if (superuser && seteuid(0) != 0) throw std::runtime_error("cannot become the superuser again");
}

// Calls `work` on a disk that is full after `bytes` of any file, stood in for by the limit of a
// process on the size of its files.
template <typename Work>
void OnFullDisk(rlim_t bytes, Work work) {
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  rlimit tight = before;
  tight.rlim_cur = bytes;
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  if (setrlimit(RLIMIT_FSIZE, &tight) != 0) throw std::runtime_error("cannot limit file sizes");
  work();
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
}

// The bytes of a file; empty for one that cannot be read.
inline std::string FileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace skerrow::testing
