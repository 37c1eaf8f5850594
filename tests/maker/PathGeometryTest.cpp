// Directions at the ends of paths, merged points, aligned handles.
#include <gtest/gtest.h>

#include "core/document/Art.h"
#include "maker/PathGeometry.h"
#include "support/Desk.h"
#include "support/MadePath.h"

namespace {

using desk::madePath;
using kzo::core::Angle;
using kzo::core::Art;
using kzo::core::ArtboardPoint;
using kzo::core::ArtboardSegPoint;
using namespace vl::geo;

Angle deg(double value) { return {value, Angle::Units::Degrees}; }

TEST(PathGeometry, EndsAreMeasuredAlongThePath) {
    desk::Desk desk;
    desk.inMessage([] {
        // Up, then to the right: seen on screen 90 and 0 degrees.
        ArtObject* const path = madePath({{0, 0}, {0, -10}, {20, -10}});
        Angle in, out;
        figureInOutAngles(path, in, out);
        EXPECT_EQ(in, deg(90));
        EXPECT_EQ(out, deg(0));
        EXPECT_EQ(getExitAngle(Art(path).path()), deg(0));
        reverseAIPath(path);
        EXPECT_EQ(getExitAngle(Art(path).path()), deg(270));
        // A single segment has one direction; what has none leaves both as they are.
        figureInOutAngles(madePath({{0, 0}, {-5, 0}}), in, out);
        EXPECT_EQ(in, deg(180));
        EXPECT_EQ(out, deg(180));
        figureInOutAngles(madePath({{3, 3}}), in, out);
        figureInOutAngles(nullptr, in, out);
        EXPECT_EQ(in, deg(180));
    });
}

TEST(PathGeometry, AMergedPointTakesTheInHandleOfTheSecondAndTheOutHandleOfTheFirst) {
    const ArtboardSegPoint a({0, 0}, {-1, -1}, {3, 4}, true);
    const ArtboardSegPoint b({10, 20}, {5, 6}, {11, 22}, true);
    const ArtboardSegPoint merged = averageSegPoints(&a, &b);
    EXPECT_EQ(merged, ArtboardSegPoint({5, 10}, {5, 6}, {3, 4}, false));
    // Retracted on both sides is retracted at the new anchor; on one side, the handle stays where the old anchor was.
    const ArtboardSegPoint cornerA({0, 0}, true);
    const ArtboardSegPoint cornerB({10, 20}, true);
    EXPECT_EQ(averageSegPoints(&cornerA, &cornerB), ArtboardSegPoint({5, 10}, false));
    EXPECT_EQ(averageSegPoints(&cornerA, &b), ArtboardSegPoint({5, 10}, {5, 6}, {0, 0}, false));
    EXPECT_TRUE(isSimpleSegPt(cornerA));
    EXPECT_FALSE(isSimpleSegPt(ArtboardSegPoint({0, 0}, {0, 0}, {1, 0}, true)));
}

TEST(PathGeometry, HandlesAreAlignedWithinFourTimesTheTolerance) {
    // Arrives to the right, leaves turned by `bend`; handles 10 and 20 long.
    const auto bent = [](double bend) {
        const ArtboardPoint p(100, 100);
        return ArtboardSegPoint(p, p.move(10, deg(180)), p.move(20, deg(bend)), true);
    };
    const auto aligned = [&](double bend, int mode) {
        ArtboardSegPoint point = bent(bend);
        alignSegPtHandles(point, 10, mode);
        return point;
    };
    EXPECT_EQ(aligned(41, kRetractHandles), bent(41));
    EXPECT_EQ(aligned(-41, kRetractHandles), bent(-41));
    EXPECT_TRUE(isSimpleSegPt(aligned(39.9, kRetractHandles)));
    EXPECT_TRUE(aligned(39.9, kRetractHandles).corner);
    // Just the tolerance passes, whichever way the path runs.
    for (int way = 0; way < 360; way += 10) {
        ArtboardSegPoint point({0, 0}, ArtboardPoint().move(10, deg(way + 180)),
                               ArtboardPoint().move(20, deg(way + 40)), true);
        alignSegPtHandles(point, 10, kRetractHandles);
        EXPECT_TRUE(isSimpleSegPt(point)) << way;
    }
    EXPECT_EQ(aligned(30, 0), bent(30));
    EXPECT_EQ(aligned(30, 8), bent(30));

    const ArtboardSegPoint inTurned = aligned(30, kTurnInHandle);
    EXPECT_TRUE(inTurned.in.closeTo(inTurned.p.move(10, deg(210)), 1e-9));
    EXPECT_EQ(inTurned.out, bent(30).out);
    const ArtboardSegPoint outTurned = aligned(30, kTurnOutHandle);
    EXPECT_TRUE(outTurned.out.closeTo(outTurned.p.move(20, deg(0)), 1e-9));
    EXPECT_EQ(outTurned.in, bent(30).in);
    const ArtboardSegPoint both = aligned(30, kTurnBothHandles);
    const Angle through = bent(30).in ^ bent(30).out;
    EXPECT_TRUE(both.in.closeTo(both.p.move(-10, through), 1e-9));
    EXPECT_TRUE(both.out.closeTo(both.p.move(20, through), 1e-9));
    for (const ArtboardSegPoint& turned : {inTurned, outTurned, both, aligned(30, kMakeSmooth)})
        EXPECT_FALSE(turned.corner);
    EXPECT_TRUE(aligned(30, kMakeCorner).corner);
    EXPECT_FALSE(aligned(30, kToggleCorner).corner);

    // With a retracted handle nothing happens, whatever the mode.
    for (int mode = 0; mode <= 8; ++mode) {
        ArtboardSegPoint point({0, 0}, {0, 0}, {5, 0}, true);
        alignSegPtHandles(point, 180, mode);
        EXPECT_EQ(point, ArtboardSegPoint({0, 0}, {0, 0}, {5, 0}, true)) << mode;
    }
}

TEST(PathGeometry, EditablePathsAreListedInPaintOrder) {
    desk::Desk desk;
    easel::model::Document& document = desk.document();
    easel::model::Node& lower = document.currentLayer();
    easel::model::Node& group =
        document.create(easel::model::NodeType::Group, easel::model::Placement::OnTopInside, lower);
    easel::model::Node& inGroup = desk.addPath({{1, 1}, {2, 2}}, false, &group);
    easel::model::Node& ring = desk.addPath({{3, 3}, {4, 4}, {5, 0}}, true, &lower);
    desk.addPath({{6, 6}, {7, 7}}, false, &document.addLayer("Upper"));
    document.select(inGroup, true);
    document.select(ring, true);
    document.setLocked(desk.addPath({{8, 8}, {9, 9}}, false, &lower), true);
    desk.inMessage([] {
        std::vector<ArtObject*> open, closed;
        getAllPaths(open, closed, false);
        ASSERT_EQ(open.size(), 2u);
        EXPECT_EQ(Art(open[0]).path()->segPoints(0, 1)[0].p, ArtboardPoint(6, 6));
        EXPECT_EQ(closed.size(), 1u);
        open.clear();
        closed.clear();
        getAllPaths(open, closed, true);
        ASSERT_EQ(open.size(), 1u);
        EXPECT_EQ(Art(open[0]).path()->segPoints(0, 1)[0].p, ArtboardPoint(1, 1));
        EXPECT_EQ(closed.size(), 1u);
        EXPECT_FALSE(isEditablePath(nullptr));
        EXPECT_FALSE(isEditablePath(Art(open[0]).parent()->aiArtHandle()));
    });
    document.setHidden(group, true);
    desk.inMessage([] {
        std::vector<ArtObject*> open, closed;
        getAllPaths(open, closed, true);
        EXPECT_TRUE(open.empty());
    });
}

} // namespace
