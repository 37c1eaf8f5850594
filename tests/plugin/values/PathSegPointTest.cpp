// Values against the host's records, field by field.
#include <gtest/gtest.h>

#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardSegPoint.h"
#include "hostapi/AIPathSuite.h"
#include "hostapi/SPTypes.h"
#include "plugin/values/ArtboardPoint.h"
#include "plugin/values/ArtboardRect.h"
#include "plugin/values/PathSegPoint.h"

namespace {

using kzo::core::ArtboardSegPoint;
using kzo::plugin::ArtboardPoint;
using kzo::plugin::ArtboardRect;
using kzo::plugin::PathSegPoint;

TEST(PathSegPoint, PointsAndRectsKeepTheHostsAxes) {
    const AIRealPoint host = {3, -4};
    ArtboardPoint point;
    point = host;
    EXPECT_EQ(point, ArtboardPoint(3, -4));
    EXPECT_EQ(kzo::core::ArtboardPoint(host), kzo::core::ArtboardPoint(3, -4));
    const ArtboardRect rect(AIRealRect{1, 2, 3, 4}); // left, top, right, bottom
    EXPECT_EQ(rect, ArtboardRect(1, 2, 3, 4));
    EXPECT_EQ(rect.toAIRealRect().top, 2);
    EXPECT_EQ(rect.toAIRealRect().right, 3);
}

TEST(PathSegPoint, GoesToTheHostAndBack) {
    const AIPathSegment host = {{1, 2}, {3, 4}, {5, 6}, 1}; // p, in, out, corner
    const ArtboardSegPoint point{PathSegPoint(host)};
    EXPECT_EQ(point, ArtboardSegPoint({1, 2}, {3, 4}, {5, 6}, true));
    const AIPathSegment back = point.impl().toAIPathSegment();
    EXPECT_EQ(back.p.h, 1);
    EXPECT_EQ(back.in.v, 4);
    EXPECT_EQ(back.out.h, 5);
    EXPECT_EQ(back.corner, 1);
}

TEST(PathSegPoint, EqualsInEveryMember) {
    const ArtboardSegPoint point({1, 2}, true);
    EXPECT_EQ(point, ArtboardSegPoint({1, 2}, {1, 2}, {1, 2}, true)) << "both handles start retracted";
    EXPECT_NE(point, ArtboardSegPoint({1, 2}, false));
    EXPECT_NE(point, ArtboardSegPoint({1, 2}, {1, 2}, {9, 2}, true));
    EXPECT_EQ(ArtboardSegPoint(), ArtboardSegPoint({0, 0}, false));
}

} // namespace
