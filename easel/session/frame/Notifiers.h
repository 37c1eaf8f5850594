// Subscriptions of plug-ins to events of the host, and the raising of events.
#pragma once

#include <string>
#include <string_view>

#include "hostapi/AINotifierSuite.h"
#include "session/base/Handles.h"
#include "session/frame/Messenger.h"

namespace easel::session {

struct Notifier {
    AINotifierHandle handle = nullptr;
    Plugin* owner = nullptr;
    std::string name;
    std::string type;
};

class Notifiers : public Registry<Notifier, AINotifierHandle> {
  public:
    explicit Notifiers(Messenger& messenger) : messenger_(messenger) {}

    /// Raises an event: each subscriber of `type` gets its notifier message.
    void raise(std::string_view type);

  private:
    Messenger& messenger_;
};

struct PluginGroup {
    AIPluginGroupHandle handle = nullptr;
    Plugin* owner = nullptr;
    std::string name;
    std::int32_t options = 0;
};

class PluginGroups : public Registry<PluginGroup, AIPluginGroupHandle> {};

} // namespace easel::session
