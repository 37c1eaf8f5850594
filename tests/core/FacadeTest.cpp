// The facade: every operation's neutral answers from one table, then what sharing, paths and hit tests mean.
#include <gmock/gmock.h>

#include <cmath>
#include <tuple>

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "core/document/Art.h"
#include "core/document/CurrentDocument.h"
#include "core/document/Draw.h"
#include "core/document/HitData.h"
#include "core/document/Layer.h"
#include "core/document/PathArt.h"
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
#include "plugin/host/RefCountMap.h"
#include "support/Desk.h"
#include "support/Drawing.h"
#include "support/Operations.h"
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
    Art top;    ///< all of the lower layer
    Art around; ///< a group that is selected, locked and hidden,
    Art within; ///< and a line in it
    MenuItem divider;

    template <class Class> [[nodiscard]] const Class& on() const { return std::get<Class>(*this); }
    template <class Class> [[nodiscard]] Class& on() { return std::get<Class>(*this); }
};
template <> const PathArt& Handles::on<PathArt>() const { return *on<Art>().path(); }
template <> PathArt& Handles::on<PathArt>() { return *on<Art>().path(); }

using Queries = std::vector<operations::Query<Handles>>;
using Commands = std::vector<operations::Command<Handles>>;
using operations::asks, operations::changes, operations::changesWith, operations::knows, operations::nothing;

/// A query that takes arguments.
template <class Ask> void asksWith(Queries& rows, const char* name, Ask ask) {
    rows.push_back({name, [ask](const Handles& h) { return operations::isNeutral<nothing>(ask(h)); },
                    [ask](const Handles& h) { return operations::shown(ask(h)); }});
}

// One table a class

Queries queriesOfArt() {
    Queries rows;
    knows<nothing, &Art::aiArtHandle>(rows);
    asks<nothing, &Art::valid, &Art::artType, &Art::selected, &Art::locked, &Art::hidden, &Art::parent, &Art::sibling,
         &Art::priorSibling>(rows);
    asksWith(rows, "Art::attribute",
             [](const Handles& h) { return h.on<Art>().attribute(ArtAttribute::FullySelected); });
    asksWith(rows, "Art::firstChild", [](const Handles& h) { return h.group.firstChild() != nullptr; });
    asks<nothing, &Art::allAttributes, &Art::fullySelected, &Art::layer, &Art::strokeBounds, &Art::noStrokeBounds,
         &Art::x, &Art::y, &Art::width, &Art::height>(rows);
    asksWith(rows, "Art::isLayerGroup", [](const Handles& h) { return h.top.isLayerGroup(); });
    asksWith(rows, "Art::editable", [](const Handles& h) { return h.group.editable(); });
    asksWith(rows, "Art::anyAncestorSelected", [](const Handles& h) { return h.within.anyAncestorSelected(); });
    asksWith(rows, "Art::anyAncestorLocked", [](const Handles& h) { return h.within.anyAncestorLocked(); });
    asksWith(rows, "Art::anyAncestorHidden", [](const Handles& h) { return h.within.anyAncestorHidden(); });
    asksWith(rows, "Art::lastChild", [](const Handles& h) { return h.group.lastChild() != nullptr; });
    asksWith(rows, "Art::childCount", [](const Handles& h) { return h.group.childCount(); });
    asksWith(rows, "Art::bounds", [](const Handles& h) { return h.group.bounds(Art::BoundsOptions::Controls); });
    asksWith(rows, "Art::transformBounds", [](const Handles& h) {
        return h.group.transformBounds({0, 1, -1, 0, 9, 9}, Art::BoundsOptions::None);
    });
    asksWith(rows, "Art::begin", [](const Handles& h) { return !h.group.begin().atEnd(); });
    return rows;
}

Queries queriesOfPathArt() {
    Queries rows;
    asks<nothing, &PathArt::segPointCount, &PathArt::segCount, &PathArt::closed, &PathArt::length>(rows);
    asksWith(rows, "PathArt::segPoints", [](const Handles& h) { return h.on<PathArt>().segPoints(0, 4); });
    asksWith(rows, "PathArt::segPointClosestToPoint",
             [](const Handles& h) { return h.on<PathArt>().segPointClosestToPoint(ArtboardPoint(100, 60)); });
    asksWith(rows, "PathArt::bezier", [](const Handles& h) { return h.on<PathArt>().bezier(0) != nullptr; });
    return rows;
}

Queries queriesOfLayer() {
    Queries rows;
    knows<nothing, &Layer::aiLayerHandle>(rows);
    asks<nothing, &Layer::title, &Layer::visible, &Layer::editable, &Layer::hasSelectedArt, &Layer::next,
         &Layer::group>(rows);
    return rows;
}

Queries queriesOfTool() {
    Queries rows;
    asks<nothing, &Tool::title, &Tool::tip, &Tool::options, &Tool::selected, &Tool::shiftKeyDown>(rows);
    asks<-2, &Tool::number>(rows);
    knows<nothing, &Tool::aiToolHandle, &Tool::lightIconID, &Tool::darkIconID, &Tool::mouseDownCallback>(rows);
    asksWith(rows, "Tool::cursorHitData", [](const Handles& h) {
        const auto hit = h.on<Tool>().cursorHitData(HitRequest::Everything, 2);
        return hit && hit->hit();
    });
    return rows;
}

Queries queriesOfHitData() {
    Queries rows;
    knows<nothing, &HitData::hit, &HitData::hitType, &HitData::art, &HitData::inGroup>(rows);
    knows<-1, &HitData::segPointIndex>(rows);
    return rows;
}

Queries queriesOfMenus() {
    Queries rows;
    knows<nothing, &MenuGroup::aiMenuGroup>(rows);
    asks<nothing, &MenuGroup::aiMenuItemHandle, &MenuGroup::text, &MenuGroup::enabled, &MenuGroup::sorted,
         &MenuGroup::isPartial, &MenuGroup::parent, &MenuGroup::children>(rows);
    knows<nothing, &MenuItem::aiMenuItemHandle, &MenuItem::callback>(rows);
    asks<nothing, &MenuItem::text, &MenuItem::enabled, &MenuItem::checked, &MenuItem::parent>(rows);
    asksWith(rows, "MenuItem::isDivider", [](const Handles& h) { return h.divider.isDivider(); });
    return rows;
}

Queries queriesOfTheRest() {
    Queries rows;
    knows<nothing, &Timer::aiTimerHandle, &Timer::callback>(rows);
    asks<nothing, &Timer::name, &Timer::delay, &Timer::active>(rows);
    knows<nothing, &Annotator::aiAnnotatorHandle, &Annotator::callback>(rows);
    asks<nothing, &Annotator::name, &Annotator::options, &Annotator::active>(rows);
    knows<nothing, &ThirdPartyPlugin::spPluginRef>(rows);
    asks<nothing, &ThirdPartyPlugin::name, &ThirdPartyPlugin::fileName, &ThirdPartyPlugin::filePath,
         &ThirdPartyPlugin::options, &ThirdPartyPlugin::started>(rows);
    asks<true, &ThirdPartyPlugin::broken>(rows);
    return rows;
}

Queries allQueries() {
    Queries all;
    for (const auto& table : {queriesOfArt(), queriesOfPathArt(), queriesOfLayer(), queriesOfTool(), queriesOfHitData(),
                              queriesOfMenus(), queriesOfTheRest()})
        all.insert(all.end(), table.begin(), table.end());
    return all;
}

/// What they set differs from what the handles are on.
Commands allCommands() {
    const PathArt::SegPoints points = {ArtboardSegPoint({1, 2}, true), ArtboardSegPoint({3, 4}, true)};
    PathStyle wide;
    wide.stroke.width = 7;
    Commands rows;
    changes<&Art::deselect>(rows);
    changes<&Art::select>(rows);
    changes<&Art::setAttribute>(rows, ArtAttribute::Hidden, false);
    changes<&Art::setAllAttributes>(rows, ArtAttribute::Locked);
    changes<&Art::setSelected>(rows, false);
    changes<&Art::setLocked>(rows, false);
    changes<&Art::setHidden>(rows, false);
    changes<&Art::setEditable>(rows, true);
    changes<&Art::offset>(rows, 3.0, 4.0, true);
    changes<&Art::transform>(rows, TransformMatrix(2, 0, 0.5, 1, 0, 0), true);
    changes<&Art::transformWithOptions>(rows, TransformMatrix(2, 0, 0, 2, 0, 0), 2.0,
                                        Art::TransformOptions::Objects | Art::TransformOptions::ScaleLines);
    changes<&Art::transformStrokes>(rows, 3.0);
    using Pin = BoundsPinPointType;
    const auto quarter = Angle(90, Angle::Units::Degrees);
    changesWith(rows, "Art::move", [](Handles& h) { h.on<Art>().move({1, 1}); });
    changesWith(rows, "Art::move", [](Handles& h) { h.on<Art>().move(Pin::BottomRight, {1, 1}); });
    changesWith(rows, "Art::rotate", [=](Handles& h) { h.on<Art>().rotate(quarter); });
    changesWith(rows, "Art::rotate", [=](Handles& h) { h.on<Art>().rotate(quarter, {1, 1}); });
    changesWith(rows, "Art::rotate", [=](Handles& h) { h.on<Art>().rotate(quarter, Pin::TopRight); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2, ArtboardPoint(1, 1)); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2, Pin::MidLeft); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2, 3); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2, 3, {1, 1}); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2, 3, Pin::TopCenter); });
    changes<&PathArt::reverseSegs>(rows);
    changes<&PathArt::setSegPoints>(rows, std::int16_t{1}, points);
    changes<&PathArt::setSegs>(rows, std::int16_t{0}, points);
    changes<&PathArt::setSegCount>(rows, std::int16_t{5});
    changes<&PathArt::setSegPointCount>(rows, std::int16_t{2});
    changes<&PathArt::setClosed>(rows, false);
    changes<&PathArt::setStyle>(rows, wide);
    changes<&Layer::deselectArt>(rows);
    changes<&Tool::setTitle>(rows, "Other");
    changes<&Tool::setTip>(rows, "Other");
    changes<&Tool::setLightIconID>(rows, std::int16_t{9});
    changes<&Tool::setDarkIconID>(rows, std::int16_t{9});
    changes<&Tool::setOptions>(rows, ToolOptions::TrackCursor);
    changes<&MenuGroup::setText>(rows, "Other");
    changes<&MenuGroup::setEnabled>(rows, false);
    changes<&MenuGroup::setSorted>(rows, false);
    changes<&MenuItem::setText>(rows, "Other");
    changes<&MenuItem::setChecked>(rows, false);
    changes<&MenuItem::setEnabled>(rows, false);
    changes<&Timer::setDelay>(rows, 2.0);
    changes<&Timer::setActive>(rows, false);
    changes<&Annotator::setOptions>(rows, Annotator::Options::First);
    changes<&Annotator::setActive>(rows, false);
    return rows;
}

const Queries rows = allQueries();

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
            live.top = *lower;
            live.around = Art(ArtType::Group, PaintOrder::InsideOnBottom, lower.get());
            live.within = *draw::line({500, 500}, {510, 510}, &live.around);
            live.around.select();
            live.around.setAttribute(ArtAttribute::Locked | ArtAttribute::Hidden, true);
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
    for (const auto& row : rows) EXPECT_TRUE(row.neutral(empty)) << row.name << " of an empty handle";
    withHandles([&](Handles& live) {
        auto& monitor = kzo::plugin::host::monitor();
        // Only what tells something can be checked for telling nothing.
        for (const auto& row : rows) EXPECT_FALSE(row.neutral(live)) << row.name;
        for (const auto& row : rows) {
            monitor.reset(1);
            const bool neutral = row.neutral(live);
            EXPECT_EQ(monitor.calls() > 0, row.asksHost) << row.name;
            EXPECT_TRUE(neutral || !row.asksHost) << row.name << " with its call refused";
        }
        monitor.reset();
        kzo::plugin::host::releaseAll();
        desk.tables().each([](auto& suite) { suite.available = false; });
        for (const auto& row : rows)
            EXPECT_TRUE(!row.asksHost || row.neutral(live)) << row.name << " without its suite";
        EXPECT_TRUE(newGroup().isEmpty());
        EXPECT_TRUE(MenuItem(BuiltinMenuGroup::Edit, "x", receiver.callback()).isEmpty());
        EXPECT_TRUE(Timer("x", 1, receiver.callback()).isEmpty());
        EXPECT_TRUE(Annotator("x", receiver.callback()).isEmpty());
        EXPECT_FALSE(Plugin::instance()->dispatcher()->scheduleCallback(receiver.callback(), 1));
        EXPECT_EQ(Illustrator::instance()->menuGroupCount(), 0u);
        EXPECT_TRUE(Illustrator::instance()->allPlugins().empty());
        desk.tables().each([](auto& suite) { suite.available = true; });
        for (const auto& row : rows) EXPECT_FALSE(row.neutral(live)) << row.name << " once the suite is back";
    });
}

// Each command does nothing when empty and when any of its calls is refused, shows in some answer or in the document
// when it is done, and is taken back with its message where it changed the document.
TEST_F(Facade, CommandsDoNothingWhenEmptyOrRefusedAndAreUndone) {
    auto& monitor = kzo::plugin::host::monitor();
    Handles live;
    withHandles([&](Handles& made) { live = made; });
    const auto answers = [&] {
        std::string all;
        for (const auto& row : rows) all += row.name + " " + row.shown(live) + "\n";
        return all;
    };
    const auto document = [&] { return easel::model::listing(desk.document()); };
    for (const auto& command : allCommands()) {
        SCOPED_TRACE(command.name);
        const auto drawn = document();
        const std::size_t steps = desk.document().journal().undoDepth();
        std::string before;
        std::string after;
        bool refused = true;
        for (std::uint64_t call = 0; refused; ++call) {
            desk.inMessage([&] {
                before = answers();
                Handles empty;
                monitor.reset(call);
                command.run(call == 0 ? empty : live);
                refused = call == 0 || monitor.calls() >= call;
                EXPECT_TRUE(call > 0 || monitor.calls() == 0u);
                monitor.reset();
                after = answers();
            });
            if (!refused) break;
            EXPECT_EQ(after, before) << "call " << call;
            EXPECT_EQ(document(), drawn) << "call " << call;
        }
        EXPECT_TRUE(after != before || document() != drawn);
        if (desk.document().journal().undoDepth() == steps) continue; // nothing of the document, or its selection
        EXPECT_TRUE(desk.document().journal().undo());
        EXPECT_EQ(document(), drawn) << "undone";
    }
}

TEST_F(Facade, IsEmptyAfterShutDownAndAsksTheHostNothing) {
    Handles kept;
    MenuItem foreign;
    withHandles([&](Handles& live) {
        kept = live;
        kept.on<Art>() = kept.group = kept.top = kept.around = kept.within = Art(); // these are the document's
        kept.on<Layer>() = Layer();
        kept.on<HitData>() = HitData(); // and this keeps what it found
        // A timer that is not registered any more was left running, and its handle called the host after shut-down.
        Plugin::instance()->dispatcher()->unregisterTimer(kept.on<Timer>());
        foreign = MenuItem(kept.on<MenuGroup>().aiMenuItemHandle());
        Plugin::instance()->setAboutMenuItem(kept.on<MenuItem>());
        EXPECT_EQ(Plugin::instance()->aboutMenuItem(), kept.on<MenuItem>());
        EXPECT_EQ(Plugin::instance()->prefsMenuItem().text(), "Ortholine...");
    });
    desk.session().quit();
    const auto calls = kzo::plugin::host::monitor().calls();
    for (const auto& row : rows) EXPECT_TRUE(row.neutral(kept)) << row.name;
    EXPECT_TRUE(foreign.isEmpty());
    for (Handles none : {kept, Handles()}) {
        for (const auto& command : allCommands()) command.run(none);
        none.on<MenuGroup>().destroy();
        none.on<Timer>().destroy();
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
    EXPECT_FALSE(kzo::plugin::MapOf<kzo::plugin::__IntMenuGroupData>::exists());
    EXPECT_FALSE(kzo::plugin::MapOf<kzo::plugin::ThirdPartyPlugin>::exists());
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

// Transforms

TEST_F(Facade, TurnsCounterClockwiseAndPlacesByPins) {
    desk.inMessage([&] {
        const auto line = draw::line({10, 10}, {30, 10});
        const auto end = [&] { return line->path()->segPoints(1, 1).front().p; };
        EXPECT_TRUE(line->rotate(Angle(90, Angle::Units::Degrees), {10, 10}));
        EXPECT_TRUE(end().closeTo({10, -10}, 1e-9)); // up
        EXPECT_TRUE(line->move(BoundsPinPointType::BottomCenter, {100, 100}));
        EXPECT_TRUE(end().closeTo({100, 80}, 1e-9));
        EXPECT_TRUE(line->scale(1, 3, BoundsPinPointType::BottomLeft));
        EXPECT_TRUE(end().closeTo({100, 40}, 1e-9));
        EXPECT_FALSE(line->scale(0));
        EXPECT_FALSE(line->offset(0, HUGE_VAL));
        EXPECT_TRUE(line->transformStrokes(4));
        EXPECT_EQ(line->path()->style().stroke.width, 4);
        EXPECT_TRUE(end().closeTo({100, 40}, 1e-9));
        const ArtboardRect box = line->strokeBounds();
        EXPECT_NEAR(box.width(), 4, 1e-9);
        EXPECT_NEAR(box.height(), 60, 1e-9); // butt caps add nothing
    });
}

// The host's own preferences and memory

TEST_F(Facade, KeepsValuesOfEachKindInTheHostsPreferences) {
    desk.inMessage([&] {
        ai::Preferences& host = *Illustrator::instance()->preferences();
        double angle = 7;
        std::int32_t number = 7;
        bool flag = false;
        std::string text = "seven";
        EXPECT_FALSE(host.getFloatPref("", "constrain/angle", angle));
        EXPECT_EQ(angle, 7);
        EXPECT_TRUE(host.setFloatPref("", "constrain/angle", 0.25) && host.setIntPref("One-19", "answer", 2));
        EXPECT_TRUE(host.setBoolPref("One-19", "asked", true) && host.setStringPref("One-19", "who", "J\xc3\xb6rg"));
        EXPECT_TRUE(host.getFloatPref("", "constrain/angle", angle) && host.getIntPref("One-19", "answer", number));
        EXPECT_TRUE(host.getBoolPref("One-19", "asked", flag) && host.getStringPref("One-19", "who", text));
        EXPECT_EQ(std::tuple(angle, number, flag, text), std::tuple(0.25, 2, true, "J\xc3\xb6rg"));
        EXPECT_TRUE(host.getFloatPref("One-19", "answer", angle));
        EXPECT_EQ(angle, 2);
        EXPECT_FALSE(host.getIntPref("", "constrain/angle", number) || host.getIntPref("Two-19", "answer", number));
        EXPECT_FALSE(host.setFloatPref("", "x", HUGE_VAL) || host.setIntPref("One-19", "", 1));
        EXPECT_TRUE(host.exists("One-19", "answer") && host.remove("One-19", "answer"));
        EXPECT_FALSE(host.exists("One-19", "answer") || host.remove("One-19", "answer"));
        void* const block = Illustrator::instance()->alloc(100);
        EXPECT_EQ(desk.session().memory.blocksInUse(), 1u);
        EXPECT_TRUE(Illustrator::instance()->free(block));
        kzo::plugin::host::monitor().reset(1);
        EXPECT_EQ(Illustrator::instance()->alloc(100), nullptr);
        kzo::plugin::host::monitor().reset();
    });
    EXPECT_EQ(desk.session().memory.blocksInUse(), 0u);
}

// Sharing

TEST_F(Facade, HandlesOfOneObjectAreOneUntilItIsDisposedOf) {
    using Map = kzo::plugin::MapOf<kzo::plugin::Art>;
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
        EXPECT_EQ(later, Art());
        EXPECT_FALSE(Map::exists()); // which is no longer known by its key
    });
    EXPECT_FALSE(Map::exists()); // the last handle took the map along
    desk.inMessage([&] { EXPECT_FALSE(draw::line({0, 0}, {10, 0})->isEmpty()); });
}

// A handle came alive again when another was made of the handle that the host gave out anew.
TEST_F(Facade, ADisposedHandleStaysEmptyThoughUndoBringsTheObjectBack) {
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
        EXPECT_TRUE(kept.isEmpty());
        EXPECT_FALSE(kept == again);
        Art copy = again;
        copy = kept;
        EXPECT_TRUE(copy.isEmpty());
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
            {{-7, -9, "Fourth", "tip", 1, 2, ToolOptions::None}, 0, 0}, // any negative number is a new one's
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
