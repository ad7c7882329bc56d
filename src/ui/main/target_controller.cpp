#include "ui/main/target_controller.h"

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "app/boat_ahead.h"
#include "app/reception.h"
#include "ui/forms/ais_forms.h"
#include "ui/instruments/frmAISSummary.h"
#include "ui/main/chart_controller.h"
#include "ui/main/look_controller.h"

namespace skerrow {
namespace {

constexpr int kSecondsBetweenPredictions = 5;

}  // namespace

TargetController::TargetController(Desktop& desktop, ChartController& chart, LookController& look,
                                   QWidget& window)
    : desktop_(desktop), chart_(chart), look_(look), window_(window), alarm_(MakeAlarm()) {
  since_start_.start();
}

void TargetController::ShowList() {
  OpenAisSummary(
      desktop_, [this](Position place) { chart_.LocatePoint(place); }, &window_);
}

std::optional<std::size_t> TargetController::Nearest(Position place,
                                                     std::optional<float> within) const {
  const std::span<const AisTarget> targets = std::as_const(desktop_.program.ais.targets).All();
  const auto nearest = NearestAisTarget(targets, place);
  if (!nearest || (within && !(nearest->range < *within))) return std::nullopt;
  return nearest->index;
}

void TargetController::ShowDetailsNear(Position place, std::optional<float> within) {
  const std::optional<std::size_t> found = Nearest(place, within);
  if (!found) return;
  OpenAisDetails(
      desktop_, desktop_.program.ais.targets.All()[*found].mmsi,
      [this](Position at) { chart_.LocatePoint(at); }, &window_);
}

void TargetController::ToggleNearest(bool AisTarget::*what) {
  const std::optional<std::size_t> found = Nearest(desktop_.view.cursor, std::nullopt);
  if (!found) return;
  AisTarget& target = desktop_.program.ais.targets.All()[*found];
  target.*what = !(target.*what);
  desktop_.window.Changed(kTargetsChanged);
}

void TargetController::ToggleAll(std::int16_t AppConfig::*setting, bool AisTarget::*what) {
  look_.Toggle(setting);
  for (AisTarget& target : desktop_.program.ais.targets.All()) {
    target.*what = desktop_.program.config.*setting != 0;
  }
  desktop_.window.Changed(kTargetsChanged);
}

void TargetController::ToggleShown() {
  desktop_.view.targets_shown = !desktop_.view.targets_shown;
  desktop_.window.Changed(kTargetsChanged);
}

void TargetController::WatchApproaches() {
  Program& program = desktop_.program;
  const std::optional<Motion> boat = BoatMotion(program);
  const std::vector<std::int32_t> close = program.ais.alarm.Step(
      program.ais.targets, program.link.gps_enabled, program.config.cpa_alarm_range,
      boat ? std::optional(boat->speed) : std::nullopt,
      static_cast<double>(since_start_.elapsed()) / 1000.0);
  // The line has room for one: the one that comes nearest.
  const AisTarget* nearest = nullptr;
  for (const std::int32_t mmsi : close) {
    const AisTarget* target = program.ais.targets.Find(mmsi);
    if (target != nullptr && (nearest == nullptr || target->cpa < nearest->cpa)) nearest = target;
  }
  if (nearest == nullptr) return;
  std::string text = CloseApproachText(program, *nearest, AisHours(program.clock->Now()));
  if (close.size() > 1) text += "  (and " + std::to_string(close.size() - 1) + " more)";
  desktop_.window.Tell(text);
  if (desktop_.settings.GetInt("Instruments", "AlarmSound", 1) != 0) alarm_->Sound();
}

void TargetController::Step() {
  Program& program = desktop_.program;
  if (desktop_.view.busy) return;
  if (program.link.ais_enabled) WatchApproaches();
  if (seconds_++ % kSecondsBetweenPredictions == 0) program.boat_ahead = PredictBoatAhead(program);
}

}  // namespace skerrow
