#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/result.h"

// The small per-user store of window places, the last view and recent files: texts by section and
// key. Everything of substance is in the settings record instead.
namespace skerrow {

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  // The value of `key` in `section`, or `fallback` when there is none.
  virtual std::string Get(std::string_view section, std::string_view key,
                          std::string_view fallback = {}) const = 0;

  // Stores a value; it may reach the disk later, at the latest with Flush or at the end.
  virtual void Set(std::string_view section, std::string_view key, std::string_view value) = 0;

  // Forgets a key, or with an empty `key` the whole section.
  virtual void Remove(std::string_view section, std::string_view key) = 0;

  // Writes everything out. Error: the file and why it could not be written.
  virtual Status Flush() = 0;

  // The value of `key` as a whole number, or `fallback` when it is missing or no such number.
  int GetInt(std::string_view section, std::string_view key, int fallback) const;
  void SetInt(std::string_view section, std::string_view key, int value);
};

// The largest file of a store that is read. One as the program writes it has a few kilobytes, most
// of them window places; this is two hundred times that.
inline constexpr std::size_t kMaxSettingsStoreSize = std::size_t{1024} * 1024;

// The real store, an INI file at `path`. A file that is missing or damaged reads as empty. What is
// no file, or one too large, reads as empty too, and is left as it is: Flush says why, and the
// store lasts as long as the object.
std::unique_ptr<SettingsStore> OpenSettingsStore(const std::string& path);

// A store that lives no longer than the object.
class MemorySettingsStore final : public SettingsStore {
 public:
  std::string Get(std::string_view section, std::string_view key,
                  std::string_view fallback = {}) const override;
  void Set(std::string_view section, std::string_view key, std::string_view value) override;
  void Remove(std::string_view section, std::string_view key) override;
  Status Flush() override { return Done{}; }

 private:
  std::map<std::pair<std::string, std::string>, std::string> values_;
};

// The section of the recent files.
inline constexpr std::string_view kRecentFilesSection = "MRUFiles";

// The values of the keys "0", "1" .. up to the first empty one, at most `limit` of them.
std::vector<std::string> ReadRecentFiles(const SettingsStore& store, std::size_t limit = 6);

// Stores `files` under the keys "0", "1" .. in place of what was there.
void WriteRecentFiles(SettingsStore& store, const std::vector<std::string>& files);

}  // namespace skerrow
