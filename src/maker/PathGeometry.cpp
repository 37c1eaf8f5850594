// Tangents at ends, merged points, aligned handles.
#include "maker/PathGeometry.h"

#include <cmath>

#include "core/app/Illustrator.h"
#include "core/document/Art.h"

namespace vl::geo {

using kzo::core::Angle;
using kzo::core::Art;
using kzo::core::ArtboardPoint;
using kzo::core::ArtboardSegPoint;
using kzo::core::PathArt;

// Directions

Angle getExitAngle(const PathArt* path) {
    const auto last = path->bezier(static_cast<std::int16_t>(path->segCount() - 1));
    return last ? last->tangentAngle(1.0) : Angle();
}

void figureInOutAngles(ArtObject* art, Angle& inAngle, Angle& outAngle) {
    if (!art) return;
    const Art handle(art);
    const auto first = handle.path()->bezier(0);
    const auto last = handle.path()->bezier(handle.path()->segCount()); // clamped to the last segment
    if (!first || !last) return;
    inAngle = first->tangentAngle(0.0);
    outAngle = last->tangentAngle(1.0);
}

void reverseAIPath(ArtObject* art) { Art(art).path()->reverseSegs(); }

// Points

ArtboardPoint averagePoints(const ArtboardPoint& a, const ArtboardPoint& b) { return (a + b) / 2.0; }

ArtboardSegPoint averageSegPoints(const ArtboardSegPoint* a, const ArtboardSegPoint* b) {
    ArtboardSegPoint merged;
    merged.p = averagePoints(a->p, b->p);
    merged.in = a->in == a->p && b->in == b->p ? merged.p : b->in;
    merged.out = a->out == a->p && b->out == b->p ? merged.p : a->out;
    return merged;
}

bool isSimpleSegPt(const ArtboardSegPoint& point) { return point.in == point.p && point.p == point.out; }

void alignSegPtHandles(ArtboardSegPoint& point, double tolerance, int mode) {
    if (point.in == point.p || point.p == point.out) return;
    const Angle arriving = (point.in ^ point.p).range0To2Pi();
    const Angle leaving = (point.p ^ point.out).range0To2Pi();
    const Angle through = point.in ^ point.out;
    // A quarter of the bend: a tolerance of 35 degrees lets bends of up to 140 through.
    const Angle test = arriving.delta(leaving) / 2.0 / 2.0;
    constexpr double kRounding = 1e-9; // a bend of just the size passes, whichever way it points
    if (test.asDegrees() > tolerance + kRounding) return;

    const double inLength = point.in | point.p;
    const double outLength = point.out | point.p;
    switch (mode) {
    case kTurnInHandle:
        point.in = point.p.move(inLength, point.out ^ point.p);
        point.corner = false;
        break;
    case kTurnBothHandles:
        point.in = point.p.move(-inLength, through);
        point.out = point.p.move(outLength, through);
        point.corner = false;
        break;
    case kTurnOutHandle:
        point.out = point.p.move(outLength, point.in ^ point.p);
        point.corner = false;
        break;
    case kRetractHandles:
        point.in = point.out = point.p;
        point.corner = true;
        break;
    case kMakeSmooth: point.corner = false; break;
    case kMakeCorner: point.corner = true; break;
    case kToggleCorner: point.corner = !point.corner; break;
    default: break;
    }
}

void makeSegPointCorner(ArtObject*, std::int16_t) {}

// Choice of paths

bool isEditablePath(ArtObject* art) {
    const Art handle(art);
    return !handle.isEmpty() && handle.artType() == kzo::core::ArtType::Path && !handle.locked() && !handle.hidden();
}

namespace {

/// What a walk through the tree does not enter: what the user has put out of reach, and compound paths, whose parts are
/// one shape.
bool isEntered(const Art& art) { return art.artType() == kzo::core::ArtType::Group && !art.locked() && !art.hidden(); }

} // namespace

void getAllPaths(std::vector<ArtObject*>& open, std::vector<ArtObject*>& closed, bool selectedOnly) {
    auto* const document = kzo::core::Illustrator::instance()->currentDocument();
    for (auto layer = document ? document->firstLayer() : nullptr; layer; layer = layer->next()) {
        if (!layer->editable() || !layer->visible()) continue;
        std::vector<std::unique_ptr<Art>> waiting; // where to go on, the next at the end
        const auto group = layer->group();
        if (group) waiting.push_back(group->firstChild());
        while (!waiting.empty()) {
            const auto art = std::move(waiting.back());
            waiting.pop_back();
            if (!art) continue;
            waiting.push_back(art->sibling());
            if (isEntered(*art)) waiting.push_back(art->firstChild());
            if (!isEditablePath(art->aiArtHandle()) || (selectedOnly && !art->selected())) continue;
            (art->path()->closed() ? closed : open).push_back(art->aiArtHandle());
        }
    }
}

} // namespace vl::geo
