#include "core/dialogs/Alerts.h"

#include "plugin/platform/Platform.h"

namespace kzo::core::alerts {

namespace {

using plugin::Alert;

constexpr const char* kOk = "OK";
constexpr const char* kCancel = "Cancel";

plugin::Alerts& shown() { return plugin::platform().alerts(); }

Response responseOf(const Alert& alert) {
    if (!state()) return Response::None;
    return shown().show(alert) == 0 ? Response::First : Response::Second;
}

} // namespace

void message(const std::string& text) { responseOf({.kind = Alert::Kind::Message, .text = text, .buttons = {kOk}}); }
void error(const std::string& text) { responseOf({.kind = Alert::Kind::Error, .text = text, .buttons = {kOk}}); }

Response confirm(const std::string& text) { return confirm(text, kOk, kCancel); }

Response confirm(const std::string& text, const std::string& firstTitle, const std::string& secondTitle) {
    return responseOf({.kind = Alert::Kind::Confirm, .text = text, .buttons = {firstTitle, secondTitle}});
}

Response confirm(const std::string& text, const std::string& firstTitle, const Callback& first,
                 const std::string& secondTitle, const Callback& second) {
    const Response response = confirm(text, firstTitle, secondTitle);
    if (response != Response::None) (response == Response::First ? first : second).clone()->execute();
    return response;
}

void beep() { shown().beep(); }

void setState(bool on) { shown().on = on; }
bool state() { return shown().on; }

} // namespace kzo::core::alerts
