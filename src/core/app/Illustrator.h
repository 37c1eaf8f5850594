// The running host application.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "core/app/HostPreferences.h"
#include "core/document/CurrentDocument.h"
#include "core/frame/MenuGroup.h"
#include "core/frame/ThirdPartyPlugin.h"

namespace kzo::core {

class Illustrator {
  public:
    /// Made on first use, gone with the plug-in's shut-down.
    [[nodiscard]] static Illustrator* instance();

    // Documents
    [[nodiscard]] int documentCount() const; ///< that are open
    /// Null when no document is open.
    [[nodiscard]] CurrentDocument* currentDocument();

    [[nodiscard]] ai::Preferences* preferences() { return &preferences_; } ///< the host's own

    // Whose it is
    [[nodiscard]] std::int32_t majorVersion() const; ///< 0 when the host does not tell
    [[nodiscard]] std::string userName() const;      ///< that it is registered to, UTF-8, as the user typed it
    [[nodiscard]] std::string userOrganization() const;

    bool openURL(const std::string& url); ///< in the user's browser

    // Fonts. The host looks for them once and remembers what it found.
    bool clearFontCache();
    bool cacheFonts();                                    ///< looks at once
    [[nodiscard]] std::vector<std::string> fonts() const; ///< the families' names, in alphabetical order

    // Host memory
    [[nodiscard]] void* alloc(std::size_t size); ///< null when the host refuses
    bool free(void* block);                      ///< false for what is no block of the host's

    // Menus
    [[nodiscard]] std::size_t menuGroupCount() const;                  ///< those of the host and of all plug-ins
    [[nodiscard]] MenuGroup menuGroupAtIndex(std::size_t index) const; ///< from 0; an empty handle where there is none

    // Plug-ins
    /// All plug-ins that are loaded, by name, also those that are not running. Of several with one name the first is
    /// told.
    [[nodiscard]] std::map<std::string, ThirdPartyPlugin> allPlugins() const;

    static void __destroy(); ///< for the plug-in object

  private:
    Illustrator() = default;

    CurrentDocument currentDocument_;
    ai::Preferences preferences_;
};

} // namespace kzo::core
