// Paths that meet become one.
#include <gmock/gmock.h>

#include "maker/Concatenate.h"
#include "support/Desk.h"
#include "support/Drawing.h"
#include "support/MadePath.h"

namespace {

using desk::anchorsOf;
using desk::madePath;
using kzo::core::Art;
using kzo::core::ArtboardPoint;
using kzo::core::ArtboardSegPoint;
using testing::ElementsAre;
using namespace vl::conc;

using Corners = std::vector<ArtboardPoint>;

constexpr double kJoin = 0.5;
constexpr double kVariance = 155;
constexpr double kHandles = 35;

class Concatenate : public testing::Test {
  protected:
    /// A's points after b was joined into it, empty when it was not.
    Corners joined(const Corners& a, const Corners& b, double joinDist = kJoin) {
        Corners result;
        desk.inMessage([&] {
            ArtObject* first = madePath(a);
            ArtObject* second = madePath(b);
            if (concat_path(first, second, joinDist, kVariance, kHandles, 0)) {
                result = anchorsOf(first);
                EXPECT_EQ(second, nullptr);
            }
        });
        return result;
    }

    std::vector<std::string> alerts;
    desk::Desk desk{{.said = &alerts}};
};

TEST_F(Concatenate, TheFirstOfTheNearestPairsIsTheRoute) {
    desk.inMessage([] {
        ArtObject* const a = madePath({{0, 0}, {10, 0}});
        const auto route = [&](const Corners& b, double joinDist = kJoin, double variance = kVariance) {
            return getConnectionRoute(a, madePath(b), joinDist, variance, 99);
        };
        EXPECT_EQ(route({{0, 0.25}, {0, 10}}), 1);
        EXPECT_EQ(route({{0, 10}, {0, 0.25}}), 2);
        EXPECT_EQ(route({{10, 0.25}, {10, 10}}), 3);
        EXPECT_EQ(route({{10, 10}, {10, 0.25}}), 4);
        EXPECT_EQ(route({{10, 0}, {0, 0}}, kJoin, 180), 2) << "both ends meet";
        EXPECT_EQ(route({{0, 0.5}, {0, 10}}), 1) << "just as far as they may be";
        EXPECT_EQ(route({{0, 0.51}, {0, 10}}), 0);
        EXPECT_EQ(route({{0, 0}}), 0) << "a path without segments";
        // Away from a's start at a right angle; the path that goes on differs by 90 degrees.
        EXPECT_EQ(route({{0, 0}, {0, -10}}, kJoin, 90), 1);
        EXPECT_EQ(route({{0, 0}, {0, -10}}, kJoin, 89), 0);
        EXPECT_EQ(whichPointsClose(a, madePath({{5, 5}, {5, 5}})), 0) << "of equally near ones the first";
        ArtObject* const up = madePath({{0, 0}, {0, -10}});
        const int variances[] = {tangentVariance(a, up, 0), tangentVariance(a, up, 1), tangentVariance(a, up, 2),
                                 tangentVariance(a, up, 3), tangentVariance(a, up, 4)};
        EXPECT_THAT(variances, ElementsAre(0, 90, 90, 90, 90));
    });
}

TEST_F(Concatenate, RoutesOneAndFourJoinWhereTheEndsMeet) {
    EXPECT_THAT(joined({{0, 0}, {10, 0}}, {{0, 0}, {0, 10}}),
                ElementsAre(ArtboardPoint(10, 0), ArtboardPoint(0, 0), ArtboardPoint(0, 10)));
    EXPECT_THAT(joined({{0, 0}, {10, 0}}, {{10, 10}, {10, 0}}),
                ElementsAre(ArtboardPoint(0, 0), ArtboardPoint(10, 0), ArtboardPoint(10, 10)));
    // Anchors that are apart meet halfway.
    EXPECT_THAT(joined({{0, 0}, {10, 0}}, {{0, 0.5}, {0, 10}}),
                ElementsAre(ArtboardPoint(10, 0), ArtboardPoint(0, 0.25), ArtboardPoint(0, 10)));
    // Two straight lines in one direction become one.
    EXPECT_THAT(joined({{0, 0}, {10, 0}}, {{0, 0}, {-7, 0}}), ElementsAre(ArtboardPoint(10, 0), ArtboardPoint(-7, 0)));
    // The other two join the ends that are far from each other.
    EXPECT_THAT(joined({{0, 0}, {10, 0}}, {{0, 10}, {0, 0}}),
                ElementsAre(ArtboardPoint(0, 0), ArtboardPoint(10, 0), ArtboardPoint(0, 10), ArtboardPoint(0, 0)));
    EXPECT_THAT(joined({{0, 0}, {10, 0}}, {{50, 0}, {60, 0}}), testing::IsEmpty());
}

TEST_F(Concatenate, AMergedPointIsSmoothWhereTheBendAllows) {
    desk.inMessage([] {
        // Both with handles at the joint, bent by 90 degrees: a quarter of that is within 35 degrees.
        ArtObject* a =
            madePath(std::vector<ArtboardSegPoint>{{{0, 0}, {0, 0}, {4, 0}, true}, {{10, 0}, {6, 0}, {10, 0}, true}});
        ArtObject* b = madePath(
            std::vector<ArtboardSegPoint>{{{10, 0}, {10, 0}, {10, 5}, true}, {{10, 20}, {10, 15}, {10, 20}, true}});
        ASSERT_TRUE(appendPath(a, b, 0, kHandles, kJoin, 0));
        const auto points = Art(a).path()->segPoints(0, 3);
        ASSERT_EQ(points.size(), 3u);
        const ArtboardSegPoint& joint = points[1];
        EXPECT_FALSE(joint.corner);
        EXPECT_NEAR(joint.p | joint.in, 4, 1e-9);
        EXPECT_NEAR(joint.p | joint.out, 5, 1e-9);
        EXPECT_TRUE((joint.in ^ joint.p).equalWithinTol(joint.p ^ joint.out, {1e-6, kzo::core::Angle::Units::Degrees}));
    });
}

TEST_F(Concatenate, PathsThatAreTooLongOrOneStayAsTheyAre) {
    alerts.clear();
    desk.inMessage([] {
        const auto line = [](double from, int count, double y) {
            Corners corners;
            for (int i = 0; i < count; ++i) corners.emplace_back(from + i, y * (i % 2));
            return madePath(corners);
        };
        ArtObject* a = line(0, 20000, 1);
        ArtObject* same = a;
        EXPECT_FALSE(appendPath(a, same, 0, kHandles, kJoin, 0));
        ArtObject* fits = line(19999, 12001, 5);
        // Its first anchor is one below a's last.
        ArtObject* tooMany = line(19999, 12002, 5);
        EXPECT_FALSE(appendPath(a, tooMany, 0, kHandles, 1, 0));
        EXPECT_TRUE(appendPath(a, fits, 0, kHandles, 1, 0));
        EXPECT_EQ(Art(a).path()->segPointCount(), 32000);
        EXPECT_EQ(Art(tooMany).path()->segPointCount(), 12002);
    });
    EXPECT_THAT(alerts, ElementsAre("Joining paths would create too many points for one path object."));
}

TEST_F(Concatenate, APathWhoseEndsMeetIsClosedOnce) {
    desk.inMessage([] {
        ArtObject* const ring = madePath({{0, 0}, {10, 0}, {5, 8}, {0.25, 0}});
        closeClosePath(ring, kJoin, kVariance, kHandles);
        EXPECT_TRUE(Art(ring).path()->closed());
        EXPECT_THAT(anchorsOf(ring), ElementsAre(ArtboardPoint(0.125, 0), ArtboardPoint(10, 0), ArtboardPoint(5, 8)));
        closeClosePath(ring, kJoin, kVariance, kHandles);
        EXPECT_EQ(Art(ring).path()->segPointCount(), 3);
        // A closed path with two points where one would do loses one; a line that is as short stays a line.
        ArtObject* const twice = madePath({{0, 0}, {10, 0}, {5, 8}, {0.25, 0}});
        Art(twice).path()->setClosed(true);
        closeClosePath(twice, kJoin, 180, kHandles);
        EXPECT_EQ(Art(twice).path()->segPointCount(), 3);
        EXPECT_TRUE(Art(twice).path()->closed());
        ArtObject* const dash = madePath({{0, 0}, {0.25, 0}});
        closeClosePath(dash, kJoin, kVariance, kHandles);
        EXPECT_EQ(Art(dash).path()->segPointCount(), 2);
        EXPECT_FALSE(Art(dash).path()->closed());
        ArtObject* const open = madePath({{0, 0}, {10, 0}, {5, 8}, {0.6, 0}});
        closeClosePath(open, kJoin, kVariance, kHandles);
        EXPECT_FALSE(Art(open).path()->closed());
        closeClosePath(nullptr, kJoin, kVariance, kHandles);
    });
}

TEST_F(Concatenate, SelectedPathsBecomeOneWhicheverWayTheyRun) {
    easel::model::Document& document = desk.document();
    // Four sides of a square, drawn from the bottom of the stack up, two of them against the way round.
    for (const auto& side : {std::initializer_list<desk::Point>{{0, 0}, {10, 0}},
                             {{10, 10}, {10, 0}},
                             {{10, 10}, {0, 10}},
                             {{0, 0}, {0, 10}}})
        document.select(desk.addPath(side), true);
    desk.addPath({{10, 0}, {20, 0}}); // meets two of them, but is not selected
    const auto steps = document.journal().undoDepth();
    desk.inMessage([] { assimSelectedPaths(kJoin, kVariance, kHandles, 0); });
    ASSERT_EQ(desk.paths().size(), 2u);
    EXPECT_EQ(desk.anchors(*desk.paths()[1]).size(), 5u);
    EXPECT_EQ(document.journal().undoDepth(), steps + 1);
    desk.inMessage([] { testme(); });
    EXPECT_TRUE(desk.paths()[1]->path().closed);
    EXPECT_EQ(desk.anchors(*desk.paths()[1]).size(), 4u);
}

TEST_F(Concatenate, SelectedPathsJoinUntilNothingMeetsAndFits) {
    using Points = std::vector<desk::Point>;
    const Points hook{{100, 0}, {200, 0}, {200, 100}, {100, 100}}, straight{{0, 0}, {100, 0}};
    const Points whole{{0, 0}, {200, 0}, {200, 100}, {100, 100}};
    const struct {
        const char* what;
        std::vector<Points> paths; // the topmost first
        std::vector<Points> left;
    } rows[] = {
        {"a hook, and a line onto its start", {hook, straight}, {{whole.rbegin(), whole.rend()}}},
        {"a line, and a hook from its end", {straight, hook}, {whole}},
        {"a line back over another", {{{0, 0}, {10, 0}}, {{10, 0}, {4, 0}}}, {{{0, 0}, {10, 0}}, {{10, 0}, {4, 0}}}},
        {"a line whose end is as near to both ends of a ring",
         {{{-9, 0}, {0, 0}}, {{0, 0}, {5, 5}, {5, -5}, {0, 0}}},
         {{{-9, 0}, {0, 0}, {5, 5}, {5, -5}, {0, 0}}}},
        {"a line that fits a path only once another has taken its nearer end",
         {{{0, 0}, {10, 0}}, {{10, 0.25}, {5, 0.25}, {5, 20}, {0, 20}, {0, 0.5}}, {{10, 0.75}, {10, 30}}},
         {{{10, 0}, {0, 0.25}, {0, 20}, {5, 20}, {5, 0.25}, {10, 0.5}, {10, 30}}}},
    };
    for (const auto& row : rows) {
        easel::model::Document& document = desk.document();
        for (easel::model::Node* const path : desk.paths()) document.remove(*path);
        for (auto points = row.paths.rbegin(); points != row.paths.rend(); ++points) {
            std::vector<easel::model::PathPoint> corners;
            for (const desk::Point point : *points) corners.push_back(easel::model::cornerAt(point));
            document.select(addPath(document, document.currentLayer(), std::move(corners)), true);
        }
        desk.inMessage([] { assimSelectedPaths(kJoin, kVariance, kHandles, 0); });
        std::vector<Points> left;
        for (const easel::model::Node* const path : desk.paths()) left.push_back(desk.anchors(*path));
        EXPECT_EQ(left, row.left) << row.what;
    }
}

} // namespace
