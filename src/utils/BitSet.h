// Bit-set operators for the enumerations that ask for them.
#pragma once

#include <type_traits>

namespace kzo::utils {

/// Specialised as true for an `enum class` whose values are combined bit by bit.
template <class Enum> struct IsBitSet : std::false_type {};

template <class Enum>
concept BitSet = IsBitSet<Enum>::value;

template <BitSet Enum> [[nodiscard]] constexpr auto bits(Enum set) {
    return static_cast<std::underlying_type_t<Enum>>(set);
}

template <BitSet Enum> [[nodiscard]] constexpr bool any(Enum set) { return bits(set) != 0; }

template <BitSet Enum> [[nodiscard]] constexpr Enum operator|(Enum a, Enum b) { return Enum(bits(a) | bits(b)); }
template <BitSet Enum> [[nodiscard]] constexpr Enum operator&(Enum a, Enum b) { return Enum(bits(a) & bits(b)); }
template <BitSet Enum> [[nodiscard]] constexpr Enum operator^(Enum a, Enum b) { return Enum(bits(a) ^ bits(b)); }
template <BitSet Enum> constexpr Enum& operator|=(Enum& a, Enum b) { return a = a | b; }
template <BitSet Enum> constexpr Enum& operator^=(Enum& a, Enum b) { return a = a ^ b; }

} // namespace kzo::utils
