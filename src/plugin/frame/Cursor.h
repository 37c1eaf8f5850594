// What the mouse pointer looks like: one of the host's cursors, or the plug-in's own images. Shown by the platform.
#pragma once

#include <cstdint>
#include <utility>

#include "geo/Point.h"
#include "plugin/platform/Platform.h"

struct SPPlugin;

namespace kzo::plugin {

/// Resource IDs of the images for displays of one, two and three pixels for a screen unit; 0 where there is none.
struct CursorImages {
    std::int16_t normal = 0;
    std::int16_t doubled = 0;
    std::int16_t tripled = 0;

    [[nodiscard]] bool any() const { return normal != 0 || doubled != 0 || tripled != 0; }
    bool operator==(const CursorImages&) const = default;
};

class Cursor {
  public:
    explicit Cursor(unsigned hostNumber) : hostNumber_(hostNumber) {}
    Cursor(SPPlugin* plugin, const CursorImages& images, const geo::Point& hotSpot)
        : plugin_(plugin), images_(images), hotSpot_(hotSpot) {}

    [[nodiscard]] geo::Point hotSpot() const { return hotSpot_; } ///< the origin for one of the host's
    /// Shows the cursor. Of its images the sharpest that the display has pixels for; the normal one without a document
    /// frame. Nothing happens when that image is missing.
    void enable() const;
    [[nodiscard]] bool has(const CursorImage& image) const; ///< whether it is one of its images
    bool operator==(const Cursor&) const = default;

  private:
    [[nodiscard]] CursorImage imageAt(int scale) const;

    unsigned hostNumber_ = 0; // 0 when made of images
    SPPlugin* plugin_ = nullptr;
    CursorImages images_;
    geo::Point hotSpot_;
};

/// What all handles on one cursor share: the number that it is known by, and the cursor.
class __CursorContainerID {
  public:
    explicit __CursorContainerID(unsigned hostNumber) : number_(hostNumber), cursor_(hostNumber) {}
    __CursorContainerID(unsigned number, const Cursor& cursor) : number_(number), cursor_(cursor) {}

    [[nodiscard]] unsigned handle() const { return number_; }
    [[nodiscard]] const Cursor& cursor() const { return cursor_; }
    unsigned release() { return std::exchange(number_, 0); } ///< the host is not to be asked any more

  private:
    unsigned number_;
    Cursor cursor_;
};

/// The host's cursors have numbers from 1 to below this one; those made of images are numbered from here.
inline constexpr unsigned kFirstImageCursor = 0x10000;

/// The number of a cursor made of images: that of an equal one that something holds, else one that is free.
[[nodiscard]] unsigned numberFor(const Cursor& cursor);

/// The number of the cursor that shows; 0 when it is none of the host's and no image of a cursor that something holds.
[[nodiscard]] unsigned shownCursorNumber();

} // namespace kzo::plugin
