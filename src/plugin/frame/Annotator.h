// Marks over the view that a client draws when the host asks for them: the calls behind core::Annotator, and when all
// marks have to be drawn anew.
#pragma once

#include <cstdint>
#include <string>

#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/Callback.h"
#include "plugin/host/Object.h"

struct AIAnnotator;
struct AITool;
struct SPPlugin;

namespace kzo::plugin {

struct ToolMessage;

class Annotator : public host::Object<AIAnnotator> {
  public:
    Annotator(SPPlugin* plugin, const std::string& name, const core::CallbackSlot& callback);

    [[nodiscard]] bool registered() const { return registered_; }
    void setRegistered(bool registered) { registered_ = registered; } ///< one that is not is no longer run
    [[nodiscard]] core::CallbackSlot& callback() { return callback_; }
    [[nodiscard]] std::string name() const;
    [[nodiscard]] bool active() const;
    void setActive(bool active);
    [[nodiscard]] std::int32_t options() const; ///< the host's bits, as they are
    void setOptions(std::int32_t options);
    void invalidate() const; ///< has the marks drawn anew
    void destroy();

  private:
    core::CallbackSlot callback_;
    bool registered_ = true;
};

/// Has the host draw all marks anew when what is on the screen has moved from under them.
class MarkFollower {
  public:
    /// Invalidates when the current view's bounds, the tool or its cursor are elsewhere than they were when that last
    /// happened. `message` is null when the message being handled is not a tool's.
    void follow(const ToolMessage* message);

  private:
    void followView();
    void followTool(const ToolMessage& message);

    core::ArtboardRect viewBounds_;
    AITool* tool_ = nullptr;
    core::ArtboardPoint cursor_;
};

} // namespace kzo::plugin
