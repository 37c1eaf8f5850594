#include "plugin/frame/HostPreferences.h"

#include "hostapi/AIPreferenceSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin::preferences {

namespace {

using Suite = AIPreferenceSuite;
using Text = const std::string&;

template <auto Entry, class Ours> bool readAs(Text section, Text key, Ours& value) {
    typename host::AnswerOf<decltype(Entry)>::type held{};
    if (!host::call<Entry>(section, key, &held)) return false;
    value = host::fromHost<Ours>(held);
    return true;
}

} // namespace

bool exists(Text section, Text key) { return host::get<&Suite::PreferenceExists>(section, key); }
bool remove(Text section, Text key) { return host::call<&Suite::RemovePreference>(section, key); }

bool read(Text section, Text key, bool& value) { return readAs<&Suite::GetBooleanPreference>(section, key, value); }
bool read(Text section, Text key, std::int32_t& value) {
    return readAs<&Suite::GetIntegerPreference>(section, key, value);
}
bool read(Text section, Text key, double& value) { return readAs<&Suite::GetRealPreference>(section, key, value); }
bool read(Text section, Text key, std::string& value) {
    return readAs<&Suite::GetStringPreference>(section, key, value);
}

bool write(Text section, Text key, bool value) { return host::call<&Suite::PutBooleanPreference>(section, key, value); }
bool write(Text section, Text key, std::int32_t value) {
    return host::call<&Suite::PutIntegerPreference>(section, key, value);
}
bool write(Text section, Text key, double value) { return host::call<&Suite::PutRealPreference>(section, key, value); }
bool write(Text section, Text key, Text value) { return host::call<&Suite::PutStringPreference>(section, key, value); }

} // namespace kzo::plugin::preferences
