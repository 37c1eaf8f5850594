// The application's own preferences, which plug-ins read and write as well: a value for each key of a section.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace easel::session {

class HostPreferences {
  public:
    using Value = std::variant<bool, std::int32_t, double, std::string>;

    [[nodiscard]] const Value* find(std::string_view section, std::string_view key) const; ///< or null
    void put(std::string_view section, std::string_view key, Value value);
    bool remove(std::string_view section, std::string_view key); ///< false when there is none

  private:
    using Name = std::pair<std::string, std::string>;

    std::map<Name, Value> values_;
};

} // namespace easel::session
