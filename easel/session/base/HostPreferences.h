// The application's own preferences, which plug-ins read and write as well: a value for each key of a section.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "session/base/Profile.h"
#include "session/base/Reports.h"

namespace easel::session {

/// Kept in a file of the profile, which is read when something is first asked and written at each change. A damaged one
/// is kept beside it, and reported.
class HostPreferences {
  public:
    using Value = std::variant<bool, std::int32_t, double, std::string>;

    static constexpr const char* kFile = "Easel Preferences.json";

    HostPreferences(Profile& profile, Reports& reports) : profile_(profile), reports_(reports) {}

    [[nodiscard]] const Value* find(std::string_view section, std::string_view key); ///< or null
    void put(std::string_view section, std::string_view key, Value value);
    bool remove(std::string_view section, std::string_view key); ///< false when there is none

  private:
    using Name = std::pair<std::string, std::string>;

    [[nodiscard]] std::string path();
    std::map<Name, Value>& values();
    bool read(const std::string& text);
    void write();

    Profile& profile_;
    Reports& reports_;
    bool loaded_ = false;
    std::map<Name, Value> values_;
};

} // namespace easel::session
