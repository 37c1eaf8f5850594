// A cursor image that a tool shows, and the mouse behind it.
#pragma once

#include <cstdint>

#include "core/Handle.h"
#include "core/values/FrameEnumerations.h"
#include "core/values/Point.h"

namespace kzo::plugin {
class __CursorContainerID;
}

namespace kzo::core {

extern template class Handle<plugin::__CursorContainerID>;

/// Handles made of the same images and hot spot denote one cursor, too. After shut-down they are empty. Operations on
/// an empty handle do nothing and return false or the origin. Places are in screen units, x right, y down.
class Cursor : public Handle<plugin::__CursorContainerID> {
  public:
    Cursor() = default; ///< empty
    using Handle::Handle;
    explicit Cursor(AdobeCursor cursor); ///< empty for a value that is no cursor's number
    /// Made of PNG resources of the plug-in, for displays of one, two and three pixels for a screen unit; 0 where there
    /// is none, and empty when all are. The hot spot is counted from the image's top left corner.
    Cursor(std::int16_t normalImage, std::int16_t doubleImage, std::int16_t tripleImage, const Point& hotSpot);

    [[nodiscard]] Point hotSpot() const; ///< the origin for one of the host's, which keeps it to itself
    /// Makes it the current cursor. The image is that of the display's resolution or, where that is missing, of the
    /// next one below; the normal one while no document is open.
    void enable() const;

    // The current one, and the mouse. Without a plug-in they do nothing and return an empty handle or the origin.
    /// Empty when an image shows that belongs to no cursor of this plug-in.
    [[nodiscard]] static Cursor CurrentCursor(); // NOLINT(readability-identifier-naming): known by this name
    [[nodiscard]] static Point screenLoc();      ///< of the mouse pointer
    /// Press or release the mouse button as the user would, once the message being handled is through; `click` does
    /// both.
    static void click(const Point& place);
    static void mouseDown(const Point& place);
    static void mouseUp(const Point& place);
};

} // namespace kzo::core
