// A grid along the axes that tools draw along: upright and to both sides for an isometric view, whatever a plug-in's
// axes are. It starts at the page's corner.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "model/Types.h"

namespace easel::session {

class AxisGrid {
  public:
    /// Lines that run alike: through the page's corner, and again and again this far beside it.
    struct Lines {
        model::Point direction; ///< of length 1
        double apart = 0;
        double step = 0; ///< between crossings
    };

    /// Directions in degrees, counter-clockwise from the right. A step along the first is `spacing` long; one along the
    /// second such that lines along the third meet both where these meet. Axes that are all but parallel make no grid.
    AxisGrid(const std::vector<double>& axes, double spacing);

    [[nodiscard]] bool isEmpty() const { return lines_.empty(); }
    [[nodiscard]] const std::vector<Lines>& lines() const { return lines_; }
    /// The crossing that is nearest to a place.
    [[nodiscard]] model::Point nearest(model::Point place) const;
    /// Whole steps along the axis that is nearest to a way, as many as it is long.
    [[nodiscard]] model::Point alongAxis(model::Point way) const;

  private:
    void addLines(model::Point step);

    std::array<model::Point, 2> steps_{}; // between neighbouring crossings, the shortest there are
    std::vector<Lines> lines_;
};

} // namespace easel::session
