// What a location snaps to: anchors when the user wants it, what a plug-in asks for its tools, and the grid that is
// shown. Changes nothing.
#pragma once

#include <cstdint>
#include <optional>

#include "model/Document.h"
#include "session/input/AxisGrid.h"

namespace easel::session {

struct Snapping {
    bool toPoint = true;     ///< "Snap to Point": onto anchors
    double tolerance = 2;    ///< screen units
    double gridSpacing = 10; ///< points; the grid starts at the page's corner
    bool axisGrid = false;   ///< the grid runs along the axes of tools, and is shown
    bool toAxisGrid = true;  ///< every tool's locations go to its crossings while it is shown

    /// Where `location` snaps to: an anchor first, then what `kinds` (kSnapToArt ...) says; none when nothing is near
    /// enough. `grid` is empty unless it is shown.
    [[nodiscard]] std::optional<model::Point> snapped(model::Document& document, model::Point location,
                                                      std::int32_t kinds, const AxisGrid& grid) const;
};

} // namespace easel::session
