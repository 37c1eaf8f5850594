// Lists the bundles in the folders for plug-ins.
#include "session/frame/PluginFolders.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>

#include "session/base/Error.h"

namespace easel::session {

namespace fs = std::filesystem;

std::vector<std::string> pluginFolders() {
    if (const char* const list = std::getenv("EASEL_PLUGINS")) {
        std::vector<std::string> folders;
        std::istringstream text(list);
        for (std::string folder; std::getline(text, folder, ':');)
            if (!folder.empty()) folders.push_back(folder);
        return folders;
    }
    const char* const data = std::getenv("XDG_DATA_HOME");
    const char* const home = std::getenv("HOME");
    fs::path folder;
    if (data && fs::path(data).is_absolute())
        folder = data;
    else if (home && fs::path(home).is_absolute())
        folder = fs::path(home) / ".local" / "share";
    else
        return {};
    return {(folder / "easel" / "plug-ins").string()};
}

std::vector<std::string> bundlesIn(const std::vector<std::string>& folders) {
    std::vector<std::string> bundles;
    std::set<fs::path> names;
    for (const std::string& folder : folders) {
        std::vector<fs::path> found;
        std::error_code none;
        for (fs::directory_iterator at(folder, none), end; !none && at != end; at.increment(none))
            if (at->path().extension() == ".aip") found.push_back(at->path());
        std::sort(found.begin(), found.end());
        for (const fs::path& bundle : found)
            if (names.insert(bundle.filename()).second) bundles.push_back(bundle.string());
    }
    return bundles;
}

void loadFound(Plugins& plugins, Reports& reports) {
    for (const std::string& bundle : bundlesIn(pluginFolders())) {
        const std::string name = std::filesystem::path(bundle).filename();
        const auto loaded = plugins.all();
        if (std::any_of(loaded.begin(), loaded.end(), [&](const auto* plugin) { return plugin->fileName == name; }))
            continue;
        try {
            plugins.load(bundle);
        } catch (const Error& error) {
            reports.add(Blame::Plugin, error.what());
        }
    }
}

} // namespace easel::session
