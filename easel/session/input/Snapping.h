// What a location snaps to: anchors when the user wants it, and what a plug-in asks for its tools. Changes nothing.
#pragma once

#include <cstdint>

#include "model/Document.h"

namespace easel::session {

struct Snapping {
    bool toPoint = true;     ///< "Snap to Point": onto anchors
    double tolerance = 2;    ///< screen units
    double gridSpacing = 10; ///< points; the grid starts at the page's corner

    /// Where `location` snaps to: an anchor first, then what `kinds` (kSnapToArt ...) says; itself when nothing is
    /// near enough.
    [[nodiscard]] model::Point snapped(model::Document& document, model::Point location, std::int32_t kinds) const;
};

} // namespace easel::session
