// The dictionary suite's calls, about art or, without any, about the current document.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct ArtObject;

namespace kzo::plugin::dictionary {

[[nodiscard]] std::vector<std::string> keys(ArtObject* art);
bool remove(ArtObject* art, const std::string& key);

/// False, with `value` as it was, when there is none of this kind.
bool read(ArtObject* art, const std::string& key, bool& value);
bool read(ArtObject* art, const std::string& key, std::int32_t& value);
bool read(ArtObject* art, const std::string& key, double& value);
bool read(ArtObject* art, const std::string& key, std::string& value);

bool write(ArtObject* art, const std::string& key, bool value);
bool write(ArtObject* art, const std::string& key, std::int32_t value);
bool write(ArtObject* art, const std::string& key, double value);
bool write(ArtObject* art, const std::string& key, const std::string& value);

} // namespace kzo::plugin::dictionary
