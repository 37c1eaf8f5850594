// Whole files in and out.
#pragma once

#include <string>
#include <string_view>

namespace easel::svg {

/// Reads all of a regular file. Throws FileError.
[[nodiscard]] std::string readFile(const std::string& path);

/// Puts `bytes` in the place of the file, or leaves it as it was and throws FileError. Nobody ever sees half a file.
void replaceFile(const std::string& path, std::string_view bytes);

} // namespace easel::svg
