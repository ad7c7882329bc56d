#include "platform/settings_store.h"

#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <charconv>

#include "core/files.h"

namespace skerrow {
namespace {

QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// What a full disk is tried with where there is no file yet.
constexpr std::size_t kProbeBytes = 4096;

class IniSettingsStore final : public SettingsStore {
 public:
  explicit IniSettingsStore(const std::string& path)
      : path_(path), settings_(ToQString(path), QSettings::IniFormat) {}

  std::string Get(std::string_view section, std::string_view key,
                  std::string_view fallback) const override {
    const QVariant value = settings_.value(Name(section, key));
    if (!value.isValid()) return std::string(fallback);
    // A bare comma, as a hand may have written it, makes a list of what is one text to us.
    if (value.typeId() == QMetaType::QStringList) {
      return value.toStringList().join(QStringLiteral(", ")).toStdString();
    }
    return value.toString().toStdString();
  }

  void Set(std::string_view section, std::string_view key, std::string_view value) override {
    const QString name = Name(section, key);
    const QString text = ToQString(value);
    // An unchanged value makes no new file: the view is stored at every paint.
    if (settings_.contains(name) && settings_.value(name).toString() == text) return;
    settings_.setValue(name, text);
  }

  void Remove(std::string_view section, std::string_view key) override {
    settings_.remove(key.empty() ? ToQString(section) : Name(section, key));
  }

  Status Flush() override {
    settings_.sync();
    switch (settings_.status()) {
      case QSettings::NoError:
        return Done{};
      case QSettings::FormatError:
        return Error{path_, "the file is not in the form of a settings file"};
      default:
        return Error{path_, WhyNotWritten()};
    }
  }

 private:
  // The system's reason, which the settings keep to themselves: that of writing as much beside.
  std::string WhyNotWritten() const {
    const Result<std::string> content = ReadFile(path_, kMaxSettingsStoreSize);
    const std::string beside = path_ + ".try";
    const Status tried = ReplaceFile(beside, content ? *content : std::string(kProbeBytes, '\0'));
    (void)DeleteFile(beside);
    return tried ? "the file cannot be written" : tried.error().reason;
  }

  static QString Name(std::string_view section, std::string_view key) {
    return ToQString(section) + QLatin1Char('/') + ToQString(key);
  }

  std::string path_;
  QSettings settings_;
};

// Stands in for a file that is not to be touched.
class UnusableSettingsStore final : public SettingsStore {
 public:
  explicit UnusableSettingsStore(Error error) : error_(std::move(error)) {}
  std::string Get(std::string_view section, std::string_view key,
                  std::string_view fallback) const override {
    return values_.Get(section, key, fallback);
  }
  void Set(std::string_view section, std::string_view key, std::string_view value) override {
    values_.Set(section, key, value);
  }
  void Remove(std::string_view section, std::string_view key) override {
    values_.Remove(section, key);
  }
  Status Flush() override { return error_; }

 private:
  MemorySettingsStore values_;
  Error error_;
};

}  // namespace

int SettingsStore::GetInt(std::string_view section, std::string_view key, int fallback) const {
  const std::string text = Get(section, key);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() ? value : fallback;
}

void SettingsStore::SetInt(std::string_view section, std::string_view key, int value) {
  Set(section, key, std::to_string(value));
}

std::unique_ptr<SettingsStore> OpenSettingsStore(const std::string& path) {
  if (FileIsThere(path)) {
    const Result<std::string> content = ReadFile(path, kMaxSettingsStoreSize);
    if (!content) return std::make_unique<UnusableSettingsStore>(content.error());
  }
  return std::make_unique<IniSettingsStore>(path);
}

std::string MemorySettingsStore::Get(std::string_view section, std::string_view key,
                                     std::string_view fallback) const {
  const auto found = values_.find({std::string(section), std::string(key)});
  return found == values_.end() ? std::string(fallback) : found->second;
}

void MemorySettingsStore::Set(std::string_view section, std::string_view key,
                              std::string_view value) {
  values_[{std::string(section), std::string(key)}] = std::string(value);
}

void MemorySettingsStore::Remove(std::string_view section, std::string_view key) {
  if (key.empty()) {
    std::erase_if(values_, [&](const auto& entry) { return entry.first.first == section; });
  } else {
    values_.erase({std::string(section), std::string(key)});
  }
}

std::vector<std::string> ReadRecentFiles(const SettingsStore& store, std::size_t limit) {
  std::vector<std::string> files;
  while (files.size() < limit) {
    std::string file = store.Get(kRecentFilesSection, std::to_string(files.size()));
    if (file.empty()) break;
    files.push_back(std::move(file));
  }
  return files;
}

void WriteRecentFiles(SettingsStore& store, const std::vector<std::string>& files) {
  store.Remove(kRecentFilesSection, {});
  for (std::size_t i = 0; i < files.size(); ++i) {
    store.Set(kRecentFilesSection, std::to_string(i), files[i]);
  }
}

}  // namespace skerrow
