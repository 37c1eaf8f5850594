// The function tables as a plug-in calls them: complete, guarded, and strict with what they are given.
#include <gmock/gmock.h>

#include <cmath>
#include <cstring>
#include <utility>

#include "session/app/Session.h"
#include "session/input/Keys.h"
#include "suites/Tables.h"

namespace {

using namespace easel;
using session::Session;

/// A plug-in that is a function: whatever a test wants done while a message is handled.
std::function<void(SPMessageData&)> work;

SPErr entry(const char*, const char*, void* message) {
    const auto running = work; // which may put something else in its place
    if (running) running(*static_cast<SPMessageData*>(message));
    return kNoErr;
}

class Suites : public testing::Test {
  protected:
    Suites() {
        session.start();
        session.newDocument(300, 200);
    }
    ~Suites() override { work = nullptr; }

    void inMessage(const std::function<void()>& body) {
        bool done = false; // messages that the body leads to do not run it again
        work = [&](SPMessageData&) {
            if (!std::exchange(done, true)) body();
        };
        SPMessageData record{};
        session.messenger.send(plugin, "Test", "Run", record);
        work = nullptr;
    }

    AIArtHandle newPath(std::int16_t count) {
        AIArtHandle art = nullptr;
        EXPECT_EQ(tables.get<AIArtSuite>().NewArt(kPathArt, kPlaceAboveAll, nullptr, &art), kNoErr);
        EXPECT_EQ(tables.get<AIPathSuite>().SetPathSegmentCount(art, count), kNoErr);
        return art;
    }

    Session session;
    suites::Tables& tables = suites::Tables::of(*session.suites);
    session::Plugin& plugin = session.plugins.attach("Test", entry);
};

TEST_F(Suites, HaveNoEmptyEntry) {
    const auto expectFull = [](const char* name, const void* table, std::size_t size) {
        for (std::size_t at = 0; at < size; at += sizeof(void*)) {
            void* entryAt = nullptr;
            std::memcpy(&entryAt, static_cast<const char*>(table) + at, sizeof(void*));
            EXPECT_NE(entryAt, nullptr) << name << " entry " << at / sizeof(void*);
        }
    };
    expectFull(kSPBasicSuite, &tables.basicSuite, sizeof(tables.basicSuite));
    tables.each([&](auto& suite) { expectFull(suite.name, &suite.table, sizeof(suite.table)); });
}

TEST_F(Suites, AreAcquiredByNameAndVersionAndCounted) {
    inMessage([&] {
        const void* table = nullptr;
        EXPECT_EQ(tables.basicSuite.AcquireSuite(kAIArtSuite, kAIArtSuiteVersion, &table), kNoErr);
        EXPECT_EQ(table, &tables.get<AIArtSuite>());
        EXPECT_EQ(tables.basicSuite.AcquireSuite(kAIArtSuite, kAIArtSuiteVersion + 1, &table), kSPSuiteNotFoundErr);
        EXPECT_EQ(tables.basicSuite.AcquireSuite("No Suite", 1, &table), kSPSuiteNotFoundErr);
        EXPECT_EQ(tables.basicSuite.AcquireSuite(nullptr, 1, &table), kBadParameterErr);
        EXPECT_EQ(table, &tables.get<AIArtSuite>()); // an error leaves the answer as it was
        EXPECT_EQ(tables.basicSuite.ReleaseSuite(kAIArtSuite, kAIArtSuiteVersion), kNoErr);
        EXPECT_EQ(session.reports.lines().size(), 0u);
        EXPECT_EQ(tables.basicSuite.ReleaseSuite(kAIArtSuite, kAIArtSuiteVersion), kBadParameterErr);
        EXPECT_EQ(tables.basicSuite.AcquireSuite(kAIToolSuite, kAIToolSuiteVersion, &table), kNoErr);
    });
    session.quit();
    EXPECT_THAT(session.reports.lines(),
                testing::ElementsAre("plug-in: AI Art Suite was released more often than acquired",
                                     "plug-in: AI Tool Suite was not released at shut-down"));
}

TEST_F(Suites, RefuseHandlesThatAreDeadForeignOrMadeUp) {
    inMessage([&] {
        const AIArtHandle live = newPath(2);
        AILayerHandle layer = nullptr;
        ASSERT_EQ(tables.get<AILayerSuite>().GetCurrentLayer(&layer), kNoErr);
        const AIArtHandle dead = newPath(2);
        ASSERT_EQ(tables.get<AIArtSuite>().DisposeArt(dead), kNoErr);
        const AIArtHandle reused = newPath(2); // may have the dead one's slot, never its handle
        EXPECT_NE(reused, dead);
        int local = 0;
        std::int16_t type = 77;
        for (const AIArtHandle wrong :
             {AIArtHandle{}, dead, reinterpret_cast<AIArtHandle>(layer), reinterpret_cast<AIArtHandle>(&local),
              reinterpret_cast<AIArtHandle>(~std::uintptr_t{0})}) {
            EXPECT_EQ(tables.get<AIArtSuite>().GetArtType(wrong, &type), kUnknownHandleErr);
            AIBoolean valid = 1;
            EXPECT_EQ(tables.get<AIArtSuite>().ValidArt(wrong, &valid), kNoErr);
            EXPECT_EQ(valid, 0);
        }
        EXPECT_EQ(type, 77);
        EXPECT_EQ(tables.get<AIArtSuite>().GetArtType(live, &type), kNoErr);
        EXPECT_EQ(type, kPathArt);
        EXPECT_EQ(tables.get<AIArtSuite>().GetArtType(live, nullptr), kBadParameterErr);
        EXPECT_EQ(tables.get<AILayerSuite>().SetCurrentLayer(reinterpret_cast<AILayerHandle>(live)), kUnknownHandleErr);
        EXPECT_EQ(tables.get<AIToolSuite>().RemoveTool(reinterpret_cast<AIToolHandle>(live)), kUnknownHandleErr);
    });
    EXPECT_EQ(session.reports.lines().size(), 7u); // each one told, to the plug-in's address
}

TEST_F(Suites, AnswerOnlyWhileAMessageIsHandled) {
    std::int32_t count = -1;
    EXPECT_EQ(tables.get<AILayerSuite>().CountLayers(&count), kOutsideMessageErr);
    EXPECT_EQ(count, -1);
    EXPECT_THAT(session.reports.lines(),
                testing::ElementsAre("plug-in: AILayerSuite::CountLayers was called outside of any message"));
    inMessage([&] { EXPECT_EQ(tables.get<AILayerSuite>().CountLayers(&count), kNoErr); });
    EXPECT_EQ(count, 1);
    session.close();
    inMessage([&] { EXPECT_EQ(tables.get<AILayerSuite>().CountLayers(&count), kNoDocumentErr); });
}

TEST_F(Suites, CheckMemoryAgainstTheirTable) {
    inMessage([&] {
        void* block = nullptr;
        int local = 0;
        ASSERT_EQ(tables.basicSuite.AllocateBlock(100, &block), kNoErr);
        std::memset(block, 1, 100);
        EXPECT_EQ(tables.basicSuite.FreeBlock(block), kNoErr);
        EXPECT_EQ(tables.basicSuite.FreeBlock(block), kBadParameterErr);
        EXPECT_EQ(tables.basicSuite.FreeBlock(&local), kBadParameterErr);
        AIMdMemoryHandle handle = nullptr;
        ASSERT_EQ(tables.get<AIMdMemorySuite>().MdMemoryNewHandle(8, &handle), kNoErr);
        EXPECT_EQ(tables.get<AIMdMemorySuite>().MdMemoryDisposeHandle(handle), kNoErr);
        EXPECT_EQ(tables.get<AIMdMemorySuite>().MdMemoryDisposeHandle(handle), kBadParameterErr);
    });
    EXPECT_EQ(session.reports.lines().size(), 3u);
}

TEST_F(Suites, PlaceNewArtWhereTheyAreTold) {
    inMessage([&] {
        auto& art = tables.get<AIArtSuite>();
        AIArtHandle other = nullptr, found = nullptr;
        const auto madeAt = [&](std::int16_t order, AIArtHandle prep, std::int16_t type = kPathArt) {
            AIArtHandle made = nullptr;
            EXPECT_EQ(art.NewArt(type, order, prep, &made), kNoErr);
            return made;
        };
        const AIArtHandle group = madeAt(kPlaceAboveAll, nullptr, kGroupArt);
        const AIArtHandle middle = madeAt(kPlaceInsideOnTop, group), above = madeAt(kPlaceAbove, middle),
                          below = madeAt(kPlaceBelow, middle);
        const AIArtHandle top = madeAt(kPlaceInsideOnTop, group), bottom = madeAt(kPlaceInsideOnBottom, group);
        std::vector<AIArtHandle> order;
        for (art.GetArtFirstChild(group, &found); found; art.GetArtSibling(found, &found)) order.push_back(found);
        EXPECT_THAT(order, testing::ElementsAre(top, above, middle, below, bottom));
        const AIArtHandle lowest = madeAt(kPlaceBelowAll, middle);
        EXPECT_EQ(art.GetArtPriorSibling(lowest, &found), kNoErr);
        EXPECT_EQ(found, group);
        ASSERT_EQ(art.GetFirstArtOfLayer(nullptr, &other), kNoErr);
        EXPECT_EQ(art.GetArtParent(group, &found), kNoErr);
        EXPECT_EQ(found, other);
        EXPECT_EQ(art.GetArtParent(other, &found), kNoErr);
        EXPECT_EQ(found, nullptr);
        // What cannot be
        using Wrong = std::tuple<std::int16_t, std::int16_t, AIArtHandle>;
        for (const auto& [type, place, prep] :
             {Wrong{kPathArt, kPlaceAbove, nullptr}, Wrong{kPathArt, kPlaceInsideOnTop, middle},
              Wrong{kPathArt, kPlaceAbove, other}, Wrong{kTextFrameArt, kPlaceAboveAll, nullptr},
              Wrong{kPathArt, 7, group}})
            EXPECT_EQ(art.NewArt(type, place, prep, &found), kBadParameterErr) << type << ' ' << place;
        EXPECT_EQ(art.DisposeArt(other), kRefusedErr);
    });
}

TEST_F(Suites, KeepPathsWholeWhateverIsWritten) {
    inMessage([&] {
        auto& path = tables.get<AIPathSuite>();
        const AIArtHandle art = newPath(3);
        AIPathSegment segments[3]{};
        for (int i = 0; i < 3; ++i) segments[i].p = segments[i].in = segments[i].out = {AIReal(30 * i), AIReal(40 * i)};
        ASSERT_EQ(path.SetPathSegments(art, 0, 3, segments), kNoErr);
        AIReal length = 0;
        EXPECT_EQ(path.GetPathLength(art, &length, 0.01), kNoErr);
        EXPECT_DOUBLE_EQ(length, 100); // two hops of 30 by 40
        AIPathSegment bad[2] = {segments[2], segments[1]};
        bad[1].out.v = std::nan("");
        EXPECT_EQ(path.SetPathSegments(art, 0, 2, bad), kBadParameterErr);
        EXPECT_EQ(path.SetPathSegments(art, 2, 2, segments), kBadParameterErr);
        EXPECT_EQ(path.SetPathSegments(art, -1, 1, segments), kBadParameterErr);
        EXPECT_EQ(path.SetPathSegmentCount(art, -1), kBadParameterErr);
        AIPathSegment read[3]{};
        EXPECT_EQ(path.GetPathSegments(art, 1, 3, read), kBadParameterErr);
        ASSERT_EQ(path.GetPathSegments(art, 0, 3, read), kNoErr);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(read[i].out.v, segments[i].out.v);
        segments[1].in.h = 25;
        ASSERT_EQ(path.SetPathSegments(art, 1, 2, segments + 1), kNoErr);
        ASSERT_EQ(path.ReversePathSegments(art), kNoErr);
        ASSERT_EQ(path.GetPathSegments(art, 0, 2, read), kNoErr);
        EXPECT_EQ(read[0].p.h, 60);
        EXPECT_EQ(read[1].in.h, 30);
        EXPECT_EQ(read[1].out.h, 25);
        AIArtHandle group = nullptr;
        ASSERT_EQ(tables.get<AIArtSuite>().NewArt(kGroupArt, kPlaceAboveAll, nullptr, &group), kNoErr);
        std::int16_t count = 5;
        EXPECT_EQ(path.GetPathSegmentCount(group, &count), kBadParameterErr);
        EXPECT_EQ(count, 5);
        AIPathStyle style{};
        ASSERT_EQ(tables.get<AIPathStyleSuite>().GetPathStyle(art, &style), kNoErr);
        style.dash = {.length = 2, .offset = 1, .array = {3, 4}};
        style.cap = kAIRoundCap;
        ASSERT_EQ(tables.get<AIPathStyleSuite>().SetPathStyle(art, &style), kNoErr);
        AIPathStyle again{};
        ASSERT_EQ(tables.get<AIPathStyleSuite>().GetPathStyle(art, &again), kNoErr);
        EXPECT_EQ(again.cap, kAIRoundCap);
        EXPECT_EQ(again.dash.array[1], 4);
        style.miterLimit = 0.5;
        EXPECT_EQ(tables.get<AIPathStyleSuite>().SetPathStyle(art, &style), kBadParameterErr);
    });
}

// A tool that chose another tool while the mouse went down or up once brought the session into endless mouse-ups.
TEST_F(Suites, PutTheChoiceOfAToolOffUntilTheGestureIsThrough) {
    AIToolHandle first = nullptr, second = nullptr;
    inMessage([&] {
        const auto add = [&](const char* name, std::int32_t options, AIToolHandle& tool) {
            const AIAddToolData data{name, "", kNoToolNumber, kNoToolNumber, 0, 0};
            ASSERT_EQ(tables.get<AIToolSuite>().AddTool(plugin.handle, name, &data, options, &tool), kNoErr);
        };
        add("first", kToolWantsBufferedDraggingOption, first);
        add("second", 0, second);
        ASSERT_EQ(tables.get<AIToolSuite>().SetSelectedTool(first), kNoErr);
        AIToolHandle own = nullptr;
        EXPECT_EQ(tables.get<AIToolSuite>().GetSelectedTool(&own), kNoErr);
        EXPECT_EQ(own, session.toolbox.findByName("Selection Tool")->handle); // not before this has been handled
        EXPECT_EQ(tables.get<AIToolSuite>().RemoveTool(own), kRefusedErr);
        EXPECT_EQ(tables.get<AIToolSuite>().SetToolTitle(own, "Mine"), kRefusedErr);
    });
    ASSERT_EQ(session.toolbox.current(), session.toolbox.find(first));
    int messages = 0;
    work = [&](SPMessageData&) {
        ++messages;
        newPath(2);
        tables.get<AIToolSuite>().SetSelectedTool(second);
    };
    session.pointer.press({10, 10}, 0); // the choice cancels it, which sends a mouse-up, a deselect and a select
    EXPECT_EQ(session.toolbox.current(), session.toolbox.find(second));
    EXPECT_FALSE(session.pointer.pressed());
    EXPECT_LE(messages, 6);
    messages = 0;
    const auto before = session.document()->currentLayer().childCount();
    session.pointer.press({10, 10}, 0);
    session.pointer.cancel();
    session.pointer.press({10, 10}, 0);
    work = [&](SPMessageData&) {
        newPath(2);
        tables.get<AIToolSuite>().SetSelectedTool(first);
    };
    session.pointer.release({10, 10}, 0);
    EXPECT_EQ(session.toolbox.current(), session.toolbox.find(first));
    EXPECT_GT(session.document()->currentLayer().childCount(), before); // the drawing of the release stays
    // Chosen, and gone before it could be.
    inMessage([&] {
        tables.get<AIToolSuite>().SetSelectedTool(second);
        tables.get<AIToolSuite>().RemoveTool(second);
    });
    EXPECT_EQ(session.toolbox.current(), session.toolbox.find(first));
}

TEST_F(Suites, TellATakenBackGestureFromAReleaseAndNoteLines) {
    inMessage([&] {
        AIToolHandle tool = nullptr;
        const AIAddToolData data{
            .title = "T", .tooltip = "", .groupNumber = -2, .toolsetNumber = -2, .lightIconID = 0, .darkIconID = 0};
        ASSERT_EQ(tables.get<AIToolSuite>().AddTool(plugin.handle, "T", &data, 0, &tool), kNoErr);
        ASSERT_EQ(tables.get<AIToolSuite>().SetSelectedTool(tool), kNoErr);
        EXPECT_EQ(tables.get<StageSuite>().Log(plugin.handle, "a line"), kNoErr);
        EXPECT_EQ(tables.get<StageSuite>().Log(nullptr, "a line"), kUnknownHandleErr);
    });
    EXPECT_THAT(session.reports.lines(), testing::Contains("plug-in: Test: a line").Times(1));
    session::Pointer& pointer = session.pointer;
    const struct {
        std::function<void()> end;
        bool takenBack;
    } ends[] = {
        {[&] {
             pointer.release({20, 20}, 0);
         },
         false},
        {[&] { session.input.pressKey(session::key::kEscape, 0); }, true},
        {[&] {
             pointer.release({20, 20}, 0);
         },
         false}, // after one that was taken back
        {[&] { session.input.selectTool(*session.toolbox.current()); }, true},
        {[&] { session.close(); }, true},
    };
    for (const auto& each : ends) {
        std::vector<std::uint32_t> flags;
        pointer.press({10, 10}, 0);
        EXPECT_FALSE(pointer.takenBack());
        work = [&](SPMessageData& record) { flags.push_back(reinterpret_cast<AIToolMessage&>(record).flags); };
        each.end();
        work = nullptr;
        ASSERT_FALSE(flags.empty());
        EXPECT_EQ(flags.front(), each.takenBack ? std::uint32_t{kAIGestureTakenBack} : 0U);
        EXPECT_EQ(pointer.takenBack(), each.takenBack);
        for (std::size_t i = 1; i < flags.size(); ++i) EXPECT_EQ(flags[i], 0U); // what follows is no mouse-up
    }
}

TEST_F(Suites, PassMessagesOnWithTheirGlobalsInOneTransaction) {
    int ours = 0, senders = 0, receivers = 0, later = 0;
    plugin.globals = &ours;
    work = [&](SPMessageData& outer) {
        newPath(2);
        EXPECT_EQ(outer.self, plugin.handle);
        EXPECT_EQ(outer.globals, &ours);
        work = [&](SPMessageData& inside) {
            newPath(3);
            EXPECT_EQ(inside.self, plugin.handle);
            EXPECT_EQ(inside.basic, &tables.basicSuite);
            EXPECT_EQ(std::exchange(inside.globals, &receivers), &senders);
        };
        SPMessageData inner{};
        SPErr result = 99;
        auto& interface = tables.get<SPInterfaceSuite>();
        EXPECT_EQ(interface.EmptyMessageData(plugin.handle, &inner), kBadParameterErr);
        EXPECT_EQ(interface.SetUpMessageData(plugin.handle, &inner), kNoErr);
        EXPECT_EQ(std::exchange(inner.globals, &senders), &ours);
        EXPECT_EQ(interface.SendMessage(plugin.handle, "Test", "Inner", &inner, &result), kNoErr);
        EXPECT_EQ(result, kNoErr);
        EXPECT_EQ(inner.globals, &receivers);
        EXPECT_EQ(interface.SendMessage(plugin.handle, nullptr, "Inner", &inner, &result), kBadParameterErr);
        EXPECT_EQ(interface.EmptyMessageData(plugin.handle, &inner), kNoErr);
        EXPECT_EQ(inner.basic, nullptr);
        plugin.started = false;
        EXPECT_EQ(interface.SendMessage(plugin.handle, "Test", "Inner", &inner, &result), kRefusedErr);
        plugin.started = true;
        outer.globals = &later;
    };
    SPMessageData record{};
    session.messenger.send(plugin, "Test", "Outer", record);
    EXPECT_EQ(plugin.globals, &later); // what the host's own message is given back is kept
    EXPECT_EQ(session.document()->currentLayer().childCount(), 2u);
    EXPECT_EQ(session.document()->journal().undoDepth(), 1u);
    inMessage([&] {
        EXPECT_EQ(tables.get<AIUndoSuite>().SetKind(kAIAppendUndoContext), kNoErr);
        EXPECT_EQ(tables.get<AIUndoSuite>().SetKind(3), kBadParameterErr);
        newPath(2);
    });
    EXPECT_EQ(session.document()->journal().undoDepth(), 1u);
}

} // namespace
