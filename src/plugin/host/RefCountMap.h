// Sharing of implementation objects: handles made separately from one host object meet in one of them. Holders are
// counted here, by key; a map exists only while something is in it. Main thread only.
#pragma once

#include <memory>
#include <unordered_map>
#include <utility>

#include "plugin/host/Object.h"

namespace kzo::plugin {

/// The implementation object that all handles of one host object share.
template <class Key, class Impl> struct __RefCountWrapper {
    Key key;
    Impl impl;
    long holdersLeft = 0; ///< once it is out of the map, which counts them until then
};

template <class Key, class Wrapper> class RefCountMap {
  public:
    /// The wrapper of `key` with one more holder. `make()` returns the implementation object if there is none yet.
    template <class Make> [[nodiscard]] static Wrapper* acquire(Key key, Make make) {
        if (!map_) map_ = new Map;
        auto at = map_->find(key);
        if (at == map_->end())
            at = map_->emplace(key, Entry{std::unique_ptr<Wrapper>(new Wrapper{key, make()}), 0}).first;
        ++at->second.count;
        return at->second.wrapper.get();
    }

    /// One holder less; the last one takes the wrapper along.
    static void release(Wrapper* wrapper) {
        if (find(wrapper->key) != wrapper) {
            if (--wrapper->holdersLeft == 0) delete wrapper;
            return;
        }
        const auto at = map_->find(wrapper->key);
        if (--at->second.count == 0) erase(at);
    }

    /// Leaves the implementation object of `key` without its handle, for ever: it is out of the map and lives on for
    /// its holders alone, so that nothing made later of the same key finds it.
    static void forget(Key key) {
        if (!find(key)) return;
        const auto at = map_->find(key);
        Wrapper* const wrapper = at->second.wrapper.release();
        wrapper->impl.release();
        wrapper->holdersLeft = at->second.count;
        erase(at);
    }
    static void forgetAll() {
        while (map_) forget(map_->begin()->first);
    }

    /// The wrapper of `key` for a look, or null when nothing holds one.
    [[nodiscard]] static Wrapper* find(Key key) {
        if (!map_) return nullptr;
        const auto at = map_->find(key);
        return at == map_->end() ? nullptr : at->second.wrapper.get();
    }

    /// Calls `visit` with every wrapper, in no order.
    template <class Visit> static void each(Visit visit) {
        if (!map_) return;
        for (auto& [key, entry] : *map_) visit(*entry.wrapper);
    }

    [[nodiscard]] static bool exists() { return map_ != nullptr; }

  private:
    struct Entry {
        std::unique_ptr<Wrapper> wrapper;
        long count;
    };
    using Map = std::unordered_map<Key, Entry>;

    static void erase(typename Map::iterator at) {
        map_->erase(at);
        if (map_->empty()) delete std::exchange(map_, nullptr);
    }

    // With no destructor, since a handle of a client may be the last thing of the process to go.
    inline static Map* map_ = nullptr;
};

template <class Impl> using KeyOf = decltype(std::declval<const Impl&>().handle());
template <class Impl> using MapOf = RefCountMap<KeyOf<Impl>, __RefCountWrapper<KeyOf<Impl>, Impl>>;

/// The implementation object that the handles on one host object share; `make()` returns it if there is none yet. Null
/// for the null handle, and where no host is attached, so that handles made after shut-down are empty.
template <class Impl, class Make> [[nodiscard]] std::shared_ptr<Impl> share(KeyOf<Impl> key, Make make) {
    if (!key || !host::isAttached()) return nullptr;
    auto* const wrapper = MapOf<Impl>::acquire(key, make);
    return std::shared_ptr<Impl>(&wrapper->impl, [wrapper](Impl*) { MapOf<Impl>::release(wrapper); });
}
/// The same, made of the key alone.
template <class Impl> [[nodiscard]] std::shared_ptr<Impl> share(KeyOf<Impl> key) {
    return share<Impl>(key, [key] { return Impl(key); });
}

template <class... Impls> void forgetAll() { (MapOf<Impls>::forgetAll(), ...); }

} // namespace kzo::plugin
