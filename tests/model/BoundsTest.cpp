// Bounds of strokes, by hand.
#include "model/Bounds.h"

#include <gtest/gtest.h>

#include "model/StrokeOutline.h"
#include "support/Drawing.h"

namespace easel::model {
namespace {

constexpr double kRoot2 = 1.4142135623730951;

TEST(BoundsTest, StrokesReachAsFarAsTheirJoinsAndCaps) {
    Document document(200, 100);
    Node& layer = document.currentLayer();
    const std::vector<PathPoint> line{corner(0, 0), corner(10, 0)};
    const std::vector<PathPoint> tick{corner(0, 10), corner(10, 0), corner(20, 10)}; // a right angle at its top
    const std::vector<PathPoint> bow{{{0, 0}, {0, 0}, {0, -40}}, {{30, 0}, {30, -40}, {30, 0}}}; // 30 high
    const struct {
        std::vector<PathPoint> points;
        Cap cap;
        Join join;
        double miterLimit;
        Box expected;
    } rows[] = {
        {line, Cap::Butt, Join::Miter, 10, {0, -1, 10, 1}},
        {line, Cap::Round, Join::Miter, 10, {-1, -1, 11, 1}},
        {line, Cap::Projecting, Join::Miter, 10, {-1, -1, 11, 1}},
        {tick, Cap::Butt, Join::Miter, 10, {-1 / kRoot2, -kRoot2, 20 + 1 / kRoot2, 10 + 1 / kRoot2}},
        {tick, Cap::Butt, Join::Miter, 1.4, {-1 / kRoot2, -1 / kRoot2, 20 + 1 / kRoot2, 10 + 1 / kRoot2}},
        {tick, Cap::Butt, Join::Bevel, 10, {-1 / kRoot2, -1 / kRoot2, 20 + 1 / kRoot2, 10 + 1 / kRoot2}},
        {tick, Cap::Butt, Join::Round, 10, {-1 / kRoot2, -1, 20 + 1 / kRoot2, 10 + 1 / kRoot2}},
        {tick, Cap::Projecting, Join::Bevel, 10, {-kRoot2, -1 / kRoot2, 20 + kRoot2, 10 + kRoot2}},
        {bow, Cap::Butt, Join::Miter, 10, {-1, -31, 31, 0}},
    };
    for (const auto& row : rows) {
        Node& path = addPath(document, layer, row.points);
        Style style = painted(false, 2);
        style.cap = row.cap;
        style.join = row.join;
        style.miterLimit = row.miterLimit;
        document.setStyle(path, style);
        const Box box = boundsOf(path, {.strokes = true});
        EXPECT_NEAR(box.left, row.expected.left, 1e-9) << &row - rows;
        EXPECT_NEAR(box.top, row.expected.top, 1e-9) << &row - rows;
        EXPECT_NEAR(box.right, row.expected.right, 1e-9) << &row - rows;
        EXPECT_NEAR(box.bottom, row.expected.bottom, 1e-9) << &row - rows;
        Box outline;
        for (const PathData& piece : strokeOutline(path.path(), style)) outline.include(piece.hull());
        EXPECT_NEAR(outline.left, row.expected.left, 0.05) << &row - rows;
        EXPECT_NEAR(outline.top, row.expected.top, 0.05) << &row - rows;
        EXPECT_NEAR(outline.right, row.expected.right, 0.05) << &row - rows;
        EXPECT_NEAR(outline.bottom, row.expected.bottom, 0.05) << &row - rows;
    }
}

TEST(BoundsTest, OutlinesOfStrokesHaveTheirHolesAndGaps) {
    const PathData square{{corner(0, 0), corner(10, 0), corner(10, 10), corner(0, 10)}, true};
    const auto ring = strokeOutline(square, painted(false, 2));
    ASSERT_EQ(ring.size(), 2U);
    for (const auto& [piece, low, high] : {std::tuple(0, -1, 11), std::tuple(1, 1, 9)}) {
        const Box hull = ring[piece].hull();
        EXPECT_NEAR(hull.left + 100 * hull.top, low * 101, 1e-3);
        EXPECT_NEAR(hull.right + 100 * hull.bottom, high * 101, 1e-3);
    }
    Style dashed = painted(false, 2);
    dashed.setDashes({.count = 2, .offset = 1, .lengths = {3, 2}});
    const auto dashes = strokeOutline({{corner(0, 0), corner(9, 0)}, false}, dashed);
    ASSERT_EQ(dashes.size(), 2U); // from 0 to 2, from 4 to 7, and nothing from 9 on
    EXPECT_NEAR(dashes[0].hull().right + dashes[1].hull().right, 9, 1e-5);
    EXPECT_TRUE(strokeOutline({{corner(5, 5)}, false}, dashed).empty());
    EXPECT_TRUE(strokeOutline(square, painted(true, 0)).empty());
}

TEST(BoundsTest, CountWhatTheOptionsSay) {
    Document document(200, 100);
    Node& group = document.create(NodeType::Group, Placement::OnTopInside, document.currentLayer());
    Node& shown = addPath(document, group, {{{0, 0}, {0, 0}, {0, -40}}, {{30, 0}, {30, -40}, {30, 0}}});
    Node& hidden = addLine(document, group, {50, 0}, {60, 0});
    Node& unpainted = addLine(document, group, {0, 50}, {0, 60});
    document.setHidden(hidden, true);
    Style none;
    none.stroke = false;
    document.setStyle(unpainted, none);
    document.select(shown, true);
    EXPECT_EQ(boundsOf(group, {}), (Box{0, -30, 60, 60}));
    EXPECT_EQ(boundsOf(group, {.controls = true}), (Box{0, -40, 60, 60}));
    EXPECT_EQ(boundsOf(group, {.hidden = false}), (Box{0, -30, 30, 60}));
    EXPECT_EQ(boundsOf(group, {.unselected = false}), (Box{0, -30, 30, 0}));
    EXPECT_EQ(boundsOf(group, {.unpainted = false}), (Box{0, -30, 60, 0}));
    EXPECT_EQ(boundsOf(group, {.hidden = false}, {0, 1, -1, 0, 0, 0}), (Box{-60, 0, 30, 30})); // turned
    EXPECT_TRUE(boundsOf(document.create(NodeType::Group, Placement::OnTopInside, group), {}).isEmpty());
}

} // namespace
} // namespace easel::model
