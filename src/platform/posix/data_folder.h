// The user's own folder of the runtime's data, by the XDG base directory convention:
// https://specifications.freedesktop.org/basedir-spec/ Only for platform/posix/.
#pragma once

#include <string>

namespace velm::native {

// The native path of XDG_DATA_HOME, or .local/share in the home folder. Throws Failure(70) where the
// user has neither.
std::string UserDataHome();
// The same for XDG_CONFIG_HOME, or .config in the home folder.
std::string UserConfigHome();
// The folder within UserDataHome that is the runtime's; it need not be there yet.
std::string DataFolder();

// Makes a folder with all that are missing on the way to it, for the user's eyes only. Throws Failure.
void MakeFolders(const std::string& path);
void MakeDataFolder();

}  // namespace velm::native
