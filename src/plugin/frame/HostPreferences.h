// The preference suite's calls. Knows nothing of the plug-in's own files.
#pragma once

#include <cstdint>
#include <string>

namespace kzo::plugin::preferences {

[[nodiscard]] bool exists(const std::string& section, const std::string& key);
bool remove(const std::string& section, const std::string& key);

/// False, with `value` as it was, when the host has none of this kind.
bool read(const std::string& section, const std::string& key, bool& value);
bool read(const std::string& section, const std::string& key, std::int32_t& value);
bool read(const std::string& section, const std::string& key, double& value);
bool read(const std::string& section, const std::string& key, std::string& value);

bool write(const std::string& section, const std::string& key, bool value);
bool write(const std::string& section, const std::string& key, std::int32_t value);
bool write(const std::string& section, const std::string& key, double value);
bool write(const std::string& section, const std::string& key, const std::string& value);

} // namespace kzo::plugin::preferences
