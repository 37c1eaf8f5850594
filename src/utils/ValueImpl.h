// Keeps a facade's implementation object inside the facade itself, so that a public header needs no more than the name
// of the implementation type. It is for plain values only: shared or polymorphic objects have no place here.
#pragma once

#include <cstddef>
#include <new>
#include <type_traits>

namespace kzo::utils {

/// A `T` stored in `Size` bytes. Copying copies the object, and users of the class need no special members: `T` must be
/// trivially copyable, which is checked, with its size and alignment, where a `T` is handed over. It must be complete
/// wherever it is used, but not where facades are only copied.
template <typename T, std::size_t Size> class ValueImpl {
  public:
    explicit ValueImpl(const T& value) {
        static_assert(sizeof(T) == Size, "the facade's header states another size");
        static_assert(alignof(T) <= alignof(double), "the store is aligned for doubles");
        static_assert(std::is_trivially_copyable_v<T>, "copying the bytes must copy the value");
        new (store_) T(value);
    }

    [[nodiscard]] T& get() { return *std::launder(reinterpret_cast<T*>(store_)); }
    [[nodiscard]] const T& get() const { return *std::launder(reinterpret_cast<const T*>(store_)); }

    T* operator->() { return &get(); }
    const T* operator->() const { return &get(); }

  private:
    alignas(double) std::byte store_[Size];
};

} // namespace kzo::utils
