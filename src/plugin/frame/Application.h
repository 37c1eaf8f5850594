// The running host: the calls behind core::Illustrator.
#pragma once

#include <cstddef>

namespace kzo::plugin::application {

// Documents
[[nodiscard]] int documentCount();

// Memory
[[nodiscard]] void* alloc(std::size_t size); ///< null when the host refuses
bool free(void* block);                      ///< false for a block that is not the host's

} // namespace kzo::plugin::application
