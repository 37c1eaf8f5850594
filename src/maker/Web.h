// The maker's presence in the web.
#pragma once

#include <string>

namespace vl::web {

inline constexpr const char* kHost = "https://www.velloran.example";

/// The address of a path, which begins with a slash, on the maker's host. The environment variable VELLORAN_WEB names
/// another scheme and host instead, of this machine alone: 127.0.0.1 or localhost, with a port or not.
[[nodiscard]] std::string address(const std::string& path);

} // namespace vl::web
