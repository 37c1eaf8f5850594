// Scripts with plug-ins in play: menus that are chosen, timers, and two bundles that talk to each other.
#include <gmock/gmock.h>

#include "places/Places.h"
#include "support/Playing.h"

namespace {

class PluginScripts : public desk::Playing {
  protected:
    PluginScripts() {
        for (const char* name : {"Declining", "Answering", "Asking"})
            session.plugins.load(std::string(TEST_BUILD_DIR) + "/" + name + ".aip");
        EXPECT_THAT(session.start(), testing::SizeIs(1)); // the first declines, and the others start all the same
    }
};

TEST_F(PluginScripts, ListAndChooseMenuItems) {
    EXPECT_EQ(play(R"js(
        function show() {
            app.menus.forEach(function (menu) {
                print(menu.group + ":", menu.items.map(function (item) {
                    return item.divider ? "-" : item.text + (item.checked ? " *" : "") + (item.enabled ? "" : " (off)") +
                        (item.opens ? " > " + item.opens : "");
                }).join(" | "));
            });
        }
        show();
        app.chooseMenu("Answering: Count");
        app.chooseMenu("Asking: Ask");
        show();
    )js"),
              "Edit Utilities: Answers > KZO Answers\n"
              "KZO Answers: - | Answering: Ask | Answering: Count | Answering: nothing yet (off) | "
              "- | Asking: Ask | Asking: Count | Asking: nothing yet (off)\n"
              "Edit Utilities: Answers > KZO Answers\n"
              "KZO Answers: - | Answering: Ask | Answering: Count * | Answering: nothing yet (off) | "
              "- | Asking: Ask | Asking: Count | Asking: 42 from Answering (off)\n");
    EXPECT_THAT(session.reports.lines(), testing::IsEmpty());
}

TEST_F(PluginScripts, LetTimersRun) {
    EXPECT_EQ(play(R"js(
        function result() { return app.menus[1].items[3].text; }
        app.chooseMenu("Answering: Count");
        app.runFor(0.49);
        print(result());
        app.runFor(1.01);
        print(result());
    )js"),
              "Answering: nothing yet\nAnswering: tick 3\n");
}

TEST_F(PluginScripts, KnowThePluginsAndTalkToThem) {
    EXPECT_EQ(play(R"js(
        app.plugins.forEach(function (plugin) { print(plugin.name, plugin.file, plugin.started, plugin.broken); });
        print(app.sendMessage("Asking", "Test", "Double"), app.sendMessage("Asking", "Nobody", "Knows"));
        app.notify("AI Application Started Notifier");
        app.quit();
        print(app.plugins[1].started, app.menus.length);
    )js"),
              "Declining Declining.aip false true\nAnswering Answering.aip true false\nAsking Asking.aip true false\n"
              "0 0\nfalse 0\n");
    EXPECT_THAT(session.reports.lines(), testing::IsEmpty());
}

TEST_F(PluginScripts, SeeTheCursorAndSetTheDisplay) {
    session.screen.cursor = {
        .number = 0, .plugin = session.plugins.all()[1]->handle, .resource = 5, .hotSpot = {3, 4}, .scale = 2};
    EXPECT_EQ(play("print(JSON.stringify(app.cursor), app.displayScale); app.displayScale = 2.5; app.quit();"
                   "print(app.cursor, app.displayScale); app.displayScale = -1;"),
              "{\"plugin\":\"Answering\",\"resource\":5,\"hotSpot\":[3,4],\"scale\":2} 1\n"
              "0 2.5\n" // a plug-in's picture goes with it
              "1: app.displayScale: argument 1 (value) must be a number greater than 0, not -1");
}

TEST_F(PluginScripts, SeeWhatAnnotatorsDraw) {
    EXPECT_EQ(play(R"js(
        function show() {
            app.annotations.forEach(function (mark) { print(JSON.stringify(mark)); });
            print("undo", app.document.undoDepth);
        }
        app.newDocument(100, 100);
        app.selectTool("Answering: Measure");
        mouse.press(10, 10);
        show();
        mouse.drag(20, 10);
        mouse.drag(40, 50);
        show();
        mouse.drag(10, 20);
        print(app.annotations[1].text);
        mouse.release(10, 20);
        show();
    )js"),
              "undo 0\n"
              R"({"kind":"line","annotator":"Measure","points":[[10,10],[40,50]],"filled":false,"color":"#0000ff",)"
              R"("opacity":1,"width":1,"dash":4,"text":null,"size":null})"
              "\n"
              R"({"kind":"text","annotator":"Measure","points":[[40,50]],"filled":true,"color":"#0000ff",)"
              R"("opacity":1,"width":null,"dash":null,"text":"50 pt","size":12})"
              "\nundo 0\n10 pt\nundo 0\n");
    EXPECT_THAT(session.reports.lines(), testing::IsEmpty());
}

TEST_F(PluginScripts, AreToldWhatCannotBe) {
    const std::pair<const char*, const char*> lines[] = {
        {"app.chooseMenu('Nothing')", "1: app.chooseMenu: no menu item has the text \"Nothing\""},
        {"app.chooseMenu('Answering: Count', 'Nowhere')",
         "1: app.chooseMenu: no menu item in the group \"Nowhere\" has the text \"Answering: Count\""},
        {"app.hostVersion = 19.5", "1: app.hostVersion: the value must be a whole number from 1 to 1000"},
        {"app.chooseMenu('Answers')", "1: app.chooseMenu: the menu item \"Answers\" opens a submenu"},
        {"app.chooseMenu('Asking: nothing yet')",
         "1: app.chooseMenu: the menu item \"Asking: nothing yet\" is disabled"},
        {"app.chooseMenu('')", "1: app.chooseMenu: no menu item has the text \"\""}, // dividers have no text
        {"app.runFor(0)", "1: app.runFor: argument 1 (seconds) must be a number greater than 0, not 0"},
        {"app.exportPNG('x.png', 1, {grid: true})",
         "1: app.exportPNG: argument 3 (options): \"grid\" means nothing here"},
        {"app.sendMessage('Who', 'a', 'b')", "1: app.sendMessage: no plug-in has the name \"Who\""},
        {"app.sendMessage('Declining', 'a', 'b')", "1: app.sendMessage: the plug-in \"Declining\" is not running"},
    };
    for (const auto& [source, error] : lines) EXPECT_EQ(play(source), error) << source;
}

} // namespace
