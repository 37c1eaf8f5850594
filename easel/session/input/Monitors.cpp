// The message to each that monitors.
#include "session/input/Monitors.h"

#include "hostapi/Stage.h"

namespace easel::session {

void Monitors::notify(const char* selector, std::int32_t code) {
    for (Plugin* plugin : plugins_.all()) {
        if (!plugin->monitorsInput) continue;
        StageInputMessage message{.d = {}, .code = code};
        messenger_.send(*plugin, kCallerStage, selector, message.d);
    }
}

} // namespace easel::session
