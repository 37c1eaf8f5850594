// Pictures in files that drawings refer to: how the reference is written, and what is there.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace easel::session {

struct Picture {
    std::uint32_t columns = 0; ///< pixels
    std::uint32_t rows = 0;
    std::string address; ///< a "data:" address that holds it
};

/// The absolute path of what a drawing at `drawing` refers to; the reference itself where it is none to a file.
[[nodiscard]] std::string linkedPath(const std::string& drawing, const std::string& link);
/// How a drawing refers to a file.
[[nodiscard]] std::string linkTo(const std::string& path);
/// The picture (PNG, JPEG, GIF) in the file; none where there is none.
[[nodiscard]] std::optional<Picture> pictureIn(const std::string& path);

} // namespace easel::session
