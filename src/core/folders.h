#pragma once

#include <string>

#include "core/files.h"

namespace skerrow {

// The three folders everything hangs under, worked out once at the start.
struct Folders {
  std::string program;    // ProgramFolder: read-only data installed with the program
  std::string documents;  // BaseDataFolder: the user's documents
  std::string settings;   // SettingsFolder: the user's configuration

  // Below the program folder.
  std::string Charts() const { return JoinPath(program, "Charts"); }
  std::string TidalStreams() const { return JoinPath(program, "TS"); }
  std::string HarmonicStreams() const { return JoinPath(program, "HarmTS"); }
  std::string RefPortFile() const { return JoinPath(program, "RefPorts.hc"); }
  std::string Samples() const { return JoinPath(program, "Samples"); }

  // Below the documents folder.
  std::string UserData() const { return JoinPath(documents, "SkerrowHelm"); }
  std::string Waypoints() const { return JoinPath(UserData(), "Waypoints"); }
  std::string Routes() const { return JoinPath(UserData(), "Routes"); }
  std::string Tracks() const { return JoinPath(UserData(), "Tracks"); }
  std::string GoogleEarth() const { return JoinPath(UserData(), "Google Earth"); }
  std::string GribData() const { return JoinPath(documents, "Grib Data"); }

  // Below the settings folder.
  std::string SettingsData() const { return JoinPath(settings, "SkerrowHelm"); }
  std::string ConfigFile() const { return JoinPath(SettingsData(), "HelmConfigv60.cfg"); }
  std::string WindConfigFile() const { return JoinPath(SettingsData(), "WindConfig.cfg"); }
  std::string WindDataFile() const { return JoinPath(SettingsData(), "~wind.dat"); }
};

// Creates the folders of the user's data and settings. Failures are ignored: what needs a missing
// folder later says so itself.
void MakeUserFolders(const Folders& folders);

}  // namespace skerrow
