// The keys of the keyboard by name.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace easel::session {

namespace key {
inline constexpr std::int32_t kEscape = 0x35;
inline constexpr std::int32_t kDelete = 0x33;
inline constexpr std::int32_t kForwardDelete = 0x75;
inline constexpr std::int32_t kA = 0x00;
inline constexpr std::int32_t kC = 0x08;
inline constexpr std::int32_t kD = 0x02;
inline constexpr std::int32_t kG = 0x05;
inline constexpr std::int32_t kV = 0x09;
inline constexpr std::int32_t kX = 0x07;
inline constexpr std::int32_t kZ = 0x06;
inline constexpr std::int32_t kLeftBracket = 0x21;
inline constexpr std::int32_t kRightBracket = 0x1E;
} // namespace key

/// The code of a key by what it says, such as "A", "7", "[", "Escape" or "F5".
[[nodiscard]] std::optional<std::int32_t> keyCode(std::string_view name);
/// The name of a key that somebody may have meant by another; empty when none is like it.
[[nodiscard]] std::string_view similarKey(std::string_view name);

} // namespace easel::session
