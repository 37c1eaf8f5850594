// The facade: every operation's neutral answers from one table, then what sharing, paths and hit tests mean.
#include <gmock/gmock.h>

#include <fstream>
#include <tuple>

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "core/document/Art.h"
#include "core/document/CurrentDocument.h"
#include "core/document/Draw.h"
#include "core/document/HitData.h"
#include "core/document/Layer.h"
#include "core/frame/AnnotationDrawer.h"
#include "core/frame/Annotator.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/MenuGroup.h"
#include "core/frame/Timer.h"
#include "core/frame/Tool.h"
#include "places/Places.h"
#include "plugin/document/Art.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/MenuGroup.h"
#include "plugin/frame/ThirdPartyPlugin.h"
#include "plugin/host/HostCall.h"
#include "support/Desk.h"
#include "support/Receiver.h"
#include "tool/Plugin.h"

namespace {

using namespace kzo::core;
using desk::Desk;
using desk::Receiver;
using easel::model::Node;

/// One handle of each kind: all empty, or all on something for which every operation has a telling answer. The art is
/// the middle one of three paths in the group: closed, curved, selected, locked, hidden.
struct Handles : std::tuple<Art, Layer, Tool, HitData, MenuGroup, MenuItem, Timer, Annotator, ThirdPartyPlugin> {
    Art group;
    MenuItem divider;

    template <class Class> [[nodiscard]] const Class& on() const { return std::get<Class>(*this); }
    template <class Class> [[nodiscard]] Class& on() { return std::get<Class>(*this); }
};
template <> const PathArt& Handles::on<PathArt>() const { return *on<Art>().path(); }

struct Row {
    const char* name;
    bool (*neutral)(const Handles&);
    bool asksHost = true;
};

template <class Class, class Answer> Answer answerOf(const Handles& handles, Answer (Class::*query)() const) {
    return (handles.on<Class>().*query)();
}

/// What is empty, null, false or 0.
struct Nothing {
} constexpr nothing;

template <auto neutral, auto query> bool isNeutral(const Handles& handles) {
    const auto answer = answerOf(handles, query);
    if constexpr (!std::is_same_v<std::remove_cv_t<decltype(neutral)>, Nothing>)
        return answer == neutral;
    else if constexpr (requires { answer.isEmpty(); })
        return answer.isEmpty();
    else if constexpr (requires { answer.empty(); })
        return answer.empty();
    else
        return answer == decltype(answerOf(handles, query))();
}

template <bool asksHost, auto neutral, auto query> Row row() {
    return {__PRETTY_FUNCTION__, isNeutral<neutral, query>, asksHost};
}
template <auto neutral, auto... queries> void asks(std::vector<Row>& rows) {
    (rows.push_back(row<true, neutral, queries>()), ...);
}
template <auto neutral, auto... queries> void knows(std::vector<Row>& rows) {
    (rows.push_back(row<false, neutral, queries>()), ...);
}

std::vector<Row> allRows() {
    std::vector<Row> all = {
        {"Art::attribute", [](const Handles& h) { return !h.on<Art>().attribute(ArtAttribute::FullySelected); }},
        {"Art::firstChild", [](const Handles& h) { return h.group.firstChild() == nullptr; }},
        {"Art::begin", [](const Handles& h) { return h.group.begin().atEnd(); }},
        {"PathArt::segPoints", [](const Handles& h) { return h.on<PathArt>().segPoints(0, 4).empty(); }},
        {"PathArt::segPointClosestToPoint",
         [](const Handles& h) { return h.on<PathArt>().segPointClosestToPoint(ArtboardPoint(100, 60)) == 0; }},
        {"PathArt::bezier", [](const Handles& h) { return h.on<PathArt>().bezier(0) == nullptr; }},
        {"PathArt::setStyle", [](const Handles& h) { return !h.on<Art>().path()->setStyle(PathStyle()); }},
        {"Tool::cursorHitData",
         [](const Handles& h) {
             const auto hit = h.on<Tool>().cursorHitData(HitRequest::Everything, 2);
             return !hit || !hit->hit();
         }},
        {"MenuItem::isDivider", [](const Handles& h) { return !h.divider.isDivider(); }}};
    knows<true, &Art::isEmpty, &MenuGroup::isEmpty, &MenuItem::isEmpty, &Timer::isEmpty, &Annotator::isEmpty,
          &ThirdPartyPlugin::isEmpty>(all);
    knows<nothing, &Art::aiArtHandle>(all);
    asks<nothing, &Art::valid, &Art::artType, &Art::selected, &Art::locked, &Art::hidden, &Art::parent, &Art::sibling,
         &Art::priorSibling>(all);
    asks<nothing, &PathArt::segPointCount, &PathArt::segCount, &PathArt::closed, &PathArt::length>(all);
    asks<nothing, &Layer::title, &Layer::visible, &Layer::editable, &Layer::hasSelectedArt, &Layer::next,
         &Layer::group>(all);
    asks<nothing, &Tool::title, &Tool::tip, &Tool::options, &Tool::selected, &Tool::shiftKeyDown>(all);
    asks<-2, &Tool::number>(all);
    knows<nothing, &Tool::lightIconID, &Tool::mouseDownCallback>(all);
    knows<nothing, &HitData::hit, &HitData::hitType, &HitData::art, &HitData::inGroup>(all);
    knows<-1, &HitData::segPointIndex>(all);
    knows<nothing, &MenuGroup::aiMenuGroup>(all);
    asks<nothing, &MenuGroup::aiMenuItemHandle, &MenuGroup::text, &MenuGroup::enabled, &MenuGroup::sorted,
         &MenuGroup::isPartial, &MenuGroup::parent, &MenuGroup::children>(all);
    knows<nothing, &MenuItem::aiMenuItemHandle, &MenuItem::callback>(all);
    asks<nothing, &MenuItem::text, &MenuItem::enabled, &MenuItem::checked, &MenuItem::parent>(all);
    knows<nothing, &Timer::aiTimerHandle, &Timer::callback>(all);
    asks<nothing, &Timer::name, &Timer::delay, &Timer::active>(all);
    knows<nothing, &Annotator::aiAnnotatorHandle, &Annotator::callback>(all);
    asks<nothing, &Annotator::name, &Annotator::options, &Annotator::active>(all);
    knows<nothing, &ThirdPartyPlugin::spPluginRef>(all);
    asks<nothing, &ThirdPartyPlugin::name, &ThirdPartyPlugin::fileName, &ThirdPartyPlugin::filePath,
         &ThirdPartyPlugin::options, &ThirdPartyPlugin::started>(all);
    asks<true, &ThirdPartyPlugin::broken>(all);
    return all;
}

const std::vector<Row> rows = allRows();

class Facade : public testing::Test {
  protected:
    Facade() {
        other.options = 2 | 4 | 64; // the third has no name with us
        desk.session().start();
    }

    [[nodiscard]] static MenuGroup newGroup() {
        return {BuiltinMenuGroup::Preferences, "Group", true, true, true, false};
    }

    /// Runs `work` with handles on real objects.
    void withHandles(const std::function<void(Handles&)>& work) {
        desk.selectTool();
        desk.session().pointer.setModifiers(kAIShiftKey);
        desk.document().addLayer("Above");
        desk.document().select(pathNode, true);
        desk.inMessage([&] {
            const auto document = Illustrator::instance()->currentDocument();
            Handles live;
            live.on<Layer>() = *document->layerAtIndex(0);
            live.on<Tool>() = ortho::Plugin::instance()->lineTool();
            const auto lower = document->layerAtIndex(1)->group();
            live.group = *lower->firstChild();
            live.on<Art>() = *live.group.firstChild()->sibling();
            live.on<HitData>() = HitData(nullptr, {100, 60}, HitRequest::Everything, 1, false);
            live.on<Tool>().setCursorLoc({100, 60});
            live.on<MenuGroup>() = newGroup();
            live.divider = MenuItem::Divider(live.on<MenuGroup>());
            live.on<MenuItem>() = MenuItem(live.on<MenuGroup>(), "Item", receiver.callback());
            live.on<MenuItem>().setChecked(true);
            live.on<Timer>() = Timer("Timer", 0.5, receiver.callback());
            live.on<Annotator>() = Annotator("Marks", receiver.callback());
            live.on<Annotator>().setOptions(Annotator::Options::Second);
            live.on<ThirdPartyPlugin>() = Illustrator::instance()->allPlugins()["Answering"];
            Node& marked = *desk.document().find(pathNode.id());
            desk.document().setLocked(marked, true);
            desk.document().setHidden(marked, true);
            // The upper layer holds a copy of nothing but a selected line and the hit's target stays below.
            const auto line = draw::line({0, 0}, {10, 10}, live.on<Layer>().group().get());
            line->select();
            work(live);
        });
    }

    Receiver receiver;
    Desk desk;
    easel::session::Plugin& other = desk.session().plugins.load(std::string(TEST_BUILD_DIR) + "/Answering.aip");
    Node& groupNode = desk.document().create(easel::model::NodeType::Group, easel::model::Placement::OnTopInside,
                                             desk.document().currentLayer());
    Node& lowNode = desk.addPath({{1, 1}, {2, 2}}, false, &groupNode);
    Node& pathNode = desk.addPath({{100, 20}, {100, 60}, {140, 60}}, true, &groupNode);
    Node& topNode = desk.addPath({{100, 60}, {300, 60}}, false, &groupNode);
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
        EXPECT_TRUE(newGroup().isEmpty());
        EXPECT_TRUE(MenuItem(BuiltinMenuGroup::Edit, "x", receiver.callback()).isEmpty());
        EXPECT_TRUE(Timer("x", 1, receiver.callback()).isEmpty());
        EXPECT_TRUE(Annotator("x", receiver.callback()).isEmpty());
        EXPECT_FALSE(Plugin::instance()->dispatcher()->scheduleCallback(receiver.callback(), 1));
        EXPECT_EQ(Illustrator::instance()->menuGroupCount(), 0u);
        EXPECT_TRUE(Illustrator::instance()->allPlugins().empty());
        desk.tables().each([](auto& suite) { suite.available = true; });
        for (const Row& row : rows) EXPECT_FALSE(row.neutral(live)) << row.name << " once the suite is back";
    });
}

TEST_F(Facade, IsEmptyAfterShutDownAndAsksTheHostNothing) {
    Handles kept;
    MenuItem foreign;
    withHandles([&](Handles& live) {
        kept = live;
        kept.on<Art>() = kept.group = Art(); // these are the document's
        kept.on<Layer>() = Layer();
        kept.on<HitData>() = HitData(); // and this keeps what it found
        // A timer that is not registered any more was left running, and its handle called the host after shut-down.
        Plugin::instance()->dispatcher()->unregisterTimer(kept.on<Timer>());
        foreign = MenuItem(kept.on<MenuGroup>().aiMenuItemHandle());
        Plugin::instance()->setAboutMenuItem(kept.on<MenuItem>());
        EXPECT_EQ(Plugin::instance()->aboutMenuItem(), kept.on<MenuItem>());
        EXPECT_TRUE(Plugin::instance()->prefsMenuItem().isEmpty());
    });
    desk.session().quit();
    const auto calls = kzo::plugin::host::monitor().calls();
    for (const Row& row : rows) EXPECT_TRUE(row.neutral(kept)) << row.name;
    EXPECT_TRUE(foreign.isEmpty());
    // Whatever changes, an empty handle does nothing.
    for (Handles none : {kept, Handles()}) {
        none.on<MenuGroup>().setText("x");
        none.on<MenuGroup>().setEnabled(true);
        none.on<MenuGroup>().setSorted(true);
        none.on<MenuGroup>().destroy();
        none.on<MenuItem>().setText("x");
        none.on<MenuItem>().setEnabled(true);
        none.on<MenuItem>().setChecked(true);
        none.on<Timer>().setDelay(1);
        none.on<Timer>().destroy();
        none.on<Annotator>().setOptions(Annotator::Options::First);
        const auto bind = [&](auto&... handle) { (handle.setCallback(receiver.callback()), ...); };
        bind(none.on<MenuItem>(), none.on<Timer>(), none.on<Annotator>());
        EXPECT_TRUE(MenuItem(none.on<MenuGroup>(), "x", receiver.callback()).isEmpty());
        EXPECT_TRUE(MenuItem::Divider(none.on<MenuGroup>()).isEmpty());
    }
    kept = {};
    EXPECT_FALSE(AnnotationDrawer(nullptr).line({0, 0}, {1, 1}));
    EXPECT_TRUE(newGroup().isEmpty());
    EXPECT_EQ(kzo::plugin::host::monitor().calls(), calls);
    EXPECT_EQ(Illustrator::instance()->menuGroupCount(), 0u); // what asks without a handle finds no host
    EXPECT_EQ(kzo::plugin::host::basic, nullptr);
    EXPECT_FALSE(kzo::plugin::SharedMenuGroup::Map::exists());
    EXPECT_FALSE(kzo::plugin::SharedThirdPartyPlugin::Map::exists());
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
        PathArt* const closed = live.on<Art>().path();
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
    static int range = 0;
    static const auto text = reinterpret_cast<AITextRangeRef>(&range);
    auto& entry = desk.tables().get<AIHitTestSuite>().HitTest;
    desk.inMessage([&] {
        entry = [](AIArtHandle art, const AIRealPoint*, AIReal, std::int32_t, AIHitRecord* record) -> AIErr {
            *record = {};
            record->type = kAIAnchorHit;
            record->art = art;
            record->textRange = text;
            return kNoErr;
        };
        const HitData hit(nullptr, {100, 60}, HitRequest::Everything, 1, false);
        EXPECT_EQ(hit.textRange(), text);
        EXPECT_TRUE(hit.segPointIndex() == -1 && hit.segIndex() == -1);
        EXPECT_EQ(hit.tValue(), 0);
    });
}

// Tools

TEST_F(Facade, ToolsStandBesideTheToolsTheyName) {
    desk.inMessage([&] {
        const Tool first = ortho::Plugin::instance()->lineTool();
        const auto own = [&](const char* name) { return desk.session().toolbox.findByName(name)->number; };
        const std::int16_t selection = own("Selection Tool");
        const std::int16_t direct = own("Direct Selection Tool");
        using enum BuiltinTool;
        const Tool second(first, &first, "Second", "tip", 1, 2, ToolOptions::TrackCursor);
        const Tool alone(Tool(), &first, "Alone", "tip", 1, 2, ToolOptions(0x1FF));
        struct Place {
            Tool tool;
            std::int16_t group, toolset; // 0: its own
        };
        std::vector<Place> made = {
            {second, first.number(), first.number()},
            {{first, nullptr, "Third", "tip", 1, 2, ToolOptions::None}, first.number(), 0},
            {alone, 0, 0},
            {{-7, -2, "Fourth", "tip", 1, 2, ToolOptions::None}, 0, 0}, // any negative group is a new one
            {{Selection, DirectSelection, "Beside", "tip", 1, 2, ToolOptions::None}, selection, direct},
            {{DirectSelection, std::nullopt, "Near", "tip", 1, 2, ToolOptions::None}, direct, 0},
        };
        for (const BuiltinTool lacking : {Zoom, BuiltinTool(15), BuiltinTool(0), BuiltinTool(-10), BuiltinTool(150)}) {
            const std::string title = "Apart " + std::to_string(int(lacking));
            made.push_back({{lacking, Selection, title, "tip", 1, 2, ToolOptions::None}, 0, 0});
        }
        const auto known = [&](const Tool& tool) { return desk.session().toolbox.find(tool.aiToolHandle()); };
        for (const Place& row : made) {
            EXPECT_EQ(known(row.tool)->group, row.group ? row.group : row.tool.number()) << row.tool.title();
            EXPECT_EQ(known(row.tool)->toolset, row.toolset ? row.toolset : row.tool.number()) << row.tool.title();
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
