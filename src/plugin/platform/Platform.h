// What the plug-in needs that is not the host's document: the log, keys, cursors, the mouse, alerts and folders, as
// small services. A platform provides all of them; which one does is decided when the plug-in starts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/FrameEnumerations.h"
#include "geo/Point.h"
#include "plugin/platform/Windows.h"

struct SPPlugin;

namespace kzo::plugin {

/// Lines for whoever looks into what went wrong.
class Log {
  public:
    /// `plugin` and its `name` say whose line it is; the name may be empty before it is known.
    virtual void write(SPPlugin* plugin, std::string_view name, std::string_view line) = 0;

  protected:
    ~Log() = default;
};

class Keys {
  public:
    [[nodiscard]] virtual core::ModifierKeys held() const = 0; ///< the modifier keys held now
    /// Whether presses of keys and mouse buttons are told to the plug-in (see Monitors). False when they cannot be.
    virtual bool monitorInput(SPPlugin* plugin, bool monitor) = 0;

  protected:
    ~Keys() = default;
};

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

class Cursors {
  public:
    virtual void show(unsigned number) = 0; ///< one of the host's
    virtual void show(const CursorImage& image) = 0;
    [[nodiscard]] virtual ShownCursor shown() const = 0;
    /// Pixels for a screen unit where the document is shown; nothing when there is no document frame to measure.
    [[nodiscard]] virtual std::optional<double> displayScale() const = 0;

  protected:
    ~Cursors() = default;
};

/// Places are in screen units, x right, y down.
class Mouse {
  public:
    [[nodiscard]] virtual geo::Point location() const = 0; ///< the origin where nobody knows
    /// Does as if the user did it, after the message being handled.
    virtual void press(const geo::Point& at) = 0;
    virtual void release(const geo::Point& at) = 0;

  protected:
    ~Mouse() = default;
};

/// A text with buttons: the first is the default, and Escape chooses the last.
struct Alert {
    enum class Kind { Message = 1, Error = 2, Confirm = 3, Question = 4 };

    Kind kind = Kind::Message;
    std::string text;
    std::vector<std::string> buttons;
};

class Alerts {
  public:
    bool on = true;     ///< the plug-in shows alerts; whoever shows one asks
    bool asked = false; ///< somebody saw the last one; a platform that could not show it takes this back

    /// Waits until a button is chosen, and returns its index. Where nothing can be shown it is the last.
    [[nodiscard]] virtual std::size_t show(const Alert& alert) = 0;
    virtual void beep() = 0;

  protected:
    ~Alerts() = default;
};

class Folders {
  public:
    /// Of the user; made if it is missing. Empty when there is none.
    [[nodiscard]] virtual std::string preferences() const = 0;

  protected:
    ~Folders() = default;
};

/// The services, and whether they can be had here. One object of each class lives as long as the process; it lists
/// itself, so that what is compiled in can be chosen.
class Platform {
  public:
    /// Where several are usable, the one of the lowest rank is chosen.
    explicit Platform(int rank);
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    [[nodiscard]] virtual bool usable() const = 0;
    [[nodiscard]] virtual Log& log() = 0;
    [[nodiscard]] virtual Keys& keys() = 0;
    [[nodiscard]] virtual Cursors& cursors() = 0;
    [[nodiscard]] virtual Mouse& mouse() = 0;
    [[nodiscard]] virtual Alerts& alerts() = 0;
    [[nodiscard]] virtual Windows& windows() = 0;
    [[nodiscard]] virtual Folders& folders() = 0;

    /// The next in rank, for what this one leaves to it. The stage is the last.
    [[nodiscard]] Platform& following() const { return *next_; }

  protected:
    ~Platform(); ///< takes itself off the list

  private:
    friend void choosePlatform();
    friend Platform& platform();

    int rank_;
    Platform* next_;
    static Platform* first_;
    static Platform* chosen_;
};

/// Chooses among the platforms compiled in. Where none is usable, that of the lowest rank does what it can.
void choosePlatform();
/// The platform that was chosen last.
[[nodiscard]] Platform& platform();

} // namespace kzo::plugin
