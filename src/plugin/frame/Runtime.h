// The running host: which one it is, whose, and what it opens for the user. The calls behind core::Illustrator.
#pragma once

#include <cstdint>
#include <string>

namespace kzo::plugin::runtime {

[[nodiscard]] std::int32_t majorVersion(); ///< 0 when the host does not tell
[[nodiscard]] std::string userName();
[[nodiscard]] std::string userOrganization();
bool openURL(const std::string& url);

} // namespace kzo::plugin::runtime
