// Plug-ins that monitor input hear of keys and mouse buttons before the host acts on them.
#pragma once

#include <cstdint>

#include "session/frame/Messenger.h"

namespace easel::session {

class Monitors {
  public:
    Monitors(const Plugins& plugins, Messenger& messenger) : plugins_(plugins), messenger_(messenger) {}

    void notify(const char* selector, std::int32_t code);

  private:
    const Plugins& plugins_;
    Messenger& messenger_;
};

} // namespace easel::session
