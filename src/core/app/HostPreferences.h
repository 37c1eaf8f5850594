// The host's own preferences.
#pragma once

#include <cstdint>
#include <string>

/// The host has another store of preferences than the plug-in's files.
namespace kzo::core::ai {

/// A preference is known by a section, which may be empty, and a key in it, and holds one value of one kind. What reads
/// one returns false, with `value` as it was, when there is none of that kind; what writes one returns whether the host
/// kept it.
class Preferences {
  public:
    [[nodiscard]] bool exists(const std::string& section, const std::string& key) const;
    bool remove(const std::string& section, const std::string& key);

    bool getBoolPref(const std::string& section, const std::string& key, bool& value) const;
    bool getIntPref(const std::string& section, const std::string& key, std::int32_t& value) const;
    bool getFloatPref(const std::string& section, const std::string& key, double& value) const; ///< or a whole number
    bool getStringPref(const std::string& section, const std::string& key, std::string& value) const;

    bool setBoolPref(const std::string& section, const std::string& key, bool value);
    bool setIntPref(const std::string& section, const std::string& key, std::int32_t value);
    bool setFloatPref(const std::string& section, const std::string& key, double value);
    bool setStringPref(const std::string& section, const std::string& key, const std::string& value);
};

} // namespace kzo::core::ai
