// The running host: which one it is, whose, and what it does for the plug-in. The calls behind core::Illustrator.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kzo::plugin::application {

[[nodiscard]] std::int32_t majorVersion(); ///< 0 when the host does not say
[[nodiscard]] std::string userName();
[[nodiscard]] std::string userOrganization();
bool openURL(const std::string& url);

// Documents
[[nodiscard]] int documentCount();

// Fonts
bool clearFontCache();
bool cacheFonts();
[[nodiscard]] std::vector<std::string> fonts();

// Memory
[[nodiscard]] void* alloc(std::size_t size); ///< null when the host refuses
bool free(void* block);                      ///< false for a block that is not the host's

} // namespace kzo::plugin::application
