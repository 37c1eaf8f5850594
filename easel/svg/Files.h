// Whole files in and out.
#pragma once

#include <string>
#include <string_view>

namespace easel::svg {

/// Reads all of a regular file. Throws FileError.
[[nodiscard]] std::string readFile(const std::string& path);

/// Reads all of an open file that need not be a regular one; `name` is what errors call it. Throws FileError.
[[nodiscard]] std::string readAll(int file, const std::string& name);

/// Puts `bytes` in the place of the file, or leaves it as it was and throws FileError. Nobody ever sees half a file.
void replaceFile(const std::string& path, std::string_view bytes);

} // namespace easel::svg
