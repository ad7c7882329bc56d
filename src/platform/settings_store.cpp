#include "platform/settings_store.h"

#include <QFileInfo>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <charconv>

namespace skerrow {
namespace {

QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

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
    if (settings_.status() == QSettings::NoError) return Done{};
    const QFileInfo file(settings_.fileName());
    const bool writable = file.exists() ? file.isWritable() : QFileInfo(file.path()).isWritable();
    return Error{path_, writable ? "the file is not in the form of a settings file"
                                 : "the file cannot be written"};
  }

 private:
  static QString Name(std::string_view section, std::string_view key) {
    return ToQString(section) + QLatin1Char('/') + ToQString(key);
  }

  std::string path_;
  QSettings settings_;
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
  return std::make_unique<IniSettingsStore>(path);
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
