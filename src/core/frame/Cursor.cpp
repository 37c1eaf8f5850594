// Cursor: sharing of the implementation, and forwarding to it.
#include "core/frame/Cursor.h"

#include "core/Forward.h"
#include "core/app/Plugin.h"
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
    const bool known = number != 0 && number < plugin::firstImageCursor && Plugin::instance();
    return known ? std::make_shared<__IntCursorContainer>(number) : nullptr;
}

std::shared_ptr<__IntCursorContainer> imageCursor(const plugin::CursorImages& images, const Point& hotSpot) {
    const Plugin* const plugin = Plugin::instance();
    if (!plugin || !images.any()) return nullptr;
    const plugin::Cursor cursor(plugin->spPluginRef(), images, hotSpot.impl());
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
    const unsigned number = Plugin::instance() ? plugin::shownCursorNumber() : 0;
    if (number < plugin::firstImageCursor) return Cursor(AdobeCursor{number});
    return Cursor(std::make_shared<__IntCursorContainer>(number));
}

Point Cursor::screenLoc() { return Plugin::instance() ? Point(plugin::platform().pointerLocation()) : Point(); }

void Cursor::click(const Point& place) {
    mouseDown(place);
    mouseUp(place);
}

void Cursor::mouseDown(const Point& place) {
    if (Plugin::instance()) plugin::platform().pressMouse(place.impl());
}

void Cursor::mouseUp(const Point& place) {
    if (Plugin::instance()) plugin::platform().releaseMouse(place.impl());
}

} // namespace kzo::core
