// The paint of a path: fill and stroke. Plain values; lengths in points.
#pragma once

#include <array>
#include <cstddef>

#include "core/values/DocumentEnumerations.h"

namespace kzo::core {

/// Red, green, blue, 0 to 1; black by default.
struct ArtColor {
    double red = 0;
    double green = 0;
    double blue = 0;

    bool operator==(const ArtColor&) const = default;
};

/// Lengths of dashes and gaps in turn. The default is a solid line.
struct DashStyle {
    std::array<double, 6> lengths{};
    std::size_t count = 0;
    double offset = 0;

    bool operator==(const DashStyle&) const = default;
};

struct StrokeStyle {
    bool painted = true;
    ArtColor color;
    double width = 1;
    double miterLimit = 10;
    StrokeCap cap = StrokeCap::Butt;
    StrokeJoin join = StrokeJoin::Miter;
    DashStyle dash;
    bool overprint = false; ///< printed over what lies below, not in place of it

    bool operator==(const StrokeStyle&) const = default;
};

struct FillStyle {
    bool painted = false;
    ArtColor color;
    bool overprint = false;

    bool operator==(const FillStyle&) const = default;
};

struct PathStyle {
    FillStyle fill;
    StrokeStyle stroke;

    bool operator==(const PathStyle&) const = default;
};

} // namespace kzo::core
