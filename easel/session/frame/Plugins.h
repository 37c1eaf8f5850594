// The loaded plug-ins: bundles opened from disk or entries given as functions, their names and their health. Sends no
// messages itself (see Messenger).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hostapi/SPMessages.h"
#include "session/base/Handles.h"

namespace easel::session {

struct Plugin {
    SPPluginRef handle = nullptr;
    std::string name;
    std::string file; ///< the bundle's path as the user gave it; this and the next two are empty for a function
    std::string fileName;
    std::string filePath; ///< absolute
    std::int32_t options = 0;
    std::int32_t toolSnapping = 0; ///< kSnapToArt ...
    std::vector<double> axes;      ///< that its tools draw along, in degrees, counter-clockwise from the right
    void* library = nullptr;       ///< as the dynamic linker knows it; null for a function
    SPEntry entry = nullptr;
    void* globals = nullptr;
    bool monitorsInput = false; ///< is told of keys and mouse buttons
    bool started = false;
    bool broken = false; ///< declined to start; is called no more
};

/// The bytes of the resource Contents/Resources/NUMBER.TYPE of the plug-in's bundle. Throws HostError when the type is
/// not made of letters and digits, and when there is no such resource.
[[nodiscard]] std::string resource(const Plugin& plugin, std::string_view type, int number);

class Plugins {
  public:
    /// Takes a function for a plug-in. Nothing is called yet.
    Plugin& attach(const std::string& name, SPEntry entry);
    /// Opens a bundle folder (NAME.aip). Its library stays mapped for the life of the process. Throws Error when the
    /// path is no bundle, or its library cannot be opened or has no entry.
    Plugin& load(const std::string& bundle);

    [[nodiscard]] Plugin* find(SPPluginRef handle) const { return plugins_.find(handle); }
    [[nodiscard]] std::vector<Plugin*> all() const { return plugins_.all(); }

  private:
    Registry<Plugin, SPPluginRef> plugins_;
};

} // namespace easel::session
