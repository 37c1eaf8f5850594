// What the plug-in has registered with the host, of one kind: tools, timers, menu items, notifiers, annotators.
#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace kzo::plugin {

/// Owns its objects, together with the handles on them, until they are destroyed; then those handles are empty. Whoever
/// runs an object's callback holds it meanwhile, for a callback may destroy its own object.
template <class T> class Registered {
  public:
    /// Registers what the host took, and returns it; null for null and for what the host refused.
    std::shared_ptr<T> add(std::shared_ptr<T> made) {
        if (!made || !made->handle()) return nullptr;
        all_.push_back(made);
        return made;
    }
    /// Has the host remove the object.
    void destroy(T& object) {
        const std::shared_ptr<T> held = take(object);
        object.destroy();
    }
    void destroyAll() {
        for (const std::shared_ptr<T>& object : std::exchange(all_, {})) object->destroy();
    }
    /// Lets go of the objects that have lost their handle: the host has taken them away.
    void sweep() {
        std::erase_if(all_, [](const std::shared_ptr<T>& object) { return !object->handle(); });
    }

    /// Null for a handle that is none of ours.
    template <class Handle> [[nodiscard]] std::shared_ptr<T> find(Handle* handle) const {
        const auto at = std::find_if(all_.begin(), all_.end(),
                                     [handle](const auto& object) { return handle && object->handle() == handle; });
        return at == all_.end() ? nullptr : *at;
    }
    [[nodiscard]] const std::vector<std::shared_ptr<T>>& all() const { return all_; }

  private:
    std::shared_ptr<T> take(const T& object) {
        const auto at =
            std::find_if(all_.begin(), all_.end(), [&](const auto& known) { return known.get() == &object; });
        if (at == all_.end()) return nullptr;
        std::shared_ptr<T> taken = std::move(*at);
        all_.erase(at);
        return taken;
    }

    std::vector<std::shared_ptr<T>> all_;
};

} // namespace kzo::plugin
