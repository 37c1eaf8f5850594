// What the product is called, and which version of it this is, for which host.
#pragma once

#include <cstdint>

namespace vl::product {

inline constexpr const char* kName = "Ortholine";
inline constexpr const char* kCode = "ORTL"; ///< in queries for updates
inline constexpr const char* kMajorVersion = "16";
inline constexpr const char* kShownVersion = "16.2.1";
inline constexpr double kVersion = 16.21; ///< as replies to such queries say it
inline constexpr std::int32_t kHostVersion = 19;
inline constexpr const char* kHostName = "Illustrator CC 2015"; ///< that version, as users know it

} // namespace vl::product
