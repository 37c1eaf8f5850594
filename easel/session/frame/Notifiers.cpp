// Who hears of an event, and when.
#include "session/frame/Notifiers.h"

#include <vector>

namespace easel::session {

void Notifiers::raise(std::string_view type) {
    // Subscriptions may come and go while subscribers are told; what they read lives as long as the message.
    const std::string text(type);
    std::vector<AINotifierHandle> subscribed;
    for (const Notifier* notifier : all())
        if (notifier->type == type) subscribed.push_back(notifier->handle);
    // One batch, so that nothing else is told before all of them know.
    messenger_.batch([&] {
        for (const AINotifierHandle handle : subscribed) {
            const Notifier* const notifier = find(handle);
            if (!notifier) continue;
            AINotifierMessage message{.d = {}, .notifier = handle, .type = text.c_str()};
            messenger_.send(*notifier->owner, kCallerAINotify, kSelectorAINotify, message.d);
        }
    });
}

} // namespace easel::session
