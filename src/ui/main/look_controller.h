#pragma once

#include <QObject>
#include <cstdint>
#include <functional>

#include "ui/desktop.h"
#include "ui/viewer/chart_viewer.h"

namespace skerrow {

// What the main window shows and how bright: night and brightness, toggles of the settings, tools.
class LookController final : public QObject {
  Q_OBJECT

 public:
  LookController(Desktop& desktop, ChartViewer& viewer) : desktop_(desktop), viewer_(viewer) {}

  // Takes up the night and the brightness of the last run.
  void Start();

  // A step darker, in the night's colours; a step brighter, up to the day's; the day at once.
  void Darker();
  void Brighter();
  void Day();

  // Flips a toggle of the settings and writes them.
  void Toggle(std::int16_t AppConfig::*field);
  void Toggle(float AppConfig::*field);
  void ToggleThumbnail();
  void ToggleEveryName();
  void ShowTools();

 signals:
  // Night or brightness has changed: what has colours of its own follows.
  void LookChanged();

 private:
  void Apply();
  void SaveConfigChange(const std::function<void(AppConfig&)>& change);

  Desktop& desktop_;
  ChartViewer& viewer_;
};

}  // namespace skerrow
