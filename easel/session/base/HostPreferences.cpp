#include "session/base/HostPreferences.h"

namespace easel::session {

const HostPreferences::Value* HostPreferences::find(std::string_view section, std::string_view key) const {
    const auto at = values_.find(Name(section, key));
    return at == values_.end() ? nullptr : &at->second;
}

void HostPreferences::put(std::string_view section, std::string_view key, Value value) {
    values_.insert_or_assign(Name(section, key), std::move(value));
}

bool HostPreferences::remove(std::string_view section, std::string_view key) {
    return values_.erase(Name(section, key)) == 1;
}

} // namespace easel::session
