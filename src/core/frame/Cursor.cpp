// Cursor: forwards to its implementation.
#include "core/frame/Cursor.h"

#include "core/Forward.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/Cursor.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::core {

using Impl = plugin::__CursorContainerID;
template class Handle<Impl>;

namespace {

std::shared_ptr<Impl> hostCursor(unsigned number) {
    return number < plugin::kFirstImageCursor ? plugin::share<Impl>(number) : nullptr;
}

std::shared_ptr<Impl> imageCursor(const plugin::CursorImages& images, const Point& hotSpot) {
    plugin::BasePlugin* const frame = plugin::frame();
    if (!frame || !images.any()) return nullptr;
    const plugin::Cursor cursor(frame->spPluginRef(), images, hotSpot.impl());
    const unsigned number = plugin::numberFor(cursor);
    return plugin::share<Impl>(number, [&] { return Impl(number, cursor); });
}

} // namespace

Cursor::Cursor(AdobeCursor cursor) : Handle(hostCursor(static_cast<unsigned>(cursor))) {}

Cursor::Cursor(std::int16_t normalImage, std::int16_t doubleImage, std::int16_t tripleImage, const Point& hotSpot)
    : Handle(imageCursor({normalImage, doubleImage, tripleImage}, hotSpot)) {}

Point Cursor::hotSpot() const {
    return Point(ask(impl(), [](const Impl& shared) { return shared.cursor().hotSpot(); }));
}
void Cursor::enable() const {
    ask(impl(), [](const Impl& shared) { shared.cursor().enable(); });
}

Cursor Cursor::CurrentCursor() {
    const unsigned number = plugin::frame() ? plugin::shownCursorNumber() : 0;
    return number < plugin::kFirstImageCursor ? Cursor(AdobeCursor{number}) : Cursor(plugin::share<Impl>(number));
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
