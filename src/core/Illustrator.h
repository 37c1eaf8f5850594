// The running host application.
#pragma once

#include "core/CurrentDocument.h"

namespace kzo::core {

class Illustrator {
  public:
    /// Made on first use, gone with the plug-in's shut-down.
    [[nodiscard]] static Illustrator* instance();

    /// Null when no document is open.
    [[nodiscard]] CurrentDocument* currentDocument();

    static void __destroy(); ///< for the plug-in object

  private:
    Illustrator() = default;

    CurrentDocument currentDocument_;
};

} // namespace kzo::core
