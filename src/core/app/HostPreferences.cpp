// The host's preferences: the implementation has no state.
#include "core/app/HostPreferences.h"

#include "plugin/frame/HostPreferences.h"

namespace kzo::core::ai {

namespace host = plugin::preferences;

bool Preferences::exists(const std::string& section, const std::string& key) const {
    return host::exists(section, key);
}
bool Preferences::remove(const std::string& section, const std::string& key) { return host::remove(section, key); }

bool Preferences::getBoolPref(const std::string& section, const std::string& key, bool& value) const {
    return host::read(section, key, value);
}
bool Preferences::getIntPref(const std::string& section, const std::string& key, std::int32_t& value) const {
    return host::read(section, key, value);
}
bool Preferences::getFloatPref(const std::string& section, const std::string& key, double& value) const {
    return host::read(section, key, value);
}
bool Preferences::getStringPref(const std::string& section, const std::string& key, std::string& value) const {
    return host::read(section, key, value);
}

bool Preferences::setBoolPref(const std::string& section, const std::string& key, bool value) {
    return host::write(section, key, value);
}
bool Preferences::setIntPref(const std::string& section, const std::string& key, std::int32_t value) {
    return host::write(section, key, value);
}
bool Preferences::setFloatPref(const std::string& section, const std::string& key, double value) {
    return host::write(section, key, value);
}
bool Preferences::setStringPref(const std::string& section, const std::string& key, const std::string& value) {
    return host::write(section, key, value);
}

} // namespace kzo::core::ai
