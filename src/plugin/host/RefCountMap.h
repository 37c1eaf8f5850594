// Sharing of implementation objects: handles made separately from one host object meet in one wrapper. The count is
// kept here, by key; the map exists only while something is in it. Main thread only.
#pragma once

#include <memory>
#include <unordered_map>
#include <utility>

namespace kzo::plugin {

/// The implementation object that all handles of one host object share.
template <class Key, class Impl> struct __RefCountWrapper {
    Key key;
    Impl impl;
};

template <class Key, class Wrapper> class RefCountMap {
  public:
    /// The wrapper of `key` with one more holder. `make()` answers the implementation object if there is none yet.
    template <class Make> [[nodiscard]] static Wrapper* acquire(Key key, Make make) {
        if (!map_) map_ = new Map;
        auto at = map_->find(key);
        if (at == map_->end())
            at = map_->emplace(key, Entry{std::unique_ptr<Wrapper>(new Wrapper{key, make()}), 0}).first;
        ++at->second.count;
        return at->second.wrapper.get();
    }

    /// One holder less; the last one takes the wrapper along.
    static void release(Key key) {
        if (!map_) return;
        const auto at = map_->find(key);
        if (at == map_->end() || --at->second.count > 0) return;
        map_->erase(at);
        if (map_->empty()) delete std::exchange(map_, nullptr);
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

    // With no destructor, since a handle of a client may be the last thing of the process to go.
    inline static Map* map_ = nullptr;
};

/// One holder of the wrapper of a host object. An implementation that has lost its object starts anew: the host may use
/// a handle twice.
template <class Key, class Impl> class SharedImpl {
  public:
    using Map = RefCountMap<Key, __RefCountWrapper<Key, Impl>>;

    explicit SharedImpl(Key key) : SharedImpl(key, [key] { return Impl(key); }) {}
    /// For an implementation that takes more than its key: `make()` answers it.
    template <class Make> SharedImpl(Key key, Make make) : wrapper_(Map::acquire(key, make)) {
        if (!wrapper_->impl.handle()) wrapper_->impl = make();
    }
    ~SharedImpl() { Map::release(wrapper_->key); }
    SharedImpl(const SharedImpl&) = delete;
    SharedImpl& operator=(const SharedImpl&) = delete;

    /// Null once the object is gone.
    [[nodiscard]] Impl* get() const { return wrapper_->impl.handle() ? &wrapper_->impl : nullptr; }

  private:
    __RefCountWrapper<Key, Impl>* wrapper_;
};

} // namespace kzo::plugin
