// How files hold text: compressed or not, in UTF-8 or not.
#pragma once

#include <string>
#include <string_view>

namespace easel::svg {

[[nodiscard]] bool isPacked(std::string_view bytes); ///< by gzip
/// Throws std::runtime_error when the data is damaged or unpacks to more than a file may have.
[[nodiscard]] std::string unpack(std::string_view bytes);
[[nodiscard]] std::string pack(std::string_view bytes);

/// Throws std::runtime_error for a half of a surrogate pair. A byte order mark is a character like others.
[[nodiscard]] std::string fromUtf16(std::string_view bytes, bool bigEndian);
[[nodiscard]] std::string toUtf16(std::string_view text, bool bigEndian);

} // namespace easel::svg
