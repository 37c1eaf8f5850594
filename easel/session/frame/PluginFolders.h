// Where the user keeps plug-ins: folders whose bundles are loaded without being named.
#pragma once

#include <string>
#include <vector>

#include "session/base/Reports.h"
#include "session/frame/Plugins.h"

namespace easel::session {

/// Those in the environment variable EASEL_PLUGINS, separated by colons; where it is not set, "easel/plug-ins" in the
/// user's folder for data (XDG_DATA_HOME, else ~/.local/share). A folder need not be there.
[[nodiscard]] std::vector<std::string> pluginFolders();

/// The bundles (NAME.aip) in these folders, folder by folder, by name. One that has the name of another before it is
/// left out.
[[nodiscard]] std::vector<std::string> bundlesIn(const std::vector<std::string>& folders);

/// Loads what lies in the plug-in folders, except for bundles of the same name as one that is loaded. What cannot be
/// loaded is reported.
void loadFound(Plugins& plugins, Reports& reports);

} // namespace easel::session
