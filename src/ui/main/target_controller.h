#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <memory>
#include <optional>

#include "core/plane_sailing.h"
#include "platform/sound.h"
#include "ui/desktop.h"

class QWidget;

namespace skerrow {

class ChartController;
class LookController;

// The vessels round the boat in the main window: their windows, how they are shown, and the alarm
// of a close approach.
class TargetController final : public QObject {
  Q_OBJECT

 public:
  // `window` is the parent of the windows.
  TargetController(Desktop& desktop, ChartController& chart, LookController& look, QWidget& window);

  void ShowList();
  // The details of the target nearest to a place, at most `within` nautical miles away.
  void ShowDetailsNear(Position place, std::optional<float> within = {});
  // Turns one thing on or off for the target nearest to the cursor.
  void ToggleNearest(bool AisTarget::*what);
  // Turns it on or off for all targets and those to come.
  void ToggleAll(std::int16_t AppConfig::*setting, bool AisTarget::*what);
  void ToggleShown();

  // A second has passed: the alarm, and where the tide will take the boat.
  void Step();
  // Who sounds the alarm, in the place of the desktop's player.
  void SetAlarm(std::unique_ptr<Alarm> alarm) { alarm_ = std::move(alarm); }

 private:
  std::optional<std::size_t> Nearest(Position place, std::optional<float> within) const;
  void WatchApproaches();

  Desktop& desktop_;
  ChartController& chart_;
  LookController& look_;
  QWidget& window_;
  QElapsedTimer since_start_;
  std::unique_ptr<Alarm> alarm_;
  int seconds_ = 0;
};

}  // namespace skerrow
