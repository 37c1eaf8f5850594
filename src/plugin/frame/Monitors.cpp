// The platform is asked for input while there is a monitor.
#include "plugin/frame/Monitors.h"

#include "plugin/platform/Platform.h"

namespace kzo::plugin {

std::uint32_t Monitors::add(const Input& input, const core::CallbackSlot& callback) {
    if (monitors_.empty() && !platform().keys().monitorInput(plugin_, true)) return 0;
    monitors_.emplace(++lastId_, Monitor{input, callback});
    return lastId_;
}

core::Callback* Monitors::find(Input::Kind kind, std::uint32_t id) const {
    const auto at = monitors_.find(id);
    return at != monitors_.end() && at->second.input.kind == kind ? at->second.callback.get() : nullptr;
}

void Monitors::remove(Input::Kind kind, std::uint32_t id) {
    const auto at = monitors_.find(id);
    if (at == monitors_.end() || at->second.input.kind != kind) return;
    monitors_.erase(at);
    if (monitors_.empty()) platform().keys().monitorInput(plugin_, false);
}

void Monitors::clear() {
    if (monitors_.empty()) return;
    monitors_.clear();
    platform().keys().monitorInput(plugin_, false);
}

void Monitors::pressed(const Input& input) const {
    const std::uint32_t newest = lastId_;
    for (auto at = monitors_.begin(); at != monitors_.end() && at->first <= newest;) {
        const std::uint32_t id = at->first;
        if (at->second.input == input) {
            // A copy, since the callback may remove its own monitor.
            const core::CallbackSlot running = at->second.callback;
            running.run();
        }
        at = monitors_.upper_bound(id);
    }
}

} // namespace kzo::plugin
