// Alerts, forwarded to the platform; confirmations return which button was chosen.
#include "core/dialogs/Alerts.h"

#include <algorithm>
#include <vector>

#include "plugin/dialogs/Text.h"
#include "plugin/platform/Platform.h"

namespace kzo::core::alerts {

namespace {

using plugin::Alert;

constexpr const char* kOk = "OK";
constexpr const char* kYes = "Yes";
constexpr const char* kNo = "No";
constexpr const char* kCancel = "Cancel";

/// A button, and what is to be done when it is chosen.
struct Choice {
    std::string title;
    const Callback* callback = nullptr;
};

Response choose(Alert::Kind kind, const std::string& text, const std::vector<Choice>& choices) {
    std::size_t chosen = choices.size() - 1;
    plugin::platform().alerts().asked = state();
    if (state()) {
        Alert alert{
            .kind = kind, .text = plugin::cleaned(text, plugin::LineBreaks::Stay, plugin::kMostInAlert), .buttons = {}};
        for (const Choice& choice : choices)
            alert.buttons.push_back(
                plugin::cleaned(choice.title, plugin::LineBreaks::BecomeBlanks, plugin::kMostInTitle));
        chosen = std::min(chosen, plugin::platform().alerts().show(alert));
        if (const Callback* const callback = choices[chosen].callback) callback->clone()->execute();
    }
    constexpr Response kResponses[] = {Response::First, Response::Second, Response::Third};
    return kResponses[chosen];
}

} // namespace

void message(const std::string& text) { choose(Alert::Kind::Message, text, {{kOk}}); }
void error(const std::string& text) { choose(Alert::Kind::Error, text, {{kOk}}); }

Response confirm(const std::string& text) { return confirm(text, kOk, kCancel); }

Response confirm(const std::string& text, const std::string& firstTitle, const std::string& secondTitle) {
    return choose(Alert::Kind::Confirm, text, {{firstTitle}, {secondTitle}});
}

Response confirm(const std::string& text, const std::string& firstTitle, const Callback& first,
                 const std::string& secondTitle, const Callback& second) {
    return choose(Alert::Kind::Confirm, text, {{firstTitle, &first}, {secondTitle, &second}});
}

Response question(const std::string& text) { return question(text, kYes, kNo, kCancel); }

Response question(const std::string& text, const std::string& firstTitle, const std::string& secondTitle,
                  const std::string& thirdTitle) {
    return choose(Alert::Kind::Question, text, {{firstTitle}, {secondTitle}, {thirdTitle}});
}

Response question(const std::string& text, const std::string& firstTitle, const Callback& first,
                  const std::string& secondTitle, const Callback& second, const std::string& thirdTitle,
                  const Callback& third) {
    return choose(Alert::Kind::Question, text, {{firstTitle, &first}, {secondTitle, &second}, {thirdTitle, &third}});
}

void beep() { plugin::platform().alerts().beep(); }

void setState(bool on) { plugin::platform().alerts().on = on; }
bool state() { return plugin::platform().alerts().on; }
bool asked() { return plugin::platform().alerts().asked; }

} // namespace kzo::core::alerts
