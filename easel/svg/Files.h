// Whole files in and out.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace easel::svg {

/// Which file it is, and when it was last written. Two that are equal belong to one state of one file.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::int64_t size = 0;
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;

    bool operator==(const FileStamp&) const = default;
};

/// None where there is no file.
[[nodiscard]] std::optional<FileStamp> stampOf(const std::string& path);
/// Reads all of a regular file, and notes its stamp from before. Throws FileError.
[[nodiscard]] std::string readFile(const std::string& path, FileStamp* stamp = nullptr);
/// Reads all of an open file that need not be a regular one; `name` is what errors call it. Throws FileError.
[[nodiscard]] std::string readAll(int file, const std::string& name);

/// Puts `bytes` in the place of the file, or leaves it as it was and throws FileError. Nobody ever sees half a file.
void replaceFile(const std::string& path, std::string_view bytes);
void replaceFile(const std::string& path, const std::vector<std::string_view>& pieces); ///< which follow one another

} // namespace easel::svg
