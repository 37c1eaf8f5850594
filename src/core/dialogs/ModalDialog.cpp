// Forwards every operation of the dialog to its implementation.
#include "core/dialogs/ModalDialog.h"

#include <algorithm>

#include "core/Forward.h"
#include "plugin/dialogs/ModalDialog.h"

namespace kzo::core {

using Impl = plugin::ModalDialog;
template class Handle<Impl>;

namespace {

template <class Facade> std::vector<Facade> handles(const Impl::Widgets& widgets) {
    std::vector<Facade> list;
    std::transform(widgets.begin(), widgets.end(), std::back_inserter(list),
                   [](const auto& widget) { return Facade(widget); });
    return list;
}

plugin::DialogButton made(const ModalDialog::ButtonOptions& options) {
    const CallbackSlot callback = options.callback() ? CallbackSlot(*options.callback()) : CallbackSlot();
    return {options.exists(), callback, options.closes(), options.title()};
}

} // namespace

// Construction

ModalDialog::ModalDialog(const std::string& title, const Size& size)
    : ModalDialog(title, size, ButtonOptions(), ButtonOptions()) {}

ModalDialog::ModalDialog(const std::string& title, const Size& size, const ButtonOptions& ok,
                         const ButtonOptions& cancel)
    : Handle(Impl::make(title, size.impl(), made(ok), made(cancel))) {}

// What it shows

std::string ModalDialog::title() const { return ask(impl(), &Impl::title); }
void ModalDialog::setTitle(const std::string& title) { ask(impl(), &Impl::setTitle, title); }
Size ModalDialog::size() const { return Size(ask(impl(), &Impl::size)); }
void ModalDialog::setSize(const Size& size) { ask(impl(), &Impl::setSize, size.impl()); }

void ModalDialog::addWidget(const Widget& widget) { ask(impl(), &Impl::add, widget.shared()); }

void ModalDialog::removeWidget(const Widget& widget) {
    if (impl() && widget.impl()) impl()->remove(*widget.impl());
}

std::vector<Widget> ModalDialog::widgets() const { return handles<Widget>(ask(impl(), &Impl::widgets)); }
std::vector<TextField> ModalDialog::tabOrder() const { return handles<TextField>(ask(impl(), &Impl::tabOrder)); }

void ModalDialog::setTabOrder(const std::vector<TextField>& fields) {
    Impl::Widgets order;
    for (const TextField& field : fields)
        if (field.impl()) order.push_back(field.shared());
    ask(impl(), &Impl::setTabOrder, order);
}

void ModalDialog::update() { ask(impl(), &Impl::update); }

// The user's choice

void ModalDialog::setShowCallback(const Callback& callback) {
    if (impl()) impl()->showing.set(callback);
}
void ModalDialog::show() { ask(impl(), &Impl::show); }
void ModalDialog::dismiss() { ask(impl(), &Impl::dismiss); }
bool ModalDialog::visible() const { return ask(impl(), &Impl::visible); }
Button ModalDialog::okButton() const { return Button(ask(impl(), &Impl::okButton)); }
Button ModalDialog::cancelButton() const { return Button(ask(impl(), &Impl::cancelButton)); }
Button ModalDialog::chosenButton() const { return Button(ask(impl(), &Impl::chosenButton)); }
void ModalDialog::destroy() { ask(impl(), &Impl::destroy); }

} // namespace kzo::core
