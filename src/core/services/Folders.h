// Folders of the user's.
#pragma once

#include <string>

namespace kzo::core::folders {

/// The folder of that maker among the user's preferences, made if it is missing; empty when there is none, and it
/// cannot be made.
[[nodiscard]] std::string preferences(const std::string& maker);

} // namespace kzo::core::folders
