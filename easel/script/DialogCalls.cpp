// app.onDialog: the handler that a script gives its dialogs to, and the dialog object that the handler gets.
#include "script/DialogCalls.h"

#include <algorithm>

#include "script/DialogWidgets.h"
#include "script/Script.h"

namespace easel::script {

namespace {

constexpr const char* kHandlerKey = "onDialog";
constexpr const char* kThrownKey = "thrown in onDialog";
constexpr const char* kNumberKey = DUK_HIDDEN_SYMBOL("number");

constexpr std::string_view kAlertKinds[] = {"message", "error", "confirm", "question"};
constexpr std::string_view kWidgetKinds[] = {"label", "field", "checkbox", "button"};
constexpr std::string_view kStyles[] = {"plain", "default", "cancel"};
constexpr std::string_view kAlignments[] = {"left", "center", "right"};

std::string_view kindOf(const session::Alert& alert) { return kAlertKinds[static_cast<std::size_t>(alert.kind) - 1]; }

duk_ret_t getNumber(duk_context* engine, void* /*unused*/) {
    duk_get_prop_string(engine, -1, kNumberKey);
    return 1;
}

/// Gives the dialog to the script's handler, which must close it.
duk_ret_t callHandler(duk_context* engine, void* dialog) {
    const auto& open = *static_cast<OpenDialog*>(dialog);
    duk_push_heap_stash(engine);
    duk_get_prop_string(engine, -1, kHandlerKey);
    duk_push_bare_object(engine);
    define(engine, dialogRows());
    duk_push_uint(engine, open.number);
    duk_put_prop_string(engine, -2, kNumberKey);
    duk_freeze(engine, -1);
    duk_call(engine, 1);
    if (!open.closed()) return duk_error(engine, DUK_ERR_ERROR, "app.onDialog: the handler left its dialog open");
    return 1;
}

/// Pops what a handler threw. It is thrown again where the script's own call ends, with nothing of ours in between.
void keepThrown(duk_context* engine) {
    duk_push_heap_stash(engine);
    duk_insert(engine, -2);
    duk_put_prop_string(engine, -2, kThrownKey);
    duk_pop(engine);
    hostOf(engine).handlerThrew = true;
}

/// False when the script's handler has thrown before, and is not called again.
bool show(duk_context* engine, OpenDialog& open) {
    Host& host = hostOf(engine);
    open.number = ++host.dialogCount;
    if (host.handlerThrew) return false;
    host.dialogs.push_back(&open);
    if (duk_safe_call(engine, callHandler, &open, 0, 1) == DUK_EXEC_SUCCESS)
        duk_pop(engine);
    else
        keepThrown(engine);
    host.dialogs.pop_back();
    return true;
}

std::size_t choose(duk_context* engine, const session::Alert& alert) {
    OpenDialog open{&alert, nullptr};
    show(engine, open);
    return open.chosen.value_or(alert.buttons.size() - 1);
}

// app

void onDialog(Host& host, const DialogHandler& handler) {
    showWithoutAsking(host.session, host.out);
    if (!handler.engine) return;
    host.session.alerts.handler = [engine = handler.engine](const session::Alert& alert) {
        return choose(engine, alert);
    };
    host.session.dialogs.face = [engine = handler.engine](session::Dialog& dialog) {
        OpenDialog open{nullptr, &dialog};
        show(engine, open);
    };
}

// The dialog

using ThisDialog = This<Dialog>;
using session::Widget;

/// The dialog, on which the user can still do something.
session::Dialog& live(const ThisDialog& dialog) {
    if (dialog->closed()) throw session::Error("this dialog is closed");
    if (dialog->alert) throw session::Error("an alert has nothing but buttons");
    return *dialog->dialog;
}

std::string_view kind(Host& /*host*/, const ThisDialog& dialog) {
    return dialog->alert ? kindOf(*dialog->alert) : "dialog";
}
std::string title(Host& /*host*/, const ThisDialog& dialog) { return dialog->alert ? "" : dialog->dialog->title; }
std::string text(Host& /*host*/, const ThisDialog& dialog) { return dialog->alert ? dialog->alert->text : ""; }
std::vector<std::string> buttons(Host& /*host*/, const ThisDialog& dialog) {
    return dialog->alert ? dialog->alert->buttons : textsOf(*dialog->dialog, kStageButton);
}

std::vector<WidgetRecord> widgets(Host& /*host*/, const ThisDialog& dialog) {
    std::vector<WidgetRecord> records;
    if (dialog->alert) return records;
    const std::vector<Widget>& all = dialog->dialog->widgets;
    const auto numberOf = [&](std::int32_t id) {
        const auto at = std::find_if(all.begin(), all.end(), [id](const Widget& each) { return each.id == id; });
        return at == all.end() ? std::nullopt : std::optional(static_cast<std::size_t>(at - all.begin()));
    };
    for (const Widget& each : all) {
        records.push_back({.kind = kWidgetKinds[each.kind - 1],
                           .text = each.text,
                           .tooltip = each.tooltip,
                           .frame = {each.frame.left, each.frame.top, each.frame.right - each.frame.left,
                                     each.frame.bottom - each.frame.top},
                           .enabled = each.enabled,
                           .visible = each.visible,
                           .checked = each.checked,
                           .style = kStyles[each.style - 1],
                           .bold = each.bold,
                           .italic = each.italic,
                           .alignment = kAlignments[each.alignment - 1],
                           .selection = {},
                           .linked = numberOf(each.linked),
                           .tabPlace = {},
                           .images = {}});
        if (each.kind == kStageTextField)
            records.back().selection = std::vector{each.selectionStart, each.selectionEnd};
        if (each.tabPlace != 0) records.back().tabPlace = each.tabPlace;
        if (each.image != 0) records.back().images = {each.image, each.rolloverImage, each.pressedImage};
    }
    return records;
}

std::optional<std::string> focused(Host& /*host*/, const ThisDialog& dialog) {
    const Widget* const field = dialog->alert ? nullptr : dialog->dialog->find(dialog->dialog->focus);
    return field ? std::optional(nameOf(*dialog->dialog, *field)) : std::nullopt;
}

std::string field(Host& /*host*/, const ThisDialog& dialog, const std::string& label) {
    return fieldNamed(live(dialog), label).text;
}

void type(Host& host, const ThisDialog& dialog, const std::string& label, const std::string& text) {
    session::Dialog& live = script::live(dialog);
    Widget& field = fieldNamed(live, label);
    if (!field.enabled) throw session::Error("the field beside \"" + label + "\" is disabled");
    const std::int32_t id = field.id;
    session::Dialogs& dialogs = host.session.dialogs;
    dialogs.moveFocus(live, id);
    if (Widget* const all = live.find(id); all && live.focus == id) {
        all->selectionStart = 0;
        all->selectionEnd = static_cast<std::int32_t>(all->text.size()); // no text has more characters than bytes
    }
    if (text.empty()) dialogs.type(live, id, std::string(session::kDeleteKey));
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at + 1;
        while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) ++end;
        dialogs.type(live, id, text.substr(at, end - at));
        at = end;
    }
}

void commit(Host& host, const ThisDialog& dialog, const std::string& label) {
    host.session.dialogs.commit(live(dialog), fieldNamed(live(dialog), label).id);
}

void check(Host& host, const ThisDialog& dialog, const std::string& label) {
    host.session.dialogs.click(live(dialog), widgetNamed(live(dialog), kStageCheckbox, label).id);
}

void clickLabel(Host& host, const ThisDialog& dialog, const std::string& text) {
    host.session.dialogs.click(live(dialog), widgetNamed(live(dialog), kStageLabel, text).id);
}

void twice(session::Dialogs& dialogs, session::Dialog& dialog, std::int32_t widget) {
    dialogs.click(dialog, widget);
    dialogs.doubleClick(dialog, widget);
}

void doubleClickLabel(Host& host, const ThisDialog& dialog, const std::string& text) {
    twice(host.session.dialogs, live(dialog), widgetNamed(live(dialog), kStageLabel, text).id);
}

void doubleClick(Host& host, const ThisDialog& dialog, const std::string& button) {
    twice(host.session.dialogs, live(dialog), widgetNamed(live(dialog), kStageButton, button).id);
}

void choose(const Dialog& dialog, std::size_t button) {
    if (dialog->closed()) throw session::Error("this dialog is closed");
    dialog->chosen = button;
}

void click(Host& host, const ThisDialog& dialog, const std::string& button) {
    if (!dialog->alert) {
        session::Dialog& live = script::live(dialog);
        return host.session.dialogs.click(live, widgetNamed(live, kStageButton, button).id);
    }
    const auto& titles = dialog->alert->buttons;
    const auto found = std::find(titles.begin(), titles.end(), button);
    if (found == titles.end()) throw session::Error("there is no button \"" + button + "\", only " + quoted(titles));
    choose(dialog, static_cast<std::size_t>(found - titles.begin()));
}

void pressInAlert(const Dialog& dialog, const std::string& key) {
    if (key == "Return")
        choose(dialog, 0);
    else if (key == "Escape")
        choose(dialog, dialog->alert->buttons.size() - 1);
    else
        throw session::Error("an alert takes the keys \"Return\" and \"Escape\", not \"" + key + '"');
}

constexpr std::pair<std::string_view, std::int32_t> kKeys[] = {
    {"Return", kStageReturnKey}, {"Escape", kStageEscapeKey}, {"Tab", kStageTabKey}, {"BackTab", kStageBackTabKey}};

/// Go to the field that has the focus.
constexpr std::pair<std::string_view, std::string_view> kFieldKeys[] = {
    {"Delete", session::kDeleteKey}, {"Left", session::kLeftKey}, {"Right", session::kRightKey},
    {"Up", session::kUpKey},         {"Down", session::kDownKey}, {"Home", session::kHomeKey},
    {"End", session::kEndKey},       {"F1", session::kF1Key}};

void press(Host& host, const ThisDialog& dialog, const std::string& key) {
    if (dialog->alert) return pressInAlert(dialog, key);
    session::Dialog& live = script::live(dialog);
    for (const auto& [name, number] : kKeys)
        if (key == name) return host.session.dialogs.press(live, number);
    std::vector<std::string> known;
    for (const auto& [name, number] : kKeys) known.emplace_back(name);
    for (const auto& [name, characters] : kFieldKeys) {
        if (key == name) return host.session.dialogs.type(live, live.focus, std::string(characters));
        known.emplace_back(name);
    }
    throw session::Error("a dialog takes the keys " + quoted(known) + ", not \"" + key + '"');
}

void closeDialog(Host& host, const ThisDialog& dialog) {
    if (dialog->alert)
        choose(dialog, dialog->alert->buttons.size() - 1);
    else
        host.session.dialogs.close(live(dialog));
}

void runFor(Host& host, const ThisDialog& /*dialog*/, Positive seconds) { host.session.timers.runFor(seconds.value); }

constexpr Row kDialogApp[] = {method<onDialog>("app.onDialog", "handler")};

constexpr Row kDialogCalls[] = {
    property<kind>("dialog.kind"),
    property<title>("dialog.title"),
    property<text>("dialog.text"),
    property<buttons>("dialog.buttons"),
    property<widgets>("dialog.widgets"),
    property<focused>("dialog.focused"),
    method<field>("dialog.field", "label"),
    method<type>("dialog.type", "label, text"),
    method<commit>("dialog.commit", "label"),
    method<check>("dialog.check", "label"),
    method<clickLabel>("dialog.clickLabel", "text"),
    method<doubleClickLabel>("dialog.doubleClickLabel", "text"),
    method<click>("dialog.click", "button"),
    method<doubleClick>("dialog.doubleClick", "button"),
    method<press>("dialog.press", "key"),
    method<closeDialog>("dialog.close", ""),
    method<runFor>("dialog.runFor", "seconds"),
};

} // namespace

void showWithoutAsking(session::Session& session, std::ostream& out) {
    session.alerts.handler = [&out](const session::Alert& alert) {
        out << kindOf(alert) << ": " << alert.text;
        if (alert.buttons.size() > 1) out << " [" << alert.buttons.front() << ']';
        out << std::endl;
        return std::nullopt;
    };
    session.dialogs.face = [&out](const session::Dialog& dialog) { out << "dialog: " << dialog.title << std::endl; };
}

bool pushThrownInHandler(duk_context* engine) noexcept {
    if (!std::exchange(hostOf(engine).handlerThrew, false)) return false;
    duk_push_heap_stash(engine);
    duk_get_prop_string(engine, -1, kThrownKey);
    duk_remove(engine, -2);
    return true;
}

void read(const Value& value, DialogHandler& slot) {
    duk_context* const engine = value.engine();
    if (value.isMissing() || duk_is_null(engine, value.index())) return;
    if (!duk_is_function(engine, value.index())) value.fail("a function");
    slot.engine = engine;
    duk_push_heap_stash(engine);
    duk_dup(engine, value.index());
    duk_put_prop_string(engine, -2, kHandlerKey);
    duk_pop(engine);
}

void read(const Value& value, Dialog& slot) {
    duk_context* const engine = value.engine();
    const auto& dialogs = hostOf(engine).dialogs;
    if (!duk_is_object(engine, value.index())) value.fail("a dialog");
    duk_dup(engine, value.index());
    duk_safe_call(engine, getNumber, nullptr, 1, 1);
    const bool isDialog = duk_is_number(engine, -1) != 0;
    const unsigned number = duk_get_uint(engine, -1);
    duk_pop(engine);
    if (!isDialog) value.fail("a dialog");
    const auto found =
        std::find_if(dialogs.begin(), dialogs.end(), [&](const OpenDialog* open) { return open->number == number; });
    if (found == dialogs.end()) throw Stale("this dialog is closed");
    slot.open = *found;
}

std::span<const Row> dialogAppRows() { return kDialogApp; }
std::span<const Row> dialogRows() { return kDialogCalls; }

} // namespace easel::script
