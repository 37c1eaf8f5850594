// Subscriptions of plug-ins to events of the host. The session raises events (Session::notify).
#pragma once

#include <string>

#include "session/Handles.h"
#include "session/Plugins.h"

namespace easel::session {

struct Notifier {
    AINotifierHandle handle = nullptr;
    Plugin* owner = nullptr;
    std::string name;
    std::string type;
};

using Notifiers = Registry<Notifier, AINotifierHandle>;

struct PluginGroup {
    AIPluginGroupHandle handle = nullptr;
    Plugin* owner = nullptr;
    std::string name;
    std::int32_t options = 0;
};

using PluginGroups = Registry<PluginGroup, AIPluginGroupHandle>;

} // namespace easel::session
