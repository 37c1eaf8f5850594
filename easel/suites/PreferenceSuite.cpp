// The preference suite on the application's own preferences.
#include "hostapi/AIPreferenceSuite.h"

#include <cmath>

#include "session/base/HostPreferences.h"
#include "suites/Enter.h"

namespace easel::suites {

namespace {

using session::HostPreferences;
using Text = std::string_view;

HostPreferences& preferences() { return host<HostPreferences>(); }

template <class T> const T& get(Text section, Text key) {
    const HostPreferences::Value* const value = preferences().find(section, key);
    const T* const held = value ? std::get_if<T>(value) : nullptr;
    require(held, kPreferenceNotFoundErr);
    return *held;
}

AIReal getReal(Text section, Text key) {
    const HostPreferences::Value* const value = preferences().find(section, key);
    const auto* const whole = value ? std::get_if<std::int32_t>(value) : nullptr;
    return whole ? *whole : get<double>(section, key);
}

void put(Text section, Text key, HostPreferences::Value value) {
    require(!key.empty());
    preferences().put(section, key, std::move(value));
}

void putReal(Text section, Text key, AIReal value) {
    require(std::isfinite(value));
    put(section, key, value);
}

} // namespace

template <> void fill(AIPreferenceSuite& suite) {
    enter<&AIPreferenceSuite::PreferenceExists>(
        suite, [](Text section, Text key) { return preferences().find(section, key) != nullptr; });
    enter<&AIPreferenceSuite::GetBooleanPreference, get<bool>>(suite);
    enter<&AIPreferenceSuite::GetIntegerPreference, get<std::int32_t>>(suite);
    enter<&AIPreferenceSuite::GetRealPreference, getReal>(suite);
    enter<&AIPreferenceSuite::GetStringPreference, get<std::string>>(suite);
    enter<&AIPreferenceSuite::PutBooleanPreference>(
        suite, [](Text section, Text key, bool value) { put(section, key, value); });
    enter<&AIPreferenceSuite::PutIntegerPreference>(
        suite, [](Text section, Text key, std::int32_t value) { put(section, key, value); });
    enter<&AIPreferenceSuite::PutRealPreference, putReal>(suite);
    enter<&AIPreferenceSuite::PutStringPreference>(
        suite, [](Text section, Text key, Text value) { put(section, key, std::string(value)); });
    enter<&AIPreferenceSuite::RemovePreference>(
        suite, [](Text section, Text key) { require(preferences().remove(section, key), kPreferenceNotFoundErr); });
}

} // namespace easel::suites
