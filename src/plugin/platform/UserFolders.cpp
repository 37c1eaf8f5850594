// The user's folders, from the environment.
#include "plugin/platform/UserFolders.h"

#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <unistd.h>

namespace kzo::plugin {

namespace {

namespace fs = std::filesystem;

fs::path homeFolder() {
    if (const char* const home = std::getenv("HOME"); home && *home) return home;
    const passwd* const user = getpwuid(getuid());
    return user && user->pw_dir ? user->pw_dir : "";
}

/// Makes the folder itself, if it is missing, but none around it: where the home folder is missing there is no user.
std::string made(const fs::path& folder) {
    std::error_code error;
    fs::create_directory(folder, error);
    return fs::is_directory(folder, error) ? folder.string() : "";
}

} // namespace

std::string userPreferences() {
#ifdef __APPLE__
    return made(homeFolder() / "Library/Preferences");
#else
    // A path that is not absolute counts for nothing.
    const char* const configured = std::getenv("XDG_CONFIG_HOME");
    if (configured && *configured == '/') return made(configured);
    const fs::path home = homeFolder();
    return home.empty() ? "" : made(home / ".config");
#endif
}

} // namespace kzo::plugin
