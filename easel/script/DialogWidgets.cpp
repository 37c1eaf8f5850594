// Finds widgets by text, and describes them to scripts.
#include "script/DialogWidgets.h"

#include <cmath>

#include "session/base/Error.h"

namespace easel::script {

namespace {

using session::Dialog;
using session::Widget;

constexpr const char* kKindNames[] = {"", "label", "field", "checkbox", "button"};

const std::string& shownText(const Widget& widget) {
    return widget.text.empty() && widget.image != 0 ? widget.tooltip : widget.text;
}

bool isLabel(const Dialog& dialog, const Widget& widget) {
    return dialog.shows(widget) && (widget.kind == kStageLabel || widget.kind == kStageCheckbox);
}

/// How far the field is from the label; infinite when it is not beside it.
double distance(const Widget& label, const Widget& field) {
    constexpr double kLeft = 1e6; // a field on the other side comes after all those on the right
    const double middle = (label.frame.top + label.frame.bottom) / 2;
    if (middle < field.frame.top || middle > field.frame.bottom) return INFINITY;
    if (field.frame.left >= label.frame.left) return field.frame.left - label.frame.left;
    return kLeft + label.frame.left - field.frame.left;
}

Widget* fieldOf(Dialog& dialog, const Widget& label) {
    if (Widget* const linked = dialog.find(label.linked)) return linked;
    Widget* best = nullptr;
    for (Widget& each : dialog.widgets) {
        if (each.kind != kStageTextField || !dialog.shows(each)) continue;
        const double away = distance(label, each);
        if (std::isfinite(away) && (!best || away < distance(label, *best))) best = &each;
    }
    return best;
}

} // namespace

std::string quoted(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& each : texts) all += (all.empty() ? "\"" : ", \"") + each + '"';
    return all;
}

std::vector<std::string> textsOf(const Dialog& dialog, std::int32_t kind) {
    std::vector<std::string> texts;
    for (const Widget& each : dialog.widgets)
        if (each.kind == kind && dialog.shows(each)) texts.push_back(shownText(each));
    return texts;
}

Widget& widgetNamed(Dialog& dialog, std::int32_t kind, const std::string& text) {
    for (Widget& each : dialog.widgets) {
        if (each.kind != kind || shownText(each) != text || !dialog.shows(each)) continue;
        if (!each.enabled)
            throw session::Error("the " + std::string(kKindNames[kind]) + " \"" + text + "\" is disabled");
        return each;
    }
    const std::vector<std::string> known = textsOf(dialog, kind);
    throw session::Error("there is no " + std::string(kKindNames[kind]) + " \"" + text + '"' +
                         (known.empty() ? "" : ", only " + quoted(known)));
}

Widget& fieldNamed(Dialog& dialog, const std::string& label) {
    std::vector<std::string> known;
    for (const Widget& each : dialog.widgets) {
        if (!isLabel(dialog, each)) continue;
        Widget* const field = fieldOf(dialog, each);
        if (field && shownText(each) == label) return *field;
        if (field) known.push_back(shownText(each));
    }
    throw session::Error("there is no field beside \"" + label + '"' +
                         (known.empty() ? "" : ", only beside " + quoted(known)));
}

std::string nameOf(Dialog& dialog, const Widget& field) {
    for (const Widget& each : dialog.widgets)
        if (isLabel(dialog, each) && fieldOf(dialog, each) == &field) return shownText(each);
    return {};
}

} // namespace easel::script
