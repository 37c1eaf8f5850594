// Crossings of the grid along axes, against trigonometry by hand and against a search through all crossings around.
#include <gmock/gmock.h>

#include <cmath>
#include <numbers>
#include <string>

#include "session/input/AxisGrid.h"

namespace {

using easel::model::Point;
using easel::session::AxisGrid;

double tangent(double degrees) { return std::tan(degrees * std::numbers::pi / 180); }

/// Of uprights so far apart, and of what climbs to the right and to the left from where they meet the page's top.
Point searched(Point place, double across, double right, double left) {
    Point best;
    double least = HUGE_VAL;
    for (int i = -80; i <= 80; ++i) {
        for (int j = -80; j <= 80; ++j) {
            const Point crossing{(i - j) * across, -across * (i * right + j * left)};
            const double distance = std::hypot(crossing.x - place.x, crossing.y - place.y);
            if (distance >= least) continue;
            least = distance;
            best = crossing;
        }
    }
    return best;
}

TEST(AxisGrid, FindsTheNearestCrossing) {
    for (const auto& [right, left] : {std::pair{30., 30.}, {42., 42.}, {7., 7.}, {15., 60.}, {80., 5.}}) {
        const AxisGrid grid({right, 180 - left, 90}, 10);
        const double across = 10 * std::cos(right * std::numbers::pi / 180);
        for (const Point place : {Point{0.4, -0.3}, {13, 57}, {-41.5, 18.25}, {99, -3}, {5, 5}}) {
            const Point found = grid.nearest(place);
            const Point expected = searched(place, across, tangent(right), tangent(left));
            EXPECT_NEAR(found.x, expected.x, 1e-9) << right << " " << left;
            EXPECT_NEAR(found.y, expected.y, 1e-9) << right << " " << left;
        }
        ASSERT_EQ(grid.lines().size(), 3U);
        EXPECT_NEAR(grid.lines()[2].apart, across, 1e-9); // uprights
        EXPECT_EQ(grid.lines()[2].direction.x, 0);
    }
    const AxisGrid square({0, 90}, 5);
    EXPECT_EQ(square.nearest({12.4, -7.6}), (Point{10, -10}));
    EXPECT_EQ(square.lines().size(), 2U);
}

TEST(AxisGrid, AxesThatAreAllButParallelMakeNone) {
    using Axes = std::vector<double>;
    for (const auto& axes : {Axes{}, {30}, {30, 210}, {30, 30.5}, {90, 150, 90}, {30, 150, 330}})
        EXPECT_TRUE(AxisGrid(axes, 10).isEmpty()) << testing::PrintToString(axes);
}

TEST(AxisGrid, HasNoLinesWhereNoPlacesCanBeTold) {
    for (const double spacing : {0.0, 1e-300, 1e300, HUGE_VAL, std::nan("")})
        EXPECT_TRUE(AxisGrid({30, 150, 90}, spacing).isEmpty()) << spacing;
}

} // namespace
