// A path as a plain value: anchors with their handles, and what can be said about the curve through them.
// It knows no document and no host; y has no direction here beyond what a comment says.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "geo/Bezier.h"
#include "geo/Point.h"

namespace kzo::geo {

/// An anchor with its handles towards the previous (`in`) and the next anchor (`out`).
struct Anchor {
    Point p;
    Point in;
    Point out;
    bool corner = true;

    constexpr Anchor() = default;
    constexpr explicit Anchor(Point point) : p(point), in(point), out(point) {} // a corner without handles
    constexpr Anchor(Point point, Point towardsPrevious, Point towardsNext, bool isCorner)
        : p(point), in(towardsPrevious), out(towardsNext), corner(isCorner) {}

    constexpr bool operator==(const Anchor&) const = default; // exact
};

/// A place on a path: `seg + t`. A whole number is an anchor. On a closed path places wrap.
using Place = double;

/// The segment and the parameter on it that a place stands for.
struct SegPlace {
    std::size_t seg = 0;
    double t = 0.0;
};

/// Segment i runs from anchor i to the next; the last one of a closed path runs back to anchor 0.
struct Path {
    std::vector<Anchor> anchors;
    bool closed = false;

    bool operator==(const Path&) const = default; // exact

    [[nodiscard]] std::size_t segCount() const {
        return closed || anchors.empty() ? anchors.size() : anchors.size() - 1;
    }
    [[nodiscard]] Bezier seg(std::size_t index) const;
    [[nodiscard]] bool finite() const; // every coordinate is

    // Measures
    [[nodiscard]] double length() const;
    /// The length between two places; on a closed path onwards from the first, past anchor 0 if need be, on an open one
    /// in either order.
    [[nodiscard]] double sublength(Place from, Place to) const;
    /// Where the path has run for `length`, held to its ends. None on a path without segments.
    [[nodiscard]] std::optional<Place> placeAtLength(double length) const;
    /// Positive where the path runs from the x axis to the y axis, which is clockwise with y down. An open path is
    /// closed by a straight line; what is gone round twice counts twice, and loops of opposite senses cancel.
    [[nodiscard]] double signedArea() const;
    /// Even-odd. An open path is closed by a straight line. Of neighbours that share a border only one has a point on
    /// it.
    [[nodiscard]] bool contains(Point point) const;

    // Shape
    /// Travel is straight from the first anchor to the last, which differ.
    [[nodiscard]] bool isStraight() const;
    [[nodiscard]] bool hasStraightSegs() const; // any of them
    /// Closed, once round, and nowhere more than a 500th of the radius from a circle.
    [[nodiscard]] bool isCircular() const;
    /// Closed, and made of four straight sides at right angles within a thousandth; a side may have anchors on it.
    [[nodiscard]] bool isRectangular() const;

    // Pieces
    [[nodiscard]] SegPlace split(Place place) const; // held to the path, or wrapped where it is closed
    [[nodiscard]] Point at(Place place) const;
    /// The open path from one place to the other, onwards; on a closed path past anchor 0 where `to` is not beyond
    /// `from`.
    [[nodiscard]] Path piece(Place from, Place to) const;
    /// Makes an anchor at `t` of a segment without changing the curve.
    void insertAt(std::size_t seg, double t);
    void reverse();
};

} // namespace kzo::geo
