// The log.
#pragma once

#include <string>

namespace kzo::core {

/// Notes a line under the plug-in's name, where the host or the system keeps such lines.
void log(const std::string& line);

} // namespace kzo::core
