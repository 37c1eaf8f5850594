// app.onDialog: the handler that a script gives its dialogs to, and the dialog object that the handler gets.
#include "script/DialogCalls.h"

#include <algorithm>

#include "script/Script.h"

namespace easel::script {

namespace {

constexpr const char* kHandlerKey = "onDialog";
constexpr const char* kThrownKey = "thrown in onDialog";
constexpr const char* kNumberKey = DUK_HIDDEN_SYMBOL("number");

constexpr std::string_view kKinds[] = {"message", "error", "confirm", "question"};

std::string_view kindOf(const session::Alert& alert) { return kKinds[static_cast<std::size_t>(alert.kind) - 1]; }

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
    if (!open.chosen) return duk_error(engine, DUK_ERR_ERROR, "app.onDialog: the handler left its dialog open");
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

std::size_t choose(duk_context* engine, const session::Alert& alert) {
    Host& host = hostOf(engine);
    OpenDialog open{alert, ++host.dialogCount};
    if (host.handlerThrew) return alert.buttons.size() - 1;
    host.dialogs.push_back(&open);
    if (duk_safe_call(engine, callHandler, &open, 0, 1) == DUK_EXEC_SUCCESS)
        duk_pop(engine);
    else
        keepThrown(engine);
    host.dialogs.pop_back();
    return open.chosen.value_or(alert.buttons.size() - 1);
}

// app

void onDialog(Host& host, const DialogHandler& handler) {
    host.session.alerts.handler = printAlerts(host.out);
    if (handler.engine)
        host.session.alerts.handler = [engine = handler.engine](const session::Alert& alert) {
            return choose(engine, alert);
        };
}

// The dialog

using ThisDialog = This<Dialog>;

std::string_view kind(Host& /*host*/, const ThisDialog& dialog) { return kindOf(dialog->alert); }
std::string_view title(Host& /*host*/, const ThisDialog& /*dialog*/) { return ""; }
std::string text(Host& /*host*/, const ThisDialog& dialog) { return dialog->alert.text; }
std::vector<std::string> buttons(Host& /*host*/, const ThisDialog& dialog) { return dialog->alert.buttons; }
std::vector<std::string> widgets(Host& /*host*/, const ThisDialog& /*dialog*/) { return {}; }

void close(const Dialog& dialog, std::size_t button) {
    if (dialog->chosen) throw session::Error("this dialog is closed");
    dialog->chosen = button;
}

void click(Host& /*host*/, const ThisDialog& dialog, const std::string& button) {
    const auto& titles = dialog->alert.buttons;
    const auto found = std::find(titles.begin(), titles.end(), button);
    if (found == titles.end()) {
        std::string known;
        for (const std::string& each : titles) known += (known.empty() ? "\"" : ", \"") + each + '"';
        throw session::Error("there is no button \"" + button + "\", only " + known);
    }
    close(dialog, static_cast<std::size_t>(found - titles.begin()));
}

void press(Host& /*host*/, const ThisDialog& dialog, const std::string& key) {
    if (key == "Return")
        close(dialog, 0);
    else if (key == "Escape")
        close(dialog, dialog->alert.buttons.size() - 1);
    else
        throw session::Error("an alert takes the keys \"Return\" and \"Escape\", not \"" + key + '"');
}

void closeDialog(Host& /*host*/, const ThisDialog& dialog) { close(dialog, dialog->alert.buttons.size() - 1); }

void runFor(Host& host, const ThisDialog& /*dialog*/, Positive seconds) { host.session.timers.runFor(seconds.value); }

constexpr Row kDialogApp[] = {method<onDialog>("app.onDialog", "handler")};

constexpr Row kDialogCalls[] = {
    property<kind>("dialog.kind"),
    property<title>("dialog.title"),
    property<text>("dialog.text"),
    property<buttons>("dialog.buttons"),
    property<widgets>("dialog.widgets"),
    method<click>("dialog.click", "button"),
    method<press>("dialog.press", "key"),
    method<closeDialog>("dialog.close", ""),
    method<runFor>("dialog.runFor", "seconds"),
};

} // namespace

session::Alerts::Handler printAlerts(std::ostream& out) {
    return [&out](const session::Alert& alert) {
        out << kindOf(alert) << ": " << alert.text;
        if (alert.buttons.size() > 1) out << " [" << alert.buttons.front() << ']';
        out << std::endl;
        return std::size_t{0};
    };
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
