// Cursor: sharing of the implementation, and forwarding to it.
#include "core/frame/Cursor.h"

#include "core/Forward.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/Cursor.h"

namespace kzo::core {

/// What the copies of a handle hold together: their part in what all handles on the cursor share.
class __IntCursorContainer : public plugin::SharedCursor {
  public:
    using SharedImpl::SharedImpl;
};

namespace {

const plugin::Cursor* implOf(const std::shared_ptr<__IntCursorContainer>& data) {
    const auto* const shared = data ? data->get() : nullptr;
    return shared ? &shared->cursor() : nullptr;
}

std::shared_ptr<__IntCursorContainer> hostCursor(unsigned number) {
    const bool known = number != 0 && number < plugin::firstImageCursor && plugin::frame();
    return known ? std::make_shared<__IntCursorContainer>(number) : nullptr;
}

std::shared_ptr<__IntCursorContainer> imageCursor(const plugin::CursorImages& images, const Point& hotSpot) {
    plugin::BasePlugin* const frame = plugin::frame();
    if (!frame || !images.any()) return nullptr;
    const plugin::Cursor cursor(frame->spPluginRef(), images, hotSpot.impl());
    const unsigned number = plugin::numberFor(cursor);
    return std::make_shared<__IntCursorContainer>(number, [&] { return plugin::__CursorContainerID(number, cursor); });
}

} // namespace

Cursor::Cursor(AdobeCursor cursor) : data_(hostCursor(static_cast<unsigned>(cursor))) {}

Cursor::Cursor(std::int16_t normalImage, std::int16_t doubleImage, std::int16_t tripleImage, const Point& hotSpot)
    : data_(imageCursor({normalImage, doubleImage, tripleImage}, hotSpot)) {}

bool Cursor::isEmpty() const { return !implOf(data_); }
bool Cursor::operator==(const Cursor& other) const { return implOf(data_) == implOf(other.data_); }
Point Cursor::hotSpot() const { return Point(ask(implOf(data_), &plugin::Cursor::hotSpot)); }
void Cursor::enable() const { ask(implOf(data_), &plugin::Cursor::enable); }

Cursor Cursor::CurrentCursor() {
    const unsigned number = plugin::frame() ? plugin::shownCursorNumber() : 0;
    if (number < plugin::firstImageCursor) return Cursor(AdobeCursor{number});
    return Cursor(std::make_shared<__IntCursorContainer>(number));
}

Point Cursor::screenLoc() { return plugin::frame() ? Point(plugin::platform().mouse().location()) : Point(); }

void Cursor::click(const Point& place) {
    mouseDown(place);
    mouseUp(place);
}

void Cursor::mouseDown(const Point& place) {
    if (plugin::frame()) plugin::platform().mouse().press(place.impl());
}

void Cursor::mouseUp(const Point& place) {
    if (plugin::frame()) plugin::platform().mouse().release(place.impl());
}

} // namespace kzo::core
