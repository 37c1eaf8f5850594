// The facade: every operation's neutral answers from one table, then what sharing, paths and hit tests mean.
#include <gmock/gmock.h>

#include <fstream>

#include "core/Art.h"
#include "core/CurrentDocument.h"
#include "core/Draw.h"
#include "core/HitData.h"
#include "core/Illustrator.h"
#include "core/Layer.h"
#include "core/Plugin.h"
#include "core/Tool.h"
#include "plugin/Art.h"
#include "plugin/BasePlugin.h"
#include "plugin/HostCall.h"
#include "support/Desk.h"
#include "tool/Plugin.h"

namespace {

using namespace kzo::core;
using desk::Desk;
using easel::model::Node;

/// One handle of each kind: all empty, or all on something for which every operation has a telling answer.
struct Handles {
    Art group;
    Art path; // the middle one of three in the group: closed, curved, selected, locked, hidden
    Layer layer;
    Tool tool;
    HitData hit;
};

struct Row {
    const char* name;
    bool (*neutral)(const Handles&);
    bool asksHost = true;
};

const Row rows[] = {
    {"Art::isEmpty", [](const Handles& h) { return h.path.isEmpty(); }, false},
    {"Art::aiArtHandle", [](const Handles& h) { return h.path.aiArtHandle() == nullptr; }, false},
    {"Art::valid", [](const Handles& h) { return !h.path.valid(); }},
    {"Art::artType", [](const Handles& h) { return h.path.artType() == ArtType::Unknown; }},
    {"Art::attribute", [](const Handles& h) { return !h.path.attribute(ArtAttribute::FullySelected); }},
    {"Art::selected", [](const Handles& h) { return !h.path.selected(); }},
    {"Art::locked", [](const Handles& h) { return !h.path.locked(); }},
    {"Art::hidden", [](const Handles& h) { return !h.path.hidden(); }},
    {"Art::parent", [](const Handles& h) { return h.path.parent() == nullptr; }},
    {"Art::firstChild", [](const Handles& h) { return h.group.firstChild() == nullptr; }},
    {"Art::sibling", [](const Handles& h) { return h.path.sibling() == nullptr; }},
    {"Art::priorSibling", [](const Handles& h) { return h.path.priorSibling() == nullptr; }},
    {"Art::begin", [](const Handles& h) { return h.group.begin().atEnd(); }},
    {"PathArt::segPointCount", [](const Handles& h) { return h.path.path()->segPointCount() == 0; }},
    {"PathArt::segCount", [](const Handles& h) { return h.path.path()->segCount() == 0; }},
    {"PathArt::closed", [](const Handles& h) { return !h.path.path()->closed(); }},
    {"PathArt::segPoints", [](const Handles& h) { return h.path.path()->segPoints(0, 4).empty(); }},
    {"PathArt::segPointClosestToPoint",
     [](const Handles& h) {
         return h.path.path()->segPointClosestToPoint({100, 60}) == 0;
     }},
    {"PathArt::length", [](const Handles& h) { return h.path.path()->length() == 0; }},
    {"PathArt::bezier", [](const Handles& h) { return h.path.path()->bezier(0) == nullptr; }},
    {"PathArt::setStyle", [](const Handles& h) { return !h.path.path()->setStyle({}); }},
    {"Layer::title", [](const Handles& h) { return h.layer.title().empty(); }},
    {"Layer::visible", [](const Handles& h) { return !h.layer.visible(); }},
    {"Layer::editable", [](const Handles& h) { return !h.layer.editable(); }},
    {"Layer::hasSelectedArt", [](const Handles& h) { return !h.layer.hasSelectedArt(); }},
    {"Layer::next", [](const Handles& h) { return h.layer.next() == nullptr; }},
    {"Layer::group", [](const Handles& h) { return h.layer.group() == nullptr; }},
    {"Tool::number", [](const Handles& h) { return h.tool.number() == -2; }},
    {"Tool::title", [](const Handles& h) { return h.tool.title().empty(); }},
    {"Tool::tip", [](const Handles& h) { return h.tool.tip().empty(); }},
    {"Tool::options", [](const Handles& h) { return h.tool.options() == ToolOptions::None; }},
    {"Tool::selected", [](const Handles& h) { return !h.tool.selected(); }},
    {"Tool::lightIconID", [](const Handles& h) { return h.tool.lightIconID() == 0; }, false},
    {"Tool::shiftKeyDown", [](const Handles& h) { return !h.tool.shiftKeyDown(); }},
    {"Tool::mouseDownCallback", [](const Handles& h) { return h.tool.mouseDownCallback() == nullptr; }, false},
    {"Tool::cursorHitData",
     [](const Handles& h) {
         return [](const auto& hit) { return !hit || !hit->hit(); }(h.tool.cursorHitData(HitRequest::Everything, 2));
     }},
    {"HitData::hit", [](const Handles& h) { return !h.hit.hit(); }, false},
    {"HitData::hitType", [](const Handles& h) { return h.hit.hitType() == HitType::None; }, false},
    {"HitData::art", [](const Handles& h) { return h.hit.art() == nullptr; }, false},
    {"HitData::inGroup", [](const Handles& h) { return !h.hit.inGroup(); }, false},
    {"HitData::segPointIndex", [](const Handles& h) { return h.hit.segPointIndex() == -1; }, false},
};

class Facade : public testing::Test {
  protected:
    /// Runs `work` with handles on real objects.
    void withHandles(const std::function<void(Handles&)>& work) {
        desk.selectTool();
        desk.session().pointer.setModifiers(kAIShiftKey);
        desk.document().addLayer("Above");
        desk.document().select(pathNode, true);
        desk.inMessage([&] {
            const auto document = Illustrator::instance()->currentDocument();
            Handles live;
            live.layer = *document->layerAtIndex(0);
            live.tool = ortho::Plugin::instance()->lineTool();
            const auto lower = document->layerAtIndex(1)->group();
            live.group = *lower->firstChild();
            live.path = *live.group.firstChild()->sibling();
            live.hit = HitData(nullptr, {100, 60}, HitRequest::Everything, 1, false);
            live.tool.setCursorLoc({100, 60});
            Node& marked = *desk.document().find(pathNode.id());
            desk.document().setLocked(marked, true);
            desk.document().setHidden(marked, true);
            // The upper layer holds a copy of nothing but a selected line and the hit's target stays below.
            const auto line = draw::line({0, 0}, {10, 10}, live.layer.group().get());
            line->select();
            work(live);
        });
    }

    Node& addTo(Node& group, const std::vector<desk::Point>& points, bool closed) {
        auto& document = desk.document();
        Node& path = document.create(easel::model::NodeType::Path, easel::model::Placement::AtBottomInside, group);
        easel::model::PathData data{.points = {}, .closed = closed};
        for (const auto point : points) data.points.push_back({point, point, point, true});
        document.setPath(path, std::move(data));
        return path;
    }

    Desk desk;
    Node& groupNode = desk.document().create(easel::model::NodeType::Group, easel::model::Placement::OnTopInside,
                                             desk.document().currentLayer());
    Node& topNode = addTo(groupNode, {{100, 60}, {300, 60}}, false);
    Node& pathNode = addTo(groupNode, {{100, 20}, {100, 60}, {140, 60}}, true);
    Node& lowNode = addTo(groupNode, {{1, 1}, {2, 2}}, false);
};

TEST_F(Facade, AnswersNeutrallyWhenEmptyRefusedOrWithoutSuite) {
    const Handles empty;
    for (const Row& row : rows) EXPECT_TRUE(row.neutral(empty)) << row.name << " of an empty handle";
    withHandles([&](Handles& live) {
        auto& monitor = kzo::plugin::host::monitor();
        // Only what tells something can be checked for telling nothing.
        for (const Row& row : rows) EXPECT_FALSE(row.neutral(live)) << row.name;
        for (const Row& row : rows) {
            monitor.reset(1);
            const bool neutral = row.neutral(live);
            EXPECT_EQ(monitor.calls() > 0, row.asksHost) << row.name;
            EXPECT_TRUE(neutral || !row.asksHost) << row.name << " with its call refused";
        }
        monitor.reset();
        kzo::plugin::host::releaseAll();
        desk.tables().each([](auto& suite) { suite.available = false; });
        for (const Row& row : rows) EXPECT_TRUE(!row.asksHost || row.neutral(live)) << row.name << " without its suite";
        desk.tables().each([](auto& suite) { suite.available = true; });
        for (const Row& row : rows) EXPECT_FALSE(row.neutral(live)) << row.name << " once the suite is back";
    });
}

TEST_F(Facade, WithoutADocumentHasNothingToShow) {
    desk.session().close();
    desk.inMessage([&] {
        EXPECT_EQ(Illustrator::instance()->currentDocument(), nullptr);
        CurrentDocument document;
        EXPECT_EQ(document.layerCount(), 0);
        EXPECT_EQ(document.currentLayer(), nullptr);
        EXPECT_EQ(document.firstLayer(), nullptr);
        EXPECT_TRUE(document.selectedArt()->empty());
        EXPECT_FALSE(document.anyArtSelected());
        EXPECT_EQ(document.zoom(), 1);
        document.deselectAllArt();
        EXPECT_TRUE(HitData(nullptr, {1, 1}, HitRequest::Everything, 5, true).isEmpty());
        EXPECT_EQ(draw::line({0, 0}, {1, 1}), nullptr);
        EXPECT_TRUE(Art(ArtType::Group, PaintOrder::AboveAll).isEmpty());
    });
}

// Sharing

TEST_F(Facade, HandlesOfOneObjectAreOneUntilItIsDisposedOf) {
    using Map = kzo::plugin::ArtMap;
    EXPECT_FALSE(Map::exists());
    desk.inMessage([&] {
        EXPECT_EQ(Art(), Art());
        const auto line = draw::line({0, 0}, {10, 0});
        Art copy = *line;
        const Art separate(line->aiArtHandle());
        EXPECT_EQ(separate, copy);
        EXPECT_FALSE(copy == Art());
        copy = copy; // NOLINT(clang-diagnostic-self-assign-overloaded): sharing must survive it
        EXPECT_FALSE(copy.isEmpty());
        EXPECT_TRUE(copy.dispose());
        EXPECT_TRUE(line->isEmpty());
        EXPECT_TRUE(separate.isEmpty());
        EXPECT_FALSE(separate.valid());
        EXPECT_FALSE(copy.dispose());
        const Art later = *line; // shares the emptied object
        EXPECT_TRUE(later.isEmpty());
    });
    EXPECT_FALSE(Map::exists()); // the last handle took the map along
    desk.inMessage([&] { EXPECT_FALSE(draw::line({0, 0}, {10, 0})->isEmpty()); });
}

TEST_F(Facade, AHandleMadeAnewOnWhatUndoBroughtBackIsAlive) {
    ArtObject* handle = nullptr;
    Art kept;
    desk.inMessage([&] {
        kept = *draw::line({0, 0}, {10, 0});
        handle = kept.aiArtHandle();
    });
    desk.inMessage([&] { kept.dispose(); });
    EXPECT_TRUE(desk.document().journal().undo());
    desk.inMessage([&] {
        const Art again(handle);
        EXPECT_EQ(again.path()->segPointCount(), 2);
        EXPECT_EQ(kept, again);
    });
}

TEST_F(Facade, ListsSelectionAndChildrenInOrder) {
    desk.inMessage([&] {
        CurrentDocument& document = *Illustrator::instance()->currentDocument();
        EXPECT_TRUE(document.selectedArt()->empty());
        const auto group = document.firstLayer()->group()->firstChild();
        std::vector<ArtObject*> children;
        for (auto at = group->begin(); !at.atEnd(); ++at) children.push_back(at.art()->aiArtHandle());
        ASSERT_EQ(children.size(), 3u);
        Art(children[2]).select();
        Art(children[0]).select();
        EXPECT_TRUE(document.anyArtSelected());
        const auto selected = document.selectedArt();
        ASSERT_EQ(selected->size(), 2u);
        EXPECT_EQ((*selected)[0].aiArtHandle(), children[0]);
        EXPECT_EQ((*selected)[1].aiArtHandle(), children[2]);
        document.deselectAllArt();
        EXPECT_FALSE(document.anyArtSelected());
    });
    EXPECT_EQ(desk.session().memory.blocksInUse(), 0u);
}

// Paths

TEST_F(Facade, CountsSegmentsAndClampsIndices) {
    withHandles([&](Handles& live) {
        PathArt* const closed = live.path.path();
        EXPECT_EQ(closed->segPointCount(), 3);
        EXPECT_EQ(closed->segCount(), 3);
        EXPECT_EQ(closed->segPoints(-5, 2).front().p, ArtboardPoint(100, 20));
        EXPECT_EQ(closed->segPoints(9, 9).size(), 1u); // the last point, and no more than there is
        EXPECT_EQ(closed->segPoints(0, -1).size(), 0u);
        EXPECT_EQ(closed->bezier(99)->endPoint(), ArtboardPoint(100, 20)); // the closing segment
        closed->setSegCount(4);
        EXPECT_EQ(closed->segPointCount(), 4);
        closed->setClosed(false);
        EXPECT_EQ(closed->segCount(), 3);
        closed->setSegCount(4);
        EXPECT_EQ(closed->segPointCount(), 5);
        closed->setSegPointCount(1);
        EXPECT_EQ(closed->segCount(), 0);
        EXPECT_EQ(closed->bezier(0), nullptr);
        closed->setSegPointCount(0);
        EXPECT_EQ(closed->segCount(), 0);
        // Equally near: the lower index
        const auto tie = draw::line({0, 0}, {20, 0});
        EXPECT_EQ(tie->path()->segPointClosestToPoint({10, 3}), 0);
        ArtboardPoint first;
        ArtboardPoint last;
        tie->path()->endPoints(first, last);
        EXPECT_EQ(last, ArtboardPoint(20, 0));
        // A group is no path, whatever is asked of it
        live.group.path()->setSegPointCount(3);
        live.group.path()->reverseSegs();
        EXPECT_EQ(live.group.path()->segPointCount(), 0);
    });
}

// Hit tests

TEST_F(Facade, HitDataTellsWhereOnThePathThePointIs) {
    const Node& open = desk.addPath({{10, 100}, {20, 100}, {30, 100}, {40, 100}});
    desk.inMessage([&] {
        const auto at = [](double x, double y, double tolerance) {
            return HitData(nullptr, {x, y}, HitRequest::AnchorsAndSegments, tolerance, false);
        };
        const HitData first = at(10, 101, -2); // the sign of a tolerance says nothing
        EXPECT_EQ(first.hitType(), HitType::Anchor);
        EXPECT_EQ(first.point(), ArtboardPoint(10, 101)); // the point tested, not the anchor
        EXPECT_EQ(first.segIndex(), 0);
        EXPECT_EQ(first.tValue(), 9.999999999999999e-05);
        EXPECT_FALSE(first.inGroup());
        const HitData last = at(40, 100, 1);
        EXPECT_EQ(last.segPointIndex(), 3);
        EXPECT_EQ(last.segIndex(), 2);
        EXPECT_EQ(last.tValue(), 0.9999);
        EXPECT_EQ(at(20, 100, 1).tValue(), 0);
        const HitData segment = at(25, 100.5, 1);
        EXPECT_EQ(segment.hitType(), HitType::Segment);
        EXPECT_EQ(segment.segPointIndex(), 1);
        EXPECT_EQ(segment.segIndex(), 1);
        EXPECT_NEAR(segment.tValue(), 0.5, 1e-9);
        const HitData member = at(200, 60, 1);
        EXPECT_TRUE(member.inGroup());
        EXPECT_EQ(member.art()->artType(), ArtType::Path);
        const HitData corner = at(140, 60, 1); // of a closed path below a segment: an anchor comes first
        EXPECT_EQ(corner.segIndex(), 2);
        EXPECT_EQ(corner.tValue(), 0);
        ArtboardPoint moved(25, 100.5);
        EXPECT_FALSE(segment.snapForHitType(HitType::Anchor, moved));
        EXPECT_EQ(moved, ArtboardPoint(25, 100.5));
        EXPECT_TRUE(segment.snapForHit(moved));
        EXPECT_TRUE(moved.closeTo({25, 100}, 1e-9));
        EXPECT_TRUE(first.snapForHitType(HitType::Anchor, moved));
        EXPECT_EQ(moved, ArtboardPoint(10, 100));
        EXPECT_EQ(last.bezier()->startPoint(), ArtboardPoint(30, 100));
        const HitData nothing = at(500, 500, 5);
        EXPECT_FALSE(nothing.snapForHit(moved));
        EXPECT_EQ(nothing.bezier(), nullptr);
        EXPECT_FALSE(nothing.isEmpty());
        EXPECT_FALSE(nothing.hit());
        EXPECT_EQ(nothing.segIndex(), -1);
    });
    EXPECT_EQ(open.path().points.size(), 4u);
}

TEST_F(Facade, HitDataStaysAsItWasWhateverBecomesOfTheArt) {
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

TEST_F(Facade, HitDataSearchesAClipGroupThroughItsMask) {
    const std::string file = testing::TempDir() + "clip-group.svg";
    std::ofstream(file) << R"svg(<svg xmlns="http://www.w3.org/2000/svg" width="100" height="100">
        <clipPath id="c"><rect width="50" height="100"/></clipPath>
        <g clip-path="url(#c)"><path d="M 10 20 H 90"/></g></svg>)svg";
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

TEST_F(Facade, HitDataOfTextHasItsRangeAndNoIndices) {
    static const auto text = reinterpret_cast<AITextRangeRef>(std::uintptr_t{0x77});
    auto& entry = desk.tables().hitTest.table.HitTest;
    desk.inMessage([&] {
        const auto hit = [] { return HitData(nullptr, {100, 60}, HitRequest::Everything, 1, false); };
        EXPECT_EQ(hit().textRange(), nullptr);
        const auto kept = entry;
        entry = [](AIArtHandle art, const AIRealPoint*, AIReal, std::int32_t, AIHitRecord* record) -> AIErr {
            *record = {};
            record->type = kAIAnchorHit;
            record->art = art;
            record->textRange = text;
            return kNoErr;
        };
        EXPECT_EQ(hit().textRange(), text);
        EXPECT_EQ(hit().segPointIndex(), -1);
        EXPECT_EQ(hit().segIndex(), -1);
        EXPECT_EQ(hit().tValue(), 0);
        entry = kept;
    });
}

// Tools

TEST_F(Facade, ToolsStandBesideTheToolsTheyName) {
    desk.inMessage([&] {
        const Tool first = ortho::Plugin::instance()->lineTool();
        const Tool second(first, &first, "Second", "tip", 1, 2, ToolOptions::TrackCursor);
        const Tool third(first, nullptr, "Third", "tip", 1, 2, ToolOptions::None);
        const Tool alone(Tool(), &first, "Alone", "tip", 1, 2, ToolOptions(0x1FF));
        const Tool fourth(-7, -2, "Fourth", "tip", 1, 2, ToolOptions::None); // any negative group is a new one
        const auto known = [&](const Tool& tool) { return desk.session().toolbox.find(tool.aiToolHandle()); };
        const auto place = [&](const Tool& tool) { return std::pair(known(tool)->group, known(tool)->toolset); };
        EXPECT_EQ(place(second), std::pair(first.number(), first.number()));
        EXPECT_EQ(place(third), std::pair(first.number(), third.number()));
        EXPECT_EQ(place(alone), std::pair(alone.number(), alone.number()));
        EXPECT_EQ(place(fourth), std::pair(fourth.number(), fourth.number()));
        using enum BuiltinTool;
        const auto own = [&](const char* name) { return desk.session().toolbox.findByName(name)->number; };
        const Tool beside(Selection, DirectSelection, "Beside", "tip", 1, 2, ToolOptions::None);
        const Tool near(DirectSelection, std::nullopt, "Near", "tip", 1, 2, ToolOptions::None);
        EXPECT_EQ(place(beside), std::pair(own("Selection Tool"), own("Direct Selection Tool")));
        EXPECT_EQ(place(near), std::pair(own("Direct Selection Tool"), near.number()));
        for (const BuiltinTool lacking : {Zoom, BuiltinTool(15), BuiltinTool(0), BuiltinTool(-10), BuiltinTool(150)}) {
            Tool apart(lacking, Selection, "Apart", "tip", 1, 2, ToolOptions::None);
            EXPECT_EQ(place(apart), std::pair(apart.number(), apart.number()));
            apart.destroy();
        }
        EXPECT_EQ(known(second)->name, "Ortholine Tool Second");
        EXPECT_EQ(alone.options(), ToolOptions(0xFF)); // bits the host does not have are dropped
        EXPECT_TRUE(Tool(first, nullptr, "Second", "the same name", 1, 2, ToolOptions::None).isEmpty());
        Tool copy = second;
        copy.setTitle("Renamed");
        EXPECT_EQ(second.title(), "Renamed");
        copy.destroy();
        EXPECT_TRUE(second.isEmpty());
    });
}

} // namespace
