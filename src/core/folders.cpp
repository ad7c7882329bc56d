#include "core/folders.h"

namespace skerrow {

void MakeUserFolders(const Folders& folders) {
  for (const std::string& folder :
       {folders.SettingsData(), folders.UserData(), folders.Routes(), folders.Waypoints(),
        folders.Tracks(), folders.GoogleEarth(), folders.GribData()}) {
    (void)MakeFolder(folder);
  }
}

}  // namespace skerrow
