#pragma once

#include <optional>
#include <span>

#include "app/program.h"
#include "ui/forms/settings_table.h"

// The general settings: what `frmConfigure` shows, checks and does.
namespace skerrow {

// The rows of the dialog, in the order in which OK checks them.
std::span<const SettingField> ConfigureFields();

// Puts what the controls show into a record, and what follows from it.
std::optional<SettingRefusal> TakeConfigure(const SettingTexts& texts, AppConfig& config);

// Writes the record and carries it into the program: the working speed and leeway, the speeds of
// the route points as an edit of the route, and the tides when summer time has changed. Error: the
// settings could not be written; the program then goes on with them all the same.
Status CommitConfigure(Program& program, const AppConfig& config, Messages& messages);

}  // namespace skerrow
