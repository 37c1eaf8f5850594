// The facade: every operation's neutral answers from one table, then what sharing, paths and hit tests mean.
#include <gmock/gmock.h>

#include <cmath>
#include <tuple>

#include "FacadeRows.h"
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
#include "suites/Arguments.h"
#include "support/Desk.h"
#include "support/Drawing.h"
#include "support/Operations.h"
#include "support/Receiver.h"
#include "svg/Writer.h"
#include "tool/Plugin.h"

namespace {

using namespace facade;
using desk::Desk;
using desk::Receiver;
using easel::model::Node;
using easel::model::Style;

const Queries rows = allQueries();
const Queries ofDocument = documentQueries();

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
            live.lower = *document->layerAtIndex(1);
            live.on<Artboard>() = *document->artboardAtIndex(0);
            live.on<View>() = *document->currentView();
            PathStyle thick;
            thick.stroke.width = 2;
            live.words = *draw::text("words", {600, 500}, "", 12, ParagraphJustification::Left, {}, thick, lower.get());
            makeViews(live, lower.get());
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
            style(live);
            // The upper layer holds a copy of nothing but a selected line and the hit's target stays below.
            const auto line = draw::line({0, 0}, {10, 10}, live.on<Layer>().group().get());
            line->select();
            work(live);
        });
    }

    /// Art of the kinds that have views of their own.
    void makeViews(Handles& live, const Art* lower) {
        using enum PaintOrder;
        live.placed = Art(ArtType::Placed, InsideOnBottom, lower);
        EXPECT_TRUE(live.placed.placed()->setFilePath(pictureFile("picture", 3, 2)));
        live.raster = Art(ArtType::Placed, InsideOnBottom, lower);
        EXPECT_TRUE(live.raster.placed()->setFilePath(pictureFile("picture", 3, 2)) && live.raster.placed()->embed());
        live.mesh = Art(ArtType::Mesh, InsideOnBottom, lower);
        EXPECT_TRUE(live.mesh.mesh()->init(2, 3, {0, 0, 30, 20}) && live.mesh.mesh()->setColor(1, 2, {1, 0, 0}));
        live.custom = Art(ArtType::PluginGroup, InsideOnBottom, lower);
        EXPECT_TRUE(live.custom.customArt()->setName("Box"));
        Node& custom = *desk.document().findByName("Box"); // masks come with drawings
        desk.document().setExtras(custom, [extras = custom.extras()]() mutable {
            extras.mask = "url(#mask)";
            extras.maskDisabled = true;
            return extras;
        }());
        live.clipped = Art(ArtType::Group, InsideOnBottom, lower);
        static_cast<void>(draw::line({900, 900}, {950, 900}, &live.clipped));
        static_cast<void>(draw::rect({910, 890, 920, 910}, &live.clipped));
        EXPECT_TRUE(live.clipped.setIsClipGroup(true));
        CurrentDocument document;
        EXPECT_EQ(document.newSymbol(live.mesh), "symbol-1");
        EXPECT_EQ(document.newSymbol(live.words), "symbol-2");
        EXPECT_EQ(document.newPattern(live.mesh), "pattern-1");
        live.instance = *document.newSymbolInstance("symbol-1", InsideOnBottom, lower);
        EXPECT_TRUE(live.placed.offset(5, 0) && live.raster.offset(5, 0)); // their matrices say something
    }

    /// Gives the art all that can be asked of it.
    void style(Handles& live) {
        Art& art = live.on<Art>();
        ArtStyle look;
        look.opacity = 0.5;
        look.blendMode = BlendMode::Multiply;
        look.knockout = BlendKnockout::On;
        look.paint.fill.painted = true;
        look.paint.stroke.width = 3;
        art.setStyle(look);
        art.setCenterPointVisible(true);
        Dictionary data = art.dictionary();
        EXPECT_TRUE(data.setBool("flag", true) && data.setInt("number", 5) && data.setFloat("length", 2.5));
        EXPECT_TRUE(data.setString("text", "words") && Dictionary().setInt("number", 6));
        live.shut = Layer(PaintOrder::BelowAll);
        EXPECT_TRUE(live.shut.setLocked(true) && CurrentDocument().setCurrentLayer(live.on<Layer>()));
        EXPECT_TRUE(live.around.isolate());
        CurrentDocument document;
        EXPECT_TRUE(document.setGrid({36, 4, true, false}) &&
                    document.setDefaultTextStyle({{"Serif", 9}, ParagraphJustification::Left}));
        PathStyle thick;
        thick.stroke.width = 2;
        EXPECT_TRUE(document.setDefaultPathStyle(thick));
        desk.document().settings.textFocus = desk.document().find(pathNode.id())->id(); // as good as any
        desk.session().documents.setPath(desk.document(), "/tmp/drawing.svg");
        document.setModified(true);
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
        for (const auto& row : ofDocument) {
            monitor.reset();
            EXPECT_FALSE(row.neutral(live)) << row.name;
            monitor.reset(1);
            EXPECT_TRUE(row.neutral(live)) << row.name << " with its call refused";
        }
        monitor.reset();
        kzo::plugin::host::releaseAll();
        desk.tables().each([](auto& suite) { suite.available = false; });
        for (const auto& row : rows)
            EXPECT_TRUE(!row.asksHost || row.neutral(live)) << row.name << " without its suite";
        for (const auto& row : ofDocument) EXPECT_TRUE(row.neutral(live)) << row.name << " without its suite";
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
    desk.expectReports(); // of what is gone until its command is undone
    Handles live;
    withHandles([&](Handles& made) { live = made; });
    const auto answers = [&] {
        std::string all;
        for (const auto& row : rows) all += row.name + " " + row.shown(live) + "\n";
        for (const auto& row : ofDocument) all += row.name + " " + row.shown(live) + "\n";
        return all;
    };
    const auto document = [&] { return easel::model::listing(desk.document()); };
    Commands commands = documentCommands();
    const std::size_t withoutHandle = commands.size();
    for (const auto& command : allCommands()) commands.push_back(command);
    for (const auto& command : commands) {
        SCOPED_TRACE(command.name);
        const bool needsHandle = &command >= &commands[withoutHandle];
        const auto drawn = document();
        const std::size_t steps = desk.document().journal().undoDepth();
        std::string before;
        std::string after;
        bool refused = true;
        for (std::uint64_t call = needsHandle ? 0 : 1; refused; ++call) {
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
        kept.on<Art>() = kept.group = kept.top = kept.around = kept.within = kept.words = kept.placed = kept.raster =
            kept.mesh = kept.custom = kept.clipped = kept.instance = Art(); // these are the document's
        kept.on<Layer>() = kept.lower = kept.shut = Layer();
        kept.on<Artboard>() = Artboard();
        kept.on<View>() = View();
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
        Handles none;
        for (const auto& row : ofDocument) EXPECT_TRUE(row.neutral(none)) << row.name;
        for (const auto& command : documentCommands()) command.run(none);
        EXPECT_EQ(document.zoom(), 1);
        document.deselectAllArt();
        EXPECT_TRUE(HitData(nullptr, {1, 1}, HitRequest::Everything, 5, true).isEmpty());
        EXPECT_EQ(draw::line({0, 0}, {1, 1}), nullptr);
        EXPECT_TRUE(Art(ArtType::Group, PaintOrder::AboveAll).isEmpty());
    });
}

// Order

// Over two overlapping paths the upper one comes first, and nothing is left behind.
TEST_F(Facade, ListsAllArtUnderAPointAndLeavesTheOrder) {
    Style filled;
    filled.fill = true;
    std::vector<const Node*> stack{&desk.document().addLayer("Above").layer()};
    // The first corners lie at many distances from where all of them are near, one out of reach.
    static constexpr double kFirst[] = {299.5, 298.7, 299.8, 299.2, 292};
    for (int i = 0; i < 5; ++i) {
        Node& square = desk.addPath({{kFirst[i], kFirst[i]}, {340, 300}, {340, 340}, {300, 340}}, true,
                                    i < 3 ? &groupNode : nullptr);
        if (i == 3) { // as part of a compound path, which goes with it
            Node& whole = desk.document().create(easel::model::NodeType::Compound, easel::model::Placement::OnTopInside,
                                                 *square.parent());
            desk.document().place(square, easel::model::Placement::OnTopInside, whole);
        }
        desk.document().setStyle(square, filled);
        stack.push_back(&square);
    }
    const auto before = easel::model::listing(desk.document());
    const std::size_t steps = desk.document().journal().undoDepth();
    const auto find = [&](HitRequest request = HitRequest::Fills) {
        return CurrentDocument().artAtPoint({300, 300}, request);
    };
    auto& monitor = kzo::plugin::host::monitor();
    desk.inMessage([&] {
        for (const HitRequest request : {HitRequest::Fills, HitRequest::Everything, HitRequest::AnchorsAndSegments}) {
            const auto found = find(request);
            const bool fills = request != HitRequest::AnchorsAndSegments;
            ASSERT_EQ(found->size(), fills ? 5u : 4u);
            for (std::size_t i = 0; i < found->size(); ++i)
                EXPECT_EQ((*found)[i].uid(),
                          Art(easel::suites::artHandle(desk.document(), stack[found->size() - i])).uid());
        }
        EXPECT_TRUE(CurrentDocument().artAtPoint({700, 20}, HitRequest::Everything)->empty());
    });
    EXPECT_EQ(easel::model::listing(desk.document()).text, before.text);
    for (std::uint64_t call = 1;; ++call) {
        bool refused = false;
        desk.inMessage([&] {
            monitor.reset(call);
            find();
            refused = monitor.calls() >= call;
            monitor.reset();
        });
        if (!refused) break;
        EXPECT_EQ(easel::model::listing(desk.document()).text, before.text) << "call " << call;
    }
    EXPECT_EQ(desk.document().journal().undoDepth(), steps);
}

TEST_F(Facade, PutsNothingIntoItself) {
    withHandles([&](Handles& live) {
        EXPECT_FALSE(live.group.reorder(PaintOrder::InsideOnTop, &live.on<Art>()));
        EXPECT_FALSE(live.group.reorder(PaintOrder::Above, &live.on<Art>()));
        EXPECT_FALSE(live.around.reorder(PaintOrder::InsideOnTop, &live.around));
        EXPECT_EQ(live.group.duplicate(PaintOrder::InsideOnTop, &live.group), nullptr);
        EXPECT_FALSE(live.top.reorder(PaintOrder::AboveAll));
        EXPECT_FALSE(Layer(*Illustrator::instance()->currentDocument()->layerAtIndex(0)).isEmpty());
        EXPECT_TRUE(live.on<Layer>().dispose());
        EXPECT_TRUE(live.on<Layer>().isEmpty());
        EXPECT_TRUE(live.shut.dispose());
        EXPECT_FALSE(live.lower.dispose()); // the last one
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

// Symbols and patterns

TEST_F(Facade, EditsSymbolsAndPatternsAsDocumentsOfTheirOwn) {
    std::string symbol;
    std::string pattern;
    desk.inMessage([&] {
        CurrentDocument document;
        EXPECT_FALSE(document.exitSymbolEditingMode() || document.exitPatternEditingMode());
        EXPECT_FALSE(document.enterSymbolEditingMode("none") || document.enterPatternEditingMode("none"));
        symbol = document.newSymbol(*draw::line({1, 2}, {3, 4}));
        pattern = document.newPattern(*draw::line({1, 2}, {3, 4}));
        kzo::plugin::host::monitor().reset(1);
        EXPECT_FALSE(document.enterSymbolEditingMode(symbol));
        kzo::plugin::host::monitor().reset();
        EXPECT_TRUE(document.enterSymbolEditingMode(symbol));
        EXPECT_FALSE(document.inSymbolEditingMode()); // after the message
    });
    easel::model::Document* const owner = desk.session().documents.at(1);
    ASSERT_TRUE(owner);
    const std::string before = easel::svg::write(*owner);
    const std::size_t steps = owner->journal().undoDepth();
    const auto edit = [&](auto exits) {
        desk.inMessage([&] {
            CurrentDocument document;
            EXPECT_EQ(document.artOfType(MatchArtType::Path)->size(), 1U);
            draw::line({5, 6}, {7, 8});
            exits(document);
        });
        EXPECT_EQ(&desk.document(), owner);
    };
    edit([&](CurrentDocument& document) {
        EXPECT_EQ(document.editedSymbol(), symbol);
        EXPECT_FALSE(document.inPatternEditingMode() || document.exitPatternEditingMode());
        EXPECT_TRUE(document.exitSymbolEditingMode());
    });
    EXPECT_EQ(owner->journal().undoDepth(), steps + 1);
    EXPECT_NE(easel::svg::write(*owner), before);
    EXPECT_TRUE(owner->journal().undo());
    EXPECT_EQ(easel::svg::write(*owner), before);
    desk.inMessage([&] { EXPECT_TRUE(CurrentDocument().enterPatternEditingMode(pattern)); });
    edit([&](CurrentDocument& document) {
        EXPECT_EQ(document.editedPattern(), pattern);
        EXPECT_TRUE(document.exitPatternEditingMode());
    });
    EXPECT_EQ(owner->journal().undoDepth(), steps + 1);
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
