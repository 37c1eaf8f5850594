// Dialogs and menu items of plug-ins in the window.
#include <QCheckBox>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTextBrowser>

#include <sstream>

#include "WindowTest.h"
#include "hostapi/AIMenuSuite.h"
#include "hostapi/AITimer.h"
#include "hostapi/AITool.h"
#include "script/Script.h"

namespace {

using testing::HasSubstr;

class WindowDialogs : public desk::WindowTest {};

/// What a plug-in hears of keys and clicks, "event:typed" each.
TEST_F(WindowDialogs, TellsPluginsOfEveryKeyAndClick) {
    static std::string heard;
    heard.clear();
    auto& plugin = session->plugins.attach("Hearing", [](const char*, const char* selector, void* message) -> SPErr {
        if (std::string(selector) != kSelectorStageDialogEvent) return kNoErr;
        const auto& event = *static_cast<const StageDialogMessage*>(message);
        heard += std::to_string(event.event) + (event.typed ? std::string(":") + event.typed : "") + " ";
        return kNoErr;
    });
    session->start();
    easel::session::Dialog& dialog = session->dialogs.add(plugin, "Keys", 200, 100);
    for (const std::int32_t kind : {kStageLabel, kStageTextField, kStageButton}) {
        easel::session::Widget widget;
        widget.id = widget.kind = kind;
        widget.frame = {0, kind * 20., 99, kind * 20. + 19};
        widget.text = std::to_string(kind);
        easel::session::Dialogs::setWidget(dialog, widget);
    }
    easel::session::Dialogs::setFocus(dialog, kStageTextField);
    whenAsked<QDialog>([&](QDialog& shown) {
        const auto part = [&](int id) { return shown.findChild<QWidget*>(QString::number(id)); };
        for (const auto code : {Qt::Key_Left, Qt::Key_F1, Qt::Key_End, Qt::Key_Delete})
            key(*part(kStageTextField), code);
        for (const int id : {kStageLabel, kStageButton})
            for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                                    QEvent::MouseButtonRelease, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
                const QPointF middle(5, 5);
                QMouseEvent event(type, middle, part(id)->mapToGlobal(middle.toPoint()), Qt::LeftButton,
                                  type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
                QApplication::sendEvent(part(id), &event);
            }
        // Neither the other button nor one let go elsewhere makes a click.
        for (const auto& [button, place] :
             {std::pair{Qt::RightButton, QPointF(5, 5)}, {Qt::LeftButton, QPointF(5, 500)}})
            for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
                QMouseEvent event(type, place, part(kStageLabel)->mapToGlobal(place), button, button, {});
                QApplication::sendEvent(part(kStageLabel), &event);
            }
        easel::session::Dialogs::end(dialog);
        key(shown, Qt::Key_Escape);
    });
    session->dialogs.run(dialog);
    EXPECT_EQ(heard, "1:\xEF\x9C\x82 1:\xEF\x9C\x84 1:\xEF\x9C\xAB 1:\x7f 3 4 3 3 4 3 ");
}

TEST_F(WindowDialogs, FollowWhatTheirPluginDoesInATimer) {
    static easel::session::Dialog* dialog;
    static bool ends;
    ends = false;
    auto& plugin = session->plugins.attach("Timing", [](const char*, const char* selector, void*) -> SPErr {
        if (std::string(selector) != kSelectorAIGoTimer) return kNoErr;
        dialog->widgets.front().text = "Done";
        if (ends) easel::session::Dialogs::end(*dialog);
        return kNoErr;
    });
    session->start();
    dialog = &session->dialogs.add(plugin, "Waiting", 200, 100);
    easel::session::Widget widget;
    widget.id = widget.kind = kStageLabel;
    widget.text = "Not yet";
    easel::session::Dialogs::setWidget(*dialog, widget);
    auto& timer = session->timers.add(plugin, "Waiting", 6);
    whenAsked<QDialog>([&](QDialog& shown) {
        EXPECT_TRUE(await([&] { return shown.findChild<QLabel*>("Done") != nullptr; }));
        ends = true;
    });
    session->dialogs.run(*dialog); // until it ends, which nobody here sees to
    session->timers.remove(timer);
}

TEST_F(WindowDialogs, ShowsAnotherPictureUnderThePointer) {
    auto& plugin = session->plugins.attach("Pictures", [](const char*, const char*, void*) -> SPErr { return kNoErr; });
    plugin.filePath = ORTHOLINE_BUNDLE;
    session->start();
    easel::session::Dialog& dialog = session->dialogs.add(plugin, "Pictures", 200, 100);
    for (const std::int32_t kind : {kStageLabel, kStageButton}) {
        easel::session::Widget widget;
        widget.id = widget.kind = kind;
        widget.frame = {kind * 30., 10, kind * 30. + 24, 34};
        widget.text = std::to_string(kind);
        widget.image = 17000;
        widget.rolloverImage = 17010;
        widget.pressedImage = 17002;
        easel::session::Dialogs::setWidget(dialog, widget);
    }
    whenAsked<QDialog>([&](QDialog& shown) {
        for (const int id : {kStageLabel, kStageButton}) {
            QWidget& part = *shown.findChild<QWidget*>(QString::number(id));
            EXPECT_EQ(part.accessibleName(), QString::number(id));
            const QPointF place(5, 5);
            QEnterEvent enter(place, place, part.mapToGlobal(place));
            QMouseEvent press(QEvent::MouseButtonPress, place, part.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                              {});
            QMouseEvent release(QEvent::MouseButtonRelease, place, part.mapToGlobal(place), Qt::LeftButton, {}, {});
            QEvent leave(QEvent::Leave);
            std::vector<QImage> pictures;
            for (QEvent* const event : std::initializer_list<QEvent*>{nullptr, &enter, &press, &release, &leave}) {
                if (event) QApplication::sendEvent(&part, event);
                const auto* const label = dynamic_cast<QLabel*>(&part);
                const QPixmap picture =
                    label ? label->pixmap() : dynamic_cast<QPushButton&>(part).icon().pixmap(QSize(24, 24), 1.0);
                pictures.push_back(picture.toImage());
            }
            EXPECT_EQ(pictures[0].size(), QSize(24, 24));
            EXPECT_NE(pictures[0], pictures[1]);
            EXPECT_NE(pictures[1], pictures[2]);
            EXPECT_NE(pictures[2], pictures[0]);
            EXPECT_EQ(pictures[3], pictures[1]);
            EXPECT_EQ(pictures[4], pictures[0]);
        }
        easel::session::Dialogs::end(dialog);
        key(shown, Qt::Key_Escape);
    });
    session->dialogs.run(dialog);
}

TEST_F(WindowDialogs, OpensAddressesOfTheWebAlone) {
    QTextBrowser browser; // whose signal stands in for the user's
    std::string opened;
    QObject::connect(&browser, &QTextBrowser::anchorClicked,
                     [&](const QUrl& url) { opened += url.toString().toStdString() + ' '; });
    for (const char* scheme : {"http", "https", "file"})
        QDesktopServices::setUrlHandler(scheme, &browser, "anchorClicked");
    for (const char* address : {"http://a.example/", "https://b.example/?c=d", "file:///etc/passwd", "none"})
        easel::app::openAddress(address);
    for (const char* scheme : {"http", "https", "file"}) QDesktopServices::unsetUrlHandler(scheme);
    EXPECT_EQ(opened, "http://a.example/ https://b.example/?c=d ");
}

/// The plug-in's own dialog, by keys and mouse; what comes of it is in the plug-in's file.
TEST_F(WindowDialogs, ShowsDialogsOfPlugins) {
    std::string title;
    std::string transcript;
    const auto focused = [&](QDialog& dialog) {
        auto* const field = dynamic_cast<QLineEdit*>(dialog.focusWidget());
        return field ? field->accessibleName().toStdString() + field->text().toStdString() + '\n'
                     : std::string("none\n");
    };
    whenAsked<QDialog>([&](QDialog& dialog) {
        transcript += focused(dialog);
        for (const char* const digit : {"-", "4", "5"}) key(*dialog.focusWidget(), *digit, digit);
        key(*dialog.focusWidget(), Qt::Key_Backspace);
        key(*dialog.focusWidget(), '2', "2");
        transcript += focused(dialog);
        key(*dialog.focusWidget(), Qt::Key_Tab);
        transcript += focused(dialog);
        dialog.findChild<QCheckBox*>("Automatically concatenate lines")->click();
        transcript += focused(dialog);
        key(*dialog.focusWidget(), Qt::Key_Return);
    });
    actions->editTool(*session->toolbox.findByTitle("Isometric Line Tool"));
    EXPECT_EQ(transcript, "X (left) axis angle:-30\nX (left) axis angle:-42\nZ (right) axis angle:30\n"
                          "Z (right) axis angle:30\n");
    const std::string file = desk::contents(folder.path("profile/Velloran/Ortholine 16/Preferences"));
    EXPECT_THAT(file, HasSubstr("\"xAxis\":138"));
    EXPECT_THAT(file, HasSubstr("\"autoConcat\":true"));
}

/// Submenus of one text, with items of one text in them, the first of which nobody can choose.
TEST_F(WindowDialogs, ChoosesMenuItemsThatLookAlike) {
    static std::vector<AIMenuItemHandle> chosen;
    chosen.clear();
    const std::string script = folder.path("recorded.js");
    const auto addItems = [](easel::session::Session& host) {
        auto& plugin = host.plugins.attach("Alike", [](const char*, const char* selector, void* message) -> SPErr {
            if (std::string(selector) == kSelectorAIGoMenuItem)
                chosen.push_back(static_cast<AIMenuMessage*>(message)->menuItem);
            return kNoErr;
        });
        host.start();
        std::vector<AIMenuItemHandle> items;
        for (const char* const group : {"First alike", "Second alike"}) {
            host.menus.addGroup(plugin, group, "Alike", "Edit", kMenuGroupPartialOption | kMenuGroupSubMenuOption);
            for (int i = 0; i < 2; ++i) items.push_back(host.menus.addItem(plugin, group, "Item", 0).handle);
        }
        host.menus.setEnabled(*host.menus.find(items[0]), false);
        return items;
    };
    show(script);
    const auto items = addItems(*session);
    auto& menu = *window->findChild<QMenu*>("plugins");
    Q_EMIT menu.aboutToShow();
    for (const QMenu* const inner : menu.findChildren<QMenu*>())
        if (inner->title() == "Alike")
            for (QAction* const action : inner->actions())
                if (action->isEnabled()) action->trigger();
    EXPECT_THAT(chosen, testing::ElementsAre(items[1], items[2], items[3]));
    EXPECT_THAT(failures, testing::IsEmpty());
    end();
    easel::session::Session again;
    chosen.clear();
    const auto same = addItems(again);
    std::ostringstream said;
    easel::script::run(again, script, said);
    EXPECT_THAT(chosen, testing::ElementsAre(same[1], same[2], same[3]));
}

/// Two of them have one text.
TEST_F(WindowDialogs, ChoosesMenuItemsByTheirGroup) {
    std::vector<std::string> titles;
    for (const char* const group : {"Velloran Plugins", "About Velloran Plugins"}) {
        whenAsked<QDialog>([&](QDialog& dialog) {
            titles.push_back(dialog.windowTitle().toStdString());
            dialog.reject();
        });
        for (const QMenu* const menu : window->findChildren<QMenu*>())
            if (menu->title() == group) menu->actions().front()->trigger();
    }
    EXPECT_THAT(titles, testing::ElementsAre("Ortholine Preferences", "About Ortholine"));
}

/// A tool that asks in a drag whether to add a layer: what it does then is no part of the gesture, which the question
/// ends. Its timer asks for another one half a second later: while that question is open, and when it is answered.
void addAskingTool(easel::session::Session& session) {
    static easel::session::Session* current;
    static bool isOpen;
    current = &session;
    auto& plugin = session.plugins.attach("Doubting", [](const char*, const char* selector, void*) -> SPErr {
        const std::size_t layers = current->document() ? current->document()->layerCount() : 0;
        const bool isDue = std::string(selector) == kSelectorAIGoTimer && layers == (isOpen ? 1 : 3);
        const std::string text = isDue ? "More?" : "Add?";
        if (!isDue && std::string(selector) != kSelectorAIToolMouseDrag) return kNoErr;
        isOpen = !isDue;
        if (current->alerts.show({easel::session::Alert::Kind::Confirm, text, {"No", "Yes"}}) == 1U)
            current->document()->addLayer(text + std::to_string(current->document()->layerCount()));
        isOpen = false;
        return kNoErr;
    });
    session.start();
    easel::session::Tool tool;
    tool.owner = &plugin;
    tool.name = tool.title = "Doubting Tool";
    session.toolbox.add(std::move(tool));
    session.timers.add(plugin, "Doubting", 30);
}

TEST_F(WindowDialogs, ArePlayedAgainWhereTheyEndAGesture) {
    const std::string script = folder.path("recorded.js");
    show(script);
    addAskingTool(*session);
    window->files().newDocument(300, 200);
    chooseTool("Doubting Tool");
    press({100, 100});
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, &user, [this] {
        auto* const box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || (box->text() == "Add?" && document().layerCount() == 1)) return; // it waits for the other one
        for (QAbstractButton* const each : box->buttons())
            if (each->text().remove('&') == "Yes") return each->click();
    });
    user.start(5);
    drag({120, 90});
    drag({140, 80});
    release({140, 80});
    EXPECT_EQ(document().layerCount(), 3U);
    ASSERT_TRUE(await([&] { return document().layerCount() == 4; }));
    chooseTool("Isometric Line Tool");
    stroke({{100, 100}, {100, 60}});
    actions->save(folder.path("window.svg"), false);
    expectReplayed(script, "window.svg", [](auto& again) { addAskingTool(again); });
}

} // namespace
