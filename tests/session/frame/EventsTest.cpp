// What subscribers hear after each thing that a user or a plug-in does: every event once, and only when it happened.
#include <gmock/gmock.h>

#include <fstream>
#include <functional>

#include "places/Places.h"
#include "session/app/Session.h"
#include "suites/Tables.h"
#include "support/Drawing.h"
#include "support/Folder.h"

namespace {

using namespace easel;
using testing::ElementsAre;
using testing::IsEmpty;

struct Hearing {
    std::vector<std::string> heard;
    std::function<void(const std::string& type)> whenTold;
    std::function<void()> onTool;
};
Hearing* hearing = nullptr;

/// Every event that the interface names.
std::vector<std::string> allTypes() {
    std::ifstream header(PROJECT_DIR "/src/hostapi/AINotifierSuite.h");
    std::vector<std::string> types;
    for (std::string text; std::getline(header, text, '"');)
        if (text.rfind("AI ", 0) == 0) types.push_back(text);
    return types;
}

SPErr hear(const char* caller, const char* selector, void* message) {
    const auto& head = *static_cast<SPMessageData*>(message);
    if (caller == std::string(kCallerAITool) && hearing->onTool) hearing->onTool();
    if (caller == std::string(kCallerAINotify)) {
        const std::string type = static_cast<AINotifierMessage*>(message)->type;
        hearing->heard.push_back(type);
        if (hearing->whenTold) hearing->whenTold(type);
    }
    if (selector != std::string(kSPInterfaceStartupSelector)) return kNoErr;
    auto& suite = suites::Tables::of(*session::Session::current().suites).get<AINotifierSuite>();
    for (const std::string& type : allTypes()) {
        AINotifierHandle handle = nullptr;
        EXPECT_EQ(suite.AddNotifier(head.self, "hear", type.c_str(), &handle), kNoErr);
    }
    return kNoErr;
}

class EventsTest : public testing::Test {
  protected:
    EventsTest() {
        hearing = &own;
        session.start();
        session.newDocument(100, 100);
        session.pointer.snapping.toPoint = false;
        EXPECT_THAT(own.heard, ElementsAre(kAIAllPluginsStartedNotifier, kAIApplicationStartedNotifier,
                                           kAIDocumentNewNotifier, kAIDocumentChangedNotifier));
        own.heard.clear();
    }
    ~EventsTest() override { session.quit(); }

    /// What is heard of `work`, done as by a script.
    std::vector<std::string> after(const std::function<void(model::Document&)>& work) {
        own.heard.clear();
        session.document()->journal().begin();
        work(*session.document());
        session.document()->journal().end();
        session.messenger.flush();
        return std::exchange(own.heard, {});
    }
    model::Node& addPath() {
        model::Node& path = addLine(*session.document(), session.document()->currentLayer(), {10, 10}, {50, 10});
        session.messenger.flush();
        return path;
    }

    Hearing own;
    session::Session session;
    session::Plugin& plugin = session.plugins.attach("Hearing", hear);
};

TEST_F(EventsTest, TellOfArtAndLayersByTheNetEffect) {
    using Doc = model::Document;
    model::Node& path = addPath();
    model::Node& layer = session.document()->currentLayer();
    EXPECT_THAT(after([&](Doc& d) { d.select(path, true); }), ElementsAre(kAIArtSelectionChangedNotifier));
    EXPECT_THAT(after([&](Doc& d) {
                    d.deselectAll();
                    d.offset(path, 5, 5);
                    d.offset(path, -5, -5);
                    d.select(path, true);
                    d.setName(layer, "other");
                    d.setName(layer, "Layer 1");
                }),
                IsEmpty());
    EXPECT_THAT(after([&](Doc& d) { d.offset(path, 5, 5); }), ElementsAre(kAIArtPropertiesChangedNotifier));
    model::Style style;
    style.strokeWidth = 3;
    EXPECT_THAT(after([&](Doc& d) { d.setStyle(path, style); }),
                ElementsAre(kAIArtPropertiesChangedNotifier, kAIUpdatePathStyleNotifier));
    EXPECT_THAT(after([&](Doc& d) { d.setName(path, "x"); }),
                ElementsAre(kAIArtPropertiesChangedNotifier, kAIXMLNameChangedNotifier));
    EXPECT_THAT(after([&](Doc& d) { d.setLocked(layer, true); }),
                ElementsAre(kAILayerOptionsNotifier, kAIArtSelectionChangedNotifier));
    after([&](Doc& d) { d.select(path, true); });
    EXPECT_THAT(after([&](Doc& d) { d.addLayer("second"); }),
                ElementsAre(kAILayerSetNotifier, kAICurrentLayerNotifier));
    EXPECT_THAT(after([&](Doc& d) { d.setCurrentLayer(layer); }), ElementsAre(kAICurrentLayerNotifier));
    // With the layer goes the selected path in it, which nobody touched.
    EXPECT_THAT(after([&](Doc& d) { d.remove(layer); }),
                ElementsAre(kAILayerDeletionNotifier, kAILayerSetNotifier, kAICurrentLayerNotifier,
                            kAIArtPropertiesChangedNotifier, kAIArtSelectionChangedNotifier));
    own.heard.clear();
    session.document()->journal().undo();
    session.messenger.flush();
    EXPECT_THAT(own.heard, ElementsAre(kAILayerSetNotifier, kAICurrentLayerNotifier, kAIArtPropertiesChangedNotifier,
                                       kAIArtSelectionChangedNotifier));
}

TEST_F(EventsTest, TellOfDocumentsAndViewsInOrder) {
    const desk::Folder folder;
    const std::string file = folder.path("told.svg");
    session.newDocument(50, 50);
    session.save(file);
    session.close();
    EXPECT_THAT(own.heard,
                ElementsAre(kAIDocumentNewNotifier, kAIDocumentChangedNotifier, kAIDocumentWritePreprocessNotifier,
                            kAIDocumentWritePostprocessNotifier, kAIDocumentSavedNotifier,
                            kAIDocumentAboutToCloseNotifier, kAIDocumentClosedNotifier, kAIDocumentChangedNotifier));
    own.heard.clear();
    session.open(file);
    EXPECT_THAT(own.heard, ElementsAre(kAIDocumentOpenedNotifier, kAIDocumentChangedNotifier));
    EXPECT_THAT(after([](model::Document& d) { d.view.zoom = 2; }), ElementsAre(kAIDocumentViewChangedNotifier));
    EXPECT_THAT(after([](model::Document& d) {
                    d.view.center = {1, 1};
                }),
                ElementsAre(kAIDocumentViewChangedNotifier, kAIInvalidateByScrollNotifier));
    session.quit();
    EXPECT_THAT(own.heard, ElementsAre(kAIApplicationShutdownNotifier, kAIAllPluginsStoppingNotifier));
}

TEST_F(EventsTest, TellOfAGestureWhenItIsOver) {
    addPath();
    own.heard.clear();
    session.pointer.press({20, 10}, 0);
    session.pointer.drag({20, 30}, 0);
    session.pointer.drag({20, 50}, kAIShiftKey);
    EXPECT_THAT(own.heard, IsEmpty());
    session.pointer.release({20, 50}, 0);
    EXPECT_THAT(own.heard, ElementsAre(kAIArtPropertiesChangedNotifier, kAIArtSelectionChangedNotifier));
    own.heard.clear();
    session.pointer.press({20, 50}, kAIShiftKey);
    session.pointer.cancel();
    EXPECT_THAT(own.heard, ElementsAre(kAIToolModifiersChangedNotifier));
}

TEST_F(EventsTest, TellOfToolsAndMenus) {
    const auto& tools = suites::Tables::of(*session.suites).get<AIToolSuite>();
    AIToolHandle tool = nullptr;
    const auto inMessage = [&](const std::function<void()>& work) {
        own.heard.clear();
        own.onTool = work;
        AIToolMessage message{};
        session.messenger.send(plugin, kCallerAITool, "Test", message.d);
        own.onTool = nullptr;
        return std::exchange(own.heard, {});
    };
    EXPECT_THAT(inMessage([&] {
                    const AIAddToolData data{"Title", "tip", kNoToolNumber, kNoToolNumber, 0, 0};
                    tools.AddTool(plugin.handle, "name", &data, 0, &tool);
                    tools.SetSelectedTool(tool);
                }),
                ElementsAre(kAIToolDeselectedNotifier, kAIToolSelectedNotifier, kAIUserToolChangedNotifier,
                            kAIToolWindowChangedNotifier));
    EXPECT_THAT(inMessage([&] {
                    tools.SetToolTitle(tool, "Other");
                    tools.SetTooltip(tool, "tip");
                }),
                ElementsAre(kAIToolTitleChangedNotifier, kAIToolChangedNotifier));
    EXPECT_THAT(inMessage([&] { tools.SetTooltip(tool, "other"); }),
                ElementsAre(kAIToolTooltipChangedNotifier, kAIToolChangedNotifier));
    EXPECT_THAT(inMessage([&] { tools.RemoveTool(tool); }),
                ElementsAre(kAIToolDeselectedNotifier, kAIToolSelectedNotifier, kAIUserToolChangedNotifier,
                            kAIToolWindowChangedNotifier));
    const auto& menus = suites::Tables::of(*session.suites).get<AIMenuSuite>();
    AIMenuItemHandle item = nullptr;
    EXPECT_THAT(inMessage([&] { menus.AddMenuItem(plugin.handle, "Edit", "Item", 0, &item); }),
                ElementsAre(kAIMenuChangedNotifier));
    EXPECT_THAT(inMessage([&] { menus.SetMenuItemChecked(item, true); }), ElementsAre(kAIMenuChangedNotifier));
    EXPECT_THAT(inMessage([&] { menus.SetMenuItemChecked(item, true); }), IsEmpty());
}

// A subscriber may change what it is told of; it hears of what follows from that, but never of the same again.
TEST_F(EventsTest, ComeToAnEndWhenSubscribersChangeMore) {
    model::Node& path = addPath();
    own.whenTold = [&](const std::string& type) {
        model::Document& d = *session.document();
        if (type == kAIArtSelectionChangedNotifier) {
            d.select(path, !path.selected());
            d.offset(path, 1, 1);
        }
        if (type == kAIArtPropertiesChangedNotifier) d.offset(path, 1, 1);
    };
    EXPECT_THAT(after([&](model::Document& d) { d.select(path, true); }),
                ElementsAre(kAIArtSelectionChangedNotifier, kAIArtPropertiesChangedNotifier));
    EXPECT_THAT(after([](model::Document&) {}), IsEmpty());
}

} // namespace
