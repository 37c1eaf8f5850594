// The maker's presence in the web.
#pragma once

#include <string>

namespace vl::web {

inline constexpr const char* kHost = "https://www.velloran.example";

/// The address of a path, which begins with a slash, on the maker's host. The environment variable VELLORAN_WEB names
/// another scheme and host instead, of this machine alone: 127.0.0.1 or localhost, with a port or not.
[[nodiscard]] std::string address(const std::string& path);

// How texts name the site and the address for questions, each with the blank before it
inline constexpr const char* kInTextSite = " www.velloran.example";
inline constexpr const char* kInTextSupport = " support@velloran.example";

// Addresses
[[nodiscard]] std::string homePage();
[[nodiscard]] std::string updateQuery();   ///< which version of the product is the newest
[[nodiscard]] std::string downloadsPage(); ///< of all plug-ins
/// Of the product itself, for that version of the host.
[[nodiscard]] std::string downloadAddress(int hostVersion);

} // namespace vl::web
