// Lines with the plug-in's name, to the platform.
#include "core/frame/Log.h"

#include "plugin/frame/BasePlugin.h"

namespace kzo::core {

void log(const std::string& line) { plugin::log(line); }

} // namespace kzo::core
