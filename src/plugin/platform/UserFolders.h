// Where the system keeps what belongs to a user.
#pragma once

#include <string>

namespace kzo::plugin {

/// The user's preferences folder, made if it is missing, though never a folder around it; empty when there is none.
[[nodiscard]] std::string userPreferences();

} // namespace kzo::plugin
