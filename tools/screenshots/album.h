#pragma once

#include <QString>
#include <QTemporaryDir>
#include <QWidget>
#include <functional>
#include <memory>

#include "app/program.h"
#include "core/clock.h"
#include "core/messages.h"
#include "platform/clipboard.h"
#include "platform/printing.h"
#include "platform/serial.h"
#include "platform/settings_store.h"
#include "ui/main/frmChart.h"

// Pictures of windows, into a folder.
namespace screenshots {

class Album {
 public:
  explicit Album(QString folder);

  // Shows a window, keeps it as NAME.png, or NAME-night.png by night, and hides it again. A part
  // may be chosen, in the window's own pixels.
  void Keep(QWidget& window, const QString& name, QRect part = {}) const;
  // Keeps the first page of a document as it is printed.
  void KeepPage(const skerrow::PrintDocument& document, const QString& name) const;
  // Keeps the modal dialog that comes up next, and rejects it.
  void KeepNext(const QString& name) const;

 private:
  void Save(QWidget& window, const QString& name, QRect part) const;
  QString folder_;
};

// A June morning, the same each time.
class PictureClock final : public skerrow::Clock {
 public:
  skerrow::ClockReading Now() const override { return {2026, 6, 14, 6, 30, 0}; }
};

// Says messages on standard error and answers yes.
class PictureMessages final : public skerrow::Messages {
 public:
  void Show(std::string_view text, skerrow::MessageIcon icon, std::string_view title) override;
  bool Ask(std::string_view, std::string_view) override { return true; }
};

// The program on the sample installation, in folders of its own, with its main window.
class Studio {
 public:
  Studio();
  ~Studio();

  skerrow::frmChart& window() { return *window_; }
  skerrow::Desktop desktop() {
    return {program, messages, *settings_, clipboard_, *ports_, *window_, window_->view()};
  }
  // Runs a command of the main window.
  void Command(const char* name);
  // Gives the main window a size and waits until the chart is drawn at its best.
  void Settle(QSize size);

  PictureMessages messages;

 private:
  static skerrow::Folders FoldersIn(const QTemporaryDir& user);

  QTemporaryDir user_;
  PictureClock clock_;

 public:
  skerrow::Program program;

 private:
  std::unique_ptr<skerrow::SettingsStore> settings_;
  skerrow::SystemClipboard clipboard_;
  std::unique_ptr<skerrow::SerialPorts> ports_;
  std::unique_ptr<skerrow::frmChart> window_;
};

// Every dialog, filled with the sample data.
void KeepDialogs(const Album& album, Studio& studio);
void KeepInstruments(const Album& album, Studio& studio);

}  // namespace screenshots
