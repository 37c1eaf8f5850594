// Entries of the host's own preferences.
#include "plugin/frame/HostPreferences.h"

#include "hostapi/AIPreferenceSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin::preferences {

namespace {

using Suite = AIPreferenceSuite;
using Text = const std::string&;

} // namespace

bool exists(Text section, Text key) { return host::get<&Suite::PreferenceExists>(section, key); }
bool remove(Text section, Text key) { return host::call<&Suite::RemovePreference>(section, key); }

bool read(Text section, Text key, bool& value) { return host::read<&Suite::GetBooleanPreference>(value, section, key); }
bool read(Text section, Text key, std::int32_t& value) {
    return host::read<&Suite::GetIntegerPreference>(value, section, key);
}
bool read(Text section, Text key, double& value) { return host::read<&Suite::GetRealPreference>(value, section, key); }
bool read(Text section, Text key, std::string& value) {
    return host::read<&Suite::GetStringPreference>(value, section, key);
}

bool write(Text section, Text key, bool value) { return host::call<&Suite::PutBooleanPreference>(section, key, value); }
bool write(Text section, Text key, std::int32_t value) {
    return host::call<&Suite::PutIntegerPreference>(section, key, value);
}
bool write(Text section, Text key, double value) { return host::call<&Suite::PutRealPreference>(section, key, value); }
bool write(Text section, Text key, Text value) { return host::call<&Suite::PutStringPreference>(section, key, value); }

} // namespace kzo::plugin::preferences
