// Path art through the facade: what operations do to real paths of a document, and what bad input does not do.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

#include "core/document/Art.h"
#include "core/document/Draw.h"
#include "core/document/HitData.h"
#include "plugin/host/HostCall.h"
#include "support/Desk.h"

namespace {

using namespace kzo::core;
using desk::Desk;
using enum SegPointSelectionState;
using Points = PathArt::SegPoints;

ArtboardSegPoint corner(double x, double y) { return {ArtboardPoint(x, y), true}; }
std::vector<double> xs(const Points& points) {
    std::vector<double> found;
    for (const ArtboardSegPoint& point : points) found.push_back(point.p.x());
    return found;
}
using Xs = std::vector<double>;

class PathArtTest : public testing::Test {
  protected:
    /// Runs `work` in a message, with a path of `count` corners at (0, 0), (1, 1), (2, 0), ... in the document.
    void with(int count, bool closed, const std::function<void(PathArt&)>& work) {
        desk.inMessage([&] {
            const Art art = pathOf(count, closed);
            work(*art.path());
        });
    }

    static Art pathOf(int count, bool closed) {
        Art art(ArtType::Path, PaintOrder::AboveAll);
        Points points;
        for (int i = 0; i < count; ++i) points.push_back(corner(i, i % 2));
        art.path()->setSegPointCount(static_cast<std::int16_t>(count));
        art.path()->setClosed(closed);
        art.path()->setSegPoints(0, points);
        return art;
    }

    static Xs all(const PathArt& path) { return xs(path.segPoints(0, path.segPointCount())); }

    Desk desk;
};

// Counts and points

TEST_F(PathArtTest, ClampsIndicesAndCounts) {
    constexpr std::int16_t kLow = std::numeric_limits<std::int16_t>::min();
    constexpr std::int16_t kHigh = std::numeric_limits<std::int16_t>::max();
    with(4, false, [&](PathArt& path) {
        const struct {
            std::int16_t index, count;
            Xs points, segs;
        } rows[] = {
            {0, 4, {0, 1, 2, 3}, {0, 1, 2, 3}},
            {1, 2, {1, 2}, {1, 2, 3}},
            {2, kHigh, {2, 3}, {2, 3}},
            {kLow, 1, {0}, {0, 1}},
            {-1, 2, {0, 1}, {0, 1, 2}},
            {4, 1, {3}, {2, 3}},
            {kHigh, kHigh, {3}, {2, 3}},
            {1, 0, {}, {1, 2}},
            {1, kLow, {}, {1, 2}},
        };
        for (const auto& row : rows) {
            EXPECT_EQ(xs(path.segPoints(row.index, row.count)), row.points) << row.index << ", " << row.count;
            EXPECT_EQ(xs(path.segs(row.index, row.count)), row.segs) << row.index << ", " << row.count;
        }
        path.setSegPoints(2, {corner(20, 0), corner(30, 0), corner(40, 0)});
        EXPECT_EQ(all(path), (Xs{0, 1, 20, 30})) << "what fits is written, and the path does not grow";
        path.setSegPoints(kHigh, {corner(33, 0), corner(34, 0)});
        path.setSegPoints(kLow, {corner(-1, 0)});
        EXPECT_EQ(all(path), (Xs{-1, 1, 20, 33}));
        path.deleteSegPoints(1, 0);
        EXPECT_EQ(path.segPointCount(), 4);
        path.deleteSegPoints(2, kHigh);
        EXPECT_EQ(all(path), (Xs{-1, 1}));
        path.insertSegPoints(1, {corner(5, 0), corner(6, 0)});
        path.insertSegPoints(kHigh, {corner(9, 0)});
        path.insertSegPoints(kLow, {corner(-9, 0)});
        EXPECT_EQ(all(path), (Xs{-9, -1, 5, 6, 1, 9}));
        EXPECT_EQ(path.bezier(kHigh)->endPoint(), ArtboardPoint(9, 0));
        EXPECT_EQ(path.bezier(kLow)->startPoint(), ArtboardPoint(-9, 0));
        EXPECT_TRUE(path.setSegPointCount(kLow));
        EXPECT_EQ(path.segPointCount(), 0);
        EXPECT_TRUE(path.setSegPointCount(kHigh - 1) && path.insertSegPointAtT(0, 0.5));
        EXPECT_TRUE(path.setSegCount(kHigh));
        EXPECT_EQ(path.segPointCount(), kHigh);
        EXPECT_TRUE(path.insertSegPoints(0, {corner(1, 1)}));
        EXPECT_FALSE(path.insertSegPointAtT(0, 0.5));
        EXPECT_EQ(path.segPointCount(), kHigh) << "full";
    });
}

TEST_F(PathArtTest, DoesNotGrowWhenTheHostRefusesThePoints) {
    auto& monitor = kzo::plugin::host::monitor();
    with(3, false, [&](PathArt& path) {
        bool refused = true;
        for (std::uint64_t nth = 1; refused; ++nth) {
            monitor.reset(nth);
            const bool done = path.setSegs(1, {corner(7, 7), corner(8, 8), corner(9, 9), corner(10, 10)});
            refused = monitor.calls() >= nth;
            monitor.reset();
            EXPECT_NE(done, refused);
            EXPECT_EQ(all(path), refused ? (Xs{0, 1, 2}) : (Xs{0, 7, 8, 9, 10})) << "call " << nth;
        }
    });
}

TEST_F(PathArtTest, SegmentsOfClosedPathsWrap) {
    with(4, true, [&](PathArt& path) {
        EXPECT_EQ(xs(path.segs(3, 1)), (Xs{3, 0})) << "the closing segment";
        EXPECT_EQ(xs(path.segs(-1, 1)), (Xs{3, 0}));
        EXPECT_EQ(xs(path.segs(-1, 3)), (Xs{3, 0, 1, 2}));
        EXPECT_EQ(xs(path.segs(0, 4)), (Xs{0, 1, 2, 3, 0}));
        EXPECT_EQ(xs(path.segs(2, 99)), (Xs{2, 3, 0}));
        path.setSegs(3, {corner(30, 0), corner(-30, 0)});
        EXPECT_EQ(all(path), (Xs{-30, 1, 2, 30})) << "round the start";
        path.setSegs(-1, {corner(3, 0), corner(0, 0), corner(10, 0)});
        EXPECT_EQ(all(path), (Xs{0, 10, 2, 3}));
        path.setSegs(0, {corner(5, 0), corner(6, 0), corner(7, 0), corner(8, 0), corner(99, 0)});
        EXPECT_EQ(all(path), (Xs{5, 6, 7, 8})) << "the point that closes a whole path is not written twice";
        EXPECT_TRUE(path.setSegPointSelected(3, Anchor) && path.setSegPointSelected(0, Anchor));
        EXPECT_EQ(path.bezier(-1)->startPoint(), ArtboardPoint(8, 0));
        EXPECT_TRUE(path.segSelected(-1) && path.segSelected(-9) && !path.segSelected(0) && !path.phantomSeg(-1));
        EXPECT_NEAR(path.tAtLength(-1, 1.5), 0.5, 1e-9);
        EXPECT_NEAR(path.sublength(-1, 0, 3, 1), 3, 1e-9);
        EXPECT_NEAR(path.sublength(-1, 0.5, 0, 1), 2.5, 1e-9);
        EXPECT_TRUE(path.insertSegPointAtT(-1, 0.5) && path.segPoints(4, 1)[0].p == ArtboardPoint(6.5, 0));
        EXPECT_TRUE(path.deleteSegPoints(4, 1));
        path.insertSegs(-1, {corner(7.5, 0)});
        EXPECT_EQ(all(path), (Xs{5, 6, 7, 7.5, 8}));
        path.deleteSegs(-1, 2);
        EXPECT_EQ(all(path), (Xs{6, 7, 7.5})) << "the last point and the first";
    });
    with(2, false, [&](PathArt& path) {
        path.setSegs(0, {corner(5, 0), corner(6, 0), corner(7, 0)});
        EXPECT_EQ(all(path), (Xs{5, 6, 7})) << "an open path grows";
        path.setSegCount(0);
        path.setSegs(0, {corner(1, 0), corner(2, 0), corner(3, 0)});
        EXPECT_EQ(all(path), (Xs{1, 2, 3}));
        path.setSegs(-1, {corner(9, 0)});
        EXPECT_EQ(all(path), (Xs{9, 2, 3})) << "-1 is no segment of an open path";
    });
    for (const int count : {1, 2, 5}) {
        for (const bool closed : {false, true}) {
            with(count, closed, [&](PathArt& path) {
                const Points before = path.segPoints(0, path.segPointCount());
                for (std::int16_t i = -3; i < 8; ++i)
                    for (std::int16_t n = -3; n < 9; ++n) path.setSegs(i, path.segs(i, n));
                EXPECT_EQ(path.segPoints(0, path.segPointCount()), before) << count << closed;
            });
        }
    }
}

TEST_F(PathArtTest, PointsAreRenumberedInsertedAndFound) {
    with(4, true, [&](PathArt& path) {
        path.rotateSegPoints(-1);
        EXPECT_EQ(all(path), (Xs{3, 0, 1, 2}));
        path.rotateSegPoints(9);
        EXPECT_EQ(all(path), (Xs{0, 1, 2, 3}));
        path.rotateSegPoints(std::numeric_limits<std::int16_t>::min());
        EXPECT_EQ(all(path), (Xs{0, 1, 2, 3})) << "-32768 is a multiple of 4";
        EXPECT_TRUE(path.insertSegPointAtT(3, 0.5));
        EXPECT_EQ(all(path), (Xs{0, 1, 2, 3, 1.5}));
        for (const double t : {0.0, 1.0, -1.0, std::nan("")}) EXPECT_FALSE(path.insertSegPointAtT(0, t));
        EXPECT_EQ(path.segPointClosestToPoint({2.2, 0}), 2);
        EXPECT_EQ(path.segPointClosestToPoint({0.5, 0.5}), 0) << "the lower index wins a tie";
        EXPECT_EQ(path.segPointClosestToPoint({std::nan(""), 0}), 0);
        EXPECT_EQ(path.segPointClosestToPoint({1e300, 0}), 0) << "farther than any distance that counts";
        path.insertSegPoints(2, path.segPoints(1, 1));
        EXPECT_EQ(path.phantomSegPoints(), std::vector<std::int16_t>{2});
        EXPECT_TRUE(path.phantomSeg(1) && !path.phantomSeg(2));
    });
}

// Selection

TEST_F(PathArtTest, SelectionIsKeptForEachPartOfAPoint) {
    with(3, true, [&](PathArt& path) {
        EXPECT_EQ(path.segPointSelected(0), None);
        path.setSegPointSelected(0, OutControl);
        path.setSegPointSelected(1, InControl | Anchor);
        EXPECT_EQ(path.segPointSelected(0), OutControl);
        EXPECT_EQ(path.segPointSelected(1), InControl | Anchor);
        EXPECT_TRUE(path.segSelected(0) && !path.segSelected(1) && !path.segSelected(2));
        EXPECT_FALSE(path.allSegPointsSelected());
        path.reverseSegs();
        EXPECT_EQ(path.segPointSelected(2), InControl) << "control points change sides";
        path.insertSegPoints(1, {corner(9, 9)});
        EXPECT_EQ(path.segPointSelected(1), None);
        EXPECT_EQ(path.segPointSelected(2), OutControl | Anchor) << "what is selected stays with its point";
        path.deleteSegPoints(0, 2);
        EXPECT_EQ(path.segPointSelected(0), OutControl | Anchor);
        for (const std::int16_t i : {0, 1}) path.setSegPointSelected(i, Anchor);
        EXPECT_TRUE(path.allSegPointsSelected());
        EXPECT_TRUE(path.segSelected(0));
    });
}

// Measures, shape and meetings

TEST_F(PathArtTest, MeasuresAndShapes) {
    desk.inMessage([&] {
        const auto square = draw::rect({0, 0, 10, 10});
        const PathArt& path = *square->path();
        EXPECT_EQ(path.area(), 100);
        EXPECT_EQ(path.length(), 40);
        EXPECT_NEAR(path.sublength(3, 0.5, 0, 0.5), 10, 1e-9) << "past the start";
        EXPECT_TRUE(path.midPoint().closeTo({10, 10}, 1e-9));
        EXPECT_NEAR(path.tAtLength(1, 5), 0.5, 1e-9);
        EXPECT_EQ(path.windingOrder(), WindingOrderType::Clockwise);
        EXPECT_TRUE(square->path()->setWindingOrder(WindingOrderType::CounterClockwise));
        EXPECT_EQ(path.windingOrder(), WindingOrderType::CounterClockwise);
        EXPECT_EQ(path.area(), 100);
        EXPECT_TRUE(path.containsPoint({1, 1}) && !path.containsPoint({11, 1}));
        EXPECT_TRUE(path.isRectangular() && path.hasStraightSegs() && !path.isStraight() && !path.isCircular());
        EXPECT_TRUE(draw::ellipse({0, 0}, 10, 10, false)->path()->isCircular());
        const auto line = draw::line({0, 0}, {0, -10});
        Angle angle;
        EXPECT_TRUE(line->path()->isStraight() && line->path()->angle(angle));
        EXPECT_EQ(angle.asDegrees(), 90);
        EXPECT_FALSE(square->path()->angle(angle));
        EXPECT_FALSE(line->path()->setWindingOrder(WindingOrderType::Clockwise)) << "it has none";
        EXPECT_FALSE(draw::point({3, 3})->path()->hasLength());

        // y = 5 crosses the square's left and right sides.
        const auto across = draw::line({-5, 5}, {15, 5});
        const auto met = across->path()->getIntersections(*square);
        ASSERT_EQ(met.size(), 2U);
        EXPECT_TRUE(met[0].point.closeTo({0, 5}, 1e-9));
        EXPECT_EQ(met[0].seg, 0);
        EXPECT_EQ(met[0].otherSeg, 3) << "the left side, now the last one";
        EXPECT_NEAR(met[0].otherT, 0.5, 1e-12);
        EXPECT_TRUE(square->path()->getIntersections().empty());
        EXPECT_TRUE(across->path()->getIntersections(Art()).empty());
    });
}

TEST_F(PathArtTest, TrimsAndExtends) {
    using enum TrimDirectionType;
    desk.inMessage([&] {
        const auto hit = [](const Art& art, double x, double y) {
            return HitData(&art, {x, y}, HitRequest::AnchorsAndSegments, 1, false);
        };
        const auto left = draw::line({10, -5}, {10, 5});
        const auto right = draw::line({30, -5}, {30, 5});
        const struct {
            TrimDirectionType directions;
            double x;
            Xs left;
        } rows[] = {
            {TowardsStart | TowardsEnd, 20, {0, 10, 30, 40}},
            {TowardsStart | TowardsEnd, 5, {10, 40}},
            {TowardsEnd, 5, {0, 5, 10, 40}},
            {TowardsStart, 5, {5, 40}},
            {None, 5, {0, 40}},
        };
        for (const auto& row : rows) {
            const auto line = draw::line({0, 0}, {40, 0});
            const bool trims = row.directions != None;
            EXPECT_EQ(line->path()->trim(hit(*line, row.x, 0), row.directions), trims);
            const auto above = line->priorSibling();
            Xs found = all(*line->path());
            if (above) {
                const Xs rest = all(*above->path());
                found.insert(found.end(), rest.begin(), rest.end());
            }
            for (std::size_t i = 0; i < row.left.size() && found.size() == row.left.size(); ++i)
                EXPECT_NEAR(found[i], row.left[i], 1e-3) << i;
            EXPECT_EQ(found.size(), row.left.size());
            if (above) above->dispose();
            line->dispose();
        }
        const auto circle = draw::ellipse({20, 0}, 20, 20, false); // meets both lines, at its sides
        EXPECT_TRUE(circle->path()->trim(hit(*circle, 20, -10), TowardsStart | TowardsEnd));
        EXPECT_FALSE(circle->path()->closed());
        EXPECT_NEAR(circle->path()->length(), M_PI * 10, 0.01);

        const auto line = draw::line({12, 20}, {20, 20});
        const auto wall = draw::polygon({{30, 0}, {50, 20}, {30, 40}});
        EXPECT_TRUE(line->path()->extend(hit(*line, 19, 20), hit(*wall, 49, 19)));
        EXPECT_EQ(line->path()->segPointCount(), 2) << "straight on";
        EXPECT_NEAR(all(*line->path())[1], 50, 1e-9) << "of two meetings, the one near the hit";
        EXPECT_FALSE(line->path()->extend(hit(*line, 13, 20), hit(*wall, 49, 19))) << "the other end leads away";
        EXPECT_FALSE(wall->path()->extend(hit(*wall, 49, 19), hit(*line, 19, 20))) << "closed";
        EXPECT_FALSE(line->path()->extend(HitData(), HitData()));
    });
}

// What is selected is selected of an anchor, wherever in the row that comes to stand.
TEST_F(PathArtTest, SelectionStaysWithItsAnchor) {
    const auto selected = [](const PathArt& path) {
        Xs found;
        for (std::int16_t i = 0; i < path.segPointCount(); ++i)
            if (path.segPointSelected(i) == Anchor) found.push_back(path.segPoints(i, 1)[0].p.x());
        return found;
    };
    const auto trim = [](const Art& art, const ArtboardPoint& at, TrimDirectionType directions) {
        return art.path()->trim(HitData(&art, at, HitRequest::Segments, 1, false), directions);
    };
    using enum TrimDirectionType;
    const struct {
        const char* what;
        int points;
        bool closed;
        std::vector<std::int16_t> select;
        std::function<bool(const Art&)> change;
        Xs expected;
    } rows[] = {
        {"turned on", 5, true, {1, 4}, [](const Art& a) { return a.path()->rotateSegPoints(2); }, {4, 1}},
        {"turned back", 5, true, {0}, [](const Art& a) { return a.path()->rotateSegPoints(-1); }, {0}},
        {"the closing segment", 5, true, {1, 3}, [](const Art& a) { return a.path()->deleteSegs(-1, 1); }, {1, 3}},
        {"it and the next", 5, true, {0, 2}, [](const Art& a) { return a.path()->deleteSegs(-1, 2); }, {2}},
        {"all of it", 4, true, {0, 1, 2, 3}, [](const Art& a) { return a.path()->rotateSegPoints(1); }, {1, 2, 3, 0}},
        {"the start",
         4,
         false,
         {0, 2},
         [&](const Art& a) {
             return trim(a, {1.5, 0.5}, TowardsStart);
         },
         {2}},
        {"the end",
         4,
         false,
         {1, 3},
         [&](const Art& a) {
             return trim(a, {1.5, 0.5}, TowardsEnd);
         },
         {1}},
    };
    for (const auto& row : rows) {
        desk.inMessage([&] {
            Art art = pathOf(row.points, row.closed);
            for (const std::int16_t index : row.select) EXPECT_TRUE(art.path()->setSegPointSelected(index, Anchor));
            EXPECT_TRUE(row.change(art)) << row.what;
            EXPECT_EQ(selected(*art.path()), row.expected) << row.what;
            EXPECT_TRUE(art.dispose());
        });
    }
    desk.inMessage([&] { // both pieces, of which one is new
        static_cast<void>(draw::line({14, 295}, {14, 305}));
        static_cast<void>(draw::line({16, 295}, {16, 305}));
        const auto line = draw::polygon({{10, 300}, {13, 300}, {18, 300}, {20, 300}});
        PathArt& path = *line->path();
        EXPECT_TRUE(path.setClosed(false) && path.setSegPointSelected(1, Anchor) &&
                    path.setSegPointSelected(3, Anchor));
        EXPECT_TRUE(trim(*line, {15, 300}, TowardsStart | TowardsEnd));
        EXPECT_EQ(selected(path), (Xs{13}));
        EXPECT_EQ(selected(*line->priorSibling()->path()), (Xs{20}));
        const auto wall = draw::line({0, 290}, {0, 310});
        const HitData end(line.get(), {10.2, 300}, HitRequest::Segments, 1, false);
        EXPECT_TRUE(path.extend(end, HitData(wall.get(), {0, 300}, HitRequest::Segments, 1, false)));
        EXPECT_EQ(selected(path), (Xs{13}));
    });
}

// Undo, refusals and bad input

struct Change {
    const char* name;
    std::function<bool(PathArt&, const Art&)> make;
};

const Change kChanges[] = {
    {"setSegPointCount", [](PathArt& p, const Art&) { return p.setSegPointCount(3); }},
    {"setSegCount", [](PathArt& p, const Art&) { return p.setSegCount(7); }},
    {"setClosed", [](PathArt& p, const Art&) { return p.setClosed(false); }},
    {"setSegPoints", [](PathArt& p, const Art&) { return p.setSegPoints(1, {corner(7, 7)}); }},
    {"insertSegPoints", [](PathArt& p, const Art&) { return p.insertSegPoints(1, {corner(7, 7)}); }},
    {"insertSegPointAtT", [](PathArt& p, const Art&) { return p.insertSegPointAtT(1, 0.5); }},
    {"deleteSegPoints", [](PathArt& p, const Art&) { return p.deleteSegPoints(1, 2); }},
    {"rotateSegPoints", [](PathArt& p, const Art&) { return p.rotateSegPoints(2); }},
    {"setSegs",
     [](PathArt& p, const Art&) {
         return p.setSegs(-1, {corner(7, 7), corner(8, 8)});
     }},
    {"insertSegs", [](PathArt& p, const Art&) { return p.insertSegs(-1, {corner(7, 7)}); }},
    {"deleteSegs", [](PathArt& p, const Art&) { return p.deleteSegs(-1, 2); }},
    {"reverseSegs", [](PathArt& p, const Art&) { return p.reverseSegs(); }},
    {"setWindingOrder", [](PathArt& p, const Art&) { return p.setWindingOrder(WindingOrderType::CounterClockwise); }},
    {"trim",
     [](PathArt& p, const Art& crossed) {
         return p.trim(HitData(&crossed, {25, 0}, HitRequest::AnchorsAndSegments, 1, false),
                       TrimDirectionType::TowardsStart | TrimDirectionType::TowardsEnd);
     }},
    {"setStyle",
     [](PathArt& p, const Art&) {
         PathStyle style;
         style.stroke.width = 3;
         return p.setStyle(style);
     }},
    {"setStrokeAlignment", [](PathArt& p, const Art&) { return p.setStrokeAlignment(StrokeAlignment::Inside); }},
    {"setSegPointSelected", [](PathArt& p, const Art&) { return p.setSegPointSelected(1, Anchor); }},
};

/// A rectangle with a curved side, whose upper one two lines cross, and what is to be done to it.
class PathChanges : public PathArtTest {
  protected:
    void inRectangle(const std::function<void(const Art&)>& work) {
        desk.inMessage([&] { work(Art(handle)); });
    }

    void SetUp() override {
        desk.inMessage([&] {
            const auto rect = draw::rect({0, 0, 50, 30});
            handle = rect->aiArtHandle();
            Points second = rect->path()->segPoints(1, 1);
            second[0].out = ArtboardPoint(second[0].p.x() + 5, second[0].p.y() + 9);
            EXPECT_TRUE(rect->path()->setSegPoints(1, second));
            static_cast<void>(draw::line({10, -5}, {10, 5}));
            static_cast<void>(draw::line({40, -5}, {40, 5}));
        });
    }

    /// All that a change could touch: the file, and what is selected.
    std::string state() {
        std::string text = desk.svg();
        for (const auto* path : desk.paths())
            for (std::size_t i = 0; i < path->path().points.size(); ++i) text += path->pointSelected(i) ? 'x' : '-';
        return text;
    }

    ArtObject* handle = nullptr;
};

TEST_F(PathChanges, AreUndoneAndRedoneExactly) {
    for (const Change& change : kChanges) {
        const std::string before = state();
        inRectangle([&](const Art& art) { EXPECT_TRUE(change.make(*art.path(), art)) << change.name; });
        const std::string after = state();
        EXPECT_NE(after, before) << change.name;
        const bool step = std::string(change.name) != "setSegPointSelected"; // selecting alone makes none
        if (!step) continue;
        EXPECT_TRUE(desk.document().journal().undo());
        EXPECT_EQ(state(), before) << change.name;
        EXPECT_TRUE(desk.document().journal().redo());
        EXPECT_EQ(state(), after) << change.name;
        EXPECT_TRUE(desk.document().journal().undo());
    }
}

TEST_F(PathChanges, LeaveThePathAsItWasWhenTheHostRefusesAnyCall) {
    auto& monitor = kzo::plugin::host::monitor();
    for (const Change& change : kChanges) {
        const std::string before = state();
        bool refused = true;
        for (int nth = 1; refused; ++nth) {
            bool done = false;
            inRectangle([&](const Art& art) {
                static_cast<void>(art.path()->segPointCount()); // the handle knows its type from here on
                monitor.reset(static_cast<std::uint64_t>(nth));
                done = change.make(*art.path(), art);
                refused = monitor.calls() >= static_cast<std::uint64_t>(nth);
                monitor.reset();
            });
            // A path that the host does not show is none that trimming could stop at.
            if (std::string(change.name) == "trim" && done) break;
            EXPECT_NE(done, refused) << change.name << ", call " << nth;
            EXPECT_TRUE(!refused || state() == before) << change.name << ", call " << nth;
            ASSERT_LT(nth, 200) << change.name;
        }
        const bool step = std::string(change.name) != "setSegPointSelected"; // selecting alone makes none
        EXPECT_TRUE(!step || (desk.document().journal().undo() && state() == before)) << change.name;
    }
}

// What bad input leaves

using Query = std::function<bool(const PathArt&)>; ///< whether the answer is the neutral one

const Query kNeutral[] = {
    [](const PathArt& p) { return p.segPointCount() == 0 && p.segCount() == 0 && !p.closed(); },
    [](const PathArt& p) { return p.segPoints(0, 9).empty() && p.segs(0, 9).empty() && p.phantomSegPoints().empty(); },
    [](const PathArt& p) {
        return !p.bezier(0) && !p.phantomSeg(0) && p.segPointClosestToPoint({1, 1}) == 0;
    },
    [](const PathArt& p) { return p.segPointSelected(0) == None && !p.allSegPointsSelected() && !p.segSelected(0); },
    [](const PathArt& p) { return !p.hasLength() && p.length() == 0 && p.sublength(0, 0, 1, 1) == 0; },
    [](const PathArt& p) { return p.tAtLength(0, 5) == 0 && p.midPoint() == ArtboardPoint() && p.area() == 0; },
    [](const PathArt& p) {
        return p.windingOrder() == WindingOrderType::None && !p.containsPoint({1, 1});
    },
    [](const PathArt& p) { return !p.isStraight() && !p.hasStraightSegs() && !p.isCircular() && !p.isRectangular(); },
    [](const PathArt& p) { return p.getIntersections().empty() && p.getIntersections(Art()).empty() && !p.isGuide(); },
    [](const PathArt& p) { return p.style() == PathStyle(); },
    [](const PathArt& p) {
        Angle angle;
        ArtboardPoint first(5, 5);
        ArtboardPoint last(6, 6);
        p.endPoints(first, last);
        return !p.angle(angle) && first == ArtboardPoint(5, 5) && last == ArtboardPoint(6, 6);
    },
};

TEST_F(PathChanges, DoNothingToArtOfAnotherType) {
    desk.inMessage([] {
        const Art group(ArtType::Group, PaintOrder::AboveAll);
        draw::line({0, 0}, {9, 9}, &group);
    });
    const std::string before = state();
    desk.inMessage([&] {
        const Art layer(*Art(handle).parent());
        for (const Art& art : {Art(), layer, *layer.firstChild()}) {
            for (const Query& neutral : kNeutral) EXPECT_TRUE(neutral(*art.path())) << &neutral - kNeutral;
            for (const Change& change : kChanges) EXPECT_FALSE(change.make(*art.path(), art)) << change.name;
        }
    });
    EXPECT_EQ(state(), before);
}

TEST_F(PathChanges, AnyNumbersLeaveASoundPath) {
    constexpr std::int16_t kNumbers[] = {-32768, -2, -1, 0, 1, 2, 3, 4, 5, 32767};
    constexpr double kReals[] = {0.5, -1, 1e300, HUGE_VAL};
    const auto awkward = [](double value) {
        return Points{{ArtboardPoint(value, 0), {0, -value}, {value, value}, false}, corner(1, value)};
    };
    const auto runAt = [&](PathArt& path, std::int16_t i) {
        for (const std::int16_t n : kNumbers) {
            EXPECT_LE(path.segs(i, n).size(), static_cast<std::size_t>(path.segPointCount()) + 2);
            EXPECT_LE(path.sublength(i, 0.1, n, 0.9), path.length() + 1e-6);
            static_cast<void>(path.tAtLength(i, n));
            path.deleteSegPoints(i, n > 2 ? 1 : 0);
            path.deleteSegs(i, n > 2 ? 1 : 0);
            path.insertSegPoints(n, {corner(n, i)});
        }
        for (const double real : kReals) {
            for (const auto& write :
                 {&PathArt::setSegPoints, &PathArt::setSegs, &PathArt::insertSegPoints, &PathArt::insertSegs})
                EXPECT_TRUE((path.*write)(i, awkward(real)) != std::isinf(real) || path.segPointCount() == 0);
            for (const Query& query : kNeutral) static_cast<void>(query(path));
            EXPECT_TRUE(std::isfinite(path.length()) && std::isfinite(path.area()));
        }
        path.rotateSegPoints(i);
        path.insertSegPointAtT(i, 0.3);
        path.setSegPointSelected(i, InControl | OutControl | Anchor);
    };
    for (const int count : {0, 1, 2, 4}) {
        for (const bool closed : {false, true}) {
            for (const std::int16_t i : kNumbers) {
                with(count, closed, [&](PathArt& path) {
                    runAt(path, i);
                    if (i != 32767) { // more than a path may have
                        EXPECT_TRUE(path.setSegCount(i));
                        EXPECT_EQ(path.segCount(), std::max<int>(i, 0));
                        EXPECT_TRUE(path.setSegPointCount(i));
                        EXPECT_EQ(path.segPointCount(), std::max<int>(i, 0));
                    }
                    EXPECT_TRUE(path.setSegPointCount(3));
                    EXPECT_EQ(path.closed(), closed);
                });
            }
        }
    }
    desk.expectReports(); // not finite
}

} // namespace
