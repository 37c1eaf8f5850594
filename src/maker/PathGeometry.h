// Directions, merging and smoothing at the ends of paths, and which paths may be edited.
#pragma once

#include <cstdint>
#include <vector>

#include "core/document/PathArt.h"
#include "core/values/Angle.h"

struct ArtObject;

/// Art comes as a host handle or as the view of one; a null handle, and art that is no path, are left alone. A control
/// point that equals its anchor is retracted.
namespace vl::geo {

// Directions
/// The direction in which the path leaves its last anchor; 0 for a path without segments.
[[nodiscard]] kzo::core::Angle getExitAngle(const kzo::core::PathArt* path);
/// The directions of travel at the path's first anchor and at its last one, both along the path. Leaves both as they
/// are where the path has no segment.
void figureInOutAngles(ArtObject* art, kzo::core::Angle& inAngle, kzo::core::Angle& outAngle);
/// Turns the path's direction round.
void reverseAIPath(ArtObject* art);

// Points
[[nodiscard]] kzo::core::ArtboardPoint averagePoints(const kzo::core::ArtboardPoint& a,
                                                     const kzo::core::ArtboardPoint& b);
/// One point for two that meet: between the anchors, in handle of `b`, out handle of `a`. The handles stay where they
/// are; where both points have one retracted, it is retracted. Not a corner.
[[nodiscard]] kzo::core::ArtboardSegPoint averageSegPoints(const kzo::core::ArtboardSegPoint* a,
                                                           const kzo::core::ArtboardSegPoint* b);
[[nodiscard]] bool isSimpleSegPt(const kzo::core::ArtboardSegPoint& point); ///< both handles are retracted

enum AlignMode : int {
    kTurnInHandle = 1, ///< opposite the out handle
    kTurnBothHandles,  ///< onto the line from one to the other
    kTurnOutHandle,    ///< opposite the in handle
    kRetractHandles,   ///< which makes a corner
    kMakeSmooth,       ///< the flag alone, as in the next two
    kMakeCorner,
    kToggleCorner,
};
/// Changes a point with two handles as `mode` says, unless a quarter of the bend between them is more than `tolerance`
/// degrees. Turned handles keep their lengths. Other modes do nothing.
void alignSegPtHandles(kzo::core::ArtboardSegPoint& point, double tolerance, int mode);
/// Nothing: what becomes of a corner is for the caller of alignSegPtHandles to say.
void makeSegPointCorner(ArtObject* art, std::int16_t index);

// Choice of paths
[[nodiscard]] bool isEditablePath(ArtObject* art); ///< a path that is neither locked nor hidden
/// The document's editable paths in paint order, topmost first, open ones apart from closed ones; with `selectedOnly`
/// those that are selected, also in part.
void getAllPaths(std::vector<ArtObject*>& open, std::vector<ArtObject*>& closed, bool selectedOnly);

} // namespace vl::geo
