// The host's own tools: what the mouse does while one of them is current. Each is told of a gesture within the
// document's transaction, with buffered dragging: before a drag and the release the document stands as the press left
// it.
#pragma once

#include <memory>
#include <optional>

#include "model/Document.h"
#include "session/frame/Held.h"

namespace easel::session {

class BuiltinTool {
  public:
    using Handler = void (BuiltinTool::*)(model::Document& document, model::Point location, Modifiers modifiers);

    BuiltinTool() = default;
    virtual ~BuiltinTool() = default;
    BuiltinTool(const BuiltinTool&) = delete;
    BuiltinTool& operator=(const BuiltinTool&) = delete;

    virtual void press(model::Document& document, model::Point location, Modifiers modifiers) = 0;
    virtual void drag(model::Document& document, model::Point location, Modifiers modifiers) = 0;
    virtual void release(model::Document& document, model::Point location, Modifiers modifiers) = 0;
    /// The way that the running gesture goes when the mouse goes this one from the press. Drags and the release are
    /// told of where it leads.
    [[nodiscard]] virtual model::Point taken(model::Point way, Modifiers modifiers) const = 0;
    /// The rectangle that the running gesture opens, to select what it touches; none while it does something else.
    [[nodiscard]] virtual std::optional<model::Box> marquee() const = 0;
};

/// Selects and moves whole objects: paths, compound paths, opaque art and outermost groups.
[[nodiscard]] std::unique_ptr<BuiltinTool> makeSelectionTool();
/// Selects and moves anchors, also inside of groups, and the handles of selected anchors.
[[nodiscard]] std::unique_ptr<BuiltinTool> makeDirectSelectionTool();

} // namespace easel::session
