// The life of a dialog, and where its widgets are. What the user does to it is in DialogEvents.cpp.
#include "plugin/dialogs/ModalDialog.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "plugin/dialogs/Text.h"
#include "plugin/platform/Platform.h"

namespace kzo::plugin {

namespace {

constexpr double kMargin = 8;       // below the lowest widget
constexpr double kStripMargin = 12; // around the dialog's own buttons
constexpr double kButtonWidth = 80; // at least

/// A size that a window can have.
geo::Size usable(const geo::Size& size) {
    const auto length = [](double value) { return std::isfinite(value) ? std::max(0., value) : 0; };
    return {length(size.width), length(size.height)};
}

} // namespace

// Life

ModalDialog::ModalDialog(std::string title, const geo::Size& size) : title_(std::move(title)), size_(usable(size)) {
    if (!all_) all_ = new std::vector<ModalDialog*>;
    all_->push_back(this);
}

ModalDialog::~ModalDialog() {
    std::erase(*all_, this);
    if (all_->empty()) delete std::exchange(all_, nullptr);
}

std::shared_ptr<ModalDialog> ModalDialog::make(const std::string& title, const geo::Size& size, const DialogButton& ok,
                                               const DialogButton& cancel) {
    std::shared_ptr<ModalDialog> made(new ModalDialog(cleaned(title, LineBreaks::BecomeBlanks, kMostInTitle), size));
    made->ok_ = ownButton(ok, core::ButtonStyle::Default, "OK");
    made->cancel_ = ownButton(cancel, core::ButtonStyle::Cancel, "Cancel");
    for (const OwnButton* own : {&made->ok_, &made->cancel_})
        if (own->widget) own->widget->window_ = made;
    return made;
}

ModalDialog::OwnButton ModalDialog::ownButton(const DialogButton& button, core::ButtonStyle style,
                                              const char* usualTitle) {
    if (!button.exists) return {};
    auto made = std::make_shared<Widget>(core::WidgetType::Button, geo::Point(),
                                         button.title.empty() ? usualTitle : button.title, 0);
    made->setStyle(style);
    made->setWidth(std::max(kButtonWidth, made->idealSize().width));
    made->clicked = button.callback;
    return {std::move(made), button.closes};
}

void ModalDialog::show() {
    if (!alive_ || window_) return;
    const std::shared_ptr<ModalDialog> held = shared_from_this();
    showing.run();
    if (!alive_ || window_) return; // destroyed or shown by that
    const std::unique_ptr<Window> window = platform().windows().make(*this);
    if (!window) return;
    struct Open { // until the end, however that comes
        ModalDialog& dialog;
        ~Open() {
            dialog.window_ = nullptr;
            dialog.focused_ = kNoWidget;
            dialog.wantsFocus_.reset();
        }
    } const open{*this};
    window_ = window.get();
    ending_ = false;
    chosen_.reset();
    const auto first = find(focusAtFirst());
    const auto selected = first ? first->state().selection : std::nullopt;
    update();
    window_->setBrightness(platform().windows().brightness());
    setFocus(first ? first->handle() : kNoWidget);
    if (selected) first->setSelection(*selected); // the focus has selected all
    window->run();
}

void ModalDialog::dismiss() {
    if (!visible()) return;
    chosen_ = clicking_;
    ending_ = true;
    window_->stop();
}

void ModalDialog::destroy() {
    dismiss();
    alive_ = false;
    for (const auto& widget : widgets_) widget->window_.reset();
    widgets_.clear();
    tabOrder_.clear();
}

void ModalDialog::dismissAll() {
    if (!all_) return;
    for (ModalDialog* dialog : *all_) dialog->dismiss();
}

void ModalDialog::destroyAll() {
    while (all_) {
        const auto alive = std::find_if(all_->begin(), all_->end(), [](const auto* each) { return each->alive_; });
        if (alive == all_->end()) break;
        const std::shared_ptr<ModalDialog> held = (*alive)->shared_from_this();
        held->destroy();
    }
    lastWidgets() = {};
}

void ModalDialog::adjustBrightness() {
    if (!all_) return;
    for (const ModalDialog* dialog : *all_)
        if (dialog->visible()) dialog->window_->setBrightness(platform().windows().brightness());
}

// What it shows

void ModalDialog::setTitle(const std::string& title) {
    title_ = cleaned(title, LineBreaks::BecomeBlanks, kMostInTitle);
    update();
}

void ModalDialog::setSize(const geo::Size& size) {
    size_ = usable(size);
    update();
}

void ModalDialog::add(const std::shared_ptr<Widget>& widget) {
    if (!widget || !alive_) return;
    if (const auto before = widget->window_.lock()) before->remove(*widget);
    widgets_.push_back(widget);
    widget->window_ = weak_from_this();
    widgetChanged(*widget);
}

void ModalDialog::remove(const Widget& widget) {
    const auto same = [&](const auto& known) { return known.get() == &widget; };
    const auto at = std::find_if(widgets_.begin(), widgets_.end(), same);
    if (at == widgets_.end()) return;
    const std::shared_ptr<Widget> held = *at;
    const bool isLeft = visible() && held->hasFocus();
    held->window_.reset();
    widgets_.erase(at);
    std::erase_if(tabOrder_, same);
    if (isLeft) setFocus(kNoWidget);
    if (window_) window_->removeWidget(widget.handle());
    update();
    if (isLeft) report(*held);
}

void ModalDialog::setTabOrder(const Widgets& fields) {
    tabOrder_ = fields;
    update();
}

void ModalDialog::update() {
    if (!window_) return;
    placeOwnButtons();
    handedOver_ = shownSize();
    window_->setFrame(title_, handedOver_);
    for (const auto& widget : widgets_) handOver(*widget);
    for (const OwnButton* own : {&ok_, &cancel_})
        if (own->widget) handOver(*own->widget);
}

void ModalDialog::widgetChanged(Widget& widget) {
    if (!window_) return;
    // Another height moves the dialog's own buttons, and another place may give a label more room.
    if (shownSize() == handedOver_ && !widget.is(core::WidgetType::Label))
        handOver(widget);
    else
        update();
}

void ModalDialog::handOver(Widget& widget) const {
    WidgetState state = widget.state();
    state.frame.size.height = shownHeight(widget);
    for (std::int16_t* image : {&state.images.rollover, &state.images.pressed})
        if (*image == 0 || state.images.normal == 0) *image = state.images.normal;
    if (const auto field = widget.linked.lock(); field && widget.is(core::WidgetType::Label))
        state.linked = field->handle();
    if (widget.is(core::WidgetType::TextField)) state.tabPlace = tabPlace(widget);
    widget.state_.selection.reset(); // from now on it is the user's
    window_->setWidget(widget.handle(), state);
}

// Places

/// A label whose height follows its text ends where the next widget below it begins.
double ModalDialog::shownHeight(const Widget& widget) const {
    const geo::Rect& frame = widget.state().frame;
    double height = frame.size.height;
    if (!widget.is(core::WidgetType::Label) || widget.heightSet_ || widget.state().images.normal != 0) return height;
    for (const auto& other : widgets_) {
        const geo::Rect& next = other->state().frame;
        const double room = next.origin.y - frame.origin.y;
        const bool below = other->state().visible && room > 0 && next.origin.x < frame.origin.x + frame.size.width &&
                           frame.origin.x < next.origin.x + next.size.width;
        if (below) height = std::min(height, room);
    }
    return height;
}

geo::Size ModalDialog::shownSize() const {
    double bottom = 0;
    for (const auto& widget : widgets_)
        if (widget->state().visible) bottom = std::max(bottom, widget->state().frame.origin.y + shownHeight(*widget));
    double below = bottom > 0 ? kMargin : 0;
    for (const OwnButton* own : {&ok_, &cancel_})
        if (own->widget) below = std::max(below, own->widget->state().frame.size.height + 2 * kStripMargin);
    return {size_.width, std::max(size_.height, bottom + below)};
}

/// From the right: OK, Cancel.
void ModalDialog::placeOwnButtons() {
    const geo::Size shown = shownSize();
    double right = shown.width - kStripMargin;
    for (const OwnButton* own : {&ok_, &cancel_}) {
        if (!own->widget) continue;
        geo::Rect& frame = own->widget->state_.frame;
        frame.origin = {right - frame.size.width, shown.height - kStripMargin - frame.size.height};
        right = frame.origin.x - kStripMargin;
    }
}

} // namespace kzo::plugin
