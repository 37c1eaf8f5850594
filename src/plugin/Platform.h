// The one seam to everything that is not the host: keys, cursors, the system log.
#pragma once

#include <string_view>

#include "core/Enumerations.h"

namespace kzo::plugin {

class Platform {
  public:
    virtual ~Platform() = default;

    [[nodiscard]] virtual core::ModifierKeys modifierKeys() const = 0; ///< held now
    virtual void showCursor(unsigned number) = 0;                      ///< one of the host's
    virtual void log(std::string_view line) = 0;
};

/// The platform that the plug-in runs on.
[[nodiscard]] Platform& platform();

} // namespace kzo::plugin
