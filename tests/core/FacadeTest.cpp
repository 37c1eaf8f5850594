// The facade: every operation's neutral answers from one table.
#include "FacadeTest.h"

#include "core/app/Plugin.h"
#include "core/frame/AnnotationDrawer.h"
#include "core/frame/Annotator.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/MenuGroup.h"
#include "core/frame/Timer.h"
#include "core/frame/Tool.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/MenuGroup.h"
#include "plugin/frame/ThirdPartyPlugin.h"
#include "plugin/host/HostCall.h"
#include "plugin/host/RefCountMap.h"
#include "suites/Arguments.h"
#include "support/Operations.h"

namespace {

using namespace facade;

const Queries rows = allQueries();
const Queries ofDocument = documentQueries();

class Facade : public FacadeTest {};

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
