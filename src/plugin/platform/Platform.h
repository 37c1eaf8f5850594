// The one seam to everything that is not the host: keys, cursors, the mouse, the system log.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/values/Enumerations.h"
#include "geo/Point.h"

struct SPPlugin;

namespace kzo::plugin {

/// An image among a plug-in's resources, as a cursor.
struct CursorImage {
    SPPlugin* plugin = nullptr;
    std::int16_t resource = 0;
    geo::Point hotSpot; ///< in screen units from the image's top left corner
    int scale = 1;      ///< pixels of the image for a screen unit

    bool operator==(const CursorImage&) const = default;
};

/// The cursor that shows: one of the host's by number or, where that is 0, an image. Neither where nobody knows.
struct ShownCursor {
    unsigned number = 0;
    CursorImage image;
};

/// Places on the screen are in screen units, x right, y down.
class Platform {
  public:
    virtual ~Platform() = default;

    [[nodiscard]] virtual core::ModifierKeys modifierKeys() const = 0; ///< held now
    /// Whether keys and mouse buttons are told to the plug-in (see Monitors). False when the platform cannot.
    virtual bool monitorInput(SPPlugin* plugin, bool monitor) = 0;
    virtual void log(std::string_view line) = 0;

    // Cursors
    virtual void showCursor(unsigned number) = 0; ///< one of the host's
    virtual void showCursor(const CursorImage& image) = 0;
    [[nodiscard]] virtual ShownCursor shownCursor() const = 0;
    /// Pixels for a screen unit where the document is shown; nothing when there is no document frame to measure.
    [[nodiscard]] virtual std::optional<double> displayScale() const = 0;

    // The mouse
    [[nodiscard]] virtual geo::Point pointerLocation() const = 0; ///< the origin where nobody knows
    /// Does as if the user did it, after the message being handled.
    virtual void pressMouse(const geo::Point& at) = 0;
    virtual void releaseMouse(const geo::Point& at) = 0;
};

/// The platform that the plug-in runs on.
[[nodiscard]] Platform& platform();

} // namespace kzo::plugin
