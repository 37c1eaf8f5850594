// What the user does to a dialog, and what comes of it.
#include <algorithm>
#include <utility>

#include "plugin/dialogs/ModalDialog.h"
#include "plugin/dialogs/Text.h"
#include "utils/Scope.h"
#include "utils/Utf8.h"

namespace kzo::plugin {

namespace {

using core::ButtonStyle;
using core::WidgetType;

} // namespace

void ModalDialog::handle(const WindowEvent& event) {
    if (!visible()) return;
    const std::shared_ptr<ModalDialog> held = shared_from_this();
    const std::shared_ptr<Widget> widget = find(event.widget);
    const bool used = widget && widget->canBeUsed();
    const bool isField = used && widget->is(WidgetType::TextField);
    switch (event.kind) {
    case WindowEvent::Kind::Typing:
        if (isField) typed(*widget, event);
        break;
    case WindowEvent::Kind::Commit:
        if (isField && !movingFocus_) report(*widget);
        break;
    case WindowEvent::Kind::Click:
        if (used && !isField) clicked(*widget, event.checked);
        break;
    case WindowEvent::Kind::DoubleClick:
        if (used && !isField) doubleClicked(*widget);
        break;
    case WindowEvent::Kind::FocusMoved:
        if ((isField || event.widget == kNoWidget) && !movingFocus_) focusMoved(event.widget);
        break;
    case WindowEvent::Kind::Key: keyPressed(event.key); break;
    case WindowEvent::Kind::Close: cancelled(); break;
    }
}

void ModalDialog::typed(Widget& field, const WindowEvent& event) {
    focusMoved(field.handle());
    field.state_.text = cleaned(event.text, LineBreaks::BecomeBlanks, kMostInWidget);
    field.lastTyped = utils::lastCharacter(event.typed);
    if (field.state_.text != event.text) widgetChanged(field);
    lastWidgets().changing = field.weak_from_this();
    const utils::Temporary beingTyped(field.beingTyped_, true);
    field.changing.run();
}

void ModalDialog::clicked(Widget& widget, bool checked) {
    if (widget.is(WidgetType::Button)) return pressed(widget);
    if (widget.is(WidgetType::Checkbox)) widget.state_.checked = checked;
    const auto field = widget.linked.lock();
    if (field && widget.is(WidgetType::Label)) field->focus();
    lastWidgets().clicked = widget.weak_from_this();
    widget.clicked.run();
}

void ModalDialog::pressed(Widget& button) {
    const std::shared_ptr<Widget> held = button.shared_from_this();
    const bool closes = (held == ok_.widget && ok_.closes) || (held == cancel_.widget && cancel_.closes);
    if (button.state().style != ButtonStyle::Plain) endEditing();
    lastWidgets().clicked = held;
    const utils::Temporary clicking(clicking_, std::weak_ptr(held));
    button.clicked.run();
    if (closes) dismiss();
}

/// Whoever clicks something fast that makes nothing of it has clicked it again.
void ModalDialog::doubleClicked(Widget& widget) {
    if (!widget.doubleClicked.get()) return clicked(widget, widget.state().checked);
    lastWidgets().clicked = widget.weak_from_this();
    widget.doubleClicked.run();
}

void ModalDialog::keyPressed(WindowEvent::Key key) {
    const auto field = find(focused_);
    switch (key) {
    case WindowEvent::Key::Return:
        if (const auto button = buttonOf(ButtonStyle::Default))
            pressed(*button);
        else if (field)
            report(*field);
        break;
    case WindowEvent::Key::Escape: cancelled(); break;
    case WindowEvent::Key::Tab: focusNext(1); break;
    case WindowEvent::Key::BackTab: focusNext(-1); break;
    case WindowEvent::Key::None: break;
    }
}

void ModalDialog::cancelled() {
    if (const auto button = buttonOf(ButtonStyle::Cancel)) return pressed(*button);
    endEditing();
    dismiss();
}

// The focus

std::shared_ptr<Widget> ModalDialog::find(WidgetId id) const {
    for (const OwnButton* own : {&ok_, &cancel_})
        if (own->widget && own->widget->handle() == id) return own->widget;
    const auto at = std::find_if(widgets_.begin(), widgets_.end(), [id](const auto& it) { return it->handle() == id; });
    return at == widgets_.end() ? nullptr : *at;
}

std::shared_ptr<Widget> ModalDialog::buttonOf(ButtonStyle style) const {
    const auto fits = [style](const std::shared_ptr<Widget>& widget) {
        return widget && widget->is(WidgetType::Button) && widget->state().style == style && widget->canBeUsed();
    };
    for (const OwnButton* own : {&ok_, &cancel_})
        if (fits(own->widget)) return own->widget;
    const auto at = std::find_if(widgets_.begin(), widgets_.end(), fits);
    return at == widgets_.end() ? nullptr : *at;
}

ModalDialog::Widgets ModalDialog::fieldsInOrder() const {
    Widgets fields = tabOrder_.empty() ? widgets_ : tabOrder_;
    std::erase_if(fields, [this](const auto& widget) {
        return !widget->is(WidgetType::TextField) || widget->window_.lock().get() != this;
    });
    return fields;
}

ModalDialog::Widgets ModalDialog::usableFields() const {
    Widgets fields = fieldsInOrder();
    std::erase_if(fields, [](const auto& widget) { return !widget->canBeUsed(); });
    return fields;
}

std::int32_t ModalDialog::tabPlace(const Widget& field) const {
    const Widgets fields = fieldsInOrder();
    const auto at = std::find_if(fields.begin(), fields.end(), [&](const auto& it) { return it.get() == &field; });
    return at == fields.end() ? 0 : static_cast<std::int32_t>(at - fields.begin()) + 1;
}

WidgetId ModalDialog::focusAtFirst() const {
    const auto wanted = wantsFocus_ ? find(*wantsFocus_) : nullptr;
    if (wantsFocus_ == kNoWidget || (wanted && wanted->canBeUsed())) return *wantsFocus_;
    const Widgets fields = usableFields();
    return fields.empty() ? kNoWidget : fields.front()->handle();
}

void ModalDialog::setFocus(WidgetId id) {
    if (!visible()) {
        wantsFocus_ = id;
        return;
    }
    {
        const utils::Temporary moving(movingFocus_, true);
        window_->setFocus(id);
    }
    focusMoved(id);
}

/// Going elsewhere commits what was typed.
void ModalDialog::focusMoved(WidgetId id) {
    const auto left = id == focused_ ? nullptr : find(focused_);
    focused_ = id;
    if (left) report(*left);
}

void ModalDialog::focusNext(int step) {
    const Widgets fields = usableFields();
    if (fields.empty()) return;
    const auto count = static_cast<int>(fields.size());
    const auto at = std::find_if(fields.begin(), fields.end(), [](const auto& it) { return it->hasFocus(); });
    const auto from = static_cast<int>(at - fields.begin());
    const int first = step > 0 ? 0 : count - 1;
    const int next = from == count ? first : (from + step + count) % count;
    if (next == from)
        report(*fields.front());
    else
        setFocus(fields[static_cast<std::size_t>(next)]->handle());
}

/// Takes the focus away without reporting: the button's own callback reads the text or discards it.
void ModalDialog::endEditing() {
    const auto field = find(std::exchange(focused_, kNoWidget));
    if (!field) return;
    field->reported_ = field->state_.text;
    setFocus(kNoWidget);
}

void ModalDialog::report(Widget& field) {
    const std::shared_ptr<Widget> held = field.shared_from_this();
    if (field.state_.text == field.reported_) return;
    field.reported_ = field.state_.text;
    lastWidgets().changed = held;
    field.changed.run();
}

} // namespace kzo::plugin
