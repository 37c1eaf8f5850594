// Trimming and extending.
#include "geo/PathCuts.h"

#include <algorithm>
#include <cmath>

#include "geo/Crossings.h"
#include "geo/Vector.h"

namespace kzo::geo {

namespace {

constexpr double kSamePlace = 1e-6;

/// The nearest of `edges` before `at`, which may be that of the last turn round a closed path.
std::optional<Place> before(const std::vector<Place>& edges, Place at, const Path& path) {
    std::optional<Place> found;
    for (Place edge : edges) {
        if (path.closed && edge > at - kSamePlace) edge -= static_cast<double>(path.segCount());
        if (edge < at - kSamePlace && (!found || edge > *found)) found = edge;
    }
    return found;
}

std::optional<Place> behind(const std::vector<Place>& edges, Place at, const Path& path) {
    std::optional<Place> found;
    for (Place edge : edges) {
        if (path.closed && edge < at + kSamePlace) edge += static_cast<double>(path.segCount());
        if (edge > at + kSamePlace && (!found || edge < *found)) found = edge;
    }
    return found;
}

} // namespace

std::vector<Path> trimmed(const Path& path, Place at, std::vector<Place> edges, bool towardsStart, bool towardsEnd) {
    const auto whole = static_cast<double>(path.segCount());
    if (whole == 0 || !(towardsStart || towardsEnd)) return {};
    const auto low = towardsStart ? before(edges, at, path) : std::optional(at);
    const auto high = towardsEnd ? behind(edges, at, path) : std::optional(at);
    if (path.closed) {
        if (!low || !high || *high - *low > whole - kSamePlace || *high - *low < kSamePlace) return {};
        return {path.piece(*high, *low)};
    }
    const Place from = low.value_or(0.0);
    const Place to = high.value_or(whole);
    if (to - from < kSamePlace) return {};
    std::vector<Path> left;
    if (from > kSamePlace) left.push_back(path.piece(0.0, from));
    if (to < whole - kSamePlace) left.push_back(path.piece(to, whole));
    return left;
}

std::optional<Path> extended(const Path& path, bool atStart, const Path& target, Point near) {
    if (path.closed || path.segCount() == 0) return std::nullopt;
    Path longer = path;
    if (atStart) longer.reverse();
    const Point end = longer.anchors.back().p;
    const auto direction = longer.seg(longer.segCount() - 1).direction(1.0);
    if (!direction || target.anchors.empty()) return std::nullopt;
    // Far enough to pass all of the target.
    double reach = 0.0;
    for (const Anchor& anchor : target.anchors)
        for (const Point p : {anchor.p, anchor.in, anchor.out}) reach = std::max(reach, norm(p - end));
    const Point tip = end + scaled(*direction, 2.0 * reach / norm(*direction));
    const Path ray{{Anchor(end), Anchor(tip)}, false};
    std::optional<Point> best;
    for (const Crossing& crossing : crossings(ray, target)) {
        const Point point = target.at(crossing.second);
        const bool onward = norm(point - end) > kSamePlace * reach;
        if (onward && (!best || norm(point - near) < norm(*best - near))) best = point;
    }
    if (!best) return std::nullopt;
    // A straight end is moved; a curved one gets a straight piece.
    const bool straight = !longer.seg(longer.segCount() - 1).curved() && longer.anchors.back().in == end;
    if (straight && longer.anchors[longer.anchors.size() - 2].out == longer.anchors[longer.anchors.size() - 2].p)
        longer.anchors.back() = Anchor(*best);
    else {
        longer.anchors.back().out = end;
        longer.anchors.emplace_back(*best);
    }
    if (atStart) longer.reverse();
    return longer;
}

} // namespace kzo::geo
