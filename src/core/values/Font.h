// A font as art and preferences have it.
#pragma once

#include <string>

namespace kzo::core {

/// A font by its full name, and its size in points.
struct Font {
    std::string name;
    double size = 12;

    bool operator==(const Font&) const = default;
};

} // namespace kzo::core
