// Joining, by the nearest ends of two paths.
#include "maker/Concatenate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <set>
#include <utility>
#include <vector>

#include "core/dialogs/Alerts.h"
#include "core/document/Art.h"
#include "maker/PathGeometry.h"

namespace vl::conc {

using kzo::core::Angle;
using kzo::core::Art;
using kzo::core::ArtboardPoint;
using kzo::core::ArtboardSegPoint;
using kzo::core::PathArt;

namespace {

enum Route : int { kNone = 0, kFirstFirst, kFirstLast, kLastFirst, kLastLast };

struct Meeting {
    int index; // one less than the route
    double distance;
};

/// The first of the nearest pairs of ends.
Meeting nearestEnds(const PathArt& a, const PathArt& b) {
    ArtboardPoint aFirst, aLast, bFirst, bLast;
    a.endPoints(aFirst, aLast);
    b.endPoints(bFirst, bLast);
    const std::array distances{aFirst | bFirst, aFirst | bLast, aLast | bFirst, aLast | bLast};
    const auto nearest = std::min_element(distances.begin(), distances.end());
    return {static_cast<int>(nearest - distances.begin()), *nearest};
}

/// All points of a path; its count is the host's, so one call has them all.
PathArt::SegPoints allPoints(const PathArt& path) { return path.segPoints(0, path.segPointCount()); }

/// Whether a's last segment and b's first one are straight, meet, and go in one direction.
bool goesStraightOn(const PathArt& a, const PathArt& b, double joinDist, double angleTol) {
    const auto before = a.bezier(static_cast<std::int16_t>(a.segPointCount() - 2));
    const auto after = b.bezier(0);
    if (!before || !after || before->curved() || after->curved()) return false;
    if (!before->endPoint().closeTo(after->startPoint(), joinDist)) return false;
    const Angle arriving = before->startPoint() ^ before->endPoint();
    const Angle leaving = after->startPoint() ^ after->endPoint();
    return arriving.equalWithinTol(leaving, Angle(angleTol, Angle::Units::Degrees));
}

/// What stands between two paths that become one: the last point of the first and the first of the second.
ArtboardSegPoint merged(ArtboardSegPoint last, ArtboardSegPoint first, double handleParam) {
    last.out = first.out;
    first.in = last.in;
    last.corner = first.corner = false;
    ArtboardSegPoint point = vl::geo::averageSegPoints(&last, &first);
    vl::geo::alignSegPtHandles(point, handleParam, vl::geo::kTurnBothHandles);
    return point;
}

/// Writes the path anew. It grows before and shrinks after, so that a host that refuses leaves it as it was.
bool rewrite(PathArt& path, const PathArt::SegPoints& points) {
    const std::int16_t before = path.segPointCount();
    const auto count = static_cast<std::int16_t>(points.size());
    if (count > before && !path.setSegPointCount(count)) return false;
    if (path.setSegPoints(0, points)) return count >= before || path.setSegPointCount(count);
    path.setSegPointCount(before);
    return false;
}

} // namespace

// Which ends meet

int whichPointsClose(ArtObject* a, ArtObject* b) { return nearestEnds(*Art(a).path(), *Art(b).path()).index; }

int getConnectionRoute(ArtObject* a, ArtObject* b, double joinDist, double maxVariance, double) {
    const Art aArt(a), bArt(b);
    if (aArt.path()->segPointCount() < 2 || bArt.path()->segPointCount() < 2) return kNone;
    const Meeting nearest = nearestEnds(*aArt.path(), *bArt.path());
    if (!(joinDist >= nearest.distance)) return kNone;
    const auto route = static_cast<std::int16_t>(nearest.index + 1);
    return maxVariance >= tangentVariance(a, b, route) ? route : int{kNone};
}

int tangentVariance(ArtObject* a, ArtObject* b, std::int16_t route) {
    Angle aFirst, aSecond, bFirst, bSecond;
    vl::geo::figureInOutAngles(a, aFirst, aSecond);
    vl::geo::figureInOutAngles(b, bFirst, bSecond);
    Angle difference = Angle::TwoPi();
    switch (route) {
    case kFirstFirst: difference = bFirst + Angle::Pi() - aFirst; break;
    case kFirstLast: difference = bFirst - aSecond; break;
    case kLastFirst: difference = bSecond - aFirst; break;
    case kLastLast: difference = bSecond + Angle::Pi() - aSecond; break;
    default: break;
    }
    return std::abs(static_cast<int>(difference.rangeNegPiToPi().asDegrees()));
}

// Joining

bool concat_path(ArtObject*& a, ArtObject*& b, double joinDist, double maxVariance, double handleParam,
                 double angleTol) {
    const int route = getConnectionRoute(a, b, joinDist, maxVariance, angleTol);
    if (route == kNone) return false;
    if (route == kFirstFirst || route == kLastFirst) vl::geo::reverseAIPath(a);
    if (route == kLastFirst || route == kLastLast) vl::geo::reverseAIPath(b);
    return appendPath(a, b, maxVariance, handleParam, joinDist, angleTol);
}

bool appendPath(ArtObject*& a, ArtObject*& b, double, double handleParam, double joinDist, double angleTol) {
    if (a == b) return false;
    const Art aArt(a);
    const Art bArt(b);
    PathArt& path = *aArt.path();
    PathArt::SegPoints points = allPoints(path);
    PathArt::SegPoints more = allPoints(*bArt.path());
    if (points.empty() || more.empty()) return false;

    const bool straightOn = goesStraightOn(path, *bArt.path(), joinDist, angleTol);
    if ((points.back().p | more.front().p) <= joinDist) {
        more.front() = merged(points.back(), more.front(), handleParam);
        points.pop_back();
        if (straightOn) more.erase(more.begin());
    }
    const int count = static_cast<int>(points.size()) + static_cast<int>(more.size());
    if (count > kMostSegPoints) {
        kzo::core::alerts::error("Joining paths would create too many points for one path object.");
        return false;
    }
    points.insert(points.end(), more.begin(), more.end());

    if (!rewrite(path, points)) return false;
    safelyDisposePath(b);
    return true;
}

void closeClosePath(ArtObject* art, double closeDist, double maxVariance, double handleParam) {
    const Art handle(art);
    if (handle.isEmpty()) return;
    PathArt& path = *handle.path();
    PathArt::SegPoints points = allPoints(path);
    if (points.size() < 3) return; // one point would be left of a line
    if (!points.front().p.closeTo(points.back().p, closeDist)) return;
    if (tangentVariance(art, art, kFirstLast) > maxVariance) return;

    ArtboardSegPoint point;
    point.p = vl::geo::averagePoints(points.front().p, points.back().p);
    point.in = points.back().in;
    point.out = points.front().out;
    vl::geo::alignSegPtHandles(point, handleParam, vl::geo::kTurnBothHandles);
    points.front() = point;
    points.pop_back();

    if (rewrite(path, points)) path.setClosed(true);
}

void safelyDisposePath(ArtObject*& path) {
    if (!path) return;
    Art(path).dispose();
    path = nullptr;
}

// The selected open paths

namespace {

/// Joins paths wherever they meet, until nothing does.
class Joiner {
  public:
    Joiner(double joinDist, double maxVariance, double handleParam, double angleTol)
        : joinDist_(joinDist), maxVariance_(maxVariance), handleParam_(handleParam), angleTol_(angleTol) {}

    /// Each path in turn takes in what meets it. True when one did.
    bool joinOnce(std::vector<ArtObject*>& paths) {
        const std::size_t before = paths.size();
        for (std::size_t i = 0; i < paths.size(); ++i) {
            for (std::size_t j = i + 1; j < paths.size();) {
                const bool joined = joinWhereTheyMeet(paths[i], paths[j]);
                if (joined) paths.erase(paths.begin() + static_cast<std::ptrdiff_t>(j));
                // Its ends are new: what did not meet them before may now.
                j = joined ? i + 1 : j + 1;
            }
        }
        return paths.size() < before;
    }

  private:
    /// Joins b into a at whichever ends meet, and leaves the directions as they were when it cannot.
    bool joinWhereTheyMeet(ArtObject*& a, ArtObject*& b) {
        if (refused_.contains({a, b})) return false;
        // Two firsts and two lasts join where they meet. Of the other two pairs one path is turned before, so that its
        // first meets the other's: which fits is only known then, as each way to meet has its own directions.
        const Meeting nearest = nearestEnds(*Art(a).path(), *Art(b).path());
        if (!(joinDist_ >= nearest.distance)) return false;
        const int ends = nearest.index + 1;
        ArtObject* const turned = ends == kFirstLast ? b : ends == kLastFirst ? a : nullptr;
        if (turned) vl::geo::reverseAIPath(turned);
        const int route = getConnectionRoute(a, b, joinDist_, maxVariance_, angleTol_);
        if (route != kNone) {
            if (concat_path(a, b, joinDist_, maxVariance_, handleParam_, angleTol_)) return true;
            vl::geo::reverseAIPath(route == kFirstFirst ? a : b);
            // The user has been told why; paths only grow, so it would be the same again.
            refused_.insert({a, b});
        }
        if (turned) vl::geo::reverseAIPath(turned);
        return false;
    }

    double joinDist_;
    double maxVariance_;
    double handleParam_;
    double angleTol_;
    std::set<std::pair<ArtObject*, ArtObject*>> refused_;
};

/// The paths that are left, topmost first.
std::vector<ArtObject*> joinSelected(double joinDist, double maxVariance, double handleParam, double angleTol) {
    std::vector<ArtObject*> paths;
    std::vector<ArtObject*> closed;
    vl::geo::getAllPaths(paths, closed, true);
    Joiner joiner(joinDist, maxVariance, handleParam, angleTol);
    // A path has new ends from what a later one took in.
    for (bool more = true; more;) more = joiner.joinOnce(paths);
    return paths;
}

} // namespace

void assimSelectedPaths(double joinDist, double maxVariance, double handleParam, double angleTol) {
    joinSelected(joinDist, maxVariance, handleParam, angleTol);
}

void concatSelectedPaths(double joinDist, double maxVariance, double handleParam, double angleTol) {
    for (ArtObject* const path : joinSelected(joinDist, maxVariance, handleParam, angleTol))
        closeClosePath(path, joinDist, maxVariance, handleParam);
}

void testme() { concatSelectedPaths(kJoinDistance, kMostVariance, kHandleTolerance, kStraightOn); }

} // namespace vl::conc
