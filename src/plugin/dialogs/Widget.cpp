// A widget's state, told to the dialog that shows it.
#include "plugin/dialogs/Widget.h"

#include <algorithm>
#include <cmath>

#include "plugin/dialogs/ModalDialog.h"
#include "plugin/dialogs/Text.h"
#include "plugin/platform/Platform.h"
#include "utils/Utf8.h"

namespace kzo::plugin {

namespace {

WidgetId lastId = kNoWidget;

bool isFinite(const geo::Point& place) { return std::isfinite(place.x) && std::isfinite(place.y); }

std::string cleanedFor(core::WidgetType type, const std::string& text) {
    const bool isLabel = type == core::WidgetType::Label;
    return cleaned(text, isLabel ? LineBreaks::Stay : LineBreaks::BecomeBlanks,
                   type == core::WidgetType::Button ? kMostInTitle : kMostInWidget);
}

} // namespace

LastWidgets& lastWidgets() {
    static LastWidgets last;
    return last;
}

Widget::Widget(core::WidgetType type, const geo::Point& origin, const std::string& text, double width)
    : id_(++lastId), reported_(cleanedFor(type, text)) {
    state_.type = type;
    state_.frame = {isFinite(origin) ? origin : geo::Point(), {std::isfinite(width) ? width : 0, 0}};
    state_.text = reported_;
    fitHeight();
}

// What it shows

void Widget::tell() {
    if (const auto dialog = window_.lock()) dialog->widgetChanged(*this);
}

template <class Value> void Widget::change(Value& value, const Value& to) {
    if (value == to) return;
    value = to;
    tell();
}

void Widget::fitHeight() {
    if (!heightSet_) state_.frame.size.height = idealSize().height;
}

void Widget::setFrame(const geo::Rect& frame) {
    if (!isFinite(frame.origin) || !isFinite({frame.size.width, frame.size.height})) return;
    heightSet_ = true;
    change(state_.frame, frame);
}

void Widget::setOrigin(const geo::Point& origin) {
    if (isFinite(origin)) change(state_.frame.origin, origin);
}

void Widget::setWidth(double width) {
    if (!std::isfinite(width)) return;
    state_.frame.size.width = width;
    fitHeight();
    tell();
}

void Widget::setText(const std::string& text) {
    const std::string shown = cleanedFor(state_.type, text);
    // A text set while a keystroke is handled is still reported as changed.
    if (!beingTyped_) reported_ = shown;
    if (state_.text == shown) return;
    state_.text = shown;
    state_.selection.reset();
    fitHeight();
    tell();
}

void Widget::setTooltip(const std::string& tooltip) {
    change(state_.tooltip, cleaned(tooltip, LineBreaks::Stay, kMostInWidget));
}

void Widget::setVisible(bool visible) {
    change(state_.visible, visible);
    if (!visible) giveUpFocus();
}

void Widget::setEnabled(bool enabled) {
    change(state_.enabled, enabled);
    if (!enabled) giveUpFocus();
}

void Widget::setChecked(bool checked) { change(state_.checked, checked); }

void Widget::setBold(bool bold) {
    state_.bold = bold;
    fitHeight();
    tell();
}

void Widget::setItalic(bool italic) { change(state_.italic, italic); }
void Widget::setAlignment(core::TextAlignment alignment) { change(state_.alignment, alignment); }
void Widget::setStyle(core::ButtonStyle style) { change(state_.style, style); }

void Widget::setImages(const core::WidgetImages& images) {
    state_.images = images;
    if (state_.frame.size.width == 0) state_.frame.size.width = idealSize().width;
    fitHeight();
    tell();
}

void Widget::setSelection(const core::SelectionRange& selection) {
    const std::size_t end = utils::characterCount(state_.text);
    const std::size_t start = std::min(selection.start, end);
    state_.selection = core::SelectionRange{start, std::clamp(selection.end, start, end)};
    tell();
}

core::SelectionRange Widget::selection() const {
    const auto dialog = window_.lock();
    return dialog && dialog->visible() ? dialog->window_->selection(id_)
                                       : state_.selection.value_or(core::SelectionRange());
}

geo::Size Widget::idealSize() const { return platform().windows().fittingSize(state_); }

// The focus

void Widget::focus() {
    const auto dialog = window_.lock();
    if (dialog && is(core::WidgetType::TextField) && canBeUsed()) dialog->setFocus(id_);
}

void Widget::blur() {
    const auto dialog = window_.lock();
    if (dialog && hasFocus()) dialog->setFocus(kNoWidget);
}

bool Widget::hasFocus() const {
    const auto dialog = window_.lock();
    return dialog && id_ == (dialog->visible() ? dialog->focused_ : dialog->focusAtFirst());
}

void Widget::giveUpFocus() {
    const auto dialog = window_.lock();
    if (dialog && dialog->visible()) blur();
}

void Widget::click() {
    const auto dialog = window_.lock();
    if (!canBeUsed() || is(core::WidgetType::TextField)) return;
    if (is(core::WidgetType::Checkbox)) setChecked(!state_.checked);
    if (dialog) return dialog->clicked(*this, state_.checked);
    lastWidgets().clicked = weak_from_this();
    clicked.run();
}

} // namespace kzo::plugin
