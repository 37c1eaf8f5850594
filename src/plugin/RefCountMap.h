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
        if (!map_) map_ = std::make_unique<Map>();
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
        if (map_->empty()) map_.reset();
    }

    [[nodiscard]] static bool exists() { return map_ != nullptr; }

  private:
    struct Entry {
        std::unique_ptr<Wrapper> wrapper;
        long count;
    };
    using Map = std::unordered_map<Key, Entry>;

    inline static std::unique_ptr<Map> map_;
};

} // namespace kzo::plugin
