// A small file that is read whole and rewritten in place, such that neither a failure nor a kill loses what it held.
#pragma once

#include <optional>
#include <string>

namespace kzo::plugin {

/// Beyond this, a file holds no preferences and is not read into memory.
inline constexpr std::size_t kLargestPreferences = std::size_t{64} << 20;

struct PreferenceFile {
    enum class State { Missing, Unreadable, TooLarge, Read };
    State state = State::Missing;
    std::string text; ///< when it was read

    /// Never waits: what is no regular file cannot be read.
    [[nodiscard]] static PreferenceFile read(const std::string& path);

    /// Replaces what the file holds, or makes the file. The text's reader must ignore line feeds behind it: they stand
    /// there for a moment. False, with the old contents in place, when a step fails.
    static bool rewrite(const std::string& path, const std::string& text);
};

} // namespace kzo::plugin
