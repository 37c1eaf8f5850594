// Mouse and modifier keys: turns what the user does into tool messages, snaps the location, and runs a
// gesture from press to release with its roll-backs. One gesture is one undo step.
#pragma once

#include <cstdint>
#include <optional>

#include "hostapi/AITool.h"
#include "model/Types.h"
#include "session/documents/Documents.h"
#include "session/frame/Toolbox.h"
#include "session/input/Monitors.h"
#include "session/input/Snapping.h"

namespace easel::session {

/// What a tool remarks on a stroke: why nothing can be drawn.
enum class Remark { None, LayerLocked, LayerHidden };

class Pointer {
  public:
    Pointer(Documents& documents, Toolbox& toolbox, Messenger& messenger, Monitors& monitors, Reports& reports,
            Held& held)
        : documents_(documents),
          toolbox_(toolbox),
          messenger_(messenger),
          monitors_(monitors),
          reports_(reports),
          held_(held) {}

    /// Each throws Error when the state does not allow it: a drag with no button down, a press with no document.
    void move(model::Point location, Modifiers modifiers);
    void press(model::Point location, Modifiers modifiers);
    void drag(model::Point location, Modifiers modifiers);
    void release(model::Point location, Modifiers modifiers);
    /// A click with the right button. Tools do not hear of it, monitors do.
    void rightClick(model::Point location, Modifiers modifiers);
    /// Ends a running gesture with its mouse-up and puts the document back to before the press. The user's button is
    /// still down: drags and the release that follow are no errors, and nobody hears of them.
    void cancel();

    // Exact lengths, for every tool
    /// Holds a running gesture at this many points from its press, in the direction of the mouse and without snapping;
    /// none lets go, as does the gesture's end.
    void holdLength(std::optional<double> length) { heldLength_ = held_.button ? length : std::nullopt; }
    [[nodiscard]] std::optional<double> heldLength() const { return heldLength_; }
    [[nodiscard]] model::Point pressLocation() const { return pressLocation_; } ///< of the last gesture, snapped

    /// Presses or releases at a place of the screen, with the modifiers held then, once nothing is under way any more.
    /// What cannot be is dropped with a report.
    void postPress(model::Point place) { post("press", &Pointer::press, place); }
    void postRelease(model::Point place) { post("release", &Pointer::release, place); }

    [[nodiscard]] bool pressed() const { return held_.button; }
    /// Whether the last gesture was cancelled; false from the next press on.
    [[nodiscard]] bool takenBack() const { return takenBack_; }
    /// What the tool remarked on the last gesture that was released, at its press or its release; it is reported too.
    [[nodiscard]] Remark remark() const { return remark_; }
    /// After snapping, and where the tool holds it.
    [[nodiscard]] model::Point location() const { return location_; }
    [[nodiscard]] model::Point rawLocation() const { return rawLocation_; } ///< before snapping
    void setModifiers(Modifiers modifiers) { held_.modifiers = modifiers; }
    [[nodiscard]] Modifiers modifiers() const { return held_.modifiers; }

    /// Sends the tool's plug-in, if it has one, a message with the location and the modifiers; returns its answer. The
    /// pointer is from then on where the tool holds it; a location that is none is not taken.
    SPErr sendTo(Tool& tool, const char* selector, std::uint32_t flags = 0);

    Snapping snapping;
    /// The grid along the axes of the current tool's plug-in, else of any tool's, else isometric ones.
    [[nodiscard]] AxisGrid axisGrid() const { return {toolbox_.axes(), snapping.gridSpacing}; }

  private:
    using Handler = void (Pointer::*)(model::Point, Modifiers);

    void locate(model::Point location, Modifiers modifiers);
    [[nodiscard]] model::Point snapped(model::Point location) const;
    void locateGesture(model::Point location, Modifiers modifiers);
    [[nodiscard]] model::Point heldTo(model::Point location) const;
    void post(const char* name, Handler handler, model::Point place);
    /// Tells the gesture's tool, unless it has been taken out of the toolbox meanwhile, and keeps its remark.
    void send(const char* selector, BuiltinTool::Handler handler, std::uint32_t flags = 0);
    void reportRemark();
    void requirePressed() const;
    void requireReleased() const;

    Documents& documents_;
    Toolbox& toolbox_;
    Messenger& messenger_;
    Monitors& monitors_;
    Reports& reports_;
    Held& held_;
    bool takenBack_ = false;
    bool awaitsRelease_ = false; ///< of a gesture that was taken back
    Remark remark_ = Remark::None;
    AIToolHandle tool_ = nullptr; ///< of the gesture
    bool buffered_ = false;       ///< the gesture's tool asked for buffered dragging
    model::Point location_;
    model::Point rawLocation_;
    model::Point pressLocation_;
    std::optional<double> heldLength_; ///< none: wherever the mouse is
};

} // namespace easel::session
