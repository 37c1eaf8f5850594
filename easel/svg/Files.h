// Whole files in and out.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace easel::svg {

/// Which file it is, when it was last written, and when anything about it changed, which nobody can set. Two that are
/// equal belong to one state of one file.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::int64_t size = 0;
    std::array<std::int64_t, 2> written{}; ///< seconds and nanoseconds
    std::array<std::int64_t, 2> changed{};

    bool operator==(const FileStamp&) const = default;
};

/// None where there is no file.
[[nodiscard]] std::optional<FileStamp> stampOf(const std::string& path);
/// Reads all of a regular file, and notes its stamp from before. Throws FileError.
[[nodiscard]] std::string readFile(const std::string& path, FileStamp* stamp = nullptr);
/// Reads all of an open file that need not be a regular one; `name` is what errors call it. Throws FileError.
[[nodiscard]] std::string readAll(int file, const std::string& name);

/// Puts `bytes` in the place of the file, or leaves it as it was and throws FileError. Nobody ever sees half a file.
/// Returns the stamp of the new one.
FileStamp replaceFile(const std::string& path, std::string_view bytes);
FileStamp replaceFile(const std::string& path,
                      const std::vector<std::string_view>& pieces); ///< which follow one another

} // namespace easel::svg
