// The kinds of snapping, each tried in turn.
#include "session/input/Snapping.h"

#include <algorithm>
#include <cmath>

#include "hostapi/AICursorSnapSuite.h"

namespace easel::session {

namespace {

using model::Point;

using Found = std::optional<Point>;

Found within(Point location, Point candidate, double reach) {
    const double distance = std::hypot(candidate.x - location.x, candidate.y - location.y);
    return distance <= reach ? Found(candidate) : std::nullopt;
}

/// The nearest of 0, half and all of `length`.
double toPart(double value, double length) { return std::clamp(std::round(2 * value / length), 0.0, 2.0) * length / 2; }

/// The nearer of 0 and all of `length`.
double toEnd(double value, double length) { return value < length / 2 ? 0 : length; }

Found onPage(const model::Document& page, Point location, double reach) {
    const Point mark{toPart(location.x, page.width()), toPart(location.y, page.height())};
    if (const Found found = within(location, mark, reach)) return found;
    const Point across{toEnd(location.x, page.width()), std::clamp(location.y, 0.0, page.height())};
    const Point along{std::clamp(location.x, 0.0, page.width()), toEnd(location.y, page.height())};
    const double toAcross = std::hypot(across.x - location.x, across.y - location.y);
    const double toAlong = std::hypot(along.x - location.x, along.y - location.y);
    return within(location, toAlong < toAcross ? along : across, reach);
}

Found onGrid(Point location, double spacing, const AxisGrid& grid, double reach) {
    if (!grid.isEmpty()) return within(location, grid.nearest(location), reach);
    const auto line = [spacing](double value) { return std::round(value / spacing) * spacing; };
    return within(location, {line(location.x), line(location.y)}, reach);
}

} // namespace

std::optional<Point> Snapping::snapped(model::Document& document, Point location, std::int32_t kinds,
                                       const AxisGrid& grid) const {
    const double reach = tolerance / document.view.zoom;
    Found found;
    if (toPoint) found = document.snapPoint(location, reach);
    if (!found && (kinds & kSnapToArt)) found = document.snapPoint(location, reach, model::SnapTo::Outlines);
    if (!found && (kinds & kSnapToArtBounds)) found = document.snapPoint(location, reach, model::SnapTo::Bounds);
    if (!found && (kinds & kSnapToArtboard)) found = onPage(document, location, reach);
    if (!found && (kinds & kSnapToGrids)) found = onGrid(location, gridSpacing, grid, reach);
    return found;
}

} // namespace easel::session
