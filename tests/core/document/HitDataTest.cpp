// What a hit test tells: the feature, its place on the path, and that it stays as it was.
#include "core/document/HitData.h"

#include <gmock/gmock.h>

#include "core/app/Illustrator.h"
#include "core/document/Art.h"
#include "core/document/PathArt.h"
#include "core/values/Bezier.h"
#include "support/Desk.h"
#include "support/Folder.h"

namespace {

using namespace kzo::core;
using easel::model::Node;

class HitDatas : public testing::Test {
  protected:
    HitDatas() { desk.session().start(); }

    desk::Desk desk;
    Node& groupNode = desk.document().create(easel::model::NodeType::Group, easel::model::Placement::OnTopInside,
                                             desk.document().currentLayer());
    Node& pathNode = desk.addPath({{100, 20}, {100, 60}, {140, 60}}, true, &groupNode);
    Node& topNode = desk.addPath({{100, 60}, {300, 60}}, false, &groupNode);
};

TEST_F(HitDatas, TellWhereOnThePathThePointIs) {
    desk.addPath({{10, 100}, {20, 100}, {30, 100}, {40, 100}});
    desk.inMessage([&] {
        const auto at = [](double x, double y, double tolerance) {
            return HitData(nullptr, {x, y}, HitRequest::AnchorsAndSegments, tolerance, false);
        };
        struct Place {
            HitData hit;
            HitType type;
            std::int16_t point, segment;
            double t;
            bool inGroup;
        };
        constexpr auto anchor = HitType::Anchor;
        const Place found[] = {
            {at(10, 101, -2), anchor, 0, 0, 9.999999999999999e-05, false}, // the sign of a tolerance says nothing
            {at(40, 100, 1), anchor, 3, 2, 0.9999, false},
            {at(20, 100, 1), anchor, 1, 1, 0, false},
            {at(25, 100.5, 1), HitType::Segment, 1, 1, 0.5, false},
            {at(200, 60, 1), HitType::Segment, 0, 0, 0.5, true},
            {at(140, 60, 1), anchor, 2, 2, 0, true}, // of a closed path below a segment: an anchor comes first
        };
        for (const Place& row : found) {
            SCOPED_TRACE(row.hit.point().x());
            EXPECT_EQ(row.hit.hitType(), row.type);
            EXPECT_EQ(row.hit.segPointIndex(), row.point);
            EXPECT_EQ(row.hit.segIndex(), row.segment);
            EXPECT_NEAR(row.hit.tValue(), row.t, row.t == 0.5 ? 1e-9 : 0);
            EXPECT_EQ(row.hit.inGroup(), row.inGroup);
            EXPECT_EQ(row.hit.art()->artType(), ArtType::Path);
        }
        const HitData &first = found[0].hit, &segment = found[3].hit;
        EXPECT_EQ(first.point(), ArtboardPoint(10, 101)); // the point tested, not the anchor
        ArtboardPoint moved(25, 100.5);
        EXPECT_FALSE(segment.snapForHitType(HitType::Anchor, moved));
        EXPECT_EQ(moved, ArtboardPoint(25, 100.5));
        EXPECT_TRUE(segment.snapForHit(moved));
        EXPECT_TRUE(moved.closeTo({25, 100}, 1e-9));
        EXPECT_TRUE(first.snapForHitType(HitType::Anchor, moved));
        EXPECT_EQ(moved, ArtboardPoint(10, 100));
        EXPECT_EQ(found[1].hit.bezier()->startPoint(), ArtboardPoint(30, 100));
        const HitData miss = at(500, 500, 5);
        EXPECT_FALSE(miss.snapForHit(moved));
        EXPECT_EQ(miss.bezier(), nullptr);
        EXPECT_FALSE(miss.isEmpty());
        EXPECT_FALSE(miss.hit());
        EXPECT_EQ(miss.segIndex(), -1);
    });
}

TEST_F(HitDatas, StayAsTheyWereWhateverBecomesOfTheArt) {
    desk.addPath({{10, 100}, {20, 100}, {30, 100}});
    desk.addPath({{500, 500}});
    desk.inMessage([&] {
        const auto at = [](double x, double y, const Art* art) {
            return HitData(art, {x, y}, HitRequest::Everything, 1, false);
        };
        const HitData last = at(30, 100, nullptr);
        const auto art = last.art();
        art->path()->setSegPointCount(1);
        art->path()->setClosed(true);
        EXPECT_EQ(last.segIndex(), 1);
        EXPECT_EQ(last.tValue(), 0.9999);
        EXPECT_EQ(last.bezier()->startPoint(), ArtboardPoint(20, 100));
        const HitData only = at(500, 500, nullptr); // of an open path with one point
        EXPECT_EQ(only.segIndex(), -1);
        EXPECT_EQ(only.tValue(), 9.999999999999999e-05);
        EXPECT_EQ(only.bezier(), nullptr);
        EXPECT_FALSE(at(500, 500, art.get()).hit()); // only the art given is searched
        EXPECT_FALSE(at(500, 500, art.get()).isEmpty());
        const Art none;
        EXPECT_TRUE(at(500, 500, &none).isEmpty());
    });
}

TEST_F(HitDatas, SearchAClipGroupThroughItsMask) {
    const desk::Folder folder;
    const std::string file =
        folder.write("clip-group.svg", R"svg(<svg xmlns="http://www.w3.org/2000/svg" width="100" height="100">
        <clipPath id="c"><rect width="50" height="100"/></clipPath>
        <g clip-path="url(#c)"><path d="M 10 20 H 90"/></g></svg>)svg");
    desk.session().open(file);
    desk.inMessage([&] {
        const auto group = Illustrator::instance()->currentDocument()->firstLayer()->group()->firstChild();
        EXPECT_TRUE(group->attribute(ArtAttribute::Clipped));
        EXPECT_FALSE(group->firstChild()->attribute(ArtAttribute::Clipped));
        for (const Art* const art : std::initializer_list<const Art*>{group.get(), nullptr}) {
            EXPECT_TRUE(HitData(art, {40, 20}, HitRequest::Everything, 1, false).hit());
            EXPECT_FALSE(HitData(art, {90, 20}, HitRequest::Everything, 1, false).hit());
        }
    });
}

TEST_F(HitDatas, OfTextHaveItsRangeAndNoIndices) {
    static int range = 0;
    static const auto text = reinterpret_cast<AITextRangeRef>(&range);
    static std::int16_t segment;
    auto& entry = desk.tables().get<AIHitTestSuite>().HitTest;
    for (const int index : {0, -1})
        desk.inMessage([&] {
            segment = static_cast<std::int16_t>(index);
            entry = [](AIArtHandle art, const AIRealPoint*, AIReal, std::int32_t, AIHitRecord* record) -> AIErr {
                *record = {};
                record->type = kAIAnchorHit;
                record->art = art;
                record->segment = segment;
                record->t = 0.5;
                record->textRange = text;
                return kNoErr;
            };
            const HitData hit(nullptr, {100, 60}, HitRequest::Everything, 1, false);
            EXPECT_EQ(hit.textRange(), text);
            EXPECT_TRUE(hit.segPointIndex() == -1 && hit.segIndex() == -1);
            EXPECT_EQ(hit.tValue(), 0);
        });
}

} // namespace
