// Joins open paths whose ends meet, and closes paths whose own ends meet.
#pragma once

#include <cstdint>

struct ArtObject;

/// Paths are host handles, which an operation may turn round, write anew or dispose of; it clears the handle of what it
/// disposed of. Distances are points. Two ends meet when they are at most `joinDist` apart, and fit when the directions
/// of the two paths there differ by at most `maxVariance` whole degrees. `handleParam` is the tolerance with which the
/// handles of a merged point are smoothed (alignSegPtHandles).
///
/// A *route* names the ends that meet: 1 first of a with first of b, 2 first with last, 3 last with first, 4 last with
/// last, 0 none.
namespace vl::conc {

inline constexpr int kMostSegPoints = 32000; ///< of one path

// How the line tool joins
inline constexpr double kJoinDistance = 0.5;   ///< points between ends that meet
inline constexpr double kMostVariance = 155;   ///< degrees by which the path may turn
inline constexpr double kHandleTolerance = 35; ///< degrees
inline constexpr double kStraightOn = 0;       ///< degrees

// Which ends meet
/// Index of the nearest pair of ends, one less than its route; of equally near ones the lowest.
[[nodiscard]] int whichPointsClose(ArtObject* a, ArtObject* b);
/// The route over the nearest ends, when they meet and fit. The last number takes no part.
[[nodiscard]] int getConnectionRoute(ArtObject* a, ArtObject* b, double joinDist, double maxVariance, double);
/// By how much the directions of the paths differ where a route joins them: whole degrees, 0 to 180.
[[nodiscard]] int tangentVariance(ArtObject* a, ArtObject* b, std::int16_t route);

// Joining
/// Joins b into a, which keeps its style, layer and place, and tells whether it did. Two paths that go on into one
/// another are no business of this function: of routes 2 and 3 it joins the ends that are far from each other with a
/// straight segment, so a caller turns one of the paths first.
bool concat_path(ArtObject*& a, ArtObject*& b, double joinDist, double maxVariance, double handleParam,
                 double angleTol);
/// Appends b behind the last point of a. Anchors that meet become one; two straight segments that go on in one
/// direction, but for `angleTol` degrees, too. False when a and b are one, when one of them has no points, when the
/// host refuses, and, with an alert, when there would be too many points for one path; then both are left as they are.
bool appendPath(ArtObject*& a, ArtObject*& b, double, double handleParam, double joinDist, double angleTol);
/// Closes the path with one point in place of its first and last ones, when these meet and fit and are
/// not all there is.
void closeClosePath(ArtObject* path, double closeDist, double maxVariance, double handleParam);
void safelyDisposePath(ArtObject*& path);

// The selected open paths, topmost first
/// Each path in turn takes in what meets it, until nothing does.
void assimSelectedPaths(double joinDist, double maxVariance, double handleParam, double angleTol);
/// The same, and closes what then ends where it starts.
void concatSelectedPaths(double joinDist, double maxVariance, double handleParam, double angleTol);
/// The same with the numbers of the line tool, to try them on a drawing.
void testme();

} // namespace vl::conc
