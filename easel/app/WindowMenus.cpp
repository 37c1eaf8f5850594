// What is in the window's menus.
#include <QActionGroup>
#include <QInputDialog>
#include <QMenuBar>
#include <QStatusBar>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <utility>

#include "app/Application.h"
#include "app/DesktopClipboard.h"
#include "app/Look.h"
#include "app/Window.h"

namespace easel::app {

namespace {

constexpr double kNewWidth = 595; // A4, upright, in points
constexpr double kNewHeight = 842;
constexpr session::Modifiers kShiftCommand = kAIShiftKey | kAICommandKey;

} // namespace

QAction& Window::add(QMenu& menu, const QString& text, const QKeySequence& keys, std::function<void()> what) {
    QAction* const action = menu.addAction(text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, guarded([this, what = std::move(what)] {
                commitEntry();
                what();
            }));
    return *action;
}

void Window::greyUnless(QAction& action, std::function<bool()> can) {
    auto* const menu = qobject_cast<QMenu*>(action.parent());
    connect(menu, &QMenu::aboutToShow, &action, guarded([&action, can = std::move(can)] { action.setEnabled(can()); }));
    connect(menu, &QMenu::aboutToHide, &action, [&action] { action.setEnabled(true); });
}

void Window::makeFileMenu() {
    QMenu& menu = *menuBar()->addMenu("&File");
    add(menu, "&New", QKeySequence::New, [this] {
        if (files_.mayLose()) files_.newDocument(kNewWidth, kNewHeight);
    });
    add(menu, "&Open...", QKeySequence::Open, [this] { files_.openAsked(); });
    QMenu& recent = *menu.addMenu("Open &Recent");
    connect(&recent, &QMenu::aboutToShow, this, guarded([this, &recent] { files_.fillRecentMenu(recent); }));
    files_.fillRecentMenu(recent);
    const auto hasFile = [this] { return std::filesystem::exists(actions_.path()); };
    const auto hasDrawing = [this] { return actions_.document() != nullptr; };
    greyUnless(add(menu, "Reop&en", {}, [this] { files_.reopen(); }), hasFile);
    stopReading_ = &add(menu, "Stop Rea&ding", QKeySequence(Qt::Key_Escape), [this] { files_.giveUpReading(); });
    stopReading_->setEnabled(false);
    menu.addSeparator();
    // Keys by their names: Qt knows those of the system for some desktops alone.
    greyUnless(add(menu, "&Save", QKeySequence::Save, [this] { files_.save(); }), [this] {
        return actions_.document() && (actions_.isModified() || !std::filesystem::exists(actions_.path()));
    });
    greyUnless(add(menu, "Save &As...", QKeySequence("Ctrl+Shift+S"), [this] { files_.saveAs(); }), hasDrawing);
    QMenu& exports = *menu.addMenu("&Export");
    greyUnless(*exports.menuAction(), hasDrawing);
    add(exports, "&PNG Picture...", QKeySequence("Ctrl+Shift+E"), [this] { files_.exportAs(".png"); });
    add(exports, "&SVG Copy...", {}, [this] { files_.exportAs(".svg"); });
    add(exports, "P&DF Page...", {}, [this] { files_.exportAs(".pdf"); });
    menu.addSeparator();
    add(menu, "&Quit", QKeySequence("Ctrl+Q"), [this] { close(); });
}

/// What a key does to the selection, as a menu's item too.
QAction& Window::addKey(QMenu& menu, const QString& text, const char* keys, const char* name, session::Modifiers held) {
    return add(menu, text, QKeySequence(keys), [this, name, held] { actions_.key(name, held); });
}

void Window::makeEditMenu() {
    QMenu& menu = *menuBar()->addMenu("&Edit");
    const auto depth = [this](auto count) {
        return [this, count] { return actions_.document() && (actions_.document()->journal().*count)() > 0; };
    };
    greyUnless(add(menu, "&Undo", QKeySequence::Undo, [this] { actions_.undo(); }), depth(&model::Journal::undoDepth));
    QAction& redo = add(menu, "&Redo", {}, [this] { actions_.redo(); });
    redo.setShortcuts({QKeySequence("Ctrl+Shift+Z"), QKeySequence("Ctrl+Y")});
    greyUnless(redo, depth(&model::Journal::redoDepth));
    menu.addSeparator();
    const auto isSelected = [this] { return actions_.document() && !actions_.document()->selection().empty(); };
    const auto addCopy = [&](const char* text, const char* keys, const char* name) {
        QAction& item = add(menu, text, QKeySequence(keys), [this, name] {
            const session::Clipboard& clipboard = actions_.session().clipboard;
            const unsigned before = clipboard.changes();
            actions_.key(name, kAICommandKey);
            if (clipboard.changes() != before) offerToOthers(clipboard);
        });
        greyUnless(item, isSelected);
    };
    const auto addPaste = [&](const char* text, const char* keys, session::Modifiers held) {
        add(menu, text, QKeySequence(keys), [this, held] {
            if (const auto others = copiedByOthers(actions_.session().clipboard)) actions_.setClipboard(*others);
            actions_.key("V", held);
        });
    };
    addCopy("Cu&t", "Ctrl+X", "X");
    addCopy("&Copy", "Ctrl+C", "C");
    addPaste("&Paste", "Ctrl+V", kAICommandKey);
    addPaste("Paste &in Place", "Ctrl+Shift+V", kShiftCommand);
    menu.addSeparator();
    // Its key is the drawing's alone: in a list it would be about the row.
    greyUnless(addKey(menu, "&Delete\tDel", "", "Delete", 0), isSelected);
    greyUnless(addKey(menu, "D&uplicate", "Ctrl+D", "D", kAICommandKey), isSelected);
    menu.addSeparator();
    addKey(menu, "Select &All", "Ctrl+A", "A", kAICommandKey);
    greyUnless(addKey(menu, "D&eselect All", "Ctrl+Shift+A", "A", kShiftCommand), isSelected);
}

void Window::makeObjectMenu() {
    QMenu& menu = *menuBar()->addMenu("&Object");
    const auto isSelected = [this](bool group) {
        const auto fits = [group](const model::Node* node) { return !group || node->type() == model::NodeType::Group; };
        const auto all = actions_.document() ? actions_.document()->selection() : std::vector<model::Node*>();
        return std::any_of(all.begin(), all.end(), fits);
    };
    const auto addFor = [&](bool group, const char* text, const char* keys, const char* name, session::Modifiers held) {
        greyUnless(addKey(menu, text, keys, name, held), [isSelected, group] { return isSelected(group); });
    };
    addFor(false, "&Group", "Ctrl+G", "G", kAICommandKey);
    addFor(true, "&Ungroup", "Ctrl+Shift+G", "G", kShiftCommand);
    menu.addSeparator();
    addFor(false, "Bring to &Front", "Ctrl+Shift+]", "]", kShiftCommand);
    addFor(false, "Bring F&orward", "Ctrl+]", "]", kAICommandKey);
    addFor(false, "Send Back&ward", "Ctrl+[", "[", kAICommandKey);
    addFor(false, "Send to &Back", "Ctrl+Shift+[", "[", kShiftCommand);
}

/// An item with a check mark.
void Window::addSwitch(QMenu& menu, const QString& text, const QKeySequence& keys, bool on,
                       std::function<void(bool)> change) {
    QAction* const action = menu.addAction(text);
    action->setShortcut(keys);
    action->setCheckable(true);
    action->setChecked(on);
    connect(action, &QAction::toggled, this, guarded([change = std::move(change)](bool checked) { change(checked); }));
}

void Window::makeViewMenu() {
    QMenu& menu = *menuBar()->addMenu("&View");
    constexpr double kStep = 1.5;
    add(menu, "Zoom &In", QKeySequence("Ctrl++"), [this] {
        canvas_.zoomBy(kStep);
    }).setShortcuts({QKeySequence("Ctrl++"), QKeySequence("Ctrl+=")});
    add(menu, "Zoom &Out", QKeySequence("Ctrl+-"), [this] { canvas_.zoomBy(1 / kStep); });
    add(menu, "&Whole Page", QKeySequence("Ctrl+0"), [this] { canvas_.fitPage(); });
    add(menu, "&Actual Size", QKeySequence("Ctrl+1"), [this] { canvas_.zoomTo(1); });
    menu.addSeparator();
    addGridItems(menu);
    menu.addSeparator();
    constexpr const char* kStatusBar = "statusBar";
    constexpr const char* kLength = "lengthBesidePointer";
    statusBar()->setVisible(settings_.isOn(kStatusBar, true));
    canvas_.feedbackShown = settings_.isOn(kLength, true);
    addSwitch(menu, "&Status Bar", {}, settings_.isOn(kStatusBar, true), [this](bool on) {
        statusBar()->setVisible(on);
        settings_.setOn(kStatusBar, on);
    });
    addSwitch(menu, "&Length beside the Pointer", {}, canvas_.feedbackShown, [this](bool on) {
        canvas_.feedbackShown = on;
        settings_.setOn(kLength, on);
    });
    addSwitch(menu, "&Dark", {}, look().colors.dark, [this](bool on) { setDark(on); });
    menu.addSeparator();
    addKeyItems(*menu.addMenu("&Modifier Keys"));
}

/// What Ctrl, Alt and Super are to tools.
void Window::addKeyItems(QMenu& menu) {
    struct Key {
        const char* name;
        session::Modifiers KeyMeanings::*meaning;
    };
    for (const Key& key :
         {Key{"Ctrl", &KeyMeanings::ctrl}, {"Alt", &KeyMeanings::alt}, {"Super", &KeyMeanings::super}}) {
        QMenu& choices = *menu.addMenu(QString(key.name) + " Is");
        auto* const one = new QActionGroup(&choices);
        for (const KeyMeaning& choice : kKeyMeanings) {
            QAction* const action = choices.addAction(choice.name);
            action->setCheckable(true);
            action->setChecked(settings_.keys().*key.meaning == choice.modifier);
            one->addAction(action);
            connect(action, &QAction::triggered, this, guarded([this, key, choice] {
                        canvas_.keys.*key.meaning = choice.modifier;
                        settings_.setKeys(canvas_.keys);
                    }));
        }
    }
}

/// The grid is as the user left it.
void Window::addGridItems(QMenu& menu) {
    session::Snapping& snapping = actions_.session().pointer.snapping;
    if (settings_.gridSpacing() != snapping.gridSpacing) actions_.setGridSpacing(settings_.gridSpacing());
    if (settings_.axisGrid() != snapping.axisGrid) actions_.setAxisGrid(settings_.axisGrid());
    if (settings_.snapsToAxisGrid() != snapping.toAxisGrid) actions_.setAxisGridSnapping(settings_.snapsToAxisGrid());
    addSwitch(menu, "Snap to &Points", {}, snapping.toPoint, [this](bool on) { actions_.setSnapping(on); });
    addSwitch(menu, "Axonometric &Grid", QKeySequence("Ctrl+'"), snapping.axisGrid, [this](bool on) {
        settings_.setAxisGrid(on);
        actions_.setAxisGrid(on);
    });
    addSwitch(menu, "Snap to G&rid", QKeySequence("Ctrl+Shift+'"), snapping.toAxisGrid, [this](bool on) {
        settings_.setSnapsToAxisGrid(on);
        actions_.setAxisGridSnapping(on);
    });
    add(menu, "Grid Spa&cing...", {}, [this] {
        constexpr double kLeast = 0.5;
        constexpr double kMost = 10'000;
        bool isChosen = false;
        const double spacing =
            QInputDialog::getDouble(this, "Axonometric grid", "Points from crossing to crossing along an axis:",
                                    actions_.session().pointer.snapping.gridSpacing, kLeast, kMost, 2, &isChosen);
        activateWindow();
        if (!isChosen) return;
        settings_.setGridSpacing(spacing);
        actions_.setGridSpacing(spacing);
    });
}

void Window::makePluginMenu() {
    QMenu& menu = *menuBar()->addMenu("&Plug-ins");
    menu.setObjectName("plugins");
    connect(&menu, &QMenu::aboutToShow, this, guarded([this, &menu] { fillPluginMenu(menu); }));
    fillPluginMenu(menu);
}

void Window::fillPluginMenu(QMenu& menu) {
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    session::Session& session = actions_.session();
    session.input.updateMenus();
    const std::function<void(QMenu&, const session::MenuGroup&)> fill = [&](QMenu& into,
                                                                            const session::MenuGroup& group) {
        for (const session::MenuChild& child : group.children) {
            if (child.group) {
                const session::MenuItem* const opener = child.group->opener; // none: without a submenu
                QMenu& inner = opener ? *into.addMenu(literal(QString::fromStdString(opener->text))) : into;
                if (opener) inner.setEnabled(session::Menus::isEnabled(*opener));
                fill(inner, *child.group);
                continue;
            }
            const session::MenuItem& item = *child.item;
            const QString text = QString::fromStdString(item.text);
            if (item.isDivider()) {
                into.addSeparator();
            } else {
                QAction* const action = into.addAction(literal(text));
                action->setEnabled(session::Menus::isEnabled(item));
                action->setCheckable(item.checked);
                action->setChecked(item.checked);
                connect(action, &QAction::triggered, this, guarded([this, handle = item.handle] {
                            commitEntry();
                            actions_.chooseMenu(handle);
                        }));
            }
        }
    };
    for (const session::MenuGroup* const group : session.menus.groups()) {
        if (group->parent || group->children.empty()) continue;
        if (!menu.isEmpty()) menu.addSeparator();
        fill(menu, *group);
    }
    if (menu.isEmpty()) menu.addAction("No plug-in has items")->setEnabled(false);
}

} // namespace easel::app
