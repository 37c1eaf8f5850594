// Dialogs seen from the plug-in: where widgets are, what texts are shown, and what comes of a dialog in odd moments.
// What a user's doings lead to is in tests/dialogs/scenarios.txt.
#include <gmock/gmock.h>

#include <boost/algorithm/string/replace.hpp>

#include <cmath>

#include "core/app/Plugin.h"
#include "core/dialogs/Alerts.h"
#include "core/dialogs/Checkbox.h"
#include "core/dialogs/ModalDialog.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/Timer.h"
#include "core/frame/Tool.h"
#include "places/Places.h"
#include "support/Desk.h"

namespace {

using namespace kzo::core;
using desk::Desk;
using testing::ElementsAre;

class Dialogs : public testing::Test {
  protected:
    Dialogs() {
        desk.session().dialogs.face = [this](easel::session::Dialog& dialog) {
            ++shown;
            if (user) user(dialog);
        };
    }

    [[nodiscard]] easel::session::Dialogs& hosts() { return desk.session().dialogs; }
    /// The widgets that the host shows, "text x,y width,height" each.
    static std::vector<std::string> places(const easel::session::Dialog& dialog) {
        std::vector<std::string> all;
        for (const auto& each : dialog.widgets) {
            if (!dialog.shows(each)) continue;
            std::ostringstream line;
            line << each.text << ' ' << each.frame.left << ',' << each.frame.top << ' '
                 << each.frame.right - each.frame.left << ',' << each.frame.bottom - each.frame.top;
            all.push_back(line.str());
        }
        return all;
    }

    std::vector<std::string> said;
    Desk desk{{.openDocument = false, .said = &said}};
    std::function<void(easel::session::Dialog&)> user; ///< closes it in the end, or else the host does
    int shown = 0;
    int pressed = 0;
    const WorkCallback<std::function<void()>> press{[this] { ++pressed; }};
};

TEST_F(Dialogs, AreWideAsToldAndHighEnough) {
    std::vector<std::string> seen;
    std::vector<double> sizes;
    user = [&](auto& dialog) {
        seen = places(dialog);
        sizes = {dialog.width, dialog.height};
    };
    desk.inMessage([&] {
        const ModalDialog::ButtonOptions button(true, press, true, "");
        // The lowest widget ends at 108; then come the strip's margin, the buttons of 26, and the margin.
        ModalDialog low("Low", {240, 100}, button, button);
        low.addWidget(Checkbox({16, 90}, "Box", 208, CheckboxState::Checked));
        low.show();
        EXPECT_THAT(sizes, ElementsAre(240, 158));
        EXPECT_THAT(seen, ElementsAre("Box 16,90 208,18", "OK 148,120 80,26", "Cancel 56,120 80,26"));
        // What lies beside the content is not seen, though Escape finds it.
        ModalDialog wide("Wide", {300, 264});
        Button hidden({310, 0}, "Close", 80);
        hidden.setStyle(ButtonStyle::Cancel);
        hidden.setClickCallback(press);
        wide.addWidget(hidden);
        wide.addWidget(Button({20, 230}, "Credits", 95));
        wide.show();
        EXPECT_THAT(sizes, ElementsAre(300, 264));
        EXPECT_THAT(seen, ElementsAre("Credits 20,230 95,26"));
        EXPECT_EQ(pressed, 2) << "Cancel of the first dialog, and the hidden button";
        // A label is as high as its text, up to the next widget below.
        ModalDialog tall("Tall", {320, 40});
        Label label({20, 20}, "One\nTwo", 270);
        tall.addWidget(label);
        tall.show();
        EXPECT_THAT(seen, ElementsAre("One\nTwo 20,20 270,34"));
        EXPECT_THAT(sizes, ElementsAre(320, 62));
        tall.addWidget(Checkbox({20, 45}, "Box", 165, CheckboxState::Checked));
        label.setText("One\nTwo\nThree\nFour");
        tall.show();
        EXPECT_THAT(seen, ElementsAre("One\nTwo\nThree\nFour 20,20 270,25", "Box 20,45 165,18"));
        EXPECT_EQ(label.frame().size.height(), 68);
    });
}

TEST_F(Dialogs, ShowTextsCutAndCleaned) {
    const std::pair<std::string, std::string> rows[] = {
        {"plain \xC3\xA9 \xF0\x9F\x98\x80", "plain \xC3\xA9 \xF0\x9F\x98\x80"},
        {"a\tb\x1B[31mc\x7F\xC2\x9B", "a b [31mc  "},
        {"two\nlines", "two\nlines"},
        {std::string("nul\0in", 6), "nul in"},
        {"\xFF", "\xEF\xBF\xBD"},
        {"cut \xE2\x82", "cut \xEF\xBF\xBD\xEF\xBF\xBD"},
        {"\xC0\xAF over\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD over\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"turned \xE2\x80\xAE", "turned  "},
        {std::string(40, '\n') + "end", std::string(29, '\n') + std::string(11, ' ') + "end"},
        {std::string(10000, 'x'), std::string(999, 'x') + "\xE2\x80\xA6"},
    };
    desk.inMessage([&] {
        for (const auto& [text, clean] : rows) {
            EXPECT_EQ(Label({0, 0}, text, 100).text(), clean);
            TextField field({0, 0}, "", 100);
            field.setText(text);
            EXPECT_EQ(field.text(), boost::replace_all_copy(clean, "\n", " "));
            if (text.size() > 1000) continue;
            alerts::message(text);
            EXPECT_EQ(said.back(), clean);
        }
        alerts::error(std::string(10000, 'x'));
        EXPECT_EQ(said.back(), std::string(1999, 'x') + "\xE2\x80\xA6");
        // What the user pastes is cleaned too, on the screen as well.
        ModalDialog dialog("\x01", {100, 100});
        TextField field({10, 10}, "", 80);
        dialog.addWidget(field);
        user = [&](auto& open) {
            EXPECT_EQ(open.title, " ");
            hosts().type(open, open.widgets[0].id, "a\nb\xFF");
            EXPECT_EQ(open.widgets[0].text, "a b\xEF\xBF\xBD");
        };
        dialog.show();
        EXPECT_EQ(field.text(), "a b\xEF\xBF\xBD");
    });
}

TEST_F(Dialogs, ReportACommitOnce) {
    int changes = 0;
    desk.inMessage([&] {
        ModalDialog dialog("Commit", {100, 100}, {true, press, true, "Yes"}, {});
        TextField field({10, 10}, "1", 80);
        field.setValueChangedCallback(callback([&] { ++changes; }));
        dialog.addWidget(field);
        user = [&](auto& open) {
            const std::int32_t id = open.widgets[0].id;
            hosts().type(open, id, "2");
            EXPECT_TRUE(field.hasFocus());
            for (int i = 0; i < 3; ++i) hosts().commit(open, id);
            EXPECT_EQ(changes, 1);
            hosts().type(open, id, "3");
            field.setEnabled(false); // by which it is left
            EXPECT_EQ(changes, 2);
            EXPECT_EQ(open.focus, 0);
            field.setEnabled(true);
            field.focus();
            field.setValueChangingCallback(callback([&] { field.setText("9"); }));
            hosts().type(open, id, "4");
            EXPECT_EQ(changes, 2);
            hosts().commit(open, id);
            EXPECT_EQ(changes, 3) << "of a text that its keystroke led to";
            field.setValueChangingCallback(callback([] {}));
            hosts().type(open, id, "5");
            dialog.removeWidget(field);
            EXPECT_EQ(changes, 4);
            dialog.addWidget(field);
            field.focus();
            hosts().type(open, id, "6");
            hosts().press(open, kStageReturnKey);
            hosts().commit(open, id); // by a host that is late with it
        };
        EXPECT_TRUE(field.hasFocus()) << "as soon as it shows";
        field.blur();
        EXPECT_FALSE(field.hasFocus());
        field.focus();
        dialog.show();
        EXPECT_EQ(dialog.chosenButton(), dialog.okButton());
    });
    EXPECT_EQ(changes, 4);
    EXPECT_EQ(pressed, 1);
}

TEST_F(Dialogs, KeepWhatTheyAreTold) {
    desk.inMessage([&] {
        ModalDialog dialog("Title", {100, 50}, {true, press, false, "Yes"}, {});
        Label label({10, 10}, "Name", 40);
        TextField field({50, 10}, "abc", 40);
        Checkbox box({10, 40}, "Box", 80, CheckboxState::Checked);
        for (const Widget& each : {Widget(label), Widget(field), Widget(box)}) dialog.addWidget(each);
        field.setLabel(label);
        field.setSelectionRange({1, 2});
        field.setAlignment(TextAlignment::Right);
        label.setBold(true);
        box.setTooltip("Tip");
        box.offset(5, -2);
        EXPECT_EQ(box.frame(), Rect(15, 38, 80, 18));
        EXPECT_EQ(field.selectionRange(), (SelectionRange{1, 2}));
        EXPECT_EQ(box.window(), dialog);
        EXPECT_EQ(field.type(), WidgetType::TextField);
        user = [&](auto& open) {
            const auto& shownLabel = open.widgets[0];
            const auto& shownField = open.widgets[1];
            EXPECT_TRUE(shownLabel.bold);
            EXPECT_EQ(shownLabel.linked, shownField.id);
            EXPECT_EQ(shownField.alignment, kStageAlignRight);
            EXPECT_EQ(open.widgets[2].tooltip, "Tip");
            EXPECT_TRUE(open.widgets[2].checked);
            hosts().type(open, shownField.id, "xy"); // in place of the b
            EXPECT_EQ(field.text(), "axyc");
            EXPECT_EQ(field.selectionRange(), (SelectionRange{3, 3}));
            EXPECT_EQ(Widget::lastValueChangingWidget(), field);
            int keys = 0;
            field.setValueChangingCallback(callback([&] { ++keys; }));
            namespace keyed = easel::session;
            const std::pair<std::string_view, std::size_t> carets[] = {
                {keyed::kLeftKey, 2},   {keyed::kRightKey, 3}, {keyed::kUpKey, 0},    {keyed::kLeftKey, 0},
                {keyed::kDeleteKey, 0}, {keyed::kEndKey, 4},   {keyed::kRightKey, 4}, {keyed::kHomeKey, 0},
                {keyed::kDownKey, 4},   {keyed::kF1Key, 4}};
            for (const auto& [key, place] : carets) {
                hosts().type(open, shownField.id, std::string(key));
                EXPECT_EQ(field.lastCharTyped(), key);
                EXPECT_EQ(field.selectionRange(), (SelectionRange{place, place})) << keys;
            }
            EXPECT_EQ(keys, 10);
            EXPECT_EQ(field.text(), "axyc");
            box.setVisible(false);
            EXPECT_FALSE(open.widgets[2].visible);
            box.click(); // nobody could
            EXPECT_TRUE(box.checked());
            dialog.removeWidget(box);
            EXPECT_EQ(open.widgets.size(), 3u); // with OK
            hosts().press(open, kStageReturnKey);
            EXPECT_TRUE(dialog.visible()) << "OK was told not to close it";
            EXPECT_EQ(Widget::lastClickedWidget(), dialog.okButton());
            const std::int32_t ok = open.widgets.back().id;
            hosts().doubleClick(open, ok);
            EXPECT_EQ(pressed, 2) << "nobody cares for its double clicks";
            int twice = 0;
            dialog.okButton().setDoubleClickCallback(callback([&] { ++twice; }));
            hosts().doubleClick(open, ok);
            EXPECT_EQ(twice * 10 + pressed, 12);
            dialog.show(); // it does already
        };
        dialog.show();
        EXPECT_EQ(shown, 1);
        EXPECT_TRUE(dialog.chosenButton().isEmpty());
        ModalDialog other("Other", {10, 10});
        other.addWidget(label);
        EXPECT_THAT(dialog.widgets(), ElementsAre(field));
    });
    EXPECT_TRUE(ModalDialog().title().empty() && TextField().text().empty() && ModalDialog().widgets().empty());
    ModalDialog().show();
    Widget().focus();
    EXPECT_EQ(Widget().type(), WidgetType::None);
}

TEST_F(Dialogs, ShowPicturesInPlaceOfTexts) {
    desk.expectReports();
    desk.inMessage([&] {
        desk.product().filePath = ORTHOLINE_BUNDLE; // where 17000.png has 24 x 24 pixels
        ModalDialog dialog("Pictures", {100, 50});
        const WidgetImages images{17000, 17002, 0};
        Label label({10, 10}, images);
        Button button({40, 10}, "Go", 50);
        const Button missing({10, 40}, WidgetImages{999});
        EXPECT_EQ(label.images(), images);
        EXPECT_EQ(label.frame(), Rect(10, 10, 24, 24));
        button.setImages({17010});
        EXPECT_EQ(button.frame(), Rect(40, 10, 50, 24)) << "the width was given";
        for (const Widget& each : {Widget(label), Widget(button), Widget(missing)}) dialog.addWidget(each);
        user = [&](auto& open) {
            const auto shownImages = [&](std::size_t at) {
                const auto& each = open.widgets[at];
                return std::vector<int>{each.image, each.rolloverImage, each.pressedImage};
            };
            EXPECT_THAT(shownImages(0), ElementsAre(17000, 17002, 17000));
            EXPECT_THAT(shownImages(1), ElementsAre(17010, 17010, 17010));
            button.setImages({});
            EXPECT_THAT(shownImages(1), ElementsAre(0, 0, 0));
            EXPECT_EQ(button.frame(), Rect(40, 10, 50, 26));
        };
        dialog.show();
        EXPECT_EQ(button.text(), "Go");
    });
    const auto& lines = desk.session().reports.lines();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_THAT(lines[0], testing::HasSubstr("dialog \"Pictures\": resource 999.png is missing or no picture"));
}

TEST_F(Dialogs, IgnorePlacesThatAreNone) {
    const double none = std::nan("");
    desk.inMessage([&] {
        Label label({none, 1}, "Text", none);
        EXPECT_EQ(label.frame(), Rect(0, 0, 0, 17));
        label.setFrame({1, 2, 30, 40});
        label.setFrame({1, none, 30, 40});
        label.setOrigin({INFINITY, 0});
        label.setWidth(none);
        label.setHeight(-INFINITY);
        label.offset(none, 1);
        EXPECT_EQ(label.frame(), Rect(1, 2, 30, 40));
        EXPECT_EQ(ModalDialog("Odd", {-5, none}).size(), Size(0, 0));
        TextField field({0, 0}, "\xC3\xA9t\xC3\xA9", 50);
        field.setSelectionRange({2, 9});
        EXPECT_EQ(field.selectionRange(), (SelectionRange{2, 3}));
        field.setSelectionRange({7, 1});
        EXPECT_EQ(field.selectionRange(), (SelectionRange{3, 3}));
    });
}

TEST_F(Dialogs, EndInOddMoments) {
    ModalDialog dialog;
    Timer timer;
    const auto make = [&] {
        desk.inMessage([&] { dialog = ModalDialog("Odd", {100, 100}, {true, press, true, ""}, {}); });
    };
    const std::pair<const char*, std::function<void(easel::session::Dialog&)>> rows[] = {
        {"by a timer",
         [&](auto&) {
             timer = Timer("Late", 1, callback([&] { dialog.dismiss(); }));
             desk.session().timers.runFor(2);
         }},
        {"after its button's callback threw",
         [&](auto& open) {
             desk.expectReports();
             dialog.okButton().setClickCallback(callback([] { throw std::runtime_error("odd"); }));
             hosts().press(open, kStageReturnKey);
             hosts().press(open, kStageEscapeKey);
         }},
        {"destroyed by itself", [&](auto&) { dialog.destroy(); }},
        {"by its host", [](auto&) {}},
        {"with another one above",
         [&](auto&) {
             ModalDialog inner("Inner", {50, 50});
             user = [&](auto&) { dialog.dismiss(); };
             inner.show();
         }},
    };
    for (const auto& [name, end] : rows) {
        make();
        user = end;
        desk.inMessage([&] { dialog.show(); });
        EXPECT_FALSE(dialog.visible()) << name;
        EXPECT_TRUE(dialog.chosenButton().isEmpty()) << name;
    }
    make();
    desk.inMessage([&] {
        {
            const desk::Refusing no(desk.tables(), &StageSuite::NewDialog);
            dialog.show();
        }
        const desk::Refusing no(desk.tables(), &StageSuite::RunDialog);
        dialog.show();
        EXPECT_FALSE(dialog.visible());
    });
    dialog.destroy();
    shown = 0;
    desk.inMessage([&] { dialog.show(); });
    EXPECT_EQ(shown, 0);
    // The application ends while a dialog is open.
    make();
    Label kept;
    user = [&](auto&) { desk.session().quit(); };
    Plugin::instance()->dispatcher()->registerMessageCallback("Test", "Last", callback([&] {
                                                                  kept = Label({0, 0}, "kept", 50);
                                                                  dialog.addWidget(kept);
                                                                  dialog.show();
                                                              }));
    SPMessageData message{};
    desk.session().messenger.send(desk.product(), "Test", "Last", message);
    EXPECT_EQ(Plugin::instance(), nullptr);
    EXPECT_TRUE(dialog.isEmpty());
    EXPECT_EQ(kept.text(), "kept");
}

TEST_F(Dialogs, BelongToToolsAndThePlugin) {
    Plugin& plugin = *Plugin::instance();
    std::vector<std::string> titles;
    user = [&](auto& dialog) { titles.push_back(dialog.title); };
    desk.inMessage([&] {
        ModalDialog about("About", {100, 100});
        ModalDialog prefs("Preferences", {100, 100});
        Tool tool(-2, -2, "Knife", "Knife", 17000, 17002, ToolOptions::None);
        EXPECT_TRUE(tool.prefsDialog().isEmpty());
        EXPECT_EQ(plugin.aboutBox().title(), "About Ortholine");
        plugin.setAboutBox(about);
        tool.setEditCallback(callback([&] { titles.push_back("edit"); }));
        tool.setPrefsDialog(prefs);
        tool.setInputDialog(about);
        EXPECT_EQ(tool.inputDialog(), about);
        easel::session::Tool& hosts = *desk.session().toolbox.findByTitle("Knife");
        desk.session().input.editTool(hosts);
        tool.setAutoShowPrefsDialog(true);
        desk.session().input.editTool(hosts);
        SPMessageData message{};
        desk.session().messenger.send(desk.product(), "SP Interface", "About", message);
        EXPECT_THAT(titles, ElementsAre("edit", "edit", "Preferences", "About"));
        user = [&](auto&) {
            desk.session().notifiers.raise(kAIApplicationShutdownNotifier);
            EXPECT_FALSE(about.visible());
        };
        about.show();
        EXPECT_EQ(plugin.aboutBox(), about);
    });
}

TEST_F(Dialogs, AlertsTellWhichButtonWasChosen) {
    std::vector<std::vector<std::string>> buttons;
    std::size_t chosen = 0;
    std::string ran;
    desk.session().alerts.handler = [&](const easel::session::Alert& alert) {
        buttons.push_back(alert.buttons);
        return chosen;
    };
    const auto run = [&](const char* name) { return callback([&ran, name] { ran += name; }); };
    desk.inMessage([&] {
        for (const auto& [index, response] : {std::pair{0, alerts::Response::First}, {1, alerts::Response::Second}}) {
            chosen = static_cast<std::size_t>(index);
            EXPECT_EQ(alerts::confirm("?"), response);
            EXPECT_EQ(alerts::confirm("?", "Go", "Stay"), response);
            EXPECT_EQ(alerts::confirm("?", "Go", run("a"), "Stay", run("b")), response);
            EXPECT_EQ(alerts::question("?", "x", run("x"), "y", run("y"), "z", run("z")), response);
        }
        chosen = 2;
        EXPECT_EQ(alerts::question("?"), alerts::Response::Third);
        EXPECT_EQ(alerts::question("?", "x", "y", "z"), alerts::Response::Third);
        EXPECT_EQ(ran, "axby");
        EXPECT_EQ(buttons.size(), 10u);
        alerts::setState(false);
        EXPECT_EQ(alerts::confirm("?", "Go", run("a"), "Stay", run("b")), alerts::Response::Second);
        EXPECT_EQ(alerts::question("?"), alerts::Response::Third);
        alerts::message("!");
        EXPECT_EQ(ran, "axby");
        EXPECT_EQ(buttons.size(), 10u);
    });
    EXPECT_THAT(buttons[0], ElementsAre("OK", "Cancel"));
    EXPECT_THAT(buttons[8], ElementsAre("Yes", "No", "Cancel"));
}

} // namespace
