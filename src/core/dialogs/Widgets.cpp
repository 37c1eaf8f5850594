// Forwards every operation of the widgets to their implementation, which is one for all kinds.
#include "core/Forward.h"
#include "core/dialogs/Checkbox.h"
#include "core/dialogs/ModalDialog.h"
#include "geo/Rect.h"
#include "plugin/dialogs/ModalDialog.h"

namespace kzo::core {

using Impl = plugin::Widget;
template class Handle<Impl>;

namespace {

Callback* stored(Impl* impl, CallbackSlot Impl::*slot) { return impl ? (impl->*slot).get() : nullptr; }
void store(Impl* impl, CallbackSlot Impl::*slot, const Callback& callback) {
    if (impl) (impl->*slot).set(callback);
}

WidgetImages imagesOf(const Impl* impl) { return impl ? impl->state().images : WidgetImages(); }

void link(Impl* label, Impl* field) {
    if (label) label->linked = field ? field->weak_from_this() : std::weak_ptr<Impl>();
    if (field && label) field->linked = label->weak_from_this();
}

} // namespace

// Widget

Widget::Widget(WidgetType type, const Point& origin, const std::string& text, double width)
    : Handle(std::make_shared<Impl>(type, origin.impl(), text, width)) {}

WidgetType Widget::type() const { return ask(impl(), &Impl::type); }
ModalDialog Widget::window() const { return ModalDialog(impl() ? impl()->window().lock() : nullptr); }

Rect Widget::frame() const { return Rect(ask(impl(), &Impl::frame)); }
void Widget::setFrame(const Rect& frame) { ask(impl(), &Impl::setFrame, frame.impl()); }
void Widget::setOrigin(const Point& origin) { ask(impl(), &Impl::setOrigin, origin.impl()); }
void Widget::setSize(const Size& size) { setFrame({frame().topLeft(), size}); }
void Widget::setWidth(double width) { ask(impl(), &Impl::setWidth, width); }
void Widget::setHeight(double height) { setSize({frame().size.width(), height}); }
void Widget::offset(double dx, double dy) { setOrigin(frame().topLeft().offset(dx, dy)); }
double Widget::idealWidth() const { return ask(impl(), &Impl::idealSize).width; }
double Widget::idealHeight() const { return ask(impl(), &Impl::idealSize).height; }

std::string Widget::text() const { return impl() ? impl()->state().text : ""; }
void Widget::setText(const std::string& text) { ask(impl(), &Impl::setText, text); }
std::string Widget::tooltip() const { return impl() ? impl()->state().tooltip : ""; }
void Widget::setTooltip(const std::string& tooltip) { ask(impl(), &Impl::setTooltip, tooltip); }
bool Widget::visible() const { return impl() && impl()->state().visible; }
void Widget::setVisible(bool visible) { ask(impl(), &Impl::setVisible, visible); }
bool Widget::enabled() const { return impl() && impl()->state().enabled; }
void Widget::setEnabled(bool enabled) { ask(impl(), &Impl::setEnabled, enabled); }
void Widget::update() { ask(impl(), &Impl::update); }

void Widget::focus() { ask(impl(), &Impl::focus); }
void Widget::blur() { ask(impl(), &Impl::blur); }
bool Widget::hasFocus() const { return ask(impl(), &Impl::hasFocus); }

Widget Widget::lastValueChangedWidget() { return Widget(plugin::lastWidgets().changed.lock()); }
Widget Widget::lastValueChangingWidget() { return Widget(plugin::lastWidgets().changing.lock()); }
Widget Widget::lastClickedWidget() { return Widget(plugin::lastWidgets().clicked.lock()); }

// Label

Label::Label(const Point& origin, const std::string& text, double width)
    : Widget(WidgetType::Label, origin, text, width) {}

Label::Label(const Point& origin, const WidgetImages& images) : Label(origin, "", 0) { setImages(images); }

WidgetImages Label::images() const { return imagesOf(impl()); }
void Label::setImages(const WidgetImages& images) { ask(impl(), &Impl::setImages, images); }
void Label::setBold(bool bold) { ask(impl(), &Impl::setBold, bold); }
void Label::setItalic(bool italic) { ask(impl(), &Impl::setItalic, italic); }
void Label::setAlignment(TextAlignment alignment) { ask(impl(), &Impl::setAlignment, alignment); }
void Label::setTextField(const TextField& field) { link(impl(), field.impl()); }
Callback* Label::clickCallback() const { return stored(impl(), &Impl::clicked); }
void Label::setClickCallback(const Callback& callback) { store(impl(), &Impl::clicked, callback); }
Callback* Label::doubleClickCallback() const { return stored(impl(), &Impl::doubleClicked); }
void Label::setDoubleClickCallback(const Callback& callback) { store(impl(), &Impl::doubleClicked, callback); }

// TextField

TextField::TextField(const Point& origin, const std::string& text, double width)
    : Widget(WidgetType::TextField, origin, text, width) {}

void TextField::setBold(bool bold) { ask(impl(), &Impl::setBold, bold); }
void TextField::setItalic(bool italic) { ask(impl(), &Impl::setItalic, italic); }
void TextField::setAlignment(TextAlignment alignment) { ask(impl(), &Impl::setAlignment, alignment); }
void TextField::setSelectionRange(const SelectionRange& range) { ask(impl(), &Impl::setSelection, range); }
SelectionRange TextField::selectionRange() const { return ask(impl(), &Impl::selection); }
void TextField::setLabel(const Label& label) { link(label.impl(), impl()); }
Callback* TextField::valueChangedCallback() const { return stored(impl(), &Impl::changed); }
void TextField::setValueChangedCallback(const Callback& callback) { store(impl(), &Impl::changed, callback); }
Callback* TextField::valueChangingCallback() const { return stored(impl(), &Impl::changing); }
void TextField::setValueChangingCallback(const Callback& callback) { store(impl(), &Impl::changing, callback); }
std::string TextField::lastCharTyped() const { return impl() ? impl()->lastTyped : ""; }

// Checkbox

Checkbox::Checkbox(const Point& origin, const std::string& text, double width, StateType state)
    : Widget(WidgetType::Checkbox, origin, text, width) {
    setState(state);
}

CheckboxState Checkbox::state() const { return checked() ? StateType::Checked : StateType::Unchecked; }
void Checkbox::setState(StateType state) { setChecked(state == StateType::Checked); }
void Checkbox::setChecked(bool checked) { ask(impl(), &Impl::setChecked, checked); }
bool Checkbox::checked() const { return impl() && impl()->state().checked; }
Callback* Checkbox::clickCallback() const { return stored(impl(), &Impl::clicked); }
void Checkbox::setClickCallback(const Callback& callback) { store(impl(), &Impl::clicked, callback); }
void Checkbox::click() { ask(impl(), &Impl::click); }

// Button

Button::Button(const Point& origin, const std::string& text, double width)
    : Widget(WidgetType::Button, origin, text, width) {}

Button::Button(const Point& origin, const WidgetImages& images) : Button(origin, "", 0) { setImages(images); }

WidgetImages Button::images() const { return imagesOf(impl()); }
void Button::setImages(const WidgetImages& images) { ask(impl(), &Impl::setImages, images); }
ButtonStyle Button::style() const { return impl() ? impl()->state().style : ButtonStyle::Plain; }
void Button::setStyle(ButtonStyle style) { ask(impl(), &Impl::setStyle, style); }
Callback* Button::clickCallback() const { return stored(impl(), &Impl::clicked); }
void Button::setClickCallback(const Callback& callback) { store(impl(), &Impl::clicked, callback); }
Callback* Button::doubleClickCallback() const { return stored(impl(), &Impl::doubleClicked); }
void Button::setDoubleClickCallback(const Callback& callback) { store(impl(), &Impl::doubleClicked, callback); }
void Button::click() { ask(impl(), &Impl::click); }

} // namespace kzo::core
