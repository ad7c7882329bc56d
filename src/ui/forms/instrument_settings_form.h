#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "app/program.h"
#include "platform/settings_store.h"
#include "ui/forms/settings_table.h"

// The settings of the instruments: what `frmAISGPSConfig` shows, checks and does.
namespace skerrow {

// The rows of the dialog that are plain settings, in the order in which OK checks them.
std::span<const SettingField> InstrumentFields();

// Places of data lines beside a target, and what can stand in each.
inline constexpr std::size_t kLabelPlaces = 7;
inline constexpr std::array<std::string_view, 9> kLabelItems = {
    "NONE", "CPA",         "Destination", "Dimensions", "Heading",
    "MMSI", "Vessel Name", "Navstatus",   "Ship Type"};

// What the dialog shows beyond the rows.
struct InstrumentSettings {
  SettingTexts texts;
  std::string gps_port;                            // as in PortRows, or typed
  std::string ais_port;                            //
  std::size_t gps_type = 0;                        // place in kGpsTypes
  std::size_t interval = 0;                        // place in kLogIntervals
  bool save = false;                               // "Save data to disk"
  std::array<std::size_t, kLabelPlaces> labels{};  // places in kLabelItems
  bool standard_ais = false;
  bool alarm_sound = true;
};

InstrumentSettings InstrumentSettingsOf(const AppConfig& config, const SettingsStore& settings);

// Puts what the dialog shows into a record. A refusal leaves the record as it was; its row is that
// of InstrumentFields, or one of these behind them.
inline constexpr std::size_t kGpsPortRow = 1000;
inline constexpr std::size_t kAisPortRow = 1001;
std::optional<SettingRefusal> TakeInstrumentSettings(const InstrumentSettings& shown,
                                                     AppConfig& config);

// Takes what the dialog shows over the stored record, writes it, and carries it into the program.
// Error: the settings could not be written; the program goes on with them all the same.
Status CommitInstrumentSettings(Program& program, SettingsStore& settings,
                                const InstrumentSettings& shown);

}  // namespace skerrow
