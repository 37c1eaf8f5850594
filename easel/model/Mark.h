// A mark that lies over a view: feedback that is drawn, looked at and forgotten. No part of any document.
#pragma once

#include <string>

#include "model/Types.h"

namespace easel::model {

/// How a mark looks. Lengths are screen units, since marks keep their size when the view is zoomed.
struct Pen {
    Color color;
    double opacity = 1;
    double lineWidth = 1;
    double dash = 0; ///< length of each dash and of the gap after it; 0 is a solid line
    double fontSize = 12;

    bool operator==(const Pen&) const = default;
};

/// Places are points of the document.
struct Mark {
    enum class Kind : std::uint8_t { Line, Rectangle, Ellipse, Polygon, Text };

    Kind kind = Kind::Line;
    std::vector<Point> points; ///< the ends, two opposite corners, all corners, or where the baseline begins
    Pen pen;
    bool filled = false; ///< not outlined
    std::string text;

    /// Contains all of the mark at this zoom; of a text it is a guess on the large side.
    [[nodiscard]] Box bounds(double zoom) const;

    bool operator==(const Mark&) const = default;
};

} // namespace easel::model
