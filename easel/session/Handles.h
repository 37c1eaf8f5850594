// How the host's objects are named towards plug-ins: a 64-bit handle packs kind, document, generation and slot. No
// handle is a valid address, so one that is dead, foreign or made up is refused and never followed.
#pragma once

#include <bit>
#include <cstdint>
#include <memory>
#include <vector>

#include "hostapi/SPTypes.h"

namespace easel::session {

template <class Handle> struct KindOf;
template <> struct KindOf<AIArtHandle> { static constexpr unsigned value = 1; };
template <> struct KindOf<AILayerHandle> { static constexpr unsigned value = 2; };
template <> struct KindOf<AIDocumentHandle> { static constexpr unsigned value = 3; };
template <> struct KindOf<AIDocumentViewHandle> { static constexpr unsigned value = 4; };
template <> struct KindOf<AIToolHandle> { static constexpr unsigned value = 5; };
template <> struct KindOf<AINotifierHandle> { static constexpr unsigned value = 6; };
template <> struct KindOf<AIPluginGroupHandle> { static constexpr unsigned value = 7; };
template <> struct KindOf<SPPluginRef> { static constexpr unsigned value = 8; };
template <> struct KindOf<AIMenuGroup> { static constexpr unsigned value = 9; };
template <> struct KindOf<AIMenuItemHandle> { static constexpr unsigned value = 10; };
template <> struct KindOf<AITimerHandle> { static constexpr unsigned value = 11; };
template <> struct KindOf<AIAnnotatorHandle> { static constexpr unsigned value = 12; };
template <> struct KindOf<AIDrawingContextHandle> { static constexpr unsigned value = 13; };

template <class T>
concept Handle = requires {
    KindOf<T>::value;
};

/// What a handle says. The widths add up to 64 bits; the kind, 1 to 14, in the top four makes the value no address.
struct HandleParts {
    static constexpr unsigned documentBits = 12;
    static constexpr unsigned generationBits = 20;
    static constexpr unsigned slotBits = 28;

    unsigned kind = 0;
    std::uint32_t document = 0; ///< number of the document, 0 for what belongs to none
    std::uint32_t generation = 0;
    std::uint32_t slot = 0;
};

template <Handle H> [[nodiscard]] H makeHandle(std::uint32_t document, std::uint32_t generation, std::uint32_t slot) {
    using P = HandleParts;
    const auto bits = std::uint64_t{KindOf<H>::value} << 60 |
                      std::uint64_t{document} << (P::generationBits + P::slotBits) |
                      std::uint64_t{generation} << P::slotBits | slot;
    return std::bit_cast<H>(bits);
}

template <Handle H> [[nodiscard]] HandleParts partsOf(H handle) {
    using P = HandleParts;
    const auto bits = std::bit_cast<std::uint64_t>(handle);
    const auto field = [bits](unsigned shift, unsigned width) {
        return static_cast<std::uint32_t>(bits >> shift & ((std::uint64_t{1} << width) - 1));
    };
    return {.kind = static_cast<unsigned>(bits >> 60),
            .document = field(P::generationBits + P::slotBits, P::documentBits),
            .generation = field(P::slotBits, P::generationBits),
            .slot = field(0, P::slotBits)};
}

/// Owns the host's objects of one kind and gives each a handle that dies with it.
template <class T, Handle H> class Registry {
  public:
    T& add(std::unique_ptr<T> object) {
        const auto slot = static_cast<std::uint32_t>(entries_.size());
        object->handle = makeHandle<H>(0, 1, slot);
        entries_.push_back(std::move(object));
        return *entries_.back();
    }

    /// The object of this handle, or null. Slots are not used twice: these objects are few.
    [[nodiscard]] T* find(H handle) const {
        const HandleParts parts = partsOf(handle);
        const bool known = parts.kind == KindOf<H>::value && parts.slot < entries_.size() && entries_[parts.slot];
        return known && entries_[parts.slot]->handle == handle ? entries_[parts.slot].get() : nullptr;
    }

    void remove(T& object) { entries_[partsOf(object.handle).slot].reset(); }
    template <class Predicate> void removeIf(Predicate predicate) {
        for (auto& entry : entries_)
            if (entry && predicate(*entry)) entry.reset();
    }

    /// The living objects in the order in which they were added.
    [[nodiscard]] std::vector<T*> all() const {
        std::vector<T*> living;
        for (const auto& entry : entries_)
            if (entry) living.push_back(entry.get());
        return living;
    }

  private:
    std::vector<std::unique_ptr<T>> entries_;
};

} // namespace easel::session
