#include "ui/main/look_controller.h"

#include <algorithm>

#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

constexpr const char* kSection = "Windows";

}  // namespace

void LookController::Start() {
  ViewState& view = desktop_.view;
  view.night = desktop_.settings.GetInt(kSection, "Night", 0) != 0;
  const int level = desktop_.settings.GetInt(kSection, "Brightness", 100);
  view.brightness.level = view.night ? std::clamp(level / 10 * 10, 10, 100) : 100;
  Apply();
}

void LookController::Darker() {
  desktop_.view.brightness.Decrease();
  desktop_.view.night = true;
  Apply();
}

void LookController::Brighter() {
  desktop_.view.brightness.Increase();
  if (desktop_.view.brightness.Day()) desktop_.view.night = false;
  Apply();
}

void LookController::Day() {
  desktop_.view.brightness.Reset();
  desktop_.view.night = false;
  Apply();
}

void LookController::Apply() {
  const ViewState& view = desktop_.view;
  desktop_.settings.SetInt(kSection, "Night", view.night ? 1 : 0);
  desktop_.settings.SetInt(kSection, "Brightness", view.brightness.level);
  ApplyTheme(view.night, view.brightness.level);
  viewer_.SetNight(view.night);
  viewer_.SetBrightness(view.brightness.level);
  emit LookChanged();
  desktop_.window.Changed(kSettingsChanged);
}

void LookController::SaveConfigChange(const std::function<void(AppConfig&)>& change) {
  const Status saved = ReloadThenSave(desktop_.program.folders, desktop_.program.config, change);
  if (!saved) desktop_.messages.Show(saved.error().Text(), MessageIcon::kWarning, kProgramTitle);
  desktop_.window.Changed(kSettingsChanged);
}

void LookController::Toggle(std::int16_t AppConfig::*field) {
  const std::int16_t value = Bool16(desktop_.program.config.*field == 0);
  SaveConfigChange([&](AppConfig& config) { config.*field = value; });
}

void LookController::Toggle(float AppConfig::*field) {
  const float value = desktop_.program.config.*field == 1.0F ? 0.0F : 1.0F;
  SaveConfigChange([&](AppConfig& config) { config.*field = value; });
}

void LookController::ToggleThumbnail() {
  desktop_.view.thumbnail_visible = !desktop_.view.thumbnail_visible;
  desktop_.window.Changed(kSettingsChanged);
}

void LookController::ToggleEveryName() {
  desktop_.view.every_name = !desktop_.view.every_name;
  desktop_.window.Changed(kSettingsChanged);
}

void LookController::ShowTools() {
  desktop_.view.tools_shown = true;
  desktop_.window.Changed(kSettingsChanged);
}

}  // namespace skerrow
