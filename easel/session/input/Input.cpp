// What follows from a key or a choice.
#include "session/input/Input.h"

#include <algorithm>

#include "session/base/Error.h"
#include "session/input/Editing.h"
#include "session/input/Keys.h"

namespace easel::session {

// Keys

void Input::pressKey(std::int32_t code, Modifiers modifiers) {
    pointer_.setModifiers(modifiers);
    monitors_.notify(kSelectorStageKeyPressed, code);
    if (code == key::kEscape) pointer_.cancel();
    if (code == key::kLeftBracket && !(modifiers & kAICommandKey))
        pointer_.sendTo(*toolbox_.current(), kSelectorAIDecreaseDiameter);
    if (code == key::kRightBracket && !(modifiers & kAICommandKey))
        pointer_.sendTo(*toolbox_.current(), kSelectorAIIncreaseDiameter);
    if (!pointer_.pressed() && documents_.front()) messenger_.batch([&] { edit(code); });
}

void Input::edit(std::int32_t code) {
    model::Document& document = *documents_.front();
    const Modifiers held = pointer_.modifiers();
    constexpr Modifiers kShiftCommand = kAIShiftKey | kAICommandKey;
    if (code == key::kDelete || code == key::kForwardDelete) removeSelected(document);
    if (code == key::kZ && held == kAICommandKey) document.journal().undo();
    if (code == key::kZ && held == kShiftCommand) redo(document);
    if (code == key::kA && held == kAICommandKey) selectAll(document);
    if (code == key::kA && held == kShiftCommand) document.deselectAll();
    if (code == key::kD && held == kAICommandKey) duplicateSelected(document);
    if (code == key::kX && held == kAICommandKey) cut(document);
    if (code == key::kC && held == kAICommandKey) clipboard_.take(selectedObjects(document));
    if (code == key::kV && (held == kAICommandKey || held == kShiftCommand)) paste(document, held == kShiftCommand);
    if (code == key::kG && held == kAICommandKey) groupSelected(document);
    if (code == key::kG && held == kShiftCommand) ungroupSelected(document);
    if (code == key::kRightBracket && held == kShiftCommand) arrangeSelected(document, Order::Front);
    if (code == key::kRightBracket && held == kAICommandKey) arrangeSelected(document, Order::Forward);
    if (code == key::kLeftBracket && held == kAICommandKey) arrangeSelected(document, Order::Backward);
    if (code == key::kLeftBracket && held == kShiftCommand) arrangeSelected(document, Order::Back);
}

void Input::cut(model::Document& document) {
    const std::vector<model::Node*> objects = selectedObjects(document);
    clipboard_.take(objects);
    const model::Journal::Scope oneStep(document.journal());
    for (model::Node* const object : objects) document.remove(*object);
}

void Input::paste(model::Document& document, bool inPlace) {
    const model::Node& layer = document.currentLayer();
    if (layer.locked() || layer.hidden()) {
        reports_.add(Blame::UserData, std::string("nothing can be pasted: the current layer is ") +
                                          (layer.locked() ? "locked" : "hidden"));
        return;
    }
    try {
        const std::size_t left = clipboard_.paste(inPlace);
        if (left == 0) return;
        reports_.add(Blame::UserData, std::to_string(left) + (left == 1 ? " object was" : " objects were") +
                                          " not pasted: what is painted with gradients, or else known to the file of "
                                          "its drawing alone, can be copied only there");
    } catch (const Error& error) {
        reports_.add(Blame::UserData, error.what());
    }
}

// Tools

void Input::selectTool(Tool& tool) {
    // One batch, so that no posted press begins a gesture of one tool that another ends.
    messenger_.batch([&] {
        pointer_.cancel();
        const AIToolHandle handle = tool.handle;
        if (&tool == toolbox_.current()) {
            pointer_.sendTo(tool, kSelectorAIReselectTool);
            return;
        }
        pointer_.sendTo(*toolbox_.current(), kSelectorAIDeselectTool);
        if (toolbox_.find(handle) != &tool) return; // its plug-in took it away meanwhile
        toolbox_.setCurrent(tool);
        if (tool.builtin) screen_.cursor = {};
        pointer_.sendTo(tool, kSelectorAISelectTool);
    });
}

void Input::editTool(Tool& tool) { pointer_.sendTo(tool, kSelectorAIEditToolOptions); }

// Menus

void Input::updateMenus() {
    if (pointer_.pressed()) return;
    for (Plugin* plugin : plugins_.all()) {
        const std::vector<MenuItem*> items = menus_.items();
        if (std::none_of(items.begin(), items.end(), [&](const MenuItem* item) { return item->owner == plugin; }))
            continue;
        AIMenuMessage message{.d = {}, .menuItem = nullptr};
        messenger_.send(*plugin, kCallerAIMenu, kSelectorAIUpdateMenuItem, message.d);
    }
}

void Input::chooseMenu(const std::string& text, const std::string& group, std::size_t number) {
    pointer_.cancel();
    updateMenus();
    const MenuItem* const item = menus_.findItem(text, group, number);
    if (item) return choose(*item);
    const std::string where = group.empty() ? "" : " in the group \"" + group + '"';
    const char* const fewer = number > 1 && menus_.findItem(text, group) ? ", that often" : "";
    throw Error("no menu item" + where + " has the text \"" + text + '"' + fewer);
}

void Input::chooseMenu(AIMenuItemHandle handle) {
    pointer_.cancel();
    updateMenus();
    const MenuItem* const item = menus_.find(handle);
    if (!item) throw Error("the plug-in has taken this menu item away");
    choose(*item);
}

void Input::choose(const MenuItem& item) {
    if (item.opens) throw Error("the menu item \"" + item.text + "\" opens a submenu");
    if (!Menus::isEnabled(item)) throw Error("the menu item \"" + item.text + "\" is disabled");
    AIMenuMessage message{.d = {}, .menuItem = item.handle};
    messenger_.send(*item.owner, kCallerAIMenu, kSelectorAIGoMenuItem, message.d);
}

} // namespace easel::session
