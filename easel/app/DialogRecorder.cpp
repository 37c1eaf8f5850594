// Keystrokes are recorded as the text that they led to.
#include "app/DialogRecorder.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/Recorder.h"
#include "script/DialogWidgets.h"

namespace easel::app {

namespace {

std::string call(const char* name, const std::string& arguments) {
    return std::string(" dialog.") + name + '(' + arguments + ");";
}

const char* nameOfKey(std::int32_t key) {
    static constexpr std::array<const char*, 5> kNames{"", "Return", "Escape", "Tab", "BackTab"};
    return kNames[static_cast<std::size_t>(key)];
}

/// A click on a label, a checkbox or a button.
std::string clickOn(const session::Widget& widget, bool twice) {
    const std::string text = Recorder::quoted(widget.text);
    if (widget.kind == kStageLabel) return call(twice ? "doubleClickLabel" : "clickLabel", text);
    if (widget.kind == kStageCheckbox) return call("check", text);
    return call(twice ? "doubleClick" : "click", text);
}

} // namespace

void DialogRecorder::opened(const session::Dialog* dialog) {
    if (!open_.empty()) flush(shown_[open_.back()]);
    open_.push_back(shown_.size());
    shown_.push_back({.dialog = dialog});
}

void DialogRecorder::closed() {
    if (open_.empty()) return;
    flush(shown_[open_.back()]); // a timer may have ended it
    open_.pop_back();
}

void DialogRecorder::flush(Shown& shown) {
    if (!shown.field.empty()) shown.calls += call("type", shown.field + ", " + shown.text);
    shown.field.clear();
    if (passed_ > 0) shown.calls += call("runFor", Recorder::seconds(takePassed()));
}

void DialogRecorder::heard(session::Dialog& dialog, const StageDialogMessage& message) {
    const auto last =
        std::find_if(shown_.rbegin(), shown_.rend(), [&](const Shown& each) { return each.dialog == &dialog; });
    if (last == shown_.rend()) return;
    session::Widget* const widget = dialog.find(message.widget);
    if (message.event == kStageTyping && widget) {
        const std::string field = Recorder::quoted(script::nameOf(dialog, *widget));
        if (field != last->field) flush(*last); // keys of one field are one call, and the time between them follows
        last->field = field;
        last->text = Recorder::quoted(message.text);
        return;
    }
    flush(*last);
    if (message.event == kStageCommit && widget)
        last->calls += call("commit", Recorder::quoted(script::nameOf(dialog, *widget)));
    if ((message.event == kStageClick || message.event == kStageDoubleClick) && widget)
        last->calls += clickOn(*widget, message.event == kStageDoubleClick);
    if (message.event == kStageDialogKey) last->calls += call("press", Recorder::quoted(nameOfKey(message.key)));
    if (message.event == kStageClose) last->calls += call("close", "");
}

void DialogRecorder::chosen(const session::Alert& alert, std::size_t button) {
    if (open_.empty() || button >= alert.buttons.size()) return;
    Shown& shown = shown_[open_.back()];
    flush(shown);
    shown.calls += call("click", Recorder::quoted(alert.buttons[button]));
}

void DialogRecorder::didMeanwhile(const std::string& statement) {
    if (open_.empty()) return; // a dialog of the plug-in's own making
    Shown& shown = shown_[open_.back()];
    flush(shown);
    shown.calls += ' ' + statement + ';';
}

std::string DialogRecorder::statement() {
    if (shown_.empty()) return {};
    std::string users;
    for (Shown& shown : std::exchange(shown_, {})) {
        users += (users.empty() ? "" : ",") + std::string("\n    function (dialog) {") + shown.calls + " }";
    }
    return "app.onDialog((function (users) { return function (dialog) { users.shift()(dialog); }; })([" + users + "]))";
}

} // namespace easel::app
