// Sending: head, transaction, guard, trace.
#include "session/frame/Messenger.h"

#include <cstdio>
#include <optional>
#include <utility>

#include "session/frame/Events.h"

namespace easel::session {

SPErr Messenger::call(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message) {
    try {
        return plugin.entry(caller, selector, &message);
    } catch (...) {
        reports_.add(Blame::Plugin, plugin.name + " threw out of its entry, handling " + caller + "/" + selector);
        return kInternalErr;
    }
}

SPErr Messenger::send(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message) {
    if (!plugin.started) return kRefusedErr;
    void* const globals = std::exchange(message.globals, plugin.globals);
    const SPErr answer = pass(plugin, caller, selector, message);
    plugin.globals = std::exchange(message.globals, globals);
    return answer;
}

SPErr Messenger::pass(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message) {
    if (!plugin.started) return kRefusedErr;
    if (depth_ == kMaxDepth) {
        reports_.add(Blame::Plugin, plugin.name + " was not sent " + caller + "/" + selector +
                                        ": messages are nested " + std::to_string(depth_) + " deep");
        return kRefusedErr;
    }
    // A plug-in may send on the very record that it is handling, so the head comes back as it was.
    const SPMessageData head = message;
    address(plugin, message);
    message.globals = head.globals;
    if (trace) std::fprintf(stderr, "%*s%s: %s/%s\n", 2 * depth_, "", plugin.name.c_str(), caller, selector);

    SPErr answer = kNoErr;
    batch([&] {
        // Changes of a message are kept whatever the plug-in returned.
        std::optional<model::Journal::Scope> transaction;
        if (model::Document* const front = documents_.front()) transaction.emplace(front->journal());
        ++depth_;
        answer = call(plugin, caller, selector, message);
        --depth_;
    });
    message.SPCheck = head.SPCheck;
    message.self = head.self;
    message.basic = head.basic;
    if (trace)
        std::fprintf(stderr, "%*s%s: %s/%s = %d\n", 2 * depth_, "", plugin.name.c_str(), caller, selector, answer);
    return answer;
}

void Messenger::address(const Plugin& plugin, SPMessageData& message) const {
    message = {.SPCheck = kSPValidMessageData, .self = plugin.handle, .globals = plugin.globals, .basic = &basic_};
}

void Messenger::runDeferred() {
    int run = 0;
    Events::Notified notified; // a subscriber that changes what it is told of shall not hear of it for ever
    while (!deferred_.empty() || events_.notify(notified)) {
        if (deferred_.empty()) continue;
        notified.reset();
        if (++run > kMaxDeferred) {
            reports_.add(Blame::Plugin, "what was put off until after a message led to more again and again; after " +
                                            std::to_string(kMaxDeferred) + " actions the rest is dropped");
            deferred_.clear();
            break;
        }
        const std::function<void()> action = std::move(deferred_.front());
        deferred_.erase(deferred_.begin());
        action();
    }
}

} // namespace easel::session
