// The host's preferences: the implementation has no state.
#include "core/app/HostPreferences.h"

#include "plugin/frame/HostPreferences.h"

namespace kzo::core::ai {

namespace store = plugin::preferences;
using Text = const std::string&;

bool Preferences::exists(Text section, Text key) const { return store::exists(section, key); }
bool Preferences::remove(Text section, Text key) { return store::remove(section, key); }

bool Preferences::getBoolPref(Text section, Text key, bool& value) const { return store::read(section, key, value); }
bool Preferences::getIntPref(Text section, Text key, std::int32_t& value) const {
    return store::read(section, key, value);
}
bool Preferences::getFloatPref(Text section, Text key, double& value) const { return store::read(section, key, value); }
bool Preferences::getStringPref(Text section, Text key, std::string& value) const {
    return store::read(section, key, value);
}

bool Preferences::setBoolPref(Text section, Text key, bool value) { return store::write(section, key, value); }
bool Preferences::setIntPref(Text section, Text key, std::int32_t value) { return store::write(section, key, value); }
bool Preferences::setFloatPref(Text section, Text key, double value) { return store::write(section, key, value); }
bool Preferences::setStringPref(Text section, Text key, Text value) { return store::write(section, key, value); }

} // namespace kzo::core::ai
