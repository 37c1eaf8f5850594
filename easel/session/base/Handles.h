// How the host's objects are named towards plug-ins: a 64-bit handle packs kind, document, generation and slot. No
// handle is a valid address, so one that is dead, foreign or made up is refused and never followed.
#pragma once

#include <bit>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "hostapi/SPTypes.h"
#include "hostapi/Stage.h"

namespace easel::session {

template <class T> inline constexpr unsigned kKindOf = 0; ///< for what is no handle
template <> inline constexpr unsigned kKindOf<AIArtHandle> = 1;
template <> inline constexpr unsigned kKindOf<AILayerHandle> = 2;
template <> inline constexpr unsigned kKindOf<AIDocumentHandle> = 3;
template <> inline constexpr unsigned kKindOf<AIDocumentViewHandle> = 4;
template <> inline constexpr unsigned kKindOf<AIToolHandle> = 5;
template <> inline constexpr unsigned kKindOf<AINotifierHandle> = 6;
template <> inline constexpr unsigned kKindOf<AIPluginGroupHandle> = 7;
template <> inline constexpr unsigned kKindOf<SPPluginRef> = 8;
template <> inline constexpr unsigned kKindOf<AIMenuGroup> = 9;
template <> inline constexpr unsigned kKindOf<AIMenuItemHandle> = 10;
template <> inline constexpr unsigned kKindOf<AITimerHandle> = 11;
template <> inline constexpr unsigned kKindOf<AIAnnotatorHandle> = 12;
template <> inline constexpr unsigned kKindOf<AIDrawingContextHandle> = 13;
template <> inline constexpr unsigned kKindOf<AIArtboardHandle> = 14;

template <> inline constexpr unsigned kKindOf<StageDialogRef> = 14;

template <class T>
concept Handle = kKindOf<T>
!= 0;

/// What a handle says. The widths add up to 64 bits; the kind, 1 to 14, in the top four makes the value no address.
struct HandleParts {
    static constexpr unsigned kDocumentBits = 12;
    static constexpr unsigned kGenerationBits = 20;
    static constexpr unsigned kSlotBits = 28;

    unsigned kind = 0;
    std::uint32_t document = 0; ///< number of the document, 0 for what belongs to none
    std::uint32_t generation = 0;
    std::uint32_t slot = 0;
};

template <Handle H> [[nodiscard]] H makeHandle(std::uint32_t document, std::uint32_t generation, std::uint32_t slot) {
    using P = HandleParts;
    const auto bits = std::uint64_t{kKindOf<H>} << 60 | std::uint64_t{document} << (P::kGenerationBits + P::kSlotBits) |
                      std::uint64_t{generation} << P::kSlotBits | slot;
    return std::bit_cast<H>(bits);
}

template <Handle H> [[nodiscard]] HandleParts partsOf(H handle) {
    using P = HandleParts;
    const auto bits = std::bit_cast<std::uint64_t>(handle);
    const auto field = [bits](unsigned shift, unsigned width) {
        return static_cast<std::uint32_t>(bits >> shift & ((std::uint64_t{1} << width) - 1));
    };
    return {.kind = static_cast<unsigned>(bits >> 60),
            .document = field(P::kGenerationBits + P::kSlotBits, P::kDocumentBits),
            .generation = field(P::kSlotBits, P::kGenerationBits),
            .slot = field(0, P::kSlotBits)};
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
        const bool known = parts.kind == kKindOf<H> && parts.slot < entries_.size() && entries_[parts.slot];
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
